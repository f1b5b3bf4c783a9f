#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "numerics/special_values.h"
#include "support/maps.h"
#include "support/random.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/map_types.h"

namespace tessara::testing::mercator_maps_test {
namespace {

constexpr double PIXELS = 1e-6;               // figures rounded to 1e-6 m, 10 metres a pixel and more
constexpr double SEARCH = 1e-9 * 57.2957795;  // degrees: the search for the latitude ends at 1e-9 radians

MapParam MercatorMap(double standardParallel) {
    return WithReference(Map(MAP_MERCATOR, MapMercatorParams{standardParallel, {}}),
                         GeodezRecord(standardParallel, 10.0), 1000, 2000, 100000, 10.0);
}

// The plane of +proj=merc +lat_ts=54 +ellps=WGS84 (cs2cs): longitude 10, latitude 54 is the reference.
constexpr double REFERENCE_EASTING = 655757.737541;
constexpr double REFERENCE_NORTHING = 4203397.205662;

double RowAt(double northing) {
    return 2000.0 - (northing - REFERENCE_NORTHING) / 10.0;
}

TEST(MercatorMap, APositionLiesOnItsPixel) {
    const PixelResult pixel = ToPixel(MercatorMap(54.0), GeodezRecord(55.0, 11.0));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.x, 1000.0 + (721333.511295 - REFERENCE_EASTING) / 10.0, PIXELS);
    EXPECT_NEAR(pixel.y, RowAt(4316073.033672), PIXELS);
}

TEST(MercatorMap, TheRowOfTheReferenceHasExactlyItsLatitude) {
    const GeodezPayload at = ToWorld(MercatorMap(54.0), 3000.0, 2000.0).Degrees();
    EXPECT_EQ(at.latitude, 54.0);
    EXPECT_EQ(ToPixel(MercatorMap(54.0), GeodezRecord(54.0, 123.0)).y, 2000.0);
}

// Beyond 89.91 degrees a latitude is taken times 0.999; 90 gives 89.91 and 89.95 gives 89.86005.
TEST(MercatorMap, APositionCloseToAPoleIsBroughtOffIt) {
    const MapParam map = MercatorMap(54.0);
    const double row = ToPixel(map, GeodezRecord(89.91, 10.0)).y;
    EXPECT_NEAR(ToPixel(map, GeodezRecord(90.0, 10.0)).y, row, 1e-3);  // a row is 1e-7 degrees up there
    EXPECT_NEAR(ToPixel(map, GeodezRecord(89.95, 10.0)).y, RowAt(25177603.006843), 1e-3);
    const MapParam equator = MercatorMap(0.0);
    EXPECT_NEAR(ToPixel(equator, GeodezRecord(-90.0, 10.0)).y,
                4000.0 - ToPixel(equator, GeodezRecord(90.0, 10.0)).y, 1e-6);
}

TEST(MercatorMap, APositionIsBroughtOffThePoleFrom89Point91Degrees) {
    const MapParam map = MercatorMap(54.0);
    for (double side : {1.0, -1.0}) {
        const auto row = [&](double latitude) { return ToPixel(map, GeodezRecord(side * latitude, 10.0)).y; };
        EXPECT_NEAR(row(89.910001), row(89.910001 * 0.999), 1e-3);  // a row is 1e-7 degrees up there
        // Just below it keeps its place, which lies beyond 89.9 degrees.
        EXPECT_LT(side * row(89.909999), side * row(89.9));
    }
}

TEST(MercatorMap, TheRowOfAReferenceCloseToAPoleIsNotBroughtOffIt) {
    const MapParam map =
        WithReference(MercatorMap(54.0), GeodezRecord(89.95, 10.0), 1000, 2000, 100000, 10.0);
    EXPECT_EQ(ToPixel(map, GeodezRecord(89.95, 11.0)).y, 2000.0);
    EXPECT_GT(ToPixel(map, GeodezRecord(89.96, 11.0)).y, 2000.0);  // 89.87004 degrees
}

TEST(MercatorMap, ALatitudeBeyondThePoleIsFoldedBack) {
    const MapParam map = MercatorMap(54.0);
    // Pixels: 180 - 100 degrees, rounded.
    EXPECT_NEAR(ToPixel(map, GeodezRecord(100.0, 10.0)).y, ToPixel(map, GeodezRecord(80.0, 10.0)).y, 1e-6);
}

TEST(MercatorMap, PixelsFarNorthAndSouthEndAtTheLastRow) {
    const MapParam map = WithReference(Map(MAP_MERCATOR, MapMercatorParams{0.0, {}}), GeodezRecord(0.0, 0.0),
                                       0, 0, 10000000, 1.0);
    EXPECT_EQ(ToWorld(map, 0.0, -100000.0).Degrees().latitude, 1.570639247162217 * 57.29577951308232);
    EXPECT_EQ(ToWorld(map, 0.0, 100000.0).Degrees().latitude, -1.570639247162217 * 57.29577951308232);
}

// cs2cs ... +proj=merc +lat_ts=N +ellps=WGS84, on the standard parallel at 10 degrees, and 0.2 degrees north
// and 0.3 degrees east of there.
TEST(MercatorMap, FindsTheLatitudeAlsoWhereItsStepsDoNotConverge) {
    const struct {
        double parallel, east, north;
    } rows[] = {{59.9, 576473.644198 - 559683.149707, 4215721.891825 - 4193372.142636},
                {60.05, 573872.536513 - 557157.802440, 4213475.901713 - 4191125.231598},
                {62.0, 539701.925210 - 523982.451660, 4174597.859423 - 4152234.995814},
                {65.0, 485907.969914 - 471755.310596, 4077836.960094 - 4055454.311568}};
    for (const auto& row : rows) {
        const MapParam map = MercatorMap(row.parallel);
        const double x = 1000.0 + row.east / 10.0;
        const double y = 2000.0 - row.north / 10.0;
        EXPECT_NEAR(ToWorld(map, x, y).Degrees().latitude, row.parallel + 0.2, SEARCH) << row.parallel;
        EXPECT_NEAR(ToWorld(map, x, y).Degrees().longitude, 10.3, 1e-9) << row.parallel;
        const PixelResult pixel = ToPixel(map, GeodezRecord(row.parallel + 0.2, 10.3));
        EXPECT_NEAR(pixel.x, x, PIXELS) << row.parallel;
        EXPECT_NEAR(pixel.y, y, PIXELS) << row.parallel;
    }
}

// The row's latitude by steps without any other end than theirs: the latitude in radians, if they have ended
// after 10000 of them.
std::optional<double> StepToLatitude(double standardParallel, double south) {
    const double a = 6378137.0;
    const double e2 = (2.0 - 1.0 / 298.257223563) / 298.257223563;
    const double e = std::sqrt(e2);
    const double limit = 1.570639247162217;
    const auto normal = [&](double phi) { return a / std::sqrt(1.0 - e2 * std::pow(std::sin(phi), 2)); };
    const double phi0 = standardParallel / 57.29577951308232;
    const double radius = std::cos(phi0) * normal(phi0);
    const auto northing = [&](double phi) {
        return radius * (std::asinh(std::tan(phi)) - e * std::atanh(e * std::sin(phi)));
    };
    double phi = phi0;
    for (int i = 0; i < 10000; ++i) {
        const double distance = south + northing(phi) - northing(phi0);
        const double step = distance * std::cos(phi) * normal(phi) / (radius * radius);
        phi = std::clamp(phi - step, -limit, limit);
        if (std::fabs(step) <= 1e-9 || (i > 20 && std::fabs(phi) == limit)) return phi;
    }
    return std::nullopt;
}

TEST(MercatorMap, KeepsWhereItsStepsEndHoweverManyTheyTake) {
    Random random(1);
    int endless = 0;
    for (const double parallel :
         {0.0, 30.0, 54.0, 59.0, 59.5, 59.8, 59.9, 59.95, 60.0, 60.5, 64.0, 76.0, 79.0, 85.0}) {
        const MapParam map = MercatorMap(parallel);
        for (int i = 0; i < 20; ++i) {
            const double row = std::round(random.Between(-5e5, 5e5));
            const std::optional<double> end = StepToLatitude(parallel, (row - 2000.0) * 10.0);
            const double latitude = ToWorld(map, 1000.0, row).Degrees().latitude;
            if (end) {
                // Roundings only: where the last step ended is 5e-10 radians from where steps lead to.
                EXPECT_NEAR(latitude, *end * 57.29577951308232, 1e-10) << parallel << ' ' << row;
            } else {
                ++endless;
                // Roundings of a latitude near a pole, where 1e-16 radians are 1e-6 metres in the plane.
                EXPECT_NEAR(ToPixel(map, GeodezRecord(latitude, 10.0)).y, row, PIXELS) << parallel;
            }
        }
    }
    EXPECT_GT(endless, 20);
}

TEST(MercatorMap, EndsOnParametersThatAreNone) {
    const MapParam map = MercatorMap(54.0);
    EXPECT_EQ(ToWorld(map, 0.0, NOT_A_NUMBER).status, KOORD_ERR_TYPE);
    EXPECT_EQ(ToWorld(MercatorMap(NOT_A_NUMBER), 0.0, 0.0).status, KOORD_ERR_TYPE);
    MapParam noResolution = map;
    noResolution.resolution = 0.0;
    noResolution.scaleDenominator = 0;
    EXPECT_EQ(ToWorld(noResolution, 0.0, 0.0).status, KOORD_ERR_TYPE);
    for (double parallel : {89.0, 90.0, -90.0, 1e300})
        EXPECT_EQ(ToWorld(MercatorMap(parallel), 0.0, 0.0).world.type, KOORD_GEODEZ) << parallel;
}

TEST(MercatorMap, AReferenceThatCannotBeConvertedLeavesNothing) {
    MapParam map = MercatorMap(54.0);
    map.reference = MapReferenceNode{};
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_TYPE);
    EXPECT_EQ(ToPixel(map, GeodezRecord(54.0, 10.0)).status, KOORD_ERR_TYPE);
}

