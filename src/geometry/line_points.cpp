#include "geometry/line_points.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "geometry/line_intersections.h"
#include "geometry/line_reading.h"
#include "objects/koord_access.h"
#include "tessara/array.h"
#include "tessara/coordinate_reference.h"
#include "tessara/intersection_results.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// Appends a new coordinate for each record.
bool AddAll(const std::vector<CKoord>& polyline, IArray* out) {
    for (const CKoord& koord : polyline) {
        const IRef<ICoord> coord(CreateClassCoord());
        if (!KoordToCoord(&koord, coord.Get())) return false;
        out->Add(coord.Get());
    }
    return true;
}

// Fills `out` with the polyline that `densify(a, b, &polyline)` makes of the two records. If that fails,
// `out` is empty.
template <class Densifier>
bool FillPolyline(ICoord* a, ICoord* b, IArray* out, const Densifier& densify) {
    out->Clear();
    CKoord from;
    CKoord to;
    if (!KoordFromCoord(a, &from) || !KoordFromCoord(b, &to)) return false;
    try {
        std::vector<CKoord> polyline;
        if (densify(from, to, &polyline) && AddAll(polyline, out)) return true;
    } catch (const std::exception&) {  // missing memory is a failure like any other
    }
    out->Clear();
    return false;
}

bool IsInBox(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b) {
    return p.x >= std::min(a.x, b.x) && p.x <= std::max(a.x, b.x) && p.y >= std::min(a.y, b.y) &&
           p.y <= std::max(a.y, b.y);
}

bool IsOnPolyline(const PlanePoint& p, const std::vector<PlanePoint>& polyline) {
    const double tolerance = OnLineTolerance(p);
    const auto isOnLine = [&](const PlanePoint& a, const PlanePoint& b) {
        return std::fabs(SignedDistance(p, a, b)) <= tolerance;
    };
    if (polyline.size() == 1) return isOnLine(polyline.front(), polyline.front());
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        if (IsInBox(p, polyline[i - 1], polyline[i]) && isOnLine(polyline[i - 1], polyline[i])) return true;
    }
    return false;
}

// A point and the two points of the line, in pixels.
struct PointAndLine {
    PlanePoint p, a, b;
};

// Holds the coordinates in handles: all three may be the same object, with a count of 0.
bool Read(IMapCoordOperations* map, ICoord* p, ICoord* a, ICoord* b, PointAndLine* read) {
    const IRef<ICoord> point(p);
    const IRef<ICoord> start(a);
    const IRef<ICoord> end(b);
    return PixelOfCoord(map, point.Get(), &read->p) && PixelOfCoord(map, start.Get(), &read->a) &&
           PixelOfCoord(map, end.Get(), &read->b);
}

// Writes a place into `out`, in the reference that `out` has. A pixel takes the map's datum.
bool WritePlace(IMapCoordOperations* map, const PlanePoint& place, ICoord* out) {
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!reference.IsValid() || !out->GetReference(reference.Get())) return false;
    if (!IsPixelType(reference->GetSystem())) return map->FloatPixelToCoord(place.x, place.y, out);
    std::int32_t datum = 0;
    if (!ReadMapDatum(map, &datum)) return false;
    if (reference->GetDatum() != datum) {
        if (!reference->SetDatum(datum) || !out->SetReference(reference.Get())) return false;
    }
    return out->SetPixel(place.x, place.y);
}

}  // namespace

bool LinePoints::SetPixelTolerance(double tolerance) {
    if (!(tolerance >= 0.0)) return false;
    pixelTolerance_ = tolerance;
    return true;
}

bool LinePoints::Densify(DensifyMode mode, IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) {
    const MapPlane plane(map);
    const IRef<ICoord> from(a);
    const IRef<ICoord> to(b);
    const IRef<IArray> points(out);
    if (!plane.IsComplete() || !from.IsValid() || !to.IsValid() || !points.IsValid()) return false;
    return FillPolyline(from.Get(), to.Get(), points.Get(),
                        [&](const auto& start, const auto& end, auto* polyline) {
                            return mode == DensifyMode::Geodesic
                                       ? DensifyGeodesicOnMap(plane, start, end, pixelTolerance_, polyline)
                                       : DensifyOnMap(plane, start, end, mode, pixelTolerance_, polyline);
                        });
}

