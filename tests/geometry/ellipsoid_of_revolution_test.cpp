#include "tessara/ellipsoid_of_revolution.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/empty_vectors.h"
#include "support/failing_reference.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/space_fixture.h"
#include "tessara/euclidean_vector.h"
#include "tessara/kernel/convert.h"

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
using testing::WGS84_B;
using testing::XyzOf;

constexpr double WGS84_E2 = 0.0066943799901413165;

class EllipsoidOfRevolutionTest : public testing::SpaceTest {};

void ExpectNear(const Vector& actual, const Vector& expected, double tolerance,
                const std::string& place = {}) {
    ASSERT_EQ(actual.Size(), 3u) << place;
    for (std::uint32_t i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i << " " << place;
}

TEST_F(EllipsoidOfRevolutionTest, NormalPointsUp) {
    Vector normal;
    ASSERT_TRUE(ellipsoid->GetNormal(Place(0.0, 90.0).Get(), &normal));
    ExpectNear(normal, {0.0, 1.0, 0.0}, 1e-15);
    // cos 30 cos 45, cos 30 sin 45, sin 30
    ASSERT_TRUE(ellipsoid->GetNormal(Place(30.0, 45.0, 1234.0).Get(), &normal));
    ExpectNear(normal, {std::sqrt(6.0) / 4.0, std::sqrt(6.0) / 4.0, 0.5}, 1e-15);
    ASSERT_TRUE(ellipsoid->GetNormal(Place(90.0, 0.0).Get(), &normal));
    ExpectNear(normal, {0.0, 0.0, 1.0}, 1e-15);
}

TEST_F(EllipsoidOfRevolutionTest, LocalAxesPointEastAndNorth) {
    Vector east;
    Vector north;
    ASSERT_TRUE(ellipsoid->GetLocalAxes(Place(48.0, 16.0).Get(), &east, &north));
    // -sin 16, cos 16, 0; -sin 48 cos 16, -sin 48 sin 16, cos 48
    ExpectNear(east, {-0.275637355817, 0.961261695938, 0.0}, 1e-12);
    ExpectNear(north, {-0.714356655266, -0.204838474684, 0.669130606359}, 1e-12);
    EXPECT_EQ(east[2], 0.0);
}

TEST_F(EllipsoidOfRevolutionTest, LocalAxesFollowTheLongitudeAtAPole) {
    Vector east;
    Vector north;
    ASSERT_TRUE(ellipsoid->GetLocalAxes(Place(90.0, 0.0).Get(), &east, &north));
    ExpectNear(east, {0.0, 1.0, 0.0}, 1e-15);
    ExpectNear(north, {-1.0, 0.0, 0.0}, 1e-15);
    ASSERT_TRUE(ellipsoid->GetLocalAxes(Place(90.0, 90.0).Get(), &east, &north));
    ExpectNear(east, {-1.0, 0.0, 0.0}, 1e-15);
    ExpectNear(north, {0.0, -1.0, 0.0}, 1e-15);
    ASSERT_TRUE(ellipsoid->GetLocalAxes(Place(-90.0, 90.0).Get(), &east, &north));
    ExpectNear(north, {0.0, 1.0, 0.0}, 1e-15);
}

TEST_F(EllipsoidOfRevolutionTest, LocalAxesAndNormalAreARightHandedTripodOfUnitVectors) {
    Random random(631);
    for (int i = 0; i < 200; ++i) {
        const IRef<ICoord> p = Place(random.Between(-90.0, 90.0), random.Between(-180.0, 180.0));
        Vector east;
        Vector north;
        Vector normal;
        ASSERT_TRUE(ellipsoid->GetLocalAxes(p.Get(), &east, &north));
        ASSERT_TRUE(ellipsoid->GetNormal(p.Get(), &normal));
        // Of 1, some units of the last place.
        EXPECT_NEAR(Dot(east, east), 1.0, 1e-15);
        EXPECT_NEAR(Dot(north, north), 1.0, 1e-15);
        EXPECT_NEAR(Dot(east, north), 0.0, 1e-15);
        const IRef<IVector> vectors(CreateClassEuclideanVector());
        ExpectNear(vectors->Cross(east, north), normal, 1e-15);
    }
}

TEST_F(EllipsoidOfRevolutionTest, DirectionsCountClockwiseFromNorth) {
    const IRef<ICoord> p = Place(48.0, 16.0);
    Vector east;
    Vector north;
    Vector direction;
    ASSERT_TRUE(ellipsoid->GetLocalAxes(p.Get(), &east, &north));
    ASSERT_TRUE(ellipsoid->GetDirection(p.Get(), 0.0, &direction));
    EXPECT_EQ(direction, north);
    ASSERT_TRUE(ellipsoid->GetDirection(p.Get(), 90.0, &direction));
    ExpectNear(direction, east, 1e-15);
    // sin 30 = 1/2, cos 30 = sqrt 3 / 2
    ASSERT_TRUE(ellipsoid->GetDirection(p.Get(), 30.0, &direction));
    ExpectNear(direction, Moved(Moved({0.0, 0.0, 0.0}, 0.5, east), std::sqrt(3.0) / 2.0, north), 1e-15);
    ASSERT_TRUE(ellipsoid->GetDirection(p.Get(), -90.0, &direction));
    ExpectNear(direction, Moved({0.0, 0.0, 0.0}, -1.0, east), 1e-15);
}

// 1e-6 m, as in the test of the plain functions.
TEST_F(EllipsoidOfRevolutionTest, VectorsAgreeWithIndependentFiguresOnEachDatum) {
    for (const auto& row : testing::ReadReferenceFile("geometry/earth_centred.txt")) {
        const auto datum = static_cast<std::int32_t>(row.Number(0));
        const Vector xyz = XyzAt(Place(row.Number(1), row.Number(2), row.Number(3), datum));
        ExpectNear(xyz, {row.Number(4), row.Number(5), row.Number(6)}, 1e-6, row.place);
        ExpectNear(xyz, {row.Number(7), row.Number(8), row.Number(9)}, 1e-6, row.place);
    }
}

// The grid's own accuracy: UTM returns to 1e-9 degrees.
TEST_F(EllipsoidOfRevolutionTest, VectorsComeFromEverySystemWithItsHeight) {
    const IRef<ICoord> utm = Place(48.0, 16.0, 500.0);
    ASSERT_TRUE(utm->SetReference(ReferenceOf(DATUM_WGS84, KOORD_UTM).Get()));
    ExpectNear(XyzAt(utm), XyzAt(Place(48.0, 16.0, 500.0)), 1e-3);
    // ECEF to 0.7 mm at this height, where the kernel ends its iteration.
    const IRef<ICoord> ecef = Place(48.0, 16.0, 9000.0);
    ASSERT_TRUE(ecef->SetReference(ReferenceOf(DATUM_WGS84, KOORD_ECEF).Get()));
    ExpectNear(XyzAt(ecef), XyzAt(Place(48.0, 16.0, 9000.0)), 2e-3);
}

TEST_F(EllipsoidOfRevolutionTest, VectorOfACoordinateWithoutAPositionIsThatOfItsDefaultRecord) {
    const IRef<ICoord> fresh(CreateClassCoord());
    ExpectNear(XyzAt(fresh), {6378137.0, 0.0, 0.0}, 1e-9);
    const IRef<ICoord> pixel(CreateClassCoord());
    pixel->SetPixel(100.0, 200.0);
    ExpectNear(XyzAt(pixel), {6378137.0, 0.0, 0.0}, 1e-9);
}

TEST_F(EllipsoidOfRevolutionTest, FindsThePlacesOfIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/earth_centred.txt")) {
        if (row.Number(0) != DATUM_WGS84) continue;
        const Vector xyz{row.Number(4), row.Number(5), row.Number(6)};
        const IRef<ICoord> out(CreateClassCoord());
        ASSERT_TRUE(ellipsoid->EcefVectorToCoord(&xyz, out.Get())) << row.place;
        const auto position = PayloadOf<GeodezPayload>(out);
        // Degrees: the last step is up to 1e-6, and the remaining error is e2 = 0.0067 of it.
        EXPECT_NEAR(position.latitude, row.Number(1), 1e-8) << row.place;
        EXPECT_NEAR(out->GetHeight(), row.Number(3),
                    testing::HeightLimit(row.Number(1), row.Number(3), WGS84_E2))
            << row.place;
    }
}

