#include "tessara/kernel/geodesic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/records.h"
#include "support/reference_file.h"
#include "support/timing.h"
#include "tessara/kernel/convert.h"

namespace tessara::geodesic_test {
namespace {

using testing::Random;
using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double MILLIMETRE = 0.001;
// A millimetre across the direction at the far end of any geodesic of 6400 km or more; below that the azimuth
// is as uncertain as the distance is short.
constexpr double AZIMUTH_TOLERANCE = 1e-8;
constexpr double DEGREE_METRES = 111400.0;       // no degree of a great circle is longer
constexpr double HALF_MERIDIAN = 20003931.4586;  // WGS84, twice the published quadrant 10001965.7293 m
constexpr std::int32_t DATUM_BESSEL = 3;
constexpr std::int32_t DATUM_INTERNATIONAL = 1;

GeodesicResult Inverse(double lat1, double lon1, double lat2, double lon2, std::int32_t datum = DATUM_WGS84) {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    return Geodesic_InverseCore(lat1, lon1, lat2, lon2, axes[0], axes[1]);
}

GeodesicResult Direct(double lat, double lon, double distance, double azimuth,
                      std::int32_t datum = DATUM_WGS84) {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    return Geodesic_DirectCore(lat, lon, distance, azimuth, axes[0], axes[1]);
}

std::int32_t DatumOf(const ReferenceRow& row) {
    return std::stoi(row.Text(0));
}

// Difference of two directions in degrees, without whole turns.
double Turn(double azimuth1, double azimuth2) {
    return std::fabs(std::remainder(azimuth1 - azimuth2, 360.0));
}

double Dms(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

TEST(GeodesicLoadAxes, GivesBothSemiAxesOfADatum) {
    double axes[2];
    Geodesic_LoadAxes(axes, DATUM_WGS84);
    EXPECT_EQ(axes[0], 6378137.0);
    EXPECT_NEAR(axes[1], 6356752.314245, 1e-6);  // published, to the micrometre
    Geodesic_LoadAxes(axes, DATUM_SPHERE);
    EXPECT_EQ(axes[0], 6371000.0);
    EXPECT_EQ(axes[1], 6371000.0);
}

TEST(GeodesicLoadAxes, AnUnknownDatumHasNoAxes) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        double axes[2] = {1.0, 1.0};
        Geodesic_LoadAxes(axes, datum);
        EXPECT_TRUE(std::isnan(axes[0]) && std::isnan(axes[1])) << datum;
    }
}

TEST(GeodesicInverseCore, AgreesWithAnIndependentSolution) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/geodesic_inverse.txt")) {
        const GeodesicResult r =
            Inverse(row.Number(1), row.Number(2), row.Number(3), row.Number(4), DatumOf(row));
        const double distance = row.Number(7);
        EXPECT_NEAR(r.distance, distance, MILLIMETRE) << row.place;
        const double tolerance = AZIMUTH_TOLERANCE * std::fmax(1.0, 6.4e6 / distance);
        EXPECT_LT(Turn(r.azimuth12, row.Number(5)), tolerance) << row.place;
        EXPECT_LT(Turn(r.azimuth21, row.Number(6)), tolerance) << row.place;
    }
}

TEST(GeodesicDirectCore, AgreesWithAnIndependentSolution) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/geodesic_direct.txt")) {
        const GeodesicResult r =
            Direct(row.Number(1), row.Number(2), row.Number(4), row.Number(3), DatumOf(row));
        const double parallel = std::cos(r.latitude / DEGREES_PER_RADIAN);
        EXPECT_NEAR(r.latitude * DEGREE_METRES, row.Number(5) * DEGREE_METRES, MILLIMETRE) << row.place;
        EXPECT_LT(Turn(r.longitude, row.Number(6)) * DEGREE_METRES * parallel, MILLIMETRE) << row.place;
        EXPECT_LT(Turn(r.backAzimuth, row.Number(7)), AZIMUTH_TOLERANCE / parallel) << row.place;
    }
}

