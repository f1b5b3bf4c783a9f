// Whether a place lies where the map shows it.
#pragma once

#include "geometry/map_plane.h"
#include "records/axis.h"
#include "tessara/ckoord.h"

namespace tessara {

// Maps repeat themselves: longitude 360 has the pixel of Greenwich, and the south pole may have the pixel of
// the north pole. `place` counts as shown at `pixel`, its pixel on the map, only if the pixels around it
// lead back to valid positions whose values on the axis surround its own, in its own zone.
[[nodiscard]] bool LeadsBack(const MapPlane& map, Axis axis, const CKoord& place, const PlanePoint& pixel);

}  // namespace tessara