TEST_F(EllipsoidOfRevolutionTest, ThePoleIsFoundOnTheAxis) {
    const IRef<ICoord> out(CreateClassCoord());
    for (const double side : {1.0, -1.0}) {
        const Vector pole{0.0, 0.0, side * WGS84_B};
        ASSERT_TRUE(ellipsoid->EcefVectorToCoord(&pole, out.Get()));
        EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, side * 90.0);
        // Metres, ten units of the last place of the axis.
        EXPECT_NEAR(out->GetHeight(), 0.0, 1e-8);
    }
}

TEST_F(EllipsoidOfRevolutionTest, ThePositionIsWrittenInTheReferenceOfTheOutput) {
    const Vector xyz = XyzAt(Place(48.0, 16.0, 500.0));
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(ellipsoid->EcefVectorToCoord(&xyz, utm.Get()));
    EXPECT_EQ(KoordOf(utm).type, static_cast<std::uint32_t>(KOORD_UTM));
    EXPECT_EQ(PayloadOf<UtmPayload>(utm).zone, 33);
    EXPECT_NEAR(utm->GetHeight(), 500.0, testing::HeightLimit(48.0, 500.0, WGS84_E2));
    // Degrees: the last step is up to 1e-6, and the remaining error is e2 = 0.0067 of it.
    ASSERT_TRUE(utm->SetReference(ReferenceOf(DATUM_WGS84, KOORD_GEODEZ).Get()));
    EXPECT_NEAR(PayloadOf<GeodezPayload>(utm).latitude, 48.0, 1e-8);
    EXPECT_NEAR(PayloadOf<GeodezPayload>(utm).longitude, 16.0, 1e-8);
}

