// What stands around a map: title, scale bar, north arrow, caption, legend, notes.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "program/map_maps.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

std::vector<std::string> TextListOf(const std::string& svg, const std::string& classes) {
    std::vector<std::string> texts;
    for (const SvgElement& text : ElementsOf(svg, "text", classes))
        texts.push_back(text.text);
    return texts;
}

double BarLength(const std::string& svg) {
    double length = 0.0;
    for (const SvgElement& part : ElementsOf(svg, "rect", "scale-bar"))
        length += part.Number("width");
    return length;
}

// Degrees clockwise from the top.
double ArrowDirection(const std::string& svg) {
    const std::vector<SvgLine> halves = LinesOf(svg, "north-arrow");
    EXPECT_EQ(halves.size(), 2u);
    if (halves.empty()) return NAN;
    const SvgPoint tip = halves[0][0];
    const SvgPoint notch = halves[0][2];
    return std::atan2(tip.x - notch.x, notch.y - tip.y) * 57.29577951308232;
}

}  // namespace

// The window's middle lies 185 km east of the central meridian, where the grid is longer than the ground by
// 0.9996 * (1 + 185^2 / (2 * 6380^2)) = 1.00002: 10 km on the ground are 200.004 pixels.
TEST(MapScaleBar, IsAsLongAsTheGround) {
    const std::string svg = DrawMap(UTM_MAP, "");
    EXPECT_EQ(TextListOf(svg, "scale"), (std::vector<std::string>{"0", "10 km"}));
    EXPECT_NEAR(BarLength(svg), 200.004, 0.1);
    const std::string half = DrawMap(UTM_MAP, "", "500");
    EXPECT_EQ(TextListOf(half, "scale"), (std::vector<std::string>{"0", "10 km"}));
    EXPECT_NEAR(BarLength(half), 100.002, 0.1);
}

// In the middle of this map, at 40 degrees north, a degree of longitude is 111.320 * cos 40 = 85.4 km long on
// the ellipsoid (6378.137 cos 40 / sqrt(1 - 0.00669438 sin^2 40) * pi / 180 = 85.394) and 20 pixels.
TEST(MapScaleBar, SaysWhereItHoldsIfItDoesntEverywhere) {
    const std::string svg = DrawMap(
        R"({"projection": {"type": "DD", "originLongitude": -15, "originLatitude": 55, "pixelsPerDegreeX": 20,
                           "pixelsPerDegreeY": 26},
            "window": {"left": 0, "top": 0, "right": 1000, "bottom": 780}, "layers": [)",
        "");
    EXPECT_EQ(TextListOf(svg, "scale"),
              (std::vector<std::string>{"0", "1000 km", "along rows at the centre of the map"}));
    EXPECT_NEAR(BarLength(svg), 1000.0 / 85.394 * 20.0, 0.5);
}

TEST(MapScaleBar, IsLeftOutWhereNoneIsUseful) {
    EXPECT_TRUE(ElementsOf(DrawMap(VAN_DER_GRINTEN_MAP, ""), "rect", "scale-bar").empty());
    EXPECT_TRUE(TextListOf(DrawMap(VAN_DER_GRINTEN_MAP, ""), "scale").empty());
}

// The meridians lean by (longitude - 9) * sin(latitude) to the left. The middle, 32 685000 N 5320000, lies at
// 48.01 degrees north, where 185 km are 185 / (0.9996 * 74.63) = 2.480 degrees: 2.480 * sin 48.01 = 1.843.
TEST(MapNorthArrow, PointsAlongTheMeridian) {
    EXPECT_NEAR(ArrowDirection(DrawMap(UTM_MAP, "")), -1.843, 0.05);
    EXPECT_NEAR(ArrowDirection(DrawMap(
                    R"({"projection": {"type": "DD", "originLongitude": -15, "originLatitude": 55,
                                       "pixelsPerDegreeX": 20, "pixelsPerDegreeY": 26},
                        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 780}, "layers": [)",
                    "")),
                0.0, 0.05);
    EXPECT_EQ(TextListOf(DrawMap(UTM_MAP, ""), "north"), std::vector<std::string>{"N"});
}

