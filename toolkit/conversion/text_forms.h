// The forms of the texts of a system, for messages: the library reads a text or refuses it, and doesn't say
// why.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara::toolkit {

// Whether both texts have the fields of the system.
[[nodiscard]] bool AreReadable(std::int32_t system, std::string_view north, std::string_view east);

// What the texts of a system consist of.
[[nodiscard]] std::string FormsOf(std::int32_t system);

// Why no position of a system can be typed; empty if some can.
[[nodiscard]] std::string WhyNeverTyped(std::int32_t system);

// Why only a part of the positions of a system can be typed; empty if all can.
[[nodiscard]] std::string WhyPartlyTyped(std::int32_t system);

}  // namespace tessara::toolkit
