#include "tessara/kernel/convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/records.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/range_checks.h"

namespace tessara {
namespace {

GeodezPayload ToGeodez(const tagKOORD& source, std::int32_t datum = DATUM_WGS84) {
    tagKOORD target = MakeKoord(datum, KOORD_GEODEZ);
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_OK);
    return Load<GeodezPayload>(target);
}

TEST(KoordConvert, AFreshTypePairOnOneDatumNeedsNoShift) {
    // 30 minutes are half a degree and 45 seconds 0.0125, both exact: a shift there and back would leave a
    // trace.
    GeogradPayload p{};
    p.latDegrees = 48;
    p.latMinutes = 30;
    p.latHemisphere = 'N';
    p.lonDegrees = 9;
    p.lonHemisphere = 'E';
    const GeodezPayload position = ToGeodez(Record(KOORD_GEOGRAD, p, 3), 3);
    EXPECT_EQ(position.latitude, 48.5);
    EXPECT_EQ(position.longitude, 9.0);
}

TEST(KoordConvert, GeodezToGeodezOnOneDatumIsACopyWithoutRangeTests) {
    const GeodezPayload position = ToGeodez(GeodezRecord(1000.0, -2000.0, 3000.0));
    EXPECT_EQ(position.latitude, 1000.0);
    EXPECT_EQ(position.longitude, -2000.0);
    EXPECT_EQ(position.height, 3000.0);
}

TEST(KoordConvert, AnotherDatumShiftsAndKeepsTheHeight) {
    const double latLon[2] = {48.0, 9.0};
    double shifted[2];
    HubParams toHub, fromHub;
    Datum_LoadToHub(3, &toHub);
    Datum_LoadFromHub(98, &fromHub);
    Datum_Shift(latLon, shifted, &toHub, &fromHub, 3, 98);

    const GeodezPayload position = ToGeodez(GeodezRecord(48.0, 9.0, 123.5, 3), 98);
    EXPECT_EQ(position.latitude, shifted[0]);
    EXPECT_EQ(position.longitude, shifted[1]);
    EXPECT_NE(position.latitude, 48.0);
    EXPECT_EQ(position.height, 123.5);
}

TEST(KoordConvert, ABadDatumBeatsABadType) {
    for (const std::uint32_t datum : {239u, 999u, 0x80000000u, 0xFFFFFFFFu}) {
        for (std::int32_t type = -1; type <= KOORD_TYPE_COUNT; ++type) {
            tagKOORD bad = MakeKoord(0, type);
            bad.datum = datum;
            tagKOORD good = GeodezRecord(48.0, 9.0);
            const tagKOORD before = good;
            EXPECT_EQ(KoordConvert(&bad, &good), KOORD_ERR_DATUM) << type;
            EXPECT_TRUE(SameBytes(good, before));
            EXPECT_EQ(KoordConvert(&good, &bad), KOORD_ERR_DATUM) << type;
        }
    }
}

TEST(KoordConvert, PixelsAndUnknownTypesAreNotConvertible) {
    for (const std::uint32_t type : {0u, 1u, 24u, 999u, 0xFFFFFFFFu}) {
        tagKOORD other = MakeKoord(DATUM_WGS84, 0);
        other.type = type;
        tagKOORD geodez = GeodezRecord(48.0, 9.0);
        EXPECT_EQ(KoordConvert(&other, &geodez), KOORD_ERR_TYPE) << type;
        EXPECT_EQ(KoordConvert(&geodez, &other), KOORD_ERR_TYPE) << type;
        EXPECT_EQ(KoordConvertEx(&geodez, &other, NO_RANGE_TESTS), KOORD_ERR_TYPE) << type;
    }
}

TEST(KoordConvert, NullRecordsFail) {
    tagKOORD record = GeodezRecord(48.0, 9.0);
    EXPECT_EQ(KoordConvert(nullptr, &record), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvert(&record, nullptr), KOORD_ERR_GENERAL);
}

TEST(KoordConvert, ARecordMayBeItsOwnTarget) {
    tagKOORD record = GeodezRecord(48.0, 9.0, 5.0);
    const tagKOORD before = record;
    EXPECT_EQ(KoordConvert(&record, &record), KOORD_OK);
    EXPECT_TRUE(SameBytes(record, before));
}

LambertCCPayload Cone() {
    LambertCCPayload cone{};
    cone.parallel1 = 48.0f;
    cone.parallel2 = 54.0f;
    cone.originLatitude = 51.0f;
    cone.originLongitude = 10.0f;
    cone.falseEasting = 1000.0;
    cone.falseNorthing = 2000.0;
    return cone;
}

TEST(KoordConvert, TheFreeLambertIsWrittenWithoutRangeTestsOnlyAndAlwaysRead) {
    const tagKOORD source = GeodezRecord(51.0, 10.0);
    tagKOORD lambert = Record(KOORD_LAMBERTCC, Cone());
    const tagKOORD before = lambert;
    EXPECT_EQ(KoordConvert(&source, &lambert), KOORD_ERR_TYPE);
    EXPECT_TRUE(SameBytes(lambert, before));

    // The origin has the false values as its coordinates, to the rounding of a cone of about 5e6 metres.
    EXPECT_EQ(KoordConvertEx(&source, &lambert, NO_RANGE_TESTS), KOORD_OK);
    EXPECT_NEAR(Load<LambertCCPayload>(lambert).easting, 1000.0, 1e-8);
    EXPECT_NEAR(Load<LambertCCPayload>(lambert).northing, 2000.0, 1e-8);

    const GeodezPayload position = ToGeodez(lambert);
    EXPECT_NEAR(position.latitude, 51.0, 1e-12);
    EXPECT_NEAR(position.longitude, 10.0, 1e-12);
}

TEST(KoordConvert, AnyCheckValueButOneTurnsTheRangeTestsOff) {
    const tagKOORD source = GeodezRecord(85.0, 9.0);
    for (const std::int32_t check : {0, 2, -1, INT32_MIN}) {
        tagKOORD utm = MakeKoord(DATUM_WGS84, KOORD_UTM);
        EXPECT_EQ(KoordConvertEx(&source, &utm, check), KOORD_OK) << check;
    }
    tagKOORD utm = MakeKoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_EQ(KoordConvertEx(&source, &utm, 1), KOORD_ERR_NORTH_HIGH);
}

TEST(KoordConvert, SecondsThatRoundUpCarryOnTheWayThroughTheDegrees) {
    GeogradPayload p{};
    p.latDegrees = 48;
    p.latMinutes = 59;
    p.latSeconds = 59.9995;
    p.latHemisphere = 'N';
    p.lonDegrees = 9;
    p.lonHemisphere = 'E';
    const tagKOORD source = Record(KOORD_GEOGRAD, p);
    tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_GEOGRAD);
    ASSERT_EQ(KoordConvert(&source, &target), KOORD_OK);
    EXPECT_EQ(Load<GeogradPayload>(target).latDegrees, 49);
    EXPECT_EQ(Load<GeogradPayload>(target).latMinutes, 0);
    EXPECT_EQ(Load<GeogradPayload>(target).latSeconds, 0.0);
}

