#include "records/system_extremes.h"

#include <gtest/gtest.h>

#include <cfloat>

#include "support/records.h"
#include "support/zones.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::LongitudesApart;
using testing::SameRecord;

SystemExtremes ExtremesOf(std::int32_t system, std::int32_t datum = 2) {
    SystemExtremes extremes{};
    EXPECT_TRUE(FindSystemExtremes(datum, system, &extremes)) << system;
    for (const tagKOORD& extreme : extremes) {
        EXPECT_EQ(extreme.type, static_cast<std::uint32_t>(system));
        EXPECT_EQ(extreme.datum, static_cast<std::uint32_t>(datum));
    }
    return extremes;
}

GeodezPayload PositionOf(const tagKOORD& record) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    EXPECT_EQ(KoordConvert(&record, &geodez), KOORD_OK) << record.type;
    return Load<GeodezPayload>(geodez);
}

// The four extremes lie where they should, in degrees, on the longitude of the north and south wherever that
// means something.
void ExpectPositions(std::int32_t system, std::int32_t datum, const double (&positions)[4][2],
                     double tolerance) {
    const SystemExtremes extremes = ExtremesOf(system, datum);
    for (std::size_t i = 0; i < 4; ++i) {
        const GeodezPayload position = PositionOf(extremes[i]);
        EXPECT_NEAR(position.latitude, positions[i][0], tolerance) << system << " " << i;
        if (std::fabs(position.latitude) > 89.9) continue;
        EXPECT_LT(LongitudesApart(position.longitude, positions[i][1]), tolerance) << system << " " << i;
    }
}

// Degrees: the kernel's snapping onto a limit, and the noise of a conversion and back.
constexpr double SNAP = 1e-7;

template <class Payload>
void ExpectValues(std::int32_t system, const Payload& north, const Payload& east, const Payload& south,
                  const Payload& west) {
    const SystemExtremes extremes = ExtremesOf(system);
    const Payload* const payloads[] = {&north, &east, &south, &west};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(SameRecord(extremes[i], Record(system, *payloads[i]))) << system << " " << i;
}

TEST(SystemExtremes, PixelsReachAsFarAsTheirNumbers) {
    ExpectValues<LongPixelPayload>(KOORD_LONGPIXEL, {0, INT32_MIN}, {INT32_MAX, 0}, {0, INT32_MAX},
                                   {INT32_MIN, 0});
    ExpectValues<FloatPixelPayload>(KOORD_FLOATPIXEL, {0.0, -DBL_MAX}, {DBL_MAX, 0.0}, {0.0, DBL_MAX},
                                    {-DBL_MAX, 0.0});
}

TEST(SystemExtremes, NationalGridsReachToTheMiddlesOfTheirSides) {
    ExpectValues<GridPayload>(KOORD_CH, {650000, 600000}, {1500000, 150000}, {650000, -300000},
                              {-200000, 150000});
    ExpectValues<GridPayload>(KOORD_PO_MILITARY, {200000, 1300000}, {1200000, 300000}, {200000, -700000},
                              {-800000, 300000});
    ExpectValues<GridPayload>(KOORD_RD, {150000, 700000}, {400000, 450000}, {150000, 200000},
                              {-100000, 450000});
    ExpectValues<GridPayload>(KOORD_LUREF, {100000, 200000}, {200000, 100000}, {100000, 0}, {0, 100000});
    const auto full = [](double easting, double northing) {
        LetterGridPayload payload{};
        payload.fullEasting = easting;
        payload.fullNorthing = northing;
        return payload;
    };
    ExpectValues(KOORD_BNG, full(350000, 1300000), full(700000, 650000), full(350000, 0), full(0, 650000));
    ExpectValues(KOORD_ING, full(250000, 500000), full(500000, 250000), full(250000, 0), full(0, 250000));
}

