// A coordinate as text, written and read.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;
class ICoordinateReference;
class ITessaraString;

inline constexpr GUID CLSID_CoordinateString = ParseGuid("F9C3DBA6-9CE7-4D6B-9BD5-AE199C722BF1");
inline constexpr GUID IID_ICoordinateString = ParseGuid("FFEFADFA-A9D9-4F9D-815F-29B95410DE17");

// Each coordinate has a north text and an east text, which can be read back, and a display text of both for
// a screen. The class also writes earth-centred and geographic values.
//
// Example: UTM texts are read, and written as UTMREF for a screen.
//
//     const tessara::IRef texts = tessara::CreateClassCoordinateString();
//     if (!texts->ParseCoord(utm, north, east)) return;  // "N 5334791.145" and "32 691602.66"
//     const tessara::IRef coord = tessara::CreateClassCoord();
//     if (!texts->GetCoord(coord) || !coord->SetReference(utmref) || !texts->SetCoord(coord)) return;
//     texts->SetNorthPrecision(1.0);
//     texts->SetEastPrecision(1.0);
//     texts->GetNorthDisplayText(text);  // "32UPU9160334791"
//
// Texts have 8-bit characters and don't depend on the locale: the decimal separator is a point. One blank
// separates the fields. In this table N is a number with the decimals of the text's precision:
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
// UTMREF metres are numbers without leading zeros: 42 metres are "42.000".
//
// The precision of a text is the power of ten of its last digit: -3 gives three decimals, 0 and above give
// none. It is unset until a host sets it or a text needs it; the default is -7 in GEODEZ, -5 in GEODEZMIN, 0
// in LONGPIXEL and GEOREF, and -3 in all other systems. Taking a coordinate of another system unsets both
// precisions.
//
// No text shows 60 seconds, 60 minutes or 100000 metres of a square. Where rounding up would do so, the text
// shows the position half a unit of the last digit further north or east: this carries into the next unit in
// the north and east; in the south and west the digits below the carry remain, such as 59.99.
//
// Some positions have texts that can't be read back, or only in part:
//
//   - ECEF has three values and two texts. The texts of TM lack its parameters.
//   - GK-AT has the same eastings on all three meridians, and its texts don't name the meridian. BMN and OEM
//     are read on the meridian with the nearest easting.
//   - UPS in the south is outside the limits of the system, which are those of the north.
//   - VDG is read with the origin (0, 0) only.
//   - GEOREF minutes are kept, but no precision is read with them: the position is the south-western corner
//     of the degree.
//   - Heights are in no text.
class ICoordinateString : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateString;

    // Copies a coordinate into the object; a new object holds latitude and longitude 0 on WGS84. False for
    // null and objects of another kind, which may unset both precisions, and for a datum or system that no
    // reference takes; the object keeps its coordinate then.
    virtual bool SetCoord(ICoord* coord) = 0;
    // Copies the held coordinate out. False for null and objects of another kind.
    virtual bool GetCoord(ICoord* coord) = 0;
    // Reads two texts, in the forms listed for the class, as a position of the reference, and holds it.
    //
    // Blanks before a field are skipped; none is needed after a letter; what follows the last field is
    // ignored. Most systems read capital letters only. The metres of a UTMREF are a number: "U U 34" and "32
    // P 91" are 34 and 91 metres within the square, not 34 and 91 kilometres. Without them they are 0. A
    // zone is taken as it is read.
    //
    // False, with the held coordinate unchanged, for null or an object of another kind, a text that can't be
    // read, and a position that ICoordinateChecker::CheckCoord refuses.
    virtual bool ParseCoord(ICoordinateReference* reference, ITessaraString* north, ITessaraString* east) = 0;
    // Sets the precision of a text to the greatest power of ten that isn't above the resolution, from 1e-7
    // to 1e5. The resolution is in the unit of the held system, degrees for latitudes and longitudes.
    // GEOGRAD counts in seconds and GEODEZMIN in minutes; a resolution of 60 of them or more is one step
    // coarser. Always true.
    virtual bool SetNorthPrecision(double resolution) = 0;
    virtual bool SetEastPrecision(double resolution) = 0;
    // Always true. In a system without texts the precision becomes unset.
    virtual bool SetDefaultNorthPrecision() = 0;
    virtual bool SetDefaultEastPrecision() = 0;
    // The texts of the table. False, with the text empty, for null or an object of another kind and for
    // LAMBERTCC.
    virtual bool GetNorthText(ITessaraString* text) = 0;
    virtual bool GetEastText(ITessaraString* text) = 0;
    // Earth-centred metres on the coordinate's datum, with the decimals of the finer of the two precisions,
    // none if that is unset. A pixel has no place without a map, and gives zeros. False for a position that
    // doesn't convert, with the texts empty, and for null or objects of another kind, with the texts
    // unchanged if it is one of them.
    virtual bool GetCartesianTexts(ITessaraString* x, ITessaraString* y, ITessaraString* z) = 0;
    // Degrees and metres on the coordinate's datum. Latitude and longitude have as many decimals as the
    // north and east texts of the held system, the height has three. A pixel and failures are treated as in
    // GetCartesianTexts.
    virtual bool GetGeographicTexts(ITessaraString* latitude, ITessaraString* longitude,
                                    ITessaraString* height) = 0;
    // Texts for a screen. The degree sign is the byte 0xB0, minutes have an apostrophe and seconds two:
    //
    //   UTM        northing; zone and easting, not separated
    //   UTMREF     the complete reference as each of the two texts, "32UQA0781942661": as many digits of
    //              each group as the precision stands for; with decimals a group is filled up with zeros,
    //              or cut, to 5 minus the precision characters, its point among them: "7819.000" at -3
    //   GEODEZ     the plain text with a degree sign
    //   GEOGRAD    degrees, minutes, seconds, letter; without the seconds from precision 2 on, and without
    //              the minutes from 4 on
    //   GEODEZMIN  degrees, minutes, letter; without the minutes from precision 2 on
    //   GEOREF     without blanks
    //   BNG, ING   letters, digits as in UTMREF, whole value, without blanks
    //   others     the plain text
    //
    // A conversion to UTMREF rounds to whole metres, where other libraries truncate: 48.1375 north 11.5755
    // east is "32UPU9160334791" here and 32UPU9160234791 there. Texts with fewer digits drop the last ones,
    // as elsewhere: 91999 is "91" in kilometres. tessara/kernel/utmref.h and tessara/kernel/georef.h list
    // these differences, and those on the borders of zones and bands.
    //
    // False as GetNorthText is; false also for a text that lacks a part, which is the plain text then.
    virtual bool GetNorthDisplayText(ITessaraString* text) = 0;
    virtual bool GetEastDisplayText(ITessaraString* text) = 0;

  protected:
    ~ICoordinateString() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateString* CreateClassCoordinateString();

}  // namespace tessara
