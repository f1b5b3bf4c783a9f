#include "tessara/kernel/georef.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "support/sanitized.h"

namespace tessara::georef_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr const char* LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ";  // without I and O

struct Reference {
    KoordStatus status;
    GeorefPayload payload;

    [[nodiscard]] std::string Letters() const {
        return {payload.lonZone, payload.latZone, payload.lonDegree, payload.latDegree};
    }
};

Reference Forward(double lat, double lon, int precision = 5) {
    Reference result{};
    result.payload.precision = static_cast<std::int16_t>(precision);
    const double latLon[2] = {lat, lon};
    result.status = GEOREF_FromGeodetic(latLon, &result.payload);
    return result;
}

GeorefPayload Payload(const std::string& letters, int lonMinutes, int latMinutes, int precision = 5) {
    return {static_cast<std::int16_t>(precision),
            letters[0],
            letters[1],
            letters[2],
            letters[3],
            static_cast<std::int16_t>(lonMinutes),
            static_cast<std::int16_t>(latMinutes)};
}

void ExpectReference(const Reference& result, const std::string& letters, int lonMinutes, int latMinutes) {
    EXPECT_EQ(result.status, KOORD_OK);
    EXPECT_EQ(result.Letters(), letters);
    EXPECT_EQ(result.payload.lonMinutes, lonMinutes);
    EXPECT_EQ(result.payload.latMinutes, latMinutes);
}

TEST(Georef, AgreesWithExactArithmetic) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/georef.txt")) {
        SCOPED_TRACE(row.place);
        ExpectReference(Forward(row.Number(0), row.Number(1)), row.Text(2), static_cast<int>(row.Number(3)),
                        static_cast<int>(row.Number(4)));
    }
}

// The example of GeographicLib's manual for its class Georef: NKLN2438 and, read back from NKLN24443894,
// 57.649 north 10.4073 east to the hundredth of a minute.
TEST(Georef, GivesThePublishedExample) {
    ExpectReference(Forward(57.64911, 10.40744, 3), "NKLN", 24, 38);
    const GeorefPayload payload = Payload("NKLN", 2444, 3894);
    double latLon[2];
    EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_OK);
    EXPECT_NEAR(latLon[0], 57.649, 1e-12);              // 57 + 38.94/60; a few units of the last place
    EXPECT_NEAR(latLon[1], 10.407333333333334, 1e-12);  // 10 + 24.44/60
}

TEST(Georef, LettersEveryZoneOfLongitude) {
    for (int zone = 0; zone < 24; ++zone) {
        const Reference result = Forward(0.5, -180.0 + 15.0 * zone + 7.5);
        ExpectReference(result, {LETTERS[zone], 'G', 'H', 'A'}, 3000, 3000);
        double latLon[2];
        EXPECT_EQ(GEOREF_ToGeodetic(&result.payload, latLon), KOORD_OK);
        EXPECT_EQ(latLon[0], 0.5);
        EXPECT_EQ(latLon[1], -180.0 + 15.0 * zone + 7.5);
    }
}

TEST(Georef, LettersEveryZoneOfLatitude) {
    for (int zone = 0; zone < 12; ++zone) {
        const Reference result = Forward(-90.0 + 15.0 * zone + 7.5, 0.5);
        ExpectReference(result, {'N', LETTERS[zone], 'A', 'H'}, 3000, 3000);
        double latLon[2];
        EXPECT_EQ(GEOREF_ToGeodetic(&result.payload, latLon), KOORD_OK);
        EXPECT_EQ(latLon[0], -90.0 + 15.0 * zone + 7.5);
        EXPECT_EQ(latLon[1], 0.5);
    }
}

TEST(Georef, LettersEveryDegreeOfAZone) {
    for (int degree = 0; degree < 15; ++degree) {
        const Reference result = Forward(degree + 0.25, 14.25 - degree);
        ExpectReference(result, {'N', 'G', LETTERS[14 - degree], LETTERS[degree]}, 1500, 1500);
        double latLon[2];
        EXPECT_EQ(GEOREF_ToGeodetic(&result.payload, latLon), KOORD_OK);
        EXPECT_EQ(latLon[0], degree + 0.25);
        EXPECT_EQ(latLon[1], 14.25 - degree);
    }
}

TEST(GeorefFromGeodetic, WritesTheMinutesInTheUnitOfThePrecision) {
    // 12.3451 and 54.321 minutes, which round to 12.35 and 54.32.
    const double lat = 10.0 + 54.321 / 60.0;
    const double lon = 20.0 + 12.3451 / 60.0;
    ExpectReference(Forward(lat, lon, 5), "PGFL", 1235, 5432);
    ExpectReference(Forward(lat, lon, 4), "PGFL", 123, 543);
    ExpectReference(Forward(lat, lon, 3), "PGFL", 12, 54);
    ExpectReference(Forward(lat, lon, 2), "PGFL", 0, 0);
    ExpectReference(Forward(lat, lon, 1), "PGFL", 0, 0);
}

