// Values that the datum, type and parameters of a record determine for all its positions, as far as they
// have to be computed; tables contain all others.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/lambert.h"

namespace tessara {

// Only the members that the type needs are set.
struct Projection {
    double originNorth;  // TM, metres
    LambertCC cone;      // LAMBERTCC
};

void PrepareOrigin(const tagKOORD& record, Projection* projection);
void PrepareCone(const tagKOORD& record, Projection* projection);

// Takes a record with a datum 0..238.
inline void PrepareProjection(const tagKOORD& record, Projection* projection) {
    if (record.type == KOORD_TM) PrepareOrigin(record, projection);
    if (record.type == KOORD_LAMBERTCC) PrepareCone(record, projection);
}

}  // namespace tessara
