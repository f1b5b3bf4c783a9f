// Grids of zoned systems: their lines, the ends of the lines, and the joints between zones.
#include "grids/zoned_grid_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "areas/rect_extents.h"
#include "records/convert_records.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "support/grids.h"
#include "support/host_map.h"
#include "support/live_objects.h"
#include "support/random.h"
#include "support/sanitized.h"
#include "support/zoned_records.h"
#include "tessara/kernel/constants.h"

namespace tessara::testing {
namespace {

using Line = std::vector<CKoord>;

UtmPayload Utm(const CKoord& koord) {
    return Load<UtmPayload>(koord);
}

void ExpectUtm(const CKoord& koord, int zone, double easting, double northing, double tolerance) {
    EXPECT_EQ(Utm(koord).zone, zone);
    EXPECT_NEAR(Utm(koord).easting, easting, tolerance);
    EXPECT_NEAR(Utm(koord).northing, northing, tolerance);
}

struct ZoneEasting {
    int zone;
    double easting;  // 0.0 for a border
};

class ZonedGridLinesTest : public BalancedTest {
  protected:
    // Ten metres a pixel, zone 32, 50 km around the border to zone 33 at 12 degrees east.
    void SetBorderWindow(double step, std::int32_t system = KOORD_UTM, double bottom = 5000.0) {
        map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0}));
        grid = GridOf(system, map, step, step);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, bottom));
    }

    // In zones of UTM.
    void ExpectEastLines(const std::vector<ZoneEasting>& expected) {
        const auto lines = EastLinesOf(grid);
        ASSERT_EQ(lines.size(), expected.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            for (const CKoord& koord : lines[i]) {
                EXPECT_EQ(Utm(koord).zone, expected[i].zone) << i;
                if (expected[i].easting == 0.0) continue;
                EXPECT_NEAR(Utm(koord).easting, expected[i].easting, 1e-6) << i;  // metres, rounding
            }
        }
    }

    IRef<IMapCoordOperations> map;
    IRef<ICoordinateGrid> grid;
};

// The window lies between the eastings 695000 of zone 32 and 300839.8 of zone 33, and between the northings
// 5313368.0 and 5365000: cs2cs from zone 32 to zone 33 of the corners 745000 5365000 and 745000 5315000.
TEST_F(ZonedGridLinesTest, EachZoneHasItsOwnLinesAndTheBorderComesOnce) {
    SetBorderWindow(10000.0);
    ExpectEastLines({{32, 700000.0},
                     {32, 710000.0},
                     {32, 720000.0},
                     {33, 0.0},
                     {33, 280000.0},
                     {33, 290000.0},
                     {33, 300000.0}});
    const auto lines = EastLinesOf(grid);
    for (const Line& line : lines) {
        EXPECT_NEAR(Utm(line.front()).northing, 5365000.0, 1e-3) << "from north";
        EXPECT_NEAR(Utm(line.back()).northing, 5313367.995, 2e-3) << "to south";
    }
    // cs2cs of the border's ends in zone 33, 277956.547 5365000 and 275940.395 5313367.995, gives the
    // longitude 12.000000000; metres.
    ExpectUtm(lines[3].front(), 33, 277956.547, 5365000.0, 2e-3);
    ExpectUtm(lines[3].back(), 33, 275940.395, 5313367.995, 2e-3);
}

TEST_F(ZonedGridLinesTest, LinesEndOnTheBorderWhereTheZoneNarrows) {
    SetBorderWindow(8000.0, KOORD_UTM, 5100.0);
    // 724000 and 276000 = 1000000 - 724000 lie within their zones in the south of the window only.
    ExpectEastLines({{32, 700000.0},
                     {32, 708000.0},
                     {32, 716000.0},
                     {32, 724000.0},
                     {33, 0.0},
                     {33, 276000.0},
                     {33, 284000.0},
                     {33, 292000.0},
                     {33, 300000.0}});
    const auto lines = EastLinesOf(grid);
    for (const std::size_t clipped : {3u, 5u}) {
        // cs2cs +proj=utm +zone=32 to +proj=longlat of 724000 5314899.828 gives the longitude
        // 12.0000000012. Metres; the border rises 27 m while the line comes 1 m closer.
        EXPECT_NEAR(Utm(lines[clipped].front()).northing, 5314899.828, 0.03);
        // cs2cs of the corner 745000 5314000 to zone 33.
        EXPECT_NEAR(Utm(lines[clipped].back()).northing, 5312371.248, 2e-3);
    }
    // Where the window ends north of 5314900 they pass by below it.
    SetBorderWindow(8000.0);
    ExpectEastLines({{32, 700000.0},
                     {32, 708000.0},
                     {32, 716000.0},
                     {33, 0.0},
                     {33, 284000.0},
                     {33, 292000.0},
                     {33, 300000.0}});
}

