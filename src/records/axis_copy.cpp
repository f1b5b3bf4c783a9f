#include "records/axis_copy.h"

#include "kernel/letters.h"
#include "records/axis_values.h"
#include "records/zones.h"
#include "systems/fields.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

// The next or previous letter in the ring of row letters, which lacks I and O.
char StepRow(char row, int direction) {
    if (direction > 0 && row == 'V') return 'A';
    if (direction < 0 && row == 'A') return 'V';
    const auto step = [direction](char c) { return static_cast<char>(c + direction); };
    const char next = step(row);
    return next == 'I' || next == 'O' ? step(next) : next;
}

// Odd and even zones start their row letters five letters apart. So a row letter that changes to a zone of
// the other kind moves by five, which keeps its northing.
char RowInZone(char row, int fromZone, int toZone) {
    const int fromParity = fromZone % 2 != 0 ? 1 : 0;
    const int toParity = toZone % 2 != 0 ? 1 : 0;
    if (fromParity == toParity) return row;
    char walked = UpperCase(row);
    for (int i = 0; i < 5; ++i)
        walked = StepRow(walked, toParity < fromParity ? 1 : -1);
    return walked;
}

void KeepRowOnItsGround(std::int32_t oldZone, tagKOORD* target) {
    auto payload = Load<UtmrefPayload>(*target);
    payload.row = RowInZone(payload.row, oldZone, payload.zone);
    Store(*target, payload);
}

// Takes the finer precision of the two; the minutes of the other axis stay unchanged.
void RaiseGeorefPrecision(const tagKOORD& source, tagKOORD* target) {
    const auto from = Load<GeorefPayload>(source);
    auto to = Load<GeorefPayload>(*target);
    if (from.precision > to.precision) to.precision = from.precision;
    Store(*target, to);
}

// Derives letters and partial values from the full values, by a conversion there and back on one datum.
void RenewParts(tagKOORD* target) {
    tagKOORD scratch = *target;
    scratch.datum = DATUM_WGS84;
    auto payload = Load<LetterGridPayload>(scratch);
    payload.square = 0;
    payload.subSquare = 0;
    Store(scratch, payload);
    tagKOORD geodez = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    KoordConvert(&scratch, &geodez);
    KoordConvert(&geodez, &scratch);
    Store(*target, Load<LetterGridPayload>(scratch));
}

}  // namespace

bool CopyAxis(Axis axis, const tagKOORD& source, tagKOORD* target) {
    const SystemRow& row = SystemOf(source);
    if (row.form == Form::None) return false;
    const std::int32_t oldZone = zones::Number(*target);
    for (const RecordField field : AxisRowOf(axis, source).travels.All())
        CopyField(field, source, target);
    if (row.form == Form::Squares && axis == Axis::East) KeepRowOnItsGround(oldZone, target);
    if (row.form == Form::LetterGrid) RenewParts(target);
    if (row.type == KOORD_GEOREF) RaiseGeorefPrecision(source, target);
    return true;
}

}  // namespace tessara
