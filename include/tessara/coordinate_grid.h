// The lines of a coordinate grid over a window of a map: the lines of equal east value and of equal north
// value of one coordinate system, a fixed step apart, as chains of points that look right on the map however
// its projection bends them.
//
// Lines stand at whole multiples of the step from an anchor: the central meridian of each zone for east
// values in UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT; otherwise the default position of the system
// (tessara/coordinate_init.h). Steps are in the units of the system: metres, degrees, or pixels.
//
// A line is drawn over the whole extent of the window in the grid's system, so that it may begin or end
// beside the window; one that passes by the window isn't drawn. Each is a single densified piece
// (tessara/line_points.h): straight in the grid's system, it lies within a quarter of a pixel as long as 64
// pieces are enough for that. They aren't for a long line around a pole inside a large window: a parallel of
// 3000 pixels radius lies up to 3.6 pixels beside. Beside a pole, where the degrees begin anew in the window,
// a parallel is a line of two pieces that meet there, with a point on either side. Where zones meet, the
// border between them is a line of the grid, too, and lines end on it. A window has the lines of those zones
// whose area meets it; over the date line the first zones come behind the last. Points of lines have the
// height 0.0.
//
// IArray receives one IArray for each line, with the line's points in order, in place of what it held.
// UTMREF points are rounded to whole metres and GEOREF points to hundredths of a minute, after the line was
// drawn through exact ones; no line follows the first at a smaller step.
//
// The factory in tessara/coordinate_grid_factory.h makes grids. An object is used from one thread at a time.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;
class ICoordinateReference;
class IFloatPoint;
class IMapCoordOperations;

inline constexpr GUID CLSID_CoordinateGrid = ParseGuid("78728AB8-720E-422F-BADC-2E9D2B74786D");
inline constexpr GUID IID_ICoordinateGrid = ParseGuid("B22763C2-57F5-4FFD-B028-F82F84242609");

// A new one from CreateClassCoordinateGrid has no map: its steps are 0.0 and everything else is false.
class ICoordinateGrid : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateGrid;

    // The window for all lines from now on: the smallest rectangle of whole pixels around four points of the
    // map, given as pixels or as coordinates of any system; pixels count whatever their datum is. False for a
    // null or foreign object, a position without a pixel, a pixel outside the range of 32 bits, and a window
    // without any valid position in the grid's system; TM has none anywhere, and UPS none in the south. The
    // window is then the one before.
    virtual bool SetWindowFromPoints(IFloatPoint* a, IFloatPoint* b, IFloatPoint* c, IFloatPoint* d) = 0;
    virtual bool SetWindow(ICoord* a, ICoord* b, ICoord* c, ICoord* d) = 0;

    // One line of ICoord in the grid's reference for each east value, from north to south; the lines from
    // west to east. A border between two zones comes once, after the lines of the western zone, if the window
    // touches it.
    //
    // No line in the window is true, with an empty list. False without a window, for a null or wrong object,
    // and if a point of a line has no place on the map; lines made before that stay in the list. False also
    // where the lines of an axis have more than 20000000 points, and, before any is made, where they lie
    // closer than a thousandth of a pixel on average.
    virtual bool GetEastLines(IArray* lines) = 0;
    // The same for each north value, from west to east; the lines from south to north. A line through several
    // zones is one line, whose point on a border comes twice, once in each zone.
    virtual bool GetNorthLines(IArray* lines) = 0;
    // The same lines as IFloatPoint: x and y of the pixels, z 0.0. On a map that goes on over the date line
    // they are the pixels closest to the window. If the lines can't be made the list is empty.
    virtual bool GetEastLinePixels(IArray* lines) = 0;
    virtual bool GetNorthLinePixels(IArray* lines) = 0;

    // Between lines of equal east or equal north value; positive.
    virtual double GetEastStep() = 0;
    virtual double GetNorthStep() = 0;

    // Makes the target a copy of the grid's map, reference points included. False for a null or wrong object,
    // if the grid's map or the target isn't of this library, and without memory.
    virtual bool CopyMapTo(IMapCoordOperations* target) = 0;
    // False for a null or wrong object.
    virtual bool GetReference(ICoordinateReference* target) = 0;

  protected:
    ~ICoordinateGrid() = default;
};

// A new empty one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateGrid* CreateClassCoordinateGrid();

}  // namespace tessara
