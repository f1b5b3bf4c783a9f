// The default position of a coordinate system.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateInit = ParseGuid("74DDEC17-98C8-4A0B-A403-46CD1ABEDFCA");
inline constexpr GUID IID_ICoordinateInit = ParseGuid("CDFEF2F5-40D2-459B-9B42-9E291DE57ABF");

// Example: the default of UTM is where the central meridian of zone 30 meets the equator.
//
//     const tessara::IRef init = tessara::CreateClassCoordinateInit();
//     if (!init->InitCoord(coord)) return;
//     const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(coord));
//     // 30N 500000 0, without a wanted zone
class ICoordinateInit : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateInit;

    // Gives the coordinate the default record of its reference and the height 0.0, and makes it valid. No
    // zone or meridian is wanted; a grid position is at or near the origin of its grid. False, with the
    // coordinate unchanged, for null or an object of another kind and for systems outside 0..22.
    virtual bool InitCoord(ICoord* coord) = 0;

  protected:
    ~ICoordinateInit() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateInit* CreateClassCoordinateInit();

}  // namespace tessara
