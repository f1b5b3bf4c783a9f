// The pictures of `tessara map`: each layer at pixels from independent sources.
#include "program/map_maps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>

#include "program/files.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

// The whole earth in degrees: column 10 * (longitude + 180), row 10 * (90 - latitude). To be drawn 3600 wide.
const std::string WORLD_MAP =
    R"({"projection": {"type": "DD", "originLongitude": -180, "originLatitude": 90, "pixelsPerDegreeX": 10,
                       "pixelsPerDegreeY": 10},
        "window": {"left": 0, "top": 0, "right": 3600, "bottom": 1800}, "layers": [)";

// Of the map of VAN_DER_GRINTEN: its radius is half the equator.
constexpr double RIM = 3.141592653589793 * 6378137.0 / 12000.0;

double FromMiddle(const SvgPoint& point) {
    return std::hypot(point.x - 1750.0, point.y - 1750.0);
}

// A hundredth of a unit is what a picture's numbers are rounded to; a chain of points is drawn to a quarter.
constexpr double ROUNDING = 0.011;
constexpr double CHAIN = 0.25 + ROUNDING;

struct Label {
    std::string text;
    double x, y;
};

// The labels of a kind with x, or y, at their line.
std::vector<Label> LabelsOf(const std::string& svg, const std::string& classes) {
    std::vector<Label> labels;
    for (const SvgElement& text : ElementsOf(svg, "text", classes))
        labels.push_back({text.text, text.Number("x"), text.Number("y")});
    return labels;
}

void ExpectStraight(const std::vector<SvgLine>& lines, const std::vector<SvgLine>& expected) {
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ASSERT_EQ(lines[i].size(), expected[i].size()) << i;
        for (std::size_t k = 0; k < lines[i].size(); ++k) {
            EXPECT_NEAR(lines[i][k].x, expected[i][k].x, ROUNDING) << i;
            EXPECT_NEAR(lines[i][k].y, expected[i][k].y, ROUNDING) << i;
        }
    }
}

double AreaOf(const std::vector<SvgLine>& outlines) {
    double area = 0.0;
    for (const SvgLine& outline : outlines) {
        double twice = 0.0;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const SvgPoint& a = outline[i];
            const SvgPoint& b = outline[(i + 1) % outline.size()];
            twice += a.x * b.y - a.y * b.x;
        }
        area += std::abs(twice) / 2.0;
    }
    return area;
}

void ExpectNoTextOverText(const std::string& svg) {
    const std::vector<SvgElement> texts = ElementsOf(svg, "text", "");
    EXPECT_GT(texts.size(), 1u);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const SvgBox a = BoxOf(texts[i]);
        for (std::size_t k = i + 1; k < texts.size(); ++k) {
            const SvgBox b = BoxOf(texts[k]);
            const bool overlap = a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
            EXPECT_FALSE(overlap) << texts[i].text << " at " << a.left << " " << a.bottom << " and "
                                  << texts[k].text << " at " << b.left << " " << b.bottom;
        }
    }
}

}  // namespace

// A UTM map shows Greenwich where it would show 360 degrees, too.
TEST(MapGrid, OverGreenwichDegreesEndAtTheWindow) {
    const std::string london =
        R"({"projection": {"type": "UTM", "zone": 30, "hemisphere": "N", "originEasting": 650000,
                           "originNorthing": 5720000, "metresPerPixelX": 10, "metresPerPixelY": 10},
            "window": {"left": 0, "top": 0, "right": 10000, "bottom": 4000}, "layers": [)";
    const std::string svg =
        DrawMap(london, R"({"type": "grid", "system": "GEOGRAD", "step": 0.16666666666666666})");
    // cs2cs from +proj=utm +zone=30 to +proj=latlong of the corners: -0.8506 to 0.6082 east, 51.2166 to
    // 51.6110 north. Lines of ten minutes: 50' W to 30' E, 51 degrees 20' to 30'.
    EXPECT_EQ(LinesOf(svg, "layer0 grid east").size(), 9u);
    EXPECT_EQ(LinesOf(svg, "layer0 grid north").size(), 2u);
}

TEST(MapGrid, DrawsUtmLinesAtTheirPixels) {
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "grid", "system": "UTM", "step": 10000})");
    // 670000 is 10000 / 50 = 200 columns east of the left side, 5330000 200 rows below the top; the lines on
    // the sides themselves, 660000 and so on, lie on the frame.
    ExpectStraight(LinesOf(svg, "layer0 grid east"), {{{0, 0}, {0, 800}},
                                                      {{200, 0}, {200, 800}},
                                                      {{400, 0}, {400, 800}},
                                                      {{600, 0}, {600, 800}},
                                                      {{800, 0}, {800, 800}},
                                                      {{1000, 0}, {1000, 800}}});
    ExpectStraight(LinesOf(svg, "layer0 grid north"), {{{0, 800}, {1000, 800}},
                                                       {{0, 600}, {1000, 600}},
                                                       {{0, 400}, {1000, 400}},
                                                       {{0, 200}, {1000, 200}},
                                                       {{0, 0}, {1000, 0}}});
}