TEST(KoordConvert, GeogradLosesTheHeightGeodezMinKeepsItEcefLiesOnTheEllipsoid) {
    const tagKOORD source = GeodezRecord(0.0, 0.0, 500.0);

    tagKOORD geograd = MakeKoord(DATUM_WGS84, KOORD_GEOGRAD);
    ASSERT_EQ(KoordConvert(&source, &geograd), KOORD_OK);
    EXPECT_EQ(ToGeodez(geograd).height, 0.0);

    tagKOORD minutes = MakeKoord(DATUM_WGS84, KOORD_GEODEZMIN);
    ASSERT_EQ(KoordConvert(&source, &minutes), KOORD_OK);
    EXPECT_EQ(ToGeodez(minutes).height, 500.0);

    tagKOORD ecef = MakeKoord(DATUM_WGS84, KOORD_ECEF);
    ASSERT_EQ(KoordConvert(&source, &ecef), KOORD_OK);
    EXPECT_EQ(Load<EcefPayload>(ecef).x, 6378137.0);
    EXPECT_EQ(Load<EcefPayload>(ecef).y, 0.0);
    EXPECT_EQ(Load<EcefPayload>(ecef).z, 0.0);
}

TEST(KoordConvert, AFarWantedZoneWarnsWithACompleteRecord) {
    // Natural zone 32; zones 50 and 60 lie 108 and 168 degrees on. At latitude 75 the series still gives
    // figures.
    const tagKOORD source = GeodezRecord(75.0, 9.0);
    for (const std::int16_t zone : {std::int16_t{50}, std::int16_t{60}}) {
        UtmPayload wanted{};
        wanted.wantedZone = zone;
        tagKOORD target = Record(KOORD_UTM, wanted);
        EXPECT_EQ(KoordConvert(&source, &target), KOORD_ERR_ZONE_DISTANT);
        const auto payload = Load<UtmPayload>(target);
        EXPECT_EQ(payload.zone, zone);
        EXPECT_EQ(payload.wantedZone, zone);
        EXPECT_NE(payload.easting, 0.0);
        EXPECT_NE(payload.northing, 0.0);
    }
}

