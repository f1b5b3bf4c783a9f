// Compares the texts of doubles with those of the standard library that builds this program: values of all
// magnitudes, of few digits, on powers of two and ten, and texts on the borders of their ranges. Exits with 1
// after the first difference.
#include "double_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>

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
    CompareReading(TextOf(should, wanted));
    for (const int decimals : {0, 1, 2, 3, 5, 7, 12, 22, 23, 32}) {
        const auto* const fixed =
            tessara::web::WriteFixed(is.data(), is.data() + is.size(), value, decimals).end;
        const auto* const exact = std::to_chars(should.data(), should.data() + should.size(), value,
                                                std::chars_format::fixed, decimals)
                                      .ptr;
        Expect(TextOf(is, fixed), TextOf(should, exact), value);
    }
}

void CompareShortBuffer() {
    Buffer buffer;
    const auto written = tessara::web::WriteFixed(buffer.data(), buffer.data() + 3, 1234.5, 1);
    if (written.error != std::errc::value_too_large) ++differences;
}

}  // namespace

int main() {
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
                                        "1e+5x"})
        CompareReading(text);
    CompareShortBuffer();
    std::printf("%d differences\n", differences);
    return differences == 0 ? 0 : 1;
}
