// Lets every allocation of each operation fail in turn. The operation reports a failure or, if it grows a
// list, a vector or a text without a result, throws std::bad_alloc; nothing leaks and no input changes.
#include <gtest/gtest.h>

#include <new>
#include <set>
#include <string>

#include "faults/operation.h"
#include "support/interfaces.h"
#include "support/live_objects.h"
#include "support/sanitized.h"

namespace tessara::testing::faults_test {
namespace {

constexpr int NO_FAULT = 0;

enum Outcome { SUCCEEDED, FAILED, THREW };

struct Attempt {
    Outcome outcome;
    bool hasFailed;  // the allocation
    std::int64_t allocations;
};

Attempt Try(const FaultyOperation& operation, FaultScene& scene, int nth) {
    const std::int64_t before = AllocatedBlocks();
    Attempt attempt{THREW, false, 0};
    const FailAllocation failure(nth);
    try {
        attempt.outcome = operation.call(scene) ? SUCCEEDED : FAILED;
    } catch (const std::bad_alloc&) {
        attempt.outcome = THREW;
    }
    attempt.hasFailed = failure.HasFailed();
    attempt.allocations = AllocatedBlocks() - before;
    return attempt;
}

// With one allocation failing. True if the operation could do without.
bool ExpectFaultTold(const FaultyOperation& operation, int nth, const std::string& expected) {
    PreparedScene scene(operation);
    const std::string before = scene.Inputs();
    const Attempt attempt = Try(operation, scene, nth);
    EXPECT_TRUE(attempt.hasFailed) << operation.name << ", allocation " << nth;
    if (attempt.outcome == SUCCEEDED) {
        EXPECT_NE(operation.spares, nullptr) << operation.name << " knows nothing of allocation " << nth;
        EXPECT_TRUE(scene.Outputs() == expected) << operation.name << " without allocation " << nth;
        return true;
    }
    EXPECT_TRUE(attempt.outcome == FAILED || operation.outOfMemory == OutOfMemory::MAY_THROW)
        << operation.name << " throws, allocation " << nth;
    EXPECT_TRUE(scene.Inputs() == before) << operation.name << " changes an input, allocation " << nth;
    return false;
}

void ExpectFaultsTold(const FaultyOperation& operation) {
    std::string expected;
    std::int64_t allocations = 0;
    {
        PreparedScene scene(operation);
        const Attempt whole = Try(operation, scene, NO_FAULT);
        allocations = whole.allocations;
        expected = scene.Outputs();
        EXPECT_EQ(whole.outcome, SUCCEEDED) << operation.name;
        // Sanitizers allocate arrays, of which vectors are made, by themselves.
        if (!IS_SANITIZED || allocations > 0) {
            EXPECT_EQ(allocations == 0, operation.outOfMemory == OutOfMemory::NEVER) << operation.name;
        }
    }
    int spared = 0;
    for (int nth = 1; nth <= allocations; ++nth) {
        const std::int64_t blocks = LiveBlocks();
        spared += ExpectFaultTold(operation, nth, expected) ? 1 : 0;
        // A failed expectation keeps its message.
        if (::testing::Test::HasFailure()) return;
        EXPECT_EQ(LiveBlocks(), blocks) << operation.name << " leaks, allocation " << nth;
    }
    EXPECT_EQ(spared > 0, operation.spares != nullptr) << operation.name;
}

class Faults : public BalancedTest {
  protected:
    static void ExpectAllTold(OperationTable operations) {
        for (const FaultyOperation& operation : operations)
            ExpectFaultsTold(operation);
    }
};

TEST_F(Faults, OfTheFrameAreTold) {
    ExpectAllTold(FrameOperations());
}

TEST_F(Faults, OfTheObjectsAreTold) {
    ExpectAllTold(ObjectOperations());
}

TEST_F(Faults, OfTheTextsAreTold) {
    ExpectAllTold(TextOperations());
}

TEST_F(Faults, OfTheMapsAreTold) {
    ExpectAllTold(MapOperations());
}

TEST_F(Faults, OfTheGeometryAreTold) {
    ExpectAllTold(GeometryOperations());
}

TEST_F(Faults, OfTheAreasAreTold) {
    ExpectAllTold(AreaOperations());
}

// Those of the interfaces that only hosts implement are nothing that the library does.
bool IsTheHosts(const std::string& interface) {
    return interface == "IObjectManager" || interface == "IClassSink" || interface == "IRect";
}

TEST(FaultyOperations, AreAllThatTheHeadersDeclare) {
    std::set<std::string> prepared;
    for (const OperationTable operations : {FrameOperations(), ObjectOperations(), TextOperations(),
                                            MapOperations(), GeometryOperations(), AreaOperations()}) {
        for (const FaultyOperation& operation : operations) {
            const std::string name = operation.name;
            prepared.insert(name.substr(0, name.find(' ')));
        }
    }
    std::set<std::string> declared;
    for (const DeclaredOperation& operation : DeclaredOperations()) {
        if (operation.name[0] != '~' && !IsTheHosts(operation.interface))
            declared.insert(operation.interface + "::" + operation.name);
    }
    EXPECT_GT(declared.size(), 300u);
    EXPECT_EQ(prepared, declared);
}

}  // namespace
}  // namespace tessara::testing::faults_test
