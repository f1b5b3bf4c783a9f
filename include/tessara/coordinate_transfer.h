// Moves a position from one coordinate to another: whole, one axis of it, or by way of maps.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class IMapCoordOperations;

inline constexpr GUID CLSID_CoordinateTransfer = ParseGuid("8523D252-81F4-4624-B1EB-DFA4626FC3E0");
inline constexpr GUID IID_ICoordinateTransfer = ParseGuid("390FAA7E-DBE5-4734-94FA-905C72130D32");

// Example: a position on the German datum as WGS84 degrees; `target` is an invalid coordinate of that
// reference.
//
//     const tessara::IRef transfer = tessara::CreateClassCoordinateTransfer();
//     if (!transfer->Transfer(source, target)) return;
//     const auto degrees = tessara::Load<tessara::GeodezPayload>(tessara::host::RecordOf(target));
class ICoordinateTransfer : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateTransfer;

    // Converts the source's position into the reference that the target has. Whether the source is valid
    // isn't checked. Pixels and positions of other systems need a map (IMapCoordOperations) to convert into
    // each other: here the target becomes an invalid coordinate of its reference, and the result is true.
    //
    // False for null or an object of another kind and for a conversion that fails; the target then holds the
    // source's record and reference.
    virtual bool Transfer(ICoord* source, ICoord* target) = 0;
    // Copies one axis of a position between two coordinates of one datum and one system, with everything
    // that belongs to the axis: zone, hemisphere, letters. In UTMREF a northing has different row letters in
    // odd and even zones, five places apart: TransferEast gives the target the source's zone and the row
    // letter of its own northing there (row F of zone 33 becomes L in zone 32).
    //
    // False, with the target unchanged, for different references, systems outside 0..22, and null or an
    // object of another kind.
    virtual bool TransferNorth(ICoord* source, ICoord* target) = 0;
    virtual bool TransferEast(ICoord* source, ICoord* target) = 0;
    // Converts a position, or a pixel of the map, into the system and datum in which the map is drawn: the
    // grid of a grid map, degrees for most others. Source and target may be one object.
    //
    // False for null and objects of another kind and for a position that doesn't convert; the target may
    // then have the map's reference. A map without a type has no system: the result is false for a pixel and
    // for a target with a position, and a target without one takes the source's system.
    virtual bool TransferToMap(IMapCoordOperations* map, ICoord* source, ICoord* target) = 0;
    // Converts a pixel of one map to the pixel of the same position on another map. The target takes the
    // datum of its map; it stays LONGPIXEL or FLOATPIXEL, and becomes FLOATPIXEL if it is neither. False for
    // null and objects of another kind, a source that isn't a pixel, and a pixel without a position on the
    // one map or a pixel on the other; the target may then have that reference.
    virtual bool TransferBetweenMaps(IMapCoordOperations* sourceMap, ICoord* source,
                                     IMapCoordOperations* targetMap, ICoord* target) = 0;

  protected:
    ~ICoordinateTransfer() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateTransfer* CreateClassCoordinateTransfer();

}  // namespace tessara
