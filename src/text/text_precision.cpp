#include "text/text_precision.h"

#include "systems/system_row.h"

namespace tessara {
namespace {

constexpr std::int16_t FINEST = -7;
constexpr std::int16_t COARSEST = 5;
// In ascending order, from one power above the finest. Written out, since products of 0.1 differ in the last
// bit.
constexpr double POWERS_OF_TEN[] = {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5};

std::int16_t PrecisionOf(double value) {
    // A NaN gets the coarsest precision, since it isn't less than anything.
    if (!(value < POWERS_OF_TEN[COARSEST - FINEST - 1])) return COARSEST;
    std::int16_t precision = FINEST;
    for (const double power : POWERS_OF_TEN) {
        if (!(power <= value)) break;
        ++precision;
    }
    return precision;
}

}  // namespace

std::int16_t precision::OfResolution(double resolution, std::int32_t system) {
    const TextRow& text = SystemOf(system).text;
    if (text.unitsPerDegree == 1.0) return PrecisionOf(resolution);
    const double value = resolution * text.unitsPerDegree;
    return static_cast<std::int16_t>(PrecisionOf(value) + (value >= text.carry ? 1 : 0));
}

std::int16_t precision::Default(std::int32_t system) {
    return SystemOf(system).text.defaultPrecision;
}

int precision::Decimals(std::int16_t precision) {
    return precision < 0 ? -precision : 0;
}

}  // namespace tessara
