#include "maps/line_clipping.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"

namespace tessara {
namespace {

// Valid where the condition on x holds; a valid pixel leads back to itself.
template <class Condition>
PixelTest Where(Condition condition) {
    return [condition](const PlanePoint& pixel, PlanePoint* back) {
        if (!condition(pixel.x)) return false;
        *back = pixel;
        return true;
    };
}

TEST(ClipLine, AWhollyValidLineStaysAsItIs) {
    const ClippedLine line = ClipLine({1.25, 2.0}, {101.0, -40.0}, Where([](double) { return true; }));
    EXPECT_EQ(line.result, CLIP_ALL_VALID);
    EXPECT_EQ(line.first, (PlanePoint{1.25, 2.0}));
    EXPECT_EQ(line.second, (PlanePoint{101.0, -40.0}));
}

TEST(ClipLine, AWhollyInvalidLineHasNothing) {
    EXPECT_EQ(ClipLine({0.0, 0.0}, {100.0, 50.0}, Where([](double) { return false; })).result,
              CLIP_NONE_VALID);
}

// Bisection of 0..1000: 500, 750, 625, 687.5, 718.75, 703.125 ... to an interval of 1000 / 2^11 below 700.
TEST(ClipLine, KeepsTheValidSideOfALine) {
    const auto test = Where([](double x) { return x <= 700.0; });
    const ClippedLine forward = ClipLine({0.0, 5.0}, {1000.0, 5.0}, test);
    EXPECT_EQ(forward.result, CLIP_ONE_PIECE);
    EXPECT_EQ(forward.first, (PlanePoint{0.0, 5.0}));
    EXPECT_EQ(forward.second, (PlanePoint{1433.0 * 1000.0 / 2048.0, 5.0}));
    const ClippedLine backward = ClipLine({1000.0, 5.0}, {0.0, 5.0}, test);
    EXPECT_EQ(backward.result, CLIP_ONE_PIECE);
    EXPECT_EQ(backward.first, forward.second);
    EXPECT_EQ(backward.second, (PlanePoint{0.0, 5.0}));
}

TEST(ClipLine, StopsAtHalfAPixelOnBothAxes) {
    const ClippedLine line = ClipLine({0.0, 0.0}, {10.0, 1000.0}, Where([](double x) { return x <= 7.0; }));
    EXPECT_LE(line.second.x, 7.0);
    EXPECT_GT(line.second.y, 699.5);
}

// An edge is looked for at least once: of 0..0.25 the middle, 0.125, decides.
TEST(ClipLine, HalvesAlsoALineShorterThanHalfAPixel) {
    const ClippedLine beyond = ClipLine({0.0, 0.0}, {0.25, 0.0}, Where([](double x) { return x <= 0.2; }));
    EXPECT_EQ(beyond.result, CLIP_ONE_PIECE);
    EXPECT_EQ(beyond.second.x, 0.125);
    const ClippedLine before = ClipLine({0.0, 0.0}, {0.25, 0.0}, Where([](double x) { return x <= 0.1; }));
    EXPECT_EQ(before.second.x, 0.0);
    const ClippedLine end = ClipLine({0.0, 0.0}, {0.25, 0.0}, Where([](double x) { return x >= 0.1; }));
    EXPECT_EQ(end.first.x, 0.125);
    EXPECT_EQ(end.second.x, 0.25);
}

// 0.5 is valid and half a pixel from the end: 0.75, which is valid too, isn't looked at.
TEST(ClipLine, StopsAtExactlyHalfAPixel) {
    const auto test = Where([](double x) { return x <= 0.8; });
    EXPECT_EQ(ClipLine({0.0, 0.0}, {1.0, 0.0}, test).second.x, 0.5);
    EXPECT_EQ(ClipLine({1.0, 0.0}, {0.0, 0.0}, test).first.x, 0.5);
    const auto onRow = [](const PlanePoint& p, PlanePoint*) { return p.y <= 0.8; };
    EXPECT_EQ(ClipLine({0.0, 0.0}, {0.0, 1.0}, onRow).second.y, 0.5);
}

TEST(ClipLine, AGapInTheMiddleIsCutFromBothSides) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {1000.0, 0.0}, Where([](double x) { return x <= 300.0 || x >= 800.0; }));
    EXPECT_EQ(line.result, CLIP_ONE_GAP);
    EXPECT_LE(line.first.x, 300.0);
    EXPECT_GT(line.first.x, 299.5);
    EXPECT_GE(line.second.x, 800.0);
    EXPECT_LT(line.second.x, 800.5);
}

