#include "text/write_text.h"

#include "text/number_text.h"
#include "text/rounding_guard.h"
#include "text/text_layout.h"

namespace tessara {
namespace {

// The two letters of a square, padded with blanks on the left.
std::string LetterPairText(const tagKOORD& record, RecordField field) {
    const RecordField behind{FieldKind::Letter, static_cast<std::uint8_t>(field.offset + 1)};
    std::string pair{ValueOf<char>(record, field), ValueOf<char>(record, behind)};
    pair.resize(std::strlen(pair.c_str()));
    return std::string(2 - pair.size(), ' ') + pair;
}

std::string FieldText(const tagKOORD& record, RecordField field, int decimals) {
    switch (field.kind) {
        case FieldKind::Letter:
            return std::string(1, ValueOf<char>(record, field));
        case FieldKind::LetterPair:
            return LetterPairText(record, field);
        case FieldKind::Whole16:
            return WholeText(ValueOf<std::int16_t>(record, field));
        case FieldKind::Whole32:
            return WholeText(ValueOf<std::int32_t>(record, field));
        case FieldKind::Metres:
            return FixedText(ValueOf<std::int32_t>(record, field), decimals);
        case FieldKind::Minutes:
            return WholeText(ValueOf<std::int16_t>(record, field), Load<GeorefPayload>(record).precision);
        case FieldKind::Number:
            return FixedText(ValueOf<double>(record, field), decimals);
        case FieldKind::None:  // GCOVR_EXCL_START: no text has such a field
            break;
    }
    return {};
}  // GCOVR_EXCL_STOP

bool HasNoMinutes(const tagKOORD& record) {
    if (record.type != KOORD_GEOREF) return false;
    const std::int16_t precision = Load<GeorefPayload>(record).precision;
    return precision < 3 || precision > 5;
}

}  // namespace

bool text::Write(Axis axis, const tagKOORD& record, int decimals, std::string* text) {
    const std::span<const RecordField> fields = TextFieldsOf(axis, record);
    if (fields.empty()) return false;
    text->clear();
    if (HasNoMinutes(record)) return true;

    const tagKOORD shown = text::CarryRounding(axis, decimals, record);
    for (const RecordField field : fields) {
        if (!text->empty()) *text += ' ';
        *text += FieldText(shown, field, decimals);
    }
    text->resize(std::strlen(text->c_str()));
    return true;
}

}  // namespace tessara
