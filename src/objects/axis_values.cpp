#include "objects/axis_values.h"

#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "systems/fields.h"
#include "tessara/kernel/constants.h"

namespace tessara {

bool Axis_IsNumber(std::int32_t system) {
    return SystemOf(system).east.value.kind != FieldKind::None;
}

double Axis_Value(Axis axis, const tagKOORD& record) {
    return NumberOf(record, AxisRowOf(axis, record).value);
}

void Axis_SetValue(Axis axis, double value, tagKOORD* record) {
    const RecordField field = AxisRowOf(axis, *record).value;
    if (field.kind == FieldKind::Number) SetValue(record, field, value);
    if (field.kind == FieldKind::Whole32) SetValue(record, field, TruncateToInt32(value));
}

double Axis_SignedNorthing(const tagKOORD& record) {
    const double northing = Axis_Value(Axis::North, record);
    const bool isSouth =
        record.type == KOORD_UTM && UpperCase(Load<UtmPayload>(record).hemisphere) == 'S';
    return isSouth ? northing - UTM_SOUTHERN_FALSE_NORTHING : northing;
}

void Axis_SetSignedNorthing(double northing, tagKOORD* record) {
    if (record->type != KOORD_UTM) {
        Axis_SetValue(Axis::North, northing, record);
        return;
    }
    auto payload = Load<UtmPayload>(*record);
    payload.hemisphere = northing < 0.0 ? 'S' : 'N';
    payload.northing = northing < 0.0 ? northing + UTM_SOUTHERN_FALSE_NORTHING : northing;
    Store(*record, payload);
}

}  // namespace tessara
