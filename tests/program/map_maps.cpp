#include "program/map_maps.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/run_program.h"

namespace tessara::testing {
namespace {

using OrderedJson = nlohmann::ordered_json;

struct Grid {
    const char* system;
    double eastStep, northStep;

    Grid(const char* name, double step) : Grid(name, step, step) {}
    Grid(const char* name, double east, double north) : system(name), eastStep(east), northStep(north) {}
};

struct Place {  // degrees on WGS84
    double latitude, longitude;
    const char* name;
};

struct Sheet {
    const char* type;
    const char* parameters;  // of the projection, besides its type
    const char* ties;        // datum, and what else ties the map to the earth
    struct {
        double left, top, right, bottom;
    } window;
    std::vector<Grid> grids;
    Place place;
    const char* others = "[]";  // layers
};

// Of maps of the world.
constexpr const char* WAYS = R"([
    {"type": "geodesic", "places": [[50.03, 8.57], [33.94, -118.41]], "name": "Frankfurt to Los Angeles"},
    {"type": "geodesic", "places": [[35.77, 140.39], [37.62, -122.38]], "name": "Tokyo to San Francisco"},
    {"type": "line", "places": [[35.77, 140.39], [-33.95, 151.18]], "straightIn": "GEODEZ"},
    {"type": "rings", "centre": [50.03, 8.57], "radii": [2000000, 5000000, 10000000]}])";

