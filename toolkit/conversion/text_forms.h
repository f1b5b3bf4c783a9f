// The forms in which the positions of a system are typed, for messages.
#pragma once

#include <cstdint>
#include <string>

namespace tessara::toolkit {

// Empty for a number without a system.
[[nodiscard]] std::string FormsOf(std::int32_t system);

}  // namespace tessara::toolkit
