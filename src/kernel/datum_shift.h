// Datum_Shift with the constants of the table, computed at compile time.
#pragma once

#include <cstdint>

namespace tessara {

// Between two datums 0..238, in degrees; the same as Datum_Shift with the parameters that are loaded for
// them.
void ShiftBetween(std::int32_t sourceDatum, std::int32_t targetDatum, double latLon[2]);

}  // namespace tessara
