#include "tessara/euclidean_vector.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

#include "support/random.h"
#include "tessara/kernel/constants.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class EuclideanVectorTest : public ::testing::Test {
  protected:
    IRef<IVector> vectors{CreateClassEuclideanVector()};
};

TEST_F(EuclideanVectorTest, NormalizeDividesByTheLength) {
    // 3/5 and 4/5
    EXPECT_EQ(vectors->Normalize({3.0, 4.0}), (Vector{0.6, 0.8}));
    EXPECT_EQ(vectors->Normalize({0.0, 0.0, -2.0}), (Vector{0.0, 0.0, -1.0}));
}

TEST_F(EuclideanVectorTest, NormalizeDividesAndDoesNotMultiplyByTheReciprocal) {
    // 49 / 49 is 1, while 49 * (1 / 49) rounds to 0.9999999999999999
    EXPECT_NE(49.0 * (1.0 / 49.0), 1.0);
    EXPECT_EQ(vectors->Normalize({49.0})[0], 1.0);
}

TEST_F(EuclideanVectorTest, NormalizeOfZeroLengthComesBackUnchanged) {
    EXPECT_EQ(vectors->Normalize({0.0, 0.0, 0.0}), (Vector{0.0, 0.0, 0.0}));
    EXPECT_EQ(vectors->Normalize({}).Size(), 0u);
    // The square of 1e-200 underflows: the length is 0.0.
    EXPECT_EQ(vectors->Normalize({1e-200, 0.0}), (Vector{1e-200, 0.0}));
}

