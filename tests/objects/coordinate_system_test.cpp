#include "objects/coordinate_system.h"

#include <gtest/gtest.h>

#include <climits>

#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

const char* const NAMES[] = {
    "LONGPIXEL",   "FLOATPIXEL", "UTM", "UTMREF", "GEODEZ",    "GEOGRAD", "GEOREF", "GK",
    "BMN",         "OEM",        "CH",  "ECEF",   "GEODEZMIN", "GK6",     "GK-AT",  "UPS",
    "PO_MILITARY", "TM",         "VDG", "BNG",    "ING",       "RD",      "LUREF",
};

class CoordinateSystemTest : public testing::BalancedTest {
  protected:
    IRef<ICoordinateSystem> system{CreateClassCoordinateSystem()};
    IRef<ITessaraString> text{testing::MakeText("something")};
};

TEST_F(CoordinateSystemTest, StartsWithoutASystem) {
    EXPECT_EQ(system->GetSystem(), -1);
    system->GetName(text.Get());
    EXPECT_TRUE(text->IsEmpty());
}

TEST_F(CoordinateSystemTest, TakesTheCodesOfAllTypesAndTheSentinel) {
    for (std::int32_t code = -1; code <= 23; ++code) {
        EXPECT_TRUE(system->SetSystem(code)) << code;
        EXPECT_EQ(system->GetSystem(), code);
    }
}

TEST_F(CoordinateSystemTest, RefusesOtherCodesAndKeepsItsOwn) {
    for (std::int32_t kept : {7, -1}) {
        system->SetSystem(kept);
        for (std::int32_t code : {-2, 24, 999, INT_MIN, INT_MAX}) {
            EXPECT_FALSE(system->SetSystem(code)) << code;
            EXPECT_EQ(system->GetSystem(), kept);
        }
    }
}

TEST_F(CoordinateSystemTest, NamesTheTypes) {
    static_assert(std::size(NAMES) == 23);
    for (std::int32_t code = 0; code <= 22; ++code) {
        system->SetSystem(code);
        system->GetName(text.Get());
        EXPECT_STREQ(text->GetText(), NAMES[code]);
    }
}

TEST_F(CoordinateSystemTest, WithoutANameEmptiesTheText) {
    for (std::int32_t code : {-1, 23}) {
        text->AssignText("something");
        system->SetSystem(code);
        system->GetName(text.Get());
        EXPECT_TRUE(text->IsEmpty()) << code;
    }
    EXPECT_EQ(testing::CountOf(text), 1u);
}

TEST_F(CoordinateSystemTest, GivesNoNameToWhatIsNoText) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    system->SetSystem(2);
    system->GetName(nullptr);
    system->GetName(testing::Disguised<ITessaraString>(stranger));
    EXPECT_EQ(testing::CountOf(stranger), 1u);
    EXPECT_EQ(system->GetSystem(), 2);
}

}  // namespace
}  // namespace tessara
