#include "records/koord_shift.h"

#include <cmath>

#include "kernel/letters.h"
#include "numerics/rounding.h"
#include "records/axis_values.h"
#include "records/call_depth.h"
#include "records/convert_records.h"
#include "records/system_extremes.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

// Values within this distance of a limit count as on it.
double ToleranceOf(std::uint32_t system) {
    return system == KOORD_GEODEZ ? 1.0e-7 : 1.0e-4;
}

bool MoveToSystemLimit(Compass direction, tagKOORD* record) {
    return FindSystemExtreme(direction, static_cast<std::int32_t>(record->datum),
                             static_cast<std::int32_t>(record->type), record);
}

// Moves a record to the border of its zone or the limit of its system, whichever comes first.
bool MoveToFurthest(Compass direction, tagKOORD* record) {
    if (!zones::Exist(static_cast<std::int32_t>(record->type))) return MoveToSystemLimit(direction, record);
    if (AxisOf(direction) == Axis::East) {
        if (zones::MoveToBorder(direction, record)) return true;
        const std::int32_t zone = zones::Number(*record);
        return MoveToSystemLimit(direction, record) && zones::Number(*record) == zone;
    }
    const ZoneLimit found = zones::MoveToLimit(direction, record);
    if (found == ZoneLimit::SystemFirst) return MoveToSystemLimit(direction, record);
    return found == ZoneLimit::Border;
}

// Whether a move from `value` by `delta` ends beyond `limit`. A move exactly onto the limit doesn't.
bool GoesBeyond(double limit, double value, double delta) {
    return delta >= 0.0 ? limit - delta < value : value < limit - delta;
}

// The edge of the pixel range in the direction of a step. A positive step increases the row, which is
// southward.
Compass PixelEdge(Axis axis, double step) {
    if (axis == Axis::East) return DirectionOf(axis, step);
    return step >= 0.0 ? Compass::South : Compass::North;
}

// A pixel may move within the range of its number type.
bool ShiftPixel(Axis axis, double delta, tagKOORD* record) {
    const double step = record->type == KOORD_LONGPIXEL ? Trunc(delta) : delta;
    tagKOORD edge = *record;
    if (!MoveToSystemLimit(PixelEdge(axis, step), &edge)) return false;
    const double value = axes::Value(axis, *record);
    if (GoesBeyond(axes::Value(axis, edge), value, step)) return false;
    axes::SetValue(axis, value + step, record);
    return true;
}

// Moves up to the border of the zone. The border is computed only if the move may have reached it.
bool ShiftEastInZone(double delta, tagKOORD* record) {
    const double east = zones::East(*record);
    tagKOORD moved = *record;
    zones::SetEast(east + delta, &moved);
    // An offset beyond the million of its strip would be read as part of another strip.
    const bool isInOwnZone = std::fabs(zones::East(moved) - (east + delta)) < 1e-6;
    if (!isInOwnZone || !zones::IsWellInside(moved)) {
        tagKOORD limit = *record;
        if (!MoveToFurthest(DirectionOf(Axis::East, delta), &limit)) return false;
        if (GoesBeyond(zones::East(limit), east, delta)) return false;
    }
    *record = moved;
    return true;
}

// A move across the equator changes the hemisphere; the equator belongs to both. A position written in the
// wrong hemisphere keeps it while it moves back to the equator.
void AddUtmNorthing(double delta, tagKOORD* record) {
    auto payload = Load<UtmPayload>(*record);
    const bool isSouth = UpperCase(payload.hemisphere) == 'S';
    const double sum = payload.northing + delta;
    if (delta >= 0.0 && isSouth && sum > UTM_SOUTHERN_FALSE_NORTHING) {
        payload.northing -= UTM_SOUTHERN_FALSE_NORTHING;
        payload.hemisphere = 'N';
    } else if (delta < 0.0 && !isSouth && sum < 0.0) {
        payload.northing += UTM_SOUTHERN_FALSE_NORTHING;
        payload.hemisphere = 'S';
    }
    payload.northing += delta;
    Store(*record, payload);
}

