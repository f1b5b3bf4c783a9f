// Polynomials, evaluated in pairs that wait for nothing but each other.
#pragma once

#include <cstddef>

namespace tessara {

// c[0] + c[1] y + c[2] y^2 + ... The terms are halved at the largest power of 2 below their number (G.
// Estrin, "Organization of computer systems", Western Joint Computer Conference, 1960).
template <std::size_t N, std::size_t FIRST, std::size_t COUNT>
[[nodiscard, gnu::always_inline]] constexpr double Terms(const double (&c)[N], double y, double y2, double y4,
                                                         double y8) {
    if constexpr (COUNT == 1) {
        return c[FIRST];
    } else if constexpr (COUNT == 2) {
        return c[FIRST] + c[FIRST + 1] * y;
    } else if constexpr (COUNT <= 4) {
        return Terms<N, FIRST, 2>(c, y, y2, y4, y8) + y2 * Terms<N, FIRST + 2, COUNT - 2>(c, y, y2, y4, y8);
    } else if constexpr (COUNT <= 8) {
        return Terms<N, FIRST, 4>(c, y, y2, y4, y8) + y4 * Terms<N, FIRST + 4, COUNT - 4>(c, y, y2, y4, y8);
    } else {
        static_assert(COUNT <= 16);
        return Terms<N, FIRST, 8>(c, y, y2, y4, y8) + y8 * Terms<N, FIRST + 8, COUNT - 8>(c, y, y2, y4, y8);
    }
}

template <std::size_t N>
[[nodiscard, gnu::always_inline]] constexpr double Polynomial(const double (&c)[N], double y) {
    const double y2 = y * y;
    const double y4 = y2 * y2;
    return Terms<N, 0, N>(c, y, y2, y4, y4 * y4);
}

}  // namespace tessara
