#include "tessara/kernel/systems.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tessara/kernel/koord.h"

namespace tessara {
namespace {

TEST(Systems, HaveTheUnitOfTheirValues) {
    EXPECT_EQ(System_Unit(KOORD_GEODEZ), Unit::Degree);
    EXPECT_EQ(System_Unit(KOORD_UTM), Unit::Metre);
    EXPECT_EQ(System_Unit(KOORD_ECEF), Unit::Metre);
    EXPECT_EQ(System_Unit(KOORD_FLOATPIXEL), Unit::Pixel);
}

// "N 5316000" and "32 500000": the hemisphere and the zone come before the values.
TEST(Systems, TextsHaveTheFieldsOfTheirRecords) {
    const auto north = System_NorthText(KOORD_UTM);
    const auto east = System_EastText(KOORD_UTM);
    ASSERT_EQ(north.size(), 2u);
    EXPECT_EQ(north[0].kind, FieldKind::Letter);
    EXPECT_EQ(north[0].offset, offsetof(UtmPayload, hemisphere));
    EXPECT_EQ(north[1].kind, FieldKind::Number);
    EXPECT_EQ(north[1].offset, offsetof(UtmPayload, northing));
    ASSERT_EQ(east.size(), 2u);
    EXPECT_EQ(east[0].kind, FieldKind::Whole16);
    EXPECT_EQ(east[0].offset, offsetof(UtmPayload, zone));
    EXPECT_EQ(east[1].kind, FieldKind::Number);
    EXPECT_EQ(east[1].offset, offsetof(UtmPayload, easting));
}

TEST(Systems, ANumberThatIsNoneHasNoTexts) {
    for (const std::int32_t type : {-1, KOORD_TYPE_COUNT}) {
        EXPECT_TRUE(System_NorthText(type).empty()) << type;
        EXPECT_TRUE(System_EastText(type).empty()) << type;
    }
}

}  // namespace
}  // namespace tessara