// The first three lines of T. Vincenty's test, Survey Review XXIII 176, 1975, table II. The directions at the
// end are printed there as forward ones.
TEST(Geodesic, SolvesVincentysExamples) {
    struct Example {
        std::int32_t datum;
        double lat1, azimuth12, distance, lat2, dLon, forward2;
    };
    const Example examples[] = {
        {DATUM_BESSEL, Dms(55, 45, 0), Dms(96, 36, 8.79960), 14110526.170, -Dms(33, 26, 0), Dms(108, 13, 0),
         Dms(137, 52, 22.01454)},
        {DATUM_INTERNATIONAL, Dms(37, 19, 54.95367), Dms(95, 27, 59.63089), 4085966.703, Dms(26, 7, 42.83946),
         Dms(41, 28, 35.50729), Dms(118, 5, 58.96161)},
        {DATUM_INTERNATIONAL, Dms(35, 16, 11.24862), Dms(15, 44, 23.74850), 8084823.839,
         Dms(67, 22, 14.77638), Dms(137, 47, 28.31435), Dms(144, 55, 39.92147)},
    };
    for (const Example& e : examples) {
        const GeodesicResult inverse = Inverse(e.lat1, 0.0, e.lat2, e.dLon, e.datum);
        EXPECT_NEAR(inverse.distance, e.distance, MILLIMETRE);
        EXPECT_LT(Turn(inverse.azimuth12, e.azimuth12), 1e-8);  // printed to 3e-9 degrees
        EXPECT_LT(Turn(inverse.azimuth21, e.forward2 + 180.0), 1e-8);
        const GeodesicResult direct = Direct(e.lat1, 0.0, e.distance, e.azimuth12, e.datum);
        EXPECT_NEAR(direct.latitude, e.lat2, 1e-8);
        EXPECT_NEAR(direct.longitude, e.dLon, 1e-8);
        EXPECT_LT(Turn(direct.backAzimuth, e.forward2 + 180.0), 1e-8);
    }
}

TEST(GeodesicInverseCore, OnTheSphereGivesTheGreatCircle) {
    // A right angle at the pole: cos s = sin 30 sin 45.
    const double s = 6371000.0 * std::acos(std::sin(PI / 6.0) * std::sin(PI / 4.0));
    EXPECT_NEAR(Inverse(30.0, 10.0, 45.0, 100.0, DATUM_SPHERE).distance, s, 1e-6);
}

TEST(GeodesicInverseCore, CoincidentPointsAreAtDistanceZeroAndFaceNorth) {
    for (const double lat : {-90.0, -33.0, 0.0, 48.0, 90.0}) {
        const GeodesicResult r = Inverse(lat, 11.0, lat, 11.0);
        EXPECT_EQ(r.distance, 0.0) << lat;
        EXPECT_EQ(r.azimuth12, 0.0) << lat;
        EXPECT_EQ(r.azimuth21, 0.0) << lat;
    }
}

TEST(GeodesicInverseCore, PointsAWholeTurnApartCoincide) {
    for (const double turn : {360.0, -360.0, 720.0}) {
        const GeodesicResult r = Inverse(48.0, 180.0, 48.0, 180.0 + turn);
        EXPECT_EQ(r.distance, 0.0) << turn;
        EXPECT_EQ(r.azimuth12, 0.0) << turn;
        EXPECT_EQ(r.azimuth21, 0.0) << turn;
    }
}

TEST(GeodesicInverseCore, TheSmallestStepHasADirection) {
    const double next = std::nextafter(48.0, 49.0);
    EXPECT_EQ(Inverse(48.0, 11.0, next, 11.0).azimuth21, 180.0);
    EXPECT_NEAR(Inverse(0.0, 11.0, 0.0, 11.0 + 1e-9).azimuth12, 90.0, 1e-6);
}

TEST(GeodesicInverseCore, CoincidentPointsOnNoEllipsoidHaveNoSolution) {
    EXPECT_LT(Geodesic_InverseCore(48.0, 11.0, 48.0, 11.0, NOT_A_NUMBER, NOT_A_NUMBER).distance, 0.0);
    EXPECT_LT(Inverse(INFINITE, 11.0, INFINITE, 11.0).distance, 0.0);
    EXPECT_LT(Inverse(48.0, INFINITE, 48.0, INFINITE).distance, 0.0);
}

TEST(GeodesicInverseCore, FollowsTheEquatorUpToTheAntipodalLimit) {
    for (const double dLon : {1e-6, 1.0, 90.0, 179.0, 179.3}) {
        const GeodesicResult r = Inverse(0.0, 0.0, 0.0, dLon);
        // Metres and degrees: the equator is a circle, up to rounding.
        EXPECT_NEAR(r.distance, WGS84_A * PI * dLon / 180.0, 1e-6) << dLon;
        EXPECT_NEAR(r.azimuth12, 90.0, 1e-12) << dLon;
        EXPECT_NEAR(r.azimuth21, 270.0, 1e-12) << dLon;
    }
}

