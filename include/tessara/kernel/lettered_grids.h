// BNG and ING, the British and the Irish National Grid: transverse Mercator grids whose squares of 100 km
// have letters (Ordnance Survey, "A guide to coordinate systems in Great Britain"; Ordnance Survey Ireland,
// "The Irish Grid").
//
// A British square has two letters, the first of which stands for a square of 500 km. An Irish square has
// the letter I and a second one. A payload has the letters with whole metres within the square, and also the
// complete grid values with fractions.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Degrees to letters, metres within the square (truncated) and complete values in metres; `forward` holds
// forward constants. The grids reach from 0, 0 to 700000, 1300000 (BNG) and 500000, 500000 (ING), limits
// included. A point within 0.0001 m of a limit is moved onto it; on an upper limit it has the letters of the
// last square and 99999 metres. KOORD_OK, or, with the payload unchanged, KOORD_ERR_GRID_RANGE outside the
// grid and KOORD_ERR_DATUM for constants without a datum.
KoordStatus BNG_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward);
KoordStatus ING_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward);

// Letters and metres to degrees; letters may be lower-case. Complete values less than a metre from the
// letters and metres replace them, with their fractions; on an upper limit, a metre away, they don't. If a
// letter is zero only the complete values count, and ING rounds them to whole metres. Positions outside the
// grid aren't rejected. KOORD_OK, or, with `latLon` unchanged, KOORD_ERR_GRID_RANGE for a letter that isn't
// the grid's and KOORD_ERR_DATUM for constants without a datum. Both sets of constants must have one datum.
KoordStatus BNG_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* forward,
                           const TmConstants* inverse);
KoordStatus ING_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* forward,
                           const TmConstants* inverse);

}  // namespace tessara
