// Maps: raster images in which each pixel has a position. A MapParam describes a map completely; one
// function converts a pixel to a position, another a position to a pixel.
//
// Example: the pixel of a position on a map of 100 pixels a degree whose pixel (0, 0) is at 10 degrees east,
// 50 north.
//
//     tessara::MapParam map;
//     map.type = tessara::MAP_DD;
//     map.datum = tessara::DATUM_WGS84;
//     tessara::Store(map, tessara::MapDdParams{10.0, 50.0, 100.0, 100.0});
//     tessara::tagKOORD pixel = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_FLOATPIXEL);
//     if (tessara::MapWorldToPixel(&map, &degrees, &pixel) != tessara::KOORD_OK) return;
//     const auto [x, y] = tessara::Load<tessara::FloatPixelPayload>(pixel);
//     // 48.1375 north 11.5755 east is 157.55 186.25
//
// There are three kinds of maps. On a grid map the raster is parallel to the axes of a coordinate system,
// and the record has the position of pixel (0, 0) and the size of a pixel. A reference-point map is drawn in
// its own projection, and one point whose position and pixel are known ties the projection to the raster. A
// polynomial map has coefficients for both directions; they come from outside, since this library fits
// nothing.
//
// Columns grow to the right, rows grow downward. Angles are in degrees, positive to the north and east;
// lengths and grid values are in metres.
//
// How accurate maps are, and where they fail:
//
//   - A position converted to a pixel and back has the same pixel to within 1e-3, with three exceptions. CH
//     maps have positions in whole metres from the origin; the way back is off by up to 0.5 m to the
//     right of and below the origin pixel, and by up to 1.5 m to the left and above, because half a metre is
//     added whatever the sign before the rest is cut. POLYNOM maps return within a tenth of a pixel, or as
//     far off as their pairs of polynomials disagree where refining doesn't help. WAGNER-IV maps are drawn
//     on the sphere, and a position on another datum returns with the error of the shift to the sphere and
//     back: up to 1.3 m within a sixth of a degree of the equator, where the shift is less than 0.001
//     degrees and isn't refined, 0.15 m from there to 75 degrees of latitude, and 1 m beyond.
//   - GAUKRU and GAUKRU6 maps with a meridian west of Greenwich convert no pixel of their strip to a
//     position (KOORD_ERR_GK_EAST). Neither do GAUKRU maps on the datum KKJ if their eastings have this
//     library's strip numbers for that datum, which count from 18 degrees east. Positions convert to pixels
//     on both.
//   - Longitudes aren't brought to the map's side of the globe. On a map around the date line that isn't a
//     grid map, 170 degrees west is 190 degrees.
//   - MERCATOR maps converge well for standard parallels up to about 55 degrees. From about 60 degrees
//     pixels convert slowly, in about a millisecond each; beyond about 67 degrees the result may be latitude
//     89.991 instead of the position.
//   - VAN_DER_GRINTEN maps lose precision near their parallel of origin, where the circles of latitude
//     become a straight line: within a hundredth of a degree of it the position of a pixel may be off by
//     some 0.0004 degrees. At a pole a millionth of a degree is kilometres in the plane, so rounding decides
//     about the position of a pixel there.
//   - Numbers of a map aren't checked. With a resolution, a scale or a pixel size of 0, or a number that
//     isn't finite, positions and pixels have no meaning but may look like others. A whole pixel that isn't
//     finite is -2147483648.
//
// The functions depend on their arguments only and allocate nothing; any thread may call them at any time.
// They compute the constants of the projection anew for each pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// A point whose position and pixel are known. `world` is a record of any convertible datum and type. The
// kernel reads the first node only. The nodes after it belong to the map object that holds the record, which
// deletes each with `delete`: in a list passed to a map object (map_param_internal.h) they come from `new`
// of the C++ runtime that the library uses. A record that no object holds owns no nodes.
struct MapReferenceNode {
    tagKOORD world{};
    std::int32_t pixelX = 0;
    std::int32_t pixelY = 0;
    MapReferenceNode* next = nullptr;
};

