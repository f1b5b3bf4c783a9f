// Converts SVG to PNG with the program rsvg-convert.
#pragma once

#include <string>

namespace tessara::program {

// Returns the error message; empty on success.
[[nodiscard]] std::string WritePng(const std::string& svg, const std::string& file);

}  // namespace tessara::program
