#include "areas/coordinate_area.h"

#include <array>
#include <exception>
#include <optional>

#include "areas/extremes.h"
#include "areas/helper_map.h"
#include "areas/line_extents.h"
#include "areas/rect_extents.h"
#include "geometry/line_reading.h"
#include "objects/koord_access.h"
#include "polygons/overlay_call.h"
#include "polygons/polygon_inside.h"
#include "polygons/polygon_reading.h"
#include "polygons/polygon_split.h"
#include "polygons/polygon_writing.h"
#include "records/reference.h"
#include "records/system_extremes.h"
#include "tessara/array.h"
#include "tessara/map_coord_operations.h"
#include "tessara/rect.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

bool MoveToSystemLimit(Compass direction, ICoord* point) {
    const IRef<ICoord> coord(point);
    CKoord koord;
    tagKOORD extreme;
    if (!KoordFromCoord(coord.Get(), &koord)) return false;
    const Reference reference = ReferenceOf(koord);
    if (!FindSystemExtreme(direction, reference.datum, reference.system, &extreme)) return false;
    const CKoord limit(extreme);
    return KoordToCoord(&limit, coord.Get());
}

// The output coordinates of an extent query: all four, or only the one of a single direction.
class Results {
  public:
    Results(ICoord* north, ICoord* east, ICoord* south, ICoord* west)
        : at_{IRef<ICoord>(north), IRef<ICoord>(east), IRef<ICoord>(south), IRef<ICoord>(west)} {}
    Results(Compass direction, ICoord* point) : only_(direction) {
        at_[static_cast<std::size_t>(direction)] = IRef<ICoord>(point);
    }

    // Reads the reference that all outputs share. False if they differ or one of them is missing.
    bool ReadReference(Reference* reference) const {
        std::optional<Reference> shared;
        for (const Compass direction : DIRECTIONS) {
            if (!IsAsked(direction)) continue;
            CKoord koord;
            if (!KoordFromCoord(At(direction), &koord)) return false;
            const Reference its = ReferenceOf(koord);
            if (shared && !(*shared == its)) return false;
            shared = its;
        }
        *reference = *shared;
        return true;
    }

    // Writes nothing while no extreme has been found.
    bool Write(const Extremes& extremes) const {
        if (!extremes.HasStarted()) return true;
        for (const Compass direction : DIRECTIONS) {
            if (IsAsked(direction) && !KoordToCoord(&extremes[direction], At(direction))) return false;
        }
        return true;
    }

  private:
    [[nodiscard]] bool IsAsked(Compass direction) const { return !only_ || *only_ == direction; }
    [[nodiscard]] ICoord* At(Compass direction) const {
        return at_[static_cast<std::size_t>(direction)].Get();
    }

    std::array<IRef<ICoord>, COMPASS_COUNT> at_;
    std::optional<Compass> only_;
};

bool ReadRect(IRect* rect, PixelRect* read) {
    const IRef<IRect> edges(rect);
    if (!edges.IsValid()) return false;
    *read = {edges->GetLeft(), edges->GetTop(), edges->GetRight(), edges->GetBottom()};
    return true;
}

bool WriteRectExtremes(IMapCoordOperations* map, const PixelRect& rect, const Results& results) try {
    const IRef<IMapCoordOperations> on(map);
    Reference reference{};
    if (!on.IsValid() || !results.ReadReference(&reference)) return false;
    Extremes extremes;
    const bool isComplete = ExtentOfRect(on.Get(), rect, reference.datum, reference.system, &extremes);
    return results.Write(extremes) && isComplete;
} catch (const std::exception&) {
    return false;
}

bool WriteLineExtremes(IMapCoordOperations* map, IArray* line, const Results& results) try {
    const IRef<IArray> coords(line);
    Reference reference{};
    if (!coords.IsValid() || !results.ReadReference(&reference)) return false;
    Extremes extremes;
    const bool isComplete = ExtentOfLine(map, coords.Get(), reference.datum, reference.system, &extremes);
    return results.Write(extremes) && isComplete;
} catch (const std::exception&) {
    return false;
}

bool MoveToRectExtreme(Compass direction, IMapCoordOperations* map, IRect* rect, ICoord* point) {
    const Results result(direction, point);
    PixelRect window{};
    return ReadRect(rect, &window) && WriteRectExtremes(map, window, result);
}

bool MoveToMapLineExtreme(Compass direction, IMapCoordOperations* map, IArray* line, ICoord* point) {
    const IRef<IMapCoordOperations> on(map);
    return on.IsValid() && WriteLineExtremes(on.Get(), line, Results(direction, point));
}

bool MoveToLineExtreme(Compass direction, IArray* line, ICoord* point) {
    return WriteLineExtremes(nullptr, line, Results(direction, point));
}

// Reads where a coordinate lies on a map, from its record.
bool ReadPlace(const MapPlane& map, ICoord* point, PlanePoint* place) {
    CKoord koord;
    return KoordFromCoord(point, &koord) && map.ToPlane(koord, place);
}

