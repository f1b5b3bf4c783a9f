// Descriptions of the typed forms of each system, for messages.
#pragma once

#include <cstdint>
#include <string>

namespace tessara::toolkit {

// Returns an empty text for an unknown system.
[[nodiscard]] std::string FormsOf(std::int32_t system);

}  // namespace tessara::toolkit
