#include "text/text_precision.h"

#include <gtest/gtest.h>

#include "numerics/special_values.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"

namespace tessara {
namespace {

TEST(PrecisionOfResolution, IsTheGreatestPowerOfTenAtMostAsLarge) {
    const struct {
        double resolution;
        int precision;
    } cases[] = {{1e-7, -7},    {1e-6, -6},   {1e-5, -5},    {1e-4, -4},      {0.001, -3},
                 {0.00099, -4}, {0.0099, -3}, {0.01, -2},    {0.1, -1},       {0.5, -1},
                 {1.0, 0},      {9.99, 0},    {10.0, 1},     {100.0, 2},      {1000.0, 3},
                 {10000.0, 4},  {99999.0, 4}, {100000.0, 5}, {1e300, 5},      {1e-9, -7},
                 {0.0, -7},     {-5.0, -7},   {INFINITE, 5}, {-INFINITE, -7}, {NOT_A_NUMBER, 5}};
    for (const auto& c : cases) {
        EXPECT_EQ(precision::OfResolution(c.resolution, KOORD_UTM), c.precision) << c.resolution;
        EXPECT_EQ(precision::OfResolution(c.resolution, KOORD_GEODEZ), c.precision) << c.resolution;
    }
}

// A second is 1/3600 degrees; from a minute on one step coarser.
TEST(PrecisionOfResolution, CountsSecondsInGeograd) {
    EXPECT_EQ(precision::OfResolution(0.001 / 3600.0, KOORD_GEOGRAD), -3);
    EXPECT_EQ(precision::OfResolution(1.0 / 3600.0, KOORD_GEOGRAD), 0);
    EXPECT_EQ(precision::OfResolution(9.995 / 3600.0, KOORD_GEOGRAD), 0);
    EXPECT_EQ(precision::OfResolution(10.0 / 3600.0, KOORD_GEOGRAD), 1);
    EXPECT_EQ(precision::OfResolution(59.99 / 3600.0, KOORD_GEOGRAD), 1);
    EXPECT_EQ(precision::OfResolution(1.0 / 60.0, KOORD_GEOGRAD), 2);
    EXPECT_EQ(precision::OfResolution(10.0 / 60.0, KOORD_GEOGRAD), 3);
    EXPECT_EQ(precision::OfResolution(1.0, KOORD_GEOGRAD), 4);
    EXPECT_EQ(precision::OfResolution(10.0, KOORD_GEOGRAD), 5);
    EXPECT_EQ(precision::OfResolution(30.0, KOORD_GEOGRAD), 6);
    EXPECT_EQ(precision::OfResolution(NOT_A_NUMBER, KOORD_GEOGRAD), 5);
}

TEST(PrecisionOfResolution, CountsMinutesInGeodezMin) {
    EXPECT_EQ(precision::OfResolution(0.001 / 60.0, KOORD_GEODEZMIN), -3);
    EXPECT_EQ(precision::OfResolution(0.5, KOORD_GEODEZMIN), 1);
    EXPECT_EQ(precision::OfResolution(1.0, KOORD_GEODEZMIN), 2);
    EXPECT_EQ(precision::OfResolution(0.0, KOORD_GEODEZMIN), -7);
}

TEST(PrecisionDefault, FollowsTheSystem) {
    const int expected[KOORD_TYPE_COUNT] = {0,  -3, -3, -3, -7, -3, 0,  -3, -3, -3, -3, -3,
                                            -5, -3, -3, -3, -3, -3, -3, -3, -3, -3, -3, PRECISION_UNSET};
    for (std::int32_t system = 0; system < KOORD_TYPE_COUNT; ++system)
        EXPECT_EQ(precision::Default(system), expected[system]) << system;
    EXPECT_EQ(precision::Default(NO_SYSTEM), PRECISION_UNSET);
    EXPECT_EQ(precision::Default(KOORD_TYPE_COUNT), PRECISION_UNSET);
}

TEST(PrecisionDecimals, OnlyANegativePrecisionHasAny) {
    EXPECT_EQ(precision::Decimals(-7), 7);
    EXPECT_EQ(precision::Decimals(0), 0);
    EXPECT_EQ(precision::Decimals(5), 0);
    EXPECT_EQ(precision::Decimals(PRECISION_UNSET), 0);
}

}  // namespace
}  // namespace tessara
