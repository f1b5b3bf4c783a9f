// Geodetic datums: the constant tables and the shift between two datums.
//
// A datum is an ellipsoid and three translations toward WGS84. Every shift runs through the hub WGS84 with
// the abridged-height form of the standard Molodensky formulas (DMA TR 8350.2, "Department of Defense World
// Geodetic System 1984", section 7): into the hub in one step, out of it in a step that is refined by
// iterating the way in. The height of a point is taken as 0 and is never changed.
//
// Accuracy of the method: a position shifted out and back returns with a median error below 1e-10 degrees, 99
// % of all pairs below 2e-7 degrees and at worst about 4e-6 degrees, for latitudes within 85 degrees: the
// refinement runs only for shifts above a thousandth of a degree.
#pragma once

#include <cstdint>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

struct DatumRow {
    std::uint32_t id;
    char name[24];            // zero-padded
    std::uint32_t ellipsoid;  // an ellipsoid code
    double a;                 // semi-major axis, metres
    double f;                 // flattening, 0.0 for the sphere
    double dx, dy, dz;        // translation from this datum to WGS84, metres
    double e2;                // first eccentricity squared, 2f - f*f
};

struct NameRow {
    std::uint32_t number;
    char name[24];  // zero-padded
};

// One direction of a shift: the ellipsoid it starts on, the differences of the ellipsoids and the
// translation.
struct HubParams {
    double f, a, e2;
    double df, da;
    double dx, dy, dz;
};

// The row of a datum, or null for an id outside 0..238.
[[nodiscard]] const DatumRow* Datum_Row(std::int32_t datum);

// Semi-major axis in metres and eccentricity squared; -1.0 for an id outside 0..238.
[[nodiscard]] double Datum_SemiMajorAxis(std::int32_t datum);
[[nodiscard]] double Datum_EccentricitySquared(std::int32_t datum);

// Parameters for the way from a datum to WGS84 and back. KOORD_ERR_DATUM for an id outside 0..238 (*p is then
// unchanged), else KOORD_OK.
KoordStatus Datum_LoadToHub(std::int32_t datum, HubParams* p);
KoordStatus Datum_LoadFromHub(std::int32_t datum, HubParams* p);

// Shifts latitude and longitude in degrees; `in` and `out` may be the same. KOORD_ERR_DATUM if either id is
// outside 0..238 (`out` is then unchanged), else KOORD_OK. The longitude isn't brought into -180..180.
KoordStatus Datum_Shift(const double in[2], double out[2], const HubParams* toHub, const HubParams* fromHub,
                        std::int32_t sourceDatum, std::int32_t targetDatum);

// One Molodensky step in place, degrees. With `keepOnGlobe` a latitude that passes a pole is reflected.
void Molodensky_Apply(const HubParams* p, double latLon[2], std::int32_t keepOnGlobe);
void Molodensky_ToHub(double latLon[2], const HubParams* p);
// The refined way out of the hub. Non-convergence isn't reported: the fourth iteration stands.
void Molodensky_FromHub(double latLon[2], const HubParams* p, std::int32_t datum);

// Name tables; the rows are in table order and null marks the end of the range.
[[nodiscard]] const char* Datum_Name(std::int32_t datum);            // null outside 0..238
[[nodiscard]] const char* Ellipsoid_Name(std::int32_t ellipsoid);    // null outside 0..24
[[nodiscard]] const char* Projection_Name(std::int32_t projection);  // null outside 0..21
[[nodiscard]] const char* MapType_Name(std::int32_t mapType);        // null outside 0..17
[[nodiscard]] const char* CoordinateType_Name(std::int32_t type);    // null outside 0..22

}  // namespace tessara
