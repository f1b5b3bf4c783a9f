// Layers from GeoJSON files.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "drawing/map_page.h"
#include "program/files.h"
#include "program/map_maps.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

// 100 pixels a degree: column 100 * (longitude - 5), row 100 * (55 - latitude).
const std::string DEGREE_MAP =
    R"({"projection": {"type": "DD", "originLongitude": 5, "originLatitude": 55, "pixelsPerDegreeX": 100,
                       "pixelsPerDegreeY": 100},
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)";

// The same around the date line, from 175 degrees east to 175 west.
const std::string DATE_LINE_MAP =
    R"({"projection": {"type": "DD", "originLongitude": 175, "originLatitude": 55, "pixelsPerDegreeX": 100,
                       "pixelsPerDegreeY": 100},
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)";

constexpr double TWO_DECIMALS = 0.011;

struct Drawn {
    Outcome outcome;
    std::string file;
};

Drawn Draw(const std::string& json, const std::string& style = "", const std::string& map = DEGREE_MAP) {
    const ScratchDirectory files;
    const std::string file = files.File("layer.geojson", json);
    return {Tessara({"map", "-"}, map + R"({"type": "geojson", "file": ")" + file + "\"" + style + "}]}"),
            file};
}

std::string Geometry(const std::string& type, const std::string& coordinates) {
    return R"({"type": ")" + type + R"(", "coordinates": )" + coordinates + "}";
}

std::string Feature(const std::string& geometry, const std::string& properties = "null") {
    return R"({"type": "Feature", "properties": )" + properties + R"(, "geometry": )" + geometry + "}";
}

std::string Collection(const std::string& features) {
    return R"({"type": "FeatureCollection", "features": [)" + features + "]}";
}

void ExpectLine(const std::vector<SvgLine>& lines, const SvgLine& expected) {
    ASSERT_EQ(lines.size(), 1u);
    ASSERT_EQ(lines[0].size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(lines[0][i].x, expected[i].x, TWO_DECIMALS);
        EXPECT_NEAR(lines[0][i].y, expected[i].y, TWO_DECIMALS);
    }
}

}  // namespace

