// What the north and the east text of each system are made of. Texts are written and read by the same fields.
#pragma once

#include <span>

#include "records/axis.h"
#include "systems/fields.h"

namespace tessara {

// The fields of one text, in their order; none for a system without texts.
[[nodiscard]] inline std::span<const RecordField> TextFieldsOf(Axis axis, std::uint32_t system) {
    const auto type = static_cast<std::int32_t>(system);
    return axis == Axis::North ? System_NorthText(type) : System_EastText(type);
}

}  // namespace tessara
