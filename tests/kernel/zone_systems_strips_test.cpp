#include "tessara/kernel/zone_systems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "kernel/datums.h"
#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"

namespace tessara::zone_systems_strips_test {
namespace {

using ::tessara::testing::ExpectPosition;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::Geodetic;
using ::tessara::testing::GER;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;

constexpr std::int32_t KS42_83 = 10;  // on the Krassovsky ellipsoid

struct Gk : GkPayload {
    KoordStatus status;
};

using FromGeodetic = KoordStatus (*)(const double[2], GkPayload*, const TmConstants*);
using ToGeodetic = KoordStatus (*)(const GkPayload*, double[2], const TmConstants*);

Gk ToStrip(FromGeodetic convert, double lat, double lon, std::int32_t wantedMeridian, std::int32_t datum) {
    const TmConstants forward = ForwardConstants(datum);
    const double latLon[2] = {lat, lon};
    Gk gk{};
    gk.wantedMeridian = static_cast<std::int16_t>(wantedMeridian);
    gk.status = convert(latLon, &gk, &forward);
    return gk;
}

Gk ToGk(double lat, double lon, std::int32_t wantedMeridian = NO_WANTED_ZONE, std::int32_t datum = GER) {
    return ToStrip(GK_FromGeodetic, lat, lon, wantedMeridian, datum);
}

Gk ToGk6(double lat, double lon, std::int32_t wantedMeridian = NO_WANTED_ZONE, std::int32_t datum = KS42_83) {
    return ToStrip(GK6_FromGeodetic, lat, lon, wantedMeridian, datum);
}

Geodetic FromStrip(ToGeodetic convert, const GkPayload& gk, std::int32_t datum) {
    const TmConstants inverse = InverseConstants(datum);
    double latLon[2] = {-1.0, -2.0};
    const KoordStatus status = convert(&gk, latLon, &inverse);
    return {status, latLon[0], latLon[1]};
}

Geodetic FromGk(const GkPayload& gk, std::int32_t datum = GER) {
    return FromStrip(GK_ToGeodetic, gk, datum);
}

Geodetic FromGk6(const GkPayload& gk, std::int32_t datum = KS42_83) {
    return FromStrip(GK6_ToGeodetic, gk, datum);
}

GkPayload GridValues(double easting, double northing) {
    GkPayload gk{};
    gk.easting = easting;
    gk.northing = northing;
    return gk;
}

// Easting without its strip, as the reference files have it, to the system's easting.
double WithStrip(std::int32_t strip, double easting) {
    return strip < 0 ? strip * 1e6 - easting : strip * 1e6 + easting;
}

TEST(GkFromGeodetic, AgreesWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/gk.txt")) {
        SCOPED_TRACE(row.place);
        const double lat = row.Number(0);
        const double lon = row.Number(1);
        const auto meridian = static_cast<std::int32_t>(row.Number(2));
        const double easting = WithStrip(meridian / 3, row.Number(3));
        const Gk gk = ToGk(lat, lon, meridian);
        EXPECT_EQ(gk.status, KOORD_OK);
        EXPECT_NEAR(gk.easting, easting, REFERENCE_TOLERANCE);
        EXPECT_NEAR(gk.northing, row.Number(4), REFERENCE_TOLERANCE);
        EXPECT_EQ(gk.wantedMeridian, meridian);
        ExpectPosition(FromGk(GridValues(easting, row.Number(4))), lat, lon, REFERENCE_TOLERANCE);
        if (std::fabs(lon - meridian) < 1.5) {
            EXPECT_EQ(ToGk(lat, lon).easting, gk.easting);
        }
    }
}

TEST(GkFromGeodetic, GreenwichIsStripZero) {
    const Gk at0 = ToGk(50.0, 0.0);
    EXPECT_EQ(at0.status, KOORD_OK);
    EXPECT_EQ(at0.easting, 500000.0);
    const Gk west = ToGk(50.0, -1.0);
    EXPECT_EQ(west.status, KOORD_OK);
    EXPECT_GT(west.easting, 0.0);
    EXPECT_LT(west.easting, 500000.0);
    ExpectPosition(FromGk(west), 50.0, -1.0, ROUND_TRIP_TOLERANCE);
}

// One degree west of the meridian -6: 500000 less 74.6 km, with the strip -2 and its sign before it.
TEST(GkFromGeodetic, TheSignCarriesTheSideOfGreenwich) {
    const Gk gk = ToGk(48.0, -7.0);
    EXPECT_EQ(gk.status, KOORD_OK);
    EXPECT_NEAR(gk.easting, -2e6 - (500000.0 - 74600.0), 100.0);
    ExpectPosition(FromGk(gk), 48.0, -7.0, ROUND_TRIP_TOLERANCE);
}

TEST(GkFromGeodetic, TakesTheNaturalMeridianForAWantedOneThatIsNone) {
    const double natural = ToGk(48.0, 10.0).easting;
    for (const std::int32_t none : {-32768, -1000, -183, 1, 2, 10, 181, 183, 32767})
        EXPECT_EQ(ToGk(48.0, 10.0, none).easting, natural) << none;
    EXPECT_NE(ToGk(48.0, 10.0, 12).easting, natural);
    EXPECT_EQ(ToGk(10.0, -179.0, 180).status, KOORD_OK);
    EXPECT_EQ(ToGk(10.0, 179.0, -180).status, KOORD_OK);
}

// 0 is a legal meridian, which a cleared payload asks for: 9 degrees of longitude at 48 north are 670 km.
TEST(GkFromGeodetic, AClearedPayloadWantsGreenwich) {
    const Gk gk = ToGk(48.0, 9.0, 0);
    EXPECT_EQ(gk.status, KOORD_ERR_GK_EAST);
    EXPECT_NEAR(gk.easting, 1171000.0, 1000.0);
}

TEST(GkFromGeodetic, WarnsWhenTheWantedMeridianIsThirteenDegreesAway) {
    EXPECT_EQ(ToGk(75.0, 24.0, 12).status, KOORD_OK);  // 12 degrees
    const Gk distant = ToGk(75.0, 27.0, 12);           // 15 degrees
    EXPECT_EQ(distant.status, KOORD_ERR_ZONE_DISTANT);
    EXPECT_GT(distant.easting, 4500000.0);
    EXPECT_GT(distant.northing, 8000000.0);
}

TEST(GkFromGeodetic, AnEastingOutsideItsMillionGoesBeforeTheWarning) {
    EXPECT_EQ(ToGk(50.0, 24.0, 12).status, KOORD_ERR_GK_EAST);
    const Gk gk = ToGk(50.0, 27.0, 12);
    EXPECT_EQ(gk.status, KOORD_ERR_GK_EAST);
    EXPECT_GT(gk.easting, 5000000.0);
    EXPECT_GT(gk.northing, 5000000.0);
    EXPECT_EQ(ToGk(50.0, 0.0, 12).status, KOORD_ERR_GK_EAST);  // a negative easting
}

// Half a metre on either side of the limits, 500 km from the meridian 12.
TEST(GkFromGeodetic, TheMillionEndsAtZeroAndAtAMicrometreBelowTheNext) {
    const TmConstants inverse = InverseConstants(GER);
    const auto statusAt = [&inverse](double easting) {
        double lon = 0.0;
        double lat = 0.0;
        TM_Inverse(easting, 5540000.0, 1.0, 500000.0, 0.0, 12.0, &lon, &lat, &inverse);
        return ToGk(lat, lon, 12).status;
    };
    EXPECT_EQ(statusAt(0.5), KOORD_OK);
    EXPECT_EQ(statusAt(-0.5), KOORD_ERR_GK_EAST);
    EXPECT_EQ(statusAt(999999.5), KOORD_OK);
    EXPECT_EQ(statusAt(1000000.5), KOORD_ERR_GK_EAST);
}

TEST(GkFromGeodetic, MeasuresDistancesAcrossTheDateLine) {
    const Gk east = ToGk(50.0, -178.0, 180);
    EXPECT_EQ(east.status, KOORD_OK);
    EXPECT_NEAR(east.easting - 60e6, ToGk(50.0, 2.0, 0).easting, 1e-7);
    const Gk west = ToGk(50.0, 178.0, -180);
    EXPECT_EQ(west.status, KOORD_OK);
    EXPECT_NEAR(-west.easting - 60e6, ToGk(50.0, -2.0, 0).easting, 1e-7);
    EXPECT_EQ(ToGk(80.0, -168.0, 177).status, KOORD_ERR_ZONE_DISTANT);  // 15 degrees
}

TEST(GkFromGeodetic, CountsStripsFrom18DegreesOnKkj) {
    EXPECT_NEAR(ToGk(62.0, 24.0, NO_WANTED_ZONE, DATUM_KKJ).easting, 2500000.0, 1e-8);
    EXPECT_NEAR(ToGk(62.0, 24.0).easting, 8500000.0, 1e-8);
    EXPECT_NEAR(ToGk(62.0, 21.0, NO_WANTED_ZONE, DATUM_KKJ).easting, 1500000.0, 1e-8);
    EXPECT_NEAR(ToGk(62.0, 18.0, NO_WANTED_ZONE, DATUM_KKJ).easting, 500000.0, 1e-8);
    EXPECT_NEAR(ToGk(62.0, 15.0, NO_WANTED_ZONE, DATUM_KKJ).easting, -1500000.0, 1e-8);
    // 171 west is 189 degrees from 18 east, which is strip 171/3.
    EXPECT_NEAR(ToGk(62.0, -171.0, NO_WANTED_ZONE, DATUM_KKJ).easting, 57500000.0, 1e-7);
}

TEST(GkToGeodetic, ReturnsToWhereFromGeodeticStarted) {
    Random random(180);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t datum = random.Below(10) == 0 ? DATUM_KKJ : random.Below(DATUM_COUNT);
        const double lat = random.Between(-80.0, 80.0);
        const double lon = random.Between(-180.0, 180.0);
        const Gk gk = ToGk(lat, lon, NO_WANTED_ZONE, datum);
        EXPECT_EQ(gk.status, KOORD_OK);
        Geodetic position = FromGk(gk, datum);
        position.lon = lon + std::remainder(position.lon - lon, 360.0);
        ExpectPosition(position, lat, lon, ROUND_TRIP_TOLERANCE);
    }
}

