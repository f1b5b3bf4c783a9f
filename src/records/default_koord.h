// The default record of each coordinate system, from which conversions into the system start.
#pragma once

#include "tessara/ckoord.h"

namespace tessara {

// Makes *koord the default record of a datum and system, with height 0.0. False for a system outside 0..22
// or a datum other than 0..238 and 999; *koord is then unchanged.
bool DefaultKoord(std::int32_t datum, std::int32_t system, CKoord* koord);

// The same for the record's own reference.
bool ResetToDefault(CKoord* koord);

// Whether a record is the default of ECEF, the earth's centre. Its x, y and z mean a height of 6356 km below
// the pole, which isn't a height that a caller has set.
[[nodiscard]] bool IsEarthCentre(const tagKOORD& record);

}  // namespace tessara
