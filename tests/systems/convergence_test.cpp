#include "tessara/kernel/convergence.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/records.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

template <class Payload>
void StoreWanted(tagKOORD* record, std::int16_t Payload::*field, std::int16_t wanted) {
    Payload payload{};
    payload.*field = wanted;
    Store(*record, payload);
}

// A record of the type that wants the natural zone, or the one that is named.
tagKOORD Target(std::int32_t type, std::int32_t datum, std::int16_t zone) {
    tagKOORD record = MakeKoord(datum, type);
    const std::int16_t wanted = zone != 0 ? zone : static_cast<std::int16_t>(NO_WANTED_ZONE);
    if (type == KOORD_UTM) StoreWanted(&record, &UtmPayload::wantedZone, wanted);
    if (type == KOORD_UTMREF) StoreWanted(&record, &UtmrefPayload::wantedZone, wanted);
    if (type == KOORD_GK || type == KOORD_GK6) StoreWanted(&record, &GkPayload::wantedMeridian, wanted);
    if (type == KOORD_BMN || type == KOORD_OEM || type == KOORD_GKAT)
        StoreWanted(&record, &BmnPayload::wantedMeridian, wanted);
    if (type != KOORD_TM) return record;
    TmPayload parameters{};
    parameters.originLongitude = 9.0;
    parameters.scale = 0.9996;
    Store(record, parameters);
    return record;
}

tagKOORD RecordAt(tagKOORD target, const double latLon[2]) {
    tagKOORD source = MakeKoord(static_cast<std::int32_t>(target.datum), KOORD_GEODEZ);
    Store(source, GeodezPayload{latLon[0], latLon[1], 0.0});
    EXPECT_EQ(KoordConvertEx(&source, &target, NO_RANGE_TESTS), KOORD_OK);
    return target;
}

GridFactors FactorsOf(const tagKOORD& record, const double* latLon) {
    GridFactors factors{NAN, NAN};
    EXPECT_EQ(Grid_Factors(&record, latLon, &factors), KOORD_OK);
    return factors;
}

// PROJ takes differences over 2e-5 radians: their square over 6 is some 1e-10 of a second derivative.
constexpr double PROJ_ACCURACY = 1e-9;

TEST(GridFactors, AreThoseOfProj) {
    for (const ReferenceRow& row : ReadReferenceFile("systems/convergence.txt")) {
        SCOPED_TRACE(row.place);
        const auto type = static_cast<std::int32_t>(row.Number(0));
        const tagKOORD target =
            Target(type, static_cast<std::int32_t>(row.Number(1)), static_cast<std::int16_t>(row.Number(2)));
        const double latLon[2] = {row.Number(3), row.Number(4)};
        const GridFactors factors = FactorsOf(RecordAt(target, latLon), latLon);
        EXPECT_NEAR(std::remainder(factors.convergence - row.Number(5), 360.0), 0.0, PROJ_ACCURACY * 57.3);
        EXPECT_NEAR(factors.scale, row.Number(6), PROJ_ACCURACY);
    }
}

// echo 48.1375 3.5755 | TransverseMercatorProj -s -l 0 -k 0.9996 -p 9, which has two terms more. Our series
// is good to 1e-6 m at a wavelength of an eighth of the earth's radius, which makes 1.2e-12 radians.
TEST(GridFactors, OfTransverseMercatorAreThoseOfGeographicLib) {
    const double latLon[2] = {48.1375, 12.5755};
    const GridFactors factors = FactorsOf(RecordAt(Target(KOORD_TM, DATUM_WGS84, 0), latLon), latLon);
    EXPECT_NEAR(factors.convergence, 2.664401894449246, 1.2e-12 * 57.3);
    EXPECT_NEAR(factors.scale, 1.000469408933899, 1.2e-12);
}

// North points to the pole, which lies to the left of grid north in the east.
TEST(GridFactors, HaveTheirDefinedSigns) {
    const auto convergence = [](std::int32_t type, double lat, double lon) {
        const double latLon[2] = {lat, lon};
        return FactorsOf(RecordAt(Target(type, DATUM_WGS84, 0), latLon), latLon).convergence;
    };
    EXPECT_EQ(convergence(KOORD_UTM, 48.0, 9.0), 0.0);
    EXPECT_GT(convergence(KOORD_UTM, 48.0, 10.0), 0.0);
    EXPECT_LT(convergence(KOORD_UTM, 48.0, 8.0), 0.0);
    EXPECT_LT(convergence(KOORD_UTM, -48.0, 10.0), 0.0);
    EXPECT_EQ(convergence(KOORD_UPS, 85.0, 30.0), 30.0);
    EXPECT_EQ(convergence(KOORD_UPS, -85.0, 30.0), -30.0);
}

// At the pole the scale of UPS is its defined one, and a free transverse Mercator has one, too.
TEST(GridFactors, HoldAtThePole) {
    const double pole[2] = {90.0, 0.0};
    EXPECT_NEAR(FactorsOf(RecordAt(Target(KOORD_UPS, DATUM_WGS84, 0), pole), pole).scale, 0.994, 1e-15);
    tagKOORD tm = Target(KOORD_TM, DATUM_WGS84, 0);
    const double beside[2] = {90.0, 9.0};
    EXPECT_NEAR(FactorsOf(tm, beside).scale, 0.9996, 1e-12);
}

