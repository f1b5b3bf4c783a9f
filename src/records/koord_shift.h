// Moves records on their own grid, and measures how far apart two records are on it.
#pragma once

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace koord {

// Moves the record by `delta`: metres on a grid, degrees, or pixels; positive values go east or north. False
// for ECEF and LAMBERTCC, for TM to the south, for a NaN, and for a move out of the zone or of what the
// system covers; the record is then unchanged. A delta of 0.0 always succeeds.
bool Shift(Axis axis, double delta, tagKOORD* record);

// The distance from `from` eastward or northward to `to`. UNKNOWN_DIFFERENCE for two datums, systems or
// zones, for a letter that belongs to no square, and for ECEF and LAMBERTCC.
[[nodiscard]] double Difference(Axis axis, const tagKOORD& from, const tagKOORD& to);

}  // namespace koord

}  // namespace tessara
