// The places of coordinates and lines in the plane of a map's pixels.
#pragma once

#include <vector>

#include "geometry/map_plane.h"
#include "tessara/array.h"

namespace tessara {

// A pixel by its numbers, a position by the map. False for null or a foreign object, an invalid pixel, and a
// position without a pixel; *point is then unchanged.
bool PixelOfCoord(IMapCoordOperations* map, ICoord* coord, PlanePoint* point);

// A coordinate that is a valid pixel, without a map.
bool PixelOfCoord(ICoord* coord, PlanePoint* point);

// The places of all coordinates of a line, by records: whether they are marked valid isn't looked at. False
// as soon as one has none.
bool ReadLineOnMap(const MapPlane& map, IArray* line, std::vector<PlanePoint>* places);

// The same of a line on a map whose pixels must be valid.
bool ReadValidLineOnMap(IMapCoordOperations* map, IArray* line, std::vector<PlanePoint>* places);

// The places of a line of valid pixels.
bool ReadPixelLine(IArray* line, std::vector<PlanePoint>* places);

}  // namespace tessara
