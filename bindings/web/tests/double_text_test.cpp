// Compares the texts of doubles with those of the standard library that builds this program: values of all
// magnitudes, of few digits, on powers of two and ten, and texts on the borders of their ranges. Exits with 1
// after any difference. With an argument it prints texts for numbers.test.js instead.
//
// What JavaScript does for the module is done by the standard library here; numbers.test.js compares the two.
#include "double_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "host_numbers.h"

extern "C" {

double tessara_read_number(const char* first, std::size_t size) {
    double value = 0.0;
    const auto read = std::from_chars(first, first + size, value);
    if (read.ec != std::errc::result_out_of_range) return value;
    return std::strtod(std::string(first, size).c_str(), nullptr);
}

std::size_t tessara_write_scientific(double value, char* text, std::size_t room) {
    return static_cast<std::size_t>(
        std::to_chars(text, text + room, value, std::chars_format::scientific).ptr - text);
}

std::size_t tessara_write_fixed(double value, int decimals, char* text, std::size_t room) {
    return static_cast<std::size_t>(
        std::to_chars(text, text + room, value, std::chars_format::fixed, decimals).ptr - text);
}
}

namespace {

using Buffer = std::array<char, 512>;

int differences = 0;

void Expect(std::string_view is, std::string_view should, double value) {
    if (is == should) return;
    ++differences;
    std::printf("%a: %.*s instead of %.*s\n", value, static_cast<int>(is.size()), is.data(),
                static_cast<int>(should.size()), should.data());
}

std::string_view TextOf(const Buffer& buffer, const char* end) {
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

void CompareReading(std::string_view text) {
    double is = -1.0;
    double should = -1.0;
    const auto read = tessara::web::ReadDouble(text.data(), text.data() + text.size(), &is);
    const auto wanted = std::from_chars(text.data(), text.data() + text.size(), should);
    const bool isSame = std::bit_cast<std::uint64_t>(is) == std::bit_cast<std::uint64_t>(should);
    if (isSame && read.error == wanted.ec && read.end == wanted.ptr) return;
    ++differences;
    std::printf("'%.*s' is read as %a, not as %a\n", static_cast<int>(text.size()), text.data(), is, should);
}

void Compare(double value) {
    Buffer is;
    Buffer should;
    const auto* const shortest = tessara::web::WriteShortest(is.data(), is.data() + is.size(), value).end;
    const auto* const wanted = std::to_chars(should.data(), should.data() + should.size(), value).ptr;
    Expect(TextOf(is, shortest), TextOf(should, wanted), value);
    if (std::isfinite(value)) CompareReading(TextOf(should, wanted));
    for (const int decimals : {0, 1, 2, 3, 5, 7, 12, 22, 23, 32}) {
        const auto* const fixed =
            tessara::web::WriteFixed(is.data(), is.data() + is.size(), value, decimals).end;
        const auto* const exact = std::to_chars(should.data(), should.data() + should.size(), value,
                                                std::chars_format::fixed, decimals)
                                      .ptr;
        Expect(TextOf(is, fixed), TextOf(should, exact), value);
    }
}

// Nobody writes a position with one of these.
void ExpectRefused(std::string_view text) {
    double value = -1.0;
    const auto read = tessara::web::ReadDouble(text.data(), text.data() + text.size(), &value);
    if (read.error == std::errc::invalid_argument && read.end == text.data() && value == -1.0) return;
    ++differences;
    std::printf("'%.*s' is read\n", static_cast<int>(text.size()), text.data());
}

void CompareShortBuffer() {
    Buffer buffer;
    const auto written = tessara::web::WriteFixed(buffer.data(), buffer.data() + 3, 1234.5, 1);
    if (written.error != std::errc::value_too_large) ++differences;
}

// Values in hexadecimal, with the texts that JavaScript has to write and read.
void PrintTexts() {
    std::mt19937_64 random(25);
    for (int i = 0; i < 5000; ++i) {
        const double values[] = {
            std::abs(std::bit_cast<double>(random())),
            std::ldexp(static_cast<double>(random() % 100000000), -static_cast<int>(random() % 40)),
            std::ldexp(1.0, i % 2098 - 1074)};
        for (const double value : values) {
            if (!std::isfinite(value)) continue;
            Buffer text;
            std::printf("%016llx", static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
            const auto print = [&](const char* end) {
                std::printf(" %.*s", static_cast<int>(end - text.data()), text.data());
            };
            char* const last = text.data() + text.size();
            print(std::to_chars(text.data(), last, value, std::chars_format::scientific).ptr);
            for (const int decimals : {0, 1, 7, 23, 60})
                print(std::to_chars(text.data(), last, value, std::chars_format::fixed, decimals).ptr);
            std::printf("\n");
        }
    }
}

}  // namespace

int main(int argc, char**) {
    if (argc > 1) {
        PrintTexts();
        return 0;
    }
    std::mt19937_64 random(25);
    for (int i = 0; i < 50000; ++i) {
        Compare(std::bit_cast<double>(random()));
        Compare(std::ldexp(static_cast<double>(random() % 100000000), -static_cast<int>(random() % 40)));
        Compare(static_cast<double>(static_cast<std::int64_t>(random() % 20000000000) - 10000000000) /
                1000.0);
    }
    for (int power = -1074; power <= 1023; ++power) {
        const double value = std::ldexp(1.0, power);
        for (const double near : {value, std::nextafter(value, 0.0), std::nextafter(value, 1e300), -value})
            Compare(near);
    }
    for (int power = -323; power <= 308; ++power)
        Compare(std::pow(10.0, power));
    for (const double value : {0.0, -0.0, 0.5, 1.5, 2.5, 0.125, -0.375, 1e21, 123456789012345680.0})
        Compare(value);
    for (const std::string_view text : {"",
                                        "-",
                                        ".",
                                        "1.",
                                        ".5",
                                        "+1",
                                        "1e",
                                        "1e5",
                                        "1e400",
                                        "-1e400",
                                        "1e-400",
                                        "0e-400",
                                        "4.9e-324",
                                        "2e-324",
                                        "1.7976931348623157e308",
                                        "1.7976931348623159e308",
                                        "9007199254740993",
                                        "1,5",
                                        "0x10",
                                        " 1",
                                        "e5",
                                        "1e+5x",
                                        "1.e5",
                                        "1E5",
                                        "1e+",
                                        "1e-x",
                                        "-.5e1",
                                        "00012.500",
                                        "9007199254740991e22",
                                        "9007199254740991e-22",
                                        "9007199254740991e23",
                                        "12345678901234567890123456789e-10",
                                        "0.000000000000000000000012345e30",
                                        "1e99999999999999999999",
                                        "1e-99999999999999999999"})
        CompareReading(text);
    for (const std::string_view text : {"nan", "-nan", "inf", "-infinity"})
        ExpectRefused(text);
    CompareShortBuffer();
    std::printf("%d differences\n", differences);
    return differences == 0 ? 0 : 1;
}
