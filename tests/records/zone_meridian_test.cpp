#include "records/zone_meridian.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::SameRecord;
using testing::UtmRecord;

TEST(ZoneMeridian, StepsConvergeOnThePointWithTheNorthing) {
    // Where 12 degrees east has the northing 5500000, see data/objects/zone_borders.txt.
    tagKOORD record = UtmRecord(2, 'N', 32, 5e5, 5.5e6);
    auto payload = Load<UtmPayload>(record);
    payload.wantedZone = 32;
    Store(record, payload);
    GeodezPayload position{49.0, 0.0, 0.0};
    double miss = 1.0;
    for (int i = 0; i < 6; ++i) {
        ASSERT_TRUE(zones::StepAlongMeridian(12.0, position.latitude, RangeCheck::On, &record, &position));
        const double before = miss;
        miss = std::fabs(position.latitude - 49.613658047);
        // The convergence is 2.3 degrees: each step leaves two thousandths. The figure has nine decimals.
        EXPECT_LT(miss, before * 0.003 + 1e-9);
    }
    EXPECT_NEAR(position.longitude, 12.0, 1e-11);
    EXPECT_NEAR(Load<UtmPayload>(record).easting, 716703.412, 0.001);
    EXPECT_EQ(Load<UtmPayload>(record).northing, 5.5e6);
}

TEST(ZoneMeridian, TheHemisphereIsKeptToo) {
    tagKOORD record = UtmRecord(2, 'S', 32, 5e5, 4.5e6);
    GeodezPayload position;
    ASSERT_TRUE(zones::StepAlongMeridian(10.0, 1.0, RangeCheck::On, &record, &position));
    EXPECT_EQ(Load<UtmPayload>(record).hemisphere, 'S');
    EXPECT_LT(position.latitude, -49.0);
}

TEST(ZoneMeridian, APointThatDoesntConvertIsFalse) {
    tagKOORD record = UtmRecord(2, 'N', 32, 5e5, 5.5e6);
    GeodezPayload position;
    EXPECT_FALSE(zones::StepAlongMeridian(12.0, 85.0, RangeCheck::On, &record, &position));
    EXPECT_TRUE(zones::StepAlongMeridian(12.0, 85.0, RangeCheck::Off, &record, &position));
}

}  // namespace
}  // namespace tessara
