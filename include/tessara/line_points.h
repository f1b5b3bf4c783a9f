// Polylines on a map: densified so that they look right when drawn, intersected, and measured from a point.
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

// Example: the geodesic from Munich to Tokyo, for drawing on a map.
//
//     const tessara::IRef lines = tessara::CreateClassLinePoints();
//     lines->SetPixelTolerance(0.5);
//     const tessara::IRef points = tessara::CreateClassArray();
//     if (!lines->DensifyGeodesic(map, munich, tokyo, points)) return;  // GEODEZ, at most 129 points
//
// A line is an IArray of ICoord, or two ICoord. All geometry except the geodesic is plane geometry in the
// pixels of the map that is passed in: coordinates of any system are converted to pixels, and results back.
// An object holds a tolerance and nothing else, and never changes its inputs.
//
// Operations are false (GetSignedDistance is -1.7976931348623157e308) and write nothing for null or an
// object of another kind.
class ILinePoints : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ILinePoints;

    // How far the middle of a piece may be from the straight line between its ends, in pixels on each axis;
    // 0.25 in a new object. False, without effect, for a negative tolerance or a NaN.
    virtual bool SetPixelTolerance(double tolerance) = 0;
    virtual double GetPixelTolerance() = 0;

    // The densifiers replace the contents of `out` by a polyline of new coordinates from a to b. They halve
    // a piece until its middle is within the tolerance, at most 6 times, which gives up to 65 points (a
    // geodesic 7 times, up to 129 points). The ends keep their heights; points between them have the height
    // 0.0, in ECEF that of their x, y and z.
    //
    // False, with `out` empty, if a and b differ in datum or system, if a point has no pixel, or if a middle
    // has no position, as in TM.

    // The line that is straight on the map. The position of each point is on it, to the last digit of the
    // system, and within the area of the system. A line between pixels is its two ends.
    virtual bool DensifyMapStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The line that is straight in the coordinates' own system. A line between pixels is its two ends.
    virtual bool DensifyCoordStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // A line along the border of a zone: each middle is moved onto that border of its zone on whose side of
    // the central line it is. False also in a system without zones and for a middle on the central line.
    virtual bool DensifyCoordStraightZoned(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The geodesic on the ellipsoid of the datum. Both ends must have one datum; their systems may differ,
    // and may be pixels of the map. The points are GEODEZ; between two pixels they are FLOATPIXEL on the
    // map's datum.
    virtual bool DensifyGeodesic(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    // The line that is straight in the system and datum of `reference`, as points in the reference of a and
    // b. There is no map and no tolerance: pieces are halved 5 times (33 points), unless both systems give
    // exactly the same middle, as equal systems do. False, with `out` empty, as for the others and for
    // pixels.
    virtual bool DensifyInReference(ICoord* a, ICoord* b, ICoordinateReference* reference, IArray* out) = 0;

    // The intersections of two lines, in the order of lineA's segments and then of lineB's, in place of the
    // contents of `results` or `points`. A line of one point counts as a point on the other line. Segments
    // that overlap give the two ends of the overlap. An intersection at a vertex belongs to the segment that
    // starts there and is given once; the last point of a closed line belongs to its first segment. With an
    // empty line there is nothing to do: true, and the contents stay.
    //
    // The points have the reference that all coordinates share; if datums differ, their system on the map's
    // datum; if systems differ, FLOATPIXEL on the map's datum. LONGPIXEL always becomes FLOATPIXEL. False if
    // a coordinate has no pixel, with the contents unchanged, or if an intersection has no position, with
    // those before it kept.
    virtual bool IntersectOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                IIntersectionResults* results) = 0;
    virtual bool IntersectOnMapToArray(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                       IArray* points) = 0;
    // The same for two lines of pixels, without a map. False, with the contents unchanged, if the first
    // coordinate of lineA isn't a pixel; false, with the contents cleared, if another coordinate isn't one.
    virtual bool IntersectPixelLines(IArray* lineA, IArray* lineB, IIntersectionResults* results) = 0;
    virtual bool IntersectPixelLinesToArray(IArray* lineA, IArray* lineB, IArray* points) = 0;

    // Whether a point is on a line: within the rounding of its pixel, a few parts in 1e16, and within the
    // box around one of the segments. No point is on an empty line.
    virtual bool IsPointOnLine(IMapCoordOperations* map, ICoord* point, IArray* line) = 0;
    // The distance in pixels from the straight line through a and b: positive to the right of it, seen from
    // a to b on the map. If a and b are equal it is the distance from that point. -1.7976931348623157e308 on
    // failure.
    virtual double GetSignedDistance(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b) = 0;
    // Writes the foot of the perpendicular from `point` to the line through a and b, also beyond their ends,
    // in the reference that `out` has; a pixel becomes FLOATPIXEL on the map's datum. If a and b are equal,
    // that point is the foot, and the result is true only if `point` is equal to them, too. False also if a
    // coordinate has no pixel or the foot no position; `out` is then unchanged, or the default position of
    // its reference.
    virtual bool GetFootPoint(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b, ICoord* out) = 0;

  protected:
    ~ILinePoints() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ILinePoints* CreateClassLinePoints();

}  // namespace tessara
