// A host with declarations of its own calls every operation of the map classes.
#include <gtest/gtest.h>

#include <string>

#include "abi/contract/maps.h"
#include "abi/contract/places.h"

namespace contract {
namespace {

// Parameters whose doubles count up from `first`, so that a field that moved is a number that isn't expected.
template <class Params>
Params Counted(double first) {
    Params params{};
    double value = first;
    for (std::size_t at = 0; at + sizeof(double) <= sizeof params; at += sizeof(double)) {
        std::memcpy(reinterpret_cast<unsigned char*>(&params) + at, &value, sizeof value);
        value += 1.0;
    }
    return params;
}

class ContractMaps : public ContractPlaces {
  protected:
    template <class Params>
    using Create = IProjection* (IProjectionFactory::*)(const Params*);
    template <class Params>
    using Getter = bool (IProjection::*)(Params*);

    // The projection that `create` makes has that type and name, and of all getters `get` gives its
    // parameters.
    template <class Params>
    void Expect(Create<Params> create, uint32_t type, const char* name, Getter<Params> get) {
        const Params given = Counted<Params>(type * 100.0);
        const auto factory = Make<IProjectionFactory>("ProjectionFactory");
        const Held<IProjection> projection((factory.Get()->*create)(&given));
        ASSERT_NE(projection.Get(), nullptr) << name;
        EXPECT_EQ(projection->GetProjectionType(), type);
        const auto text = NewText();
        projection->GetProjectionName(text);
        EXPECT_STREQ(text->GetText(), name);
        Params got{};
        EXPECT_TRUE((projection.Get()->*get)(&got)) << name;
        EXPECT_EQ(std::memcmp(&got, &given, sizeof given), 0) << name;
        EXPECT_EQ(WillingGetters(projection), 1) << name;
    }

    static int WillingGetters(IProjection* of) {
        // Room for the largest parameters.
        MapPolynomParams room{};
        int willing = 0;
        const auto ask = [&](auto getter) {
            using Out = typename ParamsOf<decltype(getter)>::Type;
            if ((of->*getter)(reinterpret_cast<Out*>(&room))) ++willing;
        };
        using P = IProjection;
        ask(&P::GetWagnerIvParams), ask(&P::GetNoneParams), ask(&P::GetStereographicNlParams);
        ask(&P::GetVanDerGrintenParams), ask(&P::GetPolynomParams), ask(&P::GetLambertCcParams);
        ask(&P::GetLambertFrParams), ask(&P::GetTmParams), ask(&P::GetUpsParams), ask(&P::GetDdParams);
        ask(&P::GetAzylParams), ask(&P::GetChParams), ask(&P::GetBmnParams), ask(&P::GetMercatorParams);
        ask(&P::GetEqualArcParams), ask(&P::GetLambert2Params), ask(&P::GetGaussKruegerParams);
        ask(&P::GetUtmParams);
        return willing;
    }

