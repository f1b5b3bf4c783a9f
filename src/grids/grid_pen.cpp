#include "grids/grid_pen.h"

#include <algorithm>
#include <cmath>

namespace tessara {
namespace {

constexpr double MOST_PIECES = 64.0;  // of a line between two ends
constexpr double ROUNDS_INTO = 0.5;   // pixels; what rounds to a pixel of the window is in it

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

// Whether a and b lie beyond one and the same side.
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

bool MeetsBox(const std::vector<PlanePoint>& chain, const Box& box) {
    for (std::size_t i = 1; i < chain.size(); ++i) {
        const PlanePoint& a = chain[i - 1];
        const PlanePoint& b = chain[i];
        if (!PassesASide(a, b, box) && !PassesTheCorners(a, b, box)) return true;
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

bool GridPen::Draw(const CKoord& from, const CKoord& to) {
    GridLine line;
    return Append(from, to, DensifyMode::CoordStraight, &line) && Finish(line);
}

bool GridPen::DrawWithin(double margin, const CKoord& from, const CKoord& to, DensifyMode mode) {
    GridLine line;
    std::vector<PlanePoint> pixels;
    if (!DensifyOnMap(map_, from, to, mode, DEFAULT_PIXEL_TOLERANCE, &line, &pixels)) return false;
    if (!Spend(line.size())) return false;
    return !MeetsBox(pixels, Around(window_, margin)) || Finish(line);
}

bool GridPen::DrawNearWindow(const CKoord& from, const CKoord& to) {
    const double piece = std::max(WidthOf(window_), HeightOf(window_)) / MOST_PIECES;
    return DrawWithin(ROUNDS_INTO + piece, from, to, DensifyMode::CoordStraight);
}

bool GridPen::DrawBorder(const CKoord& from, const CKoord& to) {
    return DrawWithin(ROUNDS_INTO, from, to, DensifyMode::CoordStraightZoned);
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
    const double far = std::hypot(WidthOf(window_), HeightOf(window_));
    double way = 0.0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        PlanePoint p{};
        PlanePoint q{};
        const bool arePlaced = map_.ToPlane(places[i - 1], &p) && map_.ToPlane(places[i], &q);
        const double step = arePlaced ? std::hypot(q.x - p.x, q.y - p.y) : far;
        way += step < far ? step : far;
    }
    return way;
}

}  // namespace tessara
