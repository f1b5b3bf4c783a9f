#include "tessara/kernel/datum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "kernel/angles.h"
#include "kernel/datums.h"
#include "numerics/special_values.h"
#include "support/datum_steps.h"
#include "support/random.h"
#include "support/reference_file.h"

namespace tessara::datum_test {
namespace {

using ::tessara::testing::DEGREE;
using ::tessara::testing::GER;
using ::tessara::testing::KUGEL;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::Step;
using ::tessara::testing::UnitSphere;
using Position = ::tessara::testing::LatLon;

constexpr std::int32_t WGS72 = 5;
constexpr std::int32_t IDN = 67;
constexpr std::int32_t KGS = 70;
constexpr std::int32_t TOY_M = 77;
constexpr std::int32_t TOY_A = 78;
constexpr std::int32_t NAR_E = 133;
constexpr std::int32_t KUS = 205;

Position Shift(Position position, std::int32_t from, std::int32_t to) {
    HubParams toHub{};
    HubParams fromHub{};
    EXPECT_EQ(Datum_LoadToHub(from, &toHub), KOORD_OK);
    EXPECT_EQ(Datum_LoadFromHub(to, &fromHub), KOORD_OK);
    EXPECT_EQ(Datum_Shift(position.latLon, position.latLon, &toHub, &fromHub, from, to), KOORD_OK);
    return position;
}

TEST(DatumReaders, GiveAxisAndEccentricity) {
    EXPECT_EQ(Datum_SemiMajorAxis(GER), 6377397.155);
    EXPECT_EQ(Datum_SemiMajorAxis(KUGEL), 6371000.0);
    EXPECT_EQ(Datum_EccentricitySquared(KUGEL), 0.0);
    // NIMA TR 8350.2, third edition, table 3.3: 6.69437999014e-3, to its last digit.
    EXPECT_NEAR(Datum_EccentricitySquared(DATUM_WGS84), 6.69437999014e-3, 5e-15);
}

TEST(DatumReaders, GiveMinusOneOutsideTheTable) {
    for (const std::int32_t datum : {-1, 239, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Datum_SemiMajorAxis(datum), -1.0);
        EXPECT_EQ(Datum_EccentricitySquared(datum), -1.0);
    }
}

TEST(MolodenskyStep, MovesAlongTheAxesOfASphere) {
    // At 0, 0 the axes x, y, z point up, east and north.
    EXPECT_EQ(Step(UnitSphere(0.1, 0.0, 0.0), 0.0, 0.0).Latitude(), 0.0);
    EXPECT_EQ(Step(UnitSphere(0.1, 0.0, 0.0), 0.0, 0.0).Longitude(), 0.0);
    EXPECT_NEAR(Step(UnitSphere(0.0, DEGREE, 0.0), 0.0, 0.0).Longitude(), 1.0, 1e-14);
    EXPECT_NEAR(Step(UnitSphere(0.0, 0.0, DEGREE), 0.0, 0.0).Latitude(), 1.0, 1e-14);
    // At 60 degrees a parallel is half as long as the equator.
    EXPECT_NEAR(Step(UnitSphere(0.0, DEGREE, 0.0), 60.0, 0.0).Longitude(), 2.0, 1e-14);
    // At 0, 90 the axis x points west.
    EXPECT_NEAR(Step(UnitSphere(DEGREE, 0.0, 0.0), 0.0, 90.0).Longitude(), 89.0, 1e-13);
}

// From the sphere to WGS84 without translation: N = M = a and r = 1, so the latitude moves by 2 df sin cos,
// which at 45 degrees is df.
TEST(MolodenskyStep, ShiftsFromTheSphere) {
    const Position shifted = Shift({{45.0, 12.0}}, KUGEL, DATUM_WGS84);
    EXPECT_NEAR(shifted.Latitude(), 45.0 + 0.0033528106647474805 * 57.29577951308232, 1e-13);
    EXPECT_EQ(shifted.Longitude(), 12.0);
}

TEST(MolodenskyStep, LeavesTheLongitudeAtThePole) {
    const HubParams p = UnitSphere(0.0, 0.001, 0.0);
    EXPECT_EQ(Step(p, 90.0, 33.0, 0).Longitude(), 33.0);
    EXPECT_EQ(Step(p, -90.0, 33.0, 0).Longitude(), 33.0);
    EXPECT_EQ(Step(p, 89.999999, 33.0, 0).Longitude(), 33.0);
    EXPECT_NE(Step(p, 89.9999989, 33.0, 0).Longitude(), 33.0);
}

TEST(MolodenskyStep, ReflectsALatitudeThatPassesAPole) {
    const double moved = 2.0 * std::sin(89.0 * DEGREE);  // degrees, for a translation of 2 degrees
    const Position north = Step(UnitSphere(-2.0 * DEGREE, 0.0, 0.0), 89.0, 0.0);
    EXPECT_NEAR(north.Latitude(), 180.0 - (89.0 + moved), 1e-12);
    EXPECT_EQ(north.Longitude(), 180.0);
    const Position south = Step(UnitSphere(-2.0 * DEGREE, 0.0, 0.0), -89.0, 0.0);
    EXPECT_NEAR(south.Latitude(), -180.0 + (89.0 + moved), 1e-12);
    EXPECT_EQ(south.Longitude(), 180.0);
    // Half a turn is taken away from an eastern longitude. The sine of 180 degrees is not quite 0.
    const Position east = Step(UnitSphere(2.0 * DEGREE, 0.0, 0.0), 89.0, 180.0);
    EXPECT_NEAR(east.Latitude(), 180.0 - (89.0 + moved), 1e-12);
    EXPECT_NEAR(east.Longitude(), 0.0, 1e-10);
}

TEST(MolodenskyStep, PassesThePoleWhenItNeedNotStayOnTheGlobe) {
    const Position position = Step(UnitSphere(-2.0 * DEGREE, 0.0, 0.0), 89.0, 0.0, 0);
    // Degrees, some units of the last place.
    EXPECT_NEAR(position.Latitude(), 89.0 + 2.0 * std::sin(89.0 * DEGREE), 1e-12);
    EXPECT_EQ(position.Longitude(), 0.0);
}

TEST(MolodenskyStep, TakesWholeTurnsOffALongitudeShift) {
    const double shift = 2e-5 / std::cos(89.9999 * DEGREE) * 57.29577951308232;
    ASSERT_GT(shift, 360.0 + 180.0);
    ASSERT_LT(shift, 720.0);
    // Degrees: so near the pole the rounding of the cosine counts 1e6-fold.
    EXPECT_NEAR(Step(UnitSphere(0.0, 2e-5, 0.0), 89.9999, 0.0).Longitude(), shift - 720.0, 1e-9);
    EXPECT_NEAR(Step(UnitSphere(0.0, -2e-5, 0.0), 89.9999, 0.0).Longitude(), 720.0 - shift, 1e-9);
}

TEST(MolodenskyStep, BringsTheLongitudeIntoOneTurnOnly) {
    const HubParams eastAtGreenwich = UnitSphere(0.0, DEGREE, 0.0);
    const HubParams westAtGreenwich = UnitSphere(0.0, -DEGREE, 0.0);
    const double halfDegreeOff = std::cos(0.5 * DEGREE);  // degrees of shift
    EXPECT_NEAR(Step(eastAtGreenwich, 0.0, 359.5).Longitude(), 359.5 + halfDegreeOff - 360.0, 1e-9);
    EXPECT_NEAR(Step(westAtGreenwich, 0.0, -359.5).Longitude(), -359.5 - halfDegreeOff + 360.0, 1e-9);
    EXPECT_NEAR(Step(westAtGreenwich, 0.0, 179.5).Longitude(), 179.5 + halfDegreeOff, 1e-9);
    EXPECT_NEAR(Step(eastAtGreenwich, 0.0, -179.5).Longitude(), -179.5 - halfDegreeOff, 1e-9);
}

TEST(MolodenskyStep, IntoTheHubStaysOnTheGlobe) {
    HubParams p{};
    ASSERT_EQ(Datum_LoadToHub(KUS, &p), KOORD_OK);
    ASSERT_GT(Step(p, 89.9999, -180.0, 0).Latitude(), 90.0);
    Position position{{89.9999, -180.0}};
    Molodensky_ToHub(position.latLon, &p);
    EXPECT_LT(position.Latitude(), 90.0);
    EXPECT_EQ(position.Latitude(), Step(p, 89.9999, -180.0, 1).Latitude());
    EXPECT_EQ(position.Longitude(), Step(p, 89.9999, -180.0, 1).Longitude());
}

// A NaN latitude isn't below the limit at the pole, so the longitude stays.
TEST(MolodenskyStep, LeavesTheLongitudeOfALatitudeThatIsNone) {
    const Position position = Step(UnitSphere(0.0, 0.01, 0.0), NOT_A_NUMBER, 11.0);
    EXPECT_TRUE(std::isnan(position.Latitude()));
    EXPECT_EQ(position.Longitude(), 11.0);
}

// Up to 0.001 degrees, near the pole up to the angle that 0.1 m subtends: at 89.98 degrees that is 0.0026
// degrees of longitude.
TEST(MolodenskyFromHub, TakesASmallShiftInOneStep) {
    struct Case {
        std::int32_t datum;
        double latitude, longitude;
        double largest;  // degrees of the step
    };
    for (const Case& c :
         {Case{WGS72, 48.0, 11.0, 0.0001}, Case{IDN, -7.0, 107.0, 0.001}, Case{NAR_E, 89.98, 1.66, 0.0026}}) {
        HubParams p{};
        ASSERT_EQ(Datum_LoadFromHub(c.datum, &p), KOORD_OK);
        const Position single = Step(p, c.latitude, c.longitude);
        const double largest =
            std::max(std::fabs(single.Latitude() - c.latitude), std::fabs(single.Longitude() - c.longitude));
        EXPECT_LT(largest, c.largest);
        EXPECT_GT(largest, c.largest / 10.0);
        Position position{{c.latitude, c.longitude}};
        Molodensky_FromHub(position.latLon, &p, c.datum);
        EXPECT_EQ(position.Latitude(), single.Latitude());
        EXPECT_EQ(position.Longitude(), single.Longitude());
    }
}

// The refinement makes a shift there and back return to its start, which a single step misses by
// centimetres.
TEST(MolodenskyFromHub, RefinesALargeShift) {
    HubParams out{};
    HubParams in{};
    ASSERT_EQ(Datum_LoadFromHub(GER, &out), KOORD_OK);
    ASSERT_EQ(Datum_LoadToHub(GER, &in), KOORD_OK);
    Position refined{{48.0, 11.0}};
    Molodensky_FromHub(refined.latLon, &out, GER);
    Molodensky_ToHub(refined.latLon, &in);
    EXPECT_NEAR(refined.Latitude(), 48.0, 1e-10);
    EXPECT_NEAR(refined.Longitude(), 11.0, 1e-10);

    Position single = Step(out, 48.0, 11.0);
    Molodensky_ToHub(single.latLon, &in);
    EXPECT_GT(std::fabs(single.Latitude() - 48.0), 1e-8);
}

// The translation of KUS is 2.2 km: one correction at 80 degrees leaves 4e-8 degrees, the second 1e-11.
TEST(MolodenskyFromHub, CorrectsAgainWhatWasAboveATenthOfAThousandth) {
    HubParams out{};
    HubParams in{};
    ASSERT_EQ(Datum_LoadFromHub(KUS, &out), KOORD_OK);
    ASSERT_EQ(Datum_LoadToHub(KUS, &in), KOORD_OK);
    for (const double longitude : {-165.0, 15.0}) {
        Position position{{80.0, longitude}};
        Molodensky_FromHub(position.latLon, &out, KUS);
        Molodensky_ToHub(position.latLon, &in);
        EXPECT_NEAR(position.Latitude(), 80.0, 1e-10);
        EXPECT_NEAR(position.Longitude(), longitude, 1e-9);
    }
}

// The step of KUS ends 2 km from the place on GER. A correction leaves some ten thousandths of itself: 2e-6
// degrees the first, 2e-10 the second.
TEST(MolodenskyFromHub, RefinesTheStepOfAnotherDatum) {
    HubParams out{};
    HubParams in{};
    ASSERT_EQ(Datum_LoadFromHub(KUS, &out), KOORD_OK);
    ASSERT_EQ(Datum_LoadToHub(GER, &in), KOORD_OK);
    Position position{{48.0, 11.0}};
    Molodensky_FromHub(position.latLon, &out, GER);
    Molodensky_ToHub(position.latLon, &in);
    EXPECT_NEAR(position.Latitude(), 48.0, 1e-8);
    EXPECT_NEAR(position.Longitude(), 11.0, 1e-8);
}

// 300 metres along one axis; what is left after a correction is some ten thousandths of it.
TEST(MolodenskyFromHub, RefinesAStepThatDiffersFromTheWayBackAlongOneAxis) {
    HubParams in{};
    ASSERT_EQ(Datum_LoadToHub(GER, &in), KOORD_OK);
    for (double HubParams::*axis : {&HubParams::dx, &HubParams::dy, &HubParams::dz}) {
        HubParams out{};
        ASSERT_EQ(Datum_LoadFromHub(GER, &out), KOORD_OK);
        out.*axis += 300.0;
        Position position{{48.0, 11.0}};
        Molodensky_FromHub(position.latLon, &out, GER);
        Molodensky_ToHub(position.latLon, &in);
        EXPECT_NEAR(position.Latitude(), 48.0, 1e-8);
        EXPECT_NEAR(position.Longitude(), 11.0, 1e-8);
    }
}

TEST(MolodenskyFromHub, IsTheSingleStepForAnUnknownDatum) {
    HubParams p{};
    ASSERT_EQ(Datum_LoadFromHub(GER, &p), KOORD_OK);
    for (const std::int32_t datum : {-1, 239}) {
        Position position{{48.0, 11.0}};
        Molodensky_FromHub(position.latLon, &p, datum);
        EXPECT_EQ(position.Latitude(), Step(p, 48.0, 11.0).Latitude());
        EXPECT_EQ(position.Longitude(), Step(p, 48.0, 11.0).Longitude());
    }
}

TEST(MolodenskyFromHub, StaysOnTheGlobeNearThePoles) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        HubParams p{};
        ASSERT_EQ(Datum_LoadFromHub(datum, &p), KOORD_OK);
        for (const double latitude : {89.97, 89.99, 89.9999, 89.9999999, 90.0}) {
            for (double longitude = -180.0; longitude <= 180.0; longitude += 30.0) {
                SCOPED_TRACE(std::to_string(datum) + ' ' + std::to_string(latitude) + ' ' +
                             std::to_string(longitude));
                Position north{{latitude, longitude}};
                Molodensky_FromHub(north.latLon, &p, datum);
                EXPECT_LE(std::fabs(north.Latitude()), 90.0);
                EXPECT_LE(std::fabs(north.Longitude()), 540.0);
                Position south{{-latitude, longitude}};
                Molodensky_FromHub(south.latLon, &p, datum);
                EXPECT_LE(std::fabs(south.Latitude()), 90.0);
                EXPECT_LE(std::fabs(south.Longitude()), 540.0);
            }
        }
    }
}

