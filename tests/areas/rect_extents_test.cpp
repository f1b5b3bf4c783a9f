#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "areas/coordinate_area.h"
#include "areas/extremes.h"
#include "records/axis.h"
#include "records/compare_records.h"
#include "support/host_map.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/random.h"
#include "support/result_order.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "support/sheets.h"
#include "tessara/coordinate_checker.h"
#include "tessara/host/rect.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::DegreeMap;
using testing::EAST;
using testing::MapOf;
using testing::NORTH;
using testing::Pixel;
using testing::PixelOf;
using testing::Random;
using testing::SOUTH;
using testing::WEST;

IRef<IRect> RectOf(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return IRef<IRect>(NewObject<host::Rect>(left, top, right, bottom));
}

class RectExtentsTest : public testing::BalancedTest {
  protected:
    using Operation = bool (ICoordinateArea::*)(IMapCoordOperations*, IRect*, ICoord*);
    // In the order of the results.
    static constexpr Operation SINGLE[] = {
        &ICoordinateArea::GetMapRectNorth, &ICoordinateArea::GetMapRectEast,
        &ICoordinateArea::GetMapRectSouth, &ICoordinateArea::GetMapRectWest};

    bool Run(Operation operation, IMapCoordOperations* on, IRect* rect, ICoord* point) {
        return (area.Get()->*operation)(on, rect, point);
    }

    void Ask(std::int32_t system, std::int32_t datum = DATUM_WGS84) {
        for (IRef<ICoord>& result : results)
            result = EmptyCoord(datum, system);
    }
    bool Extremes(const IRef<IRect>& rect) {
        return area->GetMapRectExtremes(map.Get(), rect.Get(), results[NORTH].Get(), results[EAST].Get(),
                                        results[SOUTH].Get(), results[WEST].Get());
    }
    bool Extremes(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        return Extremes(RectOf(left, top, right, bottom));
    }
    UtmPayload Utm(int direction) { return PayloadOf<UtmPayload>(results[direction]); }
    GeodezPayload Degrees(int direction) { return PayloadOf<GeodezPayload>(results[direction]); }
    bool AnyResultHoldsPosition() {
        return std::any_of(std::begin(results), std::end(results),
                           [](const IRef<ICoord>& result) { return HoldsPosition(result); });
    }

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ICoord> results[4];
    IRef<IMapCoordOperations> map = DegreeMap(9.0, 50.0, 100.0);
};

// Ten metres a pixel, zone 32, over the border to zone 33 at 12 degrees east.
TEST_F(RectExtentsTest, AWindowOverAZoneBorderReachesIntoBothZones) {
    map = MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0}));
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 5000, 5000));
    // The top edge's northing, within zone 32: eastings from the left edge to the border.
    EXPECT_NEAR(Utm(NORTH).northing, 5365000.0, 1e-3);
    EXPECT_EQ(Utm(NORTH).zone, 32);
    EXPECT_GE(Utm(NORTH).easting, 695000.0 - 1e-3);
    // cs2cs from +proj=utm +zone=32 to +zone=33 of the corners 745000 5365000 and 745000 5315000; metres
    EXPECT_EQ(Utm(EAST).zone, 33);
    EXPECT_NEAR(Utm(EAST).easting, 300839.832, 2e-3);
    EXPECT_EQ(Utm(SOUTH).zone, 33);
    EXPECT_NEAR(Utm(SOUTH).northing, 5313367.995, 2e-3);
    EXPECT_NEAR(Utm(SOUTH).easting, 296941.865, 2e-3);
    EXPECT_EQ(Utm(WEST).zone, 32);
    EXPECT_NEAR(Utm(WEST).easting, 695000.0, 1e-3);
}

TEST_F(RectExtentsTest, TheRimReachesFurtherThanTheCorners) {
    // Degrees 9..15 east and 48..50 north, 100 pixels a degree. The northing of 50 north is greatest at the
    // border of the zones, in the middle of the top edge, that of 48 least at the central meridians, its
    // ends.
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    // cs2cs +proj=latlong to +proj=utm of 12 50 and of 9 48; metres
    EXPECT_NEAR(Utm(NORTH).northing, 5542944.019, 0.01);
    EXPECT_NEAR(Utm(SOUTH).northing, 5316300.224, 0.01);
    EXPECT_EQ(Utm(WEST).zone, 32);
    EXPECT_NEAR(Utm(WEST).easting, 500000.0, 0.01);
    EXPECT_EQ(Utm(EAST).zone, 33);
    EXPECT_NEAR(Utm(EAST).easting, 500000.0, 0.01);
}

