#include "kernel/transverse_mercator_constants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "kernel/angles.h"
#include "kernel/datums.h"
#include "support/tm_constants.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::transverse_mercator_constants_test {
namespace {

using ::tessara::testing::Arc;
using ::tessara::testing::DEGREE;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::GER;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::KUGEL;

TEST(TmConstants, FailOutsideTheDatumTableAndChangeNothing) {
    for (const std::int32_t datum : {-1, 239, INT32_MIN, INT32_MAX}) {
        TmConstants c{};
        c.datum = 77;
        c.arcCoef[0] = 5.0;
        EXPECT_EQ(TM_LoadForwardConstants(datum, &c), KOORD_ERR_DATUM);
        EXPECT_EQ(TM_LoadInverseConstants(datum, &c), KOORD_ERR_DATUM);
        EXPECT_EQ(c.datum, 77);
        EXPECT_EQ(c.arcCoef[0], 5.0);
    }
}

TEST(TmConstants, AreThereForEveryDatum) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        EXPECT_EQ(ForwardConstants(datum).datum, datum);
        EXPECT_EQ(InverseConstants(datum).datum, datum);
    }
}

TEST(TmConstants, OfTheSphereHaveNoSeries) {
    for (const TmConstants& c : {ForwardConstants(KUGEL), InverseConstants(KUGEL)}) {
        EXPECT_EQ(c.arcCoef[0], 1.0);
        EXPECT_EQ(c.seriesCoef[0], 1.0);
        for (int j = 1; j < 5; ++j) {
            EXPECT_EQ(c.arcCoef[j], 0.0);
            EXPECT_EQ(c.seriesCoef[j], 0.0);
        }
        EXPECT_EQ(c.polarRadius, 6371000.0);
        EXPECT_EQ(c.secondEcc2, 0.0);
    }
}

struct Fractions {
    double numerator[5];
    double denominator[5];
};

void ExpectPolynomials(const double coefficients[5], const Fractions (&rows)[5], double e2) {
    for (int i = 0; i < 5; ++i) {
        double expected = 0.0;
        for (int j = 4; j >= 0; --j)
            expected = expected * e2 + rows[i].numerator[j] / rows[i].denominator[j];
        // A unit in the last place of each of the five terms.
        EXPECT_NEAR(coefficients[i], expected, 5e-16 * std::fabs(expected)) << "row " << i;
    }
}

constexpr Fractions RECTIFYING = {{1, -1, -3, -5, -175}, {1, 4, 64, 256, 16384}};

TEST(TmConstants, ArePolynomialsOfTheEccentricity) {
    const Fractions arc[5] = {
        RECTIFYING,
        {{0, -3, -3, -45, -105}, {1, 8, 32, 1024, 4096}},
        {{0, 0, 15, 45, 525}, {1, 1, 256, 1024, 16384}},
        {{0, 0, 0, -35, -175}, {1, 1, 1, 3072, 12288}},
        {{0, 0, 0, 0, 315}, {1, 1, 1, 1, 131072}},
    };
    const Fractions forward[5] = {
        RECTIFYING,
        {{0, 1, -1, -9, -901}, {1, 8, 96, 1024, 184320}},
        {{0, 0, 13, 17, -311}, {1, 1, 768, 5120, 737280}},
        {{0, 0, 0, 61, 899}, {1, 1, 1, 15360, 430080}},
        {{0, 0, 0, 0, 49561}, {1, 1, 1, 1, 41287680}},
    };
    const Fractions inverse[5] = {
        RECTIFYING,
        {{0, 1, 1, 7, 1}, {1, 8, 48, 2048, 61440}},
        {{0, 0, 1, 3, 559}, {1, 1, 768, 1280, 368640}},
        {{0, 0, 0, 17, 283}, {1, 1, 1, 30720, 430080}},
        {{0, 0, 0, 0, 4397}, {1, 1, 1, 1, 41287680}},
    };
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const double e2 = Datum_EccentricitySquared(datum);
        ExpectPolynomials(ForwardConstants(datum).arcCoef, arc, e2);
        ExpectPolynomials(InverseConstants(datum).arcCoef, arc, e2);
        ExpectPolynomials(ForwardConstants(datum).seriesCoef, forward, e2);
        ExpectPolynomials(InverseConstants(datum).seriesCoef, inverse, e2);
    }
}

