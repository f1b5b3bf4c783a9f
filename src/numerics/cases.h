// Formulas of several cases. Single calls branch to the case that applies; loops that become vector code
// compute all of them and choose, which gives the same bits.
#pragma once

#include <cstdint>

namespace tessara {

enum class Cases : std::uint8_t { Branch, Choose };

// The value of the first function where the condition holds, else that of the second.
template <Cases cases, class First, class Second>
[[nodiscard, gnu::always_inline]] constexpr double Either(bool isFirst, First first, Second second) {
    if constexpr (cases == Cases::Choose) {
        const double one = first();
        const double other = second();
        return isFirst ? one : other;
    } else {
        return isFirst ? first() : second();
    }
}

}  // namespace tessara