TEST(DatumShift, ChangesNothingBetweenWgs84AndARowLikeIt) {
    for (const double latitude : {-89.0, -10.0, 0.0, 52.5, 89.99}) {
        const Position there = Shift({{latitude, 13.4}}, DATUM_WGS84, KGS);
        EXPECT_EQ(there.Latitude(), latitude);
        EXPECT_EQ(there.Longitude(), 13.4);
        const Position back = Shift({{latitude, 13.4}}, KGS, DATUM_WGS84);
        EXPECT_EQ(back.Latitude(), latitude);
        EXPECT_EQ(back.Longitude(), 13.4);
    }
}

TEST(DatumShift, TakesBothStepsBetweenAlikeRows) {
    HubParams toHub{};
    HubParams fromHub{};
    ASSERT_EQ(Datum_LoadToHub(TOY_M, &toHub), KOORD_OK);
    ASSERT_EQ(Datum_LoadFromHub(TOY_A, &fromHub), KOORD_OK);
    Position expected{{35.0, 139.0}};
    Molodensky_ToHub(expected.latLon, &toHub);
    Molodensky_FromHub(expected.latLon, &fromHub, TOY_A);
    const Position shifted = Shift({{35.0, 139.0}}, TOY_M, TOY_A);
    EXPECT_EQ(shifted.Latitude(), expected.Latitude());
    EXPECT_EQ(shifted.Longitude(), expected.Longitude());
    // Degrees, a tenth of a millimetre: the way back starts at another place than the way there.
    EXPECT_NEAR(shifted.Latitude(), 35.0, 1e-9);
    EXPECT_NEAR(shifted.Longitude(), 139.0, 1e-9);
}

