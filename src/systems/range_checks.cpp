#include "systems/range_checks.h"

#include <cmath>
#include <cstddef>
#include <cstring>

#include "systems/system_row.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/range_checks.h"

namespace tessara {
namespace {

// Reads one field of a record that has just been written. Loading the whole payload would use wider loads
// than the stores, and a processor has to wait for such stores to reach memory.
template <class Field>
Field FieldAt(const tagKOORD& record, std::size_t offset) {
    Field field;
    std::memcpy(&field, record.payload + offset, sizeof field);
    return field;
}

struct AxisRange {
    double low;
    double high;
};

AxisRange EastRange(const Limits& limits) {
    return {limits.west, limits.east};
}
AxisRange NorthRange(const Limits& limits) {
    return {limits.south, limits.north};
}

constexpr RangeStatus EAST_STATUS{KOORD_ERR_EAST_LOW, KOORD_ERR_EAST_HIGH};
constexpr RangeStatus NORTH_STATUS{KOORD_ERR_NORTH_LOW, KOORD_ERR_NORTH_HIGH};

KoordStatus CheckAxis(double value, AxisRange range, RangeStatus status) {
    if (!(value >= range.low)) return status.low;
    if (value > range.high) return status.high;
    return KOORD_OK;
}

// Two tests in order; the first failure is the result.
KoordStatus First(KoordStatus first, KoordStatus second) {
    return first != KOORD_OK ? first : second;
}

constexpr AxisRange UPS_LATITUDE{UPS_LATITUDES.nearest, UPS_LATITUDES.furthest};

KoordStatus CheckGeodetic(const double latLon[2], const Limits& limits) {
    return First(CheckAxis(latLon[1], EastRange(limits), EAST_STATUS),
                 CheckAxis(latLon[0], NorthRange(limits), NORTH_STATUS));
}

KoordStatus CheckPolar(double latitude) {
    const KoordStatus outside = latitude >= 0.0 ? KOORD_ERR_NORTH_HIGH : KOORD_ERR_NORTH_LOW;
    return CheckAxis(std::fabs(latitude), UPS_LATITUDE, Either(outside));
}

KoordStatus CheckLatitudeLongitude(const double latLon[2]) {
    return First(CheckAxis(latLon[0], NorthRange(GEOGRAPHIC_LIMITS), Either(KOORD_ERR_GEO_LAT)),
                 CheckAxis(latLon[1], EastRange(GEOGRAPHIC_LIMITS), Either(KOORD_ERR_GEO_LON)));
}

bool IsBelowSixty(double minutesOrSeconds) {
    return std::fabs(minutesOrSeconds) < 60.0;
}

bool IsLetterOrZero(char letter, char one, char other) {
    return letter == 0 || letter == one || letter == other;
}

// Whether a letter is a capital up to `last`, other than I and O.
bool IsGeorefLetter(char letter, char last) {
    return letter >= 'A' && letter <= last && letter != 'I' && letter != 'O';
}

// The number of minute values at a GEOREF precision; 0 for a precision that doesn't exist.
std::int32_t GeorefMinuteCount(std::int16_t precision) {
    switch (precision) {
        case 3:
            return 60;
        case 4:
            return 600;
        case 5:
            return 6000;
        default:
            return 0;
    }
}

// The limits within a 100 km square of the lettered grids.
constexpr Limits SQUARE_LIMITS{0.0, 99999.99, 0.0, 99999.99};

KoordStatus CheckMetres(double easting, double northing, const Limits& limits, const RangeRow& range) {
    return First(CheckAxis(easting, EastRange(limits), range.east),
                 CheckAxis(northing, NorthRange(limits), range.north));
}

}  // namespace

KoordStatus CheckPosition(const double latLon[2], const SystemRow& row) {
    switch (row.range.test) {
        case RangeTest::Before:
            return CheckGeodetic(latLon, row.limits);
        case RangeTest::BeforePolar:
            return CheckPolar(latLon[0]);
        case RangeTest::None:
            return KOORD_OK;
        case RangeTest::After:
            return KOORD_CHECK_AFTER;
        case RangeTest::Refused:
            break;
    }
    return KOORD_ERR_TYPE;
}

KoordStatus AcceptRecord(const tagKOORD& /*record*/, const SystemRow& /*row*/) {
    return KOORD_OK;
}

KoordStatus CheckThroughGeodez(const tagKOORD& record, const SystemRow& row) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    const KoordStatus status = KoordConvert(&record, &geodez);
    if (status != KOORD_OK) return status;
    const GeodezPayload position = Load<GeodezPayload>(geodez);
    return First(CheckAxis(position.longitude, EastRange(row.limits), row.range.east),
                 CheckAxis(position.latitude, NorthRange(row.limits), row.range.north));
}

KoordStatus CheckUps(const tagKOORD& record, const SystemRow& /*row*/) {
    const char hemisphere = Load<UpsPayload>(record).hemisphere;
    if (hemisphere != 'N' && hemisphere != 'S') return KOORD_ERR_UPS;
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    const KoordStatus status = KoordConvert(&record, &geodez);
    if (status != KOORD_OK) return status;
    return CheckAxis(std::fabs(Load<GeodezPayload>(geodez).latitude), UPS_LATITUDE, Either(KOORD_ERR_UPS));
}