TEST(GeodesicInverseCore, FollowsAMeridian) {
    const GeodesicResult quadrant = Inverse(0.0, 15.0, 90.0, 15.0);
    EXPECT_NEAR(quadrant.distance, HALF_MERIDIAN / 2.0, MILLIMETRE);
    const GeodesicResult north = Inverse(0.0, 0.0, 64.0, 0.0);
    EXPECT_EQ(north.azimuth12, 0.0);
    EXPECT_EQ(north.azimuth21, 180.0);
    const GeodesicResult south = Inverse(0.0, 0.0, -64.0, 0.0);
    EXPECT_EQ(south.azimuth12, 180.0);
    EXPECT_EQ(south.distance, north.distance);
    // Pieces of a meridian add up.
    EXPECT_NEAR(north.distance, Inverse(0.0, 0.0, 8.0, 0.0).distance + Inverse(8.0, 0.0, 64.0, 0.0).distance,
                1e-6);
}

TEST(GeodesicInverseCore, BothWaysAreOne) {
    const GeodesicResult there = Inverse(48.0, 11.0, -33.0, 151.0);
    const GeodesicResult back = Inverse(-33.0, 151.0, 48.0, 11.0);
    // Metres and degrees: the two directions end different iterations.
    EXPECT_NEAR(there.distance, back.distance, 1e-6);
    EXPECT_NEAR(there.azimuth12, back.azimuth21, 1e-9);
    EXPECT_NEAR(there.azimuth21, back.azimuth12, 1e-9);
}

TEST(GeodesicInverseCore, WholeTurnsOfALongitudeDontCount) {
    const GeodesicResult r = Inverse(48.0, 11.0, -33.0, 151.0);
    // Metres: the turns are taken off with a rounding.
    EXPECT_NEAR(Inverse(48.0, 371.0, -33.0, 151.0).distance, r.distance, 1e-6);
    EXPECT_NEAR(Inverse(48.0, 11.0, -33.0, -929.0).distance, r.distance, 1e-6);
}

TEST(GeodesicInverseCore, ExactAntipodesOnTheEquatorGoOverThePole) {
    const GeodesicResult r = Inverse(0.0, 0.0, 0.0, 180.0);
    EXPECT_NEAR(r.distance, HALF_MERIDIAN, 0.01);
    EXPECT_LT(Turn(r.azimuth12, 0.0), 1e-6);
    // Both directions are tiny multiples of a rounding error, and a negative one has a whole turn added.
    EXPECT_LT(Turn(r.azimuth21, 0.0), 1e-6);
    EXPECT_LE(r.azimuth21, 360.0);
}

TEST(GeodesicInverseCore, TheSearchFindsAWayNearTheAntipode) {
    // 20003008.4 m is the true length; see the file of near-antipodal geodesics.
    const GeodesicResult r = Inverse(10.0, 0.0, -10.0, 179.9);
    EXPECT_NEAR(r.distance, 20003008.4, 1.0);
    EXPECT_LT(r.azimuth12, 180.0);  // it goes eastward, the shorter way
    EXPECT_GT(r.azimuth21, 180.0);
    const GeodesicResult west = Inverse(10.0, 0.0, -10.0, -179.9);
    EXPECT_NEAR(west.distance, r.distance, 0.01);
    EXPECT_GT(west.azimuth12, 180.0);
}

TEST(GeodesicInverseCore, TheSearchTakesWholeTurnsOffLongitudes) {
    const double distance = Inverse(10.0, 0.0, -10.0, 179.9).distance;
    // Metres: two searches of which each ends within a centimetre.
    EXPECT_NEAR(Inverse(10.0, 720.0, -10.0, 179.9).distance, distance, 0.02);
    EXPECT_NEAR(Inverse(10.0, -720.0, -10.0, 179.9).distance, distance, 0.02);
    EXPECT_NEAR(Inverse(10.0, 0.0, -10.0, 179.9 + 360e6).distance, distance, 0.02);
    // 180.1 degrees eastward, which is 179.9 westward: the halves meet on the meridian between these two.
    const GeodesicResult west = Inverse(10.0, 0.0, -10.0, -179.9);
    const GeodesicResult over = Inverse(10.0, -100.0, -10.0, 80.1);
    EXPECT_NEAR(over.distance, west.distance, 0.02);
    EXPECT_LT(Turn(over.azimuth12, west.azimuth12), 1e-6);
}

