// The values of a record along its two axes as plain numbers, for comparisons, midpoints, differences and
// shifts.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "systems/system_row.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// The axis row of a record's system.
[[nodiscard]] inline const AxisRow& AxisRowOf(Axis axis, const tagKOORD& record) {
    const SystemRow& row = SystemOf(record);
    return axis == Axis::East ? row.east : row.north;
}

namespace axes {

// Whether the system stores one number for each axis. UTMREF, GEOGRAD, GEOREF and GEODEZMIN use several
// fields, ECEF has no such axes, and LAMBERTCC is none of the object layer's systems.
[[nodiscard]] bool IsNumber(std::int32_t system);

// That number, in the unit of the system; 0.0 for systems without one.
[[nodiscard]] double Value(Axis axis, const tagKOORD& record);
// Stores the number; a LONGPIXEL takes its whole part. Does nothing for systems without one.
void SetValue(Axis axis, double value, tagKOORD* record);

// The northing on one scale for both hemispheres: a UTM northing with the letter 'S' or 's' counts from the
// equator and is negative. In other systems it is the northing itself.
[[nodiscard]] double SignedNorthing(const tagKOORD& record);
// Stores such a northing, and for UTM the hemisphere: south below 0.0.
void SetSignedNorthing(double northing, tagKOORD* record);

}  // namespace axes

}  // namespace tessara
