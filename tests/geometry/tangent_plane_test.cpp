#include "tessara/tangent_plane.h"

#include <gtest/gtest.h>

#include "support/random.h"
#include "support/reference_file.h"
#include "support/space_fixture.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

using testing::Disguised;
using testing::Distance;
using testing::Dot;
using testing::Minus;
using testing::Moved;
using testing::PI_180;
using testing::Place;
using testing::Random;

constexpr double E2_OF_WGS84 = 0.0066943799901413165;

struct PlanePlace {
    double x, y, z;
};

class TangentPlaneTest : public testing::SpaceTest {
  protected:
    void SetOrigin(double latitude, double longitude, double height = 0.0) {
        ASSERT_TRUE(plane->SetOrigin(Place(latitude, longitude, height).Get()));
    }

    PlanePlace PlaceOf(const IRef<ICoord>& p) {
        PlanePlace place{};
        EXPECT_TRUE(plane->GetPlaneCoords(p.Get(), &place.x, &place.y, &place.z));
        return place;
    }

    // A position at plane coordinates and a height above the plane.
    IRef<ICoord> At(double x, double y, double z = 0.0) {
        IRef<ICoord> coord(CreateClassCoord());
        EXPECT_TRUE(plane->PlaneCoordsToCoord(x, y, z, coord.Get()));
        return coord;
    }

    IRef<ITangentPlane> plane{CreateClassTangentPlane()};
};

// 1e-6 m: distances of the size of the earth are subtracted from each other, and the figures have 1e-9 m.
TEST_F(TangentPlaneTest, PlaneCoordinatesAgreeWithIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/tangent_plane.txt")) {
        SetOrigin(row.Number(0), row.Number(1), row.Number(2));
        const PlanePlace place = PlaceOf(Place(row.Number(3), row.Number(4), row.Number(5)));
        EXPECT_NEAR(place.x, row.Number(6), 1e-6) << row.place;
        EXPECT_NEAR(place.y, row.Number(7), 1e-6) << row.place;
        EXPECT_NEAR(place.z, row.Number(8), 1e-6) << row.place;
    }
}

// Along the ground 2 mm, twice the 1e-8 degrees of EcefVectorToCoord; in height its limit.
TEST_F(TangentPlaneTest, TheWayBackUndoesPlaneCoordinates) {
    Random random(661);
    const double special[][2] = {{0.0, 0.0},    {0.0, 123.0},  {90.0, 0.0},
                                 {90.0, -50.0}, {-90.0, 10.0}, {1e-13, 20.0}};
    const IRef<ICoord> out(CreateClassCoord());
    for (int i = 0; i < 10000; ++i) {
        if (i % 5 == 0) {
            const bool isSpecial = i % 50 == 0;
            const double* const at = special[random.Below(6)];
            SetOrigin(isSpecial ? at[0] : random.Between(-90.0, 90.0),
                      isSpecial ? at[1] : random.Between(-180.0, 180.0), random.Between(-100.0, 5000.0));
        }
        IRef<ICoord> p = At(random.Between(-350e3, 350e3), random.Between(-350e3, 350e3));
        p->SetHeight(random.Between(-1e4, 1e5));
        const PlanePlace place = PlaceOf(p);
        ASSERT_TRUE(plane->PlaneCoordsToCoord(place.x, place.y, place.z, out.Get()));
        const double latitude = PayloadOf<GeodezPayload>(p).latitude;
        const double limit = testing::HeightLimit(latitude, p->GetHeight(), E2_OF_WGS84) + 1e-6;
        ASSERT_NEAR(out->GetHeight(), p->GetHeight(), limit) << "latitude " << latitude;
        Vector up;
        ASSERT_TRUE(ellipsoid->GetNormal(p.Get(), &up));
        const Vector off = Minus(XyzAt(out), XyzAt(p));
        const Vector aside = Moved(off, -Dot(off, up), up);
        ASSERT_LT(std::sqrt(Dot(aside, aside)), 2e-3) << "latitude " << latitude;
    }
}

