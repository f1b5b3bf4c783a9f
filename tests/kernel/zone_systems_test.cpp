#include "tessara/kernel/zone_systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"

namespace tessara::zone_systems_test {
namespace {

using ::tessara::testing::ExpectPosition;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::Geodetic;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;

struct Utm : UtmPayload {
    KoordStatus status;
};

Utm ToUtm(double lat, double lon, std::int32_t wantedZone = NO_WANTED_ZONE,
          std::int32_t datum = DATUM_WGS84) {
    const TmConstants forward = ForwardConstants(datum);
    const double latLon[2] = {lat, lon};
    Utm utm{};
    utm.wantedZone = static_cast<std::int16_t>(wantedZone);
    utm.status = UTM_FromGeodetic(latLon, &utm, &forward);
    return utm;
}

// As GeoConvert writes it: "06s".
std::string ZoneAndHemisphere(const UtmPayload& utm) {
    const std::string zone = std::to_string(utm.zone);
    return (zone.size() < 2 ? "0" : "") + zone + (utm.hemisphere == 'N' ? 'n' : 's');
}

Geodetic FromUtm(const UtmPayload& utm, std::int32_t datum = DATUM_WGS84) {
    const TmConstants inverse = InverseConstants(datum);
    double latLon[2] = {-1.0, -2.0};
    const KoordStatus status = UTM_ToGeodetic(&utm, latLon, &inverse);
    return {status, latLon[0], latLon[1]};
}

UtmPayload UtmValues(std::int32_t zone, char hemisphere, double easting, double northing) {
    UtmPayload utm{};
    utm.zone = static_cast<std::int16_t>(zone);
    utm.hemisphere = hemisphere;
    utm.easting = easting;
    utm.northing = northing;
    return utm;
}

TEST(UtmNaturalMeridian, IsThatOfTheZone) {
    EXPECT_EQ(UTM_NaturalMeridian(0.0), -3);
    EXPECT_EQ(UTM_NaturalMeridian(1e-9), 3);
    EXPECT_EQ(UTM_NaturalMeridian(5.999), 3);
    EXPECT_EQ(UTM_NaturalMeridian(6.0), 9);
    EXPECT_EQ(UTM_NaturalMeridian(-1e-9), -3);
    EXPECT_EQ(UTM_NaturalMeridian(-5.999), -3);
    EXPECT_EQ(UTM_NaturalMeridian(-6.0), -9);
    EXPECT_EQ(UTM_NaturalMeridian(179.999), 177);
}

TEST(UtmNaturalMeridian, IsNotWrapped) {
    EXPECT_EQ(UTM_NaturalMeridian(180.0), 183);
    EXPECT_EQ(UTM_NaturalMeridian(-180.0), -183);
    EXPECT_EQ(UTM_NaturalMeridian(1000.0), 999);
}

TEST(Gk6NaturalMeridian, IsThatOfTheStrip) {
    EXPECT_EQ(GK6_NaturalMeridian(0.0), 3);
    EXPECT_EQ(GK6_NaturalMeridian(-1e-9), -3);
    EXPECT_EQ(GK6_NaturalMeridian(5.999), 3);
    EXPECT_EQ(GK6_NaturalMeridian(6.0), 9);
    EXPECT_EQ(GK6_NaturalMeridian(-5.999), -3);
    EXPECT_EQ(GK6_NaturalMeridian(-6.0), -9);
    EXPECT_EQ(GK6_NaturalMeridian(179.999), 177);
}

TEST(Gk6NaturalMeridian, IsWrapped) {
    EXPECT_EQ(GK6_NaturalMeridian(180.0), -177);
    EXPECT_EQ(GK6_NaturalMeridian(-180.0), 177);
    EXPECT_EQ(GK6_NaturalMeridian(361.0), 3);
    EXPECT_EQ(GK6_NaturalMeridian(3600001.0), 3);
}

TEST(GkNaturalMeridian, IsTheNearestMultipleOfThree) {
    EXPECT_EQ(GK_NaturalMeridian(0.0), 0);
    EXPECT_EQ(GK_NaturalMeridian(1.499), 0);
    EXPECT_EQ(GK_NaturalMeridian(1.5), 3);
    EXPECT_EQ(GK_NaturalMeridian(-1.0), 0);
    EXPECT_EQ(GK_NaturalMeridian(-1.499), 0);
    EXPECT_EQ(GK_NaturalMeridian(-1.5), -3);
    EXPECT_EQ(GK_NaturalMeridian(179.0), 180);
    EXPECT_EQ(GK_NaturalMeridian(-179.0), -180);
}

TEST(GkNaturalMeridian, IsWrapped) {
    EXPECT_EQ(GK_NaturalMeridian(181.499), 180);
    EXPECT_EQ(GK_NaturalMeridian(181.5), -177);
    EXPECT_EQ(GK_NaturalMeridian(-181.5), 177);
    EXPECT_EQ(GK_NaturalMeridian(540.0), 180);
    EXPECT_EQ(GK_NaturalMeridian(-540.0), -180);
    EXPECT_EQ(GK_NaturalMeridian(-3600.0), 0);
}

TEST(NaturalMeridian, IsUnknownForLongitudesThatAreNone) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_EQ(UTM_NaturalMeridian(bad), UNKNOWN_ZONE);
        EXPECT_EQ(GK_NaturalMeridian(bad), UNKNOWN_ZONE);
        EXPECT_EQ(GK6_NaturalMeridian(bad), UNKNOWN_ZONE);
    }
    EXPECT_EQ(UTM_NaturalMeridian(3e9), UNKNOWN_ZONE);
    EXPECT_EQ(UTM_NaturalMeridian(-1e300), UNKNOWN_ZONE);
    EXPECT_LE(std::abs(GK_NaturalMeridian(1e300)), 180);
    EXPECT_LE(std::abs(GK6_NaturalMeridian(-1e300)), 180);
}

