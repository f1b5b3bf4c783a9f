// Reads coordinates and lines as places in the plane of a map's pixels.
#pragma once

#include <vector>

#include "geometry/map_plane.h"
#include "tessara/array.h"

namespace tessara {

// Reads a pixel from its numbers and a position through the map. False for null, a foreign object, an
// invalid pixel and a position without a pixel; *point is then unchanged.
bool PixelOfCoord(IMapCoordOperations* map, ICoord* coord, PlanePoint* point);

// Reads a valid pixel, without a map.
bool PixelOfCoord(ICoord* coord, PlanePoint* point);

// Reads the records of a line, so that coordinates marked invalid have a place, too. False at the first one
// that has none.
bool ReadLineOnMap(const MapPlane& map, IArray* line, std::vector<PlanePoint>* places);

// The same for a line on a map whose pixels must be valid.
bool ReadValidLineOnMap(IMapCoordOperations* map, IArray* line, std::vector<PlanePoint>* places);

// Reads a line of valid pixels, without a map.
bool ReadPixelLine(IArray* line, std::vector<PlanePoint>* places);

}  // namespace tessara
