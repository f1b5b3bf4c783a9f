// The range tests that the rows of the table of systems refer to. Each uses the limits and statuses of its
// row.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

struct SystemRow;

// Degrees from the equator.
struct PolarRange {
    double nearest, furthest;
};
inline constexpr PolarRange UPS_LATITUDES{80.0, 90.0};

KoordStatus AcceptRecord(const tagKOORD& record, const SystemRow& row);
// Tests the position of the record in degrees.
KoordStatus CheckThroughGeodez(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckUps(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeodez(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeograd(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeodezMin(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeoref(const tagKOORD& record, const SystemRow& row);
// Tests a position in degrees: KOORD_OK, KOORD_CHECK_AFTER, or the status of its refusal.
KoordStatus CheckPosition(const double latLon[2], const SystemRow& row);

// Tests a record of two plain numbers.
KoordStatus CheckGrid(const tagKOORD& record, const SystemRow& row);
// Tests the numbers within the square if the record has letters, otherwise those of the whole grid.
KoordStatus CheckLetterGrid(const tagKOORD& record, const SystemRow& row);

}  // namespace tessara
