#include "areas/coordinate_area.h"

#include <array>
#include <optional>

#include "areas/extremes.h"
#include "areas/line_extents.h"
#include "areas/rect_extents.h"
#include "areas/system_extremes.h"
#include "objects/koord_access.h"
#include "tessara/array.h"
#include "tessara/map_coord_operations.h"
#include "tessara/rect.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

constexpr std::int32_t OVERLAY_FAILURE = -1;

bool MoveToSystemLimit(Compass direction, ICoord* point) {
    const IRef<ICoord> coord(point);
    CKoord koord;
    tagKOORD extreme;
    if (!KoordFromCoord(coord.Get(), &koord)) return false;
    if (!System_Extreme(direction, static_cast<std::int32_t>(koord.datum),
                        static_cast<std::int32_t>(koord.type), &extreme)) {
        return false;
    }
    const CKoord limit(extreme);
    return KoordToCoord(&limit, coord.Get());
}

struct Reference {
    std::int32_t datum;
    std::int32_t system;

    bool operator==(const Reference&) const = default;
};

// The coordinates that take extremes: all four, or one for its direction and nothing for the others.
class Results {
  public:
    Results(ICoord* north, ICoord* east, ICoord* south, ICoord* west)
        : at_{IRef<ICoord>(north), IRef<ICoord>(east), IRef<ICoord>(south), IRef<ICoord>(west)} {}
    Results(Compass direction, ICoord* point) : only_(direction) {
        at_[static_cast<std::size_t>(direction)] = IRef<ICoord>(point);
    }

    // The one that all share; false if they don't or one is missing.
    bool ReadReference(Reference* reference) const {
        std::optional<Reference> shared;
        for (const Compass direction : DIRECTIONS) {
            if (!IsAsked(direction)) continue;
            CKoord koord;
            if (!KoordFromCoord(At(direction), &koord)) return false;
            const Reference its{static_cast<std::int32_t>(koord.datum),
                                static_cast<std::int32_t>(koord.type)};
            if (shared && !(*shared == its)) return false;
            shared = its;
        }
        *reference = *shared;
        return true;
    }

    // Does nothing before there are any.
    bool Write(const Extremes& extremes) const {
        if (!extremes.HasStarted()) return true;
        for (const Compass direction : DIRECTIONS) {
            if (IsAsked(direction) && !KoordToCoord(&extremes[direction], At(direction))) return false;
        }
        return true;
    }

  private:
    [[nodiscard]] bool IsAsked(Compass direction) const { return !only_ || *only_ == direction; }
    [[nodiscard]] ICoord* At(Compass direction) const {
        return at_[static_cast<std::size_t>(direction)].Get();
    }

    std::array<IRef<ICoord>, COMPASS_COUNT> at_;
    std::optional<Compass> only_;
};

bool ReadRect(IRect* rect, PixelRect* read) {
    const IRef<IRect> edges(rect);
    if (!edges.IsValid()) return false;
    *read = {edges->GetLeft(), edges->GetTop(), edges->GetRight(), edges->GetBottom()};
    return true;
}

bool WriteRectExtremes(IMapCoordOperations* map, const PixelRect& rect, const Results& results) {
    const IRef<IMapCoordOperations> on(map);
    Reference reference{};
    if (!on.IsValid() || !results.ReadReference(&reference)) return false;
    Extremes extremes;
    const bool isComplete = ExtentOfRect(on.Get(), rect, reference.datum, reference.system, &extremes);
    return results.Write(extremes) && isComplete;
}

bool WriteLineExtremes(IMapCoordOperations* map, IArray* line, const Results& results) {
    const IRef<IArray> coords(line);
    Reference reference{};
    if (!coords.IsValid() || !results.ReadReference(&reference)) return false;
    Extremes extremes;
    const bool isComplete = ExtentOfLine(map, coords.Get(), reference.datum, reference.system, &extremes);
    return results.Write(extremes) && isComplete;
}

bool MoveToRectExtreme(Compass direction, IMapCoordOperations* map, IRect* rect, ICoord* point) {
    const Results result(direction, point);
    PixelRect window{};
    return ReadRect(rect, &window) && WriteRectExtremes(map, window, result);
}

bool MoveToMapLineExtreme(Compass direction, IMapCoordOperations* map, IArray* line, ICoord* point) {
    const IRef<IMapCoordOperations> on(map);
    return on.IsValid() && WriteLineExtremes(on.Get(), line, Results(direction, point));
}

bool MoveToLineExtreme(Compass direction, IArray* line, ICoord* point) {
    return WriteLineExtremes(nullptr, line, Results(direction, point));
}

}  // namespace

