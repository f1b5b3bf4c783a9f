#include "tessara/kernel/zone_systems.h"

#include <cmath>
#include <cstdlib>

#include "kernel/numeric.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr double UTM_SCALE = 0.9996;

constexpr double STRIP_EASTING_END = 999999.999999;
constexpr double STRIP_SCALE = 1.0;

// What distinguishes the strip systems.
struct StripSystem {
    std::int32_t width;      // degrees from one meridian to the next
    std::int32_t offset;     // strip n has the meridian n * width - offset, strip -n its negative
    std::int32_t kkjOrigin;  // degrees; on the datum KKJ strips count from here
    std::int32_t (*naturalMeridian)(double lon);
    Limits limits;
};

constexpr StripSystem GK{3, 0, 18, GK_NaturalMeridian, GK_LIMITS};
constexpr StripSystem GK6{6, 3, 0, GK6_NaturalMeridian, GK6_LIMITS};

// The 6 degree meridian of a longitude, counted from Greenwich eastward for side 1 and westward for -1.
double SixDegreeMeridian(double lon, double side) {
    return std::trunc((lon + side * 6.0) / 6.0) * 6.0 - side * 3.0;
}

bool IsStripMeridian(const StripSystem& system, std::int32_t meridian) {
    return (meridian + system.offset) % system.width == 0 && std::abs(meridian) < 181;
}

// Whether two meridians lie 13 degrees or more from each other, across the date line too.
bool AreDistant(std::int32_t meridian, std::int32_t natural) {
    if (meridian > 90 && natural < -90) natural += 360;
    if (meridian < -90 && natural > 90) natural -= 360;
    return std::abs(meridian - natural) >= 13;
}

std::int32_t StripOrigin(const StripSystem& system, std::int32_t datum) {
    return datum == DATUM_KKJ ? system.kkjOrigin : 0;
}

// The meridian as it is numbered: from the system's origin on this datum.
std::int32_t NumberedMeridian(std::int32_t meridian, std::int32_t origin) {
    const std::int32_t numbered = meridian - origin;
    return numbered < -180 ? numbered + 360 : numbered;
}

// The strip's number in the millions and, west of the origin, the easting counted the other way.
double WithStrip(const StripSystem& system, std::int32_t meridian, double easting) {
    const std::int32_t side = meridian < 0 ? -1 : 1;
    const std::int32_t strip = (meridian + side * system.offset) / system.width;
    return strip * STRIP_MILLION + side * easting;
}

KoordStatus FromGeodetic(const StripSystem& system, const double latLon[2], GkPayload* payload,
                         const TmConstants* forward) {
    payload->easting = 0.0;
    payload->northing = 0.0;
    const std::int32_t natural = system.naturalMeridian(latLon[1]);
    if (natural == UNKNOWN_ZONE) return KOORD_ERR_GK_EAST;
    const std::int32_t wanted = payload->wantedMeridian;
    const std::int32_t meridian = IsStripMeridian(system, wanted) ? wanted : natural;

    const double dLon = WrapTurns((latLon[1] - meridian) * RADIANS_PER_DEGREE, TWO_PI);
    double easting;
    TM_Forward(dLon, latLon[0] * RADIANS_PER_DEGREE, STRIP_SCALE, ZONE_FALSE_EASTING, 0.0, &easting,
               &payload->northing, forward);
    const std::int32_t origin = StripOrigin(system, forward->datum);
    payload->easting = WithStrip(system, NumberedMeridian(meridian, origin), easting);

    if (easting < 0.0 || easting > STRIP_EASTING_END) return KOORD_ERR_GK_EAST;
    return AreDistant(meridian, natural) ? KOORD_ERR_ZONE_DISTANT : KOORD_OK;
}

KoordStatus ToGeodetic(const StripSystem& system, const GkPayload* payload, double latLon[2],
                       const TmConstants* inverse) {
    latLon[0] = 0.0;
    latLon[1] = 0.0;
    const std::int32_t strip = TruncateToInt32(payload->easting) / 1000000;
    const double easting = std::fabs(payload->easting - strip * STRIP_MILLION);
    const std::int32_t meridian = strip * system.width + (strip < 0 ? system.offset : -system.offset);
    const Limits& limits = system.limits;
    if (meridian < limits.west || meridian > limits.east) return KOORD_ERR_MERIDIAN;

    double lon;
    double lat;
    TM_Inverse(easting, payload->northing, STRIP_SCALE, ZONE_FALSE_EASTING, 0.0, meridian, &lon, &lat,
               inverse);
    const std::int32_t origin = StripOrigin(system, inverse->datum);
    if (origin != 0) {
        lon += origin;
        if (lon > 180.0) lon -= 360.0;
    }
    latLon[0] = SnapToEither(limits.south, limits.north, lat, LIMIT_TOLERANCE_DEGREES);
    latLon[1] = SnapToEither(limits.west, limits.east, lon, LIMIT_TOLERANCE_DEGREES);
    return KOORD_OK;
}

}  // namespace

