// Creates and converts coordinates in the fractional pixels of one map.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;

inline constexpr GUID IID_IMapCoordCreator = ParseGuid("CBEE70FA-A9C5-45F1-A78F-E6B2CF1C6CA1");

// IMapCoordCreatorFactory makes creators and has an example. Every coordinate that a creator returns has the
// reference FLOATPIXEL on the map's datum, and every object the count 0. A list or coordinate is null if
// memory runs out.
//
// A creator whose map has a datum that doesn't exist, or for which memory ran out, returns null from its
// operations and converts nothing but pixels.
class IMapCoordCreator : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordCreator;

    virtual ~IMapCoordCreator() = default;
    // A list of `count` coordinates without a position; null for 0.
    virtual IArray* CreateCoords(std::uint32_t count) = 0;
    // A coordinate without a position.
    virtual ICoord* CreateCoord() = 0;
    // The pixels of positions, with their heights. A pixel is taken over by its numbers, whatever its datum.
    // Null for a null or empty argument or an object of another kind, and if a position has no pixel.
    virtual IArray* CreateCoordsFrom(IArray* source) = 0;
    virtual ICoord* CreateCoordFrom(ICoord* source) = 0;
    // The same in place. False for a null or empty argument or an object of another kind, and at the first
    // position that has no pixel; it and those after it are unchanged then. A pixel keeps its datum and
    // system, and its numbers are written as doubles: a LONGPIXEL reads as other numbers afterwards.
    virtual bool ConvertCoords(IArray* coords) = 0;
    virtual bool ConvertCoord(ICoord* coord) = 0;
};

}  // namespace tessara