TEST_F(ZonedGridLinesTest, ALineOnTheEasternBorderIsTheBorder) {
    // The border where the window is widest, at its southern end, by a step that reaches it from the centre.
    SetBorderWindow(10000.0);
    tagKOORD border = EastLinesOf(grid)[0].back();
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &border));
    const double step = zones::East(border) - 500000.0;
    ASSERT_EQ(500000.0 + step, zones::East(border));
    SetBorderWindow(step);
    // In zone 33 the first line is as far west of its centre, on the other side of the border.
    const auto lines = EastLinesOf(grid);
    ASSERT_FALSE(lines.empty());
    for (const Line& line : lines)
        EXPECT_EQ(Utm(line.front()).zone, 33);
}

// On the equator zones are widest, so that such a line touches the border there and nowhere else.
TEST_F(ZonedGridLinesTest, ALineThatTouchesTheEasternBorderOnTheEquatorIsNone) {
    map = DegreeMap(11.0, 1.0, 100.0);
    CKoord border(UtmRecord(DATUM_WGS84, 'N', 32, 700000.0, 0.0));
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &border));
    const double step = zones::East(border) - 500000.0;
    ASSERT_EQ(500000.0 + step, zones::East(border));
    grid = GridOf(KOORD_UTM, map, step, step);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 150, 200));
    const auto lines = EastLinesOf(grid);
    ASSERT_FALSE(lines.empty());
    for (const Line& line : lines)
        EXPECT_EQ(Utm(line.front()).zone, 33);
}

TEST_F(ZonedGridLinesTest, ANorthLineRunsThroughAllZones) {
    SetBorderWindow(10000.0);
    const auto lines = NorthLinesOf(grid);
    ASSERT_EQ(lines.size(), 5u);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const CKoord& koord : lines[i])
            EXPECT_NEAR(Utm(koord).northing, 5320000.0 + 10000.0 * static_cast<double>(i), 1e-6);
    }
    // cs2cs from zone 32 and from zone 33 of the two points at the border gives the longitude 12.000000000;
    // metres.
    const Line& line = lines[2];
    ExpectUtm(line.front(), 32, 695000.0, 5340000.0, 1e-3);
    ExpectUtm(line.back(), 33, 300839.832, 5340000.0, 2e-3);
    ASSERT_EQ(line.size(), 4u);
    ExpectUtm(line[1], 32, 723021.493, 5340000.0, 2e-3);
    ExpectUtm(line[2], 33, 276978.507, 5340000.0, 2e-3);
}

TEST_F(ZonedGridLinesTest, UtmrefHasTheLinesOfUtmInWholeMetres) {
    SetBorderWindow(10000.0, KOORD_UTMREF);
    const auto rounded = EastLinesOf(grid);
    const auto roundedNorth = NorthLinesOf(grid);
    SetBorderWindow(10000.0);
    const auto exact = EastLinesOf(grid);
    const auto exactNorth = NorthLinesOf(grid);
    ASSERT_EQ(rounded.size(), exact.size());
    ASSERT_EQ(roundedNorth.size(), exactNorth.size());
    for (std::size_t i = 0; i < exact.size(); ++i) {
        ASSERT_EQ(rounded[i].size(), exact[i].size());
        for (std::size_t k = 0; k < exact[i].size(); ++k) {
            const auto code = Load<UtmrefPayload>(rounded[i][k]);
            EXPECT_EQ(code.zone, Utm(exact[i][k]).zone);
            EXPECT_EQ(code.wantedZone, NO_WANTED_ZONE);
            // Within the square of 100 km, to half a metre and the rounding.
            const double apart = std::remainder(code.easting - Utm(exact[i][k]).easting, 1e5);
            EXPECT_NEAR(apart, 0.0, 0.5001);
        }
    }
    // The rows' letters come around every 2000 km; the lines are those of the window all the same.
    for (std::size_t i = 0; i < exactNorth.size(); ++i) {
        for (const CKoord& koord : roundedNorth[i])
            EXPECT_EQ(Load<UtmrefPayload>(koord).northing, 20000 + static_cast<int>(i) * 10000);
    }
}