  private:
    template <class Member>
    struct ParamsOf;
    template <class Params>
    struct ParamsOf<bool (IProjection::*)(Params*)> {
        using Type = Params;
    };
};

TEST_F(ContractMaps, EveryProjectionIsMadeAndRead) {
    using F = IProjectionFactory;
    using P = IProjection;
    Expect<MapUtmParams>(&F::CreateUtm, 2, "UTM", &P::GetUtmParams);
    Expect<MapGkParams>(&F::CreateGaussKrueger, 3, "GAUKRU", &P::GetGaussKruegerParams);
    Expect<MapGkParams>(&F::CreateGaussKrueger6, 13, "GAUKRU6", &P::GetGaussKruegerParams);
    Expect<MapLambert2Params>(&F::CreateLambert2, 4, "LAMBERT2", &P::GetLambert2Params);
    Expect<MapEqualArcParams>(&F::CreateEqualArc, 6, "EQUALARC", &P::GetEqualArcParams);
    Expect<MapPolynomParams>(&F::CreatePolynom, 7, "POLYNOM", &P::GetPolynomParams);
    Expect<MapMercatorParams>(&F::CreateMercator, 8, "MERCATOR", &P::GetMercatorParams);
    Expect<MapBmnParams>(&F::CreateBmn, 9, "BMN", &P::GetBmnParams);
    Expect<MapPlaneParams>(&F::CreateCh, 10, "CH", &P::GetChParams);
    Expect<MapAzylParams>(&F::CreateAzyl, 11, "AZYL", &P::GetAzylParams);
    Expect<MapDdParams>(&F::CreateDd, 12, "DD", &P::GetDdParams);
    Expect<MapUpsParams>(&F::CreateUps, 14, "UPS", &P::GetUpsParams);
    Expect<MapTmParams>(&F::CreateTm, 15, "TM", &P::GetTmParams);
    Expect<MapTmParams>(&F::CreatePoMilitary, 16, "PO_MILITARY", &P::GetTmParams);
    Expect<MapTmParams>(&F::CreateLuref, 20, "LUREF", &P::GetTmParams);
    Expect<MapLambertFrParams>(&F::CreateLambertFr, 5, "LAMBERTFR", &P::GetLambertFrParams);
    Expect<MapLambertCcParams>(&F::CreateLambertCc, 19, "LAMBERTCC", &P::GetLambertCcParams);
    Expect<MapPolynomParams>(&F::CreatePolynomSecond, 7, "POLYNOM", &P::GetPolynomParams);
    Expect<MapVdgParams>(&F::CreateVanDerGrinten, 17, "VAN_DER_GRINTEN", &P::GetVanDerGrintenParams);
    Expect<MapPlaneParams>(&F::CreateStereographicNl, 18, "STEREOGR_NL", &P::GetStereographicNlParams);
    Expect<MapNoneParams>(&F::CreateNone, 1, "NONE", &P::GetNoneParams);
    Expect<MapWagnerIvParams>(&F::CreateWagnerIv, 21, "WAGNER-IV", &P::GetWagnerIvParams);
}

TEST_F(ContractMaps, MapParamOfAProjection) {
    const MapUtmParams params = SheetParams();
    const Held<IProjection> projection(Make<IProjectionFactory>("ProjectionFactory")->CreateUtm(&params));
    const auto inner = As<IMapParamInternal>(projection);
    ASSERT_NE(inner.Get(), nullptr);
    EXPECT_FALSE(inner->GetMapParam(nullptr));
    EXPECT_FALSE(inner->SetMapParam(nullptr));
    MapParam record{};
    record.datum = 77;
    EXPECT_TRUE(inner->GetMapParam(&record));
    EXPECT_EQ(record.type, 2u);
    EXPECT_EQ(record.worldType, -1);
    EXPECT_EQ(record.params.utm.zone, 32);
    EXPECT_EQ(record.params.utm.metresPerPixelY, 20.0);
    EXPECT_EQ(record.datum, 77u) << "the projection's is none of a map's";
    record.type = 12;
    record.params.dd = {1.0, 2.0, 3.0, 4.0};
    EXPECT_TRUE(inner->SetMapParam(&record));
    EXPECT_EQ(projection->GetProjectionType(), 12u);
}

TEST_F(ContractMaps, MapParamOfAMap) {
    const auto map = Sheet();
    MapParam record{};
    EXPECT_TRUE(As<IMapParamInternal>(map)->GetMapParam(&record));
    EXPECT_EQ(record.referenceCount, 1u);
    EXPECT_EQ(record.reference.world.type, GEODEZ);
    EXPECT_EQ(record.reference.world.At<double>(0), 50.0);
    EXPECT_EQ(record.reference.pixelX, 500);
    EXPECT_EQ(record.reference.pixelY, 600);
    EXPECT_EQ(record.reference.next, nullptr);
    EXPECT_EQ(record.scaleDenominator, 50000);
    EXPECT_EQ(record.resolution, 4.0);
    EXPECT_EQ(record.datum, WGS84);
    EXPECT_EQ(record.worldType, -1);
    EXPECT_EQ(record.type, 2u);
    EXPECT_EQ(record.params.utm.originEasting, 400000.0);
}

TEST_F(ContractMaps, ReferencePoint) {
    const auto point = Make<IReferencePoint>("ReferencePoint");
    const auto world = Make<ICoord>("Coord");
    double x = 0.0, y = 0.0;
    int32_t column = 0, row = 0;
    EXPECT_FALSE(point->GetFloat(world, &x, &y));
    EXPECT_TRUE(point->SetFloat(Geodez(50.0, 9.0), -1.5, 2.5));
    EXPECT_TRUE(point->GetFloat(world, &x, &y));
    EXPECT_EQ(x, -1.5);
    EXPECT_EQ(y, 2.5);
    EXPECT_TRUE(point->GetLong(world, &column, &row));
    EXPECT_EQ(column, -2);
    EXPECT_EQ(row, 3);
    EXPECT_EQ(RecordOf(world).At<double>(0), 50.0);
    EXPECT_TRUE(point->SetLong(Geodez(51.0, 9.0), 7, 8));
    EXPECT_TRUE(point->GetLong(world, &column, &row));
    EXPECT_EQ(column, 7);
    EXPECT_EQ(row, 8);
    EXPECT_EQ(RecordOf(world).At<double>(0), 51.0);
}

TEST_F(ContractMaps, AMapTellsItsDefinition) {
    const auto map = Sheet();
    EXPECT_EQ(map->GetScaleDenominator(), 50000);
    EXPECT_EQ(map->GetScale(), 1.0 / 50000.0);
    EXPECT_EQ(map->GetResolution(), 4.0);
    const auto datum = Make<IGeoDate>("GeoDate");
    EXPECT_TRUE(map->GetGeoDate(datum));
    EXPECT_EQ(datum->GetDatum(), 2);
    const auto projection = Make<IProjection>("Projection");
    EXPECT_TRUE(map->GetProjection(projection));
    EXPECT_EQ(projection->GetProjectionType(), 2u);
    const auto point = Make<IReferencePoint>("ReferencePoint");
    EXPECT_TRUE(map->GetReferencePoint(point));
    const auto points = Make<IArray>("Array");
    EXPECT_TRUE(map->GetReferencePoints(points));
    EXPECT_EQ(points->GetCount(), 1u);

    const auto allPoints = Make<IArray>("Array");
    int32_t denominator = 0;
    double resolution = 0.0;
    const auto otherDatum = Make<IGeoDate>("GeoDate");
    const auto otherProjection = Make<IProjection>("Projection");
    EXPECT_TRUE(map->GetMapDefinition(allPoints, &denominator, &resolution, otherDatum, otherProjection));
    EXPECT_EQ(allPoints->GetCount(), 1u);
    EXPECT_EQ(denominator, 50000);
    EXPECT_EQ(resolution, 4.0);
    EXPECT_EQ(otherDatum->GetDatum(), 2);
    EXPECT_EQ(otherProjection->GetProjectionType(), 2u);
}

TEST_F(ContractMaps, AMapConverts) {
    const auto map = Sheet();
    const auto world = Utm(0.0, 0.0);
    EXPECT_TRUE(map->FloatPixelToCoord(7.5, 9.5, world));
    ExpectUtm(world, 400075.0, 5599810.0);
    EXPECT_TRUE(map->LongPixelToCoord(7, 9, world));
    ExpectUtm(world, 400070.0, 5599820.0);
    EXPECT_TRUE(map->PixelCoordToCoord(Pixel(1.25, 2.25), world));
    ExpectUtm(world, 400012.5, 5599955.0);

    const auto place = Utm(400027.0, 5599926.0);
    double x = 0.0, y = 0.0;
    EXPECT_TRUE(map->CoordToFloatPixel(place, &x, &y));
    EXPECT_NEAR(x, 2.7, PIXELS);
    EXPECT_NEAR(y, 3.7, PIXELS);
    int32_t column = 0, row = 0;
    EXPECT_TRUE(map->CoordToLongPixel(place, &column, &row));
    EXPECT_EQ(column, 3);
    EXPECT_EQ(row, 4);
    const auto pixel = Pixel(0.0, 0.0);
    EXPECT_TRUE(map->CoordToPixelCoord(place, pixel));
    ExpectPixel(pixel, 2.7, 3.7);
}

TEST_F(ContractMaps, TheFactoryOfMaps) {
    const auto factory = Make<IMapCoordOperationsFactory>("MapCoordOperationsFactory");
    const MapUtmParams params = SheetParams();
    const Held<IProjection> projection(Make<IProjectionFactory>("ProjectionFactory")->CreateUtm(&params));
    const auto datum = Wgs84();
    const auto point = Make<IReferencePoint>("ReferencePoint");
    EXPECT_TRUE(point->SetLong(Geodez(50.0, 9.0), 5, 6));
    const auto points = List(point, point);
    const auto expect = [](IMapCoordOperations* fresh, int32_t denominator, uint32_t count) {
        const Held<IMapCoordOperations> map(fresh);
        ASSERT_NE(map.Get(), nullptr);
        EXPECT_EQ(map->GetScaleDenominator(), denominator);
        EXPECT_EQ(map->GetResolution(), 8.0);
        MapParam record{};
        EXPECT_TRUE(As<IMapParamInternal>(map)->GetMapParam(&record));
        EXPECT_EQ(record.referenceCount, count);
        EXPECT_EQ(record.reference.next != nullptr, count > 1);
    };
    expect(factory->CreateFromReferencePointsScale(points, 0.0001, 8.0, datum, projection), 10000, 2);
    expect(factory->CreateFromReferencePointScale(point, 0.00002, 8.0, datum, projection), 50000, 1);
    expect(factory->CreateFromReferencePoints(points, 25000, 8.0, datum, projection), 25000, 2);
    expect(factory->CreateFromReferencePoint(point, 12500, 8.0, datum, projection), 12500, 1);
}

TEST_F(ContractMaps, PixelsOfACreator) {
    const auto map = Sheet();
    const Held<IMapCoordCreator> creator(
        Make<IMapCoordCreatorFactory>("MapCoordCreatorFactory")->CreateMapCoordCreator(map));
    ASSERT_NE(creator.Get(), nullptr);
    EXPECT_EQ(creator->CreateCoords(0), nullptr);
    const Held<IArray> three(creator->CreateCoords(3));
    EXPECT_EQ(three->GetCount(), 3u);
    const Held<ICoord> empty(creator->CreateCoord());
    EXPECT_EQ(RecordOf(empty).type, FLOATPIXEL);

    const auto world = Utm(400070.0, 5599820.0);
    const Held<ICoord> pixel(creator->CreateCoordFrom(world));
    ExpectPixel(pixel, 7.0, 9.0);
    const auto worlds = List(world, world);
    const Held<IArray> pixels(creator->CreateCoordsFrom(worlds));
    ASSERT_EQ(pixels->GetCount(), 2u);
    ExpectPixel(As<ICoord>(pixels->GetAt(1)), 7.0, 9.0);
    EXPECT_EQ(RecordOf(world).type, UTM) << "the sources stay";

    const auto inPlace = Utm(400070.0, 5599820.0);
    EXPECT_TRUE(creator->ConvertCoord(inPlace));
    ExpectPixel(inPlace, 7.0, 9.0);
    EXPECT_TRUE(creator->ConvertCoords(worlds));
    ExpectPixel(world, 7.0, 9.0);
}

TEST_F(ContractMaps, TransformablePixels) {
    const auto map = Sheet();
    const auto search = Make<ITransformableMapPixel>("TransformableMapPixel");
    const auto coord = Utm(0.0, 0.0);
    EXPECT_TRUE(search->FindValidCoordInRect(map, NewRect(0, 100, 20, 300), coord));
    ExpectUtm(coord, 400100.0, 5596000.0);  // the centre (10, 200) is the first that is tried
    const PixelRect rect{100, 0, 300, 20};
    EXPECT_TRUE(As<ITransformableInternal>(search)->FindValidCoordInPixelRect(map, &rect, coord));
    ExpectUtm(coord, 402000.0, 5599800.0);

    const auto point = [this](double x, double y) {
        Held<IFloatPoint> made = Make<IFloatPoint>("FloatPoint");
        made->SetX(x);
        made->SetY(y);
        return made;
    };
    const auto first = point(0.0, 0.0), second = point(0.0, 0.0);
    EXPECT_EQ(
        search->ClipLineToValid(map, Reference(2, UTM), point(1.0, 2.0), point(8.0, 9.0), first, second), 0);
    EXPECT_EQ(first->GetX(), 1.0);
    EXPECT_EQ(first->GetY(), 2.0);
    EXPECT_EQ(second->GetX(), 8.0);
    EXPECT_EQ(second->GetY(), 9.0);
}

}  // namespace
}  // namespace contract
