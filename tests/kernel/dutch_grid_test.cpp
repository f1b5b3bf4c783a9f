#include "tessara/kernel/dutch_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"

namespace tessara::dutch_grid_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr std::int32_t DATUM_RDNAP = 237;  // on the Bessel ellipsoid

constexpr double AMERSFOORT_LATITUDE = 52.1561605556;
constexpr double AMERSFOORT_LONGITUDE = 5.3876388889;

// A tenth of the accuracy that a grid is compared to: both calculations are closed formulas.
constexpr double METRES = 1e-6;
constexpr double DEGREES = 1e-11;  // a micrometre

GridPayload Forward(double lat, double lon, std::int32_t datum = DATUM_RDNAP) {
    const double latLon[2] = {lat, lon};
    GridPayload payload{};
    RD_FromGeodetic(latLon, &payload, datum);
    return payload;
}

struct Position {
    double lat, lon;
};

Position Inverse(double easting, double northing, std::int32_t datum = DATUM_RDNAP) {
    const GridPayload payload{easting, northing};
    double latLon[2];
    RD_ToGeodetic(&payload, latLon, datum);
    return {latLon[0], latLon[1]};
}

TEST(DutchGrid, HasItsOriginInAmersfoort) {
    const GridPayload payload = Forward(AMERSFOORT_LATITUDE, AMERSFOORT_LONGITUDE);
    // Metres and degrees, some units of the last place.
    EXPECT_NEAR(payload.easting, 155000.0, 1e-8);
    EXPECT_NEAR(payload.northing, 463000.0, 1e-8);
    const Position position = Inverse(155000.0, 463000.0);
    EXPECT_NEAR(position.lat, AMERSFOORT_LATITUDE, 1e-13);
    EXPECT_NEAR(position.lon, AMERSFOORT_LONGITUDE, 1e-13);
}

TEST(DutchGrid, HasItsOriginExactlyOnEveryDatum) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const GridPayload payload = Forward(AMERSFOORT_LATITUDE, AMERSFOORT_LONGITUDE, datum);
        EXPECT_EQ(payload.easting, 155000.0) << datum;
        EXPECT_EQ(payload.northing, 463000.0) << datum;
    }
}

// The worked example of IOGP Publication 373-7-2 for Oblique Stereographic. Its scale has three digits less,
// which is a tenth of a millimetre here.
TEST(DutchGrid, GivesTheWorkedExampleOfTheGeodesyRegister) {
    const GridPayload payload = Forward(53.0, 6.0);
    EXPECT_NEAR(payload.easting, 196105.283, 0.001);
    EXPECT_NEAR(payload.northing, 557057.739, 0.001);
    const Position position = Inverse(196105.283, 557057.739);
    EXPECT_NEAR(position.lat, 53.0, 1e-8);  // a millimetre
    EXPECT_NEAR(position.lon, 6.0, 1.5e-8);
}

TEST(DutchGrid, AgreesWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/dutch_grid.txt")) {
        SCOPED_TRACE(row.place);
        const GridPayload payload = Forward(row.Number(0), row.Number(1));
        EXPECT_NEAR(payload.easting, row.Number(2), METRES);
        EXPECT_NEAR(payload.northing, row.Number(3), METRES);
        const Position position = Inverse(row.Number(2), row.Number(3));
        EXPECT_NEAR(position.lat, row.Number(0), DEGREES);
        EXPECT_NEAR(position.lon, row.Number(1), 2 * DEGREES);  // a degree of longitude is shorter
    }
}

TEST(DutchGrid, ReturnsFromEveryCornerOfItsLimits) {
    for (const double easting : {-100000.0, 155000.0, 400000.0}) {
        for (const double northing : {200000.0, 463000.0, 700000.0}) {
            const Position position = Inverse(easting, northing);
            const GridPayload payload = Forward(position.lat, position.lon);
            EXPECT_NEAR(payload.easting, easting, METRES);
            EXPECT_NEAR(payload.northing, northing, METRES);
        }
    }
}

TEST(DutchGrid, ReturnsOnEveryKindOfEllipsoid) {
    for (const std::int32_t datum : {0, 1, DATUM_WGS84, 10, 12, DATUM_RDNAP}) {
        const GridPayload payload = Forward(51.25, 3.75, datum);
        const Position position = Inverse(payload.easting, payload.northing, datum);
        EXPECT_NEAR(position.lat, 51.25, DEGREES);
        EXPECT_NEAR(position.lon, 3.75, 2 * DEGREES);
    }
}

TEST(RDFromGeodetic, SnapsValuesWithinATenthOfAMillimetreOntoTheLimits) {
    const double off = 0.00009;
    for (const double sign : {-1.0, 1.0}) {
        for (const double limit : {-100000.0, 400000.0}) {
            const Position position = Inverse(limit + sign * off, 463000.0);
            EXPECT_EQ(Forward(position.lat, position.lon).easting, limit);
        }
        for (const double limit : {200000.0, 700000.0}) {
            const Position position = Inverse(155000.0, limit + sign * off);
            EXPECT_EQ(Forward(position.lat, position.lon).northing, limit);
        }
    }
}

TEST(RDFromGeodetic, LeavesValuesFartherFromTheLimits) {
    const double off = 0.00011;
    for (const double limit : {-100000.0, 400000.0}) {
        const Position position = Inverse(limit + off, 463000.0);
        EXPECT_NEAR(Forward(position.lat, position.lon).easting, limit + off, METRES);
    }
    for (const double limit : {200000.0, 700000.0}) {
        const Position position = Inverse(155000.0, limit + off);
        EXPECT_NEAR(Forward(position.lat, position.lon).northing, limit + off, METRES);
    }
}

