// Whether a place lies where the map shows it.
#pragma once

#include "geometry/map_plane.h"
#include "records/axis.h"
#include "tessara/ckoord.h"

namespace tessara {

// Maps repeat themselves: the pixel of 360 degrees east is that of Greenwich, and the south pole may have the
// pixel of the north pole. A place is there if its pixel's surroundings lead back to valid positions around
// the place's own value on the axis, in its own zone. The pixel is the place's on the map.
[[nodiscard]] bool LeadsBack(const MapPlane& map, Axis axis, const CKoord& place, const PlanePoint& pixel);

}  // namespace tessara
