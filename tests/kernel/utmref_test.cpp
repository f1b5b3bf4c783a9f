#include "tessara/kernel/utmref.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "support/sanitized.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara::utmref_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr std::int32_t DATUM_GER = 3;  // on the Bessel ellipsoid: scheme AL

// The inverse transverse Mercator series is off by 1.2e-11 degrees of latitude. The tolerance is twice that,
// and a little more for the shorter degree of longitude.
constexpr double DEGREES = 2.5e-11;

// Forward and inverse constants of a datum.
struct Datum {
    TmConstants forward, inverse;

    explicit Datum(std::int32_t datum) {
        EXPECT_EQ(TM_LoadForwardConstants(datum, &forward), KOORD_OK);
        EXPECT_EQ(TM_LoadInverseConstants(datum, &inverse), KOORD_OK);
    }

    KoordStatus Forward(double lat, double lon, UtmrefPayload* payload) const {
        const double latLon[2] = {lat, lon};
        return UTMREF_FromGeodetic(latLon, payload, &forward);
    }

    UtmrefPayload At(double lat, double lon) const {
        UtmrefPayload payload{};
        EXPECT_EQ(Forward(lat, lon, &payload), KOORD_OK) << lat << ' ' << lon;
        return payload;
    }

    // The reference of a place on the zone's grid.
    UtmrefPayload AtGrid(int zone, char hemisphere, double easting, double northing) const {
        UtmPayload utm{};
        utm.hemisphere = hemisphere;
        utm.zone = static_cast<std::int16_t>(zone);
        utm.easting = easting;
        utm.northing = northing;
        double latLon[2];
        EXPECT_EQ(UTM_ToGeodetic(&utm, latLon, &inverse), KOORD_OK);
        return At(latLon[0], latLon[1]);
    }

    KoordStatus Inverse(const UtmrefPayload& payload, double latLon[2]) const {
        return UTMREF_ToGeodetic(&payload, latLon, &inverse);
    }

    // The grid value, within its zone, of a reference.
    UtmPayload GridValue(const UtmrefPayload& payload) const {
        double latLon[2];
        EXPECT_EQ(Inverse(payload, latLon), KOORD_OK);
        UtmPayload utm{};
        utm.wantedZone = payload.zone;
        EXPECT_EQ(UTM_FromGeodetic(latLon, &utm, &forward), KOORD_OK);
        return utm;
    }
};

UtmrefPayload Payload(int zone, const std::string& letters, int easting, int northing) {
    UtmrefPayload payload{};
    payload.zone = static_cast<std::int16_t>(zone);
    payload.band = letters[0];
    payload.column = letters[1];
    payload.row = letters[2];
    payload.easting = easting;
    payload.northing = northing;
    return payload;
}

std::string Letters(const UtmrefPayload& payload) {
    return {payload.band, payload.column, payload.row};
}

std::string Text(const UtmrefPayload& payload) {
    const auto digits = [](std::int32_t metres) {
        const std::string text = std::to_string(metres);
        return std::string(text.size() < 5 ? 5 - text.size() : 0, '0') + text;
    };
    const std::string zone = std::to_string(payload.zone);
    return (zone.size() < 2 ? "0" : "") + zone + Letters(payload) + digits(payload.easting) +
           digits(payload.northing);
}

void ExpectReference(const UtmrefPayload& payload, const UtmrefPayload& expected) {
    EXPECT_EQ(Text(payload), Text(expected));
}

void ExpectFailure(const Datum& datum, const UtmrefPayload& payload, KoordStatus status) {
    double latLon[2] = {1.0, 2.0};
    EXPECT_EQ(datum.Inverse(payload, latLon), status) << Text(payload);
    EXPECT_EQ(latLon[0], 1.0);
    EXPECT_EQ(latLon[1], 2.0);
}

void ExpectForwardFailure(const Datum& datum, double lat, double lon, int wantedZone, KoordStatus status) {
    UtmrefPayload payload;
    std::memset(&payload, 0x5A, sizeof payload);
    payload.wantedZone = static_cast<std::int16_t>(wantedZone);
    const UtmrefPayload before = payload;
    EXPECT_EQ(datum.Forward(lat, lon, &payload), status) << lat << ' ' << lon;
    EXPECT_EQ(std::memcmp(&payload, &before, sizeof payload), 0);
}

