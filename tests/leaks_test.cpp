// The counters with which other tests find leaks do find them.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>

#include "support/live_objects.h"
#include "support/object_census_check.h"
#include "support/objects.h"
#include "tessara/internal/object_census.h"

namespace tessara::testing {
namespace {

struct EmptyTest : BalancedTest {
    void TestBody() override {}
};

TEST(Leaks, OfABlockFailABalancedTest) {
    std::unique_ptr<int> block;
    const auto leak = [&block] {
        const EmptyTest test;
        block = std::make_unique<int>(1);
    };
    EXPECT_NONFATAL_FAILURE(leak(), "blocks alive");
}

TEST(Leaks, OfAReleaseTooManyFailABalancedTest) {
    auto block = std::make_unique<int>(1);
    const auto release = [&block] {
        const EmptyTest test;
        block.reset();
    };
    EXPECT_NONFATAL_FAILURE(release(), "blocks alive");
}

#if defined(TESSARA_COUNT_OBJECTS)

TEST(Leaks, OfAnObjectFailTheTestByItsClass) {
    IRef<IUnknown> held = MakeStranger();
    EXPECT_NONFATAL_FAILURE(ExpectNoLivingObjects(), "Stranger");
    held = IRef<IUnknown>();
    ExpectNoLivingObjects();
}

#endif

}  // namespace
}  // namespace tessara::testing
