#include "files/geojson.h"

#include <algorithm>
#include <cmath>

#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "files/toolkit_names.h"

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

// Takes the features out of a collection while it is being parsed.
class CollectionReader {
  public:
    CollectionReader(const std::string& file, RecordSink* sink) : file_(file), sink_(sink) {}

    // False for what need not be kept.
    bool Take(int depth, Json::parse_event_t event, const Json& parsed) {
        using Event = Json::parse_event_t;
        if (depth == MEMBER_DEPTH && event == Event::key) member_ = parsed.get<std::string>();
        if (depth == MEMBER_DEPTH && event == Event::array_start) isInFeatures_ = member_ == "features";
        const bool isWhole = event == Event::object_end || event == Event::array_end || event == Event::value;
        if (!isWhole) return true;
        if (depth == MEMBER_DEPTH) {
            isInFeatures_ = false;
            if (member_ == "crs") TakeCrs(parsed);
        }
        if (depth != FEATURE_DEPTH || !isInFeatures_) return true;
        TakeFeature(parsed);
        return false;
    }

    // What is wrong with the rest of the collection; empty if nothing is.
    [[nodiscard]] std::string WrongRest(const Json& rest) const {
        if (TextMember(rest, "type") != "FeatureCollection" || !Member(rest, "features").is_array())
            return "is no GeoJSON FeatureCollection";
        return isLate_ ? "isn't on WGS84: its 'crs' comes behind features, which were taken for WGS84" : "";
    }

  private:
    void TakeCrs(const Json& crs) {
        isElsewhere_ = !IsWgs84(crs);
        isLate_ = isElsewhere_ && count_ > 0;
    }

    void TakeFeature(const Json& feature) {
        Record record = RecordOf(feature, file_ + ": feature " + std::to_string(++count_));
        if (isElsewhere_) record.error = "isn't on WGS84: the file has a 'crs'";
        sink_->TakeRecord(std::move(record));
    }

    const std::string& file_;
    RecordSink* sink_;
    std::string member_;  // of the root, which is being read
    std::size_t count_ = 0;
    bool isInFeatures_ = false;
    bool isElsewhere_ = false;
    bool isLate_ = false;
};

}  // namespace

void ReadGeoJson(std::istream& stream, const std::string& file, RecordSink* sink) {
    CollectionReader reader(file, sink);
    const auto take = [&reader](int depth, Json::parse_event_t event, Json& parsed) {
        return reader.Take(depth, event, parsed);
    };
    Json rest;
    Record whole;
    whole.place = file;
    whole.error = ParseJson(stream, take, &rest);
    if (whole.error.empty()) whole.error = reader.WrongRest(rest);
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
