// The mean of two records in their own system.
#pragma once

#include "tessara/kernel/koord.h"

namespace tessara {

// False as coordinate_average.h says; *mean is then unchanged.
bool AverageRecords(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean);

}  // namespace tessara