TEST(KoordConvert, AZeroWantedMeridianIsAWantedMeridian) {
    const tagKOORD source = GeodezRecord(48.0, 9.0);
    tagKOORD greenwich = MakeKoord(DATUM_WGS84, KOORD_GK);
    EXPECT_EQ(KoordConvert(&source, &greenwich), KOORD_ERR_GK_EAST)
        << "9 degrees are beyond the strip's million";
    tagKOORD natural = NaturalTarget(KOORD_GK);
    EXPECT_EQ(KoordConvert(&source, &natural), KOORD_OK);
    // Metres, a rounding of the longitude.
    EXPECT_NEAR(Load<GkPayload>(natural).easting, 3500000.0, 1e-6);
}

TEST(KoordConvert, AGridOutsideItsLimitsIsFoundOnTheFinishedRecord) {
    const struct {
        std::int32_t type;
        double latitude, longitude;
        KoordStatus status;
    } rows[] = {
        {KOORD_CH, 46.0, 25.0, KOORD_ERR_CH_EAST_HIGH},
        {KOORD_CH, 46.0, -5.0, KOORD_ERR_CH_EAST_LOW},
        {KOORD_CH, 52.0, 7.0, KOORD_ERR_CH_NORTH_HIGH},
        {KOORD_CH, 40.0, 7.0, KOORD_ERR_CH_NORTH_LOW},
        {KOORD_PO_MILITARY, 39.0, 8.0, KOORD_ERR_EAST_HIGH},
        {KOORD_PO_MILITARY, 39.0, -21.0, KOORD_ERR_EAST_LOW},
        {KOORD_PO_MILITARY, 50.0, -8.0, KOORD_ERR_NORTH_HIGH},
        {KOORD_PO_MILITARY, 30.0, -8.0, KOORD_ERR_NORTH_LOW},
        {KOORD_LUREF, 49.8, 8.5, KOORD_ERR_EAST_HIGH},
        {KOORD_LUREF, 49.8, 4.5, KOORD_ERR_EAST_LOW},
        {KOORD_LUREF, 51.5, 6.0, KOORD_ERR_NORTH_HIGH},
        {KOORD_LUREF, 48.5, 6.0, KOORD_ERR_NORTH_LOW},
        {KOORD_RD, 52.0, 11.0, KOORD_ERR_EAST_HIGH},
        {KOORD_RD, 52.0, 0.0, KOORD_ERR_EAST_LOW},
        {KOORD_RD, 55.0, 5.0, KOORD_ERR_NORTH_HIGH},
        {KOORD_RD, 49.0, 5.0, KOORD_ERR_NORTH_LOW},
        {KOORD_BNG, 48.0, 12.0, KOORD_ERR_GRID_RANGE},
        {KOORD_ING, 48.0, 12.0, KOORD_ERR_GRID_RANGE},
    };
    for (const auto& row : rows) {
        tagKOORD target = MakeKoord(DATUM_WGS84, row.type);
        const tagKOORD source = GeodezRecord(row.latitude, row.longitude);
        EXPECT_EQ(KoordConvert(&source, &target), row.status) << row.type << " " << row.latitude;
    }
}

