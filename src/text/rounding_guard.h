// What keeps a text from showing 60 seconds, 60 minutes or 100000 metres of a square.
#pragma once

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// The record to write for a text with `decimals` places. Where a value of UTMREF, GEOGRAD or GEODEZMIN would
// round up to a full square, minute or degree, that is the record half a unit of the last place further north
// or east; at the end of the system the end itself. It carries in the north and east; in the south and west
// the magnitude becomes smaller and the last place stays below the carry. Any other record is unchanged.
[[nodiscard]] tagKOORD CarryRounding(Axis axis, int decimals, const tagKOORD& record);

}  // namespace text

}  // namespace tessara