TEST(UtmFromGeodetic, AgreesWithGeographicLib) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/utm.txt")) {
        SCOPED_TRACE(row.place);
        const Utm utm = ToUtm(row.Number(0), row.Number(1));
        EXPECT_EQ(utm.status, KOORD_OK);
        EXPECT_EQ(ZoneAndHemisphere(utm), row.Text(2));
        EXPECT_NEAR(utm.easting, row.Number(3), REFERENCE_TOLERANCE);
        EXPECT_NEAR(utm.northing, row.Number(4), REFERENCE_TOLERANCE);
        const UtmPayload published = UtmValues(utm.zone, utm.hemisphere, row.Number(3), row.Number(4));
        ExpectPosition(FromUtm(published), row.Number(0), row.Number(1), REFERENCE_TOLERANCE);
    }
}

// Also where Norway and Svalbard have zones of their own elsewhere.
TEST(UtmFromGeodetic, AgreesWithGeographicLibInAWantedZone) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/utm_wanted_zone.txt")) {
        SCOPED_TRACE(row.place);
        const auto zone = static_cast<std::int32_t>(row.Number(2));
        const Utm utm = ToUtm(row.Number(0), row.Number(1), zone);
        EXPECT_EQ(utm.status, KOORD_OK);
        EXPECT_EQ(ZoneAndHemisphere(utm), row.Text(3));
        EXPECT_NEAR(utm.easting, row.Number(4), REFERENCE_TOLERANCE);
        EXPECT_NEAR(utm.northing, row.Number(5), REFERENCE_TOLERANCE);
        EXPECT_EQ(utm.wantedZone, zone);
    }
}

TEST(UtmFromGeodetic, HasNoExceptionsForNorwayAndSvalbard) {
    EXPECT_EQ(ToUtm(60.4, 5.3).zone, 31);
    EXPECT_EQ(ToUtm(78.2, 8.0).zone, 32);
}

TEST(UtmFromGeodetic, LongitudeZeroFallsIntoZone30) {
    EXPECT_EQ(ToUtm(51.0, 0.0).zone, 30);
    EXPECT_GT(ToUtm(51.0, 0.0).easting, 500000.0);
    EXPECT_EQ(ToUtm(51.0, 1e-9).zone, 31);
}

TEST(UtmFromGeodetic, TheDateLineFallsIntoZones1And60) {
    EXPECT_EQ(ToUtm(51.0, 180.0).zone, 1);
    EXPECT_EQ(ToUtm(51.0, -180.0).zone, 60);
    ExpectPosition(FromUtm(ToUtm(51.0, 180.0)), 51.0, -180.0, ROUND_TRIP_TOLERANCE);
    ExpectPosition(FromUtm(ToUtm(51.0, -180.0)), 51.0, 180.0, ROUND_TRIP_TOLERANCE);
}

TEST(UtmFromGeodetic, TakesTheNaturalZoneForAWantedZoneThatIsNone) {
    for (const std::int32_t none : {-32768, -1000, -1, 0, 61, 32767}) {
        const Utm utm = ToUtm(48.0, 11.0, none);
        EXPECT_EQ(utm.status, KOORD_OK);
        EXPECT_EQ(utm.zone, 32);
    }
}

