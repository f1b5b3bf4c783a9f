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

constexpr RangeCheck UNCHECKED = RangeCheck::Off;  // a border lies a hair outside its zone

// On the border of a zone or the meridian 180 itself a place may be written for either side. A hair beside,
// it lies on one. Half a pixel shows how steep the values are.
constexpr double HAIR = 1.0 / 64.0;  // pixels; a border is drawn a tenth of a millimetre outside its zone
constexpr double HALF = 0.5;

constexpr PlanePoint OFFSETS[] = {{HAIR, 0.0}, {-HAIR, 0.0}, {0.0, HAIR}, {0.0, -HAIR},
                                  {HALF, 0.0}, {-HALF, 0.0}, {0.0, HALF}, {0.0, -HALF}};

// The letters of UTMREF come again every 2000 km, the northing of UTM doesn't.
bool SpellOut(CKoord* koord) {
    if (koord->type != KOORD_UTMREF) return true;
    tagKOORD record = *koord;
    if (!ConvertInZone(KOORD_UTM, UNCHECKED, &record)) return false;
    *koord = CKoord(record);
    return true;
}

// How far from the place the position of a pixel lies on the axis; nothing for one in another zone.
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
    // At the place the values begin at nothing; a turn away they all are far, whatever a pixel is worth.
    return nearest <= furthest / 4.0;
}

}  // namespace tessara
