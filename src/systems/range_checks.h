// The verdicts on a record that the rows of the table of systems name, each with the row's own limits and
// statuses.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

struct SystemRow;

KoordStatus AcceptRecord(const tagKOORD& record, const SystemRow& row);
// On the position that the record stands for.
KoordStatus CheckThroughGeodez(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckUps(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeodez(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeograd(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeodezMin(const tagKOORD& record, const SystemRow& row);
KoordStatus CheckGeoref(const tagKOORD& record, const SystemRow& row);
// What a system says of a position in degrees: KOORD_OK, KOORD_CHECK_AFTER, or the status of its refusal.
KoordStatus CheckPosition(const double latLon[2], const SystemRow& row);

// A record of two plain numbers.
KoordStatus CheckGrid(const tagKOORD& record, const SystemRow& row);
// The numbers within the square if there are letters, else those of the whole grid.
KoordStatus CheckLetterGrid(const tagKOORD& record, const SystemRow& row);

}  // namespace tessara
