#include "tessara/coordinate_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "records/zones.h"
#include "support/failing_reference.h"
#include "support/grids.h"
#include "support/host_map.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {
namespace {

// Ten metres a pixel, zone 32, over the border to zone 33 at 12 degrees east.
MapParam BorderSheet() {
    return Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0});
}

constexpr int NEVER = 1000000;

// Shows no references, only positions.
class MapWithoutReferences : public HostMap {
  public:
    explicit MapWithoutReferences(const IRef<IMapCoordOperations>& map) : HostMap(map) {}

    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        return KoordOf(IRef<ICoord>(in)).type != KOORD_UTMREF && HostMap::CoordToFloatPixel(in, x, y);
    }

  protected:
    ~MapWithoutReferences() = default;
};

class CoordinateGridTest : public BalancedTest {
  protected:
    std::uint32_t CountOfEastLines() {
        return grid->GetEastLines(lines.Get()) ? lines->GetCount() : UINT32_MAX;
    }

    IRef<IMapCoordOperations> map = MapOf(BorderSheet());
    IRef<ICoordinateGrid> grid = GridOf(KOORD_UTM, map, 10000.0, 10000.0);
    IRef<IArray> lines{CreateClassArray()};
    IRef<IUnknown> stranger = MakeStranger();
};

using LineOperation = bool (ICoordinateGrid::*)(IArray*);
constexpr LineOperation LINE_OPERATIONS[] = {&ICoordinateGrid::GetEastLines, &ICoordinateGrid::GetNorthLines,
                                             &ICoordinateGrid::GetEastLinePixels,
                                             &ICoordinateGrid::GetNorthLinePixels};

bool GetLines(const IRef<ICoordinateGrid>& grid, LineOperation operation, IArray* lines) {
    return (grid.Get()->*operation)(lines);
}

TEST_F(CoordinateGridTest, AnEmptyOneDoesNothing) {
    const IRef<ICoordinateGrid> empty(CreateClassCoordinateGrid());
    EXPECT_EQ(empty->GetEastStep(), 0.0);
    EXPECT_EQ(empty->GetNorthStep(), 0.0);
    EXPECT_FALSE(SetWindow(empty, 0, 0, 10, 10));
    const auto corner = CoordOf(FloatPixel(0.0, 0.0));
    EXPECT_FALSE(empty->SetWindow(corner.Get(), corner.Get(), corner.Get(), corner.Get()));
    lines->Add(stranger.Get());
    for (const LineOperation operation : LINE_OPERATIONS)
        EXPECT_FALSE(GetLines(empty, operation, lines.Get()));
    EXPECT_EQ(lines->GetCount(), 1u) << "nothing is touched";
    EXPECT_FALSE(empty->CopyMapTo(map.Get()));
    EXPECT_FALSE(empty->GetReference(ReferenceOf(2, KOORD_UTM).Get()));
}

TEST_F(CoordinateGridTest, HasNoLinesBeforeItHasAWindow) {
    for (const LineOperation operation : LINE_OPERATIONS) {
        lines->Add(stranger.Get());
        EXPECT_FALSE(GetLines(grid, operation, lines.Get()));
        EXPECT_EQ(lines->GetCount(), 0u);
    }
}

TEST_F(CoordinateGridTest, TheWindowMayBeGivenInAnyOrderAndMixture) {
    // The zones' lines of the window by hand: 700000, 710000, 720000; the border; 280000, 290000, 300000.
    ASSERT_TRUE(SetWindow(grid, 5000, 0, 0, 5000));
    EXPECT_EQ(CountOfEastLines(), 7u);
    // The same corners as a position, pixels of two kinds, and a pixel of another datum.
    const auto topLeft = CoordOf(Utm32(695000.0, 5365000.0));
    const auto topRight = CoordOf(LongPixel(5000, 0));
    const auto bottomRight = CoordOf(FloatPixel(5000.0, 5000.0));
    const auto bottomLeft = CoordOf(Record(KOORD_FLOATPIXEL, FloatPixelPayload{0.0, 5000.0}, 6));
    ICoord* const corners[] = {topLeft.Get(), topRight.Get(), bottomRight.Get(), bottomLeft.Get()};
    for (int first = 0; first < 4; ++first) {
        ASSERT_TRUE(SetWindow(grid, 0, 0, 10, 10));
        ASSERT_TRUE(grid->SetWindow(corners[first], corners[(first + 2) % 4], corners[(first + 1) % 4],
                                    corners[(first + 3) % 4]));
        EXPECT_EQ(CountOfEastLines(), 7u);
    }
}

