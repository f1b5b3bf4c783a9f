#include "polygons/polygon_graph.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>
#include <utility>

#include "numerics/hypotenuse.h"
#include "numerics/rounding.h"
#include "polygons/box_tree.h"
#include "polygons/polygon_pairs.h"

namespace tessara {
namespace {

// The nodes made so far, by their place.
class NodeTable {
  public:
    explicit NodeTable(double snapTolerance) : snapTolerance_(snapTolerance) {}

    // The node at a place: the oldest one within the snap tolerance, or a new one.
    std::size_t At(const PlanePoint& place) {
        std::size_t node = nodes_.size();
        const PlanePoint first = CellOf({place.x - Reach(), place.y - Reach()});
        const PlanePoint last = CellOf({place.x + Reach(), place.y + Reach()});
        for (double x = first.x; x <= last.x; x += 1.0) {
            for (double y = first.y; y <= last.y; y += 1.0)
                node = std::min(node, OldestIn({x, y}, place));
        }
        if (node < nodes_.size()) return node;
        cells_.emplace(CellOf(place), node);
        nodes_.push_back(place);
        return node;
    }

    [[nodiscard]] const std::vector<PlanePoint>& Nodes() const { return nodes_; }

  private:
    // Wide cells: a place rarely has to look into the neighbouring cells. Narrow cells: few nodes share one.
    static constexpr double SNAP_TOLERANCES_IN_CELL = 16.0;

    // Twice the snap tolerance, so that rounding in CellOf can't hide a node that is near.
    [[nodiscard]] double Reach() const { return 2.0 * snapTolerance_; }
    [[nodiscard]] PlanePoint CellOf(const PlanePoint& p) const {
        return {Floor(p.x / snapTolerance_ / SNAP_TOLERANCES_IN_CELL),
                Floor(p.y / snapTolerance_ / SNAP_TOLERANCES_IN_CELL)};
    }
    // The oldest node of a cell within the snap tolerance of a place; the number of nodes if there is none.
    [[nodiscard]] std::size_t OldestIn(const PlanePoint& cell, const PlanePoint& place) const {
        std::size_t oldest = nodes_.size();
        const auto [begin, end] = cells_.equal_range(cell);
        for (auto entry = begin; entry != end; ++entry) {
            if (IsNear(entry->second, place)) oldest = std::min(oldest, entry->second);
        }
        return oldest;
    }
    [[nodiscard]] bool IsNear(std::size_t node, const PlanePoint& p) const {
        return std::fabs(nodes_[node].x - p.x) <= snapTolerance_ &&
               std::fabs(nodes_[node].y - p.y) <= snapTolerance_;
    }

    double snapTolerance_;
    std::vector<PlanePoint> nodes_;
    std::unordered_multimap<PlanePoint, std::size_t, PlaceHash> cells_;
};

// A segment of the rings. One entry stands for all runs along it, in either direction.
struct Segment {
    std::size_t from, to;
    std::array<std::size_t, 2> runs;   // how often each ring runs along it
    std::vector<std::size_t> touched;  // sorted nodes on the segment, its ends included
    std::vector<std::size_t> crossed;  // nodes at intersections with other segments, possibly repeated

    [[nodiscard]] bool Touches(std::size_t node) const {
        return std::binary_search(touched.begin(), touched.end(), node);
    }
};

bool ShareANode(const Segment& a, const Segment& b) {
    const bool isShorter = a.touched.size() <= b.touched.size();
    const Segment& few = isShorter ? a : b;
    const Segment& many = isShorter ? b : a;
    return std::any_of(few.touched.begin(), few.touched.end(),
                       [&](std::size_t node) { return many.Touches(node); });
}

// Decides which nodes lie on the segment from a to b, to the snap tolerance.
class NodesOnSegment {
  public:
    NodesOnSegment(const PlanePoint& a, const PlanePoint& b, double snapTolerance)
        : a_(a),
          b_(b),
          snapTolerance_(snapTolerance),
          box_(BoxOf(a, b)),
          near_{box_.left - SLACK * snapTolerance, box_.top - SLACK * snapTolerance,
                box_.right + SLACK * snapTolerance, box_.bottom + SLACK * snapTolerance},
          dx_(b.x - a.x),
          dy_(b.y - a.y),
          slack_(SLACK * snapTolerance * Hypot(dx_, dy_)) {}

