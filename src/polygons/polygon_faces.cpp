// Labels spread from the unbounded face, which is outside both rings: crossing an edge toggles each ring
// that runs along it an odd number of times. So no point has to be found inside a face.
#include "polygons/polygon_faces.h"

#include <algorithm>
#include <numeric>

#include "numerics/arcs.h"
#include "numerics/hypotenuse.h"

namespace tessara {
namespace {

constexpr std::size_t FEWEST_OF_FACE = 3;

// The graph as half-edges: half-edge 2 k runs along edge k forward, half-edge 2 k + 1 back. A face is
// the cycle of the half-edges that have it on their left.
class HalfEdges {
  public:
    explicit HalfEdges(const RingGraph& graph) : graph_(graph), next_(graph.edges.size() * 2) {
        const std::vector<std::size_t> around = AroundNodes();
        for (std::size_t begin = 0, end = 0; begin < around.size(); begin = end) {
            ++nodeCount_;
            while (end < around.size() && Start(around[end]) == Start(around[begin]))
                ++end;
            // A walk with the face on its left leaves a node along the next half-edge clockwise from the
            // twin of the one it arrived on.
            for (std::size_t k = begin; k < end; ++k)
                next_[Twin(around[k])] = around[k == begin ? end - 1 : k - 1];
        }
    }

    [[nodiscard]] std::size_t Count() const { return next_.size(); }
    // The number of nodes at which edges end.
    [[nodiscard]] std::size_t NodeCount() const { return nodeCount_; }
    [[nodiscard]] std::size_t Next(std::size_t halfEdge) const { return next_[halfEdge]; }
    [[nodiscard]] std::size_t Start(std::size_t halfEdge) const {
        const GraphEdge& edge = EdgeOf(halfEdge);
        return halfEdge % 2 == 0 ? edge.from : edge.to;
    }
    [[nodiscard]] const PlanePoint& StartPlace(std::size_t halfEdge) const {
        return graph_.nodes[Start(halfEdge)];
    }
    [[nodiscard]] const GraphEdge& EdgeOf(std::size_t halfEdge) const { return graph_.edges[halfEdge / 2]; }
    static std::size_t Twin(std::size_t halfEdge) { return halfEdge % 2 == 0 ? halfEdge + 1 : halfEdge - 1; }

  private:
    // All half-edges, sorted by the node where they start and then counterclockwise around it.
    [[nodiscard]] std::vector<std::size_t> AroundNodes() const {
        std::vector<double> directions(Count());
        for (std::size_t halfEdge = 0; halfEdge < Count(); ++halfEdge) {
            const PlanePoint& from = StartPlace(halfEdge);
            const PlanePoint& to = StartPlace(Twin(halfEdge));
            directions[halfEdge] = Atan2(to.y - from.y, to.x - from.x);
        }
        std::vector<std::size_t> halfEdges(Count());
        std::iota(halfEdges.begin(), halfEdges.end(), std::size_t{0});
        std::sort(halfEdges.begin(), halfEdges.end(), [&](std::size_t a, std::size_t b) {
            return Start(a) != Start(b) ? Start(a) < Start(b) : directions[a] < directions[b];
        });
        return halfEdges;
    }

