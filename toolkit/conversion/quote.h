// Quotes words of the input in messages.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara::toolkit {

inline constexpr std::size_t LONGEST_QUOTE = 40;

// Shortens a long word and replaces control characters, which a terminal could interpret.
[[nodiscard]] std::string Quote(std::string_view word);

}  // namespace tessara::toolkit
