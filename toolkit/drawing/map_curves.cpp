#include "drawing/map_curves.h"

#include <cmath>

#include "drawing/map_drawing.h"

namespace tessara::toolkit {
namespace {

// Steps of 1/8 give a ring exact points in the four cardinal directions.
constexpr int PIECES = 32;
constexpr int CURVE_HALVINGS = 16;
constexpr int HALVINGS_OF_NOTHING = 4;  // depth of the search for a point if both ends have none

struct Knot {
    double part;
    std::optional<PicturePoint> at;
};

class Tracer {
  public:
    explicit Tracer(const CurvePoint& pointAt) : pointAt_(pointAt) {}

    std::vector<Polyline> Trace() {
        Knot last = KnotAt(0.0);
        Begin(last);
        for (int i = 1; i <= PIECES; ++i) {
            const Knot next = KnotAt(static_cast<double>(i) / PIECES);
            AddPiece(last, next, 0);
            last = next;
        }
        std::erase_if(lines_, [](const Polyline& line) { return line.size() < 2; });
        return std::move(lines_);
    }

  private:
    [[nodiscard]] Knot KnotAt(double part) const { return {part, pointAt_(part)}; }

    void Begin(const Knot& knot) {
        lines_.emplace_back();
        if (knot.at) lines_.back().push_back(*knot.at);
    }

    // Continues from the knot at the end of the lines.
    void AddPiece(const Knot& from, const Knot& to, int halvings) {
        const Knot middle = KnotAt((from.part + to.part) / 2.0);
        if (IsStraight(from, middle, to)) {
            lines_.back().push_back(*to.at);
            return;
        }
        const bool isNothing = !from.at && !middle.at && !to.at;
        if (halvings < (isNothing ? HALVINGS_OF_NOTHING : CURVE_HALVINGS)) {
            AddPiece(from, middle, halvings + 1);
            AddPiece(middle, to, halvings + 1);
            return;
        }
        const bool isJoined = from.at && to.at && Distance(*from.at, *to.at) < SAME_PLACE;
        if (isJoined) {
            lines_.back().push_back(*to.at);
        } else {
            Begin(to);
        }
    }

    static bool IsStraight(const Knot& from, const Knot& middle, const Knot& to) {
        if (!from.at || !middle.at || !to.at) return false;
        const PicturePoint straight{(from.at->x + to.at->x) / 2.0, (from.at->y + to.at->y) / 2.0};
        return Distance(*middle.at, straight) <= LINE_TOLERANCE;
    }

    const CurvePoint& pointAt_;
    std::vector<Polyline> lines_;
};

}  // namespace

std::vector<Polyline> TraceCurve(const CurvePoint& pointAt) {
    return Tracer(pointAt).Trace();
}

}  // namespace tessara::toolkit
