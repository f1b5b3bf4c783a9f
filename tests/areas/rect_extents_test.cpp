#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "areas/compare_records.h"
#include "areas/coordinate_area.h"
#include "objects/axis.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/random.h"
#include "support/sheets.h"
#include "tessara/coordinate_checker.h"
#include "tessara/host/rect.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::DegreeMap;
using testing::MapOf;
using testing::Pixel;
using testing::PixelOf;
using testing::Random;

enum { NORTH, EAST, SOUTH, WEST };

IRef<IRect> RectOf(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return IRef<IRect>(NewObject<host::Rect>(left, top, right, bottom));
}

class RectExtentsTest : public testing::BalancedTest {
  protected:
    using Operation = bool (ICoordinateArea::*)(IMapCoordOperations*, IRect*, ICoord*);
    // In the order of the results.
    static constexpr Operation SINGLE[] = {
        &ICoordinateArea::GetMapRectNorth, &ICoordinateArea::GetMapRectEast,
        &ICoordinateArea::GetMapRectSouth, &ICoordinateArea::GetMapRectWest};

    bool Run(Operation operation, IMapCoordOperations* on, IRect* rect, ICoord* point) {
        return (area.Get()->*operation)(on, rect, point);
    }

    void Ask(std::int32_t system, std::int32_t datum = DATUM_WGS84) {
        for (IRef<ICoord>& result : results)
            result = EmptyCoord(datum, system);
    }
    bool Extremes(const IRef<IRect>& rect) {
        return area->GetMapRectExtremes(map.Get(), rect.Get(), results[NORTH].Get(), results[EAST].Get(),
                                        results[SOUTH].Get(), results[WEST].Get());
    }
    bool Extremes(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        return Extremes(RectOf(left, top, right, bottom));
    }
    UtmPayload Utm(int direction) { return PayloadOf<UtmPayload>(results[direction]); }
    GeodezPayload Degrees(int direction) { return PayloadOf<GeodezPayload>(results[direction]); }
    bool AnyResultHoldsPosition() {
        return std::any_of(std::begin(results), std::end(results),
                           [](const IRef<ICoord>& result) { return HoldsPosition(result); });
    }

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ICoord> results[4];
    IRef<IMapCoordOperations> map = DegreeMap(9.0, 50.0, 100.0);
};

// Ten metres a pixel, zone 32, over the border to zone 33 at 12 degrees east.
TEST_F(RectExtentsTest, AWindowOverAZoneBorderReachesIntoBothZones) {
    map = MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0}));
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 5000, 5000));
    // The top edge's northing, within zone 32: eastings from the left edge to the border.
    EXPECT_NEAR(Utm(NORTH).northing, 5365000.0, 1e-3);
    EXPECT_EQ(Utm(NORTH).zone, 32);
    EXPECT_GE(Utm(NORTH).easting, 695000.0 - 1e-3);
    // cs2cs from +proj=utm +zone=32 to +zone=33 of the corners 745000 5365000 and 745000 5315000; metres
    EXPECT_EQ(Utm(EAST).zone, 33);
    EXPECT_NEAR(Utm(EAST).easting, 300839.832, 2e-3);
    EXPECT_EQ(Utm(SOUTH).zone, 33);
    EXPECT_NEAR(Utm(SOUTH).northing, 5313367.995, 2e-3);
    EXPECT_NEAR(Utm(SOUTH).easting, 296941.865, 2e-3);
    EXPECT_EQ(Utm(WEST).zone, 32);
    EXPECT_NEAR(Utm(WEST).easting, 695000.0, 1e-3);
}

TEST_F(RectExtentsTest, TheRimReachesFurtherThanTheCorners) {
    // Degrees 9..15 east and 48..50 north, 100 pixels a degree. The northing of 50 north is greatest at the
    // border of the zones, in the middle of the top edge, that of 48 least at the central meridians, its
    // ends.
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    // cs2cs +proj=latlong to +proj=utm of 12 50 and of 9 48; metres
    EXPECT_NEAR(Utm(NORTH).northing, 5542944.019, 0.01);
    EXPECT_NEAR(Utm(SOUTH).northing, 5316300.224, 0.01);
    EXPECT_EQ(Utm(WEST).zone, 32);
    EXPECT_NEAR(Utm(WEST).easting, 500000.0, 0.01);
    EXPECT_EQ(Utm(EAST).zone, 33);
    EXPECT_NEAR(Utm(EAST).easting, 500000.0, 0.01);
}

