#include "tessara/ckoord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "support/reference_file.h"
#include "support/zoned_records.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::ReadReferenceFile;
using testing::SameRecord;

constexpr double EQUATOR = 6378137.0;  // the semi-major axis of WGS84

CKoord EcefRecord(double x, double y, double z) {
    return Record(KOORD_ECEF, EcefPayload{x, y, z}, DATUM_WGS84);
}

TEST(CKoordTest, IsTheRecordWithItsHeightAndTheCacheBehindIt) {
    static_assert(std::is_base_of_v<tagKOORD, CKoord>);
    static_assert(sizeof(CKoord) == sizeof(tagKOORD) + 4 * sizeof(double) + 8);
    static_assert(std::is_same_v<decltype(std::declval<const CKoord&>().GetHeight()), double>);
}

TEST(CKoordTest, StartsAtZeroOnWgs84) {
    const CKoord koord;
    EXPECT_TRUE(SameRecord(koord, MakeKoord(2, 4))) << "all 56 payload bytes zero";
    EXPECT_EQ(koord.GetHeight(), 0.0);
}

// From a record.

TEST(CKoordTest, OfAGeodezRecordTakesItsHeight) {
    EXPECT_EQ(CKoord(Record(KOORD_GEODEZ, GeodezPayload{1.0, 2.0, 12.5}, 3)).GetHeight(), 12.5);
}

TEST(CKoordTest, OfAGeodezMinRecordTakesItsHeight) {
    GeodezMinPayload payload{};
    payload.height = -3.25;
    EXPECT_EQ(CKoord(Record(KOORD_GEODEZMIN, payload, 3)).GetHeight(), -3.25);
}

TEST(CKoordTest, OfAnyOtherRecordHasNoHeight) {
    for (std::int32_t type = -1; type <= 25; ++type) {
        if (type == KOORD_GEODEZ || type == KOORD_GEODEZMIN || type == KOORD_ECEF) continue;
        tagKOORD record = MakeKoord(2, type);
        std::memset(record.payload, 0x55, sizeof record.payload);
        const CKoord koord(record);
        EXPECT_TRUE(SameRecord(koord, record)) << type;
        EXPECT_EQ(koord.GetHeight(), 0.0) << type;
    }
}

// Assignment.

TEST(CKoordTest, AssignedARecordWithAHeightTakesIt) {
    CKoord koord;
    koord.SetHeight(99.0);
    koord = static_cast<const tagKOORD&>(Record(KOORD_GEODEZ, GeodezPayload{1.0, 2.0, 12.5}, 3));
    EXPECT_EQ(koord.GetHeight(), 12.5);
    GeodezMinPayload payload{};
    payload.height = -3.25;
    koord = static_cast<const tagKOORD&>(Record(KOORD_GEODEZMIN, payload, 3));
    EXPECT_EQ(koord.GetHeight(), -3.25);
}

TEST(CKoordTest, AssignedARecordWithoutAHeightKeepsItsOwn) {
    CKoord koord;
    koord.SetHeight(99.0);
    const tagKOORD utm = testing::UtmRecord(3, 'N', 32, 500000.0, 1.0);
    koord = utm;
    EXPECT_TRUE(SameRecord(koord, utm));
    EXPECT_EQ(koord.GetHeight(), 99.0);
}

TEST(CKoordTest, CopiesCarryRecordAndHeight) {
    CKoord original = testing::UtmRecord(3, 'N', 32, 500000.0, 1.0);
    original.SetHeight(99.0);
    const CKoord copy(original);
    EXPECT_TRUE(SameRecord(copy, original));
    EXPECT_EQ(copy.GetHeight(), 99.0);
    CKoord assigned;
    assigned = original;
    EXPECT_TRUE(SameRecord(assigned, original));
    EXPECT_EQ(assigned.GetHeight(), 99.0);
    const CKoord& same = assigned;
    assigned = same;
    EXPECT_TRUE(SameRecord(assigned, original));
    EXPECT_EQ(assigned.GetHeight(), 99.0);
}

