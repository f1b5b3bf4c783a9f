#include "grids/grid_lines.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "grids/grid_steps.h"
#include "grids/zoned_grid_lines.h"
#include "records/average_records.h"
#include "records/axis_copy.h"
#include "records/default_koord.h"
#include "records/koord_shift.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// The two extremes between which the lines of an axis follow each other.
struct Layout {
    Compass first, last;
};

constexpr Layout EAST_LINES{Compass::West, Compass::East};
constexpr Layout NORTH_LINES{Compass::South, Compass::North};

constexpr int HALVINGS = 4;

// Appends the places between two, and the second one.
void AddPlaces(const CKoord& from, const CKoord& to, int halvings, std::vector<CKoord>* places) {
    tagKOORD middle;
    if (halvings > 0 && AverageRecords(from, to, &middle)) {
        AddPlaces(from, CKoord(middle), halvings - 1, places);
        AddPlaces(CKoord(middle), to, halvings - 1, places);
        return;
    }
    places->push_back(to);
}

// Whether the lines between two extremes are too close together.
bool AreTooDense(Axis axis, const CKoord& first, const CKoord& last, double step, const GridPen& pen) {
    const double distance = koord::Difference(axis, first, last);
    const double count = std::fabs(distance) / step;
    CKoord end = first;
    if (!pen.AreMany(count) || !CopyAxis(axis, last, &end)) return false;
    std::vector<CKoord> places{first};
    AddPlaces(first, end, HALVINGS, &places);
    return count > GridPen::LINES_OF_A_PIXEL * pen.WayThrough(places);
}

// A part of the window: its two extremes along one axis.
struct Stretch {
    CKoord first, last;
};

CKoord AtLongitude(CKoord geodez, double longitude) {
    auto position = Load<GeodezPayload>(geodez);
    position.longitude = longitude;
    Store(geodez, position);
    return geodez;
}

// The stretches of the window from west to east or from south to north. If longitudes start anew inside the
// window, there are two of them.
std::vector<Stretch> StretchesOf(Axis axis, const GridWindow& window) {
    const Layout& layout = axis == Axis::East ? EAST_LINES : NORTH_LINES;
    const CKoord& first = window.extremes[layout.first];
    const CKoord& last = window.extremes[layout.last];
    if (axis == Axis::North || !window.longitudes) return {{first, last}};
    return {{AtLongitude(first, window.longitudes->west), last},
            {first, AtLongitude(last, window.longitudes->east)}};
}

// Draws the lines of a system without zones.
class PlainLines {
  public:
    PlainLines(Axis axis, const GridWindow& window, GridPen* pen)
        : axis_(axis),
          across_(axis == Axis::East ? Axis::North : Axis::East),
          window_(window),
          step_(axis == Axis::East ? window.eastStep : window.northStep),
          steps_(axis, step_, window.finestStep),
          pen_(*pen) {}

    bool Draw() {
        const std::vector<Stretch> stretches = StretchesOf(axis_, window_);
        const bool areTooDense = std::any_of(stretches.begin(), stretches.end(), [this](const Stretch& s) {
            return AreTooDense(axis_, s.first, s.last, step_, pen_);
        });
        return !areTooDense && std::all_of(stretches.begin(), stretches.end(),
                                           [this](const Stretch& s) { return DrawStretch(s); });
    }

  private:
    bool DrawStretch(const Stretch& stretch) {
        CKoord place = stretch.first;
        const FirstLine found = steps_.MoveToFirst(&place);
        if (found != FirstLine::Found) return found == FirstLine::None;

        std::vector<GridPen::Piece> pieces;
        for (const Stretch& along : StretchesOf(across_, window_)) {
            GridPen::Piece piece{place, place};
            if (!MakeEnd(along.first, &piece.from) || !MakeEnd(along.last, &piece.to)) return false;
            // Lines of equal longitude are drawn from north to south.
            if (axis_ == Axis::East) std::swap(piece.from, piece.to);
            pieces.push_back(piece);
        }
        return steps_.Walk(place, stretch.last, [&](const CKoord& line) {
            const bool areMoved = std::all_of(pieces.begin(), pieces.end(), [&](GridPen::Piece& piece) {
                return CopyAxis(axis_, line, &piece.from) && CopyAxis(axis_, line, &piece.to);
            });
            return areMoved && pen_.DrawNearWindow(pieces);
        });
    }

    bool MakeEnd(const CKoord& extreme, CKoord* end) const {
        return ResetToDefault(end) && CopyAxis(across_, extreme, end);
    }

    Axis axis_, across_;
    const GridWindow& window_;
    double step_;
    GridSteps steps_;
    GridPen& pen_;
};

}  // namespace

bool DrawGridLines(Axis axis, const GridWindow& window, GridPen* pen) {
    const auto system = static_cast<std::int32_t>(window.extremes[Compass::West].type);
    if (!zones::Exist(system)) return PlainLines(axis, window, pen).Draw();
    return axis == Axis::East ? DrawZonedEastLines(window, pen) : DrawZonedNorthLines(window, pen);
}

}  // namespace tessara
