#include "files/geometry.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "files/json_scan.h"

namespace tessara::program {
namespace {

constexpr std::string_view COLLECTION = "GeometryCollection";

struct GeometryType {
    std::string_view name;
    int depth;  // of the arrays around its positions
};

constexpr GeometryType TYPES[] = {
    {"Point", 0},           {"MultiPoint", 1}, {"LineString", 1},
    {"MultiLineString", 2}, {"Polygon", 2},    {"MultiPolygon", 3},
};

const GeometryType* TypeByName(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(TYPES), std::end(TYPES), [&](const auto& type) { return type.name == name; });
    return found != std::end(TYPES) ? found : nullptr;
}

constexpr int NO_DEPTH = -1;

// Reads nested coordinates before the type of the geometry is known, and keeps the error of the first wrong
// position.
class Coordinates {
  public:
    Coordinates(JsonScan& scan, Geometry* geometry) : scan_(scan), nesting_(geometry->nesting) {}

    void Read() {
        nesting_.clear();
        positions_.clear();
        areThere_ = true;
        Read(0);
    }

    [[nodiscard]] const std::vector<Position>& Positions() const { return positions_; }

    // The error in the coordinates for a type of geometry; empty for valid coordinates.
    [[nodiscard]] std::string Wrong(const GeometryType& type) const {
        const bool isPoint = type.depth == 0;
        const bool areRight = positionDepth_ == type.depth ||
                              (positionDepth_ == NO_DEPTH && !isPoint && listDepth_ <= type.depth);
        if (isPoint && !areRight) return "missing longitude and latitude";
        if (!areThere_ || !areRight || areUneven_)
            return "invalid nesting of the coordinates of a " + std::string(type.name);
        if (wrong_.empty() || isPoint) return wrong_;
        return "position " + std::to_string(wrongAt_) + ": " + wrong_;
    }

  private:
    void Read(int depth) {
        if (scan_.Peek() != '[') {
            scan_.Value();
            areUneven_ = true;
            return;
        }
        JsonScan inside = scan_;
        inside.Take('[');
        const char first = inside.Peek();
        if (first != '[' && first != ']') return ReadPosition(depth);
        listDepth_ = std::max(listDepth_, depth + 1);
        nesting_ += '[';
        scan_.Array([&] { Read(depth + 1); });
        nesting_ += ']';
    }

    void ReadPosition(int depth) {
        nesting_ += '.';
        areUneven_ = areUneven_ || (positionDepth_ != NO_DEPTH && positionDepth_ != depth);
        positionDepth_ = depth;
        Position position{};
        std::size_t count = 0;
        scan_.Array([&] {
            const std::string_view word = scan_.Value();
            if (count == 0) position.longitude = NumberOf(word, LONGITUDE_LIMIT, WrongLongitude);
            if (count == 1) position.latitude = NumberOf(word, LATITUDE_LIMIT, WrongLatitude);
            if (count == 2) position.height = NumberOf(word, HUGE_VAL, WrongNumber);
            ++count;
        });
        if (count < 2) Refuse("missing longitude and latitude");
        positions_.push_back(position);
    }

    double NumberOf(std::string_view word, double limit, std::string (*wrong)(std::string_view)) {
        const std::optional<double> number = ParseNumber(word);
        if (number && std::abs(*number) <= limit) return *number;
        Refuse(wrong(word));
        return 0.0;
    }

    void Refuse(const std::string& words) {
        if (!wrong_.empty()) return;
        wrong_ = words;
        wrongAt_ = positions_.size() + 1;
    }