TEST_F(EuclideanVectorTest, MakeZeroMakesZeros) {
    EXPECT_EQ(vectors->MakeZero(4), (Vector{0.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(vectors->MakeZero(0).Size(), 0u);
}

TEST_F(EuclideanVectorTest, LengthIsTheRootOfTheSumOfSquares) {
    EXPECT_EQ(vectors->Length({3.0, 4.0}), 5.0);
    EXPECT_EQ(vectors->Length({2.0, -3.0, 6.0}), 7.0);  // 4 + 9 + 36 = 49
    EXPECT_EQ(vectors->Length({}), 0.0);
}

TEST_F(EuclideanVectorTest, LengthSumsInTheOrderOfTheElements) {
    // 1e16 + 1 + 1 stays 1e16 in doubles, 1 + 1 + 1e16 doesn't.
    EXPECT_EQ(vectors->Length({1e8, 1.0, 1.0}), 1e8);
    EXPECT_EQ(vectors->Dot({1e16, 1.0, 1.0}, {1.0, 1.0, 1.0}), 1e16);
    EXPECT_EQ(vectors->Dot({1.0, 1.0, 1e16}, {1.0, 1.0, 1.0}), 1e16 + 2.0);
}

TEST_F(EuclideanVectorTest, AddAndSubtractWorkByElements) {
    EXPECT_EQ(vectors->Add({1.0, 2.0}, {10.0, 20.0}), (Vector{11.0, 22.0}));
    EXPECT_EQ(vectors->Subtract({1.0, 2.0}, {10.0, 20.0}), (Vector{-9.0, -18.0}));
    EXPECT_EQ(vectors->Add({}, {}).Size(), 0u);
}

TEST_F(EuclideanVectorTest, VectorsOfTwoSizesGiveEmptyVectorsAndTheMissingNumber) {
    const Vector two{1.0, 2.0};
    const Vector three{1.0, 2.0, 3.0};
    EXPECT_EQ(vectors->Add(two, three).Size(), 0u);
    EXPECT_EQ(vectors->Subtract(two, three).Size(), 0u);
    EXPECT_EQ(vectors->Cross(two, three).Size(), 0u);
    EXPECT_EQ(vectors->Dot(two, three), -DBL_MAX);
    EXPECT_EQ(vectors->Dot(three, two), MISSING_NUMBER);
    EXPECT_EQ(vectors->TripleProduct(two, three, three), -DBL_MAX);
    EXPECT_EQ(vectors->TripleProduct(three, three, two), -DBL_MAX);
}

TEST_F(EuclideanVectorTest, DotIsTheSumOfProducts) {
    EXPECT_EQ(vectors->Dot({1.0, 2.0, 3.0}, {4.0, -5.0, 6.0}), 12.0);  // 4 - 10 + 18
    EXPECT_EQ(vectors->Dot({}, {}), 0.0);
}

TEST_F(EuclideanVectorTest, CrossOfTheAxesFollowsTheRightHand) {
    const Vector x{1.0, 0.0, 0.0};
    const Vector y{0.0, 1.0, 0.0};
    const Vector z{0.0, 0.0, 1.0};
    EXPECT_EQ(vectors->Cross(x, y), z);
    EXPECT_EQ(vectors->Cross(y, z), x);
    EXPECT_EQ(vectors->Cross(z, x), y);
    EXPECT_EQ(vectors->Cross(y, x), (Vector{0.0, 0.0, -1.0}));
}

TEST_F(EuclideanVectorTest, CrossIsCyclicForEveryLength) {
    EXPECT_EQ(vectors->Cross({}, {}).Size(), 0u);
    EXPECT_EQ(vectors->Cross({5.0}, {7.0}), Vector{0.0});
    // At 0: 2*3 - 1*4 = 2, at 1: 1*4 - 2*3 = -2.
    EXPECT_EQ(vectors->Cross({1.0, 2.0}, {3.0, 4.0}), (Vector{2.0, -2.0}));
    // a = (1 2 3 4), b = (5 7 11 13): 2*11-3*7, 3*13-4*11, 4*5-1*13, 1*7-2*5
    EXPECT_EQ(vectors->Cross({1.0, 2.0, 3.0, 4.0}, {5.0, 7.0, 11.0, 13.0}), (Vector{1.0, -5.0, 7.0, -3.0}));
}

TEST_F(EuclideanVectorTest, CrossOfAVectorWithItselfIsExactlyZero) {
    testing::Random random(61);
    for (int i = 0; i < 1000; ++i) {
        const Vector v{random.Between(-1e7, 1e7), random.Between(-1e7, 1e7), random.Between(-1e7, 1e7)};
        ASSERT_EQ(vectors->Cross(v, v), (Vector{0.0, 0.0, 0.0}));
    }
}

TEST_F(EuclideanVectorTest, TripleProductIsTheVolume) {
    EXPECT_EQ(vectors->TripleProduct({2.0, 0.0, 0.0}, {0.0, 3.0, 0.0}, {0.0, 0.0, 5.0}), 30.0);
    EXPECT_EQ(vectors->TripleProduct({2.0, 0.0, 0.0}, {0.0, 3.0, 0.0}, {7.0, 8.0, 0.0}), 0.0);
}

TEST_F(EuclideanVectorTest, ScaleMultipliesEachElement) {
    EXPECT_EQ(vectors->Scale({1.0, -2.0, 0.5}, 4.0), (Vector{4.0, -8.0, 2.0}));
    EXPECT_EQ(vectors->Scale({}, 4.0).Size(), 0u);
}

TEST_F(EuclideanVectorTest, NumbersThatAreNotFinitePassThrough) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(vectors->Length({nan, 1.0})));
    EXPECT_TRUE(std::isnan(vectors->Normalize({nan, 1.0})[1]));
    EXPECT_EQ(vectors->Length({1e200, 1.0}), infinity);
    EXPECT_EQ(vectors->Normalize({infinity, 1.0})[1], 0.0);
}

TEST_F(EuclideanVectorTest, AnswersIVectorAndNothingElse) {
    EXPECT_TRUE(IRef<IUnknown>(vectors).IsValid());
    void* out = &out;
    const GUID other = CLSID_EuclideanVector;
    EXPECT_EQ(vectors->QueryInterface(&other, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(vectors->AddRef(), 2u);
    EXPECT_EQ(vectors->Release(), 1u);
}

}  // namespace
}  // namespace tessara
