// The coastlines and borders of the world in hundredths of a degree. Of each line: how many steps it has, the
// longitude and latitude of its first point, and the steps eastward and northward. Longitudes go on over the
// date line. A ring of land leads back to its first point, or to the same point a turn further on if a pole
// lies in it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessara::toolkit {

extern const std::int16_t LAND_RINGS[];
extern const std::size_t LAND_RINGS_SIZE;
extern const std::int16_t BORDER_LINES[];
extern const std::size_t BORDER_LINES_SIZE;

}  // namespace tessara::toolkit
