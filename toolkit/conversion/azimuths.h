// Azimuths as text.
#pragma once

#include <string>

namespace tessara::toolkit {

// Formats an azimuth in degrees. A value that rounds to 360 becomes 0.
[[nodiscard]] std::string FormatAzimuth(double degrees);

}  // namespace tessara::toolkit
