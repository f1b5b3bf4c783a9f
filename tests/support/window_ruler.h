// Measures places of a window along the axes of a system, by the lines of a grid.
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "records/axis_values.h"
#include "records/convert_records.h"
#include "records/zones.h"
#include "support/lines.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara::testing {

// The value of a record on an axis as a single number that grows eastward or northward. A zone counts more
// than any easting.
inline constexpr double ZONE_WEIGHT = 1e8;

inline double KeyOf(Axis axis, tagKOORD record) {
    switch (record.type) {
        case KOORD_UTMREF:
            if (!ConvertInZone(KOORD_UTM, RangeCheck::Off, &record)) return NAN;
            break;
        case KOORD_GEOGRAD:
        case KOORD_GEODEZMIN:
        case KOORD_GEOREF:
            if (!ConvertTo(KOORD_GEODEZ, &record)) return NAN;
            break;
        default:
            break;
    }
    if (axis == Axis::North) return axes::SignedNorthing(record);
    if (!zones::Exist(static_cast<std::int32_t>(record.type))) return axes::Value(axis, record);
    return zones::Number(record) * ZONE_WEIGHT + zones::East(record);
}

// The unit to which the system rounds.
inline double UnitOf(std::int32_t system) {
    switch (system) {
        case KOORD_UTMREF:
            return 1.0;
        case KOORD_GEOREF:
            return 1.0 / 6000.0;
        case KOORD_BNG:
        case KOORD_ING:
            return 1e-5;  // precision of lettered systems
        default:
            return 1e-7;  // degrees or metres; precision of conversions
    }
}

inline bool IsInDegrees(std::int32_t system) {
    return system == KOORD_GEODEZ || system == KOORD_GEOGRAD || system == KOORD_GEODEZMIN ||
           system == KOORD_GEOREF;
}

struct Sampled {
    double east, north;
};

inline double ValueOn(Axis axis, const Sampled& at) {
    return axis == Axis::East ? at.east : at.north;
}

// The largest 1, 2 or 5 times a power of ten up to a value.
inline double RoundStep(double about) {
    const double power = std::pow(10.0, std::floor(std::log10(about)));
    const double rest = about / power;
    return (rest < 2.0 ? 1.0 : rest < 5.0 ? 2.0 : 5.0) * power;
}

// The origin of the lines of equal easting in a zone.
inline double CentreOf(std::int32_t system, double zone) {
    switch (system) {
        case KOORD_BMN:
            return 150000.0 + (zone - 28.0) * 100000.0;
        case KOORD_OEM:
            return 450000.0 + (zone - 28.0) * 100000.0;
        case KOORD_GKAT:
            return 0.0;
        default:
            return 500000.0;
    }
}

// Whether a segment touches the rectangle with a margin.
inline bool Meets(const PixelRect& rect, double margin, const Pixel& a, const Pixel& b) {
    double first = 0.0, last = 1.0;
    const auto cut = [&](double from, double to, double low, double high) {
        if (from == to) return from >= low && from <= high;
        const double t = (low - from) / (to - from), u = (high - from) / (to - from);
        first = std::max(first, std::min(t, u));
        last = std::min(last, std::max(t, u));
        return first <= last;
    };
    return cut(a.x, b.x, rect.left - margin, rect.right + margin) &&
           cut(a.y, b.y, rect.top - margin, rect.bottom + margin);
}

// The scale of the lines of an axis.
struct Ruler {
    Axis axis;
    double step;
    bool isZoned;
    std::int32_t system;
    double anchor;  // for systems without zones

    [[nodiscard]] double ZoneOf(double key) const {
        return isZoned && axis == Axis::East ? std::floor(key / ZONE_WEIGHT + 0.5) : 0.0;
    }
    // The value in steps from the anchor.
    [[nodiscard]] double CountOf(double key) const {
        if (!isZoned || axis == Axis::North) return (key - anchor) / step;
        const double zone = ZoneOf(key);
        return (key - zone * ZONE_WEIGHT - CentreOf(system, zone)) / step;
    }
};

// A zone and a number of steps.
using LineName = std::pair<int, long long>;

// The outermost strips of GK have the same meridian on the ground.
inline LineName NameOf(const Ruler& ruler, double key, double count) {
    const int zone = static_cast<int>(ruler.ZoneOf(key));
    return {ruler.system == KOORD_GK && zone == -60 ? 60 : zone, static_cast<long long>(count)};
}

}  // namespace tessara::testing
