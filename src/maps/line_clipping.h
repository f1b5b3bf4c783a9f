// Finds the part of a straight line of pixels that has valid positions. The caller defines what is valid.
#pragma once

#include <cstdint>
#include <functional>

#include "maps/plane_point.h"

namespace tessara {

// Whether a pixel is valid. For a valid pixel *back receives the place of its position on the map.
using PixelTest = std::function<bool(const PlanePoint& pixel, PlanePoint* back)>;

enum ClipResult : std::int32_t {
    CLIP_FAILED = -1,
    CLIP_ALL_VALID = 0,  // `first` and `second` are the ends of the line
    CLIP_ONE_GAP = 1,    // `first` is the last valid point before the gap, `second` the first one after it
    CLIP_ONE_PIECE = 2,  // `first` and `second` are the ends of the piece
    CLIP_NONE_VALID = 3,
};

struct ClippedLine {
    ClipResult result;
    PlanePoint first, second;  // both zero if the code has no points
};

// Longer lines aren't walked: CLIP_FAILED.
inline constexpr double LONGEST_WALK = 1e7;  // pixels

// Tests the ends and the middle first. Between a valid and an invalid one of these, the edge is found by
// bisection to half a pixel. Otherwise the line is walked in steps of one pixel, which finds at most one gap
// or one piece. CLIP_FAILED for an end that isn't finite.
[[nodiscard]] ClippedLine ClipLine(const PlanePoint& a, const PlanePoint& b, const PixelTest& test);

}  // namespace tessara