TEST(UtmrefScheme, IsAAForTheseEllipsoidsAndALForAllOthers) {
    const std::string schemes =
        "LLALLALLALLAAAAAAALLLLLAAA";  // codes 0..25: International, WGS84, Australian, the Everests ...
    for (std::int32_t code = 0; code < 26; ++code)
        EXPECT_EQ(UTMREF_UsesSchemeAA(code), schemes[static_cast<std::size_t>(code)] == 'A') << code;
    for (const std::int32_t code : {-1, 26, 255, INT32_MIN, INT32_MAX})
        EXPECT_FALSE(UTMREF_UsesSchemeAA(code));
}

TEST(Utmref, AgreesWithGeoConvert) {
    const Datum wgs84(DATUM_WGS84);
    for (const ReferenceRow& row : ReadReferenceFile("kernel/utmref.txt")) {
        SCOPED_TRACE(row.place);
        const UtmrefPayload payload = wgs84.At(row.Number(0), row.Number(1));
        EXPECT_EQ(Text(payload), row.Text(2));
        double latLon[2];
        EXPECT_EQ(wgs84.Inverse(payload, latLon), KOORD_OK);
        EXPECT_NEAR(latLon[0], row.Number(0), DEGREES);
        EXPECT_NEAR(latLon[1] * std::cos(latLon[0] * RADIANS_PER_DEGREE),
                    row.Number(1) * std::cos(latLon[0] * RADIANS_PER_DEGREE), DEGREES);
    }
}

TEST(Utmref, AgreesWithProjsGridOnTheBesselEllipsoid) {
    const Datum bessel(DATUM_GER);
    for (const ReferenceRow& row : ReadReferenceFile("kernel/utmref_bessel.txt")) {
        SCOPED_TRACE(row.place);
        const UtmrefPayload expected =
            Payload(static_cast<int>(row.Number(2)), row.Text(3), static_cast<int>(row.Number(4)),
                    static_cast<int>(row.Number(5)));
        ExpectReference(bessel.At(row.Number(0), row.Number(1)), expected);
    }
}

TEST(Utmref, LettersTheBandsByEightDegrees) {
    const std::string bands = "CDEFGHJKLMNPQRSTUVWX";
    const Datum wgs84(DATUM_WGS84);
    for (int band = 0; band < 20; ++band) {
        const double south = -80.0 + 8.0 * band;
        const char letter = bands[static_cast<std::size_t>(band)];
        EXPECT_EQ(wgs84.At(south + 0.001, 9.0).band, letter);
        EXPECT_EQ(wgs84.At(south + 4.0, 9.0).band, letter);
        EXPECT_EQ(wgs84.At(south + 7.999, 9.0).band, letter);
    }
}

TEST(Utmref, LetsBandXReachUpTo84Degrees) {
    const Datum wgs84(DATUM_WGS84);
    for (const double lat : {80.0, 83.9, 84.0})
        EXPECT_EQ(wgs84.At(lat, 9.0).band, 'X');
}