TEST(MapGeoJson, DrawsPointsLinesAndPolygonsWithTheirNames) {
    const Outcome outcome =
        Draw(Collection(Feature(Geometry("Point", "[6, 54]"), R"({"name": "here"})") + "," +
                        Feature(Geometry("LineString", "[[7, 54], [8, 53], [9, 53.5, 400]]"),
                                R"({"name": "way", "length": 3})") +
                        "," +
                        Feature(Geometry("Polygon", R"([[[10, 50], [12, 50], [12, 52], [10, 52], [10, 50]],
                                                        [[10.5, 50.5], [10.5, 51], [11, 51], [10.5, 50.5]]])"))))
            .outcome;
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::vector<SvgElement> circles = ElementsOf(outcome.out, "circle", "layer0 position");
    ASSERT_EQ(circles.size(), 1u);
    EXPECT_NEAR(circles[0].Number("cx"), 100.0, TWO_DECIMALS);
    EXPECT_NEAR(circles[0].Number("cy"), 100.0, TWO_DECIMALS);
    EXPECT_EQ(TextsOf(outcome.out, "name"), (std::set<std::string>{"here", "way"}));

    const std::vector<SvgLine> lines = LinesOf(outcome.out, "layer0 shape");
    // The polygon's area with its hole, its two outlines, and the line.
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_LT(DistanceTo(lines, {250.0, 150.0}), TWO_DECIMALS);
    EXPECT_LT(DistanceTo(lines, {350.0, 175.0}), TWO_DECIMALS);
    EXPECT_LT(DistanceTo(lines, {500.0, 400.0}), TWO_DECIMALS);
    EXPECT_LT(DistanceTo(lines, {575.0, 425.0}), TWO_DECIMALS);
    bool hasHoles = false;
    for (const SvgElement& group : ElementsOf(outcome.out, "g", "layer0 shape"))
        hasHoles = hasHoles || group.Attribute("fill-rule") == "evenodd";
    EXPECT_TRUE(hasHoles);
}

TEST(MapGeoJson, TakesEveryKindOfGeometryAlone) {
    for (const auto& [json, circles, paths] :
         {std::tuple{Geometry("Point", "[6, 54]"), 1u, 0u},
          {Geometry("MultiPoint", "[[6, 54], [7, 54]]"), 2u, 0u},
          {Geometry("LineString", "[[6, 54], [7, 54]]"), 0u, 1u},
          {Geometry("MultiLineString", "[[[6, 54], [7, 54]], [[6, 53], [7, 53]]]"), 0u, 2u},
          {Geometry("Polygon", "[[[6, 54], [7, 54], [7, 53], [6, 54]]]"), 0u, 2u},
          {Geometry("MultiPolygon",
                    "[[[[6, 54], [7, 54], [7, 53], [6, 54]]], [[[8, 54], [9, 54], [9, 53], [8, 54]]]]"),
           0u, 4u},
          {R"({"type": "GeometryCollection", "geometries": [)" + Geometry("Point", "[6, 54]") + "," +
               R"({"type": "GeometryCollection", "geometries": [)" + Geometry("Point", "[7, 54]") + "]}]}",
           2u, 0u},
          {Feature("null"), 0u, 0u},
          {Collection(""), 0u, 0u}}) {
        const Outcome outcome = Draw(json).outcome;
        EXPECT_EQ(outcome.status, 0) << json;
        EXPECT_EQ(outcome.err, "") << json;
        EXPECT_EQ(ElementsOf(outcome.out, "circle", "layer0 position").size(), circles) << json;
        EXPECT_EQ(LinesOf(outcome.out, "layer0 shape").size(), paths) << json;
    }
}

TEST(MapGeoJson, HasAStyle) {
    const std::string square = Geometry("Polygon", "[[[6, 54], [7, 54], [7, 53], [6, 53], [6, 54]]]");
    const std::string svg =
        Draw(square, R"(, "colour": "blue", "fill": "orange", "opacity": 0.5, "width": 3, "dashed": true)")
            .outcome.out;
    bool hasArea = false;
    bool hasOutline = false;
    for (const SvgElement& group : ElementsOf(svg, "g", "layer0 shape")) {
        const bool isArea = group.Attribute("fill") != "none";
        hasArea = hasArea || (isArea && group.Attribute("fill") == "#e69f00" &&
                              group.Attribute("fill-opacity") == "0.5");
        hasOutline = hasOutline ||
                     (!isArea && group.Attribute("stroke") == "#0072b2" &&
                      group.Attribute("stroke-width") == "3" && !group.Attribute("stroke-dasharray").empty());
    }
    EXPECT_TRUE(hasArea);
    EXPECT_TRUE(hasOutline);
    EXPECT_EQ(LinesOf(Draw(square, R"(, "fill": "none")").outcome.out, "layer0 shape").size(), 1u);
}

TEST(MapGeoJson, TakesNamesFromAnotherProperty) {
    const std::string json =
        Feature(Geometry("Point", "[6, 54]"), R"({"name": "a", "height": 12.5, "x": {}})");
    EXPECT_EQ(TextsOf(Draw(json, R"(, "label": "height")").outcome.out, "name"),
              std::set<std::string>{"12.5"});
    EXPECT_TRUE(TextsOf(Draw(json, R"(, "label": "x")").outcome.out, "name").empty());
    EXPECT_TRUE(TextsOf(Draw(json, R"(, "label": "none")").outcome.out, "name").empty());
}

TEST(MapGeoJson, GoesTheShortWayOverTheDateLine) {
    const std::string line = Geometry("LineString", "[[178, 50], [-178, 52]]");
    ExpectLine(LinesOf(Draw(line, "", DATE_LINE_MAP).outcome.out, "layer0 shape"), {{300, 500}, {700, 300}});
    // There and back, and on the other side in between.
    const std::string round = Geometry("LineString", "[[178, 50], [-178, 52], [-177, 50], [178, 50]]");
    ExpectLine(LinesOf(Draw(round, "", DATE_LINE_MAP).outcome.out, "layer0 shape"),
               {{300, 500}, {700, 300}, {800, 500}, {300, 500}});
    // Nothing of it is in the middle of the other side of the earth.
    EXPECT_TRUE(LinesOf(Draw(line).outcome.out, "layer0 shape").empty());
    const std::string parts = Geometry("MultiPolygon", R"([[[[178, 50], [180, 50], [180, 52], [178, 50]]],
                                                           [[[-180, 50], [-178, 50], [-180, 52], [-180, 50]]]])");
    const std::vector<SvgLine> lines = LinesOf(Draw(parts, "", DATE_LINE_MAP).outcome.out, "layer0 shape");
    EXPECT_LT(DistanceTo(lines, {300.0, 500.0}), TWO_DECIMALS);
    EXPECT_LT(DistanceTo(lines, {700.0, 500.0}), TWO_DECIMALS);
}

TEST(MapGeoJson, AroundAPoleCoversIt) {
    const std::string svg =
        Draw(Geometry("Polygon", "[[[0, 88], [90, 88], [180, 88], [-90, 88], [0, 88]]]"), "", POLE_MAP)
            .outcome.out;
    // Its segments are parallels: a circle around the pole at (500, 500).
    // echo 88 0 | GeoConvert -u -p 3: n 2000000.000 1777930.731
    for (const SvgLine& line : LinesOf(svg, "layer0 shape")) {
        for (const SvgPoint& point : line) {
            const double radius = std::hypot(point.x - 500.0, point.y - 500.0);
            EXPECT_TRUE(std::abs(radius - 222.069) < 0.5 || radius < 0.5) << radius;
        }
    }
    EXPECT_GE(LinesOf(svg, "layer0 shape").size(), 2u);
}

TEST(MapGeoJson, ComesToTheDatumOfTheMap) {
    const std::string map =
        R"({"projection": {"type": "DD", "originLongitude": 11, "originLatitude": 49, "pixelsPerDegreeX": 10000,
                           "pixelsPerDegreeY": 10000}, "datum": "GER",
            "window": {"left": 5000, "top": 4500, "right": 6000, "bottom": 5500}, "layers": [)";
    // echo 11.5 48.5 | cs2cs -f %.9f +proj=longlat +datum=WGS84 +to +proj=longlat +ellps=bessel
    //     +towgs84=604,21,415: 11.501351177 48.500948049; the abridged shift is 2e-7 degrees beside it.
    const std::vector<SvgElement> wgs84 =
        ElementsOf(Draw(Geometry("Point", "[11.5, 48.5]"), "", map).outcome.out, "circle", "position");
    ASSERT_EQ(wgs84.size(), 1u);
    EXPECT_NEAR(wgs84[0].Number("cx"), 13.51177, TWO_DECIMALS);
    EXPECT_NEAR(wgs84[0].Number("cy"), 490.51951, TWO_DECIMALS);
    const std::vector<SvgElement> ger =
        ElementsOf(Draw(Geometry("Point", "[11.5, 48.5]"), R"(, "datum": "GER")", map).outcome.out, "circle",
                   "position");
    ASSERT_EQ(ger.size(), 1u);
    EXPECT_NEAR(ger[0].Number("cx"), 0.0, TWO_DECIMALS);
    EXPECT_NEAR(ger[0].Number("cy"), 500.0, TWO_DECIMALS);
}

