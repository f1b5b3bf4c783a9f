#include "drawing/earth_shapes.h"

#include <algorithm>
#include <cmath>

#include "conversion/units.h"
#include "drawing/clipping.h"
#include "drawing/map_drawing.h"
#include "map/map_measures.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::toolkit {
namespace {

constexpr double SAME_LONGITUDE = 1e-7;

constexpr double MARGIN = 0.01;       // of the extent, on each side
constexpr double LONG_SEGMENT = 5.0;  // degrees; longer ones are halved before their curvature is measured
constexpr int SEGMENT_HALVINGS = 12;
constexpr int HALVINGS_TO_AN_EDGE = 16;
constexpr double SIMPLER = 0.2;  // picture units; invisible
constexpr double NEARBY = 0.1;   // of the window, from the middle
constexpr double FAR = 3.0;      // windows from the middle, beyond every side

PicturePoint Middle(const PicturePoint& a, const PicturePoint& b) {
    return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
}

EarthLine Shifted(const EarthLine& line, double east, double north) {
    EarthLine shifted;
    shifted.reserve(line.size());
    for (const PicturePoint& point : line)
        shifted.push_back({point.x + east, point.y + north});
    return shifted;
}

// World maps with an oval or circular edge end 180 degrees from their central meridian, whatever the window.
std::optional<double> OwnMeridian(const MapSheet& sheet) {
    MapVdgParams round{};
    if (sheet.Projection()->GetVanDerGrintenParams(&round)) return round.originLongitude;
    MapWagnerIvParams oval{};
    if (sheet.Projection()->GetWagnerIvParams(&oval)) return oval.originLongitude;
    return std::nullopt;
}

std::optional<Extent> ShownExtent(const MapSheet& sheet) {
    std::optional<Extent> extent = ExtentOf(sheet, sheet.Datum());
    if (!extent) return std::nullopt;
    const double east = MARGIN * (extent->east - extent->west);
    const double north = MARGIN * (extent->north - extent->south);
    extent = OnceAround(
        sheet, {extent->north + north, extent->east + east, extent->south - north, extent->west - east});
    if (const std::optional<double> own = OwnMeridian(sheet)) {
        extent->west = std::max(extent->west, *own - FULL_TURN / 2.0);
        extent->east = std::min(extent->east, *own + FULL_TURN / 2.0);
    }
    extent->north = std::min(extent->north, POLE);
    extent->south = std::max(extent->south, -POLE);
    const bool isAnything = extent->west < extent->east && extent->south < extent->north;
    return isAnything ? extent : std::nullopt;
}

// Bisects a segment until each piece is straight in the picture. `pointAt` returns a point of the picture or
// nothing.
template <class PointAt>
class Densifier {
  public:
    Densifier(PointAt pointAt, bool bisects, PointBudget* budget)
        : pointAt_(pointAt), bisects_(bisects), budget_(*budget) {}

    std::vector<Polyline> Densify(const EarthLine& line) {
        parts_.assign(1, {});
        Knot last = KnotAt(line.front());
        Add(last);
        for (std::size_t i = 1; i < line.size(); ++i) {
            const Knot next = KnotAt(line[i]);
            AddWay(last, next, 0);
            last = next;
        }
        std::erase_if(parts_, [](const Polyline& part) { return part.size() < 2; });
        return std::move(parts_);
    }

  private:
    struct Knot {
        PicturePoint degrees;
        std::optional<PicturePoint> at;
    };

    Knot KnotAt(const PicturePoint& degrees) const { return {degrees, pointAt_(degrees)}; }

    void Add(const Knot& knot) {
        if (!knot.at) {
            parts_.emplace_back();
        } else if (parts_.back().empty() || !(parts_.back().back() == *knot.at)) {
            parts_.back().push_back(*knot.at);
        }
    }

    void AddWay(const Knot& from, const Knot& to, int halvings) {
        if (from.at.has_value() != to.at.has_value() && bisects_) return AddEnd(from, to);
        const bool isLong = Distance(from.degrees, to.degrees) > LONG_SEGMENT;
        const Knot middle = KnotAt(Middle(from.degrees, to.degrees));
        if (halvings >= SEGMENT_HALVINGS || (!isLong && IsStraight(from, middle, to)) || !budget_.Take(1))
            return Add(to);
        AddWay(from, middle, halvings + 1);
        AddWay(middle, to, halvings + 1);
    }

    // From a position on the map towards one that is not, up to the limit of the map.
    void AddEnd(Knot from, Knot to) {
        const bool leaves = from.at.has_value();
        Knot shown = leaves ? from : to;
        Knot hidden = leaves ? to : from;
        for (int i = 0; i < HALVINGS_TO_AN_EDGE; ++i) {
            const Knot middle = KnotAt(Middle(shown.degrees, hidden.degrees));
            (middle.at ? shown : hidden) = middle;
        }
        if (leaves) {
            AddWay(from, shown, SEGMENT_HALVINGS - 3);
            parts_.emplace_back();
        } else {
            parts_.emplace_back();
            Add(shown);
            AddWay(shown, to, SEGMENT_HALVINGS - 3);
        }
    }

    static bool IsStraight(const Knot& from, const Knot& middle, const Knot& to) {
        if (!from.at && !middle.at && !to.at) return true;
        if (!from.at || !middle.at || !to.at) return false;
        return Distance(*middle.at, Middle(*from.at, *to.at)) <= LINE_TOLERANCE;
    }

    PointAt pointAt_;
    bool bisects_;  // finds the limit of the map by bisection
    PointBudget& budget_;
    std::vector<Polyline> parts_;
};

}  // namespace

