#pragma once

#include "tessara/euclidean_vector.h"
#include "tessara/object.h"

namespace tessara {

class EuclideanVector : public IVector {
  public:
    using Faces = FaceList<IVector>;

    Vector Normalize(const Vector& v) override;
    Vector MakeZero(std::uint32_t n) override;
    double Length(const Vector& v) override;
    Vector Add(const Vector& a, const Vector& b) override;
    Vector Subtract(const Vector& a, const Vector& b) override;
    double Dot(const Vector& a, const Vector& b) override;
    Vector Cross(const Vector& a, const Vector& b) override;
    double TripleProduct(const Vector& a, const Vector& b, const Vector& c) override;
    Vector Scale(const Vector& v, double s) override;

  protected:
    ~EuclideanVector() override = default;
};

}  // namespace tessara
