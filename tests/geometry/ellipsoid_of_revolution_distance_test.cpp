// The two searches for a point at a distance of IEllipsoidOfRevolution.
#include <gtest/gtest.h>

#include "support/random.h"
#include "support/reference_file.h"
#include "support/space_fixture.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

using testing::Distance;
using testing::Dot;
using testing::Minus;
using testing::PI_180;
using testing::Place;
using testing::Random;
using testing::XyzOf;

class PointAtDistance : public testing::SpaceTest {
  protected:
    bool Geodesic(const IRef<ICoord>& start, double azimuth, double distance) {
        return ellipsoid->PointAtGeodesicDistance(start.Get(), azimuth, distance, out.Get());
    }

    bool Chord(const IRef<ICoord>& start, double azimuth, double distance) {
        return ellipsoid->PointAtChordDistance(start.Get(), azimuth, distance, out.Get());
    }

    // The geodesic distance of `out` from a record, on the ellipsoid of a datum.
    double GeodesicTo(const tagKOORD& from, std::int32_t datum = DATUM_WGS84) {
        const CKoord to = KoordOf(out);
        double distance = 0.0;
        double azimuth12 = 0.0;
        double azimuth21 = 0.0;
        EXPECT_EQ(Geodesic_Inverse(&from, &to, datum, &distance, &azimuth12, &azimuth21), KOORD_OK);
        return distance;
    }

    IRef<ICoord> out{CreateClassCoord()};
};

// The search accepts 0.01 m of distance; the figures and the kernel's geodesic add less than 1 mm. The
// positions in between are high above the ground, where the kernel's ECEF conversion has an error that moves
// the point sideways: 2 cm at 1000 km and 7 m at 6300 km, as the interface documents.
TEST_F(PointAtDistance, GeodesicAgreesWithIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/point_at_distance.txt")) {
        if (row.Text(0) != "geodesic") continue;
        const IRef<ICoord> start = Place(row.Number(1), row.Number(2), row.Number(3));
        ASSERT_TRUE(Geodesic(start, row.Number(4), row.Number(5))) << row.place;
        const IRef<ICoord> expected = Place(row.Number(6), row.Number(7));
        const double tolerance = row.Number(5) < 1e6 ? 0.011 : row.Number(5) == 1e6 ? 0.025 : 7.0;
        EXPECT_LT(Distance(XyzOf(out), XyzAt(expected)), tolerance) << row.place;
        EXPECT_NEAR(GeodesicTo(GeodezRecord(row.Number(1), row.Number(2))), row.Number(5), 0.01) << row.place;
    }
}

// Here 0.01 m of height is allowed: along the ground that is 0.01 m times the tangent of half the angle at
// the centre, at 12000 km some 0.03 m.
TEST_F(PointAtDistance, ChordAgreesWithIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/point_at_distance.txt")) {
        if (row.Text(0) != "chord") continue;
        const IRef<ICoord> start = Place(row.Number(1), row.Number(2), row.Number(3));
        ASSERT_TRUE(Chord(start, row.Number(4), row.Number(5))) << row.place;
        EXPECT_NEAR(out->GetHeight(), 0.0, 0.0101) << row.place;
        const IRef<ICoord> expected = Place(row.Number(6), row.Number(7));
        const double tolerance = row.Number(5) < 1e6 ? 0.012 : 0.035;
        EXPECT_LT(Distance(XyzAt(out), XyzAt(expected)), tolerance) << row.place;
    }
}

TEST_F(PointAtDistance, GeodesicReachesEveryDistanceUpTo6340Kilometres) {
    Random random(641);
    for (int i = 0; i < 2000; ++i) {
        const double latitude = i % 10 == 0 ? 90.0 * random.Below(3) - 90.0 : random.Between(-90.0, 90.0);
        const double longitude = random.Between(-180.0, 180.0);
        const double distance =
            i % 2 == 0 ? random.Between(0.0, 6.34e6) : std::pow(10.0, random.Between(-3.0, 6.8));
        ASSERT_TRUE(Geodesic(Place(latitude, longitude), random.Between(-360.0, 360.0), distance))
            << latitude << " " << longitude << " " << distance;
        // Metres: the accuracy of the search, and the rounding of 6.4e6 m.
        ASSERT_NEAR(GeodesicTo(GeodezRecord(latitude, longitude)), distance, 0.01);
        ASSERT_NEAR(testing::HeightAboveWgs84(XyzOf(out)), 0.0, 1e-6);
    }
}

