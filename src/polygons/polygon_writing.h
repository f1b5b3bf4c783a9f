// Rings in a plane as lists of coordinates.
#pragma once

#include <functional>

#include "geometry/map_plane.h"
#include "polygons/polygon_ring.h"
#include "records/reference.h"
#include "tessara/array.h"

namespace tessara {

// How a ring is written as coordinates.
struct RingForm {
    // Makes the record of a place; false if it has none.
    std::function<bool(const PlanePoint& place, CKoord* koord)> write;
    bool isClosed;  // whether the closing vertex is written, too
};

// Closed, FLOATPIXEL on a datum.
[[nodiscard]] RingForm PixelForm(std::int32_t datum);
// Not closed, positions on a map, which must live longer.
[[nodiscard]] RingForm PositionForm(const MapPlane& map, const Reference& reference);

// Appends a list of new coordinates for each closed ring. False as soon as a place has none or without
// memory; the rings before it are then in the list.
bool AppendRings(const std::vector<Ring>& rings, const RingForm& form, IArray* list);

}  // namespace tessara
