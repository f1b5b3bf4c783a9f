// Maps: raster images whose pixels stand in a fixed relation to positions on the earth. One record, MapParam,
// describes a map completely; two functions turn a pixel into a position and a position into a pixel.
//
// There are three kinds of maps. On a grid map the raster is parallel to the axes of a coordinate system; the
// record has the grid value of pixel (0, 0) and the size of a pixel. A reference-point map is drawn in a
// projection of its own, and one point of known position and pixel ties the projection's plane to the raster.
// A polynomial map has coefficients for both directions, fitted elsewhere. Nothing is fitted here.
//
// Columns grow to the right, rows grow downward. Angles are degrees, positive north and east; grid values are
// metres.
//
// What a careful user should know:
// - World to pixel and back returns the pixel to within 1e-3 except on CH maps, whose positions are whole
//   metres from the origin: to the right of and below the origin pixel the way back is off by up to 0.5 m,
//   to the left and above by up to 1.5 m, because half a metre is added whatever the sign and the rest is
//   cut; on POLYNOM maps, which return within a tenth of a pixel, or as far off as their pairs of
//   polynomials disagree where refining doesn't help; and on WAGNER-IV maps, which are drawn on the sphere,
//   for positions on another datum. Theirs is the error of the shift to the sphere and back: up to 1.3 m
//   within a sixth of a degree of the equator, where the shift is less than 0.001 degrees and isn't refined,
//   0.15 m from there to 75 degrees of latitude and 1 m beyond.
// - GAUKRU and GAUKRU6 maps with a meridian west of Greenwich never turn a pixel of their strip into a
//   position (KOORD_ERR_GK_EAST), nor do GAUKRU maps on the datum KKJ whose eastings have the strip numbers
//   that this library uses there, which count from 18 degrees east. The way to the pixel works on both.
// - Longitudes are never brought to a map's side of the globe: 170 degrees west on a map about the date line
//   that is no grid map is 190 degrees.
// - MERCATOR maps converge well for standard parallels up to about 55 degrees. From about 60 degrees on the
//   way from the pixel becomes slow, about a millisecond a pixel, and beyond about 67 degrees it may end at
//   89.991 degrees of latitude instead of at the position.
// - VAN_DER_GRINTEN maps lose precision on the way from the pixel close to their parallel of origin, where
//   the circles of latitude degenerate to a line: within a hundredth of a degree of it a position may be off
//   by some 0.0004 degrees. At a pole a millionth of a degree is kilometres in the plane, so that rounding
//   decides where a pixel there comes back to.
// - No number of a map is checked. A resolution, a scale or a pixel size of 0, or a number that isn't finite,
//   gives positions and pixels without a meaning, which may look like any other; a whole pixel for one that
//   isn't finite is -2147483648.
//
// Pure functions of their arguments: no state, no allocation, any thread at any time. Nothing is kept between
// calls, so that the constants of a projection are worked out for each pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// A point of known position and pixel. `world` is a record of any datum and type that can be converted. Nodes
// behind the first belong to the map object that holds the record, which ends each with `delete`: a chain
// that is given to one (map_param_internal.h) has its nodes from `new` of the C++ runtime that the library
// uses. Records that no object holds own nothing, and the kernel reads the first node only.
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

// The parameters by type. In a grid's parameters the origin is the grid value of pixel (0, 0), and the fields
// in front of it lie where the grid's record has them. No field is checked before the map is used. Doubles
// behind smaller fields state their alignment, which is 4 bytes on some 32-bit systems.

struct MapUtmParams {
    char hemisphere;    // 'N' or 'S'
    std::int16_t zone;  // 1..60
    alignas(8) double originEasting, originNorthing;
    double metresPerPixelX, metresPerPixelY;
};

struct MapGkParams {                                  // GAUKRU and GAUKRU6
    std::int16_t unused;                              // no function reads it
    std::int16_t meridian;                            // central meridian, degrees
    alignas(8) double originEasting, originNorthing;  // the easting with the strip number in the millions
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

// A new one describes no map. Grid maps, POLYNOM and LAMBERTCC read neither reference nor scale; LAMBERT2 and
// LAMBERTFR read the pixel of the reference and the scale; MERCATOR, AZYL, VAN_DER_GRINTEN and WAGNER-IV read
// both and the scale. WAGNER-IV is drawn on the sphere (datum 0) and doesn't read the datum.
//
// A copy has the pointer to the chain of reference points and not a chain of its own.
struct MapParam {
    std::uint32_t referenceCount = 0;    // in the chain; no calculation reads it
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

// The position of a pixel. `pixel` is a LONGPIXEL or FLOATPIXEL; its datum isn't read. `world` says with its
// datum and type (and parameters, as for KoordConvert) what is wanted. A geographic target isn't range
// checked, and neither is the map's own system; any other is. The height is 0, on a WAGNER-IV map that of the
// reference.
//
// KOORD_OK, or
//   KOORD_ERR_PIXEL_TYPE  `pixel` isn't a pixel; found before
//   KOORD_ERR_MAP_TYPE    a type outside 2..21
//   KOORD_ERR_GK_EAST     the pixel of a GAUKRU or GAUKRU6 map lies outside its strip
//   KOORD_ERR_TYPE        the map has no position for the pixel
//   KOORD_ERR_GENERAL     a null argument
//   any other status of the conversion into `world`
// `world` is unchanged but for a failure late in that conversion, which may leave it partly written.
//
// AZYL and WAGNER-IV maps whose reference can't be converted give latitude 0, longitude 0, and KOORD_OK; a
// WAGNER-IV map gives the position of its reference, and KOORD_OK, for a row that isn't finite.
KoordStatus MapPixelToWorld(const MapParam* map, const tagKOORD* pixel, tagKOORD* world);

// The pixel of a position. The type of `pixel` says which form is wanted: FLOATPIXEL, or LONGPIXEL, rounded
// half away from zero (-2147483648 for a value that doesn't fit); its datum is neither read nor written. A
// position beside the map has a pixel like any other. `world` is converted into the map's system: a grid map
// refuses what its system refuses, but a UTM map takes positions beyond 180 degrees, however far from its
// zone (more than 90 degrees away a pixel is that of another place), and a GAUKRU or GAUKRU6 map positions
// beside its strip's million.
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
