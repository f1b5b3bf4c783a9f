// The coordinate halfway between two coordinates of one reference.
//
// It isn't a geodetic midpoint but the mean of the system's own numbers; positions in neighbouring zones are
// averaged by their distances from the central lines of their zones, laid out from the common border.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateAverage = ParseGuid("AAE43A28-9563-4F29-BA53-97EE4E1665C3");
inline constexpr GUID IID_ICoordinateAverage = ParseGuid("AFADCB18-85B8-4E45-81C5-0411952E6B5B");

class ICoordinateAverage : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateAverage;

    // Gives the result the datum and system of the two and the position halfway between them. It may be one
    // of the two. Heights aren't averaged: the result's is 0.0, in ECEF that of the mean x, y and z.
    //
    //   - LONGPIXEL means are cut toward zero; longitudes 179 and -179 have the mean 0.
    //   - Means of UTM positions need the exact letters "N" or "S", of UPS positions the same hemisphere, of
    //     VDG positions the same origin, which the result doesn't carry. TM has no mean.
    //   - Between two UTM zones, GK or GK6 strips or Austrian meridians the result lies to the east or west
    //     of the common border as the two lie on average to the east or west of their central lines. The
    //     border is found to 1e-8 degrees, a millimetre.
    //
    // False for null or foreign objects, two datums or systems, systems outside 0..22, the cases above, and
    // positions that don't convert where a conversion is needed; the result is then unchanged.
    virtual bool Average(ICoord* first, ICoord* second, ICoord* result) = 0;

  protected:
    ~ICoordinateAverage() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateAverage* CreateClassCoordinateAverage();

}  // namespace tessara
