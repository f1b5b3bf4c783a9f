// Limits of a system whose pixels lie in a window that doesn't show them, since projections repeat.
#include "areas/leads_back.h"

#include <gtest/gtest.h>

#include "areas/coordinate_area.h"
#include "support/grids.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/result_order.h"
#include "tessara/host/rect.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara::testing {
namespace {

// Ten metres a pixel, with Greenwich in columns around 5900.
MapParam LondonSheet() {
    return Map(MAP_UTM, MapUtmParams{'N', 30, 650000.0, 5720000.0, 10.0, 10.0});
}

// A kilometre a pixel, the pole in the middle of 2000 by 2000 pixels.
MapParam PolarSheet(char hemisphere) {
    return Map(MAP_UPS, MapUpsParams{hemisphere, 1000000.0, 3000000.0, 1000.0, 1000.0});
}

class BelievedLimits : public BalancedTest {
  protected:
    bool Ask(std::int32_t system, const PixelRect& rect, std::int32_t datum = DATUM_WGS84) {
        for (IRef<ICoord>& result : results)
            result = EmptyCoord(datum, system);
        const IRef<IRect> window(NewObject<host::Rect>(rect.left, rect.top, rect.right, rect.bottom));
        return area->GetMapRectExtremes(map.Get(), window.Get(), results[NORTH].Get(), results[EAST].Get(),
                                        results[SOUTH].Get(), results[WEST].Get());
    }
    // In degrees, whatever the results' system is.
    GeodezPayload Degrees(int direction) {
        EXPECT_TRUE(results[direction]->SetReference(
            ReferenceOf(static_cast<std::int32_t>(KoordOf(results[direction]).datum), KOORD_GEODEZ).Get()));
        return PayloadOf<GeodezPayload>(results[direction]);
    }
    IRef<ICoordinateGrid> Grid(std::int32_t system, const PixelRect& rect, double eastStep, double northStep,
                               std::int32_t datum = DATUM_WGS84) {
        IRef<ICoordinateGrid> grid = GridOf(system, map, eastStep, northStep, datum);
        EXPECT_TRUE(SetWindow(grid, rect.left, rect.top, rect.right, rect.bottom));
        return grid;
    }

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ICoord> results[4];
    IRef<IMapCoordOperations> map = MapOf(LondonSheet());
};

constexpr PixelRect LONDON{0, 0, 10000, 4000};

TEST_F(BelievedLimits, DegreesOverGreenwichEndAtTheWindow) {
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_GEODEZMIN, KOORD_GEOGRAD}) {
        ASSERT_TRUE(Ask(system, LONDON));
        // cs2cs from +proj=utm +zone=30 to +proj=latlong of the corners 750000 5720000 and 650000 5680000;
        // degrees, a tenth of a pixel
        EXPECT_NEAR(Degrees(EAST).longitude, 0.608152511, 1e-5) << system;
        EXPECT_NEAR(Degrees(WEST).longitude, -0.850567933, 1e-5) << system;
    }
}

TEST_F(BelievedLimits, AGridOverGreenwichHasTheLinesOfTheWindow) {
    const auto grid = Grid(KOORD_GEODEZ, LONDON, 0.5, 0.1);
    const auto eastLines = EastLinesOf(grid);
    ASSERT_EQ(eastLines.size(), 3u) << "-0.5, 0, 0.5";
    EXPECT_EQ(Load<GeodezPayload>(eastLines.front().front()).longitude, -0.5);
    const auto northLines = NorthLinesOf(grid);
    ASSERT_EQ(northLines.size(), 4u) << "51.3 to 51.6";
    const Pixel from = PixelOn(map, northLines.front().front());
    const Pixel to = PixelOn(map, northLines.front().back());
    EXPECT_GT(to.x - from.x, 10000.0) << "from the west of the window to the east";
}

TEST_F(BelievedLimits, AGridOnATransverseMercatorMapHasTheLinesOfTheWindow) {
    // The parameters of Britain's grid; about -0.55 to 0.92 degrees east.
    map = MapOf(Map(
        MAP_TM, MapTmParams{-2.0, 49.0, 400000.0, -100000.0, 0.9996012717, 500000.0, 200000.0, 10.0, 10.0}));
    EXPECT_EQ(EastLinesOf(Grid(KOORD_GEODEZ, LONDON, 0.5, 0.5)).size(), 3u) << "-0.5, 0, 0.5";
}

