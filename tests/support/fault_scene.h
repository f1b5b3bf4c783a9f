// The objects that operations are called with while memory runs out.
#pragma once

#include <cstring>
#include <vector>

#include "support/grids.h"
#include "support/lines.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "tessara/host/rect.h"
#include "tessara/kernel/convert.h"
#include "tessara/tessara.h"

namespace tessara::testing {

struct FaultScene {
    // Around Munich, on a map in degrees; a pixel is a hundredth of a degree.
    IRef<IMapCoordOperations> map = MapOf(WithReference(Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}),
                                                        GeodezRecord(48.0, 11.5), 150, 200, 500000, 10.0));
    IRef<IMapCoordOperations> otherMap = MapOf(MunichSheet());
    IRef<ICoord> degrees = CoordOf(GeodezRecord(48.0, 11.5));
    IRef<ICoord> moreDegrees = CoordOf(GeodezRecord(48.5, 13.0));
    IRef<ICoord> onOtherDatum = CoordOf(GeodezRecord(47.9, 11.4, 0.0, 3));
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
    IRef<IArray> single = LineOf({Utm32(640000.0, 5330000.0)});
    IRef<IArray> degreeLine = LineOf({GeodezRecord(48.0, 11.0), GeodezRecord(48.4, 12.5)});
    IRef<IRect> rect{NewObject<host::Rect>(100, 100, 220, 180)};
    IRef<ICoordinateReference> gk = ReferenceOf(3, KOORD_GK);
    IRef<ICoordinateReference> degreeReference = ReferenceOf(DATUM_WGS84, KOORD_GEODEZ);
    IRef<ICoordinateReference> utmReference = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    IRef<ICoordGeographic> geographic{CreateClassCoordGeographic()};
    IRef<IProjection> projection = ProjectionOf(MunichSheet());
    IRef<IGeoDate> datum = DateOf(DATUM_WGS84);
    IRef<IReferencePoint> point = PointOf(GeodezRecord(48.0, 11.5), 3, 4);
    IRef<IArray> points = ListOf({point.Get(), point.Get()});
    IRef<IFloatPoint> corner = FloatPointOf(100.0, 100.0);
    IRef<IFloatPoint> otherCorner = FloatPointOf(220.0, 180.0);
    IRef<ITessaraString> zone = MakeText("32"), band = MakeText("U"), column = MakeText("P"),
                         row = MakeText("U"), easting = MakeText("80000"), northing = MakeText("30000");
    IRef<ITessaraString> north = MakeText("48.25"), east = MakeText("11.5");

    // Outputs.
    IRef<ICoord> out{CreateClassCoord()}, out2{CreateClassCoord()}, out3{CreateClassCoord()},
        out4{CreateClassCoord()};
    IRef<IArray> list{CreateClassArray()}, list2{CreateClassArray()}, list3{CreateClassArray()},
        list4{CreateClassArray()};
    IRef<ITessaraString> text = MakeText(), text2 = MakeText(), text3 = MakeText();
    IRef<IIntersectionResults> results{CreateClassIntersectionResults()};
    // What the creations give.
    IRef<IUnknown> made;
    double number = 0.0, number2 = 0.0;
    std::int32_t integer = 0, integer2 = 0;

    // The classes whose operations are called.
    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ILinePoints> lines{CreateClassLinePoints()};
    IRef<ICoordinateGridFactory> grids{CreateClassCoordinateGridFactory()};
    IRef<ICoordinateGrid> grid = GridOf(KOORD_UTM, map, 50000.0, 50000.0);
    IRef<ICoordinateString> string{CreateClassCoordinateString()};
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
        SetWindow(grid, 100, 100, 220, 180);
        string->SetCoord(degrees.Get());
        plane->SetOrigin(degrees.Get());
        geographic->Set(11.5, 48.0, 0.0);
    }

    // Keeps what an operation hands out, and tells whether there is something.
    bool Keep(IUnknown* object) {
        made = IRef<IUnknown>(object);
        return made.IsValid();
    }

    // What no failure may change: the bytes of all positions, the elements of all lists, the counts.
    [[nodiscard]] std::vector<std::int64_t> Inputs() const {
        std::vector<std::int64_t> inputs;
        for (const auto* coord : {&degrees, &moreDegrees, &onOtherDatum, &utm, &moreUtm, &utmref, &ecef,
                                  &pixel, &morePixel, &inSquare})
            Append(*coord, &inputs);
        for (const auto* chain : {&square, &moreSquare, &bow, &utmLine, &moreUtmLine, &utmPolygon,
                                  &moreUtmPolygon, &degreeLine, &single}) {
            inputs.push_back((*chain)->GetCount());
            for (std::uint32_t i = 0; i < (*chain)->GetCount(); ++i)
                Append(At(*chain, i), &inputs);
        }
        const IRef<IUnknown> others[] = {
            IRef<IUnknown>(map),    IRef<IUnknown>(otherMap), IRef<IUnknown>(rect),
            IRef<IUnknown>(gk),     IRef<IUnknown>(datum),    IRef<IUnknown>(projection),
            IRef<IUnknown>(points), IRef<IUnknown>(point),    IRef<IUnknown>(north),
            IRef<IUnknown>(zone),   IRef<IUnknown>(corner),   IRef<IUnknown>(utmReference)};
        for (const IRef<IUnknown>& other : others)
            inputs.push_back(CountOf(other));
        return inputs;
    }

    // What operations may have written, the lines of the grid's window included.
    [[nodiscard]] std::vector<std::int64_t> Outputs() const {
        std::vector<std::int64_t> outputs;
        for (const auto* coord : {&out, &out2, &out3, &out4, &utm, &utmref, &pixel, &morePixel})
            Append(*coord, &outputs);
        for (const auto* chain : {&list, &list2, &list3, &list4, &single})
            AppendAll(*chain, &outputs);
        const IRef<IArray> gridLines(CreateClassArray());
        grid->GetEastLines(gridLines.Get());
        AppendAll(gridLines, &outputs);
        outputs.push_back(results->GetCount());
        return outputs;
    }

  private:
    // A list of coordinates, or of such lists; of anything else, how many there are.
    static void AppendAll(const IRef<IArray>& chain, std::vector<std::int64_t>* numbers) {
        numbers->push_back(chain->GetCount());
        for (std::uint32_t i = 0; i < chain->GetCount(); ++i) {
            const IRef<ICoord> coord = At(chain, i);
            const IRef<IArray> inner = LineAt(chain, i);
            if (coord.IsValid()) Append(coord, numbers);
            if (inner.IsValid()) AppendAll(inner, numbers);
        }
    }

    static tagKOORD Converted(std::int32_t type) {
        const tagKOORD source = GeodezRecord(48.0, 11.5);
        tagKOORD target = MakeKoord(DATUM_WGS84, type);
        EXPECT_EQ(KoordConvert(&source, &target), KOORD_OK);
        return target;
    }

    static void Append(const IRef<ICoord>& coord, std::vector<std::int64_t>* inputs) {
        const tagKOORD record = KoordOf(coord);
        std::int64_t words[sizeof record / sizeof(std::int64_t)];
        std::memcpy(words, &record, sizeof record);
        inputs->insert(inputs->end(), std::begin(words), std::end(words));
        inputs->push_back(CountOf(coord));
    }
};

}  // namespace tessara::testing
