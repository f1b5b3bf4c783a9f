#include "tessara/kernel/classical_formulas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "kernel/angles.h"
#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/datums.h"
#include "kernel/swiss_sphere.h"
#include "numerics/special_values.h"
#include "support/datum_steps.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/dutch_grid.h"
#include "tessara/kernel/lettered_grids.h"
#include "tessara/kernel/swiss_grid.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/ups.h"

namespace tessara::classical_formulas_test {
namespace {

using ::tessara::testing::Arc;
using ::tessara::testing::DEGREE;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::GER;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::KUGEL;
using ::tessara::testing::METRES_PER_DEGREE;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;
using ::tessara::testing::Sexagesimal;
using ::tessara::testing::Step;
using ::tessara::testing::UnitSphere;
using Position = ::tessara::testing::LatLon;

double Isometric(double lat, double e) {
    double psi = 0.0;
    IsometricLatitude_Tm(lat, e, &psi);
    return psi;
}

double FromIsometric(double psi, double e, double tolerance = 1e-11) {
    double lat = 0.0;
    LatitudeFromIsometric(psi, e, tolerance, &lat);
    return lat;
}

UpsConstants UpsConstantsFor(std::int32_t datum) {
    UpsConstants c{};
    EXPECT_EQ(UPS_LoadConstants(datum, &c), KOORD_OK);
    return c;
}

TEST(DatumLoad, TakesTheStepIntoTheHubFromTheRow) {
    HubParams p{};
    ASSERT_EQ(Datum_LoadToHub(GER, &p), KOORD_OK);
    const double f = 1.0 / 299.1528128;
    EXPECT_EQ(p.f, f);
    EXPECT_EQ(p.a, 6377397.155);
    EXPECT_EQ(p.e2, 2.0 * f - f * f);
    EXPECT_EQ(p.df, 0.0033528106647474805 - f);
    EXPECT_EQ(p.da, 6378137.0 - 6377397.155);
    EXPECT_EQ(p.dx, 604.0);
    EXPECT_EQ(p.dy, 21.0);
    EXPECT_EQ(p.dz, 415.0);
}

TEST(DatumLoad, NegatesTheDifferencesOnTheWayOut) {
    HubParams p{};
    ASSERT_EQ(Datum_LoadFromHub(GER, &p), KOORD_OK);
    const double f = 0.0033528106647474805;
    EXPECT_EQ(p.f, f);
    EXPECT_EQ(p.a, 6378137.0);
    EXPECT_EQ(p.e2, 2.0 * f - f * f);
    EXPECT_EQ(p.df, 1.0 / 299.1528128 - f);
    EXPECT_EQ(p.da, 6377397.155 - 6378137.0);
    EXPECT_EQ(p.dx, -604.0);
    EXPECT_EQ(p.dy, -21.0);
    EXPECT_EQ(p.dz, -415.0);
}

TEST(DatumLoad, FailsOutsideTheTableAndChangesNothing) {
    for (const std::int32_t datum : {-1, 239, INT32_MIN, INT32_MAX}) {
        HubParams p = UnitSphere(1.0, 2.0, 3.0);
        EXPECT_EQ(Datum_LoadToHub(datum, &p), KOORD_ERR_DATUM);
        EXPECT_EQ(Datum_LoadFromHub(datum, &p), KOORD_ERR_DATUM);
        EXPECT_EQ(p.a, 1.0);
        EXPECT_EQ(p.dz, 3.0);
    }
}

TEST(DatumShift, FailsOutsideTheTableAndChangesNothing) {
    const HubParams p = UnitSphere(0.0, 0.0, 0.0);
    const double in[2] = {48.0, 11.0};
    for (const std::int32_t bad : {-1, 239, INT32_MIN, INT32_MAX}) {
        double out[2] = {1.0, 2.0};
        EXPECT_EQ(Datum_Shift(in, out, &p, &p, bad, GER), KOORD_ERR_DATUM);
        EXPECT_EQ(Datum_Shift(in, out, &p, &p, GER, bad), KOORD_ERR_DATUM);
        EXPECT_EQ(out[0], 1.0);
        EXPECT_EQ(out[1], 2.0);
    }
}

TEST(DatumShift, SkipsTheStepOfTheHub) {
    HubParams toHub{};
    HubParams fromHub{};
    ASSERT_EQ(Datum_LoadToHub(GER, &toHub), KOORD_OK);
    ASSERT_EQ(Datum_LoadFromHub(GER, &fromHub), KOORD_OK);
    const HubParams unused = UnitSphere(NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER);
    const double in[2] = {48.0, 11.0};
    double out[2] = {};

    ASSERT_EQ(Datum_Shift(in, out, &toHub, &unused, GER, DATUM_WGS84), KOORD_OK);
    EXPECT_EQ(out[0], Step(toHub, 48.0, 11.0).Latitude());
    EXPECT_EQ(out[1], Step(toHub, 48.0, 11.0).Longitude());

    Position expected{{48.0, 11.0}};
    Molodensky_FromHub(expected.latLon, &fromHub, GER);
    ASSERT_EQ(Datum_Shift(in, out, &unused, &fromHub, DATUM_WGS84, GER), KOORD_OK);
    EXPECT_EQ(out[0], expected.Latitude());
    EXPECT_EQ(out[1], expected.Longitude());

    ASSERT_EQ(Datum_Shift(in, out, &unused, &unused, DATUM_WGS84, DATUM_WGS84), KOORD_OK);
    EXPECT_EQ(out[0], 48.0);
    EXPECT_EQ(out[1], 11.0);
}

// The same steps with the same constants, which are loaded here and computed at compile time there.
TEST(DatumShift, HasTheBitsOfAConversion) {
    Random random(35);
    for (int i = 0; i < 20000; ++i) {
        const std::int32_t from = random.Below(DATUM_COUNT);
        const std::int32_t to = random.Below(DATUM_COUNT);
        const double start[2] = {random.Between(-90.0, 90.0), random.Between(-180.0, 180.0)};
        HubParams toHub{};
        HubParams fromHub{};
        ASSERT_EQ(Datum_LoadToHub(from, &toHub), KOORD_OK);
        ASSERT_EQ(Datum_LoadFromHub(to, &fromHub), KOORD_OK);
        double loaded[2] = {};
        ASSERT_EQ(Datum_Shift(start, loaded, &toHub, &fromHub, from, to), KOORD_OK);
        double converted[2] = {start[0], start[1]};
        ShiftBetween(from, to, converted);
        EXPECT_EQ(loaded[0], converted[0]) << from << ' ' << to;
        EXPECT_EQ(loaded[1], converted[1]) << from << ' ' << to;
    }
}

TEST(TmArc, IsTheLengthOfTheMeridian) {
    const TmConstants c = ForwardConstants(DATUM_WGS84);
    // The quadrant of WGS84 is 10001965.729 m.
    EXPECT_NEAR(WGS84_A * Arc(HALF_PI, c.arcCoef), 10001965.729, 5e-4);
    EXPECT_EQ(Arc(0.0, c.arcCoef), 0.0);
    // Simpson's rule on the radius of curvature (1 - e2) / (1 - e2 sin^2)^1.5.
    const double e2 = Datum_EccentricitySquared(DATUM_WGS84);
    const auto radius = [e2](double lat) {
        return (1.0 - e2) / std::pow(1.0 - e2 * std::sin(lat) * std::sin(lat), 1.5);
    };
    for (const double degrees : {1.0, 30.0, 45.0, 60.0, 89.0}) {
        const double lat = degrees * DEGREE;
        constexpr int steps = 200;
        double sum = radius(0.0) + radius(lat);
        for (int i = 1; i < steps; ++i)
            sum += (i % 2 == 1 ? 4.0 : 2.0) * radius(lat * i / steps);
        // A relative 1e-11: the fifth power of e2 is left over.
        EXPECT_NEAR(Arc(lat, c.arcCoef), sum * lat / steps / 3.0, 1e-12) << degrees;
    }
}

TEST(IsometricLatitudeTm, IsTheClosedForm) {
    for (const double e : {0.0, 0.0818, 0.3}) {
        for (double degrees = -89.0; degrees <= 89.0; degrees += 4.45) {
            const double s = std::sin(degrees * DEGREE);
            // Radians: at 89 degrees the tangent's rounding counts more.
            EXPECT_NEAR(Isometric(degrees * DEGREE, e), std::atanh(s) - e * std::atanh(e * s), 1e-13);
        }
    }
}

// 90 degrees times the degree factor is a little more than pi/2.
TEST(IsometricLatitudeTm, IsNotANumberAtAndBeyondThePoles) {
    for (const double degrees : {90.0, -90.0, 95.0, -100.0, NOT_A_NUMBER, INFINITE})
        EXPECT_TRUE(std::isnan(Isometric(degrees * DEGREE, 0.0818))) << degrees;
}

TEST(LatitudeFromIsometric, InvertsTheIsometricLatitude) {
    for (const double e : {0.0, 0.0818, 0.3}) {
        for (double degrees = -89.0; degrees <= 89.0; degrees += 4.45) {
            const double lat = degrees * DEGREE;
            // Radians: the search ends with a step below 1e-11; a quarter turn is rounded.
            EXPECT_NEAR(FromIsometric(Isometric(lat, e), e), lat, 1e-11);
        }
    }
    EXPECT_NEAR(FromIsometric(INFINITE, 0.0818), 1.5707963267948966, 2e-15);
    EXPECT_NEAR(FromIsometric(-INFINITE, 0.0818), -1.5707963267948966, 2e-15);
}

TEST(LatitudeFromIsometric, EndsOnWhatIsNotANumberAndOnTolerancesOutOfReach) {
    EXPECT_TRUE(std::isnan(FromIsometric(NOT_A_NUMBER, 0.0818)));
    EXPECT_TRUE(std::isnan(FromIsometric(1.0, NOT_A_NUMBER)));
    // Radians. A tolerance that is no number ends the search at its start, which is off by e2.
    EXPECT_NEAR(FromIsometric(1.0, 0.0818, 0.0), FromIsometric(1.0, 0.0818), 1e-11);
    EXPECT_NEAR(FromIsometric(1.0, 0.0818, -1.0), FromIsometric(1.0, 0.0818), 1e-11);
    EXPECT_NEAR(FromIsometric(1.0, 0.0818, NOT_A_NUMBER), FromIsometric(1.0, 0.0818), 1e-2);
}

TEST(TmParam, AgreesWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/transverse_mercator.txt")) {
        SCOPED_TRACE(row.place);
        const auto datum = static_cast<std::int32_t>(row.Number(0));
        const TmParams params{row.Number(3), row.Number(4), row.Number(5), row.Number(6), row.Number(7)};
        const double lat = row.Number(8);
        const double lon = row.Number(9);
        const TmConstants forward = ForwardConstants(datum);
        const TmConstants inverse = InverseConstants(datum);

        const double latLon[2] = {lat, lon};
        double easting = 0.0;
        double northing = 0.0;
        EXPECT_EQ(TM_ForwardParam(latLon, &params, &easting, &northing, &forward), KOORD_OK);
        EXPECT_NEAR(easting, row.Number(10), REFERENCE_TOLERANCE);
        EXPECT_NEAR(northing, row.Number(11), REFERENCE_TOLERANCE);

        double back[2] = {};
        EXPECT_EQ(TM_InverseParam(row.Number(10), row.Number(11), &params, back, &forward, &inverse),
                  KOORD_OK);
        EXPECT_NEAR(back[0], lat, REFERENCE_TOLERANCE / METRES_PER_DEGREE);
        EXPECT_NEAR(back[1], lon, REFERENCE_TOLERANCE / METRES_PER_DEGREE / std::cos(lat * DEGREE));
    }
}

// Ordnance Survey, "A guide to coordinate systems in Great Britain", annexe C: 52 39' 27.2531" N, 1
// 43' 4.5177" E is 651409.903 E, 313177.270 N.
TEST(TmParam, AgreesWithTheWorkedExampleOfTheOrdnanceSurvey) {
    const TmParams nationalGrid{-2.0, 49.0, 400000.0, -100000.0, 0.9996012717};
    const double latLon[2] = {52.0 + 39.0 / 60.0 + 27.2531 / 3600.0, 1.0 + 43.0 / 60.0 + 4.5177 / 3600.0};
    const TmConstants airy = ForwardConstants(98);
    double easting = 0.0;
    double northing = 0.0;
    TM_ForwardParam(latLon, &nationalGrid, &easting, &northing, &airy);
    // Published to a millimetre; a unit of the last digit of the seconds is 3 mm.
    EXPECT_NEAR(easting, 651409.903, 2e-3);
    EXPECT_NEAR(northing, 313177.270, 2e-3);
}

TEST(TmParam, HasTheFalseValuesAtTheOrigin) {
    const TmParams params{-8.0, 53.5, 200000.0, 250000.0, 1.000035};
    const TmConstants forward = ForwardConstants(97);
    const TmConstants inverse = InverseConstants(97);
    double latLon[2] = {53.5, -8.0};
    double easting = 0.0;
    double northing = 0.0;
    TM_ForwardParam(latLon, &params, &easting, &northing, &forward);
    EXPECT_EQ(easting, 200000.0);
    EXPECT_EQ(northing, 250000.0);
    TM_InverseParam(200000.0, 250000.0, &params, latLon, &forward, &inverse);
    EXPECT_NEAR(latLon[0], 53.5, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE);
    EXPECT_EQ(latLon[1], -8.0);
}

TEST(TmParam, ReturnsToWhereItStarted) {
    Random random(24);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const TmConstants forward = ForwardConstants(datum);
        const TmConstants inverse = InverseConstants(datum);
        const TmParams params{random.Between(-180.0, 180.0), random.Between(-80.0, 80.0),
                              random.Between(-1e6, 1e6), random.Between(-1e7, 1e7), random.Between(0.9, 1.1)};
        const double lat = random.Between(-84.0, 84.0);
        const double lon = params.originLongitude + random.Between(-6.0, 6.0);
        const double latLon[2] = {lat, lon};
        double easting = 0.0;
        double northing = 0.0;
        TM_ForwardParam(latLon, &params, &easting, &northing, &forward);
        double back[2] = {};
        TM_InverseParam(easting, northing, &params, back, &forward, &inverse);
        EXPECT_NEAR(back[0], lat, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE);
        EXPECT_NEAR(back[1], lon, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE / std::cos(lat * DEGREE));
    }
}

