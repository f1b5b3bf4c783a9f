// The coastlines and borders of the world in hundredths of a degree. Each line has the number of its steps,
// the longitude and latitude of its first point, and the steps eastward and northward. Longitudes continue
// across the date line. A ring of land ends at its first point, or 360 degrees from it if it contains a pole.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessara::toolkit {

extern const std::int16_t LAND_RINGS[];
extern const std::size_t LAND_RINGS_SIZE;
extern const std::int16_t BORDER_LINES[];
extern const std::size_t BORDER_LINES_SIZE;

}  // namespace tessara::toolkit
