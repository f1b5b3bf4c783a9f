#include "objects/coordinate_neighbor.h"

#include "objects/koord_access.h"
#include "records/axis.h"
#include "systems/system_row.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

bool MoveOneStep(Compass direction, ICoord* source, ICoord* target) {
    const IRef<ICoord> from(source);
    const IRef<ICoordInternal> moved(target);
    CKoord koord;
    if (!moved.IsValid() || !KoordFromCoord(from.Get(), &koord) || !moved->SetKoord(&koord)) return false;
    const double step = SignOf(direction) * SystemOf(koord).neighborStep;
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
