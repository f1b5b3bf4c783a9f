// The kernel's statuses for people and for programs that read messages.
#pragma once

#include "tessara/kernel/koord_status.h"

namespace tessara::toolkit {

// A word that stays the same from version to version, like "outside-zone".
[[nodiscard]] const char* StatusCode(KoordStatus status);

// Why there is no result, as a clause: "the latitude is outside the area of the system".
[[nodiscard]] const char* StatusReason(KoordStatus status);

}  // namespace tessara::toolkit
