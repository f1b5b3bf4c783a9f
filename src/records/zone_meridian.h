// Finds the point of a meridian at a given northing, for zone borders and for midpoints beside them.
#pragma once

#include "systems/range_check.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace zones {

// One step of the iteration. `record` gives the system, the wanted zone and the northing, which it keeps; it
// receives the zone and easting of the point of the meridian at `latitude`. `position` receives the position
// of the record; the next step starts from its latitude. A step reduces the distance to the wanted point by
// about the squared sine of the meridian convergence, to a hundredth at worst.
//
// False if the point doesn't convert.
bool StepAlongMeridian(double longitude, double latitude, RangeCheck check, tagKOORD* record,
                       GeodezPayload* position);

}  // namespace zones

}  // namespace tessara