std::int32_t UTM_NaturalMeridian(double lon) {
    return TruncateToInt32(SixDegreeMeridian(lon, lon > 0.0 ? 1.0 : -1.0));
}

std::int32_t GK6_NaturalMeridian(double lon) {
    return TruncateToInt32(WrapTurns(SixDegreeMeridian(lon, lon >= 0.0 ? 1.0 : -1.0), 360.0));
}

std::int32_t GK_NaturalMeridian(double lon) {
    const double half = lon >= 0.0 ? 1.5 : -1.5;
    return TruncateToInt32(WrapTurns(std::trunc((lon + half) / 3.0) * 3.0, 360.0));
}

KoordStatus UTM_FromGeodetic(const double latLon[2], UtmPayload* payload, const TmConstants* forward) {
    payload->easting = 0.0;
    payload->northing = 0.0;
    const std::int64_t natural = UTM_NaturalMeridian(latLon[1]);
    if (natural == UNKNOWN_ZONE) return KOORD_ERR_ZONE_DISTANT;
    std::int64_t meridian = IsUtmZone(payload->wantedZone) ? UtmMeridian(payload->wantedZone) : natural;
    const std::int64_t distance = std::abs(meridian - natural);
    const bool isAcrossDateLine = distance >= 300;
    const bool isDistant = distance > 60 && !isAcrossDateLine;
    if (isAcrossDateLine) meridian += meridian < 0 ? 360 : -360;

    std::int64_t zone = (meridian - 3) / 6 + 31;
    if (zone == 0) zone = UTM_ZONE_COUNT;
    if (zone > UTM_ZONE_COUNT) zone %= UTM_ZONE_COUNT;
    payload->zone = static_cast<std::int16_t>(zone);

    const double dLon = (latLon[1] - static_cast<double>(meridian)) * RADIANS_PER_DEGREE;
    TM_Forward(dLon, latLon[0] * RADIANS_PER_DEGREE, UTM_SCALE, ZONE_FALSE_EASTING, 0.0, &payload->easting,
               &payload->northing, forward);
    if (latLon[0] == 0.0 && payload->northing < 0.0) payload->northing = 0.0;
    payload->hemisphere = payload->northing < 0.0 ? 'S' : 'N';
    if (payload->northing < 0.0) payload->northing += UTM_SOUTHERN_FALSE_NORTHING;
    return isDistant ? KOORD_ERR_ZONE_DISTANT : KOORD_OK;
}

KoordStatus UTM_ToGeodetic(const UtmPayload* payload, double latLon[2], const TmConstants* inverse) {
    if (!IsUtmZone(payload->zone)) return KOORD_ERR_UTM_ZONE;
    const bool isSouth = payload->hemisphere == 'S' || payload->hemisphere == 's';
    double lon;
    double lat;
    TM_Inverse(payload->easting, payload->northing, UTM_SCALE, ZONE_FALSE_EASTING,
               isSouth ? UTM_SOUTHERN_FALSE_NORTHING : 0.0, UtmMeridian(payload->zone), &lon, &lat, inverse);
    latLon[0] = SnapToEither(UTM_LIMITS.south, UTM_LIMITS.north, lat, LIMIT_TOLERANCE_DEGREES);
    latLon[1] = SnapToEither(UTM_LIMITS.west, UTM_LIMITS.east, lon, LIMIT_TOLERANCE_DEGREES);
    return KOORD_OK;
}

KoordStatus GK_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward) {
    return FromGeodetic(GK, latLon, payload, forward);
}

KoordStatus GK_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(GK, payload, latLon, inverse);
}

KoordStatus GK6_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward) {
    return FromGeodetic(GK6, latLon, payload, forward);
}

KoordStatus GK6_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(GK6, payload, latLon, inverse);
}

}  // namespace tessara