TEST_F(RectExtentsTest, OnAConeTheTopMiddleReachesFurthestNorth) {
    // Fifty metres a pixel.
    map = MapOf(
        testing::WithReference(testing::Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.333333333333334}),
                               GeodezRecord(47.5, 13.333333333333334), 4000, 3000, 500000, 10.0));
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(0, 0, 8000, 6000));
    // cs2cs from +proj=lcc +lat_1=46 +lat_2=49 +lat_0=47.5 +lon_0=13.333333333333334 to +proj=latlong of the
    // middle of the top edge (0, 150000) and of the corners; degrees, a tenth of a pixel
    EXPECT_NEAR(Degrees(NORTH).latitude, 48.84933499, 5e-5);
    EXPECT_NEAR(Degrees(NORTH).longitude, 13.33333333, 1e-3);
    EXPECT_NEAR(Degrees(SOUTH).latitude, 46.12037886, 1e-6);
    EXPECT_NEAR(Degrees(EAST).longitude, 16.05747961, 1e-6);
    EXPECT_NEAR(Degrees(WEST).longitude, 10.60918705, 1e-6);
}

TEST_F(RectExtentsTest, SidesMayBeSwapped) {
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    const UtmPayload north = Utm(NORTH), west = Utm(WEST);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(600, 200, 0, 0));
    EXPECT_EQ(Utm(NORTH).northing, north.northing);
    EXPECT_EQ(Utm(WEST).easting, west.easting);
}

TEST_F(RectExtentsTest, EachDirectionAloneIsTheSame) {
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 600, 200));
    for (int i = 0; i < 4; ++i) {
        const IRef<ICoord> point = EmptyCoord(2, KOORD_UTM);
        ASSERT_TRUE(Run(SINGLE[i], map.Get(), RectOf(0, 0, 600, 200).Get(), point.Get()));
        EXPECT_EQ(PayloadOf<UtmPayload>(point).northing, Utm(i).northing);
        EXPECT_EQ(PayloadOf<UtmPayload>(point).easting, Utm(i).easting);
        EXPECT_EQ(PayloadOf<UtmPayload>(point).zone, Utm(i).zone);
    }
}

TEST_F(RectExtentsTest, ThePlainRectangleIsTheSame) {
    const IRef<ICoordinateAreaInternal> inner(area);
    const PixelRect rect{600, 200, 0, 0};
    Ask(KOORD_GEODEZ);
    ICoord* const point = results[0].Get();
    ASSERT_TRUE(inner->GetRectExtremes(map.Get(), &rect, results[NORTH].Get(), results[EAST].Get(),
                                       results[SOUTH].Get(), results[WEST].Get()));
    EXPECT_NEAR(Degrees(NORTH).latitude, 50.0, 1e-12);
    EXPECT_NEAR(Degrees(EAST).longitude, 15.0, 1e-12);
    EXPECT_NEAR(Degrees(SOUTH).latitude, 48.0, 1e-12);
    EXPECT_NEAR(Degrees(WEST).longitude, 9.0, 1e-12);
    EXPECT_FALSE(inner->GetRectExtremes(map.Get(), nullptr, point, point, point, point));
}

TEST_F(RectExtentsTest, PixelsAreTheCorners) {
    for (const std::int32_t system : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        Ask(system, 3);
        ASSERT_TRUE(Extremes(600, 10, -20, 200));
        EXPECT_EQ(PixelOf(results[NORTH]).x, -20.0);
        EXPECT_EQ(PixelOf(results[NORTH]).y, 10.0);
        EXPECT_EQ(PixelOf(results[EAST]).x, 600.0);
        EXPECT_EQ(PixelOf(results[EAST]).y, 10.0);
        EXPECT_EQ(PixelOf(results[SOUTH]).x, 600.0);
        EXPECT_EQ(PixelOf(results[SOUTH]).y, 200.0);
        EXPECT_EQ(PixelOf(results[WEST]).x, -20.0);
        EXPECT_EQ(PixelOf(results[WEST]).y, 10.0);
        EXPECT_EQ(KoordOf(results[WEST]).datum, 3u);
    }
}

TEST_F(RectExtentsTest, ALimitOfTheSystemInTheWindowIsItsExtreme) {
    // All of the earth and more, ten pixels a degree.
    map = DegreeMap(-200.0, 100.0, 10.0);
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(0, 0, 4000, 2000));
    EXPECT_EQ(Degrees(NORTH).latitude, 90.0);
    EXPECT_EQ(Degrees(SOUTH).latitude, -90.0);
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(0, 0, 4000, 2000));
    // The northing of 84 north and 80 south on a central meridian, scale 0.9996.
    // cs2cs +proj=latlong to +proj=utm of 3 84 (zone 31) and, south, of 3 -80; metres
    EXPECT_NEAR(Utm(NORTH).northing, 9328093.831, 0.01);
    EXPECT_EQ(Utm(NORTH).hemisphere, 'N');
    EXPECT_NEAR(Utm(SOUTH).northing, 1118414.184, 0.01);
    EXPECT_EQ(Utm(SOUTH).hemisphere, 'S');
    EXPECT_EQ(Utm(EAST).zone, 60);
    EXPECT_EQ(Utm(WEST).zone, 1);
}

