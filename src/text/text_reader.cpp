#include "text/text_reader.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tessara {
namespace {

constexpr std::string_view BLANKS = " \t\n\v\f\r";

bool IsBlank(char c) {
    return BLANKS.find(c) != std::string_view::npos;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsSign(char c) {
    return c == '+' || c == '-';
}

// The number of digits from `start` on.
std::size_t CountDigits(std::string_view text, std::size_t start) {
    std::size_t end = start;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - start;
}

bool Is(std::string_view text, std::size_t at, bool (*kind)(char)) {
    return at < text.size() && kind(text[at]);
}

// The length of the number at the start of a text; 0 if there is none.
std::size_t NumberLength(std::string_view text) {
    std::size_t end = Is(text, 0, IsSign) ? 1 : 0;
    std::size_t digits = CountDigits(text, end);
    end += digits;
    if (Is(text, end, [](char c) { return c == '.'; })) {
        const std::size_t decimals = CountDigits(text, end + 1);
        end += 1 + decimals;
        digits += decimals;
    }
    if (digits == 0) return 0;
    if (!Is(text, end, [](char c) { return c == 'e' || c == 'E'; })) return end;
    ++end;
    if (Is(text, end, IsSign)) ++end;
    const std::size_t exponent = CountDigits(text, end);
    return exponent == 0 ? 0 : end + exponent;
}

// The exponent in a part such as "e-5", which has a digit. One with too many is replaced by a value far from
// 0.
std::int64_t ExponentIn(std::string_view part) {
    if (part.empty()) return 0;
    part.remove_prefix(part[1] == '+' ? 2 : 1);
    std::int64_t exponent = 0;
    const auto read = std::from_chars(part.data(), part.data() + part.size(), exponent);
    if (read.ec == std::errc()) return exponent;
    return part.front() == '-' ? std::numeric_limits<std::int32_t>::min()
                               : std::numeric_limits<std::int32_t>::max();
}

// Whether a number out of range is too small rather than too large, which from_chars doesn't report.
bool IsTiny(std::string_view number) {
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return true;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::int64_t places = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return places + ExponentIn(number.substr(mantissaEnd)) < 0;
}

}  // namespace

void TextReader::SkipBlanks() {
    std::size_t start = 0;
    while (start < rest_.size() && IsBlank(rest_[start]))
        ++start;
    rest_.remove_prefix(start);
}

bool TextReader::ReadLetter(char* letter) {
    SkipBlanks();
    if (rest_.empty()) return false;
    *letter = rest_.front();
    rest_.remove_prefix(1);
    return true;
}

bool TextReader::ReadLetterPair(char* first, char* second) {
    if (!ReadLetter(first)) return false;
    *second = 0;
    if (!rest_.empty() && !IsBlank(rest_.front())) ReadLetter(second);
    return true;
}

TextReader::Found TextReader::TakeWhole(std::int64_t least, std::int64_t most, std::int64_t* number) {
    SkipBlanks();
    const bool hasSign = Is(rest_, 0, IsSign);
    const std::size_t digits = CountDigits(rest_, hasSign ? 1 : 0);
    if (digits == 0) return Found::Nothing;
    // from_chars accepts a minus sign but no plus sign.
    const std::size_t start = hasSign && rest_.front() == '+' ? 1 : 0;
    const std::size_t end = (hasSign ? 1 : 0) + digits;
    const auto read = std::from_chars(rest_.data() + start, rest_.data() + end, *number);
    rest_.remove_prefix(end);
    const bool fits = read.ec == std::errc() && *number >= least && *number <= most;
    return fits ? Found::Number : Found::Overflow;
}

bool TextReader::ReadWhole(std::int16_t* number) {
    using Range = std::numeric_limits<std::int16_t>;
    std::int64_t value;
    if (TakeWhole(Range::min(), Range::max(), &value) != Found::Number) return false;
    *number = static_cast<std::int16_t>(value);
    return true;
}

bool TextReader::ReadWhole(std::int32_t* number) {
    using Range = std::numeric_limits<std::int32_t>;
    std::int64_t value;
    if (TakeWhole(Range::min(), Range::max(), &value) != Found::Number) return false;
    *number = static_cast<std::int32_t>(value);
    return true;
}

bool TextReader::ReadWholeOrNothing(std::int32_t* number) {
    using Range = std::numeric_limits<std::int32_t>;
    std::int64_t value = 0;
    const Found found = TakeWhole(Range::min(), Range::max(), &value);
    if (found == Found::Overflow) return false;
    *number = found == Found::Number ? static_cast<std::int32_t>(value) : 0;
    return true;
}

bool TextReader::ReadNumber(double* number) {
    SkipBlanks();
    const std::size_t length = NumberLength(rest_);
    if (length == 0) return false;
    std::string_view found = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (found.front() == '+') found.remove_prefix(1);
    double value;
    const auto read = std::from_chars(found.data(), found.data() + found.size(), value);
    if (read.ec != std::errc()) {
        if (!IsTiny(found)) return false;
        value = found.front() == '-' ? -0.0 : 0.0;
    }
    *number = value;
    return true;
}

}  // namespace tessara