TEST(MapGrid, LabelsLinesAtBothEndsWithTheirValues) {
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "grid", "system": "UTM", "step": 10000})");
    std::map<std::string, int> counts;
    for (const Label& label : LabelsOf(svg, "grid-label east")) {
        double easting = 0.0;
        int zone = 0;
        std::istringstream(label.text) >> zone >> easting;
        EXPECT_EQ(zone, 32);
        EXPECT_NEAR(label.x, (easting - 660000.0) / 50.0, ROUNDING) << label.text;
        EXPECT_TRUE(label.y < 0.0 || label.y > 800.0) << label.text;
        ++counts[label.text];
    }
    for (const Label& label : LabelsOf(svg, "grid-label north")) {
        char hemisphere = 0;
        double northing = 0.0;
        std::istringstream(label.text) >> hemisphere >> northing;
        EXPECT_EQ(hemisphere, 'N');
        // The middle of the figures stands at the line: they are some 0.73 of the font size of 12 high.
        EXPECT_NEAR(label.y - 0.73 * 12.0 / 2.0, (5340000.0 - northing) / 50.0, 0.5) << label.text;
        EXPECT_TRUE(label.x < 0.0 || label.x > 1000.0) << label.text;
        ++counts[label.text];
    }
    EXPECT_EQ(counts.size(), 11u);
    for (const auto& [text, count] : counts)
        EXPECT_EQ(count, 2) << text;
}

TEST(MapGrid, DrawsPixelLines) {
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "grid", "system": "FLOATPIXEL", "step": 250})");
    ExpectStraight(LinesOf(svg, "grid east"), {{{0, 0}, {0, 800}},
                                               {{250, 0}, {250, 800}},
                                               {{500, 0}, {500, 800}},
                                               {{750, 0}, {750, 800}},
                                               {{1000, 0}, {1000, 800}}});
    ExpectStraight(
        LinesOf(svg, "grid north"),
        {{{0, 750}, {1000, 750}}, {{0, 500}, {1000, 500}}, {{0, 250}, {1000, 250}}, {{0, 0}, {1000, 0}}});
}

TEST(MapGrid, DrawsOfAWindowWhatLiesInIt) {
    const std::string map =
        R"({"projection": {"type": "CH", "originEasting": 600000, "originNorthing": 200000,
                           "metresPerPixelX": 10, "metresPerPixelY": 20}, "datum": "CH1903",
            "window": {"left": 150, "top": 50, "right": 650, "bottom": 300}, "layers": [)";
    // 602000 lies in column 200, 50 beside the window's side, and a pixel is two units: 100. 198000 lies in
    // row 100: (100 - 50) * 2 = 100.
    const std::string svg =
        DrawMap(map, R"({"type": "grid", "system": "CH", "eastStep": 2000, "northStep": 2000})");
    ExpectStraight(LinesOf(svg, "grid east"),
                   {{{100, 0}, {100, 500}}, {{500, 0}, {500, 500}}, {{900, 0}, {900, 500}}});
    ExpectStraight(LinesOf(svg, "grid north"),
                   {{{0, 500}, {1000, 500}}, {{0, 300}, {1000, 300}}, {{0, 100}, {1000, 100}}});
}

TEST(MapGrid, CarriesLinesAcrossTheBorderOfZones) {
    const std::string svg = DrawMap(BORDER_MAP, R"({"type": "grid", "system": "UTM", "step": 10000})");
    // echo 33n 280000 5340000 | GeoConvert -u -z 32 -p 3: 32n 726033.833 5340235.644, and with 5310000:
    // 32n 728368.661 5310325.448
    const std::vector<SvgLine> east = LinesOf(svg, "grid east");
    EXPECT_LT(DistanceTo(east, {520.67666, 95.28712}), CHAIN);
    EXPECT_LT(DistanceTo(east, {567.37322, 693.49104}), CHAIN);
    EXPECT_LT(DistanceTo(LinesOf(svg, "grid north"), {520.67666, 95.28712}), CHAIN);
    EXPECT_EQ(TextsOf(svg, "grid-label east"),
              (std::set<std::string>{"32 700000", "32 710000", "32 720000", "33 280000", "33 290000",
                                     "33 300000"}));
    EXPECT_EQ(TextsOf(svg, "grid-label north"),
              (std::set<std::string>{"N 5310000", "N 5320000", "N 5330000", "N 5340000"}));
}

TEST(MapBorders, RunWhereTheZonesMeet) {
    const std::string svg = DrawMap(BORDER_MAP, R"({"type": "borders", "system": "UTM"})");
    const std::vector<SvgLine> borders = LinesOf(svg, "layer0 border");
    // echo 48 12 | GeoConvert -u -z 32 -p 3: 32n 723775.915 5320655.789
    EXPECT_LT(DistanceTo(borders, {475.5183, 486.88422}), CHAIN);
    ASSERT_EQ(borders.size(), 1u);
    EXPECT_NEAR(borders[0].front().y, 0.0, ROUNDING);
    EXPECT_NEAR(borders[0].back().y, 800.0, ROUNDING);
    EXPECT_EQ(TextsOf(svg, "border-label"), std::set<std::string>{"zone 32 | 33"});
    EXPECT_EQ(ElementsOf(svg, "text", "border-label").size(), 2u);
    EXPECT_TRUE(LinesOf(svg, "grid").empty());
}

