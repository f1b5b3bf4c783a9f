// Operations with every one of their allocations failing in turn: they tell the failure or, where sequences
// grow, let std::bad_alloc pass; nothing leaks, no input changes, and whatever succeeds has its whole result.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "support/fault_scene.h"
#include "support/live_objects.h"
#include "support/managed_library.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;

struct Operation {
    const char* name;
    // Whether it succeeds.
    bool (*call)(Scene& scene);
};

// Nothing is thrown by these.
const Operation TELLING[] = {
    {"Coord GetGeographic", [](Scene& s) { return s.utm->GetGeographic(s.geographic.Get()); }},
    {"Coord SetGeographic", [](Scene& s) { return s.out->SetGeographic(s.geographic.Get()); }},
    {"Coord SetReference", [](Scene& s) { return s.utm->SetReference(s.gk.Get()); }},
    {"Coord GetReference", [](Scene& s) { return s.utm->GetReference(s.utmReference.Get()); }},
    {"Coord ShiftEast", [](Scene& s) { return IRef<ICoordInternal>(s.utm)->ShiftEast(10.0); }},
    {"Coord ShiftNorth of UTMREF", [](Scene& s) { return IRef<ICoordInternal>(s.utmref)->ShiftNorth(10.0); }},
    {"Coord EastDifference",
     [](Scene& s) { return IRef<ICoordInternal>(s.utm)->EastDifference(s.moreUtm.Get()) > 1.0; }},
    {"CoordinateAverage",
     [](Scene& s) { return s.average->Average(s.utm.Get(), s.moreUtm.Get(), s.out.Get()); }},
    {"CoordinateCompare",
     [](Scene& s) { return s.compare->CompareNorthSouth(s.utm.Get(), s.moreUtm.Get()) != -2; }},
    {"CoordinateCompare of UTMREF",
     [](Scene& s) { return s.compare->CompareEastWest(s.utmref.Get(), s.utmref.Get()) != -2; }},
    {"CoordinateNeighbor", [](Scene& s) { return s.neighbor->GetWestNeighbor(s.utm.Get(), s.out.Get()); }},
    {"CoordinateInit", [](Scene& s) { return s.init->InitCoord(s.out.Get()); }},
    {"CoordinateChecker CheckCoord", [](Scene& s) { return s.checker->CheckCoord(s.utm.Get()); }},
    {"CoordinateChecker CheckInSystemArea",
     [](Scene& s) { return s.checker->CheckInSystemArea(s.utm.Get()); }},
    {"CoordinateChecker CheckConvertible",
     [](Scene& s) { return s.checker->CheckConvertible(s.utm.Get(), s.gk.Get()); }},
    {"CoordinateTransfer Transfer", [](Scene& s) { return s.transfer->Transfer(s.utm.Get(), s.out.Get()); }},
    {"CoordinateTransfer TransferNorth",
     [](Scene& s) { return s.transfer->TransferNorth(s.utm.Get(), s.moreUtm.Get()); }},
    {"CoordinateTransfer TransferEast",
     [](Scene& s) { return s.transfer->TransferEast(s.utm.Get(), s.moreUtm.Get()); }},
    {"CoordinateTransfer TransferToMap",
     [](Scene& s) { return s.transfer->TransferToMap(s.map.Get(), s.utm.Get(), s.out.Get()); }},
    {"CoordinateTransfer TransferBetweenMaps",
     [](Scene& s) {
         return s.transfer->TransferBetweenMaps(s.map.Get(), s.pixel.Get(), s.otherMap.Get(),
                                                s.morePixel.Get());
     }},
    {"ZoneCoordOperations HasZones", [](Scene& s) { return s.zones->HasZones(s.utm.Get()); }},
    {"ZoneCoordOperations GetEastBorder",
     [](Scene& s) { return s.zones->GetEastBorder(s.utm.Get(), s.out.Get()) > 0; }},
    {"ZoneCoordOperations GetWestBorder",
     [](Scene& s) { return s.zones->GetWestBorder(s.utm.Get(), s.out.Get()) > 0; }},
    {"ZoneCoordOperations GetEastNeighbour",
     [](Scene& s) { return s.zones->GetEastNeighbour(s.utm.Get(), s.out.Get()); }},
    {"ZoneCoordOperations GetWestNeighbour",
     [](Scene& s) { return s.zones->GetWestNeighbour(s.utm.Get(), s.out.Get()); }},
    {"ZoneCoordOperations GetZoneCentre",
     [](Scene& s) { return s.zones->GetZoneCentre(s.utm.Get(), s.out.Get()); }},
    {"ZoneCoordOperations GetZoneNumber", [](Scene& s) { return s.zones->GetZoneNumber(s.utm.Get()) == 32; }},
    {"ZoneCoordOperations MoveToZone", [](Scene& s) { return s.zones->MoveToZone(1, s.utm.Get()); }},
    {"ZoneCoordOperations GetEastNeighbourAtEquator",
     [](Scene& s) { return s.zones->GetEastNeighbourAtEquator(s.utm.Get(), s.out.Get()); }},
    {"ZoneCoordOperations GetWestNeighbourAtEquator",
     [](Scene& s) { return s.zones->GetWestNeighbourAtEquator(s.utm.Get(), s.out.Get()); }},
    {"MapCoordOperations GetReferencePoint",
     [](Scene& s) { return s.map->GetReferencePoint(s.point.Get()); }},
    {"MapCoordOperations GetGeoDate", [](Scene& s) { return s.map->GetGeoDate(s.datum.Get()); }},
    {"MapCoordOperations GetProjection", [](Scene& s) { return s.map->GetProjection(s.projection.Get()); }},
    {"MapCoordOperations FloatPixelToCoord",
     [](Scene& s) { return s.map->FloatPixelToCoord(10.0, 20.0, s.out.Get()); }},
    {"MapCoordOperations PixelCoordToCoord",
     [](Scene& s) { return s.map->PixelCoordToCoord(s.pixel.Get(), s.out.Get()); }},
    {"MapCoordOperations CoordToFloatPixel",
     [](Scene& s) { return s.map->CoordToFloatPixel(s.utm.Get(), &s.number, &s.number2); }},
    {"MapCoordOperations CoordToLongPixel",
     [](Scene& s) { return s.map->CoordToLongPixel(s.utm.Get(), &s.integer, &s.integer2); }},
    {"MapCoordOperations CoordToPixelCoord",
     [](Scene& s) { return s.map->CoordToPixelCoord(s.utm.Get(), s.pixel.Get()); }},
    {"ReferencePoint SetFloat", [](Scene& s) { return s.point->SetFloat(s.utm.Get(), 1.0, 2.0); }},
    {"ReferencePoint GetFloat",
     [](Scene& s) { return s.point->GetFloat(s.out.Get(), &s.number, &s.number2); }},
    {"MapCoordOperationsFactory CreateFromReferencePoint",
     [](Scene& s) {
         return s.Keep(
             s.maps->CreateFromReferencePoint(s.point.Get(), 50000, 10.0, s.datum.Get(), s.projection.Get()));
     }},
    {"MapCoordOperationsFactory CreateFromReferencePointScale",
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePointScale(s.point.Get(), 2e-5, 10.0, s.datum.Get(),
                                                             s.projection.Get()));
     }},
    {"MapCoordOperationsFactory CreateFromReferencePoints",
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePoints(s.points.Get(), 50000, 10.0, s.datum.Get(),
                                                         s.projection.Get()));
     }},
    {"MapCoordOperationsFactory CreateFromReferencePointsScale",
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePointsScale(s.points.Get(), 2e-5, 10.0, s.datum.Get(),
                                                              s.projection.Get()));
     }},
    // A creator that couldn't be completed creates nothing.
    {"MapCoordCreatorFactory",
     [](Scene& s) {
         const IRef<IMapCoordCreator> creator(s.creators->CreateMapCoordCreator(s.map.Get()));
         return creator.IsValid() && s.Keep(creator->CreateCoord());
     }},
    {"MapCoordCreator CreateCoord", [](Scene& s) { return s.Keep(s.creator->CreateCoord()); }},
    {"MapCoordCreator CreateCoordFrom",
     [](Scene& s) { return s.Keep(s.creator->CreateCoordFrom(s.utm.Get())); }},
    {"MapCoordCreator ConvertCoord", [](Scene& s) { return s.creator->ConvertCoord(s.utm.Get()); }},
    {"ProjectionFactory",
     [](Scene& s) {
         const MapDdParams params{10.0, 50.0, 100.0, 100.0};
         return s.Keep(s.projections->CreateDd(&params));
     }},
    {"TransformableMapPixel FindValidCoordInRect",
     [](Scene& s) { return s.transformable->FindValidCoordInRect(s.map.Get(), s.rect.Get(), s.out.Get()); }},
    {"TransformableMapPixel ClipLineToValid",
     [](Scene& s) {
         return s.transformable->ClipLineToValid(s.map.Get(), s.utmReference.Get(), s.corner.Get(),
                                                 s.otherCorner.Get(), s.corner.Get(),
                                                 s.otherCorner.Get()) >= 0;
     }},
    {"CoordinateString SetCoord", [](Scene& s) { return s.string->SetCoord(s.utm.Get()); }},
    {"CoordinateString GetCoord", [](Scene& s) { return s.string->GetCoord(s.out.Get()); }},
    {"CoordinateArea GetSystemNorth", [](Scene& s) { return s.area->GetSystemNorth(s.utm.Get()); }},
    {"CoordinateArea GetSystemExtremes",
     [](Scene& s) {
         return s.area->GetSystemExtremes(s.out.Get(), s.out2.Get(), s.out3.Get(), s.out4.Get());
     }},
};

