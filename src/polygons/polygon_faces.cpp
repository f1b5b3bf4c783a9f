// Outside everything is outside both outlines, and whoever crosses a piece of an outline changes sides. So
// what a face is in is told by its neighbours, and no point has to be found inside it.
#include "polygons/polygon_faces.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tessara {
namespace {

constexpr std::size_t FEWEST_OF_FACE = 3;

// The graph as halves of pieces: half 2 k runs along piece k forward, half 2 k + 1 back. A face is the cycle
// of the halves that have it on their left.
class HalfPieces {
  public:
    explicit HalfPieces(const OutlineGraph& graph) : graph_(graph), next_(graph.pieces.size() * 2) {
        const std::vector<std::size_t> around = AroundNodes();
        for (std::size_t begin = 0, end = 0; begin < around.size(); begin = end) {
            ++nodeCount_;
            end = begin + 1;
            while (end < around.size() && Start(around[end]) == Start(around[begin]))
                ++end;
            // Who comes to the node along the twin of a half goes on along the half clockwise of it.
            for (std::size_t k = begin; k < end; ++k)
                next_[Twin(around[k])] = around[k == begin ? end - 1 : k - 1];
        }
    }

    [[nodiscard]] std::size_t Count() const { return next_.size(); }
    // Of nodes with pieces.
    [[nodiscard]] std::size_t NodeCount() const { return nodeCount_; }
    [[nodiscard]] std::size_t Next(std::size_t half) const { return next_[half]; }
    [[nodiscard]] std::size_t Start(std::size_t half) const {
        const GraphPiece& piece = Piece(half);
        return half % 2 == 0 ? piece.from : piece.to;
    }
    [[nodiscard]] const PlanePoint& StartPlace(std::size_t half) const { return graph_.nodes[Start(half)]; }
    [[nodiscard]] const GraphPiece& Piece(std::size_t half) const { return graph_.pieces[half / 2]; }
    static std::size_t Twin(std::size_t half) { return half % 2 == 0 ? half + 1 : half - 1; }

  private:
    // All halves by the node where they start, around it counterclockwise.
    [[nodiscard]] std::vector<std::size_t> AroundNodes() const {
        std::vector<double> directions(Count());
        for (std::size_t half = 0; half < Count(); ++half) {
            const PlanePoint& from = StartPlace(half);
            const PlanePoint& to = StartPlace(Twin(half));
            directions[half] = std::atan2(to.y - from.y, to.x - from.x);
        }
        std::vector<std::size_t> halves(Count());
        std::iota(halves.begin(), halves.end(), std::size_t{0});
        std::sort(halves.begin(), halves.end(), [&](std::size_t a, std::size_t b) {
            return Start(a) != Start(b) ? Start(a) < Start(b) : directions[a] < directions[b];
        });
        return halves;
    }

    const OutlineGraph& graph_;
    std::vector<std::size_t> next_;
    std::size_t nodeCount_ = 0;
};

struct Cycle {
    std::vector<std::size_t> halves;
    double signedArea;
    double length;
    std::array<bool, 2> isIn;
};

// Measures from its first place, to lose no digits far from (0, 0).
Cycle MeasuredCycle(const HalfPieces& graph, std::vector<std::size_t> halves) {
    const PlanePoint origin = graph.StartPlace(halves.front());
    double twice = 0.0;
    double length = 0.0;
    for (const std::size_t half : halves) {
        const PlanePoint& a = graph.StartPlace(half);
        const PlanePoint& b = graph.StartPlace(HalfPieces::Twin(half));
        twice += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
        length += std::hypot(b.x - a.x, b.y - a.y);
    }
    return {std::move(halves), twice / 2.0, length, {}};
}

// All cycles, and of which one each half is a part.
struct Cycles {
    std::vector<Cycle> all;
    std::vector<std::size_t> ofHalf;
};

Cycles CyclesOf(const HalfPieces& graph) {
    const std::size_t none = graph.Count();
    Cycles cycles{{}, std::vector<std::size_t>(graph.Count(), none)};
    for (std::size_t first = 0; first < graph.Count(); ++first) {
        if (cycles.ofHalf[first] != none) continue;
        std::vector<std::size_t> halves;
        for (std::size_t half = first; cycles.ofHalf[half] == none; half = graph.Next(half)) {
            cycles.ofHalf[half] = cycles.all.size();
            halves.push_back(half);
        }
        cycles.all.push_back(MeasuredCycle(graph, std::move(halves)));
    }
    return cycles;
}

// Euler's formula for a graph in one piece.
bool IsPlane(const HalfPieces& graph, const Cycles& cycles) {
    return graph.NodeCount() + cycles.all.size() == graph.Count() / 2 + 2;
}

// From the cycle around the whole graph to each neighbour. That cycle has the graph on its right: the most
// negative area.
void TellSides(const HalfPieces& graph, Cycles* cycles) {
    std::vector<Cycle>& all = cycles->all;
    const auto outermost = std::min_element(
        all.begin(), all.end(), [](const Cycle& a, const Cycle& b) { return a.signedArea < b.signedArea; });
    std::vector<bool> isTold(all.size(), false);
    std::vector<std::size_t> open{static_cast<std::size_t>(outermost - all.begin())};
    isTold[open.front()] = true;
    while (!open.empty()) {
        const Cycle& cycle = all[open.back()];
        open.pop_back();
        for (const std::size_t half : cycle.halves) {
            const std::size_t beyond = cycles->ofHalf[HalfPieces::Twin(half)];
            if (isTold[beyond]) continue;
            isTold[beyond] = true;
            const GraphPiece& piece = graph.Piece(half);
            all[beyond].isIn = {cycle.isIn[0] != piece.Separates(0), cycle.isIn[1] != piece.Separates(1)};
            open.push_back(beyond);
        }
    }
}

// Leaves out each way to a node and straight back, also across the end of the cycle.
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

Outline OutlineOf(const HalfPieces& graph, const Cycle& cycle, const std::vector<PlanePoint>& places) {
    std::vector<std::size_t> nodes;
    for (const std::size_t half : cycle.halves)
        nodes.push_back(graph.Start(half));
    Outline outline;
    for (const std::size_t node : WithoutDeadEnds(nodes))
        outline.push_back(places[node]);
    if (!outline.empty()) outline.push_back(outline.front());
    return outline;
}

}  // namespace

std::optional<std::vector<GraphFace>> FacesOf(const OutlineGraph& graph, double grain) {
    if (graph.pieces.empty()) return std::vector<GraphFace>{};
    const HalfPieces halves(graph);
    Cycles cycles = CyclesOf(halves);
    if (!IsPlane(halves, cycles)) return std::nullopt;
    TellSides(halves, &cycles);

    std::vector<GraphFace> faces;
    for (const Cycle& cycle : cycles.all) {
        if (!(cycle.signedArea > grain * cycle.length)) continue;
        Outline outline = OutlineOf(halves, cycle, graph.nodes);
        if (outline.size() > FEWEST_OF_FACE) faces.push_back({std::move(outline), cycle.isIn});
    }
    return faces;
}

}  // namespace tessara
