#include "double_text.h"

#include <fast_float/fast_float.h>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

namespace tessara::web {
namespace {

constexpr int MANTISSA_BITS = 52;
constexpr int EXPONENT_BIAS = 1075;
constexpr int MOST_EXACT_DECIMALS = 22;  // 53 bits times 10^22 are 127 bits
constexpr int SAFE_DIGITS = 15;          // a decimal of so many digits is a double's, and comes back from it
constexpr int MOST_DIGITS = 17;
constexpr std::size_t LONGEST_EXPONENT_FORM = 32;

WrittenText Write(char* first, char* last, std::string_view text) {
    if (text.size() > static_cast<std::size_t>(last - first)) return {last, std::errc::value_too_large};
    return {std::copy(text.begin(), text.end(), first), std::errc()};
}

std::string_view NameOf(double value) {
    if (std::isnan(value)) return std::signbit(value) ? "-nan" : "nan";
    return value < 0.0 ? "-inf" : "inf";
}

// A finite value as mantissa times a power of two.
struct Binary {
    explicit Binary(double value) {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        const auto biased = static_cast<int>((bits >> MANTISSA_BITS) & 0x7FF);
        const std::uint64_t fraction = bits & ((std::uint64_t{1} << MANTISSA_BITS) - 1);
        mantissa = biased == 0 ? fraction : fraction | (std::uint64_t{1} << MANTISSA_BITS);
        exponent = std::max(biased, 1) - EXPONENT_BIAS;
    }

    std::uint64_t mantissa;
    int exponent;
};

// Numbers with a fraction, in whole numbers of 128 bits.
std::string FixedBelowMantissa(const Binary& number, int decimals) {
    __uint128_t scaled = number.mantissa;
    for (int i = 0; i < decimals; ++i)
        scaled *= 10;
    const int shift = -number.exponent;
    __uint128_t whole = 0;
    if (shift < 128) {
        whole = scaled >> shift;
        const __uint128_t rest = scaled - (whole << shift);
        const __uint128_t half = __uint128_t{1} << (shift - 1);
        if (rest > half || (rest == half && whole % 2 == 1)) ++whole;
    }
    std::string text;
    for (int place = 0; whole > 0 || place <= decimals; ++place) {
        if (place == decimals && decimals > 0) text.push_back('.');
        text.push_back(static_cast<char>('0' + static_cast<int>(whole % 10)));
        whole /= 10;
    }
    std::reverse(text.begin(), text.end());
    return text;
}

std::string Printed(const char* format, int precision, double value) {
    std::array<char, 512> text;
    const int length = std::snprintf(text.data(), text.size(), format, precision, value);
    return {text.data(), static_cast<std::size_t>(length)};
}

bool IsReadAs(double value, const std::string& text) {
    double read = 0.0;
    fast_float::from_chars(text.data(), text.data() + text.size(), read);
    return read == value;
}

// The same digits with the last one raised.
std::string NextAfter(std::string scientific) {
    for (std::size_t i = scientific.find('e'); i-- > 0;) {
        if (scientific[i] == '.') continue;
        if (scientific[i] != '9') {
            ++scientific[i];
            return scientific;
        }
        scientific[i] = '0';
    }
    return scientific;
}

// The fewest digits of a positive number that are read as the same double, in the form 1.25e+02. Below a
// power of two doubles are twice as dense: the closest of 16 digits may be another double's while the next
// one isn't.
std::string ShortestScientific(double value) {
    const int first = value < std::numeric_limits<double>::min() ? 1 : SAFE_DIGITS;
    for (int digits = first; digits < MOST_DIGITS; ++digits) {
        std::string text = Printed("%.*e", digits - 1, value);
        if (IsReadAs(value, text)) return text;
        text = NextAfter(std::move(text));
        if (digits > SAFE_DIGITS && IsReadAs(value, text)) return text;
    }
    return Printed("%.*e", MOST_DIGITS - 1, value);
}

struct Decimal {
    explicit Decimal(const std::string& scientific) {
        const std::size_t e = scientific.find('e');
        exponent = std::atoi(scientific.c_str() + e + 1);
        digits.reserve(e);
        for (std::size_t i = 0; i < e; ++i) {
            if (scientific[i] != '.') digits.push_back(scientific[i]);
        }
        digits.erase(digits.find_last_not_of('0') + 1);
    }

    [[nodiscard]] int Count() const { return static_cast<int>(digits.size()); }

    [[nodiscard]] std::string Scientific() const {
        std::string text = digits.substr(0, 1);
        if (Count() > 1) text.append(".").append(digits.substr(1));
        const int size = std::abs(exponent);
        return text + (exponent < 0 ? "e-" : "e+") + (size < 10 ? "0" : "") + std::to_string(size);
    }

    std::string digits;  // the point stands behind the first one
    int exponent;
};

std::string FixedOf(const Decimal& decimal, double value) {
    const int whole = decimal.exponent + 1;  // digits before the point
    if (whole <= 0) return "0." + std::string(static_cast<std::size_t>(-whole), '0') + decimal.digits;
    if (whole >= decimal.Count()) return Printed("%.*f", 0, value);
    return decimal.digits.substr(0, static_cast<std::size_t>(whole)) + "." +
           decimal.digits.substr(static_cast<std::size_t>(whole));
}

bool HasDigit(const char* first, const char* last, char least) {
    return std::any_of(first, std::find_if(first, last, [](char c) { return c == 'e' || c == 'E'; }),
                       [least](char c) { return c >= least && c <= '9'; });
}

}  // namespace

ReadText ReadDouble(const char* first, const char* last, double* value) {
    double read = 0.0;
    const fast_float::from_chars_result result = fast_float::from_chars(first, last, read);
    if (result.ec != std::errc()) return {result.ptr, result.ec};
    const bool isTooLarge = std::isinf(read) && HasDigit(first, result.ptr, '0');
    const bool isTooSmall = read == 0.0 && HasDigit(first, result.ptr, '1');
    if (isTooLarge || isTooSmall) return {result.ptr, std::errc::result_out_of_range};
    *value = read;
    return {result.ptr, std::errc()};
}

WrittenText WriteShortest(char* first, char* last, double value) {
    if (!std::isfinite(value)) return Write(first, last, NameOf(value));
    const std::string sign = std::signbit(value) ? "-" : "";
    if (value == 0.0) return Write(first, last, sign + "0");
    const double positive = std::abs(value);
    const Decimal decimal(ShortestScientific(positive));
    const std::string scientific = decimal.Scientific();
    const std::string fixed = FixedOf(decimal, positive);
    return Write(first, last, sign + (fixed.size() <= scientific.size() ? fixed : scientific));
}

WrittenText WriteFixed(char* first, char* last, double value, int decimals) {
    if (!std::isfinite(value)) return Write(first, last, NameOf(value));
    const Binary number(std::abs(value));
    const bool isShort = number.exponent < 0 && decimals >= 0 && decimals <= MOST_EXACT_DECIMALS;
    if (!isShort) return Write(first, last, Printed("%.*f", decimals, value));
    return Write(first, last, (std::signbit(value) ? "-" : "") + FixedBelowMantissa(number, decimals));
}

}  // namespace tessara::web
