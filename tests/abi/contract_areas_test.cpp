// A host with declarations of its own calls every operation of the classes of areas and grids.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "abi/contract/areas.h"
#include "abi/contract/places.h"

namespace contract {
namespace {

class ContractAreas : public ContractPlaces {
  protected:
    [[nodiscard]] Held<ICoordinateArea> Area() const { return Make<ICoordinateArea>("CoordinateArea"); }

    static double EastingOf(ICoord* coord) { return RecordOf(coord).At<double>(8); }
    static double NorthingOf(ICoord* coord) { return RecordOf(coord).At<double>(16); }

    // The extremes of something in UTM zone 32: operations in the order north, east, south, west, or all of
    // them.
    template <class Ask>
    void ExpectExtremes(const std::array<double, 4>& limits, double tolerance, const Ask& ask) {
        const Held<ICoord> corners[] = {Utm(0.0, 0.0), Utm(0.0, 0.0), Utm(0.0, 0.0), Utm(0.0, 0.0)};
        ask(corners);
        EXPECT_NEAR(NorthingOf(corners[0]), limits[0], tolerance);
        EXPECT_NEAR(EastingOf(corners[1]), limits[1], tolerance);
        EXPECT_NEAR(NorthingOf(corners[2]), limits[2], tolerance);
        EXPECT_NEAR(EastingOf(corners[3]), limits[3], tolerance);
    }