TEST(DatumShift, EndsOnPositionsThatAreNone) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(Shift({{bad, 11.0}}, KUS, GER).Latitude()));
        EXPECT_TRUE(std::isnan(Shift({{48.0, bad}}, KUS, GER).Longitude()));
    }
    for (const double absurd : {1e9, 1e300, -1e300}) {
        EXPECT_TRUE(std::isfinite(Shift({{absurd, 11.0}}, KUS, GER).Latitude()));
        EXPECT_TRUE(std::isfinite(Shift({{48.0, absurd}}, KUS, GER).Longitude()));
    }
}

struct ShiftFigures {
    std::int32_t datum;
    const char* file;
};

class DatumShiftFigures : public ::testing::TestWithParam<ShiftFigures> {};

// What the formulas neglect is the square of the shift by the earth's radius: 0.04 m for 500 m.
TEST_P(DatumShiftFigures, AgreeWithTheGeocentricShift) {
    constexpr double tolerance = 5e-7;  // degrees, 0.055 m
    const auto rows = ReadReferenceFile(std::string("kernel/datum_shift/") + GetParam().file);
    ASSERT_EQ(rows.size(), 100u);
    for (const ReferenceRow& row : rows) {
        SCOPED_TRACE(row.place);
        const Position position{{row.Number(0), row.Number(1)}};
        const Position inHub = Shift(position, GetParam().datum, DATUM_WGS84);
        EXPECT_NEAR(inHub.Latitude(), row.Number(2), tolerance);
        EXPECT_NEAR(inHub.Longitude(), row.Number(3), tolerance);
        const Position fromHub = Shift(position, DATUM_WGS84, GetParam().datum);
        EXPECT_NEAR(fromHub.Latitude(), row.Number(4), tolerance);
        EXPECT_NEAR(fromHub.Longitude(), row.Number(5), tolerance);
    }
}