TEST(KoordConvert, LeftOverFieldsOutsideTheGridReplaceTheGridsOwnStatus) {
    LetterGridPayload leftOver{};
    leftOver.fullEasting = -1.0;
    tagKOORD target = Record(KOORD_BNG, leftOver);
    const tagKOORD source = GeodezRecord(48.0, 12.0);
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_ERR_EAST_LOW);
}

TEST(KoordConvert, APositionWithoutGeorefLettersIsSeenByItsMissingLetters) {
    const tagKOORD source = GeodezRecord(90.0, 10.0);
    tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_GEOREF);
    EXPECT_EQ(KoordConvertEx(&source, &target, NO_RANGE_TESTS), KOORD_ERR_OUTSIDE);
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_ERR_GEOREF_LON_ZONE);
}

TEST(KoordConvert, GeorefOfPrecisionTwoIsWrittenAndThenRejected) {
    GeorefPayload wanted{};
    wanted.precision = 2;
    wanted.lonMinutes = 77;
    tagKOORD target = Record(KOORD_GEOREF, wanted);
    const tagKOORD source = GeodezRecord(48.5, 9.25);
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_ERR_GEOREF_PRECISION);
    EXPECT_EQ(Load<GeorefPayload>(target).lonMinutes, 0);
    EXPECT_EQ(KoordConvertEx(&source, &target, NO_RANGE_TESTS), KOORD_OK);
}

TEST(KoordConvert, AFailureWhileReadingLeavesTheTargetAlone) {
    UtmPayload noZone{};
    noZone.zone = 61;
    const tagKOORD source = Record(KOORD_UTM, noZone);
    tagKOORD target = GeodezRecord(1.0, 2.0, 3.0);
    const tagKOORD before = target;
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_ERR_UTM_ZONE);
    EXPECT_TRUE(SameBytes(target, before));
}

TEST(KoordConvert, NeverWritesDatumTypeOrSource) {
    const tagKOORD source = GeodezRecord(48.0, 9.0, 7.0, 3);
    const tagKOORD before = source;
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        tagKOORD target = NaturalTarget(type, 6);
        KoordConvert(&source, &target);
        EXPECT_EQ(target.datum, 6u);
        EXPECT_EQ(target.type, static_cast<std::uint32_t>(type));
        EXPECT_TRUE(SameBytes(source, before));
    }
}

TEST(KoordConvert, ALowerCaseHemisphereIsSouthInUtmAndNorthInUps) {
    UtmPayload utm{};
    utm.hemisphere = 's';
    utm.zone = 32;
    utm.easting = 500000.0;
    utm.northing = 9000000.0;
    EXPECT_LT(ToGeodez(Record(KOORD_UTM, utm)).latitude, 0.0);

    UpsPayload ups{};
    ups.hemisphere = 's';
    ups.easting = 2100000.0;
    ups.northing = 2000000.0;
    EXPECT_GT(ToGeodez(Record(KOORD_UPS, ups)).latitude, 0.0);
    ups.hemisphere = 'S';
    EXPECT_LT(ToGeodez(Record(KOORD_UPS, ups)).latitude, 0.0);
}

// Where every type has positions, how exactly a position returns from it in degrees, and on which datum.
struct RoundTrip {
    std::int32_t type;
    std::int32_t datum;
    double south, north, west, east;
    double tolerance;
};