TEST(GeorefFromGeodetic, KeepsThePrecisionsOneToFiveAndTurnsOthersIntoFive) {
    for (int precision = 1; precision <= 5; ++precision)
        EXPECT_EQ(Forward(10.0, 20.0, precision).payload.precision, precision);
    for (const int precision : {0, 6, -1, 32767, -32768}) {
        const Reference result = Forward(10.25, 20.5, precision);
        EXPECT_EQ(result.payload.precision, 5);
        ExpectReference(result, "PGFL", 3000, 1500);
    }
}

TEST(GeorefFromGeodetic, CarriesIntoTheMinute) {
    ExpectReference(Forward(0.0, 12.9999 / 60.0), "NGAA", 1300, 0);
}

TEST(GeorefFromGeodetic, CarriesIntoTheDegreeAlsoForLowerPrecisions) {
    const double almost = 1.0 - 1e-7;
    ExpectReference(Forward(almost, almost, 5), "NGBB", 0, 0);
    ExpectReference(Forward(almost, almost, 4), "NGBB", 0, 0);
    ExpectReference(Forward(almost, almost, 3), "NGBB", 0, 0);
    ExpectReference(Forward(almost, almost, 2), "NGBB", 0, 0);
}

TEST(GeorefFromGeodetic, DropsDigitsWithoutRoundingThemAgain) {
    // 59.98 minutes: no carry on hundredths, so the shorter forms stay below the degree.
    const double value = 59.98 / 60.0;
    ExpectReference(Forward(value, value, 5), "NGAA", 5998, 5998);
    ExpectReference(Forward(value, value, 4), "NGAA", 599, 599);
    ExpectReference(Forward(value, value, 3), "NGAA", 59, 59);
}

TEST(GeorefFromGeodetic, CarriesIntoTheZone) {
    const double almost = 15.0 - 1e-7;
    ExpectReference(Forward(almost, almost), "PHAA", 0, 0);
}

TEST(GeorefFromGeodetic, StaysInTheLastCellAtTheEndOfTheGrid) {
    ExpectReference(Forward(10.0, 179.9999999), "ZGQL", 5999, 0);
    ExpectReference(Forward(89.9999999, 20.0), "PMFQ", 0, 5999);
    ExpectReference(Forward(89.9999999, 179.9999999), "ZMQQ", 5999, 5999);
    ExpectReference(Forward(89.9999999, 179.9999999, 4), "ZMQQ", 599, 599);
    ExpectReference(Forward(89.9999999, 179.9999999, 3), "ZMQQ", 59, 59);
}

TEST(GeorefFromGeodetic, StartsAtTheSouthWesternCorner) {
    ExpectReference(Forward(-90.0, -180.0), "AAAA", 0, 0);
}

TEST(GeorefFromGeodetic, FailsOutsideTheGridAndLeavesThePayload) {
    const double outside[][2] = {{0.0, 180.0},    {90.0, 0.0},      {0.0, -195.0},       {-105.0, 0.0},
                                 {0.0, 540.0},    {200.0, 0.0},     {NOT_A_NUMBER, 0.0}, {0.0, NOT_A_NUMBER},
                                 {INFINITE, 0.0}, {0.0, -INFINITE}, {1e300, -1e300}};
    for (const auto& latLon : outside) {
        GeorefPayload payload = Payload("wxyz", 12, 34, 4);
        EXPECT_EQ(GEOREF_FromGeodetic(latLon, &payload), KOORD_ERR_OUTSIDE) << latLon[0] << ' ' << latLon[1];
        const Reference unchanged{KOORD_ERR_OUTSIDE, payload};
        EXPECT_EQ(unchanged.Letters(), "wxyz");
        EXPECT_EQ(payload.precision, 4);
        EXPECT_EQ(payload.lonMinutes, 12);
        EXPECT_EQ(payload.latMinutes, 34);
    }
}

// Cutting toward zero gives the cells next to the western and the southern edge the letter A, too.
TEST(GeorefFromGeodetic, LeavesTheCellLettersWhenTheDegreeHasNone) {
    const double outside[][2] = {{0.0, -190.0}, {0.0, -181.0}, {-100.0, 0.0}, {-91.0, 0.0}};
    for (const auto& latLon : outside) {
        GeorefPayload payload = Payload("wxyz", 12, 34, 4);
        EXPECT_EQ(GEOREF_FromGeodetic(latLon, &payload), KOORD_ERR_OUTSIDE) << latLon[0] << ' ' << latLon[1];
        EXPECT_EQ(payload.lonZone, latLon[1] < -180.0 ? 'A' : 'N');
        EXPECT_EQ(payload.latZone, latLon[0] < -90.0 ? 'A' : 'G');
        EXPECT_EQ(payload.lonDegree, 'y');
        EXPECT_EQ(payload.latDegree, 'z');
        EXPECT_EQ(payload.precision, 4);
        EXPECT_EQ(payload.lonMinutes, 12);
        EXPECT_EQ(payload.latMinutes, 34);
    }
}

