// Azimuths as text.
#pragma once

#include <string>

namespace tessara::toolkit {

// In degrees, with the decimals of a direction. What rounds to a whole turn is north, 0.
[[nodiscard]] std::string FormatAzimuth(double degrees);

}  // namespace tessara::toolkit
