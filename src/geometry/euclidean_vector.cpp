#include "geometry/euclidean_vector.h"

#include <cmath>
#include <exception>

#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// The vector whose element i is element(i).
template <class Element>
Vector MakeVector(std::uint32_t size, Element element) {
    Vector result = Vector::Zeros(size);
    for (std::uint32_t i = 0; i < size; ++i)
        result[i] = element(i);
    return result;
}

std::uint32_t NextAround(std::uint32_t index, std::uint32_t size) {
    return index + 1 == size ? 0 : index + 1;
}

}  // namespace

Vector EuclideanVector::Normalize(const Vector& v) {
    const double length = Length(v);
    if (length == 0.0) return v;
    return MakeVector(v.Size(), [&](std::uint32_t i) { return v[i] / length; });
}

Vector EuclideanVector::MakeZero(std::uint32_t n) {
    return Vector::Zeros(n);
}

double EuclideanVector::Length(const Vector& v) {
    return std::sqrt(Dot(v, v));
}

Vector EuclideanVector::Add(const Vector& a, const Vector& b) {
    if (a.Size() != b.Size()) return {};
    return MakeVector(a.Size(), [&](std::uint32_t i) { return a[i] + b[i]; });
}

Vector EuclideanVector::Subtract(const Vector& a, const Vector& b) {
    if (a.Size() != b.Size()) return {};
    return MakeVector(a.Size(), [&](std::uint32_t i) { return a[i] - b[i]; });
}

double EuclideanVector::Dot(const Vector& a, const Vector& b) {
    if (a.Size() != b.Size()) return MISSING_NUMBER;
    double sum = 0.0;
    for (std::uint32_t i = 0; i < a.Size(); ++i)
        sum += a[i] * b[i];
    return sum;
}

Vector EuclideanVector::Cross(const Vector& a, const Vector& b) {
    if (a.Size() != b.Size()) return {};
    const std::uint32_t size = a.Size();
    return MakeVector(size, [&](std::uint32_t i) {
        const std::uint32_t j = NextAround(i, size);
        const std::uint32_t k = NextAround(j, size);
        return a[j] * b[k] - a[k] * b[j];
    });
}

double EuclideanVector::TripleProduct(const Vector& a, const Vector& b, const Vector& c) try {
    return Dot(Cross(a, b), c);
} catch (const std::exception&) {
    return MISSING_NUMBER;
}

Vector EuclideanVector::Scale(const Vector& v, double s) {
    return MakeVector(v.Size(), [&](std::uint32_t i) { return s * v[i]; });
}

IVector* CreateClassEuclideanVector() {
    return NewObject<EuclideanVector>();
}

}  // namespace tessara