TEST_F(RectExtentsTest, CornersOffTheSystemMoveInward) {
    // CH ends 600 km from its origin; a degree map of Europe has all corners outside.
    map = DegreeMap(-10.0, 60.0, 10.0);
    Ask(KOORD_CH, 7);
    ASSERT_TRUE(Extremes(0, 0, 400, 250));
    for (const IRef<ICoord>& result : results) {
        double x = 0.0, y = 0.0;
        ASSERT_TRUE(map->CoordToFloatPixel(result.Get(), &x, &y));
        EXPECT_GE(x, 0.0);
        EXPECT_LE(x, 400.0);
        EXPECT_GE(y, 0.0);
        EXPECT_LE(y, 250.0);
    }
    EXPECT_GT(PayloadOf<GridPayload>(results[NORTH]).northing,
              PayloadOf<GridPayload>(results[SOUTH]).northing);
    EXPECT_GT(PayloadOf<GridPayload>(results[EAST]).easting, PayloadOf<GridPayload>(results[WEST]).easting);
}

TEST_F(RectExtentsTest, NothingValidHasNoExtremes) {
    Ask(KOORD_UTM);
    map = DegreeMap(0.0, 89.0, 100.0);
    EXPECT_FALSE(Extremes(0, 0, 200, 100)) << "north of UTM";
    for (const std::int32_t system : {KOORD_ECEF, KOORD_TM}) {
        Ask(system);
        map = DegreeMap(9.0, 50.0, 100.0);
        EXPECT_FALSE(Extremes(0, 0, 600, 200));
    }
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    Ask(KOORD_GEODEZ);
    EXPECT_FALSE(Extremes(0, 0, 600, 200)) << "an empty map";
    EXPECT_FALSE(AnyResultHoldsPosition());
}

TEST_F(RectExtentsTest, ResultsMustShareTheirReference) {
    for (int odd = 0; odd < 4; ++odd) {
        for (const IRef<ICoord>& other : {EmptyCoord(3, KOORD_UTM), EmptyCoord(2, KOORD_GK)}) {
            Ask(KOORD_UTM);
            results[odd] = other;
            EXPECT_FALSE(Extremes(0, 0, 600, 200));
            EXPECT_FALSE(AnyResultHoldsPosition());
        }
    }
}

TEST_F(RectExtentsTest, NullAndForeignObjectsFail) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<IRect> rect = RectOf(0, 0, 600, 200);
    Ask(KOORD_UTM);
    ICoord* const point = results[0].Get();
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const mapIn = reinterpret_cast<IMapCoordOperations*>(other);
        auto* const rectIn = reinterpret_cast<IRect*>(other);
        auto* const pointIn = reinterpret_cast<ICoord*>(other);
        for (int i = 0; i < 4; ++i) {
            EXPECT_FALSE(Run(SINGLE[i], mapIn, rect.Get(), point));
            EXPECT_FALSE(Run(SINGLE[i], map.Get(), rectIn, point));
            EXPECT_FALSE(Run(SINGLE[i], map.Get(), rect.Get(), pointIn));
            ICoord* four[] = {results[0].Get(), results[1].Get(), results[2].Get(), results[3].Get()};
            four[i] = pointIn;
            EXPECT_FALSE(area->GetMapRectExtremes(map.Get(), rect.Get(), four[0], four[1], four[2], four[3]));
        }
        EXPECT_FALSE(area->GetMapRectExtremes(mapIn, rect.Get(), point, point, point, point));
        EXPECT_FALSE(area->GetMapRectExtremes(map.Get(), rectIn, point, point, point, point));
    }
    EXPECT_FALSE(AnyResultHoldsPosition());
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(rect), 1u);
    EXPECT_EQ(CountOf(map), 1u);
}

TEST_F(RectExtentsTest, RectanglesOfAllTheNumbersEnd) {
    constexpr std::int32_t LOW = INT32_MIN, HIGH = INT32_MAX;
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_UTM, KOORD_FLOATPIXEL, KOORD_CH}) {
        for (const auto& rect : {RectOf(LOW, LOW, HIGH, HIGH), RectOf(HIGH, HIGH, HIGH, HIGH),
                                 RectOf(LOW, LOW, LOW, LOW), RectOf(300, LOW, 301, HIGH)}) {
            Ask(system);
            Extremes(rect);
        }
    }
}

