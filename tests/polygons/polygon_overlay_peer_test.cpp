// Overlays of random pairs of polygons, compared with GEOS.
#include <geos_c.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "polygons/polygon_overlay.h"
#include "support/rings.h"
#include "tessara/coordinate_area.h"

namespace tessara {
namespace {

using testing::Area;
using testing::AreaOf;
using testing::Closed;
using testing::Random;

constexpr double TOLERANCE = 2.220446049250313e-11;

class Peer {
  public:
    using Shape = std::shared_ptr<GEOSGeometry>;

    Peer() : context_(GEOS_init_r()) {}
    ~Peer() { GEOS_finish_r(context_); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    Shape Polygon(const Ring& open) {
        const Ring ring = Closed(open);
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context_, static_cast<unsigned>(ring.size()), 2);
        for (std::size_t i = 0; i < ring.size(); ++i)
            GEOSCoordSeq_setXY_r(context_, sequence, static_cast<unsigned>(i), ring[i].x, ring[i].y);
        return Own(
            GEOSGeom_createPolygon_r(context_, GEOSGeom_createLinearRing_r(context_, sequence), nullptr, 0));
    }
    Shape Border(const Shape& a) { return Own(GEOSBoundary_r(context_, a.get())); }
    Shape Common(const Shape& a, const Shape& b) {
        return Own(GEOSIntersection_r(context_, a.get(), b.get()));
    }
    Shape Difference(const Shape& a, const Shape& b) {
        return Own(GEOSDifference_r(context_, a.get(), b.get()));
    }
    // The faces into which the edges of both cut the plane.
    Shape Faces(const Shape& a, const Shape& b) {
        const Shape borders[] = {Border(a), Border(b)};
        const Shape pieces = Own(GEOSUnion_r(context_, borders[0].get(), borders[1].get()));
        const GEOSGeometry* lines[] = {pieces.get()};
        return Own(GEOSPolygonize_r(context_, lines, 1));
    }
    int CountOf(const Shape& a) { return GEOSGetNumGeometries_r(context_, a.get()); }
    // A part of a collection, which keeps it.
    Shape PartOf(const Shape& a, int index) {
        return {a, const_cast<GEOSGeometry*>(GEOSGetGeometryN_r(context_, a.get(), index))};
    }
    Shape PointWithin(const Shape& a) { return Own(GEOSPointOnSurface_r(context_, a.get())); }
    // By the even-odd rule, if the polygon crosses itself.
    bool Contains(const Shape& polygon, const Shape& point) {
        return GEOSContains_r(context_, polygon.get(), point.get()) == 1;
    }
    double AreaOf(const Shape& a) {
        double area = -1.0;
        EXPECT_EQ(GEOSArea_r(context_, a.get(), &area), 1);
        return area;
    }
    double LengthOf(const Shape& a) {
        double length = -1.0;
        EXPECT_EQ(GEOSLength_r(context_, a.get(), &length), 1);
        return length;
    }
    bool IsSimple(const Shape& a) { return GEOSisValid_r(context_, a.get()) == 1; }

  private:
    Shape Own(GEOSGeometry* geometry) {
        EXPECT_NE(geometry, nullptr);
        return {geometry, [context = context_](GEOSGeometry* last) { GEOSGeom_destroy_r(context, last); }};
    }

    GEOSContextHandle_t context_;
};

// The areas that GEOS finds, and the relation that follows from them.
struct PeerOverlay {
    double both, onlyFirst, onlySecond;
    std::int32_t result;
};

PeerOverlay OverlayByPeer(Peer& peer, const Ring& first, const Ring& second) {
    const Peer::Shape a = peer.Polygon(first);
    const Peer::Shape b = peer.Polygon(second);
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

void Check(Peer& peer, const Pair& pair, Tally* tally) {
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
    Peer peer;
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
    Peer peer;
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
    Peer peer;
    Random random(13);
    for (int k = 0; k < 20; ++k) {
        SCOPED_TRACE(k);
        Ring rings[2];
        for (Ring& ring : rings) {
            ring.resize(static_cast<std::size_t>(20 + random.Below(60)));
            for (PlanePoint& p : ring)
                p = {random.Between(0, 1000), random.Between(0, 1000)};
        }
        OverlayParts parts;
        ASSERT_EQ(OverlayVertices(rings[0], rings[1], TOLERANCE, &parts), OVERLAY_CROSSING);

        const Peer::Shape first = peer.Polygon(rings[0]);
        const Peer::Shape second = peer.Polygon(rings[1]);
        const Peer::Shape faces = peer.Faces(first, second);
        std::array<std::array<std::size_t, 2>, 2> counts{};
        std::array<std::array<double, 2>, 2> areas{};
        for (int i = 0; i < peer.CountOf(faces); ++i) {
            const Peer::Shape face = peer.PartOf(faces, i);
            const Peer::Shape within = peer.PointWithin(face);
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
}  // namespace tessara
