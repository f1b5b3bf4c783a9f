#include "objects/axis_values.h"

#include <cstring>

#include "kernel/numeric.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// Where in the payload the two doubles stand.
struct AxisOffsets {
    std::size_t east;
    std::size_t north;
};

constexpr std::size_t NOWHERE = SIZE_MAX;

AxisOffsets OffsetsOf(std::int32_t system) {
    switch (system) {
        case KOORD_FLOATPIXEL:
            return {offsetof(FloatPixelPayload, x), offsetof(FloatPixelPayload, y)};
        case KOORD_UTM:
            return {offsetof(UtmPayload, easting), offsetof(UtmPayload, northing)};
        case KOORD_GEODEZ:
            return {offsetof(GeodezPayload, longitude), offsetof(GeodezPayload, latitude)};
        case KOORD_GK:
        case KOORD_GK6:
            return {offsetof(GkPayload, easting), offsetof(GkPayload, northing)};
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return {offsetof(BmnPayload, easting), offsetof(BmnPayload, northing)};
        case KOORD_CH:
        case KOORD_PO_MILITARY:
        case KOORD_RD:
        case KOORD_LUREF:
            return {offsetof(GridPayload, easting), offsetof(GridPayload, northing)};
        case KOORD_UPS:
            return {offsetof(UpsPayload, easting), offsetof(UpsPayload, northing)};
        case KOORD_TM:
            return {offsetof(TmPayload, easting), offsetof(TmPayload, northing)};
        case KOORD_VDG:
            return {offsetof(VdgPayload, x), offsetof(VdgPayload, y)};
        case KOORD_BNG:
        case KOORD_ING:
            return {offsetof(LetterGridPayload, fullEasting), offsetof(LetterGridPayload, fullNorthing)};
        default:
            return {NOWHERE, NOWHERE};
    }
}

std::size_t OffsetOf(Axis axis, const tagKOORD& record) {
    const AxisOffsets offsets = OffsetsOf(static_cast<std::int32_t>(record.type));
    return axis == Axis::East ? offsets.east : offsets.north;
}

bool IsSouth(const UtmPayload& payload) {
    return payload.hemisphere == 'S' || payload.hemisphere == 's';
}

}  // namespace

bool Axis_IsNumber(std::int32_t system) {
    return system == KOORD_LONGPIXEL || OffsetsOf(system).east != NOWHERE;
}

double Axis_Value(Axis axis, const tagKOORD& record) {
    if (record.type == KOORD_LONGPIXEL) {
        const auto pixel = Load<LongPixelPayload>(record);
        return axis == Axis::East ? pixel.x : pixel.y;
    }
    const std::size_t offset = OffsetOf(axis, record);
    double value = 0.0;
    if (offset != NOWHERE) std::memcpy(&value, record.payload + offset, sizeof value);
    return value;
}

void Axis_SetValue(Axis axis, double value, tagKOORD* record) {
    if (record->type == KOORD_LONGPIXEL) {
        auto pixel = Load<LongPixelPayload>(*record);
        (axis == Axis::East ? pixel.x : pixel.y) = TruncateToInt32(value);
        Store(*record, pixel);
        return;
    }
    const std::size_t offset = OffsetOf(axis, *record);
    if (offset != NOWHERE) std::memcpy(record->payload + offset, &value, sizeof value);
}

double Axis_SignedNorthing(const tagKOORD& record) {
    const double northing = Axis_Value(Axis::North, record);
    const bool isSouth = record.type == KOORD_UTM && IsSouth(Load<UtmPayload>(record));
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
