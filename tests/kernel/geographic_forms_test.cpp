#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "tessara/kernel/convert.h"

namespace tessara::geographic_forms_test {
namespace {

GeogradPayload Geograd(double lat, double lon) {
    const double latLon[2] = {lat, lon};
    GeogradPayload payload{};
    GEOGRAD_FromGeodetic(latLon, &payload);
    return payload;
}

GeodezMinPayload GeodezMin(double lat, double lon, double height) {
    const double position[3] = {lat, lon, height};
    GeodezMinPayload payload{};
    GEODEZMIN_FromGeodetic(position, &payload);
    return payload;
}

TEST(GeogradFromGeodetic, SplitsIntoDegreesMinutesAndSeconds) {
    // 48.5125 = 48 30 45; 11.2575 = 11 15 27, both exact to a few units of 1e-11 seconds.
    const GeogradPayload p = Geograd(48.5125, 11.2575);
    EXPECT_EQ(p.latDegrees, 48);
    EXPECT_EQ(p.latMinutes, 30);
    EXPECT_NEAR(p.latSeconds, 45.0, 1e-9);
    EXPECT_EQ(p.latHemisphere, 'N');
    EXPECT_EQ(p.lonDegrees, 11);
    EXPECT_EQ(p.lonMinutes, 15);
    EXPECT_NEAR(p.lonSeconds, 27.0, 1e-9);
    EXPECT_EQ(p.lonHemisphere, 'E');
}

TEST(GeogradFromGeodetic, NegativeValuesGetTheOtherLetterAndTheMagnitude) {
    const GeogradPayload p = Geograd(-0.5, -179.25);
    EXPECT_EQ(p.latDegrees, 0);
    EXPECT_EQ(p.latMinutes, 30);
    EXPECT_EQ(p.latSeconds, 0.0);
    EXPECT_EQ(p.latHemisphere, 'S');
    EXPECT_EQ(p.lonDegrees, 179);
    EXPECT_EQ(p.lonMinutes, 15);
    EXPECT_EQ(p.lonHemisphere, 'W');
}

TEST(GeogradFromGeodetic, NegativeZeroIsNorthAndEast) {
    const GeogradPayload p = Geograd(-0.0, -0.0);
    EXPECT_EQ(p.latHemisphere, 'N');
    EXPECT_EQ(p.lonHemisphere, 'E');
}

TEST(GeogradFromGeodetic, NanCountsAsNegative) {
    const GeogradPayload p = Geograd(NOT_A_NUMBER, NOT_A_NUMBER);
    EXPECT_EQ(p.latHemisphere, 'S');
    EXPECT_EQ(p.lonHemisphere, 'W');
}

TEST(GeogradFromGeodetic, SecondsAboveTheLastCarryIntoTheMinutes) {
    // 10 degrees 20 minutes 59.9995 seconds
    const GeogradPayload p = Geograd(10.0 + 20.0 / 60.0 + 59.9995 / 3600.0, 0.0);
    EXPECT_EQ(p.latDegrees, 10);
    EXPECT_EQ(p.latMinutes, 21);
    EXPECT_EQ(p.latSeconds, 0.0);
}

TEST(GeogradFromGeodetic, ACarryFromTheLastMinuteReachesTheDegrees) {
    const GeogradPayload p = Geograd(0.0, -(10.0 + 59.0 / 60.0 + 59.9995 / 3600.0));
    EXPECT_EQ(p.lonDegrees, 11);
    EXPECT_EQ(p.lonMinutes, 0);
    EXPECT_EQ(p.lonSeconds, 0.0);
    EXPECT_EQ(p.lonHemisphere, 'W');
}

TEST(GeogradFromGeodetic, SecondsBelowTheLastStay) {
    const GeogradPayload p = Geograd(10.0 + 20.0 / 60.0 + 59.9985 / 3600.0, 0.0);
    EXPECT_EQ(p.latMinutes, 20);
    // Seconds: 10 degrees are 36000 of them, rounded to 7e-12.
    EXPECT_NEAR(p.latSeconds, 59.9985, 1e-9);
}

TEST(GeogradFromGeodetic, HugeAndInfiniteValuesAreHarmless) {
    for (const double value : {1e300, -1e300, HUGE_VAL, -HUGE_VAL, 32768.0, 70000.5}) {
        const GeogradPayload p = Geograd(value, value);
        EXPECT_EQ(p.latHemisphere, value < 0.0 ? 'S' : 'N');
    }
}

TEST(GeogradToGeodetic, AddsThePartsAndNegatesForWestAndSouth) {
    GeogradPayload p{};
    p.latDegrees = 48;
    p.latMinutes = 30;
    p.latSeconds = 45.0;
    p.latHemisphere = 'S';
    p.lonDegrees = 11;
    p.lonMinutes = 15;
    p.lonSeconds = 27.0;
    p.lonHemisphere = 'W';
    double latLon[2];
    GEOGRAD_ToGeodetic(&p, latLon);
    EXPECT_DOUBLE_EQ(latLon[0], -48.5125);
    EXPECT_DOUBLE_EQ(latLon[1], -11.2575);
}

TEST(GeogradToGeodetic, OnlyTheExactLettersNegate) {
    for (const char letter : {'s', 'w', 'N', 'E', '\0', '?'}) {
        GeogradPayload p{};
        p.latDegrees = 1;
        p.lonDegrees = 2;
        p.latHemisphere = letter;
        p.lonHemisphere = letter;
        double latLon[2];
        GEOGRAD_ToGeodetic(&p, latLon);
        EXPECT_EQ(latLon[0], 1.0) << letter;
        EXPECT_EQ(latLon[1], 2.0) << letter;
    }
}

TEST(GeogradToGeodetic, NegativeDegreesWithAWestLetterAreEast) {
    GeogradPayload p{};
    p.lonDegrees = -10;
    p.lonHemisphere = 'W';
    double latLon[2];
    GEOGRAD_ToGeodetic(&p, latLon);
    EXPECT_EQ(latLon[1], 10.0);
}

TEST(GeodezMinFromGeodetic, KeepsTheMinutesWholeAndTheHeight) {
    const GeodezMinPayload p = GeodezMin(-48.5125, 11.2575, 512.25);
    EXPECT_EQ(p.latDegrees, 48);
    // Minutes: 48 degrees are 2880 of them, rounded to 5e-13.
    EXPECT_NEAR(p.latMinutes, 30.75, 1e-11);
    EXPECT_EQ(p.latHemisphere, 'S');
    EXPECT_EQ(p.lonDegrees, 11);
    EXPECT_NEAR(p.lonMinutes, 15.45, 1e-11);
    EXPECT_EQ(p.lonHemisphere, 'E');
    EXPECT_EQ(p.height, 512.25);
}

TEST(GeodezMinFromGeodetic, NeverCarries) {
    const GeodezMinPayload p = GeodezMin(10.9999999, 0.0, 0.0);
    EXPECT_EQ(p.latDegrees, 10);
    // Minutes, some units of the last place of the degrees.
    EXPECT_NEAR(p.latMinutes, 59.999994, 1e-9);
}

TEST(GeodezMinFromGeodetic, NanCountsAsNegative) {
    const GeodezMinPayload p = GeodezMin(NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER);
    EXPECT_EQ(p.latHemisphere, 'S');
    EXPECT_EQ(p.lonHemisphere, 'W');
    EXPECT_TRUE(std::isnan(p.height));
}

TEST(GeodezMinToGeodetic, AddsThePartsAndCopiesTheHeight) {
    GeodezMinPayload p{};
    p.latDegrees = 48;
    p.latMinutes = 30.75;
    p.latHemisphere = 'S';
    p.lonDegrees = 11;
    p.lonMinutes = 15.45;
    p.lonHemisphere = 'w';
    p.height = -3.5;
    double position[3];
    GEODEZMIN_ToGeodetic(&p, position);
    EXPECT_DOUBLE_EQ(position[0], -48.5125);
    EXPECT_DOUBLE_EQ(position[1], 11.2575);
    EXPECT_EQ(position[2], -3.5);
}

TEST(HemisphereNormalise, KnowsTwoLettersInBothCases) {
    for (int byte = 0; byte < 256; ++byte) {
        char letter = static_cast<char>(byte);
        const char expected = byte == 'S' || byte == 's' ? 'S' : 'N';
        Hemisphere_Normalise(&letter);
        EXPECT_EQ(letter, expected) << byte;
    }
}

}  // namespace
}  // namespace tessara::geographic_forms_test
