// Another name of formulas.h, for hosts that include the mathematics of the projections by it.
#pragma once

#include "tessara/kernel/formulas.h"  // IWYU pragma: export
