// Whole sheets of every type that has a plane, against an independent program.
#include "support/sheets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>

#include "support/reference_file.h"
#include "tessara/kernel/map_types.h"

namespace tessara::testing::map_kernel_sheets_test {
namespace {

// The figures are rounded to a micrometre; the rest is the difference between the series.
constexpr double METRES = 1e-4;
constexpr double METRES_PER_DEGREE = 111000.0;

// How well a latitude comes back from a pixel.
double LatitudeTolerance(const Sheet& sheet) {
    // Whole metres: rounding may lose half a metre on each axis.
    if (sheet.map.type == MAP_CH) return 0.71 / METRES_PER_DEGREE;
    // The search for the latitude ends at a step of 1e-9 radians.
    if (sheet.map.type == MAP_MERCATOR) return 1e-9 * DEGREES_PER_RADIAN;
    // The figures are rounded to 1e-6 pixels of 0.01 degrees.
    if (sheet.map.type == MAP_EQUALARC) return 1e-8;
    return METRES / METRES_PER_DEGREE;
}

std::vector<ReferenceRow> RowsOf(const std::string& sheet) {
    std::vector<ReferenceRow> rows = ReadReferenceFile("maps/sheets.txt");
    std::erase_if(rows, [&sheet](const ReferenceRow& row) { return row.Text(0) != sheet; });
    EXPECT_GE(rows.size(), 4u) << sheet;
    return rows;
}

double Column(const Sheet& sheet, const ReferenceRow& row) {
    return sheet.pixelX + (row.Number(3) - sheet.easting) / sheet.metresPerPixelX;
}
double Line(const Sheet& sheet, const ReferenceRow& row) {
    return sheet.pixelY + (sheet.northing - row.Number(4)) / sheet.metresPerPixelY;
}

class SheetTest : public ::testing::TestWithParam<Sheet> {};

TEST_P(SheetTest, PutsAPositionOnItsPixel) {
    const Sheet& sheet = GetParam();
    for (const ReferenceRow& row : RowsOf(sheet.name)) {
        const PixelResult pixel = ToPixel(
            sheet.map,
            GeodezRecord(row.Number(1), row.Number(2), 0.0, static_cast<std::int32_t>(sheet.map.datum)));
        EXPECT_EQ(pixel.status, KOORD_OK) << row.place;
        EXPECT_NEAR(pixel.x, Column(sheet, row), METRES / sheet.metresPerPixelX) << row.place;
        EXPECT_NEAR(pixel.y, Line(sheet, row), METRES / sheet.metresPerPixelY) << row.place;
    }
}

TEST_P(SheetTest, ReadsAPositionFromItsPixel) {
    const Sheet& sheet = GetParam();
    const double degrees = LatitudeTolerance(sheet);
    for (const ReferenceRow& row : RowsOf(sheet.name)) {
        const WorldResult world = ToWorld(sheet.map, Column(sheet, row), Line(sheet, row));
        const double latitude = row.Number(1);
        EXPECT_EQ(world.status, KOORD_OK) << row.place;
        EXPECT_NEAR(world.Degrees().latitude, latitude, degrees) << row.place;
        EXPECT_NEAR(world.Degrees().longitude, row.Number(2),
                    degrees / std::cos(latitude / DEGREES_PER_RADIAN))
            << row.place;
        EXPECT_EQ(world.Degrees().height, 0.0) << row.place;
    }
}

TEST_P(SheetTest, ComesBackToThePixelEverywhere) {
    const Sheet& sheet = GetParam();
    // All pixels of the sheet lie right of and below its origin, where whole metres are off by half of one.
    const double pixels = sheet.map.type == MAP_CH ? 0.5 / sheet.metresPerPixelX + 1e-3 : 1e-3;
    constexpr int steps = 20;
    for (int i = 0; i <= steps; ++i) {
        for (int j = 0; j <= steps; ++j) {
            const double x = sheet.width * i / static_cast<double>(steps);
            const double y = sheet.height * j / static_cast<double>(steps);
            const WorldResult world = ToWorld(sheet.map, x, y);
            ASSERT_EQ(world.status, KOORD_OK) << x << " " << y;
            const PixelResult pixel = ToPixel(sheet.map, world.world);
            ASSERT_EQ(pixel.status, KOORD_OK) << x << " " << y;
            EXPECT_NEAR(pixel.x, x, pixels) << x << " " << y;
            EXPECT_NEAR(pixel.y, y, pixels) << x << " " << y;
        }
    }
}

// AZYL and WAGNER-IV return their latest result: (0, 0) or the reference.
TEST_P(SheetTest, WhatIsNoNumberHasNeitherPixelNorPosition) {
    const Sheet& sheet = GetParam();
    const double none = std::numeric_limits<double>::quiet_NaN();
    const WorldResult world = ToWorld(sheet.map, none, none);
    const bool givesUp = sheet.map.type == MAP_AZYL || sheet.map.type == MAP_WAGNER_IV;
    EXPECT_TRUE(givesUp || world.status != KOORD_OK || std::isnan(world.Degrees().latitude));
    const auto datum = static_cast<std::int32_t>(sheet.map.datum);
    const PixelResult pixel = ToPixel(sheet.map, GeodezRecord(none, none, 0.0, datum));
    EXPECT_TRUE(pixel.status != KOORD_OK || (std::isnan(pixel.x) && std::isnan(pixel.y)));
}

// Whatever pattern of bits goes in, and whichever sign the operations give.
TEST_P(SheetTest, WhatIsNoNumberHasOnePattern) {
    const Sheet& sheet = GetParam();
    const auto datum = static_cast<std::int32_t>(sheet.map.datum);
    const auto isNumberOrQuiet = [](double value) {
        return !std::isnan(value) || std::bit_cast<std::uint64_t>(value) == 0x7FF8000000000000;
    };
    for (const std::uint64_t pattern : {0x7FF8000000000001u, 0xFFF8000000000000u, 0xFFFFFFFFFFFFFFFFu}) {
        const auto none = std::bit_cast<double>(pattern);
        const WorldResult world = ToWorld(sheet.map, none, none);
        EXPECT_TRUE(isNumberOrQuiet(world.Degrees().latitude) && isNumberOrQuiet(world.Degrees().longitude));
        for (const tagKOORD& place :
             {GeodezRecord(none, none, 0.0, datum), GeodezRecord(none, 10.0, 0.0, datum),
              GeodezRecord(45.0, none, 0.0, datum)}) {
            const PixelResult pixel = ToPixel(sheet.map, place);
            EXPECT_TRUE(isNumberOrQuiet(pixel.x) && isNumberOrQuiet(pixel.y)) << std::hex << pattern;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Maps, SheetTest, ::testing::ValuesIn(AllSheets()),
                         [](const ::testing::TestParamInfo<Sheet>& sheet) { return sheet.param.name; });

// The record in which a type works, before it is converted into anything else.
TEST(Sheets, EachTypeWorksInItsOwnSystem) {
    struct Row {
        MapPixelToWorldFunction* pixelToWorld;
        KoordType native;
    };
    const std::map<std::uint32_t, Row> rows = {{MAP_UTM, {MapUtm_PixelToWorld, KOORD_UTM}},
                                               {MAP_GAUKRU, {MapGk_PixelToWorld, KOORD_GK}},
                                               {MAP_LAMBERT2, {MapLambert_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_LAMBERTFR, {MapLambertFr_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_EQUALARC, {MapEqualArc_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_POLYNOM, {MapPolynom_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_MERCATOR, {MapMercator_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_BMN, {MapBmn_PixelToWorld, KOORD_BMN}},
                                               {MAP_CH, {MapCh_PixelToWorld, KOORD_CH}},
                                               {MAP_AZYL, {MapAzyl_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_DD, {MapDd_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_GAUKRU6, {MapGk6_PixelToWorld, KOORD_GK6}},
                                               {MAP_UPS, {MapUps_PixelToWorld, KOORD_UPS}},
                                               {MAP_TM, {MapTm_PixelToWorld, KOORD_TM}},
                                               {MAP_PO_MILITARY, {MapTm_PixelToWorld, KOORD_TM}},
                                               {MAP_VAN_DER_GRINTEN, {MapVdg_PixelToWorld, KOORD_VDG}},
                                               {MAP_STEREOGR_NL, {MapRd_PixelToWorld, KOORD_RD}},
                                               {MAP_LAMBERTCC, {MapLambert_PixelToWorld, KOORD_GEODEZ}},
                                               {MAP_LUREF, {MapTm_PixelToWorld, KOORD_TM}},
                                               {MAP_WAGNER_IV, {MapWagnerIV_PixelToWorld, KOORD_GEODEZ}}};
    ASSERT_EQ(rows.size(), 20u);
    MapPolynomParams polynom{};
    polynom.order = 3;
    std::vector<MapParam> maps = {Map(MAP_DD, MapDdParams{10.0, 47.0, 1200.0, 1200.0}, DATUM_MGI),
                                  Map(MAP_POLYNOM, polynom, DATUM_MGI)};
    for (const Sheet& sheet : AllSheets())
        maps.push_back(sheet.map);
    for (const MapParam& map : maps) {
        const Row& row = rows.at(map.type);
        tagKOORD out{};
        EXPECT_EQ(row.pixelToWorld(&map, 100.0, 100.0, &out), KOORD_OK) << map.type;
        EXPECT_EQ(out.type, static_cast<std::uint32_t>(row.native)) << map.type;
        EXPECT_EQ(out.datum, map.type == MAP_WAGNER_IV ? 0u : map.datum) << map.type;
    }
}

TEST(Sheets, ThereAreTwoOfEachTypeThatHasAPlane) {
    std::map<std::uint32_t, int> count;
    for (const Sheet& sheet : AllSheets())
        ++count[sheet.map.type];
    for (std::uint32_t type = MAP_UTM; type < MAP_TYPE_COUNT; ++type) {
        if (type == MAP_DD || type == MAP_POLYNOM) continue;
        EXPECT_GE(count[type], 2) << "type " << type;
    }
}

}  // namespace
}  // namespace tessara::testing::map_kernel_sheets_test
