// Converts numbers to texts and back, independently of the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessara::toolkit {

// The decimals of output: a tenth of a millimetre on the ground.
inline constexpr int METRE_DECIMALS = 4;
inline constexpr int DEGREE_DECIMALS = 9;

// Reads a decimal number, optionally with a sign and an exponent. Rejects infinities, NaN and any other text.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

// Writes a fixed number of decimals, and zero without a sign.
[[nodiscard]] std::string FormatNumber(double value, int decimals);

// The same without trailing zeros after the decimal point: 0.5, 100000.
[[nodiscard]] std::string FormatPlain(double value, int decimals = DEGREE_DECIMALS);

// Writes the shortest text that reads back as the same number.
[[nodiscard]] std::string FormatNumber(double value);

// Writes a non-negative whole number with at least `width` digits, padded with zeros.
[[nodiscard]] std::string FormatWhole(std::int64_t value, int width);

}  // namespace tessara::toolkit