TEST_F(BelievedLimits, TheOtherPoleIsNotInTheWindow) {
    map = MapOf(PolarSheet('N'));
    constexpr PixelRect WHOLE{0, 0, 2000, 2000};
    ASSERT_TRUE(Ask(KOORD_GEODEZ, WHOLE));
    // cs2cs from +proj=ups to +proj=latlong of the corner 1000000 3000000; degrees, some millimetres
    EXPECT_NEAR(Degrees(SOUTH).latitude, 77.312079191, 1e-7);
    EXPECT_EQ(Degrees(NORTH).latitude, 90.0);
    EXPECT_EQ(NorthLinesOf(Grid(KOORD_GEODEZ, WHOLE, 30.0, 5.0)).size(), 3u) << "80, 85, 90";
    ASSERT_TRUE(Ask(KOORD_UTM, WHOLE));
    EXPECT_NEAR(Degrees(SOUTH).latitude, 77.312079191, 1e-7);
}

TEST_F(BelievedLimits, TheNorthPoleIsNotOnASouthernMap) {
    map = MapOf(PolarSheet('S'));
    constexpr PixelRect WHOLE{0, 0, 2000, 2000};
    ASSERT_TRUE(Ask(KOORD_GEODEZ, WHOLE));
    EXPECT_EQ(Degrees(SOUTH).latitude, -90.0);
    EXPECT_NEAR(Degrees(NORTH).latitude, -77.312079191, 1e-7);  // cs2cs, see above
}

// No southern position of UPS is valid.
TEST_F(BelievedLimits, UpsHasNoWindowOnASouthernMap) {
    map = MapOf(PolarSheet('S'));
    for (const PixelRect& rect :
         {PixelRect{0, 0, 2000, 2000}, {900, 900, 1100, 1100}, {1000, 1000, 1001, 1001}}) {
        EXPECT_FALSE(Ask(KOORD_UPS, rect)) << rect.left;
        EXPECT_FALSE(
            SetWindow(GridOf(KOORD_UPS, map, 1e5, 1e5), rect.left, rect.top, rect.right, rect.bottom))
            << rect.left;
    }
    map = MapOf(PolarSheet('N'));
    EXPECT_TRUE(Ask(KOORD_UPS, {0, 0, 2000, 2000}));
}

TEST_F(BelievedLimits, TheLastStripIsNotInAWindowEastOfTheDateLine) {
    // Longitudes -179.07 to -177.68, over the border of the strips -60 and -59 at -178.5.
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 1, 350000.0, 5500000.0, 10.0, 10.0}));
    ASSERT_TRUE(Ask(KOORD_GK, LONDON));
    EXPECT_EQ(std::trunc(PayloadOf<GkPayload>(results[EAST]).easting / 1e6), -59.0);
    EXPECT_EQ(std::trunc(PayloadOf<GkPayload>(results[WEST]).easting / 1e6), -60.0);
    const IRef<IArray> lines(CreateClassArray());
    EXPECT_TRUE(Grid(KOORD_GK, LONDON, 10000.0, 10000.0)->GetEastLines(lines.Get()));
    // A hundred kilometres, a border and the outer ends.
    EXPECT_GE(lines->GetCount(), 10u);
    EXPECT_LE(lines->GetCount(), 13u);
}

TEST_F(BelievedLimits, ThePoleInTheWindowCountsBesideItsRightEdge) {
    map = MapOf(WithReference(Map(MAP_AZYL, MapAzylParams{30.0, {}}), GeodezRecord(30.0, 165.0), 0, 0,
                              2583570, 10.0));
    // From 30 degrees north to the pole geod +ellps=WGS84 has 6681852 metres: row -25862.9 of 258.357 metres.
    ASSERT_TRUE(Ask(KOORD_GEODEZ, {-600, -26862, 200, -25562}));
    EXPECT_EQ(Degrees(NORTH).latitude, 90.0);
}

TEST_F(BelievedLimits, ALimitOnAnyEdgeOfTheWindowIsInside) {
    // The pole at pixel (1000, 1000).
    map = MapOf(PolarSheet('N'));
    for (const PixelRect& rect : {PixelRect{0, 500, 1000, 1700},
                                  {1000, 500, 1800, 1700},
                                  {300, 0, 1500, 1000},
                                  {300, 1000, 1500, 1900}}) {
        ASSERT_TRUE(Ask(KOORD_GEODEZ, rect));
        EXPECT_EQ(Degrees(NORTH).latitude, 90.0) << rect.left << ' ' << rect.top;
    }
}

