// Codes and messages for the statuses of the kernel.
#pragma once

#include "tessara/kernel/koord_status.h"

namespace tessara::toolkit {

// A word that is stable between versions, such as "outside-zone".
[[nodiscard]] const char* StatusCode(KoordStatus status);

// The reason for the failure, as a clause: "the position is outside the area of the system".
[[nodiscard]] const char* StatusReason(KoordStatus status);

}  // namespace tessara::toolkit
