// Texts of unknown encoding as UTF-8.
#pragma once

#include <string>

namespace tessara::toolkit {

// The text with the replacement character U+FFFD for each byte that is not part of UTF-8.
[[nodiscard]] std::string RepairUtf8(const std::string& bytes);

}  // namespace tessara::toolkit
