// Reads coordinates for the classes of geometry in space, and checks their vectors.
//
// Each reader counts its coordinate up and down again, which would delete one of count 0. So an operation
// wraps its coordinates in handles on its first line.
#pragma once

#include "tessara/coord.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/koord.h"
#include "tessara/ref.h"
#include "tessara/vector.h"

namespace tessara {

// Reads the WGS84 position. False for null, a foreign object, an invalid coordinate and a pixel.
bool ReadWgs84Position(ICoord* p, GeodezPayload* position);

// The coordinate's reference, read into `into`; empty for null or a foreign object.
[[nodiscard]] IRef<ICoordinateReference> ReadReference(ICoord* p, IRef<ICoordinateReference> into);

// A reference object from the host's object manager, or one of the library's own if there is no manager.
[[nodiscard]] IRef<ICoordinateReference> ManagedReference();

[[nodiscard]] inline bool IsSpatial(const Vector* v) {
    return v != nullptr && v->Size() == 3;
}

}  // namespace tessara