TEST(GkToGeodetic, FailsForAStripWithoutMeridian) {
    for (const double easting : {61.5e6, -61.5e6, 61e6, 1e300, -1e300, NOT_A_NUMBER, INFINITE, -INFINITE}) {
        const Geodetic position = FromGk(GridValues(easting, 5e6));
        EXPECT_EQ(position.status, KOORD_ERR_MERIDIAN) << easting;
        EXPECT_EQ(position.lat, 0.0);
        EXPECT_EQ(position.lon, 0.0);
    }
    // Degrees, some units of the last place.
    EXPECT_NEAR(FromGk(GridValues(60.5e6, 5e6)).lon, 180.0, 1e-12);
    EXPECT_NEAR(FromGk(GridValues(-60.5e6, 5e6)).lon, -180.0, 1e-12);
}

TEST(GkToGeodetic, TurnsKkjLongitudesBack) {
    EXPECT_NEAR(FromGk(GridValues(2500000.0, 6900000.0), DATUM_KKJ).lon, 24.0, 1e-12);
    EXPECT_NEAR(FromGk(GridValues(-1500000.0, 6900000.0), DATUM_KKJ).lon, 15.0, 1e-12);
    EXPECT_NEAR(FromGk(GridValues(57500000.0, 6900000.0), DATUM_KKJ).lon, -171.0, 1e-12);
    // 162 + 18 degrees is the date line.
    EXPECT_NEAR(FromGk(GridValues(54499900.0, 6900000.0), DATUM_KKJ).lon, 179.998, 1e-3);
    EXPECT_NEAR(FromGk(GridValues(54500100.0, 6900000.0), DATUM_KKJ).lon, -179.998, 1e-3);
}