TEST_F(TangentPlaneTest, TheAzimuthOfTheOriginIsZeroEverywhere) {
    const double origins[][2] = {{48.0, 16.0},  {-30.0, -70.0}, {10.0, -120.0}, {-48.0, 100.0},
                                 {30.0, 170.0}, {60.0, -20.0},  {0.0, 0.0},     {0.0, -130.0},
                                 {90.0, 0.0},   {-90.0, 45.0}};
    for (const auto& at : origins) {
        SetOrigin(at[0], at[1]);
        EXPECT_EQ(plane->GetAzimuth(Place(at[0], at[1]).Get()), 0.0) << at[0] << " " << at[1];
        EXPECT_FALSE(std::signbit(plane->GetAzimuth(Place(at[0], at[1]).Get())));
    }
    Random random(662);
    for (int i = 0; i < 1000; ++i) {
        const IRef<ICoord> origin = Place(random.Between(-90.0, 90.0), random.Between(-180.0, 180.0));
        ASSERT_TRUE(plane->SetOrigin(origin.Get()));
        ASSERT_EQ(plane->GetAzimuth(origin.Get()), 0.0);
    }
}

TEST_F(TangentPlaneTest, AzimuthsCountClockwiseFromNorthInBothHalves) {
    SetOrigin(0.0, 20.0);
    // On the equator the plane's north is exactly the axis of the earth.
    EXPECT_EQ(plane->GetAzimuth(Place(0.0, 21.0).Get()), 90.0);
    EXPECT_EQ(plane->GetAzimuth(Place(0.0, 19.0).Get()), -90.0);
    SetOrigin(48.0, 16.0);
    const double azimuths[] = {-179.0, -135.0, -90.0, -30.0, 0.0, 45.0, 90.0, 120.0, 180.0};
    for (const double azimuth : azimuths) {
        const IRef<ICoord> p =
            At(3000.0 * std::sin(azimuth * PI_180), 3000.0 * std::cos(azimuth * PI_180), 5.0);
        // 1 mm along the ground, the accuracy of the position, at 3 km.
        EXPECT_NEAR(std::fabs(plane->GetAzimuth(p.Get())), std::fabs(azimuth), 4e-5);
        if (std::fabs(azimuth) < 180.0) {
            EXPECT_NEAR(plane->GetAzimuth(p.Get()), azimuth, 4e-5);
        }
    }
    // echo 49 17 0 | CartConvert -p 9 -l 48 16 0
    const double expected = std::atan2(73168.078508030, 111668.909912766) / PI_180;
    EXPECT_NEAR(plane->GetAzimuth(Place(49.0, 17.0).Get()), expected, 1e-10);
}

TEST_F(TangentPlaneTest, APointInThePlaneHasNoHeightAboveIt) {
    SetOrigin(48.0, 16.0);
    const PlanePlace origin = PlaceOf(Place(48.0, 16.0));
    EXPECT_EQ(origin.x, 0.0);
    EXPECT_EQ(origin.y, 0.0);
    EXPECT_EQ(origin.z, 0.0);
    EXPECT_FALSE(std::signbit(origin.z));
    const PlanePlace above = PlaceOf(Place(48.0, 16.0, 125.0));
    // Metres, ten units of the last place of 6.4e6 m.
    EXPECT_NEAR(above.x, 0.0, 1e-8);
    EXPECT_NEAR(above.z, 125.0, 1e-8);
}

TEST_F(TangentPlaneTest, NoPointOfThePlaneHasAHeightAboveIt) {
    Random random(6303);
    for (int i = 0; i < 500; ++i) {
        const IRef<ICoord> origin = Place(random.Between(-90.0, 90.0), random.Between(-180.0, 180.0));
        ASSERT_TRUE(plane->SetOrigin(origin.Get()));
        const IRef<ICoord> frame(CreateClassCoord());
        Vector east;
        Vector north;
        ASSERT_TRUE(plane->GetFrame(frame.Get(), &east, &north));
        const double x = random.Between(-1e5, 1e5);
        const double y = random.Between(-1e5, 1e5);
        const Vector xyz = Moved(Moved(XyzAt(origin), x, east), y, north);
        const PlanePlace place = PlaceOf(CoordOf(Record(KOORD_ECEF, EcefPayload{xyz[0], xyz[1], xyz[2]})));
        // The point is rounded to 1e-9 m, which the elimination may count some ten thousandfold, as near the
        // equator, where it divides by the sine of the latitude.
        EXPECT_NEAR(place.x, x, 1e-4);
        EXPECT_NEAR(place.y, y, 1e-4);
        EXPECT_NEAR(place.z, 0.0, 1e-4);
    }
}

