#include <cmath>

#include "kernel/numeric.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

// Seconds above this value carry into the minutes.
constexpr double LAST_SECONDS = 59.999;

struct DegreesMinutesSeconds {
    std::int16_t degrees;
    std::int16_t minutes;
    double seconds;
};

DegreesMinutesSeconds SplitMagnitude(double magnitude) {
    DegreesMinutesSeconds parts{};
    parts.degrees = TruncateToInt16(magnitude);
    const double minutes = (magnitude - parts.degrees) * 60.0;
    parts.minutes = TruncateToInt16(minutes);
    parts.seconds = (minutes - parts.minutes) * 60.0;
    if (parts.seconds > LAST_SECONDS) {
        parts.seconds = 0.0;
        ++parts.minutes;
        if (parts.minutes == 60) {
            parts.minutes = 0;
            ++parts.degrees;
        }
    }
    return parts;
}

char LetterOf(double value, char positive, char negative) {
    return value >= 0.0 ? positive : negative;
}

double Signed(double magnitude, char letter, char negative) {
    return letter == negative ? -magnitude : magnitude;
}

}  // namespace

void GEOGRAD_FromGeodetic(const double latLon[2], GeogradPayload* payload) {
    const DegreesMinutesSeconds lon = SplitMagnitude(std::fabs(latLon[1]));
    payload->lonHemisphere = LetterOf(latLon[1], 'E', 'W');
    payload->lonDegrees = lon.degrees;
    payload->lonMinutes = lon.minutes;
    payload->lonSeconds = lon.seconds;

    const DegreesMinutesSeconds lat = SplitMagnitude(std::fabs(latLon[0]));
    payload->latHemisphere = LetterOf(latLon[0], 'N', 'S');
    payload->latDegrees = lat.degrees;
    payload->latMinutes = lat.minutes;
    payload->latSeconds = lat.seconds;
}

void GEOGRAD_ToGeodetic(const GeogradPayload* payload, double latLon[2]) {
    latLon[0] = Signed(payload->latDegrees + payload->latMinutes / 60.0 + payload->latSeconds / 3600.0,
                       payload->latHemisphere, 'S');
    latLon[1] = Signed(payload->lonDegrees + payload->lonMinutes / 60.0 + payload->lonSeconds / 3600.0,
                       payload->lonHemisphere, 'W');
}

void GEODEZMIN_FromGeodetic(const double latLonHeight[3], GeodezMinPayload* payload) {
    const double lon = std::fabs(latLonHeight[1]);
    payload->lonHemisphere = LetterOf(latLonHeight[1], 'E', 'W');
    payload->lonDegrees = TruncateToInt16(lon);
    payload->lonMinutes = (lon - payload->lonDegrees) * 60.0;

    const double lat = std::fabs(latLonHeight[0]);
    payload->latHemisphere = LetterOf(latLonHeight[0], 'N', 'S');
    payload->latDegrees = TruncateToInt16(lat);
    payload->latMinutes = (lat - payload->latDegrees) * 60.0;

    payload->height = latLonHeight[2];
}

void GEODEZMIN_ToGeodetic(const GeodezMinPayload* payload, double latLonHeight[3]) {
    latLonHeight[0] = Signed(payload->latDegrees + payload->latMinutes / 60.0, payload->latHemisphere, 'S');
    latLonHeight[1] = Signed(payload->lonDegrees + payload->lonMinutes / 60.0, payload->lonHemisphere, 'W');
    latLonHeight[2] = payload->height;
}

void Hemisphere_Normalise(char* letter) {
    *letter = (*letter == 'S' || *letter == 's') ? 'S' : 'N';
}

}  // namespace tessara
