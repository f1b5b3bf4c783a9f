// Arctangent, arcsine and arccosine of any double, to less than a unit in the last place and the same on
// every machine.
//
// All are the angle of a vector. Its coordinates are swapped and turned by the angle whose tangent is 0, 1/2
// or 1 until their quotient is at most a quarter; the arctangent of that is a minimax polynomial in its
// square. The quotient has twice the digits of a double, so that one rounding, the last one, is nearly all of
// the error.
//
// The functions whose names end in Ordinary have neither branches nor calls but square roots, so that a
// compiler can turn a loop around them into vector code. The complete ones have the same bits where those are
// good.
#pragma once

#include <cmath>

#include "numerics/conditions.h"
#include "numerics/double_pair.h"
#include "numerics/polynomial.h"

namespace tessara {
namespace arcs {

inline constexpr double LEAST = 0x1p-500;
inline constexpr double GREATEST = 0x1p500;

// A quotient of doubles does where one of them is 1: it is rounded only where the angle is larger.
enum class Digits { OfDoubles, OfPairs };

// The angle from the first axis, 0..pi, of a vector whose second coordinate isn't negative. The larger of the
// two magnitudes is LEAST..GREATEST, or both are 0.
template <Digits DIGITS>
[[nodiscard, gnu::always_inline]] constexpr double AngleOf(Pair x, Pair y) {
    // (atan(q) - q) / q^3 for q up to 0.36, relative error 2^-58.8.
    constexpr double arcs[] = {-0x1.555555555552bp-2, 0x1.9999999991c05p-3,  -0x1.249249208ba88p-3,
                               0x1.c71c6fbb52003p-4,  -0x1.745ccaa550df8p-4, 0x1.3b0cbba626a14p-4,
                               -0x1.10a8f1a7dd9f1p-4, 0x1.d9fd915d8f371p-5,  -0x1.7e80c8110ca45p-5,
                               0x1.a41dbbbc1a1cp-6};
    constexpr Pair pi{0x1.921fb54442d18p1, 0x1.1a62633145c07p-53};
    constexpr Pair quarterTurn{0x1.921fb54442d18p0, 0x1.1a62633145c07p-54};
    constexpr Pair eighthTurn{0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55};
    constexpr Pair ofOneHalf{0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56};
    constexpr Pair fromHalfToOne{eighthTurn.high - ofOneHalf.high, eighthTurn.low - ofOneHalf.low};
    constexpr double endOfNone = 0.36;
    constexpr double endOfOneHalf = 0.72;

    const bool isBehind = WithSignOf(1.0, x.high) < 0.0;
    const Pair ahead{Absolute(x.high), TimesSignOf(x.low, x.high)};
    const bool isSteep = ahead.high < y.high;
    const Pair less{isSteep ? ahead.high : y.high, isSteep ? ahead.low : y.low};
    const Pair more{isSteep ? y.high : ahead.high, isSteep ? y.low : ahead.low};
    const double divisor = more.high < LEAST ? LEAST : more.high;

    const bool isTurned = less.high > endOfNone * divisor;
    const bool isTurnedFurther = less.high > endOfOneHalf * divisor;
    const double tangent = (isTurned ? 0.5 : 0.0) + (isTurnedFurther ? 0.5 : 0.0);
    const Pair start{(isTurned ? ofOneHalf.high : 0.0) + (isTurnedFurther ? fromHalfToOne.high : 0.0),
                     (isTurned ? ofOneHalf.low : 0.0) + (isTurnedFurther ? fromHalfToOne.low : 0.0)};

    // Products with 0, 1/2 and 1 are exact, and so is the difference.
    const double across = less.high - tangent * divisor;
    Pair quotient{across / (divisor + tangent * less.high), 0.0};
    if constexpr (DIGITS == Digits::OfPairs) {
        const Pair along = SumOfOrdered(divisor, tangent * less.high);
        quotient = Quotient({across, less.low - tangent * more.low},
                            {along.high, along.low + (more.low + tangent * less.low)});
    }
    const double square = quotient.high * quotient.high;
    const double rest = quotient.low + quotient.high * square * Polynomial(arcs, square);

    // The angle is `base`, more or less what has been found.
    const double sign = isSteep != isBehind ? -1.0 : 1.0;
    const double flat = isBehind ? pi.high : 0.0;
    const double flatLow = isBehind ? pi.low : 0.0;
    const double axis = isSteep ? quarterTurn.high : flat;
    const double axisLow = isSteep ? quarterTurn.low : flatLow;
    const Pair base = SumOfOrdered(axis, sign * start.high);
    const Pair angle = SumOfOrdered(base.high, sign * quotient.high);
    return angle.high + (angle.low + ((base.low + axisLow) + sign * (start.low + rest)));
}

// sqrt(1 - x^2)
[[nodiscard, gnu::always_inline]] inline Pair OtherSide(double x) {
    constexpr double least = 0x1p-60;  // what is left at 1 itself needs no more digits
    const Pair sum = SumOfOrdered(1.0, x);
    const Pair difference = SumOfOrdered(1.0, -x);
    const Pair square = Product(sum.high, difference.high);
    const double low = square.low + (sum.high * difference.low + sum.low * difference.high);
    const double root = std::sqrt(square.high);
    const double rest = RestOfProduct(square.high, root, root) + low;
    return {root, rest * 0.5 / (root < least ? least : root)};
}

// Of coordinates that aren't ordinary.
[[nodiscard]] double Atan2OfOther(double y, double x);

}  // namespace arcs

// Good for all doubles.
[[nodiscard, gnu::always_inline]] constexpr double AtanOrdinary(double tangent) {
    constexpr double steepest = 0x1p500;
    const double magnitude = Absolute(tangent);
    const double bounded = steepest < magnitude ? steepest : magnitude;
    return WithSignOf(arcs::AngleOf<arcs::Digits::OfDoubles>({1.0, 0.0}, {bounded, 0.0}), tangent);
}

// Where the magnitudes are 2^-500..2^500, or one or both are 0.
[[nodiscard, gnu::always_inline]] constexpr double Atan2Ordinary(double y, double x) {
    return WithSignOf(arcs::AngleOf<arcs::Digits::OfPairs>({x, 0.0}, {Absolute(y), 0.0}), y);
}

// Good for all doubles. Beyond 1 there is none.
[[nodiscard, gnu::always_inline]] inline double AsinOrdinary(double sine) {
    const double magnitude = Absolute(sine);
    return WithSignOf(arcs::AngleOf<arcs::Digits::OfPairs>(arcs::OtherSide(magnitude), {magnitude, 0.0}),
                      sine);
}

[[nodiscard, gnu::always_inline]] inline double AcosOrdinary(double cosine) {
    return arcs::AngleOf<arcs::Digits::OfPairs>({cosine, 0.0}, arcs::OtherSide(cosine));
}

[[nodiscard]] inline double Atan(double tangent) {
    return AtanOrdinary(tangent);
}

[[nodiscard]] inline double Asin(double sine) {
    return AsinOrdinary(sine);
}

[[nodiscard]] inline double Acos(double cosine) {
    return AcosOrdinary(cosine);
}

// Whether Atan2Ordinary is good for the vector.
[[nodiscard, gnu::always_inline]] constexpr bool IsOrdinaryVector(double y, double x) {
    const double one = Absolute(x);
    const double other = Absolute(y);
    return AllOf(one <= arcs::GREATEST, other <= arcs::GREATEST, AnyOf(one >= arcs::LEAST, one == 0.0),
                 AnyOf(other >= arcs::LEAST, other == 0.0));
}

// The angle of (x, y) from the x axis, -pi..pi. That of (0, 0) is 0 or pi by the sign of x.
[[nodiscard]] inline double Atan2(double y, double x) {
    return IsOrdinaryVector(y, x) ? Atan2Ordinary(y, x) : arcs::Atan2OfOther(y, x);
}

}  // namespace tessara
