// The words of a typed position.
#pragma once

#include <string>
#include <vector>

#include "run/toolkit_names.h"
#include "typed/typed_reader.h"

namespace tessara::program {

// Two words are a north and an east text; any other number of words is one text.
[[nodiscard]] std::vector<std::string> TextsOf(const std::vector<std::string>& words);
[[nodiscard]] TypedResult ReadWords(const TypedReader& reader, const std::vector<std::string>& words);

}  // namespace tessara::program
