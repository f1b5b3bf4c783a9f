// Valid pixels of a map: finding one in a rectangle, and clipping a line to them.
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

// A rectangle in whole pixels. Left and right, top and bottom may be swapped.
struct PixelRect {
    std::int32_t left, top, right, bottom;
};

// A map may not cover the whole world, and a system may be valid in a part of the map only. These operations
// convert pixels through the map and ask ICoordinateChecker about the positions: CheckInSystemArea for a
// rectangle, CheckCoord for a line.
//
// Example: on a map of degrees a column of pixels is cut where it passes the pole.
//
//     const tessara::IRef clipper = tessara::CreateClassTransformableMapPixel();
//     const tessara::IRef first = tessara::CreateClassFloatPoint();
//     const tessara::IRef second = tessara::CreateClassFloatPoint();
//     const std::int32_t result =
//         clipper->ClipLineToValid(map, degrees, latitude80, latitude100, first, second);
//     // 2: one valid piece, whose end is within half a pixel of latitude 90
class ITransformableMapPixel : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITransformableMapPixel;

    // Finds a pixel of the rectangle whose position is valid in the reference of `coord`, and writes the
    // position there. It tries the centre and the centres of ever smaller quarters, then the default
    // position of the reference (accepted without a check if its pixel is inside), then the rim. False if it
    // finds none, and for null or an object of another kind; `coord` then holds the last position tried.
    virtual bool FindValidCoordInRect(IMapCoordOperations* map, IRect* rect, ICoord* coord) = 0;
    // Clips the straight line of pixels from `a` to `b` to its part that is valid in `reference`. The result
    // says what the two points receive:
    //
    //    0  the whole line is valid: `a` and `b`
    //    1  both ends are valid and a gap is between them: the points before and after the gap
    //    2  one piece is valid: its two ends
    //    3  no valid point was found: nothing is written
    //   -1  failure: nothing is written
    //
    // If one end is valid and the other isn't, or the middle differs from both, the cut is within half a
    // pixel of the edge of validity. A line whose ends and middle agree is walked in steps of one pixel, in
    // time proportional to its length; of several gaps only the first is found, and the end of a piece found
    // by the walk may be the first point past `b`. Failure is null or an object of another kind, a reference
    // that can't be set, an end that isn't finite, a walk of more than ten million pixels, and running out
    // of memory.
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

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ITransformableMapPixel* CreateClassTransformableMapPixel();

}  // namespace tessara
