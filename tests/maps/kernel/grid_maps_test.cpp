#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "numerics/special_values.h"
#include "support/maps.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/map_types.h"

namespace tessara::testing::grid_maps_test {
namespace {

constexpr double METRES =
    1e-4;  // the figures are rounded to a micrometre, the series differ by less than this

// The record of a pixel in the map's own system, before it is converted into any other.
template <class Payload>
Payload Native(MapPixelToWorldFunction* pixelToWorld, const MapParam& map, double x, double y) {
    tagKOORD out{};
    EXPECT_EQ(pixelToWorld(&map, x, y, &out), KOORD_OK);
    EXPECT_EQ(out.datum, map.datum);
    return Load<Payload>(out);
}

MapParam UtmMap(char hemisphere, std::int16_t zone, double easting, double northing, double metresPerPixel) {
    return Map(MAP_UTM, MapUtmParams{hemisphere, zone, easting, northing, metresPerPixel, metresPerPixel});
}

MapParam GkMap(std::int16_t meridian, double easting, double northing) {
    return Map(MAP_GAUKRU, MapGkParams{0, meridian, easting, northing, 1.0, 1.0});
}

MapParam Gk6Map(std::int16_t meridian, double easting, double northing) {
    return Map(MAP_GAUKRU6, MapGkParams{0, meridian, easting, northing, 1.0, 1.0});
}

TEST(GridMaps, PixelZeroIsExactlyTheOrigin) {
    constexpr double E = 3512345.678901;
    constexpr double N = 5398765.432109;
    const auto expectOrigin = [&](const auto& grid) {
        EXPECT_EQ(grid.easting, E);
        EXPECT_EQ(grid.northing, N);
    };
    const MapPlaneParams plane{E, N, 0.3, 0.7};
    expectOrigin(Native<UtmPayload>(MapUtm_PixelToWorld, Map(MAP_UTM, MapUtmParams{'N', 32, E, N, 0.3, 0.7}),
                                    0.0, 0.0));
    expectOrigin(
        Native<GkPayload>(MapGk_PixelToWorld, Map(MAP_GAUKRU, MapGkParams{0, 9, E, N, 0.3, 0.7}), 0.0, 0.0));
    expectOrigin(Native<GkPayload>(MapGk6_PixelToWorld, Map(MAP_GAUKRU6, MapGkParams{0, 15, E, N, 0.3, 0.7}),
                                   0.0, 0.0));
    expectOrigin(
        Native<BmnPayload>(MapBmn_PixelToWorld, Map(MAP_BMN, MapBmnParams{31, E, N, 0.3, 0.7}), 0.0, 0.0));
    expectOrigin(
        Native<UpsPayload>(MapUps_PixelToWorld, Map(MAP_UPS, MapUpsParams{'N', E, N, 0.3, 0.7}), 0.0, 0.0));
    expectOrigin(Native<TmPayload>(
        MapTm_PixelToWorld, Map(MAP_TM, MapTmParams{9.0, 0.0, 0.0, 0.0, 1.0, E, N, 0.3, 0.7}), 0.0, 0.0));
    expectOrigin(Native<GridPayload>(MapRd_PixelToWorld, Map(MAP_STEREOGR_NL, plane), 0.0, 0.0));
    expectOrigin(Native<GridPayload>(MapCh_PixelToWorld, Map(MAP_CH, plane), 0.0, 0.0));
}

TEST(GridMaps, TheirRecordsCarryZoneAndMeridian) {
    const auto utm =
        Native<UtmPayload>(MapUtm_PixelToWorld, UtmMap('n', 32, 675000.0, 5345000.0, 2.5), 1.0, 1.0);
    EXPECT_EQ(utm.zone, 32);
    EXPECT_EQ(utm.wantedZone, 0);
    EXPECT_EQ(utm.hemisphere, 'N');
    EXPECT_EQ(Native<GkPayload>(MapGk_PixelToWorld, GkMap(9, 3500000.0, 5400000.0), 1.0, 1.0).wantedMeridian,
              9);
    EXPECT_EQ(
        Native<GkPayload>(MapGk6_PixelToWorld, Gk6Map(15, 3500000.0, 5400000.0), 1.0, 1.0).wantedMeridian,
        15);
    const MapTmParams params{9.0, 40.0, 1000.0, 2000.0, 0.9999, 50000.0, 60000.0, 1.0, 1.0};
    const auto tm = Native<TmPayload>(MapTm_PixelToWorld, Map(MAP_TM, params), 1.0, 1.0);
    EXPECT_EQ(tm.originLongitude, 9.0);
    EXPECT_EQ(tm.originLatitude, 40.0);
    EXPECT_EQ(tm.falseEasting, 1000.0);
    EXPECT_EQ(tm.falseNorthing, 2000.0);
    EXPECT_EQ(tm.scale, 0.9999);
}

TEST(GridMaps, RowsGrowDownwardAndAxesHaveTheirOwnPixelSize) {
    const MapParam map = Map(MAP_STEREOGR_NL, MapPlaneParams{100000.0, 500000.0, 2.0, 5.0});
    const auto grid = Native<GridPayload>(MapRd_PixelToWorld, map, 10.0, 20.0);
    EXPECT_EQ(grid.easting, 100020.0);
    EXPECT_EQ(grid.northing, 499900.0);
    const PixelResult pixel = ToPixel(map, Record(KOORD_RD, GridPayload{100020.0, 499900.0}));
    EXPECT_NEAR(pixel.x, 10.0, METRES / 2.0);
    EXPECT_NEAR(pixel.y, 20.0, METRES / 5.0);
}

// The same place is refused in degrees and taken in the map's own system.
TEST(GridMaps, HoldForeignPositionsToTheirLimitsAndTheirOwnNot) {
    GkPayload gk6{};
    gk6.easting = 2500000.0;
    gk6.northing = 8950000.0;  // some 80.5 degrees
    BmnPayload bmn{};
    bmn.meridian = 31;
    bmn.easting = 450000.0;
    bmn.northing = 1000000.0;  // some 54 degrees
    const GridPayload away{1500000.0, 1500000.0};
    const struct {
        MapParam map;
        tagKOORD native;
    } rows[] = {
        {Gk6Map(9, 2500000.0, 5600000.0), Record(KOORD_GK6, gk6)},
        {Map(MAP_BMN, MapBmnParams{31, 450000.0, 350000.0, 1.0, 1.0}), Record(KOORD_BMN, bmn)},
        {Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 1.0, 1.0}), Record(KOORD_CH, away)},
        {Map(MAP_STEREOGR_NL, MapPlaneParams{100000.0, 500000.0, 1.0, 1.0}), Record(KOORD_RD, away)},
    };
    for (const auto& row : rows) {
        tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
        ASSERT_EQ(KoordConvertEx(&row.native, &degrees, 0), KOORD_OK) << row.map.type;
        EXPECT_EQ(ToPixel(row.map, row.native).status, KOORD_OK) << row.map.type;
        EXPECT_NE(ToPixel(row.map, degrees).status, KOORD_OK) << row.map.type;
    }
}