KoordStatus CheckGeodez(const tagKOORD& record, const SystemRow& /*row*/) {
    const GeodezPayload p = Load<GeodezPayload>(record);
    const double latLon[2] = {p.latitude, p.longitude};
    return CheckLatitudeLongitude(latLon);
}

KoordStatus CheckGeograd(const tagKOORD& record, const SystemRow& /*row*/) {
    const GeogradPayload p = Load<GeogradPayload>(record);
    if (!IsBelowSixty(p.lonMinutes) || !IsBelowSixty(p.lonSeconds)) return KOORD_ERR_GEO_LON;
    if (!IsBelowSixty(p.latMinutes) || !IsBelowSixty(p.latSeconds)) return KOORD_ERR_GEO_LAT;
    if (!IsLetterOrZero(p.lonHemisphere, 'E', 'W') || !IsLetterOrZero(p.latHemisphere, 'N', 'S')) {
        return KOORD_ERR_HEMISPHERE;
    }
    double latLon[2];
    GEOGRAD_ToGeodetic(&p, latLon);
    return CheckLatitudeLongitude(latLon);
}

KoordStatus CheckGeodezMin(const tagKOORD& record, const SystemRow& /*row*/) {
    const GeodezMinPayload p = Load<GeodezMinPayload>(record);
    if (!IsBelowSixty(p.lonMinutes)) return KOORD_ERR_GEO_LON;
    if (!IsBelowSixty(p.latMinutes)) return KOORD_ERR_GEO_LAT;
    if (!IsLetterOrZero(p.lonHemisphere, 'E', 'W') || !IsLetterOrZero(p.latHemisphere, 'N', 'S')) {
        return KOORD_ERR_HEMISPHERE;
    }
    double latLonHeight[3];
    GEODEZMIN_ToGeodetic(&p, latLonHeight);
    return CheckLatitudeLongitude(latLonHeight);
}

KoordStatus CheckGeoref(const tagKOORD& record, const SystemRow& /*row*/) {
    const GeorefPayload p = Load<GeorefPayload>(record);
    if (!IsGeorefLetter(p.lonZone, 'Z')) return KOORD_ERR_GEOREF_LON_ZONE;
    if (!IsGeorefLetter(p.latZone, 'M')) return KOORD_ERR_GEOREF_LAT_ZONE;
    if (!IsGeorefLetter(p.lonDegree, 'Q')) return KOORD_ERR_GEOREF_LON_DEGREE;
    if (!IsGeorefLetter(p.latDegree, 'Q')) return KOORD_ERR_GEOREF_LAT_DEGREE;
    const std::int32_t minutes = GeorefMinuteCount(p.precision);
    if (minutes == 0) return KOORD_ERR_GEOREF_PRECISION;
    if (p.lonMinutes < 0 || p.lonMinutes >= minutes) return KOORD_ERR_GEOREF_LON_MINUTES;
    if (p.latMinutes < 0 || p.latMinutes >= minutes) return KOORD_ERR_GEOREF_LAT_MINUTES;
    return KOORD_OK;
}

KoordStatus CheckGrid(const tagKOORD& record, const SystemRow& row) {
    return CheckMetres(FieldAt<double>(record, offsetof(GridPayload, easting)),
                       FieldAt<double>(record, offsetof(GridPayload, northing)), row.limits, row.range);
}

// Letters aren't rejected here: the conversion knows which letters exist and returns KOORD_ERR_GRID_RANGE.
// KOORD_ERR_GRID_LETTER is reserved.
KoordStatus CheckLetterGrid(const tagKOORD& record, const SystemRow& row) {
    using P = LetterGridPayload;
    const bool hasLetters =
        FieldAt<char>(record, offsetof(P, square)) != 0 && FieldAt<char>(record, offsetof(P, subSquare)) != 0;
    const double easting =
        FieldAt<double>(record, hasLetters ? offsetof(P, easting) : offsetof(P, fullEasting));
    const double northing =
        FieldAt<double>(record, hasLetters ? offsetof(P, northing) : offsetof(P, fullNorthing));
    return CheckMetres(easting, northing, hasLetters ? SQUARE_LIMITS : row.limits, row.range);
}

KoordStatus Range_CheckGeodetic(const double latLon[2], std::int32_t type, std::int32_t* detail) {
    *detail = CheckPosition(latLon, SystemOf(type));
    return *detail == KOORD_OK || *detail == KOORD_CHECK_AFTER ? KOORD_OK : KOORD_ERR_GENERAL;
}

KoordStatus Range_CheckRecord(const tagKOORD* record, std::int32_t* detail) {
    const SystemRow& row = SystemOf(*record);
    *detail = row.range.check != nullptr ? row.range.check(*record, row) : KOORD_ERR_TYPE;
    return *detail == KOORD_OK ? KOORD_OK : KOORD_ERR_GENERAL;
}

}  // namespace tessara
