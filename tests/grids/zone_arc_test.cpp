#include "grids/zone_arc.h"

#include <gtest/gtest.h>

#include "areas/rect_extents.h"
#include "records/zones.h"
#include "support/lines.h"
#include "support/zoned_records.h"

namespace tessara::testing {
namespace {

std::optional<ZoneArc> ZonesOf(const IRef<IMapCoordOperations>& map, const PixelRect& window,
                               std::int32_t system) {
    Extremes extremes;
    EXPECT_TRUE(ExtentOfRect(map.Get(), window, DATUM_WGS84, system, &extremes));
    return FindZoneArc(MapPlane(map.Get()), window, extremes);
}

// A kilometre a pixel around longitude 180 at 10 degrees north, easting 829038 of zone 60 (cs2cs).
IRef<IMapCoordOperations> MapOverTheDateLine() {
    return MapOf(Map(MAP_UTM, MapUtmParams{'N', 60, 729000.0, 1200000.0, 1000.0, 1000.0}));
}

TEST(ZoneArc, AWindowOverTheDateLineGoesFromTheLastZoneToTheFirst) {
    const auto utm = ZonesOf(MapOverTheDateLine(), {0, 0, 200, 200}, KOORD_UTM);
    ASSERT_TRUE(utm);
    EXPECT_EQ(utm->first, 60);
    EXPECT_EQ(utm->last, 1);
    // The western side of the window is at 729000; samples are 6.25 km apart.
    EXPECT_LE(utm->west, 729000.0);
    EXPECT_GE(utm->west, 729000.0 - 7000.0);
}

// 178 to 182 degrees: the strips of GK around 177, 180 and -177, and the two of GK6 beside the line.
TEST(ZoneArc, TheOutermostStripsOfGkAreOne) {
    const auto map = DegreeMap(178.0, 10.0, 100.0);
    const auto gk = ZonesOf(map, {0, 0, 400, 200}, KOORD_GK);
    ASSERT_TRUE(gk);
    EXPECT_EQ(gk->first, 59);
    EXPECT_EQ(gk->last, -59);
    CKoord place = StripRecord(DATUM_WGS84, KOORD_GK, 59500000.0, 1000000.0);
    for (const int next : {60, -59, -58}) {
        ASSERT_TRUE(MoveAroundEarth(1, &place));
        EXPECT_EQ(zones::Number(place), next);
    }
}

TEST(ZoneArc, ZonesFollowEachOtherAroundTheEarth) {
    const struct {
        CKoord place;
        int number, west;
    } cases[] = {{CKoord(UtmRecord(DATUM_WGS84, 'N', 1, 500000.0, 0.0)), 1, 60},
                 {CKoord(UtmRecord(DATUM_WGS84, 'N', 32, 500000.0, 0.0)), 32, 31},
                 {StripRecord(DATUM_WGS84, KOORD_GK6, -30500000.0, 0.0), -30, 30},
                 {StripRecord(DATUM_WGS84, KOORD_GK6, 1500000.0, 0.0), 1, -1},
                 {StripRecord(DATUM_WGS84, KOORD_GK, -60500000.0, 0.0), -60, 59},
                 {StripRecord(DATUM_WGS84, KOORD_GK, 500000.0, 0.0), 0, -1}};
    for (const auto& [place, number, west] : cases) {
        CKoord moved = place;
        ASSERT_EQ(zones::Number(moved), number);
        ASSERT_TRUE(MoveAroundEarth(-1, &moved));
        EXPECT_EQ(zones::Number(moved), west) << number;
    }
    CKoord none(UtmRecord(DATUM_WGS84, 'N', 61, 500000.0, 0.0));
    EXPECT_FALSE(MoveAroundEarth(1, &none));
    for (const double easting : {61500000.0, -61500000.0}) {
        none = StripRecord(DATUM_WGS84, KOORD_GK, easting, 0.0);
        EXPECT_FALSE(MoveAroundEarth(1, &none)) << easting;
    }
    none = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    EXPECT_FALSE(MoveAroundEarth(1, &none));
    CKoord austrian(AustrianRecord(6, KOORD_BMN, 34, 741000.0, 300000.0));
    EXPECT_FALSE(MoveAroundEarth(1, &austrian)) << "the last meridian";
    EXPECT_TRUE(MoveAroundEarth(-1, &austrian));
    EXPECT_EQ(ZonesAroundEarth(KOORD_BMN), 0);
}

Extremes BetweenZones(std::int16_t west, std::int16_t east) {
    Extremes extremes;
    extremes.Start(CKoord(UtmRecord(DATUM_WGS84, 'N', west, 500000.0, 1000000.0)));
    extremes.Set(Compass::East, CKoord(UtmRecord(DATUM_WGS84, 'N', east, 500000.0, 1000000.0)));
    return extremes;
}

// From -179 to 59 degrees, the zones 1 to 40.
TEST(ZoneArc, ZonesInTheirOrderFollowFromTheExtremes) {
    const auto map = DegreeMap(-179.0, 10.0, 10.0);
    EXPECT_FALSE(ZonesOf(map, {0, 0, 2380, 100}, KOORD_UTM));
    const auto arc = FindZoneArc(MapPlane(map.Get()), {0, 0, 2380, 100}, BetweenZones(1, 45));
    ASSERT_TRUE(arc);
    EXPECT_EQ(arc->first, 1);
    EXPECT_EQ(arc->last, 40) << "where the window ends";
}

TEST(ZoneArc, AWindowOffTheMapHasNone) {
    const auto map = DegreeMap(-180.0, 60.0, 10.0);
    EXPECT_FALSE(FindZoneArc(MapPlane(map.Get()), {0, -900, 3600, -400}, BetweenZones(1, 60)));
}

TEST(ZoneArc, OtherWindowsHaveNone) {
    EXPECT_FALSE(ZonesOf(MapOverTheDateLine(), {0, 0, 80, 200}, KOORD_UTM)) << "west of the line";
    EXPECT_FALSE(ZonesOf(MapOverTheDateLine(), {120, 0, 200, 200}, KOORD_UTM)) << "east of it";
    EXPECT_FALSE(ZonesOf(MapOverTheDateLine(), {0, 0, 200, 200}, KOORD_GEODEZ)) << "no zones";
    const auto world = DegreeMap(-180.0, 90.0, 10.0);
    for (const std::int32_t system : {KOORD_UTM, KOORD_GK, KOORD_GK6})
        EXPECT_FALSE(ZonesOf(world, {0, 0, 3600, 1800}, system)) << "all zones of " << system;
    const auto austria = DegreeMap(8.0, 51.5, 100.0);
    EXPECT_FALSE(ZonesOf(austria, {0, 0, 1100, 700}, KOORD_BMN)) << "all three meridians";
}

}  // namespace
}  // namespace tessara::testing