TEST(MapNorthArrow, IsLeftOutWhereNorthIsInNoOneDirection) {
    EXPECT_TRUE(LinesOf(DrawMap(POLE_MAP, ""), "north-arrow").empty());
    EXPECT_TRUE(LinesOf(DrawMap(VAN_DER_GRINTEN_MAP, ""), "north-arrow").empty());
    EXPECT_TRUE(TextListOf(DrawMap(POLE_MAP, ""), "north").empty());
}

TEST(MapTitle, IsBrokenIntoLinesAsWideAsTheMap) {
    const std::string title =
        "A title about everything that this map shows, which nobody can read in one line of it, and about "
        "Donaudampfschifffahrtselektrizit\xC3\xA4tenhauptbetriebswerkbauunterbeamtengesellschaftsgr\xC3\xBC"
        "ndungsversammlungsprotokollf\xC3\xBChrerstellvertreter";
    const std::string svg = DrawMap(R"({"title": ")" + title + "\", " + UTM_MAP.substr(1), "", "600");
    std::string all;
    double y = -INFINITY;
    const std::vector<SvgElement> lines = ElementsOf(svg, "text", "title");
    EXPECT_GT(lines.size(), 2u);
    for (const SvgElement& line : lines) {
        const SvgBox box = BoxOf(line);
        EXPECT_LE(box.right, 600.0) << line.text;
        EXPECT_GT(box.top, y) << line.text;
        y = box.bottom;
        all += line.text;
    }
    EXPECT_LT(y, 0.0) << "above the map";
    const auto withoutBlanks = [](std::string text) {
        std::erase(text, ' ');
        return text;
    };
    EXPECT_EQ(withoutBlanks(all), withoutBlanks(title));
}

TEST(MapLegend, FollowsTheLayers) {
    const std::string svg = DrawMap(UTM_MAP,
                                    R"({"type": "grid", "system": "UTM", "step": 10000, "name": "one"},
           {"type": "positions", "places": [[48.1, 11.5]], "name": "two"},
           {"type": "overlay", "first": [{"pixel": [100, 100]}, {"pixel": [500, 100]}, {"pixel": [500, 500]}],
            "second": [{"pixel": [300, 100]}, {"pixel": [700, 300]}, {"pixel": [300, 700]}], "name": "three"},
           {"type": "rings", "centre": [48, 11.5], "radii": [1000], "name": "four"})");
    std::vector<SvgElement> entries = ElementsOf(svg, "text", "legend");
    std::vector<std::string> layers;
    double y = -INFINITY;
    double x = 0.0;
    for (const SvgElement& entry : entries) {
        const bool isLater = entry.Number("y") > y || (entry.Number("y") == y && entry.Number("x") > x);
        EXPECT_TRUE(isLater) << entry.text;
        y = entry.Number("y");
        x = entry.Number("x");
        if (entry.text.size() < 6 || entry.text.starts_with("three")) layers.push_back(entry.text);
    }
    EXPECT_EQ(layers, (std::vector<std::string>{"one", "two", "three: crossing outlines", "four"}));
}

TEST(MapLegend, BreaksLongNames) {
    std::string name = "a name";
    for (int i = 0; i < 30; ++i)
        name += " that goes on";
    const std::string svg = DrawMap(
        UTM_MAP, R"({"type": "positions", "places": [[48.1, 11.5]], "name": ")" + name + "\"}", "400");
    std::size_t lines = 0;
    for (const SvgElement& text : ElementsOf(svg, "text", "legend")) {
        EXPECT_LE(BoxOf(text).right, 400.0) << text.text;
        lines += text.text.find("goes on") != std::string::npos ? 1U : 0U;
    }
    EXPECT_GT(lines, 3u);
}