constexpr ShiftFigures FIGURES[] = {
    {1, "eur_m.txt"},   {3, "ger.txt"},    {4, "nad27.txt"},    {5, "wgs72.txt"},  {6, "mgi.txt"},
    {7, "ch1903.txt"},  {8, "kkj.txt"},    {10, "ks42_83.txt"}, {13, "adi_m.txt"}, {77, "toy_m.txt"},
    {97, "irl.txt"},    {98, "ogb_m.txt"}, {151, "san_m.txt"},  {205, "kus.txt"},  {236, "ntf.txt"},
    {237, "rdnap.txt"}, {238, "ntl.txt"},
};

std::string FileStem(const ::testing::TestParamInfo<ShiftFigures>& info) {
    const std::string file = info.param.file;
    return file.substr(0, file.find('.'));
}

INSTANTIATE_TEST_SUITE_P(Datum, DatumShiftFigures, ::testing::ValuesIn(FIGURES), FileStem);

// The distance in degrees between a position and its image after a shift there and back.
double OutAndBack(const Position& start, std::int32_t from, std::int32_t to) {
    const Position end = Shift(Shift(start, from, to), to, from);
    return std::max(std::fabs(end.Latitude() - start.Latitude()),
                    std::fabs(std::remainder(end.Longitude() - start.Longitude(), 360.0)));
}

