// Another name of formulas.h, for hosts that include the polynomials of calibrated maps by it.
#pragma once

#include "tessara/kernel/formulas.h"  // IWYU pragma: export
