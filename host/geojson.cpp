#include "geojson.h"

#include <algorithm>
#include <cmath>

#include "numbers.h"
#include "parse_json.h"

namespace tessara::program {
namespace {

// Where the features of a collection stand: root, "features", feature.
constexpr int MEMBER_DEPTH = 1;
constexpr int FEATURE_DEPTH = 2;

constexpr std::size_t HEIGHT_AT = 2;  // among coordinates

const Json& Member(const Json& json, const char* name) {
    static const Json NONE;
    if (!json.is_object()) return NONE;
    const auto found = json.find(name);
    return found != json.end() ? *found : NONE;
}

std::string TextMember(const Json& json, const char* name) {
    const Json& member = Member(json, name);
    return member.is_string() ? member.get<std::string>() : "";
}

std::string WrongPosition(const Json& coordinates) {
    if (!coordinates.is_array() || coordinates.size() < 2) return "has no longitude and latitude";
    for (std::size_t i = 0; i < std::min(coordinates.size(), HEIGHT_AT + 1); ++i) {
        if (!coordinates[i].is_number()) return Quote(coordinates[i].dump()) + " is not a number";
    }
    std::string wrong = WrongLatitude(TextOf(coordinates[1]));
    return wrong.empty() ? WrongLongitude(TextOf(coordinates[0])) : wrong;
}

std::string WrongFeature(const Json& feature) {
    if (TextMember(feature, "type") != "Feature") return "is no GeoJSON feature";
    const Json& properties = Member(feature, "properties");
    if (!properties.is_null() && !properties.is_object()) return "has properties that are no object";
    const Json& geometry = Member(feature, "geometry");
    if (geometry.is_null()) return "has no geometry";
    const std::string type = TextMember(geometry, "type");
    if (type != "Point") return "has the geometry " + Quote(type) + ", and only a Point is read";
    return WrongPosition(Member(geometry, "coordinates"));
}

double NumberOf(const Json& json) {
    return *ParseNumber(TextOf(json));
}

Record RecordOf(const Json& feature, const std::string& place) {
    Record record;
    record.place = place;
    record.feature = feature;
    record.error = WrongFeature(feature);
    if (!record.error.empty()) return record;
    const Json& coordinates = feature["geometry"]["coordinates"];
    record.position = Position{NumberOf(coordinates[1]), NumberOf(coordinates[0]), std::nullopt};
    if (coordinates.size() > HEIGHT_AT) record.position->height = NumberOf(coordinates[HEIGHT_AT]);
    if (const Json& properties = Member(feature, "properties"); properties.is_object())
        record.members = properties;
    return record;
}

// An older form of GeoJSON could name another system. What writes it for WGS84 calls it CRS84.
bool IsWgs84(const Json& crs) {
    const std::string name = TextMember(Member(crs, "properties"), "name");
    return crs.is_null() || name.ends_with("CRS84") || name.ends_with(":4326");
}

}  // namespace

void ReadGeoJson(std::istream& stream, const std::string& file, RecordSink* sink) {
    std::string member;  // of the root, which is being read
    std::size_t count = 0;
    bool isElsewhere = false;
    const auto take = [&](int depth, Json::parse_event_t event, Json& parsed) {
        using Event = Json::parse_event_t;
        if (depth == MEMBER_DEPTH && event == Event::key) member = parsed.get<std::string>();
        const bool isWhole = event == Event::object_end || event == Event::array_end || event == Event::value;
        if (depth == MEMBER_DEPTH && isWhole && member == "crs") isElsewhere = !IsWgs84(parsed);
        if (depth != FEATURE_DEPTH || !isWhole || member != "features") return true;
        Record record = RecordOf(parsed, file + ": feature " + std::to_string(++count));
        if (isElsewhere) record.error = "isn't on WGS84: the file has a 'crs'";
        sink->TakeRecord(std::move(record));
        return false;
    };

    Json root;
    Record whole;
    whole.place = file;
    whole.error = ParseJson(stream, take, &root);
    if (whole.error.empty() &&
        (TextMember(root, "type") != "FeatureCollection" || !root.contains("features")))
        whole.error = "is no GeoJSON FeatureCollection";
    if (!whole.error.empty()) sink->TakeRecord(std::move(whole));
}

Json PointOf(const Position& position) {
    const auto rounded = [](double value, int decimals) {
        return *ParseNumber(FormatNumber(value, decimals));
    };
    const double longitude =
        std::abs(position.longitude) > 180.0 ? std::remainder(position.longitude, 360.0) : position.longitude;
    Json coordinates{rounded(longitude, DEGREE_DECIMALS), rounded(position.latitude, DEGREE_DECIMALS)};
    if (position.height) coordinates.push_back(rounded(*position.height, METRE_DECIMALS));
    return {{"type", "Point"}, {"coordinates", coordinates}};
}

}  // namespace tessara::program