TEST(TmParam, EndsOnParametersThatAreNone) {
    const TmConstants forward = ForwardConstants(GER);
    const TmConstants inverse = InverseConstants(GER);
    double latLon[2] = {50.0, 9.0};
    double easting = 0.0;
    double northing = 0.0;
    const TmParams cleared{};
    EXPECT_EQ(TM_InverseParam(0.0, 0.0, &cleared, latLon, &forward, &inverse), KOORD_OK);
    EXPECT_TRUE(std::isnan(latLon[0]));
    const TmParams atThePole{9.0, 90.0, 0.0, 0.0, 1.0};
    latLon[0] = 50.0;
    EXPECT_EQ(TM_ForwardParam(latLon, &atThePole, &easting, &northing, &forward), KOORD_OK);
    EXPECT_TRUE(std::isnan(northing));
    EXPECT_EQ(TM_InverseParam(0.0, 0.0, &atThePole, latLon, &forward, &inverse), KOORD_OK);
    EXPECT_TRUE(std::isnan(latLon[0]));
    const TmParams garbage{NOT_A_NUMBER, INFINITE, 1e300, -1e300, -0.0};
    latLon[0] = 50.0;
    EXPECT_EQ(TM_ForwardParam(latLon, &garbage, &easting, &northing, &forward), KOORD_OK);
    EXPECT_EQ(TM_InverseParam(1.0, 2.0, &garbage, latLon, &forward, &inverse), KOORD_OK);
    EXPECT_TRUE(std::isnan(latLon[0]));
}

