// Descriptions of maps: any text, or a description with the right keys and arbitrary values, and the file
// that it names.
#include <nlohmann/json.hpp>

#include <string>

#include "drawing/map_page.h"
#include "fuzz/byte_reader.h"
#include "map/json_reader.h"
#include "map/map_description.h"

namespace tessara::fuzz {
namespace {

using Json = nlohmann::json;

constexpr const char* SYSTEMS[] = {"UTM",   "UTMREF", "GEODEZ",      "GEOREF", "GK",        "BMN", "CH",
                                   "GK6",   "GK-AT",  "UPS",         "VDG",    "BNG",       "ING", "RD",
                                   "LUREF", "TM",     "PO_MILITARY", "ECEF",   "FLOATPIXEL"};

// Degrees, mostly on the earth.
double Degrees(ByteReader& bytes) {
    return bytes.Below(16) == 0 ? bytes.Number() : bytes.Raw<std::int16_t>() / 128.0;
}

Json Place(ByteReader& bytes) {
    const double latitude = Degrees(bytes) / 2.0;
    const double longitude = Degrees(bytes);
    switch (bytes.Below(8)) {
        case 0:
            return {{"pixel", {latitude * 4.0, longitude * 4.0}}, {"name", bytes.Text(12)}};
        case 1: {
            const std::string north = bytes.Text(12);
            const std::string east = bytes.Text(12);
            return {{"system", bytes.OneOf(SYSTEMS)}, {"north", north}, {"east", east}};
        }
        case 2:
            return {{"at", {latitude, longitude}}, {"name", bytes.Text(12)}};
        default:
            return Json::array({latitude, longitude});
    }
}

Json Places(ByteReader& bytes) {
    Json places = Json::array();
    for (std::uint32_t count = bytes.Below(5); count > 0; --count)
        places.push_back(Place(bytes));
    return places;
}

void AddGrid(ByteReader& bytes, Json* projection) {
    (*projection)["originEasting"] = bytes.Number();
    (*projection)["originNorthing"] = bytes.Number();
    (*projection)["metresPerPixelX"] = bytes.Raw<std::uint16_t>() / 8.0;
    (*projection)["metresPerPixelY"] = bytes.Raw<std::uint16_t>() / 8.0;
}

Json Projection(ByteReader& bytes) {
    Json projection;
    const double latitude = Degrees(bytes) / 2.0;
    const double longitude = Degrees(bytes);
    switch (bytes.Below(9)) {
        case 0:
            projection = {{"type", "UTM"},
                          {"zone", 1 + bytes.Below(60)},
                          {"hemisphere", bytes.Below(2) == 0 ? "N" : "S"}};
            AddGrid(bytes, &projection);
            break;
        case 1:
            projection = {{"type", "UPS"}, {"hemisphere", bytes.Below(2) == 0 ? "N" : "S"}};
            AddGrid(bytes, &projection);
            break;
        case 2:
            projection = {{"type", bytes.Below(2) == 0 ? "CH" : "STEREOGR_NL"}};
            AddGrid(bytes, &projection);
            break;
        case 3:
            projection = {{"type", "GAUKRU"}, {"meridian", 3 * (static_cast<int>(bytes.Below(121)) - 60)}};
            AddGrid(bytes, &projection);
            break;
        case 4:
            projection = {{"type", "DD"},
                          {"originLongitude", longitude},
                          {"originLatitude", latitude},
                          {"pixelsPerDegreeX", bytes.Raw<std::uint16_t>() / 16.0},
                          {"pixelsPerDegreeY", bytes.Raw<std::uint16_t>() / 16.0}};
            break;
        case 5:
            projection = {{"type", "EQUALARC"},
                          {"zone", bytes.Below(19)},
                          {"originLongitude", longitude},
                          {"originLatitude", latitude},
                          {"degreesPerPixelX", bytes.Raw<std::uint16_t>() / 65536.0},
                          {"degreesPerPixelY", bytes.Raw<std::uint16_t>() / 65536.0}};
            break;
        case 6:
            projection = {{"type", bytes.Below(2) == 0 ? "MERCATOR" : "AZYL"},
                          {"standardParallel", latitude}};
            break;
        case 7:
            projection = {
                {"type", "VAN_DER_GRINTEN"}, {"originLongitude", longitude}, {"originLatitude", latitude}};
            break;
        default:
            projection = {
                {"type", "WAGNER-IV"}, {"originLongitude", longitude}, {"stretchX", 1.0}, {"stretchY", 1.0}};
    }
    return projection;
}

Json LayerOf(ByteReader& bytes) {
    switch (bytes.Below(9)) {
        case 0: {
            const double step = bytes.Below(2) == 0 ? bytes.Number() : bytes.Raw<std::uint8_t>() * 0.5;
            return {{"type", "grid"}, {"system", bytes.OneOf(SYSTEMS)}, {"step", step}};
        }
        case 1:
            return {{"type", "borders"}, {"system", bytes.OneOf(SYSTEMS)}};
        case 2:
            return {{"type", "positions"}, {"places", Places(bytes)}};
        case 3:
            return {{"type", "geodesic"}, {"places", Places(bytes)}};
        case 4:
            return {{"type", "line"}, {"places", Places(bytes)}, {"straightIn", bytes.OneOf(SYSTEMS)}};
        case 5: {
            const Json centre = Place(bytes);
            return {{"type", "rings"}, {"centre", centre}, {"radii", {bytes.Raw<std::uint32_t>() / 100.0}}};
        }
        case 6:
            return {{"type", "polygon"}, {"places", Places(bytes)}};
        case 7: {
            const Json first = Places(bytes);
            return {{"type", "overlay"}, {"first", first}, {"second", Places(bytes)}};
        }
        default:
            return {{"type", bytes.Below(2) == 0 ? "geojson" : "positions"}, {"file", "f"}};
    }
}

Json Description(ByteReader& bytes) {
    const double left = bytes.Raw<std::int16_t>();
    const double top = bytes.Raw<std::int16_t>();
    Json description{
        {"projection", Projection(bytes)},
        {"window", {{"left", left}, {"top", top}, {"right", left + bytes.Raw<std::uint16_t>() / 16.0}}},
        {"layers", Json::array()}};
    description["window"]["bottom"] = top + bytes.Raw<std::uint16_t>() / 16.0;
    if (bytes.Below(2) == 0) {
        description["scale"] = bytes.Raw<std::uint32_t>() % 100000000;
        description["resolution"] = 10;
        const Json pixel = Json::array({bytes.Raw<std::int16_t>(), bytes.Raw<std::int16_t>()});
        description["reference"] = {{"pixel", pixel}, {"place", Place(bytes)}};
    }
    for (std::uint32_t count = bytes.Below(3); count > 0; --count)
        description["layers"].push_back(LayerOf(bytes));
    return description;
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const bool isAnyText = bytes.Below(4) == 0;
    const std::string made =
        isAnyText ? std::string() : Description(bytes).dump(-1, ' ', true, Json::error_handler_t::replace);
    const std::string rest = bytes.Rest();
    const auto open = [&rest](const std::string& name) { return toolkit::LayerFile{name, rest, {}}; };
    try {
        const toolkit::MapPage page =
            toolkit::DrawMapPage(toolkit::ReadMapDescription(isAnyText ? rest : made, open), 200.0);
        Require(page.svg.find("nan") == std::string::npos && page.svg.find("inf") == std::string::npos);
    } catch (const toolkit::DescriptionError& error) {
        Require(*error.what() != '\0');
    }
    return 0;
}
