// UTMREF positions typed piece by piece: zone, latitude band, 100 km column and row, and the two digit
// groups.
//
// A piece is a text. The six pieces always come in that order. Zones may have leading zeros, letters may be
// small, and a digit group has at most five digits, of which missing ones on the right are zeros: 123 is
// 12300 metres. Which columns and rows exist depends on the datum, whose ellipsoid decides the lettering and,
// by a little, the size of a zone.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class CKoord;
class IArray;
class ICoord;
class ITessaraString;

inline constexpr GUID CLSID_CoordCheckerUTMREF = ParseGuid("2FF85F4D-3D84-4DDA-8CEA-2213A7853004");
inline constexpr GUID IID_ICoordCheckerUTMREF = ParseGuid("08E3B2CA-C8D6-42E8-9E1C-90CA164EA4AA");

class ICoordCheckerUTMREF : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordCheckerUTMREF;

    // True if every piece of a UTMREF coordinate is among the possible ones for the pieces before it. False
    // for other systems, datums outside 0..238, and null or foreign objects.
    virtual bool CheckCoord(ICoord* coord) = 0;

    // The lists are emptied and then filled with one ITessaraString for a choice. All of them are false for a
    // null or wrong object; a list isn't touched then. Without memory for an entry they are false and end
    // there.

    // The zones 1 to 60.
    virtual bool GetZoneList(IArray* list) = 0;
    // The bands C to X.
    virtual bool GetBandList(IArray* list) = 0;
    // The column letters of the squares that lie at least partly within a zone and a band, from west to east.
    // An empty zone stands for 1, an empty band for N. The column and the row must be texts, but their
    // contents play no role. False, with an empty list, for a zone or band that doesn't exist and a datum
    // outside 0..238.
    virtual bool GetColumnList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                               ITessaraString* column, ITessaraString* row) = 0;
    // GetColumnList for the pieces of a coordinate.
    virtual bool GetColumnListOf(IArray* list, ICoord* coord) = 0;
    // The row letters of such squares in a column, from south to north. An empty zone stands for the first
    // one that has the column, an empty column for the first one east of the central meridian: E, N or W.
    // The contents of the row play no role. False, with an empty list, as above and for a column that the
    // zone doesn't have in that band.
    virtual bool GetRowList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                            ITessaraString* column, ITessaraString* row) = 0;
    // GetRowList for the pieces of a coordinate.
    virtual bool GetRowListOf(IArray* list, ICoord* coord) = 0;

    // Fills six texts with the pieces of a coordinate, each digit group with five digits. False for systems
    // other than UTMREF, datums outside 0..238, and null or wrong objects; the texts are then unchanged.
    virtual bool SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                            ITessaraString* row, ITessaraString* easting, ITessaraString* northing) = 0;
    // Makes the pieces a record on the datum that the target has, wanting no zone; letters stay as they are
    // typed, and only capital ones convert. False for pieces that aren't possible, a datum outside 0..238,
    // and null or wrong objects: the target is then unchanged. False for a digit group of six or more
    // characters, too, and the type of the target is then UTMREF already. A group is read as far as its
    // digits go.
    virtual bool ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                              ITessaraString* row, ITessaraString* easting, ITessaraString* northing,
                              CKoord* target) = 0;

  protected:
    ~ICoordCheckerUTMREF() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordCheckerUTMREF* CreateClassCoordCheckerUTMREF();

}  // namespace tessara