TEST_F(ZonedGridLinesTest, LinesRunOverTheEquator) {
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 31, 477000.0, 25000.0, 10.0, 10.0}));
    grid = GridOf(KOORD_UTM, map, 10000.0, 20000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 4000, 6000));
    // From 25000 north to 35000 south of the equator, 477000 to 517000.
    const auto east = EastLinesOf(grid);
    ASSERT_EQ(east.size(), 4u);
    EXPECT_EQ(Utm(east[0].front()).hemisphere, 'N');
    EXPECT_NEAR(Utm(east[0].front()).northing, 25000.0, 1e-3);
    EXPECT_EQ(Utm(east[0].back()).hemisphere, 'S');
    EXPECT_NEAR(Utm(east[0].back()).northing, 9965000.0, 1e-3);
    const auto north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 3u);
    const double signedNorthings[] = {-20000.0, 0.0, 20000.0};
    for (std::size_t i = 0; i < 3; ++i) {
        for (const CKoord& koord : north[i]) {
            const double northing = Utm(koord).northing - (Utm(koord).hemisphere == 'S' ? 1e7 : 0.0);
            EXPECT_NEAR(northing, signedNorthings[i], 1e-6);
        }
    }
}

TEST_F(ZonedGridLinesTest, InTheSouthLinesAreClippedAtTheirSouthernEnds) {
    // The mirror image of the window over 12 degrees east, down to 5314000 metres off the equator.
    map = MapOf(Map(MAP_UTM, MapUtmParams{'S', 32, 695000.0, 1e7 - 5314000.0, 10.0, 10.0}));
    grid = GridOf(KOORD_UTM, map, 8000.0, 8000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5100));
    const auto lines = EastLinesOf(grid);
    ASSERT_EQ(lines.size(), 9u);
    for (const std::size_t clipped : {3u, 5u}) {
        EXPECT_NEAR(Utm(lines[clipped].front()).northing, 1e7 - 5312371.248, 2e-3);
        EXPECT_NEAR(Utm(lines[clipped].back()).northing, 1e7 - 5314899.828, 0.03);
    }
}

TEST_F(ZonedGridLinesTest, ALineThatIsNotTakenEndsTheDrawing) {
    SetBorderWindow(10000.0);
    constexpr PixelRect rect{0, 0, 5000, 5000};
    GridWindow window{{}, rect, {}, {}, 10000.0, 10000.0, 0.0};
    ASSERT_TRUE(ExtentOfRect(map.Get(), rect, DATUM_WGS84, KOORD_UTM, &window.extremes));
    const MapPlane plane(map.Get());
    for (const auto draw : {DrawZonedEastLines, DrawZonedNorthLines}) {
        int refused = 0;
        int drawn = 0;
        do {
            ++refused;
            drawn = 0;
            GridPen pen(plane, rect, [&](const GridLine&) { return ++drawn != refused; });
            const bool isDone = draw(window, &pen);
            EXPECT_EQ(isDone, drawn < refused) << refused;
            EXPECT_LE(drawn, refused);
        } while (drawn == refused);
        EXPECT_GE(drawn, 5);
    }
}

// The pen's limit of twenty million points, of which only some are left. The lines of the first two windows
// end on borders, those of the third on the last border of their system.
TEST_F(ZonedGridLinesTest, TheDrawingEndsWhereThePenHasReachedItsLimit) {
    const struct {
        MapParam map;
        PixelRect rect;
        std::int32_t datum, system;
    } windows[] = {
        {Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0}),
         {0, 0, 5000, 5100},
         2,
         KOORD_UTM},
        {Map(MAP_UTM, MapUtmParams{'S', 32, 695000.0, 1e7 - 5314000.0, 10.0, 10.0}),
         {0, 0, 5000, 5100},
         2,
         KOORD_UTM},
        {Map(MAP_DD, MapDdParams{17.0, 48.0, 1000.0, 1000.0}, DATUM_MGI),
         {0, 0, 1000, 500},
         DATUM_MGI,
         KOORD_BMN},
    };
    for (const auto& [sheet, rect, datum, system] : windows) {
        map = MapOf(sheet);
        GridWindow window{{}, rect, {}, {}, 8000.0, 8000.0, 0.0};
        ASSERT_TRUE(ExtentOfRect(map.Get(), rect, datum, system, &window.extremes));
        const MapPlane plane(map.Get());
        for (const auto draw : {DrawZonedEastLines, DrawZonedNorthLines}) {
            // clang 14 doesn't capture the name of a binding by itself.
            const auto drawn = [&, &rect = rect](std::size_t points, bool* isDone) {
                int lines = 0;
                GridPen pen(plane, rect, [&lines](const GridLine&) { return ++lines > 0; });
                EXPECT_TRUE(pen.Spend(20000000 - points));
                *isDone = draw(window, &pen);
                return lines;
            };
            bool isDone = false;
            const int all = drawn(20000000, &isDone);
            ASSERT_TRUE(isDone);
            ASSERT_GE(all, 5);
            isDone = false;
            int before = 0;
            for (std::size_t points = 0; !isDone; ++points) {
                const int lines = drawn(points, &isDone);
                EXPECT_GE(lines, before) << points;
                EXPECT_LE(lines, all) << points;
                before = lines;
            }
            EXPECT_EQ(before, all) << "as soon as the points suffice";
        }
    }
}

