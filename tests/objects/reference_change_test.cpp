#include "objects/reference_change.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/maps.h"
#include "support/records.h"

namespace tessara {
namespace {

class ReferenceChangeTest : public testing::BalancedTest {};

TEST_F(ReferenceChangeTest, ConvertsAndKeepsTheHeight) {
    CKoord koord(GeodezRecord(48.0, 9.0, 120.0));
    ASSERT_TRUE(ReferenceChange(2, KOORD_UTM).Apply(koord, &koord));
    EXPECT_EQ(koord.type, KOORD_UTM);
    EXPECT_NEAR(Load<UtmPayload>(koord).easting, 500000.0, 1e-6);
    // cs2cs +proj=latlong +datum=WGS84 to +proj=utm +zone=32 of 9 48
    EXPECT_NEAR(Load<UtmPayload>(koord).northing, 5316300.224, 1e-3);
    EXPECT_EQ(koord.GetHeight(), 120.0);
}

TEST_F(ReferenceChangeTest, ServesOneRecordAfterTheOther) {
    const ReferenceChange toGeodez(2, KOORD_GEODEZ);
    for (const double latitude : {10.0, 20.0, 30.0}) {
        CKoord utm(GeodezRecord(latitude, 9.0));
        CKoord back;
        ASSERT_TRUE(ReferenceChange(2, KOORD_UTM).Apply(utm, &utm));
        ASSERT_TRUE(toGeodez.Apply(utm, &back));
        // Degrees: a tenth of a millimetre, through UTM and back.
        EXPECT_NEAR(Load<GeodezPayload>(back).latitude, latitude, 1e-9);
    }
}

TEST_F(ReferenceChangeTest, NumbersForNoneAreTheSources) {
    CKoord result;
    ASSERT_TRUE(ReferenceChange(NO_DATUM, NO_SYSTEM).Apply(GeodezRecord(48, 9, 0.0, 3), &result));
    EXPECT_EQ(result.datum, 3u);
    EXPECT_EQ(result.type, KOORD_GEODEZ);
    ASSERT_TRUE(ReferenceChange(NO_DATUM, KOORD_GK).Apply(GeodezRecord(48, 9, 0.0, 3), &result));
    EXPECT_EQ(result.datum, 3u);
    EXPECT_EQ(result.type, KOORD_GK);
}

TEST_F(ReferenceChangeTest, WhatDoesntConvertLeavesTheResultAlone) {
    for (const auto& [datum, system] : {std::pair{2, 24}, {500, 4}, {-3, 4}}) {
        CKoord result(GeodezRecord(1, 2));
        EXPECT_FALSE(ReferenceChange(datum, system).Apply(GeodezRecord(48, 9), &result));
        EXPECT_EQ(Load<GeodezPayload>(result).latitude, 1.0);
    }
    CKoord result(GeodezRecord(1, 2));
    EXPECT_FALSE(ReferenceChange(2, KOORD_UTM).Apply(GeodezRecord(500, 9), &result));
    EXPECT_EQ(Load<GeodezPayload>(result).latitude, 1.0);
}

TEST_F(ReferenceChangeTest, PixelsHaveNoPositionOfTheirOwn) {
    CKoord result;
    ASSERT_TRUE(ReferenceChange(2, KOORD_FLOATPIXEL).Apply(testing::LongPixel(3, 4), &result));
    EXPECT_EQ(Load<FloatPixelPayload>(result).x, 3.0);
    ASSERT_TRUE(ReferenceChange(2, KOORD_GEODEZ).Apply(testing::LongPixel(3, 4), &result));
    EXPECT_EQ(Load<GeodezPayload>(result).latitude, 0.0);
}

}  // namespace
}  // namespace tessara
