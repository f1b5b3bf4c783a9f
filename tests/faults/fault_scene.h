// The objects that operations are called with while memory runs out.
#pragma once

#include <initializer_list>
#include <string>
#include <type_traits>

#include "support/grids.h"
#include "support/lines.h"
#include "support/managed_library.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "tessara/host/object_manager.h"
#include "tessara/host/rect.h"
#include "tessara/kernel/convert.h"
#include "tessara/tessara.h"

namespace tessara::testing {

struct FaultScene {
    ManagedLibrary library;
    IRef<IObjectManager> otherManager{NewObject<host::ObjectManager>(CreateClassArray)};

    // Around Munich, on a map in degrees; a pixel is a hundredth of a degree.
    IRef<IMapCoordOperations> map = MapOf(WithReference(Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}),
                                                        GeodezRecord(48.0, 11.5), 150, 200, 500000, 10.0));
    IRef<IMapCoordOperations> otherMap = MapOf(MunichSheet());
    IRef<ICoord> degrees = CoordOf(GeodezRecord(48.0, 11.5));
    IRef<ICoord> moreDegrees = CoordOf(GeodezRecord(48.5, 13.0));
    IRef<ICoord> utm = CoordOf(Utm32(680000.0, 5330000.0));
    IRef<ICoord> moreUtm = CoordOf(Utm32(690000.0, 5340000.0));
    IRef<ICoord> utmref = CoordOf(Converted(KOORD_UTMREF));
    IRef<ICoord> ecef = CoordOf(Converted(KOORD_ECEF));
    IRef<ICoord> pixel = CoordOf(FloatPixel(120.0, 80.0));
    IRef<ICoord> morePixel = CoordOf(FloatPixel(300.0, 250.0));
    IRef<ICoord> inSquare = CoordOf(FloatPixel(150.0, 150.0));
    IRef<IArray> square = PixelLine({{100, 100}, {200, 100}, {200, 200}, {100, 200}});
    IRef<IArray> moreSquare = PixelLine({{150, 150}, {250, 150}, {250, 250}, {150, 250}});
    IRef<IArray> bow = PixelLine({{100, 100}, {200, 200}, {200, 100}, {100, 200}});
    IRef<IArray> utmLine = LineOf({Utm32(640000.0, 5330000.0), Utm32(690000.0, 5350000.0)});
    IRef<IArray> moreUtmLine = LineOf({Utm32(640000.0, 5350000.0), Utm32(690000.0, 5330000.0)});
    IRef<IArray> utmPolygon =
        LineOf({Utm32(640000.0, 5330000.0), Utm32(690000.0, 5350000.0), Utm32(690000.0, 5320000.0)});
    IRef<IArray> moreUtmPolygon =
        LineOf({Utm32(650000.0, 5310000.0), Utm32(670000.0, 5370000.0), Utm32(680000.0, 5310000.0)});
    IRef<IArray> polarPolygon = LineOf({Ups(1.9e6, 1.9e6), Ups(2.1e6, 1.9e6), Ups(2.0e6, 2.1e6)});
    IRef<IArray> morePolarPolygon = LineOf({Ups(1.9e6, 2.0e6), Ups(2.1e6, 2.0e6), Ups(2.0e6, 1.8e6)});
    IRef<IArray> single = LineOf({Utm32(640000.0, 5330000.0)});
    IRef<IArray> degreeLine = LineOf({GeodezRecord(48.0, 11.0), GeodezRecord(48.4, 12.5)});
    IRef<IRect> rect{NewObject<host::Rect>(100, 100, 220, 180)};
    IRef<ICoordinateReference> gk = ReferenceOf(3, KOORD_GK);
    IRef<ICoordinateReference> degreeReference = ReferenceOf(DATUM_WGS84, KOORD_GEODEZ);
    IRef<ICoordinateReference> utmReference = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    IRef<ICoordinateReference> longPixelReference = ReferenceOf(DATUM_WGS84, KOORD_LONGPIXEL);
    IRef<ICoordinateReference> swissReference = ReferenceOf(DATUM_CH1903, KOORD_CH);
    IRef<ICoordinateSystem> system{CreateClassCoordinateSystem()};
    IRef<ICoordGeographic> geographic{CreateClassCoordGeographic()};
    IRef<IProjection> projection = ProjectionOf(MunichSheet());
    IRef<IGeoDate> datum = DateOf(DATUM_WGS84);
    IRef<IReferencePoint> point = PointOf(GeodezRecord(48.0, 11.5), 3, 4);
    IRef<IArray> points = ListOf({point.Get(), point.Get()});
    IRef<IFloatPoint> corner = FloatPointOf(100.0, 100.0);
    IRef<IFloatPoint> otherCorner = FloatPointOf(220.0, 180.0);
    IRef<ITessaraString> zone = MakeText("32"), band = MakeText("U"), column = MakeText("P"),
                         row = MakeText("U"), easting = MakeText("80000"), northing = MakeText("30000");
    IRef<ITessaraString> north = MakeText("48.25"), east = MakeText("11.5"),
                         longText = MakeText("longer than the room that a text has inside"),
                         longNorth = MakeText("48.250000000000000000000"),
                         longEast = MakeText("11.500000000000000000000"),
                         longZone = MakeText("000000000000000000000032");
    IRef<ILineIntersectionParameters> parameters =
        library.Make<ILineIntersectionParameters>(CLSID_LineIntersectionParameters);

    // Outputs.
    IRef<ICoord> out{CreateClassCoord()}, out2{CreateClassCoord()}, out3{CreateClassCoord()},
        out4{CreateClassCoord()};
    IRef<ICoord> outOnOtherDatum = CoordOf(GeodezRecord(47.9, 11.4, 0.0, 3));
    IRef<ICoord> outInUtm = CoordOf(Utm32(500000.0, 5000000.0));
    IRef<IArray> list{CreateClassArray()}, list2{CreateClassArray()}, list3{CreateClassArray()},
        list4{CreateClassArray()};
    IRef<ITessaraString> text = MakeText(), text2 = MakeText(), text3 = MakeText(), text4 = MakeText(),
                         text5 = MakeText(), text6 = MakeText();
    IRef<IIntersectionResults> results{CreateClassIntersectionResults()},
        onePair{CreateClassIntersectionResults()};
    IRef<ICoordinateReference> referenceOut{CreateClassCoordinateReference()};
    IRef<IGeoDate> datumOut{CreateClassGeoDate()};
    IRef<IProjection> projectionOut{CreateClassProjection()};
    IRef<IReferencePoint> pointOut{CreateClassReferencePoint()};
    IRef<IFloatPoint> cornerOut{CreateClassFloatPoint()}, cornerOut2{CreateClassFloatPoint()};
    // What the creations give.
    IRef<IUnknown> made;
    double number = 0.0, number2 = 0.0, number3 = 0.0;
    std::int32_t integer = 0, integer2 = 0;

    // The classes whose operations are called.
    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ILinePoints> lines{CreateClassLinePoints()};
    IRef<ICoordinateGridFactory> grids{CreateClassCoordinateGridFactory()};
    IRef<ICoordinateString> string{CreateClassCoordinateString()}, fineString{CreateClassCoordinateString()};
    IRef<ICoordCheckerUTMREF> utmrefChecker{CreateClassCoordCheckerUTMREF()};
    IRef<ICoordinateChecker> checker{CreateClassCoordinateChecker()};
    IRef<ICoordinateTransfer> transfer{CreateClassCoordinateTransfer()};
    IRef<ICoordinateInit> init{CreateClassCoordinateInit()};
    IRef<ICoordinateAverage> average{CreateClassCoordinateAverage()};
    IRef<ICoordinateCompare> compare{CreateClassCoordinateCompare()};
    IRef<ICoordinateNeighbor> neighbor{CreateClassCoordinateNeighbor()};
    IRef<IZoneCoordOperations> zones{CreateClassZoneCoordOperations()};
    IRef<ITransformableMapPixel> transformable{CreateClassTransformableMapPixel()};
    IRef<IMapCoordOperationsFactory> maps{CreateClassMapCoordOperationsFactory()};
    IRef<IMapCoordOperations> mapOfTwoPoints{
        maps->CreateFromReferencePoints(points.Get(), 50000, 10.0, datum.Get(), projection.Get())};
    IRef<ICoordinateGrid> grid = GridOf(KOORD_UTM, map, 50000.0, 50000.0);
    // Ten pixels a degree, from 165 degrees on.
    IRef<ICoordinateGrid> gridAtDateLine = GridOf(KOORD_UTM, DegreeMap(165.0, 10.0, 10.0), 5e5, 5e5);
    IRef<ICoordinateGrid> gridOnTwoPoints = GridOf(KOORD_UTM, mapOfTwoPoints, 50000.0, 50000.0);
    IRef<IProjectionFactory> projections{CreateClassProjectionFactory()};
    IRef<IMapCoordCreatorFactory> creators{CreateClassMapCoordCreatorFactory()};
    IRef<IMapCoordCreator> creator{creators->CreateMapCoordCreator(map.Get())};
    IRef<ICircleOnTangentPlane> circle{CreateClassCircleOnTangentPlane()};
    IRef<IEllipseOnTangentPlane> ellipse{CreateClassEllipseOnTangentPlane()};
    IRef<IEllipsoidOfRevolution> ellipsoid{CreateClassEllipsoidOfRevolution()};
    IRef<ITangentPlane> plane{CreateClassTangentPlane()};
    IRef<IVector> vectors{CreateClassEuclideanVector()};
    Vector vector{4.0e6, 8.0e5, 4.7e6}, vector2{-1.0, -0.2, -1.2}, vectorOut, vectorOut2;

    FaultScene() {
        string->SetCoord(degrees.Get());
        fineString->SetCoord(utm.Get());
        fineString->SetNorthPrecision(1e-9);
        fineString->SetEastPrecision(1e-9);
        plane->SetOrigin(degrees.Get());
        geographic->Set(11.5, 48.0, 0.0);
        system->SetSystem(KOORD_GK);
        parameters->SetIntersection(utm.Get());
        parameters->SetLineStart(utm.Get());
        parameters->SetLineEnd(moreUtm.Get());
        parameters->SetSegmentIndex(4);
        parameters->SetParameter(0.25);
        onePair->Add(parameters.Get(), parameters.Get());
    }

    // Keeps the result of an operation. False if there is none.
    bool Keep(IUnknown* object) {
        made = IRef<IUnknown>(object);
        return made.IsValid();
    }

    // Calls visit(object) for each object that is an argument of some operation, and for each element of the
    // lists.
    template <class Visitor>
    void ForEachArgument(const Visitor& visit) const {
        for (IUnknown* object : std::initializer_list<IUnknown*>{map.Get(),
                                                                 otherMap.Get(),
                                                                 mapOfTwoPoints.Get(),
                                                                 rect.Get(),
                                                                 gk.Get(),
                                                                 degreeReference.Get(),
                                                                 utmReference.Get(),
                                                                 longPixelReference.Get(),
                                                                 swissReference.Get(),
                                                                 system.Get(),
                                                                 geographic.Get(),
                                                                 projection.Get(),
                                                                 datum.Get(),
                                                                 point.Get(),
                                                                 corner.Get(),
                                                                 otherCorner.Get(),
                                                                 parameters.Get(),
                                                                 results.Get(),
                                                                 onePair.Get(),
                                                                 referenceOut.Get(),
                                                                 datumOut.Get(),
                                                                 projectionOut.Get(),
                                                                 pointOut.Get(),
                                                                 cornerOut.Get(),
                                                                 cornerOut2.Get()})
            visit(object);
        for (const auto* coord : {&degrees, &moreDegrees, &utm, &moreUtm, &utmref, &ecef, &pixel, &morePixel,
                                  &inSquare, &out, &out2, &out3, &out4, &outOnOtherDatum, &outInUtm})
            visit(coord->Get());
        for (const auto* piece :
             {&zone, &band, &column, &row, &easting, &northing, &north, &east, &longText, &longNorth,
              &longEast, &longZone, &text, &text2, &text3, &text4, &text5, &text6})
            visit(piece->Get());
        for (const auto* chain :
             {&square, &moreSquare, &bow, &utmLine, &moreUtmLine, &utmPolygon, &moreUtmPolygon, &polarPolygon,
              &morePolarPolygon, &single, &degreeLine, &points, &list, &list2, &list3, &list4}) {
            visit(chain->Get());
            for (std::uint32_t i = 0; i < (*chain)->GetCount(); ++i)
                visit((*chain)->GetAt(i));
        }
    }

    // What no failure may change: the bytes of all positions, maps and numbers, the elements of all lists,
    // the texts, and the counts.
    [[nodiscard]] std::string Inputs() const {
        std::string bytes;
        for (const auto* coord :
             {&degrees, &moreDegrees, &utm, &moreUtm, &utmref, &ecef, &pixel, &morePixel, &inSquare})
            AppendCoord(*coord, &bytes);
        for (const auto* chain : {&square, &moreSquare, &bow, &utmLine, &moreUtmLine, &utmPolygon,
                                  &moreUtmPolygon, &degreeLine, &single, &polarPolygon, &morePolarPolygon})
            AppendList(*chain, &bytes);
        for (const auto* piece : {&zone, &band, &column, &row, &easting, &northing, &north, &east, &longText,
                                  &longNorth, &longEast, &longZone})
            bytes += (*piece)->GetText();
        for (const auto* reference : {&gk, &degreeReference, &utmReference, &longPixelReference}) {
            Append((*reference)->GetDatum(), &bytes);
            Append((*reference)->GetSystem(), &bytes);
        }
        for (const auto* end : {&corner, &otherCorner}) {
            Append((*end)->GetX(), &bytes);
            Append((*end)->GetY(), &bytes);
        }
        for (const auto* sheet : {&map, &otherMap, &mapOfTwoPoints})
            AppendMap(RecordOf(*sheet), &bytes);
        AppendPoint(point, &bytes);
        AppendHeld(string, &bytes);
        Append(datum->GetDatum(), &bytes);
        Append(geographic->GetLatitude(), &bytes);
        Append(geographic->GetLongitude(), &bytes);
        for (IUnknown* object : std::initializer_list<IUnknown*>{
                 map.Get(), otherMap.Get(), mapOfTwoPoints.Get(), rect.Get(), gk.Get(), degreeReference.Get(),
                 utmReference.Get(), datum.Get(), projection.Get(), points.Get(), point.Get(), corner.Get(),
                 otherCorner.Get(), geographic.Get(), zone.Get(), north.Get(), east.Get(), parameters.Get()})
            Append(CountOf(object), &bytes);
        return bytes;
    }

    // What operations fill.
    [[nodiscard]] std::string Outputs() const {
        std::string bytes;
        for (const auto* coord : {&out, &out2, &out3, &out4})
            AppendCoord(*coord, &bytes);
        for (const auto* chain : {&list, &list2, &list3, &list4})
            AppendList(*chain, &bytes);
        Append(results->GetCount(), &bytes);
        for (std::int32_t i = 0; i < results->GetCount(); ++i) {
            const auto index = static_cast<std::uint32_t>(i);
            Append(results->GetFirstAt(index) != nullptr && results->GetSecondAt(index) != nullptr, &bytes);
        }
        return bytes;
    }

  private:
    template <class T>
    static void Append(const T& value, std::string* bytes) {
        static_assert(std::is_trivially_copyable_v<T>);
        bytes->append(reinterpret_cast<const char*>(&value), sizeof value);
    }

    static void AppendCoord(const IRef<ICoord>& coord, std::string* bytes) {
        const tagKOORD record = KoordOf(coord);
        Append(record, bytes);
        Append(CountOf(coord), bytes);
    }

    // Of coordinates, or of such lists; of anything else, how many there are.
    static void AppendList(const IRef<IArray>& chain, std::string* bytes) {
        Append(chain->GetCount(), bytes);
        for (std::uint32_t i = 0; i < chain->GetCount(); ++i) {
            const IRef<ICoord> coord = At(chain, i);
            const IRef<IArray> inner = LineAt(chain, i);
            if (coord.IsValid()) AppendCoord(coord, bytes);
            if (inner.IsValid()) AppendList(inner, bytes);
        }
    }

    static void AppendMap(const MapParam& record, std::string* bytes) {
        Append(record.type, bytes);
        Append(record.datum, bytes);
        Append(record.scaleDenominator, bytes);
        Append(record.referenceCount, bytes);
        Append(record.params, bytes);
    }

    static void AppendPoint(const IRef<IReferencePoint>& reference, std::string* bytes) {
        const IRef<ICoord> world(CreateClassCoord());
        std::int32_t pixels[2] = {};
        EXPECT_TRUE(reference->GetLong(world.Get(), &pixels[0], &pixels[1]));
        AppendCoord(world, bytes);
        Append(pixels, bytes);
    }

    static void AppendHeld(const IRef<ICoordinateString>& holder, std::string* bytes) {
        const IRef<ICoord> held(CreateClassCoord());
        EXPECT_TRUE(holder->GetCoord(held.Get()));
        AppendCoord(held, bytes);
    }

    static tagKOORD Ups(double easting, double northing) {
        UpsPayload payload{};
        payload.hemisphere = 'N';
        payload.easting = easting;
        payload.northing = northing;
        return Record(KOORD_UPS, payload);
    }

    static tagKOORD Converted(std::int32_t type) {
        const tagKOORD source = GeodezRecord(48.0, 11.5);
        tagKOORD target = MakeKoord(DATUM_WGS84, type);
        EXPECT_EQ(KoordConvert(&source, &target), KOORD_OK);
        return target;
    }
};

}  // namespace tessara::testing