// A trial of the search: by how much its line differs from the shortest before it, and the shortest since.
struct Trial {
    double change, shortest;
};

// The search between (lat1, 0) and (lat2, dLon), written anew: along the meridian halfway, from the pole and
// half the latitude, each stride half as long again while the line gets shorter, and halved after a longer
// one.
std::vector<Trial> TrialsOfTheSearch(double lat1, double lat2, double dLon) {
    const auto lengthThrough = [&](double lat) {
        return Inverse(lat1, 0.0, lat, dLon / 2.0).distance + Inverse(lat, dLon / 2.0, lat2, dLon).distance;
    };
    double place = lat1 + lat2 < 0.0 ? -90.0 : 90.0;
    double shortest = lengthThrough(place);
    double next = place / 2.0;
    bool wasShorter = false;
    std::vector<Trial> trials;
    do {
        const double length = lengthThrough(next);
        const double change = std::fabs(shortest - length);
        const double stride = next - place;
        const bool isShorter = length <= shortest;
        if (isShorter) {
            place = next;
            shortest = length;
            next = place + stride / 2.0;
        } else {
            next = wasShorter ? place - stride : place + stride / 2.0;
        }
        wasShorter = isShorter;
        trials.push_back({change, shortest});
    } while (trials.back().change > 0.01);
    return trials;
}

TEST(GeodesicInverseCore, TheSearchEndsWithAChangeOfACentimetreAndNotBefore) {
    // Pairs of which one trial changes the length by little more than a centimetre, and a later one by more.
    const double pairs[][3] = {
        {-15.65, 15.333, 179.567}, {10.23, -10.288, 179.813}, {-16.67, 17.246, 179.628}};
    for (const auto& [lat1, lat2, dLon] : pairs) {
        const std::vector<Trial> trials = TrialsOfTheSearch(lat1, lat2, dLon);
        const auto early = std::find_if(trials.begin(), trials.end(),
                                        [](const Trial& trial) { return trial.change < 0.01001; });
        ASSERT_NE(early, trials.end() - 1) << lat1;
        ASSERT_GT(early->shortest - trials.back().shortest, 0.01) << lat1;
        // Metres: roundings of the latitudes.
        EXPECT_NEAR(Inverse(lat1, 0.0, lat2, dLon).distance, trials.back().shortest, 1e-6) << lat1;
    }
}

TEST(GeodesicInverseCore, NearTheAntipodeTheWayIsNeverTooShortAndRarelyMuchTooLong) {
    int within1Metre = 0;
    int count = 0;
    for (const ReferenceRow& row : ReadReferenceFile("kernel/geodesic_antipodes.txt")) {
        const double excess =
            Inverse(row.Number(0), row.Number(1), row.Number(2), row.Number(3)).distance - row.Number(6);
        EXPECT_GT(excess, -MILLIMETRE) << row.place;
        EXPECT_LT(excess, 1000.0) << row.place;
        within1Metre += excess < 1.0 ? 1 : 0;
        ++count;
    }
    EXPECT_GT(within1Metre, count * 3 / 4);
}

TEST(GeodesicInverseCore, NearTheAntipodeItEndsInHalfAMillisecond) {
    constexpr double longest = 0.0005;  // seconds
    for (const ReferenceRow& row : ReadReferenceFile("kernel/geodesic_antipodes.txt")) {
        const auto solve = [&row] {
            (void)Inverse(row.Number(0), row.Number(1), row.Number(2), row.Number(3));
        };
        EXPECT_TRUE(testing::EndsWithin(longest, solve)) << row.place;
    }
    Random random(180);
    for (int i = 0; i < 2000; ++i) {
        const double lat = random.Between(-90.0, 90.0);
        const double lat2 = -lat + random.Between(-0.7, 0.7);
        const double lon2 = 180.0 + random.Between(-0.7, 0.7);
        EXPECT_TRUE(testing::EndsWithin(longest, [=] { (void)Inverse(lat, 0.0, lat2, lon2); }))
            << lat << ' ' << lat2 << ' ' << lon2;
    }
}

