// Compares two coordinates: which one is further north, and which one further east.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateCompare = ParseGuid("C907BBE9-D92F-4838-8E35-BBDEEFC604FE");
inline constexpr GUID IID_ICoordinateCompare = ParseGuid("F410B044-E00F-429F-A09D-C21C31DC0B3F");

// Example: Munich is north and west of Tokyo.
//
//     const tessara::IRef compare = tessara::CreateClassCoordinateCompare();
//     const std::int32_t northSouth = compare->CompareNorthSouth(munich, tokyo);  // 1
//     const std::int32_t eastWest = compare->CompareEastWest(munich, tokyo);      // -1
//
// The two coordinates must agree in datum and system. Comparisons are exact, without a tolerance, on the
// values of the system:
//
//   - Pixels compare columns and rows; a smaller row is further north.
//   - From west to east, systems with zones compare the zone first and then the easting within it. A
//     position with a wanted zone is first converted into its natural zone. It stays in the wanted zone
//     if that is an outermost one (UTM 1 and 60, GK meridians -180 and 180, Austrian meridian 34) and the
//     position is on the outer side of its central line: the order isn't cyclic.
//   - UTM northings of both hemispheres, and the hemispheres of UPS, are ordered from south to north.
//   - GEODEZ, GEOGRAD and GEODEZMIN compare degrees, without regard to the meridian 180; GEOREF compares
//     whole degrees, ECEF the degrees on its own datum.
//   - UTMREF compares the UTM values of its squares, and the easting in whole metres.
//   - TM and VDG are comparable only with equal projection parameters.
class ICoordinateCompare : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateCompare;

    // Returns 1 if the first coordinate is north of the second, 0 if they are equal on this axis (also for a
    // coordinate and itself), and -1 if it is south of the second or a value is a NaN. Returns -2 if they
    // can't be compared: null or an object of another kind, different datums, systems or parameters, or a
    // position whose zone or degrees can't be computed. Test for -2 before you test the sign.
    virtual std::int32_t CompareNorthSouth(ICoord* first, ICoord* second) = 0;
    // Does the same for east (1) and west (-1).
    virtual std::int32_t CompareEastWest(ICoord* first, ICoord* second) = 0;

  protected:
    ~ICoordinateCompare() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateCompare* CreateClassCoordinateCompare();

}  // namespace tessara
