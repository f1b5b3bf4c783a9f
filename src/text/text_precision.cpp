#include "text/text_precision.h"

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"

namespace tessara {
namespace {

constexpr std::int16_t FINEST = -7;
constexpr std::int16_t COARSEST = 5;
// Upward from one above the finest. Literals: products of 0.1 miss the decimal fractions by a bit.
constexpr double POWERS_OF_TEN[] = {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5};

constexpr double SECONDS_PER_DEGREE = 3600.0;
constexpr double MINUTES_PER_DEGREE = 60.0;
constexpr double SEXAGESIMAL_CARRY = 60.0;

std::int16_t PrecisionOf(double value) {
    // A NaN is the coarsest, as it isn't below anything.
    if (!(value < POWERS_OF_TEN[COARSEST - FINEST - 1])) return COARSEST;
    std::int16_t precision = FINEST;
    for (const double power : POWERS_OF_TEN) {
        if (!(power <= value)) break;
        ++precision;
    }
    return precision;
}

}  // namespace

std::int16_t Precision_OfResolution(double resolution, std::int32_t system) {
    double perDegree;
    switch (system) {
        case KOORD_GEOGRAD:
            perDegree = SECONDS_PER_DEGREE;
            break;
        case KOORD_GEODEZMIN:
            perDegree = MINUTES_PER_DEGREE;
            break;
        default:
            return PrecisionOf(resolution);
    }
    const double value = resolution * perDegree;
    return static_cast<std::int16_t>(PrecisionOf(value) + (value >= SEXAGESIMAL_CARRY ? 1 : 0));
}

std::int16_t Precision_Default(std::int32_t system) {
    switch (system) {
        case KOORD_LONGPIXEL:
        case KOORD_GEOREF:
            return 0;
        case KOORD_GEODEZ:
            return -7;
        case KOORD_GEODEZMIN:
            return -5;
        default:
            return system >= 0 && system <= KOORD_LUREF ? std::int16_t{-3} : PRECISION_UNSET;
    }
}

int Precision_Decimals(std::int16_t precision) {
    return precision < 0 ? -precision : 0;
}

}  // namespace tessara
