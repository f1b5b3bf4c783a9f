// The zones of UTM, UTMREF, GK, GK6, BMN, OEM and GK-AT, on records. These functions call only each other;
// everything else that deals with zones builds on them.
#pragma once

#include <cstdint>
#include <string_view>

#include "tessara/kernel/koord.h"

namespace tessara {

// The letters of 100 km squares in UTMREF, without I and O.
inline constexpr std::string_view SQUARE_LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ";

// The two parts of a GK or GK6 easting: the strip, and the distance from the strip's zero, which is positive
// in western strips, too.
struct StripEasting {
    std::int32_t strip;
    double offset;
};

namespace zones {

[[nodiscard]] bool Exist(std::int32_t system);

// The zone of a record: 1..60 in UTM and UTMREF, the strip in GK and GK6, the meridian in the Austrian
// systems; UNKNOWN_ZONE for systems without zones.
[[nodiscard]] std::int32_t Number(const tagKOORD& record);

// The metres that one strip number adds to a GK or GK6 easting; UNKNOWN_ZONE for systems without zones.
[[nodiscard]] std::int32_t Factor(const tagKOORD& record);

// Splits a GK or GK6 easting. False for other systems and for an easting without a strip; *parts is then
// unchanged.
bool SplitStrip(const tagKOORD& record, StripEasting* parts);
// Rebuilds the easting from its parts.
[[nodiscard]] double JoinStrip(const StripEasting& parts);

// The east value within the zone: the offset of a strip, otherwise the easting. It increases eastward in
// every zone. NaN for systems without zones, UTMREF, and an easting without a strip.
[[nodiscard]] double East(const tagKOORD& record);
// Stores that value; the zone stays. Does nothing if East is NaN.
void SetEast(double east, tagKOORD* record);

// The distance from the central meridian to the border, in degrees; 0.0 for systems without zones.
[[nodiscard]] double HalfWidth(std::int32_t system);

// The wanted zone or meridian of a record; NO_WANTED_ZONE for systems without zones.
[[nodiscard]] std::int16_t Wanted(const tagKOORD& record);
void Want(std::int16_t wanted, tagKOORD* record);

// Moves the record onto the central line of its zone; the northing stays. False for a system without zones
// or a zone that doesn't exist; the record is then unchanged.
bool MoveToCentre(tagKOORD* record);

// Relabels the record into the zone `delta` steps east and clears any wanted zone or meridian. False for a
// system without zones, an Austrian meridian outside 28..34, a UTMREF zone outside 1..60, letters that don't
// exist and an easting without a strip; the record is then unchanged.
bool Move(std::int32_t delta, tagKOORD* record);

}  // namespace zones

}  // namespace tessara
