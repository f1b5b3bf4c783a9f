#include "maps/pixel_search.h"

#include <algorithm>
#include <array>

namespace tessara {
namespace {

// Sums and differences of pixels need 64 bits, since a rectangle may span the whole 32-bit range.

std::int64_t Width(const PixelRect& rect) {
    return std::int64_t{rect.right} - rect.left;
}
std::int64_t Height(const PixelRect& rect) {
    return std::int64_t{rect.bottom} - rect.top;
}

std::int32_t Centre(std::int32_t low, std::int32_t high) {
    return static_cast<std::int32_t>((std::int64_t{low} + high) / 2);
}

bool HasQuarters(const PixelRect& rect) {
    return Width(rect) >= 2 || Height(rect) >= 2;
}

// The quarters in the order lower right, lower left, upper right, upper left.
PixelRect Quarter(const PixelRect& rect, int k) {
    const std::int32_t x = Centre(rect.left, rect.right);
    const std::int32_t y = Centre(rect.top, rect.bottom);
    const bool isRight = k % 2 == 0;
    const bool isLower = k < 2;
    return {isRight ? x : rect.left, isLower ? y : rect.top, isRight ? rect.right : x,
            isLower ? rect.bottom : y};
}

// One of the 4^level rectangles of a level, in the order of repeated quartering: the base-4 digits of `path`
// name the quarter to descend into. False if a rectangle on the way has no quarters.
bool Descend(const PixelRect& rect, int level, int path, PixelRect* found) {
    *found = rect;
    for (int digit = level - 1; digit >= 0; --digit) {
        if (!HasQuarters(*found)) return false;
        *found = Quarter(*found, (path >> (2 * digit)) & 3);
    }
    return true;
}

}  // namespace

PixelRect Normalised(const PixelRect& rect) {
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), std::max(rect.left, rect.right),
            std::max(rect.top, rect.bottom)};
}

bool IsInside(const PixelRect& rect, std::int32_t x, std::int32_t y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

bool FindValidPixel(const PixelRect& rect, int levels, const WholePixelTest& test) {
    const PixelRect whole = Normalised(rect);
    for (int level = 0; level < levels; ++level) {
        for (int path = 0; path < 1 << (2 * level); ++path) {
            PixelRect part{};
            if (!Descend(whole, level, path, &part)) continue;
            if (test(Centre(part.left, part.right), Centre(part.top, part.bottom))) return true;
        }
    }
    return false;
}

bool FindValidPixelOnRim(const PixelRect& rect, int levels, const WholePixelTest& test) {
    constexpr std::int64_t parts = 8;
    const PixelRect r = Normalised(rect);
    const auto below = static_cast<std::int32_t>(r.top + Height(r) / parts);
    const auto above = static_cast<std::int32_t>(r.bottom - Height(r) / parts);
    const auto rightOf = static_cast<std::int32_t>(r.left + Width(r) / parts);
    const auto leftOf = static_cast<std::int32_t>(r.right - Width(r) / parts);
    const std::array<PixelRect, 4> strips{{
        {r.left, r.top, r.right, below},
        {r.left, above, r.right, r.bottom},
        {r.left, r.top, rightOf, r.bottom},
        {leftOf, r.top, r.right, r.bottom},
    }};
    return std::any_of(strips.begin(), strips.end(),
                       [&](const PixelRect& strip) { return FindValidPixel(strip, levels, test); });
}

}  // namespace tessara
