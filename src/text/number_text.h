// Numbers as text, the same under every locale of the host.
#pragma once

#include <cstdint>
#include <string>

namespace tessara {

// With `decimals` places, 0 or more, and a point; rounded as the exact binary value demands. Also the largest
// double has its 309 digits.
[[nodiscard]] std::string FixedText(double value, int decimals);

// A whole number, filled up with zeros to `digits` digits behind its sign.
[[nodiscard]] std::string WholeText(std::int32_t value, int digits = 1);

// Filled up with zeros on the left; a longer text stays.
[[nodiscard]] std::string ZeroFilled(const std::string& text, int width);

}  // namespace tessara