    [[nodiscard]] bool Holds(const PlanePoint& p) const {
        return box_.Holds(p, snapTolerance_) && std::fabs(SignedDistance(p, a_, b_)) <= snapTolerance_;
    }
    // Whether a box may hold such a node: false if the whole box lies on one side of the segment's line.
    [[nodiscard]] bool MayMeet(const Box& box) const {
        if (box.left > near_.right || box.right < near_.left) return false;
        if (box.top > near_.bottom || box.bottom < near_.top) return false;
        const double x = (box.left + box.right) / 2.0;
        const double y = (box.top + box.bottom) / 2.0;
        const double offset = std::fabs(dx_ * (y - a_.y) - dy_ * (x - a_.x));
        return offset <= std::fabs(dx_) * (y - box.top) + std::fabs(dy_) * (x - box.left) + slack_;
    }

  private:
    // The snap tolerance is a few rounding errors of the largest coordinate; the products compared here have
    // a few more.
    static constexpr double SLACK = 4.0;

    PlanePoint a_, b_;
    double snapTolerance_;
    Box box_, near_;
    double dx_, dy_, slack_;
};

// Builds the graph. Vertices that touch a segment are assigned to it before intersections are computed, so
// that the rounding of an intersection never decides whether rings touch.
class GraphMaker {
  public:
    explicit GraphMaker(double snapTolerance) : snapTolerance_(snapTolerance), table_(snapTolerance) {}

    void AddRing(std::size_t ring, const Ring& vertices) {
        const std::size_t first = NodeOf(ring, vertices.front());
        std::size_t last = first;
        for (std::size_t i = 1; i < vertices.size(); ++i)
            last = AddEdge(ring, last, NodeOf(ring, vertices[i]));
        AddEdge(ring, last, first);
    }

    RingGraph Make() {
        PutNodesOnSegments();
        PutIntersectionsOnSegments();
        PutNodesOnSegments();
        return {table_.Nodes(), Edges(), DoRingsTouch()};
    }

  private:
    // Where many segments overlap, their edges are merged before they use up the memory.
    static constexpr std::size_t FEWEST_TO_MERGE = 1 << 20;

    std::size_t NodeOf(std::size_t ring, const PlanePoint& vertex) {
        const std::size_t node = table_.At(vertex);
        vertices_.push_back({node, ring});
        return node;
    }

    std::size_t AddEdge(std::size_t ring, std::size_t from, std::size_t to) {
        if (from == to) return to;
        const std::pair<std::size_t, std::size_t> ends(std::min(from, to), std::max(from, to));
        const auto [found, isNew] = byEnds_.try_emplace(ends, segments_.size());
        if (isNew) segments_.push_back({from, to, {}, {}, {}});
        ++segments_[found->second].runs[ring];
        return to;
    }

    [[nodiscard]] const PlanePoint& Place(std::size_t node) const { return table_.Nodes()[node]; }

    void PutNodesOnSegments() {
        std::vector<Box> places;
        places.reserve(table_.Nodes().size());
        for (const PlanePoint& p : table_.Nodes())
            places.push_back({p.x, p.y, p.x, p.y});
        const BoxTree tree(places);
        for (Segment& segment : segments_) {
            const NodesOnSegment on(Place(segment.from), Place(segment.to), snapTolerance_);
            segment.touched.clear();
            tree.Search([&](const Box& box) { return on.MayMeet(box); },
                        [&](std::size_t node) {
                            if (on.Holds(Place(node))) segment.touched.push_back(node);
                        });
            std::sort(segment.touched.begin(), segment.touched.end());
        }
    }

    void PutIntersectionsOnSegments() {
        std::vector<Box> boxes;
        for (const Segment& segment : segments_)
            boxes.push_back(BoxOfEdge(Place(segment.from), Place(segment.to)));
        VisitNearPairs(boxes, [&](std::size_t i, std::size_t j) { Cross(&segments_[i], &segments_[j]); });
    }