// The arc ends with the fourth power of e2. Of the fifth it leaves out 0.01682 sin 2 phi, 0.02403 sin 4 phi,
// 0.01402 sin 6 phi, 0.00421 sin 8 phi and 0.00053 sin 10 phi; the northing is exact to a micrometre.
TEST(TmArc, IsTheNorthingOnTheCentralMeridian) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const TmConstants c = ForwardConstants(datum);
        const double a = Datum_SemiMajorAxis(datum);
        const double tolerance = 0.05961 * std::pow(Datum_EccentricitySquared(datum), 5.0) * a + 1e-6;
        for (double degrees = -85.0; degrees <= 85.0; degrees += 8.5) {
            double easting = 0.0;
            double northing = 0.0;
            TM_Forward(0.0, degrees * DEGREE, 1.0, 0.0, 0.0, &easting, &northing, &c);
            EXPECT_NEAR(a * Arc(degrees * DEGREE, c.arcCoef), northing, tolerance) << datum << ' ' << degrees;
        }
    }
}

TEST(IsometricLatitudeTm, IsThatWithoutTangentAndPower) {
    for (const std::int32_t datum : {KUGEL, GER, DATUM_WGS84}) {
        const double e2 = Datum_EccentricitySquared(datum);
        for (double degrees = -89.0; degrees <= 89.0; degrees += 4.45) {
            const SinCos phi = SinCosOf(degrees * DEGREE);
            // Radians: at 89 degrees the tangent's rounding counts more.
            EXPECT_NEAR(Isometric(degrees * DEGREE, std::sqrt(e2)),
                        SphericalIsometricLatitude(phi) - EllipsoidShare(phi.sine, e2), 1e-13);
        }
    }
}

