// CH, the Swiss national grid (LV03): from the ellipsoid to the conformal sphere, and from the sphere to a
// Mercator cylinder that touches it along the great circle through Bern (swisstopo, "Formulas and constants
// for the calculation of the Swiss conformal cylindrical projection and for the transformation between
// coordinate systems", rigorous formulas).
//
// The calculation always uses the Bessel ellipsoid of this grid; the datum of the record has no influence.
#pragma once

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Degrees to metres; the origin is 600000, 200000. A value within 0.0001 m of a limit of the grid (easting
// -200000 and 1500000, northing -300000 and 600000) becomes the limit; values outside aren't rejected. Near
// the antipode of the origin the result is that of a point near the origin. Always KOORD_OK; a latitude
// beyond a pole gives NaN.
KoordStatus CH_FromGeodetic(const double latLon[2], GridPayload* payload);

// Metres to degrees. Always KOORD_OK; values that are on no point of the cylinder give NaN or a point
// outside the grid.
KoordStatus CH_ToGeodetic(const GridPayload* payload, double latLon[2]);

}  // namespace tessara
