// The grid lines of a coordinate system in a window of a map.
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

// Example: the meridians from 10.1 to 11.9 degrees east every half degree, on a map of 100 pixels a degree
// whose pixel (0, 0) is at longitude 10.
//
//     const tessara::IRef factory = tessara::CreateClassCoordinateGridFactory();
//     const tessara::IRef grid = factory->CreateGeodezGrid(map, tessara::DATUM_WGS84, 0.5, 0.5);
//     const tessara::IRef lines = tessara::CreateClassArray();
//     if (!grid->SetWindow(northWest, northEast, southEast, southWest) || !grid->GetEastLinePixels(lines))
//         return;
//     for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
//         const tessara::IRef<tessara::IArray> line(lines->GetAt(i));
//         const tessara::IRef<tessara::IFloatPoint> start(line->GetAt(0));
//         columns.push_back(start->GetX());  // 50, 100, 150
//     }
//
// A line has a constant east value or a constant north value. Lines are at whole multiples of the step from
// an anchor: the central meridian of each zone for east values in UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT,
// otherwise the default position of the system (tessara/coordinate_init.h). Steps are in the units of the
// system: metres, degrees or pixels.
//
//   - A line is a polyline that follows the projection of the map. It runs over the whole extent of the
//     window in the grid's system, so it may begin or end beside the window; a line that doesn't meet the
//     window is left out.
//   - It is made by ILinePoints::DensifyCoordStraight, in one piece, and so is within a quarter of a pixel
//     as long as 64 segments suffice. They don't for a long line around a pole in a large window: a parallel
//     of 3000 pixels radius is up to 3.6 pixels off. Where the count of degrees starts anew in a window
//     beside a pole, the parallel is a line of two pieces that meet there, with a point on either side.
//   - Between two zones the border is a grid line, too, and lines end on it. A window has the lines of the
//     zones whose area meets it; across the date line the first zones come after the last.
//   - Points have the height 0.0. UTMREF points are rounded to whole metres and GEOREF points to hundredths
//     of a minute, after the line was made of exact ones. With a step below these a grid has its first line
//     only.
//
// Each list receives one IArray for each line, with the line's points in order, in place of its contents.
// ICoordinateGridFactory creates grids; one from CreateClassCoordinateGrid has no map, its steps are 0.0 and
// all other operations are false. One thread at a time may use a grid.
class ICoordinateGrid : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateGrid;

    // Sets the window for all lines from now on: the smallest rectangle of whole pixels around four points
    // of the map, given as pixels or as coordinates of any system. The datum of a pixel doesn't matter.
    // False, with the window unchanged, for null or an object of another kind, a position without a pixel, a
    // pixel outside the range of 32 bits, and a window without a valid position in the grid's system. TM has
    // none anywhere, UPS none in the south.
    virtual bool SetWindowFromPoints(IFloatPoint* a, IFloatPoint* b, IFloatPoint* c, IFloatPoint* d) = 0;
    virtual bool SetWindow(ICoord* a, ICoord* b, ICoord* c, ICoord* d) = 0;

    // One line of ICoord in the grid's reference for each east value, from north to south; the lines from
    // west to east. A border between two zones comes once, after the lines of the western zone, if the
    // window touches it.
    //
    // True, with an empty list, if no line meets the window. False without a window, for null or an object
    // of another kind, and if a point of a line has no place on the map; lines made before that stay in the
    // list. False also if the lines of an axis have more than 20000000 points, and, with no line made, if
    // they would be closer than a thousandth of a pixel on average.
    virtual bool GetEastLines(IArray* lines) = 0;
    // The same for each north value, from west to east; the lines from south to north. A line through
    // several zones is one line; its point on a border comes twice, once in each zone.
    virtual bool GetNorthLines(IArray* lines) = 0;
    // The same lines as IFloatPoint: x and y are the pixel, z is 0.0. On a map that continues across the
    // date line they are the pixels closest to the window. If the lines can't be made the list is empty.
    virtual bool GetEastLinePixels(IArray* lines) = 0;
    virtual bool GetNorthLinePixels(IArray* lines) = 0;

    // The distance between lines of equal east value or of equal north value; positive.
    virtual double GetEastStep() = 0;
    virtual double GetNorthStep() = 0;

    // Makes the target a copy of the grid's map, with its reference points. Like SetMapParam of
    // map_param_internal.h, it doesn't free the target's own list of reference points. False for null or an
    // object of another kind, if the grid's map or the target isn't an object of this library, and if memory
    // runs out.
    virtual bool CopyMapTo(IMapCoordOperations* target) = 0;
    // False for null or an object of another kind.
    virtual bool GetReference(ICoordinateReference* target) = 0;

  protected:
    ~ICoordinateGrid() = default;
};

// Creates a grid without a map, with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateGrid* CreateClassCoordinateGrid();

}  // namespace tessara