TEST_F(CoordinateGridTest, TheWindowIsOfWholePixels) {
    grid = GridOf(KOORD_FLOATPIXEL, map, 1.0, 1.0);
    ASSERT_TRUE(SetWindow(grid, -0.5, -2.4, 0.5, 2.4999));
    const auto eastLines = EastLinesOf(grid);
    ASSERT_EQ(eastLines.size(), 3u) << "columns -1, 0, 1: a half is rounded away from zero";
    const auto top = Load<FloatPixelPayload>(eastLines.front().front());
    const auto bottom = Load<FloatPixelPayload>(eastLines.front().back());
    EXPECT_EQ(top.x, -1.0);
    EXPECT_EQ(top.y, -2.0);
    EXPECT_EQ(bottom.y, 2.0);
}

TEST_F(CoordinateGridTest, RefusesWindowsThatArentThere) {
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {none, HUGE_VAL, -HUGE_VAL, 2147483648.0, -1e300}) {
        EXPECT_FALSE(SetWindow(grid, bad, 0, 10, 10)) << bad;
        EXPECT_FALSE(SetWindow(grid, 0, 0, 10, bad)) << bad;
    }
    const auto corner = CoordOf(FloatPixel(0.0, 0.0));
    const auto nowhere = CoordOf(Nowhere());
    const IRef<ICoord> foreign(NewObject<HostCoord>());
    ICoord* const bad[] = {nullptr, Disguised<ICoord>(stranger), nowhere.Get(), foreign.Get()};
    for (ICoord* const wrong : bad) {
        EXPECT_FALSE(grid->SetWindow(wrong, corner.Get(), corner.Get(), corner.Get()));
        EXPECT_FALSE(grid->SetWindow(corner.Get(), wrong, corner.Get(), corner.Get()));
        EXPECT_FALSE(grid->SetWindow(corner.Get(), corner.Get(), wrong, corner.Get()));
        EXPECT_FALSE(grid->SetWindow(corner.Get(), corner.Get(), corner.Get(), wrong));
    }
    const auto point = FloatPointOf(0.0, 0.0);
    for (IFloatPoint* const wrong : {static_cast<IFloatPoint*>(nullptr), Disguised<IFloatPoint>(stranger)}) {
        EXPECT_FALSE(grid->SetWindowFromPoints(wrong, point.Get(), point.Get(), point.Get()));
        EXPECT_FALSE(grid->SetWindowFromPoints(point.Get(), wrong, point.Get(), point.Get()));
        EXPECT_FALSE(grid->SetWindowFromPoints(point.Get(), point.Get(), wrong, point.Get()));
        EXPECT_FALSE(grid->SetWindowFromPoints(point.Get(), point.Get(), point.Get(), wrong));
    }
    EXPECT_EQ(CountOfEastLines(), 7u) << "the window is the one before";
}

TEST_F(CoordinateGridTest, AWindowOfTheWholeRangeOfPixelsComesToAnEnd) {
    int windows = 0;
    for (const GridSystem& row : GRID_SYSTEMS) {
        const auto whole = GridOf(row.system, map, 1e7, 1e7);
        if (!SetWindow(whole, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX)) continue;
        ++windows;
        whole->GetEastLines(lines.Get());
        EXPECT_LT(lines->GetCount(), 1000u) << row.name;
        whole->GetNorthLines(lines.Get());
        EXPECT_LT(lines->GetCount(), 1000u) << row.name;
    }
    EXPECT_GT(windows, 0);
}

