// Moves positions between coordinates: whole, or one axis of them.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class IMapCoordOperations;

inline constexpr GUID CLSID_CoordinateTransfer = ParseGuid("8523D252-81F4-4624-B1EB-DFA4626FC3E0");
inline constexpr GUID IID_ICoordinateTransfer = ParseGuid("390FAA7E-DBE5-4734-94FA-905C72130D32");

class ICoordinateTransfer : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateTransfer;

    // Converts the source's position into the target's reference. False for a null or wrong object or a
    // conversion that fails; the target then holds the source's record and reference. A pixel and a world
    // position can't be related without a map: the target becomes an invalid coordinate of its reference, and
    // the result is true. The source's validity isn't looked at.
    virtual bool Transfer(ICoord* source, ICoord* target) = 0;
    // Copies the north or the east part of a position between two coordinates of one datum and one system,
    // with whatever belongs to that axis (zone, hemisphere, letters). The row letters of UTMREF stand five
    // apart in odd and even zones: TransferEast walks the target's row from the zone that the target had to
    // the source's, which it takes, so that the northing stays (row F of zone 33 becomes L in zone 32). False
    // for unequal references, systems outside 0..22 and null or wrong objects; the target is then unchanged.
    virtual bool TransferNorth(ICoord* source, ICoord* target) = 0;
    virtual bool TransferEast(ICoord* source, ICoord* target) = 0;
    // Brings a world position, or a pixel of the map, into the coordinate system and datum of the map: the
    // grid of a grid map, degrees for most others. Source and target may be one. False for null and wrong
    // objects and a position that can't be brought there; the target may then have the map's reference. A map
    // that is none asks for no system: false for a pixel and for a target with a position; one without takes
    // the source's system.
    virtual bool TransferToMap(IMapCoordOperations* map, ICoord* source, ICoord* target) = 0;
    // Carries a pixel of one map to a pixel of another. The target keeps its system if it is a pixel one and
    // becomes FLOATPIXEL otherwise; it takes the datum of the target map. False for null and wrong objects, a
    // source that is no pixel, and a pixel that can't be carried; the target may then have that reference.
    virtual bool TransferBetweenMaps(IMapCoordOperations* sourceMap, ICoord* source,
                                     IMapCoordOperations* targetMap, ICoord* target) = 0;

  protected:
    ~ICoordinateTransfer() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateTransfer* CreateClassCoordinateTransfer();

}  // namespace tessara
