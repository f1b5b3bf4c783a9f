#include "tessara/kernel/range_checks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "numerics/special_values.h"
#include "support/records.h"

namespace tessara {
namespace {

double Below(double value) {
    return std::nextafter(value, -INFINITE);
}
double Above(double value) {
    return std::nextafter(value, INFINITE);
}

// The result of the geodetic test for a position, checked against the collective result.
std::int32_t Geodetic(double lat, double lon, std::int32_t type) {
    const double latLon[2] = {lat, lon};
    std::int32_t detail = 77;
    const KoordStatus result = Range_CheckGeodetic(latLon, type, &detail);
    const bool passes = detail == KOORD_OK || detail == KOORD_CHECK_AFTER;
    EXPECT_EQ(result, passes ? KOORD_OK : KOORD_ERR_GENERAL);
    return detail;
}

std::int32_t OfRecord(const tagKOORD& record) {
    std::int32_t detail = 77;
    const KoordStatus result = Range_CheckRecord(&record, &detail);
    EXPECT_EQ(result, detail == KOORD_OK ? KOORD_OK : KOORD_ERR_GENERAL);
    return detail;
}

struct GeodeticRow {
    std::vector<std::int32_t> types;
    double west, east, south, north;
};

const GeodeticRow GEODETIC_TABLE[] = {
    {{KOORD_UTM, KOORD_UTMREF}, -180.0, 180.0, -80.0, 84.0},
    {{KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEODEZMIN}, -360.0, 360.0, -90.0, 90.0},
    {{KOORD_GK}, -181.5, 181.5, -80.0, 80.0},
    {{KOORD_GK6}, -180.0, 180.0, -80.0, 80.0},
    {{KOORD_BMN, KOORD_OEM, KOORD_GKAT}, 8.833333333333332, 17.833333333333332, 45.0, 51.0},
};

TEST(RangeCheckGeodetic, LimitsAreInclusiveOnEverySideOfEveryRow) {
    for (const GeodeticRow& row : GEODETIC_TABLE) {
        for (const std::int32_t type : row.types) {
            SCOPED_TRACE(type);
            EXPECT_EQ(Geodetic(row.south, row.west, type), KOORD_OK);
            EXPECT_EQ(Geodetic(row.north, row.east, type), KOORD_OK);
            EXPECT_EQ(Geodetic(row.north, Below(row.west), type), KOORD_ERR_EAST_LOW);
            EXPECT_EQ(Geodetic(row.north, Above(row.east), type), KOORD_ERR_EAST_HIGH);
            EXPECT_EQ(Geodetic(Below(row.south), row.east, type), KOORD_ERR_NORTH_LOW);
            EXPECT_EQ(Geodetic(Above(row.north), row.east, type), KOORD_ERR_NORTH_HIGH);
        }
    }
}

TEST(RangeCheckGeodetic, LongitudeIsTestedFirst) {
    for (const GeodeticRow& row : GEODETIC_TABLE) {
        for (const std::int32_t type : row.types) {
            EXPECT_EQ(Geodetic(1000.0, 1000.0, type), KOORD_ERR_EAST_HIGH) << type;
            EXPECT_EQ(Geodetic(-1000.0, -1000.0, type), KOORD_ERR_EAST_LOW) << type;
        }
    }
}

TEST(RangeCheckGeodetic, ANanLiesOnTheLowSide) {
    for (const GeodeticRow& row : GEODETIC_TABLE) {
        for (const std::int32_t type : row.types) {
            EXPECT_EQ(Geodetic(row.north, NOT_A_NUMBER, type), KOORD_ERR_EAST_LOW) << type;
            EXPECT_EQ(Geodetic(NOT_A_NUMBER, row.east, type), KOORD_ERR_NORTH_LOW) << type;
        }
    }
}

TEST(RangeCheckGeodetic, UpsTakesPolarLatitudesOnlyAndAnyLongitude) {
    EXPECT_EQ(Geodetic(80.0, 1e9, KOORD_UPS), KOORD_OK);
    EXPECT_EQ(Geodetic(-80.0, 0.0, KOORD_UPS), KOORD_OK);
    EXPECT_EQ(Geodetic(90.0, NOT_A_NUMBER, KOORD_UPS), KOORD_OK);
    EXPECT_EQ(Geodetic(79.9, 0.0, KOORD_UPS), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(Geodetic(0.0, 0.0, KOORD_UPS), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(Geodetic(90.5, 0.0, KOORD_UPS), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(Geodetic(-79.9, 0.0, KOORD_UPS), KOORD_ERR_NORTH_LOW);
    EXPECT_EQ(Geodetic(-90.5, 0.0, KOORD_UPS), KOORD_ERR_NORTH_LOW);
    EXPECT_EQ(Geodetic(NOT_A_NUMBER, 0.0, KOORD_UPS), KOORD_ERR_NORTH_LOW);
}

TEST(RangeCheckGeodetic, TheFreeTransverseMercatorHasNoLimits) {
    EXPECT_EQ(Geodetic(1e9, -1e9, KOORD_TM), KOORD_OK);
    EXPECT_EQ(Geodetic(NOT_A_NUMBER, NOT_A_NUMBER, KOORD_TM), KOORD_OK);
}

TEST(RangeCheckGeodetic, GridsWithLimitsOfTheirOwnAreJudgedAfterwards) {
    for (const std::int32_t type : {KOORD_GEOREF, KOORD_CH, KOORD_ECEF, KOORD_PO_MILITARY, KOORD_VDG,
                                    KOORD_BNG, KOORD_ING, KOORD_RD, KOORD_LUREF}) {
        EXPECT_EQ(Geodetic(1e9, NOT_A_NUMBER, type), KOORD_CHECK_AFTER) << type;
    }
}

TEST(RangeCheckGeodetic, OtherTypesAreUnknown) {
    for (const std::int32_t type : {-1, 0, 1, 23, 24, 999, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Geodetic(0.0, 0.0, type), KOORD_ERR_TYPE) << type;
    }
}

TEST(RangeCheckGeodetic, KnowsTheOldBordersOfTheWorldGrids) {
    EXPECT_EQ(Geodetic(84.0000001, 0.0, KOORD_UTM), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(Geodetic(80.5, 0.0, KOORD_GK), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(Geodetic(0.0, 190.0, KOORD_GEODEZMIN), KOORD_OK);
    EXPECT_EQ(Geodetic(0.0, 190.0, KOORD_UTM), KOORD_ERR_EAST_HIGH);
}

TEST(RangeCheckRecord, TypesWithoutLimitsAlwaysPass) {
    for (const std::int32_t type : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL, KOORD_ECEF, KOORD_TM, KOORD_VDG}) {
        tagKOORD garbage = MakeKoord(7777, type);
        std::memset(garbage.payload, 0xFF, sizeof garbage.payload);
        EXPECT_EQ(OfRecord(garbage), KOORD_OK) << type;
    }
}

TEST(RangeCheckRecord, OtherTypesAreUnknown) {
    for (const std::int32_t type : {23, 24, 999, -1}) {
        EXPECT_EQ(OfRecord(MakeKoord(DATUM_WGS84, type)), KOORD_ERR_TYPE) << type;
    }
}

TEST(RangeCheckRecord, GeodezLatitudeComesFirst) {
    EXPECT_EQ(OfRecord(GeodezRecord(90.0, 360.0)), KOORD_OK);
    EXPECT_EQ(OfRecord(GeodezRecord(-90.0, -360.0)), KOORD_OK);
    EXPECT_EQ(OfRecord(GeodezRecord(Above(90.0), Above(360.0))), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(OfRecord(GeodezRecord(Below(-90.0), 0.0)), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(OfRecord(GeodezRecord(0.0, Above(360.0))), KOORD_ERR_GEO_LON);
    EXPECT_EQ(OfRecord(GeodezRecord(0.0, Below(-360.0))), KOORD_ERR_GEO_LON);
    EXPECT_EQ(OfRecord(GeodezRecord(NOT_A_NUMBER, 0.0)), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(OfRecord(GeodezRecord(0.0, NOT_A_NUMBER)), KOORD_ERR_GEO_LON);
}

GeogradPayload LegalGeograd() {
    GeogradPayload p{};
    p.latDegrees = 48;
    p.latMinutes = 59;
    p.latSeconds = 59.9999;
    p.latHemisphere = 'N';
    p.lonDegrees = 359;
    p.lonMinutes = 59;
    p.lonSeconds = 59.9999;
    p.lonHemisphere = 'W';
    return p;
}

template <class Payload, class Change>
std::int32_t Changed(std::int32_t type, Payload payload, Change change) {
    change(payload);
    return OfRecord(Record(type, payload));
}

TEST(RangeCheckRecord, GeogradTestsLongitudeMinutesAndSecondsFirst) {
    const auto geograd = [](auto change) { return Changed(KOORD_GEOGRAD, LegalGeograd(), change); };
    EXPECT_EQ(geograd([](auto&) {}), KOORD_OK);
    EXPECT_EQ(geograd([](auto& p) { p.lonMinutes = p.latMinutes = 60; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(geograd([](auto& p) { p.lonMinutes = -60; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(geograd([](auto& p) { p.lonMinutes = INT16_MIN; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(geograd([](auto& p) { p.lonMinutes = -59; }), KOORD_OK);
    EXPECT_EQ(geograd([](auto& p) { p.lonSeconds = 60.0; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(geograd([](auto& p) { p.lonSeconds = NOT_A_NUMBER; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(geograd([](auto& p) { p.latMinutes = 60; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(geograd([](auto& p) { p.latSeconds = -60.0; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(geograd([](auto& p) { p.latSeconds = NOT_A_NUMBER; }), KOORD_ERR_GEO_LAT);
}

TEST(RangeCheckRecord, GeogradLettersAreTheTwoOrZero) {
    const auto geograd = [](auto change) { return Changed(KOORD_GEOGRAD, LegalGeograd(), change); };
    EXPECT_EQ(geograd([](auto& p) { p.lonHemisphere = p.latHemisphere = 0; }), KOORD_OK);
    EXPECT_EQ(geograd([](auto& p) { p.lonHemisphere = 'w'; }), KOORD_ERR_HEMISPHERE);
    EXPECT_EQ(geograd([](auto& p) { p.latHemisphere = 'E'; }), KOORD_ERR_HEMISPHERE);
    EXPECT_EQ(geograd([](auto& p) {
                  p.latHemisphere = '?';
                  p.latDegrees = 91;
              }),
              KOORD_ERR_HEMISPHERE);
}

TEST(RangeCheckRecord, GeogradLimitsAreOnTheSignedValue) {
    const auto geograd = [](auto change) { return Changed(KOORD_GEOGRAD, LegalGeograd(), change); };
    EXPECT_EQ(geograd([](auto& p) { p.latDegrees = p.lonDegrees = 400; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(geograd([](auto& p) { p.latDegrees = 90; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(geograd([](auto& p) {
                  p.latDegrees = 90;
                  p.latMinutes = 0;
                  p.latSeconds = 0.0;
              }),
              KOORD_OK);
    EXPECT_EQ(geograd([](auto& p) { p.lonDegrees = 360; }), KOORD_ERR_GEO_LON);
}

TEST(RangeCheckRecord, GeodezMinGoesLikeGeogradWithItsDoubleMinutes) {
    GeodezMinPayload legal{};
    legal.latDegrees = 89;
    legal.latMinutes = 59.99;
    legal.latHemisphere = 'S';
    legal.lonDegrees = 359;
    legal.lonMinutes = 59.99;
    legal.lonHemisphere = 'E';
    const auto min = [&](auto change) { return Changed(KOORD_GEODEZMIN, legal, change); };
    EXPECT_EQ(min([](auto&) {}), KOORD_OK);
    EXPECT_EQ(min([](auto& p) { p.lonMinutes = p.latMinutes = 60.0; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(min([](auto& p) { p.lonMinutes = NOT_A_NUMBER; }), KOORD_ERR_GEO_LON);
    EXPECT_EQ(min([](auto& p) { p.latMinutes = -60.0; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(min([](auto& p) { p.lonHemisphere = 'N'; }), KOORD_ERR_HEMISPHERE);
    EXPECT_EQ(min([](auto& p) { p.latHemisphere = 'n'; }), KOORD_ERR_HEMISPHERE);
    EXPECT_EQ(min([](auto& p) { p.latDegrees = 90; }), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(min([](auto& p) { p.lonDegrees = 360; }), KOORD_ERR_GEO_LON);
}

GeorefPayload LegalGeoref() {
    GeorefPayload p{};
    p.precision = 4;
    p.lonZone = 'Z';
    p.latZone = 'M';
    p.lonDegree = 'Q';
    p.latDegree = 'A';
    p.lonMinutes = 599;
    p.latMinutes = 0;
    return p;
}

TEST(RangeCheckRecord, GeorefLettersHaveOneAlphabetEach) {
    struct Row {
        char GeorefPayload::*letter;
        char last;
        KoordStatus status;
    };
    const Row rows[] = {
        {&GeorefPayload::lonZone, 'Z', KOORD_ERR_GEOREF_LON_ZONE},
        {&GeorefPayload::latZone, 'M', KOORD_ERR_GEOREF_LAT_ZONE},
        {&GeorefPayload::lonDegree, 'Q', KOORD_ERR_GEOREF_LON_DEGREE},
        {&GeorefPayload::latDegree, 'Q', KOORD_ERR_GEOREF_LAT_DEGREE},
    };
    for (const Row& row : rows) {
        for (int byte = 0; byte < 256; ++byte) {
            GeorefPayload p = LegalGeoref();
            p.*row.letter = static_cast<char>(byte);
            const bool legal = byte >= 'A' && byte <= row.last && byte != 'I' && byte != 'O';
            EXPECT_EQ(OfRecord(Record(KOORD_GEOREF, p)), legal ? KOORD_OK : row.status) << byte;
        }
    }
}

TEST(RangeCheckRecord, GeorefMinutesAreCountedByThePrecision) {
    const auto georef = [](std::int16_t precision, int lon, int lat) {
        GeorefPayload p = LegalGeoref();
        p.precision = precision;
        p.lonMinutes = static_cast<std::int16_t>(lon);
        p.latMinutes = static_cast<std::int16_t>(lat);
        return OfRecord(Record(KOORD_GEOREF, p));
    };
    const std::pair<std::int16_t, int> counts[] = {
        {std::int16_t{3}, 60}, {std::int16_t{4}, 600}, {std::int16_t{5}, 6000}};
    for (const auto& [precision, count] : counts) {
        EXPECT_EQ(georef(precision, count - 1, count - 1), KOORD_OK);
        EXPECT_EQ(georef(precision, count, count), KOORD_ERR_GEOREF_LON_MINUTES);
        EXPECT_EQ(georef(precision, 0, count), KOORD_ERR_GEOREF_LAT_MINUTES);
        EXPECT_EQ(georef(precision, -1, 0), KOORD_ERR_GEOREF_LON_MINUTES);
        EXPECT_EQ(georef(precision, 0, -1), KOORD_ERR_GEOREF_LAT_MINUTES);
    }
    for (const std::int16_t precision :
         {std::int16_t{2}, std::int16_t{6}, std::int16_t{8}, std::int16_t{0}}) {
        EXPECT_EQ(georef(precision, -1, -1), KOORD_ERR_GEOREF_PRECISION) << precision;
    }
}

struct GridRow {
    std::int32_t type;
    double west, east, south, north;
    KoordStatus westStatus, eastStatus, southStatus, northStatus;
};

const GridRow GRID_TABLE[] = {
    {KOORD_CH, -200000.0, 1500000.0, -300000.0, 600000.0, -3728, -3729, -3730, -3731},
    {KOORD_PO_MILITARY, -800000.0, 1200000.0, -700000.0, 1300000.0, -3760, -3761, -3763, -3762},
    {KOORD_RD, -100000.0, 400000.0, 200000.0, 700000.0, -3760, -3761, -3763, -3762},
    {KOORD_LUREF, 0.0, 200000.0, 0.0, 200000.0, -3760, -3761, -3763, -3762},
};

TEST(RangeCheckRecord, GridLimitsAreInclusiveAndTheEastingComesFirst) {
    for (const GridRow& row : GRID_TABLE) {
        SCOPED_TRACE(row.type);
        const auto grid = [&](double easting, double northing) {
            return OfRecord(Record(row.type, GridPayload{easting, northing}));
        };
        EXPECT_EQ(grid(row.west, row.south), KOORD_OK);
        EXPECT_EQ(grid(row.east, row.north), KOORD_OK);
        EXPECT_EQ(grid(Below(row.west), 1e9), row.westStatus);
        EXPECT_EQ(grid(Above(row.east), -1e9), row.eastStatus);
        EXPECT_EQ(grid(row.east, Below(row.south)), row.southStatus);
        EXPECT_EQ(grid(row.east, Above(row.north)), row.northStatus);
        EXPECT_EQ(grid(NOT_A_NUMBER, row.south), row.westStatus);
        EXPECT_EQ(grid(row.east, NOT_A_NUMBER), row.southStatus);
    }
}

TEST(RangeCheckRecord, LetteredGridsTestTheSquareWhenBothLettersAreThere) {
    for (const std::int32_t type : {KOORD_BNG, KOORD_ING}) {
        const auto square = [type](char first, char second, double easting, double northing) {
            LetterGridPayload p{};
            p.square = first;
            p.subSquare = second;
            p.easting = easting;
            p.northing = northing;
            p.fullEasting = -1e9;
            p.fullNorthing = -1e9;
            return OfRecord(Record(type, p));
        };
        EXPECT_EQ(square('?', '\xFF', 0.0, 99999.99), KOORD_OK) << "no letter is rejected here";
        EXPECT_EQ(square('T', 'Q', 99999.99, 0.0), KOORD_OK);
        EXPECT_EQ(square('T', 'Q', Below(0.0), -1.0), KOORD_ERR_EAST_LOW);
        EXPECT_EQ(square('T', 'Q', Above(99999.99), 0.0), KOORD_ERR_EAST_HIGH);
        EXPECT_EQ(square('T', 'Q', 0.0, Below(0.0)), KOORD_ERR_NORTH_LOW);
        EXPECT_EQ(square('T', 'Q', 0.0, Above(99999.99)), KOORD_ERR_NORTH_HIGH);
    }
}

TEST(RangeCheckRecord, LetteredGridsTestTheFullValuesWhenALetterIsMissing) {
    const struct {
        std::int32_t type;
        double east, north;
    } rows[] = {{KOORD_BNG, 700000.0, 1300000.0}, {KOORD_ING, 500000.0, 500000.0}};
    for (const auto& row : rows) {
        const auto full = [&](char first, char second, double easting, double northing) {
            LetterGridPayload p{};
            p.square = first;
            p.subSquare = second;
            p.easting = -1e9;
            p.northing = -1e9;
            p.fullEasting = easting;
            p.fullNorthing = northing;
            return OfRecord(Record(row.type, p));
        };
        for (const auto& [first, second] :
             {std::pair{'\0', 'Q'}, std::pair{'T', '\0'}, std::pair{'\0', '\0'}}) {
            EXPECT_EQ(full(first, second, 0.0, 0.0), KOORD_OK);
            EXPECT_EQ(full(first, second, row.east, row.north), KOORD_OK);
            EXPECT_EQ(full(first, second, Below(0.0), 0.0), KOORD_ERR_EAST_LOW);
            EXPECT_EQ(full(first, second, Above(row.east), 0.0), KOORD_ERR_EAST_HIGH);
            EXPECT_EQ(full(first, second, 0.0, Below(0.0)), KOORD_ERR_NORTH_LOW);
            EXPECT_EQ(full(first, second, 0.0, Above(row.north)), KOORD_ERR_NORTH_HIGH);
        }
    }
}

TEST(RangeCheckRecord, UtmIsJudgedByThePositionItStandsFor) {
    const auto utm = [](std::int16_t zone, double easting, double northing) {
        UtmPayload p{};
        p.hemisphere = 'N';
        p.zone = zone;
        p.easting = easting;
        p.northing = northing;
        return OfRecord(Record(KOORD_UTM, p));
    };
    EXPECT_EQ(utm(32, 500000.0, 5400000.0), KOORD_OK);
    // A meridian arc of 9.5e6 m / 0.9996 ends near latitude 85.6.
    EXPECT_EQ(utm(32, 500000.0, 9500000.0), KOORD_ERR_UTM_LAT);
    // On the equator 400 km are 3.6 degrees: zone 60 and its meridian 177 reach beyond 180.
    EXPECT_EQ(utm(60, 900000.0, 1000.0), KOORD_ERR_UTM_LON);
    EXPECT_EQ(utm(0, 500000.0, 5400000.0), KOORD_ERR_UTM_ZONE)
        << "a failure of the conversion is given as it is";
}

TEST(RangeCheckRecord, GaussKruegerIsJudgedByThePositionItStandsFor) {
    const auto gk = [](std::int32_t type, double easting, double northing) {
        GkPayload p{};
        p.easting = easting;
        p.northing = northing;
        return OfRecord(Record(type, p));
    };
    for (const std::int32_t type : {KOORD_GK, KOORD_GK6}) {
        EXPECT_EQ(gk(type, 3500000.0, 5400000.0), KOORD_OK);
        // A meridian arc of 9.2e6 m ends near latitude 82.8.
        EXPECT_EQ(gk(type, 3500000.0, 9200000.0), KOORD_ERR_GK_LAT);
        EXPECT_EQ(gk(type, 90500000.0, 5400000.0), KOORD_ERR_MERIDIAN);
    }
    // Strip 60 has the meridian 180; 400 km on the equator are 3.6 degrees.
    EXPECT_EQ(gk(KOORD_GK, 60900000.0, 1000.0), KOORD_ERR_GK_EAST);
    // Strip 30 has the meridian 177.
    EXPECT_EQ(gk(KOORD_GK6, 30900000.0, 1000.0), KOORD_ERR_GK_EAST);
}

// A degree at the poles is 111.694 km long on the ellipsoid and 0.994 of that on the plane, and a little more
// further out: 1000 km from the pole is about 9 degrees, and 1200 km nearly 11.
TEST(RangeCheckRecord, UpsIsJudgedByItsLetterAndThePositionItStandsFor) {
    const auto ups = [](char hemisphere, double fromPole) {
        UpsPayload payload{};
        payload.hemisphere = hemisphere;
        payload.easting = 2000000.0 + fromPole;
        payload.northing = 2000000.0;
        tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UPS);
        Store(record, payload);
        return OfRecord(record);
    };
    for (const char hemisphere : {'N', 'S'}) {
        EXPECT_EQ(ups(hemisphere, 0.0), KOORD_OK);
        EXPECT_EQ(ups(hemisphere, 1.0e6), KOORD_OK);
        EXPECT_EQ(ups(hemisphere, -1.0e6), KOORD_OK);
        EXPECT_EQ(ups(hemisphere, 1.2e6), KOORD_ERR_UPS);
        EXPECT_EQ(ups(hemisphere, -1.2e6), KOORD_ERR_UPS);
    }
    for (const char other : {'n', 's', 'X', '\0'})
        EXPECT_EQ(ups(other, 1.0e6), KOORD_ERR_UPS) << other;
}

TEST(RangeCheckRecord, TheAustrianGridsAreJudgedByThePositionTheyStandFor) {
    const struct {
        std::int32_t type;
        double easting, northing;  // of a point on meridian 31 near latitude 47
    } rows[] = {
        {KOORD_BMN, 450000.0, 207000.0}, {KOORD_OEM, 750000.0, 5207000.0}, {KOORD_GKAT, 0.0, 5207000.0}};
    for (const auto& row : rows) {
        const auto grid = [&](double dEast, double dNorth, std::int16_t meridian = 31) {
            BmnPayload p{};
            p.meridian = meridian;
            p.easting = row.easting + dEast;
            p.northing = row.northing + dNorth;
            return OfRecord(Record(row.type, p, 6));
        };
        EXPECT_EQ(grid(0.0, 0.0), KOORD_OK);
        // 400 km are about 5.3 degrees of longitude there, 500 km 4.5 degrees of latitude.
        EXPECT_EQ(grid(400000.0, 0.0), KOORD_ERR_AT_LON);
        EXPECT_EQ(grid(-400000.0, 0.0), KOORD_ERR_AT_LON);
        EXPECT_EQ(grid(0.0, 500000.0), KOORD_ERR_AT_LAT);
        EXPECT_EQ(grid(0.0, -500000.0), KOORD_ERR_AT_LAT);
        EXPECT_EQ(grid(0.0, 0.0, 30), KOORD_ERR_MERIDIAN);
    }
}

}  // namespace
}  // namespace tessara