TEST(GkToGeodetic, PutsAPositionCloseToALimitOntoIt) {
    testing::ExpectLimitsAttract([](double lat, double lon) { return FromGk(ToGk(lat, lon)); },
                                 {-181.5, 181.5, -80.0, 80.0}, 50.0, 9.0);
}

TEST(Gk6FromGeodetic, AgreesWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/gk6.txt")) {
        SCOPED_TRACE(row.place);
        const double lat = row.Number(0);
        const double lon = row.Number(1);
        const auto meridian = static_cast<std::int32_t>(row.Number(2));
        const std::int32_t strip = meridian > 0 ? (meridian + 3) / 6 : (meridian - 3) / 6;
        const double easting = WithStrip(strip, row.Number(3));
        for (const std::int32_t wanted : {meridian, std::int32_t{NO_WANTED_ZONE}}) {
            const Gk gk = ToGk6(lat, lon, wanted);
            EXPECT_EQ(gk.status, KOORD_OK);
            EXPECT_NEAR(gk.easting, easting, REFERENCE_TOLERANCE);
            EXPECT_NEAR(gk.northing, row.Number(4), REFERENCE_TOLERANCE);
        }
        ExpectPosition(FromGk6(GridValues(easting, row.Number(4))), lat, lon, REFERENCE_TOLERANCE);
    }
}

