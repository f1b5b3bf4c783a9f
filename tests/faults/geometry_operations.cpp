#include "faults/operation.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

bool IsSpatial(const Vector& vector) {
    return vector.Size() == 3;
}

// A chain of points between two places on the map.
template <auto Densify>
bool Densifies(Scene& s) {
    return (s.lines.Get()->*Densify)(s.map.Get(), s.utm.Get(), s.moreUtm.Get(), s.list.Get());
}

constexpr FaultyOperation OPERATIONS[] = {
    {"IVector::Normalize", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Normalize(s.vector)); }},
    {"IVector::MakeZero", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->MakeZero(3)); }},
    {"IVector::Length", NEVER, [](Scene& s) { return s.vectors->Length(s.vector) > 6e6; }},
    {"IVector::Add", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Add(s.vector, s.vector2)); }},
    {"IVector::Subtract", MAY_THROW,
     [](Scene& s) { return IsSpatial(s.vectors->Subtract(s.vector, s.vector2)); }},
    {"IVector::Dot", NEVER, [](Scene& s) { return s.vectors->Dot(s.vector, s.vector2) < 0.0; }},
    {"IVector::Cross", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Cross(s.vector, s.vector2)); }},
    {"IVector::TripleProduct", MAY_THROW,
     [](Scene& s) { return s.vectors->TripleProduct(s.vector, s.vector2, s.vector) != MISSING_NUMBER; }},
    {"IVector::Scale", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Scale(s.vector, 2.0)); }},

    {"IEllipsoidOfRevolution::GetLocalAxes", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->GetLocalAxes(s.degrees.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"IEllipsoidOfRevolution::GetNormal", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->GetNormal(s.degrees.Get(), &s.vectorOut); }},
    {"IEllipsoidOfRevolution::GetDirection", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->GetDirection(s.degrees.Get(), 30.0, &s.vectorOut); }},
    {"IEllipsoidOfRevolution::CoordToEcefVector", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->CoordToEcefVector(s.degrees.Get(), &s.vectorOut); }},
    {"IEllipsoidOfRevolution::EcefVectorToCoord", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->EcefVectorToCoord(&s.vector, s.out.Get()); }},
    {"IEllipsoidOfRevolution::PointAtGeodesicDistance", MAY_THROW,
     [](Scene& s) {
         return s.ellipsoid->PointAtGeodesicDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get());
     }},
    {"IEllipsoidOfRevolution::PointAtChordDistance", MAY_THROW,
     [](Scene& s) { return s.ellipsoid->PointAtChordDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get()); }},
    {"IEllipsoidOfRevolution::IntersectLine", MAY_THROW,
     [](Scene& s) {
         return s.ellipsoid->IntersectLine(s.degrees.Get(), &s.vector2, s.out.Get(), s.out2.Get());
     }},

    {"ITangentPlane::SetOrigin", MAY_THROW, [](Scene& s) { return s.plane->SetOrigin(s.moreDegrees.Get()); }},
    {"ITangentPlane::GetFrame", MAY_THROW,
     [](Scene& s) { return s.plane->GetFrame(s.out.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"ITangentPlane::GetOrigin", NEVER, [](Scene& s) { return s.plane->GetOrigin(s.out.Get()); }},
    {"ITangentPlane::GetOrigin in another system", TOLD,
     [](Scene& s) { return s.plane->GetOrigin(s.outInUtm.Get()); }},
    {"ITangentPlane::GetNormal", MAY_THROW, [](Scene& s) { return s.plane->GetNormal(&s.vectorOut); }},
    {"ITangentPlane::GetDirection", MAY_THROW,
     [](Scene& s) { return s.plane->GetDirection(30.0, &s.vectorOut); }},
    {"ITangentPlane::GetAzimuth", MAY_THROW,
     [](Scene& s) { return s.plane->GetAzimuth(s.moreDegrees.Get()) != MISSING_NUMBER; }},
    {"ITangentPlane::IntersectRay", NEVER,
     [](Scene& s) {
         return s.plane->IntersectRay(&s.vector, &s.vector2, &s.number, &s.number2) != MISSING_NUMBER;
     }},
    {"ITangentPlane::ProjectAlong", MAY_THROW,
     [](Scene& s) {
         return s.plane->ProjectAlong(s.moreDegrees.Get(), &s.vector2, s.out.Get()) != MISSING_NUMBER;
     }},
    {"ITangentPlane::MapByGeodesic", MAY_THROW,
     [](Scene& s) { return s.plane->MapByGeodesic(s.moreDegrees.Get(), s.out.Get()); }},
    {"ITangentPlane::MapByChord", MAY_THROW,
     [](Scene& s) { return s.plane->MapByChord(s.moreDegrees.Get(), s.out.Get()); }},
    {"ITangentPlane::GetPlaneCoords", MAY_THROW,
     [](Scene& s) {
         return s.plane->GetPlaneCoords(s.moreDegrees.Get(), &s.number, &s.number2, &s.number3);
     }},
    {"ITangentPlane::PlaneCoordsToCoord", MAY_THROW,
     [](Scene& s) { return s.plane->PlaneCoordsToCoord(100.0, 200.0, 3.0, s.out.Get()); }},

    {"ICircleOnTangentPlane::MakeCircle", MAY_THROW,
     [](Scene& s) {
         return s.circle->MakeCircle(s.degrees.Get(), 0.0, 90.0, 1000.0, s.list.Get(), 5, true);
     }},
    {"IEllipseOnTangentPlane::MakeEllipse", MAY_THROW,
     [](Scene& s) {
         return s.ellipse->MakeEllipse(s.degrees.Get(), 30.0, 1000.0, 500.0, 0.0, 90.0, s.list.Get(), 5,
                                       true);
     }},

    {"ILinePoints::SetPixelTolerance", NEVER, [](Scene& s) { return s.lines->SetPixelTolerance(0.5); }},
    {"ILinePoints::GetPixelTolerance", NEVER, [](Scene& s) { return s.lines->GetPixelTolerance() > 0.0; }},
    {"ILinePoints::DensifyMapStraight", MAY_THROW, Densifies<&ILinePoints::DensifyMapStraight>},
    {"ILinePoints::DensifyCoordStraight", MAY_THROW, Densifies<&ILinePoints::DensifyCoordStraight>},
    {"ILinePoints::DensifyCoordStraightZoned", MAY_THROW, Densifies<&ILinePoints::DensifyCoordStraightZoned>},
    {"ILinePoints::DensifyGeodesic", MAY_THROW,
     [](Scene& s) {
         return s.lines->DensifyGeodesic(s.map.Get(), s.degrees.Get(), s.moreDegrees.Get(), s.list.Get());
     }},
    {"ILinePoints::DensifyInReference", MAY_THROW,
     [](Scene& s) {
         return s.lines->DensifyInReference(s.degrees.Get(), s.moreDegrees.Get(), s.utmReference.Get(),
                                            s.list.Get());
     }},
    {"ILinePoints::IntersectOnMap", MAY_THROW,
     [](Scene& s) {
         return s.lines->IntersectOnMap(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(), s.results.Get());
     }},
    {"ILinePoints::IntersectOnMapToArray", MAY_THROW,
     [](Scene& s) {
         return s.lines->IntersectOnMapToArray(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(),
                                               s.list.Get());
     }},
    {"ILinePoints::IntersectOnMapToArray of pixels", MAY_THROW,
     [](Scene& s) {
         return s.lines->IntersectOnMapToArray(s.map.Get(), s.square.Get(), s.moreSquare.Get(), s.list.Get());
     }},
    {"ILinePoints::IntersectPixelLines", MAY_THROW,
     [](Scene& s) {
         return s.lines->IntersectPixelLines(s.square.Get(), s.moreSquare.Get(), s.results.Get());
     }},
    {"ILinePoints::IntersectPixelLinesToArray", MAY_THROW,
     [](Scene& s) {
         return s.lines->IntersectPixelLinesToArray(s.square.Get(), s.moreSquare.Get(), s.list.Get());
     }},
    {"ILinePoints::IsPointOnLine", MAY_THROW,
     [](Scene& s) { return s.lines->IsPointOnLine(s.map.Get(), At(s.square, 0).Get(), s.square.Get()); }},
    {"ILinePoints::GetSignedDistance", TOLD,
     [](Scene& s) {
         return s.lines->GetSignedDistance(s.map.Get(), s.pixel.Get(), At(s.square, 0).Get(),
                                           At(s.square, 1).Get()) != MISSING_NUMBER;
     }},
    {"ILinePoints::GetFootPoint", TOLD,
     [](Scene& s) {
         return s.lines->GetFootPoint(s.map.Get(), s.pixel.Get(), At(s.square, 0).Get(),
                                      At(s.square, 1).Get(), s.out.Get());
     }},
    {"ILinePoints::GetFootPoint into a pixel", TOLD,
     [](Scene& s) {
         return s.lines->GetFootPoint(s.map.Get(), s.pixel.Get(), At(s.square, 0).Get(),
                                      At(s.square, 1).Get(), s.morePixel.Get());
     }},

    {"ILineIntersectionParameters::GetIntersection", NEVER,
     [](Scene& s) { return s.parameters->GetIntersection() == s.utm.Get(); }},
    {"ILineIntersectionParameters::SetIntersection", NEVER,
     [](Scene& s) { return s.parameters->SetIntersection(s.degrees.Get()); }},
    {"ILineIntersectionParameters::GetLineStart", NEVER,
     [](Scene& s) { return s.parameters->GetLineStart() == s.utm.Get(); }},
    {"ILineIntersectionParameters::SetLineStart", NEVER,
     [](Scene& s) { return s.parameters->SetLineStart(s.degrees.Get()); }},
    {"ILineIntersectionParameters::GetLineEnd", NEVER,
     [](Scene& s) { return s.parameters->GetLineEnd() == s.moreUtm.Get(); }},
    {"ILineIntersectionParameters::SetLineEnd", NEVER,
     [](Scene& s) { return s.parameters->SetLineEnd(s.degrees.Get()); }},
    {"ILineIntersectionParameters::GetSegmentIndex", NEVER,
     [](Scene& s) { return s.parameters->GetSegmentIndex() == 4; }},
    {"ILineIntersectionParameters::SetSegmentIndex", NEVER,
     [](Scene& s) { return s.parameters->SetSegmentIndex(5); }},
    {"ILineIntersectionParameters::GetParameter", NEVER,
     [](Scene& s) { return s.parameters->GetParameter() == 0.25; }},
    {"ILineIntersectionParameters::SetParameter", NEVER,
     [](Scene& s) { return s.parameters->SetParameter(0.5); }},

    {"IIntersectionResults::Add", MAY_THROW,
     [](Scene& s) {
         return s.results->Add(s.parameters.Get(), s.parameters.Get()) && s.results->GetCount() == 1;
     }},
    {"IIntersectionResults::RemoveAt", NEVER, [](Scene& s) { return s.onePair->RemoveAt(0); }},
    {"IIntersectionResults::GetCount", NEVER, [](Scene& s) { return s.onePair->GetCount() == 1; }},
    {"IIntersectionResults::GetFirstAt", NEVER, [](Scene& s) { return s.onePair->GetFirstAt(0) != nullptr; }},
    {"IIntersectionResults::GetSecondAt", NEVER,
     [](Scene& s) { return s.onePair->GetSecondAt(0) != nullptr; }},
    {"IIntersectionResults::Clear", NEVER,
     [](Scene& s) { return s.onePair->Clear(), s.onePair->GetCount() == 0; }},
};

}  // namespace

OperationTable GeometryOperations() {
    return OPERATIONS;
}

}  // namespace tessara::testing
