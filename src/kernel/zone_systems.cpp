#include "tessara/kernel/zone_systems.h"

#include <cmath>
#include <cstdlib>

#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/zone_formulas.h"
#include "numerics/rounding.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using zones::GK;
using zones::GK6;
using zones::Gk6MeridianOf;
using zones::GkMeridianOf;
using zones::IsSouth;
using zones::IsStripMeridian;
using zones::NorthOfEquator;
using zones::STRIP_EASTING_END;
using zones::STRIP_SCALE;
using zones::StripOrigin;
using zones::StripSystem;
using zones::UTM_SCALE;
using zones::UtmMeridianOf;
using zones::UtmNorthing;

using NaturalMeridian = std::int32_t (*)(double lon);

inline std::int32_t NaturalUtmMeridian(double lon) {
    // A few turns are counted in integers, on both sides of Greenwich alike: a branch would often be guessed
    // wrong.
    constexpr double FEW_TURNS = 10.0 * DEGREES_PER_TURN;
    const double magnitude = std::fabs(lon);
    if (!(magnitude < FEW_TURNS)) return TruncateToInt32(UtmMeridianOf(lon));
    const std::int32_t meridian = TruncateInRange((magnitude + 6.0) / 6.0) * 6 - 3;
    return lon > 0.0 ? meridian : -meridian;
}

// Whether two meridians are 13 degrees or more apart, also across the date line.
bool AreDistant(std::int32_t meridian, std::int32_t natural) {
    if (meridian > 90 && natural < -90) natural += 360;
    if (meridian < -90 && natural > 90) natural -= 360;
    return std::abs(meridian - natural) >= 13;
}

// The meridian relative to the origin of the system's numbering on this datum.
std::int32_t NumberedMeridian(std::int32_t meridian, std::int32_t origin) {
    const std::int32_t numbered = meridian - origin;
    return numbered < -180 ? numbered + 360 : numbered;
}

// Adds the number of the strip in the millions; west of the origin the easting counts in the other
// direction.
double WithStrip(const StripSystem& system, std::int32_t meridian, double easting) {
    const std::int32_t side = meridian < 0 ? -1 : 1;
    const std::int32_t strip = (meridian + side * system.offset) / system.width;
    return strip * STRIP_MILLION + side * easting;
}

inline void PutNorthing(double latitude, double north, UtmPayload* payload) {
    constexpr double falseNorthings[] = {0.0, UTM_SOUTHERN_FALSE_NORTHING};
    // The side of the equator is that of the latitude, which is known before the northing is; only within a
    // rounding error of the equator and beyond a pole it may be the other one.
    const bool isSouth = latitude < 0.0;
    if ((north < 0.0) == isSouth) [[likely]] {
        payload->hemisphere = "NS"[isSouth ? 1 : 0];
        payload->northing = north + falseNorthings[isSouth ? 1 : 0];
        return;
    }
    const double corrected = NorthOfEquator(latitude, north);
    payload->hemisphere = corrected < 0.0 ? 'S' : 'N';
    payload->northing = UtmNorthing(corrected);
}

