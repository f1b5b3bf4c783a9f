// For hosts that know what the projections share by this name.
#pragma once

#include "tessara/kernel/formulas.h"  // IWYU pragma: export
