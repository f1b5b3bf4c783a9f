// Where in a rectangle of pixels is there a valid one? What is valid is the caller's to say.
#pragma once

#include <functional>

#include "tessara/transformable_map_pixel.h"

namespace tessara {

// How finely a whole rectangle and its rim are searched.
inline constexpr int LEVELS_IN_RECTANGLE = 3;
inline constexpr int LEVELS_ON_RIM = 6;

using WholePixelTest = std::function<bool(std::int32_t x, std::int32_t y)>;

// With left <= right and top <= bottom.
[[nodiscard]] PixelRect Normalised(const PixelRect& rect);

// The left and the top edge belong to the rectangle.
[[nodiscard]] bool IsInside(const PixelRect& rect, std::int32_t x, std::int32_t y);

// Tests the centre of the rectangle, then those of its quarters, of their quarters and so on, `levels` times
// in all, until a test is true. A rectangle of one pixel has no quarters.
[[nodiscard]] bool FindValidPixel(const PixelRect& rect, int levels, const WholePixelTest& test);

// The same in the strips of an eighth of the size along the edges, in the order top, bottom, left, right.
[[nodiscard]] bool FindValidPixelOnRim(const PixelRect& rect, int levels, const WholePixelTest& test);

}  // namespace tessara
