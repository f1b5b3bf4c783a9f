#include "tessara/kernel/fixed_grids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"

namespace tessara::fixed_grids_test {
namespace {

using ::tessara::testing::ForwardConstants;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::METRES_PER_DEGREE;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;

constexpr std::int32_t NTL = 238;  // on the International ellipsoid

constexpr double METRES_PER_DEGREE_OF_LONGITUDE = 70000.0;  // less than on any parallel here

struct Grid {
    const char* name;
    const char* figures;
    KoordStatus (*fromGeodetic)(const double[2], GridPayload*, const TmConstants*);
    KoordStatus (*toGeodetic)(const GridPayload*, double[2], const TmConstants*, const TmConstants*);
    double originLat, originLon;  // degrees
    double falseEasting, falseNorthing;
    double west, east, south, north;  // limits
};

class FixedGrids : public ::testing::TestWithParam<Grid> {
  protected:
    struct Geodetic {
        double lat;
        double lon;
    };

    [[nodiscard]] GridPayload To(Geodetic position) const {
        const double latLon[2] = {position.lat, position.lon};
        GridPayload grid{};
        EXPECT_EQ(GetParam().fromGeodetic(latLon, &grid, &forward_), KOORD_OK);
        return grid;
    }

    [[nodiscard]] Geodetic From(double easting, double northing) const {
        const GridPayload grid{easting, northing};
        double latLon[2] = {};
        EXPECT_EQ(GetParam().toGeodetic(&grid, latLon, &forward_, &inverse_), KOORD_OK);
        return {latLon[0], latLon[1]};
    }

  private:
    TmConstants forward_ = ForwardConstants(NTL);
    TmConstants inverse_ = InverseConstants(NTL);
};

TEST_P(FixedGrids, AgreeWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile(GetParam().figures)) {
        SCOPED_TRACE(row.place);
        const GridPayload grid = To({row.Number(0), row.Number(1)});
        EXPECT_NEAR(grid.easting, row.Number(2), REFERENCE_TOLERANCE);
        EXPECT_NEAR(grid.northing, row.Number(3), REFERENCE_TOLERANCE);
        const Geodetic position = From(row.Number(2), row.Number(3));
        EXPECT_NEAR(position.lat, row.Number(0), REFERENCE_TOLERANCE / METRES_PER_DEGREE);
        EXPECT_NEAR(position.lon, row.Number(1), REFERENCE_TOLERANCE / METRES_PER_DEGREE_OF_LONGITUDE);
    }
}

TEST_P(FixedGrids, HaveTheFalseValuesAtTheOrigin) {
    const GridPayload grid = To({GetParam().originLat, GetParam().originLon});
    EXPECT_EQ(grid.easting, GetParam().falseEasting);
    EXPECT_EQ(grid.northing, GetParam().falseNorthing);
    const Geodetic position = From(GetParam().falseEasting, GetParam().falseNorthing);
    // Degrees, some units of the last place; the latitude comes out of the series.
    EXPECT_NEAR(position.lat, GetParam().originLat, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE);
    EXPECT_NEAR(position.lon, GetParam().originLon, 1e-13);
}

TEST_P(FixedGrids, PutAValueCloseToALimitOntoIt) {
    const Grid& grid = GetParam();
    for (const double off : {-8e-5, 8e-5}) {
        EXPECT_EQ(To(From(grid.west + off, grid.falseNorthing)).easting, grid.west);
        EXPECT_EQ(To(From(grid.east + off, grid.falseNorthing)).easting, grid.east);
        EXPECT_EQ(To(From(grid.falseEasting, grid.south + off)).northing, grid.south);
        EXPECT_EQ(To(From(grid.falseEasting, grid.north + off)).northing, grid.north);
    }
    for (const double off : {-1.2e-4, 1.2e-4}) {
        EXPECT_NE(To(From(grid.west + off, grid.falseNorthing)).easting, grid.west);
        EXPECT_NE(To(From(grid.east + off, grid.falseNorthing)).easting, grid.east);
        EXPECT_NE(To(From(grid.falseEasting, grid.south + off)).northing, grid.south);
        EXPECT_NE(To(From(grid.falseEasting, grid.north + off)).northing, grid.north);
    }
}

TEST_P(FixedGrids, ReturnToWhereTheyStarted) {
    Random random(22);
    for (int i = 0; i < 1000; ++i) {
        const Geodetic start{GetParam().originLat + random.Between(-4.0, 4.0),
                             GetParam().originLon + random.Between(-4.0, 4.0)};
        const GridPayload grid = To(start);
        const Geodetic end = From(grid.easting, grid.northing);
        EXPECT_NEAR(end.lat, start.lat, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE);
        EXPECT_NEAR(end.lon, start.lon, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE_OF_LONGITUDE);
    }
}

TEST_P(FixedGrids, GiveNoNumbersForPositionsThatAreNone) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, 90.0, -90.0})
        EXPECT_TRUE(std::isnan(To({bad, 6.0}).northing));
    EXPECT_TRUE(std::isnan(To({49.0, INFINITE}).easting));
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(From(bad, 1e5).lat));
        EXPECT_TRUE(std::isnan(From(1e5, bad).lat));
    }
}

TEST_P(FixedGrids, FailForConstantsWithoutADatumAndChangeNothing) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        TmConstants forward = ForwardConstants(NTL);
        TmConstants inverse = InverseConstants(NTL);
        forward.datum = inverse.datum = datum;
        double latLon[2] = {49.0, 6.0};
        GridPayload grid{1.0, 2.0};
        EXPECT_EQ(GetParam().fromGeodetic(latLon, &grid, &forward), KOORD_ERR_DATUM) << datum;
        EXPECT_EQ(grid.easting, 1.0);
        EXPECT_EQ(grid.northing, 2.0);
        EXPECT_EQ(GetParam().toGeodetic(&grid, latLon, &forward, &inverse), KOORD_ERR_DATUM) << datum;
        EXPECT_EQ(latLon[0], 49.0);
        EXPECT_EQ(latLon[1], 6.0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, FixedGrids,
    ::testing::Values(Grid{"PoMilitary", "kernel/po_military.txt", POMilitary_FromGeodetic,
                           POMilitary_ToGeodetic, 39.6682583333, -8.1331086111, 200000.0, 300000.0, -800000.0,
                           1200000.0, -700000.0, 1300000.0},
                      Grid{"Luref", "kernel/luref.txt", LUREF_FromGeodetic, LUREF_ToGeodetic, 49.8333333333,
                           6.16666666667, 80000.0, 100000.0, 0.0, 200000.0, 0.0, 200000.0}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tessara::fixed_grids_test
