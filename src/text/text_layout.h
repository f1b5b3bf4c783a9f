// The fields of the north and the east text of each system, for writing and for reading.
#pragma once

#include <span>

#include "records/axis_values.h"
#include "systems/fields.h"

namespace tessara {

// The fields of one text in order; none for a system without texts.
[[nodiscard]] inline std::span<const RecordField> TextFieldsOf(Axis axis, const tagKOORD& record) {
    return AxisRowOf(axis, record).text.All();
}

}  // namespace tessara
