// A cone as far as the projection needs it.
#pragma once

#include <cstdint>

#include "tessara/kernel/lambert.h"

namespace tessara {

// LambertCC_Init but for the factor F, which stays as it was: projecting goes by ratios to the first
// parallel.
KoordStatus PrepareCone(std::int32_t datum, double parallel1, double parallel2, double scale,
                        double falseEasting, double falseNorthing, double lat0, double lon0, LambertCC* lcc);

}  // namespace tessara