// The same series in the third flattening n, as C. F. F. Karney, "Transverse Mercator with an accuracy of a
// few nanometers", 2011, has them in equations 35 and 36. What is left over is of the fifth power of e2,
// 1e-11, times a coefficient of about 0.01; but the first inverse coefficient differs by (1/61440 +
// 17/184320) e2^4 = 2.2e-13.
TEST(TmConstants, AreTheKruegerSeries) {
    const double f = 1.0 / 298.257223563;
    const double n = f / (2.0 - f);
    const double n2 = n * n, n3 = n2 * n, n4 = n2 * n2;
    const double alpha[5] = {1.0, n / 2.0 - 2.0 / 3.0 * n2 + 5.0 / 16.0 * n3 + 41.0 / 180.0 * n4,
                             13.0 / 48.0 * n2 - 3.0 / 5.0 * n3 + 557.0 / 1440.0 * n4,
                             61.0 / 240.0 * n3 - 103.0 / 140.0 * n4, 49561.0 / 161280.0 * n4};
    const double beta[5] = {1.0, n / 2.0 - 2.0 / 3.0 * n2 + 37.0 / 96.0 * n3 - 1.0 / 360.0 * n4,
                            1.0 / 48.0 * n2 + 1.0 / 15.0 * n3 - 437.0 / 1440.0 * n4,
                            17.0 / 480.0 * n3 - 37.0 / 840.0 * n4, 4397.0 / 161280.0 * n4};
    const double rectifying = (1.0 + n2 / 4.0 + n4 / 64.0) / (1.0 + n);  // of the semi-major axis
    const TmConstants forward = ForwardConstants(DATUM_WGS84);
    const TmConstants inverse = InverseConstants(DATUM_WGS84);
    EXPECT_NEAR(forward.seriesCoef[0], rectifying, 2e-13);
    EXPECT_NEAR(inverse.seriesCoef[0], rectifying, 2e-13);
    for (int j = 1; j < 5; ++j) {
        EXPECT_NEAR(forward.seriesCoef[j], rectifying * alpha[j], 2e-13) << j;
        EXPECT_NEAR(inverse.seriesCoef[j], beta[j], j == 1 ? 4e-13 : 2e-13) << j;
    }
    const double e2 = Datum_EccentricitySquared(DATUM_WGS84);
    EXPECT_NEAR(inverse.seriesCoef[1] - beta[1], (1.0 / 61440.0 + 17.0 / 184320.0) * e2 * e2 * e2 * e2,
                2e-14);
}

// Grossmann, "Geodaetische Rechnungen und Abbildungen in der Landesvermessung", 1976: the meridian arc of the
// Bessel ellipsoid and its footpoint latitude, to their printed digits. The terms here end one power earlier
// than those printed, which is 5e-5 m.
TEST(TmConstants, HoldTheClassicalArcOfTheBesselEllipsoid) {
    const TmConstants forward = ForwardConstants(GER);
    EXPECT_NEAR(forward.arcPerDegree, 111120.61962, 1e-4);
    EXPECT_NEAR(forward.arcTerm[0], -15988.63853, 1e-4);
    EXPECT_NEAR(forward.arcTerm[1], 16.72995, 1e-4);
    EXPECT_NEAR(forward.arcTerm[2], -0.02178, 1e-5);
    const TmConstants inverse = InverseConstants(GER);
    EXPECT_EQ(inverse.arcPerDegree, forward.arcPerDegree);
    EXPECT_NEAR(inverse.arcTerm[0], 0.143885, 1e-6);
    EXPECT_NEAR(inverse.arcTerm[1], 0.000211, 1e-6);
    EXPECT_NEAR(inverse.arcTerm[2], 0.0000004, 1e-7);
}

