#include "polygons/polygon_overlay.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "support/rings.h"
#include "support/sanitized.h"
#include "tessara/coordinate_area.h"

namespace tessara::polygon_overlay_test {
namespace {

using testing::AreaOf;
using testing::AreasOf;
using testing::Closed;
using testing::Rectangle;
using testing::Reversed;
using testing::SignedArea;
using testing::StartingAt;

constexpr double TOLERANCE = 2.220446049250313e-11;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

using Areas = std::vector<double>;

// Two polygons and what their overlay must be, areas in ascending order.
struct Example {
    const char* name;
    Ring first, second;
    std::int32_t result;
    Areas neither, onlySecond, onlyFirst, both;
};

const Ring SQUARE = Rectangle(0, 0, 4, 4);
const Ring U{{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 3}, {3, 3}, {3, 10}, {0, 10}};

// Areas are width times height of the rectangles that a drawing shows.
const std::vector<Example> EXAMPLES{
    {"corners", SQUARE, Rectangle(2, 2, 6, 6), OVERLAY_CROSSING, {}, {12}, {12}, {4}},
    {"cross", Rectangle(0, 2, 6, 4), Rectangle(2, 0, 4, 6), OVERLAY_CROSSING, {}, {4, 4}, {4, 4}, {4}},
    {"equal", SQUARE, SQUARE, OVERLAY_EQUAL, {}, {}, {}, {}},
    {"first inside", Rectangle(1, 1, 3, 3), SQUARE, OVERLAY_FIRST_INSIDE, {}, {}, {}, {}},
    {"second inside", SQUARE, Rectangle(1, 1, 3, 3), OVERLAY_SECOND_INSIDE, {}, {}, {}, {}},
    {"inside at an edge", SQUARE, Rectangle(0, 1, 2, 3), OVERLAY_SECOND_INSIDE, {}, {}, {}, {}},
    {"inside with vertices on the edges",
     {{2, 0}, {4, 2}, {2, 4}, {0, 2}},
     SQUARE,
     OVERLAY_FIRST_INSIDE,
     {},
     {},
     {},
     {}},
    {"a common side", SQUARE, Rectangle(4, 0, 8, 4), OVERLAY_TOUCHING, {}, {}, {}, {}},
    {"within a side", SQUARE, Rectangle(4, 1, 6, 3), OVERLAY_TOUCHING, {}, {}, {}, {}},
    {"a part of a side", SQUARE, Rectangle(4, 2, 8, 6), OVERLAY_TOUCHING, {}, {}, {}, {}},
    {"a common corner", Rectangle(0, 0, 1, 1), Rectangle(1, 1, 2, 2), OVERLAY_APART, {}, {}, {}, {}},
    {"a vertex on a side", SQUARE, {{4, 2}, {6, 0}, {8, 2}, {6, 4}}, OVERLAY_APART, {}, {}, {}, {}},
    {"apart", SQUARE, Rectangle(5, 5, 6, 6), OVERLAY_APART, {}, {}, {}, {}},
    // The diamond's area is 8; half of it is in the square.
    {"through two vertices", SQUARE, {{2, 2}, {4, 0}, {6, 2}, {4, 4}}, OVERLAY_CROSSING, {}, {4}, {12}, {4}},
    // The triangles of the bow-tie have the area 4 each and are cut at x = 1 and x = 3.
    {"bow-tie",
     {{0, 0}, {4, 4}, {4, 0}, {0, 4}},
     Rectangle(1, 1, 3, 3),
     OVERLAY_CROSSING,
     {},
     {1, 1},
     {3, 3},
     {1, 1}},
    {"U and a bar that closes its notch",
     U,
     Rectangle(-1, 5, 11, 7),
     OVERLAY_CROSSING,
     {8},
     {2, 2, 8},
     {9, 9, 42},
     {6, 6}},
    {"U and a bar on the floor of its notch",
     U,
     Rectangle(-1, 3, 11, 5),
     OVERLAY_CROSSING,
     {},
     {2, 2, 8},
     {15, 15, 30},
     {6, 6}},
    {"U and what fills its notch", U, Rectangle(3, 3, 7, 10), OVERLAY_TOUCHING, {}, {}, {}, {}},
    {"two C that enclose a hole",
     {{0, 0}, {6, 0}, {6, 2}, {2, 2}, {2, 4}, {6, 4}, {6, 6}, {0, 6}},
     {{9, 0}, {9, 6}, {5, 6}, {5, 4.5}, {7, 4.5}, {7, 1.5}, {5, 1.5}, {5, 0}},
     OVERLAY_CROSSING,
     {11},
     {15},
     {25},
     {1.5, 1.5}},
    {"comb and bar",
     {{0, 0}, {10, 0}, {10, 1}, {1, 1}, {1, 2}, {10, 2}, {10, 3}, {1, 3}, {1, 4}, {10, 4}, {10, 5}, {0, 5}},
     Rectangle(4, -1, 6, 6),
     OVERLAY_CROSSING,
     {3, 3},
     {2, 2, 2, 2},
     {4, 4, 4, 14},
     {2, 2, 2}},
};

void ExpectAreas(const std::vector<Ring>& parts, const Areas& expected, double scale = 1.0,
                 double tolerance = 1e-12) {
    const Areas areas = AreasOf(parts);
    ASSERT_EQ(areas.size(), expected.size());
    for (std::size_t i = 0; i < areas.size(); ++i)
        EXPECT_NEAR(areas[i], expected[i] * scale, tolerance);
}

void ExpectNoParts(const OverlayParts& parts) {
    EXPECT_TRUE(parts.neither.empty() && parts.onlySecond.empty() && parts.onlyFirst.empty() &&
                parts.both.empty());
}

std::int32_t Swapped(std::int32_t result) {
    if (result == OVERLAY_FIRST_INSIDE) return OVERLAY_SECOND_INSIDE;
    return result == OVERLAY_SECOND_INSIDE ? OVERLAY_FIRST_INSIDE : result;
}

TEST(OverlayVertices, GivesTheResultAndTheAreasOfEachExample) {
    for (const Example& example : EXAMPLES) {
        SCOPED_TRACE(example.name);
        OverlayParts parts;
        EXPECT_EQ(OverlayVertices(example.first, example.second, TOLERANCE, &parts), example.result);
        ExpectAreas(parts.neither, example.neither);
        ExpectAreas(parts.onlySecond, example.onlySecond);
        ExpectAreas(parts.onlyFirst, example.onlyFirst);
        ExpectAreas(parts.both, example.both);
    }
}

TEST(OverlayVertices, ExchangedPolygonsExchangeTheParts) {
    for (const Example& example : EXAMPLES) {
        SCOPED_TRACE(example.name);
        OverlayParts parts;
        EXPECT_EQ(OverlayVertices(example.second, example.first, TOLERANCE, &parts), Swapped(example.result));
        ExpectAreas(parts.neither, example.neither);
        ExpectAreas(parts.onlySecond, example.onlyFirst);
        ExpectAreas(parts.onlyFirst, example.onlySecond);
        ExpectAreas(parts.both, example.both);
    }
}

TEST(OverlayVertices, StartDirectionAndClosingVertexDoNotMatter) {
    for (const Example& example : EXAMPLES) {
        SCOPED_TRACE(example.name);
        for (std::size_t start = 0; start < example.first.size(); ++start) {
            const Ring turned = StartingAt(start, example.first);
            for (const Ring& first : {turned, Closed(turned), Reversed(turned)}) {
                OverlayParts parts;
                EXPECT_EQ(OverlayVertices(first, Reversed(example.second), TOLERANCE, &parts),
                          example.result);
                ExpectAreas(parts.both, example.both);
                ExpectAreas(parts.onlyFirst, example.onlyFirst);
            }
        }
    }
}

// After rotation, scaling and translation, polygons that touched exactly touch to a rounding error only.
TEST(OverlayVertices, TurnedScaledAndMovedExamplesStayWhatTheyAre) {
    testing::Random random(7);
    for (int k = 0; k < 60; ++k) {
        const double angle = random.Between(0, 6.28);
        const double scale = random.Between(0.5, 500);
        const double reach = k % 2 == 0 ? 1e3 : 1e6;
        const PlanePoint shift{random.Between(-reach, reach), random.Between(-reach, reach)};
        const auto move = [&](Ring ring) {
            for (PlanePoint& p : ring) {
                p = {scale * (p.x * std::cos(angle) - p.y * std::sin(angle)) + shift.x,
                     scale * (p.x * std::sin(angle) + p.y * std::cos(angle)) + shift.y};
            }
            return ring;
        };
        for (const Example& example : EXAMPLES) {
            SCOPED_TRACE(example.name);
            OverlayParts parts;
            EXPECT_EQ(OverlayVertices(move(example.first), move(example.second), TOLERANCE, &parts),
                      example.result);
            // Coordinates to 1e6 are rounded to 1e-10, along rings of at most 80 * 500.
            const double square = scale * scale;
            ExpectAreas(parts.neither, example.neither, square, 1e-5);
            ExpectAreas(parts.onlySecond, example.onlySecond, square, 1e-5);
            ExpectAreas(parts.onlyFirst, example.onlyFirst, square, 1e-5);
            ExpectAreas(parts.both, example.both, square, 1e-5);
        }
    }
}

// Upright, the edges of skylines run along each other exactly and end in each other's vertices exactly.
// Turned, both is so to a rounding only, and nothing may change but the directions.
TEST(OverlayVertices, TurnedSkylinesStayWhatTheyAreUpright) {
    testing::Random random(9);
    for (int k = 0; k < testing::Samples(4000); ++k) {
        SCOPED_TRACE(k);
        const auto skyline = [&] {
            return testing::RandomSkyline(random, 1 + random.Below(8), random.Below(6), random.Below(3));
        };
        const double angle = random.Between(0, 6.28);
        const double scale = random.Between(0.5, 2000);
        const auto turn = [&](Ring ring) {
            for (PlanePoint& p : ring) {
                p = {scale * (p.x * std::cos(angle) - p.y * std::sin(angle)),
                     scale * (p.x * std::sin(angle) + p.y * std::cos(angle))};
            }
            return ring;
        };
        const Ring first = skyline();
        const Ring second = skyline();
        OverlayParts upright;
        OverlayParts turned;
        ASSERT_EQ(OverlayVertices(turn(first), turn(second), TOLERANCE, &turned),
                  OverlayVertices(first, second, TOLERANCE, &upright));
        // A rounding of 1e-15 of the place along rings of some 40, in units of the raster.
        const double square = scale * scale;
        EXPECT_NEAR(AreaOf(turned.neither) / square, AreaOf(upright.neither), 1e-11);
        EXPECT_NEAR(AreaOf(turned.onlySecond) / square, AreaOf(upright.onlySecond), 1e-11);
        EXPECT_NEAR(AreaOf(turned.onlyFirst) / square, AreaOf(upright.onlyFirst), 1e-11);
        EXPECT_NEAR(AreaOf(turned.both) / square, AreaOf(upright.both), 1e-11);
    }
}

// Copies with deviations from less than a rounding error up to a millionth of a pixel, and with additional
// vertices on the edges: rounding decides where edges cross, but nearly all of the area is common.
TEST(OverlayVertices, AnInexactCopyCoversNearlyTheSameArea) {
    testing::Random random(10);
    for (int k = 0; k < testing::Samples(8000); ++k) {
        SCOPED_TRACE(k);
        const double offset = k % 2 == 0 ? 0.0 : 1e5;
        const Ring star = testing::RandomStar(random, 3 + random.Below(20), {offset, offset}, 100);
        const double error = std::pow(10.0, random.Between(-16, -6));
        const auto near = [&](double value) { return value + random.Between(-error, error); };
        Ring copy;
        for (std::size_t i = 0; i < star.size(); ++i) {
            const PlanePoint& a = star[i];
            const PlanePoint& b = star[(i + 1) % star.size()];
            const double t = random.Between(0, 1);
            copy.push_back({near(a.x), near(a.y)});
            if (k % 3 == 0) copy.push_back({near(a.x + t * (b.x - a.x)), near(a.y + t * (b.y - a.y))});
        }
        OverlayParts parts;
        const std::int32_t result = OverlayVertices(star, StartingAt(1, copy), TOLERANCE, &parts);
        ASSERT_TRUE(result >= OVERLAY_EQUAL && result <= OVERLAY_CROSSING) << result;
        // 1e-6 pixels along a ring of at most 22 edges of 200.
        if (result == OVERLAY_CROSSING) {
            EXPECT_NEAR(AreaOf(parts.both), testing::Area(star), 0.005);
        }
    }
}

TEST(OverlayVertices, PartsAreClosedAndRunThroughTheIntersections) {
    OverlayParts parts;
    ASSERT_EQ(OverlayVertices(SQUARE, Rectangle(2, 2, 6, 6), TOLERANCE, &parts), OVERLAY_CROSSING);
    ASSERT_EQ(parts.onlyFirst.size(), 1u);
    Ring corner = parts.onlyFirst[0];
    ASSERT_EQ(corner.size(), 7u);
    EXPECT_EQ(corner.front(), corner.back());
    corner.pop_back();
    const auto start = std::find(corner.begin(), corner.end(), PlanePoint{0, 0});
    ASSERT_NE(start, corner.end());
    std::rotate(corner.begin(), start, corner.end());
    EXPECT_EQ(corner, (Ring{{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}}));
}

TEST(OverlayVertices, APartThatEnclosesNothingKeepsItsWholeRing) {
    const Example& enclosing = EXAMPLES[EXAMPLES.size() - 2];
    OverlayParts parts;
    ASSERT_EQ(OverlayVertices(enclosing.first, enclosing.second, TOLERANCE, &parts), OVERLAY_CROSSING);
    // Each arm of the first C loses the corner (6, 0) or (6, 6) to the common rectangle and gets its three
    // other corners: 8 - 2 + 6. Each arm of the second loses both corners of its tip at x = 5 and gets two at
    // x = 6: 8 - 4 + 4.
    EXPECT_EQ(parts.onlyFirst[0].size(), 12u + 1);
    EXPECT_EQ(parts.onlySecond[0].size(), 8u + 1);
}

TEST(OverlayVertices, AnEmptyPolygonIsApartFromEverything) {
    OverlayParts parts;
    EXPECT_EQ(OverlayVertices({}, SQUARE, TOLERANCE, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices(SQUARE, {}, TOLERANCE, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices({}, {}, TOLERANCE, &parts), OVERLAY_APART);
    ExpectNoParts(parts);
}

TEST(OverlayVertices, PointsAndLinesHaveNoAreaToShare) {
    OverlayParts parts;
    const Ring crossing{{2, 2}, {9, 9}};
    const Ring along{{0, 1}, {0, 3}};
    for (const Ring& thin : {crossing, along, Closed(along), Ring{{0, 1}}, Ring{{4, 4}, {4, 4}}}) {
        EXPECT_EQ(OverlayVertices(thin, SQUARE, TOLERANCE, &parts), OVERLAY_APART);
        EXPECT_EQ(OverlayVertices(SQUARE, thin, TOLERANCE, &parts), OVERLAY_APART);
        EXPECT_EQ(OverlayVertices(thin, thin, TOLERANCE, &parts), OVERLAY_APART);
        ExpectNoParts(parts);
    }
    EXPECT_EQ(OverlayVertices({{1, 1}, {3, 3}}, SQUARE, TOLERANCE, &parts), OVERLAY_FIRST_INSIDE);
    EXPECT_EQ(OverlayVertices(SQUARE, {{2, 2}}, TOLERANCE, &parts), OVERLAY_SECOND_INSIDE);
}

TEST(OverlayVertices, DeadEndsAndRepeatedVerticesLeaveNoTrace) {
    const Ring flag{{0, 0}, {0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 9}, {2, 4}, {0, 4}, {0, 4}};
    OverlayParts parts;
    EXPECT_EQ(OverlayVertices(flag, SQUARE, TOLERANCE, &parts), OVERLAY_EQUAL);
    ASSERT_EQ(OverlayVertices(flag, Rectangle(2, 2, 6, 8), TOLERANCE, &parts), OVERLAY_CROSSING);
    ExpectAreas(parts.onlyFirst, {12});
    ExpectAreas(parts.both, {4});
    ExpectAreas(parts.onlySecond, {20});
}

TEST(OverlayVertices, AKeyholeLetsTheSecondThroughItsHole) {
    const Ring keyhole{{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 4}, {2, 4},
                       {2, 6}, {6, 6}, {6, 2}, {2, 2}, {2, 4}, {0, 4}};
    OverlayParts parts;
    EXPECT_EQ(OverlayVertices(keyhole, Rectangle(2, 2, 6, 6), TOLERANCE, &parts), OVERLAY_TOUCHING);
    ASSERT_EQ(OverlayVertices(keyhole, Rectangle(4, 4, 10, 5), TOLERANCE, &parts), OVERLAY_CROSSING);
    // Square units, some roundings of their sum.
    EXPECT_NEAR(AreaOf(parts.both), 2, 1e-12);
    EXPECT_NEAR(AreaOf(parts.onlySecond), 4, 1e-12);
    EXPECT_NEAR(AreaOf(parts.neither), 14, 1e-12);
    EXPECT_NEAR(AreaOf(parts.onlyFirst), 46, 1e-12);
}

// Whether rings cross and into which parts they cut each other depends on the rings alone.
TEST(OverlayVertices, TheToleranceMovesNoVertex) {
    const Ring nearly = Rectangle(0.01, -0.01, 4.01, 3.99);
    for (const double tolerance : {0.0, TOLERANCE, 0.1, 100.0, INF}) {
        OverlayParts parts;
        EXPECT_EQ(OverlayVertices(SQUARE, Rectangle(4, 1, 6, 3), tolerance, &parts), OVERLAY_TOUCHING);
        EXPECT_EQ(OverlayVertices(SQUARE, SQUARE, tolerance, &parts), OVERLAY_EQUAL);
        ASSERT_EQ(OverlayVertices(SQUARE, nearly, tolerance, &parts), OVERLAY_CROSSING);
        ExpectAreas(parts.both, {3.99 * 3.99});
        ExpectAreas(parts.onlyFirst, {16 - 3.99 * 3.99});
        ExpectAreas(parts.onlySecond, {16 - 3.99 * 3.99});
    }
}

TEST(OverlayVertices, APolygonWithinTheToleranceOfAnotherIsInsideByItsFirstVertex) {
    // (2.2, 2.2) is 0.4 / 1.414 = 0.28 beyond the diamond's edge on x + y = 4.
    const Ring diamond{{0, -4}, {4, 0}, {0, 4}, {-4, 0}};
    const Ring beside = Rectangle(2.2, 2.2, 3, 3);
    OverlayParts parts;
    EXPECT_EQ(OverlayVertices(beside, diamond, 0.3, &parts), OVERLAY_FIRST_INSIDE);
    EXPECT_EQ(OverlayVertices(diamond, beside, 0.3, &parts), OVERLAY_SECOND_INSIDE);
    EXPECT_EQ(OverlayVertices(beside, diamond, 0.2, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices(StartingAt(2, beside), diamond, 0.3, &parts), OVERLAY_APART);
    ExpectNoParts(parts);

    // Its left side is 0.01 beside the square's right one, 4.01 from the square's first vertex.
    const Ring right = Rectangle(4.01, 1, 6, 3);
    EXPECT_EQ(OverlayVertices(SQUARE, right, TOLERANCE, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices(SQUARE, right, 0.01 - 1e-9, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices(SQUARE, right, 0.1, &parts), OVERLAY_SECOND_INSIDE);
    EXPECT_EQ(OverlayVertices(SQUARE, right, 5, &parts), OVERLAY_FIRST_INSIDE);
    EXPECT_EQ(OverlayVertices(SQUARE, right, INF, &parts), OVERLAY_FIRST_INSIDE);
}

TEST(OverlayVertices, ARoundingIsNoDistanceWhateverTheTolerance) {
    OverlayParts parts;
    const double offset = 1e9 / 3;
    const Ring square = Rectangle(offset, offset, offset + 4, offset + 4);
    const Ring moved =
        Rectangle(std::nextafter(offset, 0), offset, std::nextafter(offset + 4, 0), offset + 4);
    EXPECT_EQ(OverlayVertices(square, moved, 0.0, &parts), OVERLAY_EQUAL);
}

TEST(OverlayVertices, NumbersWithoutProductsFail) {
    for (const double bad : {NONE, INF, -INF, 1.1e150, -1e300}) {
        for (std::size_t vertex = 0; vertex < SQUARE.size(); ++vertex) {
            for (const bool isX : {true, false}) {
                Ring broken = SQUARE;
                (isX ? broken[vertex].x : broken[vertex].y) = bad;
                OverlayParts parts{{SQUARE}, {SQUARE}, {SQUARE}, {SQUARE}};
                EXPECT_EQ(OverlayVertices(broken, SQUARE, TOLERANCE, &parts), OVERLAY_FAILURE);
                EXPECT_EQ(OverlayVertices(SQUARE, broken, TOLERANCE, &parts), OVERLAY_FAILURE);
                ExpectNoParts(parts);
            }
        }
    }
}

TEST(OverlayVertices, HugeAndTinyPolygonsAreOverlaid) {
    for (const double unit : {1e-6, 1e12, 1e100, 1e149}) {
        OverlayParts parts;
        const auto scaled = [&](Ring ring) {
            for (PlanePoint& p : ring)
                p = {p.x * unit, p.y * unit};
            return ring;
        };
        ASSERT_EQ(OverlayVertices(scaled(SQUARE), scaled(Rectangle(2, 2, 6, 6)), TOLERANCE, &parts),
                  OVERLAY_CROSSING);
        // Square units: intersections closer together than the tolerance, 2e-11, are one.
        EXPECT_NEAR(AreaOf(parts.both) / unit / unit, 4, 1e-9);
    }
}

TEST(OverlayVertices, EndsForEveryTangle) {
    testing::Random random(8);
    for (int k = 0; k < 300; ++k) {
        Ring rings[2];
        for (Ring& ring : rings) {
            ring.resize(static_cast<std::size_t>(1 + random.Below(40)));
            for (PlanePoint& p : ring)
                p = {static_cast<double>(random.Below(7)), static_cast<double>(random.Below(7))};
        }
        OverlayParts parts;
        const std::int32_t result = OverlayVertices(rings[0], rings[1], TOLERANCE, &parts);
        EXPECT_GE(result, OVERLAY_APART);
        EXPECT_LE(result, OVERLAY_TOUCHING);
        // Parts lie side by side within the 6 by 6 field.
        const double all =
            AreaOf(parts.neither) + AreaOf(parts.onlySecond) + AreaOf(parts.onlyFirst) + AreaOf(parts.both);
        EXPECT_LE(all, 36 + 1e-9);
        for (const auto* list : {&parts.neither, &parts.onlySecond, &parts.onlyFirst, &parts.both}) {
            for (const Ring& part : *list) {
                EXPECT_GE(part.size(), 4u);
                EXPECT_EQ(part.front(), part.back());
                EXPECT_GT(SignedArea(part), 0.0);
            }
        }
    }
}

// By the even-odd rule an odd number of rounds is one round, and an even number covers nothing.
TEST(OverlayVertices, ThousandsOfEdgesOnTopOfEachOtherCount) {
    const Ring pentagram{{0, 0}, {10, 3}, {4, 9}, {8, -2}, {1, 7}};
    const auto rounds = [&](int count) {
        Ring ring;
        for (int i = 0; i < count; ++i)
            ring.insert(ring.end(), pentagram.begin(), pentagram.end());
        return ring;
    };
    OverlayParts parts;
    EXPECT_EQ(OverlayVertices(rounds(2001), pentagram, TOLERANCE, &parts), OVERLAY_EQUAL);
    EXPECT_EQ(OverlayVertices(rounds(2001), Reversed(rounds(1001)), TOLERANCE, &parts), OVERLAY_EQUAL);
    EXPECT_EQ(OverlayVertices(rounds(2000), pentagram, TOLERANCE, &parts), OVERLAY_APART);
    EXPECT_EQ(OverlayVertices(rounds(2000), rounds(2000), TOLERANCE, &parts), OVERLAY_APART);
}

TEST(OverlayVertices, RingsOnOneLineHaveNoAreaToShare) {
    testing::Random random(14);
    for (const double slope : {0.0, 0.5, 1.0 / 3.0}) {
        Ring rings[2];
        for (Ring& ring : rings) {
            ring.resize(300);
            for (PlanePoint& p : ring) {
                const double x = random.Between(0, 1000);
                p = {x, slope * x};
            }
        }
        OverlayParts parts;
        EXPECT_EQ(OverlayVertices(rings[0], rings[1], TOLERANCE, &parts), OVERLAY_APART);
        ExpectNoParts(parts);
    }
}

TEST(OverlayVertices, EndsForRandomBits) {
    testing::Random random(15);
    const auto bits = [&] {
        std::uint64_t word = 0;
        for (int i = 0; i < 4; ++i)
            word = word << 16 | static_cast<std::uint64_t>(random.Below(0x10000));
        return std::bit_cast<double>(word);
    };
    const auto isUsable = [](double value) { return std::fabs(value) <= 1e150; };
    for (int k = 0; k < 300; ++k) {
        const bool areAllUsable = k % 2 == 0;
        bool isEachUsable = true;
        const auto coordinate = [&] {
            double value = bits();
            while (areAllUsable && !isUsable(value))
                value = bits();
            isEachUsable &= isUsable(value);
            return value;
        };
        Ring rings[2];
        for (Ring& ring : rings) {
            ring.resize(static_cast<std::size_t>(1 + random.Below(20)));
            for (PlanePoint& p : ring)
                p = {coordinate(), coordinate()};
        }
        OverlayParts parts;
        const std::int32_t result = OverlayVertices(rings[0], rings[1], TOLERANCE, &parts);
        EXPECT_EQ(result != OVERLAY_FAILURE, isEachUsable) << k;
    }
}

}  // namespace
}  // namespace tessara::polygon_overlay_test
