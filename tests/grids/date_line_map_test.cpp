#include "grids/date_line_map.h"

#include <gtest/gtest.h>

#include "support/failing_coord.h"
#include "support/grids.h"
#include "support/host_map.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "tessara/coord.h"

namespace tessara::testing {
namespace {

// 178 to 182 degrees east and 10 to 8 degrees north, a hundredth of a degree a pixel.
constexpr PixelRect WINDOW{0, 0, 400, 200};

class DateLineMap : public BalancedTest {
  protected:
    IRef<IMapCoordOperations> map = MapOverDateLine(DegreeMap(178.0, 10.0, 100.0), WINDOW);

    static IRef<ICoord> Degrees(double latitude, double longitude) {
        return CoordOf(GeodezRecord(latitude, longitude));
    }
    static UtmPayload UtmOf(const IRef<ICoord>& coord) { return Load<UtmPayload>(KoordOf(coord)); }
};

TEST_F(DateLineMap, IsTheMapItselfWhereTheWindowEndsBeforeTheLine) {
    const auto before = DegreeMap(175.0, 10.0, 100.0);
    EXPECT_EQ(MapOverDateLine(before, WINDOW).Get(), before.Get());
    const auto over = DegreeMap(178.0, 10.0, 100.0);
    EXPECT_NE(MapOverDateLine(over, WINDOW).Get(), over.Get());
    // -181 to -173 degrees: of nine columns of samples the first alone lies beyond the line.
    const auto west = DegreeMap(-181.0, 10.0, 100.0);
    EXPECT_NE(MapOverDateLine(west, {0, 0, 800, 200}).Get(), west.Get());
}

TEST_F(DateLineMap, APositionHasThePixelClosestToTheWindow) {
    double x = 0.0;
    double y = 0.0;
    ASSERT_TRUE(map->CoordToFloatPixel(Degrees(9.0, -179.0).Get(), &x, &y));
    EXPECT_NEAR(x, 300.0, 1e-9);
    EXPECT_NEAR(y, 100.0, 1e-9);
    ASSERT_TRUE(map->CoordToFloatPixel(Degrees(9.0, 179.0).Get(), &x, &y));
    EXPECT_NEAR(x, 100.0, 1e-9);
}

// Half a turn from the middle of the window, at 180 degrees.
TEST_F(DateLineMap, APositionHalfATurnAwayStaysOnItsSide) {
    double x = 0.0;
    double y = 0.0;
    for (const double longitude : {5e-8, 0.0, -5e-8}) {
        ASSERT_TRUE(map->CoordToFloatPixel(Degrees(9.0, longitude).Get(), &x, &y));
        EXPECT_NEAR(x, -17800.0, 1e-4) << longitude;
    }
    ASSERT_TRUE(map->CoordToFloatPixel(Degrees(9.0, -2e-7).Get(), &x, &y));
    EXPECT_NEAR(x, 18200.0, 1e-4);
}

TEST_F(DateLineMap, WholePixelsAreRounded) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    ASSERT_TRUE(map->CoordToLongPixel(Degrees(9.0012, -179.0012).Get(), &x, &y));
    EXPECT_EQ(x, 300);
    EXPECT_EQ(y, 100);
}

TEST_F(DateLineMap, APixelBeyondTheLineHasAPositionInTheZoneThere) {
    // 181 degrees is -179: the zone 1.
    const auto coord = CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM));
    ASSERT_TRUE(map->FloatPixelToCoord(300.0, 100.0, coord.Get()));
    EXPECT_EQ(UtmOf(coord).zone, 1);
    const auto whole = CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM));
    ASSERT_TRUE(map->LongPixelToCoord(300, 100, whole.Get()));
    EXPECT_EQ(UtmOf(whole).easting, UtmOf(coord).easting);
    const auto pixel = CoordOf(FloatPixel(300.0, 100.0));
    const auto other = CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM));
    ASSERT_TRUE(map->PixelCoordToCoord(pixel.Get(), other.Get()));
    EXPECT_EQ(UtmOf(other).easting, UtmOf(coord).easting);
}