// With d = e'^2 the arc is c times the integral of (1 + d cos^2)^(-3/2). Its binomial series has the terms
// binom(-3/2, k) d^k cos^2k, and cos^2k has 2^(1 - 2k) binom(2k, k - j) as the factor of the cosine of the
// 2j-fold, which an integral divides by 2j. The footpoint latitude has the factors 3n/2 - 27n^3/32, 21n^2/16
// and 151n^3/96 (Helmert), and n = d/4 - d^2/8 + 5d^3/64.
TEST(TmConstants, HoldTheTermsOfTheClassicalArcUpToTheirPowers) {
    const TmConstants forward = ForwardConstants(GER);
    const TmConstants inverse = InverseConstants(GER);
    const double d = forward.secondEcc2;
    // binom(-3/2, k) 2^(1 - 2k) for k = 1..4
    constexpr double factors[] = {-3.0 / 4.0, 15.0 / 64.0, -35.0 / 512.0, 315.0 / 16384.0};
    constexpr double binomials[3][4] = {{1.0, 4.0, 15.0, 56.0}, {0.0, 1.0, 6.0, 28.0}, {0.0, 0.0, 1.0, 8.0}};
    for (int j = 1; j <= 3; ++j) {
        double sum = 0.0;
        for (int k = 1; k <= 4; ++k)
            sum += factors[k - 1] * binomials[j - 1][k - 1] * std::pow(d, k);
        const double expected = forward.polarRadius * sum / (2.0 * j);
        EXPECT_NEAR(forward.arcTerm[j - 1], expected, 1e-14 * std::fabs(expected)) << j;
    }
    const double n = d / 4.0 - d * d / 8.0 + 5.0 * d * d * d / 64.0;
    const double n2 = d * d / 16.0 - d * d * d / 16.0;
    const double n3 = d * d * d / 64.0;
    const double footpoint[] = {1.5 * n - 27.0 / 32.0 * n3, 21.0 / 16.0 * n2, 151.0 / 96.0 * n3};
    for (int j = 0; j < 3; ++j) {
        const double expected = footpoint[j] / DEGREE;
        EXPECT_NEAR(inverse.arcTerm[j], expected, 1e-14 * expected) << j;
    }
}

TEST(TmConstants, HoldTheSecondEccentricityAndThePolarRadiusOfWgs84) {
    // NIMA TR 8350.2, third edition, table 3.3: e'^2 6.73949674228e-3, c 6399593.6258 m.
    const TmConstants c = ForwardConstants(DATUM_WGS84);
    EXPECT_NEAR(c.secondEcc2, 6.73949674228e-3, 5e-15);
    EXPECT_NEAR(c.polarRadius, 6399593.6258, 5e-5);
}

TEST(TmConstants, LeadFromALatitudeToItsArcAndBack) {
    const TmConstants forward = ForwardConstants(GER);
    const TmConstants inverse = InverseConstants(GER);
    const double a = Datum_SemiMajorAxis(GER);
    for (double lat = -90.0; lat <= 90.0; lat += 7.5) {
        double arc = forward.arcPerDegree * lat;
        for (int j = 0; j < 3; ++j)
            arc += forward.arcTerm[j] * std::sin(2.0 * (j + 1) * lat * DEGREE);
        EXPECT_NEAR(arc, a * Arc(lat * DEGREE, forward.arcCoef), 2e-4)
            << lat;  // metres: the missing fourth term
        const double sigma = arc / inverse.arcPerDegree;
        double footpoint = sigma;
        for (int j = 0; j < 3; ++j)
            footpoint += inverse.arcTerm[j] * std::sin(2.0 * (j + 1) * sigma * DEGREE);
        EXPECT_NEAR(footpoint, lat, 2e-8) << lat;  // degrees: 0.002 m
    }
}

}  // namespace
}  // namespace tessara::transverse_mercator_constants_test