// echo "745000 5365000" | cs2cs -f %.6f +proj=utm +zone=32 +to +proj=utm +zone=33, and +to +proj=longlat
TEST(UtmMap, APixelBeyondTheZoneComesOutInItsNaturalZone) {
    const MapParam map = UtmMap('N', 32, 695000.0, 5365000.0, 10.0);
    const WorldResult world = ToWorld(map, 5000.0, 0.0, MakeKoord(DATUM_WGS84, KOORD_UTM));
    const auto utm = Load<UtmPayload>(world.world);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_EQ(utm.zone, 33);
    EXPECT_NEAR(utm.easting, 300839.832213, METRES);
    EXPECT_NEAR(utm.northing, 5363203.758832, METRES);
    EXPECT_NEAR(ToWorld(map, 5000.0, 0.0).Degrees().latitude, 48.390520887, 1e-9);
    EXPECT_NEAR(ToWorld(map, 5000.0, 0.0).Degrees().longitude, 12.309649844, 1e-9);
}

TEST(UtmMap, APositionOfAnotherZoneLandsInTheMapsZone) {
    const MapParam map = UtmMap('N', 32, 695000.0, 5365000.0, 10.0);
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 33;
    utm.easting = 300839.832213;
    utm.northing = 5363203.758832;
    const PixelResult pixel = ToPixel(map, Record(KOORD_UTM, utm));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.x, 5000.0, METRES / 10.0);
    EXPECT_NEAR(pixel.y, 0.0, METRES / 10.0);
}