TEST(MapBorders, OfAGridAndALayerHaveOneLabelAtEachEnd) {
    const std::string svg = DrawMap(BORDER_MAP,
                                    R"({"type": "grid", "system": "UTM", "step": 10000},
                                    {"type": "borders", "system": "UTM"})");
    EXPECT_EQ(ElementsOf(svg, "text", "border-label").size(), 2u);
}

// 178 to 182 degrees, 250 pixels a degree; on the others, about as much around 17 degrees south.
const std::vector<std::string> DATE_LINE_MAPS = {
    R"({"projection": {"type": "DD", "originLongitude": 178, "originLatitude": -15.4, "pixelsPerDegreeX": 250,
                       "pixelsPerDegreeY": 250},)",
    R"({"projection": {"type": "DD", "originLongitude": -182, "originLatitude": -15.4, "pixelsPerDegreeX": 250,
                       "pixelsPerDegreeY": 250},)",
    R"({"projection": {"type": "MERCATOR", "standardParallel": -17}, "scale": 5000000, "resolution": 10,
        "reference": {"place": [-17, 180], "pixel": [500, 400]},)",
    R"({"projection": {"type": "LAMBERTCC", "parallel1": -15, "parallel2": -19, "originLongitude": -180,
                       "originLatitude": -17, "falseEasting": 0, "falseNorthing": 0, "metresPerPixelX": 500,
                       "metresPerPixelY": 500, "pixelX": 500, "pixelY": 400},)"};

TEST(MapGrid, GoesOnOverTheDateLine) {
    for (const std::string& map : DATE_LINE_MAPS) {
        const std::string svg =
            DrawMap(map + R"("window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)",
                    R"({"type": "grid", "system": "UTM", "step": 50000})");
        EXPECT_EQ(TextsOf(svg, "border-label"), std::set<std::string>{"zone 60 | 1"}) << map;
        const std::vector<SvgLine> borders = LinesOf(svg, "border");
        ASSERT_EQ(borders.size(), 1u) << map;
        for (const SvgPoint& point : borders[0])
            EXPECT_NEAR(point.x, 500.0, CHAIN) << map;
        for (const SvgLine& line : LinesOf(svg, "grid north")) {
            double x = -1.0;
            for (const SvgPoint& point : line) {
                EXPECT_GT(point.x, x - ROUNDING) << map << ": without a way back";
                x = point.x;
            }
        }
        const std::set<std::string> texts = TextsOf(svg, "grid-label east");
        for (const char* text : {"60 650000", "60 700000", "60 750000", "1 250000", "1 300000", "1 350000"})
            EXPECT_TRUE(texts.contains(text)) << map << text;
    }
    // echo -17 -179.5 | GeoConvert -u -p 3: 01s 233821.407 8118746.355. Of a grid from there in steps of half
    // its distance from the central line, 266178.593, two lines meet in it.
    const std::string svg = DrawMap(
        DATE_LINE_MAPS[0] + R"("window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)",
        R"({"type": "grid", "system": "UTM", "eastStep": 133089.2965, "northStep": 940626.8225})");
    EXPECT_LT(DistanceTo(LinesOf(svg, "grid east"), {625.0, 400.0}), CHAIN);
    EXPECT_LT(DistanceTo(LinesOf(svg, "grid north"), {625.0, 400.0}), CHAIN);
}

TEST(MapBorders, NameTheZonesOnBothSidesOfTheDateLine) {
    for (const std::string& map : DATE_LINE_MAPS) {
        const std::string svg =
            DrawMap(map + R"("window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)",
                    R"({"type": "borders", "system": "GK6"})");
        EXPECT_EQ(TextsOf(svg, "border-label"), std::set<std::string>{"zone 30 | -30"}) << map;
    }
}

// The northing of this map decreases to 0 at its lower edge and then increases again: positions beyond the
// edge have the pixels of positions before it.
TEST(MapGrid, RunsToTheEdgeOfAPolarMap) {
    const std::string svg = DrawMap(
        R"({"projection": {"type": "UPS", "hemisphere": "N", "originEasting": 500000, "originNorthing": 3000000,
                           "metresPerPixelX": 3000, "metresPerPixelY": 3000},
            "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)",
        R"({"type": "grid", "system": "GEODEZ", "eastStep": 10, "northStep": 5},
           {"type": "borders", "system": "UTM"})");
    // Lines run from the pole at (500, 333.33) straight down and beside it: at the edge, 666.67 below the
    // pole, the meridian of n degrees stands 666.67 tan n to the side.
    for (const double degrees : {-30.0, -20.0, -10.0, 0.0, 10.0, 20.0, 30.0}) {
        const double x = 500.0 + 2000.0 / 3.0 * std::tan(degrees * 0.0174532925199433);
        EXPECT_LT(DistanceTo(LinesOf(svg, "layer0 grid east"), {x, 1000.0}), CHAIN) << degrees;
    }
    for (const double degrees : {-24.0, -18.0, -12.0, -6.0, 0.0, 6.0, 12.0, 18.0, 24.0}) {
        const double x = 500.0 + 2000.0 / 3.0 * std::tan(degrees * 0.0174532925199433);
        EXPECT_LT(DistanceTo(LinesOf(svg, "layer1 border"), {x, 1000.0}), 1.0) << degrees;
    }
}