TEST_F(TangentPlaneTest, TheFrameIsTheOriginAndItsAxes) {
    const IRef<ICoord> origin = Place(48.0, 16.0, 200.0);
    ASSERT_TRUE(origin->SetReference(ReferenceOf(DATUM_WGS84, KOORD_UTM).Get()));
    ASSERT_TRUE(plane->SetOrigin(origin.Get()));
    const IRef<ICoord> out(CreateClassCoord());
    Vector east;
    Vector north;
    ASSERT_TRUE(plane->GetFrame(out.Get(), &east, &north));
    // Degrees: a tenth of a millimetre, through UTM and back.
    EXPECT_NEAR(PayloadOf<GeodezPayload>(out).latitude, 48.0, 1e-9);
    EXPECT_EQ(out->GetHeight(), 200.0);
    Vector expectedEast;
    Vector expectedNorth;
    ASSERT_TRUE(ellipsoid->GetLocalAxes(out.Get(), &expectedEast, &expectedNorth));
    EXPECT_EQ(east, expectedEast);
    EXPECT_EQ(north, expectedNorth);
    Vector v;
    Vector expected;
    ASSERT_TRUE(plane->GetNormal(&v));
    ASSERT_TRUE(ellipsoid->GetNormal(out.Get(), &expected));
    EXPECT_EQ(v, expected);
    ASSERT_TRUE(plane->GetDirection(33.0, &v));
    ASSERT_TRUE(ellipsoid->GetDirection(out.Get(), 33.0, &expected));
    EXPECT_EQ(v, expected);
}

TEST_F(TangentPlaneTest, GetOriginConvertsIntoTheReferenceOfTheOutput) {
    SetOrigin(48.0, 16.0, 200.0);
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(plane->GetOrigin(utm.Get()));
    EXPECT_EQ(PayloadOf<UtmPayload>(utm).zone, 33);
    EXPECT_EQ(utm->GetHeight(), 200.0);
}

TEST_F(TangentPlaneTest, TheOriginMayBeSetAgainAlsoOnAnotherDatum) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> second = Place(-20.0, 30.0, 10.0, DATUM_GER);
    ASSERT_TRUE(plane->SetOrigin(second.Get()));
    const PlanePlace place = PlaceOf(second);
    EXPECT_EQ(place.x, 0.0);
    EXPECT_EQ(place.y, 0.0);
    EXPECT_EQ(place.z, 0.0);
    const IRef<ICoord> out = EmptyCoord(DATUM_GER, KOORD_GEODEZ);
    ASSERT_TRUE(plane->GetOrigin(out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, -20.0);
}

TEST_F(TangentPlaneTest, TheOriginIsACopy) {
    const IRef<ICoord> origin = Place(48.0, 16.0);
    ASSERT_TRUE(plane->SetOrigin(origin.Get()));
    EXPECT_EQ(testing::CountOf(origin), 1u);
    origin->SetHeight(1e6);
    EXPECT_EQ(PlaceOf(Place(48.0, 16.0)).z, 0.0);
}

void ExpectWithoutOrigin(ITangentPlane* plane) {
    const IRef<ICoord> p = Place(48.0, 16.0);
    const IRef<ICoord> out = Place(1.0, 2.0);
    const Vector down{0.0, 0.0, -1.0};
    Vector v{7.0};
    Vector w{7.0};
    double x = 1.0;
    double y = 2.0;
    double z = 3.0;
    EXPECT_FALSE(plane->GetFrame(out.Get(), &v, &w));
    EXPECT_EQ(plane->GetAzimuth(p.Get()), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(&down, &down, &x, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->ProjectAlong(p.Get(), &down, out.Get()), MISSING_NUMBER);
    EXPECT_FALSE(plane->MapByGeodesic(p.Get(), out.Get()));
    EXPECT_FALSE(plane->MapByChord(p.Get(), out.Get()));
    EXPECT_FALSE(plane->GetPlaneCoords(p.Get(), &x, &y, &z));
    EXPECT_FALSE(plane->PlaneCoordsToCoord(1.0, 2.0, 3.0, out.Get()));
    EXPECT_EQ(x + y + z, 6.0);
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 1.0);
    EXPECT_EQ(v, Vector{7.0});
    EXPECT_EQ(w, Vector{7.0});
}

