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
    // Where a walk from the coordinate at constant easting, due grid north (East) or due grid south (West),
    // leaves the zone: 1 and the place in `out`, 0 if the walk meets no border before the limit of the
    // system, -1 for a failure.
    virtual std::int32_t GetEastBorder(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's own east border at the coordinate's northing, written in the coordinate's zone.
    virtual bool GetEastNeighbour(ICoord* coord, ICoord* out) = 0;
    // As GetEastBorder, due grid south.
    virtual std::int32_t GetWestBorder(ICoord* coord, ICoord* out) = 0;
    // As GetEastNeighbour, on the west border.
    virtual bool GetWestNeighbour(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's central line at the coordinate's northing. False for a system without zones or
    // a zone that doesn't exist.
    virtual bool GetZoneCentre(ICoord* coord, ICoord* out) = 0;
    // The zone: 1..60 in UTM and UTMREF, the strip number in GK and GK6, the meridian 28, 31 or 34 in BMN,
    // OEM and GK-AT. -2147483648 for other systems and for what can't be read.
    virtual std::int32_t GetZoneNumber(ICoord* coord) = 0;
    // What a strip number counts for in a GK or GK6 easting: 1000000; -2147483648 for systems without zones.
    virtual std::int32_t GetZoneFactor(ICoord* coord) = 0;
    // Relabels the same grid values into the zone `delta` steps east; it doesn't convert. UTM zones and
    // strips close around the earth. Any wanted zone or meridian is cleared. False for systems without zones,
    // for an Austrian meridian outside 28..34 and for letters that don't exist; the coordinate is then
    // unchanged.
    virtual bool MoveToZone(std::int32_t delta, ICoord* coord) = 0;
    // GetEastNeighbour and GetWestNeighbour of the zone's foot on the equator.
    virtual bool GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;
    virtual bool GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;

  protected:
    ~IZoneCoordOperations() = default;
};

// A new one with count 0, or null without memory.
extern "C" TESSARA_API IZoneCoordOperations* CreateClassZoneCoordOperations();

}  // namespace tessara
