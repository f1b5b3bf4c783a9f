// Texts of other encodings as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tessara::toolkit {

// Of the library, whose texts are Latin-1.
[[nodiscard]] std::string Latin1ToUtf8(std::string_view latin1);

// Of anyone, with a replacement for each byte that is no UTF-8.
[[nodiscard]] std::string RepairUtf8(const std::string& bytes);

}  // namespace tessara::toolkit
