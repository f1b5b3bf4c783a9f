// The zones of UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT: the zone of a coordinate, its borders and its
// central line.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_ZoneCoordOperations = ParseGuid("DD284984-BB8E-4890-A5D8-748F58C16DFC");
inline constexpr GUID IID_IZoneCoordOperations = ParseGuid("64B1999A-FA32-4F61-85A3-55796E0FD00F");

// Example: the zone of a UTM position, and the point of the zone's east border at the same northing.
//
//     const tessara::IRef zones = tessara::CreateClassZoneCoordOperations();
//     const tessara::IRef border = tessara::CreateClassCoord();
//     const std::int32_t zone = zones->GetZoneNumber(munich);  // 32
//     if (!zones->GetEastNeighbour(munich, border)) return;    // longitude 12, in zone 32
class IZoneCoordOperations : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IZoneCoordOperations;

    // True for the seven systems with zones.
    virtual bool HasZones(ICoord* coord) = 0;
    // The four limits of a zone around a position come in the order north, east, south, west. Each operation
    // writes its place in the coordinate's own zone, with its height and without a wanted zone; `coord` and
    // `out` may be one object. A place on a border is 1e-9 degrees outside the zone, and in UTMREF it is
    // rounded to whole metres.
    //
    // GetEastBorder walks due grid north at the coordinate's easting to where that easting leaves the zone.
    // 1, with the place in `out`; 0 if the walk reaches the limit of the system before any border, as on the
    // central meridian; -1 for null or objects of another kind, a system without zones, a zone that doesn't
    // exist, and an easting at which the zone has no points. With 0 and -1 `out` is unchanged. The easting
    // of the border there differs from the coordinate's by at most 1e-5 m, in bad cases 1e-3 m.
    virtual std::int32_t GetEastBorder(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's own east border at the coordinate's northing. False, with `out` unchanged,
    // where GetEastBorder is -1, and for a northing that no border has, as beyond the poles.
    virtual bool GetEastNeighbour(ICoord* coord, ICoord* out) = 0;
    // GetEastBorder for a walk due grid south.
    virtual std::int32_t GetWestBorder(ICoord* coord, ICoord* out) = 0;
    // GetEastNeighbour for the west border.
    virtual bool GetWestNeighbour(ICoord* coord, ICoord* out) = 0;
    // The point of the zone's central line at the coordinate's northing. False for a system without zones, a
    // UTMREF zone outside 1..60 and a BMN or OEM meridian other than 28, 31 and 34; in UTM, GK, GK6 and
    // GK-AT the number of the zone isn't checked.
    virtual bool GetZoneCentre(ICoord* coord, ICoord* out) = 0;
    // The zone: 1..60 in UTM and UTMREF, the strip number in GK and GK6, the meridian 28, 31 or 34 in BMN,
    // OEM and GK-AT. UNKNOWN_ZONE (-2147483648) for other systems and for a coordinate that can't be read.
    virtual std::int32_t GetZoneNumber(ICoord* coord) = 0;
    // 1000000, by which a GK or GK6 easting multiplies its strip number; UNKNOWN_ZONE (-2147483648) for
    // systems without zones.
    virtual std::int32_t GetZoneFactor(ICoord* coord) = 0;
    // Relabels the coordinate with the zone `delta` steps to the east and keeps its grid values: it moves,
    // and isn't converted. UTM zones and strips continue around the earth. A wanted zone or meridian is
    // cleared. False, with the coordinate unchanged, for systems without zones, an Austrian meridian that
    // would be outside 28..34, a UTMREF zone outside 1..60, letters that don't exist, and an easting without
    // a strip.
    virtual bool MoveToZone(std::int32_t delta, ICoord* coord) = 0;
    // GetEastNeighbour and GetWestNeighbour where the zone is widest: on the equator, or for the Austrian
    // systems at their southern limit, 45 degrees on the central meridian.
    virtual bool GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;
    virtual bool GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;

  protected:
    ~IZoneCoordOperations() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IZoneCoordOperations* CreateClassZoneCoordOperations();

}  // namespace tessara
