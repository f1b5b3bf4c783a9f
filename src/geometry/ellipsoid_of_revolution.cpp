#include "geometry/ellipsoid_of_revolution.h"

#include <cmath>
#include <exception>
#include <initializer_list>

#include "geometry/coord_reading.h"
#include "geometry/ellipsoid_space.h"
#include "numerics/circular.h"
#include "objects/koord_access.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_transfer.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

constexpr int MAX_SECANT_STEPS = 20;
constexpr double SEARCH_TOLERANCE = 0.01;  // metres

// Empties the outputs. False if one of them is null.
bool Empty(std::initializer_list<Vector*> outputs) {
    bool complete = true;
    for (Vector* output : outputs) {
        if (output == nullptr) {
            complete = false;
        } else {
            output->Clear();
        }
    }
    return complete;
}

EcefPayload PayloadOf(const Vector& xyz) {
    return {xyz[0], xyz[1], xyz[2]};
}

Vector VectorOf(const EcefPayload& point) {
    return {point.x, point.y, point.z};
}

CKoord EcefKoord(std::int32_t datum, const EcefPayload& point) {
    tagKOORD record = MakeKoord(datum, KOORD_ECEF);
    Store(record, point);
    return record;
}

// Seeks the t at which measure(t) meets `wanted`: tries t = distance, then half of it, then secant steps
// between the best t so far and the one tried last. A step uses absolute differences, as if the two lay on
// either side of the wanted value. False if a measurement fails or the steps run out; on success the last
// measurement was taken at the best t.
template <class Measure, class IsMet>
bool SeekParameter(double distance, double wanted, Measure measure, IsMet isMet) {
    double best = distance;
    double trial = distance * 0.5;
    double bestValue = 0.0;
    if (!measure(best, &bestValue)) return false;
    for (int step = 0; !isMet(std::fabs(bestValue - wanted)); ++step) {
        double trialValue = 0.0;
        if (step == MAX_SECANT_STEPS || !measure(trial, &trialValue)) return false;
        const double next =
            (trial - best) * (std::fabs(wanted - bestValue) / std::fabs(trialValue - bestValue)) + best;
        if (std::fabs(trialValue - wanted) < std::fabs(bestValue - wanted)) {
            bestValue = trialValue;
            best = trial;
        }
        trial = next;
    }
    return true;
}

}  // namespace

bool EllipsoidOfRevolution::GetLocalAxes(ICoord* p, Vector* east, Vector* north) try {
    const IRef<ICoord> coord(p);
    GeodezPayload position{};
    Vector normal;
    if (!Empty({east, north}) || !vectors_.IsValid() || !GetNormal(coord.Get(), &normal)) return false;
    if (!ReadWgs84Position(coord.Get(), &position)) return false;
    const SinCos lambda = SinCosOf(position.longitude / DEGREES_PER_RADIAN);
    *east = {-lambda.sine, lambda.cosine, 0.0};
    *north = vectors_->Cross(normal, *east);
    return IsSpatial(north);
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::GetNormal(ICoord* p, Vector* normal) try {
    const IRef<ICoord> coord(p);
    GeodezPayload position{};
    if (!Empty({normal}) || !ReadWgs84Position(coord.Get(), &position)) return false;
    const SinCos phi = SinCosOf(position.latitude / DEGREES_PER_RADIAN);
    const SinCos lambda = SinCosOf(position.longitude / DEGREES_PER_RADIAN);
    *normal = {phi.cosine * lambda.cosine, phi.cosine * lambda.sine, phi.sine};
    return true;
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::GetDirection(ICoord* p, double azimuth, Vector* direction) try {
    const IRef<ICoord> coord(p);
    Vector east;
    Vector north;
    if (!Empty({direction}) || !GetLocalAxes(coord.Get(), &east, &north)) return false;
    const SinCos ahead = SinCosOf(azimuth / DEGREES_PER_RADIAN);
    *direction = Vector::Zeros(3);
    for (std::uint32_t i = 0; i < 3; ++i)
        (*direction)[i] = ahead.sine * east[i] + ahead.cosine * north[i];
    return true;
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::CoordToEcefVector(ICoord* p, Vector* xyz) try {
    const IRef<ICoord> coord(p);
    if (!Empty({xyz})) return false;
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), ManagedReference());
    const IRef<ICoord> geodez(CreateClassCoord());
    const IRef<ICoordinateTransfer> transfer(CreateClassCoordinateTransfer());
    if (!reference.IsValid() || !geodez.IsValid() || !transfer.IsValid()) return false;

    EllipsoidAxes ellipsoid{};
    CKoord record;
    if (!LoadEllipsoid(reference->GetDatum(), &ellipsoid) || !reference->SetSystem(KOORD_GEODEZ) ||
        !geodez->SetReference(reference.Get()) || !transfer->Transfer(coord.Get(), geodez.Get()) ||
        !KoordFromCoord(geodez.Get(), &record)) {
        return false;
    }
    *xyz = VectorOf(SpacePoint(ellipsoid, Load<GeodezPayload>(record)));
    return true;
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::EcefVectorToCoord(const Vector* xyz, ICoord* out) {
    const IRef<ICoord> coord(out);
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), ManagedReference());
    const IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    if (!IsSpatial(xyz) || !reference.IsValid() || !geographic.IsValid()) return false;

    EllipsoidAxes ellipsoid{};
    GeodezPayload position{};
    return LoadEllipsoid(reference->GetDatum(), &ellipsoid) &&
           SpacePosition(ellipsoid, PayloadOf(*xyz), &position) &&
           geographic->Set(position.longitude, position.latitude, position.height) &&
           coord->SetGeographic(geographic.Get());
}

