#include "map/geojson_shapes.h"

#include <cmath>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

#include "conversion/numbers.h"
#include "conversion/positions.h"
#include "conversion/units.h"
#include "map/json_reader.h"

namespace tessara::toolkit {
namespace {

constexpr int DEEPEST_COLLECTION = 32;
constexpr std::size_t LEAST_OF_A_RING = 4;  // including the repeated first position

class ShapeReader {
  public:
    ShapeReader(const LayerFile& file, const GeoJsonForm& form, std::vector<std::string>* problems)
        : file_(file), form_(form), problems_(*problems) {}

    EarthLayerShapes Read() {
        try {
            const nlohmann::json json = ParseJson(file_.text);
            const JsonValue root(json, "");
            if (TypeOf(root) != "FeatureCollection") {
                ReadWhole(root);
                return std::move(all_);
            }
            for (const JsonValue& feature : JsonObject(root).Required("features").List())
                ReadWhole(feature);
        } catch (const DescriptionError& error) {
            problems_.push_back(file_.name + ": " + error.what());
        }
        return std::move(all_);
    }

  private:
    using ReadCoordinates = void (ShapeReader::*)(const JsonValue&);

    static std::string TypeOf(const JsonValue& value) { return JsonObject(value).Required("type").Text(); }

    // Adds a feature completely or not at all.
    void ReadWhole(const JsonValue& feature) {
        shapes_ = {};
        try {
            ReadFeature(feature);
        } catch (const DescriptionError& error) {
            problems_.push_back(file_.name + ": " + error.what());
            return;
        }
        const auto append = [](auto& all, auto& more) {
            std::move(more.begin(), more.end(), std::back_inserter(all));
        };
        append(all_.points, shapes_.points);
        append(all_.lines, shapes_.lines);
        append(all_.areas, shapes_.areas);
    }

    // A geometry can replace a feature.
    void ReadFeature(const JsonValue& value) {
        name_.clear();
        if (TypeOf(value) != "Feature") return ReadGeometry(value, 0);
        JsonObject feature(value);
        if (const auto properties = feature.Optional("properties"); properties && !properties->IsNull())
            name_ = NameIn(*properties);
        const JsonValue geometry = feature.Required("geometry");
        if (!geometry.IsNull()) ReadGeometry(geometry, 0);
    }

    [[nodiscard]] std::string NameIn(const JsonValue& properties) const {
        const auto name = JsonObject(properties).Optional(form_.nameKey);
        if (!name) return {};
        if (name->IsNumber()) return FormatPlain(name->Number());
        return name->IsText() ? name->Text() : "";
    }

    void ReadGeometry(const JsonValue& value, int depth) {
        static const std::vector<std::string> names = {
            "Point",   "MultiPoint",   "LineString",        "MultiLineString",
            "Polygon", "MultiPolygon", "GeometryCollection"};
        static constexpr ReadCoordinates readers[] = {
            &ShapeReader::ReadPoint,   &ShapeReader::ReadEach<&ShapeReader::ReadPoint>,
            &ShapeReader::ReadLine,    &ShapeReader::ReadEach<&ShapeReader::ReadLine>,
            &ShapeReader::ReadPolygon, &ShapeReader::ReadEach<&ShapeReader::ReadPolygon>};

        JsonObject geometry(value);
        const std::size_t type = geometry.Required("type").ChoiceOf(names);
        if (type < std::size(readers)) return (this->*readers[type])(geometry.Required("coordinates"));
        if (depth == DEEPEST_COLLECTION) geometry.Fail("collections are nested too deeply");
        for (const JsonValue& element : geometry.Required("geometries").List())
            ReadGeometry(element, depth + 1);
    }

    template <ReadCoordinates read>
    void ReadEach(const JsonValue& value) {
        for (const JsonValue& element : value.List())
            (this->*read)(element);
    }

    void ReadPoint(const JsonValue& value) {
        const PicturePoint at = ReadPosition(value);
        shapes_.points.push_back(
            {DegreesCoord(at.y, at.x, form_.mapDatum), name_, file_.name + ": " + value.Place()});
    }

    void ReadLine(const JsonValue& value) { shapes_.lines.push_back({{ReadPositions(value, 2)}, name_}); }

    void ReadPolygon(const JsonValue& value) {
        EarthShape area{{}, name_};
        for (const JsonValue& ring : value.List())
            area.lines.push_back(ReadRing(ring));
        shapes_.areas.push_back(std::move(area));
    }

    EarthLine ReadRing(const JsonValue& value) {
        EarthLine ring = ReadPositions(value, LEAST_OF_A_RING);
        const double open = std::remainder(ring.back().x - ring.front().x, FULL_TURN);
        if (open != 0.0 || ring.back().y != ring.front().y)
            value.Fail("the ring is not closed: its last position differs from the first");
        return ring;
    }

    EarthLine ReadPositions(const JsonValue& value, std::size_t least) {
        EarthLine line;
        double last = 0.0;  // longitude in the file
        for (const JsonValue& position : value.List()) {
            const PicturePoint at = ReadPosition(position);
            const double east = line.empty() ? at.x : line.back().x + StepTo(at.x - last);
            line.push_back({east, at.y});
            last = at.x;
        }
        if (line.size() < least)
            value.Fail("expected at least " + std::to_string(least) + " positions, found " +
                       std::to_string(line.size()));
        return line;
    }

    // Keeps a step of 360 degrees, which is a side of a box around the earth.
    static double StepTo(double east) {
        return std::abs(east) < FULL_TURN ? std::remainder(east, FULL_TURN) : east;
    }

    // Reads longitude, latitude and an optional height, and converts them to the datum of the map.
    PicturePoint ReadPosition(const JsonValue& value) const {
        const std::vector<JsonValue> numbers = value.List();
        if (numbers.size() < 2)
            value.Fail("expected longitude and latitude, found " + std::to_string(numbers.size()) +
                       " values");
        const double longitude = numbers[0].NumberIn(-LONGITUDE_LIMIT, LONGITUDE_LIMIT);
        const double latitude = numbers[1].NumberIn(-LATITUDE_LIMIT, LATITUDE_LIMIT);
        if (form_.datum == form_.mapDatum) return {longitude, latitude};

        const IRef<ICoord> degrees = DegreesCoord(latitude, longitude, form_.datum);
        if (!degrees->SetReference(MakeReference({.datum = form_.mapDatum, .system = KOORD_GEODEZ}).Get()))
            value.Fail("cannot convert the position to the datum of the map");
        const auto shifted = Load<GeodezPayload>(host::RecordOf(degrees));
        return {longitude + std::remainder(shifted.longitude - longitude, FULL_TURN), shifted.latitude};
    }

    const LayerFile& file_;
    const GeoJsonForm& form_;
    std::vector<std::string>& problems_;
    std::string name_;         // of the current feature
    EarthLayerShapes shapes_;  // of the current feature
    EarthLayerShapes all_;
};

}  // namespace

EarthLayerShapes ReadGeoJson(const LayerFile& file, const GeoJsonForm& form,
                             std::vector<std::string>* problems) {
    if (!file.wrong.empty()) {
        problems->push_back(file.name + ": " + file.wrong);
        return {};
    }
    return ShapeReader(file, form, problems).Read();
}

}  // namespace tessara::toolkit
