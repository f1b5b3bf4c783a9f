#include "text/rounding_guard.h"

#include <algorithm>
#include <iterator>

#include "records/axis_values.h"
#include "records/koord_shift.h"
#include "records/system_extremes.h"
#include "systems/fields.h"

namespace tessara {
namespace {

// Half a unit in the last place, indexed by the number of decimals.
constexpr double HALF_UNITS[] = {0.5, 0.5e-1, 0.5e-2, 0.5e-3, 0.5e-4, 0.5e-5, 0.5e-6, 0.5e-7};

double HalfUnit(int decimals) {
    return HALF_UNITS[std::clamp<int>(decimals, 0, static_cast<int>(std::size(HALF_UNITS)) - 1)];
}

// Moves the record onto the limit of its system, or back by half a unit if there is none.
void MoveBeforeLimit(Axis axis, double half, tagKOORD* record) {
    const Compass direction = axis == Axis::North ? Compass::North : Compass::East;
    const bool hasLimit =
        record->type != KOORD_UTMREF && FindSystemExtreme(direction, static_cast<std::int32_t>(record->datum),
                                                          static_cast<std::int32_t>(record->type), record);
    if (!hasLimit) koord::Shift(axis, -half, record);
}

}  // namespace

tagKOORD text::CarryRounding(Axis axis, int decimals, const tagKOORD& record) {
    tagKOORD shown = record;
    const SystemRow& row = SystemOf(record);
    if (row.text.carry == 0.0) return shown;

    // The last number of a text is the one that may reach the carry.
    const RecordField counter = (axis == Axis::East ? row.east : row.north).text.All().back();
    const double half = HalfUnit(decimals);
    const auto carries = [&] { return half + NumberOf(shown, counter) >= row.text.carry; };
    if (!carries()) return shown;

    const double step = half / row.text.unitsPerDegree;
    if (!koord::Shift(axis, step, &shown)) {
        MoveBeforeLimit(axis, step, &shown);
        return shown;
    }
    // By rounding, the shift may end just before the carry, so that the text would still show it.
    if (carries()) koord::Shift(axis, step, &shown);
    return shown;
}

}  // namespace tessara