// The values on the ellipsoid of the datum are taken for WGS84 values, and so shifted by the datum.
TEST_F(EllipsoidOfRevolutionTest, APositionOnAnotherDatumIsShiftedOnceMore) {
    const Vector xyz = XyzAt(Place(48.0, 16.0, 0.0, DATUM_GER));
    const IRef<ICoord> out = EmptyCoord(DATUM_GER, KOORD_GEODEZ);
    ASSERT_TRUE(ellipsoid->EcefVectorToCoord(&xyz, out.Get()));
    const tagKOORD wgs84 = GeodezRecord(48.0, 16.0);
    tagKOORD shifted = MakeKoord(DATUM_GER, KOORD_GEODEZ);
    ASSERT_EQ(KoordConvert(&wgs84, &shifted), KOORD_OK);
    const auto position = PayloadOf<GeodezPayload>(out);
    EXPECT_NEAR(position.latitude, Load<GeodezPayload>(shifted).latitude, 1e-8);
    EXPECT_NEAR(position.longitude, Load<GeodezPayload>(shifted).longitude, 1e-8);
    EXPECT_GT(std::fabs(position.longitude - 16.0), 1e-3);
}

TEST_F(EllipsoidOfRevolutionTest, VectorsWithoutAPlaceAreRefused) {
    const IRef<ICoord> out = Place(1.0, 2.0);
    for (const Vector& xyz :
         {Vector{0.0, 0.0, 0.0}, Vector{}, Vector{1.0, 2.0}, Vector{1.0, 2.0, 3.0, 4.0},
          Vector{NOT_A_NUMBER, 0.0, 6e6}, Vector{0.0, INFINITE, 0.0}, Vector{1.0, 0.0, 0.0}}) {
        EXPECT_FALSE(ellipsoid->EcefVectorToCoord(&xyz, out.Get()));
    }
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 1.0);
    EXPECT_TRUE(HoldsPosition(out));
}

