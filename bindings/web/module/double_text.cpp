#include "double_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host_numbers.h"

namespace tessara::web {
namespace {

constexpr int MANTISSA_BITS = 52;
constexpr int EXPONENT_BIAS = 1075;
constexpr int MOST_EXACT_DECIMALS = 22;  // 53 bits times 10^22 are 127 bits
constexpr int MOST_EXACT_POWER = 22;     // of ten, as a double
constexpr double EXACT_WHOLE = 9007199254740992.0;
constexpr int FAR_EXPONENT = 100000000;  // beyond the length of any text

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

// Enough for the greatest double with all its digits and some decimals.
using Buffer = std::array<char, 512>;

std::string ExactText(double value, int decimals) {
    Buffer text;
    return {text.data(), tessara_write_fixed(value, decimals, text.data(), text.size())};
}

// The fewest digits of a positive number that are read as the same double, in the form 1.25e+2.
std::string ShortestScientific(double value) {
    Buffer text;
    return {text.data(), tessara_write_scientific(value, text.data(), text.size())};
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
    if (whole >= decimal.Count()) return ExactText(value, 0);
    return decimal.digits.substr(0, static_cast<std::size_t>(whole)) + "." +
           decimal.digits.substr(static_cast<std::size_t>(whole));
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// What a text of digits with a point and an exponent consists of.
class NumberText {
  public:
    NumberText(const char* first, const char* last) : last_(last), at_(first) {
        isNegative_ = at_ < last_ && *at_ == '-';
        at_ += isNegative_ ? 1 : 0;
        begin_ = at_;
        ReadDigits(0);
        if (at_ < last_ && *at_ == '.' && (count_ > 0 || (at_ + 1 < last_ && IsDigit(at_[1])))) {
            ++at_;
            ReadDigits(-1);
        }
        if (IsNumber()) ReadExponent();
    }

    [[nodiscard]] bool IsNumber() const { return count_ > 0; }
    [[nodiscard]] bool IsNegative() const { return isNegative_; }
    [[nodiscard]] bool IsZero() const { return isZero_; }
    [[nodiscard]] const char* Begin() const { return begin_; }
    [[nodiscard]] const char* End() const { return at_; }

    // Without the sign. A whole number and a power of ten that both are doubles give the closest one.
    [[nodiscard]] double Value() const {
        const bool isExact = digits_ < EXACT_WHOLE && std::abs(exponent_) <= MOST_EXACT_POWER;
        if (!isExact) return tessara_read_number(begin_, static_cast<std::size_t>(at_ - begin_));
        double power = 1.0;
        for (int i = 0; i < std::abs(exponent_); ++i)
            power *= 10.0;
        return exponent_ < 0 ? digits_ / power : digits_ * power;
    }

  private:
    void ReadDigits(int step) {
        for (; at_ < last_ && IsDigit(*at_); ++at_, ++count_) {
            isZero_ = isZero_ && *at_ == '0';
            digits_ = digits_ * 10.0 + (*at_ - '0');
            exponent_ += step;
        }
    }

    // An e without digits isn't part of the number.
    void ReadExponent() {
        const char* next = at_;
        if (next == last_ || LowerCase(*next) != 'e') return;
        ++next;
        const bool isDown = next < last_ && *next == '-';
        if (next < last_ && (*next == '-' || *next == '+')) ++next;
        if (next == last_ || !IsDigit(*next)) return;
        int size = 0;
        for (; next < last_ && IsDigit(*next); ++next)
            size = std::min(size * 10 + (*next - '0'), FAR_EXPONENT);
        exponent_ += isDown ? -size : size;
        at_ = next;
    }

    const char* last_;
    const char* at_;
    const char* begin_;
    bool isNegative_;
    bool isZero_ = true;
    int count_ = 0;
    double digits_ = 0.0;  // all of them as a whole number
    int exponent_ = 0;
};

}  // namespace

ReadText ReadDouble(const char* first, const char* last, double* value) {
    const NumberText text(first, last);
    if (!text.IsNumber()) return {first, std::errc::invalid_argument};
    const double read = text.Value();
    if (std::isinf(read) || (read == 0.0 && !text.IsZero()))
        return {text.End(), std::errc::result_out_of_range};
    *value = text.IsNegative() ? -read : read;
    return {text.End(), std::errc()};
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
    const std::string text =
        isShort ? FixedBelowMantissa(number, decimals) : ExactText(std::abs(value), decimals);
    return Write(first, last, (std::signbit(value) ? "-" : "") + text);
}

}  // namespace tessara::web
