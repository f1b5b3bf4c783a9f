// What a record's datum, type and parameters determine before any position is known, where it takes
// computing: everything else stands in tables.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/lambert.h"

namespace tessara {

// Only what the type needs is set.
struct Projection {
    double originNorth;  // TM, metres
    LambertCC cone;      // LAMBERTCC
};

// For a record whose datum is 0..238.
void PrepareProjection(const tagKOORD& record, Projection* projection);

}  // namespace tessara