TEST(MapGrid, ThinsOutLabelsThatHaveNoRoom) {
    // 1000 units, and a line every 10.
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "grid", "system": "UTM", "step": 500})");
    EXPECT_EQ(LinesOf(svg, "grid east").size(), 101u);
    // "32 660000" takes up some 60 units: every tenth label stays, which is every 5000 metres.
    EXPECT_EQ(
        TextsOf(svg, "grid-label east"),
        (std::set<std::string>{"32 660000", "32 665000", "32 670000", "32 675000", "32 680000", "32 685000",
                               "32 690000", "32 695000", "32 700000", "32 705000", "32 710000"}));
}

TEST(MapGrid, WritesDegreesAsTheSystemDoes) {
    const std::string layers =
        R"({"type": "grid", "system": "GEODEZ", "step": 0.25}, {"type": "grid", "system": "GEOGRAD", "step": 0.25},
           {"type": "grid", "system": "GEODEZMIN", "step": 0.125})";
    const std::string svg = DrawMap(UTM_MAP, layers);
    const std::set<std::string> texts = TextsOf(svg, "grid-label north");
    EXPECT_TRUE(texts.contains("48.00°N")) << ::testing::PrintToString(texts);
    EXPECT_TRUE(texts.contains("48°00'N"));
    EXPECT_TRUE(texts.contains("47°52.5'N"));
    const std::set<std::string> legend = TextsOf(svg, "legend");
    EXPECT_TRUE(legend.contains("GEODEZ@WGS84, every 0.25°")) << ::testing::PrintToString(legend);
    EXPECT_TRUE(legend.contains("GEOGRAD@WGS84, every 15'"));
    EXPECT_TRUE(legend.contains("GEODEZMIN@WGS84, every 450''"));
}

TEST(MapGrid, GoesOnceAroundTheEarth) {
    const std::string svg = DrawMap(WORLD_MAP, R"({"type": "grid", "system": "GEODEZ", "step": 30})", "3600");
    const std::vector<SvgLine> meridians = LinesOf(svg, "grid east");
    ASSERT_EQ(meridians.size(), 13u);
    for (std::size_t i = 0; i < meridians.size(); ++i) {
        const double x = 300.0 * static_cast<double>(i);
        EXPECT_LT(DistanceTo({meridians[i]}, {x, 10.0}), ROUNDING);
        EXPECT_LT(DistanceTo({meridians[i]}, {x, 1790.0}), ROUNDING);
    }
    EXPECT_EQ(LinesOf(svg, "grid north").size(), 7u);
}

TEST(MapGrid, GoesAroundThePoleOfItsOwnHemisphereOnly) {
    const std::string svg =
        DrawMap(POLE_MAP, R"({"type": "grid", "system": "GEODEZ", "eastStep": 90, "northStep": 2})");
    // echo 88 0 | GeoConvert -u -p 3: n 2000000.000 1777930.731; echo 88 45: n 2157026.686 1842973.314
    const std::vector<SvgLine> parallels = LinesOf(svg, "grid north");
    EXPECT_LT(DistanceTo(parallels, {500.0, 722.069269}), CHAIN);
    EXPECT_LT(DistanceTo(parallels, {657.026686, 657.026686}), CHAIN);
    const std::set<std::string> texts = TextsOf(svg, "grid-label north");
    EXPECT_TRUE(texts.contains("88°N")) << ::testing::PrintToString(texts);
    EXPECT_FALSE(texts.contains("88°S"));
}

TEST(MapPositions, StandAtTheirPixels) {
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "positions", "places": [
        {"at": [48.1375, 11.5755], "name": "Munich"},
        {"system": "UTM", "north": "N 5334791", "east": "32 681602", "name": "west of it"},
        {"pixel": [100, 700]}, [40, 11]]})");
    const std::vector<SvgElement> circles = ElementsOf(svg, "circle", "layer0 position");
    ASSERT_EQ(circles.size(), 3u);  // the last place lies far south of the window
    // echo 48.1375 11.5755 | GeoConvert -u -p 3: 32n 691602.660 5334791.145
    EXPECT_NEAR(circles[0].Number("cx"), 632.0532, ROUNDING);
    EXPECT_NEAR(circles[0].Number("cy"), 104.1771, ROUNDING);
    EXPECT_NEAR(circles[1].Number("cx"), (681602.0 - 660000.0) / 50.0, ROUNDING);
    EXPECT_NEAR(circles[1].Number("cy"), (5340000.0 - 5334791.0) / 50.0, ROUNDING);
    EXPECT_NEAR(circles[2].Number("cx"), 100.0, ROUNDING);
    EXPECT_NEAR(circles[2].Number("cy"), 700.0, ROUNDING);
    EXPECT_EQ(TextsOf(svg, "name"), (std::set<std::string>{"Munich", "west of it"}));
}