TEST(GeodesicInverseCore, HasNoSolutionForAFailedPairOutsideTheSearchsReach) {
    // So flat an ellipsoid fails far from the antipode.
    const double a = 6378137.0;
    const double b = 0.6 * a;
    EXPECT_GT(Geodesic_InverseCore(10.0, 0.0, -9.0, 179.0, a, b).distance, 0.0);
    EXPECT_EQ(Geodesic_InverseCore(10.0, 0.0, -4.5, 179.0, a, b).distance, -1.0);  // latitudes: 5.5 degrees
    EXPECT_EQ(Geodesic_InverseCore(1.0, 0.0, -1.0, 153.0, a, b).distance, -1.0);   // longitudes: 27 degrees
}

TEST(GeodesicInverseCore, WhatIsntFiniteHasNoSolution) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        for (int i = 0; i < 6; ++i) {
            // Near-antipodal, so that nothing but the value itself stops the search.
            double v[6] = {10.0, 0.0, -10.0, 179.9, 6378137.0, 6356752.3};
            v[i] = bad;
            EXPECT_EQ(Geodesic_InverseCore(v[0], v[1], v[2], v[3], v[4], v[5]).distance, -1.0)
                << i << ' ' << bad;
        }
    }
}

TEST(GeodesicInverseCore, EndsForAnyDoubles) {
    const double values[] = {0.0, -0.0, 5e-324, 1e-300, 90.0,   -90.0,   180.0,    -180.0,
                             1e5, 1e15, -1e15,  1e300,  -1e300, 1.7e308, INFINITE, NOT_A_NUMBER};
    for (const double lat1 : values) {
        for (const double lon1 : values) {
            for (const double lat2 : values) {
                for (const double lon2 : {0.0, 179.9, 1e15, -1e300, NOT_A_NUMBER}) {
                    const double distance = Inverse(lat1, lon1, lat2, lon2).distance;
                    EXPECT_TRUE(distance == -1.0 || (distance >= 0.0 && distance < 2.1e7))
                        << lat1 << ' ' << lon1 << ' ' << lat2 << ' ' << lon2 << ": " << distance;
                }
            }
        }
    }
}

TEST(GeodesicDirectCore, DoesntWrapTheLongitude) {
    // Degrees, a tenth of a millimetre.
    EXPECT_NEAR(Direct(0.0, 179.5, 2.0 * PI / 180.0 * WGS84_A, 90.0).longitude, 181.5, 1e-9);
    EXPECT_NEAR(Direct(0.0, -179.5, 2.0 * PI / 180.0 * WGS84_A, 270.0).longitude, -181.5, 1e-9);
}

TEST(GeodesicDirectCore, DistanceZeroStaysWhereItIs) {
    const GeodesicResult r = Direct(48.0, 11.0, 0.0, 30.0);
    // Degrees, a tenth of a millimetre.
    EXPECT_NEAR(r.latitude, 48.0, 1e-9);
    EXPECT_NEAR(r.longitude, 11.0, 1e-9);
    EXPECT_NEAR(r.backAzimuth, 210.0, 1e-9);
}

TEST(GeodesicDirectCore, ANegativeDistanceGoesTheOtherWay) {
    const GeodesicResult r = Direct(48.0, 11.0, -1e6, 30.0);
    const GeodesicResult turned = Direct(48.0, 11.0, 1e6, 210.0);
    // Degrees, a tenth of a millimetre.
    EXPECT_NEAR(r.latitude, turned.latitude, 1e-9);
    EXPECT_NEAR(r.longitude, turned.longitude, 1e-9);
}

TEST(GeodesicDirectCore, ReachesThePoleAndCrossesIt) {
    // Degrees, a millimetre: at the pole the sine of the latitude hardly changes.
    EXPECT_NEAR(Direct(0.0, 0.0, HALF_MERIDIAN / 2.0, 0.0).latitude, 90.0, 1e-8);
    const GeodesicResult beyond = Direct(80.0, 10.0, 2.0 * Inverse(80.0, 10.0, 90.0, 10.0).distance, 0.0);
    EXPECT_NEAR(beyond.latitude, 80.0, 1e-8);
    EXPECT_LT(Turn(beyond.longitude, 190.0), 1e-8);
}

