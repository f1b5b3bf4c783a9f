// Transverse Mercator: the core of UTM, the Gauss-Krueger family, the national transverse grids and the free
// TM.
//
// The method is the Krueger series in complex form (L. Krueger, "Konforme Abbildung des Erdellipsoids in der
// Ebene", 1912): position to the conformal sphere, closed form to a Mercator plane, four-term sine series
// with hyperbolic functions to the grid. Coefficients are polynomials of the eccentricity squared up to its
// fourth power: the grid values are exact to 1e-6 m within 10 degrees of the central meridian and to 1e-5 m
// within 30. One coefficient of the inverse matrix, 1/61440 at the fourth power of row 1, costs a
// steady 1.2e-11 degrees (1.3e-6 m) on the way back.
//
// Longitude differences of 90 degrees and more are outside the method and give a wrong quadrant; eastings of
// such points and beyond give positions of no meaning.
#pragma once

#include <cstdint>

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Constants of one datum, for one direction. The calculations read `arcCoef`, `seriesCoef` and `datum`; the
// others serve classical meridian arc formulas. With a `datum` outside 0..238 every result is NaN.
struct TmConstants {
    double polarRadius;   // a*a/b, metres
    double secondEcc2;    // a*a/(b*b) - 1
    double arcPerDegree;  // metres of meridian arc per degree
    double arcTerm[3];    // sine terms of the meridian arc (forward) or of the footpoint latitude (inverse)
    std::int32_t datum;
    double arcCoef[5];     // meridian arc on a unit ellipsoid
    double seriesCoef[5];  // rectifying factor and the four series terms
};

// The five parameters of a free transverse Mercator: degrees, metres, and a factor. The layout is that of the
// first five fields of TmPayload.
struct TmParams {
    double originLongitude;
    double originLatitude;
    double falseEasting;
    double falseNorthing;
    double scale;
};

// KOORD_ERR_DATUM for an id outside 0..238 (*c is then unchanged), else KOORD_OK.
KoordStatus TM_LoadForwardConstants(std::int32_t datum, TmConstants* c);
KoordStatus TM_LoadInverseConstants(std::int32_t datum, TmConstants* c);

// Radians in, the longitude measured from the central meridian; metres out. `c` holds forward constants.
void TM_Forward(double dLon, double lat, double k, double falseEasting, double falseNorthing, double* easting,
                double* northing, const TmConstants* c);
// Metres in, degrees out; `centralMeridian` in degrees. `c` holds inverse constants.
void TM_Inverse(double easting, double northing, double k, double falseEasting, double falseNorthing,
                double centralMeridian, double* lon, double* lat, const TmConstants* c);

}  // namespace tessara