TEST(MapPositions, TakeTheDatumOfTheMapUnlessTheyNameOne) {
    const std::string map =
        R"({"projection": {"type": "DD", "originLongitude": 11, "originLatitude": 49, "pixelsPerDegreeX": 10000,
                           "pixelsPerDegreeY": 10000}, "datum": "GER",
            "window": {"left": 0, "top": 0, "right": 10000, "bottom": 10000}, "layers": [)";
    const std::string svg = DrawMap(
        map, R"({"type": "positions", "places": [[48.5, 11.5], {"at": [48.5, 11.5], "datum": "WGS84"}]})",
        "10000");
    const std::vector<SvgElement> circles = ElementsOf(svg, "circle", "position");
    ASSERT_EQ(circles.size(), 2u);
    EXPECT_NEAR(circles[0].Number("cx"), 5000.0, ROUNDING);
    EXPECT_NEAR(circles[0].Number("cy"), 5000.0, ROUNDING);
    // echo 11.5 48.5 | cs2cs -f %.9f +proj=longlat +datum=WGS84 +to +proj=longlat +ellps=bessel
    //     +towgs84=604,21,415: 11.501351177 48.500948049; the abridged shift is 2e-7 degrees beside it.
    EXPECT_NEAR(circles[1].Number("cx"), 5013.51177, ROUNDING);
    EXPECT_NEAR(circles[1].Number("cy"), 4990.51951, ROUNDING);
}

TEST(MapGeodesic, RunsThroughItsWaypoints) {
    const std::string svg =
        DrawMap(WORLD_MAP, R"({"type": "geodesic", "places": [[50.03, 8.57], [33.94, -118.41]]})", "3600");
    const std::vector<SvgLine> lines = LinesOf(svg, "layer0 geodesic");
    ASSERT_EQ(lines.size(), 1u);
    // echo 50.03 8.57 33.94 -118.41 | GeodSolve -i -p 6 gives the azimuth -41.75764817 and the length
    // 9344736.549; a quarter, a half and three quarters of it with echo 50.03 8.57 AZIMUTH LENGTH | GeodSolve
    for (const auto& [latitude, longitude] :
         {std::pair{50.03, 8.57}, std::pair{62.52500609, -22.47214704}, std::pair{62.95143606, -69.18843184},
          std::pair{50.91242451, -101.39621440}, std::pair{33.94, -118.41}})
        EXPECT_LT(DistanceTo(lines, {10.0 * (longitude + 180.0), 10.0 * (90.0 - latitude)}), CHAIN);
}

TEST(MapGeodesic, GoesOnAtTheOtherRimOfTheMap) {
    const std::string svg =
        DrawMap(WORLD_MAP, R"({"type": "geodesic", "places": [[0, 170], [0, -160]]})", "3600");
    for (const SvgLine& line : LinesOf(svg, "geodesic")) {
        for (const SvgPoint& point : line) {
            EXPECT_NEAR(point.y, 900.0, ROUNDING);
            EXPECT_TRUE(point.x <= 200.0 + ROUNDING || point.x >= 3500.0 - ROUNDING) << point.x;
        }
    }
    EXPECT_LT(DistanceTo(LinesOf(svg, "geodesic"), {150.0, 900.0}), ROUNDING);
    EXPECT_LT(DistanceTo(LinesOf(svg, "geodesic"), {3550.0, 900.0}), ROUNDING);
}

TEST(MapGeodesic, CrossesGreenwichOnAPolarMapWhereItDoes) {
    const std::string svg = DrawMap(
        R"({"projection": {"type": "UPS", "hemisphere": "N", "originEasting": 500000, "originNorthing": 3500000,
                           "metresPerPixelX": 3000, "metresPerPixelY": 3000},
            "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)",
        R"({"type": "geodesic", "places": [[82.5, -62.3], [78.22, 15.65]]})");
    const std::vector<SvgLine> lines = LinesOf(svg, "geodesic");
    ASSERT_EQ(lines.size(), 1u);
    // echo 82.5 -62.3 66.809752248 949732.829 | GeodSolve -p 9: 81.169073700 0. Its northing is
    // 1017689.797: echo 0 81.169073700 | cs2cs -f %.3f +proj=longlat +datum=WGS84
    //     +to +proj=stere +lat_0=90 +k=0.994 +x_0=2000000 +y_0=2000000 +datum=WGS84
    EXPECT_LT(DistanceTo(lines, {500.0, (3500000.0 - 1017689.797) / 3000.0}), CHAIN);
}

TEST(MapGeodesic, LeavesTheMapAtItsRim) {
    const std::string svg =
        DrawMap(VAN_DER_GRINTEN_MAP, R"({"type": "geodesic", "places": [[50, 8], [60, -170]]},
        {"type": "geodesic", "places": [[35.77, 140.39], [37.62, -122.38]]})",
                "3500");
    EXPECT_EQ(LinesOf(svg, "layer0 geodesic").size(), 1u) << "over the north";
    const std::vector<SvgLine> lines = LinesOf(svg, "layer1 geodesic");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(FromMiddle(lines[0].back()), RIM, 1.0);
    EXPECT_NEAR(FromMiddle(lines[1].front()), RIM, 1.0);
}

