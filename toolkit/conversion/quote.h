// What messages show of words that come from elsewhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara::toolkit {

inline constexpr std::size_t LONGEST_QUOTE = 40;

// Not too much of a word, and nothing that a terminal could take for a command.
[[nodiscard]] std::string Quote(std::string_view word);

}  // namespace tessara::toolkit
