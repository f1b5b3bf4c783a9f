// The polygon operations of the class, on coordinates of all kinds.
#include <gtest/gtest.h>

#include "areas/coordinate_area.h"
#include "support/host_map.h"
#include "support/polygons.h"
#include "support/positions.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::At;
using testing::CountOf;
using testing::FloatPixel;
using testing::LineOf;
using testing::LongPixel;
using testing::MapOf;
using testing::Nowhere;
using testing::PixelPolygon;
using testing::PolarSquare;
using testing::PolygonOf;
using testing::Ups;
using testing::Utm32;

const Ring SQUARE = testing::Rectangle(0, 0, 4, 4);

IRef<ICoord> PixelAt(double x, double y, std::int32_t datum = DATUM_WGS84) {
    tagKOORD record = FloatPixel(x, y);
    record.datum = static_cast<std::uint32_t>(datum);
    return CoordOf(record);
}

// The same position in another system, as a host would convert it.
IRef<ICoord> In(std::int32_t system, const tagKOORD& record) {
    IRef<ICoord> coord = CoordOf(record);
    EXPECT_TRUE(coord->SetReference(ReferenceOf(static_cast<std::int32_t>(record.datum), system).Get()));
    return coord;
}

class PolygonQuestions : public testing::PolygonTest {
  protected:
    using OnMap = bool (ICoordinateArea::*)(IMapCoordOperations*, ICoord*, IArray*);
    using Plain = bool (ICoordinateArea::*)(ICoord*, IArray*);
    static constexpr OnMap ON_MAP[] = {
        &ICoordinateArea::IsInsideCoordEdges, &ICoordinateArea::IsInsideMapEdges,
        &ICoordinateArea::IsInsideTransferred, &ICoordinateArea::IsInsideOnMap};
    static constexpr Plain PLAIN[] = {&ICoordinateArea::IsInsideCoordEdgesNoMap,
                                      &ICoordinateArea::IsInsidePixels};

    bool Ask(OnMap operation, const IRef<ICoord>& point, const IRef<IArray>& polygon) {
        return (area.Get()->*operation)(map.Get(), point.Get(), polygon.Get());
    }
    bool Ask(Plain operation, const IRef<ICoord>& point, const IRef<IArray>& polygon) {
        return (area.Get()->*operation)(point.Get(), polygon.Get());
    }
    // Whether all operations that take pixels as they are answer as expected.
    bool AskAll(const IRef<ICoord>& point, const IRef<IArray>& polygon, bool expected) {
        bool isExpected = true;
        for (const OnMap operation : ON_MAP) {
            if (operation == &ICoordinateArea::IsInsideTransferred) continue;
            isExpected &= Ask(operation, point, polygon) == expected;
        }
        for (const Plain operation : PLAIN)
            isExpected &= Ask(operation, point, polygon) == expected;
        return isExpected;
    }

    // 100 metres a pixel: column (easting - 300000) / 100, row (5800000 - northing) / 100.
    IRef<IMapCoordOperations> map =
        MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 300000.0, 5800000.0, 100.0, 100.0}));
};

TEST_F(PolygonQuestions, PixelsAreComparedAsTheyAre) {
    const auto square = PixelPolygon(SQUARE);
    EXPECT_TRUE(AskAll(PixelAt(1, 1), square, true));
    EXPECT_TRUE(AskAll(PixelAt(4, 4), square, true)) << "a vertex";
    EXPECT_TRUE(AskAll(PixelAt(5, 1), square, false));
    EXPECT_TRUE(AskAll(PixelAt(-1, 1), square, false));
    EXPECT_TRUE(AskAll(PixelAt(2, 0), square, true)) << "on an edge";
    // Transferred, it is a square of the UTM grid, to a rounding.
    EXPECT_TRUE(area->IsInsideTransferred(map.Get(), PixelAt(0.001, 3.999).Get(), square.Get()));
    EXPECT_FALSE(area->IsInsideTransferred(map.Get(), PixelAt(-0.001, 3.999).Get(), square.Get()));
}