// Its extremes to the west and to the east are the same, so that between them nothing is left to draw.
TEST_F(ZonedGridLinesTest, AWindowWithoutWidthHasNoNorthLines) {
    map = MapOf(MunichSheet());
    const PixelRect rect{0, 0, 0, 1000};
    GridWindow window{{}, rect, {}, {}, 1000.0, 1000.0, 0.0};
    window.extremes.Start(CKoord(UtmRecord(DATUM_WGS84, 'N', 32, 675000.0, 5345000.0)));
    window.extremes.Set(Compass::South, CKoord(UtmRecord(DATUM_WGS84, 'N', 32, 675000.0, 5342500.0)));
    const MapPlane plane(map.Get());
    int lines = 0;
    GridPen pen(plane, rect, [&lines](const GridLine&) { return ++lines > 0; });
    EXPECT_TRUE(DrawZonedNorthLines(window, &pen));
    EXPECT_EQ(lines, 0);
}

TEST_F(ZonedGridLinesTest, AWindowInsideAZoneHasNoBorder) {
    map = MapOf(MunichSheet());
    grid = GridOf(KOORD_UTM, map, 5000.0, 5000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 8000, 6000));
    // 675000 to 695000, 5330000 to 5345000: the edges are grid lines, except for rounding.
    const auto east = EastLinesOf(grid);
    EXPECT_GE(east.size(), 3u);
    EXPECT_LE(east.size(), 5u);
    for (const Line& line : east)
        EXPECT_NEAR(std::remainder(Utm(line.front()).easting, 5000.0), 0.0, 1e-6);
}

TEST_F(ZonedGridLinesTest, ABorderIsDrawnWhereTheWindowTouchesItAndNowhereElse) {
    // At 5300000 the western border of zone 33 lies at 275420 (longitude 12.0000, cs2cs), and 400 m further
    // east at 5310000: the window ends 2.2 km east of it.
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 33, 278000.0, 5310000.0, 10.0, 10.0}));
    for (const double step : {10000.0, 20000.0, 1e6}) {
        grid = GridOf(KOORD_UTM, map, step, step);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 1500, 1000));
        for (const Line& line : EastLinesOf(grid)) {
            for (const CKoord& koord : line)
                EXPECT_NEAR(std::remainder(Utm(koord).easting - 500000.0, step), 0.0, 1e-6) << step;
        }
    }
    // 300 pixels further west it lies inside.
    grid = GridOf(KOORD_UTM, map, 20000.0, 20000.0);
    ASSERT_TRUE(SetWindow(grid, -300, 0, 1500, 1000));
    ExpectEastLines({{33, 0.0}, {33, 280000.0}});
}

// At 5500000 zone 32 ends at 716703.412 and 283296.588 (cs2cs of 12 and 6 degrees east), and further south it
// is wider: of the windows' sides the top corner alone is 3.4 and 13.4 metres from the border.
TEST_F(ZonedGridLinesTest, ABorderBesideACornerIsDrawnWithinHalfAPixel) {
    for (const int height : {0, 1, 10, 20, 50, 1000}) {
        map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 700000.0, 5500000.0, 10.0, 10.0}));
        grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
        for (const bool isNear : {true, false}) {
            ASSERT_TRUE(SetWindow(grid, 0, 0, isNear ? 1670 : 1669, height));
            EXPECT_EQ(EastLinesOf(grid).size(), isNear ? 1u : 0u) << height;
        }
        map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 283300.0, 5500000.0, 10.0, 10.0}));
        grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
        for (const bool isNear : {true, false}) {
            ASSERT_TRUE(SetWindow(grid, isNear ? 0 : 1, 0, 1000, height));
            EXPECT_EQ(EastLinesOf(grid).size(), isNear ? 1u : 0u) << height;
        }
        // South of the equator the bottom corner is the closest.
        map = MapOf(Map(MAP_UTM, MapUtmParams{'S', 32, 283300.0, 4500000.0, 10.0, 10.0}));
        grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
        for (const bool isNear : {true, false}) {
            ASSERT_TRUE(SetWindow(grid, isNear ? 0 : 1, -height, 1000, 0));
            EXPECT_EQ(EastLinesOf(grid).size(), isNear ? 1u : 0u) << height;
        }
    }
}

