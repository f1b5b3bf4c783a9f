// Vectors cross the border of the built library as values, in both directions.
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/live_objects.h"
#include "support/shared_library.h"
#include "tessara/euclidean_vector.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class VectorHost : public testing::BalancedTest {
  protected:
    IRef<IVector> MakeArithmetic() {
        return IRef<IVector>(
            library_.Find<decltype(CreateClassEuclideanVector)>("CreateClassEuclideanVector")());
    }

  private:
    const testing::SharedLibrary library_{TESSARA_LIBRARY};
};

TEST_F(VectorHost, UsesGrowsAndFreesWhatTheLibraryMade) {
    const IRef<IVector> vectors = MakeArithmetic();
    Vector v = vectors->Add({1.0, 2.0}, {10.0, 20.0});
    v.Append(33.0);
    v = vectors->Scale(v, 2.0);
    EXPECT_EQ(v, (Vector{22.0, 44.0, 66.0}));
    EXPECT_EQ(vectors->Cross({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}), (Vector{0.0, 0.0, 1.0}));
    EXPECT_EQ(vectors->Add({1.0}, {}).Size(), 0u);
}

TEST_F(VectorHost, CatchesAWrongSubscriptOfItsOwn) {
    const Vector zeros = MakeArithmetic()->MakeZero(3);
    EXPECT_EQ(zeros[2], 0.0);
    EXPECT_THROW(static_cast<void>(zeros[3]), std::out_of_range);
}

}  // namespace
}  // namespace tessara