const std::vector<Sheet>& Sheets() {
    static const std::vector<Sheet> sheets = {
        {"UTM",
         R"("zone": 23, "hemisphere": "S", "originEasting": 655000, "originNorthing": 7480000,
            "metresPerPixelX": 5, "metresPerPixelY": 5)",
         R"("datum": "WGS84")",
         {0, 0, 6000, 6000},
         {{"UTM", 5000}, {"GEOGRAD", 1.0 / 12.0}},
         {-22.9519, -43.2105, "Corcovado"}},
        {"GAUKRU",
         R"("meridian": 12, "originEasting": 4460000, "originNorthing": 5346000,
            "metresPerPixelX": 1.25, "metresPerPixelY": 1.25)",
         R"("datum": "GER")",
         {0, 0, 9600, 11000},
         {{"GK", 2000}, {"UTM@WGS84", 2000}},
         {48.1375, 11.5755, "Marienplatz"}},
        {"GAUKRU6",
         R"("meridian": 39, "originEasting": 7395000, "originNorthing": 6190000,
            "metresPerPixelX": 2.5, "metresPerPixelY": 2.5)",
         R"("datum": "KS42/83")",
         {0, 0, 8000, 8000},
         {{"GK6", 4000}, {"GEODEZMIN", 0.1}},
         {55.7539, 37.6208, "Red Square"}},
        {"BMN",
         R"("meridian": 34, "originEasting": 745000, "originNorthing": 350000,
            "metresPerPixelX": 2.5, "metresPerPixelY": 2.5)",
         R"("datum": "MGI")",
         {0, 0, 8000, 8000},
         {{"BMN", 4000}, {"OEM", 4000}},
         {48.2085, 16.3721, "Stephansdom"}},
        {"CH",
         R"("originEasting": 585000, "originNorthing": 206000, "metresPerPixelX": 1.25, "metresPerPixelY": 1.25)",
         R"("datum": "CH1903")",
         {0, 0, 14000, 9600},
         {{"CH", 2000}, {"UTMREF@WGS84", 2000}},
         {46.94809, 7.44744, "Bundeshaus"}},
        {"STEREOGR_NL",
         R"("originEasting": 110000, "originNorthing": 500000, "metresPerPixelX": 2.5, "metresPerPixelY": 2.5)",
         R"("datum": "RDNAP")",
         {0, 0, 8000, 8000},
         {{"RD", 4000}, {"GEOGRAD", 1.0 / 12.0}},
         {52.3731, 4.8926, "Dam"}},
        {"UPS",
         R"("hemisphere": "N", "originEasting": 1500000, "originNorthing": 2500000,
            "metresPerPixelX": 250, "metresPerPixelY": 250)",
         R"("datum": "WGS84")",
         {0, 0, 4000, 4000},
         {{"UPS", 200000}, {"GEODEZ", 15, 1}},
         {88, 45, "A place on the ice"}},
        {"TM",
         R"("originLongitude": -2, "originLatitude": 49, "falseEasting": 400000, "falseNorthing": -100000,
            "scale": 0.9996012717, "originEasting": 280000, "originNorthing": 240000,
            "metresPerPixelX": 5, "metresPerPixelY": 5)",
         R"("datum": "OGB_M")",
         {0, 0, 8000, 8000},
         {{"BNG", 5000}, {"GEODEZMIN", 0.1}},
         {51.884, -3.436, "Pen y Fan"}},
        {"PO_MILITARY",
         R"("originLongitude": -8.1331086111, "originLatitude": 39.6682583333, "falseEasting": 200000,
            "falseNorthing": 300000, "scale": 1, "originEasting": 100000, "originNorthing": 210000,
            "metresPerPixelX": 2.5, "metresPerPixelY": 2.5)",
         R"("datum": "EUR_M")",
         {0, 0, 8000, 8000},
         {{"PO_MILITARY", 4000}, {"GEODEZ", 0.05}},
         {38.7076, -9.13653, "Praça do Comércio"}},
        {"LUREF",
         R"("originLongitude": 6.16666666666667, "originLatitude": 49.8333333333333, "falseEasting": 80000,
            "falseNorthing": 100000, "scale": 1, "originEasting": 70000, "originNorthing": 82000,
            "metresPerPixelX": 1.25, "metresPerPixelY": 1.25)",
         R"("datum": "NTL")",
         {0, 0, 8000, 8000},
         {{"LUREF", 2000}, {"GEODEZ", 0.05}},
         {49.61167, 6.13, "Luxembourg"}},
        {"DD",
         R"("originLongitude": 5, "originLatitude": 55, "pixelsPerDegreeX": 100, "pixelsPerDegreeY": 150)",
         R"("datum": "WGS84")",
         {0, 0, 1000, 1000},
         {{"GEODEZ", 1}, {"GEOREF", 1}},
         {52.52, 13.4, "Berlin"}},
        {"EQUALARC",
         R"("zone": 9, "originLatitude": 80, "originLongitude": 0, "degreesPerPixelY": 0.01,
            "degreesPerPixelX": 0.01)",
         R"("datum": "WGS84")",
         {0, -1000, 2000, 1000},
         {{"GEODEZ", 10, 2}},
         {85, 25, "Somewhere"}},
        {"POLYNOM",
         R"("order": 3, "latFromPixel": [48.3, 0, -0.0004], "lonFromPixel": [11, 0.0005, 0],
            "pixelXFromWorld": [-22000, 2000, 0], "pixelYFromWorld": [120750, 0, -2500])",
         R"("datum": "WGS84")",
         {0, 0, 1000, 800},
         {{"GEODEZ", 0.1}, {"UTM", 10000}},
         {48.1375, 11.4, "West of Munich"}},
        {"LAMBERT2",
         R"("parallel1": 46, "parallel2": 49, "originLongitude": 13.33333333333333)",
         R"("datum": "MGI", "scale": 500000, "resolution": 10,
            "reference": {"place": [47.5, 13.33333333333333], "pixel": [6000, 3600]})",
         {0, 0, 12000, 6000},
         {{"GEODEZ", 1}, {"BMN", 50000}},
         {48.2085, 16.3721, "Wien"}},
        {"LAMBERTFR",
         R"("zone": 2, "offsetX": 450000, "offsetY": 2400000)",
         R"("datum": "NTF", "scale": 250000, "resolution": 10,
            "reference": {"place": [46.8, 2.33722917], "pixel": [100, 200]})",
         {0, 0, 12000, 14000},
         {{"GEODEZ", 0.5}, {"UTM@WGS84", 50000}},
         {45.7797, 3.087, "Clermont-Ferrand"}},
        {"LAMBERTCC",
         R"("parallel1": 49, "parallel2": 44, "originLongitude": 3, "originLatitude": 46.5, "falseEasting": 700000,
            "falseNorthing": 6600000, "metresPerPixelX": 250, "metresPerPixelY": 250, "pixelX": 2400.5,
            "pixelY": 2400.25)",
         R"("datum": "ETRS89")",
         {0, 0, 5000, 5000},
         {{"GEODEZ", 1}, {"UTM", 100000}},
         {48.8584, 2.2945, "Paris"}},
        {"MERCATOR",
         R"("standardParallel": 54)",
         R"("datum": "WGS84", "scale": 100000, "resolution": 10,
            "reference": {"place": [54, 7], "pixel": [4000, 6000]})",
         {0, 0, 11000, 12000},
         {{"GEOGRAD", 1.0 / 12.0}, {"UTM", 10000}},
         {54.18, 7.89, "Helgoland"}},
        {"AZYL",
         R"("standardParallel": 48)",
         R"("datum": "WGS84", "scale": 50000, "resolution": 10,
            "reference": {"place": [48, 16], "pixel": [5000, 5000]})",
         {0, 0, 12000, 15000},
         {{"GEODEZ", 0.1}, {"UTM", 10000}},
         {48.2085, 16.3721, "Wien"}},
        {"VAN_DER_GRINTEN",
         R"("originLongitude": 0, "originLatitude": 0)",
         R"("datum": "WGS84", "scale": 120000000, "resolution": 10,
            "reference": {"place": [0, 0], "pixel": [1750, 1750]})",
         {0, 0, 3500, 3500},
         {{"GEODEZ", 15}},
         {-33.85678, 151.2153, "Sydney"},
         WAYS},
        {"WAGNER-IV",
         R"("originLongitude": 0, "stretchX": 1, "stretchY": 1)",
         R"("datum": "Kugel", "scale": 120000000, "resolution": 10,
            "reference": {"place": [0, 0], "pixel": [1750, 860]})",
         {0, 0, 3500, 1720},
         {{"GEODEZ", 15}},
         {35.68, 139.69, "Tokyo"},
         WAYS},
    };
    return sheets;
}