// The shift of three parameters without an approximation: through space, on the ellipsoid at both ends.
Position ShiftThroughSpace(Position from, const DatumRow& source, const DatumRow& target) {
    using Real = long double;
    const Real degree = std::acos(Real(-1)) / 180;
    const auto radius = [](const DatumRow& row, Real sine) {
        return row.a / std::sqrt(1 - row.f * (2 - row.f) * sine * sine);
    };
    const Real phi = from.Latitude() * degree;
    const Real lambda = from.Longitude() * degree;
    const Real n = radius(source, std::sin(phi));
    const Real x = n * std::cos(phi) * std::cos(lambda) + (source.dx - target.dx);
    const Real y = n * std::cos(phi) * std::sin(lambda) + (source.dy - target.dy);
    const Real z = n * std::sin(phi) * (1 - source.f) * (1 - source.f) + (source.dz - target.dz);

    const Real e2 = target.f * (2 - target.f);
    Real latitude = std::atan2(z, std::hypot(x, y) * (1 - e2));
    for (int i = 0; i < 8; ++i) {  // each round gains two digits and more
        const Real sine = std::sin(latitude);
        latitude = std::atan2(z + e2 * radius(target, sine) * sine, std::hypot(x, y));
    }
    return {{static_cast<double>(latitude / degree), static_cast<double>(std::atan2(y, x) / degree)}};
}