TEST(UtmMap, AWantedZoneOfTheTargetIsTaken) {
    UtmPayload wanted{};
    wanted.wantedZone = 32;
    const MapParam map = UtmMap('N', 32, 695000.0, 5365000.0, 10.0);
    const auto utm = Load<UtmPayload>(ToWorld(map, 5000.0, 0.0, Record(KOORD_UTM, wanted)).world);
    EXPECT_EQ(utm.zone, 32);
    EXPECT_NEAR(utm.easting, 745000.0, METRES);
    EXPECT_NEAR(utm.northing, 5365000.0, METRES);
}

// Across the equator the exact letter of the parameters counts, not its capital form.
TEST(UtmMap, APixelAcrossTheEquatorChangesTheHemisphere) {
    const struct {
        char letter, onThisSide, across;
    } rows[] = {{'N', 'N', 'S'}, {'S', 'S', 'N'}, {'n', 'N', 'N'}, {'s', 'S', 'N'}, {'\0', 'N', 'N'}};
    for (const auto& row : rows) {
        const MapParam map = UtmMap(row.letter, 32, 500000.0, 1000.0, 10.0);
        const auto here = Native<UtmPayload>(MapUtm_PixelToWorld, map, 0.0, 99.0);
        EXPECT_EQ(here.hemisphere, row.onThisSide) << row.letter;
        EXPECT_EQ(here.northing, 10.0);
        const auto there = Native<UtmPayload>(MapUtm_PixelToWorld, map, 0.0, 200.0);
        EXPECT_EQ(there.hemisphere, row.across) << row.letter;
        EXPECT_EQ(there.northing, 9999000.0);
    }
}

TEST(UtmMap, TheEquatorItselfIsNotAcross) {
    const auto utm =
        Native<UtmPayload>(MapUtm_PixelToWorld, UtmMap('N', 32, 500000.0, 1000.0, 10.0), 0.0, 100.0);
    EXPECT_EQ(utm.hemisphere, 'N');
    EXPECT_EQ(utm.northing, 0.0);
}

TEST(UtmMap, ASouthernMapKeepsItsLetterNorthOfItsRange) {
    const auto utm =
        Native<UtmPayload>(MapUtm_PixelToWorld, UtmMap('S', 32, 500000.0, 9999000.0, 10.0), 0.0, -200.0);
    EXPECT_EQ(utm.hemisphere, 'S');
    EXPECT_EQ(utm.northing, 10001000.0);
}

// echo "9.5 -0.02" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=utm +zone=32: 555638.189077
// -2210.685667
TEST(UtmMap, BringsTheNorthingToTheHemisphereOfTheMap) {
    const tagKOORD south = GeodezRecord(-0.02, 9.5);
    const tagKOORD north = GeodezRecord(0.02, 9.5);
    const auto row = [](char letter, double originNorthing, const tagKOORD& world) {
        return ToPixel(UtmMap(letter, 32, 500000.0, originNorthing, 1.0), world).y;
    };
    EXPECT_NEAR(row('N', 5000.0, north), 5000.0 - 2210.685667, METRES);
    EXPECT_NEAR(row('N', 5000.0, south), 5000.0 + 2210.685667, METRES);
    EXPECT_NEAR(row('S', 10005000.0, north), 5000.0 - 2210.685667, METRES);
    EXPECT_NEAR(row('S', 10005000.0, south), 5000.0 + 2210.685667, METRES);
    // Small letters are left alone: the northing is that of the position's own hemisphere.
    EXPECT_NEAR(row('n', 5000.0, south), 5000.0 - (10000000.0 - 2210.685667), METRES);
    EXPECT_NEAR(row('s', 10005000.0, north), 10005000.0 - 2210.685667, METRES);
}

