// Suggestions for mistyped names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

// Upper and lower case differ.
[[nodiscard]] bool IsAmong(std::string_view name, const std::vector<std::string>& names);

// The first name with the smallest edit distance (letters changed, omitted, added or swapped, upper and lower
// case alike), at most a third of the letters; empty if no name is that close.
[[nodiscard]] std::string ClosestName(std::string_view mistyped, const std::vector<std::string>& names);

// "; did you mean 'NAME'?", or only the semicolon.
[[nodiscard]] std::string DidYouMean(std::string_view mistyped, const std::vector<std::string>& names);

}  // namespace tessara::toolkit
