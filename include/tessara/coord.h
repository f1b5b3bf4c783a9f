// A position as an object: datum, coordinate system, values and height.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class CKoord;
class ICoordGeographic;
class ICoordinateReference;

inline constexpr GUID CLSID_Coord = ParseGuid("EFF9D47D-B44E-4C00-A982-CCB70E79686C");
inline constexpr GUID IID_ICoord = ParseGuid("B0371A07-D1E1-4F35-A7E6-D6CB8B851B3B");
inline constexpr GUID IID_ICoordInternal = ParseGuid("461B9FF0-EE7F-4BF5-ABE6-F9BB0EEDF512");

// A coordinate always has a reference (datum and system). It may have no position and is then called
// invalid: so are a new coordinate, which is a WGS84 GEODEZ, and one whose SetGeographic failed.
//
// Example: degrees become UTM.
//
//     const tessara::IRef munich = tessara::CreateClassCoordGeographic();
//     munich->Set(11.5755, 48.1375, 520.0);
//     const tessara::IRef reference = tessara::CreateClassCoordinateReference();
//     reference->SetDatum(tessara::DATUM_WGS84);
//     reference->SetSystem(tessara::KOORD_UTM);
//     const tessara::IRef coord = tessara::CreateClassCoord();
//     if (!coord->SetGeographic(munich) || !coord->SetReference(reference)) return;
//     const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(coord));
//     // zone 32, easting 691602.660, northing 5334791.145
class ICoord : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoord;

    // Makes the coordinate a FLOATPIXEL position on its present datum. Always true.
    virtual bool SetPixel(double x, double y) = 0;
    // Column and row. False if the coordinate is invalid or not a pixel, or a pointer is null; nothing is
    // written then.
    virtual bool GetPixel(double* x, double* y) = 0;
    // Metres above the ellipsoid, in every system. An invalid coordinate has a height, too: 0 until it is
    // set. Setting is always true.
    virtual bool SetHeight(double height) = 0;
    virtual double GetHeight() = 0;
    // The position in WGS84 degrees; a datum shift leaves the height as it is. False if the coordinate is
    // invalid, the target is null or of another kind, or the conversion fails; the target is then unchanged.
    virtual bool GetGeographic(ICoordGeographic* target) = 0;
    // Converts a WGS84 position into the coordinate's present reference, in the natural zone. False for
    // null, for an object of another kind and for a conversion that fails; the coordinate is then invalid.
    virtual bool SetGeographic(ICoordGeographic* source) = 0;
    // Converts the position to another reference. False, with the coordinate unchanged, for null or an
    // object of another kind, a system without a default record, and a conversion that fails.
    //
    // An invalid coordinate takes the reference and its default record, stays invalid, and the result is
    // true. The same happens between pixels and the systems of the earth, which only a map relates: the
    // coordinate becomes invalid, and the result is true. From FLOATPIXEL to LONGPIXEL numbers are rounded
    // half away from zero.
    virtual bool SetReference(ICoordinateReference* reference) = 0;
    // False if the target is null, of another kind, or doesn't take the numbers.
    virtual bool GetReference(ICoordinateReference* target) = 0;

  protected:
    ~ICoord() = default;
};

// Another interface of the same object: the record itself, and moves along the axes of its system. Ask for
// it with IRef<ICoordInternal>(coord).
class ICoordInternal : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordInternal;

    // Copies the record and makes the coordinate valid, whatever the record holds. False for null.
    virtual bool SetKoord(const CKoord* koord) = 0;
    // True for an invalid coordinate, too; false for null.
    virtual bool GetKoord(CKoord* koord) = 0;
    // Moves the position by `delta` to the east or to the north; a negative delta moves it west or south.
    // The unit is metres in a grid, degrees in GEODEZ, GEOGRAD, GEODEZMIN and GEOREF, and pixels on a map.
    // Hemisphere and square letters follow.
    //
    //   - The move must end within the zone, or within the area of a system without zones. There an end that
    //     is beyond a limit by at most 1e-7 degrees or 1e-4 m is moved onto the limit.
    //   - UTMREF moves to the nearest whole metre, and its wanted zone becomes its zone.
    //   - LONGPIXEL moves by the whole part of delta. ShiftNorth of a pixel adds to the row and so moves
    //     down the map.
    //   - TM can't be shifted south.
    //
    // False, with the coordinate unchanged, if it is invalid, in ECEF or LAMBERTCC, if delta is a NaN, and
    // if the move is refused. A delta of 0.0 is true for every valid coordinate.
    virtual bool ShiftEast(double delta) = 0;
    virtual bool ShiftNorth(double delta) = 0;
    // The distance along an axis from this coordinate to `other`: positive if `other` is east or north of
    // it, in the units of the shifts. A pixel in a smaller row is north. UTM differences are right across
    // the equator. UTMREF differences count the letters of the 100 km squares in alphabetical order, and are
    // wrong where the cycle of the row letters ends between the two. Whether `other` is valid isn't checked.
    //
    // UNKNOWN_DIFFERENCE (2.2250738585072014e-308) if this coordinate is invalid, if `other` is null, of
    // another kind or in another datum, system or zone, if a letter belongs to no square, and in ECEF and
    // LAMBERTCC.
    virtual double EastDifference(ICoord* other) = 0;
    virtual double NorthDifference(ICoord* other) = 0;

  protected:
    ~ICoordInternal() = default;
};

// Creates an invalid coordinate with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoord* CreateClassCoord();

}  // namespace tessara