TEST_F(RectExtentsTest, OnAConeTheTopMiddleReachesFurthestNorth) {
    // Fifty metres a pixel.
    map = MapOf(
        testing::WithReference(testing::Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.333333333333334}),
                               GeodezRecord(47.5, 13.333333333333334), 4000, 3000, 500000, 10.0));
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(0, 0, 8000, 6000));
    // cs2cs from +proj=lcc +lat_1=46 +lat_2=49 +lat_0=47.5 +lon_0=13.333333333333334 to +proj=latlong of the
    // middle of the top edge (0, 150000) and of the corners; degrees, a tenth of a pixel
    EXPECT_NEAR(Degrees(NORTH).latitude, 48.84933499, 5e-5);
    EXPECT_NEAR(Degrees(NORTH).longitude, 13.33333333, 1e-3);
    EXPECT_NEAR(Degrees(SOUTH).latitude, 46.12037886, 1e-6);
    EXPECT_NEAR(Degrees(EAST).longitude, 16.05747961, 1e-6);
    EXPECT_NEAR(Degrees(WEST).longitude, 10.60918705, 1e-6);
}

TEST_F(RectExtentsTest, SidesMayBeSwapped) {
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    const UtmPayload north = Utm(NORTH), west = Utm(WEST);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(600, 200, 0, 0));
    EXPECT_EQ(Utm(NORTH).northing, north.northing);
    EXPECT_EQ(Utm(WEST).easting, west.easting);
}

TEST_F(RectExtentsTest, EachDirectionAloneIsTheSame) {
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    for (int i = 0; i < 4; ++i) {
        const IRef<ICoord> point = EmptyCoord(2, KOORD_UTM);
        ASSERT_TRUE(Run(SINGLE[i], map.Get(), RectOf(0, 0, 600, 200).Get(), point.Get()));
        EXPECT_EQ(PayloadOf<UtmPayload>(point).northing, Utm(i).northing);
        EXPECT_EQ(PayloadOf<UtmPayload>(point).easting, Utm(i).easting);
        EXPECT_EQ(PayloadOf<UtmPayload>(point).zone, Utm(i).zone);
    }
}

TEST_F(RectExtentsTest, ThePlainRectangleIsTheSame) {
    const IRef<ICoordinateAreaInternal> inner(area);
    const PixelRect rect{600, 200, 0, 0};
    Ask(KOORD_GEODEZ);
    ICoord* const point = results[0].Get();
    ASSERT_TRUE(inner->GetRectExtremes(map.Get(), &rect, results[NORTH].Get(), results[EAST].Get(),
                                       results[SOUTH].Get(), results[WEST].Get()));
    // Degrees, some units of the last place.
    EXPECT_NEAR(Degrees(NORTH).latitude, 50.0, 1e-12);
    EXPECT_NEAR(Degrees(EAST).longitude, 15.0, 1e-12);
    EXPECT_NEAR(Degrees(SOUTH).latitude, 48.0, 1e-12);
    EXPECT_NEAR(Degrees(WEST).longitude, 9.0, 1e-12);
    EXPECT_FALSE(inner->GetRectExtremes(map.Get(), nullptr, point, point, point, point));
}

TEST_F(RectExtentsTest, PixelsAreTheCorners) {
    for (const std::int32_t system : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        Ask(system, 3);
        ASSERT_TRUE(Extremes(600, 10, -20, 200));
        EXPECT_EQ(PixelOf(results[NORTH]).x, -20.0);
        EXPECT_EQ(PixelOf(results[NORTH]).y, 10.0);
        EXPECT_EQ(PixelOf(results[EAST]).x, 600.0);
        EXPECT_EQ(PixelOf(results[EAST]).y, 10.0);
        EXPECT_EQ(PixelOf(results[SOUTH]).x, 600.0);
        EXPECT_EQ(PixelOf(results[SOUTH]).y, 200.0);
        EXPECT_EQ(PixelOf(results[WEST]).x, -20.0);
        EXPECT_EQ(PixelOf(results[WEST]).y, 10.0);
        EXPECT_EQ(KoordOf(results[WEST]).datum, 3u);
    }
}