// The search ends at a step of at most 1e-11 radians, which is within 0.007 times that of its limit.
TEST(LatitudeFromIsometric, EndsWhereTheSeriesLeads) {
    for (const std::int32_t datum : {KUGEL, GER, DATUM_WGS84}) {
        const DatumRow* row = Datum_Row(datum);
        for (double psi = -4.5; psi <= 4.5; psi += 0.15) {
            const double t = std::exp(psi);
            const SinCos twice = Doubled(SinCosOfExponential(t));
            const double series =
                2.0 * std::atan(t) - HALF_PI + LatitudeStep(LATITUDE_SERIES[row->ellipsoid], twice);
            EXPECT_NEAR(FromIsometric(psi, std::sqrt(row->e2)), series, 1e-13) << datum << ' ' << psi;
        }
    }
}

// The grids with letters have the northing of their origin from the compiler.
TEST(TmParam, IsTheProjectionOfTheGridsWithLetters) {
    struct LetteredGrid {
        std::int32_t datum;
        TmParams params;
        decltype(&BNG_FromGeodetic) from;
        decltype(&BNG_ToGeodetic) to;
    };
    const LetteredGrid grids[] = {
        {98, {-2.0, 49.0, 400000.0, -100000.0, 0.9996012717}, BNG_FromGeodetic, BNG_ToGeodetic},
        {97, {-8.0, 53.5, 200000.0, 250000.0, 1.000035}, ING_FromGeodetic, ING_ToGeodetic},
    };
    Random random(49);
    for (const LetteredGrid& grid : grids) {
        const TmConstants forward = ForwardConstants(grid.datum);
        const TmConstants inverse = InverseConstants(grid.datum);
        for (int i = 0; i < 1000; ++i) {
            // Whole metres, which the Irish grid rounds to.
            const LetterGridPayload payload{.square = 0,
                                            .subSquare = 0,
                                            .unused1 = {},
                                            .easting = 0.0,
                                            .northing = 0.0,
                                            .fullEasting = 1000.0 + random.Below(490000),
                                            .fullNorthing = 1000.0 + random.Below(490000)};
            double converted[2] = {};
            ASSERT_EQ(grid.to(&payload, converted, &forward, &inverse), KOORD_OK);
            double latLon[2] = {};
            TM_InverseParam(payload.fullEasting, payload.fullNorthing, &grid.params, latLon, &forward,
                            &inverse);
            // Degrees and metres, some units of the last place.
            EXPECT_NEAR(latLon[0], converted[0], 1e-13);
            EXPECT_NEAR(latLon[1], converted[1], 1e-13);

            LetterGridPayload there{};
            ASSERT_EQ(grid.from(latLon, &there, &forward), KOORD_OK);
            double easting = 0.0;
            double northing = 0.0;
            TM_ForwardParam(latLon, &grid.params, &easting, &northing, &forward);
            EXPECT_NEAR(easting, there.fullEasting, 1e-8);
            EXPECT_NEAR(northing, there.fullNorthing, 1e-8);
        }
    }
}

