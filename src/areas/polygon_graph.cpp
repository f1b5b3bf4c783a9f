#include "areas/polygon_graph.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "areas/polygon_pairs.h"

namespace tessara {
namespace {

// The nodes so far, found by place.
class NodeTable {
  public:
    explicit NodeTable(double grain) : grain_(grain) {}

    // The node at a place: one within the grain, or a new one.
    std::size_t At(const PlanePoint& place) {
        const PlanePoint home = CellOf(place);
        for (const double x : {home.x - 1.0, home.x, home.x + 1.0}) {
            for (const double y : {home.y - 1.0, home.y, home.y + 1.0}) {
                const auto [begin, end] = cells_.equal_range({x, y});
                const auto found =
                    std::find_if(begin, end, [&](const auto& entry) { return IsNear(entry.second, place); });
                if (found != end) return found->second;
            }
        }
        cells_.emplace(home, nodes_.size());
        nodes_.push_back(place);
        return nodes_.size() - 1;
    }

    [[nodiscard]] const std::vector<PlanePoint>& Nodes() const { return nodes_; }

  private:
    // Cells are two grains wide, so that rounding can't put near places two cells apart.
    [[nodiscard]] PlanePoint CellOf(const PlanePoint& p) const {
        return {std::floor(p.x / grain_ / 2.0), std::floor(p.y / grain_ / 2.0)};
    }
    [[nodiscard]] bool IsNear(std::size_t node, const PlanePoint& p) const {
        return std::fabs(nodes_[node].x - p.x) <= grain_ && std::fabs(nodes_[node].y - p.y) <= grain_;
    }

    double grain_;
    std::vector<PlanePoint> nodes_;
    std::unordered_multimap<PlanePoint, std::size_t, PlaceHash> cells_;
};

// An edge of one of the outlines.
struct Segment {
    std::size_t outline, from, to;
    std::vector<std::size_t> touched;  // the nodes that lie on it, sorted, its ends among them
    std::vector<std::size_t> crossed;  // where it crosses others, also more than once

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

// Makes the graph. What a vertex of one outline touches is found before crossings are looked for, so that the
// rounding of a crossing never decides about touching.
class GraphMaker {
  public:
    explicit GraphMaker(double grain) : grain_(grain), table_(grain) {}

    void AddOutline(std::size_t outline, const Outline& vertices) {
        const std::size_t first = NodeOf(outline, vertices.front());
        std::size_t last = first;
        for (std::size_t i = 1; i < vertices.size(); ++i)
            last = AddEdge(outline, last, NodeOf(outline, vertices[i]));
        AddEdge(outline, last, first);
    }

    OutlineGraph Make() {
        PutNodesOnSegments();
        PutCrossingsOnSegments();
        PutNodesOnSegments();
        return {table_.Nodes(), Pieces(), DoOutlinesTouch()};
    }

  private:
    std::size_t NodeOf(std::size_t outline, const PlanePoint& vertex) {
        const std::size_t node = table_.At(vertex);
        vertices_.push_back({node, outline});
        return node;
    }

    std::size_t AddEdge(std::size_t outline, std::size_t from, std::size_t to) {
        if (from != to) segments_.push_back({outline, from, to, {}, {}});
        return to;
    }

    [[nodiscard]] const PlanePoint& Place(std::size_t node) const { return table_.Nodes()[node]; }

    void PutNodesOnSegments() {
        std::vector<std::size_t> byX(table_.Nodes().size());
        for (std::size_t i = 0; i < byX.size(); ++i)
            byX[i] = i;
        std::sort(byX.begin(), byX.end(),
                  [&](std::size_t a, std::size_t b) { return Place(a).x < Place(b).x; });
        for (Segment& segment : segments_)
            PutNodesOn(byX, &segment);
    }

    void PutNodesOn(const std::vector<std::size_t>& byX, Segment* segment) const {
        const PlanePoint& a = Place(segment->from);
        const PlanePoint& b = Place(segment->to);
        const Box box = BoxOf(a, b);
        segment->touched.clear();
        auto next = std::lower_bound(byX.begin(), byX.end(), box.left - grain_,
                                     [&](std::size_t node, double x) { return Place(node).x < x; });
        for (; next != byX.end() && Place(*next).x <= box.right + grain_; ++next) {
            const PlanePoint& p = Place(*next);
            if (box.Holds(p, grain_) && std::fabs(SignedDistance(p, a, b)) <= grain_) {
                segment->touched.push_back(*next);
            }
        }
        std::sort(segment->touched.begin(), segment->touched.end());
    }

