// The order of the results of operations for extremes.
#pragma once

namespace tessara::testing {

enum { NORTH, EAST, SOUTH, WEST };

}  // namespace tessara::testing