TEST(UpsLoadConstants, GivesThoseOfTheEllipsoid) {
    const UpsConstants c = UpsConstantsFor(DATUM_WGS84);
    EXPECT_EQ(c.a, 6378137.0);
    EXPECT_NEAR(c.inverseFlattening, 298.257223563, 1e-12);
    EXPECT_NEAR(c.b, 6356752.314245, 1e-6);      // published, to the micrometre
    EXPECT_NEAR(c.e2, 0.00669437999014, 1e-14);  // published
    EXPECT_NEAR(c.e, 0.081819190842622, 1e-14);  // published
    // 2a (1-e)^(e/2-1/2) / (1+e)^(e/2+1/2), the form of DMA TM 8358.2.
    const double expected =
        2.0 * c.a * std::pow(1.0 - c.e, c.e / 2.0 - 0.5) / std::pow(1.0 + c.e, c.e / 2.0 + 0.5);
    EXPECT_NEAR(c.poleRadius, expected, 1e-8);
}

TEST(UpsLoadConstants, TheSeriesLeadsFromTheConformalLatitude) {
    const UpsConstants c = UpsConstantsFor(DATUM_WGS84);
    for (const double phi : {0.1, 0.5, 0.9, 1.4, 1.55}) {
        const double eSin = c.e * std::sin(phi);
        const double chi = 2.0 * std::atan(std::tan(QUARTER_PI + phi / 2.0) *
                                           std::pow((1.0 - eSin) / (1.0 + eSin), c.e / 2.0)) -
                           HALF_PI;
        const double series = chi + c.s2 * std::sin(2.0 * chi) + c.s4 * std::sin(4.0 * chi) +
                              c.s6 * std::sin(6.0 * chi) + c.s8 * std::sin(8.0 * chi);
        EXPECT_NEAR(series, phi, 1e-11) << phi;  // radians; the next term is of the order of e^10
    }
}

