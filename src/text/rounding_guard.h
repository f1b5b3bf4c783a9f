// Prevents texts from showing 60 seconds, 60 minutes or 100000 metres in a square.
#pragma once

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// The record to write for a text with `decimals` decimals. If a value of UTMREF, GEOGRAD or GEODEZMIN would
// round up to a full square, minute or degree, the result lies half a unit in the last place further north
// or east, or at the limit of the system. In the north and east this carries; in the south and west it
// reduces the magnitude, and the text stays below the carry. Any other record is returned unchanged.
[[nodiscard]] tagKOORD CarryRounding(Axis axis, int decimals, const tagKOORD& record);

}  // namespace text

}  // namespace tessara