enum MapType : std::uint32_t {
    MAP_UNKNOWN = 0,
    MAP_NONE = 1,
    MAP_UTM = 2,               // grid: UTM                                MapUtmParams
    MAP_GAUKRU = 3,            // grid: GK                                 MapGkParams
    MAP_LAMBERT2 = 4,          // cone with two standard parallels         MapLambert2Params
    MAP_LAMBERTFR = 5,         // the French Lambert zones                 MapLambertFrParams
    MAP_EQUALARC = 6,          // degrees; polar azimuthal near a pole     MapEqualArcParams
    MAP_POLYNOM = 7,           // fitted polynomials                       MapPolynomParams
    MAP_MERCATOR = 8,          // Mercator on the ellipsoid                MapMercatorParams
    MAP_BMN = 9,               // grid: BMN                                MapBmnParams
    MAP_CH = 10,               // grid: CH, whole metres                   MapPlaneParams
    MAP_AZYL = 11,             // cylinder, rows are meridian distances    MapAzylParams
    MAP_DD = 12,               // degrees                                  MapDdParams
    MAP_GAUKRU6 = 13,          // grid: GK6                                MapGkParams
    MAP_UPS = 14,              // grid: UPS                                MapUpsParams
    MAP_TM = 15,               // grid: TM                                 MapTmParams
    MAP_PO_MILITARY = 16,      // grid: TM, constants in the parameters    MapTmParams
    MAP_VAN_DER_GRINTEN = 17,  // van der Grinten's first projection       MapVdgParams
    MAP_STEREOGR_NL = 18,      // grid: RD                                 MapPlaneParams
    MAP_LAMBERTCC = 19,        // cone with free parameters                MapLambertCcParams
    MAP_LUREF = 20,            // grid: TM, constants in the parameters    MapTmParams
    MAP_WAGNER_IV = 21,        // Wagner's fourth projection               MapWagnerIvParams
};

inline constexpr std::uint32_t MAP_TYPE_COUNT = 22;

// The parameters by type. For a grid map the origin is the position of pixel (0, 0), and the fields before
// it have the offsets of the grid's payload. Nothing is checked before the map is used. Doubles behind
// smaller fields state their alignment, which is 4 bytes on some 32-bit systems.