TEST(Utmref, LettersTheColumnsByTheZonesRemainderByThree) {
    const std::string columns[3] = {"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};
    // At the equator a zone ends at 166021 and 833979.
    const double eastings[8] = {170000, 250000, 350000, 450000, 550000, 650000, 750000, 830000};
    const Datum wgs84(DATUM_WGS84);
    for (const int zone : {1, 2, 3, 31, 32, 33, 58, 59, 60}) {
        for (std::size_t column = 0; column < 8; ++column) {
            const char letter = columns[zone % 3][column];
            const double easting = eastings[column];
            const UtmrefPayload payload = wgs84.AtGrid(zone, 'N', easting, 50000.0);
            EXPECT_EQ(payload.column, letter);
            EXPECT_EQ(payload.zone, zone);
            EXPECT_NEAR(wgs84.GridValue(payload).easting, easting, 1e-5);
        }
    }
}

// Walks a zone's central meridian from the equator to both ends, in the middle of each row. `rows` are the
// letters from the equator to 2000 km north.
void ExpectRows(const Datum& datum, int zone, const std::string& rows) {
    for (int i = 0; i < 93; ++i) {
        const double northing = 100000.0 * i + 50000.0;
        const UtmrefPayload payload = datum.AtGrid(zone, 'N', 500000.0, northing);
        EXPECT_EQ(payload.row, rows[static_cast<std::size_t>(i % 20)]) << "row " << i;
        EXPECT_EQ(payload.northing, 50000);
        const UtmPayload back = datum.GridValue(payload);
        EXPECT_EQ(back.hemisphere, 'N');
        EXPECT_NEAR(back.northing, northing, 1e-5);
    }
    for (int i = 12; i < 100; ++i) {
        const double northing = 100000.0 * i + 50000.0;
        const UtmrefPayload payload = datum.AtGrid(zone, 'S', 500000.0, northing);
        EXPECT_EQ(payload.row, rows[static_cast<std::size_t>(i % 20)]) << "row " << i;
        EXPECT_EQ(payload.northing, 50000);
        const UtmPayload back = datum.GridValue(payload);
        EXPECT_EQ(back.hemisphere, 'S');
        EXPECT_NEAR(back.northing, northing, 1e-5);
    }
}

// The letters of DMA TM 8358.1: even zones begin with the sixth letter, scheme AL ten letters on.
TEST(Utmref, LettersTheRowsOfSchemeAA) {
    const Datum wgs84(DATUM_WGS84);
    ExpectRows(wgs84, 31, "ABCDEFGHJKLMNPQRSTUV");
    ExpectRows(wgs84, 32, "FGHJKLMNPQRSTUVABCDE");
}

TEST(Utmref, LettersTheRowsOfSchemeAL) {
    const Datum bessel(DATUM_GER);
    ExpectRows(bessel, 31, "LMNPQRSTUVABCDEFGHJK");
    ExpectRows(bessel, 32, "RSTUVABCDEFGHJKLMNPQ");
}

// Southern rows end below the equator at the false northing of 10000 km, which is a multiple of 2000 km.
TEST(Utmref, LettersTheRowSouthOfTheEquatorWithTheLastLetter) {
    EXPECT_EQ(Letters(Datum(DATUM_WGS84).At(-0.5, 3.0)), "MEV");
    EXPECT_EQ(Letters(Datum(DATUM_WGS84).At(-0.5, 9.0)), "MNE");
    EXPECT_EQ(Letters(Datum(DATUM_GER).At(-0.5, 3.0)), "MEK");
    EXPECT_EQ(Letters(Datum(DATUM_GER).At(-0.5, 9.0)), "MNQ");
}

// A latitude south of the equator with exactly this northing, found by halves; 0.0 if there is none.
double LatitudeOfNorthing(const Datum& datum, double northing) {
    double south = -1e-5;
    double north = 0.0;
    for (int i = 0; i < 100; ++i) {
        const double latLon[2] = {(south + north) / 2.0, 9.0};
        UtmPayload utm{};
        EXPECT_EQ(UTM_FromGeodetic(latLon, &utm, &datum.forward), KOORD_OK);
        if (utm.northing == northing) return latLon[0];
        (utm.northing < northing ? south : north) = latLon[0];
    }
    return 0.0;
}

TEST(Utmref, ExactlyHalfAMetreSouthOfTheEquatorRoundsOntoIt) {
    const Datum datum(DATUM_WGS84);
    const double latitude = LatitudeOfNorthing(datum, 9999999.5);
    ASSERT_LT(latitude, 0.0);
    const UtmrefPayload p = datum.At(latitude, 9.0);
    EXPECT_EQ(p.band, 'N');
    EXPECT_EQ(p.northing, 0);
    EXPECT_EQ(datum.At(latitude - 1e-12, 9.0).band, 'M') << "a ten-thousandth of a millimetre further south";
}

// 0.11 m and 1.1 m south of the equator: 9999999.89 and 9999998.89 m.
TEST(UtmrefFromGeodetic, RoundsAPointJustSouthOfTheEquatorOntoIt) {
    const Datum wgs84(DATUM_WGS84);
    ExpectReference(wgs84.At(-0.000001, 3.0), Payload(31, "NEA", 0, 0));
    ExpectReference(wgs84.At(-0.00001, 3.0), Payload(31, "MEV", 0, 99999));
    ExpectReference(wgs84.At(0.0, 3.0), Payload(31, "NEA", 0, 0));
}

TEST(UtmrefFromGeodetic, TakesTheBandOfTheRoundedPosition) {
    const Datum wgs84(DATUM_WGS84);
    // On the central meridian latitude 8 is at the northing 884297.85 (GeoConvert): 884298 lies beyond it.
    EXPECT_EQ(wgs84.At(7.999999999, 9.0).band, 'P');
    EXPECT_EQ(wgs84.At(7.99999, 9.0).band, 'N');
}

// Close to the edges of bands and anywhere else, in the own zone and in others.
TEST(UtmrefFromGeodetic, TakesTheBandOfTheRoundedPositionEverywhere) {
    constexpr std::string_view BANDS = "CDEFGHJKLMNPQRSTUVWX";
    const Datum wgs84(DATUM_WGS84);
    std::mt19937 random(24);
    std::uniform_real_distribution<double> across(-179.9, 179.9), within(-80.0, 84.0), near(-2e-5, 2e-5);
    for (int i = 0; i < 20000; ++i) {
        const double edge = 8.0 * (static_cast<int>(random() % 20) - 9);
        const double latLon[2] = {i % 2 == 0 ? edge + near(random) : within(random), across(random)};
        UtmPayload utm{};
        UtmrefPayload reference{};
        if (i % 5 == 0) utm.wantedZone = static_cast<std::int16_t>(1 + random() % 60);
        reference.wantedZone = utm.wantedZone;
        if (UTMREF_FromGeodetic(latLon, &reference, &wgs84.forward) != KOORD_OK) continue;
        ASSERT_EQ(UTM_FromGeodetic(latLon, &utm, &wgs84.forward), KOORD_OK);
        utm.easting = std::floor(utm.easting + 0.5);
        utm.northing = std::floor(utm.northing + 0.5);
        double rounded[2];
        ASSERT_EQ(UTM_ToGeodetic(&utm, rounded, &wgs84.inverse), KOORD_OK);
        const int band = static_cast<int>(std::floor(rounded[0] / 8.0)) + 10;
        // A border belongs to the northern band; which one a position has that is on it counts elsewhere.
        if (std::fabs(rounded[0] - 8.0 * std::round(rounded[0] / 8.0)) < DEGREES) continue;
        EXPECT_EQ(reference.band, BANDS[static_cast<std::size_t>(std::min(band, 19))])
            << latLon[0] << ' ' << latLon[1];
    }
}

// Beside lines of whole and half metres, of which every hundredth is beside a border of squares.
TEST(UtmrefFromGeodetic, NamesTheSquareAndTheMetreThatAPositionIsRoundedTo) {
    constexpr std::string_view COLUMNS = "ABCDEFGHJKLMNPQRSTUVWXYZ";
    constexpr std::string_view ROWS = "ABCDEFGHJKLMNPQRSTUV";
    const Datum wgs84(DATUM_WGS84);
    std::mt19937 random(25);
    const auto beside = [&random](int first, int last) {
        constexpr double distances[] = {-0.5, -1e-7, 0.0, 1e-7, 0.5};
        std::uniform_int_distribution<int> metres(first, last);
        const int whole = random() % 100 == 0 ? 100000 * (metres(random) / 100000) : metres(random);
        return whole + distances[random() % 5];
    };
    for (int i = 0; i < 20000; ++i) {
        const int zone = 1 + static_cast<int>(random() % 60);
        UtmPayload utm{};
        utm.hemisphere = random() % 2 == 0 ? 'N' : 'S';
        utm.zone = utm.wantedZone = static_cast<std::int16_t>(zone);
        utm.easting = beside(200000, 800000);
        utm.northing = utm.hemisphere == 'N' ? beside(0, 9300000) : beside(1200000, 10000000);
        double latLon[2];
        ASSERT_EQ(UTM_ToGeodetic(&utm, latLon, &wgs84.inverse), KOORD_OK);
        ASSERT_EQ(UTM_FromGeodetic(latLon, &utm, &wgs84.forward), KOORD_OK);
        UtmrefPayload reference{};
        reference.wantedZone = utm.wantedZone;
        ASSERT_EQ(UTMREF_FromGeodetic(latLon, &reference, &wgs84.forward), KOORD_OK);

        const int easting = static_cast<int>(std::floor(utm.easting + 0.5));
        const int northing = static_cast<int>(std::floor(utm.northing + 0.5)) % 10000000;
        const int column = (zone - 1) % 3 * 8 + easting / 100000 - 1;
        const int row = (northing / 100000 + (zone % 2 == 0 ? 5 : 0)) % 20;
        EXPECT_EQ(reference.zone, zone);
        EXPECT_EQ(reference.column, COLUMNS[static_cast<std::size_t>(column)]) << zone << ' ' << easting;
        EXPECT_EQ(reference.row, ROWS[static_cast<std::size_t>(row)]) << zone << ' ' << northing;
        EXPECT_EQ(reference.easting, easting % 100000);
        EXPECT_EQ(reference.northing, northing % 100000);
    }
}

TEST(UtmrefFromGeodetic, HasNoExceptionsForNorwayAndSvalbard) {
    const Datum wgs84(DATUM_WGS84);
    EXPECT_EQ(wgs84.At(60.4, 5.3).zone, 31);
    EXPECT_EQ(wgs84.At(78.2, 15.6).zone, 33);
    EXPECT_EQ(wgs84.At(78.2, 8.0).zone, 32);
}

TEST(UtmrefFromGeodetic, TakesAWantedZone) {
    const Datum wgs84(DATUM_WGS84);
    UtmrefPayload payload{};
    payload.wantedZone = 32;
    EXPECT_EQ(wgs84.Forward(70.0, 13.0, &payload), KOORD_OK);
    EXPECT_EQ(payload.zone, 32);
    EXPECT_EQ(payload.wantedZone, 32);
    double latLon[2];
    EXPECT_EQ(wgs84.Inverse(payload, latLon), KOORD_OK);
    EXPECT_NEAR(latLon[0], 70.0, 1e-5);  // a metre
    EXPECT_NEAR(latLon[1], 13.0, 3e-5);
}

TEST(UtmrefFromGeodetic, TakesTheNaturalZoneForAWantedOneThatDoesNotExist) {
    const Datum wgs84(DATUM_WGS84);
    for (const int wanted : {0, -1, 61, static_cast<int>(NO_WANTED_ZONE), 32767, -32768}) {
        UtmrefPayload payload{};
        payload.wantedZone = static_cast<std::int16_t>(wanted);
        EXPECT_EQ(wgs84.Forward(50.0, 13.0, &payload), KOORD_OK);
        EXPECT_EQ(payload.zone, 33);
        EXPECT_EQ(payload.wantedZone, wanted);
    }
}

TEST(UtmrefFromGeodetic, FailsForADistantWantedZoneAndLeavesThePayload) {
    ExpectForwardFailure(Datum(DATUM_WGS84), 50.0, 9.0, 50, KOORD_ERR_ZONE_DISTANT);
}

// Ten degrees off the central meridian at the equator: the easting is far beyond the eight columns.
TEST(UtmrefFromGeodetic, FailsWhereTheWantedZoneHasNoColumn) {
    ExpectForwardFailure(Datum(DATUM_WGS84), 1.0, 13.0, 31, KOORD_ERR_GENERAL);
    ExpectForwardFailure(Datum(DATUM_WGS84), -1.0, -7.0, 31, KOORD_ERR_GENERAL);
}

TEST(UtmrefFromGeodetic, FailsForALongitudeWithoutAZone) {
    const Datum wgs84(DATUM_WGS84);
    ExpectForwardFailure(wgs84, 50.0, -200.0, 0, KOORD_ERR_UTM_ZONE);
    ExpectForwardFailure(wgs84, 50.0, 1e300, 0, KOORD_ERR_ZONE_DISTANT);
    ExpectForwardFailure(wgs84, 50.0, INFINITE, 0, KOORD_ERR_ZONE_DISTANT);
    ExpectForwardFailure(wgs84, 50.0, NOT_A_NUMBER, 0, KOORD_ERR_ZONE_DISTANT);
}

TEST(UtmrefFromGeodetic, FailsForWhatIsNoLatitude) {
    const Datum wgs84(DATUM_WGS84);
    for (const double lat : {NOT_A_NUMBER, INFINITE, -INFINITE, 90.0, -90.0})
        ExpectForwardFailure(wgs84, lat, 9.0, 0, KOORD_ERR_GENERAL);
}

TEST(Utmref, FailsForConstantsWithoutADatum) {
    Datum nowhere(DATUM_WGS84);
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        nowhere.forward.datum = nowhere.inverse.datum = datum;
        ExpectForwardFailure(nowhere, 50.0, 9.0, 0, KOORD_ERR_DATUM);
        ExpectFailure(nowhere, Payload(32, "UNA", 0, 0), KOORD_ERR_GENERAL);
    }
}