TEST(GeodesicDirectCore, WhatIsntFiniteGivesNoPosition) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(Direct(bad, 0.0, 1.0, 0.0).latitude));
        EXPECT_FALSE(std::isfinite(Direct(0.0, bad, 1.0, 0.0).longitude));
        EXPECT_TRUE(std::isnan(Direct(0.0, 0.0, bad, 0.0).latitude));
        EXPECT_TRUE(std::isnan(Direct(0.0, 0.0, 1.0, bad).latitude));
    }
}

TEST(Geodesic, InverseUndoesDirect) {
    std::mt19937_64 random(8);
    std::uniform_real_distribution<double> latitude(-89.0, 89.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    std::uniform_real_distribution<double> azimuth(0.0, 360.0);
    std::uniform_real_distribution<double> distance(1e3, 1.9e7);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t datum = i % DATUM_COUNT;
        const double lat = latitude(random);
        const double lon = longitude(random);
        const double s = distance(random);
        const double az = azimuth(random);
        const GeodesicResult end = Direct(lat, lon, s, az, datum);
        const GeodesicResult r = Inverse(lat, lon, end.latitude, end.longitude, datum);
        ASSERT_NEAR(r.distance, s, MILLIMETRE) << lat << ' ' << lon << ' ' << s << ' ' << az;
    }
}

TEST(GeodesicDirect, TakesAndGivesRecordsOfAnyType) {
    // The same step by hand: UTM to degrees, the core, degrees to UTM.
    const tagKOORD from = Record(KOORD_UTM, UtmPayload{'N', {}, 0, 32, {}, 691607.0, 5334760.0});
    tagKOORD degrees = GeodezRecord(0.0, 0.0);
    ASSERT_EQ(KoordConvert(&from, &degrees), KOORD_OK);
    const auto start = Load<GeodezPayload>(degrees);
    const GeodesicResult end = Direct(start.latitude, start.longitude, 50000.0, 60.0);
    const tagKOORD expectedDegrees = GeodezRecord(end.latitude, end.longitude);
    tagKOORD expected = MakeKoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_EQ(KoordConvert(&expectedDegrees, &expected), KOORD_OK);

    tagKOORD to = MakeKoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 50000.0, 60.0, &to), KOORD_OK);
    EXPECT_TRUE(SameBytes(to, expected));
}

TEST(GeodesicDirect, WalksOnTheEllipsoidOfTheNamedDatum) {
    // A quarter of the sphere's circumference, whatever the ellipsoid of the records; its own datum is
    // shifted to.
    const tagKOORD from = GeodezRecord(0.0, 0.0, 0.0, DATUM_SPHERE);
    tagKOORD to = MakeKoord(DATUM_SPHERE, KOORD_GEODEZ);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_SPHERE, 6371000.0 * PI / 4.0, 0.0, &to), KOORD_OK);
    EXPECT_NEAR(Load<GeodezPayload>(to).latitude, 45.0, 1e-9);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 6371000.0 * PI / 4.0, 0.0, &to), KOORD_OK);
    EXPECT_GT(std::fabs(Load<GeodezPayload>(to).latitude - 45.0), 0.01);
}

TEST(GeodesicDirect, LosesTheHeight) {
    const tagKOORD from = GeodezRecord(48.0, 11.0, 500.0);
    tagKOORD to = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 1000.0, 0.0, &to), KOORD_OK);
    EXPECT_EQ(Load<GeodezPayload>(to).height, 0.0);
}

TEST(GeodesicDirect, AFailedConversionOfTheStartLeavesTheTargetAlone) {
    const tagKOORD from = GeodezRecord(48.0, 11.0);
    const tagKOORD pixel = MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL);
    const tagKOORD before = GeodezRecord(1.0, 2.0, 3.0);
    tagKOORD to = before;
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Geodesic_Direct(&from, datum, 1000.0, 0.0, &to), KOORD_ERR_DATUM);
        EXPECT_TRUE(SameBytes(to, before));
    }
    EXPECT_EQ(Geodesic_Direct(&pixel, DATUM_WGS84, 1000.0, 0.0, &to), KOORD_ERR_TYPE);
    EXPECT_TRUE(SameBytes(to, before));
    EXPECT_EQ(Geodesic_Direct(nullptr, DATUM_WGS84, 1000.0, 0.0, &to), KOORD_ERR_GENERAL);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 1000.0, 0.0, nullptr), KOORD_ERR_GENERAL);
}

