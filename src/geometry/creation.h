// How the library makes a LineIntersectionParameters, which has no exported creation function.
#pragma once

namespace tessara {

class ILineIntersectionParameters;

// A new one with count 0, or null without memory.
[[nodiscard]] ILineIntersectionParameters* NewLineIntersectionParameters();

}  // namespace tessara
