#include "records/check_record.h"

#include <gtest/gtest.h>

#include "support/records.h"
#include "support/zones.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

tagKOORD WithoutDatum(tagKOORD record) {
    record.datum = NO_DATUM;
    return record;
}

TEST(IsLegalRecord, NeedsADatumExceptForPixels) {
    for (const tagKOORD& record : {GeodezRecord(48.0, 11.0), testing::Utm(32, 'N', 691000.0, 5316000.0),
                                   testing::Utmref(32, 'U', "PU", 91000, 36000)}) {
        EXPECT_TRUE(IsLegalRecord(record)) << record.type;
        EXPECT_FALSE(IsLegalRecord(WithoutDatum(record))) << record.type;
        EXPECT_FALSE(IsInSystemArea(WithoutDatum(record))) << record.type;
    }
    EXPECT_TRUE(IsLegalRecord(WithoutDatum(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL))));
}

}  // namespace
}  // namespace tessara
