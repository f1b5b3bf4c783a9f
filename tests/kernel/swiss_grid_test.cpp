#include "tessara/kernel/swiss_grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kernel/angles.h"
#include "numerics/special_values.h"
#include "support/reference_file.h"

namespace tessara::swiss_grid_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;
using testing::Sexagesimal;

constexpr double BERN_LATITUDE = 46.95240555555556;
constexpr double BERN_LONGITUDE = 7.439583333333333;

// A tenth of the accuracy that a grid is compared to: both calculations are closed formulas.
constexpr double METRES = 1e-6;
constexpr double DEGREES = 1e-11;  // a micrometre

GridPayload Forward(double lat, double lon) {
    const double latLon[2] = {lat, lon};
    GridPayload payload{};
    EXPECT_EQ(CH_FromGeodetic(latLon, &payload), KOORD_OK);
    return payload;
}

struct Position {
    double lat, lon;
};

Position Inverse(double easting, double northing) {
    const GridPayload payload{easting, northing};
    double latLon[2];
    EXPECT_EQ(CH_ToGeodetic(&payload, latLon), KOORD_OK);
    return {latLon[0], latLon[1]};
}

TEST(SwissGrid, HasItsOriginInBern) {
    const GridPayload payload = Forward(BERN_LATITUDE, BERN_LONGITUDE);
    // Metres and degrees, some units of the last place.
    EXPECT_NEAR(payload.easting, 600000.0, 1e-8);
    EXPECT_NEAR(payload.northing, 200000.0, 1e-8);
    const Position position = Inverse(600000.0, 200000.0);
    EXPECT_NEAR(position.lat, BERN_LATITUDE, 1e-13);
    EXPECT_NEAR(position.lon, BERN_LONGITUDE, 1e-13);
}

// The station Rigi, worked example of swisstopo's formulas: published to the centimetre and 1e-5 seconds.
TEST(SwissGrid, GivesTheWorkedExampleRigi) {
    const double lat = Sexagesimal(47, 3, 28.95659);
    const double lon = Sexagesimal(8, 29, 11.11127);
    const GridPayload payload = Forward(lat, lon);
    EXPECT_NEAR(payload.easting, 679520.05, 0.005);
    EXPECT_NEAR(payload.northing, 212273.44, 0.005);
    const Position position = Inverse(679520.05, 212273.44);
    EXPECT_NEAR(position.lat, lat, 0.005 / 111000.0);  // the published centimetre, as an angle
    EXPECT_NEAR(position.lon, lon, 0.005 / 75000.0);
}

TEST(SwissGrid, AgreesWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/swiss_grid.txt")) {
        SCOPED_TRACE(row.place);
        const GridPayload payload = Forward(row.Number(0), row.Number(1));
        EXPECT_NEAR(payload.easting, row.Number(2), METRES);
        EXPECT_NEAR(payload.northing, row.Number(3), METRES);
        const Position position = Inverse(row.Number(2), row.Number(3));
        EXPECT_NEAR(position.lat, row.Number(0), DEGREES);
        EXPECT_NEAR(position.lon, row.Number(1), 2 * DEGREES);
    }
}

TEST(SwissGrid, ReturnsFromEveryCornerOfItsLimits) {
    for (const double easting : {-200000.0, 600000.0, 1500000.0}) {
        for (const double northing : {-300000.0, 200000.0, 600000.0}) {
            const Position position = Inverse(easting, northing);
            const GridPayload payload = Forward(position.lat, position.lon);
            EXPECT_NEAR(payload.easting, easting, METRES);
            EXPECT_NEAR(payload.northing, northing, METRES);
        }
    }
}

TEST(CHFromGeodetic, SnapsValuesWithinATenthOfAMillimetreOntoTheLimits) {
    const double off = 0.00009;
    for (const double sign : {-1.0, 1.0}) {
        for (const double limit : {-200000.0, 1500000.0}) {
            const Position position = Inverse(limit + sign * off, 200000.0);
            EXPECT_EQ(Forward(position.lat, position.lon).easting, limit);
        }
        for (const double limit : {-300000.0, 600000.0}) {
            const Position position = Inverse(600000.0, limit + sign * off);
            EXPECT_EQ(Forward(position.lat, position.lon).northing, limit);
        }
    }
}

TEST(CHFromGeodetic, LeavesValuesFartherFromTheLimits) {
    const double off = 0.00011;
    for (const double limit : {-200000.0, 1500000.0}) {
        const Position position = Inverse(limit + off, 200000.0);
        EXPECT_NEAR(Forward(position.lat, position.lon).easting, limit + off, METRES);
    }
    for (const double limit : {-300000.0, 600000.0}) {
        const Position position = Inverse(600000.0, limit + off);
        EXPECT_NEAR(Forward(position.lat, position.lon).northing, limit + off, METRES);
    }
}

// The plain arctangents fold the far hemisphere back: opposite Bern a point looks like one near Bern.
TEST(CHFromGeodetic, FoldsThePositionsNearTheAntipode) {
    const GridPayload payload = Forward(-46.95, -172.56);
    EXPECT_NEAR(payload.easting, 600000.0, 20000.0);
    EXPECT_NEAR(payload.northing, 200000.0, 50000.0);
}

TEST(CHFromGeodetic, GivesFiniteValuesAtThePoles) {
    for (const double lat : {90.0, -90.0}) {
        const GridPayload payload = Forward(lat, 7.0);
        EXPECT_TRUE(std::isfinite(payload.easting));
        EXPECT_TRUE(std::isfinite(payload.northing));
    }
}

TEST(CHFromGeodetic, GivesNaNForWhatIsNoPosition) {
    EXPECT_TRUE(std::isnan(Forward(NOT_A_NUMBER, 7.0).northing));
    EXPECT_TRUE(std::isnan(Forward(47.0, NOT_A_NUMBER).easting));
    EXPECT_TRUE(std::isnan(Forward(INFINITE, 7.0).northing));
    EXPECT_TRUE(std::isnan(Forward(47.0, -INFINITE).easting));
    EXPECT_TRUE(std::isnan(Forward(91.0, 7.0).northing));
}

TEST(CHToGeodetic, GivesNaNForWhatIsNoGridValue) {
    EXPECT_TRUE(std::isnan(Inverse(NOT_A_NUMBER, 200000.0).lat));
    EXPECT_TRUE(std::isnan(Inverse(600000.0, NOT_A_NUMBER).lat));
    EXPECT_TRUE(std::isnan(Inverse(INFINITE, 200000.0).lat));
    EXPECT_TRUE(std::isnan(Inverse(600000.0, INFINITE).lat));
    EXPECT_TRUE(std::isnan(Inverse(600000.0, 1e300).lat));
}

TEST(CHToGeodetic, EndsForFiniteValuesFarOutside) {
    for (const double value : {-1e300, -1e12, -1e8, -4e7, 4e7, 1e8, 1e12, 1e300}) {
        const Position east = Inverse(value, 200000.0);
        const Position north = Inverse(600000.0, value);
        EXPECT_FALSE(std::fabs(east.lat) > 90.0);
        EXPECT_FALSE(std::fabs(north.lat) > 90.0);
    }
}

}  // namespace
}  // namespace tessara::swiss_grid_test