// On the sphere (datum 0) the antipode is at the negative latitude; there is no image of it.
TEST(RDFromGeodetic, GivesTheOriginForItsAntipode) {
    const GridPayload onSphere = Forward(-AMERSFOORT_LATITUDE, AMERSFOORT_LONGITUDE - 180.0, 0);
    EXPECT_EQ(onSphere.easting, 155000.0);
    EXPECT_EQ(onSphere.northing, 463000.0);

    // The stereographic denominator is 1 - cos of the distance: 0.97e-4 and 1.02e-4, on either side of 1e-4.
    EXPECT_EQ(Forward(-AMERSFOORT_LATITUDE + 0.80, AMERSFOORT_LONGITUDE - 180.0, 0).northing, 463000.0);
    EXPECT_GT(Forward(-AMERSFOORT_LATITUDE + 0.82, AMERSFOORT_LONGITUDE - 180.0, 0).northing, 1e8);
}

TEST(RDFromGeodetic, GivesNaNForWhatIsNoPosition) {
    EXPECT_TRUE(std::isnan(Forward(NOT_A_NUMBER, 5.0).easting));
    EXPECT_TRUE(std::isnan(Forward(52.0, NOT_A_NUMBER).easting));
    EXPECT_TRUE(std::isnan(Forward(INFINITE, 5.0).easting));
    EXPECT_TRUE(std::isnan(Forward(52.0, -INFINITE).easting));
    EXPECT_TRUE(std::isnan(Forward(91.0, 5.0).easting));
}

TEST(DutchGrid, GivesNaNForADatumThatDoesNotExist) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        EXPECT_TRUE(std::isnan(Forward(52.0, 5.0, datum).easting));
        EXPECT_TRUE(std::isnan(Inverse(150000.0, 450000.0, datum).lat));
    }
}

TEST(RDToGeodetic, TakesAMillimetreAroundTheOriginForIt) {
    const Position origin = Inverse(155000.0, 463000.0);
    const Position close = Inverse(155000.00099, 462999.99901);
    EXPECT_EQ(close.lat, origin.lat);
    EXPECT_EQ(close.lon, origin.lon);
    EXPECT_NE(Inverse(155000.0, 463000.0011).lat, origin.lat);
    EXPECT_NE(Inverse(155000.0011, 463000.0).lon, origin.lon);
}

// A degree of latitude is about 111 km, so a kilometre is 0.009 degrees.
TEST(RDToGeodetic, KnowsNorthFromSouthOnTheMeridianOfTheOrigin) {
    const Position north = Inverse(155000.0005, 464000.0);
    EXPECT_NEAR(north.lat, AMERSFOORT_LATITUDE + 0.009, 1e-4);
    EXPECT_NEAR(north.lon, AMERSFOORT_LONGITUDE, 1e-12);
    const Position south = Inverse(154999.9995, 462000.0);
    EXPECT_NEAR(south.lat, AMERSFOORT_LATITUDE - 0.009, 1e-4);
    EXPECT_NEAR(south.lon, AMERSFOORT_LONGITUDE, 1e-12);
}

TEST(RDToGeodetic, KnowsEastFromWestOnTheParallelOfTheOrigin) {
    const Position east = Inverse(156000.0, 463000.0);
    EXPECT_NEAR(east.lat, AMERSFOORT_LATITUDE, 1e-5);
    EXPECT_NEAR(east.lon, AMERSFOORT_LONGITUDE + 0.0146, 1e-4);  // 0.009/cos 52.16
    const Position west = Inverse(154000.0, 463000.0);
    EXPECT_NEAR(west.lat, AMERSFOORT_LATITUDE, 1e-5);
    EXPECT_NEAR(west.lon, AMERSFOORT_LONGITUDE - 0.0146, 1e-4);
}

TEST(RDToGeodetic, EndsForWhatIsNoGridValue) {
    for (const double value : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_FALSE(std::fabs(Inverse(value, 463000.0).lat) > 90.0);
        EXPECT_FALSE(std::fabs(Inverse(155000.0, value).lat) > 90.0);
    }
    EXPECT_TRUE(std::isnan(Inverse(NOT_A_NUMBER, 463000.0).lat));
    EXPECT_TRUE(std::isnan(Inverse(155000.0, NOT_A_NUMBER).lat));
}

TEST(RDToGeodetic, EndsForAnyValueAndNearThePoles) {
    std::mt19937_64 random(1888);
    std::uniform_real_distribution<double> exponent(0.0, 308.0);
    for (int i = 0; i < 20000; ++i) {
        const double easting = std::pow(10.0, exponent(random)) * (i % 2 == 0 ? 1.0 : -1.0);
        const double northing = std::pow(10.0, exponent(random)) * (i % 4 < 2 ? 1.0 : -1.0);
        EXPECT_FALSE(std::fabs(Inverse(easting, northing).lat) > 90.0 + 1e-9);
    }
    const GridPayload pole = Forward(90.0, AMERSFOORT_LONGITUDE);
    for (int i = -2000; i <= 2000; ++i)
        EXPECT_FALSE(std::fabs(Inverse(pole.easting, pole.northing + i * 1e-4).lat) > 90.0 + 1e-9);
}

}  // namespace
}  // namespace tessara::dutch_grid_test
