// World Geographic Reference System (GEOREF): two letters for a cell of 15 degrees, two for the degree
// within it, then the minutes of longitude and latitude (DMA TM 8358.1, "Datums, Ellipsoids, Grids, and Grid
// Reference Systems").
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Latitude and longitude in degrees to a reference of the precision that the payload carries:
//
//     3  whole minutes        lonMinutes, latMinutes 0..59
//     4  tenths               0..599
//     5  hundredths           0..5999
//
// A precision of 1 or 2 gives minutes of 0; any other becomes 5. Minutes are rounded to hundredths, with the
// carry into the letters that this may need, and lower precisions drop digits of the rounded value. At the
// eastern and northern end of the grid there is nothing to carry into: the reference stays at 59.99 minutes
// of the last cell.
//
// KOORD_ERR_OUTSIDE for a position without letters, among them longitude 180.0 and latitude 90.0 themselves:
// the payload is unchanged then, except that a position whose cell has letters and whose degree has none
// leaves the two cell letters behind. Otherwise KOORD_OK. A position less than a degree west of -180.0 or
// south of -90.0 gets the letters of the grid's edge and negative minutes.
KoordStatus GEOREF_FromGeodetic(const double latLon[2], GeorefPayload* payload);

// The position in degrees that letters and minutes give. Minutes count only at the precisions 3, 4 and 5, and
// aren't limited to the degree. KOORD_ERR_OUTSIDE for a letter that isn't in its alphabet (lower case
// included), with `latLon` unchanged, else KOORD_OK.
KoordStatus GEOREF_ToGeodetic(const GeorefPayload* payload, double latLon[2]);

}  // namespace tessara
