// The three Austrian grids by their numbers.
#pragma once

#include "tessara/kernel/constants.h"

namespace tessara::austria {

inline constexpr double FERRO = 17.666666666666;  // degrees by which Ferro lies west of Greenwich

// The federal grid; the other two are derived from it.
inline constexpr double FALSE_EASTINGS[3] = {BMN_FIRST_CENTRE, BMN_FIRST_CENTRE + AUSTRIAN_CENTRE_STEP,
                                             BMN_FIRST_CENTRE + 2.0 * AUSTRIAN_CENTRE_STEP};
inline constexpr double FALSE_NORTHING = -5.0e6;

// The values that a grid adds to those of the federal grid, metres.
struct AustrianGrid {
    double eastShifts[3];
    double northShift;
};

inline constexpr double OEM_SHIFT = OEM_FIRST_CENTRE - BMN_FIRST_CENTRE;

inline constexpr AustrianGrid BMN{{0.0, 0.0, 0.0}, 0.0};
inline constexpr AustrianGrid OEM{{OEM_SHIFT, OEM_SHIFT, OEM_SHIFT}, 5.0e6};
inline constexpr AustrianGrid GKAT{{-FALSE_EASTINGS[0], -FALSE_EASTINGS[1], -FALSE_EASTINGS[2]}, 5.0e6};

// Which of the three meridians is the natural one, by the degrees east of Ferro.
[[nodiscard]] constexpr int NaturalIndex(double eastOfFerro) {
    if (eastOfFerro < 29.5) return 0;
    return eastOfFerro < 32.5 ? 1 : 2;
}

}  // namespace tessara::austria