TEST_F(CoordinateGridTest, AWindowOutsideTheSystemIsNone) {
    EXPECT_FALSE(SetWindow(GridOf(KOORD_BNG, map, 1e4, 1e4), 0, 0, 5000, 5000)) << "Bavaria";
    EXPECT_FALSE(SetWindow(GridOf(KOORD_TM, map, 1e4, 1e4), 0, 0, 5000, 5000)) << "never";
    EXPECT_FALSE(SetWindow(GridOf(KOORD_UTM, map, 1e4, 1e4, 999), 0, 0, 5000, 5000)) << "no datum";
    EXPECT_TRUE(SetWindow(GridOf(KOORD_FLOATPIXEL, map, 1e4, 1e4, 999), 0, 0, 5000, 5000));
    const IRef<IMapCoordOperations> empty(CreateClassMapCoordOperations());
    EXPECT_FALSE(SetWindow(GridOf(KOORD_UTM, empty, 1e4, 1e4), 0, 0, 5000, 5000));
}

// The codes of GEOREF end half a turn from Greenwich; degrees go on.
TEST_F(CoordinateGridTest, AWindowBesideAllCodesIsNone) {
    for (const double west : {-182.0, 181.0}) {
        map = DegreeMap(west, 50.0, 100.0);
        EXPECT_FALSE(SetWindow(GridOf(KOORD_GEOREF, map, 0.1, 0.1), 0, 0, 100, 100)) << west;
        EXPECT_TRUE(SetWindow(GridOf(KOORD_GEODEZ, map, 0.1, 0.1), 0, 0, 100, 100)) << west;
    }
    // From 181 to 179 degrees west.
    map = DegreeMap(-181.0, 50.0, 100.0);
    EXPECT_TRUE(SetWindow(GridOf(KOORD_GEOREF, map, 0.1, 0.1), 0, 0, 200, 100));
}

TEST_F(CoordinateGridTest, LineOperationsNeedAList) {
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    for (const LineOperation operation : LINE_OPERATIONS) {
        EXPECT_FALSE(GetLines(grid, operation, nullptr));
        EXPECT_FALSE(GetLines(grid, operation, Disguised<IArray>(stranger)));
    }
}

TEST_F(CoordinateGridTest, LinesReplaceWhatTheListHeld) {
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    for (const LineOperation operation : LINE_OPERATIONS) {
        ASSERT_TRUE(GetLines(grid, operation, lines.Get()));
        const std::uint32_t count = lines->GetCount();
        lines->Add(stranger.Get());
        ASSERT_TRUE(GetLines(grid, operation, lines.Get()));
        EXPECT_EQ(lines->GetCount(), count);
        EXPECT_EQ(CountOf(lines->GetAt(0)), 1u) << "held by nobody else";
    }
}

TEST_F(CoordinateGridTest, PointsAreInTheGridsReferenceAtHeightZero) {
    for (const GridPlace& place : GRID_PLACES) {
        const auto cone = ConeMap(place);
        const auto onCone = GridOf(place.system, cone, 1e5, 1e5, place.datum);
        ASSERT_TRUE(SetWindow(onCone, 0, 0, 1600, 1200)) << place.name;
        for (const auto& all : {EastLinesOf(onCone), NorthLinesOf(onCone)}) {
            for (const auto& line : all) {
                for (const CKoord& koord : line) {
                    EXPECT_EQ(koord.type, static_cast<std::uint32_t>(place.system)) << place.name;
                    EXPECT_EQ(koord.datum, static_cast<std::uint32_t>(place.datum)) << place.name;
                    EXPECT_EQ(koord.GetHeight(), 0.0) << place.name;
                }
            }
        }
    }
}

