// Extents and polygons: how far a system, a part of a map or a line reaches, whether a point is inside a
// polygon, and how two polygons overlay.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;
class IMapCoordOperations;
class IRect;
struct PixelRect;

inline constexpr GUID CLSID_CoordinateArea = ParseGuid("A6AE8424-CF07-486B-BC7F-075F2E73122E");
inline constexpr GUID IID_ICoordinateArea = ParseGuid("BBC9C06E-DFB8-4A8F-95C1-535BC32A43EE");
inline constexpr GUID IID_ICoordinateAreaInternal = ParseGuid("ECED2B61-F554-4CC5-BCDE-C00D5F18C476");

// How two polygons relate: the results of the overlay operations.
inline constexpr std::int32_t OVERLAY_FAILURE = -1;
inline constexpr std::int32_t OVERLAY_APART = 0;          // they share no area
inline constexpr std::int32_t OVERLAY_EQUAL = 1;          // they cover the same area
inline constexpr std::int32_t OVERLAY_FIRST_INSIDE = 2;   // the first is inside the second
inline constexpr std::int32_t OVERLAY_SECOND_INSIDE = 3;  // the second is inside the first
inline constexpr std::int32_t OVERLAY_CROSSING = 4;       // they share a part of their areas
inline constexpr std::int32_t OVERLAY_TOUCHING = 5;       // they share a piece of an edge and no area

