// World Geographic Reference System (GEOREF): two letters for a cell of 15 degrees, two for the degree
// within it, then the minutes of longitude and latitude (DMA TM 8358.1, "Datums, Ellipsoids, Grids, and Grid
// Reference Systems").
//
// Other libraries truncate minutes to the precision. Here they are rounded to hundredths first, and lower
// precisions then drop digits: 38.286108 north 76.4291704 west is 34.249776 minutes east and 17.16648
// minutes north of the corner GJPJ and has the hundredths 3425 1717, in libraries that truncate 3424 1716. A
// border belongs to the eastern and northern cell, as elsewhere: 8 south 6 west is MFKH. But longitude 180
// and latitude 90 have no letters here, while other libraries accept them as -180 and as the last cell.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Converts latitude and longitude in degrees to a reference with the payload's `precision`:
//
//     3  whole minutes        lonMinutes, latMinutes 0..59
//     4  tenths               0..599
//     5  hundredths           0..5999
//
// A precision of 1 or 2 gives minutes of 0; any other becomes 5. Rounding to hundredths carries into the
// letters where it fills a minute or a degree; in the last cell to the east and north it can't carry and
// stays at 59.99 minutes.
//
// KOORD_OK, or KOORD_ERR_OUTSIDE for a position without letters, such as longitude 180.0 or latitude 90.0.
// The payload is then unchanged, except that the two letters of the cell are written if the cell has letters
// and the degree has none. A position less than a degree west of -180.0 or south of -90.0 gets the letters
// of the grid's edge and negative minutes.
KoordStatus GEOREF_FromGeodetic(const double latLon[2], GeorefPayload* payload);

// The position of letters and minutes, in degrees. Minutes count only at the precisions 3, 4 and 5, and may
// exceed the degree. KOORD_OK, or KOORD_ERR_OUTSIDE, with `latLon` unchanged, for a letter that doesn't
// exist in its place, also in lower case.
KoordStatus GEOREF_ToGeodetic(const GeorefPayload* payload, double latLon[2]);

}  // namespace tessara
