// How a polygon that crosses itself falls apart into simple ones.
#pragma once

#include "polygons/polygon_ring.h"

namespace tessara {

// The simple rings, closed, in the order in which the walk along the polygon closes them, the rest last.
// The walk stops at every vertex, at every intersection and where edges touch; the way between two stops at
// one place is a loop of its own, also a way to another stop and straight back, which has no area.
//
// Fewer than 5 vertices, closed and without repeats, can't cross: they are one part as they are. An empty
// ring has no part.
[[nodiscard]] std::vector<Ring> SplitVertices(const Ring& polygon);

}  // namespace tessara