TEST(SystemExtremes, DegreesReachOnceAroundEachWay) {
    ExpectValues<GeodezPayload>(KOORD_GEODEZ, {90, 0, 0}, {0, 360, 0}, {-90, 0, 0}, {0, -360, 0});
    const auto seconds = [](std::int16_t latitude, char latLetter, std::int16_t longitude, char lonLetter) {
        GeogradPayload payload{};
        payload.latDegrees = latitude;
        payload.latHemisphere = latLetter;
        payload.lonDegrees = longitude;
        payload.lonHemisphere = lonLetter;
        return payload;
    };
    ExpectValues(KOORD_GEOGRAD, seconds(90, 'N', 0, 'E'), seconds(0, 'N', 360, 'E'), seconds(90, 'S', 0, 'E'),
                 seconds(0, 'N', 360, 'W'));
    const auto minutes = [](std::int16_t latitude, char latLetter, std::int16_t longitude, char lonLetter) {
        GeodezMinPayload payload{};
        payload.latDegrees = latitude;
        payload.latHemisphere = latLetter;
        payload.lonDegrees = longitude;
        payload.lonHemisphere = lonLetter;
        return payload;
    };
    ExpectValues(KOORD_GEODEZMIN, minutes(90, 'N', 0, 'E'), minutes(0, 'N', 360, 'E'),
                 minutes(90, 'S', 0, 'E'), minutes(0, 'N', 360, 'W'));
}

TEST(SystemExtremes, GeorefReachesToItsOutermostSquares) {
    ExpectValues<GeorefPayload>(KOORD_GEOREF, {5, 'N', 'M', 'H', 'Q', 3000, 5999},
                                {5, 'Z', 'G', 'Q', 'A', 5999, 0}, {5, 'N', 'A', 'H', 'A', 3000, 0},
                                {5, 'A', 'G', 'A', 'A', 0, 0});
}

TEST(SystemExtremes, WorldGridsReachToTheirLimits) {
    const double utm[4][2] = {{84, 3}, {0, 180}, {-80, 3}, {0, -180}};
    ExpectPositions(KOORD_UTM, 2, utm, SNAP);
    ExpectPositions(KOORD_UTMREF, 2, utm, 1e-5);  // whole metres
    const double gk[4][2] = {{80, 0}, {0, 181.5}, {-80, 0}, {0, -181.5}};
    ExpectPositions(KOORD_GK, 3, gk, SNAP);
    const double gk6[4][2] = {{80, 3}, {0, 180}, {-80, 3}, {0, -180}};
    ExpectPositions(KOORD_GK6, 3, gk6, SNAP);
    const double austria[4][2] = {{51, 13.333333333333332},
                                  {45, 17.833333333333332},
                                  {45, 13.333333333333332},
                                  {45, 8.833333333333332}};
    for (const std::int32_t system : {KOORD_BMN, KOORD_OEM, KOORD_GKAT})
        ExpectPositions(system, 6, austria, SNAP);
    const double vdg[4][2] = {{85, 0}, {0, 180}, {-85, 0}, {0, -180}};
    ExpectPositions(KOORD_VDG, 2, vdg, SNAP);
}

TEST(SystemExtremes, TheEndsOfUtmWantTheOutermostZones) {
    for (const std::int32_t system : {KOORD_UTM, KOORD_UTMREF}) {
        const SystemExtremes extremes = ExtremesOf(system);
        const std::int32_t zones[] = {31, 60, 31, 1};
        const std::int16_t wanted[] = {NO_WANTED_ZONE, 60, NO_WANTED_ZONE, 1};
        for (std::size_t i = 0; i < 4; ++i) {
            if (system == KOORD_UTM) {
                EXPECT_EQ(Load<UtmPayload>(extremes[i]).zone, zones[i]);
                EXPECT_EQ(Load<UtmPayload>(extremes[i]).wantedZone, wanted[i]);
            } else {
                EXPECT_EQ(Load<UtmrefPayload>(extremes[i]).zone, zones[i]);
                EXPECT_EQ(Load<UtmrefPayload>(extremes[i]).wantedZone, wanted[i]);
            }
        }
    }
}

