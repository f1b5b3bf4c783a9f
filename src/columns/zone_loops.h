// The zoned grids for blocks of positions: between latitude and longitude, and easting, northing, zone and
// the side of the equator. Wanted meridians go in where there are some. Gauss-Krueger has its strip in the
// easting.
#pragma once

#include <cstdint>

#include "columns/block_step.h"
#include "kernel/austrian_constants.h"
#include "kernel/zone_formulas.h"

namespace tessara {

// For datums 0..238.
[[nodiscard]] BlockStep UtmForward(std::int32_t datum);
[[nodiscard]] BlockStep UtmInverse(std::int32_t datum);
// Whole metres; the latitude stays, and is in the band of the rounded position.
[[nodiscard]] BlockStep UtmrefForward(std::int32_t datum);
[[nodiscard]] BlockStep UtmrefInverse(std::int32_t datum);
[[nodiscard]] BlockStep StripForward(const zones::StripSystem& system, std::int32_t datum);
[[nodiscard]] BlockStep StripInverse(const zones::StripSystem& system, std::int32_t datum);
[[nodiscard]] BlockStep AustrianForward(const austria::AustrianGrid& grid, std::int32_t datum);
[[nodiscard]] BlockStep AustrianInverse(const austria::AustrianGrid& grid, std::int32_t datum);

}  // namespace tessara
