// A map: turns positions into pixels and pixels into positions.
//
// A map is a projection, a scale, a resolution in pixels per millimetre of the sheet, a datum and, for the
// types that need it, a reference point. Nothing is fitted: several reference points can be stored and handed
// back, but only the first is ever used, and by grid and polynomial maps not even that one.
// tessara/kernel/map.h tells what each type reads and what a careful user should know about it.
//
// A map that is built is only read by its calculations and may be shared between threads.
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

// IMapCoordOperationsFactory makes maps; a new one from CreateClassMapCoordOperations is empty, and all its
// conversions are false.
class IMapCoordOperations : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordOperations;

    // Everything that the map was built from, in the order points, scale and resolution, datum, projection;
    // a failure leaves what was written before it. `points` may be null if the projection object that comes
    // in is a POLYNOM one. False for a null or wrong argument, and as the single operations below.
    virtual bool GetMapDefinition(IArray* points, std::int32_t* scaleDenominator, double* resolution,
                                  IGeoDate* datum, IProjection* projection) = 0;
    // The reference point of a map that has exactly one; false otherwise.
    virtual bool GetReferencePoint(IReferencePoint* out) = 0;
    // All reference points, as IReferencePoint, in place of what the list held; an empty list if there are
    // none. False for null or without memory; the list keeps what it has got then.
    virtual bool GetReferencePoints(IArray* out) = 0;
    // N of the scale 1:N, and 1/N; a map without a scale has N 0 and an infinite scale.
    virtual std::int32_t GetScaleDenominator() = 0;
    virtual double GetScale() = 0;
    // Pixels per millimetre of the sheet.
    virtual double GetResolution() = 0;
    virtual bool GetGeoDate(IGeoDate* out) = 0;
    // The projection object takes the map's type and parameters. False for an object of another maker.
    virtual bool GetProjection(IProjection* out) = 0;

    // The position of a pixel, in the reference that `out` has, in its natural zone and with its system's
    // default parameters; the height stays, where ECEF's default, the earth's centre, has 0.
    // PixelCoordToCoord takes a pixel of any datum for one of this map. False if the pixel has no position or
    // `out` can't hold it or is a pixel; `out` is then the default position of its reference, or unchanged if
    // it has none. False also for an empty map, a `pixel` that isn't one, and a null or wrong argument, with
    // `out` unchanged.
    virtual bool FloatPixelToCoord(double x, double y, ICoord* out) = 0;
    virtual bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) = 0;
    virtual bool PixelCoordToCoord(ICoord* pixel, ICoord* out) = 0;

    // The pixel of a position, also beside the sheet; a whole pixel is rounded half away from zero. Of
    // `pixel` the system, LONGPIXEL or FLOATPIXEL, says which form is wanted; it takes the map's datum and
    // the position's height. False if the position has no pixel, is a pixel, or an argument is null or wrong;
    // nothing is written then.
    virtual bool CoordToFloatPixel(ICoord* in, double* x, double* y) = 0;
    virtual bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) = 0;
    virtual bool CoordToPixelCoord(ICoord* in, ICoord* pixel) = 0;

  protected:
    ~IMapCoordOperations() = default;
};

// A new empty one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IMapCoordOperations* CreateClassMapCoordOperations();

}  // namespace tessara
