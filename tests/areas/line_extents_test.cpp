#include <gtest/gtest.h>

#include <algorithm>

#include "areas/coordinate_area.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/result_order.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::DegreeMap;
using testing::EAST;
using testing::FloatPixel;
using testing::LineOf;
using testing::MapOf;
using testing::NORTH;
using testing::PixelLine;
using testing::PixelOf;
using testing::SOUTH;
using testing::Utm32;
using testing::WEST;

constexpr std::int32_t ON_BESSEL = 3;

class LineExtentsTest : public testing::BalancedTest {
  protected:
    using OnMap = bool (ICoordinateArea::*)(IMapCoordOperations*, IArray*, ICoord*);
    using Plain = bool (ICoordinateArea::*)(IArray*, ICoord*);
    // In the order of the results.
    static constexpr OnMap ON_MAP[] = {&ICoordinateArea::GetMapLineNorth, &ICoordinateArea::GetMapLineEast,
                                       &ICoordinateArea::GetMapLineSouth, &ICoordinateArea::GetMapLineWest};
    static constexpr Plain PLAIN[] = {&ICoordinateArea::GetLineNorth, &ICoordinateArea::GetLineEast,
                                      &ICoordinateArea::GetLineSouth, &ICoordinateArea::GetLineWest};

    bool Run(Plain operation, IArray* line, ICoord* point) { return (area.Get()->*operation)(line, point); }
    bool Run(OnMap operation, IMapCoordOperations* on, IArray* line, ICoord* point) {
        return (area.Get()->*operation)(on, line, point);
    }

    void Ask(std::int32_t system, std::int32_t datum = DATUM_WGS84) {
        for (IRef<ICoord>& result : results)
            result = EmptyCoord(datum, system);
    }
    bool Extremes(const IRef<IArray>& line) {
        return area->GetLineExtremes(line.Get(), results[NORTH].Get(), results[EAST].Get(),
                                     results[SOUTH].Get(), results[WEST].Get());
    }
    bool ExtremesOnMap(const IRef<IArray>& line) {
        return area->GetMapLineExtremes(map.Get(), line.Get(), results[NORTH].Get(), results[EAST].Get(),
                                        results[SOUTH].Get(), results[WEST].Get());
    }
    GeodezPayload Degrees(int direction) { return PayloadOf<GeodezPayload>(results[direction]); }
    UtmPayload Utm(int direction) { return PayloadOf<UtmPayload>(results[direction]); }
    bool AnyResultHoldsPosition() {
        return std::any_of(std::begin(results), std::end(results),
                           [](const IRef<ICoord>& result) { return HoldsPosition(result); });
    }

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
    IRef<ICoord> results[4];
    // 100 metres a pixel: column (easting - 300000) / 100, row (5800000 - northing) / 100.
    IRef<IMapCoordOperations> map =
        MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 300000.0, 5800000.0, 100.0, 100.0}));
};

TEST_F(LineExtentsTest, AParallelReachesSouthOnTheCentralMeridian) {
    const auto parallel = LineOf({GeodezRecord(48, 7), GeodezRecord(48, 11)});
    for (const bool isOnMap : {false, true}) {
        Ask(KOORD_UTM);
        ASSERT_TRUE(isOnMap ? ExtremesOnMap(parallel) : Extremes(parallel));
        // cs2cs +proj=latlong to +proj=utm +zone=32 of 7 48, 9 48 and 11 48; metres
        EXPECT_NEAR(Utm(NORTH).northing, 5318235.614, 1e-3);
        EXPECT_NEAR(Utm(SOUTH).northing, 5316300.224, 1e-3);
        EXPECT_NEAR(Utm(WEST).easting, 350812.125, 1e-3);
        EXPECT_NEAR(Utm(EAST).easting, 649187.875, 1e-3);
    }
}

TEST_F(LineExtentsTest, OnlyTheAxisOfTheDirectionMoves) {
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(LineOf({GeodezRecord(48, 7, 100.0), GeodezRecord(49, 9), GeodezRecord(46, 5)})));
    EXPECT_EQ(Degrees(NORTH).latitude, 49.0);
    EXPECT_EQ(Degrees(NORTH).longitude, 7.0) << "of the first point";
    EXPECT_EQ(Degrees(SOUTH).latitude, 46.0);
    EXPECT_EQ(Degrees(SOUTH).longitude, 7.0);
    EXPECT_EQ(Degrees(EAST).longitude, 9.0);
    EXPECT_EQ(Degrees(EAST).latitude, 48.0);
    EXPECT_EQ(Degrees(WEST).longitude, 5.0);
    EXPECT_EQ(Degrees(WEST).latitude, 48.0);
    for (const IRef<ICoord>& result : results)
        EXPECT_EQ(result->GetHeight(), 100.0);
}

