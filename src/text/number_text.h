// Writes numbers as text, independent of the host's locale.
#pragma once

#include <cstdint>
#include <string>

namespace tessara {

// `decimals` is 0 or more; the exact binary value is rounded. Works for all doubles, whose largest has 309
// digits.
[[nodiscard]] std::string FixedText(double value, int decimals);

// A whole number, padded with zeros to `digits` digits after its sign.
[[nodiscard]] std::string WholeText(std::int32_t value, int digits = 1);

// Padded with zeros on the left; longer texts are returned unchanged.
[[nodiscard]] std::string ZeroFilled(const std::string& text, int width);

}  // namespace tessara
