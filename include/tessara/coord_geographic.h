// Longitude and latitude in WGS84 degrees and a height: the form in which a host passes positions in and
// gets them out.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID CLSID_CoordGeographic = ParseGuid("0FB02762-1FA9-4E01-9220-5855F61D66B6");
inline constexpr GUID IID_ICoordGeographic = ParseGuid("0A8D3EB2-ADE6-4399-B54D-313ABC81AB70");

// Example:
//
//     const tessara::IRef munich = tessara::CreateClassCoordGeographic();
//     munich->Set(11.5755, 48.1375, 520.0);           // longitude first
//     const double latitude = munich->GetLatitude();  // 48.1375
//
// Degrees are positive north and east, the height is in metres above the ellipsoid. Every number is stored
// as it comes; ranges are checked where the position is used (ICoord::SetGeographic).
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
    // The setters are always true.
    virtual bool SetLatitude(double latitude) = 0;
    virtual bool SetLongitude(double longitude) = 0;
    virtual bool SetHeight(double height) = 0;

  protected:
    ~ICoordGeographic() = default;
};

// Creates an object of zeros with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordGeographic* CreateClassCoordGeographic();

}  // namespace tessara
