#include "areas/coordinate_area.h"

#include "areas/system_extremes.h"
#include "objects/koord_access.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

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

ICoordinateArea* CreateClassCoordinateArea() {
    return NewObject<CoordinateArea>();
}

}  // namespace tessara
