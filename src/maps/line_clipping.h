// Which part of a straight line of pixels lies on valid positions. What is valid is the caller's to say.
#pragma once

#include <cstdint>
#include <functional>

#include "maps/plane_point.h"

namespace tessara {

// Whether a pixel is valid, and where its position lies on the map (*back, written for valid pixels).
using PixelTest = std::function<bool(const PlanePoint& pixel, PlanePoint* back)>;

enum ClipResult : std::int32_t {
    CLIP_FAILED = -1,
    CLIP_ALL_VALID = 0,  // from the first end to the second
    CLIP_ONE_GAP = 1,    // the last valid point before the gap, the first after it
    CLIP_ONE_PIECE = 2,  // the ends of the piece
    CLIP_NONE_VALID = 3,
};

struct ClippedLine {
    ClipResult result;
    PlanePoint first, second;  // both zero without any
};

// A line longer than this isn't walked: CLIP_FAILED.
inline constexpr double LONGEST_WALK = 1e7;  // pixels

// Looks at the ends and the middle first. An edge of validity between a valid and an invalid one of these is
// found by bisection to half a pixel; otherwise the line is walked in steps of one pixel, and at most one gap
// or one piece is found. An end that isn't finite is CLIP_FAILED.
[[nodiscard]] ClippedLine ClipLine(const PlanePoint& a, const PlanePoint& b, const PixelTest& test);

}  // namespace tessara
