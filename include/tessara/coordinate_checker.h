// Whether a coordinate is a position that the library can stand behind: what a host asks before it takes a
// typed position. The answer is a plain yes or no, and nothing is changed by asking.
//
// Some systems have no legal positions here, although they convert: TM (its limits depend on parameters that
// a position shares with no limit), ECEF, the southern half of UPS, a VDG whose origin isn't (0, 0), and
// LAMBERTCC. UTM and UTMREF end at a northing, that of latitude 84 (-80) on the central meridian: within 900
// m of that latitude a position beside the meridian may lie beyond.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class ICoordinateReference;

inline constexpr GUID CLSID_CoordinateChecker = ParseGuid("83084EF6-BA4F-474D-B0E4-CAB8DA0E1620");
inline constexpr GUID IID_ICoordinateChecker = ParseGuid("4B68D48E-2688-462B-BF4C-B9F6D8DF0417");

class ICoordinateChecker : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateChecker;

    // True for a position within the area of its system and zone that converts to degrees and back, on a
    // datum 0..238; a UTMREF must have the letters of an existing square, too. A pixel needs to be within the
    // numbers of its system only, and may have the datum 999. Whether the coordinate is marked valid isn't
    // looked at. False also for null and foreign objects.
    virtual bool CheckCoord(ICoord* coord) = 0;
    // True if the position lies beyond none of the extremes of its system and, in a system with zones, not
    // beyond the borders of its zone; exactly on one is inside.
    virtual bool CheckInSystemArea(ICoord* coord) = 0;
    // True for a legal position that converts into the reference, a datum 0..238 and a system 0..22, and lies
    // within the area of that system. Its own reference is always one of them.
    virtual bool CheckConvertible(ICoord* coord, ICoordinateReference* reference) = 0;

  protected:
    ~ICoordinateChecker() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateChecker* CreateClassCoordinateChecker();

}  // namespace tessara