TEST_F(RectExtentsTest, PixelsNeedNothingOfTheMap) {
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    Ask(KOORD_LONGPIXEL);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    EXPECT_EQ(PixelOf(results[EAST]).x, 600.0);
    EXPECT_EQ(PixelOf(results[SOUTH]).y, 200.0);
}

TEST_F(RectExtentsTest, ALimitOfTheSystemInTheWindowIsItsExtreme) {
    // All of the earth and more, ten pixels a degree.
    map = DegreeMap(-200.0, 100.0, 10.0);
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(0, 0, 4000, 2000));
    EXPECT_EQ(Degrees(NORTH).latitude, 90.0);
    EXPECT_EQ(Degrees(SOUTH).latitude, -90.0);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 4000, 2000));
    // The northing of 84 north and 80 south on a central meridian, scale 0.9996.
    // cs2cs +proj=latlong to +proj=utm of 3 84 (zone 31) and, south, of 3 -80; metres
    EXPECT_NEAR(Utm(NORTH).northing, 9328093.831, 0.01);
    EXPECT_EQ(Utm(NORTH).hemisphere, 'N');
    EXPECT_NEAR(Utm(SOUTH).northing, 1118414.184, 0.01);
    EXPECT_EQ(Utm(SOUTH).hemisphere, 'S');
    // The outermost zones are widest at the equator: cs2cs +proj=latlong to +proj=utm of -180 0 in zone 1 and
    // of 180 0 in zone 60; metres
    EXPECT_EQ(Utm(EAST).zone, 60);
    EXPECT_NEAR(Utm(EAST).easting, 833978.557, 0.01);
    EXPECT_EQ(Utm(WEST).zone, 1);
    EXPECT_NEAR(Utm(WEST).easting, 166021.443, 0.01);
}

TEST_F(RectExtentsTest, TheLimitOfTheSystemCountsInTheExtremesOwnZone) {
    // Degrees 8..10 east and 82.73..84.73 north, where UTM ends at 84: its own northernmost place, 3 degrees
    // east, lies elsewhere. The edge of the system is found to half a pixel, 5 km, but its limit exactly.
    map = DegreeMap(8.0, 84.73, 10.0);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 20, 20));
    EXPECT_EQ(Utm(NORTH).zone, 32);
    EXPECT_EQ(Utm(NORTH).easting, 500000.0);
    EXPECT_NEAR(Utm(NORTH).northing, 9328093.831, 0.01);  // cs2cs of 9 84, see above
}

TEST_F(RectExtentsTest, WhereTheSystemsEdgeEndsAmidTheWindowItReachesFurthest) {
    // Degrees 8..10 east and 44.8..46 north on Bessel's ellipsoid. BMN ends at 8.8333 east, 45 north; that
    // edge lies further west the further south it is.
    map = MapOf(testing::Map(MAP_DD, MapDdParams{8.0, 46.0, 100.0, 100.0}, testing::DATUM_MGI));
    Ask(KOORD_BMN, testing::DATUM_MGI);
    ASSERT_TRUE(Extremes(0, 0, 200, 120));
    // cs2cs from +proj=latlong +ellps=bessel to +proj=tmerc +lon_0=10.3333333333333333 +x_0=150000 +y_0=-5e6
    // of 8.833333333333334 45; metres
    EXPECT_EQ(PayloadOf<BmnPayload>(results[WEST]).meridian, 28);
    EXPECT_NEAR(PayloadOf<BmnPayload>(results[WEST]).easting, 31744.039, 0.01);
}

TEST_F(RectExtentsTest, OverSeveralZonesEachBorderCounts) {
    // Degrees 3..27 east and 59..60 north: the corners and the middle of the top edge are on central
    // meridians, where its northing is least.
    map = DegreeMap(3.0, 60.0, 20.0);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 480, 20));
    // cs2cs +proj=latlong to +proj=utm of 6 60: 6655205.4836 metres, 3.8 km more than on the central
    // meridian; the borders are found to half a pixel, which counts 70 m.
    EXPECT_NEAR(Utm(NORTH).northing, 6655205.484, 70.0);
}

