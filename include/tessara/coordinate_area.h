// The extent of things in a coordinate system: how far north, east, south and west a system, a map rectangle,
// a line or a polygon reaches, and what lies inside a polygon.
//
// A rectangle (IRect) is in whole pixels of a map. A line or a polygon is an IArray of ICoord. Extremes are
// four coordinates of one reference in the order north, east, south, west.
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

// How two polygons lie to each other, the results of the overlay operations.
inline constexpr std::int32_t OVERLAY_FAILURE = -1;
inline constexpr std::int32_t OVERLAY_APART = 0;          // they share no area
inline constexpr std::int32_t OVERLAY_EQUAL = 1;          // they cover the same area
inline constexpr std::int32_t OVERLAY_FIRST_INSIDE = 2;   // the first lies inside the second
inline constexpr std::int32_t OVERLAY_SECOND_INSIDE = 3;  // the second lies inside the first
inline constexpr std::int32_t OVERLAY_CROSSING = 4;       // they share a part of their areas
inline constexpr std::int32_t OVERLAY_TOUCHING = 5;       // they share a piece of an edge and no area

class ICoordinateArea : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateArea;

    // Moves the point to where the system it is in ends in a direction, on its datum and at height 0.0:
    //
    //   - pixels: the ends of the numbers;
    //   - UTM and UTMREF: latitudes 84 and -80 on 3 degrees east; the equator at longitude 180 in zone 60 and
    //     at -180 in zone 1;
    //   - GEODEZ, GEOGRAD, GEODEZMIN: latitudes +-90 and longitudes +-360; GEOREF: its outermost squares;
    //   - GK, GK6: latitudes +-80; the equator a hair inside +-181.5 (GK6: +-180) degrees, on the datum KKJ
    //     -162.5 in the west;
    //   - BMN, OEM, GK-AT: latitudes 51 and 45 on the middle meridian; latitude 45 a hair inside the edges of
    //     the outer strips;
    //   - ECEF: the north pole, the equator at 90 and at 0 degrees; 0, 0, 0 in the south;
    //   - UPS: latitude 80 of the north at longitudes 180, 90, 0 and -90;
    //   - TM: a quarter meridian to the north and south, 20 degrees of the equator to the sides, each as a
    //     record with parameters of its own;
    //   - VDG: latitudes +-85, longitudes +-180;
    //   - CH, PO_MILITARY, BNG, ING, RD, LUREF: the middles of the sides of the grid.
    //
    // False for a null or foreign object, systems outside 0..22 and datums outside 0..238; the point is then
    // unchanged. (Systems that need no ellipsoid here take the datum 999, too.)
    virtual bool GetSystemNorth(ICoord* point) = 0;
    virtual bool GetSystemEast(ICoord* point) = 0;
    virtual bool GetSystemSouth(ICoord* point) = 0;
    virtual bool GetSystemWest(ICoord* point) = 0;
    // All four at once. They must be of one datum and one system, otherwise false.
    virtual bool GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) = 0;

    // The extremes of a rectangle of a map, in the point's reference (those of all four, which must agree):
    // whole positions, so that the north extreme comes with the easting where the rectangle reaches furthest
    // north. The sides may be swapped. In a pixel system they are its corners, whatever the map shows.
    //
    // The corners and the lines of pixels between them are searched, to a quarter of a pixel, or half of one
    // where they cross the border of a zone, and the limits of the system, the meridian 180 where degrees end
    // at it, and the middles and borders of zones that lie inside, on the edges or by their rounded pixels. A
    // map repeats itself, and so a limit counts only if its pixel leads back to it: a window over Greenwich
    // doesn't reach to longitude 360. A corner that the map or the system can't show moves toward
    // the centre, a quarter, a half or all of the way; then the pieces of the sides that can be shown are
    // searched, and up to four narrower rectangles, a quarter of the size off each side. Where the system
    // ends amid the rectangle its edge isn't followed: besides the places told, no extreme is found there.
    //
    // False for a null or wrong object. In other systems than pixels false, too, for an empty map and a
    // rectangle without any valid position; ECEF and TM positions are never valid, and UPS ones only in the
    // north. The points are then unchanged.
    virtual bool GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east,
                                    ICoord* south, ICoord* west) = 0;

    // The extremes of a line, on a map or without one, in the point's reference (those of all four, which
    // must agree). Only the value on the axis of the direction means something: the four span the line's box.
    //
    // An edge is straight in the line's own system, or on the map between two pixels; it is searched in the
    // 32 pieces, or the chain to a quarter of a pixel, that tessara/line_points.h tells of. Pixels have
    // positions on a map only, and an edge of world positions has no extent in pixels.
    //
    // False for a null or wrong object, an empty line, two neighbours of different datum or system and
    // positions that can't be brought into the reference. The points then hold what the line reached before,
    // if anything.
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

    // Whether a point lies inside a polygon. The polygon is closed by itself. A point on a vertex or nearer
    // to an edge than the tolerance is inside; of a ring that crosses itself the inside is that of the
    // rings that SplitPolygon makes of it, together.
    //
    // The operations differ in how the edges run between the vertices. All are false for a null or wrong
    // object, an empty polygon, an element that is no coordinate, and a position that has no pixel.

    // Edges that are straight in the system of the polygon's coordinates, which must share datum and system
    // (the point may have its own): each is followed on the map to a quarter of a pixel. False for an edge
    // that can't be followed; tessara/line_points.h tells of DensifyCoordStraight.
    virtual bool IsInsideCoordEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // The same without a map, on a map of the library's own: WAGNER-IV, 10 metres a pixel, which is cut along
    // the meridian of 180 degrees; around a pole the UPS grid, for UPS coordinates. Point and polygon must
    // share datum and system. Pixels are compared as they are.
    virtual bool IsInsideCoordEdgesNoMap(ICoord* point, IArray* polygon) = 0;
    // Edges that are straight on the map.
    virtual bool IsInsideMapEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // Edges that are straight in the coordinate system in which the map is drawn, whatever systems the
    // vertices have.
    virtual bool IsInsideTransferred(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // As IsInsideMapEdges.
    virtual bool IsInsideOnMap(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    // A valid pixel in a polygon of valid pixels, of whatever datums.
    virtual bool IsInsidePixels(ICoord* point, IArray* polygon) = 0;

    // How close to an edge, in pixels, a point counts as on it; 2.220446049250313e-11 in a new object. Its
    // distance from the line through the edge and, beyond an end, along either axis is less: 0.0 leaves only
    // points exactly on the ring, 0.5 widens a rectangle by just under half a pixel on every side. False
    // for a negative tolerance or a NaN, which change nothing.
    virtual bool SetTolerance(double tolerance) = 0;
    virtual double GetTolerance() = 0;

    // How two polygons lie to each other, one of the numbers OVERLAY_... above, and for OVERLAY_CROSSING what
    // they cut each other into: the parts in neither of them (enclosed between the two), only in the second,
    // only in the first, and in both. A part is an IArray of ICoord, its last vertex equal to its first. The
    // lists get their parts in place of what they held, in no particular order, and are empty for every other
    // result.
    //
    // Where the rings touch or cross, the areas decide: polygons that only touch share none, and one
    // inside the other may touch it from inside. A ring that crosses itself then counts by the even-odd
    // rule. Vertices and crossings closer together than a few roundings of the largest coordinate are one,
    // and somewhat farther ones if rounding makes a tangle of them.
    //
    // Where they don't, OVERLAY_FIRST_INSIDE or OVERLAY_SECOND_INSIDE says that the first vertex of a polygon
    // lies inside the other as IsInsidePixels tells it, within the tolerance of an edge, too; no ring is made
    // of the two. An empty polygon shares no area with any.
    //
    // OVERLAY_FAILURE for a null or wrong object, an element that is no coordinate, a position without a
    // pixel, pixels that are no numbers or beyond 1e150, and a tangle that can't be undone. The lists are
    // then as they were, or emptied where that is told.

    // Edges are straight on the map; parts are FLOATPIXEL on the map's datum. The coordinates of both
    // polygons must share datum and system, otherwise it is a failure. A failure leaves the lists as they
    // were, unless the pixels are no numbers or a tangle.
    virtual std::int32_t OverlayOnMap(IMapCoordOperations* map, IArray* first, IArray* second,
                                      IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                      IArray* both) = 0;
    // Without a map. Both polygons must share datum and system here, too. Pixels are taken as they are: parts
    // are FLOATPIXEL on their datum, and failures are those of OverlayPixels. Other coordinates are laid on
    // the map that IsInsideCoordEdgesNoMap tells of, with edges that are straight on it: parts are in the
    // datum and system of the polygons, without the closing vertex, and failures are those of OverlayOnMap;
    // a part without a position in that system is a failure that empties the lists.
    virtual std::int32_t Overlay(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                                 IArray* onlyFirst, IArray* both) = 0;
    // Polygons of valid pixels, of whatever datums; parts are FLOATPIXEL on the map's datum. A failure other
    // than for a null or wrong argument empties the lists.
    virtual std::int32_t OverlayPixels(IMapCoordOperations* map, IArray* first, IArray* second,
                                       IArray* neither, IArray* onlySecond, IArray* onlyFirst,
                                       IArray* both) = 0;
    // Takes a polygon that crosses itself apart into simple ones: closed lists of FLOATPIXEL coordinates on
    // the map's datum, in place of what `parts` held. Edges are straight on the map. The walk along the
    // polygon cuts off each loop when it comes back to a vertex or a crossing, also one that only goes there
    // and back and has three vertices, the last one its first; what is left comes last. A polygon that
    // doesn't cross itself is one part, and so are fewer than four vertices; an empty one has none. False for
    // a null or wrong object, an invalid pixel and a position without a pixel; `parts` is then unchanged.
    virtual bool SplitPolygon(IMapCoordOperations* map, IArray* polygon, IArray* parts) = 0;

  protected:
    ~ICoordinateArea() = default;
};

// For the library's own classes.
class ICoordinateAreaInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateAreaInternal;

    // As GetMapRectExtremes, of a plain rectangle (tessara/transformable_map_pixel.h).
    virtual bool GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north, ICoord* east,
                                 ICoord* south, ICoord* west) = 0;

  protected:
    ~ICoordinateAreaInternal() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateArea* CreateClassCoordinateArea();

}  // namespace tessara
