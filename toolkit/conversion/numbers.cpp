#include "conversion/numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tessara::toolkit {
namespace {

// The largest double has 309 digits before the point.
constexpr std::size_t LONGEST_NUMBER = 400;

template <class... Format>
std::string ToText(double value, Format... format) {
    std::array<char, LONGEST_NUMBER> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format...).ptr;
    return {text.data(), end};
}

bool IsZero(std::string_view number) {
    return number.find_first_not_of("-0.") == std::string_view::npos;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::string FormatNumber(double value, int decimals) {
    const std::string text = ToText(value, std::chars_format::fixed, decimals);
    return text.starts_with('-') && IsZero(text) ? text.substr(1) : text;
}

std::string FormatPlain(double value, int decimals) {
    std::string text = FormatNumber(value, decimals);
    if (text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string FormatNumber(double value) {
    return ToText(value);
}

std::string FormatWhole(std::int64_t value, int width) {
    const std::string digits = std::to_string(value);
    const auto missing = width - static_cast<int>(digits.size());
    return missing > 0 ? std::string(static_cast<std::size_t>(missing), '0') + digits : digits;
}

}  // namespace tessara::toolkit
