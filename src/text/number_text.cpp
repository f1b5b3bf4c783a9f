#include "text/number_text.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>

namespace tessara {
namespace {

constexpr std::size_t MOST_DECIMALS = 32;
// A sign, the digits before the point, the point and the decimals.
constexpr std::size_t FIXED_SIZE = 2 + std::numeric_limits<double>::max_exponent10 + 1 + MOST_DECIMALS;

}  // namespace

std::string FixedText(double value, int decimals) {
    std::array<char, FIXED_SIZE> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, decimals);
    return written.ec == std::errc() ? std::string(buffer.data(), written.ptr) : std::string();
}

// Written by hand: the standard functions add a table to the library's exports, after which the loader never
// unloads the library.
std::string WholeText(std::int32_t value, int digits) {
    std::string magnitude;
    for (std::int64_t rest = std::llabs(value); rest > 0 || magnitude.empty(); rest /= 10)
        magnitude.insert(magnitude.begin(), static_cast<char>('0' + rest % 10));
    std::string text(value < 0 ? "-" : "");
    return text += ZeroFilled(magnitude, digits);
}

std::string ZeroFilled(const std::string& text, int width) {
    const std::size_t wanted = width > 0 ? static_cast<std::size_t>(width) : 0;
    return text.size() < wanted ? std::string(wanted - text.size(), '0') + text : text;
}

}  // namespace tessara
