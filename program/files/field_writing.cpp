#include "files/field_writing.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "conversion/numbers.h"
#include "files/json_scan.h"

namespace tessara::program {
namespace {

constexpr std::array<double, 10> POWERS{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

// Below this limit, the product with the power of ten has an error far smaller than a half.
constexpr double LARGEST_SCALED = 1e12;
constexpr double CLOSE_TO_HALF = 1e-3;

// The number in units of its last decimal. False for a possible tie, which only the exact digits decide.
bool RoundToWhole(double value, int decimals, std::int64_t* whole) {
    if (decimals < 1 || decimals >= static_cast<int>(POWERS.size())) return false;
    const double scaled = std::fabs(value) * POWERS[static_cast<std::size_t>(decimals)];
    if (!(scaled < LARGEST_SCALED)) return false;
    const double floor = std::floor(scaled);
    const double rest = scaled - floor;
    if (std::fabs(rest - 0.5) < CLOSE_TO_HALF) return false;
    *whole = static_cast<std::int64_t>(floor) + (rest > 0.5 ? 1 : 0);
    return true;
}

void AppendDecimal(double value, int decimals, std::string* out) {
    std::int64_t whole = 0;
    if (!RoundToWhole(value, decimals, &whole)) {
        *out += FormatNumber(value, decimals);
        return;
    }
    std::array<char, 32> text;
    char* const end = text.data() + text.size();
    char* at = end;
    const bool isNegative = value < 0.0 && whole != 0;
    for (int i = 0; i < decimals; ++i, whole /= 10)
        *--at = static_cast<char>('0' + whole % 10);
    *--at = '.';
    do
        *--at = static_cast<char>('0' + whole % 10);
    while ((whole /= 10) != 0);
    if (isNegative) *--at = '-';
    out->append(at, static_cast<std::size_t>(end - at));
}

}  // namespace

void AppendText(const Field& field, std::string* out) {
    if (const auto* number = std::get_if<double>(&field.value))
        return AppendDecimal(*number, field.digits, out);
    if (const auto* text = std::get_if<std::string>(&field.value)) {
        *out += *text;
    } else {
        *out += FormatWhole(std::get<std::int64_t>(field.value), field.digits);
    }
}

void AppendJson(const Field& field, std::string* json) {
    if (const auto* number = std::get_if<double>(&field.value)) return AppendNumber(*number, json);
    if (const auto* text = std::get_if<std::string>(&field.value)) {
        AppendString(*text, json);
    } else {
        *json += std::to_string(std::get<std::int64_t>(field.value));
    }
}

}  // namespace tessara::program
