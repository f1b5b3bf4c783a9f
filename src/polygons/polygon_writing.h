// Outlines in a plane as lists of coordinates.
#pragma once

#include <functional>

#include "geometry/map_plane.h"
#include "polygons/polygon_outline.h"
#include "records/reference.h"
#include "tessara/array.h"

namespace tessara {

// How an outline is written as coordinates.
struct OutlineForm {
    // Makes the record of a place; false if it has none.
    std::function<bool(const PlanePoint& place, CKoord* koord)> write;
    bool isClosed;  // whether the closing vertex is written, too
};

// Closed, FLOATPIXEL on a datum.
[[nodiscard]] OutlineForm PixelForm(std::int32_t datum);
// Not closed, positions on a map, which must live longer.
[[nodiscard]] OutlineForm PositionForm(const MapPlane& map, const Reference& reference);

// Appends a list of new coordinates for each closed outline. False as soon as a place has none or without
// memory; the outlines before it are then in the list.
bool AppendOutlines(const std::vector<Outline>& outlines, const OutlineForm& form, IArray* list);

}  // namespace tessara
