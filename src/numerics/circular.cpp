#include "numerics/circular.h"

#include <cstddef>
#include <limits>

namespace tessara::circular {
namespace {

// 2/pi in words of 32 bits, the first one worth 2^-32.
constexpr std::uint32_t TWO_PER_PI[] = {
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB, 0xDEBBC561,
    0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C, 0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484,
    0xE99C7026, 0xB45F7E41, 0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D, 0x7527BAC7, 0xEBE5F17B,
    0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08, 0x56033046};

constexpr int WORD_BITS = 32;
// Digits of 2/pi before the first that matters make whole turns; after as many as these come 53 of the angle,
// the 61 that the double nearest to a quarter turn loses, and 106 to keep.
constexpr int WORDS_THAT_MATTER = 7;
constexpr int PRODUCT_WORDS = WORDS_THAT_MATTER + 2;

// A number of quarter turns, in units of 2^-fractionBits.
struct Quarters {
    std::uint32_t words[PRODUCT_WORDS + 1];  // the last digits first; one more to read across
    int fractionBits;

    // 32 bits, of which `end` is the first that is too high; it is at least 1.
    [[nodiscard]] std::uint32_t WordBelow(int end) const {
        const int begin = end - WORD_BITS;
        if (begin < 0) return words[0] << -begin;
        const std::size_t word = static_cast<std::size_t>(begin / WORD_BITS);
        const std::uint64_t both = static_cast<std::uint64_t>(words[word + 1]) << WORD_BITS | words[word];
        return static_cast<std::uint32_t>(both >> begin % WORD_BITS);
    }
};

Quarters QuartersOf(double magnitude) {
    constexpr int mantissaBits = 52;
    const std::uint64_t bits = BitsOf(magnitude);
    const std::uint64_t mantissa = (bits & 0x000FFFFFFFFFFFFF) | 0x0010000000000000;
    const int exponent = static_cast<int>(bits >> mantissaBits) - 1023 - mantissaBits;
    const int first = exponent < 2 ? 0 : (exponent - 2) / WORD_BITS;

    Quarters result{{}, WORD_BITS * (first + WORDS_THAT_MATTER) - exponent};
    const std::uint64_t factors[] = {mantissa & 0xFFFFFFFF, mantissa >> WORD_BITS};
    for (std::size_t f = 0; f < 2; ++f) {
        std::uint64_t carry = 0;
        for (std::size_t i = 0; i < WORDS_THAT_MATTER; ++i) {
            const std::uint64_t word =
                TWO_PER_PI[static_cast<std::size_t>(first) + WORDS_THAT_MATTER - 1 - i];
            carry += factors[f] * word + result.words[i + f];
            result.words[i + f] = static_cast<std::uint32_t>(carry);
            carry >>= WORD_BITS;
        }
        result.words[f + WORDS_THAT_MATTER] = static_cast<std::uint32_t>(carry);
    }
    return result;
}

// A part of a quarter turn in radians.
Pair RadiansOf(Pair part) {
    constexpr Pair quarterTurn{0x1.921fb54442d18p0, 0x1.1a62633145c07p-54};
    const Pair product = Product(part.high, quarterTurn.high);
    return SumOfOrdered(product.high,
                        product.low + (part.high * quarterTurn.low + part.low * quarterTurn.high));
}

}  // namespace

Reduced ReduceHuge(double magnitude) {
    const Quarters quarters = QuartersOf(magnitude);
    const std::uint32_t whole = quarters.WordBelow(quarters.fractionBits + WORD_BITS);
    const bool isUp = (quarters.WordBelow(quarters.fractionBits) >> (WORD_BITS - 1)) != 0;

    // What is left, from the last word up. Up to the next whole quarter the complement is left.
    constexpr int fractionWords = 6;
    Pair part{0.0, 0.0};
    double unit = 0x1p-192;
    for (int i = fractionWords; i > 0; --i, unit *= 0x1p32) {
        const std::uint32_t word = quarters.WordBelow(quarters.fractionBits - (i - 1) * WORD_BITS);
        const Pair sum = ExactSum(static_cast<double>(isUp ? ~word : word) * unit, part.high);
        part = {sum.high, sum.low + part.low};
    }
    const Pair radians = RadiansOf(part);
    if (!isUp) return {radians.high, radians.low, whole};
    return {-radians.high, -radians.low, static_cast<std::uint64_t>(whole) + 1};
}

SinCos SinCosOfOther(double angle) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!(Absolute(angle) <= std::numeric_limits<double>::max())) return {none, none};
    const Reduced reduced = ReduceHuge(Absolute(angle));
    return Turned(PartsOf(reduced), reduced.quarters, angle);
}

double TanOfOther(double angle) {
    if (!(Absolute(angle) <= std::numeric_limits<double>::max()))
        return std::numeric_limits<double>::quiet_NaN();
    return TangentOf(ReduceHuge(Absolute(angle)), angle);
}

}  // namespace tessara::circular