TEST_F(CoordinateGridTest, PixelLinesAreTheSameLines) {
    for (const std::int32_t system : {KOORD_UTM, KOORD_UTMREF, KOORD_GEODEZ, KOORD_FLOATPIXEL}) {
        const double step = system == KOORD_GEODEZ ? 0.1 : system == KOORD_FLOATPIXEL ? 1000.0 : 10000.0;
        grid = GridOf(system, map, step, step);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
        const IRef<IArray> pixels(CreateClassArray());
        for (int axis = 0; axis < 2; ++axis) {
            ASSERT_TRUE(GetLines(grid, LINE_OPERATIONS[axis], lines.Get()));
            ASSERT_TRUE(GetLines(grid, LINE_OPERATIONS[axis + 2], pixels.Get()));
            ASSERT_EQ(pixels->GetCount(), lines->GetCount());
            ASSERT_GT(pixels->GetCount(), 2u);
            for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
                const IRef<IArray> line = LineAt(lines, i), pixelLine = LineAt(pixels, i);
                ASSERT_EQ(pixelLine->GetCount(), line->GetCount());
                for (std::uint32_t k = 0; k < line->GetCount(); ++k) {
                    const CKoord koord = KoordOf(At(line, k));
                    const Pixel expected =
                        system == KOORD_FLOATPIXEL ? PixelOf(At(line, k)) : PixelOn(map, koord);
                    const IRef<IFloatPoint> point(pixelLine->GetAt(k));
                    ASSERT_TRUE(point.IsValid());
                    EXPECT_EQ(point->GetX(), expected.x);
                    EXPECT_EQ(point->GetY(), expected.y);
                    EXPECT_EQ(point->GetZ(), 0.0);
                }
            }
        }
    }
}

TEST_F(CoordinateGridTest, ARoundedPointThatTheMapDoesntShowHasThePixelOfTheExactOne) {
    const IRef<IMapCoordOperations> bare(NewObject<MapWithoutReferences>(map));
    const auto rounded = GridOf(KOORD_UTMREF, bare, 10000.0, 10000.0);
    ASSERT_TRUE(SetWindow(rounded, 0, 0, 5000, 5000));
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    const IRef<IArray> exact(CreateClassArray());
    ASSERT_TRUE(grid->GetEastLinePixels(exact.Get()));
    ASSERT_TRUE(rounded->GetEastLinePixels(lines.Get()));
    ASSERT_EQ(lines->GetCount(), exact->GetCount());
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        ASSERT_EQ(LineAt(lines, i)->GetCount(), LineAt(exact, i)->GetCount());
        for (std::uint32_t k = 0; k < LineAt(lines, i)->GetCount(); ++k) {
            const IRef<IFloatPoint> point(LineAt(lines, i)->GetAt(k));
            const IRef<IFloatPoint> expected(LineAt(exact, i)->GetAt(k));
            EXPECT_EQ(point->GetX(), expected->GetX());
            EXPECT_EQ(point->GetY(), expected->GetY());
        }
    }
}

// Two pixels a degree, and a meridian of GEOREF every five degrees from -180 to 175.
TEST_F(CoordinateGridTest, AWindowOfMoreThanATurnHasTheMeridiansThatTheMapShows) {
    for (const auto& [west, width] : {std::pair{-200.0, 400.0}, {-200.0, 370.0}, {-170.0, 370.0}}) {
        map = DegreeMap(west, 90.0, 2.0);
        std::vector<double> expected;
        for (double meridian = -180.0; meridian < 180.0; meridian += 5.0) {
            if (meridian >= west && meridian <= west + width) expected.push_back(meridian);
        }
        grid = GridOf(KOORD_GEOREF, map, 5.0, 15.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 2.0 * width, 360.0));
        std::vector<double> meridians;
        for (const auto& line : EastLinesOf(grid)) {
            const tagKOORD code = line.front();
            tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
            ASSERT_EQ(KoordConvert(&code, &degrees), KOORD_OK);
            meridians.push_back(Load<GeodezPayload>(degrees).longitude);
        }
        EXPECT_EQ(meridians, expected) << west;
        EXPECT_EQ(NorthLinesOf(grid).size(), 12u) << "-90 to 75";
    }
}