TEST(UtmMap, APixelAcrossTheEquatorComesBack) {
    const MapParam map = UtmMap('N', 32, 500000.0, 1000.0, 10.0);
    const WorldResult world = ToWorld(map, 50.0, 200.0, MakeKoord(DATUM_WGS84, KOORD_UTM));
    EXPECT_EQ(Load<UtmPayload>(world.world).hemisphere, 'S');
    const PixelResult pixel = ToPixel(map, world.world);
    // Pixels: a tenth of a millimetre on the ground, through degrees and back.
    EXPECT_NEAR(pixel.x, 50.0, 1e-5);
    EXPECT_NEAR(pixel.y, 200.0, 1e-5);
}

// echo "180.001 10" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=177 +k=0.9996
// +x_0=500000
TEST(UtmMap, APositionBeyondTheDateLineHasAPixel) {
    const MapParam zone60 = UtmMap('N', 60, 0.0, 0.0, 1.0);
    const MapParam zone1 = UtmMap('N', 1, 0.0, 0.0, 1.0);
    const struct {
        const MapParam& map;
        double longitude, easting, northing;
    } rows[] = {{zone60, 180.001, 829038.473884, 1106909.853098},
                {zone60, 181.0, 938719.288016, 1108075.001429},
                {zone1, -180.001, 170961.526116, 1106909.853098}};
    for (const auto& row : rows) {
        const PixelResult pixel = ToPixel(row.map, GeodezRecord(10.0, row.longitude));
        EXPECT_EQ(pixel.status, KOORD_OK) << row.longitude;
        EXPECT_NEAR(pixel.x, row.easting, METRES);
        EXPECT_NEAR(pixel.y, -row.northing, METRES);
    }
}

// printf "17 -10\n19 -10\n" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=9 +k=0.9996
// +x_0=500000
// More than 90 degrees from the meridian the projection takes a position for the one opposite the centre of
// the earth from where it would be, mirrored at the meridian: 172 degrees east of it for 8, and north for
// south.
TEST(UtmMap, APositionBeyondTheDateLineHasAPixelHoweverFarTheZone) {
    const MapParam map = UtmMap('N', 32, 0.0, 0.0, 1.0);
    const struct {
        double longitude, easting, northing;
    } rows[] = {{181.0, 1379471.015075, -1116126.292536}, {-181.0, 1601255.226892, -1122228.282913}};
    for (const auto& row : rows) {
        const PixelResult pixel = ToPixel(map, GeodezRecord(10.0, row.longitude));
        EXPECT_EQ(pixel.status, KOORD_OK) << row.longitude;
        EXPECT_NEAR(pixel.x, row.easting, METRES);
        EXPECT_NEAR(pixel.y, -row.northing, METRES);
    }
    // Within the limits of longitude it is too far away.
    EXPECT_EQ(ToPixel(map, GeodezRecord(10.0, 180.0)).status, KOORD_ERR_ZONE_DISTANT);
}

TEST(UtmMap, APositionTooFarNorthOrSouthHasNone) {
    const MapParam map = UtmMap('N', 32, 0.0, 0.0, 1.0);
    EXPECT_EQ(ToPixel(map, GeodezRecord(85.0, 10.0)).status, KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(ToPixel(map, GeodezRecord(-81.0, 10.0)).status, KOORD_ERR_NORTH_LOW);
    // In UTM already it isn't held to the limits: 85 degrees are a northing of some 9440 km.
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 32;
    utm.easting = 500000.0;
    utm.northing = 9440000.0;
    const PixelResult pixel = ToPixel(map, Record(KOORD_UTM, utm));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.y, -9440000.0, METRES);
}

TEST(UtmMap, APositionManyZonesAwayHasNone) {
    const MapParam map = UtmMap('N', 32, 0.0, 0.0, 1.0);
    EXPECT_EQ(ToPixel(map, GeodezRecord(10.0, 100.0)).status, KOORD_ERR_ZONE_DISTANT);
    EXPECT_EQ(ToPixel(map, GeodezRecord(10.0, NOT_A_NUMBER)).status, KOORD_ERR_ZONE_DISTANT);
}

