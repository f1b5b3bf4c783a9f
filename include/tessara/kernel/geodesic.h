// Geodesics on an ellipsoid of revolution: the point at a distance and an azimuth, and the distance and
// azimuths between two points. Distances are in metres, angles in degrees, azimuths clockwise from north in
// 0..360.
//
// Example: from New York JFK to London Heathrow.
//
//     double axes[2];
//     tessara::Geodesic_LoadAxes(axes, tessara::DATUM_WGS84);
//     const tessara::GeodesicResult way =
//         tessara::Geodesic_InverseCore(40.64, -73.78, 51.47, -0.45, axes[0], axes[1]);
//     // way.distance 5555408.658 m, way.azimuth12 51.379
//
// The formulas are those of T. Vincenty, "Direct and Inverse Solutions of Geodesics on the Ellipsoid with
// Application of Nested Equations", Survey Review XXIII 176, 1975, in his modification of 1976: series in
// the third flattening for the reduced latitude and in (u - 1)/(u + 1) of the great ellipse for arcs. The
// direct solution is closed, the inverse one iterates the longitude on the auxiliary sphere. Except near the
// antipode both are accurate to better than a millimetre.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// The result of both core functions. The first name of each pair is for the direct solution, the second for
// the inverse.
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

// The point at `distance` from (lat, lon) at `azimuth`, and the azimuth from there back to the start. The
// longitude isn't brought into -180..180. A distance may be negative.
[[nodiscard]] GeodesicResult Geodesic_DirectCore(double lat, double lon, double distance, double azimuth,
                                                 double a, double b);

// Distance and azimuths of the shortest line from point 1 to point 2; azimuth21 is the direction back at
// point 2. A negative distance means that there is no solution, as for an argument that isn't finite; the
// azimuths have no meaning then. Coincident points, also with longitudes 360 degrees apart, have the
// distance 0.0 and the azimuths 0.0.
//
// Near the antipode the iteration may not converge. If then the sum of the latitudes is below 5 degrees and
// the longitude within about 26 degrees of the antipode's, the line is composed of two geodesics that meet
// on the meridian half-way, at the latitude found by a search in one dimension; otherwise there is no
// solution. Such a line has a bend and is too long, because the search stops at the first step that changes
// the length by at most 0.01 m, which may be beside the minimum. Of pairs within 0.7 degrees of the antipode
// 95 % are less than 0.1 m too long and 99 % less than 90 m, the worst 900 m. The azimuths are those of the
// two halves: up to 0.1 degrees off for 95 %, 10 degrees for the worst. The search is bounded, and such a
// pair takes at most a few hundred times as long as another.
[[nodiscard]] GeodesicResult Geodesic_InverseCore(double lat1, double lon1, double lat2, double lon2,
                                                  double a, double b);

// The direct solution for records of any types, on the ellipsoid of `datum`. The datum and type of `to`, and
// its parameters, select the result. KOORD_OK, or the status of the conversion that failed. If that was the
// conversion of `from`, or `datum` is outside 0..238 (KOORD_ERR_DATUM), `to` is unchanged; otherwise it is
// as KoordConvert leaves it. The height of the result is 0. Its longitude isn't brought into -180..180, and
// some types reject one beyond 180 degrees.
KoordStatus Geodesic_Direct(const tagKOORD* from, std::int32_t datum, double distance, double azimuth,
                            tagKOORD* to);

// The inverse solution between records of any types, on the ellipsoid of `datum`. KOORD_OK,
// GEODESIC_NO_SOLUTION (which is 0, not negative), or the status of a conversion that failed. The outputs
// are 0.0 unless the result is KOORD_OK.
KoordStatus Geodesic_Inverse(const tagKOORD* p1, const tagKOORD* p2, std::int32_t datum, double* distance,
                             double* azimuth12, double* azimuth21);

}  // namespace tessara
