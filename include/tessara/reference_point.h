// A world position and the pixel on which it lies: what ties a map to the earth.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_ReferencePoint = ParseGuid("4CF747A0-144C-4E53-869E-AFCFB9243FA0");
inline constexpr GUID IID_IReferencePoint = ParseGuid("1458B637-049B-4DBF-B9A4-3ACB522F141D");

// A new point is empty. A set that fails empties it.
class IReferencePoint : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IReferencePoint;

    // Takes the position, in its own datum and system, and the pixel. False for a null or wrong object. The
    // position's validity isn't looked at.
    virtual bool SetFloat(ICoord* world, double x, double y) = 0;
    virtual bool SetLong(ICoord* world, std::int32_t x, std::int32_t y) = 0;
    // Gives the position, which takes over datum and system, and the pixel; a fractional pixel is rounded
    // half away from zero for GetLong. False for an empty point and a null or wrong argument; nothing is
    // written then.
    virtual bool GetFloat(ICoord* world, double* x, double* y) = 0;
    virtual bool GetLong(ICoord* world, std::int32_t* x, std::int32_t* y) = 0;

  protected:
    ~IReferencePoint() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IReferencePoint* CreateClassReferencePoint();

}  // namespace tessara