// Heights.

TEST(CKoordTest, KeepsTheHeightOfAGeodezPayloadEqual) {
    CKoord koord = Record(KOORD_GEODEZ, GeodezPayload{1.0, 2.0, 0.0}, 3);
    koord.SetHeight(12.5);
    EXPECT_EQ(koord.GetHeight(), 12.5);
    EXPECT_TRUE(SameRecord(koord, Record(KOORD_GEODEZ, GeodezPayload{1.0, 2.0, 12.5}, 3)));
}

TEST(CKoordTest, KeepsTheHeightOfAGeodezMinPayloadEqual) {
    GeodezMinPayload payload{};
    payload.latDegrees = 48;
    payload.lonMinutes = 12.5;
    payload.lonHemisphere = 'W';
    CKoord koord = Record(KOORD_GEODEZMIN, payload, 3);
    koord.SetHeight(12.5);
    EXPECT_EQ(koord.GetHeight(), 12.5);
    payload.height = 12.5;
    EXPECT_TRUE(SameRecord(koord, Record(KOORD_GEODEZMIN, payload, 3)));
}

TEST(CKoordTest, TheHeightOfAnyOtherTypeStandsBesideTheRecord) {
    for (std::int32_t type = -1; type <= 25; ++type) {
        if (type == KOORD_GEODEZ || type == KOORD_GEODEZMIN || type == KOORD_ECEF) continue;
        CKoord koord(MakeKoord(2, type));
        const CKoord before = koord;
        koord.SetHeight(12.5);
        EXPECT_EQ(koord.GetHeight(), 12.5) << type;
        EXPECT_TRUE(SameRecord(koord, before)) << type;
    }
}

TEST(CKoordTest, TakesAnyHeight) {
    CKoord koord;
    koord.SetHeight(std::numeric_limits<double>::infinity());
    EXPECT_EQ(koord.GetHeight(), std::numeric_limits<double>::infinity());
    koord.SetHeight(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(koord.GetHeight()));
    EXPECT_TRUE(std::isnan(Load<GeodezPayload>(koord).height));
}

// ECEF: the height follows from x, y and z, and is computed anew when they, or the datum, aren't those for
// which it was computed last. A coordinate that becomes ECEF by its type alone shows which height is given.

CKoord BecomesEcef(double heightBefore, const EcefPayload& payload) {
    CKoord koord;
    koord.SetHeight(heightBefore);
    koord.type = KOORD_ECEF;
    Store(koord, payload);
    return koord;  // without a copy: the cache is that of a new CKoord
}

TEST(CKoordTest, ACopyForgetsForWhichPositionTheHeightWasComputed) {
    CKoord original = EcefRecord(EQUATOR, 0.0, 0.0);
    original = BecomesEcef(55.0, {EQUATOR, 0.0, 0.0});
    EXPECT_EQ(original.GetHeight(), 55.0) << "the cache of the assigned coordinate stays, and fits";
    const CKoord copy(original);
    EXPECT_NEAR(copy.GetHeight(), 0.0, 1e-6) << "metres; computed anew, to the rounding of 6.4e6 m";
}

TEST(CKoordTest, ANewCacheFitsTheCentreOfTheEarth) {
    EXPECT_EQ(BecomesEcef(55.0, {0.0, 0.0, 0.0}).GetHeight(), 55.0);
}

TEST(CKoordTest, TheHeightIsComputedAnewForEachOtherPositionAndDatum) {
    const EcefPayload cached{EQUATOR, 0.0, 0.0};
    const auto heightAt = [&cached](const EcefPayload& payload, std::uint32_t datum) {
        CKoord koord = EcefRecord(cached.x, cached.y, cached.z);
        koord = BecomesEcef(55.0, payload);
        koord.datum = datum;
        return koord.GetHeight();
    };
    EXPECT_EQ(heightAt(cached, DATUM_WGS84), 55.0);
    EXPECT_NE(heightAt(cached, 3), 55.0);
    EXPECT_NE(heightAt({EQUATOR + 1.0, 0.0, 0.0}, DATUM_WGS84), 55.0);
    EXPECT_NE(heightAt({EQUATOR, 1.0, 0.0}, DATUM_WGS84), 55.0);
    EXPECT_NE(heightAt({EQUATOR, 0.0, 1.0}, DATUM_WGS84), 55.0);
}

