// Conditions without branches, for loops that become vector code.
#pragma once

namespace tessara {

// Whether all conditions hold, each of them looked at.
template <class... Conditions>
[[nodiscard, gnu::always_inline]] constexpr bool AllOf(Conditions... conditions) {
    return static_cast<bool>((conditions & ...));
}

// Whether one of the conditions holds, each of them looked at.
template <class... Conditions>
[[nodiscard, gnu::always_inline]] constexpr bool AnyOf(Conditions... conditions) {
    return static_cast<bool>((conditions | ...));
}

}  // namespace tessara
