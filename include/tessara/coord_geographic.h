// A plain WGS84 triple for the outside world: degrees and metres above the ellipsoid, not range-checked.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID CLSID_CoordGeographic = ParseGuid("0FB02762-1FA9-4E01-9220-5855F61D66B6");
inline constexpr GUID IID_ICoordGeographic = ParseGuid("0A8D3EB2-ADE6-4399-B54D-313ABC81AB70");

class ICoordGeographic : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordGeographic;

    // Longitude comes before latitude. Always true.
    virtual bool Set(double longitude, double latitude, double height) = 0;
    // False if a pointer is null; nothing is written then.
    virtual bool Get(double* longitude, double* latitude, double* height) = 0;
    virtual double GetLatitude() = 0;
    virtual double GetLongitude() = 0;
    virtual double GetHeight() = 0;
    // Always true.
    virtual bool SetLatitude(double latitude) = 0;
    virtual bool SetLongitude(double longitude) = 0;
    virtual bool SetHeight(double height) = 0;

  protected:
    ~ICoordGeographic() = default;
};

// A new triple of zeros with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordGeographic* CreateClassCoordGeographic();

}  // namespace tessara