// The chord of a point of the ground ends at it: exactly at the distance, in the vertical plane of the
// azimuth, within 0.01 m of the ground. 2 mm: the latitude of the result is good to 1e-8 degrees.
TEST_F(PointAtDistance, ChordReachesEveryDistanceUpToNearlyTheDiameter) {
    Random random(642);
    for (int i = 0; i < 2000; ++i) {
        const double latitude = i % 10 == 0 ? 90.0 * random.Below(3) - 90.0 : random.Between(-90.0, 90.0);
        const IRef<ICoord> start = Place(latitude, random.Between(-180.0, 180.0));
        const double azimuth = random.Between(-360.0, 360.0);
        const double distance =
            i % 2 == 0 ? random.Between(0.0, 12.7e6) : std::pow(10.0, random.Between(-3.0, 7.1));
        ASSERT_TRUE(Chord(start, azimuth, distance)) << latitude << " " << distance;
        ASSERT_NEAR(out->GetHeight(), 0.0, 0.0101);
        const Vector way = Minus(XyzAt(out), XyzAt(start));
        Vector aside;
        ASSERT_TRUE(ellipsoid->GetDirection(start.Get(), azimuth + 90.0, &aside));
        ASSERT_NEAR(std::sqrt(Dot(way, way)), distance, 2e-3) << latitude << " " << distance;
        ASSERT_NEAR(Dot(way, aside), 0.0, 2e-3);
    }
}

// Below the normal of a point t along the horizontal line the geodesic from the start is R asin(t / R), t^3 /
// (6 R^2) longer than t. With R = 6.378e6 m, the equator's, that is 0.01 m at 13.46 km: up to there the
// distance itself is near enough, from there on a shorter one is sought.
TEST_F(PointAtDistance, AShortGeodesicIsTakenAsItIs) {
    const IRef<ICoord> start = Place(0.0, 16.0);
    Vector east;
    ASSERT_TRUE(ellipsoid->GetDirection(start.Get(), 90.0, &east));
    ASSERT_TRUE(Geodesic(start, 90.0, 13400.0));
    // 1e-4 m: the error of the kernel's ECEF conversion 14 m above the ground.
    EXPECT_NEAR(Dot(Minus(XyzOf(out), XyzAt(start)), east), 13400.0, 1e-4);
    ASSERT_TRUE(Geodesic(start, 90.0, 13520.0));
    EXPECT_LT(Dot(Minus(XyzOf(out), XyzAt(start)), east), 13520.0 - 1e-3);
}

// On the equator all is in the circle of R = 6378137 m, and the searches can be followed by hand. A point t
// along the horizontal line lies R asin(t / R) from the start. The search for 200 km:
//
//     t, metres        distance - 200 km
//     200000.000000    32.790141      the distance itself
//     100000.000000    -99995.902593  half of it
//     199967.219265    -0.006720      a secant step between the two, which is near enough
//
// A first trial at a thousandth more than half moves the last t by 5e-6 m.
TEST_F(PointAtDistance, GeodesicTriesHalfOfTheDistanceFirst) {
    const IRef<ICoord> start = Place(0.0, 16.0);
    Vector east;
    ASSERT_TRUE(ellipsoid->GetDirection(start.Get(), 90.0, &east));
    ASSERT_TRUE(Geodesic(start, 90.0, 200000.0));
    EXPECT_NEAR(Dot(Minus(XyzOf(out), XyzAt(start)), east), 199967.219264828, 1e-6);
}

