#include "text/rounding_guard.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/records.h"

namespace tessara {
namespace {

// 48 degrees, 10 minutes and some seconds north.
tagKOORD Seconds(double seconds, char hemisphere = 'N') {
    GeogradPayload payload{};
    payload.latDegrees = 48;
    payload.latMinutes = 10;
    payload.latSeconds = seconds;
    payload.latHemisphere = hemisphere;
    payload.lonHemisphere = 'E';
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_GEOGRAD);
    Store(record, payload);
    return record;
}

GeogradPayload Carried(int decimals, const tagKOORD& record) {
    return Load<GeogradPayload>(text::CarryRounding(Axis::North, decimals, record));
}

// 59.95 seconds are 60.0 with one decimal. Half a unit more is 0.
TEST(CarryRounding, BeginsHalfAUnitBeforeTheCarryAndMovesByAsMuch) {
    for (int decimals = 0; decimals <= 7; ++decimals) {
        SCOPED_TRACE(decimals);
        const double half = 0.5 * std::pow(10.0, -decimals);
        const GeogradPayload below = Carried(decimals, Seconds(60.0 - 1.0002 * half));
        EXPECT_EQ(below.latMinutes, 10);
        EXPECT_EQ(below.latSeconds, 60.0 - 1.0002 * half);
        const GeogradPayload above = Carried(decimals, Seconds(60.0 - 0.5 * half));
        EXPECT_EQ(above.latMinutes, 11);
        // A degree of 48 has 7e-15, which is 2.6e-11 seconds.
        EXPECT_NEAR(above.latSeconds, 0.5 * half, 1e-10);
    }
}

TEST(CarryRounding, InTheSouthReducesTheMagnitude) {
    const GeogradPayload south = Carried(1, Seconds(59.96, 'S'));
    EXPECT_EQ(south.latMinutes, 10);
    EXPECT_NEAR(south.latSeconds, 59.91, 1e-10);
}

TEST(CarryRounding, LeavesARecordOnADatumThatDoesntExist) {
    tagKOORD record = Seconds(59.99);
    record.datum = DATUM_COUNT;
    EXPECT_EQ(Carried(1, record).latMinutes, 10);
    EXPECT_EQ(Carried(1, record).latSeconds, 59.99);
}

TEST(CarryRounding, LeavesSystemsWithoutACarryAlone) {
    const tagKOORD degrees = GeodezRecord(59.9999999, 59.9999999);
    EXPECT_EQ(Load<GeodezPayload>(text::CarryRounding(Axis::North, 0, degrees)).latitude, 59.9999999);
}

}  // namespace
}  // namespace tessara