TEST_F(EllipsoidOfRevolutionTest, AnOutputThatCannotHoldThePlaceBecomesInvalid) {
    // The Swiss grid doesn't reach the South Pole.
    const IRef<ICoord> swiss = EmptyCoord(DATUM_WGS84, KOORD_CH);
    const Vector pole{0.0, 0.0, -WGS84_B};
    EXPECT_FALSE(ellipsoid->EcefVectorToCoord(&pole, swiss.Get()));
    EXPECT_FALSE(HoldsPosition(swiss));
}

TEST_F(EllipsoidOfRevolutionTest, AVerticalLineHitsTheFootAndThenTheOtherSide) {
    const IRef<ICoord> origin = Place(48.0, 16.0, 1000.0);
    const IRef<ICoord> near(CreateClassCoord());
    const IRef<ICoord> far = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    Vector normal;
    ASSERT_TRUE(ellipsoid->GetNormal(origin.Get(), &normal));
    for (const double sense : {-1.0, 1.0, 0.001}) {
        const Vector direction = Moved({0.0, 0.0, 0.0}, sense, normal);
        ASSERT_TRUE(ellipsoid->IntersectLine(origin.Get(), &direction, near.Get(), far.Get()));
        // The foot by PROJ, cct +proj=cart +ellps=WGS84 of 16 48 0.
        ExpectNear(XyzOf(near), {4110083.747432434, 1178547.549658520, 4716876.330115405}, 1e-6);
        EXPECT_NEAR(testing::HeightAboveWgs84(XyzOf(far)), 0.0, 1e-6);
        const Vector line = Minus(XyzOf(far), XyzOf(near));
        EXPECT_NEAR(Dot(line, normal) / std::sqrt(Dot(line, line)), -1.0, 1e-14);
        EXPECT_GT(Distance(XyzOf(far), XyzOf(near)), 12.7e6);
    }
    for (const IRef<ICoord>& out : {near, far}) {
        EXPECT_EQ(KoordOf(out).datum, static_cast<std::uint32_t>(DATUM_WGS84));
        EXPECT_EQ(KoordOf(out).type, static_cast<std::uint32_t>(KOORD_ECEF));
    }
}

TEST_F(EllipsoidOfRevolutionTest, IntersectionsLieOnTheEllipsoidOfTheOriginsDatum) {
    const IRef<ICoord> origin = Place(-20.0, 130.0, 250.0, DATUM_GER);
    const IRef<ICoord> near(CreateClassCoord());
    const IRef<ICoord> far(CreateClassCoord());
    const Vector direction{0.3, -0.5, 0.8};
    ASSERT_TRUE(ellipsoid->IntersectLine(origin.Get(), &direction, near.Get(), far.Get()));
    for (const IRef<ICoord>& out : {near, far}) {
        EXPECT_EQ(KoordOf(out).datum, static_cast<std::uint32_t>(DATUM_GER));
        const Vector p = XyzOf(out);
        const double a = 6377397.155;
        const double b = a - a / 299.1528128;
        // Of the semi-axes: less than a micrometre.
        EXPECT_NEAR(std::hypot(p[0] / a, p[1] / a, p[2] / b), 1.0, 1e-13);
    }
    EXPECT_LT(Distance(XyzOf(near), XyzAt(origin)), Distance(XyzOf(far), XyzAt(origin)));
}

TEST_F(EllipsoidOfRevolutionTest, ALineThatMissesLeavesTheOutputs) {
    const IRef<ICoord> origin = Place(48.0, 16.0, 1000.0);
    const IRef<ICoord> near = Place(1.0, 2.0);
    const IRef<ICoord> far = Place(3.0, 4.0);
    Vector east;
    Vector north;
    ASSERT_TRUE(ellipsoid->GetLocalAxes(origin.Get(), &east, &north));
    const auto expectMiss = [&](const Vector& direction) {
        EXPECT_FALSE(ellipsoid->IntersectLine(origin.Get(), &direction, near.Get(), far.Get()));
    };
    expectMiss(east);
    expectMiss({0.0, 0.0, 0.0});
    expectMiss({});
    expectMiss({1.0, 0.0});
    expectMiss({NOT_A_NUMBER, 0.0, 0.0});
    expectMiss({0.0, INFINITE, 0.0});
    EXPECT_EQ(PayloadOf<GeodezPayload>(near).latitude, 1.0);
    EXPECT_EQ(PayloadOf<GeodezPayload>(far).latitude, 3.0);
}

