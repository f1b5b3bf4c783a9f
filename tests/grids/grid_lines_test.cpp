// The common properties of the lines of every system: their positions and number, their constant value on
// the map, and their extent over the window.
#include "grids/grid_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "records/axis_values.h"
#include "records/convert_records.h"
#include "records/zones.h"
#include "support/grids.h"
#include "support/live_objects.h"
#include "support/random.h"
#include "tessara/coordinate_area.h"
#include "tessara/host/rect.h"

namespace tessara::testing {
namespace {

using Line = std::vector<CKoord>;

// Windows of the places' maps, in pixels.
constexpr std::int32_t WIDTH = 1600;
constexpr std::int32_t HEIGHT = 1200;

bool IsInDegrees(std::int32_t system) {
    return system == KOORD_GEODEZ || system == KOORD_GEODEZMIN || system == KOORD_GEOGRAD ||
           system == KOORD_GEOREF;
}

// Something that gives a handful of lines in the window.
double StepOf(std::int32_t system) {
    if (system == KOORD_FLOATPIXEL) return 170.0;
    return IsInDegrees(system) ? 0.25 : 23000.0;
}

// The number that the system keeps for an axis; degrees for those that are written as degrees, minutes and
// letters, and metres of the zone for UTMREF.
double ValueOf(Axis axis, CKoord koord) {
    if (koord.type == KOORD_UTMREF) {
        EXPECT_TRUE(ConvertInZone(KOORD_UTM, RangeCheck::Off, &koord));
    }
    const auto system = static_cast<std::int32_t>(koord.type);
    if (IsInDegrees(system) && system != KOORD_GEODEZ) {
        EXPECT_TRUE(ConvertTo(KOORD_GEODEZ, &koord));
    }
    if (axis == Axis::North) return axes::SignedNorthing(koord);
    const bool hasZones = zones::Exist(static_cast<std::int32_t>(koord.type));
    return hasZones ? zones::East(koord) : axes::Value(Axis::East, koord);
}

// The deviation of a point from the value of its line by rounding, in the unit of the system.
double RoundingOf(std::int32_t system) {
    switch (system) {
        case KOORD_UTMREF:
            return 0.5001;
        case KOORD_GEOREF:
            return 0.5001 / 6000.0;
        case KOORD_BNG:
        case KOORD_ING:
            return 1e-4;  // letters are renewed by a conversion to degrees and back at each line
        default:
            return IsInDegrees(system) ? 1e-9 : 1e-6;
    }
}

// Where the system counts its lines from.
struct Anchor {
    std::int32_t system;
    double east, north;
};

const Anchor ANCHORS[] = {
    {KOORD_FLOATPIXEL, 0.0, 0.0},
    {KOORD_UTM, 500000.0, 0.0},
    {KOORD_UTMREF, 500000.0, 0.0},
    {KOORD_GEODEZ, 0.0, 0.0},
    {KOORD_GEODEZMIN, 0.0, 0.0},
    {KOORD_GEOGRAD, 0.0, 0.0},
    {KOORD_GEOREF, 0.0, 0.0},
    {KOORD_GK, 500000.0, 0.0},
    {KOORD_BMN, 150000.0, 200000.0},   // 150000, 450000 and 750000 by the meridian
    {KOORD_OEM, 150000.0, 5200000.0},  // 450000, 750000 and 1050000
    {KOORD_CH, 600000.0, 200000.0},
    {KOORD_GK6, 500000.0, 0.0},
    {KOORD_GKAT, 0.0, 5200000.0},
    {KOORD_UPS, 2000000.0, 2000000.0},
    {KOORD_PO_MILITARY, 200000.0, 200000.0},
    {KOORD_VDG, 0.0, 0.0},
    {KOORD_BNG, 0.0, 0.0},
    {KOORD_ING, 0.0, 0.0},
    {KOORD_RD, 200000.0, 400000.0},
    {KOORD_LUREF, 0.0, 0.0},
};

const Anchor& AnchorOf(std::int32_t system) {
    return *std::find_if(std::begin(ANCHORS), std::end(ANCHORS),
                         [system](const Anchor& anchor) { return anchor.system == system; });
}

double AnchorOf(Axis axis, const CKoord& koord) {
    const Anchor& anchor = AnchorOf(static_cast<std::int32_t>(koord.type));
    if (axis == Axis::North) return anchor.north;
    if (koord.type != KOORD_BMN && koord.type != KOORD_OEM) return anchor.east;
    return anchor.east + 1e5 * (zones::Number(koord) - 28) + (koord.type == KOORD_OEM ? 3e5 : 0.0);
}

// How far a value lies from the nearest multiple of the step, from the anchor.
double BesideMultiple(Axis axis, const CKoord& koord, double step) {
    return std::remainder(ValueOf(axis, koord) - AnchorOf(axis, koord), step);
}

struct PlacedGrid {
    GridPlace place;
    IRef<IMapCoordOperations> map;
    IRef<ICoordinateGrid> grid;
    double step;
};

class GridLinesTest : public BalancedTest {
  protected:
    // Grids of all places on a cone and on a plate, with their windows.
    static std::vector<PlacedGrid> AllGrids() {
        std::vector<PlacedGrid> all;
        for (const GridPlace& place : GRID_PLACES) {
            for (const auto& map : {ConeMap(place), PlateMap(place)}) {
                const double step = StepOf(place.system);
                const auto grid = GridOf(place.system, map, step, step, place.datum);
                EXPECT_TRUE(SetWindow(grid, 0, 0, WIDTH, HEIGHT)) << place.name;
                all.push_back({place, map, grid, step});
            }
        }
        return all;
    }
};

std::vector<Line> LinesOn(Axis axis, const PlacedGrid& placed) {
    return axis == Axis::East ? EastLinesOf(placed.grid) : NorthLinesOf(placed.grid);
}

Pixel PixelFor(const PlacedGrid& placed, const CKoord& koord) {
    return placed.place.system == KOORD_FLOATPIXEL ? PixelOf(CoordOf(koord)) : PixelOn(placed.map, koord);
}

std::vector<Pixel> PixelsFor(const PlacedGrid& placed, const Line& line) {
    std::vector<Pixel> pixels;
    for (const CKoord& koord : line)
        pixels.push_back(PixelFor(placed, koord));
    return pixels;
}

// The position of a pixel in the grid's reference, in its natural zone; false if it has none there.
bool PositionOf(const PlacedGrid& placed, double x, double y, CKoord* koord) {
    if (placed.place.system == KOORD_FLOATPIXEL) {
        *koord = CKoord(FloatPixel(x, y));
        return true;
    }
    const auto coord = EmptyCoord(placed.place.datum, placed.place.system);
    if (!placed.map->FloatPixelToCoord(x, y, coord.Get())) return false;
    *koord = KoordOf(coord);
    return true;
}

bool IsOnMultiple(Axis axis, const CKoord& koord, const PlacedGrid& placed) {
    return std::fabs(BesideMultiple(axis, koord, placed.step)) <= RoundingOf(placed.place.system);
}

// Whether a line is at a multiple of the step; any other east line is the border of a zone.
bool IsGridLine(Axis axis, const Line& line, const PlacedGrid& placed) {
    return IsOnMultiple(axis, line.front(), placed) && IsOnMultiple(axis, line.back(), placed);
}

TEST_F(GridLinesTest, LinesStandAtWholeMultiplesFromTheAnchor) {
    for (const PlacedGrid& placed : AllGrids()) {
        int borders = 0;
        for (const Axis axis : {Axis::East, Axis::North}) {
            const auto lines = LinesOn(axis, placed);
            EXPECT_GE(lines.size(), 3u) << placed.place.name;
            for (const Line& line : lines) {
                ASSERT_GE(line.size(), 2u) << placed.place.name;
                if (axis == Axis::East && !IsGridLine(axis, line, placed)) {
                    ++borders;
                    continue;
                }
                for (const CKoord& koord : line)
                    EXPECT_NEAR(BesideMultiple(axis, koord, placed.step), 0.0,
                                RoundingOf(placed.place.system))
                        << placed.place.name;
            }
        }
        EXPECT_LE(borders, 2) << placed.place.name;
        if (!zones::Exist(placed.place.system)) {
            EXPECT_EQ(borders, 0) << placed.place.name;
        }
    }
}

TEST_F(GridLinesTest, LinesFollowEachOtherByOneStep) {
    for (const PlacedGrid& placed : AllGrids()) {
        for (const Axis axis : {Axis::East, Axis::North}) {
            // Rows of pixels count southward.
            const bool isRow = placed.place.system == KOORD_FLOATPIXEL && axis == Axis::North;
            const double step = isRow ? -placed.step : placed.step;
            const CKoord* last = nullptr;
            const auto lines = LinesOn(axis, placed);
            for (const Line& line : lines) {
                const CKoord& koord = line.front();
                const bool isGridLine = IsGridLine(axis, line, placed);
                const bool isSameZone = last != nullptr && zones::Number(*last) == zones::Number(koord);
                if (isGridLine && isSameZone) {
                    EXPECT_NEAR(ValueOf(axis, koord) - ValueOf(axis, *last), step,
                                2.0 * RoundingOf(placed.place.system))
                        << placed.place.name;
                }
                last = isGridLine ? &koord : nullptr;
            }
        }
    }
}

// In systems without zones the extremes of the window determine the number of multiples.
TEST_F(GridLinesTest, ThereAreAsManyLinesAsTheExtremesSay) {
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    const IRef<IRect> rect(NewObject<host::Rect>(0, 0, WIDTH, HEIGHT));
    for (const PlacedGrid& placed : AllGrids()) {
        const std::int32_t system = placed.place.system;
        // GEOREF positions compare by whole degrees, and so do their extremes: those of degrees are meant.
        const std::int32_t exact = system == KOORD_GEOREF ? KOORD_GEODEZ : system;
        IRef<ICoord> extremes[4];
        for (IRef<ICoord>& extreme : extremes)
            extreme = EmptyCoord(placed.place.datum, exact);
        ASSERT_TRUE(area->GetMapRectExtremes(placed.map.Get(), rect.Get(), extremes[0].Get(),
                                             extremes[1].Get(), extremes[2].Get(), extremes[3].Get()));
        const auto countBetween = [&](Axis axis, const IRef<ICoord>& from, const IRef<ICoord>& to) {
            const double sign = system == KOORD_FLOATPIXEL && axis == Axis::North ? -1.0 : 1.0;
            const double anchor = axis == Axis::East ? AnchorOf(system).east : AnchorOf(system).north;
            const double first = sign * (ValueOf(axis, KoordOf(from)) - anchor) / placed.step;
            const double last = sign * (ValueOf(axis, KoordOf(to)) - anchor) / placed.step;
            return static_cast<std::size_t>(std::floor(last) - std::ceil(first) + 1.0);
        };
        EXPECT_EQ(NorthLinesOf(placed.grid).size(), countBetween(Axis::North, extremes[2], extremes[0]))
            << placed.place.name;
        if (zones::Exist(system)) continue;
        EXPECT_EQ(EastLinesOf(placed.grid).size(), countBetween(Axis::East, extremes[3], extremes[1]))
            << placed.place.name;
    }
}

TEST_F(GridLinesTest, BetweenItsPointsALineKeepsItsValueToAQuarterOfAPixel) {
    for (const PlacedGrid& placed : AllGrids()) {
        if (placed.place.system == KOORD_FLOATPIXEL) continue;
        for (const Axis axis : {Axis::East, Axis::North}) {
            int places = 0;
            for (const Line& line : LinesOn(axis, placed)) {
                if (!IsGridLine(axis, line, placed)) continue;
                const auto pixels = PixelsFor(placed, line);
                for (std::size_t i = 1; i < pixels.size(); ++i) {
                    // Joined in a border point, two pieces meet with no line between.
                    if (zones::Number(line[i - 1]) != zones::Number(line[i])) continue;
                    for (const double t : {0.2, 0.5, 0.7}) {
                        const double x = pixels[i - 1].x + t * (pixels[i].x - pixels[i - 1].x);
                        const double y = pixels[i - 1].y + t * (pixels[i].y - pixels[i - 1].y);
                        CKoord there, beside;
                        if (!PositionOf(placed, x, y, &there)) continue;
                        if (zones::Number(there) != zones::Number(line[i])) continue;
                        // A pixel on the ground, in the direction in which the value changes most.
                        double perPixel = 0.0;
                        for (const auto& [dx, dy] : {std::pair{1.0, 0.0}, {0.0, 1.0}}) {
                            if (!PositionOf(placed, x + dx, y + dy, &beside)) continue;
                            if (zones::Number(beside) != zones::Number(there)) continue;
                            perPixel =
                                std::max(perPixel, std::fabs(ValueOf(axis, beside) - ValueOf(axis, there)));
                        }
                        // A quarter of a pixel on each axis is 0.354 diagonally; rounding comes on top.
                        const double tolerance = 0.36 * perPixel + 2.0 * RoundingOf(placed.place.system);
                        EXPECT_NEAR(ValueOf(axis, there), ValueOf(axis, line[i]), tolerance)
                            << placed.place.name;
                        ++places;
                    }
                }
            }
            EXPECT_GT(places, 0) << placed.place.name;
        }
    }
}

// Any place of the window, moved to the next line, lies on a line that was drawn.
TEST_F(GridLinesTest, LinesReachAllOverTheWindow) {
    Random random(94);
    for (const PlacedGrid& placed : AllGrids()) {
        const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
        for (const Axis axis : {Axis::East, Axis::North}) {
            std::vector<std::vector<Pixel>> polylines;
            for (const Line& line : LinesOn(axis, placed))
                polylines.push_back(PixelsFor(placed, line));
            int found = 0;
            for (int k = 0; k < 150; ++k) {
                CKoord koord;
                if (!PositionOf(placed, random.Between(0.0, WIDTH), random.Between(0.0, HEIGHT), &koord))
                    continue;
                // Exact numbers to move: the codes are rounded.
                if (koord.type == KOORD_UTMREF) {
                    ASSERT_TRUE(ConvertInZone(KOORD_UTM, RangeCheck::Off, &koord));
                }
                if (IsInDegrees(placed.place.system) && koord.type != KOORD_GEODEZ) {
                    ASSERT_TRUE(ConvertTo(KOORD_GEODEZ, &koord));
                }
                const std::int32_t zone = zones::Number(koord);
                const double moved = ValueOf(axis, koord) - BesideMultiple(axis, koord, placed.step);
                if (axis == Axis::North) {
                    axes::SetSignedNorthing(moved, &koord);
                } else if (zones::Exist(static_cast<std::int32_t>(koord.type))) {
                    zones::SetEast(moved, &koord);
                } else {
                    axes::SetValue(Axis::East, moved, &koord);
                }
                if (koord.type == KOORD_BNG || koord.type == KOORD_ING) {
                    auto letters = Load<LetterGridPayload>(koord);
                    letters.square = letters.subSquare = 0;
                    Store(koord, letters);
                }
                // No line is required beyond the window, the zone or the system.
                const Pixel at = PixelFor(placed, koord);
                if (!(at.x > 1.0 && at.x < WIDTH - 1.0 && at.y > 1.0 && at.y < HEIGHT - 1.0)) continue;
                CKoord back;
                if (!PositionOf(placed, at.x, at.y, &back) || zones::Number(back) != zone) continue;
                double nearest = HUGE_VAL;
                for (const auto& polyline : polylines)
                    nearest = std::min(nearest, DistanceToPolyline(at, polyline));
                // Pixels: a quarter on each axis; GEOREF's hundredth of a minute is a fifth of one, halved.
                EXPECT_LE(nearest, placed.place.system == KOORD_GEOREF ? 0.6 : 0.37) << placed.place.name;
                ++found;
            }
            EXPECT_GE(found, 30) << placed.place.name;
        }
    }
}

TEST_F(GridLinesTest, PixelLinesAreStraightFromRimToRim) {
    const auto map = DegreeMap(0.0, 0.0, 1.0);
    const auto grid = GridOf(KOORD_FLOATPIXEL, map, 250.0, 250.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 1000, 800));
    const auto east = EastLinesOf(grid);
    ASSERT_EQ(east.size(), 5u);
    for (std::size_t i = 0; i < east.size(); ++i) {
        ASSERT_EQ(east[i].size(), 2u);
        for (const CKoord& koord : east[i])
            EXPECT_EQ(Load<FloatPixelPayload>(koord).x, 250.0 * static_cast<double>(i));
        EXPECT_EQ(Load<FloatPixelPayload>(east[i][0]).y, 0.0);
        EXPECT_EQ(Load<FloatPixelPayload>(east[i][1]).y, 800.0);
    }
    const auto north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 4u);
    for (std::size_t i = 0; i < north.size(); ++i) {
        ASSERT_EQ(north[i].size(), 2u);
        for (const CKoord& koord : north[i])
            EXPECT_EQ(Load<FloatPixelPayload>(koord).y, 750.0 - 250.0 * static_cast<double>(i));
        EXPECT_EQ(Load<FloatPixelPayload>(north[i][0]).x, 0.0);
        EXPECT_EQ(Load<FloatPixelPayload>(north[i][1]).x, 1000.0);
    }
}

