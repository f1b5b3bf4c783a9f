#include "records/convert_records.h"

#include <gtest/gtest.h>

#include "records/zones.h"
#include "support/records.h"
#include "support/zoned_records.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::SameRecord;
using testing::UtmRecord;
using testing::UtmrefRecord;

TEST(ConvertRecords, AZonedTargetIsInItsNaturalZone) {
    // In a cleared GK record 0 would be a wanted meridian.
    for (const std::int32_t type : {KOORD_UTM, KOORD_GK, KOORD_GK6}) {
        tagKOORD record = GeodezRecord(48.0, 11.5, 0.0, 3);
        ASSERT_TRUE(ConvertTo(type, &record));
        EXPECT_EQ(record.type, static_cast<std::uint32_t>(type));
        EXPECT_EQ(record.datum, 3u);
        const std::int32_t zone = type == KOORD_UTM ? 32 : type == KOORD_GK ? 4 : 2;
        EXPECT_EQ(zones::Number(record), zone);
        EXPECT_EQ(zones::Wanted(record), NO_WANTED_ZONE);
    }
}

TEST(ConvertRecords, WhatDoesntConvertStays) {
    const tagKOORD pole = GeodezRecord(89.0, 11.5);
    tagKOORD record = pole;
    EXPECT_FALSE(ConvertTo(KOORD_UTM, &record));
    EXPECT_FALSE(ConvertTo(KOORD_LONGPIXEL, &record));
    EXPECT_TRUE(SameRecord(record, pole));
    GeodezPayload position{1.0, 2.0, 3.0};
    EXPECT_FALSE(ToGeodez(UtmRecord(2, 'N', 0, 5e5, 5e6), &position));
    EXPECT_EQ(position.latitude, 1.0);
}

TEST(ConvertRecords, ToGeodezReadsOnTheOwnDatum) {
    GeodezPayload position;
    ASSERT_TRUE(ToGeodez(GeodezRecord(48.0, 11.5, 500.0, 3), &position));
    EXPECT_EQ(position.latitude, 48.0);
    EXPECT_EQ(position.longitude, 11.5);
    EXPECT_EQ(position.height, 500.0);
}

TEST(ConvertRecords, UtmAndUtmrefKeepTheirZone) {
    // The easting 750000 lies beyond the border of zone 32, at 12.4 degrees east.
    tagKOORD record = UtmRecord(2, 'N', 32, 750000.0, 5.5e6);
    ASSERT_TRUE(ConvertInZone(KOORD_UTMREF, RangeCheck::Off, &record));
    auto expected = UtmrefRecord(2, 32, "UQA", 50000, 0);
    zones::Want(32, &expected);
    EXPECT_TRUE(SameRecord(record, expected));
    ASSERT_TRUE(ConvertInZone(KOORD_UTM, RangeCheck::Off, &record));
    EXPECT_EQ(zones::Number(record), 32);
    EXPECT_EQ(zones::Wanted(record), 32);
    EXPECT_NEAR(zones::East(record), 750000.0, 1e-5);  // metres; a conversion there and back
}

TEST(ConvertRecords, LettersAreRenewedFromTheValuesOfTheWholeGrid) {
    LetterGridPayload payload{};
    payload.fullEasting = 510000.5;
    payload.fullNorthing = 130000.5;
    tagKOORD record = Record(KOORD_BNG, payload);
    ASSERT_TRUE(RenewLetters(&record));
    const auto renewed = Load<LetterGridPayload>(record);
    EXPECT_EQ(renewed.square, 'T');
    EXPECT_EQ(renewed.subSquare, 'Q');
    EXPECT_EQ(renewed.easting, 10000.0);
    EXPECT_NEAR(renewed.fullNorthing, 130000.5, 1e-5);  // metres; a projection there and back
    payload.fullEasting = 800000.0;
    const tagKOORD outside = Record(KOORD_BNG, payload);
    record = outside;
    EXPECT_FALSE(RenewLetters(&record));
    EXPECT_TRUE(SameRecord(record, outside));
}

}  // namespace
}  // namespace tessara