    void PutCrossingsOnSegments() {
        std::vector<Box> boxes;
        for (const Segment& segment : segments_)
            boxes.push_back(BoxOfEdge(Place(segment.from), Place(segment.to)));
        VisitNearPairs(boxes, [&](std::size_t i, std::size_t j) { Cross(&segments_[i], &segments_[j]); });
    }

    // Straight lines that meet in a node meet nowhere else, or they run along each other and have their ends
    // as nodes. Where that is so to a rounding, the parameters of a crossing would be anything.
    void Cross(Segment* p, Segment* q) {
        if (ShareANode(*p, *q)) return;
        // Copies: the table grows.
        const PlanePoint a = Place(p->from);
        const PlanePoint b = Place(p->to);
        const PlanePoint c = Place(q->from);
        const PlanePoint d = Place(q->to);
        const double t = LineParameter(a, b, c, d);
        if (!(t >= 0.0 && t <= 1.0)) return;
        const double s = LineParameter(c, d, a, b);
        if (!(s >= 0.0 && s <= 1.0)) return;
        PlanePoint place{};
        PointOnSegments(a, b, c, d, t, &place);
        const std::size_t node = table_.At(place);
        p->crossed.push_back(node);
        q->crossed.push_back(node);
    }

    // The nodes of a segment from its start to its end.
    [[nodiscard]] std::vector<std::size_t> InOrder(const Segment& segment) const {
        const PlanePoint& a = Place(segment.from);
        const PlanePoint& b = Place(segment.to);
        const auto along = [&](std::size_t node) {
            return (Place(node).x - a.x) * (b.x - a.x) + (Place(node).y - a.y) * (b.y - a.y);
        };
        std::vector<std::size_t> nodes = segment.touched;
        nodes.insert(nodes.end(), segment.crossed.begin(), segment.crossed.end());
        std::sort(nodes.begin(), nodes.end());
        nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
        std::erase_if(nodes, [&](std::size_t node) { return node == segment.from || node == segment.to; });
        std::sort(nodes.begin(), nodes.end(),
                  [&](std::size_t m, std::size_t n) { return along(m) < along(n); });
        nodes.insert(nodes.begin(), segment.from);
        nodes.push_back(segment.to);
        return nodes;
    }

    [[nodiscard]] std::vector<GraphPiece> Pieces() const {
        std::vector<GraphPiece> runs;
        for (const Segment& segment : segments_) {
            const std::vector<std::size_t> nodes = InOrder(segment);
            for (std::size_t i = 1; i < nodes.size(); ++i) {
                GraphPiece run{std::min(nodes[i - 1], nodes[i]), std::max(nodes[i - 1], nodes[i]), {}};
                run.runs[segment.outline] = 1;
                runs.push_back(run);
            }
        }
        return Merged(std::move(runs));
    }

    static std::vector<GraphPiece> Merged(std::vector<GraphPiece> runs) {
        std::sort(runs.begin(), runs.end(), [](const GraphPiece& a, const GraphPiece& b) {
            return a.from != b.from ? a.from < b.from : a.to < b.to;
        });
        std::vector<GraphPiece> pieces;
        for (const GraphPiece& run : runs) {
            const bool isNew = pieces.empty() || pieces.back().from != run.from || pieces.back().to != run.to;
            if (isNew) {
                pieces.push_back(run);
                continue;
            }
            pieces.back().runs[0] += run.runs[0];
            pieces.back().runs[1] += run.runs[1];
        }
        return pieces;
    }

    [[nodiscard]] bool DoOutlinesTouch() const {
        std::vector<std::array<bool, 2>> isOn(table_.Nodes().size(), {false, false});
        for (const auto& [node, outline] : vertices_)
            isOn[node][outline] = true;
        for (const Segment& segment : segments_) {
            for (const std::vector<std::size_t>* nodes : {&segment.touched, &segment.crossed}) {
                for (const std::size_t node : *nodes)
                    isOn[node][segment.outline] = true;
            }
        }
        return std::any_of(isOn.begin(), isOn.end(), [](const auto& on) { return on[0] && on[1]; });
    }

    struct Vertex {
        std::size_t node, outline;
    };

    double grain_;
    NodeTable table_;
    std::vector<Vertex> vertices_;
    std::vector<Segment> segments_;
};

}  // namespace

OutlineGraph GraphOf(const Outline& first, const Outline& second, double grain) {
    GraphMaker maker(grain);
    maker.AddOutline(0, first);
    maker.AddOutline(1, second);
    return maker.Make();
}

}  // namespace tessara
