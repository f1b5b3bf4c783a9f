// The words of a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

inline constexpr std::string_view BLANKS = " \t\r\n\v\f";

// Without leading and trailing blanks.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

// The words of a text, which blanks separate.
[[nodiscard]] std::vector<std::string> WordsOf(std::string_view text);

// With one space between words.
[[nodiscard]] std::string Joined(const std::vector<std::string>& words);

}  // namespace tessara::toolkit
