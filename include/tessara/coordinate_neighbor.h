// The coordinate one step from another to the north, south, east or west.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_CoordinateNeighbor = ParseGuid("405710B7-1970-4F7D-BAF5-6580224BAA8A");
inline constexpr GUID IID_ICoordinateNeighbor = ParseGuid("CB374C83-9347-48BF-83E2-A51F595DA72C");

// Example: one metre east in UTM.
//
//     const tessara::IRef neighbors = tessara::CreateClassCoordinateNeighbor();
//     const tessara::IRef neighbor = tessara::CreateClassCoord();
//     if (!neighbors->GetEastNeighbor(coord, neighbor)) return;
//     const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(neighbor));
//     // easting 650000 becomes 650001
//
// A step is 0.0001 degrees in GEODEZ, GEOGRAD and GEODEZMIN. In every other system it is 1.0 in the unit of
// ICoordInternal::ShiftEast: metres in grids, pixels on maps, whole degrees in GEOREF.
class ICoordinateNeighbor : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateNeighbor;

    // Copies the source with its datum and system into the target and shifts the target by one step. Both
    // may be one object. The north neighbour of a pixel is in the row below, as ShiftNorth counts rows.
    //
    // False, with the target unchanged, for null or an object of another kind. False also for systems
    // outside 0..22 and for a shift that fails, as at the border of a zone or system and in ECEF; the target
    // is then a copy of the source.
    virtual bool GetNorthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetSouthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetEastNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetWestNeighbor(ICoord* source, ICoord* target) = 0;

  protected:
    ~ICoordinateNeighbor() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateNeighbor* CreateClassCoordinateNeighbor();

}  // namespace tessara