EarthShapes::EarthShapes(const MapSheet& sheet)
    : sheet_(sheet),
      extent_(ShownExtent(sheet)),
      centre_(sheet.DegreesAt({sheet.Width() / 2.0, sheet.Height() / 2.0})) {
    const auto ground = GroundSizeAt(sheet, {sheet.Width() / 2.0, sheet.Height() / 2.0});
    if (ground) nearby_ = NEARBY * ground->down * sheet.Height();
}

std::optional<PicturePoint> EarthShapes::Shown(const PicturePoint& degrees) const {
    return sheet_.ShownPointAt({degrees.y, degrees.x, 0.0});
}

// A position outside the map becomes a point far beyond the window in the initial direction of the segment,
// which is enough to close an area.
PicturePoint EarthShapes::ShownOrBeyond(const PicturePoint& degrees) const {
    if (const std::optional<PicturePoint> at = Shown(degrees)) return *at;
    const PicturePoint middle{sheet_.Width() / 2.0, sheet_.Height() / 2.0};
    if (!centre_) return middle;
    double axes[2];
    Geodesic_LoadAxes(axes, sheet_.Datum());
    const GeodesicResult way = Geodesic_InverseCore(centre_->latitude, centre_->longitude, degrees.y,
                                                    std::remainder(degrees.x, FULL_TURN), axes[0], axes[1]);
    const GeodesicResult begin =
        Geodesic_DirectCore(centre_->latitude, centre_->longitude, nearby_, way.azimuth12, axes[0], axes[1]);
    const std::optional<PicturePoint> toward =
        sheet_.NearPointOf(DegreesCoord(begin.latitude, begin.longitude, sheet_.Datum()).Get());
    if (!toward || Distance(*toward, middle) == 0.0) return middle;
    const double parts = FAR * std::max(sheet_.Width(), sheet_.Height()) / Distance(*toward, middle);
    return {middle.x + parts * (toward->x - middle.x), middle.y + parts * (toward->y - middle.y)};
}

// The parts of a line within the extent, for each multiple of 360 degrees that shifts the line there.
std::vector<EarthLine> EarthShapes::Copies(const EarthLine& line) const {
    const auto [west, east] = std::minmax_element(
        line.begin(), line.end(), [](const PicturePoint& a, const PicturePoint& b) { return a.x < b.x; });
    std::vector<EarthLine> copies;
    const double first = std::ceil((extent_->west - east->x) / FULL_TURN);
    const double last = std::floor((extent_->east - west->x) / FULL_TURN);
    for (double turns = first; turns <= last; ++turns)
        copies.push_back(Shifted(line, turns * FULL_TURN - extent_->west, -extent_->south));
    return copies;
}

std::vector<Polyline> EarthShapes::Line(const EarthLine& line) const {
    std::vector<Polyline> pieces;
    if (!extent_ || line.empty()) return pieces;
    Densifier densifier([this](const PicturePoint& degrees) { return Shown(degrees); }, true, &budget_);
    for (const EarthLine& copy : Copies(line)) {
        for (const EarthLine& inside :
             ClipToFrame(copy, extent_->east - extent_->west, extent_->north - extent_->south)) {
            for (const Polyline& part : densifier.Densify(Shifted(inside, extent_->west, extent_->south))) {
                for (const Polyline& piece : ClipToFrame(part, sheet_.Width(), sheet_.Height()))
                    pieces.push_back(Simplify(piece, SIMPLER));
            }
        }
    }
    return pieces;
}

// The same for a ring. A ring around a pole repeats every 360 degrees and is closed along the pole.
std::vector<EarthLine> EarthShapes::ClosedCopies(const EarthLine& ring) const {
    const double turn = ring.back().x - ring.front().x;
    if (std::abs(turn) < FULL_TURN - SAME_LONGITUDE) return Copies(ring);

    double latitudes = 0.0;
    for (const PicturePoint& point : ring)
        latitudes += point.y;
    const double pole = latitudes < 0.0 ? -POLE : POLE;
    EarthLine eastward = ring;
    if (turn < 0.0) std::reverse(eastward.begin(), eastward.end());
    EarthLine whole;
    const double first = std::floor((extent_->west - eastward.front().x) / FULL_TURN);
    for (double turns = first; turns <= first + 1.0 || whole.back().x < extent_->east; ++turns) {
        const EarthLine next = Shifted(eastward, turns * FULL_TURN, 0.0);
        whole.insert(whole.end(), next.begin() + (whole.empty() ? 0 : 1), next.end());
    }
    whole.push_back({whole.back().x, pole});
    whole.push_back({whole.front().x, pole});
    return {Shifted(whole, -extent_->west, -extent_->south)};
}

std::vector<Polyline> EarthShapes::Area(const std::vector<EarthLine>& rings) const {
    std::vector<Polyline> area;
    if (!extent_) return area;
    Densifier densifier([this](const PicturePoint& degrees) { return std::optional(ShownOrBeyond(degrees)); },
                        false, &budget_);
    for (const EarthLine& ring : rings) {
        if (ring.size() < 3) continue;
        for (const EarthLine& copy : ClosedCopies(ring)) {
            EarthLine inside =
                ClipArea(copy, {0.0, 0.0}, {extent_->east - extent_->west, extent_->north - extent_->south});
            if (inside.size() < 3) continue;
            inside.push_back(inside.front());
            for (const Polyline& outline :
                 densifier.Densify(Shifted(inside, extent_->west, extent_->south))) {
                Polyline shown =
                    ClipArea(outline, {-1.0, -1.0}, {sheet_.Width() + 1.0, sheet_.Height() + 1.0});
                shown = Simplify(shown, SIMPLER);
                if (shown.size() >= 3) area.push_back(std::move(shown));
            }
        }
    }
    return area;
}

}  // namespace tessara::toolkit
