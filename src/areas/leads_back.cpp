#include "areas/leads_back.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "records/check_record.h"
#include "records/convert_records.h"
#include "records/koord_shift.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// A place exactly on the border of a zone or on the meridian 180 may be written for either side. A few
// hundredths of a pixel beside it the side is certain. Half a pixel away shows how steep the values are.
constexpr double HAIR = 1.0 / 64.0;  // pixels; more than the 1e-9 degrees by which a border is outset
constexpr double HALF = 0.5;

constexpr PlanePoint OFFSETS[] = {{HAIR, 0.0}, {-HAIR, 0.0}, {0.0, HAIR}, {0.0, -HAIR},
                                  {HALF, 0.0}, {-HALF, 0.0}, {0.0, HALF}, {0.0, -HALF}};

// Compares UTMREF through UTM: the letters of UTMREF repeat every 2000 km, the northing of UTM doesn't.
bool SpellOut(CKoord* koord) {
    if (koord->type != KOORD_UTMREF) return true;
    tagKOORD record = *koord;
    if (!ConvertInZone(KOORD_UTM, UNCHECKED, &record)) return false;
    *koord = CKoord(record);
    return true;
}

// The distance along the axis between the place and the position of a pixel; nothing if the pixel lies in
// another zone.
std::optional<double> DistanceOf(const MapPlane& map, Axis axis, const CKoord& place, const CKoord& spelt,
                                 const PlanePoint& pixel) {
    CKoord back(MakeKoord(static_cast<std::int32_t>(place.datum), static_cast<std::int32_t>(place.type)));
    if (!map.ToWorld(pixel, &back) || !IsInSystemArea(back) || !SpellOut(&back)) return std::nullopt;
    const double difference = koord::Difference(axis, spelt, back);
    if (difference == UNKNOWN_DIFFERENCE) return std::nullopt;
    return std::fabs(difference);
}

}  // namespace

bool LeadsBack(const MapPlane& map, Axis axis, const CKoord& place, const PlanePoint& pixel) {
    CKoord spelt = place;
    if (!SpellOut(&spelt)) return false;
    double nearest = std::numeric_limits<double>::infinity();
    double furthest = 0.0;
    for (const PlanePoint& offset : OFFSETS) {
        const std::optional<double> distance =
            DistanceOf(map, axis, place, spelt, {pixel.x + offset.x, pixel.y + offset.y});
        if (!distance) continue;
        nearest = std::min(nearest, *distance);
        furthest = std::max(furthest, *distance);
    }
    // Around the true place the distances start at zero. Where the map repeats itself all of them are large,
    // whatever ground a pixel covers.
    return nearest <= furthest / 4.0;
}

}  // namespace tessara
