#include "records/axis_values.h"

#include <gtest/gtest.h>

#include "support/records.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::SameRecord;
using testing::UtmRecord;

// A record whose payload doubles are 0, 1, 2 ... in their order.
tagKOORD Numbered(std::int32_t type) {
    tagKOORD record = MakeKoord(2, type);
    const double numbers[7] = {0, 1, 2, 3, 4, 5, 6};
    std::memcpy(record.payload, numbers, sizeof numbers);
    return record;
}

// Which double of the payload is the east value and which the north value.
struct Place {
    std::int32_t type;
    double east;
    double north;
};

constexpr Place PLACES[] = {
    {KOORD_FLOATPIXEL, 0, 1}, {KOORD_UTM, 1, 2}, {KOORD_GEODEZ, 1, 0}, {KOORD_GK, 1, 2},
    {KOORD_BMN, 1, 2},        {KOORD_OEM, 1, 2}, {KOORD_CH, 0, 1},     {KOORD_GK6, 1, 2},
    {KOORD_GKAT, 1, 2},       {KOORD_UPS, 1, 2}, {KOORD_TM, 5, 6},     {KOORD_PO_MILITARY, 0, 1},
    {KOORD_VDG, 2, 3},        {KOORD_BNG, 3, 4}, {KOORD_ING, 3, 4},    {KOORD_RD, 0, 1},
    {KOORD_LUREF, 0, 1},
};

TEST(AxisValues, StandWhereTheSystemKeepsThem) {
    for (const Place& place : PLACES) {
        EXPECT_TRUE(axes::IsNumber(place.type)) << place.type;
        EXPECT_EQ(axes::Value(Axis::East, Numbered(place.type)), place.east) << place.type;
        EXPECT_EQ(axes::Value(Axis::North, Numbered(place.type)), place.north) << place.type;
    }
}

TEST(AxisValues, AreWrittenWhereTheyStand) {
    for (const Place& place : PLACES) {
        tagKOORD record = Numbered(place.type);
        axes::SetValue(Axis::East, -7.5, &record);
        axes::SetValue(Axis::North, 8.5, &record);
        EXPECT_EQ(axes::Value(Axis::East, record), -7.5);
        EXPECT_EQ(axes::Value(Axis::North, record), 8.5);
        axes::SetValue(Axis::East, place.east, &record);
        axes::SetValue(Axis::North, place.north, &record);
        EXPECT_TRUE(SameRecord(record, Numbered(place.type))) << place.type;
    }
}

TEST(AxisValues, OfWholePixelsAreWhole) {
    tagKOORD record = Record(KOORD_LONGPIXEL, LongPixelPayload{3, -4});
    EXPECT_TRUE(axes::IsNumber(KOORD_LONGPIXEL));
    EXPECT_EQ(axes::Value(Axis::East, record), 3.0);
    EXPECT_EQ(axes::Value(Axis::North, record), -4.0);
    axes::SetValue(Axis::East, -2.9, &record);
    axes::SetValue(Axis::North, 2.9, &record);
    EXPECT_TRUE(SameRecord(record, Record(KOORD_LONGPIXEL, LongPixelPayload{-2, 2})));
}

TEST(AxisValues, OtherSystemsHaveNone) {
    for (const std::int32_t type : {KOORD_UTMREF + 0, KOORD_GEOGRAD + 0, KOORD_GEOREF + 0, KOORD_ECEF + 0,
                                    KOORD_GEODEZMIN + 0, KOORD_LAMBERTCC + 0, 24, -1}) {
        tagKOORD record = Numbered(type);
        EXPECT_FALSE(axes::IsNumber(type)) << type;
        EXPECT_EQ(axes::Value(Axis::East, record), 0.0) << type;
        axes::SetValue(Axis::North, 9.0, &record);
        EXPECT_TRUE(SameRecord(record, Numbered(type))) << type;
    }
}

TEST(AxisValues, SignedNorthingsCountFromTheEquator) {
    EXPECT_EQ(axes::SignedNorthing(UtmRecord(2, 'N', 32, 5e5, 1000.0)), 1000.0);
    EXPECT_EQ(axes::SignedNorthing(UtmRecord(2, 'S', 32, 5e5, 9999000.0)), -1000.0);
    EXPECT_EQ(axes::SignedNorthing(UtmRecord(2, 's', 32, 5e5, 9999000.0)), -1000.0);
    EXPECT_EQ(axes::SignedNorthing(UtmRecord(2, 'x', 32, 5e5, 9999000.0)), 9999000.0);
    EXPECT_EQ(axes::SignedNorthing(GeodezRecord(-5.0, 1.0)), -5.0);
    tagKOORD utm = UtmRecord(2, 'N', 32, 5e5, 1000.0);
    axes::SetSignedNorthing(-1000.0, &utm);
    EXPECT_TRUE(SameRecord(utm, UtmRecord(2, 'S', 32, 5e5, 9999000.0)));
    axes::SetSignedNorthing(0.0, &utm);
    EXPECT_TRUE(SameRecord(utm, UtmRecord(2, 'N', 32, 5e5, 0.0)));
    tagKOORD geodez = GeodezRecord(5.0, 1.0);
    axes::SetSignedNorthing(-6.0, &geodez);
    EXPECT_TRUE(SameRecord(geodez, GeodezRecord(-6.0, 1.0)));
}

TEST(Compass, KnowsAxisAndSign) {
    for (const Compass direction : {Compass::North, Compass::East, Compass::South, Compass::West})
        EXPECT_EQ(DirectionOf(AxisOf(direction), SignOf(direction)), direction);
    EXPECT_EQ(DirectionOf(Axis::North, 0.0), Compass::North);
    EXPECT_EQ(DirectionOf(Axis::East, 0.0), Compass::East);
}

}  // namespace
}  // namespace tessara