TEST(UpsLoadConstants, OnTheSphereEverythingEllipsoidalIsZero) {
    const UpsConstants c = UpsConstantsFor(KUGEL);
    EXPECT_EQ(c.a, 6371000.0);
    EXPECT_EQ(c.b, c.a);
    EXPECT_EQ(c.inverseFlattening, 0.0);
    EXPECT_EQ(c.e2, 0.0);
    EXPECT_EQ(c.e, 0.0);
    EXPECT_EQ(c.poleRadius, 2.0 * c.a);
    EXPECT_TRUE(c.s2 == 0.0 && c.s4 == 0.0 && c.s6 == 0.0 && c.s8 == 0.0);
}

// DMA TM 8358.2, chapter 3, with the tangent, the power and the series in the published form.
TEST(UpsLoadConstants, AreThoseOfTheProjection) {
    Random random(994);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const UpsConstants c = UpsConstantsFor(datum);
        const double latLon[2] = {random.Between(75.0, 89.9), random.Between(-180.0, 180.0)};
        const double phi = latLon[0] * RADIANS_PER_DEGREE;
        const double eSin = c.e * std::sin(phi);
        const double r = 0.994 * c.poleRadius * std::tan(QUARTER_PI - phi / 2.0) *
                         std::pow((1.0 + eSin) / (1.0 - eSin), c.e / 2.0);
        UpsPayload payload{};
        ASSERT_EQ(UPS_FromGeodetic(latLon, &payload, datum), KOORD_OK);
        // Metres, some units of the last place.
        EXPECT_NEAR(payload.easting, 2e6 + r * std::sin(latLon[1] * RADIANS_PER_DEGREE), 1e-8);
        EXPECT_NEAR(payload.northing, 2e6 - r * std::cos(latLon[1] * RADIANS_PER_DEGREE), 1e-8);

        const double chi = HALF_PI - 2.0 * std::atan(r / (0.994 * c.poleRadius));
        const double series = chi + c.s2 * std::sin(2.0 * chi) + c.s4 * std::sin(4.0 * chi) +
                              c.s6 * std::sin(6.0 * chi) + c.s8 * std::sin(8.0 * chi);
        double back[2] = {};
        ASSERT_EQ(UPS_ToGeodetic(&payload, back, datum), KOORD_OK);
        EXPECT_NEAR(back[0] * RADIANS_PER_DEGREE, series, 2e-15);  // some units of the last place
    }
}

