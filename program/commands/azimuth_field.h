// Fields for azimuths.
#pragma once

#include "conversion/azimuths.h"
#include "conversion/fields.h"
#include "conversion/numbers.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// An azimuth that rounds to 360 degrees is written as 0.
[[nodiscard]] inline Field AzimuthField(const char* name, double degrees) {
    const bool isWholeTurn = degrees > 180.0 && FormatAzimuth(degrees) == FormatAzimuth(0.0);
    return {name, isWholeTurn ? 0.0 : degrees, DEGREE_DECIMALS};
}

}  // namespace tessara::program