TEST_F(PolygonQuestions, WholeAndFractionalPixelsOfAnyDatumMix) {
    const auto square =
        PolygonOf({PixelAt(0, 0, 3), CoordOf(LongPixel(4, 0)), PixelAt(4, 4, 6), CoordOf(LongPixel(0, 4))});
    EXPECT_TRUE(area->IsInsidePixels(CoordOf(LongPixel(1, 1)).Get(), square.Get()));
    EXPECT_FALSE(area->IsInsidePixels(CoordOf(LongPixel(5, 1)).Get(), square.Get()));
    EXPECT_TRUE(area->IsInsideOnMap(map.Get(), PixelAt(1, 1, 7).Get(), square.Get()));
    EXPECT_TRUE(area->IsInsideMapEdges(map.Get(), PixelAt(1, 1, 7).Get(), square.Get()));
    // The operations that require a common reference fail.
    EXPECT_FALSE(area->IsInsideCoordEdges(map.Get(), PixelAt(1, 1).Get(), square.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(PixelAt(1, 1).Get(), square.Get()));
}

TEST_F(PolygonQuestions, NothingIsInsideAnEmptyPolygon) {
    EXPECT_TRUE(AskAll(PixelAt(1, 1), PixelPolygon({}), false));
}

TEST_F(PolygonQuestions, APolygonOfOneVertexHoldsThatVertex) {
    EXPECT_TRUE(AskAll(PixelAt(1, 1), PixelPolygon({{1, 1}}), true));
    EXPECT_TRUE(AskAll(PixelAt(1, 2), PixelPolygon({{1, 1}}), false));
}

TEST_F(PolygonQuestions, BothTrianglesOfABowTieAreInside) {
    const Ring open{{0, 0}, {2, 2}, {2, 0}, {0, 2}};
    for (const Ring& ring : {open, testing::Closed(open)}) {
        const auto bowTie = PixelPolygon(ring);
        EXPECT_TRUE(area->IsInsidePixels(PixelAt(0.25, 1).Get(), bowTie.Get()));
        EXPECT_TRUE(area->IsInsidePixels(PixelAt(1.75, 1).Get(), bowTie.Get()));
        EXPECT_FALSE(area->IsInsidePixels(PixelAt(1, 0.5).Get(), bowTie.Get()));
    }
}

TEST_F(PolygonQuestions, TheObjectsToleranceCounts) {
    const auto diamond = PixelPolygon({{0, -4}, {4, 0}, {0, 4}, {-4, 0}});
    // (2.2, 2.2) is 0.4 / 1.414 = 0.28 beyond the edge on x + y = 4.
    EXPECT_TRUE(AskAll(PixelAt(2.2, 2.2), diamond, false));
    ASSERT_TRUE(area->SetTolerance(0.3));
    EXPECT_TRUE(AskAll(PixelAt(2.2, 2.2), diamond, true));
    EXPECT_TRUE(area->IsInsideTransferred(map.Get(), PixelAt(2.2, 2.2).Get(), diamond.Get()));
    ASSERT_TRUE(area->SetTolerance(0.0));
    EXPECT_FALSE(area->IsInsidePixels(PixelAt(2 + 1e-12, 2 + 1e-12).Get(), diamond.Get()));
}

TEST_F(PolygonQuestions, HalfAPixelOfToleranceWidensARectangle) {
    const auto square = PixelPolygon(SQUARE);
    ASSERT_TRUE(area->SetTolerance(0.5));
    for (const PlanePoint& p : Ring{{4.4, 2}, {-0.4, 2}, {2, 4.4}, {2, -0.4}}) {
        EXPECT_TRUE(AskAll(PixelAt(p.x, p.y), square, true));
        EXPECT_TRUE(area->IsInsideTransferred(map.Get(), PixelAt(p.x, p.y).Get(), square.Get()));
    }
    for (const PlanePoint& p : Ring{{4.6, 2}, {-0.6, 2}, {2, 4.6}, {2, -0.6}})
        EXPECT_TRUE(AskAll(PixelAt(p.x, p.y), square, false));
    ASSERT_TRUE(area->SetTolerance(0.0));
    EXPECT_TRUE(AskAll(PixelAt(4.4, 2), square, false));
}

TEST_F(PolygonQuestions, NothingIsInsideOnAMapThatRefusesARequest) {
    const auto field =
        LineOf({GeodezRecord(48, 7), GeodezRecord(48, 11), GeodezRecord(49, 11), GeodezRecord(49, 7)});
    const auto inside = CoordOf(GeodezRecord(48.5, 9));
    const IRef<IMapCoordOperations> shown = map;
    for (const OnMap operation : {&ICoordinateArea::IsInsideCoordEdges, &ICoordinateArea::IsInsideMapEdges,
                                  &ICoordinateArea::IsInsideOnMap}) {
        int nth = 0;
        bool hasFailed = true;
        while (hasFailed) {
            auto* const failing = NewObject<testing::RefusingMap>(shown, ++nth);
            map = IRef<IMapCoordOperations>(failing);
            const bool isInside = Ask(operation, inside, field);
            hasFailed = failing->HasRefused();
            EXPECT_EQ(isInside, !hasFailed) << nth;
        }
        EXPECT_GT(nth, 4);
    }
}

// The parallel of 48 degrees from 7 to 11 degrees east bends on the map: cs2cs +proj=latlong to +proj=utm
// +zone=32 gives the northings 5318235.614 at its ends and 5316300.224 in its middle, at the easting 500000.
TEST_F(PolygonQuestions, EdgesAreStraightInTheCoordinatesOrOnTheMap) {
    const auto field =
        LineOf({GeodezRecord(48, 7), GeodezRecord(48, 11), GeodezRecord(49, 11), GeodezRecord(49, 7)});
    const auto between = CoordOf(Utm32(500000, 5317000));
    EXPECT_TRUE(area->IsInsideCoordEdges(map.Get(), between.Get(), field.Get()));
    EXPECT_FALSE(area->IsInsideMapEdges(map.Get(), between.Get(), field.Get()));
    EXPECT_FALSE(area->IsInsideOnMap(map.Get(), between.Get(), field.Get()));
    // The map is drawn in UTM: transferred, the edges are straight there.
    EXPECT_FALSE(area->IsInsideTransferred(map.Get(), between.Get(), field.Get()));
    for (const OnMap operation : ON_MAP) {
        EXPECT_TRUE(Ask(operation, CoordOf(Utm32(500000, 5319000)), field));
        EXPECT_FALSE(Ask(operation, CoordOf(Utm32(500000, 5316000)), field));
    }
}

// On a cone the chord of a parallel runs polewards of it, in its middle by about half the square of half its
// length in radians times sin and cos of the latitude: 2 degrees on 48 give 0.0174 degrees.
TEST_F(PolygonQuestions, TransferredEdgesAreStraightInTheSystemOfTheMap) {
    map = MapOf(testing::WithReference(testing::Map(MAP_LAMBERT2, MapLambert2Params{46.0, 50.0, 9.0}),
                                       GeodezRecord(48, 9), 0, 0, 100000, 10.0));
    const auto polygon = PolygonOf({In(KOORD_UTM, GeodezRecord(48, 7)), CoordOf(GeodezRecord(48, 11)),
                                    In(KOORD_GK, GeodezRecord(49, 11)), CoordOf(GeodezRecord(49, 7))});
    const auto between = CoordOf(GeodezRecord(48.008, 9));
    EXPECT_TRUE(area->IsInsideTransferred(map.Get(), between.Get(), polygon.Get()));
    EXPECT_FALSE(area->IsInsideMapEdges(map.Get(), between.Get(), polygon.Get()));
    EXPECT_FALSE(area->IsInsideOnMap(map.Get(), between.Get(), polygon.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdges(map.Get(), between.Get(), polygon.Get())) << "systems differ";
    for (const OnMap operation : {ON_MAP[1], ON_MAP[2], ON_MAP[3]}) {
        EXPECT_TRUE(Ask(operation, CoordOf(GeodezRecord(48.03, 9)), polygon));
        EXPECT_FALSE(Ask(operation, CoordOf(GeodezRecord(47.99, 9)), polygon));
    }
}

TEST_F(PolygonQuestions, PixelsAndPositionsMeetOnTheMap) {
    // (500000, 5700000) is the pixel (2000, 1000).
    const auto pixels = PixelPolygon({{1990, 990}, {2010, 990}, {2010, 1010}, {1990, 1010}});
    for (const OnMap operation : ON_MAP) {
        EXPECT_TRUE(Ask(operation, CoordOf(Utm32(500000, 5700000)), pixels));
        EXPECT_FALSE(Ask(operation, CoordOf(Utm32(502000, 5700000)), pixels));
    }
    const auto positions = LineOf({Utm32(499000, 5699000), Utm32(501000, 5699000), Utm32(500000, 5701000)});
    for (const OnMap operation : ON_MAP) {
        EXPECT_TRUE(Ask(operation, PixelAt(2000, 1000), positions));
        EXPECT_FALSE(Ask(operation, PixelAt(2020, 1000), positions));
    }
    EXPECT_FALSE(area->IsInsidePixels(PixelAt(2000, 1000).Get(), positions.Get()));
    EXPECT_FALSE(area->IsInsidePixels(CoordOf(Utm32(500000, 5700000)).Get(), pixels.Get()));
}

TEST_F(PolygonQuestions, AClosingVertexMakesNoDifference) {
    const std::vector<tagKOORD> open{Utm32(400000, 5600000), Utm32(500000, 5600000), Utm32(500000, 5700000),
                                     Utm32(400000, 5700000)};
    std::vector<tagKOORD> closed = open;
    closed.push_back(open.front());
    for (const auto& polygon : {LineOf(open), LineOf(closed)}) {
        for (const OnMap operation : ON_MAP) {
            EXPECT_TRUE(Ask(operation, CoordOf(Utm32(410000, 5690000)), polygon));
            EXPECT_FALSE(Ask(operation, CoordOf(Utm32(390000, 5690000)), polygon));
        }
    }
}

TEST_F(PolygonQuestions, APositionWithoutAPixelFails) {
    const auto field = LineOf({GeodezRecord(48, 8), GeodezRecord(48, 10), GeodezRecord(49, 9)});
    const auto torn = LineOf({GeodezRecord(48, 8), Nowhere(), GeodezRecord(49, 9)});
    for (const OnMap operation : ON_MAP) {
        EXPECT_TRUE(Ask(operation, CoordOf(GeodezRecord(48.5, 9)), field));
        EXPECT_FALSE(Ask(operation, CoordOf(GeodezRecord(48.5, 9)), torn));
        EXPECT_FALSE(Ask(operation, CoordOf(Nowhere()), field));
    }
}

TEST_F(PolygonQuestions, CoordinateEdgesWantOneReference) {
    const auto field = LineOf({GeodezRecord(48, 8), GeodezRecord(48, 10), GeodezRecord(49, 9, 0, 3)});
    const auto point = CoordOf(GeodezRecord(48.5, 9));
    EXPECT_FALSE(area->IsInsideCoordEdges(map.Get(), point.Get(), field.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(point.Get(), field.Get()));
    EXPECT_TRUE(area->IsInsideOnMap(map.Get(), point.Get(), field.Get()));
    EXPECT_TRUE(area->IsInsideTransferred(map.Get(), point.Get(), field.Get()));
    // On the map the point may have a reference of its own, without one it may not.
    const auto whole = LineOf({GeodezRecord(48, 8), GeodezRecord(48, 10), GeodezRecord(49, 9)});
    const auto other = In(KOORD_UTM, GeodezRecord(48.5, 9));
    EXPECT_TRUE(area->IsInsideCoordEdges(map.Get(), other.Get(), whole.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(other.Get(), whole.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(CoordOf(GeodezRecord(48.5, 9, 0, 3)).Get(), whole.Get()));
}

TEST_F(PolygonQuestions, AnEdgeWithoutAMiddleFails) {
    // There is no mean of the grid of one pole and that of the other.
    map = testing::DegreeMap(0.0, 0.0, 1.0);
    const auto field = PolygonOf({In(KOORD_UPS, GeodezRecord(85, 0)), In(KOORD_UPS, GeodezRecord(85, 40)),
                                  In(KOORD_UPS, GeodezRecord(-85, 40))});
    const auto point = CoordOf(GeodezRecord(0, 30));
    EXPECT_TRUE(Ask(&ICoordinateArea::IsInsideOnMap, point, field));
    EXPECT_FALSE(Ask(&ICoordinateArea::IsInsideCoordEdges, point, field));
}

// The other edges would hold the point.
TEST_F(PolygonQuestions, AnEdgeWithoutAMiddleIsNotLeftOut) {
    map = testing::DegreeMap(0.0, 0.0, 1.0);
    const auto at = [](double latitude, double longitude) {
        return In(KOORD_UPS, GeodezRecord(latitude, longitude));
    };
    const auto point = CoordOf(GeodezRecord(87, 20));
    const auto north = PolygonOf({at(85, 0), at(85, 40), at(89, 40), at(89, 0)});
    EXPECT_TRUE(Ask(&ICoordinateArea::IsInsideCoordEdges, point, north));
    const auto both = PolygonOf({at(85, 0), at(85, 40), at(89, 40), at(89, 0), at(-85, 0)});
    EXPECT_FALSE(Ask(&ICoordinateArea::IsInsideCoordEdges, point, both));
}

TEST_F(PolygonQuestions, WithoutAMapEverySystemHasAPlane) {
    int systems = 0;
    for (const testing::Region& region : testing::REGIONS) {
        // TM has no middles, and so no edges.
        if (region.type == KOORD_TM) continue;
        const double lat = (region.south + region.north) / 2.0 + 0.1;
        const double lon = (region.west + region.east) / 2.0 + 0.3;
        const auto at = [&](double north, double east) {
            return In(region.type, GeodezRecord(lat + north, lon + east, 0.0, region.datum));
        };
        const auto field = PolygonOf({at(-0.05, -0.05), at(-0.05, 0.05), at(0.05, 0.05), at(0.05, -0.05)});
        const auto isInside = [&](double north, double east) {
            return area->IsInsideCoordEdgesNoMap(at(north, east).Get(), field.Get());
        };
        EXPECT_TRUE(isInside(0, 0) && isInside(0.049, -0.04)) << region.type;
        EXPECT_FALSE(isInside(0.06, 0) || isInside(0, -0.06)) << region.type;
        ++systems;
    }
    EXPECT_GE(systems, 17);
}

TEST_F(PolygonQuestions, WithoutAMapAPolarPolygonHoldsThePole) {
    const auto field = PolarSquare(1.9e6, 1.9e6, 2e5);
    EXPECT_TRUE(area->IsInsideCoordEdgesNoMap(CoordOf(Ups('N', 2.0e6, 2.0e6)).Get(), field.Get()));
    EXPECT_TRUE(area->IsInsideCoordEdgesNoMap(CoordOf(Ups('N', 2.09e6, 1.91e6)).Get(), field.Get()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(CoordOf(Ups('N', 2.11e6, 2.0e6)).Get(), field.Get()));
}

TEST_F(PolygonQuestions, InvalidPixelsHaveNoPlaceWithoutAMap) {
    const auto square =
        PolygonOf({PixelAt(0, 0), EmptyCoord(2, KOORD_FLOATPIXEL), PixelAt(4, 4), PixelAt(0, 4)});
    EXPECT_FALSE(area->IsInsidePixels(PixelAt(1, 2).Get(), square.Get()));
    EXPECT_FALSE(area->IsInsidePixels(EmptyCoord(2, KOORD_FLOATPIXEL).Get(), PixelPolygon(SQUARE).Get()));
}

TEST_F(PolygonQuestions, NoNumbersAreInsideNothing) {
    const auto broken = PixelPolygon({{0, 0}, {NONE, 0}, {4, NONE}, {HUGE_VAL, 4}, {0, -HUGE_VAL}});
    EXPECT_TRUE(AskAll(PixelAt(NONE, 1), PixelPolygon(SQUARE), false));
    EXPECT_TRUE(AskAll(PixelAt(1, -HUGE_VAL), PixelPolygon(SQUARE), false));
    EXPECT_TRUE(AskAll(PixelAt(NONE, NONE), broken, false));
}

TEST_F(PolygonQuestions, NullAndForeignObjectsFail) {
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    const auto point = PixelAt(1, 1);
    const auto square = PixelPolygon(SQUARE);
    const IRef<IArray> broken[] = {SquareWith(nullptr), SquareWith(stranger.Get()),
                                   SquareWith(foreign.Get())};
    std::vector<ICoord*> wrongPoints = Wrong<ICoord>();
    wrongPoints.push_back(foreign.Get());
    std::vector<IArray*> wrongPolygons = Wrong<IArray>();
    for (const IRef<IArray>& polygon : broken)
        wrongPolygons.push_back(polygon.Get());

    const auto expectFailures = [&](const auto& ask) {
        EXPECT_TRUE(ask(point.Get(), square.Get()));
        for (ICoord* const wrong : wrongPoints)
            EXPECT_FALSE(ask(wrong, square.Get()));
        for (IArray* const wrong : wrongPolygons)
            EXPECT_FALSE(ask(point.Get(), wrong));
    };
    for (const OnMap operation : ON_MAP) {
        expectFailures([&](ICoord* p, IArray* a) { return (area.Get()->*operation)(map.Get(), p, a); });
        for (IMapCoordOperations* const wrong : Wrong<IMapCoordOperations>())
            EXPECT_FALSE((area.Get()->*operation)(wrong, point.Get(), square.Get()));
    }
    for (const Plain operation : PLAIN)
        expectFailures([&](ICoord* p, IArray* a) { return (area.Get()->*operation)(p, a); });
    EXPECT_EQ(CountOf(point), 1u);
    EXPECT_EQ(CountOf(square), 1u);
    EXPECT_EQ(CountOf(map), 1u);
    EXPECT_EQ(CountOf(stranger), 2u) << "held here and in a list";
}

TEST_F(PolygonQuestions, InputsStayAsTheyAre) {
    const auto field = LineOf({GeodezRecord(48, 7), GeodezRecord(48, 11), GeodezRecord(49, 9)});
    const auto point = In(KOORD_UTM, GeodezRecord(48.5, 9));
    const CKoord before = KoordOf(point);
    for (const OnMap operation : ON_MAP)
        EXPECT_TRUE(Ask(operation, point, field));
    EXPECT_EQ(field->GetCount(), 3u);
    EXPECT_TRUE(testing::SameRecord(KoordOf(point), before));
    EXPECT_TRUE(testing::SameRecord(KoordOf(At(field, 1)), GeodezRecord(48, 11)));
}

TEST_F(PolygonQuestions, ObjectsOfCountZeroMayBeArguments) {
    EXPECT_FALSE(area->IsInsidePixels(CreateClassCoord(), CreateClassArray()));
    EXPECT_FALSE(area->IsInsideCoordEdgesNoMap(CreateClassCoord(), CreateClassArray()));
    for (const OnMap operation : ON_MAP) {
        EXPECT_FALSE((area.Get()->*operation)(CreateClassMapCoordOperations(), CreateClassCoord(),
                                              CreateClassArray()));
    }
}

}  // namespace
}  // namespace tessara
