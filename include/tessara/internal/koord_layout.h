// The byte offsets of the coordinate record. They are part of the contract: a compiler with another layout
// stops here.
#pragma once

#include <cstddef>

#include "tessara/kernel/koord.h"

namespace tessara {

static_assert(sizeof(tagKOORD) == 64 && alignof(tagKOORD) == 8 && offsetof(tagKOORD, type) == 4 &&
              offsetof(tagKOORD, payload) == 8);
static_assert(sizeof(double) == 8 && sizeof(float) == 4);

#define TESSARA_AT(Struct, field, byte) static_assert(offsetof(Struct, field) == (byte))
TESSARA_AT(LongPixelPayload, x, 0);
TESSARA_AT(LongPixelPayload, y, 4);
TESSARA_AT(FloatPixelPayload, x, 0);
TESSARA_AT(FloatPixelPayload, y, 8);
TESSARA_AT(UtmPayload, hemisphere, 0);
TESSARA_AT(UtmPayload, wantedZone, 2);
TESSARA_AT(UtmPayload, zone, 4);
TESSARA_AT(UtmPayload, easting, 8);
TESSARA_AT(UtmPayload, northing, 16);
TESSARA_AT(UtmrefPayload, wantedZone, 0);
TESSARA_AT(UtmrefPayload, zone, 2);
TESSARA_AT(UtmrefPayload, band, 4);
TESSARA_AT(UtmrefPayload, column, 6);
TESSARA_AT(UtmrefPayload, row, 7);
TESSARA_AT(UtmrefPayload, easting, 8);
TESSARA_AT(UtmrefPayload, northing, 12);
TESSARA_AT(GeodezPayload, latitude, 0);
TESSARA_AT(GeodezPayload, longitude, 8);
TESSARA_AT(GeodezPayload, height, 16);
TESSARA_AT(GeogradPayload, latDegrees, 0);
TESSARA_AT(GeogradPayload, latMinutes, 2);
TESSARA_AT(GeogradPayload, latSeconds, 8);
TESSARA_AT(GeogradPayload, latHemisphere, 16);
TESSARA_AT(GeogradPayload, lonDegrees, 18);
TESSARA_AT(GeogradPayload, lonMinutes, 20);
TESSARA_AT(GeogradPayload, lonSeconds, 24);
TESSARA_AT(GeogradPayload, lonHemisphere, 32);
TESSARA_AT(GeorefPayload, precision, 0);
TESSARA_AT(GeorefPayload, lonZone, 2);
TESSARA_AT(GeorefPayload, latZone, 3);
TESSARA_AT(GeorefPayload, lonDegree, 4);
TESSARA_AT(GeorefPayload, latDegree, 5);
TESSARA_AT(GeorefPayload, lonMinutes, 6);
TESSARA_AT(GeorefPayload, latMinutes, 8);
TESSARA_AT(GkPayload, wantedMeridian, 2);
TESSARA_AT(GkPayload, easting, 8);
TESSARA_AT(GkPayload, northing, 16);
TESSARA_AT(BmnPayload, wantedMeridian, 0);
TESSARA_AT(BmnPayload, meridian, 2);
TESSARA_AT(BmnPayload, easting, 8);
TESSARA_AT(BmnPayload, northing, 16);
TESSARA_AT(GridPayload, easting, 0);
TESSARA_AT(GridPayload, northing, 8);
TESSARA_AT(EcefPayload, x, 0);
TESSARA_AT(EcefPayload, y, 8);
TESSARA_AT(EcefPayload, z, 16);
TESSARA_AT(GeodezMinPayload, latDegrees, 0);
TESSARA_AT(GeodezMinPayload, latMinutes, 8);
TESSARA_AT(GeodezMinPayload, latHemisphere, 16);
TESSARA_AT(GeodezMinPayload, lonDegrees, 18);
TESSARA_AT(GeodezMinPayload, lonMinutes, 24);
TESSARA_AT(GeodezMinPayload, lonHemisphere, 32);
TESSARA_AT(GeodezMinPayload, height, 40);
TESSARA_AT(UpsPayload, hemisphere, 0);
TESSARA_AT(UpsPayload, easting, 8);
TESSARA_AT(UpsPayload, northing, 16);
TESSARA_AT(TmPayload, originLongitude, 0);
TESSARA_AT(TmPayload, originLatitude, 8);
TESSARA_AT(TmPayload, falseEasting, 16);
TESSARA_AT(TmPayload, falseNorthing, 24);
TESSARA_AT(TmPayload, scale, 32);
TESSARA_AT(TmPayload, easting, 40);
TESSARA_AT(TmPayload, northing, 48);
TESSARA_AT(VdgPayload, originLongitude, 0);
TESSARA_AT(VdgPayload, originLatitude, 8);
TESSARA_AT(VdgPayload, x, 16);
TESSARA_AT(VdgPayload, y, 24);
TESSARA_AT(LetterGridPayload, square, 0);
TESSARA_AT(LetterGridPayload, subSquare, 1);
TESSARA_AT(LetterGridPayload, easting, 8);
TESSARA_AT(LetterGridPayload, northing, 16);
TESSARA_AT(LetterGridPayload, fullEasting, 24);
TESSARA_AT(LetterGridPayload, fullNorthing, 32);
TESSARA_AT(LambertCCPayload, parallel1, 0);
TESSARA_AT(LambertCCPayload, parallel2, 4);
TESSARA_AT(LambertCCPayload, originLongitude, 8);
TESSARA_AT(LambertCCPayload, originLatitude, 12);
TESSARA_AT(LambertCCPayload, falseEasting, 16);
TESSARA_AT(LambertCCPayload, falseNorthing, 24);
TESSARA_AT(LambertCCPayload, easting, 32);
TESSARA_AT(LambertCCPayload, northing, 40);
#undef TESSARA_AT

}  // namespace tessara
