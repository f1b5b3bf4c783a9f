// Coastlines: land is where land is, on all types of maps, over the date line and the poles.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "program/files.h"
#include "program/map_maps.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

using OrderedJson = nlohmann::ordered_json;

struct Place {
    double latitude, longitude;
    const char* name;
    bool isLand;
};

// All more than two degrees from any coast, which the coastline has to half a degree.
const std::vector<Place> LAND_AND_SEA = {{48.14, 11.58, "Munich", true},
                                         {39.74, -104.99, "Denver", true},
                                         {-23.7, 133.88, "Alice Springs", true},
                                         {-15.78, -47.93, "Brasilia", true},
                                         {0.5, 25.2, "Kisangani", true},
                                         {67.5, -178.0, "Chukotka", true},
                                         {67.5, 178.0, "Chukotka, east", true},
                                         {-89.0, 45.0, "near the South Pole", true},
                                         {-82.0, 179.0, "Ross shelf", false},
                                         {-85.5, 60.0, "Antarctica, east", true},
                                         {-80.0, -120.0, "Antarctica, west", true},
                                         {75.0, -40.0, "Greenland", true},
                                         {55.0, -105.0, "Canada", true},
                                         {60.0, 100.0, "Siberia", true},
                                         {0.0, -150.0, "Pacific", false},
                                         {-30.0, 179.9, "Pacific, date line", false},
                                         {30.0, -179.9, "Pacific, north", false},
                                         {0.0, -25.0, "Atlantic", false},
                                         {-30.0, 80.0, "Indian Ocean", false},
                                         {88.0, 0.0, "Arctic", false},
                                         {88.0, 120.0, "Arctic, east", false},
                                         {-60.0, -170.0, "Southern Ocean", false}};

// The coast is layer 0, and each place is a layer of its own behind it.
std::string WithCoast(const std::string& map) {
    OrderedJson description = OrderedJson::parse(map);
    description["layers"] = OrderedJson::array();
    description["layers"].push_back({{"type", "coast"}, {"borders", true}});
    for (const Place& place : LAND_AND_SEA) {
        OrderedJson layer{{"type", "positions"}};
        layer["places"] = OrderedJson::array();
        layer["places"].push_back({{"at", {place.latitude, place.longitude}}});
        description["layers"].push_back(layer);
    }
    return description.dump();
}

// By the number of times that a ray to the right leaves the area.
bool IsIn(const std::vector<SvgLine>& outlines, const SvgPoint& point) {
    bool isIn = false;
    for (const SvgLine& outline : outlines) {
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const SvgPoint& a = outline[i];
            const SvgPoint& b = outline[(i + 1) % outline.size()];
            if ((a.y > point.y) == (b.y > point.y)) continue;
            if (a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x) > point.x) isIn = !isIn;
        }
    }
    return isIn;
}

// A place outside the window has no marker.
void ExpectLandWhereItIs(const std::string& map, std::size_t least) {
    const Outcome outcome = Tessara({"map", "-"}, WithCoast(map));
    const std::vector<SvgLine> land = LinesOf(outcome.out, "land");
    std::size_t found = 0;
    for (std::size_t i = 0; i < LAND_AND_SEA.size(); ++i) {
        const std::string layer = "layer" + std::to_string(i + 1);
        const std::vector<SvgElement> circles = ElementsOf(outcome.out, "circle", layer + " position");
        if (circles.empty()) continue;
        ++found;
        const SvgPoint at{circles[0].Number("cx"), circles[0].Number("cy")};
        EXPECT_EQ(IsIn(land, at), LAND_AND_SEA[i].isLand) << LAND_AND_SEA[i].name << "\n" << map;
    }
    EXPECT_GE(found, least) << map;
}

double Longest(const std::vector<SvgLine>& lines) {
    double longest = 0.0;
    for (const SvgLine& line : lines) {
        for (std::size_t i = 1; i < line.size(); ++i)
            longest = std::max(longest, std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y));
    }
    return longest;
}

std::string Map(const std::string& projection, const std::string& more, const std::string& window) {
    return R"({"projection": {)" + projection + "}, " + more + R"("window": {)" + window + "}}";
}

const std::string WHOLE = R"("left": 0, "top": 0, "right": 3600, "bottom": 1800)";
const std::string SQUARE = R"("left": 0, "top": 0, "right": 1000, "bottom": 1000)";