TEST_F(ZonedGridLinesTest, AStepLargerThanTheWindowHasTheCentralLineOrNone) {
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 495000.0, 5310000.0, 10.0, 10.0}));
    grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 1000));
    ExpectEastLines({{32, 500000.0}});
    EXPECT_TRUE(NorthLinesOf(grid).empty());
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 450000.0, 5310000.0, 10.0, 10.0}));
    grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 1000));
    EXPECT_TRUE(EastLinesOf(grid).empty());
    EXPECT_TRUE(NorthLinesOf(grid).empty());
}

TEST_F(ZonedGridLinesTest, StripsAreWalkedOverGreenwich) {
    // GK strips of three degrees are centred on -3, 0 and 3: the borders lie at -1.5 and 1.5. Those of GK6,
    // of six degrees, on -3 and 3: the border is Greenwich. A hundred pixels a degree.
    map = DegreeMap(-4.0, 51.0, 100.0);
    for (const auto& [system, strips, borders] :
         {std::tuple{KOORD_GK, std::vector<int>{-1, 0, 1}, 2u}, {KOORD_GK6, {-1, 1}, 1u}}) {
        grid = GridOf(system, map, 40000.0, 40000.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 800, 200));
        const auto lines = EastLinesOf(grid);
        std::vector<int> found;
        std::size_t bordersFound = 0;
        double last = -HUGE_VAL;
        for (const Line& line : lines) {
            const double easting = Load<GkPayload>(line.front()).easting;
            const int strip = static_cast<int>(easting / 1e6);
            if (found.empty() || found.back() != strip) found.push_back(strip);
            const double offset = std::remainder(std::fabs(easting - strip * 1e6) - 5e5, 40000.0);
            bordersFound += std::fabs(offset) > 1e-6 ? 1 : 0;
            const double x = PixelOn(map, line.back()).x;
            EXPECT_GT(x, last) << "from west to east";
            last = x;
        }
        EXPECT_EQ(found, strips) << system;
        EXPECT_EQ(bordersFound, borders) << system;
        for (const Line& line : NorthLinesOf(grid)) {
            double x = -HUGE_VAL;
            for (const CKoord& koord : line) {
                const double next = PixelOn(map, koord).x;
                EXPECT_GT(next, x - 1e-6) << "pixels; a border point comes twice, a hair apart";
                x = next;
            }
        }
    }
}

TEST_F(ZonedGridLinesTest, TheLastBorderOfASystemIsDrawnWhereTheWindowReachesIt) {
    // The Austrian strips end at 17.8333 degrees east and begin at 8.8333.
    const double east = 17.833333333333332, west = 8.833333333333332;
    map = MapOf(Map(MAP_DD, MapDdParams{8.5, 48.0, 100.0, 100.0}, DATUM_MGI));
    for (const std::int32_t system : {KOORD_BMN, KOORD_OEM, KOORD_GKAT}) {
        grid = GridOf(system, map, 100000.0, 100000.0, DATUM_MGI);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 100));
        const auto lines = EastLinesOf(grid);
        ASSERT_GT(lines.size(), 4u);
        // Pixels: a hundred a degree from 8.5.
        for (const CKoord& koord : lines.front())
            EXPECT_NEAR(PixelOn(map, koord).x, (west - 8.5) * 100.0, 1e-4) << system;
        for (const CKoord& koord : lines.back())
            EXPECT_NEAR(PixelOn(map, koord).x, (east - 8.5) * 100.0, 1e-4) << system;
        int borders = 0;
        for (const Line& line : lines) {
            const double x = PixelOn(map, line.back()).x;
            const double degrees = std::remainder(x / 100.0 + 8.5 - west, 3.0);
            borders += std::fabs(degrees) < 1e-6 ? 1 : 0;
        }
        EXPECT_EQ(borders, 4) << "west, two inside, east";
    }
}

TEST_F(ZonedGridLinesTest, AWindowOverTheDateLineHasTheZonesAroundIt) {
    // A hundred metres a pixel; at 10 degrees north longitude 180 lies at easting 829038 of zone 60, cs2cs.
    map = MapOf(Map(MAP_UTM, MapUtmParams{'N', 60, 700000.0, 1200000.0, 100.0, 100.0}));
    grid = GridOf(KOORD_UTM, map, 100000.0, 100000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 2500, 2000));
    const auto lines = EastLinesOf(grid);
    int dateLines = 0;
    double last = -HUGE_VAL;
    for (const Line& line : lines) {
        const int zone = Utm(line.front()).zone;
        EXPECT_TRUE(zone >= 59 || zone <= 2) << zone;
        const double x = PixelOn(map, line.back()).x;
        EXPECT_GT(x, last) << "from west to east";
        last = x;
        // 831000 at the southern end, 9 degrees north
        dateLines += x > 1280.0 && x < 1320.0 ? 1 : 0;
    }
    EXPECT_EQ(dateLines, 1);
    const auto north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 2u);
    for (const Line& line : north) {
        double x = -HUGE_VAL;
        for (const CKoord& koord : line) {
            const double next = PixelOn(map, koord).x;
            EXPECT_GT(next, x - 1e-3) << "from west to east without a way back";
            x = next;
        }
    }
}

