// Splits a polygon that crosses itself into simple ones.
#pragma once

#include "polygons/polygon_ring.h"

namespace tessara {

// Returns the simple rings, closed, in the order in which a walk along the polygon closes them; the
// remainder comes last. The walk stops at every vertex, at every intersection and where edges touch that
// aren't neighbours. The way between two stops at the same place is a ring of its own, even if it only goes
// to another stop and straight back and encloses no area.
//
// A closed ring of fewer than 5 vertices without repeats can't cross itself and is returned as it is. An
// empty ring has no parts.
[[nodiscard]] std::vector<Ring> SplitVertices(const Ring& polygon);

}  // namespace tessara
