#include "faults/operation.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

template <class Params>
bool GivesFrom(Scene& s, MapType type, bool (IProjection::*get)(Params*)) {
    const MapParam map = CountedRecord(type);
    Params params;
    return FaceOf<IMapParamInternal>(s.projection)->SetMapParam(&map) && (s.projection.Get()->*get)(&params);
}

// A projection of the type gives its parameters.
template <auto Get, MapType Type>
bool Gives(Scene& s) {
    return GivesFrom(s, Type, Get);
}

template <class Params>
bool MakesFrom(Scene& s, IProjection* (IProjectionFactory::*create)(const Params*)) {
    const Params params{};
    return s.Keep((s.projections.Get()->*create)(&params));
}

template <auto Create>
bool MakesProjection(Scene& s) {
    return MakesFrom(s, Create);
}

template <class I>
bool CopiesRecord(const IRef<I>& from, const IRef<I>& to) {
    MapParam record;
    return FaceOf<IMapParamInternal>(from)->GetMapParam(&record) &&
           FaceOf<IMapParamInternal>(to)->SetMapParam(&record);
}

constexpr const char* EMPTIES_THE_POINT = "it empties the point";
constexpr const char* TRIES_ANOTHER_PIXEL = "a pixel without a position, and it tries another one";

constexpr FaultyOperation MAP_OPERATIONS[] = {
    {"IMapCoordOperations::GetMapDefinition", TOLD,
     [](Scene& s) {
         return s.map->GetMapDefinition(s.list.Get(), &s.integer, &s.number, s.datumOut.Get(),
                                        s.projectionOut.Get());
     }},
    {"IMapCoordOperations::GetReferencePoint", TOLD,
     [](Scene& s) { return s.map->GetReferencePoint(s.pointOut.Get()); }},
    {"IMapCoordOperations::GetReferencePoints", TOLD,
     [](Scene& s) { return s.mapOfTwoPoints->GetReferencePoints(s.list.Get()); }},
    {"IMapCoordOperations::GetScaleDenominator", NEVER,
     [](Scene& s) { return s.map->GetScaleDenominator() == 500000; }},
    {"IMapCoordOperations::GetScale", NEVER, [](Scene& s) { return s.map->GetScale() == 1.0 / 500000.0; }},
    {"IMapCoordOperations::GetResolution", NEVER, [](Scene& s) { return s.map->GetResolution() == 10.0; }},
    {"IMapCoordOperations::GetGeoDate", NEVER, [](Scene& s) { return s.map->GetGeoDate(s.datumOut.Get()); }},
    {"IMapCoordOperations::GetProjection", NEVER,
     [](Scene& s) { return s.map->GetProjection(s.projectionOut.Get()); }},
    {"IMapCoordOperations::FloatPixelToCoord", NEVER,
     [](Scene& s) { return s.map->FloatPixelToCoord(10.0, 20.0, s.out.Get()); }},
    {"IMapCoordOperations::LongPixelToCoord", NEVER,
     [](Scene& s) { return s.map->LongPixelToCoord(10, 20, s.out.Get()); }},
    {"IMapCoordOperations::PixelCoordToCoord", NEVER,
     [](Scene& s) { return s.map->PixelCoordToCoord(s.pixel.Get(), s.out.Get()); }},
    {"IMapCoordOperations::CoordToFloatPixel", NEVER,
     [](Scene& s) { return s.map->CoordToFloatPixel(s.utm.Get(), &s.number, &s.number2); }},
    {"IMapCoordOperations::CoordToLongPixel", NEVER,
     [](Scene& s) { return s.map->CoordToLongPixel(s.utm.Get(), &s.integer, &s.integer2); }},
    {"IMapCoordOperations::CoordToPixelCoord", TOLD,
     [](Scene& s) { return s.map->CoordToPixelCoord(s.utm.Get(), s.pixel.Get()); }},

    {"IMapCoordOperationsFactory::CreateFromReferencePointsScale", TOLD,
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePointsScale(s.points.Get(), 2e-5, 10.0, s.datum.Get(),
                                                              s.projection.Get()));
     }},
    {"IMapCoordOperationsFactory::CreateFromReferencePointScale", TOLD,
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePointScale(s.point.Get(), 2e-5, 10.0, s.datum.Get(),
                                                             s.projection.Get()));
     }},
    {"IMapCoordOperationsFactory::CreateFromReferencePoints", TOLD,
     [](Scene& s) {
         return s.Keep(s.maps->CreateFromReferencePoints(s.points.Get(), 50000, 10.0, s.datum.Get(),
                                                         s.projection.Get()));
     }},
    {"IMapCoordOperationsFactory::CreateFromReferencePoint", TOLD,
     [](Scene& s) {
         return s.Keep(
             s.maps->CreateFromReferencePoint(s.point.Get(), 50000, 10.0, s.datum.Get(), s.projection.Get()));
     }},

    {"IMapCoordCreatorFactory::CreateMapCoordCreator", TOLD,
     [](Scene& s) {
         // One that couldn't be completed creates nothing.
         const IRef<IMapCoordCreator> creator(s.creators->CreateMapCoordCreator(s.map.Get()));
         return creator.IsValid() && s.Keep(creator->CreateCoord());
     }},
    {"IMapCoordCreator::CreateCoords", TOLD, [](Scene& s) { return s.Keep(s.creator->CreateCoords(3)); }},
    {"IMapCoordCreator::CreateCoord", TOLD, [](Scene& s) { return s.Keep(s.creator->CreateCoord()); }},
    {"IMapCoordCreator::CreateCoordsFrom", TOLD,
     [](Scene& s) { return s.Keep(s.creator->CreateCoordsFrom(s.utmLine.Get())); }},
    {"IMapCoordCreator::CreateCoordFrom", TOLD,
     [](Scene& s) { return s.Keep(s.creator->CreateCoordFrom(s.utm.Get())); }},
    {"IMapCoordCreator::ConvertCoords", TOLD,
     [](Scene& s) { return s.creator->ConvertCoords(s.single.Get()); }},
    {"IMapCoordCreator::ConvertCoord", TOLD, [](Scene& s) { return s.creator->ConvertCoord(s.utm.Get()); }},

    {"IMapParamInternal::GetMapParam", NEVER, [](Scene& s) { return CopiesRecord(s.map, s.otherMap); }},
    {"IMapParamInternal::SetMapParam", NEVER,
     [](Scene& s) { return CopiesRecord(s.projection, s.projectionOut); }},

    {"IReferencePoint::SetFloat", NEVER, [](Scene& s) { return s.point->SetFloat(s.utm.Get(), 1.0, 2.0); },
     nullptr, EMPTIES_THE_POINT},
    {"IReferencePoint::SetLong", NEVER, [](Scene& s) { return s.point->SetLong(s.utm.Get(), 1, 2); }, nullptr,
     EMPTIES_THE_POINT},
    {"IReferencePoint::GetFloat", NEVER,
     [](Scene& s) { return s.point->GetFloat(s.out.Get(), &s.number, &s.number2); }},
    {"IReferencePoint::GetLong", NEVER,
     [](Scene& s) { return s.point->GetLong(s.out.Get(), &s.integer, &s.integer2); }},

    {"ITransformableMapPixel::FindValidCoordInRect", TOLD,
     [](Scene& s) { return s.transformable->FindValidCoordInRect(s.map.Get(), s.rect.Get(), s.out.Get()); },
     nullptr, TRIES_ANOTHER_PIXEL},
    {"ITransformableMapPixel::FindValidCoordInRect by the default position", TOLD,
     [](Scene& s) {
         // No other pixel that is tried has a position.
         const IRef<IRect> rect(NewObject<host::Rect>(-1320, -1000000, -1280, 300000));
         return s.transformable->FindValidCoordInRect(s.map.Get(), rect.Get(), s.outInUtm.Get());
     },
     nullptr, TRIES_ANOTHER_PIXEL},
    {"ITransformableMapPixel::ClipLineToValid", TOLD,
     [](Scene& s) {
         return s.transformable->ClipLineToValid(s.map.Get(), s.utmReference.Get(), s.corner.Get(),
                                                 s.otherCorner.Get(), s.cornerOut.Get(),
                                                 s.cornerOut2.Get()) >= 0;
     }},
    {"ITransformableInternal::FindValidCoordInPixelRect", TOLD,
     [](Scene& s) {
         const PixelRect rect{100, 100, 220, 180};
         return IRef<ITransformableInternal>(s.transformable)
             ->FindValidCoordInPixelRect(s.map.Get(), &rect, s.out.Get());
     },
     nullptr, TRIES_ANOTHER_PIXEL},

    {"IProjection::GetProjectionType", NEVER,
     [](Scene& s) { return s.projection->GetProjectionType() == MAP_UTM; }},
    {"IProjection::GetProjectionName", NEVER,
     [](Scene& s) { return s.projection->GetProjectionName(s.text.Get()), !s.text->IsEmpty(); }},
    {"IProjection::GetWagnerIvParams", NEVER, Gives<&IProjection::GetWagnerIvParams, MAP_WAGNER_IV>},
    {"IProjection::GetNoneParams", NEVER, Gives<&IProjection::GetNoneParams, MAP_NONE>},
    {"IProjection::GetStereographicNlParams", NEVER,
     Gives<&IProjection::GetStereographicNlParams, MAP_STEREOGR_NL>},
    {"IProjection::GetVanDerGrintenParams", NEVER,
     Gives<&IProjection::GetVanDerGrintenParams, MAP_VAN_DER_GRINTEN>},
    {"IProjection::GetPolynomParams", NEVER, Gives<&IProjection::GetPolynomParams, MAP_POLYNOM>},
    {"IProjection::GetLambertCcParams", NEVER, Gives<&IProjection::GetLambertCcParams, MAP_LAMBERTCC>},
    {"IProjection::GetLambertFrParams", NEVER, Gives<&IProjection::GetLambertFrParams, MAP_LAMBERTFR>},
    {"IProjection::GetTmParams", NEVER, Gives<&IProjection::GetTmParams, MAP_TM>},
    {"IProjection::GetUpsParams", NEVER, Gives<&IProjection::GetUpsParams, MAP_UPS>},
    {"IProjection::GetDdParams", NEVER, Gives<&IProjection::GetDdParams, MAP_DD>},
    {"IProjection::GetAzylParams", NEVER, Gives<&IProjection::GetAzylParams, MAP_AZYL>},
    {"IProjection::GetChParams", NEVER, Gives<&IProjection::GetChParams, MAP_CH>},
    {"IProjection::GetBmnParams", NEVER, Gives<&IProjection::GetBmnParams, MAP_BMN>},
    {"IProjection::GetMercatorParams", NEVER, Gives<&IProjection::GetMercatorParams, MAP_MERCATOR>},
    {"IProjection::GetEqualArcParams", NEVER, Gives<&IProjection::GetEqualArcParams, MAP_EQUALARC>},
    {"IProjection::GetLambert2Params", NEVER, Gives<&IProjection::GetLambert2Params, MAP_LAMBERT2>},
    {"IProjection::GetGaussKruegerParams", NEVER, Gives<&IProjection::GetGaussKruegerParams, MAP_GAUKRU>},
    {"IProjection::GetUtmParams", NEVER, Gives<&IProjection::GetUtmParams, MAP_UTM>},

    {"IProjectionFactory::CreateUtm", TOLD, MakesProjection<&IProjectionFactory::CreateUtm>},
    {"IProjectionFactory::CreateGaussKrueger", TOLD,
     MakesProjection<&IProjectionFactory::CreateGaussKrueger>},
    {"IProjectionFactory::CreateGaussKrueger6", TOLD,
     MakesProjection<&IProjectionFactory::CreateGaussKrueger6>},
    {"IProjectionFactory::CreateLambert2", TOLD, MakesProjection<&IProjectionFactory::CreateLambert2>},
    {"IProjectionFactory::CreateEqualArc", TOLD, MakesProjection<&IProjectionFactory::CreateEqualArc>},
    {"IProjectionFactory::CreatePolynom", TOLD, MakesProjection<&IProjectionFactory::CreatePolynom>},
    {"IProjectionFactory::CreateMercator", TOLD, MakesProjection<&IProjectionFactory::CreateMercator>},
    {"IProjectionFactory::CreateBmn", TOLD, MakesProjection<&IProjectionFactory::CreateBmn>},
    {"IProjectionFactory::CreateCh", TOLD, MakesProjection<&IProjectionFactory::CreateCh>},
    {"IProjectionFactory::CreateAzyl", TOLD, MakesProjection<&IProjectionFactory::CreateAzyl>},
    {"IProjectionFactory::CreateDd", TOLD, MakesProjection<&IProjectionFactory::CreateDd>},
    {"IProjectionFactory::CreateUps", TOLD, MakesProjection<&IProjectionFactory::CreateUps>},
    {"IProjectionFactory::CreateTm", TOLD, MakesProjection<&IProjectionFactory::CreateTm>},
    {"IProjectionFactory::CreatePoMilitary", TOLD, MakesProjection<&IProjectionFactory::CreatePoMilitary>},
    {"IProjectionFactory::CreateLuref", TOLD, MakesProjection<&IProjectionFactory::CreateLuref>},
    {"IProjectionFactory::CreateLambertFr", TOLD, MakesProjection<&IProjectionFactory::CreateLambertFr>},
    {"IProjectionFactory::CreateLambertCc", TOLD, MakesProjection<&IProjectionFactory::CreateLambertCc>},
    {"IProjectionFactory::CreatePolynomSecond", TOLD,
     MakesProjection<&IProjectionFactory::CreatePolynomSecond>},
    {"IProjectionFactory::CreateVanDerGrinten", TOLD,
     MakesProjection<&IProjectionFactory::CreateVanDerGrinten>},
    {"IProjectionFactory::CreateStereographicNl", TOLD,
     MakesProjection<&IProjectionFactory::CreateStereographicNl>},
    {"IProjectionFactory::CreateNone", TOLD, MakesProjection<&IProjectionFactory::CreateNone>},
    {"IProjectionFactory::CreateWagnerIv", TOLD, MakesProjection<&IProjectionFactory::CreateWagnerIv>},
};

}  // namespace

OperationTable MapOperations() {
    return MAP_OPERATIONS;
}

}  // namespace tessara::testing