// 174 to 186 degrees are the zones 60 and 1, and their outer borders are the sides of the window.
TEST_F(ZonedGridLinesTest, AWindowOverTheDateLineHasTheBordersOnItsSides) {
    map = DegreeMap(174.0, 10.0, 100.0);
    grid = GridOf(KOORD_UTM, map, 100000.0, 100000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 1200, 200));
    const IRef<IArray> lines(CreateClassArray());
    ASSERT_TRUE(grid->GetEastLinePixels(lines.Get()));
    int borders[3] = {};
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IFloatPoint> point(LineAt(lines, i)->GetAt(0));
        for (int k = 0; k < 3; ++k)
            borders[k] += std::fabs(point->GetX() - 600.0 * k) < 1e-3 ? 1 : 0;
    }
    EXPECT_EQ(borders[0], 1) << "174 degrees";
    EXPECT_EQ(borders[1], 1) << "180 degrees";
    EXPECT_EQ(borders[2], 1) << "186 degrees";
}

// Shows what lies within five degrees of the date line and nothing else.
class MapBesideTheDateLine : public HostMap {
  public:
    using HostMap::HostMap;

    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        const IRef<ICoord> coord(in);
        tagKOORD position = KoordOf(coord);
        return ConvertTo(KOORD_GEODEZ, &position) &&
               std::fabs(Load<GeodezPayload>(position).longitude) > 175.0 &&
               HostMap::CoordToFloatPixel(coord.Get(), x, y);
    }

  protected:
    ~MapBesideTheDateLine() = default;
};

// The outer borders of the zones 60 and 1 are six degrees from the date line.
TEST_F(ZonedGridLinesTest, AMapNeedntShowTheBordersOutsideAWindowOverTheDateLine) {
    map = IRef<IMapCoordOperations>(NewObject<MapBesideTheDateLine>(DegreeMap(178.0, 10.0, 100.0)));
    grid = GridOf(KOORD_UTM, map, 100000.0, 100000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 400, 200));
    // cs2cs +proj=longlat to +proj=utm +zone=60 of 178 10 and 178 8 gives 609601 and 610205, of 180 10 and
    // 180 8 828929 and 830744; zone 1 begins on the other side of its centre, and ends as far from it.
    std::vector<double> eastings;
    const auto lines = EastLinesOf(grid);
    for (const Line& line : lines)
        eastings.push_back(std::round(Utm(line.front()).easting / 100000.0));
    EXPECT_EQ(eastings, (std::vector<double>{7.0, 8.0, 2.0, 2.0, 3.0}));
}

// Maps on which longitudes go on over 180 degrees, each with the date line in its middle.
std::vector<IRef<IMapCoordOperations>> DateLineMaps() {
    const auto mercator = [](double longitude) {
        return MapOf(WithReference(Map(MAP_MERCATOR, MapMercatorParams{-17.0, {0.0, 0.0}}),
                                   GeodezRecord(-17.0, longitude), 500, 400, 5000000, 10.0));
    };
    const auto cone = [](double longitude) {
        return MapOf(Map(MAP_LAMBERTCC, MapLambertCcParams{-15.0, -19.0, longitude, -17.0, 0.0, 0.0, 500.0,
                                                           500.0, 500.0, 400.0}));
    };
    return {mercator(180.0),
            mercator(-180.0),
            MapOf(Map(MAP_DD, MapDdParams{178.0, -15.4, 250.0, 250.0})),
            MapOf(Map(MAP_DD, MapDdParams{-182.0, -15.4, 250.0, 250.0})),
            cone(180.0),
            cone(-180.0),
            MapOf(Map(MAP_UTM, MapUtmParams{'S', 60, 600000.0, 8320000.0, 500.0, 500.0}))};
}

