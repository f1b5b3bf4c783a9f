// Records of the systems without zones that many tests compare, average and shift.
#pragma once

#include "support/records.h"

namespace tessara::testing {

inline tagKOORD LongPixel(std::int32_t x, std::int32_t y) {
    return Record(KOORD_LONGPIXEL, LongPixelPayload{x, y});
}

inline tagKOORD FloatPixel(double x, double y) {
    return Record(KOORD_FLOATPIXEL, FloatPixelPayload{x, y});
}

inline tagKOORD Grid(std::int32_t type, double easting, double northing) {
    return Record(type, GridPayload{easting, northing});
}

inline tagKOORD Ups(char hemisphere, double easting, double northing) {
    UpsPayload payload{};
    payload.hemisphere = hemisphere;
    payload.easting = easting;
    payload.northing = northing;
    return Record(KOORD_UPS, payload);
}

// BNG or ING; two zeros mean no letters.
inline tagKOORD LetterGrid(std::int32_t type, const char* letters, double easting, double northing,
                           double fullEasting = 0.0, double fullNorthing = 0.0) {
    LetterGridPayload payload{};
    payload.square = letters[0];
    payload.subSquare = letters[1];
    payload.easting = easting;
    payload.northing = northing;
    payload.fullEasting = fullEasting;
    payload.fullNorthing = fullNorthing;
    return Record(type, payload);
}

}  // namespace tessara::testing
