// Arithmetic without results, as a manager of a host may offer it.
#pragma once

#include "tessara/euclidean_vector.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

class EmptyVectors : public IVector {
  public:
    using Faces = FaceList<IVector>;

    // With a working cross product the local axes are there, and everything after them fails.
    explicit EmptyVectors(bool hasCross) : hasCross_(hasCross) {}

    Vector Normalize(const Vector&) override { return {}; }
    Vector MakeZero(std::uint32_t) override { return {}; }
    double Length(const Vector&) override { return 0.0; }
    Vector Add(const Vector&, const Vector&) override { return {}; }
    Vector Subtract(const Vector&, const Vector&) override { return {}; }
    double Dot(const Vector&, const Vector&) override { return 0.0; }
    Vector Cross(const Vector& a, const Vector& b) override {
        return hasCross_ ? IRef<IVector>(CreateClassEuclideanVector())->Cross(a, b) : Vector{};
    }
    double TripleProduct(const Vector&, const Vector&, const Vector&) override { return 0.0; }
    Vector Scale(const Vector&, double) override { return {}; }

  protected:
    ~EmptyVectors() override = default;

  private:
    bool hasCross_;
};

[[nodiscard]] inline IRef<IUnknown> MakeEmptyVectors(bool hasCross) {
    return IRef<IUnknown>(NewObject<EmptyVectors>(hasCross));
}

}  // namespace tessara::testing
