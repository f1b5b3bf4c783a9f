// The records that host and library exchange, with the offsets of their fields.
#pragma once

#include <cstddef>
#include <type_traits>

#include "abi/contract/root.h"

namespace contract {

// Coordinate types.
enum : uint32_t {
    LONGPIXEL,
    FLOATPIXEL,
    UTM,
    UTMREF,
    GEODEZ,
    GEOGRAD,
    GEOREF,
    GK,
    BMN,
    OEM,
    CH,
    ECEF,
    GEODEZMIN,
    GK6,
    GK_AT,
    UPS,
    PO_MILITARY,
    TM,
    VDG,
    BNG,
    ING,
    RD,
    LUREF,
    LAMBERTCC
};
constexpr uint32_t WGS84 = 2;

// Doubles lie at multiples of 8 bytes in all records, also where the processor asks for 4 only.
struct alignas(8) Record {
    uint32_t datum;
    uint32_t type;
    unsigned char payload[56];

    template <class Field>
    [[nodiscard]] Field At(std::size_t offset) const {
        Field field;
        std::memcpy(&field, payload + offset, sizeof field);
        return field;
    }
    template <class Field>
    Record& With(std::size_t offset, std::type_identity_t<Field> field) {
        std::memcpy(payload + offset, &field, sizeof field);
        return *this;
    }
};
static_assert(sizeof(Record) == 64 && offsetof(Record, datum) == 0 && offsetof(Record, type) == 4 &&
              offsetof(Record, payload) == 8);

// The record with its height and the place for which that was last worked out.
struct KoordFields {
    Record record;
    double height;
    double ecefX, ecefY, ecefZ;
    uint32_t ecefDatum;
};
static_assert(sizeof(KoordFields) == 104 && offsetof(KoordFields, height) == 64 &&
              offsetof(KoordFields, ecefX) == 72 && offsetof(KoordFields, ecefY) == 80 &&
              offsetof(KoordFields, ecefZ) == 88 && offsetof(KoordFields, ecefDatum) == 96);

struct PixelRect {
    int32_t left, top, right, bottom;
};
static_assert(sizeof(PixelRect) == 16 && offsetof(PixelRect, top) == 4 && offsetof(PixelRect, right) == 8 &&
              offsetof(PixelRect, bottom) == 12);

struct MapReferenceNode {
    Record world;
    int32_t pixelX, pixelY;
    MapReferenceNode* next;
};
static_assert(offsetof(MapReferenceNode, pixelX) == 64 && offsetof(MapReferenceNode, pixelY) == 68 &&
              offsetof(MapReferenceNode, next) == 72);

// The first fields of a grid's parameters have the offsets they have in the payload of the coordinate type.
struct MapUtmParams {
    char hemisphere;
    int16_t zone;
    alignas(8) double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
static_assert(offsetof(MapUtmParams, zone) == 2 && offsetof(MapUtmParams, originEasting) == 8 &&
              offsetof(MapUtmParams, originNorthing) == 16 && sizeof(MapUtmParams) == 40);

struct MapGkParams {
    int16_t unread;
    int16_t meridian;
    alignas(8) double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
static_assert(offsetof(MapGkParams, meridian) == 2 && offsetof(MapGkParams, originEasting) == 8 &&
              sizeof(MapGkParams) == 40);

struct MapBmnParams {
    int16_t meridian;
    alignas(8) double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
static_assert(offsetof(MapBmnParams, originEasting) == 8 && sizeof(MapBmnParams) == 40);

struct MapUpsParams {
    char hemisphere;
    alignas(8) double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
static_assert(offsetof(MapUpsParams, originEasting) == 8 && sizeof(MapUpsParams) == 40);

struct MapTmParams {
    double originLongitude, originLatitude, falseEasting, falseNorthing, scale;
    double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
static_assert(offsetof(MapTmParams, scale) == 32 && sizeof(MapTmParams) == 72);

struct MapPlaneParams {
    double originEasting, originNorthing, metresPerPixelX, metresPerPixelY;
};
struct MapDdParams {
    double originLongitude, originLatitude, pixelsPerDegreeX, pixelsPerDegreeY;
};
struct MapEqualArcParams {
    int16_t zone;
    alignas(8) double originLatitude, originLongitude, degreesPerPixelY, degreesPerPixelX;
};
static_assert(offsetof(MapEqualArcParams, originLatitude) == 8 && sizeof(MapEqualArcParams) == 40);

struct MapPolynomParams {
    uint32_t order;
    alignas(8) double latFromPixel[10], lonFromPixel[10], pixelXFromWorld[10], pixelYFromWorld[10];
};
static_assert(offsetof(MapPolynomParams, latFromPixel) == 8 && sizeof(MapPolynomParams) == 328);

struct MapLambert2Params {
    double parallel1, parallel2, originLongitude;
};
struct MapLambertFrParams {
    int32_t zone;
    alignas(8) double offsetX, offsetY;
};
static_assert(offsetof(MapLambertFrParams, offsetX) == 8 && sizeof(MapLambertFrParams) == 24);

struct MapLambertCcParams {
    double parallel1, parallel2, originLongitude, originLatitude, falseEasting, falseNorthing;
    double metresPerPixelX, metresPerPixelY, pixelX, pixelY;
};
static_assert(sizeof(MapLambertCcParams) == 80);

struct MapMercatorParams {
    double standardParallel, unread[2];
};
struct MapAzylParams {
    double standardParallel, unread[2];
};
struct MapVdgParams {
    double originLongitude, originLatitude;
};
struct MapWagnerIvParams {
    double originLongitude, stretchX, stretchY;
};
struct MapNoneParams {
    unsigned char data[88];
};

constexpr uint32_t NO_DATUM = 999;

struct MapParam {
    uint32_t referenceCount;
    MapReferenceNode reference;
    int32_t scaleDenominator;
    alignas(8) double resolution;
    uint32_t datum;
    uint32_t reserved1, reserved2;
    int32_t worldType;
    uint32_t type;
    union alignas(8) {
        MapUtmParams utm;
        MapGkParams gk;
        MapBmnParams bmn;
        MapUpsParams ups;
        MapTmParams tm;
        MapPlaneParams plane;
        MapDdParams dd;
        MapEqualArcParams equalArc;
        MapPolynomParams polynom;
        MapLambert2Params lambert2;
        MapLambertFrParams lambertFr;
        MapLambertCcParams lambertCc;
        MapMercatorParams mercator;
        MapAzylParams azyl;
        MapVdgParams vdg;
        MapWagnerIvParams wagnerIv;
        MapNoneParams none;
    } params;
};
static_assert(std::is_standard_layout_v<MapParam> && std::is_trivially_copyable_v<MapParam>);
static_assert(sizeof(MapReferenceNode) == 80 && sizeof(MapParam) == 456 &&
              offsetof(MapParam, reference) == 8 && offsetof(MapParam, scaleDenominator) == 88 &&
              offsetof(MapParam, resolution) == 96 && offsetof(MapParam, datum) == 104 &&
              offsetof(MapParam, worldType) == 116 && offsetof(MapParam, type) == 120 &&
              offsetof(MapParam, params) == 128);

}  // namespace contract
