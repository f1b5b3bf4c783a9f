#include "polygons/polygon_split.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

#include "polygons/polygon_pairs.h"

namespace tessara {
namespace {

constexpr std::size_t FEWEST_OF_CROSSING = 5;

// A point of an edge at which the walk stops, as a parameter along the edge.
struct Stop {
    double along;
    PlanePoint place;
};

// The edges of a tidied ring, with the stops found on them.
class Edges {
  public:
    explicit Edges(const Ring& ring) : ring_(ring), stops_(ring.size() - 1) {}

    // Finds the stops on two edges that aren't neighbours.
    void Meet(std::size_t i, std::size_t j) {
        const double t = LineParameter(From(i), To(i), From(j), To(j));
        if (t == COLLINEAR_LINES) return MeetAlong(i, j);
        if (!IsOn(t)) return;
        const double s = LineParameter(From(j), To(j), From(i), To(i));
        if (!IsOn(s) || (t == 0.0 && s == 0.0)) return;
        PlanePoint place{};
        if (t == 0.0) {
            place = From(i);
        } else if (s == 0.0) {
            place = From(j);
        } else {
            PointOnSegments(From(i), To(i), From(j), To(j), t, &place);
        }
        Add(i, {t, place});
        Add(j, {s, place});
    }

    // The ring through all stops, in order.
    Ring Walk() {
        Ring walk{ring_.front()};
        for (std::size_t i = 0; i < stops_.size(); ++i) {
            std::stable_sort(stops_[i].begin(), stops_[i].end(),
                             [](const Stop& a, const Stop& b) { return a.along < b.along; });
            for (const Stop& stop : stops_[i])
                Append(stop.place, &walk);
            Append(To(i), &walk);
        }
        return walk;
    }

  private:
    // The end of an edge is the start of the next edge, which has the stop.
    static bool IsOn(double parameter) { return parameter >= 0.0 && parameter < 1.0; }

    static void Append(const PlanePoint& place, Ring* walk) {
        if (place != walk->back()) walk->push_back(place);
    }

    // Collinear edges: where either one starts within the other there is a stop. Their ends need none of
    // their own, because another edge starts there.
    void MeetAlong(std::size_t i, std::size_t j) {
        StopWithin(j, From(i));
        StopWithin(i, From(j));
    }

    void StopWithin(std::size_t edge, const PlanePoint& place) {
        const double along = ParameterOnSegment(place, From(edge), To(edge));
        if (along > 0.0 && along < 1.0) Add(edge, {along, place});
    }

    void Add(std::size_t edge, const Stop& stop) {
        if (stop.place != From(edge) && stop.place != To(edge)) stops_[edge].push_back(stop);
    }

    [[nodiscard]] const PlanePoint& From(std::size_t edge) const { return ring_[edge]; }
    [[nodiscard]] const PlanePoint& To(std::size_t edge) const { return ring_[edge + 1]; }

    const Ring& ring_;
    std::vector<std::vector<Stop>> stops_;
};

bool AreNeighbours(std::size_t i, std::size_t j, std::size_t edgeCount) {
    return j - i == 1 || (i == 0 && j == edgeCount - 1);
}

Ring WithAllStops(const Ring& ring) {
    Edges edges(ring);
    VisitNearPairs(BoxesOfEdges(ring), [&](std::size_t i, std::size_t j) {
        if (!AreNeighbours(i, j, ring.size() - 1)) edges.Meet(i, j);
    });
    return edges.Walk();
}

// Walks along a ring and cuts off each loop when it closes.
class LoopCutter {
  public:
    void Visit(const PlanePoint& place) {
        const auto found = positions_.find(place);
        if (found != positions_.end()) {
            CutFrom(found->second);
        }
        positions_.emplace(place, path_.size());
        path_.push_back(place);
    }

    // The remaining vertices close at the start of the ring.
    std::vector<Ring> Finish() {
        CutFrom(0);
        return std::move(parts_);
    }

  private:
    void CutFrom(std::size_t start) {
        const auto first = path_.begin() + static_cast<std::ptrdiff_t>(start);
        Ring loop(first, path_.end());
        path_.erase(first, path_.end());
        for (const PlanePoint& place : loop)
            positions_.erase(place);
        loop.push_back(loop.front());
        parts_.push_back(std::move(loop));
    }

    Ring path_;
    std::unordered_map<PlanePoint, std::size_t, PlaceHash> positions_;
    std::vector<Ring> parts_;
};

std::vector<Ring> CutLoops(const Ring& walk) {
    LoopCutter cutter;
    for (std::size_t i = 0; i + 1 < walk.size(); ++i)
        cutter.Visit(walk[i]);
    return cutter.Finish();
}

}  // namespace

std::vector<Ring> SplitVertices(const Ring& polygon) {
    Ring ring = Tidied(polygon);
    if (ring.empty()) return {};
    if (ring.size() < FEWEST_OF_CROSSING) return {std::move(ring)};
    return CutLoops(WithAllStops(ring));
}

}  // namespace tessara
