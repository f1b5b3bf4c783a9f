#include "grids/longitude_arc.h"

#include <gtest/gtest.h>

#include "areas/rect_extents.h"
#include "support/grids.h"
#include "support/host_map.h"
#include "support/lines.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {
namespace {

std::optional<LongitudeArc> ArcOf(const IRef<IMapCoordOperations>& map, const PixelRect& window,
                                  std::int32_t system = KOORD_GEODEZ) {
    Extremes extremes;
    EXPECT_TRUE(ExtentOfRect(map.Get(), window, DATUM_WGS84, system, &extremes));
    return FindLongitudeArc(MapPlane(map.Get()), window, extremes);
}

// Fifty metres a pixel. The pole lies at column 4000 and row 16000, below the window of 8000 by 6000 pixels,
// and the meridian 180 runs upward from there. The window's lower corners lie 4000 columns and 10000 rows off
// the pole: atan(4000 / 10000) is 21.80141 degrees.
IRef<IMapCoordOperations> MapBesideThePole() {
    return MapOf(Map(MAP_UPS, MapUpsParams{'N', 1800000.0, 2800000.0, 50.0, 50.0}));
}
constexpr PixelRect BESIDE_THE_POLE{0, 0, 8000, 6000};
constexpr double CORNER = 180.0 - 21.80141;

TEST(LongitudeArc, LeavesOutWhatTheWindowDoes) {
    const auto arc = ArcOf(MapBesideThePole(), BESIDE_THE_POLE);
    ASSERT_TRUE(arc);
    // Samples lie a 256th of the lower side apart: 0.18 degrees.
    EXPECT_LE(arc->west, CORNER);
    EXPECT_GE(arc->west, CORNER - 0.2);
    EXPECT_GE(arc->east, -CORNER);
    EXPECT_LE(arc->east, -CORNER + 0.2);
}

// 80 metres wide and 60 high, 500 km from the pole: the lower corners lie atan(40 / 499940) off the meridian
// 180, which is 0.00458422 degrees. Samples lie a 256th of the window apart, 3.6e-5 degrees.
TEST(LongitudeArc, LeavesOutNearlyAllOfTheEarthForASmallWindow) {
    const auto map = MapOf(Map(MAP_UPS, MapUpsParams{'N', 2000000.0 - 40.0, 2500000.0, 0.01, 0.01}));
    const auto arc = ArcOf(map, BESIDE_THE_POLE);
    ASSERT_TRUE(arc);
    constexpr double corner = 180.0 - 0.00458422;
    EXPECT_LE(arc->west, corner);
    EXPECT_GE(arc->west, corner - 5e-5);
    EXPECT_GE(arc->east, -corner);
    EXPECT_LE(arc->east, -corner + 5e-5);
}

TEST(LongitudeArc, OtherWindowsHaveNone) {
    const auto map = MapBesideThePole();
    EXPECT_FALSE(ArcOf(map, {0, 0, 3900, 6000})) << "on one side of the meridian";
    EXPECT_FALSE(ArcOf(map, {0, 0, 8000, 20000})) << "the pole is inside";
    EXPECT_FALSE(ArcOf(map, BESIDE_THE_POLE, KOORD_UPS)) << "no degrees";
    EXPECT_FALSE(ArcOf(DegreeMap(178.0, 10.0, 100.0), {0, 0, 400, 200})) << "178 to 182 degrees";
    EXPECT_FALSE(ArcOf(DegreeMap(-180.0, 90.0, 10.0), {0, 0, 3600, 1800})) << "the whole world";
}

Extremes BetweenLongitudes(double west, double east) {
    Extremes extremes;
    extremes.Start(CKoord(GeodezRecord(0.0, west)));
    extremes.Set(Compass::East, CKoord(GeodezRecord(0.0, east)));
    return extremes;
}

// Ten pixels a degree. A window of codes ends at -180 degrees where the map goes on to the west.
TEST(LongitudeArc, WhatLiesBeyondTheExtremesDoesntCount) {
    const auto map = DegreeMap(-300.0, 60.0, 10.0);
    EXPECT_FALSE(FindLongitudeArc(MapPlane(map.Get()), {0, 0, 4000, 600}, BetweenLongitudes(-180.0, 100.0)))
        << "all longitudes between the extremes are in the window";
}

TEST(LongitudeArc, AWindowWithoutPlacesHasNone) {
    const auto map = DegreeMap(-180.0, 60.0, 10.0);
    const Extremes extremes = BetweenLongitudes(-150.0, 150.0);
    EXPECT_FALSE(FindLongitudeArc(MapPlane(map.Get()), {0, -900, 3600, -400}, extremes)) << "beyond the pole";
    const IRef<IMapCoordOperations> silent(NewObject<FailingMap>(map, 0));
    EXPECT_FALSE(FindLongitudeArc(MapPlane(silent.Get()), {0, 0, 3600, 600}, extremes));
}

TEST(LongitudeArc, AGridHasTheMeridiansOfTheWindowOnly) {
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEODEZMIN, KOORD_GEOREF}) {
        const auto grid = GridOf(system, MapBesideThePole(), 8.0, 1.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 8000, 6000));
        std::vector<double> meridians;
        for (const auto& line : EastLinesOf(grid)) {
            tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
            ASSERT_EQ(KoordConvert(&line.front(), &degrees), KOORD_OK);
            meridians.push_back(std::round(Load<GeodezPayload>(degrees).longitude));
        }
        EXPECT_EQ(meridians, (std::vector<double>{160.0, 168.0, 176.0, -176.0, -168.0, -160.0})) << system;
    }
}

// All around the pole, 64 pieces would lie up to 20 pixels off a circle of 16000.
TEST(LongitudeArc, ParallelsAreRightToAQuarterOfAPixel) {
    const auto grid = GridOf(KOORD_GEODEZ, MapBesideThePole(), 8.0, 0.5);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 8000, 6000));
    const IRef<IArray> lines(CreateClassArray());
    ASSERT_TRUE(grid->GetNorthLinePixels(lines.Get()));
    // cs2cs from EPSG:32661 to EPSG:4326 of the window's closest and furthest place: 85.498685 and
    // 82.582533 degrees.
    ASSERT_EQ(lines->GetCount(), 5u);
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IArray> line = LineAt(lines, i);
        const auto at = [&](std::uint32_t k) {
            const IRef<IFloatPoint> point(line->GetAt(k));
            return Pixel{point->GetX() - 4000.0, point->GetY() - 16000.0};
        };
        const double radius = std::hypot(at(0).x, at(0).y);
        for (std::uint32_t k = 1; k < line->GetCount(); ++k) {
            const double middle = std::hypot((at(k - 1).x + at(k).x) / 2.0, (at(k - 1).y + at(k).y) / 2.0);
            EXPECT_NEAR(middle, radius, 0.36) << "a quarter on each axis";
        }
    }
}

}  // namespace
}  // namespace tessara::testing