bool EllipsoidOfRevolution::IntersectLine(ICoord* origin, const Vector* direction, ICoord* near,
                                          ICoord* far) {
    const IRef<ICoord> start(origin);
    const IRef<ICoordInternal> nearResult(near);
    const IRef<ICoordInternal> farResult(far);
    const IRef<ICoordinateReference> reference = ReadReference(start.Get(), ManagedReference());
    if (!reference.IsValid() || !nearResult.IsValid() || !farResult.IsValid() || !IsSpatial(direction))
        return false;

    const std::int32_t datum = reference->GetDatum();
    EllipsoidAxes ellipsoid{};
    Vector point;
    if (!LoadEllipsoid(datum, &ellipsoid) || !CoordToEcefVector(start.Get(), &point)) return false;
    const EcefPayload P = PayloadOf(point);
    const EcefPayload d = PayloadOf(*direction);
    double nearT = 0.0;
    double farT = 0.0;
    if (!IntersectEllipsoid(ellipsoid, P, d, &nearT, &farT)) return false;
    const auto koordAt = [&](double t) {
        return EcefKoord(datum, {P.x + t * d.x, P.y + t * d.y, P.z + t * d.z});
    };
    const CKoord nearKoord = koordAt(nearT);
    const CKoord farKoord = koordAt(farT);
    return nearResult->SetKoord(&nearKoord) && farResult->SetKoord(&farKoord);
}

bool EllipsoidOfRevolution::PointAtGeodesicDistance(ICoord* start, double azimuth, double distance,
                                                    ICoord* out) try {
    const IRef<ICoord> coord(start);
    const IRef<ICoord> result(out);
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), ManagedReference());
    const IRef<ICoord> drop(CreateClassCoord());
    const IRef<ICoord> far(CreateClassCoord());
    Tripod tripod;
    GeodezPayload position{};
    if (!reference.IsValid() || !drop.IsValid() || !far.IsValid()) return false;
    if (!GetTripod(coord.Get(), azimuth, &tripod) || !ReadWgs84Position(coord.Get(), &position)) return false;

    const std::int32_t datum = reference->GetDatum();
    tagKOORD from = MakeKoord(datum, KOORD_GEODEZ);
    Store(from, position);
    const auto geodesicDistance = [&](double t, double* s) {
        const Vector onLine = Along(tripod.origin, t, tripod.direction);
        if (!IsSpatial(&onLine)) return false;
        const CKoord above = EcefKoord(datum, PayloadOf(onLine));
        CKoord foot;
        double azimuth12 = 0.0;
        double azimuth21 = 0.0;
        return KoordToCoord(&above, drop.Get()) &&
               IntersectLine(drop.Get(), &tripod.normal, result.Get(), far.Get()) &&
               KoordFromCoord(result.Get(), &foot) &&
               Geodesic_Inverse(&foot, &from, datum, s, &azimuth12, &azimuth21) == KOORD_OK;
    };
    return SeekParameter(distance, distance, geodesicDistance,
                         [](double miss) { return miss < SEARCH_TOLERANCE; });
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::PointAtChordDistance(ICoord* start, double azimuth, double distance,
                                                 ICoord* out) try {
    const IRef<ICoord> coord(start);
    const IRef<ICoord> result(out);
    const IRef<ICoordinateReference> reference = ReadReference(coord.Get(), ManagedReference());
    const IRef<ICoord> trial(CreateClassCoord());
    Tripod tripod;
    if (!reference.IsValid() || !trial.IsValid() || !GetTripod(coord.Get(), azimuth, &tripod)) return false;
    if (!reference->SetSystem(KOORD_GEODEZ) || !trial->SetReference(reference.Get())) return false;

    Vector end;
    const auto height = [&](double t, double* h) {
        const Vector horizontal = Along(tripod.origin, t, tripod.direction);
        if (!EcefVectorToCoord(&horizontal, trial.Get())) return false;
        const double w = std::sqrt(distance * distance - t * t);
        end = Along(horizontal, trial->GetHeight() <= 0.0 ? w : -w, tripod.normal);
        if (!EcefVectorToCoord(&end, trial.Get())) return false;
        *h = trial->GetHeight();
        return true;
    };
    return SeekParameter(distance, 0.0, height, [](double miss) { return miss <= SEARCH_TOLERANCE; }) &&
           EcefVectorToCoord(&end, result.Get());
} catch (const std::exception&) {
    return false;
}

bool EllipsoidOfRevolution::GetTripod(ICoord* start, double azimuth, Tripod* tripod) {
    return GetNormal(start, &tripod->normal) && GetDirection(start, azimuth, &tripod->direction) &&
           CoordToEcefVector(start, &tripod->origin);
}

Vector EllipsoidOfRevolution::Along(const Vector& origin, double t, const Vector& direction) const {
    return vectors_->Add(origin, vectors_->Scale(direction, t));
}

IEllipsoidOfRevolution* CreateClassEllipsoidOfRevolution() {
    return NewObject<EllipsoidOfRevolution>();
}

}  // namespace tessara
