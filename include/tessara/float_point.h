// A triple of doubles.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IFloatPoint = ParseGuid("5FC9D1D6-3A2C-47F0-AE34-8C65C59406AB");

// Every value is stored as it is given, NaN and infinities included. A new point is 0.0, 0.0, 0.0.
class IFloatPoint : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IFloatPoint;

    virtual void SetX(double x) = 0;
    virtual void SetY(double y) = 0;
    virtual void SetZ(double z) = 0;
    virtual double GetX() = 0;
    virtual double GetY() = 0;
    virtual double GetZ() = 0;

  protected:
    ~IFloatPoint() = default;
};

// A new point with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IFloatPoint* CreateClassFloatPoint();

}  // namespace tessara
