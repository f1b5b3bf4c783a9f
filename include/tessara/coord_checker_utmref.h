// UTMREF positions that a user enters piece by piece.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class CKoord;
class IArray;
class ICoord;
class ITessaraString;

inline constexpr GUID CLSID_CoordCheckerUTMREF = ParseGuid("2FF85F4D-3D84-4DDA-8CEA-2213A7853004");
inline constexpr GUID IID_ICoordCheckerUTMREF = ParseGuid("08E3B2CA-C8D6-42E8-9E1C-90CA164EA4AA");

// The six pieces are texts, always in this order: zone, band, column letter and row letter of the 100 km
// square, digits of the easting, digits of the northing. The lists say what can follow the pieces entered so
// far.
//
// Example: the columns of 32U, and the record of a complete reference.
//
//     const tessara::IRef checker = tessara::CreateClassCoordCheckerUTMREF();
//     const tessara::IRef columns = tessara::CreateClassArray();
//     checker->GetColumnList(columns, tessara::DATUM_WGS84, zone, band, column, row);  // K L M N P Q
//     tessara::CKoord record(tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTMREF));
//     checker->ComposeCoord(zone, band, column, row, easting, northing, &record);
//     const auto utmref = tessara::Load<tessara::UtmrefPayload>(record);
//     // "916" and "347" are 91600 and 34700 metres within the square
//
// A zone may have leading zeros, and letters may be lower case. A group of digits has at most five; missing
// ones on the right are zeros, so "123" is 12300 metres. Which columns and rows exist depends on the
// ellipsoid of the datum: it decides the lettering scheme and, by a little, the size of a zone.
class ICoordCheckerUTMREF : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordCheckerUTMREF;

    // True if each piece of a UTMREF coordinate is possible after the pieces before it. False for other
    // systems, for datums outside 0..238, for null and for an object of another kind.
    virtual bool CheckCoord(ICoord* coord) = 0;

    // The list operations replace the contents of the list by one ITessaraString for each choice. They are
    // false, with the list untouched, for null or an object of another kind. If memory runs out they are
    // false and the list keeps the entries made so far.

    // The zones 1 to 60.
    virtual bool GetZoneList(IArray* list) = 0;
    // The bands C to X, without I and O.
    virtual bool GetBandList(IArray* list) = 0;
    // The column letters, from west to east, of the squares that are at least partly within a zone and a
    // band. An empty zone means zone 1, an empty band means N. `column` and `row` must be texts; their
    // contents are ignored. False, with an empty list, for a zone or band that doesn't exist and for a datum
    // outside 0..238.
    virtual bool GetColumnList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                               ITessaraString* column, ITessaraString* row) = 0;
    // GetColumnList for the pieces of a coordinate.
    virtual bool GetColumnListOf(IArray* list, ICoord* coord) = 0;
    // The row letters, from south to north, of such squares in one column. An empty zone means the first
    // zone that has the column; an empty column means the first one east of the central meridian, E, N or W.
    // The contents of `row` are ignored. False, with an empty list, as for GetColumnList, and for a column
    // that the zone doesn't have in that band.
    virtual bool GetRowList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                            ITessaraString* column, ITessaraString* row) = 0;
    // GetRowList for the pieces of a coordinate.
    virtual bool GetRowListOf(IArray* list, ICoord* coord) = 0;

    // Writes the pieces of a coordinate into six texts, each group with five digits. A coordinate that was
    // converted to UTMREF is rounded to whole metres, where other libraries truncate, and on borders has the
    // zone and band of tessara/kernel/utmref.h. False, with the texts unchanged, for systems other than
    // UTMREF, datums outside 0..238, null and objects of another kind.
    virtual bool SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                            ITessaraString* row, ITessaraString* easting, ITessaraString* northing) = 0;
    // Makes a UTMREF record of the pieces, on the datum that the target has, without a wanted zone. Letters
    // are copied in the case in which they are entered, and only capital letters convert. A group is read up
    // to its first character that isn't a digit.
    //
    // False, with the target unchanged, for pieces that aren't possible, a datum outside 0..238, null and
    // objects of another kind. False also for a group of six or more characters; the target's type is UTMREF
    // by then.
    virtual bool ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                              ITessaraString* row, ITessaraString* easting, ITessaraString* northing,
                              CKoord* target) = 0;

  protected:
    ~ICoordCheckerUTMREF() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordCheckerUTMREF* CreateClassCoordCheckerUTMREF();

}  // namespace tessara