TEST_F(TangentPlaneTest, WithoutAnOriginEverythingFailsThatNeedsOne) {
    ExpectWithoutOrigin(plane.Get());
    Vector v{7.0};
    EXPECT_FALSE(plane->GetNormal(&v));
    EXPECT_EQ(v.Size(), 0u);
    EXPECT_FALSE(plane->GetDirection(10.0, &v));
    const IRef<ICoord> out = Place(1.0, 2.0);
    EXPECT_TRUE(plane->GetOrigin(out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 0.0);
}

TEST_F(TangentPlaneTest, AnOriginThatFailsLeavesThePlaneWithoutAxes) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> pixel(CreateClassCoord());
    pixel->SetPixel(1.0, 2.0);
    EXPECT_FALSE(plane->SetOrigin(pixel.Get()));
    ExpectWithoutOrigin(plane.Get());
    SetOrigin(48.0, 16.0);
    EXPECT_EQ(PlaceOf(Place(48.0, 16.0)).z, 0.0);
    // A null or wrong object is refused before anything is touched.
    EXPECT_FALSE(plane->SetOrigin(nullptr));
    EXPECT_EQ(PlaceOf(Place(48.0, 16.0)).z, 0.0);
}

TEST_F(TangentPlaneTest, ARayAlongTheEastAxisLiesInThePlane) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> out(CreateClassCoord());
    Vector east;
    Vector north;
    ASSERT_TRUE(plane->GetFrame(out.Get(), &east, &north));
    const Vector point = Moved(XyzAt(Place(48.0, 16.0)), 5.0, east);
    double x = 0.0;
    double y = 0.0;
    EXPECT_EQ(plane->IntersectRay(&point, &east, &x, &y), RAY_IN_PLANE);
    EXPECT_NEAR(x, 5.0, 1e-8);  // the point is rounded to 1e-9 m
    EXPECT_NEAR(y, 0.0, 1e-8);
}

TEST_F(TangentPlaneTest, RaysAlongThePlaneLieInItOrMiss) {
    Random random(663);
    const IRef<ICoord> out(CreateClassCoord());
    for (int i = 0; i < 2000; ++i) {
        const double latitude = i % 20 == 0 ? 90.0 * random.Below(3) - 90.0 : random.Between(-90.0, 90.0);
        const IRef<ICoord> origin = Place(latitude, random.Between(-180.0, 180.0));
        ASSERT_TRUE(plane->SetOrigin(origin.Get()));
        Vector east;
        Vector north;
        Vector normal;
        ASSERT_TRUE(plane->GetFrame(out.Get(), &east, &north) && plane->GetNormal(&normal));
        const double expectedX = random.Between(-1e5, 1e5);
        const double expectedY = random.Between(-1e5, 1e5);
        const Vector inPlane = Moved(Moved(XyzAt(origin), expectedX, east), expectedY, north);
        const Vector beside = Moved(inPlane, random.Between(1e-4, 1e3), normal);
        Vector slanted;
        ASSERT_TRUE(plane->GetDirection(random.Between(0.0, 360.0), &slanted));
        for (const Vector& direction : {east, north, slanted}) {
            double x = 1.0;
            double y = 1.0;
            ASSERT_EQ(plane->IntersectRay(&inPlane, &direction, &x, &y), RAY_IN_PLANE) << latitude;
            // The place is rounded to 1e-9 m, which may count a thousandfold as northing.
            ASSERT_NEAR(x, expectedX, 5e-6) << latitude;
            ASSERT_NEAR(y, expectedY, 5e-6) << latitude;
            ASSERT_EQ(plane->IntersectRay(&beside, &direction, &x, &y), MISSING_NUMBER) << latitude;
            ASSERT_EQ(x, 0.0);
            ASSERT_EQ(y, 0.0);
        }
    }
}

