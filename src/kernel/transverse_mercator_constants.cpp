#include "kernel/transverse_mercator_constants.h"

#include <array>
#include <cstddef>

#include "kernel/datum_rows.h"
#include "kernel/ellipsoids.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {
namespace {

// Row i gives coefficient i as a polynomial in the eccentricity squared. Row 0, the rectifying factor, is the
// same in all three. The forward rows are the Krueger coefficients multiplied by that factor, the inverse
// rows are the plain ones.
using CoefficientMatrix = double[5][5];

constexpr CoefficientMatrix ARC_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, -3.0 / 8.0, -3.0 / 32.0, -45.0 / 1024.0, -105.0 / 4096.0},
    {0.0, 0.0, 15.0 / 256.0, 45.0 / 1024.0, 525.0 / 16384.0},
    {0.0, 0.0, 0.0, -35.0 / 3072.0, -175.0 / 12288.0},
    {0.0, 0.0, 0.0, 0.0, 315.0 / 131072.0},
};

constexpr CoefficientMatrix FORWARD_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, -1.0 / 96.0, -9.0 / 1024.0, -901.0 / 184320.0},
    {0.0, 0.0, 13.0 / 768.0, 17.0 / 5120.0, -311.0 / 737280.0},
    {0.0, 0.0, 0.0, 61.0 / 15360.0, 899.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 49561.0 / 41287680.0},
};

constexpr CoefficientMatrix INVERSE_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, 1.0 / 48.0, 7.0 / 2048.0, 1.0 / 61440.0},
    {0.0, 0.0, 1.0 / 768.0, 3.0 / 1280.0, 559.0 / 368640.0},
    {0.0, 0.0, 0.0, 17.0 / 30720.0, 283.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 4397.0 / 41287680.0},
};

constexpr void Evaluate(const CoefficientMatrix& matrix, double e2, double coefficients[5]) {
    for (int i = 0; i < 5; ++i) {
        const auto& row = matrix[i];
        coefficients[i] = row[0] + e2 * (row[1] + e2 * (row[2] + e2 * (row[3] + e2 * row[4])));
    }
}

// What both directions have in common.
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

consteval TmConstants Forward(const EllipsoidFigure& figure, std::int32_t datum) {
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

consteval TmConstants Inverse(const EllipsoidFigure& figure, std::int32_t datum) {
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

constexpr Table FORWARD = ForEachDatum<TmConstants>(Forward);
constexpr Table INVERSE = ForEachDatum<TmConstants>(Inverse);

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
