// Which of two coordinates lies further north, and which further east.
//
// Both must be of one datum and one system. Comparisons are exact, without a tolerance, on the numbers of the
// system itself:
//
//   - pixels compare columns and rows; a smaller row lies further north;
//   - zoned systems compare the zone first and then the value within it, after a position that wants a zone
//     other than its natural one has been rewritten there. A position beyond the central line of an outermost
//     zone (UTM 1 and 60, GK meridians -180 and 180, Austrian meridian 34) that is wanted stays in it: the
//     order isn't cyclic;
//   - UTM northings of both hemispheres, and the hemispheres of UPS, are ordered from south to north;
//   - GEODEZ, GEOGRAD and GEODEZMIN compare degrees, with nothing special at the 180 degree meridian; GEOREF
//     compares whole degrees, ECEF the degrees on its own datum;
//   - UTMREF compares the UTM values of its squares, the easting in whole metres;
//   - TM and VDG compare only when their projection parameters are equal.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateCompare = ParseGuid("C907BBE9-D92F-4838-8E35-BBDEEFC604FE");
inline constexpr GUID IID_ICoordinateCompare = ParseGuid("F410B044-E00F-429F-A09D-C21C31DC0B3F");

class ICoordinateCompare : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateCompare;

    // 1: the first lies north of the second; 0: equal on this axis, as any position is to itself; -1: south
    // of it, also with a NaN. -2: not comparable, for null or foreign objects, two datums or systems,
    // different parameters, or a position that can't be resolved. Mind that -2 is negative, too.
    virtual std::int32_t CompareNorthSouth(ICoord* first, ICoord* second) = 0;
    // The same for east (1) and west (-1).
    virtual std::int32_t CompareEastWest(ICoord* first, ICoord* second) = 0;

  protected:
    ~ICoordinateCompare() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateCompare* CreateClassCoordinateCompare();

}  // namespace tessara