void AddNorthing(double delta, tagKOORD* record) {
    if (record->type == KOORD_UTM) {
        AddUtmNorthing(delta, record);
    } else {
        axes::SetValue(Axis::North, axes::Value(Axis::North, *record) + delta, record);
    }
}

// In different hemispheres both northings count from the equator.
double UtmNorthApart(const tagKOORD& from, const tagKOORD& to) {
    if (Load<UtmPayload>(from).hemisphere == Load<UtmPayload>(to).hemisphere) {
        return axes::Value(Axis::North, to) - axes::Value(Axis::North, from);
    }
    return axes::SignedNorthing(to) - axes::SignedNorthing(from);
}

// Whether a move to the north or south ends beyond `limit`. For UTM the end of the move is compared, so that
// a move by exactly the remaining distance ends on the limit.
bool EndsBeyond(const tagKOORD& limit, const tagKOORD& record, const tagKOORD& moved, double delta) {
    if (record.type == KOORD_UTM) {
        const double room = UtmNorthApart(moved, limit);
        return delta >= 0.0 ? room < 0.0 : room > 0.0;
    }
    return GoesBeyond(axes::Value(Axis::North, limit), axes::Value(Axis::North, record), delta);
}

bool ShiftNorthInZone(double delta, tagKOORD* record) {
    const Compass direction = DirectionOf(Axis::North, delta);
    tagKOORD moved = *record;
    AddNorthing(delta, &moved);
    tagKOORD limit = *record;
    const bool found =
        zones::IsWellInside(moved) ? MoveToSystemLimit(direction, &limit) : MoveToFurthest(direction, &limit);
    if (!found) return false;
    if (EndsBeyond(limit, *record, moved, delta)) return false;
    *record = moved;
    return true;
}

enum class Step { Refused, Full, OntoLimit };

// Takes a full step if there is room. A step that would pass the limit by no more than the tolerance ends on
// it.
Step ShiftInSystem(Axis axis, double delta, tagKOORD* record) {
    tagKOORD limit = *record;
    if (!MoveToFurthest(DirectionOf(axis, delta), &limit)) return Step::Refused;
    const double end = axes::Value(axis, limit);
    const double last = end - delta;
    const double value = axes::Value(axis, *record);
    const bool hasRoom = delta >= 0.0 ? value <= last : last <= value;
    if (!hasRoom && !(std::fabs(last - value) <= ToleranceOf(record->type))) return Step::Refused;
    axes::SetValue(axis, hasRoom ? value + delta : end, record);
    return hasRoom ? Step::Full : Step::OntoLimit;
}

// A full step renews the letters; a step onto the limit keeps the old ones.
bool ShiftLetterGrid(Axis axis, double delta, tagKOORD* record) {
    tagKOORD moved = *record;
    const Step step = ShiftInSystem(axis, delta, &moved);
    if (step == Step::Refused) return false;
    if (step == Step::Full) {
        auto payload = Load<LetterGridPayload>(moved);
        payload.square = 0;
        payload.subSquare = 0;
        Store(moved, payload);
        if (!RenewLetters(&moved)) return false;
    }
    *record = moved;
    return true;
}

// Shifts the UTM form in the same zone, which the result then wants.
bool ShiftUtmref(Axis axis, double delta, tagKOORD* record) {
    tagKOORD moved = *record;
    if (!ConvertInZone(KOORD_UTM, RangeCheck::On, &moved)) return false;
    if (!koord::Shift(axis, delta, &moved)) return false;
    if (!ConvertInZone(KOORD_UTMREF, RangeCheck::On, &moved)) return false;
    *record = moved;
    return true;
}