    const RingGraph& graph_;
    std::vector<std::size_t> next_;
    std::size_t nodeCount_ = 0;
};

struct Cycle {
    std::vector<std::size_t> halfEdges;
    double signedArea;
    double length;
    std::array<bool, 2> isIn;
};

// Measures relative to the first node of the cycle, so that far from (0, 0) no digits are lost.
Cycle MeasuredCycle(const HalfEdges& graph, std::vector<std::size_t> halfEdges) {
    const PlanePoint origin = graph.StartPlace(halfEdges.front());
    double twice = 0.0;
    double length = 0.0;
    for (const std::size_t halfEdge : halfEdges) {
        const PlanePoint& a = graph.StartPlace(halfEdge);
        const PlanePoint& b = graph.StartPlace(HalfEdges::Twin(halfEdge));
        twice += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
        length += Hypot(b.x - a.x, b.y - a.y);
    }
    return {std::move(halfEdges), twice / 2.0, length, {}};
}

// All cycles, and for each half-edge the cycle that it belongs to.
struct Cycles {
    std::vector<Cycle> all;
    std::vector<std::size_t> ofHalfEdge;
};

Cycles CyclesOf(const HalfEdges& graph) {
    const std::size_t none = graph.Count();
    Cycles cycles{{}, std::vector<std::size_t>(graph.Count(), none)};
    for (std::size_t first = 0; first < graph.Count(); ++first) {
        if (cycles.ofHalfEdge[first] != none) continue;
        std::vector<std::size_t> halfEdges;
        for (std::size_t halfEdge = first; cycles.ofHalfEdge[halfEdge] == none;
             halfEdge = graph.Next(halfEdge)) {
            cycles.ofHalfEdge[halfEdge] = cycles.all.size();
            halfEdges.push_back(halfEdge);
        }
        cycles.all.push_back(MeasuredCycle(graph, std::move(halfEdges)));
    }
    return cycles;
}

// Euler's formula for a connected graph.
bool IsPlane(const HalfEdges& graph, const Cycles& cycles) {
    return graph.NodeCount() + cycles.all.size() == graph.Count() / 2 + 2;
}

// Labels each cycle as inside or outside of both rings, from the outer boundary of the graph inward. The
// outer boundary is the cycle with the most negative area, since it has the graph on its right.
void TellSides(const HalfEdges& graph, Cycles* cycles) {
    std::vector<Cycle>& all = cycles->all;
    const auto outermost = std::min_element(
        all.begin(), all.end(), [](const Cycle& a, const Cycle& b) { return a.signedArea < b.signedArea; });
    std::vector<bool> isTold(all.size(), false);
    std::vector<std::size_t> open{static_cast<std::size_t>(outermost - all.begin())};
    isTold[open.front()] = true;
    while (!open.empty()) {
        const Cycle& cycle = all[open.back()];
        open.pop_back();
        for (const std::size_t halfEdge : cycle.halfEdges) {
            const std::size_t beyond = cycles->ofHalfEdge[HalfEdges::Twin(halfEdge)];
            if (isTold[beyond]) continue;
            isTold[beyond] = true;
            const GraphEdge& edge = graph.EdgeOf(halfEdge);
            all[beyond].isIn = {cycle.isIn[0] != edge.Separates(0), cycle.isIn[1] != edge.Separates(1)};
            open.push_back(beyond);
        }
    }
}

// Removes each way to a node and straight back, also across the end of the cycle.
std::vector<std::size_t> WithoutDeadEnds(const std::vector<std::size_t>& nodes) {
    std::vector<std::size_t> kept;
    for (const std::size_t node : nodes) {
        if (kept.size() >= 2 && kept[kept.size() - 2] == node) {
            kept.pop_back();
        } else {
            kept.push_back(node);
        }
    }
    std::size_t begin = 0;
    while (kept.size() - begin >= FEWEST_OF_FACE) {
        if (kept[kept.size() - 2] == kept[begin]) {
            kept.resize(kept.size() - 2);
        } else if (kept.back() == kept[begin + 1]) {
            kept.pop_back();
            ++begin;
        } else {
            break;
        }
    }
    kept.erase(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(begin));
    return kept;
}

Ring RingOf(const HalfEdges& graph, const Cycle& cycle, const std::vector<PlanePoint>& places) {
    std::vector<std::size_t> nodes;
    for (const std::size_t halfEdge : cycle.halfEdges)
        nodes.push_back(graph.Start(halfEdge));
    Ring ring;
    for (const std::size_t node : WithoutDeadEnds(nodes))
        ring.push_back(places[node]);
    if (!ring.empty()) ring.push_back(ring.front());
    return ring;
}

}  // namespace

std::optional<std::vector<GraphFace>> FacesOf(const RingGraph& graph, double snapTolerance) {
    if (graph.edges.empty()) return std::vector<GraphFace>{};
    const HalfEdges halfEdges(graph);
    Cycles cycles = CyclesOf(halfEdges);
    if (!IsPlane(halfEdges, cycles)) return std::nullopt;
    TellSides(halfEdges, &cycles);

    std::vector<GraphFace> faces;
    for (const Cycle& cycle : cycles.all) {
        if (!(cycle.signedArea > snapTolerance * cycle.length)) continue;
        Ring ring = RingOf(halfEdges, cycle, graph.nodes);
        if (ring.size() > FEWEST_OF_FACE) faces.push_back({std::move(ring), cycle.isIn});
    }
    return faces;
}

}  // namespace tessara