// At the second place the coordinate that changes is 0, as in a cache that doesn't know it.
TEST(CKoordTest, TheHeightIsComputedAnewWhereACoordinateReturnsToZero) {
    const auto heightAfter = [](const EcefPayload& first, const EcefPayload& second) {
        CKoord koord = EcefRecord(first.x, first.y, first.z);
        EXPECT_GT(koord.GetHeight(), 500.0);
        Store(koord, second);
        return koord.GetHeight();
    };
    // Metres: on the equator, and to the rounding of 6.4e6 m.
    EXPECT_NEAR(heightAfter({EQUATOR, 100000.0, 0.0}, {EQUATOR, 0.0, 0.0}), 0.0, 1e-6);
    EXPECT_NEAR(heightAfter({EQUATOR, 0.0, 100000.0}, {EQUATOR, 0.0, 0.0}), 0.0, 1e-6);
    EXPECT_NEAR(heightAfter({100000.0, EQUATOR, 0.0}, {0.0, EQUATOR, 0.0}), 0.0, 1e-6);
}

// The semi-major axis of the Bessel ellipsoid is 6377397.155 m.
TEST(CKoordTest, TheHeightIsComputedAnewWhereTheDatumReturns) {
    CKoord koord = EcefRecord(EQUATOR, 0.0, 0.0);
    koord.datum = 3;
    EXPECT_NEAR(koord.GetHeight(), EQUATOR - 6377397.155, 1e-3);
    koord.datum = DATUM_WGS84;
    EXPECT_NEAR(koord.GetHeight(), 0.0, 1e-6);
}

TEST(CKoordTest, AFailingConversionGivesTheHeightZero) {
    CKoord koord = EcefRecord(EQUATOR, 0.0, 0.0);
    koord.datum = 999;
    EXPECT_EQ(koord.GetHeight(), 0.0);
    koord.SetHeight(10.0);
    EXPECT_EQ(Load<EcefPayload>(koord).x, EQUATOR) << "there is no normal to move along";
}

// On the equator the normal points away from the centre.
TEST(CKoordTest, AHeightMovesAnEcefPositionAlongTheNormalAtEachQuarterOfTheEquator) {
    for (const auto& [x, y] : {std::pair(1.0, 0.0), {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}}) {
        CKoord koord = EcefRecord(x * EQUATOR, y * EQUATOR, 0.0);
        koord.SetHeight(1000.0);
        const auto moved = Load<EcefPayload>(koord);
        EXPECT_NEAR(moved.x, x * (EQUATOR + 1000.0), 1e-8);  // metres; some ten roundings
        EXPECT_NEAR(moved.y, y * (EQUATOR + 1000.0), 1e-8);
        EXPECT_EQ(moved.z, 0.0);
    }
}

// The height of an ECEF position is that of its three coordinates to about their rounding.
constexpr double ECEF_HEIGHT_TOLERANCE =
    1e-4;  // metres; the iteration ends a little early above the ellipsoid

TEST(CKoordTest, OfAnEcefRecordComputesItsHeight) {
    for (const auto& row : ReadReferenceFile("objects/ecef.txt")) {
        const CKoord koord = EcefRecord(row.Number(3), row.Number(4), row.Number(5));
        EXPECT_NEAR(koord.GetHeight(), row.Number(2), ECEF_HEIGHT_TOLERANCE) << row.place;
        CKoord assigned;
        assigned = static_cast<const tagKOORD&>(koord);
        EXPECT_NEAR(assigned.GetHeight(), row.Number(2), ECEF_HEIGHT_TOLERANCE) << row.place;
    }
}

