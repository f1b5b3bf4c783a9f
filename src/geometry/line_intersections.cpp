#include "geometry/line_intersections.h"

#include <exception>

#include "geometry/creation.h"
#include "geometry/line_reading.h"
#include "geometry/plane_intersections.h"
#include "objects/koord_access.h"
#include "tessara/coordinate_reference.h"
#include "tessara/intersection_results.h"
#include "tessara/line_intersection_parameters.h"

namespace tessara {
namespace {

// A line of the caller and the places of its points in the plane.
struct Line {
    explicit Line(IArray* line) : coords(line) {}

    [[nodiscard]] bool IsEmpty() const { return coords->GetCount() == 0; }
    // A line of one point counts as a segment from that point to itself.
    [[nodiscard]] bool IsSingle() const { return places.size() == 1; }
    [[nodiscard]] std::vector<PlanePoint> Polyline() const {
        std::vector<PlanePoint> polyline = places;
        if (IsSingle()) polyline.push_back(polyline.front());
        return polyline;
    }

    IRef<IArray> coords;
    std::vector<PlanePoint> places;
};

// The output of an intersection search: a list of records, or else a plain list of points.
class Sink {
  public:
    explicit Sink(IUnknown* out) : points_(out), records_(out) {}

    // False if the object is neither kind of list, or no longer answers as one.
    [[nodiscard]] bool IsValid() const { return points_.IsValid() || records_.IsValid(); }

    void Clear() const {
        if (points_.IsValid()) points_->Clear();
        if (records_.IsValid()) records_->Clear();
    }

    bool Put(const PolylineIntersection& intersection, const Line& a, const Line& b, ICoord* place) const {
        if (!records_.IsValid()) {
            points_->Add(place);
            return true;
        }
        const auto onA = RecordOf(a, intersection.i, intersection.t, place);
        const auto onB = RecordOf(b, intersection.j, intersection.s, place);
        return records_->Add(onA.Get(), onB.Get());
    }

  private:
    // Empty if a part of the record couldn't be made.
    static IRef<ILineIntersectionParameters> RecordOf(const Line& line, std::size_t end, double parameter,
                                                      ICoord* place) {
        IRef<ILineIntersectionParameters> record(NewLineIntersectionParameters());
        const auto index = static_cast<std::uint32_t>(end);
        const auto coordAt = [&](std::uint32_t i) { return IRef<ICoord>(line.coords->GetAt(i)); };
        const bool isFilled = record.IsValid() && record->SetParameter(parameter) &&
                              record->SetSegmentIndex(index) && record->SetIntersection(place) &&
                              record->SetLineStart(coordAt(index - 1).Get()) &&
                              (line.IsSingle() || record->SetLineEnd(coordAt(index).Get()));
        return isFilled ? record : IRef<ILineIntersectionParameters>();
    }