TEST(UtmrefToGeodetic, FailsForAByteThatIsNoBand) {
    const std::string bands = "CDEFGHJKLMNPQRSTUVWX";
    const Datum wgs84(DATUM_WGS84);
    for (int byte = 0; byte < 256; ++byte) {
        const char letter = static_cast<char>(byte);
        if (bands.find(letter) == std::string::npos)
            ExpectFailure(wgs84, Payload(32, {letter, 'N', 'A'}, 0, 0), KOORD_ERR_GENERAL);
    }
}

TEST(UtmrefToGeodetic, FailsForAByteThatIsNoColumnOfTheZone) {
    const std::string columns[3] = {"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};
    const Datum wgs84(DATUM_WGS84);
    for (const int zone : {31, 32, 33}) {
        for (int byte = 0; byte < 256; ++byte) {
            const char letter = static_cast<char>(byte);
            const UtmrefPayload payload = Payload(zone, {'U', letter, zone == 32 ? 'U' : 'P'}, 0, 0);
            if (columns[zone % 3].find(letter) == std::string::npos) {
                ExpectFailure(wgs84, payload, KOORD_ERR_GENERAL);
            } else {
                double latLon[2];
                EXPECT_EQ(wgs84.Inverse(payload, latLon), KOORD_OK);
            }
        }
    }
}

TEST(UtmrefToGeodetic, FailsForAByteThatIsNoRow) {
    const std::string rows = "ABCDEFGHJKLMNPQRSTUV";
    for (const std::int32_t datum : {DATUM_WGS84, DATUM_GER}) {
        const Datum constants(datum);
        for (const char band : {'K', 'U', 'C', 'X', 'M', 'N'}) {
            for (int byte = 0; byte < 256; ++byte) {
                const char letter = static_cast<char>(byte);
                if (rows.find(letter) == std::string::npos)
                    ExpectFailure(constants, Payload(32, {band, 'N', letter}, 0, 0), KOORD_ERR_GENERAL);
            }
        }
    }
}

// The northings of latitude 48 and 56 on the central meridian of an odd zone are 5316300 and 6206080
// (GeoConvert), so band U has the rows 53 to 62; the zone's edge reaches 1.00037 times the meridian distance
// of 56, 6210858, which is in row 62, too.
TEST(UtmrefToGeodetic, AcceptsTheRowsThatTouchTheBandOnly) {
    const std::string rows = "ABCDEFGHJKLMNPQRSTUV";
    const Datum wgs84(DATUM_WGS84);
    for (int i = 45; i < 65; ++i) {
        const UtmrefPayload payload =
            Payload(31, {'U', 'E', rows[static_cast<std::size_t>(i % 20)]}, 0, 50000);
        if (i < 53 || i > 62) {
            ExpectFailure(wgs84, payload, KOORD_ERR_GENERAL);
        } else {
            EXPECT_NEAR(wgs84.GridValue(payload).northing, 100000.0 * i + 50000.0, 1e-5);
        }
    }
}

// The same band on the other side: northings 3793920 to 4683700 count from the south, rows 37 to 46.
TEST(UtmrefToGeodetic, AcceptsTheSouthernRowsThatTouchTheBandOnly) {
    const std::string rows = "ABCDEFGHJKLMNPQRSTUV";
    const Datum wgs84(DATUM_WGS84);
    for (int i = 32; i < 52; ++i) {
        const UtmrefPayload payload =
            Payload(31, {'F', 'E', rows[static_cast<std::size_t>(i % 20)]}, 0, 50000);
        if (i < 37 || i > 46) {
            ExpectFailure(wgs84, payload, KOORD_ERR_GENERAL);
        } else {
            EXPECT_NEAR(wgs84.GridValue(payload).northing, 100000.0 * i + 50000.0, 1e-5);
        }
    }
}

// Latitude 64 is at the northing 7097014 on the central meridian (GeoConvert), but at 7102481 with the factor
// 1.00037: the row that begins at 7100000 belongs to the band, for the sake of the zone's edges.
TEST(UtmrefToGeodetic, AcceptsARowThatTheBandReachesAtTheZonesEdgesOnly) {
    const Datum wgs84(DATUM_WGS84);
    EXPECT_NEAR(wgs84.GridValue(Payload(31, "VEM", 0, 0)).northing, 7100000.0, 1e-5);
    EXPECT_NEAR(wgs84.GridValue(Payload(31, "EEJ", 0, 99999)).northing, 2899999.0, 1e-5);
}

TEST(UtmrefToGeodetic, ReadsTheCornerOfASquareThatLiesOutsideTheBand) {
    const Datum wgs84(DATUM_WGS84);
    // Row 53 of zone 31 begins at 5300000, south of latitude 48: the reference still reads in its band.
    EXPECT_NEAR(wgs84.GridValue(Payload(31, "UEP", 0, 0)).northing, 5300000.0, 1e-5);
}

TEST(UtmrefToGeodetic, FailsForAZoneThatDoesNotExist) {
    const Datum wgs84(DATUM_WGS84);
    const std::string columns[3] = {"STUVWXYZ", "ABCDEFGH", "JKLMNPQR"};
    for (const int zone : {0, -1, -2, -3, -60, 61, 62, 63, 32767, -32768}) {
        int found = 0;
        for (const char column : std::string("ABCDEFGHJKLMNPQRSTUVWXYZ")) {
            const char row = zone % 2 == 0 ? 'U' : 'P';
            double latLon[2] = {1.0, 2.0};
            const KoordStatus status = wgs84.Inverse(Payload(zone, {'U', column, row}, 0, 0), latLon);
            EXPECT_TRUE(status == KOORD_ERR_GENERAL || status == KOORD_ERR_UTM_ZONE);
            found += status == KOORD_ERR_UTM_ZONE;
            EXPECT_EQ(latLon[0], 1.0);
            EXPECT_EQ(latLon[1], 2.0);
        }
        EXPECT_EQ(found, 8);  // the columns of one list
        ExpectFailure(wgs84, Payload(zone, std::string(3, '\0'), 0, 0), KOORD_ERR_GENERAL);
    }
}

TEST(UtmrefToGeodetic, FailsForAClearedPayload) {
    ExpectFailure(Datum(DATUM_WGS84), UtmrefPayload{}, KOORD_ERR_GENERAL);
}

// At the equator the zones end at the eastings 166021.44 and 833978.56; on the central meridian the bands end
// at the northings 9328093.83 and 1118414.18 (GeoConvert). The whole metres beside them are within 1e-5
// degrees.
TEST(UtmrefToGeodetic, SnapsOntoTheLimitsOfTheSystem) {
    const Datum wgs84(DATUM_WGS84);
    double latLon[2];
    EXPECT_EQ(wgs84.Inverse(Payload(60, "NZF", 33979, 0), latLon), KOORD_OK);
    EXPECT_EQ(latLon[1], 180.0);
    EXPECT_EQ(wgs84.Inverse(Payload(1, "NAA", 66021, 0), latLon), KOORD_OK);
    EXPECT_EQ(latLon[1], -180.0);
    EXPECT_EQ(wgs84.Inverse(Payload(31, "XEP", 0, 28094), latLon), KOORD_OK);
    EXPECT_EQ(latLon[0], 84.0);
    EXPECT_EQ(wgs84.Inverse(Payload(31, "CEM", 0, 18414), latLon), KOORD_OK);
    EXPECT_EQ(latLon[0], -80.0);
}

TEST(UtmrefToGeodetic, DoesNotSnapFartherInside) {
    const Datum wgs84(DATUM_WGS84);
    double latLon[2];
    EXPECT_EQ(wgs84.Inverse(Payload(60, "NZF", 33977, 0), latLon), KOORD_OK);
    EXPECT_NEAR(latLon[1], 180.0 - 1.4e-5, 1e-6);  // 1.56 m
    EXPECT_EQ(wgs84.Inverse(Payload(31, "XEP", 0, 28092), latLon), KOORD_OK);
    EXPECT_NEAR(latLon[0], 84.0 - 1.64e-5, 1e-6);  // 1.83 m
}

TEST(UtmrefToGeodetic, TakesMetresOutsideTheSquareAsTheyAre) {
    const Datum wgs84(DATUM_WGS84);
    const UtmPayload utm = wgs84.GridValue(Payload(31, "UEP", -1000, 123456));
    // Metres, through degrees and back.
    EXPECT_NEAR(utm.easting, 499000.0, 1e-5);
    EXPECT_NEAR(utm.northing, 5423456.0, 1e-5);
}

TEST(UtmrefToGeodetic, EndsWithAnyPayload) {
    std::mt19937_64 random(1949);
    const Datum wgs84(DATUM_WGS84);
    const Datum bessel(DATUM_GER);
    constexpr char letters[] = "ABCDEFGHJKLMNPQRSTUVWXYZ";
    for (int i = 0; i < 50000; ++i) {
        std::uint64_t words[2] = {random(), random()};
        UtmrefPayload payload;
        static_assert(sizeof payload == sizeof words);
        std::memcpy(&payload, words, sizeof payload);
        if (i % 2 == 0) {
            payload.band = letters[random() % 24];
            payload.column = letters[random() % 24];
            payload.row = letters[random() % 24];
        }
        if (i % 4 == 0) payload.zone = static_cast<std::int16_t>(1 + random() % 60);
        double latLon[2] = {1.0, 2.0};
        const KoordStatus status = (i % 8 < 4 ? wgs84 : bessel).Inverse(payload, latLon);
        EXPECT_TRUE(status == KOORD_OK || status == KOORD_ERR_GENERAL || status == KOORD_ERR_UTM_ZONE);
        EXPECT_FALSE(std::fabs(latLon[0]) > 90.0 + 1e-9);
    }
}

constexpr int SLOWER = testing::IS_SANITIZED ? 4 : 1;  // sanitized code takes about that much longer

// Distance in metres between two positions close together, on the ellipsoid's radii of curvature.
double DistanceOnGround(const double from[2], const double to[2], double a, double e2) {
    const double phi = from[0] * RADIANS_PER_DEGREE;
    const double w = 1.0 - e2 * std::sin(phi) * std::sin(phi);
    const double north = (to[0] - from[0]) * RADIANS_PER_DEGREE * a * (1.0 - e2) / (w * std::sqrt(w));
    const double east = (to[1] - from[1]) * RADIANS_PER_DEGREE * a * std::cos(phi) / std::sqrt(w);
    return std::hypot(north, east);
}

// Rounding to whole metres moves a point by half a metre on either axis of the grid, 0.7071 m; the ground is
// larger than the grid by up to 1/0.9996.
void ExpectRoundTrips(std::int32_t datum, double a, double f, int count, unsigned seed) {
    const Datum constants(datum);
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> latitude(-80.0, 84.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    double worst = 0.0;
    int failures = 0;
    for (int i = 0; i < count / SLOWER; ++i) {
        const double start[2] = {latitude(random), longitude(random)};
        UtmrefPayload payload{};
        double back[2];
        if (constants.Forward(start[0], start[1], &payload) != KOORD_OK ||
            constants.Inverse(payload, back) != KOORD_OK) {
            ++failures;
            continue;
        }
        worst = std::fmax(worst, DistanceOnGround(start, back, a, 2.0 * f - f * f));
    }
    EXPECT_EQ(failures, 0);
    EXPECT_LE(worst, 0.71);
    EXPECT_GE(worst, 0.70);  // the rounding is there, and the comparison sees it
}

TEST(Utmref, ReturnsWithinItsMetreFromAMillionPlaces) {
    ExpectRoundTrips(DATUM_WGS84, 6378137.0, 1.0 / 298.257223563, 1000000, 20240301);
}

TEST(Utmref, ReturnsWithinItsMetreFromAHundredThousandPlacesOnTheBesselEllipsoid) {
    ExpectRoundTrips(DATUM_GER, 6377397.155, 1.0 / 299.1528128, 100000, 20240302);
}

}  // namespace
}  // namespace tessara::utmref_test
