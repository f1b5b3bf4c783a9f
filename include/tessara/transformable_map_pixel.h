// Which pixels of a rectangle or a line can be shown at all, when a map doesn't cover the whole world or a
// coordinate system is valid in a part of the map only? Pixels are probed through the map, and the positions
// found are judged by ICoordinateChecker: in a rectangle by CheckInSystemArea, on a line by CheckCoord.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class ICoordinateReference;
class IFloatPoint;
class IMapCoordOperations;
class IRect;

inline constexpr GUID CLSID_TransformableMapPixel = ParseGuid("BDD0A598-26A4-4224-B5E9-C5A77CBB6923");
inline constexpr GUID IID_ITransformableMapPixel = ParseGuid("53A5EC95-45B2-4496-8D63-76B88F97AB39");
inline constexpr GUID IID_ITransformableInternal = ParseGuid("CE5B9B1D-C598-4F16-B13A-6C1E01006175");

// A rectangle in whole pixels; left and right, top and bottom may be swapped.
struct PixelRect {
    std::int32_t left, top, right, bottom;
};

class ITransformableMapPixel : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITransformableMapPixel;

    // Looks for a pixel of the rectangle whose position is valid in the reference of `coord`, and leaves the
    // position there. The centre and the centres of ever smaller quarters are tried, then the default
    // position of the reference (taken without a check if its pixel lies inside), then the rim. False if none
    // is found, also for a null or wrong object; what `coord` holds then is the last position tried.
    virtual bool FindValidCoordInRect(IMapCoordOperations* map, IRect* rect, ICoord* coord) = 0;
    // Clips the straight line of pixels from `a` to `b` to what is valid in `reference`, and writes x and y
    // of two points:
    //   0   the whole line is valid                          a                           b
    //   1   both ends are valid, with a gap between them     last valid point before it  first after it
    //   2   one piece is valid                               its start                   its end
    //   3   no valid point was found                         not written                 not written
    //  -1   failure                                          not written                 not written
    // A line with a valid and an invalid end, or whose middle differs from both ends, is cut to within half a
    // pixel of the edge of validity. Any other is walked in steps of one pixel, which takes time in
    // proportion to its length; of several gaps only the first is found, and a piece found by the walk is
    // given up to the first point past `b`. Failure is a null or wrong argument, a reference that can't be
    // set, missing memory, an end that isn't finite, and a walk of more than ten million pixels.
    virtual std::int32_t ClipLineToValid(IMapCoordOperations* map, ICoordinateReference* reference,
                                         IFloatPoint* a, IFloatPoint* b, IFloatPoint* first,
                                         IFloatPoint* second) = 0;

  protected:
    ~ITransformableMapPixel() = default;
};

// An interface for the library's own classes.
class ITransformableInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITransformableInternal;

    // FindValidCoordInRect on a plain rectangle.
    virtual bool FindValidCoordInPixelRect(IMapCoordOperations* map, const PixelRect* rect,
                                           ICoord* coord) = 0;

  protected:
    ~ITransformableInternal() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ITransformableMapPixel* CreateClassTransformableMapPixel();

}  // namespace tessara
