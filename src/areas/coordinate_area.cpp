#include "areas/coordinate_area.h"

#include "areas/system_extremes.h"
#include "objects/koord_access.h"
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

// Extents of rectangles and lines and the polygon operations need maps and lines, which aren't there yet.

bool CoordinateArea::GetMapRectNorth(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectEast(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectSouth(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectWest(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectExtremes(IMapCoordOperations*, IRect*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetRectExtremes(IMapCoordOperations*, IRect*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineNorth(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineNorth(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineEast(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineEast(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineSouth(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineSouth(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineWest(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineWest(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineExtremes(IMapCoordOperations*, IArray*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineExtremes(IArray*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
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