bool LinePoints::DensifyMapStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) {
    return Densify(DensifyMode::MapStraight, map, a, b, out);
}

bool LinePoints::DensifyCoordStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) {
    return Densify(DensifyMode::CoordStraight, map, a, b, out);
}

bool LinePoints::DensifyCoordStraightZoned(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) {
    return Densify(DensifyMode::CoordStraightZoned, map, a, b, out);
}

bool LinePoints::DensifyGeodesic(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) {
    return Densify(DensifyMode::Geodesic, map, a, b, out);
}

bool LinePoints::DensifyInReference(ICoord* a, ICoord* b, ICoordinateReference* reference, IArray* out) {
    const IRef<ICoord> from(a);
    const IRef<ICoord> to(b);
    const IRef<ICoordinateReference> straight(reference);
    const IRef<IArray> points(out);
    if (!from.IsValid() || !to.IsValid() || !straight.IsValid() || !points.IsValid()) return false;
    return FillPolyline(
        from.Get(), to.Get(), points.Get(), [&](const auto& start, const auto& end, auto* polyline) {
            return DensifyAcrossReferences(start, end, straight->GetDatum(), straight->GetSystem(), polyline);
        });
}

bool LinePoints::IntersectOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                IIntersectionResults* results) {
    const IRef<IIntersectionResults> list(results);
    return list.IsValid() && CrossOnMap(map, lineA, lineB, list.Get());
}

bool LinePoints::IntersectOnMapToArray(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                       IArray* points) {
    const IRef<IArray> list(points);
    return list.IsValid() && CrossOnMap(map, lineA, lineB, list.Get());
}

bool LinePoints::IntersectPixelLines(IArray* lineA, IArray* lineB, IIntersectionResults* results) {
    const IRef<IIntersectionResults> list(results);
    return list.IsValid() && CrossPixels(lineA, lineB, list.Get());
}

bool LinePoints::IntersectPixelLinesToArray(IArray* lineA, IArray* lineB, IArray* points) {
    const IRef<IArray> list(points);
    return list.IsValid() && CrossPixels(lineA, lineB, list.Get());
}

bool LinePoints::IsPointOnLine(IMapCoordOperations* map, ICoord* point, IArray* line) try {
    const MapPlane plane(map);
    const IRef<IArray> coords(line);
    const IRef<ICoord> probe(point);
    if (!plane.IsComplete() || !coords.IsValid() || !probe.IsValid()) return false;
    CKoord koord;
    PlanePoint p{};
    std::vector<PlanePoint> polyline;
    return KoordFromCoord(probe.Get(), &koord) && plane.ToPlane(koord, &p) &&
           ReadLineOnMap(plane, coords.Get(), &polyline) && IsOnPolyline(p, polyline);
} catch (const std::exception&) {
    return false;
}

double LinePoints::GetSignedDistance(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b) {
    const IRef<IMapCoordOperations> on(map);
    PointAndLine read{};
    if (!on.IsValid() || !Read(on.Get(), point, a, b, &read)) return MISSING_NUMBER;
    return SignedDistance(read.p, read.a, read.b);
}

bool LinePoints::GetFootPoint(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b, ICoord* out) {
    const IRef<IMapCoordOperations> on(map);
    const IRef<ICoord> target(out);
    PointAndLine read{};
    if (!on.IsValid() || !target.IsValid() || !Read(on.Get(), point, a, b, &read)) return false;
    PlanePoint foot{};
    const bool isFoot = FootPoint(read.p, read.a, read.b, &foot);
    return WritePlace(on.Get(), foot, target.Get()) && isFoot;
}

ILinePoints* CreateClassLinePoints() {
    return NewObject<LinePoints>();
}

}  // namespace tessara