TEST_F(EllipsoidOfRevolutionTest, TheOriginMayBeItsOwnOutput) {
    const IRef<ICoord> origin = Place(48.0, 16.0, 1000.0);
    const IRef<ICoord> far(CreateClassCoord());
    Vector normal;
    ASSERT_TRUE(ellipsoid->GetNormal(origin.Get(), &normal));
    ASSERT_TRUE(ellipsoid->IntersectLine(origin.Get(), &normal, origin.Get(), far.Get()));
    ExpectNear(XyzOf(origin), {4110083.747432434, 1178547.549658520, 4716876.330115405}, 1e-6);
}

// Null, foreign and missing arguments: everything is false, nothing crashes, vector outputs are emptied.
TEST_F(EllipsoidOfRevolutionTest, RefusesMissingAndForeignArguments) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    const IRef<ICoord> p = Place(48.0, 16.0);
    const IRef<ICoord> out(CreateClassCoord());
    const Vector up{0.0, 0.0, 6.4e6};
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        Vector east{1.0};
        Vector north{1.0};
        EXPECT_FALSE(ellipsoid->GetLocalAxes(wrong, &east, &north));
        EXPECT_EQ(east.Size() + north.Size(), 0u);
        Vector v{1.0};
        EXPECT_FALSE(ellipsoid->GetNormal(wrong, &v));
        EXPECT_EQ(v.Size(), 0u);
        v = {1.0};
        EXPECT_FALSE(ellipsoid->GetDirection(wrong, 10.0, &v));
        EXPECT_EQ(v.Size(), 0u);
        v = {1.0};
        EXPECT_FALSE(ellipsoid->CoordToEcefVector(wrong, &v));
        EXPECT_EQ(v.Size(), 0u);
        EXPECT_FALSE(ellipsoid->EcefVectorToCoord(&up, wrong));
        EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(wrong, 0.0, 10.0, out.Get()));
        EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(p.Get(), 0.0, 10.0, wrong));
        EXPECT_FALSE(ellipsoid->PointAtChordDistance(wrong, 0.0, 10.0, out.Get()));
        EXPECT_FALSE(ellipsoid->PointAtChordDistance(p.Get(), 0.0, 10.0, wrong));
        EXPECT_FALSE(ellipsoid->IntersectLine(wrong, &up, out.Get(), out.Get()));
        EXPECT_FALSE(ellipsoid->IntersectLine(p.Get(), &up, wrong, out.Get()));
        EXPECT_FALSE(ellipsoid->IntersectLine(p.Get(), &up, out.Get(), wrong));
    }
    Vector v{1.0};
    EXPECT_FALSE(ellipsoid->GetLocalAxes(p.Get(), &v, nullptr));
    EXPECT_FALSE(ellipsoid->GetLocalAxes(p.Get(), nullptr, &v));
    EXPECT_EQ(v.Size(), 0u);
    EXPECT_FALSE(ellipsoid->GetNormal(p.Get(), nullptr));
    EXPECT_FALSE(ellipsoid->GetDirection(p.Get(), 0.0, nullptr));
    EXPECT_FALSE(ellipsoid->CoordToEcefVector(p.Get(), nullptr));
    EXPECT_FALSE(ellipsoid->EcefVectorToCoord(nullptr, out.Get()));
    EXPECT_FALSE(ellipsoid->IntersectLine(p.Get(), nullptr, out.Get(), out.Get()));
    EXPECT_FALSE(HoldsPosition(out));
    for (const auto& object : {IRef<IUnknown>(p), IRef<IUnknown>(out), IRef<IUnknown>(foreign)})
        EXPECT_EQ(testing::CountOf(object), 2u);
}

