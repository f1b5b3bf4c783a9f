// Finding the point of a meridian at a given northing: what zone borders and midpoints beside them share.
#pragma once

#include "systems/range_check.h"
#include "tessara/kernel/koord.h"

namespace tessara {

namespace zones {

// One round of the search. `record` names the system, the wanted zone and the northing that is kept; it takes
// the zone and easting of the point of the meridian at `latitude`. `position` receives where the record then
// lies: its latitude is the one to start the next round from. A round shrinks the distance from the sought
// point by about the squared sine of the meridian convergence, to a hundredth at worst.
//
// False when the point doesn't convert.
bool StepAlongMeridian(double longitude, double latitude, RangeCheck check, tagKOORD* record,
                       GeodezPayload* position);

}  // namespace zones

}  // namespace tessara