TEST(UtmMap, AZoneThatDoesNotExistHasPixelsButNoPositions) {
    const MapParam map = UtmMap('N', 61, 500000.0, 5000000.0, 1.0);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_UTM_ZONE);
    EXPECT_EQ(ToPixel(map, GeodezRecord(48.0, 11.0)).status, KOORD_OK);
}

TEST(GkMap, RefusesPixelsBesideTheStrip) {
    const MapParam map = GkMap(9, 3500000.0, 5400000.0);
    const struct {
        double x;
        KoordStatus status;
    } rows[] = {{499999.99, KOORD_OK},
                {499999.995, KOORD_ERR_GK_EAST},
                {-500000.0, KOORD_OK},
                {-500000.01, KOORD_ERR_GK_EAST}};
    for (const auto& row : rows) {
        tagKOORD world = GeodezRecord(1.0, 2.0, 3.0);
        const tagKOORD before = world;
        const tagKOORD pixel = FloatPixel(row.x, 0.0);
        EXPECT_EQ(MapPixelToWorld(&map, &pixel, &world), row.status) << row.x;
        EXPECT_EQ(std::memcmp(&world, &before, sizeof world) == 0, row.status != KOORD_OK);
    }
}

// echo "16 48" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=9 +x_0=3500000
TEST(GkMap, APositionBesideTheStripHasAPixel) {
    const MapParam map = GkMap(9, 3500000.0, 5400000.0);
    const PixelResult east = ToPixel(map, GeodezRecord(48.0, 16.0));
    EXPECT_EQ(east.status, KOORD_OK);
    EXPECT_NEAR(east.x, 4022240.302790 - 3500000.0, METRES);
    EXPECT_NEAR(east.y, 5400000.0 - 5342191.587779, METRES);
    EXPECT_NEAR(ToPixel(map, GeodezRecord(48.0, 2.0)).x, 2977759.697210 - 3500000.0, METRES);
}

// The easting stays within its million up there, but the wanted meridian is a quarter of the globe away.
TEST(GkMap, APositionOfADistantMeridianHasNone) {
    EXPECT_EQ(ToPixel(GkMap(9, 3500000.0, 8000000.0), GeodezRecord(79.0, 24.0)).status,
              KOORD_ERR_ZONE_DISTANT);
}

TEST(GkMap, HoldsForeignPositionsToTheLimits) {
    const MapParam map = GkMap(9, 3500000.0, 5400000.0);
    EXPECT_EQ(ToPixel(map, GeodezRecord(80.5, 9.0)).status, KOORD_ERR_NORTH_HIGH);
    GkPayload gk{};
    gk.easting = 3500000.0;
    gk.northing = 8950000.0;  // some 80.5 degrees
    EXPECT_EQ(ToPixel(map, Record(KOORD_GK, gk)).status, KOORD_OK);
}

// echo "-7 48" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=-6 +x_0=500000:
// 425375.037529 In strip -2 that is -2425375.037529, beside -2000000..-1000000.01.
TEST(GkMap, WestOfGreenwichHasPixelsButNoPositions) {
    const MapParam map = GkMap(-6, -2500000.0, 5400000.0);
    for (double x : {-499999.0, 0.0, 74624.962471, 499999.0})
        EXPECT_EQ(ToWorld(map, x, 0.0).status, KOORD_ERR_GK_EAST) << x;
    // Right of it lies the next strip's million, which reads as that strip: -1500000 is on meridian -3.
    EXPECT_EQ(ToWorld(map, 1000000.0, 0.0).status, KOORD_OK);
    EXPECT_NEAR(ToWorld(map, 1000000.0, 0.0).Degrees().longitude, -3.0, 1e-9);
    const PixelResult pixel = ToPixel(map, GeodezRecord(48.0, -7.0));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.x, -2425375.037529 + 2500000.0, METRES);
    EXPECT_NEAR(pixel.y, 5400000.0 - 5318911.573865, METRES);
}

