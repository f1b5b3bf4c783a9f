// Puts a coordinate on the default position of its system, with the default parameters there.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateInit = ParseGuid("74DDEC17-98C8-4A0B-A403-46CD1ABEDFCA");
inline constexpr GUID IID_ICoordinateInit = ParseGuid("CDFEF2F5-40D2-459B-9B42-9E291DE57ABF");

class ICoordinateInit : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateInit;

    // Gives the coordinate the default record of its reference, height 0.0, and makes it valid: no zone or
    // meridian is wanted, a UTM position is the foot of zone 30, a grid position stands at or near the grid's
    // origin. False for a null or wrong object and for systems outside 0..22; the coordinate is then
    // unchanged.
    virtual bool InitCoord(ICoord* coord) = 0;

  protected:
    ~ICoordinateInit() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateInit* CreateClassCoordinateInit();

}  // namespace tessara