TEST_F(LineExtentsTest, ALineOfOnePointIsItsOwnExtreme) {
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(LineOf({GeodezRecord(48, 9)})));
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(Utm(i).easting, 500000.0, 1e-3);
        EXPECT_NEAR(Utm(i).northing, 5316300.224, 1e-3);  // cs2cs, as above
    }
}

TEST_F(LineExtentsTest, EachDirectionAloneIsTheSame) {
    const auto line = LineOf({GeodezRecord(48, 7), GeodezRecord(48.5, 11), GeodezRecord(47, 8)});
    Ask(KOORD_UTM);
    ASSERT_TRUE(Extremes(line));
    for (int i = 0; i < 4; ++i) {
        const IRef<ICoord> plain = EmptyCoord(2, KOORD_UTM);
        const IRef<ICoord> onMap = EmptyCoord(2, KOORD_UTM);
        ASSERT_TRUE(Run(PLAIN[i], line.Get(), plain.Get()));
        ASSERT_TRUE(Run(ON_MAP[i], map.Get(), line.Get(), onMap.Get()));
        for (const IRef<ICoord>& single : {plain, onMap}) {
            EXPECT_EQ(PayloadOf<UtmPayload>(single).northing, Utm(i).northing);
            EXPECT_EQ(PayloadOf<UtmPayload>(single).easting, Utm(i).easting);
        }
    }
}

TEST_F(LineExtentsTest, AnEdgeOfPixelsIsStraightOnTheMap) {
    // The top edge of the map, northing 5800000, from easting 300000 to 700000.
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(ExtremesOnMap(PixelLine({{0, 0}, {4000, 0}})));
    // cs2cs +proj=utm +zone=32 to +proj=latlong of 500000, 300000 and 700000 5800000; degrees, 0.1 mm
    EXPECT_NEAR(Degrees(NORTH).latitude, 52.3502933489, 1e-9);
    EXPECT_NEAR(Degrees(SOUTH).latitude, 52.3138436641, 1e-9);
    EXPECT_NEAR(Degrees(WEST).longitude, 6.0658101132, 1e-9);
    EXPECT_NEAR(Degrees(EAST).longitude, 11.9341898868, 1e-9);
}

TEST_F(LineExtentsTest, PixelsInPixelsAreTheirNumbers) {
    Ask(KOORD_FLOATPIXEL);
    ASSERT_TRUE(ExtremesOnMap(PixelLine({{3, 4}, {10, -7}, {-2, 30}})));
    EXPECT_EQ(PixelOf(results[NORTH]).y, -7.0);
    EXPECT_EQ(PixelOf(results[SOUTH]).y, 30.0);
    EXPECT_EQ(PixelOf(results[EAST]).x, 10.0);
    EXPECT_EQ(PixelOf(results[WEST]).x, -2.0);
}

TEST_F(LineExtentsTest, WorldEdgesHaveNoExtentInPixels) {
    Ask(KOORD_FLOATPIXEL);
    EXPECT_FALSE(ExtremesOnMap(LineOf({Utm32(400000.0, 5700000.0), Utm32(500000.0, 5600000.0)})));
    EXPECT_NEAR(PixelOf(results[NORTH]).x, 1000.0, 1e-6) << "the first point";
    Ask(KOORD_LONGPIXEL, ON_BESSEL);
    EXPECT_TRUE(ExtremesOnMap(LineOf({Utm32(400000.0, 5700000.0)})));
    EXPECT_EQ(PixelOf(results[EAST]).x, 1000.0);
    EXPECT_EQ(PixelOf(results[EAST]).y, 1000.0);
    EXPECT_EQ(KoordOf(results[EAST]).datum, 2u) << "the map's";
}

TEST_F(LineExtentsTest, WithoutAMapEdgesOfPixelsHaveNoExtent) {
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_FLOATPIXEL}) {
        Ask(system);
        EXPECT_FALSE(Extremes(PixelLine({{3, 4}, {10, -7}})));
    }
}

TEST_F(LineExtentsTest, AnEmptyLineHasNone) {
    const auto nothing = LineOf({});
    Ask(KOORD_UTM);
    EXPECT_FALSE(Extremes(nothing));
    EXPECT_FALSE(ExtremesOnMap(nothing));
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(Run(PLAIN[i], nothing.Get(), results[i].Get()));
        EXPECT_FALSE(Run(ON_MAP[i], map.Get(), nothing.Get(), results[i].Get()));
    }
    EXPECT_FALSE(AnyResultHoldsPosition());
}