TEST(MapLine, IsStraightOnTheMapOrInASystem) {
    const std::string svg = DrawMap(UTM_MAP, R"(
        {"type": "line", "places": [{"pixel": [100, 100]}, {"pixel": [900, 700]}]},
        {"type": "line", "straightIn": "GEODEZ", "places": [[48, 11.2], [48, 11.8]]})");
    ExpectStraight(LinesOf(svg, "layer0 line"), {{{100, 100}, {900, 700}}});
    // echo 48 11.5 | GeoConvert -u -p 3: 32n 686482.635 5319324.564: there the parallel sags below the chord
    // of its ends, echo 48 11.2 (48 11.8): 32n 664105.937 5318642.130 (708858.800 5320094.216), whose middle
    // has the northing 5319368.173, most of a pixel further up.
    EXPECT_LT(DistanceTo(LinesOf(svg, "layer1 line"), {529.6527, 413.50872}), CHAIN);
    EXPECT_GT(LinesOf(svg, "layer1 line").at(0).size(), 2u);
}

TEST(MapRings, OverAPoleRunSmoothlyFromRimToRim) {
    for (const auto& [centre, radius] : {std::pair{"[75, 30]", "2500000"},
                                         {"[75, 30]", "5000000"},
                                         {"[-85, -100]", "1500000"},
                                         {"[10, 160]", "9000000"}}) {
        const std::string svg = DrawMap(
            VAN_DER_GRINTEN_MAP,
            std::string(R"({"type": "rings", "centre": )") + centre + R"(, "radii": [)" + radius + "]}",
            "3500");
        // A ring begins to the north of its centre, also in the middle of the map.
        std::size_t ends = 0;
        for (const SvgLine& line : LinesOf(svg, "ring")) {
            for (const SvgPoint& end : {line.front(), line.back()})
                ends += std::abs(FromMiddle(end) - RIM) < 1.0 ? 1U : 0U;
        }
        EXPECT_EQ(ends, 2u) << centre << radius;
    }
    // echo 10 160 AZIMUTH 9000000 | GeodSolve -p 9, and what
    // cs2cs -f %.3f +proj=longlat +R=6378137 +to +proj=vandg +R=6378137 makes of it: 0, 10, 20, 350, 100
    // degrees
    const std::string svg =
        DrawMap(VAN_DER_GRINTEN_MAP, R"({"type": "rings", "centre": [10, 160], "radii": [9000000]})", "3500");
    for (const auto& [x, y] : {std::pair{-557213.443, 17376573.511},
                               {-7290216.744, 13587102.812},
                               {-9389903.443, 10801921.074},
                               {4554980.716, 12765891.708},
                               {-13432282.910, -934107.705}})
        EXPECT_LT(DistanceTo(LinesOf(svg, "ring"), {1750.0 + x / 12000.0, 1750.0 - y / 12000.0}), CHAIN) << x;
}

TEST(MapRings, AreAtTheirDistanceInAllDirections) {
    const std::string map =
        R"({"projection": {"type": "DD", "originLongitude": -2, "originLatitude": 2, "pixelsPerDegreeX": 250,
                           "pixelsPerDegreeY": 250},
            "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)";
    const std::string svg = DrawMap(
        map,
        R"({"type": "rings", "centre": {"at": [0, 0], "name": "here"}, "radii": [100000, 1500.5, 500]})");
    const std::vector<SvgLine> rings = LinesOf(svg, "layer0 ring");
    ASSERT_EQ(rings.size(), 3u);
    // echo 0 0 90 100000 | GeodSolve: 0.89831528 degrees east; echo 0 0 0 100000: 0.90436872 north.
    EXPECT_LT(DistanceTo(rings, {500.0 + 250.0 * 0.89831528, 500.0}), ROUNDING);
    EXPECT_LT(DistanceTo(rings, {500.0 - 250.0 * 0.89831528, 500.0}), ROUNDING);
    EXPECT_LT(DistanceTo(rings, {500.0, 500.0 - 250.0 * 0.90436872}), ROUNDING);
    EXPECT_LT(DistanceTo(rings, {500.0, 500.0 + 250.0 * 0.90436872}), ROUNDING);
    EXPECT_TRUE(TextsOf(svg, "radius").contains("100 km"));
    EXPECT_EQ(TextsOf(svg, "name"), std::set<std::string>{"here"});
    EXPECT_EQ(ElementsOf(svg, "circle", "position").size(), 1u);
}

TEST(MapPolygon, IsFilledAndOutlined) {
    const std::string svg = DrawMap(
        UTM_MAP,
        R"({"type": "polygon", "places": [{"pixel": [100, 100]}, {"pixel": [300, 100]}, {"pixel": [300, 1000]}]})");
    // The whole of it is filled inside the frame's clip path; the outline ends at the frame.
    ExpectStraight(LinesOf(svg, "layer0 polygon"), {{{100, 100}, {300, 100}, {300, 1000}},
                                                    {{100, 100}, {300, 100}, {300, 800}},
                                                    {{255.5555555, 800}, {100, 100}}});
}

