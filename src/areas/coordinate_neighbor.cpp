#include "areas/coordinate_neighbor.h"

#include "objects/axis.h"
#include "objects/koord_access.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// The smallest usual unit of a system; 0.0 for a system without neighbours.
double StepOf(std::uint32_t system) {
    switch (system) {
        case KOORD_GEODEZ:
        case KOORD_GEOGRAD:
        case KOORD_GEODEZMIN:
            return 0.0001;
        default:
            return system <= KOORD_LUREF ? 1.0 : 0.0;
    }
}

bool MoveOneStep(Compass direction, ICoord* source, ICoord* target) {
    const IRef<ICoord> from(source);
    const IRef<ICoordInternal> moved(target);
    CKoord koord;
    if (!moved.IsValid() || !KoordFromCoord(from.Get(), &koord) || !moved->SetKoord(&koord)) return false;
    const double step = SignOf(direction) * StepOf(koord.type);
    if (step == 0.0) return false;
    return AxisOf(direction) == Axis::North ? moved->ShiftNorth(step) : moved->ShiftEast(step);
}

}  // namespace

bool CoordinateNeighbor::GetNorthNeighbor(ICoord* source, ICoord* target) {
    return MoveOneStep(Compass::North, source, target);
}

bool CoordinateNeighbor::GetSouthNeighbor(ICoord* source, ICoord* target) {
    return MoveOneStep(Compass::South, source, target);
}

bool CoordinateNeighbor::GetEastNeighbor(ICoord* source, ICoord* target) {
    return MoveOneStep(Compass::East, source, target);
}

bool CoordinateNeighbor::GetWestNeighbor(ICoord* source, ICoord* target) {
    return MoveOneStep(Compass::West, source, target);
}

ICoordinateNeighbor* CreateClassCoordinateNeighbor() {
    return NewObject<CoordinateNeighbor>();
}

}  // namespace tessara
