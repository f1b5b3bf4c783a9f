// The north and east texts of a record.
#pragma once

#include <string>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// The text of one axis, its numbers with `decimals` places; a value that would round up to a full minute or
// square carries. False for a system without texts. A letter that is 0 ends the text; a GEOREF of a precision
// other than 3, 4 and 5 has an empty one.
bool Write(Axis axis, const tagKOORD& record, int decimals, std::string* text);

}  // namespace text

}  // namespace tessara