TEST_F(RectExtentsTest, TheMeridian180AmidTheWindowIsReachedFromBothSides) {
    // 250 metres a pixel in UPS, from 300 to 800 km beyond the pole: there column 2010 is the meridian 180.
    map = MapOf(testing::Map(MAP_UPS, MapUpsParams{'N', 1497500.0, 2800000.0, 250.0, 250.0}));
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEODEZMIN}) {
        Ask(system);
        ASSERT_TRUE(Extremes(0, 0, 4000, 2000));
        for (const auto& [direction, longitude] : {std::pair{EAST, 180.0}, {WEST, -180.0}}) {
            ASSERT_TRUE(results[direction]->SetReference(ReferenceOf(2, KOORD_GEODEZ).Get()));
            EXPECT_NEAR(Degrees(direction).longitude, longitude, 1e-9);
        }
    }
}

TEST_F(RectExtentsTest, ASideIsWalkedOnBothSidesOfGreenwich) {
    // Four kilometres a pixel in UPS. The top edge is nearest to the pole on the meridian of Greenwich, 500
    // km away.
    map = MapOf(testing::Map(MAP_UPS, MapUpsParams{'N', 350000.0, 1500000.0, 4000.0, 4000.0}));
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEODEZMIN}) {
        Ask(system);
        ASSERT_TRUE(Extremes(0, 0, 500, 450));
        ASSERT_TRUE(results[NORTH]->SetReference(ReferenceOf(2, KOORD_GEODEZ).Get()));
        // cs2cs from +proj=stere +lat_0=90 +k=0.994 +x_0=2000000 +y_0=2000000 to +proj=latlong of 2000000
        // 1500000. The meridian is found to half a pixel, 2 km, which is 2^2 / (2 500) km further south.
        EXPECT_NEAR(Degrees(NORTH).latitude, 85.49868478, 4e-5) << system;
    }
}

// A cone whose northern end is the pole, some rows above the middle of the window's top edge. The points of
// the edge are sixteen pixels apart.
TEST_F(RectExtentsTest, AnEdgeBesideThePoleIsFollowedToAQuarterOfAPixel) {
    // Whatever the number of the pole's column is.
    for (std::int32_t column = -480; column <= 0; column += 40) {
        map = MapOf(testing::WithReference(testing::Map(MAP_LAMBERT2, MapLambert2Params{60.0, 80.0, 90.0}),
                                           GeodezRecord(80.0, 90.0), column, 0, 5000000, 10.0));
        const Pixel pole = testing::PixelOn(map, CKoord(GeodezRecord(90.0, 90.0)));
        const auto latitudeBelow = [&](double rows) {
            const IRef<ICoord> coord = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);
            EXPECT_TRUE(map->FloatPixelToCoord(pole.x, std::floor(pole.y) + rows, coord.Get()));
            return PayloadOf<GeodezPayload>(coord).latitude;
        };
        const auto top = static_cast<std::int32_t>(std::floor(pole.y)) + 3;
        const double quarter = (latitudeBelow(3.0) - latitudeBelow(4.0)) / 4.0;
        Ask(KOORD_GEODEZ);
        ASSERT_TRUE(Extremes(column - 493, top, column + 507, top + 600));
        EXPECT_NEAR(Degrees(NORTH).latitude, latitudeBelow(3.0), quarter) << column;
    }
}

// Degrees 90..346 east and 50..60 north, 100 pixels a degree. The samples of the edges are four degrees
// apart, and the strip around 180 lies between those at 178 and 182.
TEST_F(RectExtentsTest, AZoneBetweenTwoSamplesCounts) {
    map = DegreeMap(90.0, 60.0, 100.0);
    Ask(KOORD_GK);
    ASSERT_TRUE(Extremes(0, 0, 25600, 1000));
    // cs2cs from +proj=latlong to +proj=tmerc +lon_0=180 +x_0=500000 of 181.5 50, where the last strip is
    // widest; the border is found to half a pixel, 358 metres.
    EXPECT_NEAR(PayloadOf<GkPayload>(results[EAST]).easting, 60607541.510, 358.0);
}

