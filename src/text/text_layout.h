// What the north and the east text of each system are made of. Texts are written and read by the same fields.
#pragma once

#include <span>

#include "records/axis_values.h"
#include "systems/fields.h"

namespace tessara {

// The fields of one text, in their order; none for a system without texts.
[[nodiscard]] inline std::span<const RecordField> TextFieldsOf(Axis axis, const tagKOORD& record) {
    return AxisRowOf(axis, record).text.All();
}

}  // namespace tessara