TEST(MapLegend, NamesTheBordersThatAGridComesUpon) {
    const std::string grid = R"({"type": "grid", "system": "UTM", "step": 10000, "name": "the grid"})";
    const auto has = [](const std::vector<std::string>& texts, const std::string& text) {
        return std::count(texts.begin(), texts.end(), text);
    };
    EXPECT_EQ(has(TextListOf(DrawMap(BORDER_MAP, grid), "legend"), "zone borders of UTM@WGS84"), 1);
    EXPECT_EQ(has(TextListOf(DrawMap(BORDER_MAP, grid), "legend"), "the grid"), 1);
    EXPECT_EQ(has(TextListOf(DrawMap(UTM_MAP, grid), "legend"), "zone borders of UTM@WGS84"), 0);
}

TEST(MapNotes, SayWhatLiesOutsideTheWindow) {
    const std::string svg = DrawMap(
        UTM_MAP, R"({"type": "positions", "name": "cities", "places": [[48.1, 11.5], [40, 11], [41, 12]]},
                    {"type": "geodesic", "name": "a way", "places": [[40, 11], [41, 11]]},
                    {"type": "polygon", "name": "an area", "places": [[40, 11], [41, 11], [41, 12]]},
                    {"type": "line", "name": "a line", "places": [[48, 11.4], [48, 11.5]]})");
    std::string note;
    for (const std::string& line : TextListOf(svg, "note"))
        note += (note.empty() ? "" : " ") + line;
    EXPECT_EQ(note,
              "Not shown: 2 of 3 points of \"cities\" (outside the window); \"a way\" (entirely outside the "
              "window); "
              "\"an area\" (entirely outside the window)");
    EXPECT_TRUE(
        TextListOf(DrawMap(UTM_MAP, R"({"type": "positions", "places": [[48.1, 11.5]]})"), "note").empty());
}

TEST(MapNotes, SayHowManyNamesHaveNoRoom) {
    std::string places;
    for (int i = 0; i < 60; ++i) {
        places += (i > 0 ? ", " : "") + std::string(R"({"pixel": [)") + std::to_string(480 + (i * 37) % 60) +
                  ", " + std::to_string(380 + (i * 23) % 40) + R"(], "name": "Place )" + std::to_string(i) +
                  "\"}";
    }
    const std::string svg = DrawMap(UTM_MAP, R"({"type": "positions", "places": [)" + places + "]}");
    const std::size_t drawn = ElementsOf(svg, "text", "name").size();
    ASSERT_LT(drawn, 60u);
    EXPECT_EQ(TextListOf(svg, "note"),
              std::vector<std::string>{"Not shown: " + std::to_string(60 - drawn) + " names (no room)"});
}

// A pixel of these maps is 1.1 km high and 0.7 km wide, whatever scale their description has.
TEST(MapCaption, HasNoScaleThatTheMapDoesntHave) {
    const auto map = [](const std::string& scale) {
        return R"({"projection": {"type": "DD", "originLongitude": 5, "originLatitude": 55, "pixelsPerDegreeX": 100,
                                  "pixelsPerDegreeY": 100}, "resolution": 10, "scale": )" +
               scale + R"(, "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": []})";
    };
    const Outcome wrong = Tessara({"map", "-"}, map("50000"));
    EXPECT_EQ(wrong.status, 1);
    // A degree of latitude at 50 degrees is 111.229 km, one of longitude 71.696 km.
    EXPECT_TRUE(wrong.err.starts_with(
        "-: scale: 'scale' and 'resolution' give 5 metres per pixel; the projection gives 71"))
        << wrong.err;
    EXPECT_EQ(TextListOf(wrong.out, "legend").at(0).find("1:50000"), std::string::npos);
    const Outcome right = Tessara({"map", "-"}, map("10000000"));
    EXPECT_EQ(right.status, 0) << right.err;
    EXPECT_NE(TextListOf(right.out, "legend").at(0).find("1:10000000"), std::string::npos);
}
