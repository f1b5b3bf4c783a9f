// The default record of each coordinate system: where conversions into the system can start.
#pragma once

#include "tessara/ckoord.h"

namespace tessara {

// Gives *koord the default record of (datum, system), height 0.0. False for a system outside 0..22 or a datum
// that is neither 0..238 nor 999; *koord is then unchanged.
bool DefaultKoord(std::int32_t datum, std::int32_t system, CKoord* koord);

// The same for the record's own reference.
bool ResetToDefault(CKoord* koord);

// Whether a record is the default of ECEF, the earth's centre: x, y and z make that a height of 6356 km below
// the pole, which nobody has set.
[[nodiscard]] bool IsEarthCentre(const tagKOORD& record);

}  // namespace tessara
