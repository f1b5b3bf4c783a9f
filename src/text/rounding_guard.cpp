#include "text/rounding_guard.h"

#include <algorithm>
#include <iterator>

#include "areas/system_extremes.h"
#include "objects/koord_shift.h"

namespace tessara {
namespace {

constexpr double SQUARE_METRES = 100000.0;
constexpr double SEXAGESIMAL = 60.0;

// Half a unit of the last place, by decimals.
constexpr double HALF_UNITS[] = {0.5, 0.5e-1, 0.5e-2, 0.5e-3, 0.5e-4, 0.5e-5, 0.5e-6, 0.5e-7};

double HalfUnit(int decimals) {
    return HALF_UNITS[std::clamp<int>(decimals, 0, static_cast<int>(std::size(HALF_UNITS)) - 1)];
}

// The value of a text that counts up to a carry.
struct Counter {
    double value;
    double limit;
    double perShiftUnit;  // how many of the value's units are one unit of a shift
};

// False for the systems in which nothing carries.
bool FindCounter(Axis axis, const tagKOORD& record, Counter* counter) {
    const bool isNorth = axis == Axis::North;
    switch (record.type) {
        case KOORD_UTMREF: {
            const auto p = Load<UtmrefPayload>(record);
            *counter = {static_cast<double>(isNorth ? p.northing : p.easting), SQUARE_METRES, 1.0};
            return true;
        }
        case KOORD_GEOGRAD: {
            const auto p = Load<GeogradPayload>(record);
            *counter = {isNorth ? p.latSeconds : p.lonSeconds, SEXAGESIMAL, 3600.0};
            return true;
        }
        case KOORD_GEODEZMIN: {
            const auto p = Load<GeodezMinPayload>(record);
            *counter = {isNorth ? p.latMinutes : p.lonMinutes, SEXAGESIMAL, 60.0};
            return true;
        }
        default:
            return false;
    }
}

bool Carries(Axis axis, double half, const tagKOORD& record) {
    Counter counter;
    return FindCounter(axis, record, &counter) && half + counter.value >= counter.limit;
}

// Onto the limit of the system, or back where there is none.
void MoveBeforeLimit(Axis axis, double half, tagKOORD* record) {
    const Compass direction = axis == Axis::North ? Compass::North : Compass::East;
    const bool hasLimit =
        record->type != KOORD_UTMREF && System_Extreme(direction, static_cast<std::int32_t>(record->datum),
                                                       static_cast<std::int32_t>(record->type), record);
    if (!hasLimit) Koord_Shift(axis, -half, record);
}

}  // namespace

tagKOORD Text_CarryRounding(Axis axis, int decimals, const tagKOORD& record) {
    Counter counter;
    const double half = HalfUnit(decimals);
    tagKOORD shown = record;
    if (!Carries(axis, half, shown) || !FindCounter(axis, shown, &counter)) return shown;

    const double step = half / counter.perShiftUnit;
    if (!Koord_Shift(axis, step, &shown)) {
        MoveBeforeLimit(axis, step, &shown);
        return shown;
    }
    // A shift that was to end on the carry may end a hair before it, and the text would still show it.
    if (Carries(axis, half, shown)) Koord_Shift(axis, step, &shown);
    return shown;
}

}  // namespace tessara