// The chord between two positions 0.002 degrees apart, by the arc of the meridian: over 1.7e-5 radians what
// is left out is their square, some 1e-10.
void ExpectDerivativesOfTheConversion(float parallel1, float parallel2) {
    tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC);
    LambertCCPayload cone{};
    cone.parallel1 = parallel1;
    cone.parallel2 = parallel2;
    cone.originLatitude = 45.0;
    cone.originLongitude = 10.0;
    Store(target, cone);
    const double step = 1e-3;
    const double middle[2] = {47.0, 14.0}, south[2] = {47.0 - step, 14.0}, north[2] = {47.0 + step, 14.0};
    const auto a = Load<LambertCCPayload>(RecordAt(target, south));
    const auto b = Load<LambertCCPayload>(RecordAt(target, north));
    const double east = b.easting - a.easting;
    const double up = b.northing - a.northing;
    const GridFactors factors = FactorsOf(RecordAt(target, middle), nullptr);
    constexpr double degree = 3.14159265358979323846 / 180.0;
    EXPECT_NEAR(factors.convergence, -std::atan2(east, up) / degree, 1e-8);
    // The radius of curvature of the meridian, a (1 - e^2) / (1 - e^2 sin^2 phi)^(3/2).
    const double e2 = 0.0066943799901413165;
    const double w = 1.0 - e2 * std::pow(std::sin(47.0 * degree), 2);
    const double arc = 6378137.0 * (1.0 - e2) / std::pow(w, 1.5) * 2.0 * step * degree;
    EXPECT_NEAR(factors.scale, std::hypot(east, up) / arc, 1e-9);
}

TEST(GridFactors, OfAConeAreTheDerivativesOfItsConversion) {
    ExpectDerivativesOfTheConversion(40.0F, 50.0F);
    ExpectDerivativesOfTheConversion(45.0F, 45.0F);
}

TEST(GridFactors, OfARecordAreThoseAtItsPosition) {
    const double latLon[2] = {48.1375, 11.5755};
    const tagKOORD record = RecordAt(Target(KOORD_GK, 3, 0), latLon);
    const GridFactors at = FactorsOf(record, latLon);
    const GridFactors own = FactorsOf(record, nullptr);
    EXPECT_NEAR(own.convergence, at.convergence, 1e-10);
    EXPECT_NEAR(own.scale, at.scale, 1e-13);
}

TEST(GridFactors, AreRefusedWhereThereAreNone) {
    GridFactors factors{7.0, 8.0};
    const double latLon[2] = {48.0, 11.0};
    tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    EXPECT_EQ(Grid_Factors(nullptr, latLon, &factors), KOORD_ERR_GENERAL);
    EXPECT_EQ(Grid_Factors(&degrees, latLon, nullptr), KOORD_ERR_GENERAL);
    EXPECT_EQ(Grid_Factors(&degrees, latLon, &factors), KOORD_ERR_TYPE);
    tagKOORD noDatum = MakeKoord(DATUM_COUNT, KOORD_UTM);
    EXPECT_EQ(Grid_Factors(&noDatum, latLon, &factors), KOORD_ERR_DATUM);
    tagKOORD noZone = MakeKoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_EQ(Grid_Factors(&noZone, latLon, &factors), KOORD_ERR_UTM_ZONE);
    EXPECT_EQ(Grid_Factors(&noZone, nullptr, &factors), KOORD_ERR_UTM_ZONE) << "it has no position either";
    tagKOORD noSquare = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    EXPECT_EQ(Grid_Factors(&noSquare, latLon, &factors), KOORD_ERR_UTM_ZONE);
    tagKOORD noMeridian = MakeKoord(DATUM_WGS84, KOORD_BMN);
    EXPECT_EQ(Grid_Factors(&noMeridian, latLon, &factors), KOORD_ERR_MERIDIAN);
    const double nowhere[2] = {std::numeric_limits<double>::quiet_NaN(), 11.0};
    const tagKOORD tm = Target(KOORD_TM, DATUM_WGS84, 0);
    EXPECT_EQ(Grid_Factors(&tm, nowhere, &factors), KOORD_ERR_GENERAL);
    // The grid of one pole has no scale at the other, but a convergence.
    const double southPole[2] = {-90.0, 0.0};
    const tagKOORD ups = Target(KOORD_UPS, DATUM_WGS84, 0);
    EXPECT_EQ(Grid_Factors(&ups, southPole, &factors), KOORD_ERR_GENERAL);
    EXPECT_EQ(factors.convergence, 7.0);
    EXPECT_EQ(factors.scale, 8.0);
    for (const std::int32_t type : {KOORD_LONGPIXEL, KOORD_GEODEZ, KOORD_GEOREF, KOORD_ECEF, KOORD_VDG})
        EXPECT_FALSE(Grid_HasFactors(type)) << type;
    EXPECT_FALSE(Grid_HasFactors(-1));
    EXPECT_FALSE(Grid_HasFactors(KOORD_TYPE_COUNT));
}

}  // namespace
}  // namespace tessara