TEST_F(GridLinesTest, PixelLinesGoAroundTheOriginToo) {
    const auto map = DegreeMap(0.0, 0.0, 1.0);
    const auto grid = GridOf(KOORD_FLOATPIXEL, map, 100.0, 100.0);
    // Rows -400 to -130 and 60 to 250, columns -250 to 30.
    ASSERT_TRUE(SetWindow(grid, -250, -400, 30, -130));
    auto north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 3u);
    EXPECT_EQ(Load<FloatPixelPayload>(north[0][0]).y, -200.0);
    EXPECT_EQ(Load<FloatPixelPayload>(north[2][0]).y, -400.0);
    const auto east = EastLinesOf(grid);
    ASSERT_EQ(east.size(), 3u);
    EXPECT_EQ(Load<FloatPixelPayload>(east[0][0]).x, -200.0);
    EXPECT_EQ(Load<FloatPixelPayload>(east[2][0]).x, 0.0);
    ASSERT_TRUE(SetWindow(grid, -250, 60, 30, 250));
    north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 2u);
    EXPECT_EQ(Load<FloatPixelPayload>(north[0][0]).y, 200.0);
    EXPECT_EQ(Load<FloatPixelPayload>(north[1][0]).y, 100.0);
}

TEST_F(GridLinesTest, DegreesOnAPlateAreTheFrameOfTheWindow) {
    // A hundred pixels a degree from 9 east, 50 north: 9.05 to 12.05 and 47.95 to 49.95.
    const auto map = DegreeMap(9.0, 50.0, 100.0);
    const auto grid = GridOf(KOORD_GEODEZ, map, 0.5, 1.0);
    ASSERT_TRUE(SetWindow(grid, 5, 5, 305, 205));
    const auto east = EastLinesOf(grid);
    ASSERT_EQ(east.size(), 6u) << "9.5 to 12";
    for (std::size_t i = 0; i < east.size(); ++i) {
        ASSERT_EQ(east[i].size(), 2u) << "straight on this map";
        const auto top = Load<GeodezPayload>(east[i][0]);
        const auto bottom = Load<GeodezPayload>(east[i][1]);
        EXPECT_NEAR(top.longitude, 9.5 + 0.5 * static_cast<double>(i), 1e-12);
        EXPECT_NEAR(top.latitude, 49.95, 1e-9);
        EXPECT_NEAR(bottom.longitude, top.longitude, 0.0);
        EXPECT_NEAR(bottom.latitude, 47.95, 1e-9);
    }
    const auto north = NorthLinesOf(grid);
    ASSERT_EQ(north.size(), 2u) << "48 and 49";
    EXPECT_NEAR(Load<GeodezPayload>(north[0][0]).latitude, 48.0, 1e-12);
    EXPECT_NEAR(Load<GeodezPayload>(north[0][0]).longitude, 9.05, 1e-9);
    EXPECT_NEAR(Load<GeodezPayload>(north[1][1]).longitude, 12.05, 1e-9);
}

