// Geodesics on an ellipsoid of revolution: the point at a distance and an azimuth, and the distance and
// azimuths between two points. Distances are metres; angles are degrees, azimuths clockwise from north in
// 0..360.
//
// The method is of the Vincenty family, in a form with the third flattening: reduced latitudes come from a
// sine series, arcs from expansions in the parameter (u - 1)/(u + 1) of the great ellipse (T. Vincenty,
// "Direct and Inverse Solutions of Geodesics on the Ellipsoid with Application of Nested Equations", Survey
// Review XXIII 176, 1975, and its modification of 1976). The direct solution is closed; the inverse one
// iterates on the longitude of the auxiliary sphere. Away from the antipode both are good to better than a
// millimetre.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// What both core functions return: each value has the first name for the direct one, the second for the
// inverse.
struct GeodesicResult {
    union {
        double latitude;
        double distance;
    };
    union {
        double longitude;
        double azimuth12;
    };
    union {
        double backAzimuth;
        double azimuth21;
    };
};

// The semi-axes a and b in metres of a datum's ellipsoid; both NaN for an id outside 0..238.
void Geodesic_LoadAxes(double axes[2], std::int32_t datum);

// The point at `distance` from (lat, lon) in the direction of `azimuth`, and the azimuth back from there. The
// longitude isn't brought into -180..180. A distance may be negative.
[[nodiscard]] GeodesicResult Geodesic_DirectCore(double lat, double lon, double distance, double azimuth,
                                                 double a, double b);

// Distance and azimuths of the shortest way from point 1 to point 2; azimuth21 is the direction back at
// point 2. A negative distance says that there is no solution; the azimuths then mean nothing. An argument
// that isn't finite has none. Coincident points, whole turns of longitude apart or not, have distance 0.0
// and, as no direction is theirs, azimuths 0.0.
//
// Near the antipode the iteration may not converge. If the latitudes then add up to less than 5 degrees and
// the longitude is within about 26 degrees of the antipode's, the way is put together from two geodesics that
// meet on the meridian half-way, at the latitude that a one-dimensional search finds; otherwise there is no
// solution. Such a way has a bend and is too long, since the search stops at the first step that changes the
// length by 0.01 m or less, and may do so beside the best point. Of pairs scattered within 0.7 degrees of the
// antipode 95 % are less than 0.1 m too long and 99 % less than 90 m, the worst 900 m; the azimuths are those
// of the two halves, up to 0.1 degrees off for 95 % and 10 degrees for the worst. The search is bounded: such
// a pair costs a few hundred times as much as another at most.
[[nodiscard]] GeodesicResult Geodesic_InverseCore(double lat1, double lon1, double lat2, double lon2,
                                                  double a, double b);

// The direct solution for a record of any type, on the ellipsoid of `datum`. The caller's `to` says with its
// datum and type (and parameters) what is wanted. KOORD_OK, or the status of the conversion that failed: `to`
// is unchanged if it was that of `from`, as with KOORD_ERR_DATUM for a `datum` outside 0..238, and as
// KoordConvert leaves it otherwise. The height of the result is 0; its longitude isn't wrapped, which some
// types don't accept beyond 180 degrees.
KoordStatus Geodesic_Direct(const tagKOORD* from, std::int32_t datum, double distance, double azimuth,
                            tagKOORD* to);

// The inverse solution between two records of any types, on the ellipsoid of `datum`. KOORD_OK;
// GEODESIC_NO_SOLUTION, which is 0 and no negative status; or the status of a conversion that failed. The
// outputs are 0.0 unless KOORD_OK.
KoordStatus Geodesic_Inverse(const tagKOORD* p1, const tagKOORD* p2, std::int32_t datum, double* distance,
                             double* azimuth12, double* azimuth21);

}  // namespace tessara
