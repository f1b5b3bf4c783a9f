// The intersections of two lines as objects. `out` is an IIntersectionResults, which receives a record on
// each of the two lines, or an IArray, which receives the points. line_points.h describes order, references
// and failures.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class IMapCoordOperations;

bool CrossOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB, IUnknown* out);
bool CrossPixels(IArray* lineA, IArray* lineB, IUnknown* out);

}  // namespace tessara