TEST_F(CoordinateGridTest, WorksOnAHostsOwnMap) {
    const IRef<IMapCoordOperations> foreign(NewObject<FailingMap>(map, NEVER));
    grid = GridOf(KOORD_UTM, foreign, 10000.0, 10000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    EXPECT_EQ(CountOfEastLines(), 7u);
    EXPECT_FALSE(grid->CopyMapTo(map.Get())) << "it has no record to copy";
}

TEST_F(CoordinateGridTest, AFailureOnTheWayLeavesTheLinesBefore) {
    auto* const host = NewObject<FailingMap>(map, NEVER);
    const IRef<IMapCoordOperations> foreign(host);
    grid = GridOf(KOORD_UTM, foreign, 10000.0, 10000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 5000, 5000));
    // Lines of zone 32 are straight on this map: each takes its two ends and the middle.
    host->GiveUpAfter(8);
    EXPECT_FALSE(grid->GetEastLines(lines.Get()));
    EXPECT_EQ(lines->GetCount(), 2u);
    host->GiveUpAfter(2);
    EXPECT_FALSE(grid->GetNorthLines(lines.Get()));
    EXPECT_EQ(lines->GetCount(), 0u);
    // The lines take so many positions, and the pixels of their points as many again as they have points.
    host->GiveUpAfter(8);
    EXPECT_FALSE(grid->GetEastLinePixels(lines.Get()));
    EXPECT_EQ(lines->GetCount(), 0u) << "the lines themselves weren't made";
    host->GiveUpAfter(NEVER);
    ASSERT_TRUE(grid->GetEastLines(lines.Get()));
    const int taken = NEVER - host->Left();
    host->GiveUpAfter(taken + 2);
    EXPECT_FALSE(grid->GetEastLinePixels(lines.Get()));
    ASSERT_EQ(lines->GetCount(), 1u);
    EXPECT_EQ(LineAt(lines, 0)->GetCount(), 2u);
}

TEST_F(CoordinateGridTest, HasAsManyLinesAsTheWindowTakes) {
    grid = GridOf(KOORD_FLOATPIXEL, map, 0.5, 0.5);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 50000, 50001));
    EXPECT_TRUE(grid->GetEastLines(lines.Get()));
    EXPECT_EQ(lines->GetCount(), 100001u) << "0, 0.5 and so on to 50000";
    EXPECT_TRUE(grid->GetNorthLines(lines.Get()));
    EXPECT_EQ(lines->GetCount(), 100003u);
}

// Closer than a thousandth of a pixel on average: some of these would be a billion lines.
TEST_F(CoordinateGridTest, RefusesStepsFarBelowAPixelBeforeItDrawsALine) {
    for (const GridPlace& place : GRID_PLACES) {
        const auto cone = ConeMap(place);
        for (const double step : {5e-324, 1e-200, 1e-12, 1e-9}) {
            const auto odd = GridOf(place.system, cone, step, step, place.datum);
            ASSERT_TRUE(SetWindow(odd, 800, 600, 810, 610)) << place.name;
            for (const LineOperation operation : LINE_OPERATIONS) {
                lines->Add(stranger.Get());
                EXPECT_FALSE(GetLines(odd, operation, lines.Get())) << place.name << " " << step;
                EXPECT_EQ(lines->GetCount(), 0u) << place.name << " " << step;
            }
        }
    }
}

TEST_F(CoordinateGridTest, DrawsAThousandLinesToAPixel) {
    // Columns 0 to 4 and rows 0 to 2.
    const auto countAt = [&](double step, LineOperation operation) {
        grid = GridOf(KOORD_FLOATPIXEL, map, step, step);
        EXPECT_TRUE(SetWindow(grid, 0, 0, 4, 2));
        return GetLines(grid, operation, lines.Get()) ? static_cast<int>(lines->GetCount()) : -1;
    };
    const double step = 1.0 / 1000.0;
    EXPECT_NEAR(countAt(step, &ICoordinateGrid::GetEastLines), 4001, 1);
    EXPECT_NEAR(countAt(step, &ICoordinateGrid::GetNorthLines), 2001, 1);
    EXPECT_EQ(countAt(step * 0.99, &ICoordinateGrid::GetEastLines), -1);
    EXPECT_EQ(countAt(step * 0.99, &ICoordinateGrid::GetNorthLines), -1);
    // Ten metres a pixel, twenty pixels: centimetres are as close as that.
    for (const double metres : {0.0101, 0.0099}) {
        grid = GridOf(KOORD_UTM, map, metres, metres);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 20, 20));
        EXPECT_EQ(grid->GetEastLines(lines.Get()), metres > 0.01);
        EXPECT_EQ(grid->GetNorthLines(lines.Get()), metres > 0.01);
    }
}

