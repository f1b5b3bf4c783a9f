// The coordinate halfway between two coordinates of one reference.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateAverage = ParseGuid("AAE43A28-9563-4F29-BA53-97EE4E1665C3");
inline constexpr GUID IID_ICoordinateAverage = ParseGuid("AFADCB18-85B8-4E45-81C5-0411952E6B5B");

// Example: two UTM positions of zone 32.
//
//     const tessara::IRef averages = tessara::CreateClassCoordinateAverage();
//     const tessara::IRef middle = tessara::CreateClassCoord();
//     averages->Average(first, second, middle);
//     const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(middle));
//     // 600000 5300000 and 700000 5400000 have the mean 650000 5350000
//
// The result is the mean of the grid values, not the middle of the geodesic. Two positions in neighbouring
// zones are averaged by their distances from the central lines of their zones, counted from the common
// border.
class ICoordinateAverage : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateAverage;

    // Writes the mean of `first` and `second` into `result`, in their datum and system. `result` may be one
    // of the two. Heights aren't averaged: the height of the result is 0.0, in ECEF that of the mean x, y
    // and z.
    //
    //   - LONGPIXEL means are cut toward zero. Longitudes 179 and -179 have the mean 0.
    //   - UTM positions must have the exact letters "N" or "S", UPS positions the same hemisphere, VDG
    //     positions the same origin, which the result doesn't carry. TM has no mean.
    //   - Between two UTM zones, GK or GK6 strips or Austrian meridians the result is on that side of the
    //     common border, and as far from it, as the two positions are on average from their central lines.
    //     The border is found to 1e-8 degrees, a millimetre.
    //
    // False, with the result unchanged, for null or an object of another kind, two datums or systems,
    // systems outside 0..22, the cases above, and positions that don't convert where the mean needs a
    // conversion.
    virtual bool Average(ICoord* first, ICoord* second, ICoord* result) = 0;

  protected:
    ~ICoordinateAverage() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateAverage* CreateClassCoordinateAverage();

}  // namespace tessara
