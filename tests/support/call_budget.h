// Objects of a host that answer some calls and no more.
#pragma once

#include <gtest/gtest.h>

namespace tessara::testing {

// How many calls are still answered. Several objects may share one.
class CallBudget {
  public:
    void GiveUpAfter(int calls) { left_ = calls; }
    // Whether a call came that wasn't answered.
    [[nodiscard]] bool HasGivenUp() const { return left_ < 0; }
    [[nodiscard]] int Left() const { return left_; }

    bool Take() {
        if (left_ > 0) {
            --left_;
            return true;
        }
        left_ = -1;
        return false;
    }

  private:
    int left_ = 0;
};

// Lets no call be answered, then one, two and so on, until that is enough. Each shorter run has to fail.
template <class Operation>
void ExpectFailureAtEachCall(CallBudget* budget, const Operation& operation) {
    for (int calls = 0; calls < 100000; ++calls) {
        budget->GiveUpAfter(calls);
        const bool isDone = operation();
        if (!budget->HasGivenUp()) {
            EXPECT_TRUE(isDone) << "with all " << calls << " calls";
            EXPECT_GT(calls, 0);
            return;
        }
        EXPECT_FALSE(isDone) << "after " << calls << " calls";
    }
    ADD_FAILURE() << "there are calls without end";
}

}  // namespace tessara::testing
