#include "areas/zone_gap.h"

#include <gtest/gtest.h>

#include "areas/rect_extents.h"
#include "support/lines.h"

namespace tessara::testing {
namespace {

std::optional<ZoneGap> GapOf(const IRef<IMapCoordOperations>& map, const PixelRect& window,
                             std::int32_t system) {
    Extremes extremes;
    EXPECT_TRUE(ExtentOfRect(map.Get(), window, DATUM_WGS84, system, &extremes));
    return FindZoneGap(MapPlane(map.Get()), window, extremes);
}

// A kilometre a pixel around longitude 180 at 10 degrees north, easting 829038 of zone 60 (cs2cs).
IRef<IMapCoordOperations> DateLineMap() {
    return MapOf(Map(MAP_UTM, MapUtmParams{'N', 60, 729000.0, 1200000.0, 1000.0, 1000.0}));
}

TEST(ZoneGap, AWindowOverTheDateLineLeavesOutTheRestOfTheWorld) {
    const auto utm = GapOf(DateLineMap(), {0, 0, 200, 200}, KOORD_UTM);
    ASSERT_TRUE(utm);
    EXPECT_EQ(utm->first, 3) << "zone 1 and its neighbour stay";
    EXPECT_EQ(utm->last, 58) << "and 60 and 59";
    EXPECT_TRUE(utm->Holds(3) && utm->Holds(58));
    EXPECT_FALSE(utm->Holds(2) || utm->Holds(59));
}

// GK ends at 181.5 degrees, and there a column of the window already lies in strip -59: -60 and 60, which
// have the same meridian, are one on the ground.
TEST(ZoneGap, AWindowOverTheEndOfTheStripsLeavesOutTheRestOfTheWorld) {
    const auto gk = GapOf(DegreeMap(178.0, 10.0, 100.0), {0, 0, 400, 200}, KOORD_GK);
    ASSERT_TRUE(gk);
    EXPECT_EQ(gk->first, -57);
    EXPECT_EQ(gk->last, 57);
}

TEST(ZoneGap, OtherWindowsHaveNone) {
    EXPECT_FALSE(GapOf(DateLineMap(), {0, 0, 80, 200}, KOORD_UTM)) << "west of the line";
    EXPECT_FALSE(GapOf(DateLineMap(), {120, 0, 200, 200}, KOORD_UTM)) << "east of it";
    EXPECT_FALSE(GapOf(DateLineMap(), {0, 0, 200, 200}, KOORD_GEODEZ)) << "no zones";
    EXPECT_FALSE(GapOf(DateLineMap(), {0, 0, 200, 200}, KOORD_GK6)) << "no strip takes 181 degrees";
    const auto world = DegreeMap(-180.0, 90.0, 10.0);
    for (const std::int32_t system : {KOORD_UTM, KOORD_GK, KOORD_GK6})
        EXPECT_FALSE(GapOf(world, {0, 0, 3600, 1800}, system)) << "all zones of " << system;
    const auto austria = DegreeMap(8.0, 51.5, 100.0);
    EXPECT_FALSE(GapOf(austria, {0, 0, 1100, 700}, KOORD_BMN)) << "all three meridians";
    EXPECT_FALSE(GapOf(austria, {100, 100, 500, 600}, KOORD_BMN)) << "the western two";
    EXPECT_FALSE(GapOf(austria, {500, 100, 900, 600}, KOORD_BMN)) << "the eastern two";
}

}  // namespace
}  // namespace tessara::testing