// swisstopo gives the constants of the double projection to these digits. Its e squared is smaller
// by 1.2e-12, which moves alpha by 1.3e-13 and the radius by some micrometres.
TEST(CHLoadConstants, GivesThePublishedConstants) {
    CHConstants c;
    CH_LoadConstants(&c);
    EXPECT_NEAR(c.radius, 6378815.90365, 1e-4);
    EXPECT_NEAR(c.alpha, 1.00072913843038, 2e-13);
    EXPECT_NEAR(c.b0 * c.degPerRad, Sexagesimal(46, 54, 27.83324844), 1e-11);
    EXPECT_NEAR(c.k, 0.0030667323772751, 1e-12);
    EXPECT_DOUBLE_EQ(c.degPerRad, 57.29577951308232);
    EXPECT_DOUBLE_EQ(c.lon0 * c.degPerRad, 7.439583333333333);
    EXPECT_DOUBLE_EQ(c.lat0 * c.degPerRad, 46.95240555555556);
    EXPECT_DOUBLE_EQ(c.e * c.e, 0.006674372231802145);
}

// Some units of the last place of numbers around 1; the constant k is a difference of such numbers.
TEST(CHLoadConstants, AreThoseOfTheProjection) {
    CHConstants c;
    CH_LoadConstants(&c);
    EXPECT_DOUBLE_EQ(c.lon0, swiss::SPHERE.lon0);
    EXPECT_DOUBLE_EQ(c.alpha, swiss::SPHERE.alpha);
    EXPECT_DOUBLE_EQ(c.radius, swiss::SPHERE.radius);
    EXPECT_NEAR(std::sin(c.b0), swiss::SPHERE.sinB0, 5e-16);
    EXPECT_NEAR(std::cos(c.b0), swiss::SPHERE.cosB0, 5e-16);
    EXPECT_NEAR(c.k, swiss::SPHERE.k, 2e-15);
}

// IOGP Publication 373-7-2 gives the steps of its example to nine digits: R, n, c (m is 1/sqrt(c)) and the
// latitudes on the sphere of the origin and of 53 degrees.
TEST(RDHelpers, GiveTheStepsOfTheWorkedExample) {
    const double f = 1.0 / 299.1528128;
    const double e2 = 2.0 * f - f * f;
    const double e = std::sqrt(e2);
    const double n = 1.000475857;
    const double m = 1.0 / std::sqrt(1.007576465);
    const double origin = 52.1561605556 * RADIANS_PER_DEGREE;
    const double example = 53.0 * RADIANS_PER_DEGREE;
    EXPECT_NEAR(RD_MeanRadius(origin, 6377397.155, e2), 6382644.571, 0.001);
    EXPECT_NEAR(RD_GaussLatitude(origin, e, n, m), 0.909684757, 1e-9);
    EXPECT_NEAR(RD_GaussLatitude(example, e, n, m), 0.924394997, 1e-9);
    EXPECT_NEAR(RD_LatitudeFromGauss(0.909684757, e, n, m), origin, 2e-9);
    EXPECT_NEAR(RD_LatitudeFromGauss(0.924394997, e, n, m), example, 2e-9);
}

