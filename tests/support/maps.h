// Maps, pixels and the conversions between pixel and world, for tests.
#pragma once

#include "support/plain_records.h"
#include "support/records.h"
#include "tessara/kernel/map.h"

namespace tessara::testing {

template <class Params>
MapParam Map(MapType type, const Params& params, std::int32_t datum = DATUM_WGS84) {
    MapParam map;
    map.type = type;
    map.datum = static_cast<std::uint32_t>(datum);
    Store(map, params);
    return map;
}

// With the scale 1:N, `resolution` pixels per millimetre, and a reference point.
inline MapParam WithReference(MapParam map, const tagKOORD& world, std::int32_t pixelX, std::int32_t pixelY,
                              std::int32_t scaleDenominator, double resolution) {
    map.referenceCount = 1;
    map.reference = {world, pixelX, pixelY, nullptr};
    map.scaleDenominator = scaleDenominator;
    map.resolution = resolution;
    return map;
}

struct WorldResult {
    KoordStatus status;
    tagKOORD world;

    [[nodiscard]] GeodezPayload Degrees() const { return Load<GeodezPayload>(world); }
};

// The position of a pixel in the system of `target`, degrees on the map's datum if there is none.
inline WorldResult ToWorld(const MapParam& map, double x, double y, tagKOORD target) {
    const tagKOORD pixel = FloatPixel(x, y);
    const KoordStatus status = MapPixelToWorld(&map, &pixel, &target);
    return {status, target};
}

inline WorldResult ToWorld(const MapParam& map, double x, double y) {
    return ToWorld(map, x, y, MakeKoord(static_cast<std::int32_t>(map.datum), KOORD_GEODEZ));
}

struct PixelResult {
    KoordStatus status;
    double x, y;
};

inline PixelResult ToPixel(const MapParam& map, const tagKOORD& world) {
    tagKOORD pixel = FloatPixel(0.0, 0.0);
    const KoordStatus status = MapWorldToPixel(&map, &world, &pixel);
    const auto at = Load<FloatPixelPayload>(pixel);
    return {status, at.x, at.y};
}

}  // namespace tessara::testing
