#include "objects/coordinate_system.h"

#include "objects/name_text.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/names.h"

namespace tessara {

bool CoordinateSystem::SetSystem(std::int32_t system) {
    if (system < NO_SYSTEM || system >= KOORD_TYPE_COUNT) return false;
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
