// Transverse Mercator constants of a datum for a conversion.
#pragma once

#include <gtest/gtest.h>

#include "tessara/kernel/transverse_mercator.h"

namespace tessara::testing {

[[nodiscard]] inline TmConstants ForwardConstants(std::int32_t datum) {
    TmConstants constants{};
    EXPECT_EQ(TM_LoadForwardConstants(datum, &constants), KOORD_OK);
    return constants;
}

[[nodiscard]] inline TmConstants InverseConstants(std::int32_t datum) {
    TmConstants constants{};
    EXPECT_EQ(TM_LoadInverseConstants(datum, &constants), KOORD_OK);
    return constants;
}

[[nodiscard]] inline double Arc(double lat, const double arcCoef[5]) {
    double result = 0.0;
    TM_Arc(lat, arcCoef, &result);
    return result;
}

}  // namespace tessara::testing
