// A position as an object: a record, its height, and whether it holds a position at all.
//
// The reference (datum and system) of a coordinate is always meaningful. An invalid coordinate is a
// position-less one of its reference; a new one is an invalid WGS84 GEODEZ.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class CKoord;
class ICoordGeographic;
class ICoordinateReference;

inline constexpr GUID CLSID_Coord = ParseGuid("EFF9D47D-B44E-4C00-A982-CCB70E79686C");
inline constexpr GUID IID_ICoord = ParseGuid("B0371A07-D1E1-4F35-A7E6-D6CB8B851B3B");
inline constexpr GUID IID_ICoordInternal = ParseGuid("461B9FF0-EE7F-4BF5-ABE6-F9BB0EEDF512");

class ICoord : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoord;

    // Makes the coordinate a FLOATPIXEL position on the datum it has. Always true.
    virtual bool SetPixel(double x, double y) = 0;
    // Column and row. False if the coordinate is invalid or no pixel, or a pointer is null; nothing is
    // written then.
    virtual bool GetPixel(double* x, double* y) = 0;
    // Metres above the ellipsoid, for every system and also without a position, where it is 0 until it is
    // set. Always true.
    virtual bool SetHeight(double height) = 0;
    virtual double GetHeight() = 0;
    // The position in WGS84 degrees; the height crosses a datum unchanged. False if the coordinate is
    // invalid, the target null or wrong, or the conversion fails; the target is then unchanged.
    virtual bool GetGeographic(ICoordGeographic* target) = 0;
    // Takes a WGS84 position into the reference that the coordinate has, in its natural zone. False for a
    // null or wrong object or a conversion that fails; the coordinate is then invalid.
    virtual bool SetGeographic(ICoordGeographic* source) = 0;
    // Converts to another reference. False for a null or wrong object, a system without a default record or a
    // conversion that fails; the coordinate is then unchanged. An invalid coordinate takes the reference and
    // its default record and stays invalid. Between a pixel and a world system no position can be kept: the
    // coordinate becomes invalid and the result is true. A fractional pixel is rounded half away from zero.
    virtual bool SetReference(ICoordinateReference* reference) = 0;
    // False for a null or wrong object or numbers that it doesn't take.
    virtual bool GetReference(ICoordinateReference* target) = 0;

  protected:
    ~ICoord() = default;
};

// The record behind a coordinate, and moves on its own grid.
class ICoordInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordInternal;

    // Takes the record and makes the coordinate valid. False for null.
    virtual bool SetKoord(const CKoord* koord) = 0;
    // True also for an invalid coordinate; false for null.
    virtual bool GetKoord(CKoord* koord) = 0;
    // Moves by `delta` to the east or north (negative: west or south), in metres on a grid, degrees in
    // GEODEZ, GEOGRAD, GEODEZMIN and GEOREF, pixels on a map, and refuses to leave the zone or the area of
    // the system. A move that ends beyond the area of a system without zones by 1e-7 degrees or 1e-4 m at
    // most ends on its limit.
    //
    // UTMREF moves to the nearest whole metre and wants its zone afterwards; LONGPIXEL moves by the whole
    // part of delta; ShiftNorth of a pixel adds to the row, which is southward on the map. Letters and
    // hemispheres follow the move. TM has no way south.
    //
    // False for an invalid coordinate, for ECEF and LAMBERTCC, for a delta that is no number and for a move
    // that is refused; the coordinate is then unchanged. A delta of 0.0 is true for every valid coordinate.
    virtual bool ShiftEast(double delta) = 0;
    virtual bool ShiftNorth(double delta) = 0;
    // How far `other` lies east or north of this, in the units of the shifts. A pixel in a smaller row lies
    // north; UTM counts across the equator; UTMREF counts 100 km squares by their letters in alphabetical
    // order, which is wrong across the end of the rows' alphabet. Whether `other` is valid isn't looked at.
    //
    // 2.2250738585072014e-308 if it is unknown: this is invalid, `other` is null, foreign or of another
    // datum, system or zone, a letter belongs to no square, or the system is ECEF or LAMBERTCC.
    virtual double EastDifference(ICoord* other) = 0;
    virtual double NorthDifference(ICoord* other) = 0;

  protected:
    ~ICoordInternal() = default;
};

// A new coordinate with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoord* CreateClassCoord();

}  // namespace tessara