std::string DegreeMap(const std::string& west) {
    return Map(R"("type": "DD", "originLongitude": )" + west +
                   R"(, "originLatitude": 90, "pixelsPerDegreeX": 10, "pixelsPerDegreeY": 10)",
               "", WHOLE);
}

std::string TiedTo(const std::string& longitude, const std::string& pixel) {
    return R"("scale": 120000000, "resolution": 10, "reference": {"place": [0, )" + longitude +
           R"(], "pixel": )" + pixel + "}, ";
}

std::string RoundMap(const std::string& longitude) {
    return Map(R"("type": "VAN_DER_GRINTEN", "originLatitude": 0, "originLongitude": )" + longitude,
               TiedTo(longitude, "[1750, 1750]"), R"("left": 0, "top": 0, "right": 3500, "bottom": 3500)");
}

std::string OvalMap(const std::string& longitude) {
    return Map(R"("type": "WAGNER-IV", "stretchX": 1, "stretchY": 1, "originLongitude": )" + longitude,
               TiedTo(longitude, "[1750, 860]") + R"("datum": "Kugel", )",
               R"("left": 0, "top": 0, "right": 3500, "bottom": 1720)");
}

std::string PolarMap(const std::string& hemisphere) {
    return Map(R"("type": "UPS", "originEasting": 100000, "originNorthing": 3900000, "metresPerPixelX": 3800,
                  "metresPerPixelY": 3800, "hemisphere": ")" +
                   hemisphere + "\"",
               "", SQUARE);
}

std::string WidePolarMap(const std::string& zone, const std::string& latitude) {
    return Map(R"("type": "EQUALARC", "originLongitude": 0, "degreesPerPixelX": 0.1, "degreesPerPixelY": 0.1,
                  "zone": )" +
                   zone + R"(, "originLatitude": )" + latitude,
               "", R"("left": -500, "top": -500, "right": 500, "bottom": 500)");
}

}  // namespace

TEST(MapCoast, ParallelsLandAndSeaOnMapsOfTheWholeEarth) {
    for (const char* west : {"-180", "0", "-30", "-360"})
        ExpectLandWhereItIs(DegreeMap(west), LAND_AND_SEA.size());
    for (const char* longitude : {"0", "150", "-100", "180"}) {
        ExpectLandWhereItIs(RoundMap(longitude), LAND_AND_SEA.size());
        ExpectLandWhereItIs(OvalMap(longitude), LAND_AND_SEA.size());
    }
}

TEST(MapCoast, SurroundsThePoles) {
    ExpectLandWhereItIs(PolarMap("N"), 2);
    ExpectLandWhereItIs(PolarMap("S"), 4);
    ExpectLandWhereItIs(WidePolarMap("9", "90"), 8);
    ExpectLandWhereItIs(WidePolarMap("9", "75"), 8);
    ExpectLandWhereItIs(WidePolarMap("18", "-90"), 6);
}

TEST(MapCoast, GoesOnOverTheDateLine) {
    const std::string chukotka =
        R"("type": "LAMBERTCC", "parallel1": 62, "parallel2": 70, "originLongitude": -180, "originLatitude": 66,
           "falseEasting": 0, "falseNorthing": 0, "metresPerPixelX": 2000, "metresPerPixelY": 2000,
           "pixelX": 500, "pixelY": 500)";
    ExpectLandWhereItIs(Map(chukotka, "", SQUARE), 2);
    ExpectLandWhereItIs(Map(R"("type": "MERCATOR", "standardParallel": 0)",
                            R"("scale": 150000000, "resolution": 10, "reference": {"place": [0, 180],
                               "pixel": [500, 500]}, )",
                            SQUARE),
                        4);
    ExpectLandWhereItIs(Map(R"("type": "UTM", "zone": 1, "hemisphere": "N", "originEasting": -500000,
                               "originNorthing": 8400000, "metresPerPixelX": 2000, "metresPerPixelY": 2000)",
                            "", SQUARE),
                        2);
}

