// The arithmetic of vectors for the geometry in space.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

inline constexpr GUID CLSID_EuclideanVector = ParseGuid("D1A6E8C3-1731-4F57-8F3F-46B5DB1203DF");
inline constexpr GUID IID_IVector = ParseGuid("3C41A22E-B213-4CC6-89DB-0BA5F769AB4A");

// Example:
//
//     const tessara::IRef vectors = tessara::CreateClassEuclideanVector();
//     const tessara::Vector east{1.0, 0.0, 0.0}, north{0.0, 1.0, 0.0};
//     const tessara::Vector up = vectors->Cross(east, north);  // 0, 0, 1
//
// All operations are pure functions of vectors of any length; sums run in the order of the elements. Where
// two vectors must have the same size and don't, a vector result is empty and a number is MISSING_NUMBER. If
// memory runs out, an operation that returns a vector throws std::bad_alloc, and TripleProduct returns
// MISSING_NUMBER.
class IVector : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IVector;

    virtual ~IVector() = default;
    // Each element divided by the length. A vector of length 0.0 is returned unchanged.
    virtual Vector Normalize(const Vector& v) = 0;
    // A vector of n zeros.
    virtual Vector MakeZero(std::uint32_t n) = 0;
    // The square root of the sum of squares; infinite if the squares overflow.
    virtual double Length(const Vector& v) = 0;
    virtual Vector Add(const Vector& a, const Vector& b) = 0;
    virtual Vector Subtract(const Vector& a, const Vector& b) = 0;
    virtual double Dot(const Vector& a, const Vector& b) = 0;
    // The cross product, cyclic in the indices: element i is a[j] b[k] - a[k] b[j], where j and k are the
    // two indices after i, counted around. With three elements it is the usual one; every length has it.
    virtual Vector Cross(const Vector& a, const Vector& b) = 0;
    // Dot(Cross(a, b), c).
    virtual double TripleProduct(const Vector& a, const Vector& b, const Vector& c) = 0;
    // Each element times s.
    virtual Vector Scale(const Vector& v, double s) = 0;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IVector* CreateClassEuclideanVector();

}  // namespace tessara