TEST_F(RectExtentsTest, CornersOffTheSystemMoveInward) {
    // CH ends 600 km from its origin; a degree map of Europe has all corners outside.
    map = DegreeMap(-10.0, 60.0, 10.0);
    Ask(KOORD_CH, 7);
    ASSERT_TRUE(Extremes(0, 0, 400, 250));
    EXPECT_EQ(PayloadOf<GridPayload>(results[NORTH]).northing, 600000.0);
    EXPECT_EQ(PayloadOf<GridPayload>(results[EAST]).easting, 1500000.0);
    EXPECT_EQ(PayloadOf<GridPayload>(results[SOUTH]).northing, -300000.0);
    EXPECT_EQ(PayloadOf<GridPayload>(results[WEST]).easting, -200000.0);
    for (const IRef<ICoord>& result : results) {
        double x = 0.0, y = 0.0;
        ASSERT_TRUE(map->CoordToFloatPixel(result.Get(), &x, &y));
        EXPECT_GE(x, 0.0);
        EXPECT_LE(x, 400.0);
        EXPECT_GE(y, 0.0);
        EXPECT_LE(y, 250.0);
    }
}

// A sheet of which only a square around pixel (0, 0) can be shown.
class SquareMap : public testing::HostMap {
  public:
    explicit SquareMap(double halfSide, IRef<IMapCoordOperations> map = DegreeMap(9.0, 50.0, 100.0))
        : HostMap(std::move(map)), halfSide_(halfSide) {}

    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        return IsShown(x, y) && HostMap::FloatPixelToCoord(x, y, out);
    }
    bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) override {
        return IsShown(x, y) && HostMap::LongPixelToCoord(x, y, out);
    }
    bool PixelCoordToCoord(ICoord*, ICoord*) override { return false; }
    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        return HostMap::CoordToFloatPixel(in, x, y) && IsShown(*x, *y);
    }
    bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) override {
        return HostMap::CoordToLongPixel(in, x, y) && IsShown(*x, *y);
    }

  protected:
    ~SquareMap() = default;

  private:
    [[nodiscard]] bool IsShown(double x, double y) const {
        return std::fabs(x) <= halfSide_ && std::fabs(y) <= halfSide_;
    }

    double halfSide_;
};

TEST_F(RectExtentsTest, WithoutAnyCornerTheMovedPointsAreTheExtremes) {
    // From (-400, -400) a quarter of the way to the centre is (-300, -300), half of it (-200, -200). Where
    // only the centre itself is left, the narrower window's corner (-200, -200) moves to (-150, -150). The
    // fourth and last window's is (-25, -25), a quarter of the way (-19, -19) and half of it (-13, -13).
    const double reaches[][2] = {{399.0, 300.0}, {300.0, 300.0}, {299.0, 200.0}, {200.0, 200.0},
                                 {199.0, 150.0}, {19.0, 19.0},   {12.0, 0.0}};
    for (const auto& [halfSide, moved] : reaches) {
        map = IRef<IMapCoordOperations>(NewObject<SquareMap>(halfSide));
        Ask(KOORD_GEODEZ);
        ASSERT_TRUE(Extremes(-400, -400, 400, 400)) << halfSide;
        const double reach = moved / 100.0;  // degrees
        EXPECT_NEAR(Degrees(NORTH).latitude, 50.0 + reach, 1e-12) << halfSide;
        EXPECT_NEAR(Degrees(EAST).longitude, 9.0 + reach, 1e-12) << halfSide;
        EXPECT_NEAR(Degrees(SOUTH).latitude, 50.0 - reach, 1e-12) << halfSide;
        EXPECT_NEAR(Degrees(WEST).longitude, 9.0 - reach, 1e-12) << halfSide;
    }
}

// A window of three by three pixels has no narrower one.
TEST_F(RectExtentsTest, AWindowTooSmallToBeNarrowedHasThePixelThatIsLeft) {
    map = IRef<IMapCoordOperations>(NewObject<SquareMap>(0.5));
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(-1, -1, 1, 1));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Degrees(i).latitude, 50.0);
        EXPECT_EQ(Degrees(i).longitude, 9.0);
    }
}

// Shows a square around latitude and longitude 0, and finds its pixels 10 degrees further north than it shows
// them.
class DisplacedMap : public SquareMap {
  public:
    DisplacedMap() : SquareMap(5.0, DegreeMap(0.0, 0.0, 100.0)) {}

    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        return SquareMap::FloatPixelToCoord(x, y, out) && IRef<ICoordInternal>(out)->ShiftNorth(10.0);
    }

  protected:
    ~DisplacedMap() = default;
};

