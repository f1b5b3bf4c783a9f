#include "text/read_text.h"

#include <array>
#include <cmath>

#include "records/zones.h"
#include "tessara/kernel/constants.h"
#include "text/text_layout.h"
#include "text/text_reader.h"

namespace tessara {
namespace {

template <class Value>
bool ReadWhole(TextReader* reader, RecordField field, tagKOORD* record) {
    Value value;
    if (!reader->ReadWhole(&value)) return false;
    SetValue(record, field, value);
    return true;
}

bool ReadMetres(TextReader* reader, RecordField field, tagKOORD* record) {
    std::int32_t metres;
    if (!reader->ReadWholeOrNothing(&metres)) return false;
    SetValue(record, field, metres);
    return true;
}

bool ReadNumber(TextReader* reader, RecordField field, tagKOORD* record) {
    double value;
    if (!reader->ReadNumber(&value)) return false;
    SetValue(record, field, value);
    return true;
}

bool ReadLetter(TextReader* reader, RecordField field, tagKOORD* record) {
    char letter;
    if (!reader->ReadLetter(&letter)) return false;
    SetValue(record, field, letter);
    return true;
}

bool ReadLetterPair(TextReader* reader, RecordField field, tagKOORD* record) {
    std::array<char, 2> letters;
    if (!reader->ReadLetterPair(&letters[0], &letters[1])) return false;
    SetValue(record, field, letters);
    return true;
}

bool ReadField(TextReader* reader, RecordField field, tagKOORD* record) {
    switch (field.kind) {
        case FieldKind::Letter:
            return ReadLetter(reader, field, record);
        case FieldKind::LetterPair:
            return ReadLetterPair(reader, field, record);
        case FieldKind::Whole16:
        case FieldKind::Minutes:
            return ReadWhole<std::int16_t>(reader, field, record);
        case FieldKind::Whole32:
            return ReadWhole<std::int32_t>(reader, field, record);
        case FieldKind::Metres:
            return ReadMetres(reader, field, record);
        case FieldKind::Number:
            return ReadNumber(reader, field, record);
        case FieldKind::None:  // GCOVR_EXCL_START: no text has such a field
            break;
    }
    return false;
}  // GCOVR_EXCL_STOP

bool ReadFields(Axis axis, std::string_view text, tagKOORD* record) {
    TextReader reader(text);
    const std::span<const RecordField> fields = TextFieldsOf(axis, *record);
    for (const RecordField field : fields) {
        if (!ReadField(&reader, field, record)) return false;
    }
    return !fields.empty();
}

// The texts of BMN and OEM don't contain the meridian. The easting identifies it: the three meridians are
// 300 km apart, and every strip reaches less than 150 km to each side.
void FindAustrianMeridian(tagKOORD* record) {
    auto payload = Load<BmnPayload>(*record);
    double nearest = HUGE_VAL;
    for (const std::int16_t meridian : {std::int16_t{28}, std::int16_t{31}, std::int16_t{34}}) {
        tagKOORD centre = *record;
        auto strip = payload;
        strip.meridian = meridian;
        Store(centre, strip);
        if (!zones::MoveToCentre(&centre)) continue;
        const double distance = std::fabs(zones::East(*record) - zones::East(centre));
        if (!(distance < nearest)) continue;
        nearest = distance;
        payload.meridian = meridian;
    }
    Store(*record, payload);
}

}  // namespace

bool text::Read(std::string_view north, std::string_view east, tagKOORD* record) {
    if (record->type == KOORD_ECEF) return false;
    if (!ReadFields(Axis::North, north, record) || !ReadFields(Axis::East, east, record)) return false;
    zones::Want(NO_WANTED_ZONE, record);
    if (record->type == KOORD_BMN || record->type == KOORD_OEM) FindAustrianMeridian(record);
    return true;
}

}  // namespace tessara
