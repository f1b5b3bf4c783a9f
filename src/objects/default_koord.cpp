#include "objects/default_koord.h"

#include "objects/reference.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// None of the precisions that GEOREF works with: a default position has no minutes and no text.
constexpr std::int16_t DEFAULT_GEOREF_PRECISION = 8;

UtmPayload DefaultUtm() {
    UtmPayload p{};
    p.hemisphere = 'N';
    p.wantedZone = NO_WANTED_ZONE;
    p.zone = 30;
    p.easting = 500000.0;
    return p;
}

UtmrefPayload DefaultUtmref() {
    UtmrefPayload p{};
    p.wantedZone = NO_WANTED_ZONE;
    p.zone = 30;
    p.band = 'N';
    p.column = 'W';
    p.row = 'F';
    return p;
}

template <class Payload>
Payload DefaultSexagesimal() {
    Payload p{};
    p.latHemisphere = 'N';
    p.lonHemisphere = 'W';
    return p;
}

GeorefPayload DefaultGeoref() {
    GeorefPayload p{};
    p.precision = DEFAULT_GEOREF_PRECISION;
    p.lonZone = 'N';
    p.latZone = 'G';
    p.lonDegree = 'A';
    p.latDegree = 'A';
    return p;
}

GkPayload DefaultGk(double easting) {
    GkPayload p{};
    p.letter = 'N';
    p.wantedMeridian = NO_WANTED_ZONE;
    p.easting = easting;
    return p;
}

BmnPayload DefaultBmn(double easting, double northing) {
    BmnPayload p{};
    p.wantedMeridian = NO_WANTED_ZONE;
    p.meridian = 31;
    p.easting = easting;
    p.northing = northing;
    return p;
}

UpsPayload DefaultUps() {
    UpsPayload p{};
    p.hemisphere = 'N';
    p.easting = 2000000.0;
    p.northing = 2000000.0;
    return p;
}

TmPayload DefaultTm() {
    TmPayload p{};
    p.scale = 1.0;
    return p;
}

// Fills a record whose payload is all zero.
bool FillDefaultPayload(tagKOORD& record) {
    switch (record.type) {
        case KOORD_LONGPIXEL:
        case KOORD_FLOATPIXEL:
        case KOORD_GEODEZ:
        case KOORD_ECEF:
        case KOORD_VDG:
        case KOORD_BNG:
        case KOORD_ING:
        case KOORD_LUREF:
            return true;
        case KOORD_UTM:
            Store(record, DefaultUtm());
            return true;
        case KOORD_UTMREF:
            Store(record, DefaultUtmref());
            return true;
        case KOORD_GEOGRAD:
            Store(record, DefaultSexagesimal<GeogradPayload>());
            return true;
        case KOORD_GEODEZMIN:
            Store(record, DefaultSexagesimal<GeodezMinPayload>());
            return true;
        case KOORD_GEOREF:
            Store(record, DefaultGeoref());
            return true;
        case KOORD_GK:
            Store(record, DefaultGk(3500000.0));
            return true;
        case KOORD_GK6:
            Store(record, DefaultGk(2500000.0));
            return true;
        case KOORD_BMN:
            Store(record, DefaultBmn(500000.0, 200000.0));
            return true;
        case KOORD_OEM:
            Store(record, DefaultBmn(800000.0, 5200000.0));
            return true;
        case KOORD_GKAT:
            Store(record, DefaultBmn(0.0, 5200000.0));
            return true;
        case KOORD_CH:
            Store(record, GridPayload{600000.0, 200000.0});
            return true;
        case KOORD_UPS:
            Store(record, DefaultUps());
            return true;
        case KOORD_PO_MILITARY:
            Store(record, GridPayload{200000.0, 200000.0});
            return true;
        case KOORD_TM:
            Store(record, DefaultTm());
            return true;
        case KOORD_RD:
            Store(record, GridPayload{200000.0, 400000.0});
            return true;
        default:
            return false;
    }
}

}  // namespace

bool DefaultKoord(std::int32_t datum, std::int32_t system, CKoord* koord) {
    CKoord fresh;  // payload and height are zero
    fresh.datum = static_cast<std::uint32_t>(datum);
    fresh.type = static_cast<std::uint32_t>(system);
    if (!IsReferenceDatum(datum) || !FillDefaultPayload(fresh)) return false;
    *koord = fresh;
    return true;
}

bool ResetToDefault(CKoord* koord) {
    return DefaultKoord(static_cast<std::int32_t>(koord->datum), static_cast<std::int32_t>(koord->type),
                        koord);
}

bool IsEarthCentre(const tagKOORD& record) {
    if (record.type != KOORD_ECEF) return false;
    const auto [x, y, z] = Load<EcefPayload>(record);
    return x == 0.0 && y == 0.0 && z == 0.0;
}

}  // namespace tessara