// 179 degrees east are 4 degrees west of the meridian 183: as 1 degree west lies in zone 31.
TEST(UtmFromGeodetic, ReachesAWantedZoneAcrossTheDateLineEastward) {
    const Utm utm = ToUtm(50.0, 179.0, 1);
    EXPECT_EQ(utm.status, KOORD_OK);
    EXPECT_EQ(utm.zone, 1);
    EXPECT_NEAR(utm.easting, ToUtm(50.0, -1.0, 31).easting, 1e-7);
    EXPECT_NEAR(utm.northing, ToUtm(50.0, -1.0, 31).northing, 1e-7);
    ExpectPosition(FromUtm(utm), 50.0, -181.0, ROUND_TRIP_TOLERANCE);
}

TEST(UtmFromGeodetic, ReachesAWantedZoneAcrossTheDateLineWestward) {
    const Utm utm = ToUtm(50.0, -179.0, 60);
    EXPECT_EQ(utm.status, KOORD_OK);
    EXPECT_EQ(utm.zone, 60);
    // Metres: 187 degrees are rounded where 7 aren't.
    EXPECT_NEAR(utm.easting, ToUtm(50.0, 7.0, 31).easting, 1e-7);
    EXPECT_NEAR(utm.northing, ToUtm(50.0, 7.0, 31).northing, 1e-7);
}

TEST(UtmFromGeodetic, WarnsWhenTheWantedZoneIsMoreThanTenZonesAway) {
    EXPECT_EQ(ToUtm(48.0, 9.0, 40).status, KOORD_OK);
    EXPECT_EQ(ToUtm(48.0, 9.0, 42).status, KOORD_OK);  // 60 degrees
    EXPECT_EQ(ToUtm(48.0, 9.0, 43).status, KOORD_ERR_ZONE_DISTANT);
    const Utm distant = ToUtm(48.0, 9.0, 50);
    EXPECT_EQ(distant.status, KOORD_ERR_ZONE_DISTANT);
    EXPECT_EQ(distant.zone, 50);
    EXPECT_NE(distant.easting, 0.0);
    EXPECT_NE(distant.northing, 0.0);
    EXPECT_EQ(ToUtm(48.0, 9.0, 22).status, KOORD_OK);
    EXPECT_EQ(ToUtm(48.0, 9.0, 21).status, KOORD_ERR_ZONE_DISTANT);
}

// 300 degrees are 60 across the date line. Eastward the zone comes out as wanted, westward it falls below 1.
TEST(UtmFromGeodetic, CountsThreeHundredDegreesAsAcrossTheDateLine) {
    EXPECT_EQ(ToUtm(10.0, 177.0, 10).status, KOORD_OK);
    EXPECT_EQ(ToUtm(10.0, 177.0, 10).zone, 10);
    EXPECT_EQ(ToUtm(10.0, 177.0, 11).status, KOORD_ERR_ZONE_DISTANT);
    EXPECT_EQ(ToUtm(10.0, -177.0, 51).status, KOORD_OK);
    EXPECT_EQ(ToUtm(10.0, -177.0, 51).zone, -9);
    EXPECT_EQ(ToUtm(10.0, -177.0, 50).status, KOORD_ERR_ZONE_DISTANT);
}

TEST(UtmFromGeodetic, FlipsTheHemisphereFromNinetyDegreesOn) {
    const Utm utm = ToUtm(50.0, 9.0, 48);  // the meridian 105
    EXPECT_EQ(utm.status, KOORD_ERR_ZONE_DISTANT);
    EXPECT_EQ(utm.hemisphere, 'S');
}

TEST(UtmFromGeodetic, TheEquatorIsNorth) {
    for (const double lat : {0.0, -0.0}) {
        for (const double lon : {9.0, 9.0 + 1e-9, 6.1, 11.9}) {
            const Utm utm = ToUtm(lat, lon);
            EXPECT_EQ(utm.hemisphere, 'N');
            EXPECT_EQ(utm.northing, 0.0);
        }
    }
}

TEST(UtmFromGeodetic, TheHemisphereIsThatOfTheNorthing) {
    const Utm south = ToUtm(-1e-9, 9.0);
    EXPECT_EQ(south.hemisphere, 'S');
    EXPECT_NEAR(south.northing, 1e7 - 1.1e-4, 1e-5);
    const Utm north = ToUtm(1e-9, 9.0);
    EXPECT_EQ(north.hemisphere, 'N');
    EXPECT_NEAR(north.northing, 1.1e-4, 1e-5);
    // Nearer to the equator than a unit in the last place of pi/4 the northing comes out just below 0.
    const Utm atEquator = ToUtm(1e-15, 9.0);
    EXPECT_EQ(atEquator.hemisphere, 'S');
    EXPECT_EQ(atEquator.northing, 1e7);
}