TEST_F(RectExtentsTest, AWindowOfOnePixelIsThatPixel) {
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(100, 100, 100, 100));
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(Degrees(i).latitude, 49.0, 1e-12);
        EXPECT_NEAR(Degrees(i).longitude, 10.0, 1e-12);
    }
}

// Windows of many sheets in every system, compared with a dense sample of their pixels.
class RectExtentsSampleTest : public RectExtentsTest {
  protected:
    // A valid position of a pixel in the system asked; false if there is none.
    bool PositionOf(double x, double y, CKoord* koord) {
        if (!map->FloatPixelToCoord(x, y, probe.Get())) return false;
        if (!checker->CheckInSystemArea(probe.Get())) return false;
        *koord = KoordOf(probe);
        return true;
    }

    bool IsBeyond(int direction, const CKoord& koord) {
        const auto compass = static_cast<Compass>(direction);
        const std::int32_t outward = SignOf(compass) > 0.0 ? 1 : -1;
        return Compare_Records(AxisOf(compass), koord, KoordOf(results[direction])) == outward;
    }

    // Whether also all pixels around lie further out than the extreme, which then falls short by more than
    // one pixel's worth.
    bool AreNeighboursBeyond(int direction, double x, double y) {
        const Pixel neighbours[] = {{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}};
        return std::all_of(std::begin(neighbours), std::end(neighbours), [&](const Pixel& pixel) {
            CKoord koord;
            return PositionOf(pixel.x, pixel.y, &koord) && IsBeyond(direction, koord);
        });
    }

    void ExpectInside(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        for (int direction = 0; direction < COMPASS_COUNT; ++direction) {
            const Pixel at = testing::PixelOn(map, KoordOf(results[direction]));
            // Pixels: a limit of the system counts as inside by its rounded pixel.
            EXPECT_TRUE(at.x >= left - 0.51 && at.x <= right + 0.51 && at.y >= top - 0.51 &&
                        at.y <= bottom + 0.51)
                << window << ", " << direction << ": " << at.x << ' ' << at.y;
        }
    }

    void ExpectNothingBeyond(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        for (int i = 0; i <= STEPS; ++i) {
            for (int j = 0; j <= STEPS; ++j) {
                const double x = left + (right - left) * (static_cast<double>(i) / STEPS);
                const double y = top + (bottom - top) * (static_cast<double>(j) / STEPS);
                CKoord koord;
                if (!PositionOf(x, y, &koord)) continue;
                for (int direction = 0; direction < COMPASS_COUNT; ++direction) {
                    EXPECT_FALSE(IsBeyond(direction, koord) && AreNeighboursBeyond(direction, x, y))
                        << window << ", " << direction << " at " << x << ' ' << y;
                }
            }
        }
    }

    // Whether one of nine places has a position: a window without any takes a long search.
    bool SeemsValid(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
        CKoord koord;
        for (const double x : {left * 1.0, (left + right) / 2.0, right * 1.0}) {
            for (const double y : {top * 1.0, (top + bottom) / 2.0, bottom * 1.0}) {
                if (PositionOf(x, y, &koord)) return true;
            }
        }
        return false;
    }

    static constexpr int STEPS = 12;
    std::string window;  // for messages
    IRef<ICoord> probe;
    IRef<ICoordinateChecker> checker{CreateClassCoordinateChecker()};
};

TEST_F(RectExtentsSampleTest, NoPixelLiesBeyondAndTheExtremesLieInTheWindow) {
    Random random(41);
    int windows = 0;
    for (const testing::Sheet& sheet : testing::AllSheets()) {
        map = MapOf(sheet.map);
        for (std::int32_t system = KOORD_UTM; system <= KOORD_LUREF; ++system) {
            const std::int32_t left = random.Below(sheet.width * 3 / 4);
            const std::int32_t top = random.Below(sheet.height * 3 / 4);
            const std::int32_t right = left + 20 + random.Below(sheet.width / 4);
            const std::int32_t bottom = top + 20 + random.Below(sheet.height / 4);
            const auto datum = static_cast<std::int32_t>(sheet.map.datum);
            Ask(system, datum);
            probe = EmptyCoord(datum, system);
            if (!SeemsValid(left, top, right, bottom)) continue;
            window = sheet.name + " in " + std::to_string(system) + ": " + std::to_string(left) + ' ' +
                     std::to_string(top) + ' ' + std::to_string(right) + ' ' + std::to_string(bottom);
            ASSERT_TRUE(Extremes(left, top, right, bottom)) << window;
            ++windows;
            // GEOREF has whole hundredths of a minute, 18 m: some pixels.
            if (system != KOORD_GEOREF) ExpectInside(left, top, right, bottom);
            ExpectNothingBeyond(left, top, right, bottom);
        }
    }
    EXPECT_GT(windows, 200);
}

}  // namespace
}  // namespace tessara