TEST_F(TangentPlaneTest, ASlantedRayMeetsThePlane) {
    SetOrigin(-35.0, 150.0);
    const IRef<ICoord> out(CreateClassCoord());
    Vector east;
    Vector north;
    Vector normal;
    ASSERT_TRUE(plane->GetFrame(out.Get(), &east, &north) && plane->GetNormal(&normal));
    // From (100, 200, 50) down by (2, -1, -1) per unit: after 50 units at (200, 150, 0).
    const Vector start =
        Moved(Moved(Moved(XyzAt(Place(-35.0, 150.0)), 100.0, east), 200.0, north), 50.0, normal);
    const Vector direction = Moved(Moved(Moved({0.0, 0.0, 0.0}, 2.0, east), -1.0, north), -1.0, normal);
    double x = 0.0;
    double y = 0.0;
    EXPECT_NEAR(plane->IntersectRay(&start, &direction, &x, &y), 50.0, 1e-8);
    EXPECT_NEAR(x, 200.0, 1e-7);
    EXPECT_NEAR(y, 150.0, 1e-7);
}

TEST_F(TangentPlaneTest, ProjectAlongMovesOntoThePlane) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> p = Place(48.01, 16.02, 300.0);
    const IRef<ICoord> out(CreateClassCoord());
    Vector normal;
    ASSERT_TRUE(plane->GetNormal(&normal));
    const PlanePlace place = PlaceOf(p);
    const double t = plane->ProjectAlong(p.Get(), &normal, out.Get());
    // Metres; the foot is a position again, whose latitude is good to 7e-9 degrees, 0.8 mm.
    EXPECT_NEAR(t, -place.z, 1e-8);
    const PlanePlace foot = PlaceOf(out);
    EXPECT_NEAR(foot.x, place.x, 2e-3);
    EXPECT_NEAR(foot.y, place.y, 2e-3);
    EXPECT_NEAR(foot.z, 0.0, 0.01);
}

TEST_F(TangentPlaneTest, APointOnNoDatumIsNotProjected) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> nowhere = CoordOf(GeodezRecord(48.0, 16.0, 0.0, 500));
    const IRef<ICoord> kept = Place(1.0, 2.0);
    Vector normal;
    ASSERT_TRUE(plane->GetNormal(&normal));
    EXPECT_EQ(plane->ProjectAlong(nowhere.Get(), &normal, kept.Get()), MISSING_NUMBER);
    EXPECT_EQ(PayloadOf<GeodezPayload>(kept).latitude, 1.0);
}

TEST_F(TangentPlaneTest, ProjectAlongThePlaneCopiesAPointOfIt) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> origin = Place(48.0, 16.0);
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    const IRef<ICoord> frame(CreateClassCoord());
    Vector east;
    Vector north;
    ASSERT_TRUE(plane->GetFrame(frame.Get(), &east, &north));
    EXPECT_EQ(plane->ProjectAlong(origin.Get(), &east, utm.Get()), RAY_IN_PLANE);
    EXPECT_EQ(PayloadOf<UtmPayload>(utm).zone, 33);
    EXPECT_EQ(plane->ProjectAlong(origin.Get(), &east, nullptr), MISSING_NUMBER);
    // A point off the plane misses, and the output stays.
    const IRef<ICoord> kept = Place(1.0, 2.0);
    EXPECT_EQ(plane->ProjectAlong(Place(48.0, 16.0, 10.0).Get(), &east, kept.Get()), MISSING_NUMBER);
    EXPECT_EQ(PayloadOf<GeodezPayload>(kept).latitude, 1.0);
}

TEST_F(TangentPlaneTest, MapByGeodesicKeepsTheGeodesicDistance) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> p = Place(49.0, 17.0);
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_TRUE(plane->MapByGeodesic(p.Get(), out.Get()));
    const PlanePlace mapped = PlaceOf(out);
    // The third number of: echo 48 16 49 17 | GeodSolve -i -p 9
    EXPECT_NEAR(std::hypot(mapped.x, mapped.y), 133514.485280486, 2e-3);
    EXPECT_NEAR(mapped.z, 0.0, 0.15);
    EXPECT_NEAR(std::atan2(mapped.x, mapped.y) / PI_180, plane->GetAzimuth(p.Get()), 1e-6);
}

TEST_F(TangentPlaneTest, MapByChordKeepsTheStraightDistance) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> p = Place(49.0, 17.0);
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_TRUE(plane->MapByChord(p.Get(), out.Get()));
    const PlanePlace mapped = PlaceOf(out);
    // x, y and z of CartConvert -l 48 16 0 for 49 17 0.
    const double chord = std::hypot(73168.078508030, 111668.909912766, -1397.665716145);
    EXPECT_NEAR(std::hypot(mapped.x, mapped.y), chord, 2e-3);
    EXPECT_NEAR(mapped.z, 0.0, 0.15);
    EXPECT_NEAR(std::atan2(mapped.x, mapped.y) / PI_180, plane->GetAzimuth(p.Get()), 1e-6);
}