TEST_F(EllipsoidOfRevolutionTest, DirectionsNeedAPosition) {
    const IRef<ICoord> fresh(CreateClassCoord());
    const IRef<ICoord> pixel(CreateClassCoord());
    pixel->SetPixel(1.0, 2.0);
    const IRef<ICoord> out(CreateClassCoord());
    for (const IRef<ICoord>& p : {fresh, pixel}) {
        Vector v{1.0};
        Vector w{1.0};
        EXPECT_FALSE(ellipsoid->GetNormal(p.Get(), &v));
        EXPECT_FALSE(ellipsoid->GetDirection(p.Get(), 0.0, &w));
        EXPECT_EQ(v.Size() + w.Size(), 0u);
        EXPECT_FALSE(ellipsoid->GetLocalAxes(p.Get(), &v, &w));
        EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(p.Get(), 0.0, 10.0, out.Get()));
        EXPECT_FALSE(ellipsoid->PointAtChordDistance(p.Get(), 0.0, 10.0, out.Get()));
    }
}

// An object of count 0 ends in the operation that it is given to, at its end and no earlier.
TEST_F(EllipsoidOfRevolutionTest, TakesCoordinatesFreshFromTheirCreation) {
    const IRef<ICoord> p = Place(48.0, 16.0);
    const IRef<ICoord> out(CreateClassCoord());
    const Vector up{0.0, 0.0, 6.4e6};
    Vector v;
    Vector w;
    EXPECT_FALSE(ellipsoid->GetLocalAxes(CreateClassCoord(), &v, &w));
    EXPECT_FALSE(ellipsoid->GetNormal(CreateClassCoord(), &v));
    EXPECT_FALSE(ellipsoid->GetDirection(CreateClassCoord(), 0.0, &v));
    EXPECT_TRUE(ellipsoid->CoordToEcefVector(CreateClassCoord(), &v));
    EXPECT_TRUE(ellipsoid->EcefVectorToCoord(&up, CreateClassCoord()));
    const Vector outward{1.0, 0.0, 0.0};
    EXPECT_TRUE(
        ellipsoid->IntersectLine(CreateClassCoord(), &outward, CreateClassCoord(), CreateClassCoord()));
    EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(CreateClassCoord(), 0.0, 10.0, CreateClassCoord()));
    EXPECT_FALSE(ellipsoid->PointAtChordDistance(CreateClassCoord(), 0.0, 10.0, CreateClassCoord()));
    EXPECT_TRUE(ellipsoid->PointAtGeodesicDistance(p.Get(), 0.0, 1e5, CreateClassCoord()));
    EXPECT_TRUE(ellipsoid->PointAtChordDistance(p.Get(), 0.0, 1e5, CreateClassCoord()));
    ICoord* const both = CreateClassCoord();
    EXPECT_FALSE(ellipsoid->PointAtGeodesicDistance(both, 0.0, 10.0, both));
}

// Runs each operation once and lists the results.
std::vector<bool> AllResults(IEllipsoidOfRevolution* ellipsoid) {
    const IRef<ICoord> p = Place(48.0, 16.0, 100.0);
    const IRef<ICoord> out(CreateClassCoord());
    const IRef<ICoord> far(CreateClassCoord());
    const Vector down{-4.0, -1.0, -4.7};
    const Vector xyz{4.2e6, 1.2e6, 4.7e6};
    Vector v;
    Vector w;
    return {ellipsoid->GetNormal(p.Get(), &v),
            ellipsoid->GetLocalAxes(p.Get(), &v, &w),
            ellipsoid->GetDirection(p.Get(), 10.0, &v),
            ellipsoid->CoordToEcefVector(p.Get(), &v),
            ellipsoid->EcefVectorToCoord(&xyz, out.Get()),
            ellipsoid->IntersectLine(p.Get(), &down, out.Get(), far.Get()),
            ellipsoid->PointAtGeodesicDistance(p.Get(), 10.0, 1000.0, out.Get()),
            ellipsoid->PointAtChordDistance(p.Get(), 10.0, 1000.0, out.Get())};
}

TEST_F(EllipsoidOfRevolutionTest, WorksWhereTheManagerMakesItToo) {
    EXPECT_EQ(AllResults(ellipsoid.Get()), std::vector<bool>(8, true));
    const auto managed = library.Make<IEllipsoidOfRevolution>(CLSID_EllipsoidOfRevolution);
    ASSERT_TRUE(managed.IsValid());
    EXPECT_EQ(AllResults(managed.Get()), std::vector<bool>(8, true));
    EXPECT_EQ(library.Make<IEllipsoidOfRevolution>(CLSID_EllipsoidOfRevolution).Get(), managed.Get());
}

