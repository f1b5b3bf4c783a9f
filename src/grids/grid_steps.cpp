#include "grids/grid_steps.h"

#include <cmath>

#include "numerics/rounding.h"
#include "records/axis_copy.h"
#include "records/compare_records.h"
#include "records/default_koord.h"
#include "records/koord_shift.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {

// In zoned systems the anchor is on the zone's own central line, from which its east values count.
bool GridSteps::FindAnchor(const CKoord& place, CKoord* anchor) const {
    *anchor = place;
    if (!zones::Exist(static_cast<std::int32_t>(place.type))) return ResetToDefault(anchor);
    if (!zones::MoveToCentre(anchor)) return false;
    if (axis_ == Axis::East) return true;
    const CKoord centre = *anchor;
    return ResetToDefault(anchor) && CopyAxis(Axis::East, centre, anchor);
}

// Shifting a pixel to the north increases its row, which moves it southward.
bool GridSteps::MoveBy(double delta, CKoord* place) const {
    const bool isRow = axis_ == Axis::North && IsPixelType(static_cast<std::int32_t>(place->type));
    return koord::Shift(axis_, isRow ? -delta : delta, place);
}

FirstLine GridSteps::MoveToFirst(CKoord* place) const {
    CKoord line;
    if (!FindAnchor(*place, &line)) return FirstLine::Failed;
    const double distance = koord::Difference(axis_, line, *place);
    if (distance == UNKNOWN_DIFFERENCE) return FirstLine::Failed;

    const double count = Trunc(distance / step_);
    if (!MoveBy(count * step_, &line)) return FirstLine::None;
    if (CompareRecords(axis_, *place, line) > 0 && !MoveBy(step_, &line)) return FirstLine::None;
    // A count or a step below the resolution of the numbers never reaches the line.
    const std::int32_t order = CompareRecords(axis_, *place, line);
    if (order == NOT_COMPARABLE) return FirstLine::Failed;
    if (order > 0) return FirstLine::None;
    *place = line;
    return FirstLine::Found;
}

// False for a step below the resolution of the numbers, or within the nanometres by which renewing its
// letters moves a place, and where the end of the system pulls a place back onto itself.
bool GridSteps::Advance(CKoord* place) const {
    const CKoord before = *place;
    if (step_ < finest_ || !MoveBy(step_, place)) return false;
    if (CompareRecords(axis_, *place, before) != 1) return false;
    return std::fabs(koord::Difference(axis_, before, *place) - step_) <= step_ / 2.0;
}

bool GridSteps::Walk(CKoord place, const CKoord& last, const std::function<bool(const CKoord&)>& draw) const {
    do {
        const std::int32_t order = CompareRecords(axis_, place, last);
        if (order == NOT_COMPARABLE) return false;
        if (order > 0) return true;
        if (!draw(place)) return false;
    } while (Advance(&place));
    return true;
}

}  // namespace tessara