TEST(MapGeoJson, SaysWhatIsWrongWithAFeatureAndDrawsTheOthers) {
    const std::string good = Feature(Geometry("Point", "[6, 54]"));
    for (const auto& [geometry, message] :
         {std::pair{Geometry("Point", "[6]"),
                    ".coordinates: expected longitude and latitude, found 1 values"},
          {Geometry("Point", R"([6, "x"])"), R"(.coordinates[1]: expected a number, found "x")"},
          {Geometry("Point", "[6, 91]"), ".coordinates[1]: expected a number in -90..90, found 91"},
          {Geometry("LineString", "[[6, 54]]"), ".coordinates: expected at least 2 positions, found 1"},
          {Geometry("Polygon", "[[[6, 54], [7, 54], [7, 53], [6, 53]]]"),
           ".coordinates[0]: the ring is not closed: its last position differs from the first"},
          {Geometry("MultiPoint", "[[6, 54], 3]"), ".coordinates[1]: expected a list, found 3"},
          {Geometry("Circle", "[6, 54]"),
           ".type: expected one of Point, MultiPoint, LineString, MultiLineString, Polygon, MultiPolygon, "
           R"(GeometryCollection, found "Circle")"},
          {R"({"type": "Point"})", ": missing 'coordinates'"}}) {
        const Drawn drawn = Draw(Collection(Feature(geometry) + "," + good));
        EXPECT_EQ(drawn.outcome.status, 1);
        EXPECT_EQ(drawn.outcome.err, drawn.file + ": features[0].geometry" + message + "\n");
        EXPECT_EQ(ElementsOf(drawn.outcome.out, "circle", "position").size(), 1u) << geometry;
    }
}

