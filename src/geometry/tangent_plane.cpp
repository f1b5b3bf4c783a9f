#include "geometry/tangent_plane.h"

#include <exception>
#include <new>
#include <utility>

#include "geometry/coord_reading.h"
#include "geometry/plane_ray.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

Triple TripleOf(const Vector& v) {
    return {v[0], v[1], v[2]};
}

IRef<ICoordinateReference> NewReference() {
    return IRef<ICoordinateReference>(CreateClassCoordinateReference());
}

}  // namespace

TangentPlane::TangentPlane()
    : origin_(CreateClassCoord()),
      ellipsoid_(CreateClassEllipsoidOfRevolution()),
      vectors_(CreateClassEuclideanVector()),
      transfer_(CreateClassCoordinateTransfer()) {
    const bool complete =
        origin_.IsValid() && ellipsoid_.IsValid() && vectors_.IsValid() && transfer_.IsValid();
    if (!complete) throw std::bad_alloc();
}

bool TangentPlane::SetOrigin(ICoord* p) {
    const IRef<ICoord> coord(p);
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), NewReference());
    return reference.IsValid() && reference->SetSystem(KOORD_GEODEZ) &&
           origin_->SetReference(reference.Get()) && transfer_->Transfer(coord.Get(), origin_.Get()) &&
           ellipsoid_->GetLocalAxes(origin_.Get(), &east_, &north_) &&
           ellipsoid_->CoordToEcefVector(origin_.Get(), &originXyz_);
}

bool TangentPlane::GetFrame(ICoord* origin, Vector* east, Vector* north) {
    const IRef<ICoord> coord(origin);
    if (east == nullptr || north == nullptr || !IsSpatial(&east_) || !IsSpatial(&north_)) return false;
    try {
        Vector eastCopy = east_;
        Vector northCopy = north_;
        if (!GetOrigin(coord.Get())) return false;
        *east = std::move(eastCopy);
        *north = std::move(northCopy);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool TangentPlane::GetOrigin(ICoord* out) {
    return transfer_->Transfer(origin_.Get(), out);
}

bool TangentPlane::GetNormal(Vector* out) {
    return ellipsoid_->GetNormal(origin_.Get(), out);
}

bool TangentPlane::GetDirection(double azimuth, Vector* out) {
    return ellipsoid_->GetDirection(origin_.Get(), azimuth, out);
}

double TangentPlane::GetAzimuth(ICoord* p) {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    if (!GetPlaneCoords(p, &x, &y, &z)) return MISSING_NUMBER;
    // Adding 0.0 turns -0.0 into 0.0; for a negative zero atan2 would return south.
    return Atan2(x + 0.0, y + 0.0) * DEGREES_PER_RADIAN;
}

double TangentPlane::IntersectRay(const Vector* point, const Vector* direction, double* x, double* y) {
    if (!IsSpatial(point) || !IsSpatial(direction) || x == nullptr || y == nullptr) return MISSING_NUMBER;
    if (!IsSpatial(&originXyz_) || !IsSpatial(&east_) || !IsSpatial(&north_)) return MISSING_NUMBER;
    const Triple P = TripleOf(*point);
    const Triple O = TripleOf(originXyz_);
    const PlaneHit hit = IntersectPlane({P[0] - O[0], P[1] - O[1], P[2] - O[2]}, TripleOf(*direction),
                                        TripleOf(east_), TripleOf(north_));
    *x = hit.x;
    *y = hit.y;
    return hit.t;
}

double TangentPlane::ProjectAlong(ICoord* p, const Vector* direction, ICoord* out) try {
    const IRef<ICoord> coord(p);
    const IRef<ICoord> result(out);
    Vector point;
    double x = 0.0;
    double y = 0.0;
    if (!ellipsoid_->CoordToEcefVector(coord.Get(), &point)) return MISSING_NUMBER;
    const double t = IntersectRay(&point, direction, &x, &y);
    if (t == MISSING_NUMBER) return MISSING_NUMBER;
    if (t == RAY_IN_PLANE) return transfer_->Transfer(coord.Get(), result.Get()) ? t : MISSING_NUMBER;
    const Vector hit = vectors_->Add(point, vectors_->Scale(*direction, t));
    return ellipsoid_->EcefVectorToCoord(&hit, result.Get()) ? t : MISSING_NUMBER;
} catch (const std::exception&) {
    return MISSING_NUMBER;
}

bool TangentPlane::MapByGeodesic(ICoord* p, ICoord* out) {
    const IRef<ICoord> coord(p);
    const IRef<ICoord> result(out);
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), NewReference());
    GeodezPayload origin{};
    GeodezPayload position{};
    if (!reference.IsValid() || !ReadWgs84Position(origin_.Get(), &origin) ||
        !ReadWgs84Position(coord.Get(), &position)) {
        return false;
    }
    tagKOORD from = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    tagKOORD to = from;
    Store(from, origin);
    Store(to, position);
    double distance = 0.0;
    double azimuth12 = 0.0;
    double azimuth21 = 0.0;
    return Geodesic_Inverse(&from, &to, reference->GetDatum(), &distance, &azimuth12, &azimuth21) ==
               KOORD_OK &&
           PointInPlane(coord.Get(), distance, result.Get());
}

bool TangentPlane::MapByChord(ICoord* p, ICoord* out) try {
    const IRef<ICoord> coord(p);
    const IRef<ICoord> result(out);
    Vector point;
    if (!ellipsoid_->CoordToEcefVector(coord.Get(), &point)) return false;
    return PointInPlane(coord.Get(), vectors_->Length(vectors_->Subtract(originXyz_, point)), result.Get());
} catch (const std::exception&) {
    return false;
}

bool TangentPlane::GetPlaneCoords(ICoord* p, double* x, double* y, double* z) {
    const IRef<ICoord> coord(p);
    Vector normal;
    Vector point;
    if (z == nullptr || !GetNormal(&normal) || !ellipsoid_->CoordToEcefVector(coord.Get(), &point))
        return false;
    const double t = IntersectRay(&point, &normal, x, y);
    if (t == MISSING_NUMBER) return false;
    *z = t == RAY_IN_PLANE ? 0.0 : 0.0 - t;
    return true;
}

bool TangentPlane::PlaneCoordsToCoord(double x, double y, double z, ICoord* out) try {
    const IRef<ICoord> result(out);
    Vector normal;
    if (!GetNormal(&normal)) return false;
    const Vector east = vectors_->Add(originXyz_, vectors_->Scale(east_, x));
    const Vector inPlane = vectors_->Add(east, vectors_->Scale(north_, y));
    const Vector point = vectors_->Add(inPlane, vectors_->Scale(normal, z));
    return ellipsoid_->EcefVectorToCoord(&point, result.Get());
} catch (const std::exception&) {
    return false;
}

// The place at a distance from the origin, in the direction of p.
bool TangentPlane::PointInPlane(ICoord* p, double distance, ICoord* out) {
    const double azimuth = GetAzimuth(p);
    if (azimuth == MISSING_NUMBER) return false;
    const SinCos alpha = SinCosOf(azimuth / DEGREES_PER_RADIAN);
    return PlaneCoordsToCoord(alpha.sine * distance, alpha.cosine * distance, 0.0, out);
}

ITangentPlane* CreateClassTangentPlane() {
    return NewObject<TangentPlane>();
}

}  // namespace tessara
