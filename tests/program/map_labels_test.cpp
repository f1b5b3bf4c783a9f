// The values of grid lines as they stand at the frame, the names of squares, and the borders of zones.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "program/map_maps.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

// 250 pixels a degree, from 178 degrees east and 1.6 north.
const std::string FINE_MAP =
    R"({"projection": {"type": "DD", "originLongitude": 178, "originLatitude": 1.6, "pixelsPerDegreeX": 250,
                       "pixelsPerDegreeY": 250},
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)";

std::string Grid(const std::string& system, const std::string& step) {
    return R"({"type": "grid", "system": ")" + system + R"(", "step": )" + step + "}";
}

using Texts = std::set<std::string>;

}  // namespace

TEST(MapLabels, HaveLongitudesWithinHalfATurn) {
    const std::string decimal = DrawMap(FINE_MAP, Grid("GEODEZ", "1"));
    EXPECT_EQ(TextsOf(decimal, "grid-label east"),
              (Texts{"178\u00B0E", "179\u00B0E", "180\u00B0", "179\u00B0W", "178\u00B0W"}));
    EXPECT_EQ(TextsOf(decimal, "grid-label north"), (Texts{"1\u00B0N", "0\u00B0", "1\u00B0S"}));
    const std::string minutes = DrawMap(FINE_MAP, Grid("GEOGRAD", "1"));
    EXPECT_EQ(TextsOf(minutes, "grid-label east"),
              (Texts{"178\u00B0E", "179\u00B0E", "180\u00B0", "179\u00B0W", "178\u00B0W"}));
    EXPECT_EQ(TextsOf(minutes, "grid-label north"), (Texts{"1\u00B0N", "0\u00B0", "1\u00B0S"}));
}

// On every type of map, of all grids that it has.
TEST(MapLabels, TellTheAxesApart) {
    for (const TypedMap& map : MapsOfAllTypes()) {
        const Outcome outcome = Tessara({"map", "-"}, map.description);
        const Texts east = TextsOf(outcome.out, "grid-label east");
        const Texts north = TextsOf(outcome.out, "grid-label north");
        for (const std::string& text : east) {
            // Greenwich and the equator: neither lies on a side of the earth.
            EXPECT_FALSE(north.contains(text) && text != "0\u00B0") << map.type << ": " << text;
            const bool isBare = text.find_first_not_of("0123456789.-") == std::string::npos;
            EXPECT_FALSE(isBare) << map.type << ": " << text;
        }
        for (const std::string& text : north) {
            const bool isBare = text.find_first_not_of("0123456789.-") == std::string::npos;
            EXPECT_FALSE(isBare) << map.type << ": " << text;
        }
    }
}

TEST(MapLabels, OfPixelsNameColumnsAndRows) {
    const std::string svg = DrawMap(UTM_MAP, Grid("FLOATPIXEL", "500"));
    EXPECT_EQ(TextsOf(svg, "grid-label east"), (Texts{"column 0", "column 500", "column 1000"}));
    EXPECT_EQ(TextsOf(svg, "grid-label north"), (Texts{"row 0", "row 500"}));
}

// Munich is 32U PU 91602 34791, and 32U ends at 48 degrees north, where 32T begins. Column P reaches from 600
// to 700 km.
TEST(MapLabels, OfUtmrefAreTheDigitsWithinTheNamedSquares) {
    const std::string svg = DrawMap(UTM_MAP, Grid("UTMREF", "10000"));
    EXPECT_EQ(TextsOf(svg, "grid-label east"), (Texts{"6 E", "7 E", "8 E", "9 E", "0 E", "1 E"}));
    EXPECT_EQ(TextsOf(svg, "grid-label north"), (Texts{"0 N", "1 N", "2 N", "3 N", "4 N"}));
    const Texts squares = TextsOf(svg, "square");
    EXPECT_TRUE(squares.contains("32U PU")) << ::testing::PrintToString(squares);
    EXPECT_TRUE(squares.contains("32T PU")) << ::testing::PrintToString(squares);
    EXPECT_EQ(TextsOf(DrawMap(UTM_MAP, Grid("UTMREF", "5000")), "grid-label north"),
              (Texts{"00 N", "05 N", "10 N", "15 N", "20 N", "25 N", "30 N", "35 N", "40 N"}));
}

