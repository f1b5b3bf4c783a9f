#include "maps/line_clipping.h"

#include <cmath>

#include "numerics/rounding.h"

namespace tessara {
namespace {

constexpr double EDGE_TOLERANCE = 0.5;  // pixels

bool IsFinite(const PlanePoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

PlanePoint Middle(const PlanePoint& a, const PlanePoint& b) {
    return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

double Length(const PlanePoint& a, const PlanePoint& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

// Walks from one point towards another in steps of one pixel. Coordinates are summed up step by step, so the
// walk may pass the end without meeting it exactly.
class Walk {
  public:
    Walk(const PlanePoint& from, const PlanePoint& to)
        : from_(from), to_(to), at_(from), stepsLeft_(Ceil(Length(from, to)) + 2.0) {
        const double length = Length(from, to);
        step_ = {(to.x - from.x) / length, (to.y - from.y) / length};
    }

    [[nodiscard]] const PlanePoint& At() const { return at_; }

    // False once the point has passed the end, and where the coordinates are too large for a step of one
    // pixel.
    bool Step() {
        const PlanePoint before = at_;
        at_ = {at_.x + step_.x, at_.y + step_.y};
        stepsLeft_ -= 1.0;
        return !IsPast(from_.x, to_.x, at_.x) && !IsPast(from_.y, to_.y, at_.y) && at_ != before &&
               stepsLeft_ > 0.0;
    }

  private:
    // An axis that the line doesn't extend along is never passed.
    static bool IsPast(double from, double to, double at) {
        return (to > from && at > to) || (to < from && at < to);
    }

    PlanePoint from_, to_, at_, step_;
    double stepsLeft_;
};

class Clipper {
  public:
    Clipper(const PlanePoint& a, const PlanePoint& b, const PixelTest& test) : a_(a), b_(b), test_(test) {}

    [[nodiscard]] ClippedLine Clip() const {
        const bool isAValid = IsValid(a_);
        if (a_ == b_) return isAValid ? All() : None();
        if (isAValid != IsValid(b_)) {
            return isAValid ? Piece(a_, Edge(a_, b_)) : Piece(Edge(b_, a_), b_);
        }
        const PlanePoint middle = Middle(a_, b_);
        const bool isMiddleValid = IsValid(middle);
        if (isAValid != isMiddleValid) {
            return isAValid ? Gap(Edge(a_, middle), Edge(b_, middle))
                            : Piece(Edge(middle, a_), Edge(middle, b_));
        }
        if (Length(a_, b_) > LONGEST_WALK) return {CLIP_FAILED, {}, {}};
        return isAValid ? WalkToGap() : WalkToPiece();
    }

  private:
    [[nodiscard]] bool IsValid(const PlanePoint& p) const {
        PlanePoint back{};
        return test_(p, &back);
    }

    [[nodiscard]] ClippedLine All() const { return {CLIP_ALL_VALID, a_, b_}; }
    static ClippedLine None() { return {CLIP_NONE_VALID, {}, {}}; }
    static ClippedLine Gap(const PlanePoint& first, const PlanePoint& second) {
        return {CLIP_ONE_GAP, first, second};
    }
    static ClippedLine Piece(const PlanePoint& first, const PlanePoint& second) {
        return {CLIP_ONE_PIECE, first, second};
    }

    // Bisects for the last valid point before an invalid one. At least one middle is tested, however short
    // the line is. The search also ends when no double is left in between.
    [[nodiscard]] PlanePoint Edge(PlanePoint valid, PlanePoint invalid) const {
        do {
            const PlanePoint middle = Middle(valid, invalid);
            if (middle == valid || middle == invalid) break;
            (IsValid(middle) ? valid : invalid) = middle;
        } while (std::fabs(valid.x - invalid.x) > EDGE_TOLERANCE ||
                 std::fabs(valid.y - invalid.y) > EDGE_TOLERANCE);
        return valid;
    }

    // For valid ends and a valid middle. A gap that the walk doesn't leave has no valid point behind it: its
    // start is given for its end, too.
    [[nodiscard]] ClippedLine WalkToGap() const {
        Walk walk(a_, b_);
        PlanePoint last = a_;
        while (IsValid(walk.At())) {
            last = walk.At();
            if (!walk.Step()) return All();
        }
        while (walk.Step()) {
            if (IsValid(walk.At())) return Gap(last, walk.At());
        }
        return Gap(last, last);
    }

    // For invalid ends and an invalid middle. The far end of the piece isn't searched: if the position of
    // the first valid pixel leads back to a valid pixel, the piece reaches to the first point past the end
    // of the line; otherwise it is that one pixel.
    [[nodiscard]] ClippedLine WalkToPiece() const {
        Walk walk(a_, b_);
        PlanePoint back{};
        while (!test_(walk.At(), &back)) {
            if (!walk.Step()) return None();
        }
        const PlanePoint first = walk.At();
        const bool leadsBack = IsValid(back);
        while (walk.Step()) {
            if (!leadsBack) return Piece(first, first);
        }
        return Piece(first, walk.At());
    }

    const PlanePoint a_;
    const PlanePoint b_;
    const PixelTest& test_;
};

}  // namespace

ClippedLine ClipLine(const PlanePoint& a, const PlanePoint& b, const PixelTest& test) {
    if (!IsFinite(a) || !IsFinite(b)) return {CLIP_FAILED, {}, {}};
    return Clipper(a, b, test).Clip();
}

}  // namespace tessara