// Beyond the line, beyond the pole: row -9000 would be at 100 degrees north.
TEST_F(DateLineMap, APixelWithoutAPlaceOnTheEarthHasNoPosition) {
    const auto coord = CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM));
    EXPECT_FALSE(map->FloatPixelToCoord(300.0, -9000.0, coord.Get()));
    EXPECT_FALSE(map->LongPixelToCoord(300, -9000, coord.Get()));
    EXPECT_FALSE(map->PixelCoordToCoord(CoordOf(FloatPixel(300.0, -9000.0)).Get(), coord.Get()));
}

TEST_F(DateLineMap, APositionOnAnUnknownDatumHasNoPixel) {
    double x = 7.0;
    double y = 7.0;
    EXPECT_FALSE(map->CoordToFloatPixel(CoordOf(Nowhere()).Get(), &x, &y));
    EXPECT_EQ(x, 7.0);
    EXPECT_EQ(y, 7.0);
}

TEST_F(DateLineMap, ACoordinateThatGivesUpGetsNoPosition) {
    CallBudget calls;
    ExpectFailureAtEachCall(&calls, [&] {
        const auto coord = MakeFailingCoord(CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM)), &calls);
        return map->FloatPixelToCoord(300.0, 100.0, coord.Get());
    });
}

TEST_F(DateLineMap, AMapThatGivesUpPlacesNothing) {
    auto* const host = NewObject<FailingMap>(DegreeMap(178.0, 10.0, 100.0), 1000000);
    const IRef<IMapCoordOperations> held(host);
    const auto over = MapOverDateLine(held, WINDOW);
    ASSERT_NE(over.Get(), held.Get());
    double x = 0.0;
    double y = 0.0;
    ExpectFailureAtEachCall(host,
                            [&] { return over->CoordToFloatPixel(Degrees(9.0, -179.0).Get(), &x, &y); });
    EXPECT_NEAR(x, 300.0, 1e-9);
    const auto coord = CoordOf(MakeKoord(DATUM_WGS84, KOORD_UTM));
    ExpectFailureAtEachCall(host, [&] { return over->FloatPixelToCoord(300.0, 100.0, coord.Get()); });
    EXPECT_EQ(UtmOf(coord).zone, 1);
}

TEST_F(DateLineMap, NullFails) {
    double x = 0.0;
    double y = 0.0;
    std::int32_t column = 0;
    std::int32_t row = 0;
    const auto coord = Degrees(9.0, 179.0);
    EXPECT_FALSE(map->CoordToFloatPixel(nullptr, &x, &y));
    EXPECT_FALSE(map->CoordToLongPixel(nullptr, &column, &row));
    EXPECT_FALSE(map->FloatPixelToCoord(0.0, 0.0, nullptr));
    EXPECT_FALSE(map->LongPixelToCoord(0, 0, nullptr));
    EXPECT_FALSE(map->PixelCoordToCoord(nullptr, coord.Get()));
    EXPECT_FALSE(map->PixelCoordToCoord(coord.Get(), coord.Get())) << "no pixel";
    EXPECT_FALSE(MapOverDateLine({}, WINDOW).IsValid());
}

TEST_F(DateLineMap, DescribesItselfAsTheMapDoes) {
    EXPECT_FALSE(map->CoordToPixelCoord(Degrees(9.0, 179.0).Get(), CoordOf(FloatPixel(0.0, 0.0)).Get()));
    const auto plain = DegreeMap(178.0, 10.0, 100.0);
    EXPECT_EQ(map->GetScaleDenominator(), plain->GetScaleDenominator());
    EXPECT_EQ(map->GetScale(), plain->GetScale());
    EXPECT_EQ(map->GetResolution(), plain->GetResolution());
    const IRef<IGeoDate> date(CreateClassGeoDate());
    EXPECT_TRUE(map->GetGeoDate(date.Get()));
    EXPECT_EQ(date->GetDatum(), DATUM_WGS84);
    const IRef<IProjection> projection(CreateClassProjection());
    EXPECT_TRUE(map->GetProjection(projection.Get()));
}

}  // namespace
}  // namespace tessara::testing