TEST(RDHelpers, ReturnFromEveryLatitude) {
    const double e = 0.0816968312;
    for (int degrees = -89; degrees <= 89; ++degrees) {
        const double lat = degrees * RADIANS_PER_DEGREE;
        const double b = RD_GaussLatitude(lat, e, 1.0005, 0.996);
        // Radians: near the pole the tangent's rounding counts more.
        EXPECT_NEAR(RD_LatitudeFromGauss(b, e, 1.0005, 0.996), lat, 1e-13);
    }
}

TEST(RDHelpers, LetANaNEndTheIteration) {
    EXPECT_TRUE(std::isnan(RD_LatitudeFromGauss(NOT_A_NUMBER, 0.08, 1.0005, 0.996)));
    EXPECT_TRUE(std::isnan(RD_LatitudeFromGauss(0.9, NOT_A_NUMBER, 1.0005, 0.996)));
    EXPECT_TRUE(std::isnan(RD_LatitudeFromGauss(2.0, 0.08, 1.0005, 0.996)));  // beyond the pole
}

// The Dutch grid in the steps of IOGP Publication 373-7-2.
class GaussSphere {
  public:
    explicit GaussSphere(std::int32_t datum) : e2_(Datum_EccentricitySquared(datum)) {
        const double cosine = std::cos(PHI0);
        const double w = e2_ / (1.0 - e2_) * cosine * cosine;
        n_ = std::sqrt(1.0 + w * cosine * cosine);
        b0_ = std::atan(std::tan(PHI0) / std::sqrt(1.0 + w));
        // The factor that brings the origin to its latitude on the sphere.
        const double b = RD_GaussLatitude(PHI0, std::sqrt(e2_), n_, 1.0);
        m_ = std::tan(b / 2.0 + QUARTER_PI) / std::tan(b0_ / 2.0 + QUARTER_PI);
        radius_ = RD_MeanRadius(PHI0, Datum_SemiMajorAxis(datum), e2_);
    }

    [[nodiscard]] GridPayload Project(double lat, double lon) const {
        const double b = RD_GaussLatitude(lat * RADIANS_PER_DEGREE, std::sqrt(e2_), n_, m_);
        const double l = n_ * (lon - 5.3876388889) * RADIANS_PER_DEGREE;
        const double scale = 2.0 * SCALE * radius_ /
                             (1.0 + std::sin(b0_) * std::sin(b) + std::cos(b0_) * std::cos(b) * std::cos(l));
        return {155000.0 + scale * std::cos(b) * std::sin(l),
                463000.0 + scale * (std::cos(b0_) * std::sin(b) - std::sin(b0_) * std::cos(b) * std::cos(l))};
    }

    // The latitude in degrees of a northing on the meridian of the origin.
    [[nodiscard]] double LatitudeOf(double northing) const {
        const double b = b0_ + 2.0 * std::atan((northing - 463000.0) / (2.0 * SCALE * radius_));
        return RD_LatitudeFromGauss(b, std::sqrt(e2_), n_, m_) * DEGREES_PER_RADIAN;
    }

  private:
    static constexpr double PHI0 = 52.1561605556 * RADIANS_PER_DEGREE;
    static constexpr double SCALE = 0.99990790084;

    double e2_, n_, b0_, m_, radius_;
};

TEST(RDHelpers, AreStepsOfTheProjection) {
    Random random(1888);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const GaussSphere sphere(datum);
        const double latLon[2] = {random.Between(50.0, 54.0), random.Between(3.0, 8.0)};
        GridPayload payload{};
        RD_FromGeodetic(latLon, &payload, datum);
        const GridPayload expected = sphere.Project(latLon[0], latLon[1]);
        // Some roundings of angles, 7e-10 m each on the radius of the earth.
        EXPECT_NEAR(payload.easting, expected.easting, 1e-8) << datum;
        EXPECT_NEAR(payload.northing, expected.northing, 1e-8) << datum;

        const GridPayload onMeridian{155000.0, random.Between(200000.0, 700000.0)};
        double back[2] = {};
        RD_ToGeodetic(&onMeridian, back, datum);
        EXPECT_NEAR(back[0], sphere.LatitudeOf(onMeridian.northing), 1e-13) << datum;  // the same in degrees
    }
}

}  // namespace
}  // namespace tessara::classical_formulas_test