// On a map with its rim on the date line nothing runs from rim to rim, and on one with the date line in the
// middle no line stands there. No step of the data is longer than ten degrees.
TEST(MapCoast, HasNoLineAcrossTheMap) {
    EXPECT_LT(
        Longest(LinesOf(Tessara({"map", "-", "--size", "3600"}, WithCoast(DegreeMap("-180"))).out, "coast")),
        100.0);
    const std::string pacific = Tessara({"map", "-", "--size", "3600"}, WithCoast(DegreeMap("0"))).out;
    EXPECT_LT(Longest(LinesOf(pacific, "coast")), 100.0);
    // In the Pacific, from 60 degrees north to Fiji, there is none.
    for (const SvgLine& line : LinesOf(pacific, "coast")) {
        for (const SvgPoint& point : line)
            EXPECT_FALSE(std::abs(point.x - 1800.0) < 1.0 && point.y > 300.0 && point.y < 1050.0) << point.y;
    }
    for (const std::string& map : {RoundMap("0"), OvalMap("90"), PolarMap("S"), WidePolarMap("18", "-90")}) {
        for (const char* classes : {"coast", "country-border"})
            EXPECT_LT(Longest(LinesOf(Tessara({"map", "-"}, WithCoast(map)).out, classes)), 120.0) << map;
    }
}

// Of Africa Cape Agulhas, 34 degrees 50 minutes south; of South America the islands of Cape Horn, 55 degrees
// 59; of Greenland the north coast, 83 degrees 40 minutes.
TEST(MapCoast, HasTheCapesWhereTheyAre) {
    const std::string svg = Tessara({"map", "-", "--size", "3600"}, WithCoast(DegreeMap("-180"))).out;
    const auto southernmost = [&svg](double west, double east) {
        double row = 0.0;
        for (const SvgLine& line : LinesOf(svg, "coast")) {
            for (const SvgPoint& point : line) {
                const bool isThere = point.x > 10.0 * (west + 180.0) && point.x < 10.0 * (east + 180.0);
                if (isThere && point.y < 1500.0) row = std::max(row, point.y);
            }
        }
        return 90.0 - row / 10.0;
    };
    EXPECT_NEAR(southernmost(10.0, 30.0), -34.83, 0.5);
    EXPECT_NEAR(southernmost(-75.0, -63.0), -55.98, 0.5);
    double north = 1800.0;
    for (const SvgLine& line : LinesOf(svg, "coast")) {
        for (const SvgPoint& point : line)
            north = std::min(north, point.y);
    }
    EXPECT_NEAR(90.0 - north / 10.0, 83.67, 0.5);
}

TEST(MapCoast, LeavesOutBordersAndLandWhereTheyArentWanted) {
    const auto draw = [](const std::string& layer) {
        OrderedJson description = OrderedJson::parse(DegreeMap("-180"));
        description["layers"] = OrderedJson::array({OrderedJson::parse(layer)});
        const Outcome outcome = Tessara({"map", "-"}, description.dump());
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.out;
    };
    const std::string plain = draw(R"({"type": "coast"})");
    EXPECT_FALSE(LinesOf(plain, "land").empty());
    EXPECT_TRUE(LinesOf(plain, "country-border").empty());
    const std::string lines = draw(R"({"type": "coast", "borders": true, "fill": "none", "colour": "blue"})");
    EXPECT_TRUE(LinesOf(lines, "land").empty());
    EXPECT_FALSE(LinesOf(lines, "country-border").empty());
    EXPECT_EQ(ElementsOf(lines, "g", "coast").at(0).Attribute("stroke"), "#0072b2");
    EXPECT_EQ(ElementsOf(draw(R"({"type": "coast", "fill": "yellow"})"), "g", "land").at(0).Attribute("fill"),
              "#f0e442");
}

TEST(MapCoast, StaysInsideTheFrameOnEveryTypeOfMap) {
    for (const TypedMap& map : MapsOfAllTypes()) {
        SCOPED_TRACE(map.type);
        OrderedJson description = OrderedJson::parse(map.description);
        description["layers"].push_back({{"type", "coast"}, {"borders", true}});
        const Outcome outcome = Tessara({"map", "-"}, description.dump());
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const SvgElement frame = ElementsOf(outcome.out, "rect", "frame").at(0);
        for (const SvgLine& line : LinesOf(outcome.out, "coast")) {
            for (const SvgPoint& point : line) {
                EXPECT_TRUE(point.x >= -0.1 && point.x <= frame.Number("width") + 0.1) << point.x;
                EXPECT_TRUE(point.y >= -0.1 && point.y <= frame.Number("height") + 0.1) << point.y;
            }
        }
    }
}