// On KKJ meridian 27 is strip 3 and not 9.
TEST(GkMap, KkjHasPixelsButNoPositions) {
    const MapParam map = Map(MAP_GAUKRU, MapGkParams{0, 27, 3500000.0, 6700000.0, 10.0, 10.0}, DATUM_KKJ);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_GK_EAST);
    // echo "27 60" | cs2cs -f %.6f +proj=longlat +ellps=intl +to +proj=tmerc +lon_0=27 +x_0=3500000
    // +ellps=intl
    const PixelResult pixel = ToPixel(map, GeodezRecord(60.0, 27.0, 0.0, DATUM_KKJ));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.x, 0.0, METRES / 10.0);
    EXPECT_NEAR(pixel.y, (6700000.0 - 6654228.396313) / 10.0, METRES / 10.0);
}

TEST(GkMap, AMeridianWhoseStripDoesNotFitWrapsAround) {
    // 32767 / 3 = 10922 strips of a million are 10922000000, less three times 2^32: -1962901888.
    const MapParam map = GkMap(32767, -1962901888.0, 0.0);
    EXPECT_EQ(Native<GkPayload>(MapGk_PixelToWorld, map, 0.0, 0.0).easting, -1962901888.0);
    tagKOORD out{};
    EXPECT_EQ(MapGk_PixelToWorld(&map, -1.0, 0.0, &out), KOORD_ERR_GK_EAST);
    // (32767 + 3) / 6 = 5461, 5461000000 - 2^32 = 1166032704: the sum isn't cut to 16 bits.
    const MapParam gk6 = Gk6Map(32767, 1166032704.0, 0.0);
    EXPECT_EQ(Native<GkPayload>(MapGk6_PixelToWorld, gk6, 0.0, 0.0).easting, 1166032704.0);
    EXPECT_EQ(MapGk6_PixelToWorld(&gk6, -1.0, 0.0, &out), KOORD_ERR_GK_EAST);
}

TEST(GkMap, APixelThatIsNoNumberHasNoPosition) {
    EXPECT_EQ(ToWorld(GkMap(9, 3500000.0, 5400000.0), NOT_A_NUMBER, 0.0).status, KOORD_ERR_MERIDIAN);
}

TEST(Gk6Map, CountsStripsOfSixDegrees) {
    // Meridian 9 is strip 2.
    const MapParam map = Gk6Map(9, 2500000.0, 5600000.0);
    EXPECT_EQ(ToWorld(map, 499999.99, 0.0).status, KOORD_OK);
    EXPECT_EQ(ToWorld(map, 499999.995, 0.0).status, KOORD_ERR_GK_EAST);
    EXPECT_EQ(ToWorld(map, -500000.0, 0.0).status, KOORD_OK);
    EXPECT_EQ(ToWorld(map, -500000.01, 0.0).status, KOORD_ERR_GK_EAST);
    // echo "10.5 50" | cs2cs -f %.6f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=9 +x_0=2500000
    const PixelResult pixel = ToPixel(map, GeodezRecord(50.0, 10.5));
    EXPECT_NEAR(pixel.x, 2607541.509965 - 2500000.0, METRES);
    EXPECT_NEAR(pixel.y, 5600000.0 - 5541925.526990, METRES);
    // Beside the strip.
    EXPECT_EQ(ToPixel(map, GeodezRecord(48.0, 16.0)).status, KOORD_OK);
}

// (3 + 3) / 6 to (8 + 3) / 6 are 1 in whole numbers, and (9 + 3) / 6 is 2.
TEST(Gk6Map, TheStripOfAMeridianBetweenTwoIsThatOfTheWesternOne) {
    for (std::int16_t meridian = 3; meridian <= 8; ++meridian)
        EXPECT_EQ(ToWorld(Gk6Map(meridian, 1500000.0, 5600000.0), 0.0, 0.0).status, KOORD_OK) << meridian;
    EXPECT_EQ(ToWorld(Gk6Map(9, 1500000.0, 5600000.0), 0.0, 0.0).status, KOORD_ERR_GK_EAST);
}

