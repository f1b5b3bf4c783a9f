// Reads polygons of coordinates as rings of pixels on a map, for edges that are straight in a coordinate
// system. geometry/line_reading.h reads those whose edges are straight on the map.
#pragma once

#include "geometry/map_plane.h"
#include "polygons/polygon_ring.h"
#include "tessara/array.h"

namespace tessara {

// Reads the records of a polygon, which must share a reference. False if they don't, and for an element that
// is no coordinate.
bool ReadRecords(IArray* polygon, std::vector<CKoord>* records);

// Reads a ring whose edges are straight in the records' own system; each edge is followed to a quarter of a
// pixel.
bool ReadCoordEdges(const MapPlane& map, const std::vector<CKoord>& records, Ring* ring);

// Reads a ring whose edges are straight in the system in which the map is drawn.
bool ReadTransferredEdges(IMapCoordOperations* map, IArray* polygon, Ring* ring);

}  // namespace tessara