// A point t along the horizontal line lies t^2 / (2 R) above the ground, 0.01 m at 357.2 m.
TEST_F(PointAtDistance, AShortChordStaysInTheHorizontalPlane) {
    const IRef<ICoord> start = Place(0.0, 16.0);
    ASSERT_TRUE(Chord(start, 90.0, 356.0));
    EXPECT_NEAR(out->GetHeight(), 356.0 * 356.0 / (2.0 * 6378137.0), 1e-6);
    ASSERT_TRUE(Chord(start, 90.0, 359.0));
    EXPECT_LT(std::fabs(out->GetHeight()), 0.01);
}

TEST_F(PointAtDistance, ZeroIsTheFootOfTheStart) {
    const IRef<ICoord> start = Place(48.0, 16.0);
    ASSERT_TRUE(Geodesic(start, 60.0, 0.0));
    EXPECT_LT(Distance(XyzOf(out), XyzAt(start)), 1e-6);
    ASSERT_TRUE(Geodesic(Place(48.0, 16.0, 1000.0), 60.0, 0.0));
    EXPECT_LT(Distance(XyzOf(out), XyzAt(start)), 1e-6);
    const IRef<ICoord> chord(CreateClassCoord());
    ASSERT_TRUE(ellipsoid->PointAtChordDistance(start.Get(), 60.0, 0.0, chord.Get()));
    EXPECT_LT(Distance(XyzAt(chord), XyzAt(start)), 1e-3);
}

