// The pair of functions of each map type, as the public header declares them.
#include "tessara/kernel/map_types.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>

#include "support/sheets.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing::map_types_test {
namespace {

struct Pair {
    MapPixelToWorldFunction* pixelToWorld;
    MapWorldToPixelFunction* worldToPixel;
};

const std::map<std::uint32_t, Pair> PAIRS{
    {MAP_UTM, {MapUtm_PixelToWorld, MapUtm_WorldToPixel}},
    {MAP_GAUKRU, {MapGk_PixelToWorld, MapGk_WorldToPixel}},
    {MAP_LAMBERT2, {MapLambert_PixelToWorld, MapLambert_WorldToPixel}},
    {MAP_LAMBERTFR, {MapLambertFr_PixelToWorld, MapLambertFr_WorldToPixel}},
    {MAP_EQUALARC, {MapEqualArc_PixelToWorld, MapEqualArc_WorldToPixel}},
    {MAP_POLYNOM, {MapPolynom_PixelToWorld, MapPolynom_WorldToPixel}},
    {MAP_MERCATOR, {MapMercator_PixelToWorld, MapMercator_WorldToPixel}},
    {MAP_BMN, {MapBmn_PixelToWorld, MapBmn_WorldToPixel}},
    {MAP_CH, {MapCh_PixelToWorld, MapCh_WorldToPixel}},
    {MAP_AZYL, {MapAzyl_PixelToWorld, MapAzyl_WorldToPixel}},
    {MAP_DD, {MapDd_PixelToWorld, MapDd_WorldToPixel}},
    {MAP_GAUKRU6, {MapGk6_PixelToWorld, MapGk6_WorldToPixel}},
    {MAP_UPS, {MapUps_PixelToWorld, MapUps_WorldToPixel}},
    {MAP_TM, {MapTm_PixelToWorld, MapTm_WorldToPixel}},
    {MAP_PO_MILITARY, {MapTm_PixelToWorld, MapTm_WorldToPixel}},
    {MAP_VAN_DER_GRINTEN, {MapVdg_PixelToWorld, MapVdg_WorldToPixel}},
    {MAP_STEREOGR_NL, {MapRd_PixelToWorld, MapRd_WorldToPixel}},
    {MAP_LAMBERTCC, {MapLambert_PixelToWorld, MapLambert_WorldToPixel}},
    {MAP_LUREF, {MapTm_PixelToWorld, MapTm_WorldToPixel}},
    {MAP_WAGNER_IV, {MapWagnerIV_PixelToWorld, MapWagnerIV_WorldToPixel}},
};

// The sheets, and one of each type that has no plane to compare with.
std::vector<MapParam> MapsOfAllTypes() {
    std::vector<MapParam> maps;
    for (const Sheet& sheet : AllSheets())
        maps.push_back(sheet.map);
    maps.push_back(Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}));
    // A hundredth of a degree a pixel, from (50, 10).
    maps.push_back(Map(MAP_POLYNOM, MapPolynomParams{.order = 3,
                                                     .latFromPixel = {50.0, 0.0, -0.01},
                                                     .lonFromPixel = {10.0, 0.01, 0.0},
                                                     .pixelXFromWorld = {-1000.0, 100.0, 0.0},
                                                     .pixelYFromWorld = {5000.0, 0.0, -100.0}}));
    return maps;
}

TEST(MapTypes, ThePairsAreWhatTheTwoFunctionsOverAllTypesCall) {
    std::set<std::uint32_t> types;
    for (const MapParam& map : MapsOfAllTypes()) {
        types.insert(map.type);
        const Pair& pair = PAIRS.at(map.type);

        tagKOORD native{};
        ASSERT_EQ(pair.pixelToWorld(&map, 12.5, 34.25, &native), KOORD_OK) << map.type;
        tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
        ASSERT_EQ(KoordConvertEx(&native, &degrees, 0), KOORD_OK) << map.type;
        const WorldResult world = ToWorld(map, 12.5, 34.25, MakeKoord(DATUM_WGS84, KOORD_GEODEZ));
        ASSERT_EQ(world.status, KOORD_OK) << map.type;
        EXPECT_EQ(std::memcmp(&world.world, &degrees, sizeof degrees), 0) << map.type;

        double x = 0.0;
        double y = 0.0;
        ASSERT_EQ(pair.worldToPixel(&map, &degrees, &x, &y), KOORD_OK) << map.type;
        const PixelResult pixel = ToPixel(map, degrees);
        EXPECT_EQ(pixel.x, x) << map.type;
        EXPECT_EQ(pixel.y, y) << map.type;
    }
    EXPECT_EQ(types.size(), PAIRS.size());
}

}  // namespace
}  // namespace tessara::testing::map_types_test
