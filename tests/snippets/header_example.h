// What the examples in the headers have in common when tests run them.
#pragma once

#include <gtest/gtest.h>

namespace tessara::testing {

// The headers' examples return where an operation fails. A test that doesn't come to its end hasn't run its
// example.
class HeaderExample : public ::testing::Test {
  protected:
    void IsDone() { isDone_ = true; }
    void TearDown() override { EXPECT_TRUE(isDone_) << "the example returned early"; }

  private:
    bool isDone_ = false;
};

}  // namespace tessara::testing
