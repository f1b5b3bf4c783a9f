#include <cmath>

#include "guard.h"
#include "records.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/limits.h"

namespace tessara::postgresql {
namespace {

constexpr double FULL_TURN = 360.0;

KoordStatus CheckDegrees(const double at[2]) {
    if (!(std::fabs(at[0]) <= GEOGRAPHIC_LIMITS.north)) return KOORD_ERR_GEO_LAT;
    if (!(std::fabs(at[1]) <= GEOGRAPHIC_LIMITS.east)) return KOORD_ERR_GEO_LON;
    return KOORD_OK;
}

bool NoGeodesic(const double at[2], TessaraError* error) {
    return NoPosition(at[0], at[1], GEODESIC_NO_SOLUTION, error);
}

}  // namespace

extern "C" {

bool Tessara_Datum(const char* name, int32_t* datum, TessaraError* error) noexcept {
    return Guarded(error, [&] {
        *datum = DatumOf(name);
        return true;
    });
}

bool Tessara_Way(const double from[2], const double to[2], int32_t datum, double way[3],
                 TessaraError* error) noexcept {
    for (const double* const at : {from, to}) {
        const KoordStatus status = CheckDegrees(at);
        if (status != KOORD_OK) return NoPosition(at[0], at[1], status, error);
    }
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    const GeodesicResult result = Geodesic_InverseCore(from[0], from[1], to[0], to[1], axes[0], axes[1]);
    if (!(result.distance >= 0.0)) return NoGeodesic(to, error);
    way[0] = result.distance;
    way[1] = result.azimuth12;
    way[2] = result.azimuth21;
    return true;
}

bool Tessara_End(const double from[2], double azimuth, double distance, int32_t datum, double end[3],
                 TessaraError* error) noexcept {
    const KoordStatus status = CheckDegrees(from);
    if (status != KOORD_OK) return NoPosition(from[0], from[1], status, error);
    if (!std::isfinite(azimuth) || !std::isfinite(distance)) return NoGeodesic(from, error);
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    const GeodesicResult result = Geodesic_DirectCore(from[0], from[1], distance, azimuth, axes[0], axes[1]);
    if (!std::isfinite(result.latitude) || !std::isfinite(result.longitude)) return NoGeodesic(from, error);
    end[0] = result.latitude;
    end[1] = std::remainder(result.longitude, FULL_TURN);
    end[2] = result.backAzimuth;
    return true;
}

}  // extern "C"

}  // namespace tessara::postgresql