TEST(Gk6FromGeodetic, GreenwichIsInStripOne) {
    const Gk at0 = ToGk6(50.0, 0.0);
    EXPECT_EQ(at0.status, KOORD_OK);
    EXPECT_GT(at0.easting, 1000000.0);
    EXPECT_LT(at0.easting, 1500000.0);
    EXPECT_EQ(ToGk6(50.0, 3.0).easting, 1500000.0);
    EXPECT_EQ(ToGk6(50.0, -3.0).easting, -1500000.0);
}

TEST(Gk6FromGeodetic, TakesTheNaturalMeridianForAWantedOneThatIsNone) {
    const double natural = ToGk6(48.0, 10.0).easting;
    for (const std::int32_t none : {-32768, -1000, -183, 0, 6, 12, 181, 183, 32767})
        EXPECT_EQ(ToGk6(48.0, 10.0, none).easting, natural) << none;
    EXPECT_NE(ToGk6(48.0, 10.0, 15).easting, natural);
    EXPECT_EQ(ToGk6(10.0, -179.0, 177).status, KOORD_OK);
    EXPECT_EQ(ToGk6(10.0, 179.0, -177).status, KOORD_OK);
}

TEST(Gk6FromGeodetic, WarnsAndFailsAsTheStripsOfThreeDegreesDo) {
    EXPECT_EQ(ToGk6(75.0, 24.0, 15).status, KOORD_OK);                // natural 27, 12 degrees
    EXPECT_EQ(ToGk6(80.0, 31.0, 15).status, KOORD_ERR_ZONE_DISTANT);  // natural 33, 18 degrees
    EXPECT_EQ(ToGk6(50.0, 31.0, 15).status, KOORD_ERR_GK_EAST);
    EXPECT_GT(ToGk6(50.0, 31.0, 15).easting, 4000000.0);
}

TEST(Gk6FromGeodetic, KnowsNoStripsOfKkj) {
    // Metres and degrees, some units of the last place.
    EXPECT_NEAR(ToGk6(62.0, 27.0, NO_WANTED_ZONE, DATUM_KKJ).easting, 5500000.0, 1e-8);
    EXPECT_NEAR(FromGk6(GridValues(5500000.0, 6900000.0), DATUM_KKJ).lon, 27.0, 1e-12);
}

