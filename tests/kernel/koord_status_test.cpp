#include "tessara/kernel/koord_status.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tessara::koord_status_test {
namespace {

struct StatusNumber {
    KoordStatus status;
    std::int32_t number;
};

constexpr StatusNumber STATUSES[] = {
    {GEODESIC_NO_SOLUTION, 0},
    {KOORD_OK, 1},
    {KOORD_ERR_GENERAL, -3000},
    {KOORD_ERR_DATUM, -3104},
    {KOORD_ERR_MERIDIAN, -3204},
    {KOORD_ERR_UTM_ZONE, -3208},
    {KOORD_ERR_ZONE_DISTANT, -3209},
    {KOORD_ERR_GRID_RANGE, -3210},
    {KOORD_ERR_MAP_TYPE, -3300},
    {KOORD_ERR_POLYNOM_ORDER, -3304},
    {KOORD_ERR_TYPE, -3400},
    {KOORD_ERR_PIXEL_TYPE, -3404},
    {KOORD_ERR_OUTSIDE, -3410},
    {KOORD_CHECK_AFTER, -3705},
    {KOORD_ERR_UTM_LON, -3706},
    {KOORD_ERR_UTM_LAT, -3708},
    {KOORD_ERR_GEO_LAT, -3713},
    {KOORD_ERR_GEO_LON, -3714},
    {KOORD_ERR_HEMISPHERE, -3721},
    {KOORD_ERR_GEOREF_LON_ZONE, -3722},
    {KOORD_ERR_GEOREF_LAT_ZONE, -3723},
    {KOORD_ERR_GEOREF_LON_DEGREE, -3724},
    {KOORD_ERR_GEOREF_LAT_DEGREE, -3725},
    {KOORD_ERR_GEOREF_LON_MINUTES, -3726},
    {KOORD_ERR_GEOREF_LAT_MINUTES, -3727},
    {KOORD_ERR_CH_EAST_LOW, -3728},
    {KOORD_ERR_CH_EAST_HIGH, -3729},
    {KOORD_ERR_CH_NORTH_LOW, -3730},
    {KOORD_ERR_CH_NORTH_HIGH, -3731},
    {KOORD_ERR_GK_LAT, -3732},
    {KOORD_ERR_GK_EAST, -3733},
    {KOORD_ERR_GEOREF_PRECISION, -3734},
    {KOORD_ERR_AT_LON, -3740},
    {KOORD_ERR_AT_LAT, -3741},
    {KOORD_ERR_UPS, -3749},
    {KOORD_ERR_GRID_LETTER, -3750},
    {KOORD_ERR_EAST_LOW, -3760},
    {KOORD_ERR_EAST_HIGH, -3761},
    {KOORD_ERR_NORTH_HIGH, -3762},
    {KOORD_ERR_NORTH_LOW, -3763},
};

// Hosts compare with the numbers.
TEST(KoordStatus, HasItsNumberForEachName) {
    for (const StatusNumber& row : STATUSES)
        EXPECT_EQ(row.status, row.number);
}

TEST(KoordStatus, HasATextOfItsOwnForEachNumber) {
    std::set<std::string> texts;
    for (const StatusNumber& row : STATUSES)
        EXPECT_TRUE(texts.insert(Koord_StatusText(row.number)).second) << row.number;
    EXPECT_EQ(texts.count("unknown status"), 0u);
    EXPECT_STREQ(Koord_StatusText(KOORD_ERR_DATUM), "the datum number is outside 0..238");
}

TEST(KoordStatus, IsUnknownWithoutAName) {
    for (const std::int32_t number : {2, -1, -3001, -3764, INT32_MIN, INT32_MAX})
        EXPECT_STREQ(Koord_StatusText(number), "unknown status") << number;
}

}  // namespace
}  // namespace tessara::koord_status_test
