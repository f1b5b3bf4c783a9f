// Transverse Mercator: the core of UTM, Gauss-Krueger, the national transverse grids and the free TM.
//
// Example: 48.1375 north 11.5755 east in UTM zone 32, whose central meridian is 9 degrees east.
//
//     tessara::TmConstants forward;
//     if (tessara::TM_LoadForwardConstants(tessara::DATUM_WGS84, &forward) != tessara::KOORD_OK) return;
//     const double lon = (11.5755 - 9.0) * tessara::RADIANS_PER_DEGREE;
//     const double lat = 48.1375 * tessara::RADIANS_PER_DEGREE;
//     double easting = 0.0, northing = 0.0;
//     tessara::TM_Forward(lon, lat, 0.9996, 500000.0, 0.0, &easting, &northing, &forward);
//     // 691602.660 5334791.145
//
// The projection goes from the ellipsoid to the conformal sphere, in closed form to a Mercator plane, and by
// a series of four terms in complex form to the grid (L. Krueger, "Konforme Abbildung des Erdellipsoids in
// der Ebene", 1912). With coefficients to the eighth power of the eccentricity grid values are exact to 1e-6
// m within 10 degrees of the central meridian, and to 1e-5 m within 30. Inverse results have a constant
// deviation of 1.2e-11 degrees (1.3e-6 m): one coefficient, 1/61440, is off, and stays because stored
// results must agree to the last digit.
//
// Points 90 degrees or more from the central meridian are beyond the range of the series: their grid values
// are in the wrong quadrant. Positions of grid values there, and further out, have no meaning.
#pragma once

#include <cstdint>

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// The constants of one datum for one direction. The calculations read `arcCoef`, `seriesCoef` and `datum`;
// the other fields are for classical meridian arc formulas. With a `datum` outside 0..238 every result is a
// NaN.
struct TmConstants {
    double polarRadius;   // a*a/b, metres
    double secondEcc2;    // a*a/(b*b) - 1
    double arcPerDegree;  // metres of meridian arc per degree
    double arcTerm[3];    // sine terms of the meridian arc (forward) or of the footpoint latitude (inverse)
    std::int32_t datum;
    double arcCoef[5];     // meridian arc on a unit ellipsoid
    double seriesCoef[5];  // rectifying factor and the four series terms
};

// The parameters of a free transverse Mercator, in degrees, metres and as a factor, laid out like the first
// five fields of TmPayload.
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

// Projects a latitude and a longitude difference from the central meridian, both in radians, to metres. `c`
// holds forward constants.
void TM_Forward(double dLon, double lat, double k, double falseEasting, double falseNorthing, double* easting,
                double* northing, const TmConstants* c);
// Converts metres to degrees; `centralMeridian` is in degrees. `c` holds inverse constants.
void TM_Inverse(double easting, double northing, double k, double falseEasting, double falseNorthing,
                double centralMeridian, double* lon, double* lat, const TmConstants* c);

}  // namespace tessara