OrderedJson Members(const char* members) {
    return OrderedJson::parse(std::string("{") + members + "}");
}

std::string Describe(const Sheet& sheet) {
    OrderedJson description = Members(sheet.ties);
    description["projection"] = Members(sheet.parameters);
    description["projection"]["type"] = sheet.type;
    description["window"] = {{"left", sheet.window.left},
                             {"top", sheet.window.top},
                             {"right", sheet.window.right},
                             {"bottom", sheet.window.bottom}};
    OrderedJson layers = OrderedJson::array();
    for (const Grid& grid : sheet.grids) {
        layers.push_back({{"type", "grid"},
                          {"system", grid.system},
                          {"eastStep", grid.eastStep},
                          {"northStep", grid.northStep}});
    }
    const OrderedJson place{{"at", {sheet.place.latitude, sheet.place.longitude}},
                            {"datum", "WGS84"},
                            {"name", sheet.place.name}};
    layers.push_back({{"type", "positions"}, {"places", OrderedJson::array({place})}});
    for (const OrderedJson& layer : OrderedJson::parse(sheet.others))
        layers.push_back(layer);
    description["layers"] = layers;
    return description.dump();
}

}  // namespace

std::vector<TypedMap> MapsOfAllTypes() {
    std::vector<TypedMap> maps;
    for (const Sheet& sheet : Sheets())
        maps.push_back({sheet.type, Describe(sheet)});
    return maps;
}

const std::string UTM_MAP =
    R"({"projection": {"type": "UTM", "zone": 32, "hemisphere": "N", "originEasting": 660000,
                       "originNorthing": 5340000},
        "scale": 500000, "resolution": 10,
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)";

const std::string BORDER_MAP =
    R"({"projection": {"type": "UTM", "zone": 32, "hemisphere": "N", "originEasting": 700000,
                       "originNorthing": 5345000, "metresPerPixelX": 50, "metresPerPixelY": 50},
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800}, "layers": [)";

const std::string VAN_DER_GRINTEN_MAP =
    R"({"projection": {"type": "VAN_DER_GRINTEN", "originLongitude": 0, "originLatitude": 0},
        "scale": 120000000, "resolution": 10, "reference": {"place": [0, 0], "pixel": [1750, 1750]},
        "window": {"left": 0, "top": 0, "right": 3500, "bottom": 3500}, "layers": [)";

const std::string POLE_MAP =
    R"({"projection": {"type": "UPS", "hemisphere": "N", "originEasting": 1500000, "originNorthing": 2500000,
                       "metresPerPixelX": 1000, "metresPerPixelY": 1000},
        "window": {"left": 0, "top": 0, "right": 1000, "bottom": 1000}, "layers": [)";

std::string DrawMap(const std::string& map, const std::string& layers, const std::string& size) {
    const Outcome outcome = Tessara({"map", "-", "--size", size}, map + layers + "]}");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
}

}  // namespace tessara::testing