TEST(MapGeoJson, SaysWhatIsWrongWithAFile) {
    for (const auto& [json, message] :
         {std::pair{std::string("[1]"), "expected an object, found a list of length 1"},
          {std::string(R"({"type": "FeatureCollection"})"), "missing 'features'"}}) {
        const Drawn drawn = Draw(json);
        EXPECT_EQ(drawn.outcome.status, 1);
        EXPECT_EQ(drawn.outcome.err, drawn.file + ": " + message + "\n");
    }
    const Drawn broken = Draw("{");
    EXPECT_TRUE(
        broken.outcome.err.starts_with(broken.file + ": invalid JSON: parse error at line 1, column 2"))
        << broken.outcome.err;
    const Outcome nowhere = Tessara({"map", "-"}, DEGREE_MAP + R"({"type": "geojson", "file": "nowhere"}]})");
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.err, "nowhere: cannot read the file: No such file or directory\n");
}

TEST(MapGeoJson, RefusesCollectionsWithoutEnd) {
    std::string json = Geometry("Point", "[6, 54]");
    for (int i = 0; i < 2000; ++i)
        json = R"({"type": "GeometryCollection", "geometries": [)" + json + "]}";
    const Drawn drawn = Draw(json);
    EXPECT_EQ(drawn.outcome.status, 1);
    EXPECT_NE(drawn.outcome.err.find("collections are nested too deeply"), std::string::npos);
}

// What a host does that has no files.
TEST(MapGeoJson, ComesFromATextThatAHostHolds) {
    using namespace tessara::toolkit;
    const OpenLayerFile open = [](const std::string& name) {
        return LayerFile{name, name == "a" ? Geometry("Point", "[6, 54]") : "54 7 # b\n95 7\n", {}};
    };
    const MapDescription description = ReadMapDescription(
        DEGREE_MAP + R"({"type": "geojson", "file": "a"}, {"type": "positions", "file": "b"}]})", open);
    EXPECT_EQ(description.problems, std::vector<std::string>{"b:2: latitude '95' is outside -90..90"});
    const MapPage page = DrawMapPage(description, 500.0);
    EXPECT_TRUE(page.problems.empty());
    EXPECT_EQ(ElementsOf(page.svg, "circle", "layer0 position").size(), 1u);
    EXPECT_EQ(ElementsOf(page.svg, "circle", "layer1 position").size(), 1u);
}