TEST(GeodesicDirect, AnEndThatTheTargetCantHoldHasTheTargetsStatus) {
    // The longitude isn't wrapped, and UTM ends at 180 degrees.
    const tagKOORD from = GeodezRecord(10.0, 179.9);
    tagKOORD to = MakeKoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 100000.0, 90.0, &to), KOORD_ERR_EAST_HIGH);
    tagKOORD badDatum = MakeKoord(DATUM_COUNT, KOORD_UTM);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 100000.0, 90.0, &badDatum), KOORD_ERR_DATUM);
    tagKOORD pixel = MakeKoord(DATUM_WGS84, KOORD_LONGPIXEL);
    EXPECT_EQ(Geodesic_Direct(&from, DATUM_WGS84, 100000.0, 90.0, &pixel), KOORD_ERR_TYPE);
}

struct Outputs {
    double distance = 7.0;
    double azimuth12 = 7.0;
    double azimuth21 = 7.0;

    [[nodiscard]] bool AreZero() const { return distance == 0.0 && azimuth12 == 0.0 && azimuth21 == 0.0; }
};

KoordStatus InverseOf(const tagKOORD& p1, const tagKOORD& p2, std::int32_t datum, Outputs* o) {
    return Geodesic_Inverse(&p1, &p2, datum, &o->distance, &o->azimuth12, &o->azimuth21);
}

TEST(GeodesicInverse, TakesRecordsOfAnyTypeAndDatum) {
    const tagKOORD p1 = GeodezRecord(48.0, 11.0, 700.0);
    tagKOORD p2 = MakeKoord(DATUM_BESSEL, KOORD_GEOGRAD);
    const tagKOORD end = GeodezRecord(52.0, 13.0);
    ASSERT_EQ(KoordConvert(&end, &p2), KOORD_OK);
    Outputs o;
    EXPECT_EQ(InverseOf(p1, p2, DATUM_WGS84, &o), KOORD_OK);
    // Degrees, minutes and seconds hold the position exactly; a shift out and back costs up to 2e-7 degrees.
    const GeodesicResult core = Inverse(48.0, 11.0, 52.0, 13.0);
    EXPECT_NEAR(o.distance, core.distance, 2e-7 * DEGREE_METRES);
    EXPECT_NEAR(o.azimuth12, core.azimuth12, 1e-5);
    EXPECT_NEAR(o.azimuth21, core.azimuth21, 1e-5);
}

TEST(GeodesicInverse, AFailedConversionGivesItsStatusAndZeros) {
    const tagKOORD good = GeodezRecord(48.0, 11.0);
    const tagKOORD pixel = MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL);
    const tagKOORD badDatum = GeodezRecord(48.0, 11.0, 0.0, DATUM_COUNT);
    Outputs o1, o2, o3, o4;
    EXPECT_EQ(InverseOf(pixel, good, DATUM_WGS84, &o1), KOORD_ERR_TYPE);
    EXPECT_EQ(InverseOf(good, pixel, DATUM_WGS84, &o2), KOORD_ERR_TYPE);
    EXPECT_EQ(InverseOf(good, badDatum, DATUM_WGS84, &o3), KOORD_ERR_DATUM);
    EXPECT_EQ(InverseOf(good, good, DATUM_COUNT, &o4), KOORD_ERR_DATUM);
    EXPECT_TRUE(o1.AreZero() && o2.AreZero() && o3.AreZero() && o4.AreZero());
}

TEST(GeodesicInverse, NoSolutionIsZeroAndNoNegativeStatus) {
    const tagKOORD good = GeodezRecord(10.0, 0.0);
    Outputs o1, o2;
    EXPECT_EQ(InverseOf(good, GeodezRecord(NOT_A_NUMBER, 179.9), DATUM_WGS84, &o1), 0);
    EXPECT_EQ(InverseOf(good, GeodezRecord(-10.0, INFINITE), DATUM_WGS84, &o2), 0);
    EXPECT_TRUE(o1.AreZero() && o2.AreZero());
}

TEST(GeodesicInverse, CoincidentPointsSucceed) {
    const tagKOORD p = GeodezRecord(48.0, 11.0);
    Outputs o;
    EXPECT_EQ(InverseOf(p, p, DATUM_WGS84, &o), KOORD_OK);
    EXPECT_TRUE(o.AreZero());
}

}  // namespace
}  // namespace tessara::geodesic_test
