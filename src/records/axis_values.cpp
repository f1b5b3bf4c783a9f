#include "records/axis_values.h"

#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "systems/fields.h"
#include "tessara/kernel/constants.h"

namespace tessara {

bool axes::IsNumber(std::int32_t system) {
    return SystemOf(system).east.value.kind != FieldKind::None;
}

double axes::Value(Axis axis, const tagKOORD& record) {
    return NumberOf(record, AxisRowOf(axis, record).value);
}

void axes::SetValue(Axis axis, double value, tagKOORD* record) {
    const RecordField field = AxisRowOf(axis, *record).value;
    if (field.kind == FieldKind::Number) tessara::SetValue(record, field, value);
    if (field.kind == FieldKind::Whole32) tessara::SetValue(record, field, TruncateToInt32(value));
}

double axes::SignedNorthing(const tagKOORD& record) {
    const double northing = axes::Value(Axis::North, record);
    const bool isSouth = record.type == KOORD_UTM && UpperCase(Load<UtmPayload>(record).hemisphere) == 'S';
    return isSouth ? northing - UTM_SOUTHERN_FALSE_NORTHING : northing;
}

void axes::SetSignedNorthing(double northing, tagKOORD* record) {
    if (record->type != KOORD_UTM) {
        axes::SetValue(Axis::North, northing, record);
        return;
    }
    auto payload = Load<UtmPayload>(*record);
    payload.hemisphere = northing < 0.0 ? 'S' : 'N';
    payload.northing = northing < 0.0 ? northing + UTM_SOUTHERN_FALSE_NORTHING : northing;
    Store(*record, payload);
}

}  // namespace tessara