TEST(UtmFromGeodetic, GoesOnBeyondTheWorldUnchecked) {
    EXPECT_EQ(ToUtm(48.0, 400.0).zone, 37);
    EXPECT_EQ(ToUtm(48.0, -200.0).zone, -3);
    EXPECT_EQ(ToUtm(48.0, 2e9).status, KOORD_OK);
    EXPECT_EQ(ToUtm(48.0, -2e9).status, KOORD_OK);
}

TEST(UtmFromGeodetic, FailsForALongitudeWithoutMeridian) {
    const TmConstants forward = ForwardConstants(DATUM_WGS84);
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e300, -3e9}) {
        for (const std::int16_t wanted : {std::int16_t{0}, std::int16_t{32}}) {
            UtmPayload utm = UtmValues(7, 'x', 1.0, 2.0);
            utm.wantedZone = wanted;
            const double latLon[2] = {48.0, bad};
            EXPECT_EQ(UTM_FromGeodetic(latLon, &utm, &forward), KOORD_ERR_ZONE_DISTANT);
            EXPECT_EQ(utm.easting, 0.0);
            EXPECT_EQ(utm.northing, 0.0);
            EXPECT_EQ(utm.zone, 7);
            EXPECT_EQ(utm.hemisphere, 'x');
        }
    }
}

TEST(UtmFromGeodetic, GivesNoNumbersForALatitudeThatIsNone) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, 90.0, -90.0}) {
        const Utm utm = ToUtm(bad, 9.0);
        EXPECT_EQ(utm.status, KOORD_OK);
        EXPECT_TRUE(std::isnan(utm.northing));
        EXPECT_EQ(utm.hemisphere, 'N');
        EXPECT_EQ(utm.zone, 32);
    }
}

TEST(UtmToGeodetic, FailsForAZoneThatIsNone) {
    for (const std::int32_t none : {-32768, -1, 0, 61, 32767}) {
        const Geodetic position = FromUtm(UtmValues(none, 'N', 500000.0, 5000000.0));
        EXPECT_EQ(position.status, KOORD_ERR_UTM_ZONE);
        EXPECT_EQ(position.lat, -1.0);
        EXPECT_EQ(position.lon, -2.0);
    }
}

TEST(UtmToGeodetic, TakesTheMeridianOfTheZone) {
    for (std::int32_t zone = 1; zone <= 60; ++zone) {
        const Geodetic position = FromUtm(UtmValues(zone, 'N', 500000.0, 5000000.0));
        // Degrees, some units of the last place.
        EXPECT_NEAR(position.lon, 6.0 * zone - 183.0, 1e-12);
    }
}

TEST(UtmToGeodetic, ReadsOnlyTheLetterSAsSouth) {
    for (const char letter : {'S', 's'})
        EXPECT_LT(FromUtm(UtmValues(32, letter, 500000.0, 9000000.0)).lat, 0.0) << letter;
    for (const char letter : {'N', 'n', 'X', '\0', '\xff'})
        EXPECT_GT(FromUtm(UtmValues(32, letter, 500000.0, 9000000.0)).lat, 0.0) << letter;
}

TEST(UtmToGeodetic, PutsAPositionCloseToALimitOntoIt) {
    testing::ExpectLimitsAttract([](double lat, double lon) { return FromUtm(ToUtm(lat, lon)); },
                                 {-180.0, 180.0, -80.0, 84.0}, 50.0, 9.0);
}

TEST(UtmToGeodetic, ReturnsToWhereFromGeodeticStarted) {
    Random random(60);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const double lat = random.Between(-80.0, 84.0);
        const double lon = random.Between(-180.0, 180.0);
        ExpectPosition(FromUtm(ToUtm(lat, lon, NO_WANTED_ZONE, datum), datum), lat, lon,
                       ROUND_TRIP_TOLERANCE);
    }
}

TEST(UtmToGeodetic, EndsOnAnyRecord) {
    const TmConstants inverse = InverseConstants(DATUM_WGS84);
    for (const double absurd : {NOT_A_NUMBER, INFINITE, -INFINITE, 6e8, 1e300, -1e300}) {
        EXPECT_EQ(FromUtm(UtmValues(32, 'N', absurd, 5e6)).status, KOORD_OK);
        EXPECT_EQ(FromUtm(UtmValues(32, 'S', 5e5, absurd)).status, KOORD_OK);
    }
    Random random(61);
    for (int i = 0; i < 20000; ++i) {
        unsigned char bytes[sizeof(UtmPayload)];
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>(random.Below(256));
        UtmPayload utm;
        std::memcpy(&utm, bytes, sizeof utm);
        utm.zone = static_cast<std::int16_t>(1 + random.Below(60));
        double latLon[2] = {};
        EXPECT_EQ(UTM_ToGeodetic(&utm, latLon, &inverse), KOORD_OK);
    }
}

}  // namespace
}  // namespace tessara::zone_systems_test
