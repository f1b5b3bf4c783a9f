// Counts allocations: a test program that links this file replaces global operator new and delete by counting
// versions, also for libraries that it loads.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

namespace tessara::testing {

// The number of live blocks from operator new.
[[nodiscard]] std::int64_t LiveBlocks();

// The number of allocations so far.
[[nodiscard]] std::int64_t AllocatedBlocks();

// Makes the `nth` allocation of this thread fail once; 1 is the next one.
class FailAllocation {
  public:
    explicit FailAllocation(int nth);
    ~FailAllocation();
    FailAllocation(const FailAllocation&) = delete;
    FailAllocation& operator=(const FailAllocation&) = delete;

    // Whether the allocation has failed.
    [[nodiscard]] bool HasFailed() const;
};

// Expects that all objects of a test are released at its end. Members of a derived fixture end before the
// check.
class BalancedTest : public ::testing::Test {
  protected:
    BalancedTest() : before_(LiveBlocks()) {}
    ~BalancedTest() override {
        // Keeps the message of a failed expectation.
        if (HasFailure()) return;
        EXPECT_EQ(LiveBlocks(), before_) << "blocks alive, after and before the test";
    }

  private:
    std::int64_t before_;
};

}  // namespace tessara::testing