    // Segments that share a node have no other intersection, or they overlap and their ends are nodes
    // already. Near such a case rounding makes the parameters of an intersection meaningless.
    void Cross(Segment* p, Segment* q) {
        // Copies, because the node table grows.
        const PlanePoint a = Place(p->from);
        const PlanePoint b = Place(p->to);
        const PlanePoint c = Place(q->from);
        const PlanePoint d = Place(q->to);
        const double t = LineParameter(a, b, c, d);
        if (!(t >= 0.0 && t <= 1.0)) return;
        const double s = LineParameter(c, d, a, b);
        if (!(s >= 0.0 && s <= 1.0) || ShareANode(*p, *q)) return;
        PlanePoint place{};
        PointOnSegments(a, b, c, d, t, &place);
        const std::size_t node = table_.At(place);
        p->crossed.push_back(node);
        q->crossed.push_back(node);
    }

    // The nodes of a segment in order from its start to its end.
    [[nodiscard]] std::vector<std::size_t> InOrder(const Segment& segment) const {
        const PlanePoint& a = Place(segment.from);
        const PlanePoint& b = Place(segment.to);
        std::vector<std::pair<double, std::size_t>> within;
        for (const std::vector<std::size_t>* nodes : {&segment.touched, &segment.crossed}) {
            for (const std::size_t node : *nodes) {
                if (node == segment.from || node == segment.to) continue;
                const PlanePoint& p = Place(node);
                within.emplace_back((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y), node);
            }
        }
        std::sort(within.begin(), within.end());
        within.erase(std::unique(within.begin(), within.end()), within.end());
        std::vector<std::size_t> inOrder{segment.from};
        for (const auto& [along, node] : within)
            inOrder.push_back(node);
        inOrder.push_back(segment.to);
        return inOrder;
    }

    [[nodiscard]] std::vector<GraphEdge> Edges() const {
        std::vector<GraphEdge> edges;
        std::size_t limit = FEWEST_TO_MERGE;
        for (const Segment& segment : segments_) {
            const std::vector<std::size_t> nodes = InOrder(segment);
            for (std::size_t i = 1; i < nodes.size(); ++i)
                edges.push_back(
                    {std::min(nodes[i - 1], nodes[i]), std::max(nodes[i - 1], nodes[i]), segment.runs});
            if (edges.size() < limit) continue;
            Merge(&edges);
            limit = std::max(FEWEST_TO_MERGE, 2 * edges.size());
        }
        Merge(&edges);
        return edges;
    }

    // Joins entries of the same edge and adds up their runs.
    static void Merge(std::vector<GraphEdge>* edges) {
        std::sort(edges->begin(), edges->end(), [](const GraphEdge& a, const GraphEdge& b) {
            return a.from != b.from ? a.from < b.from : a.to < b.to;
        });
        std::size_t count = 0;
        for (const GraphEdge& edge : *edges) {
            GraphEdge* last = count == 0 ? nullptr : &(*edges)[count - 1];
            const bool isSame = last != nullptr && last->from == edge.from && last->to == edge.to;
            if (!isSame) {
                (*edges)[count++] = edge;
                continue;
            }
            last->runs[0] += edge.runs[0];
            last->runs[1] += edge.runs[1];
        }
        edges->resize(count);
    }

    [[nodiscard]] bool DoRingsTouch() const {
        std::vector<std::array<bool, 2>> isOn(table_.Nodes().size(), {false, false});
        for (const auto& [node, ring] : vertices_)
            isOn[node][ring] = true;
        for (const Segment& segment : segments_) {
            for (const std::vector<std::size_t>* nodes : {&segment.touched, &segment.crossed}) {
                for (const std::size_t node : *nodes) {
                    isOn[node][0] |= segment.runs[0] > 0;
                    isOn[node][1] |= segment.runs[1] > 0;
                }
            }
        }
        return std::any_of(isOn.begin(), isOn.end(), [](const auto& on) { return on[0] && on[1]; });
    }

    struct Vertex {
        std::size_t node, ring;
    };

    double snapTolerance_;
    NodeTable table_;
    std::vector<Vertex> vertices_;
    std::vector<Segment> segments_;
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> byEnds_;  // segment by its ends
};

}  // namespace

RingGraph GraphOf(const Ring& first, const Ring& second, double snapTolerance) {
    GraphMaker maker(snapTolerance);
    maker.AddRing(0, first);
    maker.AddRing(1, second);
    return maker.Make();
}

}  // namespace tessara
