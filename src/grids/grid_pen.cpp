#include "grids/grid_pen.h"

#include <algorithm>
#include <cmath>

#include "numerics/hypotenuse.h"

namespace tessara {
namespace {

constexpr double ROUNDS_INTO = 0.5;  // pixels; a place this close to the window rounds to a pixel inside

double WidthOf(const PixelRect& window) {
    return static_cast<double>(window.right) - window.left;
}

double HeightOf(const PixelRect& window) {
    return static_cast<double>(window.bottom) - window.top;
}

struct Box {
    double left, top, right, bottom;
};

Box Around(const PixelRect& window, double margin) {
    return {window.left - margin, window.top - margin, window.right + margin, window.bottom + margin};
}

// Whether a and b both lie beyond the same side.
bool PassesASide(const PlanePoint& a, const PlanePoint& b, const Box& box) {
    return (a.x < box.left && b.x < box.left) || (a.x > box.right && b.x > box.right) ||
           (a.y < box.top && b.y < box.top) || (a.y > box.bottom && b.y > box.bottom);
}

// Whether all corners lie on one side of the line through a and b.
bool PassesTheCorners(const PlanePoint& a, const PlanePoint& b, const Box& box) {
    int left = 0;
    int right = 0;
    for (const PlanePoint& corner : {PlanePoint{box.left, box.top}, PlanePoint{box.right, box.top},
                                     PlanePoint{box.right, box.bottom}, PlanePoint{box.left, box.bottom}}) {
        const double side = (b.x - a.x) * (corner.y - a.y) - (b.y - a.y) * (corner.x - a.x);
        left += side > 0.0 ? 1 : 0;
        right += side < 0.0 ? 1 : 0;
    }
    return left == 4 || right == 4;
}

bool Meets(const PlanePoint& a, const PlanePoint& b, const Box& box) {
    return !PassesASide(a, b, box) && !PassesTheCorners(a, b, box);
}

bool MeetsBox(const std::vector<PlanePoint>& polyline, const Box& box) {
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        if (Meets(polyline[i - 1], polyline[i], box)) return true;
    }
    return false;
}

// The distance of a point from the straight line through two others; from their common place if they are
// equal.
double DistanceToLine(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b) {
    const double length = Hypot(b.x - a.x, b.y - a.y);
    if (length == 0.0) return Hypot(p.x - a.x, p.y - a.y);
    return std::fabs((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)) / length;
}

// The distance of a vertex from the line through its neighbours; 0.0 for an end.
double BendAt(const std::vector<PlanePoint>& polyline, std::size_t i) {
    if (i == 0 || i + 1 >= polyline.size()) return 0.0;
    return DistanceToLine(polyline[i], polyline[i - 1], polyline[i + 1]);
}

// An arc half as long has a quarter of the distance from its chord. So the line leaves a segment of its
// polyline by at most a quarter of the distance of the segment's ends from their neighbours' chords; twice
// that is taken.
bool ComesNear(const std::vector<PlanePoint>& polyline, const PixelRect& window) {
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        const double bend = std::max(BendAt(polyline, i - 1), BendAt(polyline, i)) / 2.0;
        const double margin = ROUNDS_INTO + std::max(DEFAULT_PIXEL_TOLERANCE, bend);
        if (Meets(polyline[i - 1], polyline[i], Around(window, margin))) return true;
    }
    return false;
}

}  // namespace

bool GridPen::Append(const CKoord& from, const CKoord& to, DensifyMode mode, GridLine* line) {
    GridLine piece;
    if (!DensifyOnMap(map_, from, to, mode, DEFAULT_PIXEL_TOLERANCE, &piece)) return false;
    if (!Spend(piece.size())) return false;
    line->insert(line->end(), piece.begin(), piece.end());
    return true;
}

bool GridPen::DrawNearWindow(const std::vector<Piece>& pieces) {
    GridLine line;
    bool isNear = false;
    for (const Piece& piece : pieces) {
        GridLine part;
        std::vector<PlanePoint> pixels;
        if (!DensifyOnMap(map_, piece.from, piece.to, DensifyMode::CoordStraight, DEFAULT_PIXEL_TOLERANCE,
                          &part, &pixels))
            return false;
        if (!Spend(part.size())) return false;
        isNear = isNear || ComesNear(pixels, window_);
        line.insert(line.end(), part.begin(), part.end());
    }
    return !isNear || Finish(line);
}

bool GridPen::DrawBorder(const CKoord& from, const CKoord& to) {
    GridLine line;
    std::vector<PlanePoint> pixels;
    if (!DensifyOnMap(map_, from, to, DensifyMode::CoordStraightZoned, DEFAULT_PIXEL_TOLERANCE, &line,
                      &pixels))
        return false;
    if (!Spend(line.size())) return false;
    return !MeetsBox(pixels, Around(window_, ROUNDS_INTO)) || Finish(line);
}

bool GridPen::IsBorderInWindow(const CKoord& from, const CKoord& to) const {
    GridLine line;
    std::vector<PlanePoint> pixels;
    return DensifyOnMap(map_, from, to, DensifyMode::CoordStraightZoned, DEFAULT_PIXEL_TOLERANCE, &line,
                        &pixels) &&
           MeetsBox(pixels, Around(window_, ROUNDS_INTO));
}

bool GridPen::IsWithinAPixel(const CKoord& a, const CKoord& b) const {
    PlanePoint p{};
    PlanePoint q{};
    return map_.ToPlane(a, &p) && map_.ToPlane(b, &q) && std::fabs(p.x - q.x) <= 1.0 &&
           std::fabs(p.y - q.y) <= 1.0;
}

bool GridPen::AreMany(double lines) const {
    return lines > LINES_OF_A_PIXEL * std::min(WidthOf(window_), HeightOf(window_)) + 1.0;
}

double GridPen::WayThrough(const std::vector<CKoord>& places) const {
    const double far = Hypot(WidthOf(window_), HeightOf(window_));
    double way = 0.0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        PlanePoint p{};
        PlanePoint q{};
        const bool arePlaced = map_.ToPlane(places[i - 1], &p) && map_.ToPlane(places[i], &q);
        const double step = arePlaced ? Hypot(q.x - p.x, q.y - p.y) : far;
        way += step < far ? step : far;
    }
    return way;
}

}  // namespace tessara
