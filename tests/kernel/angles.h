// The degree, and angles as survey guides print them.
#pragma once

namespace tessara::testing {

inline constexpr double DEGREE = 0.0174532925199433;

[[nodiscard]] inline double Sexagesimal(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

}  // namespace tessara::testing
