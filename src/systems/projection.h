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

void PrepareOrigin(const tagKOORD& record, Projection* projection);
void PrepareCone(const tagKOORD& record, Projection* projection);

// For a record whose datum is 0..238.
inline void PrepareProjection(const tagKOORD& record, Projection* projection) {
    if (record.type == KOORD_TM) PrepareOrigin(record, projection);
    if (record.type == KOORD_LAMBERTCC) PrepareCone(record, projection);
}

}  // namespace tessara
