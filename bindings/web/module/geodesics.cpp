// Geodesics over columns of degrees for JavaScript.
#include <array>
#include <cmath>

#include "conversion/geodesic_checks.h"
#include "exports.h"
#include "references.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::web {
namespace {

using In = std::array<double, 4>;
using Out = std::array<double, 3>;

KoordStatus Inverse(const In& in, const double* axes, Out* out) {
    const GeodesicResult way = Geodesic_InverseCore(in[0], in[1], in[2], in[3], axes[0], axes[1]);
    const KoordStatus status = toolkit::CheckWay(in[0], in[1], in[2], in[3], way.distance);
    if (status == KOORD_OK) *out = {way.distance, way.azimuth12, way.azimuth21};
    return status;
}

// In: latitude, longitude, azimuth, distance.
KoordStatus Direct(const In& in, const double* axes, Out* out) {
    GeodesicResult end = Geodesic_DirectCore(in[0], in[1], in[3], in[2], axes[0], axes[1]);
    const KoordStatus status = toolkit::CheckEnd(in[0], in[1], in[2], in[3], end.latitude, &end.longitude);
    if (status == KOORD_OK) *out = {end.latitude, end.longitude, end.backAzimuth};
    return status;
}

// Four columns of numbers in, three out, one behind the other with `rows` values each.
template <class Solve>
Outcome Each(const char* datum, std::size_t datumSize, const double* in, double* out, std::int32_t* statuses,
             std::size_t rows, std::size_t count, const Solve& solve) {
    return Try([&] {
        double axes[2];
        Geodesic_LoadAxes(axes, DatumOf(std::string(datum, datumSize)));
        for (std::size_t i = 0; i < count; ++i) {
            Out results;
            results.fill(std::nan(""));
            statuses[i] = solve({in[i], in[rows + i], in[2 * rows + i], in[3 * rows + i]}, axes, &results);
            for (std::size_t k = 0; k < results.size(); ++k)
                out[k * rows + i] = results[k];
        }
    });
}

}  // namespace

TESSARA_EXPORT(inverse)
Outcome InverseColumns(const char* datum, std::size_t datumSize, const double* in, double* out,
                       std::int32_t* statuses, std::size_t rows, std::size_t count) {
    return Each(datum, datumSize, in, out, statuses, rows, count, Inverse);
}

TESSARA_EXPORT(direct)
Outcome DirectColumns(const char* datum, std::size_t datumSize, const double* in, double* out,
                      std::int32_t* statuses, std::size_t rows, std::size_t count) {
    return Each(datum, datumSize, in, out, statuses, rows, count, Direct);
}

}  // namespace tessara::web
