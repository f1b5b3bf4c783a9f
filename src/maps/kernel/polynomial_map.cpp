// Maps calibrated by polynomials, with a pair for each direction. Neither pair inverts the other exactly, so
// the position of a pixel is improved in steps until its own pixel is within a tenth.
#include <array>
#include <cmath>

#include "maps/kernel/map_parts.h"
#include "tessara/kernel/formulas.h"

namespace tessara {
namespace {

constexpr double TOLERANCE = 0.1;  // pixels
constexpr int ROUNDS = 50;

using Polynom = double(const double* c, double x, double y);

struct PolynomOrder {
    std::uint32_t order;
    Polynom* polynom;
};

constexpr std::array<PolynomOrder, 4> ORDERS{{
    {3, Polynom_Linear},
    {4, Polynom_Bilinear},
    {6, Polynom_Quadratic},
    {10, Polynom_Cubic},
}};

// Null for an order that doesn't exist.
Polynom* PolynomOf(const MapPolynomParams& params) {
    for (const PolynomOrder& row : ORDERS) {
        if (row.order == params.order) return row.polynom;
    }
    return nullptr;
}

struct Pixel {
    double x, y;

    [[nodiscard]] Pixel Minus(const Pixel& other) const { return {x - other.x, y - other.y}; }
    [[nodiscard]] double Square() const { return x * x + y * y; }
};

// Leaves *out unchanged for an order that doesn't exist.
void MapPolynomForward(const MapParam& map, const Pixel& pixel, tagKOORD* out) {
    const auto params = Load<MapPolynomParams>(map);
    Polynom* const polynom = PolynomOf(params);
    if (!polynom) return;
    PutDegrees(
        map,
        {polynom(params.latFromPixel, pixel.x, pixel.y), polynom(params.lonFromPixel, pixel.x, pixel.y), 0.0},
        out);
}

// Moves the estimate by half the difference between the first estimate and the position of the pixel it
// reached.
tagKOORD HalfStep(const tagKOORD& first, const tagKOORD& atReached, tagKOORD estimate) {
    const auto aim = Load<GeodezPayload>(first);
    const auto hit = Load<GeodezPayload>(atReached);
    auto at = Load<GeodezPayload>(estimate);
    at.latitude = (aim.latitude - hit.latitude) / 2.0 + at.latitude;
    at.longitude = (aim.longitude - hit.longitude) / 2.0 + at.longitude;
    Store(estimate, at);
    return estimate;
}

}  // namespace

KoordStatus MapPolynom_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const Pixel asked{x, y};
    MapPolynomForward(*map, asked, out);
    Pixel reached{};
    if (MapPolynom_WorldToPixel(map, out, &reached.x, &reached.y) != KOORD_OK) return KOORD_OK;
    const Pixel firstError = asked.Minus(reached);
    if (std::fabs(firstError.x) <= TOLERANCE && std::fabs(firstError.y) <= TOLERANCE) return KOORD_OK;

    // If the iteration fails or gets worse, the first estimate is kept.
    const tagKOORD first = *out;
    tagKOORD estimate = first;
    for (int round = 0; round < ROUNDS; ++round) {
        tagKOORD atReached{};
        MapPolynomForward(*map, reached, &atReached);
        estimate = HalfStep(first, atReached, estimate);
        if (MapPolynom_WorldToPixel(map, &estimate, &reached.x, &reached.y) != KOORD_OK) return KOORD_OK;
        const Pixel error = asked.Minus(reached);
        if (std::fabs(error.x) < TOLERANCE && std::fabs(error.y) < TOLERANCE) break;
        if (error.Square() > firstError.Square()) return KOORD_OK;
    }
    *out = estimate;
    return KOORD_OK;
}

KoordStatus MapPolynom_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    GeodezPayload at{};
    const KoordStatus status = ToDegrees(*in, *map, &at);
    if (status != KOORD_OK) return status;
    const auto params = Load<MapPolynomParams>(*map);
    Polynom* const polynom = PolynomOf(params);
    if (!polynom) return KOORD_ERR_POLYNOM_ORDER;
    *x = polynom(params.pixelXFromWorld, at.longitude, at.latitude);
    *y = polynom(params.pixelYFromWorld, at.longitude, at.latitude);
    return KOORD_OK;
}

}  // namespace tessara
