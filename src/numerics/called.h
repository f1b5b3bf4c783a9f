// Elementary functions as calls, for cases that are rare: inlined they would crowd what is common.
#pragma once

#include "numerics/circular.h"

namespace tessara::called {

[[nodiscard]] SinCos SinCosOf(double angle);
[[nodiscard]] double Atan(double tangent);
[[nodiscard]] double Atan2(double y, double x);
[[nodiscard]] double Asin(double sine);
[[nodiscard]] double Log(double x);
[[nodiscard]] double Exp(double x);

}  // namespace tessara::called
