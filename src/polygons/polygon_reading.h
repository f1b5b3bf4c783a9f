// Polygons of coordinates as rings in the plane of a map's pixels, by the system in which their edges are
// straight. geometry/line_reading.h reads those whose edges are straight on the map.
#pragma once

#include "geometry/map_plane.h"
#include "polygons/polygon_ring.h"
#include "tessara/array.h"

namespace tessara {

// The records of a polygon, which must share a reference. False otherwise, and for an element that is no
// coordinate.
bool ReadRecords(IArray* polygon, std::vector<CKoord>* records);

// The ring of records whose edges are straight in their own system, followed to a quarter of a pixel.
bool ReadCoordEdges(const MapPlane& map, const std::vector<CKoord>& records, Ring* ring);

// The same of a polygon whose edges are straight in the system in which the map is drawn.
bool ReadTransferredEdges(IMapCoordOperations* map, IArray* polygon, Ring* ring);

}  // namespace tessara
