#include "areas/coordinate_area.h"

#include "areas/system_extremes.h"
#include "objects/koord_access.h"

namespace tessara {
namespace {

bool MoveToSystemLimit(Compass direction, ICoord* point) {
    CKoord koord;
    tagKOORD extreme;
    if (!KoordFromCoord(point, &koord)) return false;
    if (!System_Extreme(direction, static_cast<std::int32_t>(koord.datum),
                        static_cast<std::int32_t>(koord.type), &extreme)) {
        return false;
    }
    const CKoord limit(extreme);
    return KoordToCoord(&limit, point);
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
    ICoord* const points[] = {north, east, south, west};
    CKoord first;
    if (!KoordFromCoord(north, &first)) return false;
    for (ICoord* const point : points) {
        CKoord koord;
        if (!KoordFromCoord(point, &koord)) return false;
        if (koord.datum != first.datum || koord.type != first.type) return false;
    }
    SystemExtremes extremes;
    if (!System_Extremes(static_cast<std::int32_t>(first.datum), static_cast<std::int32_t>(first.type),
                         &extremes)) {
        return false;
    }
    for (std::size_t i = 0; i < extremes.size(); ++i) {
        const CKoord extreme(extremes[i]);
        if (!KoordToCoord(&extreme, points[i])) return false;
    }
    return true;
}

bool CoordinateArea::SetTolerance(double tolerance) {
    if (!(tolerance >= 0.0)) return false;
    tolerance_ = tolerance;
    return true;
}

ICoordinateArea* CreateClassCoordinateArea() {
    return NewObject<CoordinateArea>();
}

}  // namespace tessara
