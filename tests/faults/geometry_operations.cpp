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

constexpr const char* EMPTIES_THE_PLACE = "it empties the place";

constexpr FaultyOperation GEOMETRY_OPERATIONS[] = {
    {"IVector::Normalize", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Normalize(s.vector)); }},
    {"IVector::MakeZero", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->MakeZero(3)); }},
    {"IVector::Length", NEVER, [](Scene& s) { return s.vectors->Length(s.vector) > 6e6; }},
    {"IVector::Add", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Add(s.vector, s.vector2)); }},
    {"IVector::Subtract", MAY_THROW,
     [](Scene& s) { return IsSpatial(s.vectors->Subtract(s.vector, s.vector2)); }},
    {"IVector::Dot", NEVER, [](Scene& s) { return s.vectors->Dot(s.vector, s.vector2) < 0.0; }},
    {"IVector::Cross", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Cross(s.vector, s.vector2)); }},
    {"IVector::TripleProduct", TOLD,
     [](Scene& s) { return s.vectors->TripleProduct(s.vector, s.vector2, s.vector) != MISSING_NUMBER; }},
    {"IVector::Scale", MAY_THROW, [](Scene& s) { return IsSpatial(s.vectors->Scale(s.vector, 2.0)); }},

    {"IEllipsoidOfRevolution::GetLocalAxes", TOLD,
     [](Scene& s) { return s.ellipsoid->GetLocalAxes(s.degrees.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"IEllipsoidOfRevolution::GetNormal", TOLD,
     [](Scene& s) { return s.ellipsoid->GetNormal(s.degrees.Get(), &s.vectorOut); }},
    {"IEllipsoidOfRevolution::GetDirection", TOLD,
     [](Scene& s) { return s.ellipsoid->GetDirection(s.degrees.Get(), 30.0, &s.vectorOut); }},
    {"IEllipsoidOfRevolution::CoordToEcefVector", TOLD,
     [](Scene& s) { return s.ellipsoid->CoordToEcefVector(s.degrees.Get(), &s.vectorOut); }},
    {"IEllipsoidOfRevolution::EcefVectorToCoord", TOLD,
     [](Scene& s) { return s.ellipsoid->EcefVectorToCoord(&s.vector, s.out.Get()); }},
    {"IEllipsoidOfRevolution::PointAtGeodesicDistance", TOLD,
     [](Scene& s) {
         return s.ellipsoid->PointAtGeodesicDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get());
     }},
    {"IEllipsoidOfRevolution::PointAtChordDistance", TOLD,
     [](Scene& s) { return s.ellipsoid->PointAtChordDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get()); }},
    {"IEllipsoidOfRevolution::IntersectLine", TOLD,
     [](Scene& s) {
         return s.ellipsoid->IntersectLine(s.degrees.Get(), &s.vector2, s.out.Get(), s.out2.Get());
     }},

    {"ITangentPlane::SetOrigin", TOLD, [](Scene& s) { return s.plane->SetOrigin(s.moreDegrees.Get()); }},
    {"ITangentPlane::GetFrame", TOLD,
     [](Scene& s) { return s.plane->GetFrame(s.out.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"ITangentPlane::GetOrigin", NEVER, [](Scene& s) { return s.plane->GetOrigin(s.out.Get()); }},
    {"ITangentPlane::GetOrigin in another system", TOLD,
     [](Scene& s) { return s.plane->GetOrigin(s.outInUtm.Get()); }},
    {"ITangentPlane::GetNormal", TOLD, [](Scene& s) { return s.plane->GetNormal(&s.vectorOut); }},
    {"ITangentPlane::GetDirection", TOLD, [](Scene& s) { return s.plane->GetDirection(30.0, &s.vectorOut); }},
    {"ITangentPlane::GetAzimuth", TOLD,
     [](Scene& s) { return s.plane->GetAzimuth(s.moreDegrees.Get()) != MISSING_NUMBER; }},
    {"ITangentPlane::IntersectRay", NEVER,
     [](Scene& s) {
         return s.plane->IntersectRay(&s.vector, &s.vector2, &s.number, &s.number2) != MISSING_NUMBER;
     }},
    {"ITangentPlane::ProjectAlong", TOLD,
     [](Scene& s) {
         return s.plane->ProjectAlong(s.moreDegrees.Get(), &s.vector2, s.out.Get()) != MISSING_NUMBER;
     }},
    {"ITangentPlane::MapByGeodesic", TOLD,
     [](Scene& s) { return s.plane->MapByGeodesic(s.moreDegrees.Get(), s.out.Get()); }},
    {"ITangentPlane::MapByChord", TOLD,
     [](Scene& s) { return s.plane->MapByChord(s.moreDegrees.Get(), s.out.Get()); }},
    {"ITangentPlane::GetPlaneCoords", TOLD,
     [](Scene& s) {
         return s.plane->GetPlaneCoords(s.moreDegrees.Get(), &s.number, &s.number2, &s.number3);
     }},
    {"ITangentPlane::PlaneCoordsToCoord", TOLD,
     [](Scene& s) { return s.plane->PlaneCoordsToCoord(100.0, 200.0, 3.0, s.out.Get()); }},

    {"ICircleOnTangentPlane::MakeCircle", TOLD,
     [](Scene& s) {
         return s.circle->MakeCircle(s.degrees.Get(), 0.0, 90.0, 1000.0, s.list.Get(), 5, true);
     }},
    {"IEllipseOnTangentPlane::MakeEllipse", TOLD,
     [](Scene& s) {
         return s.ellipse->MakeEllipse(s.degrees.Get(), 30.0, 1000.0, 500.0, 0.0, 90.0, s.list.Get(), 5,
                                       true);
     }},

    {"ILinePoints::SetPixelTolerance", NEVER, [](Scene& s) { return s.lines->SetPixelTolerance(0.5); }},
    {"ILinePoints::GetPixelTolerance", NEVER, [](Scene& s) { return s.lines->GetPixelTolerance() > 0.0; }},
    {"ILinePoints::DensifyMapStraight", TOLD, Densifies<&ILinePoints::DensifyMapStraight>},
    {"ILinePoints::DensifyCoordStraight", TOLD, Densifies<&ILinePoints::DensifyCoordStraight>},
    {"ILinePoints::DensifyCoordStraightZoned", TOLD, Densifies<&ILinePoints::DensifyCoordStraightZoned>},
    {"ILinePoints::DensifyGeodesic", TOLD,
     [](Scene& s) {
         return s.lines->DensifyGeodesic(s.map.Get(), s.degrees.Get(), s.moreDegrees.Get(), s.list.Get());
     }},
    {"ILinePoints::DensifyInReference", TOLD,
     [](Scene& s) {
         return s.lines->DensifyInReference(s.degrees.Get(), s.moreDegrees.Get(), s.utmReference.Get(),
                                            s.list.Get());
     }},
    {"ILinePoints::IntersectOnMap", TOLD,
     [](Scene& s) {
         return s.lines->IntersectOnMap(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(), s.results.Get());
     }},
    {"ILinePoints::IntersectOnMapToArray", TOLD,
     [](Scene& s) {
         return s.lines->IntersectOnMapToArray(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(),
                                               s.list.Get());
     }},
    {"ILinePoints::IntersectOnMapToArray of pixels", TOLD,
     [](Scene& s) {
         return s.lines->IntersectOnMapToArray(s.map.Get(), s.square.Get(), s.moreSquare.Get(), s.list.Get());
     }},
    {"ILinePoints::IntersectPixelLines", TOLD,
     [](Scene& s) {
         return s.lines->IntersectPixelLines(s.square.Get(), s.moreSquare.Get(), s.results.Get());
     }},
    {"ILinePoints::IntersectPixelLinesToArray", TOLD,
     [](Scene& s) {
         return s.lines->IntersectPixelLinesToArray(s.square.Get(), s.moreSquare.Get(), s.list.Get());
     }},
    {"ILinePoints::IsPointOnLine", TOLD,
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
     [](Scene& s) { return s.parameters->SetIntersection(s.degrees.Get()); }, nullptr, EMPTIES_THE_PLACE},
    {"ILineIntersectionParameters::GetLineStart", NEVER,
     [](Scene& s) { return s.parameters->GetLineStart() == s.utm.Get(); }},
    {"ILineIntersectionParameters::SetLineStart", NEVER,
     [](Scene& s) { return s.parameters->SetLineStart(s.degrees.Get()); }, nullptr, EMPTIES_THE_PLACE},
    {"ILineIntersectionParameters::GetLineEnd", NEVER,
     [](Scene& s) { return s.parameters->GetLineEnd() == s.moreUtm.Get(); }},
    {"ILineIntersectionParameters::SetLineEnd", NEVER,
     [](Scene& s) { return s.parameters->SetLineEnd(s.degrees.Get()); }, nullptr, EMPTIES_THE_PLACE},
    {"ILineIntersectionParameters::GetSegmentIndex", NEVER,
     [](Scene& s) { return s.parameters->GetSegmentIndex() == 4; }},
    {"ILineIntersectionParameters::SetSegmentIndex", NEVER,
     [](Scene& s) { return s.parameters->SetSegmentIndex(5); }},
    {"ILineIntersectionParameters::GetParameter", NEVER,
     [](Scene& s) { return s.parameters->GetParameter() == 0.25; }},
    {"ILineIntersectionParameters::SetParameter", NEVER,
     [](Scene& s) { return s.parameters->SetParameter(0.5); }},

    {"IIntersectionResults::Add", TOLD,
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
    return GEOMETRY_OPERATIONS;
}

}  // namespace tessara::testing