// Whether a point is inside the ring that `read(plane, polygon, &ring)` makes of a polygon.
template <class Reader>
bool IsInside(IMapCoordOperations* map, ICoord* point, IArray* polygon, double tolerance,
              const Reader& read) try {
    const IRef<IMapCoordOperations> on(map);
    const IRef<ICoord> probe(point);
    const IRef<IArray> vertices(polygon);
    const MapPlane plane(on.Get());
    if (!plane.IsComplete() || !probe.IsValid() || !vertices.IsValid()) return false;
    PlanePoint place{};
    Ring ring;
    return ReadPlace(plane, probe.Get(), &place) && read(plane, vertices.Get(), &ring) &&
           PointInPolygon(place, ring, tolerance);
} catch (const std::exception&) {
    return false;
}

}  // namespace

bool CoordinateArea::GetSystemNorth(ICoord* point) {
    return MoveToSystemLimit(Compass::North, point);
}

bool CoordinateArea::GetSystemEast(ICoord* point) {
    return MoveToSystemLimit(Compass::East, point);
}

bool CoordinateArea::GetSystemSouth(ICoord* point) {
    return MoveToSystemLimit(Compass::South, point);
}

bool CoordinateArea::GetSystemWest(ICoord* point) {
    return MoveToSystemLimit(Compass::West, point);
}

bool CoordinateArea::GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) {
    const Results results(north, east, south, west);
    Reference reference{};
    SystemExtremes limits;
    if (!results.ReadReference(&reference)) return false;
    if (!FindSystemExtremes(reference.datum, reference.system, &limits)) return false;
    Extremes extremes;
    extremes.Start(limits.front());
    for (const Compass direction : DIRECTIONS)
        extremes.Set(direction, limits[static_cast<std::size_t>(direction)]);
    return results.Write(extremes);
}

bool CoordinateArea::SetTolerance(double tolerance) {
    if (!(tolerance >= 0.0)) return false;
    tolerance_ = tolerance;
    return true;
}

bool CoordinateArea::GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::North, map, rect, point);
}

bool CoordinateArea::GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::East, map, rect, point);
}

bool CoordinateArea::GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::South, map, rect, point);
}

bool CoordinateArea::GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) {
    return MoveToRectExtreme(Compass::West, map, rect, point);
}

bool CoordinateArea::GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east,
                                        ICoord* south, ICoord* west) {
    PixelRect window{};
    return ReadRect(rect, &window) && GetRectExtremes(map, &window, north, east, south, west);
}

bool CoordinateArea::GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north,
                                     ICoord* east, ICoord* south, ICoord* west) {
    const Results results(north, east, south, west);
    return rect != nullptr && WriteRectExtremes(map, *rect, results);
}

bool CoordinateArea::GetMapLineNorth(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::North, map, line, point);
}

bool CoordinateArea::GetMapLineEast(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::East, map, line, point);
}

bool CoordinateArea::GetMapLineSouth(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::South, map, line, point);
}

bool CoordinateArea::GetMapLineWest(IMapCoordOperations* map, IArray* line, ICoord* point) {
    return MoveToMapLineExtreme(Compass::West, map, line, point);
}

bool CoordinateArea::GetLineNorth(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::North, line, point);
}

bool CoordinateArea::GetLineEast(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::East, line, point);
}

bool CoordinateArea::GetLineSouth(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::South, line, point);
}

bool CoordinateArea::GetLineWest(IArray* line, ICoord* point) {
    return MoveToLineExtreme(Compass::West, line, point);
}

bool CoordinateArea::GetMapLineExtremes(IMapCoordOperations* map, IArray* line, ICoord* north, ICoord* east,
                                        ICoord* south, ICoord* west) {
    const IRef<IMapCoordOperations> on(map);
    return on.IsValid() && WriteLineExtremes(on.Get(), line, Results(north, east, south, west));
}

bool CoordinateArea::GetLineExtremes(IArray* line, ICoord* north, ICoord* east, ICoord* south, ICoord* west) {
    return WriteLineExtremes(nullptr, line, Results(north, east, south, west));
}

bool CoordinateArea::IsInsideCoordEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) {
    const auto read = [](const MapPlane& plane, IArray* vertices, Ring* ring) {
        std::vector<CKoord> records;
        return ReadRecords(vertices, &records) && ReadCoordEdges(plane, records, ring);
    };
    return IsInside(map, point, polygon, tolerance_, read);
}