KoordStatus FromGeodetic(const StripSystem& system, NaturalMeridian naturalMeridian, const double latLon[2],
                         GkPayload* payload, const TmConstants* forward) {
    payload->easting = 0.0;
    payload->northing = 0.0;
    const std::int32_t natural = naturalMeridian(latLon[1]);
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

// The strip's number in the millions of an easting, and its meridian as it is numbered.
struct Strip {
    std::int32_t number;
    std::int32_t meridian;
};

Strip StripOf(const StripSystem& system, double easting) {
    const std::int32_t strip = TruncateToInt32(easting) / 1000000;
    return {strip, strip * system.width + (strip < 0 ? system.offset : -system.offset)};
}

KoordStatus ToGeodetic(const StripSystem& system, const GkPayload* payload, double latLon[2],
                       const TmConstants* inverse) {
    latLon[0] = 0.0;
    latLon[1] = 0.0;
    const auto [strip, meridian] = StripOf(system, payload->easting);
    const double easting = std::fabs(payload->easting - strip * STRIP_MILLION);
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

// The sign of an easting says the side of Greenwich; within its strip it counts eastward on both.
KoordStatus StripFactors(const StripSystem& system, const tagKOORD& record, const double* latLon,
                         GridFactors* factors) {
    const auto datum = static_cast<std::int32_t>(record.datum);
    const std::int32_t meridian =
        StripOf(system, Load<GkPayload>(record).easting).meridian + StripOrigin(system, datum);
    TM_Factors(latLon, meridian, STRIP_SCALE, *TmForwardConstants(datum), factors);
    return KOORD_OK;
}

}  // namespace

std::int32_t UTM_NaturalMeridian(double lon) {
    return NaturalUtmMeridian(lon);
}

std::int32_t GK6_NaturalMeridian(double lon) {
    return TruncateToInt32(WrapTurns(Gk6MeridianOf(lon), 360.0));
}

std::int32_t GK_NaturalMeridian(double lon) {
    return TruncateToInt32(WrapTurns(GkMeridianOf(lon), 360.0));
}

KoordStatus UTM_FromGeodetic(const double latLon[2], UtmPayload* payload, const TmConstants* forward) {
    payload->easting = 0.0;
    payload->northing = 0.0;
    const std::int64_t natural = NaturalUtmMeridian(latLon[1]);
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
    PutNorthing(latLon[0], payload->northing, payload);
    return isDistant ? KOORD_ERR_ZONE_DISTANT : KOORD_OK;
}

KoordStatus UTM_ToGeodetic(const UtmPayload* payload, double latLon[2], const TmConstants* inverse) {
    if (!IsUtmZone(payload->zone)) return KOORD_ERR_UTM_ZONE;
    const bool isSouth = IsSouth(payload->hemisphere);
    double lon;
    double lat;
    TM_Inverse(payload->easting, payload->northing, UTM_SCALE, ZONE_FALSE_EASTING,
               isSouth ? UTM_SOUTHERN_FALSE_NORTHING : 0.0, UtmMeridian(payload->zone), &lon, &lat, inverse);
    latLon[0] = SnapToEither(UTM_LIMITS.south, UTM_LIMITS.north, lat, LIMIT_TOLERANCE_DEGREES);
    latLon[1] = SnapToEither(UTM_LIMITS.west, UTM_LIMITS.east, lon, LIMIT_TOLERANCE_DEGREES);
    return KOORD_OK;
}

KoordStatus GK_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward) {
    return FromGeodetic(GK, GK_NaturalMeridian, latLon, payload, forward);
}

KoordStatus GK_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(GK, payload, latLon, inverse);
}

KoordStatus GK6_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward) {
    return FromGeodetic(GK6, GK6_NaturalMeridian, latLon, payload, forward);
}

KoordStatus GK6_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(GK6, payload, latLon, inverse);
}

KoordStatus UTM_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const std::int16_t zone = Load<UtmPayload>(record).zone;
    if (!IsUtmZone(zone)) return KOORD_ERR_UTM_ZONE;
    TM_Factors(latLon, UtmMeridian(zone), UTM_SCALE,
               *TmForwardConstants(static_cast<std::int32_t>(record.datum)), factors);
    return KOORD_OK;
}

KoordStatus UTMREF_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const std::int16_t zone = Load<UtmrefPayload>(record).zone;
    if (!IsUtmZone(zone)) return KOORD_ERR_UTM_ZONE;
    TM_Factors(latLon, UtmMeridian(zone), UTM_SCALE,
               *TmForwardConstants(static_cast<std::int32_t>(record.datum)), factors);
    return KOORD_OK;
}

KoordStatus GK_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return StripFactors(GK, record, latLon, factors);
}

KoordStatus GK6_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return StripFactors(GK6, record, latLon, factors);
}

}  // namespace tessara
