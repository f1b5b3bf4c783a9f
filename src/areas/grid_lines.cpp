#include "areas/grid_lines.h"

#include "areas/grid_steps.h"
#include "areas/zoned_grid_lines.h"
#include "objects/axis_copy.h"
#include "objects/default_koord.h"
#include "objects/zones.h"

namespace tessara {
namespace {

// From where to where the lines of an axis follow each other, and each of them runs.
struct Layout {
    Compass first, last;
    Compass begin, end;
};

constexpr Layout EAST_LINES{Compass::West, Compass::East, Compass::North, Compass::South};
constexpr Layout NORTH_LINES{Compass::South, Compass::North, Compass::West, Compass::East};

// The lines of a system without zones.
bool DrawPlainLines(Axis axis, const GridWindow& window, GridPen* pen) {
    const Layout& layout = axis == Axis::East ? EAST_LINES : NORTH_LINES;
    const Axis across = axis == Axis::East ? Axis::North : Axis::East;
    const Extremes& extremes = window.extremes;
    const GridSteps steps(axis, axis == Axis::East ? window.eastStep : window.northStep, window.finestStep);

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
    if (!Zones_Exist(system)) return DrawPlainLines(axis, window, pen);
    return axis == Axis::East ? DrawZonedEastLines(window, pen) : DrawZonedNorthLines(window, pen);
}

}  // namespace tessara