TEST(MapOverlay, HasThePartsOfCrossingSquares) {
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "overlay", "name": "squares",
        "first": [{"pixel": [100, 100]}, {"pixel": [500, 100]}, {"pixel": [500, 500]}, {"pixel": [100, 500]}],
        "second": [{"pixel": [300, 300]}, {"pixel": [700, 300]}, {"pixel": [700, 700]}, {"pixel": [300, 700]}]})");
    EXPECT_EQ(AreaOf(LinesOf(svg, "overlay both")), 200.0 * 200.0);
    EXPECT_EQ(AreaOf(LinesOf(svg, "overlay only-first")), 400.0 * 400.0 - 200.0 * 200.0);
    EXPECT_EQ(AreaOf(LinesOf(svg, "overlay only-second")), 400.0 * 400.0 - 200.0 * 200.0);
    EXPECT_TRUE(LinesOf(svg, "overlay neither").empty());
    ExpectStraight(LinesOf(svg, "overlay first"),
                   {{{100, 100}, {500, 100}, {500, 500}, {100, 500}, {100, 100}}});
    const std::set<std::string> legend = TextsOf(svg, "legend");
    for (const char* text :
         {"squares: crossing outlines", "only in the first", "only in the second", "in both"})
        EXPECT_TRUE(legend.contains(text)) << text;
}

TEST(MapOverlay, ShowsHowPolygonsLieToEachOther) {
    const auto square = [](int left, int right) {
        std::ostringstream corners;
        corners << "[{\"pixel\": [" << left << ", " << left << "]}, {\"pixel\": [" << right << ", " << left
                << "]}, {\"pixel\": [" << right << ", " << right << "]}, {\"pixel\": [" << left << ", "
                << right << "]}]";
        return corners.str();
    };
    const auto draw = [](const std::string& first, const std::string& second) {
        return DrawMap(UTM_MAP,
                       R"({"type": "overlay", "first": )" + first + R"(, "second": )" + second + "}");
    };
    const std::string inside = draw(square(200, 300), square(100, 400));
    EXPECT_TRUE(TextsOf(inside, "legend").contains("two polygons: first inside second"));
    EXPECT_EQ(AreaOf(LinesOf(inside, "overlay both")), 100.0 * 100.0);
    EXPECT_EQ(LinesOf(inside, "overlay only-second").size(), 2u);  // with the first as its hole

    const std::string around = draw(square(100, 400), square(200, 300));
    EXPECT_TRUE(TextsOf(around, "legend").contains("two polygons: second inside first"));
    EXPECT_EQ(LinesOf(around, "overlay only-first").size(), 2u);

    const std::string equal = draw(square(100, 400), square(100, 400));
    EXPECT_TRUE(TextsOf(equal, "legend").contains("two polygons: same area"));
    EXPECT_EQ(AreaOf(LinesOf(equal, "overlay both")), 300.0 * 300.0);

    const std::string apart = draw(square(100, 200), square(300, 400));
    EXPECT_TRUE(TextsOf(apart, "legend").contains("two polygons: no common area"));
    EXPECT_TRUE(LinesOf(apart, "overlay both").empty());

    const std::string touching = draw(
        square(100, 200),
        R"([{"pixel": [200, 100]}, {"pixel": [300, 100]}, {"pixel": [300, 200]}, {"pixel": [200, 200]}])");
    EXPECT_TRUE(TextsOf(touching, "legend").contains("two polygons: touching outlines"));
}

TEST(MapPicture, HasTitleLegendAndColoursOfItsOwn) {
    const std::string svg = DrawMap(
        R"({"title": "a <b> & \"c\"", )" + UTM_MAP.substr(1),
        R"({"type": "grid", "system": "UTM", "step": 10000, "colour": "vermillion", "name": "the grid"})");
    EXPECT_EQ(TextsOf(svg, "title"), std::set<std::string>{"a <b> & \"c\""});
    const std::set<std::string> legend = TextsOf(svg, "legend");
    EXPECT_TRUE(legend.contains("the grid"));
    EXPECT_TRUE(
        legend.contains("UTM on WGS84, 1:500000, 10 pixels per millimetre; columns 0 to 1000, rows 0 to 800"))
        << ::testing::PrintToString(legend);
    for (const SvgElement& group : ElementsOf(svg, "g", "layer0"))
        EXPECT_EQ(group.Attribute("stroke"), "#d55e00");
    EXPECT_EQ(ElementsOf(svg, "rect", "frame").size(), 1u);
}

