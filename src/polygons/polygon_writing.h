// Writes rings of a plane as lists of coordinates.
#pragma once

#include <functional>

#include "geometry/map_plane.h"
#include "polygons/polygon_ring.h"
#include "records/reference.h"
#include "tessara/array.h"

namespace tessara {

// How a ring becomes coordinates.
struct RingForm {
    // Makes the record of a place; false if the place has none.
    std::function<bool(const PlanePoint& place, CKoord* koord)> write;
    bool isClosed;  // whether the closing vertex is written
};

// Closed rings of FLOATPIXEL coordinates on a datum.
[[nodiscard]] RingForm PixelForm(std::int32_t datum);
// Open rings of positions on a map. The map must outlive the form.
[[nodiscard]] RingForm PositionForm(const MapPlane& map, const Reference& reference);

// Appends a list of new coordinates for each closed ring. False at the first ring with a place that has no
// coordinate, and without memory; the rings before it stay in the list.
bool AppendRings(const std::vector<Ring>& rings, const RingForm& form, IArray* list);

}  // namespace tessara
