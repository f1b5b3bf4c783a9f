#include "geometry/densify.h"

#include <cmath>
#include <functional>

#include "geometry/polyline_walk.h"
#include "objects/reference_change.h"
#include "records/average_records.h"
#include "records/check_record.h"
#include "records/compare_records.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "systems/reference.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

constexpr std::size_t DEPTH_LIMIT = 6;
constexpr std::size_t GEODESIC_DEPTH_LIMIT = 7;
constexpr std::size_t ACROSS_REFERENCES_DEPTH_LIMIT = 5;

PlanePoint PixelOf(const CKoord& koord) {
    if (koord.type == KOORD_LONGPIXEL) {
        const auto at = Load<LongPixelPayload>(koord);
        return {static_cast<double>(at.x), static_cast<double>(at.y)};
    }
    const auto at = Load<FloatPixelPayload>(koord);
    return {at.x, at.y};
}

bool ShareReference(const CKoord& a, const CKoord& b) {
    return a.datum == b.datum && a.type == b.type;
}

bool Average(const CKoord& a, const CKoord& b, CKoord* mean) {
    tagKOORD record;
    if (!AverageRecords(a, b, &record)) return false;
    *mean = CKoord(record);
    return true;
}

bool GeodesicMiddle(const CKoord& a, const CKoord& b, CKoord* middle) {
    double distance = 0.0;
    double azimuth = 0.0;
    double backAzimuth = 0.0;
    if (Geodesic_Inverse(&a, &b, DatumOf(a), &distance, &azimuth, &backAzimuth) != KOORD_OK) return false;
    tagKOORD record = MakeKoord(DatumOf(a), TypeOf(a));
    if (Geodesic_Direct(&a, DatumOf(a), distance / 2.0, azimuth, &record) != KOORD_OK) return false;
    *middle = CKoord(record);
    return true;
}

// Moves a position onto the border of its zone, on its own side. False on the central line, which has no
// side.
bool MoveToZoneBorder(CKoord* koord) {
    tagKOORD centre = *koord;
    if (!zones::MoveToCentre(&centre)) return false;
    const std::int32_t order = CompareRecords(Axis::East, *koord, centre);
    return order != 0 && zones::MoveToBorder(order > 0 ? Compass::East : Compass::West, koord);
}

// A point of the line, with its place on the map.
struct MapKnot {
    CKoord koord;
    PlanePoint pixel{};
};

class MapDivider {
  public:
    MapDivider(const MapPlane& map, DensifyMode mode, double tolerance)
        : map_(map), mode_(mode), tolerance_(tolerance) {}

    Division operator()(const MapKnot& left, const MapKnot& right, std::size_t depth, MapKnot* middle) const {
        if (depth >= Limit()) return Division::Finished;
        const PlanePoint straight{(left.pixel.x + right.pixel.x) / 2.0, (left.pixel.y + right.pixel.y) / 2.0};
        MapKnot bent;
        if (!FindMiddle(left.koord, right.koord, &bent.koord)) return Division::Failed;
        if (!map_.ToPlane(bent.koord, &bent.pixel)) return Division::Failed;
        if (IsNear(bent.pixel, straight)) return Division::Finished;
        if (mode_ == DensifyMode::MapStraight) {
            bent.pixel = straight;
            if (!map_.ToWorld(straight, &bent.koord) || !IsInSystemArea(bent.koord)) return Division::Failed;
        }
        *middle = bent;
        return Division::Split;
    }

  private:
    [[nodiscard]] std::size_t Limit() const {
        return mode_ == DensifyMode::Geodesic ? GEODESIC_DEPTH_LIMIT : DEPTH_LIMIT;
    }

    [[nodiscard]] bool FindMiddle(const CKoord& left, const CKoord& right, CKoord* middle) const {
        if (mode_ == DensifyMode::Geodesic) return GeodesicMiddle(left, right, middle);
        if (!Average(left, right, middle)) return false;
        return mode_ != DensifyMode::CoordStraightZoned || MoveToZoneBorder(middle);
    }

    [[nodiscard]] bool IsNear(const PlanePoint& p, const PlanePoint& q) const {
        return std::fabs(p.x - q.x) <= tolerance_ && std::fabs(p.y - q.y) <= tolerance_;
    }

    const MapPlane& map_;
    DensifyMode mode_;
    double tolerance_;
};

bool WalkOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, DensifyMode mode, double tolerance,
               const std::function<void(const MapKnot&)>& add) {
    if (!ShareReference(a, b)) return false;
    if (IsPixel(a)) {
        add({a, PixelOf(a)});
        add({b, PixelOf(b)});
        return true;
    }
    MapKnot left{a};
    MapKnot right{b};
    if (!map.ToPlane(a, &left.pixel) || !map.ToPlane(b, &right.pixel)) return false;
    add(left);
    return WalkPolyline<GEODESIC_DEPTH_LIMIT>(left, right, MapDivider(map, mode, tolerance), add);
}

