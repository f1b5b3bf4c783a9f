#include "conversion/geodesic_checks.h"
#include "guard.h"
#include "records.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::postgresql {
namespace {

bool IsDegrees(const double at[2], TessaraError* error) {
    const KoordStatus status = toolkit::CheckDegrees(at[0], at[1]);
    return status == KOORD_OK || NoPosition(at[0], at[1], status, error);
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
    if (!IsDegrees(from, error) || !IsDegrees(to, error)) return false;
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    const GeodesicResult result = Geodesic_InverseCore(from[0], from[1], to[0], to[1], axes[0], axes[1]);
    const KoordStatus status = toolkit::CheckWay(from[0], from[1], to[0], to[1], result.distance);
    if (status != KOORD_OK) return NoPosition(to[0], to[1], status, error);
    way[0] = result.distance;
    way[1] = result.azimuth12;
    way[2] = result.azimuth21;
    return true;
}

bool Tessara_End(const double from[2], double azimuth, double distance, int32_t datum, double end[3],
                 TessaraError* error) noexcept {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    GeodesicResult result = Geodesic_DirectCore(from[0], from[1], distance, azimuth, axes[0], axes[1]);
    const KoordStatus status =
        toolkit::CheckEnd(from[0], from[1], azimuth, distance, result.latitude, &result.longitude);
    if (status != KOORD_OK) return NoPosition(from[0], from[1], status, error);
    end[0] = result.latitude;
    end[1] = result.longitude;
    end[2] = result.backAzimuth;
    return true;
}

}  // extern "C"

}  // namespace tessara::postgresql