// A transverse Mercator loses up to 2e-6 m (2e-11 degrees of latitude) on the way back. In the Austrian
// family and near the edges of UTM zones a longitude costs 1/cos(latitude) more. A reference code has whole
// metres (1e-5 degrees; 84 degrees of latitude stretch that tenfold in longitude), GEOREF hundredths of a
// minute (1/6000 degree).
const RoundTrip ROUND_TRIPS[] = {
    {KOORD_UTM, 2, -80.0, 84.0, -179.9, 179.9, 3e-10},
    {KOORD_UTMREF, 2, -79.9, 83.9, -179.9, 179.9, 1.3e-4},
    {KOORD_GEODEZ, 2, -90.0, 90.0, -180.0, 180.0, 0.0},
    {KOORD_GEOGRAD, 2, -90.0, 90.0, -180.0, 180.0, 0.0011 / 3600.0},
    {KOORD_GEODEZMIN, 2, -90.0, 90.0, -180.0, 180.0, 1e-13},
    {KOORD_GEOREF, 2, -90.0, 89.9, -180.0, 179.9, 1.0 / 6000.0},
    {KOORD_GK, 3, -80.0, 80.0, -180.0, 180.0, 2e-10},
    {KOORD_GK6, 3, -80.0, 80.0, -179.9, 179.9, 2e-10},
    {KOORD_BMN, 6, 45.0, 51.0, 8.9, 17.8, 5e-11},
    {KOORD_OEM, 6, 45.0, 51.0, 8.9, 17.8, 5e-11},
    {KOORD_GKAT, 6, 45.0, 51.0, 8.9, 17.8, 5e-11},
    {KOORD_CH, 7, 45.0, 48.0, 5.5, 11.0, 1e-9},
    {KOORD_ECEF, 2, -89.9, 89.9, -180.0, 180.0, 1e-11},
    {KOORD_UPS, 2, 80.1, 89.9, -180.0, 180.0, 1e-9},
    {KOORD_UPS, 2, -89.9, -80.1, -180.0, 180.0, 1e-9},
    {KOORD_PO_MILITARY, 1, 36.5, 42.5, -10.0, -6.0, 5e-11},
    {KOORD_BNG, 98, 50.0, 60.0, -5.0, 1.5, 5e-11},
    {KOORD_ING, 97, 51.6, 55.3, -10.0, -6.0, 2e-5},
    {KOORD_RD, 237, 50.7, 53.6, 3.3, 7.3, 1e-10},
    {KOORD_LUREF, 238, 49.3, 50.3, 5.6, 6.6, 5e-11},
};

TEST(KoordConvert, ReturnsFromEveryTypeToWhereItStarted) {
    std::mt19937_64 random(20);
    for (const RoundTrip& row : ROUND_TRIPS) {
        std::uniform_real_distribution<double> latitude(row.south, row.north);
        std::uniform_real_distribution<double> longitude(row.west, row.east);
        for (int i = 0; i < 2000; ++i) {
            const double lat = latitude(random);
            const double lon = longitude(random);
            SCOPED_TRACE(::testing::Message() << "type " << row.type << " at " << lat << ", " << lon);
            const tagKOORD source = GeodezRecord(lat, lon, 0.0, row.datum);
            tagKOORD target = NaturalTarget(row.type, row.datum);
            tagKOORD back = MakeKoord(row.datum, KOORD_GEODEZ);
            ASSERT_EQ(KoordConvert(&source, &target), KOORD_OK);
            ASSERT_EQ(KoordConvert(&target, &back), KOORD_OK);
            const auto position = Load<GeodezPayload>(back);
            ASSERT_NEAR(position.latitude, lat, row.tolerance);
            ASSERT_NEAR(position.longitude, lon, row.tolerance);
        }
    }
}

// The conversion relies on it and tests no record of these types that it could write.
TEST(KoordConvert, WrittenLetteredGridsAndFreeValuesAreInRange) {
    std::mt19937_64 random(21);
    std::uniform_real_distribution<double> latitude(48.0, 62.0);
    std::uniform_real_distribution<double> longitude(-12.0, 4.0);
    for (const std::int32_t type : {KOORD_BNG, KOORD_ING, KOORD_ECEF, KOORD_VDG}) {
        int written = 0;
        for (int i = 0; i < 5000; ++i) {
            const tagKOORD source = GeodezRecord(latitude(random), longitude(random));
            tagKOORD target = MakeKoord(DATUM_WGS84, type);
            if (KoordConvertEx(&source, &target, NO_RANGE_TESTS) != KOORD_OK) continue;
            std::int32_t detail = KOORD_ERR_GENERAL;
            ASSERT_EQ(Range_CheckRecord(&target, &detail), KOORD_OK) << type << ": " << detail;
            ++written;
        }
        EXPECT_GT(written, 500) << type;
    }
}

}  // namespace
}  // namespace tessara