// A position without a longitude has no meridian and no meaningful grid value.
TEST(GkMap, ARecordThatIsNoNumberHasNoPixel) {
    for (double number : {NOT_A_NUMBER, std::numeric_limits<double>::infinity()}) {
        GkPayload gk{};
        gk.easting = 2500000.0;
        gk.northing = number;
        EXPECT_EQ(ToPixel(GkMap(9, 3500000.0, 0.0), Record(KOORD_GK, gk)).status, KOORD_ERR_GK_EAST);
        EXPECT_EQ(ToPixel(Gk6Map(9, 2500000.0, 0.0), Record(KOORD_GK6, gk)).status, KOORD_ERR_GK_EAST);
        gk.easting = number;
        EXPECT_EQ(ToPixel(GkMap(9, 3500000.0, 0.0), Record(KOORD_GK, gk)).status, KOORD_ERR_MERIDIAN);
        EXPECT_EQ(ToPixel(Gk6Map(9, 2500000.0, 0.0), Record(KOORD_GK6, gk)).status, KOORD_ERR_MERIDIAN);
    }
}

TEST(Gk6Map, WestOfGreenwichHasNoPositions) {
    EXPECT_EQ(ToWorld(Gk6Map(-9, -2500000.0, 5400000.0), 0.0, 0.0).status, KOORD_ERR_GK_EAST);
}

TEST(BmnMap, TheMeridianStandsInBothFields) {
    const auto bmn = Native<BmnPayload>(
        MapBmn_PixelToWorld, Map(MAP_BMN, MapBmnParams{34, 750000.0, 350000.0, 1.0, 1.0}), 0.0, 0.0);
    EXPECT_EQ(bmn.wantedMeridian, 34);
    EXPECT_EQ(bmn.meridian, 34);
}

TEST(BmnMap, AMeridianThatDoesNotExistHasPixelsButNoPositions) {
    const MapParam map = Map(MAP_BMN, MapBmnParams{30, 450000.0, 350000.0, 1.0, 1.0}, 6);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_MERIDIAN);
    EXPECT_EQ(ToPixel(map, GeodezRecord(48.0, 13.0, 0.0, 6)).status, KOORD_OK);
    EXPECT_EQ(ToPixel(map, GeodezRecord(44.0, 13.0, 0.0, 6)).status, KOORD_ERR_NORTH_LOW);
}

TEST(UpsMap, NormalisesItsLetterAndIsNeverHeldToTheLimits) {
    for (char letter : {'S', 's'}) {
        const MapParam map = Map(MAP_UPS, MapUpsParams{letter, 2000000.0, 2000000.0, 1000.0, 1000.0});
        EXPECT_EQ(Native<UpsPayload>(MapUps_PixelToWorld, map, 0.0, 0.0).hemisphere, 'S');
        EXPECT_EQ(ToWorld(map, 0.0, 0.0).Degrees().latitude, -90.0);
    }
    const MapParam north = Map(MAP_UPS, MapUpsParams{'x', 2000000.0, 2000000.0, 1000.0, 1000.0});
    EXPECT_EQ(ToWorld(north, 0.0, 0.0).Degrees().latitude, 90.0);
    EXPECT_EQ(ToPixel(north, GeodezRecord(40.0, 10.0)).status, KOORD_OK);
}

// The three take their constants from the parameters, and their own grids play no part.
TEST(TmMap, PortugueseAndLuxembourgMapsYieldTmRecordsToo) {
    const MapTmParams params{9.0, 40.0, 1000.0, 2000.0, 0.9999, 50000.0, 60000.0, 1.0, 1.0};
    for (MapType type : {MAP_TM, MAP_PO_MILITARY, MAP_LUREF}) {
        const MapParam map = Map(type, params);
        tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_TM);
        Store(target, TmPayload{9.0, 40.0, 1000.0, 2000.0, 0.9999, 0.0, 0.0});
        const WorldResult world = ToWorld(map, 100.0, 200.0, target);
        const auto tm = Load<TmPayload>(world.world);
        EXPECT_EQ(world.status, KOORD_OK);
        EXPECT_NEAR(tm.easting, 50100.0, METRES);
        EXPECT_NEAR(tm.northing, 59800.0, METRES);
        const PixelResult pixel = ToPixel(map, world.world);
        EXPECT_NEAR(pixel.x, 100.0, METRES);
        EXPECT_NEAR(pixel.y, 200.0, METRES);
    }
}