TEST_F(LineExtentsTest, NeighboursMustShareTheirReference) {
    for (const tagKOORD& other : {GeodezRecord(49, 8, 0.0, ON_BESSEL), Utm32(5e5, 5.4e6)}) {
        const auto line = LineOf({GeodezRecord(48, 7), GeodezRecord(48.5, 7.5), other});
        Ask(KOORD_GEODEZ);
        EXPECT_FALSE(Extremes(line));
        EXPECT_FALSE(ExtremesOnMap(line));
        EXPECT_EQ(Degrees(NORTH).latitude, 48.5) << "what was reached before";
    }
}

TEST_F(LineExtentsTest, TheLineMayBeOfAnotherDatum) {
    Ask(KOORD_GEODEZ);
    ASSERT_TRUE(Extremes(LineOf({GeodezRecord(48, 7, 0.0, ON_BESSEL), GeodezRecord(47, 9, 0.0, ON_BESSEL)})));
    EXPECT_NEAR(Degrees(NORTH).latitude, 48.0, 2e-3);  // degrees: a datum shift of 100 m
    EXPECT_NEAR(Degrees(EAST).longitude, 9.0, 2e-3);
    EXPECT_NE(Degrees(NORTH).latitude, 48.0);
}

TEST_F(LineExtentsTest, ResultsMustShareTheirReference) {
    const auto line = LineOf({GeodezRecord(48, 7), GeodezRecord(47, 9)});
    for (int odd = 0; odd < 4; ++odd) {
        for (const IRef<ICoord>& other : {EmptyCoord(3, KOORD_UTM), EmptyCoord(2, KOORD_GK)}) {
            Ask(KOORD_UTM);
            results[odd] = other;
            EXPECT_FALSE(Extremes(line));
            EXPECT_FALSE(ExtremesOnMap(line));
            EXPECT_FALSE(AnyResultHoldsPosition());
        }
    }
}

TEST_F(LineExtentsTest, PositionsThatDontConvertFail) {
    Ask(KOORD_CH, 7);
    EXPECT_FALSE(Extremes(LineOf({GeodezRecord(-80, 100)})));
    EXPECT_FALSE(AnyResultHoldsPosition());
    Ask(KOORD_UTM);
    EXPECT_FALSE(Extremes(LineOf({GeodezRecord(48, 9), GeodezRecord(500, 9)})));
    const auto gap = LineOf({GeodezRecord(48, 9)});
    gap->Add(nullptr);
    EXPECT_FALSE(Extremes(gap));
    EXPECT_FALSE(ExtremesOnMap(gap));
}

TEST_F(LineExtentsTest, NullAndForeignObjectsFail) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const auto line = LineOf({GeodezRecord(48, 7), GeodezRecord(47, 9)});
    Ask(KOORD_UTM);
    ICoord* const point = results[0].Get();
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const mapIn = reinterpret_cast<IMapCoordOperations*>(other);
        auto* const lineIn = reinterpret_cast<IArray*>(other);
        auto* const pointIn = reinterpret_cast<ICoord*>(other);
        for (int i = 0; i < 4; ++i) {
            EXPECT_FALSE(Run(PLAIN[i], lineIn, point));
            EXPECT_FALSE(Run(PLAIN[i], line.Get(), pointIn));
            EXPECT_FALSE(Run(ON_MAP[i], mapIn, line.Get(), point));
            EXPECT_FALSE(Run(ON_MAP[i], map.Get(), lineIn, point));
            EXPECT_FALSE(Run(ON_MAP[i], map.Get(), line.Get(), pointIn));
            ICoord* four[] = {results[0].Get(), results[1].Get(), results[2].Get(), results[3].Get()};
            four[i] = pointIn;
            EXPECT_FALSE(area->GetLineExtremes(line.Get(), four[0], four[1], four[2], four[3]));
            EXPECT_FALSE(area->GetMapLineExtremes(map.Get(), line.Get(), four[0], four[1], four[2], four[3]));
        }
        EXPECT_FALSE(area->GetLineExtremes(lineIn, point, point, point, point));
        EXPECT_FALSE(area->GetMapLineExtremes(mapIn, line.Get(), point, point, point, point));
    }
    EXPECT_FALSE(AnyResultHoldsPosition());
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(line), 1u);
    EXPECT_EQ(CountOf(map), 1u);
}

TEST_F(LineExtentsTest, AnEmptyMapHasNoPositions) {
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    Ask(KOORD_GEODEZ);
    EXPECT_FALSE(ExtremesOnMap(PixelLine({{0, 0}, {4000, 0}})));
    EXPECT_TRUE(ExtremesOnMap(LineOf({GeodezRecord(48, 7), GeodezRecord(47, 9)}))) << "needs none";
}

}  // namespace
}  // namespace tessara
