// What the geometry in space reads from a coordinate, and what it asks of a vector.
//
// Each reader counts its coordinate up and down again. An operation holds its coordinates in handles from its
// first line on: the argument of a host may have the count 0.
#pragma once

#include "tessara/coord.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/koord.h"
#include "tessara/ref.h"
#include "tessara/vector.h"

namespace tessara {

// False for null or a foreign object, and for a coordinate without a WGS84 position: an invalid one or a
// pixel.
bool ReadWgs84Position(ICoord* p, GeodezPayload* position);

// The coordinate's reference, read into the object given; empty for null or a foreign object.
[[nodiscard]] IRef<ICoordinateReference> ReadReference(ICoord* p, IRef<ICoordinateReference> into);

// Such an object of the host's object manager, or of the library's own class without one.
[[nodiscard]] IRef<ICoordinateReference> ManagedReference();

[[nodiscard]] inline bool IsSpatial(const Vector* v) {
    return v != nullptr && v->Size() == 3;
}

}  // namespace tessara