// No other pixel that is tried lies in the square.
TEST_F(RectExtentsTest, TheDefaultPositionCountsOnlyWhereBothOfItsValuesAreShown) {
    const IRef<IRect> window = RectOf(-4000, -4000, 6000, 6000);
    Ask(KOORD_GEODEZ);
    map = IRef<IMapCoordOperations>(NewObject<SquareMap>(5.0, DegreeMap(0.0, 0.0, 100.0)));
    ASSERT_TRUE(Extremes(window));
    EXPECT_EQ(Degrees(NORTH).latitude, 0.0);
    EXPECT_EQ(Degrees(EAST).longitude, 0.0);
    Ask(KOORD_GEODEZ);
    map = IRef<IMapCoordOperations>(NewObject<DisplacedMap>());
    EXPECT_FALSE(Extremes(window));
    EXPECT_FALSE(AnyResultHoldsPosition());
}

TEST_F(RectExtentsTest, NothingValidHasNoExtremes) {
    Ask(KOORD_UTM);
    map = DegreeMap(0.0, 89.0, 100.0);
    EXPECT_FALSE(Extremes(0, 0, 200, 100)) << "north of UTM";
    for (const std::int32_t system : {KOORD_ECEF, KOORD_TM}) {
        Ask(system);
        map = DegreeMap(9.0, 50.0, 100.0);
        EXPECT_FALSE(Extremes(0, 0, 600, 200));
    }
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    Ask(KOORD_GEODEZ);
    EXPECT_FALSE(Extremes(0, 0, 600, 200)) << "an empty map";
    EXPECT_FALSE(AnyResultHoldsPosition());
}

TEST_F(RectExtentsTest, ResultsMustShareTheirReference) {
    for (int odd = 0; odd < 4; ++odd) {
        for (const IRef<ICoord>& other : {EmptyCoord(3, KOORD_UTM), EmptyCoord(2, KOORD_GK)}) {
            Ask(KOORD_UTM);
            results[odd] = other;
            EXPECT_FALSE(Extremes(0, 0, 600, 200));
            EXPECT_FALSE(AnyResultHoldsPosition());
        }
    }
}

TEST_F(RectExtentsTest, TakesObjectsFreshFromTheirCreation) {
    for (const Operation operation : SINGLE) {
        const auto degrees = [] {
            return CreateClassCoord();  // GEODEZ on WGS84
        };
        EXPECT_TRUE(Run(operation, map.Get(), NewObject<host::Rect>(0, 0, 600, 200), degrees()));
        EXPECT_FALSE(
            Run(operation, CreateClassMapCoordOperations(), RectOf(0, 0, 600, 200).Get(), degrees()));
    }
    ICoord* const all = CreateClassCoord();
    EXPECT_TRUE(
        area->GetMapRectExtremes(map.Get(), NewObject<host::Rect>(0, 0, 600, 200), all, all, all, all));
}

TEST_F(RectExtentsTest, OneResultForAllDirectionsHoldsTheLast) {
    const IRef<ICoord> all = EmptyCoord(2, KOORD_GEODEZ);
    ASSERT_TRUE(area->GetMapRectExtremes(map.Get(), RectOf(0, 0, 600, 200).Get(), all.Get(), all.Get(),
                                         all.Get(), all.Get()));
    EXPECT_NEAR(PayloadOf<GeodezPayload>(all).longitude, 9.0, 1e-12) << "the west extreme";
}

TEST_F(RectExtentsTest, NullAndForeignObjectsFail) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<IRect> rect = RectOf(0, 0, 600, 200);
    Ask(KOORD_UTM);
    ICoord* const point = results[0].Get();
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const mapIn = reinterpret_cast<IMapCoordOperations*>(other);
        auto* const rectIn = reinterpret_cast<IRect*>(other);
        auto* const pointIn = reinterpret_cast<ICoord*>(other);
        for (int i = 0; i < 4; ++i) {
            EXPECT_FALSE(Run(SINGLE[i], mapIn, rect.Get(), point));
            EXPECT_FALSE(Run(SINGLE[i], map.Get(), rectIn, point));
            EXPECT_FALSE(Run(SINGLE[i], map.Get(), rect.Get(), pointIn));
            ICoord* four[] = {results[0].Get(), results[1].Get(), results[2].Get(), results[3].Get()};
            four[i] = pointIn;
            EXPECT_FALSE(area->GetMapRectExtremes(map.Get(), rect.Get(), four[0], four[1], four[2], four[3]));
        }
        EXPECT_FALSE(area->GetMapRectExtremes(mapIn, rect.Get(), point, point, point, point));
        EXPECT_FALSE(area->GetMapRectExtremes(map.Get(), rectIn, point, point, point, point));
    }
    EXPECT_FALSE(AnyResultHoldsPosition());
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(rect), 1u);
    EXPECT_EQ(CountOf(map), 1u);
}