TEST(ClipLine, APieceInTheMiddleIsCutFromBothSides) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {1000.0, 0.0}, Where([](double x) { return x >= 300.0 && x <= 800.0; }));
    EXPECT_EQ(line.result, CLIP_ONE_PIECE);
    EXPECT_GE(line.first.x, 300.0);
    EXPECT_LT(line.first.x, 300.5);
    EXPECT_LE(line.second.x, 800.0);
    EXPECT_GT(line.second.x, 799.5);
}

// Both ends and the middle are valid: the walk meets 100, 101 ... 200.
TEST(ClipLine, AGapBesideTheMiddleIsWalkedTo) {
    const ClippedLine line =
        ClipLine({0.0, 7.0}, {1000.0, 7.0}, Where([](double x) { return x < 99.5 || x > 200.5; }));
    EXPECT_EQ(line.result, CLIP_ONE_GAP);
    EXPECT_EQ(line.first, (PlanePoint{99.0, 7.0}));
    EXPECT_EQ(line.second, (PlanePoint{201.0, 7.0}));
}

TEST(ClipLine, OnlyTheFirstOfSeveralGapsIsFound) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {-1000.0, 0.0},
                 Where([](double x) { return !(x < -99.5 && x > -200.5) && !(x < -699.5 && x > -800.5); }));
    EXPECT_EQ(line.result, CLIP_ONE_GAP);
    EXPECT_EQ(line.first.x, -99.0);
    EXPECT_EQ(line.second.x, -201.0);
}

TEST(ClipLine, AGapNarrowerThanAStepMayBeMissed) {
    EXPECT_EQ(
        ClipLine({0.0, 0.0}, {1000.0, 0.0}, Where([](double x) { return x < 99.2 || x > 99.8; })).result,
        CLIP_ALL_VALID);
}

// The walk jumps over the end, and the gap has no point behind it: 10.5 is valid, but 10 and 11 aren't.
TEST(ClipLine, AGapUpToTheEndEndsWhereItStarts) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {10.5, 0.0}, Where([](double x) { return x < 7.5 || x == 10.5; }));
    EXPECT_EQ(line.result, CLIP_ONE_GAP);
    EXPECT_EQ(line.first.x, 7.0);
    EXPECT_EQ(line.second.x, 7.0);
}

// Neither the ends nor the middle are valid. The walk finds the start of the piece and doesn't look for its
// end: it gives the first point past the end of the line.
TEST(ClipLine, APieceBesideTheMiddleReachesPastTheEnd) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {1000.0, 0.0}, Where([](double x) { return x > 99.5 && x < 200.5; }));
    EXPECT_EQ(line.result, CLIP_ONE_PIECE);
    EXPECT_EQ(line.first.x, 100.0);
    EXPECT_EQ(line.second.x, 1001.0);
}

// ... unless the pixel to which its position leads back is invalid.
TEST(ClipLine, APieceThatLeadsBackElsewhereIsOnePixel) {
    const ClippedLine line = ClipLine({0.0, 0.0}, {1000.0, 0.0}, [](const PlanePoint& p, PlanePoint* back) {
        *back = {5000.0, 0.0};
        return p.x > 99.5 && p.x < 200.5;
    });
    EXPECT_EQ(line.result, CLIP_ONE_PIECE);
    EXPECT_EQ(line.first.x, 100.0);
    EXPECT_EQ(line.second.x, 100.0);
}

// ... and unless there is no other point before the end.
TEST(ClipLine, APieceOnTheLastPointReachesPastTheEnd) {
    const ClippedLine line = ClipLine({0.0, 0.0}, {10.5, 0.0}, [](const PlanePoint& p, PlanePoint* back) {
        *back = {5000.0, 0.0};
        return p.x == 10.0;
    });
    EXPECT_EQ(line.result, CLIP_ONE_PIECE);
    EXPECT_EQ(line.first.x, 10.0);
    EXPECT_EQ(line.second.x, 11.0);
}

// Steps of (3/5, 4/5); an axis without difference is never passed.
TEST(ClipLine, WalksInStepsOfOnePixel) {
    const ClippedLine line =
        ClipLine({0.0, 0.0}, {30.0, -40.0}, Where([](double x) { return x < 5.7 || x > 8.7; }));
    EXPECT_EQ(line.result, CLIP_ONE_GAP);
    EXPECT_NEAR(line.first.x, 5.4, 1e-12);
    EXPECT_NEAR(line.first.y, -7.2, 1e-12);
    EXPECT_NEAR(line.second.x, 9.0, 1e-12);
    EXPECT_NEAR(line.second.y, -12.0, 1e-12);
}