TEST(CKoordTest, SetHeightMovesAnEcefPositionAlongTheNormal) {
    for (const auto& row : ReadReferenceFile("objects/ecef.txt")) {
        // From another height onto the one of the row, whose position is known.
        const double phi = row.Number(0) * RADIANS_PER_DEGREE;
        const double lambda = row.Number(1) * RADIANS_PER_DEGREE;
        const double off = 300.0;
        CKoord koord = EcefRecord(row.Number(3) + off * std::cos(phi) * std::cos(lambda),
                                  row.Number(4) + off * std::cos(phi) * std::sin(lambda),
                                  row.Number(5) + off * std::sin(phi));
        koord.SetHeight(row.Number(2));
        const auto moved = Load<EcefPayload>(koord);
        EXPECT_NEAR(moved.x, row.Number(3), ECEF_HEIGHT_TOLERANCE) << row.place;
        EXPECT_NEAR(moved.y, row.Number(4), ECEF_HEIGHT_TOLERANCE) << row.place;
        EXPECT_NEAR(moved.z, row.Number(5), ECEF_HEIGHT_TOLERANCE) << row.place;
        EXPECT_NEAR(koord.GetHeight(), row.Number(2), ECEF_HEIGHT_TOLERANCE) << row.place;
    }
}

// b = a (1 - f): the pole of WGS84 lies 6356752.3142 m from the centre, to 1e-4 m.
TEST(CKoordTest, SetHeightOnTheAxisMovesAlongIt) {
    for (const double side : {1.0, -1.0}) {
        CKoord koord = EcefRecord(0.0, 0.0, side * 6400000.0);
        koord.SetHeight(100.0);
        EXPECT_EQ(Load<EcefPayload>(koord).x, 0.0);
        EXPECT_EQ(Load<EcefPayload>(koord).y, 0.0);
        EXPECT_NEAR(Load<EcefPayload>(koord).z, side * 6356852.3142, 1e-4);
    }
}

TEST(CKoordTest, OnTheEquatorTheNormalIsTheXAxis) {
    CKoord koord = EcefRecord(EQUATOR, 0.0, 0.0);
    EXPECT_NEAR(koord.GetHeight(), 0.0, 1e-6) << "metres, rounding of 6.4e6 m";
    koord.SetHeight(100.0);
    EXPECT_NEAR(Load<EcefPayload>(koord).x, EQUATOR + 100.0, 1e-6);
    EXPECT_EQ(Load<EcefPayload>(koord).y, 0.0);
    EXPECT_NEAR(Load<EcefPayload>(koord).z, 0.0, 1e-6);
    EXPECT_NEAR(koord.GetHeight(), 100.0, 1e-6);
}

// Whatever a record holds, every operation comes back.
TEST(CKoordTest, EndsOnAnyRecord) {
    std::mt19937 random(20240501);
    for (int i = 0; i < 20000; ++i) {
        tagKOORD record = MakeKoord(static_cast<std::int32_t>(random() % 260),
                                    i % 2 == 0 ? KOORD_ECEF : static_cast<std::int32_t>(random() % 30));
        for (auto& byte : record.payload)
            byte = static_cast<std::byte>(random());
        CKoord koord(record);
        (void)koord.GetHeight();
        koord.SetHeight(koord.GetHeight() + 1.0);
        CKoord other;
        other = record;
        other = koord;
        (void)other.GetHeight();
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {nan, infinity, -infinity, 0.0, 1e308}) {
        for (const double z : {nan, infinity, -infinity, 0.0, 1e308}) {
            CKoord koord = EcefRecord(x, 0.0, z);
            (void)koord.GetHeight();
            koord.SetHeight(1.0);
            (void)koord.GetHeight();
        }
    }
}

}  // namespace
}  // namespace tessara
