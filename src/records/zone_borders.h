// The borders of zones, on records: where a zone ends to the sides of a position, and to the north and south
// of it. They stand on the zones, the system's extremes and the kernel; nothing here shifts, compares or
// averages.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

enum class ZoneLimit : std::int32_t {
    Failure = -1,
    SystemFirst = 0,  // the walk comes to the limit of the system before any border
    Border = 1,
};

namespace zones {

// Moves the record onto the east or west border of its zone, at its own northing, written in its own zone and
// wanting none. Any other direction, a system without zones, a zone that doesn't exist, a northing beyond the
// poles and a position that doesn't convert give false; the record is then unchanged.
//
// A border is drawn 1e-9 degrees, a tenth of a millimetre, outside the zone, so that a position exactly on it
// never lies beyond it.
bool MoveToBorder(Compass side, tagKOORD* record);

// Moves the record due grid north or south, at its own easting, to where it meets the border of its zone,
// written in its own zone and wanting none. Only ZoneLimit::Border changes it. A position wider from the
// central line than the zone is anywhere has no such place: Failure. One outside its zone at its own northing
// may find it behind itself.
ZoneLimit MoveToLimit(Compass direction, tagKOORD* record);

// Whether the record lies inside its zone and more than a metre from the borders, by its longitude: eastings
// grow with the longitude along a northing. That is seen a lot faster than a border is found. Zones narrow
// toward the poles: a walk at constant easting that ends here hasn't met the limit of MoveToLimit.
[[nodiscard]] bool IsWellInside(const tagKOORD& record);

// Moves the record along its easting to where its zone is widest: the equator, in the Austrian systems their
// southern limit. False as above; the record is then unchanged.
bool MoveToEquator(tagKOORD* record);

}  // namespace zones

}  // namespace tessara