// A point of the line, in the line's own reference and in the one in which the line is straight.
struct ReferenceKnot {
    CKoord koord;
    CKoord target;
};

bool WalkAcrossReferences(const CKoord& a, const CKoord& b, std::int32_t datum, std::int32_t system,
                          std::vector<CKoord>* polyline) {
    if (!ShareReference(a, b) || IsPixelType(system) || IsPixel(a)) return false;
    const ReferenceChange toTarget(datum, system);
    const ReferenceChange toOwn(DatumOf(a), TypeOf(a));
    ReferenceKnot left{a, {}};
    ReferenceKnot right{b, {}};
    if (!toTarget.Apply(a, &left.target) || !toTarget.Apply(b, &right.target)) return false;

    const auto divide = [&](const ReferenceKnot& from, const ReferenceKnot& to, std::size_t depth,
                            ReferenceKnot* middle) {
        // A middle that doesn't convert fails the walk even if the piece isn't split any further.
        CKoord own;
        const bool isFound = Average(from.koord, to.koord, &own) &&
                             Average(from.target, to.target, &middle->target) &&
                             toOwn.Apply(middle->target, &middle->koord);
        if (!isFound) return Division::Failed;
        if (depth >= ACROSS_REFERENCES_DEPTH_LIMIT) return Division::Finished;
        const bool isSame = CompareRecords(Axis::East, own, middle->koord) == 0 &&
                            CompareRecords(Axis::North, own, middle->koord) == 0;
        return isSame ? Division::Finished : Division::Split;
    };
    polyline->push_back(a);
    return WalkPolyline<ACROSS_REFERENCES_DEPTH_LIMIT>(
        left, right, divide, [polyline](const ReferenceKnot& knot) { polyline->push_back(knot.koord); });
}

bool ToGeodezRecord(const MapPlane& map, const CKoord& koord, CKoord* geodez) {
    *geodez = CKoord(MakeKoord(DatumOf(koord), KOORD_GEODEZ));
    if (!IsPixel(koord)) return ReferenceChange(DatumOf(koord), KOORD_GEODEZ).Apply(koord, geodez);
    PlanePoint pixel{};
    return map.ToPlane(koord, &pixel) && map.ToWorld(pixel, geodez);
}

bool ToFloatPixels(const MapPlane& map, std::vector<CKoord>* polyline) {
    std::int32_t datum = 0;
    if (!map.GetDatum(&datum)) return false;
    for (CKoord& koord : *polyline) {
        PlanePoint pixel{};
        if (!map.ToPlane(koord, &pixel)) return false;
        koord = CKoord(MakeKoord(datum, KOORD_FLOATPIXEL));
        Store(koord, FloatPixelPayload{pixel.x, pixel.y});
    }
    return true;
}

// A polyline that couldn't be finished is emptied.
bool EmptyUnless(bool isDone, std::vector<CKoord>* polyline) {
    if (!isDone) polyline->clear();
    return isDone;
}

}  // namespace

bool DensifyOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, DensifyMode mode,
                  double pixelTolerance, std::vector<CKoord>* polyline, std::vector<PlanePoint>* pixels) {
    polyline->clear();
    if (pixels != nullptr) pixels->clear();
    const bool isDone = WalkOnMap(map, a, b, mode, pixelTolerance, [polyline, pixels](const MapKnot& knot) {
        polyline->push_back(knot.koord);
        if (pixels != nullptr) pixels->push_back(knot.pixel);
    });
    return EmptyUnless(isDone, polyline);
}

bool DensifyGeodesicOnMap(const MapPlane& map, const CKoord& a, const CKoord& b, double pixelTolerance,
                          std::vector<CKoord>* polyline) {
    polyline->clear();
    CKoord from;
    CKoord to;
    if (!ToGeodezRecord(map, a, &from) || !ToGeodezRecord(map, b, &to)) return false;
    if (!DensifyOnMap(map, from, to, DensifyMode::Geodesic, pixelTolerance, polyline)) return false;
    const bool isPixelLine = IsPixel(a) && IsPixel(b);
    return !isPixelLine || EmptyUnless(ToFloatPixels(map, polyline), polyline);
}

bool DensifyAcrossReferences(const CKoord& a, const CKoord& b, std::int32_t datum, std::int32_t system,
                             std::vector<CKoord>* polyline) {
    polyline->clear();
    return EmptyUnless(WalkAcrossReferences(a, b, datum, system, polyline), polyline);
}

}  // namespace tessara