TEST_F(BelievedLimits, ALongitudeBeyond180CountsWhereTheMapShowsIt) {
    map = DegreeMap(350.0, 50.0, 100.0);
    ASSERT_TRUE(Ask(KOORD_GEODEZ, {0, 0, 2000, 500}));
    EXPECT_EQ(Degrees(EAST).longitude, 360.0);
    map = DegreeMap(-370.0, 50.0, 100.0);
    ASSERT_TRUE(Ask(KOORD_GEODEZ, {0, 0, 2000, 500}));
    EXPECT_EQ(Degrees(WEST).longitude, -360.0);
}

class LeadsBackTest : public BalancedTest {
  protected:
    static bool Leads(const MapParam& map, Axis axis, const tagKOORD& place) {
        const IRef<IMapCoordOperations> on = MapOf(map);
        const MapPlane plane(on.Get());
        const CKoord koord(place);
        PlanePoint pixel{};
        return plane.ToPlane(koord, &pixel) && LeadsBack(plane, axis, koord, pixel);
    }
};

TEST_F(LeadsBackTest, APlaceOnTheMapDoes) {
    for (const Axis axis : {Axis::East, Axis::North}) {
        EXPECT_TRUE(Leads(LondonSheet(), axis, GeodezRecord(51.4, 0.0)));
        EXPECT_TRUE(Leads(LondonSheet(), axis, GeodezRecord(51.4, -2.5)));
    }
}

TEST_F(LeadsBackTest, APlaceAWholeTurnAwayDoesOnlyInLatitude) {
    for (const double longitude : {360.0, -360.0, 359.5}) {
        EXPECT_FALSE(Leads(LondonSheet(), Axis::East, GeodezRecord(51.4, longitude)));
        EXPECT_TRUE(Leads(LondonSheet(), Axis::North, GeodezRecord(51.4, longitude)));
    }
}

// South of the equator the pole's map is turned over: 20 degrees east fall on 160.
TEST_F(LeadsBackTest, APlaceOnTheOtherHemisphereDoesnt) {
    EXPECT_FALSE(Leads(PolarSheet('N'), Axis::North, GeodezRecord(-85.0, 20.0)));
    EXPECT_FALSE(Leads(PolarSheet('N'), Axis::East, GeodezRecord(-85.0, 20.0)));
    EXPECT_TRUE(Leads(PolarSheet('N'), Axis::East, GeodezRecord(-85.0, 90.0)));
}

TEST_F(LeadsBackTest, AReferenceWithoutASquareDoesnt) {
    const IRef<IMapCoordOperations> on = MapOf(LondonSheet());
    const MapPlane plane(on.Get());
    const PlanePoint pixel{1000.0, 1000.0};
    CKoord there(MakeKoord(DATUM_WGS84, KOORD_UTMREF));
    ASSERT_TRUE(plane.ToWorld(pixel, &there));
    CKoord nowhere = there;
    auto reference = Load<UtmrefPayload>(nowhere);
    reference.column = 'I';
    Store(nowhere, reference);
    for (const Axis axis : {Axis::East, Axis::North}) {
        EXPECT_TRUE(LeadsBack(plane, axis, there, pixel));
        EXPECT_FALSE(LeadsBack(plane, axis, nowhere, pixel));
    }
}

TEST_F(LeadsBackTest, TheDateLineDoesFromBothSidesButNoFurtherTurn) {
    const MapParam west = Map(MAP_UTM, MapUtmParams{'S', 60, 700000.0, 8200000.0, 10.0, 10.0});
    EXPECT_TRUE(Leads(west, Axis::East, GeodezRecord(-17.0, 180.0)));
    const MapParam east = Map(MAP_UTM, MapUtmParams{'S', 1, 100000.0, 8200000.0, 10.0, 10.0});
    EXPECT_TRUE(Leads(east, Axis::East, GeodezRecord(-17.0, -180.0)));
    for (const double longitude : {540.0, -540.0}) {
        EXPECT_FALSE(Leads(west, Axis::East, GeodezRecord(-17.0, longitude)));
        EXPECT_FALSE(Leads(east, Axis::East, GeodezRecord(-17.0, longitude)));
    }
}

}  // namespace
}  // namespace tessara::testing
