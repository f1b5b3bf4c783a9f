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

// All central lines of GK-AT have the easting 0, but there are three meridians only.
TEST(IsLegalRecord, NeedsAMeridianThatExists) {
    EXPECT_TRUE(IsLegalRecord(testing::Austrian(KOORD_GKAT, 31, 0.0, 5.3e6)));
    for (const auto meridian : {std::int16_t{29}, std::int16_t{32}, std::int16_t{33}}) {
        const tagKOORD record = testing::Austrian(KOORD_GKAT, meridian, 0.0, 5.3e6);
        EXPECT_TRUE(IsInSystemArea(record)) << "between the outermost meridians";
        EXPECT_FALSE(IsLegalRecord(record)) << meridian;
    }
}

// A position is rounded to whole metres, which may put it outside its zone.
TEST(IsLegalRecord, HoldsForTheReferenceOfEachPositionBesideTheBorderOfItsZone) {
    for (double latitude = -79.0; latitude < 55.0; latitude += 0.01) {
        for (const double longitude : {6.0 + 1e-12, 12.0 - 1e-12}) {
            const tagKOORD position = GeodezRecord(latitude, longitude);
            tagKOORD reference = testing::Utmref(0, 'N', "AA", 0, 0);
            ASSERT_EQ(KoordConvert(&position, &reference), KOORD_OK);
            ASSERT_EQ(Load<UtmrefPayload>(reference).zone, 32);
            EXPECT_TRUE(IsLegalRecord(reference)) << latitude << " " << longitude;
        }
    }
}

}  // namespace
}  // namespace tessara
