// BNG and ING, the British and the Irish National Grid: transverse Mercator grids with a letter address for
// the 100 km square (Ordnance Survey, "A guide to coordinate systems in Great Britain"; Ordnance Survey
// Ireland, "The Irish Grid").
//
// A British square has two letters, the first for its 500 km square; an Irish one has the letter I and a
// second. A payload carries the letters with whole metres within the square, and beside them the full grid
// values with their fractions.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Degrees to letters, metres within the square (cut, not rounded) and full values in metres; `forward` holds
// forward constants. The grids reach from 0, 0 to 700000, 1300000 (BNG) and 500000, 500000 (ING), limits
// included: a point within 0.0001 m of a limit is snapped onto it, and on the upper limit it has the letters
// of the last square, 99999 metres into it. KOORD_ERR_GRID_RANGE outside, KOORD_ERR_DATUM for constants
// without a datum, both with the payload unchanged, else KOORD_OK.
KoordStatus BNG_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward);
KoordStatus ING_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward);

// Letters and metres to degrees; letters of either case. Where the full values lie less than a metre from the
// address they are taken for it, with their fractions; the upper limit, a metre from its address, isn't. With
// either letter zero the full values alone count, and ING rounds them to whole metres. Positions outside the
// grid aren't refused. KOORD_ERR_GRID_RANGE for a letter that isn't the grid's, KOORD_ERR_DATUM for constants
// without a datum, both with `latLon` unchanged, else KOORD_OK. The two sets of constants are of one datum.
KoordStatus BNG_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* forward,
                           const TmConstants* inverse);
KoordStatus ING_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* forward,
                           const TmConstants* inverse);

}  // namespace tessara
