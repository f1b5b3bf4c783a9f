#include "tessara/line_intersection_parameters.h"

#include <gtest/gtest.h>

#include <limits>

#include "geometry/creation.h"
#include "support/coords.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::Disguised;

class LineIntersectionParametersTest : public testing::BalancedTest {
  protected:
    struct Place {
        ICoord* (ILineIntersectionParameters::*get)();
        bool (ILineIntersectionParameters::*set)(ICoord*);
    };
    static constexpr Place PLACES[] = {
        {&ILineIntersectionParameters::GetIntersection, &ILineIntersectionParameters::SetIntersection},
        {&ILineIntersectionParameters::GetLineStart, &ILineIntersectionParameters::SetLineStart},
        {&ILineIntersectionParameters::GetLineEnd, &ILineIntersectionParameters::SetLineEnd}};

    ICoord* Get(const Place& place) { return (record.Get()->*place.get)(); }
    bool Set(const Place& place, ICoord* coord) { return (record.Get()->*place.set)(coord); }

    IRef<ILineIntersectionParameters> record{NewLineIntersectionParameters()};
};

TEST_F(LineIntersectionParametersTest, ANewOneCarriesMarks) {
    for (const Place& place : PLACES)
        EXPECT_EQ(Get(place), nullptr);
    EXPECT_EQ(record->GetSegmentIndex(), 0xFFFFFFFFu);
    EXPECT_EQ(record->GetParameter(), -std::numeric_limits<double>::max());
}

TEST_F(LineIntersectionParametersTest, EachPlaceHoldsItsOwnCoordinate) {
    IRef<ICoord> coords[3];
    for (std::size_t i = 0; i < 3; ++i) {
        coords[i] = IRef<ICoord>(CreateClassCoord());
        EXPECT_TRUE(Set(PLACES[i], coords[i].Get()));
    }
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Get(PLACES[i]), coords[i].Get());
        EXPECT_EQ(CountOf(coords[i]), 2u);
    }
}

TEST_F(LineIntersectionParametersTest, GettersTakeNoCountAndTheRecordGivesItsOwnBack) {
    const IRef<ICoord> coord(CreateClassCoord());
    for (const Place& place : PLACES)
        EXPECT_TRUE(Set(place, coord.Get()));
    EXPECT_EQ(CountOf(coord), 4u);
    for (const Place& place : PLACES) {
        EXPECT_EQ(Get(place), coord.Get());
        EXPECT_TRUE(Set(place, coord.Get()));  // again
    }
    EXPECT_EQ(CountOf(coord), 4u);
    record = IRef<ILineIntersectionParameters>();
    EXPECT_EQ(CountOf(coord), 1u);
}

TEST_F(LineIntersectionParametersTest, NullAndForeignObjectsEmptyThePlace) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> coord(CreateClassCoord());
    for (const Place& place : PLACES) {
        for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger)}) {
            ASSERT_TRUE(Set(place, coord.Get()));
            EXPECT_FALSE(Set(place, other));
            EXPECT_EQ(Get(place), nullptr);
            EXPECT_EQ(CountOf(coord), 1u);
        }
    }
    EXPECT_EQ(CountOf(stranger), 1u);
}

TEST_F(LineIntersectionParametersTest, EveryIndexIsStoredButTwoAreFalse) {
    EXPECT_TRUE(record->SetSegmentIndex(7));
    EXPECT_EQ(record->GetSegmentIndex(), 7u);
    EXPECT_FALSE(record->SetSegmentIndex(0));
    EXPECT_EQ(record->GetSegmentIndex(), 0u);
    EXPECT_TRUE(record->SetSegmentIndex(0xFFFFFFFE));
    EXPECT_EQ(record->GetSegmentIndex(), 0xFFFFFFFEu);
    EXPECT_FALSE(record->SetSegmentIndex(0xFFFFFFFF));
    EXPECT_EQ(record->GetSegmentIndex(), 0xFFFFFFFFu);
}

TEST_F(LineIntersectionParametersTest, EveryParameterIsStored) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double parameter : {0.0, 0.5, 1.0, -3.0, infinity}) {
        EXPECT_TRUE(record->SetParameter(parameter));
        EXPECT_EQ(record->GetParameter(), parameter);
    }
}

}  // namespace
}  // namespace tessara
