// The arithmetic of vectors, on which the geometry in space rests.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

inline constexpr GUID CLSID_EuclideanVector = ParseGuid("D1A6E8C3-1731-4F57-8F3F-46B5DB1203DF");
inline constexpr GUID IID_IVector = ParseGuid("3C41A22E-B213-4CC6-89DB-0BA5F769AB4A");

// Pure functions of their arguments, for vectors of any length. Sums run in the order of the elements. Where
// two vectors must be of one size and aren't, a vector result is empty and a number is MISSING_NUMBER.
// Without memory for a vector result they throw std::bad_alloc, and TripleProduct gives MISSING_NUMBER.
class IVector : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IVector;

    virtual ~IVector() = default;
    // Each element divided by the length. A vector of length 0.0 comes back as it is.
    virtual Vector Normalize(const Vector& v) = 0;
    // n zeros.
    virtual Vector MakeZero(std::uint32_t n) = 0;
    // The root of the sum of squares. Squares that overflow make it infinite.
    virtual double Length(const Vector& v) = 0;
    virtual Vector Add(const Vector& a, const Vector& b) = 0;
    virtual Vector Subtract(const Vector& a, const Vector& b) = 0;
    virtual double Dot(const Vector& a, const Vector& b) = 0;
    // The cyclic cross product: element i is a[j] b[k] - a[k] b[j], where j and k are the two indices that
    // follow i around. In space this is the usual one; it is defined for every length.
    virtual Vector Cross(const Vector& a, const Vector& b) = 0;
    // Dot(Cross(a, b), c).
    virtual double TripleProduct(const Vector& a, const Vector& b, const Vector& c) = 0;
    // s times each element.
    virtual Vector Scale(const Vector& v, double s) = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IVector* CreateClassEuclideanVector();

}  // namespace tessara
