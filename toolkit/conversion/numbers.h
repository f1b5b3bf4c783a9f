// Numbers as text, the same under every locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessara::toolkit {

// What the program writes: a tenth of a millimetre on the ground.
inline constexpr int METRE_DECIMALS = 4;
inline constexpr int DEGREE_DECIMALS = 9;

// A decimal number, with or without a sign and an exponent, and nothing else. Infinities and NaN are none.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

// With a fixed number of decimals; what rounds to zero has no sign.
[[nodiscard]] std::string FormatNumber(double value, int decimals);

// The same without zeros behind the last digit that counts: 0.5, 100000.
[[nodiscard]] std::string FormatPlain(double value, int decimals = DEGREE_DECIMALS);

// As short as it can be without a loss.
[[nodiscard]] std::string FormatNumber(double value);

// A whole number that isn't negative, filled up with zeros to `width` digits.
[[nodiscard]] std::string FormatWhole(std::int64_t value, int width);

}  // namespace tessara::toolkit