bool CoordinateArea::GetSystemNorth(ICoord* point) {
    return MoveToSystemLimit(Compass::North, point);
}

bool CoordinateArea::GetSystemEast(ICoord* point) {
    return MoveToSystemLimit(Compass::East, point);
}

bool CoordinateArea::GetSystemSouth(ICoord* point) {
    return MoveToSystemLimit(Compass::South, point);
}

bool CoordinateArea::GetSystemWest(ICoord* point) {
    return MoveToSystemLimit(Compass::West, point);
}

bool CoordinateArea::GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) {
    const IRef<ICoord> points[] = {IRef<ICoord>(north), IRef<ICoord>(east), IRef<ICoord>(south),
                                   IRef<ICoord>(west)};
    CKoord first;
    if (!KoordFromCoord(points[0].Get(), &first)) return false;
    for (const IRef<ICoord>& point : points) {
        CKoord koord;
        if (!KoordFromCoord(point.Get(), &koord)) return false;
        if (koord.datum != first.datum || koord.type != first.type) return false;
    }
    SystemExtremes extremes;
    if (!System_Extremes(static_cast<std::int32_t>(first.datum), static_cast<std::int32_t>(first.type),
                         &extremes)) {
        return false;
    }
    for (std::size_t i = 0; i < extremes.size(); ++i) {
        const CKoord extreme(extremes[i]);
        if (!KoordToCoord(&extreme, points[i].Get())) return false;
    }
    return true;
}

bool CoordinateArea::SetTolerance(double tolerance) {
    if (!(tolerance >= 0.0)) return false;
    tolerance_ = tolerance;
    return true;
}

bool CoordinateArea::GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::North, map, rect, point);
}

bool CoordinateArea::GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::East, map, rect, point);
}

bool CoordinateArea::GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::South, map, rect, point);
}

bool CoordinateArea::GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::West, map, rect, point);
}

bool CoordinateArea::GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east,
                                        ICoord* south, ICoord* west) {
    PixelRect window{};
    return ReadRect(rect, &window) && GetRectExtremes(map, &window, north, east, south, west);
}

bool CoordinateArea::GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north,
                                     ICoord* east, ICoord* south, ICoord* west) {
    const Results results(north, east, south, west);
    return rect != nullptr && WriteRectExtremes(map, *rect, results);
}

bool CoordinateArea::GetMapLineNorth(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::North, map, line, point);
}

bool CoordinateArea::GetMapLineEast(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::East, map, line, point);
}

bool CoordinateArea::GetMapLineSouth(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::South, map, line, point);
}

bool CoordinateArea::GetMapLineWest(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::West, map, line, point);
}

bool CoordinateArea::GetLineNorth(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::North, line, point);
}

bool CoordinateArea::GetLineEast(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::East, line, point);
}

bool CoordinateArea::GetLineSouth(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::South, line, point);
}

bool CoordinateArea::GetLineWest(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::West, line, point);
}

bool CoordinateArea::GetMapLineExtremes(IMapCoordOperations* map, IArray* line, ICoord* north, ICoord* east,
                                        ICoord* south, ICoord* west) {
    const IRef<IMapCoordOperations> on(map);
    return on.IsValid() && WriteLineExtremes(on.Get(), line, Results(north, east, south, west));
}

bool CoordinateArea::GetLineExtremes(IArray* line, ICoord* north, ICoord* east, ICoord* south, ICoord* west) {
    return WriteLineExtremes(nullptr, line, Results(north, east, south, west));
}

// The polygon operations aren't there yet.

bool CoordinateArea::IsInsideCoordEdges(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideCoordEdgesNoMap(ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideMapEdges(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideTransferred(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideOnMap(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsidePixels(ICoord*, IArray*) {
    return false;
}
std::int32_t CoordinateArea::OverlayOnMap(IMapCoordOperations*, IArray*, IArray*, IArray*, IArray*, IArray*,
                                          IArray*) {
    return OVERLAY_FAILURE;
}
std::int32_t CoordinateArea::Overlay(IArray*, IArray*, IArray*, IArray*, IArray*, IArray*) {
    return OVERLAY_FAILURE;
}
std::int32_t CoordinateArea::OverlayPixels(IMapCoordOperations*, IArray*, IArray*, IArray*, IArray*, IArray*,
                                           IArray*) {
    return OVERLAY_FAILURE;
}
bool CoordinateArea::SplitPolygon(IMapCoordOperations*, IArray*, IArray*) {
    return false;
}

ICoordinateArea* CreateClassCoordinateArea() {
    return NewObject<CoordinateArea>();
}

}  // namespace tessara