    JsonScan& scan_;
    std::string& nesting_;
    std::vector<Position> positions_;
    int positionDepth_ = NO_DEPTH;
    int listDepth_ = 0;
    bool areThere_ = false;
    bool areUneven_ = false;
    std::string wrong_;
    std::size_t wrongAt_ = 0;
};

// Reads the parts of a collection and returns the first error.
std::string ReadParts(JsonScan& scan, std::vector<Geometry>* parts, std::vector<Position>* positions) {
    parts->clear();
    positions->clear();
    std::string wrong;
    if (scan.Peek() != '[') {
        scan.Value();
        return "missing array 'geometries'";
    }
    scan.Array([&] {
        Geometry part;
        const std::string wrongPart = ReadGeometry(scan, &part, positions);
        if (wrong.empty()) wrong = wrongPart;
        parts->push_back(std::move(part));
    });
    return wrong;
}

// Writes at least one decimal and at most `decimals`.
void AppendRounded(double value, int decimals, std::string* json) {
    std::string text = FormatPlain(value, decimals);
    *json += text;
    if (text.find('.') == std::string::npos) *json += ".0";
}

void AppendPosition(const Position& position, std::string* json) {
    const double longitude =
        std::abs(position.longitude) > 180.0 ? std::remainder(position.longitude, 360.0) : position.longitude;
    *json += '[';
    AppendRounded(longitude, DEGREE_DECIMALS, json);
    *json += ',';
    AppendRounded(position.latitude, DEGREE_DECIMALS, json);
    if (position.height) {
        *json += ',';
        AppendRounded(*position.height, METRE_DECIMALS, json);
    }
    *json += ']';
}

// Writes values at the positions of a geometry and of its parts, in order.
class Nesting {
  public:
    Nesting(const std::function<void(std::size_t)>& append, std::string* json)
        : append_(append), json_(json) {}

    void Append(const Geometry& geometry) {
        if (geometry.type == COLLECTION)
            return AppendParts(geometry, [this](const Geometry& part) { Append(part); });
        bool isFirst = true;
        for (const char c : geometry.nesting) {
            if (!isFirst && c != ']') *json_ += ',';
            isFirst = c == '[';
            if (c == '.') {
                append_(next_++);
            } else {
                *json_ += c;
            }
        }
    }

    // Writes type and parts, too.
    void AppendWhole(const Geometry& geometry) {
        const bool isCollection = geometry.type == COLLECTION;
        *json_ += R"({"type":")";
        *json_ += geometry.type;
        *json_ += isCollection ? R"(","geometries":)" : R"(","coordinates":)";
        if (isCollection) {
            AppendParts(geometry, [this](const Geometry& part) { AppendWhole(part); });
        } else {
            Append(geometry);
        }
        *json_ += '}';
    }

  private:
    template <class AppendPart>
    void AppendParts(const Geometry& geometry, AppendPart append) {
        *json_ += '[';
        for (const Geometry& part : geometry.parts) {
            if (&part != geometry.parts.data()) *json_ += ',';
            append(part);
        }
        *json_ += ']';
    }

    const std::function<void(std::size_t)>& append_;
    std::string* json_;
    std::size_t next_ = 0;
};

}  // namespace

bool IsGeometryType(std::string_view type) {
    return type == COLLECTION || TypeByName(type) != nullptr;
}

std::string ReadGeometry(JsonScan& scan, Geometry* geometry, std::vector<Position>* positions) {
    if (scan.Peek() != '{')
        return scan.Value() == "null" ? "missing geometry" : "invalid geometry: expected an object";
    std::string type;
    std::string wrongParts = "missing array 'geometries'";
    std::vector<Position> ofParts;
    Coordinates coordinates(scan, geometry);
    scan.Object([&](std::string_view name) {
        if (name == R"("type")") {
            type = Unescaped(scan.Value());
        } else if (name == R"("coordinates")") {
            coordinates.Read();
        } else if (name == R"("geometries")") {
            wrongParts = ReadParts(scan, &geometry->parts, &ofParts);
        } else {
            scan.Value();
        }
    });
    if (type == COLLECTION) {
        geometry->type = COLLECTION;
        positions->insert(positions->end(), ofParts.begin(), ofParts.end());
        return wrongParts;
    }
    const GeometryType* const known = TypeByName(type);
    if (known == nullptr) return "unknown geometry type " + Quote(type);
    geometry->type = known->name;
    const std::vector<Position>& own = coordinates.Positions();
    positions->insert(positions->end(), own.begin(), own.end());
    return coordinates.Wrong(*known);
}

void AppendGeometry(const Geometry& geometry, const std::vector<Position>& positions, std::string* json) {
    const std::function<void(std::size_t)> append = [&](std::size_t i) {
        AppendPosition(positions[i], json);
    };
    Nesting(append, json).AppendWhole(geometry);
}

void AppendNested(const Geometry& geometry, const std::function<void(std::size_t)>& append,
                  std::string* json) {
    if (geometry.nesting == "." && geometry.type != COLLECTION) return append(0);
    Nesting(append, json).Append(geometry);
}

}  // namespace tessara::program
