// Overlays of random polygons beside GEOS.
#include <cmath>

#include "differential/check.h"
#include "polygons/polygon_overlay.h"
#include "support/geos_peer.h"
#include "support/rings.h"
#include "tessara/coordinate_area.h"

namespace tessara::differential {
namespace {

using testing::AreaOf;
using testing::GeosPeer;

constexpr double SNAP_TOLERANCE = 2.220446049250313e-11;

Ring Star(Random& random) {
    const PlanePoint centre{random.Between(-60, 60), random.Between(-60, 60)};
    return testing::RandomStar(random, 3 + random.Below(60), centre, random.Between(5, 120));
}

// The areas of the parts of two stars.
Outcome PartsOfStars(Random& random, std::size_t cases) {
    GeosPeer peer;
    Outcome outcome;
    for (std::size_t i = 0; i < cases; ++i) {
        const Ring first = Star(random), second = Star(random);
        OverlayParts parts;
        if (OverlayVertices(first, second, SNAP_TOLERANCE, &parts) != OVERLAY_CROSSING) continue;
        const GeosPeer::Shape a = peer.Polygon(first), b = peer.Polygon(second);
        const double differences[] = {AreaOf(parts.both) - peer.AreaOf(peer.Common(a, b)),
                                      AreaOf(parts.onlyFirst) - peer.AreaOf(peer.Difference(a, b)),
                                      AreaOf(parts.onlySecond) - peer.AreaOf(peer.Difference(b, a))};
        for (const double difference : differences)
            outcome.Note(std::fabs(difference), [&] { return "pair " + std::to_string(i); });
    }
    return outcome;
}

// The number of faces of two rings that cross themselves, and each other, nearly anywhere.
Outcome FacesOfTangles(Random& random, std::size_t cases) {
    GeosPeer peer;
    Outcome outcome;
    for (std::size_t i = 0; i < cases; ++i) {
        const Ring rings[] = {testing::RandomTangle(random, 20 + random.Below(60)),
                              testing::RandomTangle(random, 20 + random.Below(60))};
        OverlayParts parts;
        const bool isDone = OverlayVertices(rings[0], rings[1], SNAP_TOLERANCE, &parts) == OVERLAY_CROSSING;
        const std::size_t ours =
            parts.both.size() + parts.onlyFirst.size() + parts.onlySecond.size() + parts.neither.size();
        const int theirs = peer.CountOf(peer.Faces(peer.Polygon(rings[0]), peer.Polygon(rings[1])));
        outcome.Note(isDone ? std::fabs(static_cast<double>(ours) - theirs) : NAN,
                     [&] { return "pair " + std::to_string(i); });
    }
    return outcome;
}

}  // namespace

void AddOverlays(Checks* checks) {
    checks->push_back({"areas of overlays", "GEOS", "of some 10 000", 1e-8, 20000, PartsOfStars});
    checks->push_back({"faces of tangled rings", "GEOS", "faces", 0.0, 100, FacesOfTangles});
}

}  // namespace tessara::differential
