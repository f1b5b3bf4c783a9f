#include "objects/geo_date.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

class GeoDateTest : public testing::BalancedTest {
  protected:
    IRef<IGeoDate> datum{CreateClassGeoDate()};
    IRef<ITessaraString> text{testing::MakeText("something")};
};

TEST_F(GeoDateTest, StartsWithoutADatum) {
    EXPECT_EQ(datum->GetDatum(), 999);
    datum->GetName(text.Get());
    EXPECT_TRUE(text->IsEmpty());
}

TEST_F(GeoDateTest, TakesTheNumbersOfTheTableAndTheSentinel) {
    for (std::int32_t id = 0; id <= 238; ++id) {
        EXPECT_TRUE(datum->SetDatum(id));
        EXPECT_EQ(datum->GetDatum(), id);
    }
    EXPECT_TRUE(datum->SetDatum(999));
    EXPECT_EQ(datum->GetDatum(), 999);
}

TEST_F(GeoDateTest, RefusesOtherNumbersAndKeepsItsOwn) {
    for (std::int32_t kept : {2, 999}) {
        datum->SetDatum(kept);
        for (std::int32_t id : {-1, 239, 998, 1000, INT_MIN, INT_MAX}) {
            EXPECT_FALSE(datum->SetDatum(id)) << id;
            EXPECT_EQ(datum->GetDatum(), kept);
        }
    }
}

TEST_F(GeoDateTest, NamesEveryDatum) {
    for (std::int32_t id = 0; id <= 238; ++id) {
        datum->SetDatum(id);
        datum->GetName(text.Get());
        EXPECT_FALSE(text->IsEmpty()) << id;
        EXPECT_LE(text->GetLength(), 23) << id;
        EXPECT_STREQ(text->GetText(), Datum_Row(id)->name) << "the name of the datum table";
    }
}

TEST_F(GeoDateTest, NamesDatums) {
    datum->SetDatum(2);
    datum->GetName(text.Get());
    EXPECT_STREQ(text->GetText(), "WGS84");
    datum->SetDatum(8);
    datum->GetName(text.Get());
    EXPECT_STREQ(text->GetText(), "KKJ");
}

TEST_F(GeoDateTest, WithoutANameEmptiesTheText) {
    datum->SetDatum(999);
    datum->GetName(text.Get());
    EXPECT_TRUE(text->IsEmpty());
    EXPECT_EQ(testing::CountOf(text), 1u);
}

TEST_F(GeoDateTest, GivesNoNameToWhatIsNoText) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    datum->SetDatum(2);
    datum->GetName(nullptr);
    datum->GetName(testing::Disguised<ITessaraString>(stranger));
    EXPECT_EQ(testing::CountOf(stranger), 1u);
    EXPECT_EQ(datum->GetDatum(), 2);
}

}  // namespace
}  // namespace tessara