TEST_F(CoordinateGridTest, AStepLargerThanTheWindowGivesALineOrNone) {
    for (const GridPlace& place : GRID_PLACES) {
        const auto cone = ConeMap(place);
        for (const double step : {1e9, 1e30, 1e308}) {
            const auto odd = GridOf(place.system, cone, step, step, place.datum);
            ASSERT_TRUE(SetWindow(odd, 0, 0, 1600, 1200)) << place.name;
            EXPECT_TRUE(odd->GetEastLines(lines.Get())) << place.name << " " << step;
            EXPECT_LE(lines->GetCount(), 3u) << place.name << " " << step << ": a line and two borders";
            EXPECT_TRUE(odd->GetNorthLines(lines.Get())) << place.name << " " << step;
            EXPECT_LE(lines->GetCount(), 1u) << place.name << " " << step;
        }
    }
}

// Only the line through the anchor can be there. With zones, borders are lines of the grid too.
TEST_F(CoordinateGridTest, WithoutZonesAStepLargerThanTheWindowGivesOneLineAtMost) {
    for (const GridPlace& place : GRID_PLACES) {
        if (zones::Exist(place.system)) continue;
        const auto cone = ConeMap(place);
        for (const double step : {1e6, 1e9, 1e30}) {
            const auto odd = GridOf(place.system, cone, step, step, place.datum);
            ASSERT_TRUE(SetWindow(odd, 0, 0, 1600, 1200)) << place.name;
            EXPECT_TRUE(odd->GetEastLines(lines.Get())) << place.name << " " << step;
            EXPECT_LE(lines->GetCount(), 1u) << place.name << " " << step;
            EXPECT_TRUE(odd->GetNorthLines(lines.Get())) << place.name << " " << step;
            EXPECT_LE(lines->GetCount(), 1u) << place.name << " " << step;
        }
    }
}

TEST_F(CoordinateGridTest, RoundedSystemsDontRepeatALine) {
    for (const auto& [system, finest] : {std::pair{KOORD_UTMREF, 1.0}, {KOORD_GEOREF, 1.0 / 6000.0}}) {
        ASSERT_TRUE(SetWindow(grid = GridOf(system, map, finest * 0.99, finest * 0.99), 0, 0, 4, 4));
        EXPECT_EQ(CountOfEastLines(), 1u) << system;
        EXPECT_EQ(NorthLinesOf(grid).size(), 1u) << system;
    }
    // Forty metres: from 695000 to 695040.
    ASSERT_TRUE(SetWindow(grid = GridOf(KOORD_UTMREF, map, 1.0, 1.0), 0, 0, 4, 4));
    EXPECT_NEAR(CountOfEastLines(), 40, 1);
}

TEST_F(CoordinateGridTest, CopiesItsMapWithTheReferencePoints) {
    auto* const second = new MapReferenceNode{GeodezRecord(48.0, 11.0), 3, 4, nullptr};
    second->next = new MapReferenceNode{GeodezRecord(49.0, 12.0), 5, 6, nullptr};
    MapParam three = WithReference(BorderSheet(), GeodezRecord(47.0, 10.0), 1, 2, 50000, 10.0);
    three.referenceCount = 3;
    three.reference.next = second;
    const IRef<IMapCoordOperations> target(CreateClassMapCoordOperations());
    {
        const auto from = MapOf(three);
        grid = GridOf(KOORD_UTM, from, 1.0, 1.0);
        ASSERT_TRUE(grid->CopyMapTo(target.Get()));
        ASSERT_TRUE(grid->CopyMapTo(from.Get())) << "onto itself";
        grid = IRef<ICoordinateGrid>();
    }
    // The source is gone.
    ASSERT_TRUE(target->GetReferencePoints(lines.Get()));
    ASSERT_EQ(lines->GetCount(), 3u);
    for (std::uint32_t i = 0; i < 3; ++i) {
        const IRef<ICoord> coord(CreateClassCoord());
        std::int32_t x = 0, y = 0;
        ASSERT_TRUE(IRef<IReferencePoint>(lines->GetAt(i))->GetLong(coord.Get(), &x, &y));
        EXPECT_EQ(x, static_cast<std::int32_t>(2 * i + 1));
        EXPECT_EQ(y, static_cast<std::int32_t>(2 * i + 2));
        EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 47.0 + i);
    }
    EXPECT_EQ(target->GetScaleDenominator(), 50000);
    const Pixel pixel = PixelOn(target, Utm32(695010.0, 5364980.0));
    EXPECT_NEAR(pixel.x, 1.0, 1e-6);  // pixels, what a conversion to degrees and back leaves
    EXPECT_NEAR(pixel.y, 2.0, 1e-6);
}

