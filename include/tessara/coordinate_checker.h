// Whether a coordinate is a legal position of its system.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class ICoordinateReference;

inline constexpr GUID CLSID_CoordinateChecker = ParseGuid("83084EF6-BA4F-474D-B0E4-CAB8DA0E1620");
inline constexpr GUID IID_ICoordinateChecker = ParseGuid("4B68D48E-2688-462B-BF4C-B9F6D8DF0417");

// Ask this before accepting a position that a user typed. The answer is yes or no and changes nothing.
//
// Example: a position that UTM doesn't reach.
//
//     const tessara::IRef checker = tessara::CreateClassCoordinateChecker();
//     const bool isLegal = checker->CheckCoord(arctic);                    // latitude 85 in degrees: true
//     const bool isUtm = checker->CheckConvertible(arctic, utmReference);  // UTM ends at 84: false
//
// These positions are never legal here, although they convert: TM, whose limits no position states; ECEF;
// the southern half of UPS; VDG with an origin other than (0, 0); LAMBERTCC. UTM and UTMREF are limited by
// northings, those of latitudes 84 and -80 on the central meridian: beside the meridian positions are
// refused from up to 900 m before the latitude.
class ICoordinateChecker : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateChecker;

    // True for a position on a datum 0..238 that is within the area of its system and converts to degrees
    // and back; a UTMREF must also have the letters of an existing square. For a pixel it is enough that its
    // numbers are in the range of the system, and its datum may be 999. Whether the coordinate is valid
    // isn't checked. False for null and objects of another kind.
    virtual bool CheckCoord(ICoord* coord) = 0;
    // True if the position is beyond none of the extremes of its system and, in a system with zones, not
    // beyond the borders of its zone. A position exactly on a limit is inside.
    virtual bool CheckInSystemArea(ICoord* coord) = 0;
    // True for a legal position that converts into the reference (datum 0..238, system 0..22) and is within
    // the area of that system. A legal position always converts into its own reference.
    virtual bool CheckConvertible(ICoord* coord, ICoordinateReference* reference) = 0;

  protected:
    ~ICoordinateChecker() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateChecker* CreateClassCoordinateChecker();

}  // namespace tessara