struct MapUtmParams {
    char hemisphere;    // 'N' or 'S'
    std::int16_t zone;  // 1..60
    alignas(8) double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapGkParams {                                  // GAUKRU and GAUKRU6
    std::int16_t unused;                              // no function reads it
    std::int16_t meridian;                            // central meridian, degrees
    alignas(8) double originEasting, originNorthing;  // strip number times 1000000 in the easting
    double metresPerPixelX, metresPerPixelY;
};

struct MapBmnParams {
    std::int16_t meridian;  // 28, 31 or 34 degrees east of Ferro
    alignas(8) double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapUpsParams {
    char hemisphere;  // 'N' or 'S'
    alignas(8) double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapTmParams {  // TM, PO_MILITARY and LUREF
    double originLongitude, originLatitude;
    double falseEasting, falseNorthing;
    double scale;
    double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapPlaneParams {  // CH and STEREOGR_NL
    double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapDdParams {
    double originLongitude, originLatitude;
    double pixelsPerDegreeX, pixelsPerDegreeY;
};

inline constexpr std::int16_t EQUALARC_NORTH_POLAR = 9;
inline constexpr std::int16_t EQUALARC_SOUTH_POLAR = 18;

struct MapEqualArcParams {
    std::int16_t zone;  // EQUALARC_NORTH_POLAR, EQUALARC_SOUTH_POLAR, or any other value for the plain form
    alignas(8) double originLatitude, originLongitude;
    double degreesPerPixelY, degreesPerPixelX;
};

struct MapPolynomParams {
    std::uint32_t order;  // the number of coefficients: 3, 4, 6 or 10; no more are read
    alignas(8) double latFromPixel[10], lonFromPixel[10];  // of (column, row)
    double pixelXFromWorld[10], pixelYFromWorld[10];       // of (longitude, latitude)
};

struct MapLambert2Params {
    double parallel1, parallel2;
    double originLongitude;
};

struct MapLambertFrParams {
    std::int32_t zone;  // 1..4
    alignas(8) double offsetX, offsetY;
};

struct MapLambertCcParams {
    double parallel1, parallel2;
    double originLongitude, originLatitude;
    double falseEasting, falseNorthing;
    double metresPerPixelX, metresPerPixelY;
    double pixelX, pixelY;  // the pixel of the false origin
};

struct MapMercatorParams {
    double standardParallel;
    double unused[2];  // stored and handed back
};

struct MapAzylParams {
    double standardParallel;
    double unused[2];  // stored and handed back
};

struct MapVdgParams {
    double originLongitude, originLatitude;
};

struct MapWagnerIvParams {
    double originLongitude;
    double stretchX, stretchY;
};

struct MapNoneParams {
    std::byte data[88];  // stored and handed back
};

inline constexpr std::size_t MAP_PARAMS_SIZE = 328;

// The record of a map; a new one describes none. Grid maps, POLYNOM and LAMBERTCC read neither reference nor
// scale. LAMBERT2 and LAMBERTFR read the pixel of the reference and the scale. MERCATOR, AZYL,
// VAN_DER_GRINTEN and WAGNER-IV read position and pixel of the reference and the scale. WAGNER-IV is drawn
// on the sphere (datum 0) and doesn't read the datum.
//
// A copy shares the linked list of reference points: it copies the pointer.
struct MapParam {
    std::uint32_t referenceCount = 0;    // in the list; no calculation reads it
    MapReferenceNode reference;          // the only one that a calculation reads
    std::int32_t scaleDenominator = 0;   // N of the scale 1:N
    alignas(8) double resolution = 0.0;  // pixels per millimetre of the sheet
    std::uint32_t datum = NO_DATUM;      // the datum that the map is drawn on
    std::uint32_t reserved1 = 0;
    std::uint32_t reserved2 = 0;
    std::int32_t worldType = NO_SYSTEM;                 // KOORD_GEODEZ for POLYNOM
    std::uint32_t type = MAP_UNKNOWN;                   // a MapType
    alignas(8) std::byte params[MAP_PARAMS_SIZE] = {};  // the struct of the type
};

template <class Params>
concept MapVariant = std::is_trivially_copyable_v<Params> && sizeof(Params) <= MAP_PARAMS_SIZE;

template <MapVariant Params>
[[nodiscard]] inline Params Load(const MapParam& map) {
    Params params;
    std::memcpy(&params, map.params, sizeof params);
    return params;
}

template <MapVariant Params>
inline void Store(MapParam& map, const Params& params) {
    std::memcpy(map.params, &params, sizeof params);
}

// Converts a pixel to a position. `pixel` is a LONGPIXEL or FLOATPIXEL; its datum is ignored. The datum and
// type of `world`, and its parameters as for KoordConvert, select the result. A geographic target and the
// map's own system are not checked against their limits; any other system is. The height is 0, on a
// WAGNER-IV map that of the reference.
//
// KOORD_OK, or
//   KOORD_ERR_PIXEL_TYPE  `pixel` isn't a pixel; found before
//   KOORD_ERR_MAP_TYPE    a type outside 2..21
//   KOORD_ERR_GK_EAST     the pixel of a GAUKRU or GAUKRU6 map is outside its strip
//   KOORD_ERR_TYPE        the map has no position for the pixel
//   KOORD_ERR_GENERAL     a null argument
//   any other status of the conversion into `world`
// `world` is unchanged then, except that a failure late in that conversion may leave it partly written.
//
// Every NaN of a result is the positive quiet one, as in conversions.
//
// AZYL and WAGNER-IV maps whose reference can't be converted give KOORD_OK with latitude 0 and longitude 0.
// A WAGNER-IV map gives KOORD_OK with the position of its reference for a row that isn't finite.
KoordStatus MapPixelToWorld(const MapParam* map, const tagKOORD* pixel, tagKOORD* world);

// Converts a position to a pixel, which may be beside the map. The type of `pixel` selects the form:
// FLOATPIXEL, or LONGPIXEL, rounded half away from zero (-2147483648 for a value that doesn't fit). Its
// datum is neither read nor written. `world` is converted into the map's system, with the failures of that
// system; but a UTM map accepts positions beyond 180 degrees and at any distance from its zone (more than 90
// degrees away the pixel is that of another place), and a GAUKRU or GAUKRU6 map accepts eastings outside its
// strip's million.
//
// Every NaN of a pixel is the positive quiet one. It comes with KOORD_OK from a position that has a NaN, and
// on a VAN_DER_GRINTEN map from one more than 90 degrees of latitude from the origin of the projection.
//
// KOORD_OK, or
//   KOORD_ERR_MAP_TYPE       a type outside 2..21; found before anything else
//   KOORD_ERR_POLYNOM_ORDER  a POLYNOM map of an order that doesn't exist
//   KOORD_ERR_OUTSIDE        a VAN_DER_GRINTEN map, whatever the reason
//   KOORD_ERR_GENERAL        a null argument, or a LAMBERTFR zone outside 1..4
//   0                        an AZYL map, if the geodesic to the position has no solution
//   KOORD_ERR_PIXEL_TYPE     `pixel` isn't a pixel; found after all others
//   any other status of the conversions
// `pixel` is unchanged then.
KoordStatus MapWorldToPixel(const MapParam* map, const tagKOORD* world, tagKOORD* pixel);

}  // namespace tessara
