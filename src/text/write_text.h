// Writes the north and east texts of a record.
#pragma once

#include <string>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// The text of one axis, with `decimals` decimals in its numbers; a value that would round up to a full
// minute or square carries. False for a system without texts. A letter that is 0 ends the text. A GEOREF
// with a precision other than 3, 4 or 5 has an empty text.
bool Write(Axis axis, const tagKOORD& record, int decimals, std::string* text);

}  // namespace text

}  // namespace tessara