TEST_F(ZonedGridLinesTest, LinesGoOnOverTheDateLine) {
    for (const auto& sheet : DateLineMaps()) {
        grid = GridOf(KOORD_UTM, sheet, 50000.0, 50000.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 800));
        std::set<int> zones;
        for (const Line& line : EastLinesOf(grid))
            zones.insert(Utm(line.front()).zone);
        EXPECT_EQ(zones, (std::set<int>{1, 60})) << "and no other zone's";

        const IRef<IArray> lines(CreateClassArray());
        ASSERT_TRUE(grid->GetEastLinePixels(lines.Get()));
        // 178 to 182 degrees are 426 km or more: three or four lines on both sides, and the border.
        EXPECT_GE(lines->GetCount(), 7u);
        double before = -HUGE_VAL;
        for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
            const IRef<IArray> line = LineAt(lines, i);
            const IRef<IFloatPoint> end(line->GetAt(line->GetCount() - 1));
            EXPECT_GT(end->GetX(), before) << "from west to east, the border once";
            EXPECT_GT(end->GetX(), -20.0) << "the window, and a little of what is beside it";
            EXPECT_LT(end->GetX(), 1020.0);
            before = end->GetX();
        }
        ASSERT_TRUE(grid->GetNorthLinePixels(lines.Get()));
        ASSERT_GE(lines->GetCount(), 6u);
        for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
            double x = -HUGE_VAL;
            const IRef<IArray> line = LineAt(lines, i);
            for (std::uint32_t k = 0; k < line->GetCount(); ++k) {
                const double next = IRef<IFloatPoint>(line->GetAt(k))->GetX();
                EXPECT_GT(next, x - 1e-3) << "without a way back";
                x = next;
            }
            EXPECT_GT(x, 999.0);
            EXPECT_LT(IRef<IFloatPoint>(line->GetAt(0))->GetX(), 1.0);
        }
    }
}

// Any place of such a window, moved to the next line of its zone, lies on a line that was drawn.
TEST_F(ZonedGridLinesTest, LinesReachAllOverWindowsOverTheDateLine) {
    const int windows = testing::Samples(60);
    Random random(180);
    int found = 0;
    for (int n = 0; n < windows; ++n) {
        const double middle = random.Between(-1.0, 1.0) + (n % 2 == 0 ? 180.0 : -180.0);
        const double latitude = random.Between(-70.0, 70.0);
        const double degrees = std::exp(random.Between(std::log(0.2), std::log(15.0)));  // wide
        const double metres = degrees * 111000.0 * std::cos(latitude * RADIANS_PER_DEGREE) / 1000.0;
        const double parallel = latitude + (latitude < 0.0 ? -2.0 : 2.0);
        const IRef<IMapCoordOperations> sheets[] = {
            MapOf(Map(MAP_DD, MapDdParams{middle - degrees / 2.0, latitude + degrees * 0.4, 1000.0 / degrees,
                                          1000.0 / degrees})),
            MapOf(WithReference(Map(MAP_MERCATOR, MapMercatorParams{30.0, {0.0, 0.0}}),
                                GeodezRecord(latitude, middle), 500, 400,
                                static_cast<std::int32_t>(metres * 10000.0), 10.0)),
            MapOf(Map(MAP_LAMBERTCC,
                      MapLambertCcParams{latitude, parallel, middle + random.Between(-20.0, 20.0), latitude,
                                         0.0, 0.0, metres, metres, 500.0, 400.0}))};
        for (const auto& sheet : sheets) {
            const std::int32_t system = n % 3 == 0 ? KOORD_GK6 : n % 3 == 1 ? KOORD_GK : KOORD_UTM;
            const double step = metres * 120.0;
            grid = GridOf(system, sheet, step, step);
            ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 800)) << n;
            const IRef<IArray> lines(CreateClassArray());
            ASSERT_TRUE(grid->GetEastLinePixels(lines.Get())) << n;
            std::vector<std::vector<Pixel>> polylines;
            for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
                polylines.emplace_back();
                const IRef<IArray> line = LineAt(lines, i);
                for (std::uint32_t k = 0; k < line->GetCount(); ++k) {
                    const IRef<IFloatPoint> point(line->GetAt(k));
                    polylines.back().push_back({point->GetX(), point->GetY()});
                }
            }
            for (int k = 0; k < 40; ++k) {
                const auto there = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);
                ASSERT_TRUE(sheet->FloatPixelToCoord(random.Between(0.0, 1000.0), random.Between(0.0, 800.0),
                                                     there.Get()));
                CKoord koord = KoordOf(there);
                const double turn = 360.0 * std::round(Load<GeodezPayload>(koord).longitude / 360.0);
                CKoord onSide = CKoord(GeodezRecord(Load<GeodezPayload>(koord).latitude,
                                                    Load<GeodezPayload>(koord).longitude - turn));
                if (!ConvertTo(system, &onSide)) continue;
                const std::int32_t zone = zones::Number(onSide);
                tagKOORD centre = onSide;
                ASSERT_TRUE(zones::MoveToCentre(&centre));
                const double anchor = zones::East(centre);
                zones::SetEast(anchor + step * std::round((zones::East(onSide) - anchor) / step), &onSide);
                GeodezPayload moved{};
                ASSERT_TRUE(ToGeodez(onSide, &moved));
                CKoord natural = CKoord(GeodezRecord(moved.latitude, moved.longitude));
                if (!ConvertTo(system, &natural) || zones::Number(natural) != zone) continue;
                const Pixel at = PixelOn(sheet, GeodezRecord(moved.latitude, moved.longitude + turn));
                if (!(at.x > 1.0 && at.x < 999.0 && at.y > 1.0 && at.y < 799.0)) continue;
                double nearest = HUGE_VAL;
                for (const auto& polyline : polylines)
                    nearest = std::min(nearest, DistanceToPolyline(at, polyline));
                ++found;
                EXPECT_LE(nearest, 0.37) << n << " system " << system << " at " << at.x << " " << at.y;
            }
        }
    }
    EXPECT_GT(found, 50 * windows);
}