TEST(ChMap, GivesWholeMetresFromTheOriginAndAlwaysAddsAHalf) {
    const MapParam map = Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 2.5, 2.5});
    const auto grid = [&map](double pixel) {
        return Native<GridPayload>(MapCh_PixelToWorld, map, pixel, pixel);
    };
    const struct {
        double pixel, metres;
    } rows[] = {{1.0, 3.0}, {-1.0, -2.0}, {-0.2, 0.0}, {0.2, 1.0}, {-1.04, -2.0}, {-1.4, -3.0}, {-0.24, 0.0}};
    for (const auto& row : rows) {
        EXPECT_EQ(grid(row.pixel).easting, 600000.0 + row.metres) << row.pixel;
        EXPECT_EQ(grid(row.pixel).northing, 200000.0 - row.metres) << row.pixel;
    }
}

TEST(ChMap, ComesBackWithinAMetreAndAHalf) {
    const MapParam map = Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 2.5, 2.5}, 7);
    double most = 0.0;
    for (double at = -50.0; at <= 50.0; at += 0.07) {
        const PixelResult pixel = ToPixel(map, ToWorld(map, at, at).world);
        EXPECT_NEAR(pixel.x, at, (at < 0.0 ? 1.5 : 0.5) / 2.5 + METRES) << at;
        EXPECT_NEAR(pixel.y, at, (at < 0.0 ? 1.5 : 0.5) / 2.5 + METRES) << at;
        most = std::fmax(most, std::fabs(pixel.x - at) * 2.5);
    }
    EXPECT_GT(most, 1.4);
}

TEST(ChMap, TheWayToThePixelIsNotRounded) {
    const MapParam map = Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 2.5, 2.5}, 7);
    const PixelResult pixel = ToPixel(map, Record(KOORD_CH, GridPayload{600001.0, 199998.5}, 7));
    EXPECT_NEAR(pixel.x, 0.4, METRES);
    EXPECT_NEAR(pixel.y, 0.6, METRES);
}

TEST(ChMap, ADistanceThatIsNoWholeNumberHasNoPosition) {
    const MapParam map = Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 2.5, 2.5});
    for (double pixel : {NOT_A_NUMBER, 1e9, -1e9, 1e300}) {
        EXPECT_EQ(ToWorld(map, pixel, 0.0).status, KOORD_ERR_TYPE) << pixel;
        EXPECT_EQ(ToWorld(map, 0.0, pixel).status, KOORD_ERR_TYPE) << pixel;
    }
}

// Some 13.4 degrees west of the meridian 3, where strip 1 has the easting 0. A conversion that ends without a
// grid value leaves 0, too, but with the northing 0.
TEST(GkMap, APositionBesideTheStripHasAPixelAlsoAtTheEastingZero) {
    const MapParam map = GkMap(3, 0.0, 0.0);
    int zeros = 0;
    for (double latitude = 0.5; latitude < 5.0; latitude += 0.5) {
        const auto at = [&](double longitude) { return ToPixel(map, GeodezRecord(latitude, longitude)); };
        double west = -12.0;
        double east = -9.0;
        for (double middle = (west + east) / 2.0; middle != west && middle != east;
             middle = (west + east) / 2.0)
            (at(middle).x < 0.0 ? west : east) = middle;
        const PixelResult zero = at(east);
        EXPECT_EQ(zero.status, KOORD_OK) << latitude;
        EXPECT_NEAR(zero.x, 0.0, 1e-9) << latitude;  // metres; a unit in the last place of 500 km
        EXPECT_NEAR(zero.y, at(east + 1e-7).y, 0.1) << latitude;  // 1e-7 degrees are a centimetre
        if (zero.x == 0.0) ++zeros;
    }
    EXPECT_GT(zeros, 0);
}

}  // namespace
}  // namespace tessara::testing::grid_maps_test
