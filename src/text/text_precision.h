// The precision of a text, as the power of ten of its last digit: -3 is a millimetre in a metric system and
// a thousandth of a second in GEOGRAD.
#pragma once

#include <cstdint>

namespace tessara {

namespace precision {

// The precision for a resolution in units of the system, degrees in the angular ones: the greatest power of
// ten that isn't larger, from -7 to 5. GEOGRAD converts to seconds and GEODEZMIN to minutes first; from 60
// on the precision is one step coarser.
[[nodiscard]] std::int16_t OfResolution(double resolution, std::int32_t system);

// The precision of a system when none has been set; PRECISION_UNSET for a system without texts.
[[nodiscard]] std::int16_t Default(std::int32_t system);

// The number of decimals for a precision; none for PRECISION_UNSET.
[[nodiscard]] int Decimals(std::int16_t precision);

}  // namespace precision

}  // namespace tessara