// The chord is shorter by about d^3 / (24 a^2).
TEST_F(TangentPlaneTest, NearTheOriginTheTwoMapsAgreeUpToTheCurvature) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> p = At(10000.0, -20000.0, -39.0);
    const IRef<ICoord> geodesic(CreateClassCoord());
    const IRef<ICoord> chord(CreateClassCoord());
    ASSERT_TRUE(plane->MapByGeodesic(p.Get(), geodesic.Get()));
    ASSERT_TRUE(plane->MapByChord(p.Get(), chord.Get()));
    // 22361^3 / (24 * 6.38e6^2) is 0.011 m; heights of a metre add less than 0.01 m.
    EXPECT_LT(Distance(XyzAt(geodesic), XyzAt(chord)), 0.2);
    EXPECT_NEAR(PlaceOf(geodesic).z, 0.0, 0.15);
    EXPECT_NEAR(PlaceOf(chord).z, 0.0, 0.15);
}

TEST_F(TangentPlaneTest, MapsOfTheOriginAreTheOrigin) {
    SetOrigin(-12.0, 100.0);
    const IRef<ICoord> out(CreateClassCoord());
    for (const bool byChord : {false, true}) {
        const IRef<ICoord> p = Place(-12.0, 100.0);
        ASSERT_TRUE(byChord ? plane->MapByChord(p.Get(), out.Get())
                            : plane->MapByGeodesic(p.Get(), out.Get()));
        // Degrees: the last step in latitude is up to 1e-6, and the remaining error is e2 = 0.0067 of it.
        EXPECT_NEAR(PayloadOf<GeodezPayload>(out).latitude, -12.0, 1e-8);
        EXPECT_NEAR(PayloadOf<GeodezPayload>(out).longitude, 100.0, 1e-8);
    }
}

// WGS84 positions, and the ellipsoid of the point's datum for the distance.
TEST_F(TangentPlaneTest, MapByGeodesicMeasuresOnTheEllipsoidOfThePointsDatum) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> p = Place(49.0, 17.0, 0.0, DATUM_GER);
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_TRUE(plane->MapByGeodesic(p.Get(), out.Get()));
    const IRef<ICoordGeographic> wgs84(CreateClassCoordGeographic());
    ASSERT_TRUE(p->GetGeographic(wgs84.Get()));
    const tagKOORD from = GeodezRecord(48.0, 16.0);
    const tagKOORD to = GeodezRecord(wgs84->GetLatitude(), wgs84->GetLongitude());
    double distance = 0.0;
    double azimuth12 = 0.0;
    double azimuth21 = 0.0;
    ASSERT_EQ(Geodesic_Inverse(&from, &to, DATUM_GER, &distance, &azimuth12, &azimuth21), KOORD_OK);
    const PlanePlace mapped = PlaceOf(out);
    EXPECT_NEAR(std::hypot(mapped.x, mapped.y), distance, 2e-3);
}

TEST_F(TangentPlaneTest, OutputsMayBeTheArgument) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> out(CreateClassCoord());
    const IRef<ICoord> p = Place(49.0, 17.0);
    ASSERT_TRUE(plane->MapByChord(p.Get(), out.Get()));
    ASSERT_TRUE(plane->MapByChord(p.Get(), p.Get()));
    EXPECT_EQ(XyzAt(p), XyzAt(out));
}

