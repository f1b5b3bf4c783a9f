// The coordinate one step from another in a compass direction.
//
// A step is 0.0001 in GEODEZ, GEOGRAD and GEODEZMIN and 1.0 in every other system, in the units of
// ICoordInternal's shifts: degrees there, metres in grids, pixels on maps, whole degrees in GEOREF.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateNeighbor = ParseGuid("405710B7-1970-4F7D-BAF5-6580224BAA8A");
inline constexpr GUID IID_ICoordinateNeighbor = ParseGuid("CB374C83-9347-48BF-83E2-A51F595DA72C");

class ICoordinateNeighbor : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateNeighbor;

    // Copies the source into the target, datum and system included, and shifts the target by one step. The
    // two may be one object. False for a null or foreign object (the target is then unchanged), and for
    // systems outside 0..22 and shifts that fail, as at the border of a zone or system and in ECEF; the
    // target then holds the copy. The north neighbour of a pixel is in the row below, as ShiftNorth takes it.
    virtual bool GetNorthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetSouthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetEastNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetWestNeighbor(ICoord* source, ICoord* target) = 0;

  protected:
    ~ICoordinateNeighbor() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateNeighbor* CreateClassCoordinateNeighbor();

}  // namespace tessara
