// SVG as a PNG, by the program rsvg-convert.
#pragma once

#include <string>

namespace tessara::program {

// What went wrong, for the user; empty if the file is written.
[[nodiscard]] std::string WritePng(const std::string& svg, const std::string& file);

}  // namespace tessara::program
