// Products are rounded before they are added or subtracted. Fused into one instruction they aren't, and exact
// comparisons decide otherwise. This file has the options of the library's sources and calculates in ways
// that compilers fuse. On processors whose baseline has no such instruction the compiler is allowed to use it
// here, where it would show.
#include <gtest/gtest.h>

#include <array>

namespace tessara {
namespace {

#if defined(__x86_64__)
#define TESSARA_MAY_FUSE __attribute__((target("fma"), noinline))
bool CanFuse() {
    return __builtin_cpu_supports("fma");
}
#else
#define TESSARA_MAY_FUSE __attribute__((noinline))
bool CanFuse() {
    return true;
}
#endif

// (1 + 2^-30)^2 = 1 + 2^-29 + 2^-60 doesn't fit into a double. Fused, the last term would be left over from
// differences with 1 + 2^-29.
volatile double value = 1.0 + 0x1p-30;  // the compiler doesn't calculate with it
constexpr double ROUNDED_SQUARE = 1.0 + 0x1p-29;

using Two = std::array<double, 2>;

TESSARA_MAY_FUSE double DifferenceOfProducts(double ax, double ay, double bx, double by) {
    return ax * by - ay * bx;
}

// g++ knows an instruction that does both.
TESSARA_MAY_FUSE void DifferenceBesideSum(const double* a, const double* b, const double* c, double* result) {
    const double difference = a[0] * b[0] - c[0];
    const double sum = a[1] * b[1] + c[1];
    result[0] = difference;
    result[1] = sum;
}

TEST(FusedProducts, DoNotStandInADifference) {
    if (!CanFuse()) GTEST_SKIP() << "this processor can't fuse";
    EXPECT_EQ(DifferenceOfProducts(value, value, value, value), 0.0);
}

TEST(FusedProducts, DoNotStandInADifferenceBesideASum) {
    if (!CanFuse()) GTEST_SKIP() << "this processor can't fuse";
    const Two values{value, value};
    const Two others{ROUNDED_SQUARE, -ROUNDED_SQUARE};
    Two result{1.0, 1.0};
    DifferenceBesideSum(values.data(), values.data(), others.data(), result.data());
    EXPECT_EQ(result, (Two{0.0, 0.0}));
}

}  // namespace
}  // namespace tessara
