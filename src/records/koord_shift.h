// Moves of a record on its own grid, and how far two records lie apart there.
#pragma once

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace koord {

// Moves the record by `delta` in the units of its system, positive to the east or north, and refuses to leave
// the area of the system or zone. A delta of 0.0 is always true. False as coord.h says; the record is then
// unchanged.
bool Shift(Axis axis, double delta, tagKOORD* record);

// How far `to` lies east or north of `from`; UNKNOWN_DIFFERENCE as coord.h says.
[[nodiscard]] double Difference(Axis axis, const tagKOORD& from, const tagKOORD& to);

}  // namespace koord

}  // namespace tessara
