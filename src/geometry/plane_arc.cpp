#include "geometry/plane_arc.h"

#include <cmath>
#include <exception>

#include "geometry/coord_reading.h"
#include "numerics/circular.h"
#include "numerics/rounding.h"
#include "objects/koord_access.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

struct PlaneOffset {
    double east;
    double north;
};

// The horizontal plane at the centre, in the space of the centre's datum.
struct PlaneFrame {
    std::int32_t datum;
    Vector centre;
    Vector east;
    Vector north;
};

// Brings an angle into 0 <= angle < 360. Adding 360 to a tiny negative angle gives 360, which becomes 0.
double WithinTurn(double angle) {
    const double rest = Fmod(angle, 360.0);
    const double positive = rest < 0.0 ? rest + 360.0 : rest;
    return positive >= 360.0 ? positive - 360.0 : positive;
}

// Degrees from one point to the next, negative for a counter-clockwise arc. Equal angles make a whole turn.
double StepOf(double start, double end, const ArcAngles& angles) {
    const double steps = static_cast<double>(angles.count) - 1.0;
    if (angles.clockwise && end <= start) return (end - start + 360.0) / steps;
    if (!angles.clockwise && start <= end) return (end - start - 360.0) / steps;
    return (end - start) / steps;
}

PlaneOffset OffsetAt(const PlaneEllipse& ellipse, double angle) {
    const SinCos at = SinCosOf(angle / DEGREES_PER_RADIAN);
    const SinCos rho = SinCosOf(ellipse.rotation / DEGREES_PER_RADIAN);
    const double across = at.sine * ellipse.across;
    const double along = at.cosine * ellipse.along;
    return {across * rho.cosine + along * rho.sine, along * rho.cosine - across * rho.sine};
}

bool ReadFrame(IEllipsoidOfRevolution* ellipsoid, ICoord* centre, PlaneFrame* frame) {
    const IRef<ICoordinateReference> reference = ReadReference(centre, ManagedReference());
    if (!reference.IsValid()) return false;
    frame->datum = reference->GetDatum();
    return ellipsoid->CoordToEcefVector(centre, &frame->centre) &&
           ellipsoid->GetLocalAxes(centre, &frame->east, &frame->north);
}

// The point as a new coordinate; empty on failure.
IRef<ICoord> PointAt(IVector* vectors, const PlaneFrame& frame, const PlaneOffset& offset) {
    const Vector east = vectors->Add(frame.centre, vectors->Scale(frame.east, offset.east));
    const Vector point = vectors->Add(east, vectors->Scale(frame.north, offset.north));
    if (point.Size() != 3) return {};
    for (const double component : point)
        if (!std::isfinite(component)) return {};

    tagKOORD record = MakeKoord(frame.datum, KOORD_ECEF);
    Store(record, EcefPayload{point[0], point[1], point[2]});
    const CKoord koord(record);
    IRef<ICoord> coord(CreateClassCoord());
    if (!KoordToCoord(&koord, coord.Get())) return {};
    return coord;
}

bool AddPoints(IVector* vectors, const PlaneFrame& frame, const PlaneEllipse& ellipse,
               const ArcAngles& angles, IArray* out) try {
    const double start = WithinTurn(angles.start);
    const double step = StepOf(start, WithinTurn(angles.end), angles);
    for (std::uint32_t i = 0; i < angles.count; ++i) {
        const double angle = static_cast<double>(i) * step + start;
        const IRef<ICoord> point = PointAt(vectors, frame, OffsetAt(ellipse, angle));
        if (!point.IsValid()) return false;
        out->Add(point.Get());
    }
    return true;
} catch (const std::exception&) {
    return false;
}

}  // namespace

bool MakePlaneArc(const IRef<IEllipsoidOfRevolution>& ellipsoid, const IRef<IVector>& vectors, ICoord* centre,
                  const PlaneEllipse& ellipse, const ArcAngles& angles, IArray* out) {
    const IRef<ICoord> centreCoord(centre);
    const IRef<IArray> points(out);
    if (!points.IsValid()) return false;
    points->Clear();
    if (!ellipsoid.IsValid() || !vectors.IsValid() || !centreCoord.IsValid()) return false;
    if (angles.count < 2 || !std::isfinite(angles.start) || !std::isfinite(angles.end)) return false;

    PlaneFrame frame{};
    if (!ReadFrame(ellipsoid.Get(), centreCoord.Get(), &frame)) return false;
    const bool complete = AddPoints(vectors.Get(), frame, ellipse, angles, points.Get());
    if (!complete) points->Clear();
    return complete;
}

}  // namespace tessara
