// Lines on a map: as chains of points that look right when they are joined, where they cross, whether a point
// lies on one and how far from it.
//
// A line is an IArray of ICoord, or just two ICoord. All geometry but the geodesic is plane geometry in the
// pixels of the map that is passed in: positions of any system are carried there, and results back. An object
// keeps a tolerance and nothing else.
//
// An operation is false (GetSignedDistance -1.7976931348623157e308) for a null or wrong object, and then
// writes nothing. No input is ever changed.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;
class ICoordinateReference;
class IIntersectionResults;
class IMapCoordOperations;

inline constexpr GUID CLSID_LinePoints = ParseGuid("F9542F69-AF18-4CF3-B42F-12F058CF89BA");
inline constexpr GUID IID_ILinePoints = ParseGuid("027100B5-A4DC-4004-9E06-2CE5710DCD8B");

class ILinePoints : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ILinePoints;

    // How far, in pixels on each axis, the middle of a piece may lie beside the straight line between its
    // ends; 0.25 in a new object. False for a negative tolerance or a NaN, which change nothing.
    virtual bool SetPixelTolerance(double tolerance) = 0;
    virtual double GetPixelTolerance() = 0;

    // The densifiers fill `out` with a chain of new coordinates from a to b: pieces are halved until their
    // middles lie within the tolerance, at most 6 times (65 points; 7 times and 129 points of a geodesic).
    // The ends keep their heights, points between have 0.0, in ECEF what x, y and z give. False, with `out`
    // empty, if a and b differ in datum or system, a point has no pixel, or a middle no position, as in TM.

    // The line that is straight on the map: each point's position lies on it, to the system's last digit, and
    // within the area of its system. A line of pixels is its two ends.
    virtual bool DensifyMapStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The line that is straight in the coordinates' own system. A line of pixels is its two ends.
    virtual bool DensifyCoordStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // A line along the border of a zone: each middle is moved onto the border on the side of the zone on
    // which it lies. Fails also without zones, and for a middle on the central line, which lies on neither
    // side.
    virtual bool DensifyCoordStraightZoned(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The geodesic on the ellipsoid of the datum. The ends may be of any systems, also pixels of the map, but
    // of one datum. The points are GEODEZ, or FLOATPIXEL on the map's datum between two pixels.
    virtual bool DensifyGeodesic(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The line that is straight in the system and datum of `reference`, as points in the reference of a and
    // b. Without a map there is no tolerance: pieces are halved 5 times (33 points) unless the two systems
    // agree exactly on a middle, as only equal ones do. False, with `out` empty, as above and for pixels.
    virtual bool DensifyInReference(ICoord* a, ICoord* b, ICoordinateReference* reference, IArray* out) = 0;

    // The crossings of two lines, in the order of lineA's segments and then of lineB's, in place of what
    // `results` or `points` held. An empty line is true and leaves them alone. A line of one point counts as
    // a point on the other. Overlapping segments give the two ends of the overlap. A crossing in a vertex is
    // given once, by the segment that starts there; the last point of a closed line belongs to its first.
    //
    // A crossing has the reference that all coordinates share; if their datums differ, their system on the
    // map's datum, and if their systems differ, FLOATPIXEL on it. (LONGPIXEL becomes FLOATPIXEL, too.) False
    // if a coordinate has no pixel, which leaves the results as they were, or a crossing no position, which
    // leaves those before it.
    virtual bool IntersectOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                IIntersectionResults* results) = 0;
    virtual bool IntersectOnMapToArray(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                       IArray* points) = 0;
    // The same for two lines of pixels, without a map. False, with nothing cleared, if the first coordinate
    // of lineA is no pixel; false, with the results empty, if another one is none.
    virtual bool IntersectPixelLines(IArray* lineA, IArray* lineB, IIntersectionResults* results) = 0;
    virtual bool IntersectPixelLinesToArray(IArray* lineA, IArray* lineB, IArray* points) = 0;

    // Whether a point lies on a line to the precision of the numbers, a few parts in 1e16 of its place in
    // pixels, and within the box of one of the line's segments. Of an empty line none does.
    virtual bool IsPointOnLine(IMapCoordOperations* map, ICoord* point, IArray* line) = 0;
    // Pixels from the straight line through a and b, positive to the right of it going from a to b on a map;
    // from equal points a and b the plain distance. -1.7976931348623157e308 is a failure.
    virtual double GetSignedDistance(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b) = 0;
    // Writes the foot of the perpendicular from `point` on the line through a and b, also beyond them, in the
    // reference that `out` has; a pixel becomes FLOATPIXEL on the map's datum. Of equal points a and b they
    // are the foot, and the result is false unless the point is equal to them, too. False also if a
    // coordinate has no pixel or the foot no position; `out` is then unchanged, or the default position of
    // its reference.
    virtual bool GetFootPoint(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b, ICoord* out) = 0;

  protected:
    ~ILinePoints() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ILinePoints* CreateClassLinePoints();

}  // namespace tessara
