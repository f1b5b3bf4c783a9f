#include "kernel/transverse_mercator_constants.h"

#include <array>
#include <cstddef>

#include "kernel/datum_rows.h"
#include "kernel/ellipsoids.h"
#include "kernel/transverse_mercator_series.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {
namespace {

// The constants that both directions share.
constexpr TmConstants Common(const EllipsoidFigure& figure, std::int32_t datum,
                             const CoefficientMatrix& series) {
    const double a = figure.a;
    const double b = a - a * figure.Flattening();
    TmConstants c{};
    c.datum = datum;
    c.polarRadius = a * a / b;
    c.secondEcc2 = a * a / (b * b) - 1.0;
    const double d = c.secondEcc2;
    c.arcPerDegree =
        c.polarRadius * RADIANS_PER_DEGREE *
        (1.0 - d * (3.0 / 4.0 - d * (45.0 / 64.0 - d * (175.0 / 256.0 - d * 11025.0 / 16384.0))));
    Evaluate(ARC_MATRIX, figure.EccentricitySquared(), c.arcCoef);
    Evaluate(series, figure.EccentricitySquared(), c.seriesCoef);
    return c;
}

constexpr TmConstants Forward(const EllipsoidFigure& figure, std::int32_t datum) {
    TmConstants c = Common(figure, datum, FORWARD_MATRIX);
    const double d = c.secondEcc2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d2 * d2;
    c.arcTerm[0] =
        c.polarRadius * (-3.0 * d / 8.0 + 15.0 * d2 / 32.0 - 525.0 * d3 / 1024.0 + 2205.0 * d4 / 4096.0);
    c.arcTerm[1] = c.polarRadius * (15.0 * d2 / 256.0 - 105.0 * d3 / 1024.0 + 2205.0 * d4 / 16384.0);
    c.arcTerm[2] = c.polarRadius * (-35.0 * d3 / 3072.0 + 315.0 * d4 / 12288.0);
    return c;
}

constexpr TmConstants Inverse(const EllipsoidFigure& figure, std::int32_t datum) {
    TmConstants c = Common(figure, datum, INVERSE_MATRIX);
    const double d = c.secondEcc2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    c.arcTerm[0] = DEGREES_PER_RADIAN * (3.0 * d / 8.0 - 3.0 * d2 / 16.0 + 213.0 * d3 / 2048.0);
    c.arcTerm[1] = DEGREES_PER_RADIAN * (21.0 * d2 / 256.0 - 21.0 * d3 / 256.0);
    c.arcTerm[2] = DEGREES_PER_RADIAN * (151.0 * d3 / 6144.0);
    return c;
}

using Table = std::array<TmConstants, DATUM_COUNT>;

TESSARA_TABLE Table FORWARD = ForEachDatum<TmConstants>(Forward);
TESSARA_TABLE Table INVERSE = ForEachDatum<TmConstants>(Inverse);

KoordStatus Load(const TmConstants* constants, TmConstants* c) {
    if (!constants) return KOORD_ERR_DATUM;
    *c = *constants;
    return KOORD_OK;
}

}  // namespace

const TmConstants* TmForwardConstants(std::int32_t datum) {
    return RowOf(datum) ? &FORWARD[static_cast<std::size_t>(datum)] : nullptr;
}

const TmConstants* TmInverseConstants(std::int32_t datum) {
    return RowOf(datum) ? &INVERSE[static_cast<std::size_t>(datum)] : nullptr;
}

KoordStatus TM_LoadForwardConstants(std::int32_t datum, TmConstants* c) {
    return Load(TmForwardConstants(datum), c);
}

KoordStatus TM_LoadInverseConstants(std::int32_t datum, TmConstants* c) {
    return Load(TmInverseConstants(datum), c);
}

}  // namespace tessara