// A longitude beyond 180 stays there, as on every other datum.
TEST(Gk6ToGeodetic, DoesNotWrapOnKkj) {
    EXPECT_GT(FromGk6(GridValues(30900000.0, 6900000.0), DATUM_KKJ).lon, 180.0);
}

TEST(Gk6ToGeodetic, ReadsStripZeroOnTheMeridianMinusThree) {
    // Degrees, some units of the last place.
    EXPECT_NEAR(FromGk6(GridValues(500000.0, 5e6)).lon, -3.0, 1e-12);
    EXPECT_NEAR(FromGk6(GridValues(-500000.0, 5e6)).lon, -3.0, 1e-12);
}

TEST(Gk6ToGeodetic, FailsForAStripWithoutMeridian) {
    for (const double easting : {31.5e6, -31.5e6, 1e300, -1e300, NOT_A_NUMBER, INFINITE, -INFINITE}) {
        const Geodetic position = FromGk6(GridValues(easting, 5e6));
        EXPECT_EQ(position.status, KOORD_ERR_MERIDIAN) << easting;
        EXPECT_EQ(position.lat, 0.0);
        EXPECT_EQ(position.lon, 0.0);
    }
    // Degrees, some units of the last place.
    EXPECT_NEAR(FromGk6(GridValues(30.5e6, 5e6)).lon, 177.0, 1e-12);
    EXPECT_NEAR(FromGk6(GridValues(-30.5e6, 5e6)).lon, -177.0, 1e-12);
}

TEST(Gk6ToGeodetic, PutsAPositionCloseToALimitOntoIt) {
    testing::ExpectLimitsAttract([](double lat, double lon) { return FromGk6(ToGk6(lat, lon)); },
                                 {-180.0, 180.0, -80.0, 80.0}, 50.0, 9.0);
}

TEST(Gk6ToGeodetic, ReturnsToWhereFromGeodeticStarted) {
    Random random(360);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const double lat = random.Between(-80.0, 80.0);
        const double lon = random.Between(-180.0, 180.0);
        const Gk gk = ToGk6(lat, lon, NO_WANTED_ZONE, datum);
        EXPECT_EQ(gk.status, KOORD_OK);
        ExpectPosition(FromGk6(gk, datum), lat, lon, ROUND_TRIP_TOLERANCE);
    }
}

TEST(StripsFromGeodetic, FailForALongitudeWithoutMeridian) {
    for (const FromGeodetic convert : {GK_FromGeodetic, GK6_FromGeodetic}) {
        const TmConstants forward = ForwardConstants(GER);
        for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
            GkPayload gk = GridValues(1.0, 2.0);
            const double latLon[2] = {48.0, bad};
            EXPECT_EQ(convert(latLon, &gk, &forward), KOORD_ERR_GK_EAST);
            EXPECT_EQ(gk.easting, 0.0);
            EXPECT_EQ(gk.northing, 0.0);
        }
        GkPayload gk{};
        const double absurd[2] = {48.0, 1e300};
        convert(absurd, &gk, &forward);
        EXPECT_TRUE(std::isfinite(gk.easting));
    }
}

// A NaN easting is neither below 0 nor above the million.
TEST(StripsFromGeodetic, GiveNoNumbersForALatitudeThatIsNone) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, 90.0, -90.0}) {
        for (const Gk& gk : {ToGk(bad, 9.0), ToGk6(bad, 9.0)}) {
            EXPECT_EQ(gk.status, KOORD_OK);
            EXPECT_TRUE(std::isnan(gk.easting));
            EXPECT_TRUE(std::isnan(gk.northing));
        }
    }
}

TEST(StripsToGeodetic, EndOnAnyNorthing) {
    for (const double absurd : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e300, -1e300}) {
        EXPECT_EQ(FromGk(GridValues(3500000.0, absurd)).status, KOORD_OK);
        EXPECT_EQ(FromGk6(GridValues(3500000.0, absurd)).status, KOORD_OK);
    }
}

}  // namespace
}  // namespace tessara::zone_systems_strips_test