TEST(MercatorMap, TheHeightOfTheReferenceIsNotThatOfItsPixels) {
    const MapParam map =
        WithReference(MercatorMap(54.0), GeodezRecord(54.0, 10.0, 123.0), 0, 0, 100000, 10.0);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).Degrees().height, 0.0);
}

TEST(MercatorMap, TheReferenceMayStandInAnyDatumAndSystem) {
    const tagKOORD wgs84 = GeodezRecord(54.0, 10.0);
    tagKOORD bessel = MakeKoord(6, KOORD_UTM);
    ASSERT_EQ(KoordConvert(&wgs84, &bessel), KOORD_OK);
    const MapParam map = WithReference(MercatorMap(54.0), bessel, 1000, 2000, 100000, 10.0);
    const PixelResult pixel = ToPixel(map, GeodezRecord(54.0, 10.0));
    EXPECT_NEAR(pixel.x, 1000.0, 0.01);  // the shift out and back is good to about a centimetre here
    EXPECT_NEAR(pixel.y, 2000.0, 0.01);
}

MapParam AzylMap() {
    return WithReference(Map(MAP_AZYL, MapAzylParams{48.0, {}}), GeodezRecord(48.0, 16.0), 500, 500, 50000,
                         10.0);
}

// Distances from 48 along the meridian to 49 and 47 (cs2cs ... +proj=tmerc +lat_0=48 +ellps=WGS84), and of
// one degree of longitude on the parallel of 48 (+proj=merc +lat_ts=48).
constexpr double TO_49 = 111200.036762;
constexpr double TO_47 = 111180.586534;
constexpr double ONE_DEGREE_EAST = 74625.353562;