bool CoordinateArea::IsInsideCoordEdgesNoMap(ICoord* point, IArray* polygon) try {
    const IRef<ICoord> probe(point);
    const IRef<IArray> vertices(polygon);
    CKoord koord;
    std::vector<CKoord> records;
    if (!vertices.IsValid() || !KoordFromCoord(probe.Get(), &koord)) return false;
    if (!ReadRecords(vertices.Get(), &records) || records.empty()) return false;
    if (ReferenceOf(koord) != ReferenceOf(records.front())) return false;
    if (IsPixelType(ReferenceOf(koord).system)) return IsInsidePixels(probe.Get(), vertices.Get());
    const IRef<IMapCoordOperations> map = MakeHelperMap(koord);
    return IsInsideCoordEdges(map.Get(), probe.Get(), vertices.Get());
} catch (const std::exception&) {
    return false;
}

bool CoordinateArea::IsInsideMapEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) {
    return IsInside(map, point, polygon, tolerance_, ReadLineOnMap);
}

bool CoordinateArea::IsInsideTransferred(IMapCoordOperations* map, ICoord* point, IArray* polygon) {
    const auto read = [&](const MapPlane&, IArray* vertices, Ring* ring) {
        return ReadTransferredEdges(map, vertices, ring);
    };
    return IsInside(map, point, polygon, tolerance_, read);
}

bool CoordinateArea::IsInsideOnMap(IMapCoordOperations* map, ICoord* point, IArray* polygon) {
    return IsInside(map, point, polygon, tolerance_, ReadLineOnMap);
}

bool CoordinateArea::IsInsidePixels(ICoord* point, IArray* polygon) try {
    const IRef<ICoord> probe(point);
    const IRef<IArray> vertices(polygon);
    PlanePoint place{};
    Ring ring;
    return probe.IsValid() && vertices.IsValid() && PixelOfCoord(probe.Get(), &place) &&
           ReadPixelLine(vertices.Get(), &ring) && PointInPolygon(place, ring, tolerance_);
} catch (const std::exception&) {
    return false;
}

std::int32_t CoordinateArea::OverlayOnMap(IMapCoordOperations* map, IArray* first, IArray* second,
                                          IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                          IArray* both) try {
    const MapPlane plane(map);
    const OverlayCall call(first, second, neither, onlySecond, onlyFirst, both);
    std::optional<CKoord> start;
    std::int32_t datum = 0;
    if (!plane.IsComplete() || !call.IsComplete()) return OVERLAY_FAILURE;
    if (!call.ReadStart(&start) || !plane.GetDatum(&datum)) return OVERLAY_FAILURE;
    return call.RunOnMap(plane, tolerance_, PixelForm(datum));
} catch (const std::exception&) {
    return OVERLAY_FAILURE;
}

std::int32_t CoordinateArea::Overlay(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                                     IArray* onlyFirst, IArray* both) try {
    const OverlayCall call(first, second, neither, onlySecond, onlyFirst, both);
    std::optional<CKoord> start;
    if (!call.IsComplete() || !call.ReadStart(&start)) return OVERLAY_FAILURE;
    const Reference reference = start ? ReferenceOf(*start) : Reference{NO_DATUM, KOORD_FLOATPIXEL};
    if (IsPixelType(reference.system)) return call.RunOnPixels(tolerance_, PixelForm(reference.datum));
    const IRef<IMapCoordOperations> map = MakeHelperMap(*start);
    const MapPlane plane(map.Get());
    if (!plane.IsComplete()) return OVERLAY_FAILURE;
    return call.RunOnMap(plane, tolerance_, PositionForm(plane, reference));
} catch (const std::exception&) {
    return OVERLAY_FAILURE;
}

std::int32_t CoordinateArea::OverlayPixels(IMapCoordOperations* map, IArray* first, IArray* second,
                                           IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                           IArray* both) try {
    const MapPlane plane(map);
    const OverlayCall call(first, second, neither, onlySecond, onlyFirst, both);
    std::int32_t datum = 0;
    if (!plane.IsComplete() || !call.IsComplete()) return OVERLAY_FAILURE;
    const bool isReady = call.HasEmptyPolygon() || plane.GetDatum(&datum);
    return isReady ? call.RunOnPixels(tolerance_, PixelForm(datum)) : call.Fail();
} catch (const std::exception&) {
    return OVERLAY_FAILURE;
}

bool CoordinateArea::SplitPolygon(IMapCoordOperations* map, IArray* polygon, IArray* parts) try {
    const IRef<IMapCoordOperations> on(map);
    const IRef<IArray> vertices(polygon);
    const IRef<IArray> list(parts);
    if (!on.IsValid() || !vertices.IsValid() || !list.IsValid()) return false;
    Ring ring;
    std::int32_t datum = 0;
    if (!ReadValidLineOnMap(on.Get(), vertices.Get(), &ring)) return false;
    if (!ReadMapDatum(on.Get(), &datum)) return false;
    const std::vector<Ring> simple = SplitVertices(ring);
    list->Clear();
    return AppendRings(simple, PixelForm(datum), list.Get());
} catch (const std::exception&) {
    return false;
}

ICoordinateArea* CreateClassCoordinateArea() {
    return NewObject<CoordinateArea>();
}

}  // namespace tessara