TEST(GeorefFromGeodetic, HasNegativeMinutesLessThanADegreeBeyondTheEdge) {
    ExpectReference(Forward(0.0, -180.5), "AGAA", -3000, 0);
    ExpectReference(Forward(-90.25, 0.0), "NAAA", 0, -1500);
}

TEST(GeorefToGeodetic, CountsMinutesInTheUnitOfThePrecision) {
    const struct { int precision, minutes; } quarters[] = {{3, 15}, {4, 150}, {5, 1500}};
    for (const auto& [precision, minutes] : quarters) {
        const GeorefPayload payload = Payload("PGFL", minutes, 2 * minutes, precision);
        double latLon[2];
        EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_OK);
        EXPECT_EQ(latLon[0], 10.5);
        EXPECT_EQ(latLon[1], 20.25);
    }
}

TEST(GeorefToGeodetic, IgnoresTheMinutesOfOtherPrecisions) {
    for (const int precision : {0, 1, 2, 6, -3, 32767}) {
        const GeorefPayload payload = Payload("PGFL", 1234, 4321, precision);
        double latLon[2];
        EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_OK);
        EXPECT_EQ(latLon[0], 10.0);
        EXPECT_EQ(latLon[1], 20.0);
    }
}

TEST(GeorefToGeodetic, TakesMinutesOutsideTheDegreeAsTheyAre) {
    const GeorefPayload payload = Payload("PGFL", -60, 90, 3);
    double latLon[2];
    EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_OK);
    EXPECT_EQ(latLon[0], 11.5);
    EXPECT_EQ(latLon[1], 19.0);
}

TEST(GeorefToGeodetic, FailsForLettersOutsideTheirAlphabets) {
    const char* const alphabets[4] = {LETTERS, "ABCDEFGHJKLM", "ABCDEFGHJKLMNPQ", "ABCDEFGHJKLMNPQ"};
    for (std::size_t position = 0; position < 4; ++position) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string letters = "AAAA";
            letters[position] = static_cast<char>(byte);
            const GeorefPayload payload = Payload(letters, 0, 0);
            const bool isLetter =
                std::string(alphabets[position]).find(letters[position]) != std::string::npos;
            double latLon[2] = {1.0, 2.0};
            EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), isLetter ? KOORD_OK : KOORD_ERR_OUTSIDE)
                << "position " << position << " byte " << byte;
            if (isLetter) continue;
            EXPECT_EQ(latLon[0], 1.0);
            EXPECT_EQ(latLon[1], 2.0);
        }
    }
}

TEST(GeorefToGeodetic, FailsForAClearedPayload) {
    const GeorefPayload payload{};
    double latLon[2];
    EXPECT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_ERR_OUTSIDE);
}

// The reference lies within the rounding to hundredths (half a hundredth) at precision 5; below, digits are
// cut off from the rounded value, which makes a whole unit and that half hundredth. 1e-9 minutes allow for
// doubles.
TEST(Georef, ReturnsWithinItsUnitFromAMillionPlaces) {
    std::mt19937_64 random(20240229);
    std::uniform_real_distribution<double> latitude(-90.0, 90.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    const double unit[] = {1.0, 0.1, 0.0};  // minutes that are cut off, by precision from 3
    double worst = 0.0;
    int failures = 0;
    for (int i = 0; i < testing::Samples(1000000); ++i) {
        const double start[2] = {latitude(random), longitude(random)};
        GeorefPayload payload{};
        payload.precision = static_cast<std::int16_t>(3 + i % 3);
        double back[2];
        if (GEOREF_FromGeodetic(start, &payload) != KOORD_OK ||
            GEOREF_ToGeodetic(&payload, back) != KOORD_OK) {
            ++failures;
            continue;
        }
        for (int axis = 0; axis < 2; ++axis) {
            const double minutes = std::fabs(back[axis] - start[axis]) * 60.0;
            worst = std::max(worst, minutes - unit[i % 3]);
        }
    }
    EXPECT_EQ(failures, 0);
    EXPECT_LE(worst, 0.005 + 1e-9);
}

TEST(Georef, GivesItsOwnReferenceBack) {
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        const std::string letters = {LETTERS[random() % 24], LETTERS[random() % 12], LETTERS[random() % 15],
                                     LETTERS[random() % 15]};
        const int lonMinutes = static_cast<int>(random() % 6000);
        const int latMinutes = static_cast<int>(random() % 6000);
        const GeorefPayload payload = Payload(letters, lonMinutes, latMinutes);
        double latLon[2];
        ASSERT_EQ(GEOREF_ToGeodetic(&payload, latLon), KOORD_OK);
        ExpectReference(Forward(latLon[0], latLon[1]), letters, lonMinutes, latMinutes);
    }
}

}  // namespace
}  // namespace tessara::georef_test
