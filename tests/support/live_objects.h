// Counts allocations: a test program that links this replaces global operator new and delete by counting
// versions. A library that the program loads uses them, too.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

namespace tessara::testing {

// How many blocks from operator new are alive.
[[nodiscard]] std::int64_t LiveBlocks();

// The number of allocations so far.
[[nodiscard]] std::int64_t AllocatedBlocks();

// While it lives, the `nth` allocation of this thread from now on fails, once. 1 is the next one.
class FailAllocation {
  public:
    explicit FailAllocation(int nth);
    ~FailAllocation();
    FailAllocation(const FailAllocation&) = delete;
    FailAllocation& operator=(const FailAllocation&) = delete;

    // Whether that allocation has been reached.
    [[nodiscard]] bool HasFailed() const;
};

// A test whose objects are all gone at its end. Members of a derived fixture die before the account is taken.
class BalancedTest : public ::testing::Test {
  protected:
    BalancedTest() : before_(LiveBlocks()) {}
    ~BalancedTest() override {
        // A failed expectation keeps its message.
        if (HasFailure()) return;
        EXPECT_EQ(LiveBlocks(), before_) << "blocks alive, after and before the test";
    }

  private:
    std::int64_t before_;
};

}  // namespace tessara::testing