TEST_F(ZonedGridLinesTest, OverTheEndOfTheStripsEachIsThereOnce) {
    // 178 to 182 degrees: GK has strips around 177, 180 and -177 and their borders at 178.5 and -178.5, GK6
    // those around 177 and -177.
    for (const auto& sheet : DateLineMaps()) {
        for (const auto& [system, strips] :
             {std::pair{KOORD_GK, std::vector<int>{59, 60, -59}}, {KOORD_GK6, {30, -30}}}) {
            grid = GridOf(system, sheet, 50000.0, 50000.0);
            ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 800));
            std::vector<int> found;
            for (const Line& line : EastLinesOf(grid)) {
                const int strip = zones::Number(line.front());
                if (found.empty() || found.back() != strip) found.push_back(strip);
            }
            EXPECT_EQ(found, strips);
            EXPECT_GE(NorthLinesOf(grid).size(), 6u);
        }
    }
}

// Four kilometres a pixel, the pole in the middle. With each zone's central line comes its western border,
// which is the eastern one of its neighbour, and at longitude 180 of the last zone.
TEST_F(ZonedGridLinesTest, AroundThePoleEachBorderComesOnce) {
    map = MapOf(Map(MAP_UPS, MapUpsParams{'N', -2000000.0, 6000000.0, 4000.0, 4000.0}));
    for (const auto& [system, zones] : {std::pair{KOORD_UTM, 60u}, {KOORD_GK6, 60u}, {KOORD_GK, 120u}}) {
        grid = GridOf(system, map, 1e6, 1e6);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 2000, 2000));
        EXPECT_EQ(EastLinesOf(grid).size(), 2 * zones) << system;
    }
}

// A cone on which the limits of longitude are a pixel apart near the pole and many pixels at the equator.
TEST_F(ZonedGridLinesTest, ABorderThatIsTheSameAtOneEndOnlyComesTwice) {
    map =
        MapOf(Map(MAP_LAMBERTCC, MapLambertCcParams{60.0, 75.0, 0.0, 45.0, 0.0, 0.0, 1e6, 1e6, 15.0, 15.0}));
    Pixel ends[4];
    for (int i = 0; i < 4; ++i)
        ends[i] = PixelOn(map, GeodezRecord(i < 2 ? 84.0 : 0.0, i % 2 == 0 ? -180.0 : 180.0));
    EXPECT_LT(std::hypot(ends[0].x - ends[1].x, ends[0].y - ends[1].y), 1.0);
    EXPECT_GT(std::hypot(ends[2].x - ends[3].x, ends[2].y - ends[3].y), 3.0);
    grid = GridOf(KOORD_UTM, map, 1e6, 1e6);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 30, 30));
    EXPECT_EQ(EastLinesOf(grid).size(), 121u) << "60 central lines, 59 borders, and two at longitude 180";
}

TEST_F(ZonedGridLinesTest, AMapOfTheWorldHasAllZones) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    const struct {
        std::int32_t system;
        int zones;
    } cases[] = {{KOORD_UTM, 60}, {KOORD_UTMREF, 60}, {KOORD_GK6, 60}};
    for (const auto& [system, zones] : cases) {
        // Only the central line, which is at a multiple of every step.
        grid = GridOf(system, map, 1e6, 1e6);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 3600, 1800));
        // Each zone has its central line and its western border, the last its eastern border, too.
        EXPECT_EQ(EastLinesOf(grid).size(), static_cast<std::size_t>(2 * zones + 1)) << system;
        const auto north = NorthLinesOf(grid);
        ASSERT_GE(north.size(), 17u) << system;
        EXPECT_NEAR(PixelOn(map, north[0].front()).x, 0.0, 1e-4) << system;
        EXPECT_NEAR(PixelOn(map, north[0].back()).x, 3600.0, 1e-4) << system;
    }
}

}  // namespace
}  // namespace tessara::testing
