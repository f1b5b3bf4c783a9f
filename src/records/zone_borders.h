// The borders of zones, on records: where a zone ends to the east and west of a position, and to the north
// and south of it. These functions use the zones, the system's extremes and the kernel; they don't shift,
// compare or average.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

enum class ZoneLimit : std::int32_t {
    Failure = -1,
    SystemFirst = 0,  // the limit of the system comes before any border
    Border = 1,
};

namespace zones {

// Moves the record onto the east or west border of its zone, at its own northing. The result is written in
// its own zone and wants none. False for any other direction, a system without zones, a zone that doesn't
// exist, a northing beyond the poles and a position that doesn't convert; the record is then unchanged.
//
// A border is drawn 1e-9 degrees, a tenth of a millimetre, outside the zone, so that a position exactly on
// the border never lies beyond it.
bool MoveToBorder(Compass side, tagKOORD* record);

// Moves the record due grid north or south, at its own easting, to the point where it meets the border of
// its zone, written in its own zone and wanting none. Only ZoneLimit::Border changes the record. Failure for
// a position further from the central line than the zone is wide anywhere. For a position outside its zone
// the point may lie behind it.
ZoneLimit MoveToLimit(Compass direction, tagKOORD* record);

// Whether the record lies inside its zone and more than a metre from its borders. This compares longitudes,
// since eastings increase with the longitude at one northing, and is much faster than finding a border.
// Zones narrow toward the poles, so a move at constant easting that ends here hasn't passed the limit of
// MoveToLimit.
[[nodiscard]] bool IsWellInside(const tagKOORD& record);

// Moves the record at its easting to where its zone is widest: the equator, for the Austrian systems their
// southern limit. False for a system without zones, and in UTMREF and the Austrian systems for a datum that
// doesn't exist; the record is then unchanged.
bool MoveToEquator(tagKOORD* record);

}  // namespace zones

}  // namespace tessara