// Shifts the GEODEZ form.
bool ShiftDegrees(Axis axis, double delta, tagKOORD* record) {
    tagKOORD geodez = *record;
    if (!ConvertTo(KOORD_GEODEZ, &geodez) || !koord::Shift(axis, delta, &geodez)) return false;
    tagKOORD moved = *record;
    if (KoordConvert(&geodez, &moved) != KOORD_OK) return false;
    *record = moved;
    return true;
}

double DegreesApart(Axis axis, tagKOORD from, tagKOORD to) {
    if (!ConvertTo(KOORD_GEODEZ, &from) || !ConvertTo(KOORD_GEODEZ, &to)) return UNKNOWN_DIFFERENCE;
    return koord::Difference(axis, from, to);
}

// The distance between two letters in alphabetical order. The ring of row letters isn't closed here, so the
// result is wrong across its end.
double SquaresApart(char from, char to) {
    const std::int32_t first = LetterIndex(SQUARE_LETTERS, UpperCase(from));
    const std::int32_t last = LetterIndex(SQUARE_LETTERS, UpperCase(to));
    if (first == NO_LETTER || last == NO_LETTER) return UNKNOWN_DIFFERENCE;
    return (last - first) * SQUARE_METRES;
}

double UtmrefApart(Axis axis, const UtmrefPayload& from, const UtmrefPayload& to) {
    const bool isEast = axis == Axis::East;
    const double squares = isEast ? SquaresApart(from.column, to.column) : SquaresApart(from.row, to.row);
    if (squares == UNKNOWN_DIFFERENCE) return UNKNOWN_DIFFERENCE;
    const double first = isEast ? from.easting : from.northing;
    const double last = isEast ? to.easting : to.northing;
    return squares + (last - first);
}

bool AreInOneZone(const tagKOORD& first, const tagKOORD& second) {
    const std::int32_t zone = zones::Number(first);
    return zone != UNKNOWN_ZONE && zone == zones::Number(second);
}

}  // namespace

bool koord::Shift(Axis axis, double delta, tagKOORD* record) {
    if (delta == 0.0) return true;
    if (std::isnan(delta)) return false;
    const CallDepth depth;
    switch (SystemOf(*record).form) {
        case Form::Pixels:
            return ShiftPixel(axis, delta, record);
        case Form::Zoned:
            return axis == Axis::East ? ShiftEastInZone(delta, record) : ShiftNorthInZone(delta, record);
        case Form::Squares:
            return ShiftUtmref(axis, delta, record);
        case Form::Parts:
            return ShiftDegrees(axis, delta, record);
        case Form::LetterGrid:
            return ShiftLetterGrid(axis, delta, record);
        case Form::Values:
        case Form::Polar:
            return ShiftInSystem(axis, delta, record) != Step::Refused;
        case Form::Cartesian:
        case Form::None:
            break;
    }
    return false;
}

double koord::Difference(Axis axis, const tagKOORD& from, const tagKOORD& to) {
    if (from.datum != to.datum || from.type != to.type) return UNKNOWN_DIFFERENCE;
    const SystemRow& row = SystemOf(from);
    const bool hasZones = row.zones.rule != ZoneRule::None;
    if (hasZones && !AreInOneZone(from, to)) return UNKNOWN_DIFFERENCE;
    switch (row.form) {
        case Form::Zoned:
            if (axis == Axis::East) return zones::East(to) - zones::East(from);
            if (row.type == KOORD_UTM) return UtmNorthApart(from, to);
            break;
        case Form::Squares:
            return UtmrefApart(axis, Load<UtmrefPayload>(from), Load<UtmrefPayload>(to));
        case Form::Parts:
            return DegreesApart(axis, from, to);
        case Form::Cartesian:
        case Form::None:
            return UNKNOWN_DIFFERENCE;
        default:
            break;
    }
    const bool growsSouthward = row.form == Form::Pixels && axis == Axis::North;
    if (growsSouthward) return axes::Value(axis, from) - axes::Value(axis, to);
    return axes::Value(axis, to) - axes::Value(axis, from);
}

}  // namespace tessara
