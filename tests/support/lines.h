// Lines, polylines and the maps they are drawn on, for tests.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/coords.h"
#include "support/map_objects.h"
#include "tessara/array.h"

namespace tessara::testing {

// Degrees on WGS84; longitude and latitude of pixel (0, 0).
inline IRef<IMapCoordOperations> DegreeMap(double longitude, double latitude, double pixelsPerDegree) {
    return MapOf(Map(MAP_DD, MapDdParams{longitude, latitude, pixelsPerDegree, pixelsPerDegree}));
}

inline tagKOORD Utm32(double easting, double northing) {
    UtmPayload payload{};
    payload.hemisphere = 'N';
    payload.zone = 32;
    payload.wantedZone = NO_WANTED_ZONE;
    payload.easting = easting;
    payload.northing = northing;
    return Record(KOORD_UTM, payload);
}

// A position on an unknown datum, which no map can show.
inline tagKOORD Nowhere() {
    return GeodezRecord(48.0, 9.0, 0.0, 500);
}

inline IRef<IArray> LineOf(const std::vector<tagKOORD>& records) {
    IRef<IArray> line(CreateClassArray());
    for (const tagKOORD& record : records)
        line->Add(CoordOf(record).Get());
    return line;
}

struct Pixel {
    double x, y;
};

inline IRef<IArray> PixelLine(const std::vector<Pixel>& pixels) {
    std::vector<tagKOORD> records;
    for (const Pixel& pixel : pixels)
        records.push_back(FloatPixel(pixel.x, pixel.y));
    return LineOf(records);
}

inline IRef<ICoord> At(const IRef<IArray>& line, std::uint32_t index) {
    return IRef<ICoord>(line->GetAt(index));
}

inline Pixel PixelOf(const IRef<ICoord>& coord) {
    Pixel pixel{};
    EXPECT_TRUE(coord->GetPixel(&pixel.x, &pixel.y));
    return pixel;
}

inline Pixel PixelOn(const IRef<IMapCoordOperations>& map, const CKoord& koord) {
    Pixel pixel{};
    EXPECT_TRUE(map->CoordToFloatPixel(CoordOf(koord).Get(), &pixel.x, &pixel.y));
    return pixel;
}

inline std::vector<Pixel> PixelsOn(const IRef<IMapCoordOperations>& map, const IRef<IArray>& line) {
    std::vector<Pixel> pixels;
    for (std::uint32_t i = 0; i < line->GetCount(); ++i)
        pixels.push_back(PixelOn(map, KoordOf(At(line, i))));
    return pixels;
}

// From a point to the nearest point of a polyline of straight pieces.
inline double DistanceToPolyline(const Pixel& p, const std::vector<Pixel>& polyline) {
    double nearest = HUGE_VAL;
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        const Pixel &a = polyline[i - 1], &b = polyline[i];
        const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
        const double along = square > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / square : 0.0;
        const double t = std::clamp(along, 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y));
    }
    return nearest;
}

}  // namespace tessara::testing
