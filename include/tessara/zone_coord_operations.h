// The zones of UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT: what zone a coordinate lies in, where its central
// line and borders run, and how it reads in another zone.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_ZoneCoordOperations = ParseGuid("DD284984-BB8E-4890-A5D8-748F58C16DFC");
inline constexpr GUID IID_IZoneCoordOperations = ParseGuid("64B1999A-FA32-4F61-85A3-55796E0FD00F");

class IZoneCoordOperations : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IZoneCoordOperations;

    // True for the seven zoned systems.
    virtual bool HasZones(ICoord* coord) = 0;
    // The four limits of a zone around a position, in the order north, east, south, west. Each is written in
    // the coordinate's own zone, with its height and without a wanted zone; the two coordinates may be one.
    // Borders are drawn 1e-9 degrees outside the zone, and in UTMREF rounded to whole metres.
    //
    // GetEastBorder: where a walk due grid north, at the coordinate's easting, leaves the zone. 1 and the
    // place in `out`; 0 if the walk comes to the limit of the system before any border, as on the central
    // meridian; -1 for null or foreign objects, systems without zones, zones that don't exist, and an easting
    // wider than the zone is anywhere. With 0 and -1 `out` is unchanged. The place is where the border's
    // easting differs from the coordinate's by 1e-5 m at most, in bad cases 1e-3 m.
    virtual std::int32_t GetEastBorder(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's own east border at the coordinate's northing. False, and `out` unchanged, as -1
    // above, and for a northing that no border has, as beyond the poles.
    virtual bool GetEastNeighbour(ICoord* coord, ICoord* out) = 0;
    // As GetEastBorder, on a walk due grid south.
    virtual std::int32_t GetWestBorder(ICoord* coord, ICoord* out) = 0;
    // As GetEastNeighbour, on the west border.
    virtual bool GetWestNeighbour(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's central line at the coordinate's northing. False for a system without zones, a
    // UTMREF zone outside 1..60 and a BMN or OEM meridian other than 28, 31 and 34; in UTM, GK, GK6 and GK-AT
    // the number of the zone isn't looked at.
    virtual bool GetZoneCentre(ICoord* coord, ICoord* out) = 0;
    // The zone: 1..60 in UTM and UTMREF, the strip number in GK and GK6, the meridian 28, 31 or 34 in BMN,
    // OEM and GK-AT. -2147483648 for other systems and for what can't be read.
    virtual std::int32_t GetZoneNumber(ICoord* coord) = 0;
    // What a strip number counts for in a GK or GK6 easting: 1000000; -2147483648 for systems without zones.
    virtual std::int32_t GetZoneFactor(ICoord* coord) = 0;
    // Relabels the same grid values into the zone `delta` steps east; it doesn't convert. UTM zones and
    // strips close around the earth. Any wanted zone or meridian is cleared. False for systems without zones,
    // for an Austrian meridian that would lie outside 28..34, for a UTMREF of a zone outside 1..60, for
    // letters that don't exist and for an easting without a strip; the coordinate is then unchanged.
    virtual bool MoveToZone(std::int32_t delta, ICoord* coord) = 0;
    // GetEastNeighbour and GetWestNeighbour where the zone is widest: on the equator, for the Austrian
    // systems at their southern limit, 45 degrees on the central meridian.
    virtual bool GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;
    virtual bool GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;

  protected:
    ~IZoneCoordOperations() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IZoneCoordOperations* CreateClassZoneCoordOperations();

}  // namespace tessara