TEST(SystemExtremes, TheEndsOfTheStripsLieInTheOutermostStrips) {
    const auto strip = [](const tagKOORD& record) {
        return static_cast<int>(Load<GkPayload>(record).easting / 1e6);
    };
    const SystemExtremes gk = ExtremesOf(KOORD_GK, 3);
    EXPECT_EQ(strip(gk[1]), 60);
    EXPECT_EQ(strip(gk[3]), -60);
    const SystemExtremes gk6 = ExtremesOf(KOORD_GK6, 3);
    EXPECT_EQ(strip(gk6[1]), 30);
    EXPECT_EQ(strip(gk6[3]), -30);
}

TEST(SystemExtremes, TheEndsOfTheStripsLieAHairInside) {
    const auto easting = [](const tagKOORD& record) { return Load<GkPayload>(record).easting; };
    // cs2cs +proj=longlat +ellps=WGS84 to +proj=tmerc +lon_0=180 (177) +x_0=500000 +over of 181.499999999 0
    // (179.999999999 0), 1e-9 degrees or 1.1e-4 m from the end: 666998.442255 (834112.201689). In the west
    // the mirror image counts. 1e-5 m, the projections' rounding.
    const SystemExtremes gk = ExtremesOf(KOORD_GK);
    EXPECT_NEAR(easting(gk[1]), 60e6 + 666998.442255, 1e-5);
    EXPECT_NEAR(easting(gk[3]), -60e6 - (1e6 - 666998.442255), 1e-5);
    const SystemExtremes gk6 = ExtremesOf(KOORD_GK6);
    EXPECT_NEAR(easting(gk6[1]), 30e6 + 834112.201689, 1e-5);
    EXPECT_NEAR(easting(gk6[3]), -30e6 - (1e6 - 834112.201689), 1e-5);
}

TEST(SystemExtremes, GkOnKkjEndsElsewhereInTheWest) {
    const double kkj[4][2] = {{80, 0}, {0, 181.5}, {-80, 0}, {0, -162.5}};
    ExpectPositions(KOORD_GK, DATUM_KKJ, kkj, SNAP);
    const double gk6[4][2] = {{80, 3}, {0, 180}, {-80, 3}, {0, -180}};
    ExpectPositions(KOORD_GK6, DATUM_KKJ, gk6, SNAP);
}

TEST(SystemExtremes, EcefReachesToThePoleAndTheEquator) {
    const SystemExtremes extremes = ExtremesOf(KOORD_ECEF);
    // Metres, WGS84: the polar radius is 6356752.314245.
    const double expected[4][3] = {
        {0.0, 0.0, 6356752.314245}, {0.0, 6378137.0, 0.0}, {0.0, 0.0, 0.0}, {6378137.0, 0.0, 0.0}};
    for (std::size_t i = 0; i < 4; ++i) {
        const auto payload = Load<EcefPayload>(extremes[i]);
        EXPECT_NEAR(payload.x, expected[i][0], 1e-6) << i;
        EXPECT_NEAR(payload.y, expected[i][1], 1e-6) << i;
        EXPECT_NEAR(payload.z, expected[i][2], 1e-6) << i;
    }
    EXPECT_TRUE(SameRecord(extremes[2], MakeKoord(2, KOORD_ECEF)));
}

TEST(SystemExtremes, UpsReachesToLatitude80OfTheNorth) {
    const double ups[4][2] = {{80, 180}, {80, 90}, {80, 0}, {80, -90}};
    ExpectPositions(KOORD_UPS, 2, ups, SNAP);
    const SystemExtremes extremes = ExtremesOf(KOORD_UPS);
    for (const tagKOORD& extreme : extremes)
        EXPECT_EQ(Load<UpsPayload>(extreme).hemisphere, 'N');
    EXPECT_GT(Load<UpsPayload>(extremes[0]).northing, Load<UpsPayload>(extremes[2]).northing);
    EXPECT_GT(Load<UpsPayload>(extremes[1]).easting, Load<UpsPayload>(extremes[3]).easting);
}