// The figures of accuracy.md, in metres on the ground.
TEST(DatumShift, LeavesTheExactShiftTowardThePoles) {
    const auto worstUpTo = [](double limit, std::int32_t datum) {
        double worst = 0.0;
        for (int i = -20; i <= 20; ++i) {
            for (double longitude = -180.0; longitude < 180.0; longitude += 3.0) {
                const Position start{{limit * i / 20.0, longitude}};
                const Position exact = ShiftThroughSpace(start, *Datum_Row(DATUM_WGS84), *Datum_Row(datum));
                const Position found = Shift(start, DATUM_WGS84, datum);
                const double along = std::remainder(found.Longitude() - exact.Longitude(), 360.0) *
                                     std::cos(exact.Latitude() * DEGREE);
                worst = std::fmax(worst, 111320.0 * std::hypot(found.Latitude() - exact.Latitude(), along));
            }
        }
        return worst;
    };
    constexpr std::int32_t CH1903 = 7;
    EXPECT_NEAR(worstUpTo(60.0, GER), 0.12, 0.01);
    EXPECT_NEAR(worstUpTo(85.0, GER), 0.42, 0.03);
    EXPECT_NEAR(worstUpTo(89.9, GER), 19.0, 4.0);
    EXPECT_NEAR(worstUpTo(60.0, CH1903), 0.14, 0.01);
    EXPECT_NEAR(worstUpTo(85.0, CH1903), 0.50, 0.03);
    EXPECT_NEAR(worstUpTo(89.9, CH1903), 23.0, 4.0);
}

// The accuracy that datum.h states, for all datums but the sphere.
TEST(DatumShift, ReturnsFromAnotherDatumToWhereItStarted) {
    Random random(20);
    std::vector<double> errors;
    for (int i = 0; i < 20000; ++i) {
        const std::int32_t from = 1 + random.Below(DATUM_COUNT - 1);
        const std::int32_t to = 1 + random.Below(DATUM_COUNT - 1);
        const Position start{{random.Between(-85.0, 85.0), random.Between(-180.0, 180.0)}};
        errors.push_back(OutAndBack(start, from, to));
    }
    std::sort(errors.begin(), errors.end());
    EXPECT_LT(errors[errors.size() / 2], 1e-10);
    EXPECT_LT(errors[errors.size() * 99 / 100], 2e-7);
    EXPECT_LT(errors.back(), 4e-6);
}

// A step of at most 0.001 degrees isn't refined. On the sphere the two ways differ by 1.12 % of the step: the
// step out starts on an ellipsoid (f, that is 0.34 %, and da/a, 0.11 %) and the step in 2 f further (0.67 %).
TEST(DatumShift, ReturnsFromTheSphereWithinTheErrorOfAnUnrefinedStep) {
    Random random(20);
    for (int i = 0; i < 20000; ++i) {
        const std::int32_t datum = 1 + random.Below(DATUM_COUNT - 1);
        const double latitude = random.Between(-85.0, 85.0);
        const Position start{{latitude, random.Between(-180.0, 180.0)}};
        const Position nearEquator{{latitude / 400.0, random.Between(-180.0, 180.0)}};
        EXPECT_LT(OutAndBack(start, KUGEL, datum), 1.2e-5) << datum;
        EXPECT_LT(OutAndBack(nearEquator, datum, KUGEL), 1.2e-5) << datum;
        EXPECT_LT(OutAndBack(nearEquator, KUGEL, datum), 1.2e-5) << datum;
    }
}

}  // namespace
}  // namespace tessara::datum_test
