#include "records/call_depth.h"

#include <gtest/gtest.h>

#include <thread>

namespace tessara {
namespace {

// How many could be nested.
int Nest(int depth) {
    const CallDepth here;
    return depth > 1 ? 1 + Nest(depth - 1) : 1;
}

TEST(CallDepth, AsDeepAsTheOperationsGo) {
    EXPECT_EQ(Nest(MAX_CALL_DEPTH), MAX_CALL_DEPTH);
    EXPECT_EQ(Nest(MAX_CALL_DEPTH), MAX_CALL_DEPTH) << "a call that has returned counts no more";
}

TEST(CallDepth, DeeperEndsADebugBuild) {
    EXPECT_DEBUG_DEATH(Nest(MAX_CALL_DEPTH + 1), "MAX_CALL_DEPTH");
}

TEST(CallDepth, EachThreadCountsForItself) {
    const CallDepth here;
    int nested = 0;
    std::thread other([&nested] { nested = Nest(MAX_CALL_DEPTH); });
    other.join();
    EXPECT_EQ(nested, MAX_CALL_DEPTH);
}

}  // namespace
}  // namespace tessara
