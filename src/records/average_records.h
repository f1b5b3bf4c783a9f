// The mean of two records in their own system.
#pragma once

#include "tessara/kernel/koord.h"

namespace tessara {

// False for records of different datums or systems, systems outside 0..22, TM, UTM letters other than "N"
// and "S", UPS positions of two hemispheres, VDG positions of two origins, and positions that don't convert
// where a conversion is needed; *mean is then unchanged.
bool AverageRecords(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean);

}  // namespace tessara