TEST_F(RectExtentsTest, RectanglesOfAllTheNumbersEnd) {
    constexpr std::int32_t LOW = INT32_MIN, HIGH = INT32_MAX;
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_UTM, KOORD_FLOATPIXEL, KOORD_CH}) {
        for (const auto& rect : {RectOf(LOW, LOW, HIGH, HIGH), RectOf(HIGH, HIGH, HIGH, HIGH),
                                 RectOf(LOW, LOW, LOW, LOW), RectOf(300, LOW, 301, HIGH)}) {
            Ask(system);
            Extremes(rect);
        }
    }
}

TEST_F(RectExtentsTest, AWindowOfOnePixelIsThatPixel) {
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(100, 100, 100, 100));
    for (int i = 0; i < 4; ++i) {
        // Degrees, some units of the last place.
        EXPECT_NEAR(Degrees(i).latitude, 49.0, 1e-12);
        EXPECT_NEAR(Degrees(i).longitude, 10.0, 1e-12);
    }
}

// How many windows each system gets; 27 make 513 in all. They take some seconds, so several tests share them.
int WindowsPerSystem() {
    return static_cast<int>(testing::Setting("TESSARA_EXTENT_WINDOWS", testing::IS_SANITIZED ? 3 : 27));
}
constexpr int SHARES = 3;
constexpr int MOST_TRIES = 1000;

