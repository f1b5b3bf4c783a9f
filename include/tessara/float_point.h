// Three doubles, such as a pixel of a grid line.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IFloatPoint = ParseGuid("5FC9D1D6-3A2C-47F0-AE34-8C65C59406AB");

// Example: a corner of a grid's window.
//
//     const tessara::IRef corner = tessara::CreateClassFloatPoint();
//     corner->SetX(7000.0);
//     corner->SetY(6000.0);
//
// Every value is stored, NaN and infinities included. A new point is 0.0, 0.0, 0.0.
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

// Creates a point with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IFloatPoint* CreateClassFloatPoint();

}  // namespace tessara