TEST_F(GridLinesTest, AroundThePoleEveryMeridianHasALine) {
    // The pole in the middle of the sheet. Degrees reach around to 360 there, letters only to 180.
    const auto map = MapOf(Map(MAP_UPS, MapUpsParams{'N', 1700000.0, 2300000.0, 1000.0, 1000.0}));
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_GEOREF, KOORD_GEOGRAD, KOORD_GEODEZMIN}) {
        const auto grid = GridOf(system, map, 30.0, 1.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 600, 600));
        const auto lines = EastLinesOf(grid);
        std::set<long long> meridians;
        for (const Line& line : lines)
            meridians.insert((std::llround(ValueOf(Axis::East, line.back())) + 720) % 360);
        EXPECT_EQ(meridians.size(), 12u) << system;
        if (system == KOORD_GEOREF) {
            EXPECT_EQ(lines.size(), 12u) << "each once, -180 to 150";
        }
    }
}

TEST_F(GridLinesTest, GeorefEndsWithItsLettersAt180) {
    const auto map = DegreeMap(170.0, 10.0, 10.0);
    for (const std::int32_t right : {90, 100, 120}) {
        const auto grid = GridOf(KOORD_GEOREF, map, 1.0, 1.0);
        ASSERT_TRUE(SetWindow(grid, 5, 5, right, 55));
        // 170.5 to 179 east: there is no code of 180.
        EXPECT_EQ(EastLinesOf(grid).size(), 9u) << right;
        for (const Line& line : NorthLinesOf(grid))
            EXPECT_NEAR(ValueOf(Axis::East, line.front()), 170.5, 1e-9);
    }
}

// From 179.9 degrees west to 180.2 east, a tenth of a degree more than a turn.
TEST_F(GridLinesTest, AWindowALittleWiderThanATurnHasAllCodesOfGeoref) {
    const auto map = DegreeMap(-179.9, 10.0, 10.0);
    const auto grid = GridOf(KOORD_GEOREF, map, 10.0, 1.0);
    ASSERT_TRUE(SetWindow(grid, 0, 5, 3601, 55));
    const auto lines = NorthLinesOf(grid);
    EXPECT_EQ(lines.size(), 5u) << "5 to 9 degrees north";
    for (const Line& line : lines)
        EXPECT_EQ(ValueOf(Axis::East, line.front()), -180.0) << "where the codes begin";
}

}  // namespace
}  // namespace tessara::testing
