// Searches a rectangle of pixels for a valid one. The caller defines what is valid.
#pragma once

#include <functional>

#include "tessara/transformable_map_pixel.h"

namespace tessara {

// The number of levels to which a whole rectangle and its rim are searched.
inline constexpr int LEVELS_IN_RECTANGLE = 3;
inline constexpr int LEVELS_ON_RIM = 6;

using WholePixelTest = std::function<bool(std::int32_t x, std::int32_t y)>;

// The rectangle with left <= right and top <= bottom.
[[nodiscard]] PixelRect Normalised(const PixelRect& rect);

// The left and the top edge belong to the rectangle, the right and the bottom edge don't.
[[nodiscard]] bool IsInside(const PixelRect& rect, std::int32_t x, std::int32_t y);

// Tests the centre of the rectangle, then the centres of its quarters, then of their quarters, on `levels`
// levels in all, until a test returns true. A rectangle of one pixel has no quarters.
[[nodiscard]] bool FindValidPixel(const PixelRect& rect, int levels, const WholePixelTest& test);

// Searches the four strips along the edges, an eighth of the size each, in the order top, bottom, left,
// right.
[[nodiscard]] bool FindValidPixelOnRim(const PixelRect& rect, int levels, const WholePixelTest& test);

}  // namespace tessara
