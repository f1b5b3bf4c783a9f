// Creates the class of this room that has no exported creation function.
#pragma once

namespace tessara {

class ILineIntersectionParameters;

// A new object with count 0, or null without memory.
[[nodiscard]] ILineIntersectionParameters* NewLineIntersectionParameters();

}  // namespace tessara
