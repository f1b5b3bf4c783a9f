#include "grids/grid_lines.h"

#include <cmath>
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

// From where to where the lines of an axis follow each other, and each of them runs.
struct Layout {
    Compass first, last;
    Compass begin, end;
};

constexpr Layout EAST_LINES{Compass::West, Compass::East, Compass::North, Compass::South};
constexpr Layout NORTH_LINES{Compass::South, Compass::North, Compass::West, Compass::East};

constexpr int HALVINGS = 4;

// Adds places between two, and the second.
void AddPlaces(const CKoord& from, const CKoord& to, int halvings, std::vector<CKoord>* places) {
    tagKOORD middle;
    if (halvings > 0 && AverageRecords(from, to, &middle)) {
        AddPlaces(from, CKoord(middle), halvings - 1, places);
        AddPlaces(CKoord(middle), to, halvings - 1, places);
        return;
    }
    places->push_back(to);
}

// Whether lines from one extreme to the other lie too closely.
bool AreTooDense(Axis axis, const CKoord& first, const CKoord& last, double step, const GridPen& pen) {
    const double distance = koord::Difference(axis, first, last);
    if (distance == UNKNOWN_DIFFERENCE) return false;
    const double count = std::fabs(distance) / step;
    CKoord end = first;
    if (!pen.AreMany(count) || !CopyAxis(axis, last, &end)) return false;
    std::vector<CKoord> places{first};
    AddPlaces(first, end, HALVINGS, &places);
    return count > GridPen::LINES_OF_A_PIXEL * pen.WayThrough(places);
}

// The lines of a system without zones.
bool DrawPlainLines(Axis axis, const GridWindow& window, GridPen* pen) {
    const Layout& layout = axis == Axis::East ? EAST_LINES : NORTH_LINES;
    const Axis across = axis == Axis::East ? Axis::North : Axis::East;
    const Extremes& extremes = window.extremes;
    const double step = axis == Axis::East ? window.eastStep : window.northStep;
    if (AreTooDense(axis, extremes[layout.first], extremes[layout.last], step, *pen)) return false;

    const GridSteps steps(axis, step, window.finestStep);
    CKoord place = extremes[layout.first];
    const FirstLine found = steps.MoveToFirst(&place);
    if (found != FirstLine::Found) return found == FirstLine::None;

    CKoord begin = place;
    CKoord end = place;
    if (!ResetToDefault(&begin) || !CopyAxis(across, extremes[layout.begin], &begin)) return false;
    if (!ResetToDefault(&end) || !CopyAxis(across, extremes[layout.end], &end)) return false;
    return steps.Walk(place, extremes[layout.last], [&](const CKoord& line) {
        return CopyAxis(axis, line, &begin) && CopyAxis(axis, line, &end) && pen->Draw(begin, end);
    });
}

}  // namespace

bool DrawGridLines(Axis axis, const GridWindow& window, GridPen* pen) {
    const auto system = static_cast<std::int32_t>(window.extremes[Compass::West].type);
    if (!zones::Exist(system)) return DrawPlainLines(axis, window, pen);
    return axis == Axis::East ? DrawZonedEastLines(window, pen) : DrawZonedNorthLines(window, pen);
}

}  // namespace tessara
