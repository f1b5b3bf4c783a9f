// Operations on arguments, and on lists of elements, that answer some queries and refuse others. Each fails
// and leaves its inputs unchanged, or returns the result it has without a refusal.
#include "support/refused_queries.h"

#include <gtest/gtest.h>

#include <string>

#include "faults/operation.h"
#include "support/live_objects.h"

#if defined(__unix__)

namespace tessara::testing::refused_queries_test {
namespace {

constexpr int NO_QUERY = 0;

struct Attempt {
    bool isDone;
    int queries;
    std::string outputs;
    bool changesInputs;
};

Attempt Try(const FaultyOperation& operation, int nth, Refusal refusal) {
    RefusedQueries queries;
    PreparedScene scene(operation);
    scene.ForEachArgument([&](IUnknown* object) { queries.TakeOver(object); });
    const std::string before = scene.Inputs();
    queries.Refuse(nth, refusal);
    Attempt attempt{};
    attempt.isDone = operation.call(scene);
    attempt.queries = queries.Asked();
    queries.Refuse(NO_QUERY, refusal);
    attempt.outputs = scene.Outputs();
    attempt.changesInputs = operation.refusal == nullptr && scene.Inputs() != before;
    return attempt;
}

void ExpectRefusalTold(const FaultyOperation& operation, int nth, Refusal refusal, const Attempt& whole) {
    const std::string query = std::string(operation.name) + ", query " + std::to_string(nth) +
                              (refusal == Refusal::ONCE ? "" : " and those after it");
    const std::int64_t blocks = LiveBlocks();
    {
        const Attempt attempt = Try(operation, nth, refusal);
        const bool isSame = attempt.outputs == whole.outputs;
        EXPECT_TRUE(!attempt.isDone || isSame || operation.refusal != nullptr) << query << " isn't missed";
        EXPECT_TRUE(attempt.isDone || !attempt.changesInputs) << query << " changes an input";
    }
    // A failed expectation keeps its message.
    if (::testing::Test::HasFailure()) return;
    EXPECT_EQ(LiveBlocks(), blocks) << query << " leaks";
}

class RefusedQueriesTest : public BalancedTest {
  protected:
    static void ExpectAllTold(OperationTable operations) {
        int queries = 0;
        for (const FaultyOperation& operation : operations) {
            const Attempt whole = Try(operation, NO_QUERY, Refusal::ONCE);
            EXPECT_TRUE(whole.isDone) << operation.name;
            queries += whole.queries;
            for (int nth = 1; nth <= whole.queries; ++nth) {
                ExpectRefusalTold(operation, nth, Refusal::ONCE, whole);
                ExpectRefusalTold(operation, nth, Refusal::FROM_THEN_ON, whole);
            }
        }
        EXPECT_GT(queries, 0);
    }
};

TEST_F(RefusedQueriesTest, OfTheFrameAreTold) {
    ExpectAllTold(FrameOperations());
}

TEST_F(RefusedQueriesTest, OfTheObjectsAreTold) {
    ExpectAllTold(ObjectOperations());
}

TEST_F(RefusedQueriesTest, OfTheTextsAreTold) {
    ExpectAllTold(TextOperations());
}

TEST_F(RefusedQueriesTest, OfTheMapsAreTold) {
    ExpectAllTold(MapOperations());
}

TEST_F(RefusedQueriesTest, OfTheGeometryAreTold) {
    ExpectAllTold(GeometryOperations());
}

TEST_F(RefusedQueriesTest, OfTheAreasAreTold) {
    ExpectAllTold(AreaOperations());
}

// The factory asks the map, and the creator asks it again.
TEST_F(RefusedQueriesTest, LeaveACreatorWithoutItsMap) {
    RefusedQueries queries;
    FaultScene scene;
    queries.TakeOver(scene.map.Get());
    queries.Refuse(2, Refusal::ONCE);
    const IRef<IMapCoordCreator> creator(scene.creators->CreateMapCoordCreator(scene.map.Get()));
    ASSERT_TRUE(creator.IsValid());
    const std::string before = scene.Inputs();
    EXPECT_FALSE(creator->ConvertCoord(scene.degrees.Get()));
    EXPECT_FALSE(IRef<ICoord>(creator->CreateCoordFrom(scene.degrees.Get())).IsValid());
    EXPECT_FALSE(IRef<ICoord>(creator->CreateCoord()).IsValid());
    EXPECT_EQ(scene.Inputs(), before);
}

}  // namespace
}  // namespace tessara::testing::refused_queries_test

#endif