    IRef<IArray> points_;
    IRef<IIntersectionResults> records_;
};

// A new coordinate of the reference at a place in the plane; without a map it is a pixel. Empty if the place
// has no position.
IRef<ICoord> CoordAt(const PlanePoint& place, ICoordinateReference* reference, IMapCoordOperations* map) {
    IRef<ICoord> coord(CreateClassCoord());
    if (!coord.IsValid() || !coord->SetReference(reference)) return {};
    const bool isPixel = IsPixelType(reference->GetSystem());
    const bool isSet = isPixel ? coord->SetPixel(place.x, place.y)
                               : map != nullptr && map->FloatPixelToCoord(place.x, place.y, coord.Get());
    return isSet ? coord : IRef<ICoord>();
}

bool PutIntersections(const Line& a, const Line& b, ICoordinateReference* reference, const Sink& sink,
                      IMapCoordOperations* map) {
    if (a.places.empty() || b.places.empty()) return false;
    return VisitIntersections(a.Polyline(), b.Polyline(), [&](const PolylineIntersection& intersection) {
        const IRef<ICoord> place = CoordAt(intersection.place, reference, map);
        return place.IsValid() && sink.Put(intersection, a, b, place.Get());
    });
}

struct References {
    bool hasTwoSystems = false;
    bool hasTwoDatums = false;
};

// Compares the reference of each coordinate of a line with `base`.
bool CompareReferences(IArray* line, ICoordinateReference* base, References* found) {
    for (std::uint32_t i = 0; i < line->GetCount(); ++i) {
        CKoord koord;
        if (!KoordFromCoord(IRef<ICoord>(line->GetAt(i)).Get(), &koord)) return false;
        if (static_cast<std::int32_t>(koord.type) != base->GetSystem()) found->hasTwoSystems = true;
        if (static_cast<std::int32_t>(koord.datum) != base->GetDatum()) found->hasTwoDatums = true;
    }
    return true;
}

// The reference of the line's first coordinate; empty for an empty line.
IRef<ICoordinateReference> BaseOf(IArray* line) {
    IRef<ICoordinateReference> base(CreateClassCoordinateReference());
    const IRef<ICoord> first(line->GetAt(0));
    const bool isRead = base.IsValid() && first.IsValid() && first->GetReference(base.Get());
    return isRead ? base : IRef<ICoordinateReference>();
}

// The reference for intersections of the two lines; empty if an element is no coordinate.
IRef<ICoordinateReference> CommonReference(const MapPlane& map, const Line& a, const Line& b) {
    IRef<ICoordinateReference> base = BaseOf(a.coords.Get());
    References found;
    std::int32_t mapDatum = 0;
    const bool isRead = base.IsValid() && map.GetDatum(&mapDatum) &&
                        CompareReferences(a.coords.Get(), base.Get(), &found) &&
                        CompareReferences(b.coords.Get(), base.Get(), &found);
    if (!isRead) return {};
    bool isSet = true;
    if (found.hasTwoSystems || found.hasTwoDatums) isSet = base->SetDatum(mapDatum);
    if (found.hasTwoSystems) isSet = isSet && base->SetSystem(KOORD_FLOATPIXEL);
    return isSet ? base : IRef<ICoordinateReference>();
}

}  // namespace

bool CrossOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB, IUnknown* out) try {
    const IRef<IMapCoordOperations> on(map);
    const MapPlane plane(on.Get());
    const Sink sink(out);
    Line a(lineA);
    Line b(lineB);
    if (!plane.IsComplete() || !a.coords.IsValid() || !b.coords.IsValid()) return false;
    if (a.IsEmpty() || b.IsEmpty()) return true;
    if (!sink.IsValid()) return false;

    const IRef<ICoordinateReference> reference = CommonReference(plane, a, b);
    if (!reference.IsValid()) return false;
    if (!ReadLineOnMap(plane, a.coords.Get(), &a.places)) return false;
    if (!ReadLineOnMap(plane, b.coords.Get(), &b.places)) return false;
    sink.Clear();
    return PutIntersections(a, b, reference.Get(), sink, on.Get());
} catch (const std::exception&) {
    return false;
}

bool CrossPixels(IArray* lineA, IArray* lineB, IUnknown* out) try {
    const Sink sink(out);
    Line a(lineA);
    Line b(lineB);
    if (!a.coords.IsValid() || !b.coords.IsValid()) return false;
    if (a.IsEmpty() || b.IsEmpty()) return true;
    if (!sink.IsValid()) return false;

    const IRef<ICoordinateReference> reference = BaseOf(a.coords.Get());
    if (!reference.IsValid() || !IsPixelType(reference->GetSystem())) return false;
    sink.Clear();
    if (!ReadPixelLine(a.coords.Get(), &a.places) || !ReadPixelLine(b.coords.Get(), &b.places)) return false;
    return PutIntersections(a, b, reference.Get(), sink, nullptr);
} catch (const std::exception&) {
    return false;
}

}  // namespace tessara
