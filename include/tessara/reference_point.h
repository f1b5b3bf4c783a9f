// A position and the pixel that shows it: one point that ties a map to the earth.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_ReferencePoint = ParseGuid("4CF747A0-144C-4E53-869E-AFCFB9243FA0");
inline constexpr GUID IID_IReferencePoint = ParseGuid("1458B637-049B-4DBF-B9A4-3ACB522F141D");

// Example: latitude and longitude 0 are on pixel (500, 300).
//
//     const tessara::IRef point = tessara::CreateClassReferencePoint();
//     point->SetLong(origin, 500, 300);
//     double column = 0.0, row = 0.0;
//     if (!point->GetFloat(place, &column, &row)) return;  // 500.0, 300.0
//
// A new point is empty, and a setter that fails empties the point.
class IReferencePoint : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IReferencePoint;

    // Takes a copy of the position, in its own datum and system, and the pixel. False for null or an object
    // of another kind. Whether the position is valid isn't checked.
    virtual bool SetFloat(ICoord* world, double x, double y) = 0;
    virtual bool SetLong(ICoord* world, std::int32_t x, std::int32_t y) = 0;
    // Writes the position, with its datum and system, and the pixel; GetLong rounds a fractional pixel half
    // away from zero. False, with nothing written, for an empty point and for null or an object of another
    // kind.
    virtual bool GetFloat(ICoord* world, double* x, double* y) = 0;
    virtual bool GetLong(ICoord* world, std::int32_t* x, std::int32_t* y) = 0;

  protected:
    ~IReferencePoint() = default;
};

// Creates an empty point with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IReferencePoint* CreateClassReferencePoint();

}  // namespace tessara
