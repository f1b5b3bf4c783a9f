// Overlays of random pairs of polygons, compared with GEOS.
#include <gtest/gtest.h>

#include <array>

#include "polygons/polygon_overlay.h"
#include "support/geos_peer.h"
#include "support/rings.h"
#include "tessara/coordinate_area.h"

namespace tessara::polygon_overlay_peer_test {
namespace {

using testing::Area;
using testing::AreaOf;
using testing::GeosPeer;
using testing::Random;

constexpr double TOLERANCE = 2.220446049250313e-11;

// The areas that GEOS finds, and the relation that follows from them.
struct PeerOverlay {
    double both, onlyFirst, onlySecond;
    std::int32_t result;
};

PeerOverlay OverlayByPeer(GeosPeer& peer, const Ring& first, const Ring& second) {
    const GeosPeer::Shape a = peer.Polygon(first);
    const GeosPeer::Shape b = peer.Polygon(second);
    EXPECT_TRUE(peer.IsSimple(a) && peer.IsSimple(b));
    PeerOverlay found{peer.AreaOf(peer.Common(a, b)), peer.AreaOf(peer.Difference(a, b)),
                      peer.AreaOf(peer.Difference(b, a)), OVERLAY_APART};
    // Rounded intersections may leave a smaller area where the exact one is empty.
    const double nothing = 1e-9 * (Area(first) + Area(second));
    if (found.both <= nothing) {
        const double shared = peer.LengthOf(peer.Common(peer.Border(a), peer.Border(b)));
        if (shared > 0.0) found.result = OVERLAY_TOUCHING;
        return found;
    }
    const bool isFirstInside = found.onlyFirst <= nothing;
    const bool isSecondInside = found.onlySecond <= nothing;
    found.result = OVERLAY_CROSSING;
    if (isFirstInside) found.result = OVERLAY_FIRST_INSIDE;
    if (isSecondInside) found.result = OVERLAY_SECOND_INSIDE;
    if (isFirstInside && isSecondInside) found.result = OVERLAY_EQUAL;
    return found;
}

struct Pair {
    Ring first, second;
};

// Stars of all sizes near each other.
Pair RandomStars(Random& random) {
    const auto star = [&] {
        const PlanePoint centre{random.Between(-60, 60), random.Between(-60, 60)};
        return testing::RandomStar(random, 3 + random.Below(30), centre, random.Between(5, 120));
    };
    return {star(), star()};
}

// Skylines on a raster, whose edges run along each other more often than not; one may hang from the other's
// ground line.
Pair RandomSkylines(Random& random) {
    const auto skyline = [&] {
        return testing::RandomSkyline(random, 1 + random.Below(5), random.Below(5), random.Below(3));
    };
    Pair pair{skyline(), skyline()};
    if (random.Below(3) == 0) {
        for (PlanePoint& p : pair.second)
            p.y = -p.y;
    }
    if (random.Below(10) == 0) pair.second = pair.first;
    return pair;
}

struct Tally {
    std::array<int, 6> results{};
    int parts = 0;
};

void Check(GeosPeer& peer, const Pair& pair, Tally* tally) {
    OverlayParts parts;
    const std::int32_t result = OverlayVertices(pair.first, pair.second, TOLERANCE, &parts);
    const PeerOverlay expected = OverlayByPeer(peer, pair.first, pair.second);
    ASSERT_EQ(result, expected.result);
    ++tally->results[static_cast<std::size_t>(result)];
    if (result != OVERLAY_CROSSING) return;
    const double first = Area(pair.first);
    const double second = Area(pair.second);
    EXPECT_NEAR(AreaOf(parts.both) + AreaOf(parts.onlyFirst), first, 1e-6 * first);
    EXPECT_NEAR(AreaOf(parts.both) + AreaOf(parts.onlySecond), second, 1e-6 * second);
    // Both round their intersections to 1e-13, along rings of a few thousand.
    EXPECT_NEAR(AreaOf(parts.both), expected.both, 1e-9);
    EXPECT_NEAR(AreaOf(parts.onlyFirst), expected.onlyFirst, 1e-9);
    EXPECT_NEAR(AreaOf(parts.onlySecond), expected.onlySecond, 1e-9);
    tally->parts += static_cast<int>(parts.both.size());
}

TEST(OverlayPeer, RandomStarsAreWhatGeosFinds) {
    GeosPeer peer;
    Random random(11);
    Tally tally;
    for (int k = 0; k < 2000; ++k) {
        SCOPED_TRACE(k);
        Check(peer, RandomStars(random), &tally);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(tally.results[OVERLAY_APART], 50);
    EXPECT_GT(tally.results[OVERLAY_FIRST_INSIDE], 20);
    EXPECT_GT(tally.results[OVERLAY_SECOND_INSIDE], 20);
    EXPECT_GT(tally.results[OVERLAY_CROSSING], 1000);
    EXPECT_GT(tally.parts, 1200);
}

TEST(OverlayPeer, RandomSkylinesAreWhatGeosFinds) {
    GeosPeer peer;
    Random random(12);
    Tally tally;
    for (int k = 0; k < 2000; ++k) {
        SCOPED_TRACE(k);
        Check(peer, RandomSkylines(random), &tally);
        if (HasFatalFailure()) return;
    }
    for (const int result : tally.results)
        EXPECT_GT(result, 30);
}

// Vertices anywhere, so that nearly a quarter of all pairs of edges cross.
TEST(OverlayPeer, RandomTanglesFallIntoTheFacesThatGeosFinds) {
    GeosPeer peer;
    Random random(13);
    for (int k = 0; k < 20; ++k) {
        SCOPED_TRACE(k);
        const Ring rings[] = {testing::RandomTangle(random, 20 + random.Below(60)),
                              testing::RandomTangle(random, 20 + random.Below(60))};
        OverlayParts parts;
        ASSERT_EQ(OverlayVertices(rings[0], rings[1], TOLERANCE, &parts), OVERLAY_CROSSING);

        const GeosPeer::Shape first = peer.Polygon(rings[0]);
        const GeosPeer::Shape second = peer.Polygon(rings[1]);
        const GeosPeer::Shape faces = peer.Faces(first, second);
        std::array<std::array<std::size_t, 2>, 2> counts{};
        std::array<std::array<double, 2>, 2> areas{};
        for (int i = 0; i < peer.CountOf(faces); ++i) {
            const GeosPeer::Shape face = peer.PartOf(faces, i);
            const GeosPeer::Shape within = peer.PointWithin(face);
            const std::size_t isInFirst = peer.Contains(first, within) ? 1u : 0u;
            const std::size_t isInSecond = peer.Contains(second, within) ? 1u : 0u;
            ++counts[isInFirst][isInSecond];
            areas[isInFirst][isInSecond] += peer.AreaOf(face);
        }
        const std::vector<Ring>* const lists[2][2] = {{&parts.neither, &parts.onlySecond},
                                                      {&parts.onlyFirst, &parts.both}};
        for (const std::size_t isInFirst : {0u, 1u}) {
            for (const std::size_t isInSecond : {0u, 1u}) {
                const std::vector<Ring>& list = *lists[isInFirst][isInSecond];
                EXPECT_EQ(list.size(), counts[isInFirst][isInSecond]);
                // Intersections are rounded to 1e-13, along edges of 1e5 in all.
                EXPECT_NEAR(AreaOf(list), areas[isInFirst][isInSecond], 1e-7);
            }
        }
    }
}

}  // namespace
}  // namespace tessara::polygon_overlay_peer_test
