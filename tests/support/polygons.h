// Polygons of coordinates, and shared parts of the tests of polygon operations.
#pragma once

#include <limits>
#include <vector>

#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/rings.h"
#include "support/sheets.h"
#include "tessara/coordinate_area.h"

namespace tessara::testing {

inline IRef<IArray> PolygonOf(const std::vector<IRef<ICoord>>& vertices) {
    IRef<IArray> polygon(CreateClassArray());
    for (const IRef<ICoord>& vertex : vertices)
        polygon->Add(vertex.Get());
    return polygon;
}

// FLOATPIXEL on WGS84.
inline IRef<IArray> PixelPolygon(const Ring& ring) {
    std::vector<tagKOORD> records;
    for (const PlanePoint& p : ring)
        records.push_back(FloatPixel(p.x, p.y));
    return LineOf(records);
}

// UPS, in metres of the northern grid.
inline IRef<IArray> PolarSquare(double west, double south, double size) {
    return LineOf({Ups('N', west, south), Ups('N', west + size, south), Ups('N', west + size, south + size),
                   Ups('N', west, south + size)});
}

inline Ring RingOf(const IRef<IArray>& pixels) {
    Ring ring;
    for (std::uint32_t i = 0; i < pixels->GetCount(); ++i) {
        const Pixel pixel = PixelOf(At(pixels, i));
        ring.push_back({pixel.x, pixel.y});
    }
    return ring;
}

inline IRef<IArray> Part(const IRef<IArray>& parts, std::uint32_t index) {
    return IRef<IArray>(parts->GetAt(index));
}

// The areas of a list of pixel polygons in ascending order, to 1e-9.
inline std::vector<double> AreasOf(const IRef<IArray>& parts) {
    std::vector<Ring> rings;
    for (std::uint32_t i = 0; i < parts->GetCount(); ++i)
        rings.push_back(RingOf(Part(parts, i)));
    std::vector<double> areas = AreasOf(rings);
    for (double& area : areas)
        area = std::round(area * 1e9) / 1e9;
    return areas;
}

// 100 pixels per degree: column 100 (longitude - 8), row 100 (51 - latitude).
inline IRef<IMapCoordOperations> HundredPixelsADegree(std::int32_t datum = DATUM_GER) {
    return MapOf(Map(MAP_DD, MapDdParams{8.0, 51.0, 100.0, 100.0}, datum));
}

class PolygonTest : public BalancedTest {
  protected:
    static constexpr double NONE = std::numeric_limits<double>::quiet_NaN();

    // A pixel square of 4 by 4 with an element that is not a vertex.
    static IRef<IArray> SquareWith(IUnknown* odd) {
        IRef<IArray> square = PixelPolygon(Rectangle(0, 0, 4, 4));
        square->Add(odd);
        return square;
    }

    // Wrong arguments of a host in the place of an object.
    template <class I>
    [[nodiscard]] std::vector<I*> Wrong() const {
        return {nullptr, Disguised<I>(stranger)};
    }

    // Adds an element to a list that an operation must either remove or keep.
    void Fill(const IRef<IArray>& list) const {
        list->Clear();
        list->Add(stranger.Get());
    }
    [[nodiscard]] bool IsUntouched(const IRef<IArray>& list) const {
        return list->GetCount() == 1 && list->GetAt(0) == stranger.Get();
    }

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<IUnknown> stranger = MakeStranger();
};

}  // namespace tessara::testing