    Held<IArray> neither = Make<IArray>("Array");
    Held<IArray> onlySecond = Make<IArray>("Array");
    Held<IArray> onlyFirst = Make<IArray>("Array");
    Held<IArray> both = Make<IArray>("Array");
};

TEST_F(ContractAreas, Average) {
    const auto middle = Geodez(0.0, 0.0);
    EXPECT_TRUE(Make<ICoordinateAverage>("CoordinateAverage")
                    ->Average(Geodez(10.0, 20.0), Geodez(30.0, 60.0), middle));
    EXPECT_EQ(RecordOf(middle).At<double>(0), 20.0);
    EXPECT_EQ(RecordOf(middle).At<double>(8), 40.0);
}

TEST_F(ContractAreas, Compare) {
    const auto compare = Make<ICoordinateCompare>("CoordinateCompare");
    const auto northWest = Geodez(50.0, 9.0), southEast = Geodez(40.0, 10.0);
    EXPECT_EQ(compare->CompareNorthSouth(northWest, southEast), 1);
    EXPECT_EQ(compare->CompareEastWest(northWest, southEast), -1);
    EXPECT_EQ(compare->CompareEastWest(northWest, nullptr), -2);
}

TEST_F(ContractAreas, Neighbor) {
    const auto neighbor = Make<ICoordinateNeighbor>("CoordinateNeighbor");
    const auto source = Geodez(50.0, 9.0), target = Geodez(0.0, 0.0);
    const auto expectAt = [&](double latitude, double longitude) {
        EXPECT_EQ(RecordOf(target).At<double>(0), latitude);
        EXPECT_EQ(RecordOf(target).At<double>(8), longitude);
    };
    EXPECT_TRUE(neighbor->GetNorthNeighbor(source, target));
    expectAt(50.0 + 0.0001, 9.0);
    EXPECT_TRUE(neighbor->GetSouthNeighbor(source, target));
    expectAt(50.0 - 0.0001, 9.0);
    EXPECT_TRUE(neighbor->GetEastNeighbor(source, target));
    expectAt(50.0, 9.0 + 0.0001);
    EXPECT_TRUE(neighbor->GetWestNeighbor(source, target));
    expectAt(50.0, 9.0 - 0.0001);
}

TEST_F(ContractAreas, ExtremesOfASystem) {
    const auto area = Area();
    const auto dutch = [this] { return Coord(NewRecord(WGS84, RD)); };
    const auto expectAt = [](ICoord* coord, double easting, double northing) {
        EXPECT_EQ(RecordOf(coord).At<double>(0), easting);
        EXPECT_EQ(RecordOf(coord).At<double>(8), northing);
    };
    const auto point = dutch();
    EXPECT_TRUE(area->GetSystemNorth(point));
    expectAt(point, 150000.0, 700000.0);
    EXPECT_TRUE(area->GetSystemEast(point));
    expectAt(point, 400000.0, 450000.0);
    EXPECT_TRUE(area->GetSystemSouth(point));
    expectAt(point, 150000.0, 200000.0);
    EXPECT_TRUE(area->GetSystemWest(point));
    expectAt(point, -100000.0, 450000.0);
    const auto north = dutch(), east = dutch(), south = dutch(), west = dutch();
    EXPECT_TRUE(area->GetSystemExtremes(north, east, south, west));
    expectAt(north, 150000.0, 700000.0);
    expectAt(east, 400000.0, 450000.0);
    expectAt(south, 150000.0, 200000.0);
    expectAt(west, -100000.0, 450000.0);
}

// West of its central meridian a sheet leans to the right, so that in degrees each of its corners is one of
// the extremes: echo 401100 5599600 | cs2cs -f %.5f EPSG:32632 +to +proj=longlat +datum=WGS84 gives the north
// one.
TEST_F(ContractAreas, ExtremesOfARectangle) {
    const auto area = Area();
    const auto map = Sheet();
    const auto rect = NewRect(10, 20, 110, 220);
    const auto north = Geodez(0.0, 0.0), east = Geodez(0.0, 0.0), south = Geodez(0.0, 0.0),
               west = Geodez(0.0, 0.0);
    const auto expectAt = [](ICoord* corner, double latitude, double longitude) {
        constexpr double A_PIXEL = 2e-4;  // degrees
        EXPECT_NEAR(RecordOf(corner).At<double>(0), latitude, A_PIXEL);
        EXPECT_NEAR(RecordOf(corner).At<double>(8), longitude, A_PIXEL);
        KoordFields cleared{};
        cleared.record = GeodezRecord(0.0, 0.0);
        EXPECT_TRUE(As<ICoordInternal>(corner)->SetKoord(&cleared));
    };
    const auto expectCorners = [&] {
        expectAt(north, 50.53997, 7.60429);
        expectAt(east, 50.50401, 7.60535);
        expectAt(south, 50.50384, 7.59125);
        expectAt(west, 50.53980, 7.59018);
    };
    EXPECT_TRUE(area->GetMapRectNorth(map, rect, north));
    EXPECT_TRUE(area->GetMapRectEast(map, rect, east));
    EXPECT_TRUE(area->GetMapRectSouth(map, rect, south));
    EXPECT_TRUE(area->GetMapRectWest(map, rect, west));
    expectCorners();
    EXPECT_TRUE(area->GetMapRectExtremes(map, rect, north, east, south, west));
    expectCorners();
    const PixelRect pixels{10, 20, 110, 220};
    const auto inner = As<ICoordinateAreaInternal>(area);
    EXPECT_TRUE(inner->GetRectExtremes(map, &pixels, north, east, south, west));
    expectCorners();
}

TEST_F(ContractAreas, ExtremesOfALine) {
    const auto area = Area();
    const auto line = List(Utm(400000.0, 5500000.0), Utm(410000.0, 5520000.0), Utm(405000.0, 5490000.0));
    const std::array limits{5520000.0, 410000.0, 5490000.0, 400000.0};
    ExpectExtremes(limits, METRES, [&](const Held<ICoord>* c) {
        EXPECT_TRUE(area->GetLineNorth(line, c[0]));
        EXPECT_TRUE(area->GetLineEast(line, c[1]));
        EXPECT_TRUE(area->GetLineSouth(line, c[2]));
        EXPECT_TRUE(area->GetLineWest(line, c[3]));
    });
    ExpectExtremes(limits, METRES, [&](const Held<ICoord>* c) {
        EXPECT_TRUE(area->GetLineExtremes(line, c[0], c[1], c[2], c[3]));
    });
}

TEST_F(ContractAreas, ExtremesOfALineOnAMap) {
    const auto area = Area();
    const auto map = Sheet();
    const auto line = List(Pixel(0.0, 0.0), Pixel(100.0, 200.0), Pixel(50.0, -50.0));
    const std::array limits{5601000.0, 401000.0, 5596000.0, 400000.0};
    ExpectExtremes(limits, METRES, [&](const Held<ICoord>* c) {
        EXPECT_TRUE(area->GetMapLineNorth(map, line, c[0]));
        EXPECT_TRUE(area->GetMapLineEast(map, line, c[1]));
        EXPECT_TRUE(area->GetMapLineSouth(map, line, c[2]));
        EXPECT_TRUE(area->GetMapLineWest(map, line, c[3]));
    });
    ExpectExtremes(limits, METRES, [&](const Held<ICoord>* c) {
        EXPECT_TRUE(area->GetMapLineExtremes(map, line, c[0], c[1], c[2], c[3]));
    });
}

TEST_F(ContractAreas, Tolerance) {
    const auto area = Area();
    EXPECT_EQ(area->GetTolerance(), 2.220446049250313e-11);
    EXPECT_FALSE(area->SetTolerance(-1.0));
    EXPECT_TRUE(area->SetTolerance(0.5));
    EXPECT_EQ(area->GetTolerance(), 0.5);
}

// A triangle below the line from latitude 50, longitude 6 to 60, 12, in UTM zone 32 (echo 6 50 | cs2cs -f
// %.3f +proj=longlat +datum=WGS84 +to EPSG:32632), on a Mercator map. At longitude 9 the line passes
// latitude 55.0 where it is straight in degrees, 55.315 where it is straight on the map, and 55.67 where it
// is straight in UTM.
TEST_F(ContractAreas, PointsInPolygonsOfThreeKindsOfEdges) {
    const auto area = Area();
    const MapMercatorParams params{0.0, {0.0, 0.0}};
    const auto map =
        MapOn(Held<IProjection>(Make<IProjectionFactory>("ProjectionFactory")->CreateMercator(&params)));
    const auto triangle =
        List(Utm(285015.763, 5542944.019), Utm(667294.821, 6655205.484), Utm(714984.237, 5542944.019));
    struct Row {
        double latitude;
        bool inDegrees, onMap, inUtm;
    };
    for (const Row& row : {Row{54.9, true, true, true}, Row{55.15, false, true, true},
                           Row{55.5, false, false, true}, Row{55.9, false, false, false}}) {
        const auto point = Geodez(row.latitude, 9.0);
        EXPECT_EQ(area->IsInsideTransferred(map, point, triangle), row.inDegrees) << row.latitude;
        EXPECT_EQ(area->IsInsideMapEdges(map, point, triangle), row.onMap) << row.latitude;
        EXPECT_EQ(area->IsInsideOnMap(map, point, triangle), row.onMap) << row.latitude;
        EXPECT_EQ(area->IsInsideCoordEdges(map, point, triangle), row.inUtm) << row.latitude;
    }
}

TEST_F(ContractAreas, PointsInPolygonsWithoutAMap) {
    const auto area = Area();
    const auto ground = List(Utm(400000.0, 5500000.0), Utm(410000.0, 5500000.0), Utm(410000.0, 5510000.0),
                             Utm(400000.0, 5510000.0));
    EXPECT_TRUE(area->IsInsideCoordEdgesNoMap(Utm(405000.0, 5505000.0), ground));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(Utm(405000.0, 5515000.0), ground));
    EXPECT_FALSE(area->IsInsidePixels(Utm(405000.0, 5505000.0), ground)) << "no pixels";
    const auto pixels = List(Pixel(0.0, 0.0), Pixel(4.0, 0.0), Pixel(4.0, 4.0));
    EXPECT_TRUE(area->IsInsidePixels(Pixel(3.0, 1.0), pixels));
    EXPECT_FALSE(area->IsInsidePixels(Pixel(1.0, 3.0), pixels));
}

// The first square and a larger second one have a square of their own in common.
TEST_F(ContractAreas, Overlays) {
    const auto area = Area();
    const auto map = Sheet();
    const auto square = [this](double low, double high) {
        return List(Pixel(low, low), Pixel(high, low), Pixel(high, high), Pixel(low, high));
    };
    // The same on the ground: pixel (x, y) of the sheet.
    const auto groundSquare = [this](double low, double high) {
        const auto at = [this](double x, double y) { return Utm(400000.0 + 10.0 * x, 5600000.0 - 20.0 * y); };
        return List(at(low, low), at(high, low), at(high, high), at(low, high));
    };
    // The first of the two numbers of a coordinate that is an easting or a column.
    const auto largestEast = [](IArray* parts) {
        double largest = -1.0;
        for (uint32_t i = 0; i < parts->GetCount(); ++i) {
            const auto part = As<IArray>(parts->GetAt(i));
            for (uint32_t k = 0; k < part->GetCount(); ++k) {
                const Record record = RecordOf(As<ICoord>(part->GetAt(k)));
                largest = std::max(largest, record.type == UTM ? (record.At<double>(8) - 400000.0) / 10.0
                                                               : record.At<double>(0));
            }
        }
        return largest;
    };
    const auto expectParts = [&] {
        EXPECT_EQ(onlyFirst->GetCount(), 1u);
        EXPECT_EQ(onlySecond->GetCount(), 1u);
        EXPECT_EQ(both->GetCount(), 1u);
        EXPECT_EQ(neither->GetCount(), 0u);
        EXPECT_NEAR(largestEast(onlyFirst), 4.0, PIXELS);
        EXPECT_NEAR(largestEast(onlySecond), 9.0, PIXELS);
        EXPECT_NEAR(largestEast(both), 4.0, PIXELS);
        EXPECT_EQ(As<IArray>(both->GetAt(0)).Get() != nullptr, true);
    };
    const auto typeOfParts = [&] { return RecordOf(As<ICoord>(As<IArray>(both->GetAt(0))->GetAt(0))).type; };
    const auto pixelA = square(0.0, 4.0), pixelB = square(2.0, 9.0);
    const auto groundA = groundSquare(0.0, 4.0), groundB = groundSquare(2.0, 9.0);

    EXPECT_EQ(area->OverlayPixels(map, pixelA, pixelB, neither, onlySecond, onlyFirst, both), 4);
    expectParts();
    EXPECT_EQ(area->OverlayPixels(map, groundA, groundB, neither, onlySecond, onlyFirst, both), -1);
    EXPECT_EQ(area->OverlayOnMap(map, groundA, groundB, neither, onlySecond, onlyFirst, both), 4);
    expectParts();
    EXPECT_EQ(typeOfParts(), FLOATPIXEL);
    EXPECT_EQ(area->Overlay(groundA, groundB, neither, onlySecond, onlyFirst, both), 4);
    expectParts();
    EXPECT_EQ(typeOfParts(), UTM);
    EXPECT_EQ(area->Overlay(square(0.0, 9.0), square(1.0, 2.0), neither, onlySecond, onlyFirst, both), 3);
}

TEST_F(ContractAreas, ABowTieFallsApart) {
    const auto parts = Make<IArray>("Array");
    const auto bow =
        List(Pixel(0.0, 0.0), Pixel(4.0, 4.0), Pixel(4.0, 0.0), Pixel(0.0, 4.0), Pixel(0.0, 0.0));
    EXPECT_TRUE(Area()->SplitPolygon(Sheet(), bow, parts));
    EXPECT_EQ(parts->GetCount(), 2u);
}

// A window of the eastings 400000 to 400950 and the northings 5597000 to 5600000. Lines are at multiples of
// the step from easting 500000 and northing 0: at 400100, 400400 and 400700, and at 5598000 and 5599500.
TEST_F(ContractAreas, Grid) {
    const auto map = Sheet();
    const Held<ICoordinateGrid> grid(
        Make<ICoordinateGridFactory>("CoordinateGridFactory")->CreateUtmGrid(map, 2, -300.0, 1500.0));
    ASSERT_NE(grid.Get(), nullptr);
    EXPECT_EQ(grid->GetEastStep(), 300.0);
    EXPECT_EQ(grid->GetNorthStep(), 1500.0);
    const auto reference = Make<ICoordinateReference>("CoordinateReference");
    EXPECT_TRUE(grid->GetReference(reference));
    EXPECT_EQ(reference->GetDatum(), 2);
    EXPECT_EQ(reference->GetSystem(), 2);
    const auto copy = Make<IMapCoordOperations>("MapCoordOperations");
    EXPECT_TRUE(grid->CopyMapTo(copy));
    EXPECT_EQ(copy->GetScaleDenominator(), 50000);

    const auto lines = Make<IArray>("Array");
    const auto firstOf = [](IArray* of) { return As<IArray>(of->GetAt(0))->GetAt(0); };
    const auto expectLines = [&](uint32_t east, uint32_t north) {
        EXPECT_TRUE(grid->GetEastLines(lines));
        ASSERT_EQ(lines->GetCount(), east);
        EXPECT_NEAR(EastingOf(As<ICoord>(firstOf(lines))), 400100.0, METRES);
        EXPECT_TRUE(grid->GetNorthLines(lines));
        ASSERT_EQ(lines->GetCount(), north);
        const auto outer = As<IArray>(lines->GetAt(0));
        EXPECT_GE(outer->GetCount(), 1u);
    };
    const auto corner = [this](double x, double y) {
        Held<IFloatPoint> point = Make<IFloatPoint>("FloatPoint");
        point->SetX(x);
        point->SetY(y);
        return point;
    };
    EXPECT_TRUE(grid->SetWindowFromPoints(corner(0.0, 0.0), corner(95.0, 0.0), corner(95.0, 150.0),
                                          corner(0.0, 150.0)));
    expectLines(3, 2);
    // Half as wide.
    EXPECT_TRUE(grid->SetWindow(Pixel(0.0, 0.0), Pixel(47.0, 0.0), Pixel(47.0, 150.0), Pixel(0.0, 150.0)));
    expectLines(2, 2);

    EXPECT_TRUE(grid->GetEastLinePixels(lines));
    ASSERT_EQ(lines->GetCount(), 2u);
    EXPECT_NEAR(As<IFloatPoint>(firstOf(lines))->GetX(), 10.0, PIXELS);
    EXPECT_TRUE(grid->GetNorthLinePixels(lines));
    ASSERT_EQ(lines->GetCount(), 2u);
    EXPECT_NEAR(As<IFloatPoint>(firstOf(lines))->GetY(), 100.0, PIXELS) << "northing 5598000";
}

TEST_F(ContractAreas, GridsOfAllSystems) {
    using F = ICoordinateGridFactory;
    using Create = ICoordinateGrid* (F::*)(IMapCoordOperations*, int32_t, double, double);
    struct Row {
        Create create;
        uint32_t system;
    };
    const auto map = Sheet();
    const auto factory = Make<F>("CoordinateGridFactory");
    const auto reference = Make<ICoordinateReference>("CoordinateReference");
    for (const Row& row : {Row{&F::CreateFloatPixelGrid, FLOATPIXEL},
                           Row{&F::CreateUtmGrid, UTM},
                           Row{&F::CreateUtmrefGrid, UTMREF},
                           Row{&F::CreateGeodezGrid, GEODEZ},
                           Row{&F::CreateGeodezminGrid, GEODEZMIN},
                           Row{&F::CreateGeogradGrid, GEOGRAD},
                           Row{&F::CreateGeorefGrid, GEOREF},
                           Row{&F::CreateGkGrid, GK},
                           Row{&F::CreateBmnGrid, BMN},
                           Row{&F::CreateOemGrid, OEM},
                           Row{&F::CreateChGrid, CH},
                           Row{&F::CreateGk6Grid, GK6},
                           Row{&F::CreateGkAtGrid, GK_AT},
                           Row{&F::CreateUpsGrid, UPS},
                           Row{&F::CreatePoMilitaryGrid, PO_MILITARY},
                           Row{&F::CreateTmGrid, TM},
                           Row{&F::CreateVdgGrid, VDG},
                           Row{&F::CreateBngGrid, BNG},
                           Row{&F::CreateIngGrid, ING},
                           Row{&F::CreateRdGrid, RD},
                           Row{&F::CreateLurefGrid, LUREF}}) {
        const Create create = row.create;
        const Held<ICoordinateGrid> grid((factory.Get()->*create)(map, 3, 10.0, 20.0));
        ASSERT_NE(grid.Get(), nullptr) << row.system;
        EXPECT_TRUE(grid->GetReference(reference)) << row.system;
        EXPECT_EQ(reference->GetSystem(), static_cast<int32_t>(row.system));
        EXPECT_EQ(reference->GetDatum(), 3) << row.system;
        EXPECT_EQ(grid->GetEastStep(), 10.0);
        EXPECT_EQ(grid->GetNorthStep(), 20.0);
    }
}

}  // namespace
}  // namespace contract
