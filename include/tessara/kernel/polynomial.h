// For hosts that know the polynomials of calibrated maps by this name.
#pragma once

#include "tessara/kernel/formulas.h"  // IWYU pragma: export
