#include "objects/axis_copy.h"

#include "kernel/letters.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

template <class Payload, class... Fields>
void CopyFields(const tagKOORD& source, tagKOORD* target, Fields Payload::*... fields) {
    const auto from = Load<Payload>(source);
    auto to = Load<Payload>(*target);
    ((to.*fields = from.*fields), ...);
    Store(*target, to);
}

// One step around the ring of the row letters, which leaves out I and O.
char StepRow(char row, int direction) {
    if (direction > 0 && row == 'V') return 'A';
    if (direction < 0 && row == 'A') return 'V';
    const auto step = [direction](char c) { return static_cast<char>(c + direction); };
    const char next = step(row);
    return next == 'I' || next == 'O' ? step(next) : next;
}

// The rows of odd and even zones are lettered five apart: a row that changes zone is walked so that it stays
// on the same ground.
char RowInZone(char row, int fromZone, int toZone) {
    const int fromParity = fromZone % 2 != 0 ? 1 : 0;
    const int toParity = toZone % 2 != 0 ? 1 : 0;
    if (fromParity == toParity) return row;
    char walked = UpperCase(row);
    for (int i = 0; i < 5; ++i)
        walked = StepRow(walked, toParity < fromParity ? 1 : -1);
    return walked;
}

void CopyUtmrefEast(const tagKOORD& source, tagKOORD* target) {
    const int oldZone = Load<UtmrefPayload>(*target).zone;
    CopyFields(source, target, &UtmrefPayload::zone, &UtmrefPayload::column, &UtmrefPayload::easting,
               &UtmrefPayload::wantedZone);
    auto payload = Load<UtmrefPayload>(*target);
    payload.row = RowInZone(payload.row, oldZone, payload.zone);
    Store(*target, payload);
}

// The finer precision of the two; the minutes of the other axis stay the numbers they are.
void RaiseGeorefPrecision(const tagKOORD& source, tagKOORD* target) {
    const auto from = Load<GeorefPayload>(source);
    auto to = Load<GeorefPayload>(*target);
    if (from.precision > to.precision) to.precision = from.precision;
    Store(*target, to);
}

// Lets the kernel derive letters and part values from the full values, on one datum there and back.
void RenewLetters(tagKOORD* target) {
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

bool CopyEast(const tagKOORD& source, tagKOORD* target) {
    switch (source.type) {
        case KOORD_LONGPIXEL:
            CopyFields(source, target, &LongPixelPayload::x);
            return true;
        case KOORD_FLOATPIXEL:
            CopyFields(source, target, &FloatPixelPayload::x);
            return true;
        case KOORD_UTM:
            CopyFields(source, target, &UtmPayload::zone, &UtmPayload::easting, &UtmPayload::wantedZone);
            return true;
        case KOORD_UTMREF:
            CopyUtmrefEast(source, target);
            return true;
        case KOORD_GEODEZ:
            CopyFields(source, target, &GeodezPayload::longitude);
            return true;
        case KOORD_GEOGRAD:
            CopyFields(source, target, &GeogradPayload::lonDegrees, &GeogradPayload::lonMinutes,
                       &GeogradPayload::lonSeconds, &GeogradPayload::lonHemisphere);
            return true;
        case KOORD_GEOREF:
            RaiseGeorefPrecision(source, target);
            CopyFields(source, target, &GeorefPayload::lonZone, &GeorefPayload::lonDegree,
                       &GeorefPayload::lonMinutes);
            return true;
        case KOORD_GK:
        case KOORD_GK6:
            CopyFields(source, target, &GkPayload::easting, &GkPayload::wantedMeridian);
            return true;
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            CopyFields(source, target, &BmnPayload::wantedMeridian, &BmnPayload::meridian,
                       &BmnPayload::easting);
            return true;
        case KOORD_CH:
        case KOORD_PO_MILITARY:
        case KOORD_RD:
        case KOORD_LUREF:
            CopyFields(source, target, &GridPayload::easting);
            return true;
        case KOORD_ECEF:
            CopyFields(source, target, &EcefPayload::x, &EcefPayload::y);
            return true;
        case KOORD_GEODEZMIN:
            CopyFields(source, target, &GeodezMinPayload::lonDegrees, &GeodezMinPayload::lonMinutes,
                       &GeodezMinPayload::lonHemisphere);
            return true;
        case KOORD_UPS:
            CopyFields(source, target, &UpsPayload::easting);
            return true;
        case KOORD_TM:
            CopyFields(source, target, &TmPayload::falseEasting, &TmPayload::originLongitude,
                       &TmPayload::easting);
            return true;
        case KOORD_VDG:
            CopyFields(source, target, &VdgPayload::x);
            return true;
        case KOORD_BNG:
        case KOORD_ING:
            CopyFields(source, target, &LetterGridPayload::fullEasting);
            RenewLetters(target);
            return true;
        default:
            return false;
    }
}

bool CopyNorth(const tagKOORD& source, tagKOORD* target) {
    switch (source.type) {
        case KOORD_LONGPIXEL:
            CopyFields(source, target, &LongPixelPayload::y);
            return true;
        case KOORD_FLOATPIXEL:
            CopyFields(source, target, &FloatPixelPayload::y);
            return true;
        case KOORD_UTM:
            CopyFields(source, target, &UtmPayload::hemisphere, &UtmPayload::northing);
            return true;
        case KOORD_UTMREF:
            CopyFields(source, target, &UtmrefPayload::band, &UtmrefPayload::row, &UtmrefPayload::northing);
            return true;
        case KOORD_GEODEZ:
            CopyFields(source, target, &GeodezPayload::latitude);
            return true;
        case KOORD_GEOGRAD:
            CopyFields(source, target, &GeogradPayload::latDegrees, &GeogradPayload::latMinutes,
                       &GeogradPayload::latSeconds, &GeogradPayload::latHemisphere);
            return true;
        case KOORD_GEOREF:
            RaiseGeorefPrecision(source, target);
            CopyFields(source, target, &GeorefPayload::latZone, &GeorefPayload::latDegree,
                       &GeorefPayload::latMinutes);
            return true;
        case KOORD_GK:
        case KOORD_GK6:
            CopyFields(source, target, &GkPayload::letter, &GkPayload::northing);
            return true;
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            CopyFields(source, target, &BmnPayload::northing);
            return true;
        case KOORD_CH:
        case KOORD_PO_MILITARY:
        case KOORD_RD:
        case KOORD_LUREF:
            CopyFields(source, target, &GridPayload::northing);
            return true;
        case KOORD_ECEF:
            CopyFields(source, target, &EcefPayload::z);
            return true;
        case KOORD_GEODEZMIN:
            CopyFields(source, target, &GeodezMinPayload::latDegrees, &GeodezMinPayload::latMinutes,
                       &GeodezMinPayload::latHemisphere);
            return true;
        case KOORD_UPS:
            CopyFields(source, target, &UpsPayload::hemisphere, &UpsPayload::northing);
            return true;
        case KOORD_TM:
            CopyFields(source, target, &TmPayload::falseNorthing, &TmPayload::originLatitude,
                       &TmPayload::northing);
            return true;
        case KOORD_VDG:
            CopyFields(source, target, &VdgPayload::y);
            return true;
        case KOORD_BNG:
        case KOORD_ING:
            CopyFields(source, target, &LetterGridPayload::fullNorthing);
            RenewLetters(target);
            return true;
        default:
            return false;
    }
}

}  // namespace

bool CopyAxis(Axis axis, const tagKOORD& source, tagKOORD* target) {
    return axis == Axis::East ? CopyEast(source, target) : CopyNorth(source, target);
}

}  // namespace tessara