TEST(SystemExtremes, AFreeProjectionReachesAQuarterMeridian) {
    // Metres on WGS84: echo 0 0 90 0 | GeodSolve -i -p 6 (GeographicLib 2.1.2) gives 10001965.729313, and 20
    // degrees of the equator are 6378137 * pi / 9 = 2226389.815865. The geodesic's series are accurate to a
    // millimetre.
    const double d1 = 10001965.729313;
    const double d2 = 2226389.815865;
    const TmPayload expected[4] = {{0.0, 60.0, 0.0, d1, 1.0, 0.0, d1},
                                   {180.0, 0.0, d2, 0.0, 1.0, d2, 0.0},
                                   {0.0, -60.0, 0.0, -d1, 1.0, 0.0, d1},
                                   {-180.0, 0.0, -d2, 0.0, 1.0, -d2, 0.0}};
    const SystemExtremes extremes = ExtremesOf(KOORD_TM);
    for (std::size_t i = 0; i < 4; ++i) {
        const auto payload = Load<TmPayload>(extremes[i]);
        EXPECT_EQ(payload.originLongitude, expected[i].originLongitude) << i;
        EXPECT_EQ(payload.originLatitude, expected[i].originLatitude) << i;
        EXPECT_NEAR(payload.falseEasting, expected[i].falseEasting, 1e-3) << i;
        EXPECT_NEAR(payload.falseNorthing, expected[i].falseNorthing, 1e-3) << i;
        EXPECT_EQ(payload.scale, 1.0) << i;
        EXPECT_NEAR(payload.easting, expected[i].easting, 1e-3) << i;
        EXPECT_NEAR(payload.northing, expected[i].northing, 1e-3) << i;
    }
}

TEST(SystemExtremes, OneExtremeIsThatOfTheFour) {
    for (std::int32_t system = 0; system <= KOORD_LUREF; ++system) {
        const SystemExtremes extremes = ExtremesOf(system, 3);
        for (std::int32_t i = 0; i < COMPASS_COUNT; ++i) {
            tagKOORD extreme{};
            EXPECT_TRUE(FindSystemExtreme(static_cast<Compass>(i), 3, system, &extreme));
            EXPECT_TRUE(SameRecord(extreme, extremes[static_cast<std::size_t>(i)]));
        }
    }
}

TEST(SystemExtremes, WithoutAnEllipsoidOnlySystemsThatNeedNoneHaveExtremes) {
    for (std::int32_t system = 0; system <= KOORD_LUREF; ++system) {
        SystemExtremes extremes{};
        const bool needsNone = system == KOORD_LONGPIXEL || system == KOORD_FLOATPIXEL ||
                               system == KOORD_GEOGRAD || system == KOORD_GEODEZMIN ||
                               system == KOORD_GEOREF || system == KOORD_CH || system == KOORD_PO_MILITARY ||
                               system == KOORD_BNG || system == KOORD_ING || system == KOORD_RD ||
                               system == KOORD_LUREF;
        EXPECT_EQ(FindSystemExtremes(NO_DATUM, system, &extremes), needsNone) << system;
    }
}

TEST(SystemExtremes, AFailureChangesNothing) {
    SystemExtremes extremes{};
    extremes.fill(GeodezRecord(1.0, 2.0, 3.0));
    for (const auto& [datum, system] :
         {std::pair{2, 23}, {2, 24}, {2, -1}, {-1, 0}, {239, 0}, {1000, 5}, {NO_DATUM, 2}}) {
        EXPECT_FALSE(FindSystemExtremes(datum, system, &extremes)) << datum << " " << system;
        EXPECT_FALSE(FindSystemExtreme(Compass::North, datum, system, &extremes[0]));
    }
    for (const tagKOORD& extreme : extremes)
        EXPECT_TRUE(SameRecord(extreme, GeodezRecord(1.0, 2.0, 3.0)));
}

}  // namespace
}  // namespace tessara
