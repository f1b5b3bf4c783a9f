#include "objects/coordinate_reference.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

class CoordinateReferenceTest : public testing::BalancedTest {
  protected:
    IRef<ICoordinateReference> reference{CreateClassCoordinateReference()};
    IRef<ITessaraString> text{testing::MakeText("something")};
};

TEST_F(CoordinateReferenceTest, StartsWithNeitherDatumNorSystem) {
    EXPECT_EQ(reference->GetDatum(), 999);
    EXPECT_EQ(reference->GetSystem(), -1);
    reference->GetDatumName(text.Get());
    EXPECT_TRUE(text->IsEmpty());
    text->AssignText("something");
    reference->GetSystemName(text.Get());
    EXPECT_TRUE(text->IsEmpty());
}

TEST_F(CoordinateReferenceTest, HoldsADatumAndASystem) {
    EXPECT_TRUE(reference->SetDatum(3));
    EXPECT_TRUE(reference->SetSystem(14));
    EXPECT_EQ(reference->GetDatum(), 3);
    EXPECT_EQ(reference->GetSystem(), 14);
    reference->GetSystemName(text.Get());
    EXPECT_STREQ(text->GetText(), "GK-AT");
    reference->SetDatum(2);
    reference->GetDatumName(text.Get());
    EXPECT_STREQ(text->GetText(), "WGS84");
}

TEST_F(CoordinateReferenceTest, RefusesWhatItsPartsRefuse) {
    reference->SetDatum(2);
    reference->SetSystem(4);
    EXPECT_FALSE(reference->SetDatum(239));
    EXPECT_FALSE(reference->SetDatum(-1));
    EXPECT_FALSE(reference->SetSystem(24));
    EXPECT_FALSE(reference->SetSystem(-2));
    EXPECT_EQ(reference->GetDatum(), 2);
    EXPECT_EQ(reference->GetSystem(), 4);
    EXPECT_TRUE(reference->SetDatum(999));
    EXPECT_TRUE(reference->SetSystem(-1));
    EXPECT_TRUE(reference->SetSystem(23));
}

TEST_F(CoordinateReferenceTest, SharesNothingWithOthers) {
    const IRef<ICoordinateReference> other(CreateClassCoordinateReference());
    reference->SetDatum(2);
    reference->SetSystem(4);
    EXPECT_EQ(other->GetDatum(), 999);
    EXPECT_EQ(other->GetSystem(), -1);
}

TEST_F(CoordinateReferenceTest, GivesNoNamesToWhatIsNoText) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    reference->GetDatumName(nullptr);
    reference->GetSystemName(nullptr);
    reference->GetDatumName(testing::Disguised<ITessaraString>(stranger));
    reference->GetSystemName(testing::Disguised<ITessaraString>(stranger));
    EXPECT_EQ(testing::CountOf(stranger), 1u);
}

}  // namespace
}  // namespace tessara
