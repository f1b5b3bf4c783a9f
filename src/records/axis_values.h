// The plain numbers that a system keeps along its two axes: what comparisons, midpoints, differences and
// shifts all work on.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "systems/system_row.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// What the table of systems says of an axis of a record.
[[nodiscard]] inline const AxisRow& AxisRowOf(Axis axis, const tagKOORD& record) {
    const SystemRow& row = SystemOf(record);
    return axis == Axis::East ? row.east : row.north;
}

namespace axes {

// Whether the system keeps one number for each axis. UTMREF, GEOGRAD, GEOREF and GEODEZMIN spread them over
// several fields, ECEF has no such axes, and LAMBERTCC is outside the object layer's systems.
[[nodiscard]] bool IsNumber(std::int32_t system);

// That number, in the unit of the system; 0.0 for the other systems.
[[nodiscard]] double Value(Axis axis, const tagKOORD& record);
// A LONGPIXEL takes the whole part. Does nothing in the other systems.
void SetValue(Axis axis, double value, tagKOORD* record);

// The northing on one scale for both hemispheres: a UTM northing with the letter 'S' or 's' counts from the
// equator downward. Other systems have just the northing.
[[nodiscard]] double SignedNorthing(const tagKOORD& record);
// Writes the UTM hemisphere, too: south below 0.0.
void SetSignedNorthing(double northing, tagKOORD* record);

}  // namespace axes

}  // namespace tessara
