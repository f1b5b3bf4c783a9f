// A coordinate as text: a north text and an east text that can be read back, compact forms of both for a
// screen, and the Cartesian and geographic values of the same place.
//
// Texts are 8-bit and don't depend on the locale of the host. Their words stand apart by a blank; numbers
// have a point. By system, with N for a number of the text's precision:
//
//   system                    north text                   east text
//   LONGPIXEL                 y, whole                     x, whole
//   FLOATPIXEL                y, N                         x, N
//   UTM                       hemisphere, northing N       zone, easting N
//   UTMREF                    band, row, northing N        zone, column, easting N
//   GEODEZ                    latitude N                   longitude N
//   GEOGRAD                   letter, degrees, minutes, seconds N, on both axes
//   GEODEZMIN                 letter, degrees, minutes N, on both axes
//   GEOREF                    zone letter, degree letter, minutes in as many digits as the precision of the
//                             record, on both axes; empty for a record of precision other than 3, 4, 5
//   UPS                       hemisphere, northing N       easting N
//   VDG                       origin latitude N, y N       origin longitude N, x N
//   BNG                       whole northing N, square,    whole easting N, square,
//                             northing N                   easting N
//   ING                       as BNG, with the second letter only
//   ECEF                      z, N                         y, N
//   all others                northing N                   easting N
//
// The metres of UTMREF stand as numbers, without leading zeros: 42 metres are "42.000".
//
// The precision is the power of ten of the last digit: -3 shows three decimals, 0 and more none. It is unset
// until it is asked for or needed; needed, it becomes -7 in GEODEZ, -5 in GEODEZMIN, 0 in LONGPIXEL and
// GEOREF, and -3 elsewhere. A coordinate of another system unsets both.
//
// A text never shows 60 seconds, 60 minutes or 100000 metres of a square. Where rounding up would, the
// position half a unit of the last digit further north or east is shown: it carries in the north and east; in
// the south and west the digits below the carry are shown, as 59.99.
//
// What can't be typed, although it can be shown or held:
//
//   - ECEF: it has three values and two texts;
//   - TM: its parameters aren't in the texts;
//   - GK-AT: its eastings are the same on all three meridians, and the texts don't name the meridian; BMN and
//     OEM are read, on the meridian with the nearest easting;
//   - UPS in the south: the limits of the system are those of the north;
//   - VDG with an origin other than (0, 0);
//   - the minutes of a GEOREF: they are kept, but no precision is read with them, and the position is the
//     south-western corner of its degree;
//   - heights, in all systems.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class ICoordinateReference;
class ITessaraString;

inline constexpr GUID CLSID_CoordinateString = ParseGuid("F9C3DBA6-9CE7-4D6B-9BD5-AE199C722BF1");
inline constexpr GUID IID_ICoordinateString = ParseGuid("FFEFADFA-A9D9-4F9D-815F-29B95410DE17");

// A new object holds the position (0, 0) in WGS84 degrees.
class ICoordinateString : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateString;

    // Takes a copy of a coordinate. False for a null or foreign object, which may unset both precisions, and
    // for a datum or system that no reference takes; what was held stays.
    virtual bool SetCoord(ICoord* coord) = 0;
    // Copies the held coordinate out. False for a null or foreign object.
    virtual bool GetCoord(ICoord* coord) = 0;
    // Reads two texts in the forms above as a position of the reference, and holds it. Blanks before a field
    // are skipped, none is needed behind a letter, and what is behind the last field doesn't matter. Letters
    // are taken as they stand: most systems know capital ones only. The metres of a UTMREF may be missing and
    // are 0 then; fewer digits are fewer metres. A zone stands as it is read. False for null or wrong
    // objects, texts that can't be read and positions that ICoordinateChecker::CheckCoord refuses; what was
    // held stays.
    virtual bool ParseCoord(ICoordinateReference* reference, ITessaraString* north, ITessaraString* east) = 0;
    // Sets the precision of a text to the greatest power of ten at most as large as the resolution, from 1e-7
    // to 1e5. The resolution is in units of the held system, degrees in the angular ones; GEOGRAD texts count
    // in seconds, GEODEZMIN texts in minutes, and the next unit (60 and more) is one step coarser. Always
    // true.
    virtual bool SetNorthPrecision(double resolution) = 0;
    virtual bool SetEastPrecision(double resolution) = 0;
    // Always true; a system without texts has an unset precision.
    virtual bool SetDefaultNorthPrecision() = 0;
    virtual bool SetDefaultEastPrecision() = 0;
    // The plain texts. False for a null or wrong object and for LAMBERTCC; the text is then empty.
    virtual bool GetNorthText(ITessaraString* text) = 0;
    virtual bool GetEastText(ITessaraString* text) = 0;
    // Earth-centred metres on the coordinate's datum, with the decimals of the finer precision, none for an
    // unset one. A pixel lies nowhere without a map: its values are zeros. False for null or wrong objects
    // and a position that doesn't convert; the texts are then empty, but unchanged if one of them is null or
    // wrong.
    virtual bool GetCartesianTexts(ITessaraString* x, ITessaraString* y, ITessaraString* z) = 0;
    // Degrees and metres on the coordinate's datum. Latitude and longitude have as many decimals as the north
    // and east texts of the held system, the height has three. Zeros and false as above.
    virtual bool GetGeographicTexts(ITessaraString* latitude, ITessaraString* longitude,
                                    ITessaraString* height) = 0;
    // The forms for a screen, with the byte 0xB0 as degree sign, the apostrophe for minutes and two of them
    // for seconds:
    //
    //   UTM        northing; zone and easting without a blank
    //   UTMREF     the whole reference in both, "32UQA0781942661": as many digits of each group as the
    //              precision stands for; with decimals a group is filled up with zeros, or cut, to 5 minus
    //              the precision characters, its point among them: "7819.000" at -3
    //   GEODEZ     the plain text with a degree sign
    //   GEOGRAD    degrees, minutes, seconds, letter; without the seconds from precision 2 on, and without
    //              the minutes from 4 on
    //   GEODEZMIN  degrees, minutes, letter; without the minutes from precision 2 on
    //   GEOREF     without blanks
    //   BNG, ING   letters, digits as in UTMREF, whole value, without blanks
    //   others     the plain text
    //
    // False as the plain texts are, and for a text that lacks a part; it is then the plain text.
    virtual bool GetNorthDisplayText(ITessaraString* text) = 0;
    virtual bool GetEastDisplayText(ITessaraString* text) = 0;

  protected:
    ~ICoordinateString() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateString* CreateClassCoordinateString();

}  // namespace tessara
