// The intersections of two lines as objects. `out` is an IIntersectionResults, which takes records of both
// lines, or an IArray, which takes the points alone. line_points.h tells the rest.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class IMapCoordOperations;

bool CrossOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB, IUnknown* out);
bool CrossPixels(IArray* lineA, IArray* lineB, IUnknown* out);

}  // namespace tessara
