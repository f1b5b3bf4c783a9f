// Random sequences of operations: every operation of every interface, on objects that the sequence has
// created, while memory runs out in some calls. At the end of a sequence no memory remains in use.
#include "fuzz/call.h"
#include "support/host_projection.h"
#include "support/managed_library.h"
#include "tessara/host/rect.h"
#include "tessara/tessara.h"

namespace tessara::fuzz {
namespace {

constexpr int MOST_STEPS = 24;

using Step = void(Stage& stage);

template <auto Operation>
void Do(Stage& stage) {
    Call(stage, Operation);
}

template <auto Create>
void Make(Stage& stage) {
    const auto create = [nth = stage.FailingAllocation()] {
        const testing::FailAllocation failure(nth);
        return Create();
    };
    stage.Add(IRef<IUnknown>(create()));
}

constexpr Step* CREATIONS[] = {
    Make<CreateClassArray>,
    Make<CreateClassCircleOnTangentPlane>,
    Make<CreateClassCoord>,
    Make<CreateClassCoordCheckerUTMREF>,
    Make<CreateClassCoordGeographic>,
    Make<CreateClassCoordinateArea>,
    Make<CreateClassCoordinateAverage>,
    Make<CreateClassCoordinateChecker>,
    Make<CreateClassCoordinateCompare>,
    Make<CreateClassCoordinateGrid>,
    Make<CreateClassCoordinateGridFactory>,
    Make<CreateClassCoordinateInit>,
    Make<CreateClassCoordinateNeighbor>,
    Make<CreateClassCoordinateReference>,
    Make<CreateClassCoordinateString>,
    Make<CreateClassCoordinateSystem>,
    Make<CreateClassCoordinateTransfer>,
    Make<CreateClassEllipseOnTangentPlane>,
    Make<CreateClassEllipsoidOfRevolution>,
    Make<CreateClassEuclideanVector>,
    Make<CreateClassFloatPoint>,
    Make<CreateClassGeoDate>,
    Make<CreateClassIntersectionResults>,
    Make<CreateClassLinePoints>,
    Make<CreateClassMapCoordCreatorFactory>,
    Make<CreateClassMapCoordOperations>,
    Make<CreateClassMapCoordOperationsFactory>,
    Make<CreateClassProjection>,
    Make<CreateClassProjectionFactory>,
    Make<CreateClassReferencePoint>,
    Make<CreateClassTangentPlane>,
    Make<CreateClassTransformableMapPixel>,
    Make<CreateClassZoneCoordOperations>,
};

constexpr Step* OPERATIONS[] = {
    // IArray
    Do<&IArray::Add>,
    Do<&IArray::RemoveAt>,
    Do<&IArray::GetCount>,
    Do<&IArray::GetAt>,
    Do<&IArray::Clear>,

    // ICircleOnTangentPlane
    Do<&ICircleOnTangentPlane::MakeCircle>,

    // ICoord
    Do<&ICoord::SetPixel>,
    Do<&ICoord::GetPixel>,
    Do<&ICoord::SetHeight>,
    Do<&ICoord::GetHeight>,
    Do<&ICoord::GetGeographic>,
    Do<&ICoord::SetGeographic>,
    Do<&ICoord::SetReference>,
    Do<&ICoord::GetReference>,

    // ICoordInternal
    Do<&ICoordInternal::SetKoord>,
    Do<&ICoordInternal::GetKoord>,
    Do<&ICoordInternal::ShiftEast>,
    Do<&ICoordInternal::ShiftNorth>,
    Do<&ICoordInternal::EastDifference>,
    Do<&ICoordInternal::NorthDifference>,

    // ICoordGeographic
    Do<&ICoordGeographic::Set>,
    Do<&ICoordGeographic::Get>,
    Do<&ICoordGeographic::GetLatitude>,
    Do<&ICoordGeographic::GetLongitude>,
    Do<&ICoordGeographic::GetHeight>,
    Do<&ICoordGeographic::SetLatitude>,
    Do<&ICoordGeographic::SetLongitude>,
    Do<&ICoordGeographic::SetHeight>,

    // ICoordinateArea
    Do<&ICoordinateArea::GetSystemNorth>,
    Do<&ICoordinateArea::GetSystemEast>,
    Do<&ICoordinateArea::GetSystemSouth>,
    Do<&ICoordinateArea::GetSystemWest>,
    Do<&ICoordinateArea::GetSystemExtremes>,
    Do<&ICoordinateArea::GetMapRectNorth>,
    Do<&ICoordinateArea::GetMapRectEast>,
    Do<&ICoordinateArea::GetMapRectSouth>,
    Do<&ICoordinateArea::GetMapRectWest>,
    Do<&ICoordinateArea::GetMapRectExtremes>,
    Do<&ICoordinateArea::GetMapLineNorth>,
    Do<&ICoordinateArea::GetLineNorth>,
    Do<&ICoordinateArea::GetMapLineEast>,
    Do<&ICoordinateArea::GetLineEast>,
    Do<&ICoordinateArea::GetMapLineSouth>,
    Do<&ICoordinateArea::GetLineSouth>,
    Do<&ICoordinateArea::GetMapLineWest>,
    Do<&ICoordinateArea::GetLineWest>,
    Do<&ICoordinateArea::GetMapLineExtremes>,
    Do<&ICoordinateArea::GetLineExtremes>,
    Do<&ICoordinateArea::IsInsideCoordEdges>,
    Do<&ICoordinateArea::IsInsideCoordEdgesNoMap>,
    Do<&ICoordinateArea::IsInsideMapEdges>,
    Do<&ICoordinateArea::IsInsideTransferred>,
    Do<&ICoordinateArea::IsInsideOnMap>,
    Do<&ICoordinateArea::IsInsidePixels>,
    Do<&ICoordinateArea::SetTolerance>,
    Do<&ICoordinateArea::GetTolerance>,
    Do<&ICoordinateArea::OverlayOnMap>,
    Do<&ICoordinateArea::Overlay>,
    Do<&ICoordinateArea::OverlayPixels>,
    Do<&ICoordinateArea::SplitPolygon>,

    // ICoordinateAreaInternal
    Do<&ICoordinateAreaInternal::GetRectExtremes>,

    // ICoordinateAverage
    Do<&ICoordinateAverage::Average>,

    // ICoordinateChecker
    Do<&ICoordinateChecker::CheckCoord>,
    Do<&ICoordinateChecker::CheckInSystemArea>,
    Do<&ICoordinateChecker::CheckConvertible>,

    // ICoordinateCompare
    Do<&ICoordinateCompare::CompareNorthSouth>,
    Do<&ICoordinateCompare::CompareEastWest>,

    // ICoordinateGrid
    Do<&ICoordinateGrid::SetWindowFromPoints>,
    Do<&ICoordinateGrid::SetWindow>,
    Do<&ICoordinateGrid::GetEastLines>,
    Do<&ICoordinateGrid::GetNorthLines>,
    Do<&ICoordinateGrid::GetEastLinePixels>,
    Do<&ICoordinateGrid::GetNorthLinePixels>,
    Do<&ICoordinateGrid::GetEastStep>,
    Do<&ICoordinateGrid::GetNorthStep>,
    Do<&ICoordinateGrid::CopyMapTo>,
    Do<&ICoordinateGrid::GetReference>,

    // ICoordinateGridFactory
    Do<&ICoordinateGridFactory::CreateFloatPixelGrid>,
    Do<&ICoordinateGridFactory::CreateUtmGrid>,
    Do<&ICoordinateGridFactory::CreateUtmrefGrid>,
    Do<&ICoordinateGridFactory::CreateGeodezGrid>,
    Do<&ICoordinateGridFactory::CreateGeodezminGrid>,
    Do<&ICoordinateGridFactory::CreateGeogradGrid>,
    Do<&ICoordinateGridFactory::CreateGeorefGrid>,
    Do<&ICoordinateGridFactory::CreateGkGrid>,
    Do<&ICoordinateGridFactory::CreateBmnGrid>,
    Do<&ICoordinateGridFactory::CreateOemGrid>,
    Do<&ICoordinateGridFactory::CreateChGrid>,
    Do<&ICoordinateGridFactory::CreateGk6Grid>,
    Do<&ICoordinateGridFactory::CreateGkAtGrid>,
    Do<&ICoordinateGridFactory::CreateUpsGrid>,
    Do<&ICoordinateGridFactory::CreatePoMilitaryGrid>,
    Do<&ICoordinateGridFactory::CreateTmGrid>,
    Do<&ICoordinateGridFactory::CreateVdgGrid>,
    Do<&ICoordinateGridFactory::CreateBngGrid>,
    Do<&ICoordinateGridFactory::CreateIngGrid>,
    Do<&ICoordinateGridFactory::CreateRdGrid>,
    Do<&ICoordinateGridFactory::CreateLurefGrid>,

    // ICoordinateInit
    Do<&ICoordinateInit::InitCoord>,

    // ICoordinateNeighbor
    Do<&ICoordinateNeighbor::GetNorthNeighbor>,
    Do<&ICoordinateNeighbor::GetSouthNeighbor>,
    Do<&ICoordinateNeighbor::GetEastNeighbor>,
    Do<&ICoordinateNeighbor::GetWestNeighbor>,

    // ICoordinateReference
    Do<&ICoordinateReference::GetDatum>,
    Do<&ICoordinateReference::SetDatum>,
    Do<&ICoordinateReference::GetSystem>,
    Do<&ICoordinateReference::SetSystem>,
    Do<&ICoordinateReference::GetDatumName>,
    Do<&ICoordinateReference::GetSystemName>,

    // ICoordinateString
    Do<&ICoordinateString::SetCoord>,
    Do<&ICoordinateString::GetCoord>,
    Do<&ICoordinateString::ParseCoord>,
    Do<&ICoordinateString::SetNorthPrecision>,
    Do<&ICoordinateString::SetEastPrecision>,
    Do<&ICoordinateString::SetDefaultNorthPrecision>,
    Do<&ICoordinateString::SetDefaultEastPrecision>,
    Do<&ICoordinateString::GetNorthText>,
    Do<&ICoordinateString::GetEastText>,
    Do<&ICoordinateString::GetCartesianTexts>,
    Do<&ICoordinateString::GetGeographicTexts>,
    Do<&ICoordinateString::GetNorthDisplayText>,
    Do<&ICoordinateString::GetEastDisplayText>,

    // ICoordinateSystem
    Do<&ICoordinateSystem::GetSystem>,
    Do<&ICoordinateSystem::SetSystem>,
    Do<&ICoordinateSystem::GetName>,

    // ICoordinateTransfer
    Do<&ICoordinateTransfer::Transfer>,
    Do<&ICoordinateTransfer::TransferNorth>,
    Do<&ICoordinateTransfer::TransferEast>,
    Do<&ICoordinateTransfer::TransferToMap>,
    Do<&ICoordinateTransfer::TransferBetweenMaps>,

    // IEllipseOnTangentPlane
    Do<&IEllipseOnTangentPlane::MakeEllipse>,

    // IEllipsoidOfRevolution
    Do<&IEllipsoidOfRevolution::GetLocalAxes>,
    Do<&IEllipsoidOfRevolution::GetNormal>,
    Do<&IEllipsoidOfRevolution::GetDirection>,
    Do<&IEllipsoidOfRevolution::CoordToEcefVector>,
    Do<&IEllipsoidOfRevolution::EcefVectorToCoord>,
    Do<&IEllipsoidOfRevolution::PointAtGeodesicDistance>,
    Do<&IEllipsoidOfRevolution::PointAtChordDistance>,
    Do<&IEllipsoidOfRevolution::IntersectLine>,

    // IVector
    Do<&IVector::Normalize>,
    Do<&IVector::MakeZero>,
    Do<&IVector::Length>,
    Do<&IVector::Add>,
    Do<&IVector::Subtract>,
    Do<&IVector::Dot>,
    Do<&IVector::Cross>,
    Do<&IVector::TripleProduct>,
    Do<&IVector::Scale>,

    // IFloatPoint
    Do<&IFloatPoint::SetX>,
    Do<&IFloatPoint::SetY>,
    Do<&IFloatPoint::SetZ>,
    Do<&IFloatPoint::GetX>,
    Do<&IFloatPoint::GetY>,
    Do<&IFloatPoint::GetZ>,

    // IGeoDate
    Do<&IGeoDate::GetDatum>,
    Do<&IGeoDate::SetDatum>,
    Do<&IGeoDate::GetName>,

    // IIntersectionResults
    Do<&IIntersectionResults::Add>,
    Do<&IIntersectionResults::RemoveAt>,
    Do<&IIntersectionResults::GetCount>,
    Do<&IIntersectionResults::GetFirstAt>,
    Do<&IIntersectionResults::GetSecondAt>,
    Do<&IIntersectionResults::Clear>,

    // ILineIntersectionParameters
    Do<&ILineIntersectionParameters::GetIntersection>,
    Do<&ILineIntersectionParameters::SetIntersection>,
    Do<&ILineIntersectionParameters::GetLineStart>,
    Do<&ILineIntersectionParameters::SetLineStart>,
    Do<&ILineIntersectionParameters::GetLineEnd>,
    Do<&ILineIntersectionParameters::SetLineEnd>,
    Do<&ILineIntersectionParameters::GetSegmentIndex>,
    Do<&ILineIntersectionParameters::SetSegmentIndex>,
    Do<&ILineIntersectionParameters::GetParameter>,
    Do<&ILineIntersectionParameters::SetParameter>,

    // ILinePoints
    Do<&ILinePoints::SetPixelTolerance>,
    Do<&ILinePoints::GetPixelTolerance>,
    Do<&ILinePoints::DensifyMapStraight>,
    Do<&ILinePoints::DensifyCoordStraight>,
    Do<&ILinePoints::DensifyCoordStraightZoned>,
    Do<&ILinePoints::DensifyGeodesic>,
    Do<&ILinePoints::DensifyInReference>,
    Do<&ILinePoints::IntersectOnMap>,
    Do<&ILinePoints::IntersectOnMapToArray>,
    Do<&ILinePoints::IntersectPixelLines>,
    Do<&ILinePoints::IntersectPixelLinesToArray>,
    Do<&ILinePoints::IsPointOnLine>,
    Do<&ILinePoints::GetSignedDistance>,
    Do<&ILinePoints::GetFootPoint>,

    // IMapCoordCreator
    Do<&IMapCoordCreator::CreateCoords>,
    Do<&IMapCoordCreator::CreateCoord>,
    Do<&IMapCoordCreator::CreateCoordsFrom>,
    Do<&IMapCoordCreator::CreateCoordFrom>,
    Do<&IMapCoordCreator::ConvertCoords>,
    Do<&IMapCoordCreator::ConvertCoord>,

    // IMapCoordCreatorFactory
    Do<&IMapCoordCreatorFactory::CreateMapCoordCreator>,

    // IMapCoordOperations
    Do<&IMapCoordOperations::GetMapDefinition>,
    Do<&IMapCoordOperations::GetReferencePoint>,
    Do<&IMapCoordOperations::GetReferencePoints>,
    Do<&IMapCoordOperations::GetScaleDenominator>,
    Do<&IMapCoordOperations::GetScale>,
    Do<&IMapCoordOperations::GetResolution>,
    Do<&IMapCoordOperations::GetGeoDate>,
    Do<&IMapCoordOperations::GetProjection>,
    Do<&IMapCoordOperations::FloatPixelToCoord>,
    Do<&IMapCoordOperations::LongPixelToCoord>,
    Do<&IMapCoordOperations::PixelCoordToCoord>,
    Do<&IMapCoordOperations::CoordToFloatPixel>,
    Do<&IMapCoordOperations::CoordToLongPixel>,
    Do<&IMapCoordOperations::CoordToPixelCoord>,

    // IMapCoordOperationsFactory
    Do<&IMapCoordOperationsFactory::CreateFromReferencePointsScale>,
    Do<&IMapCoordOperationsFactory::CreateFromReferencePointScale>,
    Do<&IMapCoordOperationsFactory::CreateFromReferencePoints>,
    Do<&IMapCoordOperationsFactory::CreateFromReferencePoint>,

    // IMapParamInternal
    Do<&IMapParamInternal::GetMapParam>,
    Do<&IMapParamInternal::SetMapParam>,

    // IProjection
    Do<&IProjection::GetProjectionType>,
    Do<&IProjection::GetProjectionName>,
    Do<&IProjection::GetWagnerIvParams>,
    Do<&IProjection::GetNoneParams>,
    Do<&IProjection::GetStereographicNlParams>,
    Do<&IProjection::GetVanDerGrintenParams>,
    Do<&IProjection::GetPolynomParams>,
    Do<&IProjection::GetLambertCcParams>,
    Do<&IProjection::GetLambertFrParams>,
    Do<&IProjection::GetTmParams>,
    Do<&IProjection::GetUpsParams>,
    Do<&IProjection::GetDdParams>,
    Do<&IProjection::GetAzylParams>,
    Do<&IProjection::GetChParams>,
    Do<&IProjection::GetBmnParams>,
    Do<&IProjection::GetMercatorParams>,
    Do<&IProjection::GetEqualArcParams>,
    Do<&IProjection::GetLambert2Params>,
    Do<&IProjection::GetGaussKruegerParams>,
    Do<&IProjection::GetUtmParams>,

    // IProjectionFactory
    Do<&IProjectionFactory::CreateUtm>,
    Do<&IProjectionFactory::CreateGaussKrueger>,
    Do<&IProjectionFactory::CreateGaussKrueger6>,
    Do<&IProjectionFactory::CreateLambert2>,
    Do<&IProjectionFactory::CreateEqualArc>,
    Do<&IProjectionFactory::CreatePolynom>,
    Do<&IProjectionFactory::CreateMercator>,
    Do<&IProjectionFactory::CreateBmn>,
    Do<&IProjectionFactory::CreateCh>,
    Do<&IProjectionFactory::CreateAzyl>,
    Do<&IProjectionFactory::CreateDd>,
    Do<&IProjectionFactory::CreateUps>,
    Do<&IProjectionFactory::CreateTm>,
    Do<&IProjectionFactory::CreatePoMilitary>,
    Do<&IProjectionFactory::CreateLuref>,
    Do<&IProjectionFactory::CreateLambertFr>,
    Do<&IProjectionFactory::CreateLambertCc>,
    Do<&IProjectionFactory::CreatePolynomSecond>,
    Do<&IProjectionFactory::CreateVanDerGrinten>,
    Do<&IProjectionFactory::CreateStereographicNl>,
    Do<&IProjectionFactory::CreateNone>,
    Do<&IProjectionFactory::CreateWagnerIv>,

    // IRect
    Do<&IRect::Reserved3>,
    Do<&IRect::GetLeft>,
    Do<&IRect::GetBottom>,
    Do<&IRect::GetRight>,

    // IReferencePoint
    Do<&IReferencePoint::SetFloat>,
    Do<&IReferencePoint::SetLong>,
    Do<&IReferencePoint::GetFloat>,
    Do<&IReferencePoint::GetLong>,

    // ITangentPlane
    Do<&ITangentPlane::SetOrigin>,
    Do<&ITangentPlane::GetFrame>,
    Do<&ITangentPlane::GetOrigin>,
    Do<&ITangentPlane::GetNormal>,
    Do<&ITangentPlane::GetDirection>,
    Do<&ITangentPlane::GetAzimuth>,
    Do<&ITangentPlane::IntersectRay>,
    Do<&ITangentPlane::ProjectAlong>,
    Do<&ITangentPlane::MapByGeodesic>,
    Do<&ITangentPlane::MapByChord>,
    Do<&ITangentPlane::GetPlaneCoords>,
    Do<&ITangentPlane::PlaneCoordsToCoord>,

    // ITessaraString
    Do<&ITessaraString::Assign>,
    Do<&ITessaraString::AssignText>,
    Do<&ITessaraString::GetText>,
    Do<&ITessaraString::GetLength>,
    Do<&ITessaraString::IsEmpty>,
    Do<&ITessaraString::CompareText>,
    Do<&ITessaraString::Compare>,
    Do<&ITessaraString::CompareTextNoCase>,
    Do<&ITessaraString::CompareNoCase>,
    Do<&ITessaraString::Clear>,

    // ITransformableMapPixel. Another target calls the operations that clip lines, because it limits the
    // length of the lines.
    Do<&ITransformableMapPixel::FindValidCoordInRect>,

    // ITransformableInternal
    Do<&ITransformableInternal::FindValidCoordInPixelRect>,

    // IZoneCoordOperations
    Do<&IZoneCoordOperations::HasZones>,
    Do<&IZoneCoordOperations::GetEastBorder>,
    Do<&IZoneCoordOperations::GetEastNeighbour>,
    Do<&IZoneCoordOperations::GetWestBorder>,
    Do<&IZoneCoordOperations::GetWestNeighbour>,
    Do<&IZoneCoordOperations::GetZoneCentre>,
    Do<&IZoneCoordOperations::GetZoneNumber>,
    Do<&IZoneCoordOperations::GetZoneFactor>,
    Do<&IZoneCoordOperations::MoveToZone>,
    Do<&IZoneCoordOperations::GetEastNeighbourAtEquator>,
    Do<&IZoneCoordOperations::GetWestNeighbourAtEquator>,
};

// Adds the objects that a host provides.
void AddHostObjects(Stage& stage) {
    ByteReader& bytes = stage.Bytes();
    const PixelRect sides = bytes.Raw<PixelRect>();
    stage.Add(IRef<IUnknown>(NewObject<host::Rect>(sides.left, sides.top, sides.right, sides.bottom)));
    stage.Add(IRef<IUnknown>(DrawText(bytes, 12)));
    stage.Add(IRef<IUnknown>(DrawText(bytes, 12)));
    stage.AddHost(IRef<IUnknown>(NewObject<testing::HostCoord>()));
    stage.AddHost(IRef<IUnknown>(NewObject<testing::HostProjection>(DrawMap(bytes))));
    const std::int32_t datum = DrawDatum(bytes);
    stage.AddHost(IRef<IUnknown>(testing::MakeHostReference(datum, DrawType(bytes))));
    stage.AddHost(testing::MakeStranger());
}

void AddPositions(Stage& stage) {
    ByteReader& bytes = stage.Bytes();
    stage.Add(IRef<IUnknown>(DrawMapObject(bytes)));
    stage.Add(IRef<IUnknown>(DrawLine(bytes, 4)));
    stage.Add(IRef<IUnknown>(DrawLine(bytes, 4)));
    for (int i = 0; i < 3; ++i)
        stage.Add(IRef<IUnknown>(DrawCoord(bytes)));
    stage.Add(IRef<IUnknown>(CreateClassArray()));
}

// Makes sure that every operation finds an object of its class.
void AddOneOfEachClass(Stage& stage) {
    for (Step* const create : CREATIONS)
        create(stage);
}

void Play(ByteReader& bytes) {
    const testing::ManagedLibrary library;
    Stage stage(bytes);
    AddHostObjects(stage);
    AddPositions(stage);
    AddOneOfEachClass(stage);
    for (int i = 0; i < MOST_STEPS && !bytes.IsAtEnd(); ++i) {
        (bytes.Below(16) == 0 ? bytes.OneOf(CREATIONS) : bytes.OneOf(OPERATIONS))(stage);
        stage.EmptyLongLists();
    }
}

void PlayAndCount(ByteReader& bytes) {
    const std::int64_t blocks = testing::LiveBlocks();
    Play(bytes);
    Require(testing::LiveBlocks() == blocks);
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tessara::fuzz::ByteReader bytes(data, size);
    tessara::fuzz::PlayAndCount(bytes);
    return 0;
}
