// Lambert's conformal conic projections on the ellipsoid: LambertCC with free parameters, LambertFR with
// those of the four French zones (J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper
// 1395, 1987, section 15). Positions are in degrees, grid values in metres.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord_status.h"

namespace tessara {

// A cone with two standard parallels, or with one and a scale on it.
struct LambertCC {
    std::int32_t datum;
    double parallel1Deg, parallel2Deg, lon0Deg;  // degrees
    double a, e, e2;
    double parallel1, parallel2;  // radians
    double falseEasting, falseNorthing;
    double scale;       // counts only for equal parallels
    double lat0, lon0;  // radians
    double t0, t1, t2;  // exp of the negative isometric latitude: of the origin and of the two parallels
    double m1, m2;      // radius of the two parallels on a unit ellipsoid
    double n;  // constant of the cone, the sine of its latitude; negative for a cone over the south pole
    double F;
    double rho0;  // radius of the parallel of origin in the plane, metres
};

// Prepares a cone; latitudes and longitudes are in degrees. KOORD_OK, or KOORD_ERR_DATUM for an id outside
// 0..238: *lcc is then all zero, and projecting with it gives no position. Opposite parallels, and parallels
// at a pole, make no cone: projecting gives NaN or infinite values.
KoordStatus LambertCC_Init(std::int32_t datum, double parallel1, double parallel2, double scale,
                           double falseEasting, double falseNorthing, double lat0, double lon0,
                           LambertCC* lcc);
void LambertCC_Forward(const double latLon[2], double* easting, double* northing, const LambertCC* lcc);
void LambertCC_Inverse(double easting, double northing, double latLon[2], const LambertCC* lcc);

// A French zone: a cone that touches the ellipsoid at `lat0`. The scale of the grid is contained in
// `radius0`, the radius of that parallel in the plane. The constants are those of the published tables,
// rounded to 1 cm.
struct LambertFR {
    std::int32_t zone;  // 1..4
    std::int32_t datum;
    double e;
    double n;        // sine of lat0
    double lat0;     // degrees
    double x0, y0;   // metres
    double lon0;     // degrees: the meridian of Paris
    double radius0;  // metres
};

// Prepares a zone. For a zone outside 1..4 the caller must have set `lat0`, `x0`, `y0` and `radius0`: they
// stay, and the rest is set, with `n` from that `lat0`; with a record of zeros projecting gives no position.
// A datum id outside 0..238 makes every result a NaN.
void LambertFR_Init(std::int32_t zone, std::int32_t datum, LambertFR* lambert);
void LambertFR_Forward(const double latLon[2], double* x, double* y, const LambertFR* lambert);
// The apex of the cone gives NaN. Beyond it the angle is that of the opposite point before it.
void LambertFR_Inverse(double x, double y, double latLon[2], const LambertFR* lambert);

}  // namespace tessara