TEST(AzylMap, RowsAreDistancesAlongTheMeridian) {
    const PixelResult north = ToPixel(AzylMap(), GeodezRecord(49.0, 17.0));
    EXPECT_EQ(north.status, KOORD_OK);
    EXPECT_NEAR(north.x, 500.0 + ONE_DEGREE_EAST / 5.0, PIXELS);
    EXPECT_NEAR(north.y, 500.0 - TO_49 / 5.0, PIXELS);
    const PixelResult south = ToPixel(AzylMap(), GeodezRecord(47.0, 15.0));
    EXPECT_NEAR(south.x, 500.0 - ONE_DEGREE_EAST / 5.0, PIXELS);
    EXPECT_NEAR(south.y, 500.0 + TO_47 / 5.0, PIXELS);
}

TEST(AzylMap, ReadsPositionsNorthAndSouthOfTheReference) {
    const GeodezPayload north =
        ToWorld(AzylMap(), 500.0 + ONE_DEGREE_EAST / 5.0, 500.0 - TO_49 / 5.0).Degrees();
    // Degrees: a tenth of a millimetre, as the arcs are given.
    EXPECT_NEAR(north.latitude, 49.0, 1e-9);
    EXPECT_NEAR(north.longitude, 17.0, 1e-9);
    const GeodezPayload south =
        ToWorld(AzylMap(), 500.0 - ONE_DEGREE_EAST / 5.0, 500.0 + TO_47 / 5.0).Degrees();
    EXPECT_NEAR(south.latitude, 47.0, 1e-9);
    EXPECT_NEAR(south.longitude, 15.0, 1e-9);
}

TEST(AzylMap, TheHeightOfTheReferenceIsNotThatOfItsPixels) {
    const MapParam map = WithReference(AzylMap(), GeodezRecord(48.0, 16.0, 123.0), 500, 500, 50000, 10.0);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).Degrees().height, 0.0);
}

TEST(AzylMap, AReferenceThatCannotBeConvertedGivesLatitudeAndLongitudeZero) {
    MapParam map = AzylMap();
    map.reference.world = MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL);
    const WorldResult world = ToWorld(map, 10.0, 20.0);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_EQ(world.Degrees().latitude, 0.0);
    EXPECT_EQ(world.Degrees().longitude, 0.0);
    EXPECT_EQ(ToPixel(map, GeodezRecord(48.0, 16.0)).status, KOORD_ERR_TYPE);
}

TEST(AzylMap, APositionWithoutAGeodesicHasNoPixel) {
    tagKOORD pixel = FloatPixel(1.0, 2.0);
    const MapParam map = AzylMap();
    const tagKOORD world = GeodezRecord(NOT_A_NUMBER, 16.0);
    EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), GEODESIC_NO_SOLUTION);
    EXPECT_EQ(Load<FloatPixelPayload>(pixel).x, 1.0);
    double x = 3.0;
    double y = 4.0;
    EXPECT_EQ(MapAzyl_WorldToPixel(&map, &world, &x, &y), GEODESIC_NO_SOLUTION);
    EXPECT_EQ(x, 3.0);
    EXPECT_EQ(y, 4.0);
}

}  // namespace
}  // namespace tessara::testing::mercator_maps_test