TEST_F(TangentPlaneTest, RefusesMissingAndForeignArguments) {
    SetOrigin(48.0, 16.0);
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    const IRef<ICoord> p = Place(48.1, 16.1);
    const IRef<ICoord> out(CreateClassCoord());
    Vector down{0.0, 0.0, -1.0};
    Vector v;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        EXPECT_FALSE(plane->GetFrame(wrong, &v, &v));
        EXPECT_FALSE(plane->GetOrigin(wrong));
        EXPECT_EQ(plane->GetAzimuth(wrong), MISSING_NUMBER);
        EXPECT_EQ(plane->ProjectAlong(wrong, &down, out.Get()), MISSING_NUMBER);
        EXPECT_EQ(plane->ProjectAlong(p.Get(), &down, wrong), MISSING_NUMBER);
        EXPECT_FALSE(plane->MapByGeodesic(wrong, out.Get()));
        EXPECT_FALSE(plane->MapByGeodesic(p.Get(), wrong));
        EXPECT_FALSE(plane->MapByChord(wrong, out.Get()));
        EXPECT_FALSE(plane->MapByChord(p.Get(), wrong));
        EXPECT_FALSE(plane->GetPlaneCoords(wrong, &x, &y, &z));
        EXPECT_FALSE(plane->PlaneCoordsToCoord(1.0, 2.0, 3.0, wrong));
        EXPECT_FALSE(plane->SetOrigin(wrong));
    }
    SetOrigin(48.0, 16.0);
    EXPECT_FALSE(plane->GetFrame(out.Get(), nullptr, &v));
    EXPECT_FALSE(plane->GetFrame(out.Get(), &v, nullptr));
    EXPECT_FALSE(plane->GetNormal(nullptr));
    EXPECT_FALSE(plane->GetDirection(0.0, nullptr));
    EXPECT_FALSE(plane->GetPlaneCoords(p.Get(), nullptr, &y, &z));
    EXPECT_FALSE(plane->GetPlaneCoords(p.Get(), &x, nullptr, &z));
    EXPECT_FALSE(plane->GetPlaneCoords(p.Get(), &x, &y, nullptr));
    EXPECT_EQ(plane->ProjectAlong(p.Get(), nullptr, out.Get()), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(nullptr, &down, &x, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(&down, nullptr, &x, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(&down, &down, nullptr, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(&down, &down, &x, nullptr), MISSING_NUMBER);
    const Vector two{1.0, 2.0};
    EXPECT_EQ(plane->IntersectRay(&two, &down, &x, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->IntersectRay(&down, &two, &x, &y), MISSING_NUMBER);
    EXPECT_EQ(plane->ProjectAlong(p.Get(), &two, out.Get()), MISSING_NUMBER);
    EXPECT_FALSE(HoldsPosition(out));
}

// An object of count 0 ends in the operation that it is given to, at its end and no earlier.
TEST_F(TangentPlaneTest, TakesCoordinatesFreshFromTheirCreation) {
    SetOrigin(1.0, 1.0);
    const IRef<ICoord> p = Place(1.1, 1.1);
    Vector v;
    Vector w;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    EXPECT_TRUE(plane->GetFrame(CreateClassCoord(), &v, &w));
    EXPECT_TRUE(plane->GetOrigin(CreateClassCoord()));
    EXPECT_NE(plane->GetAzimuth(CreateClassCoord()), MISSING_NUMBER);
    EXPECT_TRUE(plane->GetPlaneCoords(CreateClassCoord(), &x, &y, &z));
    EXPECT_TRUE(plane->PlaneCoordsToCoord(1.0, 2.0, 3.0, CreateClassCoord()));
    EXPECT_FALSE(plane->MapByGeodesic(CreateClassCoord(), CreateClassCoord()));
    EXPECT_TRUE(plane->MapByGeodesic(p.Get(), CreateClassCoord()));
    EXPECT_TRUE(plane->MapByChord(CreateClassCoord(), CreateClassCoord()));
    const Vector up{1.0, 0.0, 0.0};
    EXPECT_NE(plane->ProjectAlong(CreateClassCoord(), &up, CreateClassCoord()), MISSING_NUMBER);
    EXPECT_TRUE(plane->SetOrigin(CreateClassCoord()));
    // From a point of the plane along it.
    ASSERT_TRUE(plane->GetDirection(90.0, &v));
    EXPECT_EQ(plane->ProjectAlong(CreateClassCoord(), &v, CreateClassCoord()), RAY_IN_PLANE);
}

TEST_F(TangentPlaneTest, NumbersThatAreNotFiniteFail) {
    SetOrigin(48.0, 16.0);
    const IRef<ICoord> out = Place(1.0, 2.0);
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_FALSE(plane->PlaneCoordsToCoord(bad, 0.0, 0.0, out.Get()));
        EXPECT_FALSE(plane->PlaneCoordsToCoord(0.0, bad, 0.0, out.Get()));
        EXPECT_FALSE(plane->PlaneCoordsToCoord(0.0, 0.0, bad, out.Get()));
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        EXPECT_FALSE(plane->GetPlaneCoords(Place(48.0, 16.0, bad).Get(), &x, &y, &z));
        EXPECT_EQ(plane->GetAzimuth(Place(bad, 16.0).Get()), MISSING_NUMBER);
        EXPECT_FALSE(plane->MapByGeodesic(Place(48.0, bad).Get(), out.Get()));
        EXPECT_FALSE(plane->MapByChord(Place(48.0, 16.0, bad).Get(), out.Get()));
    }
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 1.0);
}

TEST_F(TangentPlaneTest, APointThatIsNotFiniteHasThePlaceOfARayThatMisses) {
    SetOrigin(48.0, 16.0);
    double x = 1.0;
    double y = 2.0;
    double z = 3.0;
    EXPECT_FALSE(plane->GetPlaneCoords(Place(48.0, 16.0, NOT_A_NUMBER).Get(), &x, &y, &z));
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(z, 3.0);
}

class TangentPlaneWithoutManager : public testing::BalancedTest {};

TEST_F(TangentPlaneWithoutManager, WorksByTheLibrarysOwnParts) {
    const IRef<ITangentPlane> plane(CreateClassTangentPlane());
    const IRef<ICoord> origin = Place(48.0, 16.0, 100.0);
    ASSERT_TRUE(plane->SetOrigin(origin.Get()));
    // 100 m above the origin the normal leads to the origin itself.
    double x = 1.0, y = 1.0, z = 0.0;
    ASSERT_TRUE(plane->GetPlaneCoords(Place(48.0, 16.0, 200.0).Get(), &x, &y, &z));
    EXPECT_NEAR(x, 0.0, 1e-8);  // the rounding of 6.4e6 m, 9e-10 m, a few times
    EXPECT_NEAR(y, 0.0, 1e-8);
    EXPECT_NEAR(z, 100.0, 1e-8);
    const IRef<ICoord> out = Place(0.0, 0.0);
    EXPECT_TRUE(plane->PlaneCoordsToCoord(10.0, 20.0, 0.0, out.Get()));
    EXPECT_TRUE(plane->MapByGeodesic(Place(48.1, 16.0).Get(), out.Get()));
    EXPECT_TRUE(plane->MapByChord(Place(48.1, 16.0).Get(), out.Get()));
}

TEST_F(TangentPlaneWithoutManager, TakesNoOriginWithAManagerThatGivesNothing) {
    const testing::ManagedLibrary library{testing::MakeEmptyHandedManager()};
    const IRef<ITangentPlane> plane(CreateClassTangentPlane());
    EXPECT_FALSE(plane->SetOrigin(Place(48.0, 16.0).Get()));
    ExpectWithoutOrigin(plane.Get());
}

// The plane of an origin at longitude 0 stands upright on the meridian 90. An origin for which memory runs
// out may replace the position of the old one, but not its axes; the normal of the new origin then lies in
// the old plane.
TEST_F(TangentPlaneTest, ANormalThatLiesInThePlaneGivesNoHeight) {
    const IRef<ICoord> old = Place(0.0, 0.0);
    const IRef<ICoord> next = CoordOf(GeodezRecord(0.0, 90.0));
    ASSERT_TRUE(next->SetReference(ReferenceOf(DATUM_WGS84, KOORD_GEOGRAD).Get()));
    const Vector xyz = XyzAt(old);
    int mixed = 0;
    for (int nth = 1; nth < 50; ++nth) {
        SetOrigin(0.0, 0.0);
        {
            const testing::FailAllocation failure(nth);
            if (plane->SetOrigin(next.Get())) continue;
        }
        Vector normal;
        PlanePlace place{};
        ASSERT_TRUE(plane->GetNormal(&normal));
        if (plane->IntersectRay(&xyz, &normal, &place.x, &place.y) != RAY_IN_PLANE) continue;
        ++mixed;
        place = {7.0, 7.0, 7.0};
        EXPECT_TRUE(plane->GetPlaneCoords(old.Get(), &place.x, &place.y, &place.z));
        EXPECT_EQ(place.x, 0.0);
        EXPECT_EQ(place.y, 0.0);
        EXPECT_EQ(place.z, 0.0);
    }
    EXPECT_GT(mixed, 0);
}

}  // namespace
}  // namespace tessara