TEST(MapPicture, OfEveryTypeShowsGridAndPosition) {
    for (const TypedMap& map : MapsOfAllTypes()) {
        SCOPED_TRACE(map.type);
        const Outcome outcome = Tessara({"map", "-"}, map.description);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_GE(LinesOf(outcome.out, "layer0 grid east").size(), 3u);
        EXPECT_GE(LinesOf(outcome.out, "layer0 grid north").size(), 3u);
        EXPECT_GE(ElementsOf(outcome.out, "text", "grid-label").size(), 6u);
        EXPECT_GE(ElementsOf(outcome.out, "circle", "position").size(), 1u);
        EXPECT_GE(ElementsOf(outcome.out, "text", "name").size(), 1u);
        ExpectNoTextOverText(outcome.out);
        // Lines stay inside the frame.
        const SvgElement frame = ElementsOf(outcome.out, "rect", "frame").at(0);
        for (const SvgLine& line : LinesOf(outcome.out, "grid")) {
            for (const SvgPoint& point : line) {
                EXPECT_TRUE(point.x >= 0.0 && point.x <= frame.Number("width")) << point.x;
                EXPECT_TRUE(point.y >= 0.0 && point.y <= frame.Number("height")) << point.y;
            }
        }
    }
}

TEST(MapPicture, KeepsManyNamesApart) {
    std::string places;
    for (int i = 0; i < 60; ++i) {
        places += (i > 0 ? ", " : "") + std::string(R"({"pixel": [)") + std::to_string(480 + (i * 37) % 60) +
                  ", " + std::to_string(380 + (i * 23) % 40) + R"(], "name": "Place )" + std::to_string(i) +
                  "\"}";
    }
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "grid", "system": "UTM", "step": 1000},
        {"type": "grid", "system": "GEOGRAD", "step": 0.0166666666666666},
        {"type": "grid", "system": "GK@GER", "step": 1000}, {"type": "positions", "places": [)" +
                                                 places + "]}");
    EXPECT_EQ(ElementsOf(svg, "circle", "position").size(), 60u);
    EXPECT_GE(ElementsOf(svg, "text", "name").size(), 3u);
    EXPECT_LT(ElementsOf(svg, "text", "name").size(), 60u);
    ExpectNoTextOverText(svg);
}

TEST(MapPicture, IsTheSameEveryTimeAndUnderEveryLocale) {
    const std::string description = UTM_MAP + R"({"type": "grid", "system": "GEODEZ", "step": 0.1}]})";
    const Outcome once = Tessara({"map", "-"}, description);
    EXPECT_FALSE(once.out.empty());
    for (const char* locale : {"C", "de_DE.UTF-8", "fr_FR.ISO-8859-1", "no such locale"}) {
        const Outcome again =
            RunProgram(TESSARA_PROGRAM, {"map", "-"}, {description, {std::string("LC_ALL=") + locale}, {}});
        EXPECT_EQ(again.out, once.out) << locale;
    }
}

TEST(MapPicture, OfTheReadmeIsWhatTheProgramDraws) {
    const Outcome outcome = Tessara({"map", TESSARA_SOURCE_DIR "/examples/data/upper_bavaria.json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out == ReadFile(TESSARA_SOURCE_DIR "/docs/map.svg"))
        << "scripts/pictures draws it anew";
    EXPECT_LT(outcome.out.size(), 200000u);
    ExpectNoTextOverText(outcome.out);
    EXPECT_NE(ReadFile(TESSARA_SOURCE_DIR "/README.md").find("(docs/map.svg)"), std::string::npos);
}

TEST(MapPicture, OfTheManualIsWhatTheProgramDraws) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TESSARA_SOURCE_DIR "/docs/pictures")) {
        std::filesystem::path picture = entry.path();
        if (picture.extension() != ".json") continue;
        const Outcome outcome = Tessara({"map", picture.string()});
        EXPECT_EQ(outcome.err, "");
        EXPECT_TRUE(outcome.out == ReadFile(picture.replace_extension(".svg")))
            << picture << ": scripts/pictures draws it anew";
        ++count;
    }
    EXPECT_GT(count, 0u);
}

TEST(MapPicture, OfTheHelpTextIsDrawn) {
    const std::string help = Tessara({"map", "--help"}).out;
    const std::size_t begin = help.find("  {\n");
    const std::size_t end = help.find("\n  }\n", begin);
    ASSERT_NE(end, std::string::npos);
    const Outcome outcome = Tessara({"map", "-"}, help.substr(begin, end + 5 - begin));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "position").size(), 1u);
}

TEST(MapOutput, GoesToAFile) {
    const ScratchDirectory files;
    const std::string file = files.Path("map.svg");
    const Outcome outcome = Tessara({"map", "-", "-o", file}, UTM_MAP + "]}");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(ReadFile(file), Tessara({"map", "-"}, UTM_MAP + "]}").out);
}

TEST(MapOutput, IsAPngWhereTheNameSaysSo) {
    if (RunProgram("/bin/sh", {"-c", "command -v rsvg-convert"}).status != 0)
        GTEST_SKIP() << "rsvg-convert isn't installed";
    const ScratchDirectory files;
    for (const char* name : {"map.png", "map.PNG"}) {
        const std::string file = files.Path(name);
        const Outcome outcome = Tessara({"map", "-", "-o", file}, UTM_MAP + "]}");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_TRUE(ReadFile(file).starts_with("\x89PNG\r\n"));
    }

    const Outcome failed = Tessara({"map", "-", "-o", "/nowhere/map.png"}, UTM_MAP + "]}");
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.err.find("tessara: /nowhere/map.png: rsvg-convert cannot write the file\n"),
              std::string::npos)
        << failed.err;
}
