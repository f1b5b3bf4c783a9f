#include "objects/coordinate_system.h"

#include "frame/tessara_string.h"
#include "records/reference.h"
#include "tessara/kernel/names.h"

namespace tessara {

bool CoordinateSystem::SetSystem(std::int32_t system) {
    if (!IsReferenceSystem(system)) return false;
    system_ = system;
    return true;
}

void CoordinateSystem::GetName(ITessaraString* text) {
    FillWithName(text, CoordinateType_Name(system_));
}

ICoordinateSystem* CreateClassCoordinateSystem() {
    return NewObject<CoordinateSystem>();
}

}  // namespace tessara
