#include "maps/pixel_search.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace tessara {
namespace {

struct Pixel {
    std::int32_t x, y;
    auto operator<=>(const Pixel&) const = default;
};

void PrintTo(const Pixel& pixel, std::ostream* out) {
    *out << '(' << pixel.x << ", " << pixel.y << ')';
}

// The pixels tested, none of them valid.
std::vector<Pixel> Probes(const PixelRect& rect, int levels) {
    std::vector<Pixel> probes;
    const WholePixelTest test = [&probes](std::int32_t x, std::int32_t y) {
        probes.push_back({x, y});
        return false;
    };
    EXPECT_FALSE(FindValidPixel(rect, levels, test));
    return probes;
}

// Right and left of the lower half, then of the upper half, level by level.
TEST(FindValidPixel, TestsTheCentresOfEverSmallerQuarters) {
    const std::vector<Pixel> expected = {
        {8, 8},                                  // the whole
        {12, 12}, {4, 12},  {12, 4},  {4, 4},    // its quarters
        {14, 14}, {10, 14}, {14, 10}, {10, 10},  // those of the first
        {6, 14},  {2, 14},  {6, 10},  {2, 10},   //
        {14, 6},  {10, 6},  {14, 2},  {10, 2},   //
        {6, 6},   {2, 6},   {6, 2},   {2, 2},    //
    };
    EXPECT_EQ(Probes({0, 0, 16, 16}, 3), expected);
}

TEST(FindValidPixel, SwappedEdgesMakeNoDifference) {
    EXPECT_EQ(Probes({16, 0, 0, 16}, 3), Probes({0, 0, 16, 16}, 3));
    EXPECT_EQ(Probes({0, 16, 16, 0}, 3), Probes({0, 0, 16, 16}, 3));
}

TEST(FindValidPixel, StopsAtTheFirstValidOne) {
    int count = 0;
    Pixel found{};
    const WholePixelTest test = [&](std::int32_t x, std::int32_t y) {
        ++count;
        found = {x, y};
        return x > 4 && y > 4;
    };
    EXPECT_TRUE(FindValidPixel({0, 0, 8, 8}, 3, test));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(found, (Pixel{6, 6}));
}

TEST(FindValidPixel, APixelHasNoQuarters) {
    EXPECT_EQ(Probes({5, 7, 6, 8}, 6), (std::vector<Pixel>{{5, 7}}));
    EXPECT_EQ(Probes({5, 7, 5, 7}, 6), (std::vector<Pixel>{{5, 7}}));
}

// Only a rectangle below two pixels on both axes isn't split.
TEST(FindValidPixel, AThinStripIsStillSplit) {
    EXPECT_EQ(Probes({0, 0, 1, 100}, 2).size(), 5u);
    EXPECT_EQ(Probes({0, 0, 100, 0}, 2).size(), 5u);
    EXPECT_EQ(Probes({0, 0, 2, 1}, 2).size(), 5u);
}

TEST(FindValidPixel, MakesAtMostSoManyProbes) {
    EXPECT_EQ(Probes({0, 0, 1000, 1000}, 3).size(), 1u + 4u + 16u);
    EXPECT_EQ(Probes({0, 0, 100000, 100000}, 6).size(), 1365u);
    EXPECT_TRUE(Probes({0, 0, 10, 10}, 0).empty());
}

TEST(FindValidPixel, CentresAreCutTowardZero) {
    EXPECT_EQ(Probes({-3, -5, 0, 0}, 1), (std::vector<Pixel>{{-1, -2}}));
    EXPECT_EQ(Probes({0, 0, 3, 5}, 1), (std::vector<Pixel>{{1, 2}}));
}

TEST(FindValidPixel, TakesTheWholeRangeOfPixels) {
    const std::vector<Pixel> probes = Probes({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, 3);
    EXPECT_EQ(probes.size(), 21u);
    EXPECT_EQ(probes[0], (Pixel{0, 0}));
    EXPECT_EQ(probes[1], (Pixel{INT32_MAX / 2, INT32_MAX / 2}));
    EXPECT_EQ(probes[4], (Pixel{INT32_MIN / 2, INT32_MIN / 2}));
}

TEST(FindValidPixelOnRim, TriesTheStripsInTheirOrder) {
    std::vector<Pixel> firsts;
    // Strips of ten pixels of a sheet of 80 by 80; one level tests their centres.
    const WholePixelTest test = [&firsts](std::int32_t x, std::int32_t y) {
        firsts.push_back({x, y});
        return false;
    };
    EXPECT_FALSE(FindValidPixelOnRim({0, 0, 80, 80}, 1, test));
    EXPECT_EQ(firsts, (std::vector<Pixel>{{40, 5}, {40, 75}, {5, 40}, {75, 40}}));
}

TEST(FindValidPixelOnRim, StopsAtTheFirstStripThatHasOne) {
    int count = 0;
    const WholePixelTest test = [&count](std::int32_t, std::int32_t y) {
        ++count;
        return y > 70;
    };
    EXPECT_TRUE(FindValidPixelOnRim({0, 0, 80, 80}, 1, test));
    EXPECT_EQ(count, 2);
}

TEST(FindValidPixelOnRim, ASmallRectangleHasItsEdgesForStrips) {
    std::set<Pixel> probes;
    const WholePixelTest test = [&probes](std::int32_t x, std::int32_t y) {
        probes.insert({x, y});
        return false;
    };
    EXPECT_FALSE(FindValidPixelOnRim({10, 20, 14, 26}, 1, test));
    EXPECT_EQ(probes, (std::set<Pixel>{{12, 20}, {12, 26}, {10, 23}, {14, 23}}));
}

TEST(FindValidPixelOnRim, TakesTheWholeRangeOfPixels) {
    const WholePixelTest test = [](std::int32_t, std::int32_t) { return false; };
    EXPECT_FALSE(FindValidPixelOnRim({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, 3, test));
}

TEST(PixelRectangle, LeftAndTopBelongToIt) {
    const PixelRect rect{0, 10, 5, 20};
    EXPECT_TRUE(IsInside(rect, 0, 10));
    EXPECT_TRUE(IsInside(rect, 4, 19));
    EXPECT_FALSE(IsInside(rect, 5, 10));
    EXPECT_FALSE(IsInside(rect, 0, 20));
    EXPECT_FALSE(IsInside(rect, -1, 10));
    EXPECT_FALSE(IsInside(rect, 0, 9));
}

}  // namespace
}  // namespace tessara
