// Copies one axis of a position between two records of the same datum and type.
#pragma once

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// Copies the fields of the axis and what belongs to it: zone, hemisphere, letters. False for types outside
// 0..22; the target is then unchanged.
bool CopyAxis(Axis axis, const tagKOORD& source, tagKOORD* target);

}  // namespace tessara
