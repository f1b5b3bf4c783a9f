#include <gtest/gtest.h>

#include <cmath>

#include "support/maps.h"

namespace tessara::testing::degree_maps_test {
namespace {

constexpr double PIXELS = 1e-9;    // rounding of a few operations on numbers up to 1e5
constexpr double DEGREES = 1e-12;  // the same on degrees

// A relief model of 1200 points a degree with its north-west corner at 47 N, 10 E.
TEST(DdMap, IsLinearInDegrees) {
    const MapParam map = Map(MAP_DD, MapDdParams{10.0, 47.0, 1200.0, 1200.0});
    const WorldResult world = ToWorld(map, 600.0, 300.0);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_NEAR(world.Degrees().latitude, 46.75, DEGREES);
    EXPECT_NEAR(world.Degrees().longitude, 10.5, DEGREES);
    const PixelResult pixel = ToPixel(map, GeodezRecord(46.25, 11.0));
    EXPECT_NEAR(pixel.x, 1200.0, PIXELS);
    EXPECT_NEAR(pixel.y, 900.0, PIXELS);
}

// A world map of 20 by 30 pixels a degree: the axes have a scale of their own.
TEST(DdMap, ScalesTheAxesApart) {
    const MapParam map = Map(MAP_DD, MapDdParams{-180.0, 90.0, 20.0, 30.0});
    const PixelResult pixel = ToPixel(map, GeodezRecord(-33.5, 151.25));
    EXPECT_NEAR(pixel.x, 6625.0, PIXELS);
    EXPECT_NEAR(pixel.y, 3705.0, PIXELS);
    EXPECT_NEAR(ToWorld(map, 6625.0, 3705.0).Degrees().latitude, -33.5, DEGREES);
    EXPECT_NEAR(ToWorld(map, 6625.0, 3705.0).Degrees().longitude, 151.25, DEGREES);
}

TEST(DdMap, PixelZeroIsExactlyTheOrigin) {
    const GeodezPayload at = ToWorld(Map(MAP_DD, MapDdParams{10.1, 47.3, 7.0, 9.0}), 0.0, 0.0).Degrees();
    EXPECT_EQ(at.latitude, 47.3);
    EXPECT_EQ(at.longitude, 10.1);
    EXPECT_EQ(at.height, 0.0);
}

TEST(DdMap, ComesBackToThePixel) {
    const MapParam map = Map(MAP_DD, MapDdParams{-180.0, 90.0, 20.0, 30.0});
    for (double x = 0.0; x <= 7200.0; x += 450.0) {
        for (double y = 0.0; y <= 5400.0; y += 450.0) {
            const PixelResult pixel = ToPixel(map, ToWorld(map, x, y).world);
            EXPECT_NEAR(pixel.x, x, PIXELS);
            EXPECT_NEAR(pixel.y, y, PIXELS);
        }
    }
}

// An arc-second raster of 0.01 by 0.02 degrees in the plain form.
TEST(EqualArcMap, ScalesPixelsToDegreesAwayFromThePoles) {
    for (const std::int16_t zone : std::initializer_list<std::int16_t>{0, 1, 8, 10, 17, 19, -9}) {
        const MapParam map = Map(MAP_EQUALARC, MapEqualArcParams{zone, 48.0, 11.0, 0.01, 0.02});
        const GeodezPayload at = ToWorld(map, 50.0, 25.0).Degrees();
        EXPECT_NEAR(at.latitude, 47.75, DEGREES) << zone;
        EXPECT_NEAR(at.longitude, 12.0, DEGREES) << zone;
        const PixelResult pixel = ToPixel(map, GeodezRecord(47.5, 10.5));
        EXPECT_NEAR(pixel.x, -25.0, PIXELS) << zone;
        EXPECT_NEAR(pixel.y, 50.0, PIXELS) << zone;
        EXPECT_EQ(ToWorld(map, 0.0, 0.0).Degrees().latitude, 48.0);
        EXPECT_EQ(ToWorld(map, 0.0, 0.0).Degrees().longitude, 11.0);
        EXPECT_EQ(at.height, 0.0);
    }
}

struct PolarPlace {
    double x, y, latitude, longitude;
};

void ExpectPlace(const MapParam& map, const PolarPlace& place) {
    const WorldResult world = ToWorld(map, place.x, place.y);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_NEAR(world.Degrees().latitude, place.latitude, 1e-11) << place.x << " " << place.y;
    EXPECT_NEAR(world.Degrees().longitude, place.longitude, 1e-11) << place.x << " " << place.y;
    const PixelResult pixel = ToPixel(map, GeodezRecord(place.latitude, place.longitude));
    EXPECT_NEAR(pixel.x, place.x, PIXELS);
    EXPECT_NEAR(pixel.y, place.y, PIXELS);
}

// 80 N on the meridian of Greenwich at pixel (0, 0), a hundred pixels a degree: the pole lies 1000 rows above
// it, longitude 0 runs downward from there, 90 east to the right.
class NorthPolarMap : public ::testing::Test {
  protected:
    const MapParam map = Map(MAP_EQUALARC, MapEqualArcParams{EQUALARC_NORTH_POLAR, 80.0, 0.0, 0.01, 0.01});
};

TEST_F(NorthPolarMap, ReadsTheQuadrants) {
    const double diagonal = 1000.0 / std::sqrt(2.0);
    const PolarPlace rows[] = {
        {0.0, 0.0, 80.0, 0.0},
        {0.0, -500.0, 85.0, 0.0},
        {0.0, -2000.0, 80.0, 180.0},
        {diagonal, -1000.0 + diagonal, 80.0, 45.0},
        {diagonal, -1000.0 - diagonal, 80.0, 135.0},
        {-diagonal, -1000.0 + diagonal, 80.0, -45.0},
        {-diagonal, -1000.0 - diagonal, 80.0, -135.0},
        {-1000.0, -1000.0, 80.0, -90.0},
    };
    for (const PolarPlace& row : rows)
        ExpectPlace(map, row);
}

TEST_F(NorthPolarMap, ThePoleHasLongitudeZero) {
    const GeodezPayload at = ToWorld(map, 0.0, -1000.0).Degrees();
    EXPECT_EQ(at.latitude, 90.0);
    EXPECT_EQ(at.longitude, 0.0);
}

TEST_F(NorthPolarMap, ExactlyRightOfThePoleTheLongitudeIsZero) {
    const GeodezPayload at = ToWorld(map, 1000.0, -1000.0).Degrees();
    EXPECT_NEAR(at.latitude, 80.0, DEGREES);
    EXPECT_EQ(at.longitude, 0.0);
    // The conversion to the pixel has the right longitude.
    const PixelResult pixel = ToPixel(map, GeodezRecord(80.0, 90.0));
    EXPECT_NEAR(pixel.x, 1000.0, PIXELS);
    EXPECT_NEAR(pixel.y, -1000.0, PIXELS);
}

// 80 S on the meridian of Greenwich at pixel (0, 0): the pole lies 1000 rows below it, longitude 0 runs
// upward.
class SouthPolarMap : public ::testing::Test {
  protected:
    const MapParam map = Map(MAP_EQUALARC, MapEqualArcParams{EQUALARC_SOUTH_POLAR, -80.0, 0.0, 0.01, 0.01});
};

TEST_F(SouthPolarMap, ReadsTheQuadrants) {
    const double diagonal = 1000.0 / std::sqrt(2.0);
    const PolarPlace rows[] = {
        {0.0, 500.0, -85.0, 0.0},
        {0.0, 2000.0, -80.0, -180.0},
        {diagonal, 1000.0 - diagonal, -80.0, 45.0},
        {diagonal, 1000.0 + diagonal, -80.0, 135.0},
        {-diagonal, 1000.0 - diagonal, -80.0, -45.0},
        {-diagonal, 1000.0 + diagonal, -80.0, -135.0},
        {-1000.0, 1000.0, -80.0, -90.0},
    };
    for (const PolarPlace& row : rows)
        ExpectPlace(map, row);
}

TEST_F(SouthPolarMap, TheMeridianOfGreenwichIsMinusZero) {
    const GeodezPayload at = ToWorld(map, 0.0, 0.0).Degrees();
    EXPECT_EQ(at.latitude, -80.0);
    EXPECT_EQ(at.longitude, 0.0);
    EXPECT_TRUE(std::signbit(at.longitude));
}

TEST_F(SouthPolarMap, ExactlyRightOfThePoleTheLongitudeIsZero) {
    EXPECT_EQ(ToWorld(map, 1000.0, 1000.0).Degrees().longitude, 0.0);
}

TEST_F(SouthPolarMap, ThePoleHasNoLongitude) {
    const WorldResult world = ToWorld(map, 0.0, 1000.0);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_EQ(world.Degrees().latitude, -90.0);
    EXPECT_TRUE(std::isnan(world.Degrees().longitude));
    // No grid takes it.
    EXPECT_EQ(ToWorld(map, 0.0, 1000.0, MakeKoord(DATUM_WGS84, KOORD_UTM)).status, KOORD_ERR_EAST_LOW);
}

// lon0 places the origin; it doesn't turn the map.
TEST(PolarMap, TheLongitudeOfOriginMovesTheRasterOnly) {
    const MapParam map = Map(MAP_EQUALARC, MapEqualArcParams{EQUALARC_NORTH_POLAR, 80.0, -90.0, 0.01, 0.01});
    // The pole lies 1000 pixels to the right of the origin.
    const PixelResult pole = ToPixel(map, GeodezRecord(90.0, 12.0));
    EXPECT_NEAR(pole.x, 1000.0, PIXELS);
    EXPECT_NEAR(pole.y, 0.0, PIXELS);
    EXPECT_NEAR(ToWorld(map, 1000.0, 500.0).Degrees().latitude, 85.0, 1e-11);
    EXPECT_NEAR(ToWorld(map, 1000.0, 500.0).Degrees().longitude, 0.0, 1e-9);
}

}  // namespace
}  // namespace tessara::testing::degree_maps_test
