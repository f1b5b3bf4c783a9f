// Which of some names a mistyped one may stand for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

// The name with the fewest letters changed, left out, added or swapped, in upper or lower case: at most one
// in three. Of several the first; empty if none is as close.
[[nodiscard]] std::string ClosestName(std::string_view mistyped, const std::vector<std::string>& names);

// "; did you mean NAME?", or the semicolon alone.
[[nodiscard]] std::string DidYouMean(std::string_view mistyped, const std::vector<std::string>& names);

}  // namespace tessara::toolkit
