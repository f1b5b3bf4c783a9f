#include "map_grid_parts.h"

#include <cmath>

namespace tessara::program {
namespace {

constexpr double HALF_TURN = 180.0;
constexpr double ROUNDING = 1e-9;      // degrees
constexpr double ANOTHER_PLACE = 1.0;  // degrees of latitude

struct Vertex {
    PicturePoint at;
    double east;  // of the window's middle, degrees; 0 in systems whose values don't go around the earth
};

bool IsInDegrees(std::int32_t system) {
    return system == KOORD_GEODEZ || system == KOORD_GEOGRAD || system == KOORD_GEODEZMIN;
}

bool IsShown(const Vertex& vertex) {
    return std::abs(vertex.east) <= HALF_TURN + ROUNDING;
}

// Where a segment with one end out of sight crosses the limit.
PicturePoint AtLimit(const Vertex& shown, const Vertex& hidden) {
    const double limit = std::copysign(HALF_TURN, hidden.east);
    const double part = (limit - shown.east) / (hidden.east - shown.east);
    return {shown.at.x + part * (hidden.at.x - shown.at.x), shown.at.y + part * (hidden.at.y - shown.at.y)};
}

// A parallel that is straight may be one segment from beyond one limit to beyond the other.
Polyline Across(const Vertex& from, const Vertex& to) {
    const auto at = [&](double limit) {
        const double part = (limit - from.east) / (to.east - from.east);
        return PicturePoint{from.at.x + part * (to.at.x - from.at.x),
                            from.at.y + part * (to.at.y - from.at.y)};
    };
    return {at(std::copysign(HALF_TURN, from.east)), at(std::copysign(HALF_TURN, to.east))};
}

// The vertex of a coordinate; nothing where the map shows another place on its pixel.
std::optional<Vertex> VertexOf(const MapSheet& sheet, bool goesAround, ICoord* coord) {
    const std::optional<PicturePoint> at = sheet.PointOf(coord);
    const std::optional<GeodezPayload> degrees = sheet.DegreesOf(coord);
    if (!at || !degrees) return std::nullopt;
    const std::optional<GeodezPayload> shown = sheet.DegreesAt(*at);
    if (shown && std::abs(shown->latitude - degrees->latitude) > ANOTHER_PLACE) return std::nullopt;
    return Vertex{*at, goesAround ? degrees->longitude - sheet.CentreLongitude() : 0.0};
}

class Chain {
  public:
    void Add(const std::optional<Vertex>& vertex) {
        if (!vertex) {
            last_.reset();
            Break();
            return;
        }
        if (last_) Join(*last_, *vertex);
        if (IsShown(*vertex)) parts_.back().push_back(vertex->at);
        last_ = vertex;
    }

    [[nodiscard]] std::vector<Polyline> Take() { return std::move(parts_); }

  private:
    // What lies between two vertices of which one or both are hidden.
    void Join(const Vertex& from, const Vertex& to) {
        if (IsShown(from) && !IsShown(to)) {
            parts_.back().push_back(AtLimit(from, to));
            Break();
        } else if (!IsShown(from) && IsShown(to)) {
            parts_.back().push_back(AtLimit(to, from));
        } else if (!IsShown(from) && from.east * to.east < 0.0) {
            parts_.push_back(Across(from, to));
            Break();
        }
    }

    void Break() {
        if (!parts_.back().empty()) parts_.emplace_back();
    }

    std::vector<Polyline> parts_ = std::vector<Polyline>(1);
    std::optional<Vertex> last_;
};

}  // namespace

std::vector<Polyline> PartsOnMap(const MapSheet& sheet, std::int32_t system, const IRef<IArray>& line) {
    Chain chain;
    const bool goesAround = IsInDegrees(system);
    for (std::uint32_t i = 0; i < line->GetCount(); ++i) {
        const IRef<ICoord> coord(line->GetAt(i));
        const bool isPixel = system == KOORD_FLOATPIXEL;
        const std::optional<PicturePoint> at = isPixel ? sheet.PointOf(coord.Get()) : std::nullopt;
        chain.Add(isPixel ? (at ? std::optional(Vertex{*at, 0.0}) : std::nullopt)
                          : VertexOf(sheet, goesAround, coord.Get()));
    }
    return chain.Take();
}

}  // namespace tessara::program
