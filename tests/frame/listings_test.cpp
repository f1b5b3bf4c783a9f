#include "tessara/host/listings.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

TEST(Listings, HaveTheSystemsInTheOrderOfTheirNumbers) {
    const std::span<const NameRow> systems = host::Systems();
    ASSERT_EQ(systems.size(), 23u);
    for (std::size_t i = 0; i < systems.size(); ++i)
        EXPECT_EQ(systems[i].number, i);
    EXPECT_STREQ(systems[2].name, "UTM");
    EXPECT_STREQ(systems[22].name, "LUREF");
}

TEST(Listings, HaveTheDatumsOfTheKernel) {
    const std::span<const DatumRow> datums = host::Datums();
    ASSERT_EQ(datums.size(), 239u);
    for (std::int32_t i = 0; i < 239; ++i)
        EXPECT_EQ(std::memcmp(&datums[static_cast<std::size_t>(i)], Datum_Row(i), sizeof(DatumRow)), 0) << i;
}

TEST(Listings, NameTheEllipsoidOfADatum) {
    EXPECT_STREQ(host::EllipsoidName(host::Datums()[3].ellipsoid), "BESSEL");
    EXPECT_EQ(host::EllipsoidName(25), nullptr) << "the user-defined one has no name";
    EXPECT_EQ(host::EllipsoidName(26), nullptr);
    EXPECT_EQ(host::EllipsoidName(0xFFFFFFFFu), nullptr);
}

}  // namespace
}  // namespace tessara
