// A map: positions become pixels, and pixels become positions.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;
class IGeoDate;
class IProjection;
class IReferencePoint;

inline constexpr GUID CLSID_MapCoordOperations = ParseGuid("D0E070F6-3D97-482E-9058-F2B2BCE57520");
inline constexpr GUID IID_IMapCoordOperations = ParseGuid("B6573915-F3BD-404A-BB6F-2F47595B0086");

// Example: a sheet in UTM zone 32, 2.5 metres a pixel, whose pixel (0, 0) is at 675000 5345000.
//
//     double column = 0.0, row = 0.0;
//     if (!map->CoordToFloatPixel(munich, &column, &row)) return;  // 6641.06 4083.54
//     if (!map->FloatPixelToCoord(column, row, place)) return;     // in the reference that `place` has
//
// A map has a projection, a datum, a scale and a resolution in pixels per millimetre of the sheet; some map
// types also need a reference point. The library fits nothing: a map stores any number of reference points
// and returns them, but computes with the first alone; grid and polynomial maps compute with none.
// tessara/kernel/map.h says what each type reads and how accurate it is.
//
// IMapCoordOperationsFactory makes maps; one from CreateClassMapCoordOperations is empty, and all its
// conversions are false. Conversions only read the map, so threads may share one that is complete.
class IMapCoordOperations : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordOperations;

    // Writes everything that the map was made from, in the order points, scale and resolution, datum,
    // projection. `points` may be null if the projection object passed in is a POLYNOM one. False for a null
    // argument or an object of another kind, and where the operations below are; what was written before the
    // failure stays.
    virtual bool GetMapDefinition(IArray* points, std::int32_t* scaleDenominator, double* resolution,
                                  IGeoDate* datum, IProjection* projection) = 0;
    // The reference point, if the map has exactly one; otherwise false.
    virtual bool GetReferencePoint(IReferencePoint* out) = 0;
    // All reference points, as IReferencePoint, in place of the contents of the list; none give an empty
    // list. False for null, and if memory runs out, with the list as far as it got.
    virtual bool GetReferencePoints(IArray* out) = 0;
    // N of the scale 1:N, and 1/N. A map without a scale has the denominator 0 and an infinite scale.
    virtual std::int32_t GetScaleDenominator() = 0;
    virtual double GetScale() = 0;
    // Pixels per millimetre of the sheet.
    virtual double GetResolution() = 0;
    virtual bool GetGeoDate(IGeoDate* out) = 0;
    // Writes the map's type and parameters into the projection object. False for an object that isn't this
    // library's.
    virtual bool GetProjection(IProjection* out) = 0;

    // Writes the position of a pixel into `out`, in the reference that `out` has, in the natural zone and
    // with the default parameters of the system. `out` keeps its height; an ECEF at the earth's centre, the
    // default, gets the height 0. PixelCoordToCoord reads a pixel of any datum as one of this map.
    //
    // False if the pixel has no position, or if `out` is a pixel or can't hold the position: `out` is then
    // the default position of its reference, or unchanged if the reference has none. False, with `out`
    // unchanged, for an empty map, a `pixel` that isn't a pixel, and null or an object of another kind.
    virtual bool FloatPixelToCoord(double x, double y, ICoord* out) = 0;
    virtual bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) = 0;
    virtual bool PixelCoordToCoord(ICoord* pixel, ICoord* out) = 0;

    // Writes the pixel of a position, which may be beside the sheet. Whole pixels are rounded half away from
    // zero. CoordToPixelCoord writes LONGPIXEL or FLOATPIXEL, as the system of `pixel` says, and sets the
    // map's datum and the position's height. False, with nothing written, if the position has no pixel or is
    // a pixel, and for null or an object of another kind.
    virtual bool CoordToFloatPixel(ICoord* in, double* x, double* y) = 0;
    virtual bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) = 0;
    virtual bool CoordToPixelCoord(ICoord* in, ICoord* pixel) = 0;

  protected:
    ~IMapCoordOperations() = default;
};

// Creates an empty map with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IMapCoordOperations* CreateClassMapCoordOperations();

}  // namespace tessara