// Windows of many sheets, compared with a dense sample of their places. ECEF and TM have no valid positions.
class WindowsInASystem : public RectExtentsTest,
                         public ::testing::WithParamInterface<std::tuple<std::int32_t, int>> {
  protected:
    [[nodiscard]] static std::int32_t System() { return std::get<0>(GetParam()); }
    [[nodiscard]] static int Share() { return std::get<1>(GetParam()); }

    // A random window of a random sheet on which the system seems to have positions; asks for its extremes.
    bool ChooseWindow(Random* random) {
        const auto count = static_cast<std::int32_t>(sheets.size());
        const testing::Sheet& sheet = sheets[static_cast<std::size_t>(random->Below(count))];
        window.left = random->Below(sheet.width * 3 / 4);
        window.top = random->Below(sheet.height * 3 / 4);
        window.right = window.left + 20 + random->Below(sheet.width / 4);
        window.bottom = window.top + 20 + random->Below(sheet.height / 4);
        map = MapOf(sheet.map);
        // The map's datum or another one.
        const auto datum =
            random->Below(2) == 0 ? static_cast<std::int32_t>(sheet.map.datum) : std::int32_t{DATUM_WGS84};
        Ask(System(), datum);
        probe = EmptyCoord(datum, System());
        name = sheet.name + " on datum " + std::to_string(datum) + ": " + std::to_string(window.left) + ' ' +
               std::to_string(window.top) + ' ' + std::to_string(window.right) + ' ' +
               std::to_string(window.bottom);
        return SeemsValid();
    }

    // The column or row at a share of the window.
    [[nodiscard]] double ColumnAt(double share) const { return Between(window.left, window.right, share); }
    [[nodiscard]] double RowAt(double share) const { return Between(window.top, window.bottom, share); }
    [[nodiscard]] static double Between(double first, double last, double share) {
        return first + (last - first) * share;
    }

    bool PositionAt(const Pixel& pixel, CKoord* koord) {
        if (!map->FloatPixelToCoord(pixel.x, pixel.y, probe.Get())) return false;
        *koord = KoordOf(probe);
        return true;
    }
    bool IsValid(const CKoord& koord) { return checker->CheckInSystemArea(CoordOf(koord).Get()); }

    // Whether one of nine places has a valid position: a window without any takes a long search.
    bool SeemsValid() {
        CKoord koord;
        for (const double x : {0.0, 0.5, 1.0}) {
            for (const double y : {0.0, 0.5, 1.0}) {
                if (PositionAt({ColumnAt(x), RowAt(y)}, &koord) && IsValid(koord)) return true;
            }
        }
        return false;
    }

    bool IsBeyond(Compass direction, const CKoord& koord) {
        const std::int32_t outward = SignOf(direction) > 0.0 ? 1 : -1;
        const CKoord extreme = KoordOf(results[static_cast<int>(direction)]);
        return CompareRecords(AxisOf(direction), koord, extreme) == outward;
    }

    // Whether the place and also all pixels around it are valid and lie further out than the extreme, which
    // then falls short by more than one pixel's worth.
    bool IsMissed(Compass direction, const Pixel& place, const CKoord& koord) {
        if (!IsBeyond(direction, koord) || !IsValid(koord)) return false;
        const auto [x, y] = place;
        const Pixel neighbours[] = {{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}};
        return std::all_of(std::begin(neighbours), std::end(neighbours), [&](const Pixel& neighbour) {
            CKoord its;
            return PositionAt(neighbour, &its) && IsValid(its) && IsBeyond(direction, its);
        });
    }

    // How far outside the window an extreme may lie, in pixels: a limit of the system counts as inside by its
    // rounded pixel, and UTMREF has whole metres, each a pixel at most in two directions.
    [[nodiscard]] double Margin() const { return System() == KOORD_UTMREF ? 2.0 : 0.51; }

    void ExpectInside() {
        const double margin = Margin();
        for (const Compass direction : DIRECTIONS) {
            const Pixel at = testing::PixelOn(map, KoordOf(results[static_cast<int>(direction)]));
            EXPECT_TRUE(at.x >= window.left - margin && at.x <= window.right + margin &&
                        at.y >= window.top - margin && at.y <= window.bottom + margin)
                << name << ", " << static_cast<int>(direction) << ": " << at.x << ' ' << at.y;
        }
    }

    void ExpectNothingMissed() {
        for (int i = 0; i < SAMPLES; ++i) {
            for (int j = 0; j < SAMPLES; ++j) {
                const Pixel place{ColumnAt(i / (SAMPLES - 1.0)), RowAt(j / (SAMPLES - 1.0))};
                CKoord koord;
                if (!PositionAt(place, &koord)) continue;
                for (const Compass direction : DIRECTIONS) {
                    EXPECT_FALSE(IsMissed(direction, place, koord))
                        << name << ", " << static_cast<int>(direction) << " at " << place.x << ' ' << place.y;
                }
            }
        }
    }

    static constexpr int SAMPLES = testing::Samples(200);  // per side

    const std::vector<testing::Sheet> sheets = testing::AllSheets();
    PixelRect window{};
    std::string name;  // of the window, for messages
    IRef<ICoord> probe;
    IRef<ICoordinateChecker> checker{CreateClassCoordinateChecker()};
};

TEST_P(WindowsInASystem, NoPlaceLiesBeyondAndTheExtremesLieInTheWindow) {
    Random random(41 + static_cast<std::uint64_t>(System() + 100 * Share()));
    const int wanted = (WindowsPerSystem() + SHARES - 1) / SHARES;
    int windows = 0;
    for (int tries = 0; windows < wanted && tries < MOST_TRIES; ++tries) {
        if (!ChooseWindow(&random)) continue;
        ASSERT_TRUE(Extremes(window.left, window.top, window.right, window.bottom)) << name;
        ++windows;
        // GEOREF has whole hundredths of a minute, 18 m: some pixels.
        if (System() != KOORD_GEOREF) ExpectInside();
        ExpectNothingMissed();
    }
    EXPECT_EQ(windows, wanted);
}

INSTANTIATE_TEST_SUITE_P(
    RectExtents, WindowsInASystem,
    ::testing::Combine(::testing::Values(KOORD_UTM, KOORD_UTMREF, KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEOREF,
                                         KOORD_GK, KOORD_BMN, KOORD_OEM, KOORD_CH, KOORD_GEODEZMIN, KOORD_GK6,
                                         KOORD_UPS, KOORD_PO_MILITARY, KOORD_VDG, KOORD_GKAT, KOORD_BNG,
                                         KOORD_ING, KOORD_RD, KOORD_LUREF),
                       ::testing::Range(0, SHARES)));

}  // namespace
}  // namespace tessara