TEST_F(CoordinateGridTest, CopiesItsMapOntoMapsOnly) {
    EXPECT_FALSE(grid->CopyMapTo(nullptr));
    EXPECT_FALSE(grid->CopyMapTo(Disguised<IMapCoordOperations>(stranger)));
    const IRef<IMapCoordOperations> foreign(NewObject<FailingMap>(map, NEVER));
    EXPECT_FALSE(grid->CopyMapTo(foreign.Get()));
}

TEST_F(CoordinateGridTest, CopiesNothingWithoutMemory) {
    MapParam two = BorderSheet();
    two.referenceCount = 2;
    two.reference.next = new MapReferenceNode{GeodezRecord(48.0, 11.0), 3, 4, nullptr};
    grid = GridOf(KOORD_UTM, MapOf(two), 1.0, 1.0);
    const IRef<IMapCoordOperations> target(CreateClassMapCoordOperations());
    {
        const FailAllocation failure(1);
        EXPECT_FALSE(grid->CopyMapTo(target.Get()));
        EXPECT_TRUE(failure.HasFailed());
    }
    EXPECT_EQ(RecordOf(target).type, static_cast<std::uint32_t>(MAP_UNKNOWN)) << "untouched";
}

TEST_F(CoordinateGridTest, GivesItsReference) {
    const auto reference = ReferenceOf(5, KOORD_CH);
    EXPECT_TRUE(grid->GetReference(reference.Get()));
    EXPECT_EQ(reference->GetDatum(), DATUM_WGS84);
    EXPECT_EQ(reference->GetSystem(), KOORD_UTM);
    EXPECT_FALSE(grid->GetReference(nullptr));
    EXPECT_FALSE(grid->GetReference(Disguised<ICoordinateReference>(stranger)));
    EXPECT_FALSE(grid->GetReference(MakeHostReference(2, KOORD_UTM).Get())) << "it takes no numbers";
    CallBudget calls;
    ExpectFailureAtEachCall(&calls, [&] {
        const IRef<ICoordinateReference> failing(NewObject<FailingReference>(&calls));
        return grid->GetReference(failing.Get());
    });
}

TEST_F(CoordinateGridTest, LeavesNothingBehindWithoutMemory) {
    // An operation that fails or throws leaves no objects behind.
    const auto survive = [](const auto& operation) {
        bool hasFailed = true;
        for (int nth = 1; hasFailed; ++nth) {
            const FailAllocation failure(nth);
            try {
                operation();
            } catch (const std::bad_alloc&) {
            }
            hasFailed = failure.HasFailed();
        }
    };
    const auto topLeft = FloatPointOf(0, 0), bottomRight = FloatPointOf(500, 500);
    survive([&] {
        grid->SetWindowFromPoints(topLeft.Get(), topLeft.Get(), bottomRight.Get(), bottomRight.Get());
    });
    ASSERT_TRUE(SetWindow(grid, 2400, 2400, 3000, 3000));
    for (const LineOperation operation : LINE_OPERATIONS)
        survive([&] { GetLines(grid, operation, lines.Get()); });
    lines->Clear();
}

}  // namespace
}  // namespace tessara::testing
