// Coordinates and references in a line, and the record behind a coordinate.
#pragma once

#include <gtest/gtest.h>

#include <cstring>

#include "support/objects.h"
#include "tessara/ckoord.h"
#include "tessara/kernel/constants.h"

namespace tessara::testing {

[[nodiscard]] inline IRef<ICoordinateReference> MakeReference(std::int32_t datum, std::int32_t system) {
    IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    EXPECT_TRUE(reference->SetDatum(datum) && reference->SetSystem(system));
    return reference;
}

// A record with the payload that is given, zeros behind it, and the height that the record tells.
template <KoordPayload Payload>
[[nodiscard]] CKoord MakeRecord(std::int32_t datum, std::int32_t system, const Payload& payload) {
    tagKOORD record = MakeKoord(datum, system);
    Store(record, payload);
    return CKoord(record);
}

[[nodiscard]] inline CKoord UtmRecord(std::int32_t datum, char hemisphere, std::int16_t zone, double easting,
                                      double northing) {
    UtmPayload payload{};
    payload.hemisphere = hemisphere;
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = zone;
    payload.easting = easting;
    payload.northing = northing;
    return MakeRecord(datum, KOORD_UTM, payload);
}

// GK or GK6.
[[nodiscard]] inline CKoord StripRecord(std::int32_t datum, std::int32_t system, double easting,
                                        double northing) {
    GkPayload payload{};
    payload.letter = 'N';
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.easting = easting;
    payload.northing = northing;
    return MakeRecord(datum, system, payload);
}

// BMN, OEM or GK-AT.
[[nodiscard]] inline CKoord AustrianRecord(std::int32_t datum, std::int32_t system, std::int16_t meridian,
                                           double easting, double northing) {
    BmnPayload payload{};
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.meridian = meridian;
    payload.easting = easting;
    payload.northing = northing;
    return MakeRecord(datum, system, payload);
}

[[nodiscard]] inline CKoord UtmrefRecord(std::int32_t datum, std::int16_t zone, const char* bandColumnRow,
                                         std::int32_t easting, std::int32_t northing) {
    UtmrefPayload payload{};
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = zone;
    payload.band = bandColumnRow[0];
    payload.column = bandColumnRow[1];
    payload.row = bandColumnRow[2];
    payload.easting = easting;
    payload.northing = northing;
    return MakeRecord(datum, KOORD_UTMREF, payload);
}

// An invalid coordinate of a reference.
[[nodiscard]] inline IRef<ICoord> MakeEmptyCoord(std::int32_t datum, std::int32_t system) {
    IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(coord->SetReference(MakeHostReference(datum, system).Get()));
    return coord;
}

[[nodiscard]] inline IRef<ICoord> MakeCoord(const CKoord& koord) {
    IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(IRef<ICoordInternal>(coord)->SetKoord(&koord));
    return coord;
}

[[nodiscard]] inline CKoord KoordOf(const IRef<ICoord>& coord) {
    CKoord koord;
    EXPECT_TRUE(IRef<ICoordInternal>(coord)->GetKoord(&koord));
    return koord;
}

template <KoordPayload Payload>
[[nodiscard]] Payload PayloadOf(const IRef<ICoord>& coord) {
    return Load<Payload>(KoordOf(coord));
}

[[nodiscard]] inline bool SameRecord(const tagKOORD& left, const tagKOORD& right) {
    return std::memcmp(&left, &right, sizeof(tagKOORD)) == 0;
}

// Whether a coordinate holds a position. The look destroys the position: a coordinate without one follows any
// reference, one with a position doesn't follow into a system that nothing converts into.
[[nodiscard]] inline bool HeldPosition(const IRef<ICoord>& coord) {
    double x = 0.0;
    double y = 0.0;
    const auto nowhere = MakeHostReference(-77, NO_SYSTEM);
    return coord->GetPixel(&x, &y) || !coord->SetReference(nowhere.Get());
}

}  // namespace tessara::testing