// Example: two squares of 100 x 100 pixels that overlap by half.
//
//     const tessara::IRef areas = tessara::CreateClassCoordinateArea();
//     const tessara::IRef neither = tessara::CreateClassArray();
//     const tessara::IRef onlySecond = tessara::CreateClassArray();
//     const tessara::IRef onlyFirst = tessara::CreateClassArray();
//     const tessara::IRef both = tessara::CreateClassArray();
//     const std::int32_t relation = areas->Overlay(first, second, neither, onlySecond, onlyFirst, both);
//     // OVERLAY_CROSSING; one part each in `onlySecond`, `onlyFirst` and `both`, none in `neither`
//
// Lines and polygons are passed as IArray of ICoord, rectangles as IRect of whole pixels. The extremes of
// something are four coordinates of one reference: north, east, south and west, in this order.
class ICoordinateArea : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateArea;

    // Moves the point to the end of its system in one direction, on its datum and at height 0.0:
    //
    //   - pixels: the ends of the range of the numbers;
    //   - UTM and UTMREF: latitudes 84 and -80 at longitude 3; the equator at longitude 180 in zone 60 and
    //     at -180 in zone 1;
    //   - GEODEZ, GEOGRAD, GEODEZMIN: latitudes +-90 and longitudes +-360; GEOREF: its outermost squares;
    //   - GK, GK6: latitudes +-80; the equator 1e-9 degrees inside longitudes +-181.5 (GK6: +-180), on the
    //     datum KKJ -162.5 in the west;
    //   - BMN, OEM, GK-AT: latitudes 51 and 45 on the middle meridian; latitude 45 at 1e-9 degrees inside
    //     the edges of the outer strips;
    //   - ECEF: the north pole, the equator at longitudes 90 and 0; 0, 0, 0 in the south;
    //   - UPS: latitude 80 in the north, at longitudes 180, 90, 0 and -90;
    //   - TM: a quarter meridian to the north and south, 20 degrees of the equator to the sides, each as a
    //     record with parameters of its own;
    //   - VDG: latitudes +-85, longitudes +-180;
    //   - CH, PO_MILITARY, BNG, ING, RD, LUREF: the middles of the four sides of the grid.
    //
    // False, with the point unchanged, for null or an object of another kind, for systems outside 0..22 and
    // for datums outside 0..238. The datum 999 is accepted by those systems whose ends don't depend on an
    // ellipsoid.
    virtual bool GetSystemNorth(ICoord* point) = 0;
    virtual bool GetSystemEast(ICoord* point) = 0;
    virtual bool GetSystemSouth(ICoord* point) = 0;
    virtual bool GetSystemWest(ICoord* point) = 0;
    // All four at once. False if they aren't all of one datum and one system.
    virtual bool GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) = 0;

    // How far a rectangle of a map reaches, in the point's reference (that of all four points, which must
    // agree). Each result is a complete position: the north extreme has the easting at which the rectangle
    // reaches furthest north. Left and right, top and bottom may be swapped. In a pixel system the results
    // are the corners, whatever the map shows.
    //
    // The search covers the corners and the lines of pixels between them, to a quarter of a pixel, or half a
    // pixel where they meet the border of a zone. It adds the ends of the system, the meridian 180 in
    // systems of degrees that end there, and the middles and borders of zones, if they are inside the
    // rectangle or on its edges or if their rounded pixels are. An end of the system counts only if its
    // pixel converts back to it, since a map repeats itself: a window at Greenwich doesn't reach longitude
    // 360.
    //
    // A corner without a valid position moves toward the centre by a quarter, a half or all of the way; then
    // the search covers the valid pieces of the sides and up to four narrower rectangles, each smaller by a
    // quarter of the size on every side. Where the area of the system ends inside the rectangle the search
    // doesn't follow that edge: it finds no extremes there other than the places named here.
    //
    // False, with the points unchanged, for null or an object of another kind; in systems other than pixels
    // also for an empty map and for a rectangle without a valid position. ECEF and TM positions are never
    // valid, UPS positions only in the north.
    virtual bool GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east,
                                    ICoord* south, ICoord* west) = 0;

    // How far a line reaches, on a map or without one, in the point's reference (that of all four points,
    // which must agree). Only the value along the named axis is a result: the north extreme's northing, the
    // east extreme's easting. Together the four are the box around the line.
    //
    // A segment between positions is straight in the line's own system and is searched at the 33 points of
    // ILinePoints::DensifyInReference. A segment between pixels is straight on the map and is searched at
    // the points of ILinePoints::DensifyMapStraight, to a quarter of a pixel. Pixels have positions on a map
    // only, and a segment between positions has no extent in pixels.
    //
    // False for null or an object of another kind, an empty line, two neighbours of different datum or
    // system, and positions that can't be converted into the reference. The points then hold the extremes of
    // the line up to the failure, if any.
    virtual bool GetMapLineNorth(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineNorth(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineEast(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineEast(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineSouth(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineSouth(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineWest(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineWest(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineExtremes(IMapCoordOperations* map, IArray* line, ICoord* north, ICoord* east,
                                    ICoord* south, ICoord* west) = 0;
    virtual bool GetLineExtremes(IArray* line, ICoord* north, ICoord* east, ICoord* south, ICoord* west) = 0;

    // Whether a point is inside a polygon. The polygon closes itself: the last vertex needn't repeat the
    // first. A point on a vertex, or closer to an edge than the tolerance, is inside. The inside of a
    // polygon that intersects itself is that of all the parts that SplitPolygon makes of it.
    //
    // The operations differ in what is a straight edge between two vertices. All are false for null or an
    // object of another kind, an empty polygon, an element that isn't a coordinate, and a position without a
    // pixel.

    // Edges are straight in the system of the polygon's coordinates, which must share datum and system; the
    // point may have its own. Each edge is followed on the map to a quarter of a pixel, as
    // ILinePoints::DensifyCoordStraight does. False if an edge can't be followed.
    virtual bool IsInsideCoordEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // The same without a map of the caller: the library uses a WAGNER-IV map of 10 metres a pixel, cut along
    // the meridian 180, or, for UPS coordinates around a pole, the UPS grid. Point and polygon must share
    // datum and system. Pixels are compared directly.
    virtual bool IsInsideCoordEdgesNoMap(ICoord* point, IArray* polygon) = 0;
    // Edges are straight on the map.
    virtual bool IsInsideMapEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // Edges are straight in the system in which the map is drawn, whatever the systems of the vertices.
    virtual bool IsInsideTransferred(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // The same as IsInsideMapEdges.
    virtual bool IsInsideOnMap(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // For a valid pixel and a polygon of valid pixels, of any datums.
    virtual bool IsInsidePixels(ICoord* point, IArray* polygon) = 0;

    // The distance in pixels below which a point is on an edge; 2.220446049250313e-11 in a new object. It
    // limits both the distance from the line through the edge and the distance beyond an end along either
    // axis. 0.0 leaves only points exactly on the ring; 0.5 widens a rectangle by just under half a pixel on
    // every side. False, without effect, for a negative tolerance and for a NaN.
    virtual bool SetTolerance(double tolerance) = 0;
    virtual double GetTolerance() = 0;

    // How two polygons relate: one of the constants OVERLAY_APART to OVERLAY_TOUCHING. For OVERLAY_CROSSING
    // the four lists receive the parts into which the polygons cut each other: those in neither (enclosed
    // between the two), only in the second, only in the first, and in both. A part is an IArray of ICoord
    // whose last vertex is equal to its first. Parts replace the previous contents of a list, in no
    // particular order; for every other result the lists become empty.
    //
    // If the rings touch or intersect, areas decide: polygons that only touch share none, and a polygon
    // inside the other may touch it from inside. A ring that intersects itself counts by the even-odd rule
    // here. Vertices and intersections within a few roundings of the largest coordinate become one; if
    // rounding leaves edges that intersect between these, the library joins points over larger distances, up
    // to 2e-9 of the largest coordinate.
    //
    // If the rings don't meet, OVERLAY_FIRST_INSIDE or OVERLAY_SECOND_INSIDE says that the first vertex of
    // that polygon is inside the other by IsInsidePixels, whose tolerance counts; the lists are empty. An
    // empty polygon shares no area with any.
    //
    // OVERLAY_FAILURE for null or an object of another kind, an element that isn't a coordinate, a position
    // without a pixel, a pixel that is a NaN or beyond 1e150, and edges that intersect even after the
    // joining. Each operation says whether a failure empties the lists.

    // Edges are straight on the map; parts are FLOATPIXEL on the map's datum. All coordinates of both
    // polygons must share datum and system, otherwise the result is OVERLAY_FAILURE. A failure leaves the
    // lists unchanged, unless its cause is a pixel that is a NaN or beyond 1e150, or edges that intersect
    // after the joining.
    virtual std::int32_t OverlayOnMap(IMapCoordOperations* map, IArray* first, IArray* second,
                                      IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                      IArray* both) = 0;
    // Without a map of the caller. All coordinates must share datum and system here, too. For pixels, parts
    // are FLOATPIXEL on their datum and failures are those of OverlayPixels. For other systems the library
    // uses the map of IsInsideCoordEdgesNoMap, on which edges are straight: parts have the datum and system
    // of the polygons and no closing vertex, and failures are those of OverlayOnMap; a part without a
    // position in that system is a failure that empties the lists.
    virtual std::int32_t Overlay(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                                 IArray* onlyFirst, IArray* both) = 0;
    // For polygons of valid pixels, of any datums; parts are FLOATPIXEL on the map's datum. A failure
    // empties the lists, except for null or an object of another kind.
    virtual std::int32_t OverlayPixels(IMapCoordOperations* map, IArray* first, IArray* second,
                                       IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                       IArray* both) = 0;
    // Splits a polygon that intersects itself into simple ones; edges are straight on the map. `parts`
    // receives closed lists of FLOATPIXEL coordinates on the map's datum in place of its contents.
    //
    // The walk along the polygon cuts off a loop each time it comes back to a vertex or an intersection; the
    // rest is the last part. A loop that only goes to a vertex and back is a part, too, of three vertices
    // whose last is its first. A polygon that doesn't intersect itself is one part, as is one of fewer than
    // four vertices; an empty polygon has none. False, with `parts` unchanged, for null or an object of
    // another kind, an invalid pixel and a position without a pixel.
    virtual bool SplitPolygon(IMapCoordOperations* map, IArray* polygon, IArray* parts) = 0;

  protected:
    ~ICoordinateArea() = default;
};

// An interface for the library's own classes.
class ICoordinateAreaInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateAreaInternal;

    // GetMapRectExtremes of a plain rectangle (tessara/transformable_map_pixel.h).
    virtual bool GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north, ICoord* east,
                                 ICoord* south, ICoord* west) = 0;

  protected:
    ~ICoordinateAreaInternal() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateArea* CreateClassCoordinateArea();

}  // namespace tessara
