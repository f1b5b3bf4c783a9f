// The precision of a text: the power of ten of its last digit. -3 is a millimetre in a metric system and a
// thousandth of a second in GEOGRAD.
#pragma once

#include <cstdint>

namespace tessara {

namespace precision {

// The precision of a resolution in units of the system, degrees in the angular ones: the greatest power of
// ten at most as large, from -7 to 5. GEOGRAD counts in seconds and GEODEZMIN in minutes, one step coarser
// from 60 on.
[[nodiscard]] std::int16_t OfResolution(double resolution, std::int32_t system);

// What a system shows where nobody asked for a precision; PRECISION_UNSET for a system without texts.
[[nodiscard]] std::int16_t Default(std::int32_t system);

// How many decimals that is; none for PRECISION_UNSET.
[[nodiscard]] int Decimals(std::int16_t precision);

}  // namespace precision

}  // namespace tessara
