// Operations whose arguments do something else when they are queried: throw, call the library again, on this
// thread or another, or change the other arguments.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include "faults/operation.h"
#include "support/live_objects.h"
#include "support/refused_queries.h"

#if defined(__unix__)

namespace tessara::testing::hostile_queries_test {
namespace {

// An exception of a type that the library doesn't know.
struct HostError {};

using Action = std::function<void(const FaultyOperation& operation, FaultScene& scene)>;

enum class Afterwards { ANYTHING, SUCCEEDS };

class HostileQueries : public BalancedTest {
  protected:
    // Interrupts each query of each operation once. Nothing leaks, whatever the operation returns.
    static void InterruptAll(OperationTable operations, const Action& action,
                             Afterwards afterwards = Afterwards::ANYTHING) {
        int interrupts = 0;
        for (const FaultyOperation& operation : operations) {
            bool isInterrupted = true;
            for (int nth = 1; isInterrupted; ++nth) {
                const std::int64_t blocks = LiveBlocks();
                isInterrupted = Interrupt(operation, nth, action, afterwards);
                // A failed expectation keeps its message.
                if (HasFailure()) return;
                EXPECT_EQ(LiveBlocks(), blocks) << operation.name << " leaks, query " << nth;
                interrupts += isInterrupted ? 1 : 0;
            }
        }
        EXPECT_GT(interrupts, 0);
    }

  private:
    // False if the operation has fewer queries.
    static bool Interrupt(const FaultyOperation& operation, int nth, const Action& action,
                          Afterwards afterwards) {
        RefusedQueries queries;
        PreparedScene scene(operation);
        scene.ForEachArgument([&](IUnknown* object) { queries.TakeOver(object); });
        bool isInterrupted = false;
        queries.Interrupt(nth, [&] {
            isInterrupted = true;
            action(operation, scene);
        });
        try {
            (void)operation.call(scene);
        } catch (const HostError&) {
        }
        queries.Interrupt(0, nullptr);
        if (!isInterrupted || afterwards == Afterwards::ANYTHING) return isInterrupted;
        EXPECT_TRUE(operation.call(scene)) << operation.name << " fails after query " << nth;
        return true;
    }
};

// A map that takes a second record abandons the reference points of the first.
bool AbandonsPoints(const FaultyOperation& operation) {
    return std::string_view(operation.name) == "ICoordinateGrid::CopyMapTo";
}

struct Room {
    const char* name;
    OperationTable (*operations)();
};

class HostileQueriesOf : public HostileQueries, public ::testing::WithParamInterface<Room> {};

void Throw(const FaultyOperation&, FaultScene&) {
    throw HostError();
}

TEST_P(HostileQueriesOf, ThatThrowLeaveUsableObjects) {
    InterruptAll(GetParam().operations(), Throw, Afterwards::SUCCEEDS);
}

TEST_P(HostileQueriesOf, ThatCallTheSameOperation) {
    const Action callAgain = [](const FaultyOperation& operation, FaultScene& scene) {
        if (!AbandonsPoints(operation)) (void)operation.call(scene);
    };
    InterruptAll(GetParam().operations(), callAgain);
}

TEST_P(HostileQueriesOf, ThatCallItOnAnotherThread) {
    const Action callElsewhere = [](const FaultyOperation& operation, FaultScene& scene) {
        if (AbandonsPoints(operation)) return;
        std::thread([&] { (void)operation.call(scene); }).join();
    };
    InterruptAll(GetParam().operations(), callElsewhere);
}

TEST_P(HostileQueriesOf, ThatEmptyTheLists) {
    const Action clear = [](const FaultyOperation&, FaultScene& scene) {
        for (const auto* line :
             {&scene.square, &scene.moreSquare, &scene.bow, &scene.utmLine, &scene.moreUtmLine,
              &scene.utmPolygon, &scene.moreUtmPolygon, &scene.polarPolygon, &scene.morePolarPolygon,
              &scene.single, &scene.degreeLine, &scene.points, &scene.list, &scene.list2, &scene.list3,
              &scene.list4})
            (*line)->Clear();
    };
    InterruptAll(GetParam().operations(), clear);
}

TEST_P(HostileQueriesOf, ThatMoveThePositions) {
    const Action move = [](const FaultyOperation&, FaultScene& scene) {
        for (const auto* coord :
             {&scene.degrees, &scene.moreDegrees, &scene.utm, &scene.moreUtm, &scene.utmref, &scene.ecef,
              &scene.pixel, &scene.morePixel, &scene.inSquare})
            (*coord)->SetReference(scene.swissReference.Get());
        scene.utm->SetPixel(-1e9, 1e9);
        scene.pixel->SetPixel(-1e9, 1e9);
    };
    InterruptAll(GetParam().operations(), move);
}

INSTANTIATE_TEST_SUITE_P(Rooms, HostileQueriesOf,
                         ::testing::Values(Room{"Frame", FrameOperations}, Room{"Objects", ObjectOperations},
                                           Room{"Texts", TextOperations}, Room{"Maps", MapOperations},
                                           Room{"Geometry", GeometryOperations},
                                           Room{"Areas", AreaOperations}),
                         [](const auto& room) { return std::string(room.param.name); });

}  // namespace
}  // namespace tessara::testing::hostile_queries_test

#endif
