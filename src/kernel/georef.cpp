#include "tessara/kernel/georef.h"

#include <string_view>

#include "kernel/letters.h"
#include "kernel/numeric.h"

namespace tessara {
namespace {

constexpr std::string_view LON_ZONE_LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ";
constexpr std::string_view LAT_ZONE_LETTERS = "ABCDEFGHJKLM";
constexpr std::string_view DEGREE_LETTERS = "ABCDEFGHJKLMNPQ";  // of both axes

constexpr std::int32_t ZONE_DEGREES = 15;
constexpr std::int32_t LAST_DEGREE = 14;
constexpr double GRID_WEST = -180.0;
constexpr double GRID_SOUTH = -90.0;

// One axis of a reference, counted from the western or southern edge of the grid.
struct Axis {
    std::string_view zoneLetters;
    std::int32_t whole = 0;  // degrees
    std::int32_t zone = 0;
    std::int32_t degree = 0;
    std::int32_t minutes = 0;
    std::int32_t tenths = 0;
    std::int32_t hundredths = 0;

    [[nodiscard]] bool ZoneHasLetter() const { return HasIndex(zoneLetters, zone); }
    [[nodiscard]] bool DegreeHasLetter() const { return HasIndex(DEGREE_LETTERS, degree); }
    [[nodiscard]] char ZoneLetter() const { return LetterAt(zoneLetters, zone); }
    [[nodiscard]] char DegreeLetter() const { return LetterAt(DEGREE_LETTERS, degree); }
    [[nodiscard]] bool IsLastZone() const { return !HasIndex(zoneLetters, zone + 1); }
};

// `degrees` count from the edge of the grid on this axis. Cells begin at whole degrees, so the fraction
// doesn't matter.
void SetCell(Axis* axis, double degrees) {
    axis->whole = TruncateToInt32(degrees);
    axis->zone = axis->whole / ZONE_DEGREES;
    axis->degree = axis->whole % ZONE_DEGREES;
}

// Of degrees that have a cell.
void SetMinutes(Axis* axis, double degrees) {
    const double minutes = (degrees - axis->whole) * 60.0;
    axis->minutes = TruncateToInt32(minutes);
    const double tenths = (minutes - axis->minutes) * 10.0;
    axis->tenths = TruncateToInt32(tenths);
    axis->hundredths = TruncateToInt32((tenths - axis->tenths) * 10.0 + 0.5);
}

// Rounding to hundredths may fill up the tenth, the minute, the degree and the cell in turn.
void Carry(Axis* axis) {
    if (axis->hundredths > 9) {
        axis->hundredths = 0;
        axis->tenths += 1;
    }
    if (axis->tenths > 9) {
        axis->tenths = 0;
        axis->minutes += 1;
    }
    if (axis->minutes <= 59) return;

    if (axis->degree < LAST_DEGREE) {
        axis->degree += 1;
        axis->minutes = 0;
    } else if (!axis->IsLastZone()) {
        axis->zone += 1;
        axis->degree = 0;
        axis->minutes = 0;
    } else {
        axis->minutes = 59;
        axis->tenths = 9;
        axis->hundredths = 9;
    }
}

std::int16_t ScaledMinutes(const Axis& axis, std::int16_t precision) {
    std::int32_t scaled = 0;
    switch (precision) {
        case 3:
            scaled = axis.minutes;
            break;
        case 4:
            scaled = axis.minutes * 10 + axis.tenths;
            break;
        case 5:
            scaled = axis.minutes * 100 + axis.tenths * 10 + axis.hundredths;
            break;
        default:
            break;
    }
    return static_cast<std::int16_t>(scaled);
}

double MinuteFraction(std::int16_t scaledMinutes, std::int16_t precision) {
    switch (precision) {
        case 3:
            return scaledMinutes / 60.0;
        case 4:
            return scaledMinutes / 600.0;
        case 5:
            return scaledMinutes / 6000.0;
        default:
            return 0.0;
    }
}

void WriteZoneLetters(const Axis& lon, const Axis& lat, GeorefPayload* payload) {
    payload->lonZone = lon.ZoneLetter();
    payload->latZone = lat.ZoneLetter();
}

}  // namespace

KoordStatus GEOREF_FromGeodetic(const double latLon[2], GeorefPayload* payload) {
    const double east = latLon[1] - GRID_WEST;
    const double north = latLon[0] - GRID_SOUTH;
    Axis lon{LON_ZONE_LETTERS};
    Axis lat{LAT_ZONE_LETTERS};

    SetCell(&lon, east);
    SetCell(&lat, north);
    if (!lon.ZoneHasLetter() || !lat.ZoneHasLetter()) return KOORD_ERR_OUTSIDE;
    WriteZoneLetters(lon, lat, payload);

    if (!lon.DegreeHasLetter() || !lat.DegreeHasLetter()) return KOORD_ERR_OUTSIDE;

    SetMinutes(&lon, east);
    SetMinutes(&lat, north);
    Carry(&lon);
    Carry(&lat);

    if (payload->precision < 1 || payload->precision > 5) payload->precision = 5;
    WriteZoneLetters(lon, lat, payload);
    payload->lonDegree = lon.DegreeLetter();
    payload->latDegree = lat.DegreeLetter();
    payload->lonMinutes = ScaledMinutes(lon, payload->precision);
    payload->latMinutes = ScaledMinutes(lat, payload->precision);
    return KOORD_OK;
}

KoordStatus GEOREF_ToGeodetic(const GeorefPayload* payload, double latLon[2]) {
    const std::int32_t lonZone = LetterIndex(LON_ZONE_LETTERS, payload->lonZone);
    const std::int32_t latZone = LetterIndex(LAT_ZONE_LETTERS, payload->latZone);
    const std::int32_t lonDegree = LetterIndex(DEGREE_LETTERS, payload->lonDegree);
    const std::int32_t latDegree = LetterIndex(DEGREE_LETTERS, payload->latDegree);
    if (lonZone == NO_LETTER || latZone == NO_LETTER || lonDegree == NO_LETTER || latDegree == NO_LETTER) {
        return KOORD_ERR_OUTSIDE;
    }

    latLon[1] = MinuteFraction(payload->lonMinutes, payload->precision) + lonDegree + ZONE_DEGREES * lonZone +
                GRID_WEST;
    latLon[0] = MinuteFraction(payload->latMinutes, payload->precision) + latDegree + ZONE_DEGREES * latZone +
                GRID_SOUTH;
    return KOORD_OK;
}

}  // namespace tessara