TEST(MapLabels, OfStepsAsLongAsSquaresAreThoseOfUtm) {
    const std::string svg = DrawMap(UTM_MAP, Grid("UTMREF", "100000"));
    EXPECT_EQ(TextsOf(svg, "grid-label east"), Texts{"32 700000"});
    EXPECT_EQ(TextsOf(svg, "grid-label north"), Texts{"N 5300000"});
}

// The square TQ of the national grid of Great Britain reaches from (500000, 100000) to (600000, 200000), TL
// lies north of it.
TEST(MapSquares, OfTheBritishGridAreNamed) {
    const std::string map =
        R"({"projection": {"type": "TM", "originLongitude": -2, "originLatitude": 49, "falseEasting": 400000,
                           "falseNorthing": -100000, "scale": 0.9996012717, "originEasting": 510000,
                           "originNorthing": 290000, "metresPerPixelX": 80, "metresPerPixelY": 180},
            "datum": "OGB_M", "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)";
    EXPECT_EQ(TextsOf(DrawMap(map, Grid("BNG", "10000")), "square"), (Texts{"TQ", "TL"}));
}

TEST(MapSquares, AreLeftOutWhereTheyAreTooMany) {
    const std::string europe =
        R"({"projection": {"type": "DD", "originLongitude": -10, "originLatitude": 70, "pixelsPerDegreeX": 20,
                           "pixelsPerDegreeY": 20},
            "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)";
    EXPECT_TRUE(TextsOf(DrawMap(europe, Grid("UTMREF", "1000000")), "square").empty());
}

TEST(MapBorders, AreThinWhereTheyAreMany) {
    const auto width = [](const std::string& svg) {
        return ElementsOf(svg, "g", "layer0 border").at(0).Number("stroke-width");
    };
    const std::string world =
        R"({"projection": {"type": "DD", "originLongitude": -180, "originLatitude": 80, "pixelsPerDegreeX": 10,
                           "pixelsPerDegreeY": 10},
            "window": {"left": 0, "top": 0, "right": 3600, "bottom": 1600}, "layers": [)";
    const std::string borders = R"({"type": "borders", "system": "UTM"})";
    EXPECT_LT(width(DrawMap(world, borders)), 1.0);
    EXPECT_GT(width(DrawMap(FINE_MAP, borders)), 1.0);
    const std::string legend = DrawMap(world, borders);
    EXPECT_EQ(ElementsOf(legend, "path", "sample").at(0).Number("stroke-width"), width(legend));
}

// Around a pole there are all meridians, wherever the window's middle is.
TEST(MapGrid, GoesAllAroundAPoleInTheMiddleOfTheWindow) {
    const std::string svg =
        DrawMap(POLE_MAP, R"({"type": "grid", "system": "GEODEZ", "eastStep": 90, "northStep": 2})");
    for (const SvgPoint& end : {SvgPoint{500, 0}, {500, 1000}, {0, 500}, {1000, 500}})
        EXPECT_LT(DistanceTo(LinesOf(svg, "grid east"), end), 0.3) << end.x << " " << end.y;
    const Texts texts = TextsOf(svg, "grid-label east");
    for (const char* text : {"0\u00B0", "90\u00B0E", "90\u00B0W", "180\u00B0"})
        EXPECT_TRUE(texts.contains(text)) << text;
}

TEST(MapGrid, LabelsMeridiansOfTheWholeEarthWhereTheyLieApart) {
    const std::string svg = DrawMap(VAN_DER_GRINTEN_MAP, Grid("GEODEZ", "30"));
    const Texts texts = TextsOf(svg, "grid-label east");
    for (const char* text : {"120\u00B0W", "60\u00B0W", "0\u00B0", "60\u00B0E", "120\u00B0E"})
        EXPECT_TRUE(texts.contains(text)) << text;
    for (const SvgElement& label : ElementsOf(svg, "text", "grid-label east"))
        EXPECT_NEAR(label.Number("y"), 500.0, 25.0) << label.text << ": beside the equator";
}