TEST_F(PointAtDistance, BeyondTheirRangeTheSearchesFail) {
    const IRef<ICoord> start = Place(48.0, 16.0);
    EXPECT_TRUE(Geodesic(start, 60.0, 6370000.0));
    for (const double distance : {6400000.0, 1e7, 1e100, -1.0, -1000.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_FALSE(Geodesic(start, 60.0, distance)) << distance;
    EXPECT_TRUE(Chord(start, 60.0, 12000000.0));
    for (const double distance : {12800000.0, 1e9, 1e100, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_FALSE(Chord(start, 60.0, distance)) << distance;
    for (const double azimuth : {INFINITE, NOT_A_NUMBER}) {
        EXPECT_FALSE(Geodesic(start, azimuth, 1000.0));
        EXPECT_FALSE(Chord(start, azimuth, 1000.0));
    }
}

TEST_F(PointAtDistance, AChordShorterThanTheHeightOfTheStartFails) {
    EXPECT_FALSE(Chord(Place(48.0, 16.0, 1000.0), 60.0, 900.0));
    EXPECT_TRUE(Chord(Place(48.0, 16.0, 1000.0), 60.0, 1100.0));
}

TEST_F(PointAtDistance, ANegativeChordGoesTheOtherWay) {
    const IRef<ICoord> start = Place(48.0, 16.0);
    ASSERT_TRUE(Chord(start, 60.0, -100000.0));
    const IRef<ICoord> back(CreateClassCoord());
    ASSERT_TRUE(ellipsoid->PointAtChordDistance(start.Get(), 240.0, 100000.0, back.Get()));
    // Both have 0.01 m of height, which at this distance is nothing along the ground.
    EXPECT_LT(Distance(XyzAt(out), XyzAt(back)), 0.02);
}

TEST_F(PointAtDistance, TheStartMayBeItsOwnOutput) {
    const IRef<ICoord> geodesic = Place(48.0, 16.0);
    ASSERT_TRUE(Geodesic(geodesic, 60.0, 100000.0));
    ASSERT_TRUE(ellipsoid->PointAtGeodesicDistance(geodesic.Get(), 60.0, 100000.0, geodesic.Get()));
    EXPECT_EQ(XyzOf(geodesic), XyzOf(out));
    const IRef<ICoord> chord = Place(48.0, 16.0);
    const IRef<ICoord> other(CreateClassCoord());
    ASSERT_TRUE(ellipsoid->PointAtChordDistance(chord.Get(), 60.0, 100000.0, other.Get()));
    ASSERT_TRUE(ellipsoid->PointAtChordDistance(chord.Get(), 60.0, 100000.0, chord.Get()));
    EXPECT_EQ(XyzAt(chord), XyzAt(other));
}

TEST_F(PointAtDistance, GeodesicGivesEcefInTheDatumOfTheStartAndChordKeepsTheReference) {
    const IRef<ICoord> start = Place(48.0, 16.0, 0.0, DATUM_GER);
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(ellipsoid->PointAtGeodesicDistance(start.Get(), 60.0, 1000.0, utm.Get()));
    EXPECT_EQ(KoordOf(utm).datum, static_cast<std::uint32_t>(DATUM_GER));
    EXPECT_EQ(KoordOf(utm).type, static_cast<std::uint32_t>(KOORD_ECEF));
    const IRef<ICoord> grid = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(ellipsoid->PointAtChordDistance(Place(48.0, 16.0).Get(), 60.0, 1000.0, grid.Get()));
    EXPECT_EQ(KoordOf(grid).type, static_cast<std::uint32_t>(KOORD_UTM));
    EXPECT_EQ(PayloadOf<UtmPayload>(grid).zone, 33);
}

// The distance counts from the WGS84 values of the start as if they were values on its own datum.
TEST_F(PointAtDistance, GeodesicOnAnotherDatumCountsFromTheShiftedStart) {
    const IRef<ICoord> start = Place(48.0, 16.0, 0.0, DATUM_GER);
    EXPECT_FALSE(Geodesic(start, 60.0, 0.0));  // the shift is some 170 m
    ASSERT_TRUE(Geodesic(start, 60.0, 1000.0));
    IRef<ICoordGeographic> wgs84(CreateClassCoordGeographic());
    ASSERT_TRUE(start->GetGeographic(wgs84.Get()));
    const tagKOORD counted = GeodezRecord(wgs84->GetLatitude(), wgs84->GetLongitude(), 0.0, DATUM_GER);
    EXPECT_NEAR(GeodesicTo(counted, DATUM_GER), 1000.0, 0.01);
    EXPECT_GT(std::fabs(GeodesicTo(GeodezRecord(48.0, 16.0, 0.0, DATUM_GER), DATUM_GER) - 1000.0), 100.0);
}

TEST_F(PointAtDistance, OnFailureGeodesicLeavesTheLastTrialAndChordNothing) {
    const IRef<ICoord> trial = Place(1.0, 2.0);
    EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(Place(48.0, 16.0).Get(), 0.0, -1000.0, trial.Get()));
    EXPECT_EQ(KoordOf(trial).type, static_cast<std::uint32_t>(KOORD_ECEF));
    const IRef<ICoord> kept = Place(1.0, 2.0);
    EXPECT_FALSE(ellipsoid->PointAtChordDistance(Place(48.0, 16.0).Get(), 0.0, 1e9, kept.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(kept).longitude, 2.0);
    EXPECT_TRUE(HoldsPosition(kept));
}

// Takes any record and gives one on an unknown datum.
class StrayCoord : public testing::HostCoord, public ICoordInternal {
  public:
    using Faces = FaceList<ICoord, ICoordInternal>;

    bool SetKoord(const CKoord*) override { return true; }
    bool GetKoord(CKoord* koord) override {
        *koord = CKoord(GeodezRecord(48.0, 16.0, 0.0, 500));
        return true;
    }
    bool ShiftEast(double) override { return false; }
    bool ShiftNorth(double) override { return false; }
    double EastDifference(ICoord*) override { return UNKNOWN_DIFFERENCE; }
    double NorthDifference(ICoord*) override { return UNKNOWN_DIFFERENCE; }

  protected:
    ~StrayCoord() = default;
};

TEST_F(PointAtDistance, GeodesicFailsWhereTheResultGivesAnotherRecordThanItTook) {
    out = IRef<ICoord>(static_cast<ICoord*>(NewObject<StrayCoord>()));
    EXPECT_FALSE(Geodesic(Place(48.0, 16.0), 45.0, 1000.0));
}

}  // namespace
}  // namespace tessara
