// RD, the Dutch national grid (Rijksdriehoeksstelsel): from the ellipsoid to the Gaussian sphere at
// Amersfoort, and from the sphere to the plane by an oblique stereographic projection (IOGP Publication
// 373-7-2, "Coordinate Conversions and Transformations including Formulas", Oblique Stereographic).
//
// The calculation is on the ellipsoid of `datum`; a datum id outside 0..238 gives NaN.
#pragma once

#include <cstdint>

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// Degrees to metres; the origin is 155000, 463000. A value within 0.0001 m of a limit of the grid (easting
// -100000 and 400000, northing 200000 and 700000) becomes the limit; values outside aren't rejected. The
// antipode of the origin has no image and gives the origin.
void RD_FromGeodetic(const double latLon[2], GridPayload* payload, std::int32_t datum);

// Metres to degrees. A point within a millimetre of the origin on both axes gives the origin; values far
// outside the grid may give NaN.
void RD_ToGeodetic(const GridPayload* payload, double latLon[2], std::int32_t datum);

}  // namespace tessara
