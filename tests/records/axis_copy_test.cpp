#include "records/axis_copy.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/records.h"

namespace tessara {
namespace {

template <class Payload>
Payload FilledWith(int byte) {
    Payload payload;
    std::memset(&payload, byte, sizeof payload);
    return payload;
}

// Copies an axis between two records that differ in every byte. Expects the bytes of the target, except for
// the fields that `copied` takes from the source.
template <class Payload, class Copied>
void ExpectCopies(Axis axis, std::int32_t type, Copied copied) {
    const auto from = FilledWith<Payload>(0x11);
    const auto to = FilledWith<Payload>(0x22);
    tagKOORD target = Record(type, to);
    ASSERT_TRUE(CopyAxis(axis, Record(type, from), &target)) << type;
    Payload expected = to;
    copied(from, expected);
    const auto result = Load<Payload>(target);
    EXPECT_EQ(std::memcmp(&result, &expected, sizeof result), 0) << type;
}

TEST(CopyAxis, PixelsCopyTheColumnOrTheRow) {
    ExpectCopies<LongPixelPayload>(Axis::East, KOORD_LONGPIXEL, [](auto& s, auto& t) { t.x = s.x; });
    ExpectCopies<LongPixelPayload>(Axis::North, KOORD_LONGPIXEL, [](auto& s, auto& t) { t.y = s.y; });
    ExpectCopies<FloatPixelPayload>(Axis::East, KOORD_FLOATPIXEL, [](auto& s, auto& t) { t.x = s.x; });
    ExpectCopies<FloatPixelPayload>(Axis::North, KOORD_FLOATPIXEL, [](auto& s, auto& t) { t.y = s.y; });
}

TEST(CopyAxis, UtmCopiesTheZoneWithTheEastingAndTheHemisphereWithTheNorthing) {
    ExpectCopies<UtmPayload>(Axis::East, KOORD_UTM, [](auto& s, auto& t) {
        t.zone = s.zone;
        t.easting = s.easting;
        t.wantedZone = s.wantedZone;
    });
    ExpectCopies<UtmPayload>(Axis::North, KOORD_UTM, [](auto& s, auto& t) {
        t.hemisphere = s.hemisphere;
        t.northing = s.northing;
    });
}

TEST(CopyAxis, UtmrefCopiesTheColumnOrTheBandAndRow) {
    ExpectCopies<UtmrefPayload>(Axis::North, KOORD_UTMREF, [](auto& s, auto& t) {
        t.band = s.band;
        t.row = s.row;
        t.northing = s.northing;
    });
    // Zones of 0x1111 and 0x2222 differ in parity; the row then walks, which the tests below look at.
    ExpectCopies<UtmrefPayload>(Axis::East, KOORD_UTMREF, [](auto& s, auto& t) {
        t.zone = s.zone;
        t.column = s.column;
        t.easting = s.easting;
        t.wantedZone = s.wantedZone;
        t.row = static_cast<char>(t.row - 5);
    });
}

TEST(CopyAxis, GeographicFormsCopyTheirLongitudeOrLatitude) {
    ExpectCopies<GeodezPayload>(Axis::East, KOORD_GEODEZ,
                                [](auto& s, auto& t) { t.longitude = s.longitude; });
    ExpectCopies<GeodezPayload>(Axis::North, KOORD_GEODEZ, [](auto& s, auto& t) { t.latitude = s.latitude; });
    ExpectCopies<GeogradPayload>(Axis::East, KOORD_GEOGRAD, [](auto& s, auto& t) {
        t.lonDegrees = s.lonDegrees;
        t.lonMinutes = s.lonMinutes;
        t.lonSeconds = s.lonSeconds;
        t.lonHemisphere = s.lonHemisphere;
    });
    ExpectCopies<GeogradPayload>(Axis::North, KOORD_GEOGRAD, [](auto& s, auto& t) {
        t.latDegrees = s.latDegrees;
        t.latMinutes = s.latMinutes;
        t.latSeconds = s.latSeconds;
        t.latHemisphere = s.latHemisphere;
    });
    ExpectCopies<GeodezMinPayload>(Axis::East, KOORD_GEODEZMIN, [](auto& s, auto& t) {
        t.lonDegrees = s.lonDegrees;
        t.lonMinutes = s.lonMinutes;
        t.lonHemisphere = s.lonHemisphere;
    });
    ExpectCopies<GeodezMinPayload>(Axis::North, KOORD_GEODEZMIN, [](auto& s, auto& t) {
        t.latDegrees = s.latDegrees;
        t.latMinutes = s.latMinutes;
        t.latHemisphere = s.latHemisphere;
    });
}

TEST(CopyAxis, StripsCopyTheWantedMeridianWithTheEasting) {
    for (const std::int32_t type : {KOORD_GK, KOORD_GK6}) {
        ExpectCopies<GkPayload>(Axis::East, type, [](auto& s, auto& t) {
            t.easting = s.easting;
            t.wantedMeridian = s.wantedMeridian;
        });
        ExpectCopies<GkPayload>(Axis::North, type, [](auto& s, auto& t) {
            t.letter = s.letter;
            t.northing = s.northing;
        });
    }
}

TEST(CopyAxis, AustrianGridsCopyTheMeridiansWithTheEasting) {
    for (const std::int32_t type : {KOORD_BMN, KOORD_OEM, KOORD_GKAT}) {
        ExpectCopies<BmnPayload>(Axis::East, type, [](auto& s, auto& t) {
            t.wantedMeridian = s.wantedMeridian;
            t.meridian = s.meridian;
            t.easting = s.easting;
        });
        ExpectCopies<BmnPayload>(Axis::North, type, [](auto& s, auto& t) { t.northing = s.northing; });
    }
}

TEST(CopyAxis, PlainGridsCopyOneValue) {
    for (const std::int32_t type : {KOORD_CH, KOORD_PO_MILITARY, KOORD_RD, KOORD_LUREF}) {
        ExpectCopies<GridPayload>(Axis::East, type, [](auto& s, auto& t) { t.easting = s.easting; });
        ExpectCopies<GridPayload>(Axis::North, type, [](auto& s, auto& t) { t.northing = s.northing; });
    }
}

TEST(CopyAxis, EcefCopiesTheEquatorialPlaneOrTheAxis) {
    ExpectCopies<EcefPayload>(Axis::East, KOORD_ECEF, [](auto& s, auto& t) {
        t.x = s.x;
        t.y = s.y;
    });
    ExpectCopies<EcefPayload>(Axis::North, KOORD_ECEF, [](auto& s, auto& t) { t.z = s.z; });
}

TEST(CopyAxis, ProjectionsWithParametersCopyThoseOfTheAxis) {
    ExpectCopies<UpsPayload>(Axis::East, KOORD_UPS, [](auto& s, auto& t) { t.easting = s.easting; });
    ExpectCopies<UpsPayload>(Axis::North, KOORD_UPS, [](auto& s, auto& t) {
        t.hemisphere = s.hemisphere;
        t.northing = s.northing;
    });
    ExpectCopies<TmPayload>(Axis::East, KOORD_TM, [](auto& s, auto& t) {
        t.falseEasting = s.falseEasting;
        t.originLongitude = s.originLongitude;
        t.easting = s.easting;
    });
    ExpectCopies<TmPayload>(Axis::North, KOORD_TM, [](auto& s, auto& t) {
        t.falseNorthing = s.falseNorthing;
        t.originLatitude = s.originLatitude;
        t.northing = s.northing;
    });
    ExpectCopies<VdgPayload>(Axis::East, KOORD_VDG, [](auto& s, auto& t) { t.x = s.x; });
    ExpectCopies<VdgPayload>(Axis::North, KOORD_VDG, [](auto& s, auto& t) { t.y = s.y; });
}

TEST(CopyAxis, OtherTypesAreRefusedAndLeaveTheTarget) {
    for (const std::int32_t type : {23, 24, 999, -1}) {
        tagKOORD target = Record(type, FilledWith<TmPayload>(0x22));
        const tagKOORD before = target;
        for (const Axis axis : {Axis::East, Axis::North}) {
            EXPECT_FALSE(CopyAxis(axis, Record(type, FilledWith<TmPayload>(0x11)), &target));
        }
        EXPECT_EQ(std::memcmp(&target, &before, sizeof target), 0);
    }
}

char RowAfterEastCopy(std::int16_t sourceZone, std::int16_t targetZone, char targetRow) {
    UtmrefPayload from{};
    from.zone = sourceZone;
    UtmrefPayload to{};
    to.zone = targetZone;
    to.row = targetRow;
    tagKOORD target = Record(KOORD_UTMREF, to);
    EXPECT_TRUE(CopyAxis(Axis::East, Record(KOORD_UTMREF, from), &target));
    return Load<UtmrefPayload>(target).row;
}

// In an even zone the row letters are five further on than in an odd one: at the equator, row A of zone 33
// corresponds to row F of zone 32.
TEST(CopyUtmrefEast, TheRowStaysOnTheSameGround) {
    EXPECT_EQ(RowAfterEastCopy(33, 32, 'F'), 'A');
    EXPECT_EQ(RowAfterEastCopy(32, 33, 'A'), 'F');
}

TEST(CopyUtmrefEast, TheWalkLeavesOutIAndO) {
    EXPECT_EQ(RowAfterEastCopy(32, 33, 'F'), 'L');
    EXPECT_EQ(RowAfterEastCopy(32, 33, 'L'), 'R');
    EXPECT_EQ(RowAfterEastCopy(33, 32, 'L'), 'F');
    EXPECT_EQ(RowAfterEastCopy(33, 32, 'R'), 'L');
}

TEST(CopyUtmrefEast, TheWalkClosesBetweenVAndA) {
    EXPECT_EQ(RowAfterEastCopy(32, 33, 'T'), 'C');  // U V A B C
    EXPECT_EQ(RowAfterEastCopy(33, 32, 'B'), 'S');  // A V U T S
}

TEST(CopyUtmrefEast, ZonesOfOneParityKeepTheRow) {
    EXPECT_EQ(RowAfterEastCopy(31, 33, 'f'), 'f');
    EXPECT_EQ(RowAfterEastCopy(32, 60, 'F'), 'F');
}

TEST(CopyUtmrefEast, TheWalkIsInUpperCase) {
    EXPECT_EQ(RowAfterEastCopy(33, 32, 'f'), 'A');
}

TEST(CopyAxis, GeorefTakesTheFinerPrecisionAndLeavesTheOtherAxis) {
    GeorefPayload from{};
    from.precision = 5;
    from.lonZone = 'N';
    from.lonDegree = 'K';
    from.lonMinutes = 1234;
    from.latMinutes = 4321;
    GeorefPayload to{};
    to.precision = 3;
    to.latZone = 'K';
    to.latDegree = 'B';
    to.latMinutes = 43;
    tagKOORD target = Record(KOORD_GEOREF, to);
    ASSERT_TRUE(CopyAxis(Axis::East, Record(KOORD_GEOREF, from), &target));
    auto result = Load<GeorefPayload>(target);
    EXPECT_EQ(result.precision, 5);
    EXPECT_EQ(result.lonZone, 'N');
    EXPECT_EQ(result.lonDegree, 'K');
    EXPECT_EQ(result.lonMinutes, 1234);
    EXPECT_EQ(result.latZone, 'K');
    EXPECT_EQ(result.latDegree, 'B');
    EXPECT_EQ(result.latMinutes, 43);

    target = Record(KOORD_GEOREF, from);
    ASSERT_TRUE(CopyAxis(Axis::North, Record(KOORD_GEOREF, to), &target));
    result = Load<GeorefPayload>(target);
    EXPECT_EQ(result.precision, 5) << "a coarser source doesn't lower it";
    EXPECT_EQ(result.latMinutes, 43);
    EXPECT_EQ(result.lonMinutes, 1234);
}

LetterGridPayload FullValues(double easting, double northing) {
    LetterGridPayload payload{};
    payload.fullEasting = easting;
    payload.fullNorthing = northing;
    return payload;
}

// TG 51409 13177 is the square of 651409 313177; TQ 30000 80000 that of 530000 180000.
TEST(CopyAxis, TheBritishGridRenewsLettersAndValues) {
    tagKOORD target = Record(KOORD_BNG, FullValues(651409.0, 313177.0));
    ASSERT_TRUE(CopyAxis(Axis::North, Record(KOORD_BNG, FullValues(530000.0, 180000.5)), &target));
    auto result = Load<LetterGridPayload>(target);
    EXPECT_EQ(std::string({result.square, result.subSquare}), "TR");
    // The full values go through the projection and back, which costs up to 2e-6 m.
    EXPECT_NEAR(result.fullEasting, 651409.0, 4e-6);
    EXPECT_NEAR(result.fullNorthing, 180000.5, 4e-6);
    EXPECT_EQ(result.northing, 80000.0);
}

// Dublin's square: 315000 234000 is IO 15000 34000; 215000 lies in IN.
TEST(CopyAxis, AnIrishNorthingChangesTheSquareButNoEasting) {
    tagKOORD target = Record(KOORD_ING, FullValues(315000.0, 134000.0), 97);
    ASSERT_TRUE(CopyAxis(Axis::North, Record(KOORD_ING, FullValues(215000.0, 234000.0), 97), &target));
    const auto result = Load<LetterGridPayload>(target);
    EXPECT_EQ(std::string({result.square, result.subSquare}), "IO");
    EXPECT_NEAR(result.fullEasting, 315000.0, 4e-6);
    EXPECT_NEAR(result.fullNorthing, 234000.0, 4e-6);
    EXPECT_EQ(target.datum, 97u) << "the renewal on WGS84 is a scratch";
}

}  // namespace
}  // namespace tessara