// These fill sequences.
const Operation FILLING[] = {
    {"Array Add", [](Scene& s) { return s.list->Add(s.utm.Get()), s.list->GetCount() == 1; }},
    {"CoordinateString ParseCoord",
     [](Scene& s) { return s.string->ParseCoord(s.degreeReference.Get(), s.north.Get(), s.east.Get()); }},
    {"CoordinateString GetNorthText", [](Scene& s) { return s.string->GetNorthText(s.text.Get()); }},
    {"CoordinateString GetEastText", [](Scene& s) { return s.string->GetEastText(s.text.Get()); }},
    {"CoordinateString GetGeographicTexts",
     [](Scene& s) { return s.string->GetGeographicTexts(s.text.Get(), s.text2.Get(), s.text3.Get()); }},
    {"CoordinateString GetCartesianTexts",
     [](Scene& s) { return s.string->GetCartesianTexts(s.text.Get(), s.text2.Get(), s.text3.Get()); }},
    {"CoordinateString GetNorthDisplayText",
     [](Scene& s) { return s.string->GetNorthDisplayText(s.text.Get()); }},
    {"CoordinateString GetEastDisplayText",
     [](Scene& s) { return s.string->GetEastDisplayText(s.text.Get()); }},
    {"CoordCheckerUTMREF CheckCoord", [](Scene& s) { return s.utmrefChecker->CheckCoord(s.utmref.Get()); }},
    {"CoordCheckerUTMREF GetZoneList", [](Scene& s) { return s.utmrefChecker->GetZoneList(s.list.Get()); }},
    {"CoordCheckerUTMREF GetBandList", [](Scene& s) { return s.utmrefChecker->GetBandList(s.list.Get()); }},
    {"CoordCheckerUTMREF GetColumnList",
     [](Scene& s) {
         return s.utmrefChecker->GetColumnList(s.list.Get(), DATUM_WGS84, s.zone.Get(), s.band.Get(),
                                               s.column.Get(), s.row.Get());
     }},
    {"CoordCheckerUTMREF GetRowListOf",
     [](Scene& s) { return s.utmrefChecker->GetRowListOf(s.list.Get(), s.utmref.Get()); }},
    {"CoordCheckerUTMREF SplitCoord",
     [](Scene& s) {
         return s.utmrefChecker->SplitCoord(s.utmref.Get(), s.zone.Get(), s.band.Get(), s.column.Get(),
                                            s.row.Get(), s.easting.Get(), s.northing.Get());
     }},
    {"CoordCheckerUTMREF ComposeCoord",
     [](Scene& s) {
         CKoord koord(MakeKoord(DATUM_WGS84, KOORD_UTMREF));
         return s.utmrefChecker->ComposeCoord(s.zone.Get(), s.band.Get(), s.column.Get(), s.row.Get(),
                                              s.easting.Get(), s.northing.Get(), &koord);
     }},
    {"MapCoordOperations GetReferencePoints",
     [](Scene& s) { return s.map->GetReferencePoints(s.list.Get()); }},
    {"MapCoordOperations GetMapDefinition",
     [](Scene& s) {
         return s.map->GetMapDefinition(s.list.Get(), &s.integer, &s.number, s.datum.Get(),
                                        s.projection.Get());
     }},
    {"MapCoordCreator CreateCoords", [](Scene& s) { return s.Keep(s.creator->CreateCoords(3)); }},
    {"MapCoordCreator CreateCoordsFrom",
     [](Scene& s) { return s.Keep(s.creator->CreateCoordsFrom(s.utmLine.Get())); }},
    {"MapCoordCreator ConvertCoords", [](Scene& s) { return s.creator->ConvertCoords(s.single.Get()); }},
    {"CoordinateArea GetMapRectNorth",
     [](Scene& s) { return s.area->GetMapRectNorth(s.map.Get(), s.rect.Get(), s.out.Get()); }},
    {"CoordinateArea GetMapRectExtremes",
     [](Scene& s) {
         return s.area->GetMapRectExtremes(s.map.Get(), s.rect.Get(), s.out.Get(), s.out2.Get(), s.out3.Get(),
                                           s.out4.Get());
     }},
    {"CoordinateArea GetMapLineNorth",
     [](Scene& s) { return s.area->GetMapLineNorth(s.map.Get(), s.utmLine.Get(), s.out.Get()); }},
    {"CoordinateArea GetLineWest",
     [](Scene& s) { return s.area->GetLineWest(s.utmLine.Get(), s.out.Get()); }},
    {"CoordinateArea GetLineExtremes",
     [](Scene& s) {
         return s.area->GetLineExtremes(s.degreeLine.Get(), s.out.Get(), s.out2.Get(), s.out3.Get(),
                                        s.out4.Get());
     }},
    {"CoordinateArea GetMapLineExtremes",
     [](Scene& s) {
         return s.area->GetMapLineExtremes(s.map.Get(), s.square.Get(), s.out.Get(), s.out2.Get(),
                                           s.out3.Get(), s.out4.Get());
     }},
    {"CoordinateArea IsInsideCoordEdges",
     [](Scene& s) {
         return s.area->IsInsideCoordEdges(s.map.Get(), At(s.utmPolygon, 0).Get(), s.utmPolygon.Get());
     }},
    {"CoordinateArea IsInsideCoordEdgesNoMap",
     [](Scene& s) { return s.area->IsInsideCoordEdgesNoMap(At(s.utmPolygon, 0).Get(), s.utmPolygon.Get()); }},
    {"CoordinateArea IsInsideMapEdges",
     [](Scene& s) { return s.area->IsInsideMapEdges(s.map.Get(), s.inSquare.Get(), s.square.Get()); }},
    {"CoordinateArea IsInsideTransferred",
     [](Scene& s) { return s.area->IsInsideTransferred(s.map.Get(), s.inSquare.Get(), s.square.Get()); }},
    {"CoordinateArea IsInsidePixels",
     [](Scene& s) { return s.area->IsInsidePixels(s.inSquare.Get(), s.square.Get()); }},
    {"CoordinateArea OverlayOnMap",
     [](Scene& s) {
         return s.area->OverlayOnMap(s.map.Get(), s.square.Get(), s.moreSquare.Get(), s.list.Get(),
                                     s.list2.Get(), s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"CoordinateArea Overlay",
     [](Scene& s) {
         return s.area->Overlay(s.utmPolygon.Get(), s.moreUtmPolygon.Get(), s.list.Get(), s.list2.Get(),
                                s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"CoordinateArea OverlayPixels",
     [](Scene& s) {
         return s.area->OverlayPixels(s.map.Get(), s.square.Get(), s.moreSquare.Get(), s.list.Get(),
                                      s.list2.Get(), s.list3.Get(), s.list4.Get()) == OVERLAY_CROSSING;
     }},
    {"CoordinateArea SplitPolygon",
     [](Scene& s) { return s.area->SplitPolygon(s.map.Get(), s.bow.Get(), s.list.Get()); }},
    {"LinePoints DensifyMapStraight",
     [](Scene& s) {
         return s.lines->DensifyMapStraight(s.map.Get(), s.utm.Get(), s.moreUtm.Get(), s.list.Get());
     }},
    {"LinePoints DensifyCoordStraight",
     [](Scene& s) {
         return s.lines->DensifyCoordStraight(s.map.Get(), s.utm.Get(), s.moreUtm.Get(), s.list.Get());
     }},
    {"LinePoints DensifyCoordStraightZoned",
     [](Scene& s) {
         return s.lines->DensifyCoordStraightZoned(s.map.Get(), s.utm.Get(), s.moreUtm.Get(), s.list.Get());
     }},
    {"LinePoints DensifyGeodesic",
     [](Scene& s) {
         return s.lines->DensifyGeodesic(s.map.Get(), s.degrees.Get(), s.moreDegrees.Get(), s.list.Get());
     }},
    {"LinePoints DensifyInReference",
     [](Scene& s) {
         return s.lines->DensifyInReference(s.degrees.Get(), s.moreDegrees.Get(), s.utmReference.Get(),
                                            s.list.Get());
     }},
    {"LinePoints IntersectOnMap",
     [](Scene& s) {
         return s.lines->IntersectOnMap(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(), s.results.Get());
     }},
    {"LinePoints IntersectOnMapToArray",
     [](Scene& s) {
         return s.lines->IntersectOnMapToArray(s.map.Get(), s.utmLine.Get(), s.moreUtmLine.Get(),
                                               s.list.Get());
     }},
    {"LinePoints IntersectPixelLines",
     [](Scene& s) {
         return s.lines->IntersectPixelLines(s.square.Get(), s.moreSquare.Get(), s.results.Get());
     }},
    {"LinePoints IntersectPixelLinesToArray",
     [](Scene& s) {
         return s.lines->IntersectPixelLinesToArray(s.square.Get(), s.moreSquare.Get(), s.list.Get());
     }},
    {"LinePoints IsPointOnLine",
     [](Scene& s) { return s.lines->IsPointOnLine(s.map.Get(), At(s.square, 0).Get(), s.square.Get()); }},
    {"LinePoints GetFootPoint",
     [](Scene& s) {
         return s.lines->GetFootPoint(s.map.Get(), s.pixel.Get(), At(s.square, 0).Get(),
                                      At(s.square, 1).Get(), s.out.Get());
     }},
    {"CoordinateGrid SetWindow",
     [](Scene& s) {
         return s.grid->SetWindow(s.degrees.Get(), s.moreDegrees.Get(), s.utm.Get(), s.moreUtm.Get());
     }},
    {"CoordinateGrid GetEastLines", [](Scene& s) { return s.grid->GetEastLines(s.list.Get()); }},
    {"CoordinateGrid GetNorthLines", [](Scene& s) { return s.grid->GetNorthLines(s.list.Get()); }},
    {"CoordinateGrid GetEastLinePixels", [](Scene& s) { return s.grid->GetEastLinePixels(s.list.Get()); }},
    {"CoordinateGrid GetNorthLinePixels", [](Scene& s) { return s.grid->GetNorthLinePixels(s.list.Get()); }},
    {"CoordinateGrid CopyMapTo", [](Scene& s) { return s.grid->CopyMapTo(s.otherMap.Get()); }},
    {"CoordinateGridFactory CreateUtmGrid",
     [](Scene& s) { return s.Keep(s.grids->CreateUtmGrid(s.map.Get(), DATUM_WGS84, 1000.0, 1000.0)); }},
    {"CircleOnTangentPlane",
     [](Scene& s) {
         return s.circle->MakeCircle(s.degrees.Get(), 0.0, 90.0, 1000.0, s.list.Get(), 5, true);
     }},
    {"EllipseOnTangentPlane",
     [](Scene& s) {
         return s.ellipse->MakeEllipse(s.degrees.Get(), 30.0, 1000.0, 500.0, 0.0, 90.0, s.list.Get(), 5,
                                       true);
     }},
    {"EllipsoidOfRevolution PointAtGeodesicDistance",
     [](Scene& s) {
         return s.ellipsoid->PointAtGeodesicDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get());
     }},
    {"EllipsoidOfRevolution GetLocalAxes",
     [](Scene& s) { return s.ellipsoid->GetLocalAxes(s.degrees.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"EllipsoidOfRevolution GetNormal",
     [](Scene& s) { return s.ellipsoid->GetNormal(s.degrees.Get(), &s.vectorOut); }},
    {"EllipsoidOfRevolution GetDirection",
     [](Scene& s) { return s.ellipsoid->GetDirection(s.degrees.Get(), 30.0, &s.vectorOut); }},
    {"EllipsoidOfRevolution CoordToEcefVector",
     [](Scene& s) { return s.ellipsoid->CoordToEcefVector(s.degrees.Get(), &s.vectorOut); }},
    {"EllipsoidOfRevolution EcefVectorToCoord",
     [](Scene& s) { return s.ellipsoid->EcefVectorToCoord(&s.vector, s.out.Get()); }},
    {"EllipsoidOfRevolution PointAtChordDistance",
     [](Scene& s) { return s.ellipsoid->PointAtChordDistance(s.degrees.Get(), 45.0, 1000.0, s.out.Get()); }},
    {"EllipsoidOfRevolution IntersectLine",
     [](Scene& s) {
         return s.ellipsoid->IntersectLine(s.degrees.Get(), &s.vector2, s.out.Get(), s.out2.Get());
     }},
    {"TangentPlane SetOrigin", [](Scene& s) { return s.plane->SetOrigin(s.degrees.Get()); }},
    {"TangentPlane GetFrame",
     [](Scene& s) { return s.plane->GetFrame(s.out.Get(), &s.vectorOut, &s.vectorOut2); }},
    {"TangentPlane GetOrigin", [](Scene& s) { return s.plane->GetOrigin(s.out.Get()); }},
    {"TangentPlane GetNormal", [](Scene& s) { return s.plane->GetNormal(&s.vectorOut); }},
    {"TangentPlane GetDirection", [](Scene& s) { return s.plane->GetDirection(30.0, &s.vectorOut); }},
    {"TangentPlane GetAzimuth", [](Scene& s) { return s.plane->GetAzimuth(s.moreDegrees.Get()) > 1.0; }},
    {"TangentPlane IntersectRay",
     [](Scene& s) {
         return s.plane->IntersectRay(&s.vector, &s.vector2, &s.number, &s.number2) != MISSING_NUMBER;
     }},
    {"TangentPlane ProjectAlong",
     [](Scene& s) {
         return s.plane->ProjectAlong(s.moreDegrees.Get(), &s.vector2, s.out.Get()) != MISSING_NUMBER;
     }},
    {"TangentPlane MapByGeodesic",
     [](Scene& s) { return s.plane->MapByGeodesic(s.moreDegrees.Get(), s.out.Get()); }},
    {"TangentPlane MapByChord",
     [](Scene& s) { return s.plane->MapByChord(s.moreDegrees.Get(), s.out.Get()); }},
    {"TangentPlane GetPlaneCoords",
     [](Scene& s) {
         double z = 0.0;
         return s.plane->GetPlaneCoords(s.moreDegrees.Get(), &s.number, &s.number2, &z);
     }},
    {"TangentPlane PlaneCoordsToCoord",
     [](Scene& s) { return s.plane->PlaneCoordsToCoord(100.0, 200.0, 3.0, s.out.Get()); }},
    {"EuclideanVector Normalize", [](Scene& s) { return s.vectors->Normalize(s.vector).Size() == 3; }},
    {"EuclideanVector MakeZero", [](Scene& s) { return s.vectors->MakeZero(3).Size() == 3; }},
    {"EuclideanVector Add", [](Scene& s) { return s.vectors->Add(s.vector, s.vector2).Size() == 3; }},
    {"EuclideanVector Subtract",
     [](Scene& s) { return s.vectors->Subtract(s.vector, s.vector2).Size() == 3; }},
    {"EuclideanVector Cross", [](Scene& s) { return s.vectors->Cross(s.vector, s.vector2).Size() == 3; }},
    {"EuclideanVector TripleProduct",
     [](Scene& s) { return s.vectors->TripleProduct(s.vector, s.vector2, s.vector2) != MISSING_NUMBER; }},
    {"EuclideanVector Scale", [](Scene& s) { return s.vectors->Scale(s.vector, 2.0).Size() == 3; }},
};

constexpr int NO_FAULT = 0;

enum Outcome { SUCCEEDED, FAILED, THREW };

struct Attempt {
    Outcome outcome = THREW;
    bool hasFailed = false;  // the allocation
};

Attempt Try(const Operation& operation, Scene& scene, int nth) {
    Attempt attempt;
    const FailAllocation failure(nth);
    try {
        attempt.outcome = operation.call(scene) ? SUCCEEDED : FAILED;
    } catch (const std::bad_alloc&) {
        attempt.outcome = THREW;
    }
    attempt.hasFailed = failure.HasFailed();
    return attempt;
}

// One allocation after the other, until none is left to fail. Some can be done without: the room that a
// stable sort asks for, or a part that the very arguments don't need. Then the result is what it is with
// memory.
void ExpectFaultsTold(const Operation& operation, bool mayThrow) {
    SCOPED_TRACE(operation.name);
    std::vector<std::int64_t> expected;
    {
        Scene scene;
        EXPECT_EQ(Try(operation, scene, NO_FAULT).outcome, SUCCEEDED);
        expected = scene.Outputs();
    }
    bool hasFailed = true;
    for (int nth = 1; hasFailed; ++nth) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        const std::int64_t blocks = LiveBlocks();
        bool isTold = true, isUntouched = true, isComplete = true;
        {
            Scene scene;
            const std::vector<std::int64_t> before = scene.Inputs();
            const Attempt attempt = Try(operation, scene, nth);
            hasFailed = attempt.hasFailed;
            isTold = attempt.outcome == FAILED ? hasFailed : attempt.outcome == SUCCEEDED || mayThrow;
            if (attempt.outcome == SUCCEEDED)
                isComplete = scene.Outputs() == expected;
            else
                isUntouched = scene.Inputs() == before;
        }
        EXPECT_EQ(LiveBlocks(), blocks);
        EXPECT_TRUE(isTold);
        EXPECT_TRUE(isUntouched);
        EXPECT_TRUE(isComplete);
    }
}

class Faults : public ::testing::Test {
  protected:
    ManagedLibrary library;
};

TEST_F(Faults, AreToldByTheResult) {
    for (const Operation& operation : TELLING)
        ExpectFaultsTold(operation, false);
}

TEST_F(Faults, AreToldOrThrownWhereSequencesGrow) {
    for (const Operation& operation : FILLING)
        ExpectFaultsTold(operation, true);
}

TEST_F(Faults, AreToldByTheGridsOfAllSystems) {
    for (const GridSystem& system : GRID_SYSTEMS) {
        SCOPED_TRACE(system.name);
        Scene scene;
        bool hasFailed = true;
        for (int nth = 1; hasFailed; ++nth) {
            IUnknown* grid = nullptr;
            {
                const FailAllocation failure(nth);
                grid = (scene.grids.Get()->*system.make)(scene.map.Get(), DATUM_WGS84, 1.0, 1.0);
                hasFailed = failure.HasFailed();
            }
            EXPECT_EQ(scene.Keep(grid), !hasFailed);
        }
    }
}

}  // namespace
}  // namespace tessara::testing
