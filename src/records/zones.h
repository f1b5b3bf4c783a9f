// The zones of UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT, on records. These are the leaves: they call nothing
// but each other, and everything that asks about zones stands on them.
#pragma once

#include <cstdint>
#include <string_view>

#include "tessara/kernel/koord.h"

namespace tessara {

// The squares of UTMREF are lettered along both axes without I and O.
inline constexpr std::string_view SQUARE_LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ";

// A GK or GK6 easting apart: the strip, and the distance from its zero, which is positive in western strips,
// too.
struct StripEasting {
    std::int32_t strip;
    double offset;
};

namespace zones {

[[nodiscard]] bool Exist(std::int32_t system);

// The zone of a record: 1..60 in UTM and UTMREF, the strip in GK and GK6, the meridian in the Austrian
// systems; UNKNOWN_ZONE without zones.
[[nodiscard]] std::int32_t Number(const tagKOORD& record);

// What a strip counts for in a GK or GK6 easting, in metres; UNKNOWN_ZONE without zones.
[[nodiscard]] std::int32_t Factor(const tagKOORD& record);

// False for other systems and for an easting without a strip; *parts is then unchanged.
bool SplitStrip(const tagKOORD& record, StripEasting* parts);
// Rebuilds the easting.
[[nodiscard]] double JoinStrip(const StripEasting& parts);

// The east value within the zone: a strip's offset, otherwise the easting. Both grow eastward in every zone.
// NaN without zones, in UTMREF, and for an easting without a strip.
[[nodiscard]] double East(const tagKOORD& record);
// Writes it; the zone stays. Does nothing where East is NaN.
void SetEast(double east, tagKOORD* record);

// From the central meridian to the border, in degrees; 0.0 without zones.
[[nodiscard]] double HalfWidth(std::int32_t system);

// The wanted zone or meridian of a record; NO_WANTED_ZONE without zones.
[[nodiscard]] std::int16_t Wanted(const tagKOORD& record);
void Want(std::int16_t wanted, tagKOORD* record);

// Puts the record on its zone's central line; the northing stays. False without zones or in a zone that
// doesn't exist; the record is then unchanged.
bool MoveToCentre(tagKOORD* record);

// Relabels the record into the zone `delta` steps east and clears any wanted zone or meridian. False as the
// interface says; the record is then unchanged.
bool Move(std::int32_t delta, tagKOORD* record);

}  // namespace zones

}  // namespace tessara
