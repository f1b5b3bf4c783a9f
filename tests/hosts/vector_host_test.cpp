// Vectors cross the border of the built library as values, in both directions.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/live_objects.h"
#include "tessara/euclidean_vector.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class VectorHost : public testing::BalancedTest {
  protected:
    VectorHost() : library_(dlopen(TESSARA_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(library_, nullptr) << dlerror();
    }
    ~VectorHost() override { EXPECT_EQ(dlclose(library_), 0); }

    IRef<IVector> MakeArithmetic() {
        void* const create = dlsym(library_, "CreateClassEuclideanVector");
        EXPECT_NE(create, nullptr);
        return IRef<IVector>(reinterpret_cast<decltype(CreateClassEuclideanVector)*>(create)());
    }

  private:
    void* library_;
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