TEST(ClipLine, ALineOfOnePointIsValidOrNot) {
    const auto test = Where([](double x) { return x > 0.0; });
    const ClippedLine valid = ClipLine({1.0, 2.0}, {1.0, 2.0}, test);
    EXPECT_EQ(valid.result, CLIP_ALL_VALID);
    EXPECT_EQ(valid.first, (PlanePoint{1.0, 2.0}));
    EXPECT_EQ(valid.second, (PlanePoint{1.0, 2.0}));
    EXPECT_EQ(ClipLine({-1.0, 2.0}, {-1.0, 2.0}, test).result, CLIP_NONE_VALID);
}

TEST(ClipLine, AnEndThatIsNowhereFails) {
    const auto test = Where([](double) { return true; });
    for (double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_EQ(ClipLine({bad, 0.0}, {1.0, 1.0}, test).result, CLIP_FAILED);
        EXPECT_EQ(ClipLine({0.0, bad}, {1.0, 1.0}, test).result, CLIP_FAILED);
        EXPECT_EQ(ClipLine({0.0, 0.0}, {bad, 1.0}, test).result, CLIP_FAILED);
        EXPECT_EQ(ClipLine({0.0, 0.0}, {1.0, bad}, test).result, CLIP_FAILED);
    }
}

TEST(ClipLine, ALineTooLongIsNotWalked) {
    EXPECT_EQ(ClipLine({0.0, 0.0}, {1.1e7, 0.0}, Where([](double) { return true; })).result, CLIP_FAILED);
    EXPECT_EQ(ClipLine({0.0, 0.0}, {1e300, 0.0}, Where([](double) { return false; })).result, CLIP_FAILED);
    EXPECT_EQ(ClipLine({-1e308, 0.0}, {1e308, 1e308}, Where([](double) { return true; })).result,
              CLIP_FAILED);
    // An edge is found at any distance.
    EXPECT_EQ(ClipLine({0.0, 0.0}, {1e300, 0.0}, Where([](double x) { return x < 1e9; })).result,
              CLIP_ONE_PIECE);
    EXPECT_EQ(ClipLine({1e308, 0.0}, {-1e308, 0.0}, Where([](double x) { return x > 0.0; })).result,
              CLIP_ONE_PIECE);
}

// At 2^60 doubles are 256 apart: no step moves.
TEST(ClipLine, EndsWhereDoublesAreCoarserThanAStep) {
    const double far = std::ldexp(1.0, 60);
    EXPECT_EQ(ClipLine({far, 0.0}, {far + 4096.0, 0.0}, Where([](double) { return true; })).result,
              CLIP_ALL_VALID);
    EXPECT_EQ(ClipLine({far, 0.0}, {far + 4096.0, 0.0}, Where([](double) { return false; })).result,
              CLIP_NONE_VALID);
    EXPECT_EQ(
        ClipLine({far, 0.0}, {far + 4096.0, 0.0}, Where([far](double x) { return x < far + 1000.0; })).result,
        CLIP_ONE_PIECE);
}

// A walk down a column passes the end by its rows alone.
TEST(ClipLine, WalksDownAColumn) {
    const auto onRow = [](auto condition) {
        return [condition](const PlanePoint& p, PlanePoint* back) {
            *back = p;
            return condition(p.y);
        };
    };
    EXPECT_EQ(ClipLine({3.0, 0.0}, {3.0, 10.0}, onRow([](double) { return true; })).result, CLIP_ALL_VALID);
    const ClippedLine gap =
        ClipLine({3.0, 10.0}, {3.0, 0.0}, onRow([](double y) { return y < 2.5 || y > 3.5; }));
    EXPECT_EQ(gap.result, CLIP_ONE_GAP);
    EXPECT_EQ(gap.first, (PlanePoint{3.0, 4.0}));
    EXPECT_EQ(gap.second, (PlanePoint{3.0, 2.0}));
}

// Between two neighbouring doubles the middle is one of the two, that whose last bit is 0.
TEST(ClipLine, TheEdgeBetweenNeighbouringDoublesIsTheValidOne) {
    const double even = 1.0;
    const double odd = std::nextafter(even, 2.0);
    for (const double valid : {even, odd}) {
        const double invalid = valid == even ? odd : even;
        const ClippedLine line =
            ClipLine({valid, 0.0}, {invalid, 0.0}, Where([valid](double x) { return x == valid; }));
        EXPECT_EQ(line.result, CLIP_ONE_PIECE);
        EXPECT_EQ(line.first.x, valid);
        EXPECT_EQ(line.second.x, valid);
    }
}

}  // namespace
}  // namespace tessara
