#include <gtest/gtest.h>

#include "records/check_record.h"
#include "support/records.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

tagKOORD WithoutDatum(tagKOORD record) {
    record.datum = NO_DATUM;
    return record;
}

tagKOORD Utm() {
    UtmPayload payload{};
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = 32;
    payload.hemisphere = 'N';
    payload.easting = 691000.0;
    payload.northing = 5316000.0;
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTM);
    Store(record, payload);
    return record;
}

tagKOORD Utmref() {
    UtmrefPayload payload{};
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = 32;
    payload.band = 'U';
    payload.column = 'P';
    payload.row = 'U';
    payload.easting = 91000;
    payload.northing = 36000;
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    Store(record, payload);
    return record;
}

TEST(IsLegalRecord, NeedsADatumExceptForPixels) {
    for (const tagKOORD& record : {GeodezRecord(48.0, 11.0), Utm(), Utmref()}) {
        EXPECT_TRUE(IsLegalRecord(record)) << record.type;
        EXPECT_FALSE(IsLegalRecord(WithoutDatum(record))) << record.type;
        EXPECT_FALSE(IsInSystemArea(WithoutDatum(record))) << record.type;
    }
    EXPECT_TRUE(IsLegalRecord(WithoutDatum(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL))));
}

}  // namespace
}  // namespace tessara
