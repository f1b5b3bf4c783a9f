#include "numerics/called.h"

#include <gtest/gtest.h>

#include "numerics/arcs.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "support/any_doubles.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::AreSame;

TEST(Called, FunctionsAreTheInlinedOnes) {
    testing::Random random(1);
    for (int i = 0; i < 1000; ++i) {
        const double x = testing::AnySize(random, 1e-3, 1e3);
        EXPECT_TRUE(AreSame(called::SinCosOf(x).sine, Sin(x))) << x;
        EXPECT_TRUE(AreSame(called::SinCosOf(x).cosine, Cos(x))) << x;
        EXPECT_TRUE(AreSame(called::Atan(x), Atan(x))) << x;
        EXPECT_TRUE(AreSame(called::Atan2(x, 2.0), Atan2(x, 2.0))) << x;
        EXPECT_TRUE(AreSame(called::Asin(x), Asin(x))) << x;
        EXPECT_TRUE(AreSame(called::Log(x), Log(x))) << x;
        EXPECT_TRUE(AreSame(called::Exp(x), Exp(x))) << x;
    }
}

}  // namespace
}  // namespace tessara