const std::vector<bool> EVERYTHING(8, true);
const std::vector<bool> ONLY_THE_NORMAL = {true, false, false, false, false, false, false, false};

class EllipsoidOfRevolutionWithoutManager : public testing::BalancedTest {};

TEST_F(EllipsoidOfRevolutionWithoutManager, WorksByTheLibrarysOwnParts) {
    const IRef<IEllipsoidOfRevolution> ellipsoid(CreateClassEllipsoidOfRevolution());
    EXPECT_EQ(AllResults(ellipsoid.Get()), EVERYTHING);
    IRef<IEllipsoidOfRevolution> left;
    {
        const testing::ManagedLibrary library;
        left = IRef<IEllipsoidOfRevolution>(CreateClassEllipsoidOfRevolution());
    }
    EXPECT_EQ(AllResults(left.Get()), EVERYTHING) << "the manager has gone";
}

TEST_F(EllipsoidOfRevolutionWithoutManager, AManagerThatGivesNothingLeavesOnlyTheNormal) {
    const IRef<IEllipsoidOfRevolution> before(CreateClassEllipsoidOfRevolution());
    IRef<IEllipsoidOfRevolution> within;
    {
        const testing::ManagedLibrary library{testing::MakeEmptyHandedManager()};
        within = IRef<IEllipsoidOfRevolution>(CreateClassEllipsoidOfRevolution());
        EXPECT_EQ(AllResults(within.Get()), ONLY_THE_NORMAL);
        // The arithmetic came at construction; the references would have to come now.
        EXPECT_EQ(AllResults(before.Get()),
                  (std::vector<bool>{true, true, true, false, false, false, false, false}));
    }
    // The references come now; the arithmetic would have had to come at construction.
    EXPECT_EQ(AllResults(within.Get()),
              (std::vector<bool>{true, false, false, true, true, true, false, false}));
}

TEST_F(EllipsoidOfRevolutionWithoutManager, ArithmeticWithoutResultsFailsPlainly) {
    for (const bool hasCross : {false, true}) {
        const testing::ManagedLibrary library{testing::Substituting(
            CLSID_EuclideanVector, [hasCross] { return testing::MakeEmptyVectors(hasCross); })};
        const IRef<IEllipsoidOfRevolution> ellipsoid(CreateClassEllipsoidOfRevolution());
        EXPECT_EQ(AllResults(ellipsoid.Get()),
                  (std::vector<bool>{true, hasCross, hasCross, true, true, true, false, false}));
    }
}

TEST_F(EllipsoidOfRevolutionWithoutManager, AReferenceOfTheManagerMayGiveUp) {
    testing::CallBudget calls;
    const testing::ManagedLibrary library{testing::Substituting(CLSID_CoordinateReference, [&calls] {
        return IRef<IUnknown>(NewObject<testing::FailingReference>(&calls));
    })};
    const IRef<IEllipsoidOfRevolution> ellipsoid(CreateClassEllipsoidOfRevolution());
    const IRef<ICoord> p = Place(48.0, 16.0, 100.0);
    const IRef<ICoord> out(CreateClassCoord());
    Vector xyz;
    ExpectFailureAtEachCall(&calls, [&] { return ellipsoid->CoordToEcefVector(p.Get(), &xyz); });
    ExpectFailureAtEachCall(&calls, [&] { return ellipsoid->EcefVectorToCoord(&xyz, out.Get()); });
    ExpectFailureAtEachCall(
        &calls, [&] { return ellipsoid->PointAtGeodesicDistance(p.Get(), 10.0, 1000.0, out.Get()); });
    ExpectFailureAtEachCall(
        &calls, [&] { return ellipsoid->PointAtChordDistance(p.Get(), 10.0, 1000.0, out.Get()); });
}

}  // namespace
}  // namespace tessara
