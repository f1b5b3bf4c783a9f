// Geodetic datums: the constant tables and the shift between two datums.
//
// A datum is an ellipsoid and three translations toward WGS84. Every shift runs through the hub WGS84 with
// the standard Molodensky formulas (DMA TR 8350.2, "Department of Defense World Geodetic System 1984",
// section 7) for a point of height 0: into the hub in one step, out of it in a step that is refined by
// iterating the way in. The height of a position is no input and is never changed.
//
// Accuracy of the method: within 85 degrees of latitude a position shifted out and back returns with a median
// error below 1e-10 degrees, 99 % of all pairs below 2e-7 degrees, and at worst 4e-6 degrees: the refinement
// runs only for shifts above a thousandth of a degree. For the same reason the sphere (datum 0), whose step
// out of the hub differs from the step into it by more than 1 %, misses by up to 1.2e-5 degrees within 0.2
// degrees of the equator.
#pragma once

#include <cstdint>

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

enum EllipsoidCode : std::uint32_t {
    ELLIPSOID_UNKNOWN = 0,
    ELLIPSOID_KUGEL = 1,
    ELLIPSOID_INTERNATIONAL = 2,
    ELLIPSOID_BESSEL = 3,
    ELLIPSOID_CLARKE = 4,
    ELLIPSOID_WGS84 = 5,
    ELLIPSOID_KRASSOVSKY = 6,
    ELLIPSOID_AIRY_1830 = 7,
    ELLIPSOID_AUSTRALIAN = 8,
    ELLIPSOID_BESSEL_NAMIBIA_1841 = 9,
    ELLIPSOID_CLARKE_1880 = 10,
    ELLIPSOID_EVEREST_BRUNEI = 11,
    ELLIPSOID_EVEREST_INDIA_1830 = 12,
    ELLIPSOID_EVEREST_INDIA_1956 = 13,
    ELLIPSOID_EVEREST_PAKISTAN = 14,
    ELLIPSOID_EVEREST_MALAYSIA_1948 = 15,
    ELLIPSOID_EVEREST_MALAYSIA_1969 = 16,
    ELLIPSOID_GRS_1980 = 17,
    ELLIPSOID_HELMERT_1906 = 18,
    ELLIPSOID_HOUGH_1960 = 19,
    ELLIPSOID_INDONESIAN_1974 = 20,
    ELLIPSOID_MOD_AIRY = 21,
    ELLIPSOID_MOD_FISCHER_1960 = 22,
    ELLIPSOID_SOUTH_AMERICAN_1969 = 23,
    ELLIPSOID_WGS72 = 24,
    ELLIPSOID_USER_DEFINED = 25,
};

struct DatumRow {
    std::uint32_t id;
    char name[24];            // zero-padded
    std::uint32_t ellipsoid;  // an EllipsoidCode
    double a;                 // semi-major axis, metres
    double f;                 // flattening, 0.0 for the sphere
    double dx, dy, dz;        // translation from this datum to WGS84, metres
    double e2;                // first eccentricity squared, 2f - f*f
};

// One direction of a shift: the ellipsoid it starts on, the differences of the ellipsoids and the
// translation.
struct HubParams {
    double f, a, e2;
    double df, da;
    double dx, dy, dz;
};

// The row of a datum and its name; null for an id outside 0..238.
[[nodiscard]] const DatumRow* Datum_Row(std::int32_t datum);
[[nodiscard]] const char* Datum_Name(std::int32_t datum);

// The name of an ellipsoid; null for a number outside the codes and for the nameless user-defined one.
[[nodiscard]] const char* Ellipsoid_Name(std::int32_t ellipsoid);

// Semi-major axis in metres and eccentricity squared; -1.0 for an id outside 0..238.
[[nodiscard]] double Datum_SemiMajorAxis(std::int32_t datum);
[[nodiscard]] double Datum_EccentricitySquared(std::int32_t datum);

// One Molodensky step in place, degrees. With `keepOnGlobe` other than 0 a latitude that passes a pole is
// reflected and its longitude turned by half a circle. A position that isn't a number stays none.
void Molodensky_Apply(const HubParams* p, double latLon[2], std::int32_t keepOnGlobe);
// The step into the hub.
void Molodensky_ToHub(double latLon[2], const HubParams* p);
// The way out of the hub to `datum`: one step, refined by at most four iterations of the way in where it
// moves the position by more than 0.001 degrees. Non-convergence isn't reported: the fourth iteration stands.
// For an id outside 0..238 the single step stands.
void Molodensky_FromHub(double latLon[2], const HubParams* p, std::int32_t datum);

}  // namespace tessara
