#include "text/read_text.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/records.h"
#include "tessara/ckoord.h"

namespace tessara {
namespace {

// The record that two texts are, on WGS84.
std::optional<tagKOORD> Read(std::int32_t system, std::string_view north, std::string_view east) {
    tagKOORD record = MakeKoord(DATUM_WGS84, system);
    return text::Read(north, east, &record) ? std::optional(record) : std::nullopt;
}

template <class Payload>
Payload PayloadRead(std::int32_t system, std::string_view north, std::string_view east) {
    const std::optional<tagKOORD> record = Read(system, north, east);
    EXPECT_TRUE(record) << north << " / " << east;
    return record ? Load<Payload>(*record) : Payload{};
}

TEST(TextRead, Pixels) {
    const auto whole = PayloadRead<LongPixelPayload>(KOORD_LONGPIXEL, "-7", "12");
    EXPECT_EQ(whole.x, 12);
    EXPECT_EQ(whole.y, -7);
    const auto fraction = PayloadRead<FloatPixelPayload>(KOORD_FLOATPIXEL, "-7.5", "12.25");
    EXPECT_EQ(fraction.x, 12.25);
    EXPECT_EQ(fraction.y, -7.5);
}

TEST(TextRead, UtmTakesTheZoneAsItStands) {
    const auto utm = PayloadRead<UtmPayload>(KOORD_UTM, "N 5400000.000", "32 500000.000");
    EXPECT_EQ(utm.hemisphere, 'N');
    EXPECT_EQ(utm.northing, 5400000.0);
    EXPECT_EQ(utm.zone, 32);
    EXPECT_EQ(utm.easting, 500000.0);
    EXPECT_EQ(utm.wantedZone, NO_WANTED_ZONE);
    EXPECT_EQ(PayloadRead<UtmPayload>(KOORD_UTM, "S5400000", "032 500000").hemisphere, 'S');
    EXPECT_EQ(PayloadRead<UtmPayload>(KOORD_UTM, "S5400000", "032 500000").zone, 32);
    EXPECT_EQ(PayloadRead<UtmPayload>(KOORD_UTM, "n 1", "-5 1").hemisphere, 'n');
    EXPECT_EQ(PayloadRead<UtmPayload>(KOORD_UTM, "n 1", "-5 1").zone, -5);
    EXPECT_FALSE(Read(KOORD_UTM, "N 5400000", "70000 500000"));
    EXPECT_FALSE(Read(KOORD_UTM, "N", "32 500000"));
    EXPECT_FALSE(Read(KOORD_UTM, "N 5400000", "32"));
}

TEST(TextRead, UtmrefMetresAreOptionalAndArentFilledUp) {
    const auto full = PayloadRead<UtmrefPayload>(KOORD_UTMREF, "U A 123", "32 Q 456");
    EXPECT_EQ(full.band, 'U');
    EXPECT_EQ(full.row, 'A');
    EXPECT_EQ(full.northing, 123);
    EXPECT_EQ(full.zone, 32);
    EXPECT_EQ(full.column, 'Q');
    EXPECT_EQ(full.easting, 456);
    EXPECT_EQ(full.wantedZone, NO_WANTED_ZONE);
    const auto square = PayloadRead<UtmrefPayload>(KOORD_UTMREF, "U V", "32 M");
    EXPECT_EQ(square.northing, 0);
    EXPECT_EQ(square.easting, 0);
    EXPECT_EQ(PayloadRead<UtmrefPayload>(KOORD_UTMREF, "u v", "32M").band, 'u');
    EXPECT_FALSE(Read(KOORD_UTMREF, "U A 99999999999", "32 Q 456"));
    EXPECT_FALSE(Read(KOORD_UTMREF, "U", "32 Q"));
    EXPECT_FALSE(Read(KOORD_UTMREF, "U A", "32"));
}

TEST(TextRead, Degrees) {
    const auto degrees = PayloadRead<GeodezPayload>(KOORD_GEODEZ, "48.5 and words", "-11,5");
    EXPECT_EQ(degrees.latitude, 48.5);
    EXPECT_EQ(degrees.longitude, -11.0);
    EXPECT_EQ(degrees.height, 0.0);
    for (const char* text : {"abc", "", "nan", "inf", "1e999", "12e"}) {
        EXPECT_FALSE(Read(KOORD_GEODEZ, text, "11")) << text;
        EXPECT_FALSE(Read(KOORD_GEODEZ, "11", text)) << text;
    }
}

TEST(TextRead, DegreesMinutesAndSeconds) {
    const auto full = PayloadRead<GeogradPayload>(KOORD_GEOGRAD, "N 48 5 3.25", "W11 0 59.5");
    EXPECT_EQ(full.latHemisphere, 'N');
    EXPECT_EQ(full.latDegrees, 48);
    EXPECT_EQ(full.latMinutes, 5);
    EXPECT_EQ(full.latSeconds, 3.25);
    EXPECT_EQ(full.lonHemisphere, 'W');
    EXPECT_EQ(full.lonDegrees, 11);
    EXPECT_EQ(full.lonMinutes, 0);
    EXPECT_EQ(full.lonSeconds, 59.5);
    EXPECT_FALSE(Read(KOORD_GEOGRAD, "N 48 5", "W 11 0 59.5"));
    // Whole minutes end at the point, and the seconds begin there.
    EXPECT_EQ(PayloadRead<GeogradPayload>(KOORD_GEOGRAD, "N 48 5.5 3", "W 11 0 59").latSeconds, 0.5);

    const auto minutes = PayloadRead<GeodezMinPayload>(KOORD_GEODEZMIN, "S 48 5.25", "E11 30");
    EXPECT_EQ(minutes.latHemisphere, 'S');
    EXPECT_EQ(minutes.latDegrees, 48);
    EXPECT_EQ(minutes.latMinutes, 5.25);
    EXPECT_EQ(minutes.lonHemisphere, 'E');
    EXPECT_EQ(minutes.lonDegrees, 11);
    EXPECT_EQ(minutes.lonMinutes, 30.0);
}

TEST(TextRead, GeorefHasNoPrecision) {
    const auto georef = PayloadRead<GeorefPayload>(KOORD_GEOREF, "G A 00007", "NB59");
    EXPECT_EQ(georef.latZone, 'G');
    EXPECT_EQ(georef.latDegree, 'A');
    EXPECT_EQ(georef.latMinutes, 7);
    EXPECT_EQ(georef.lonZone, 'N');
    EXPECT_EQ(georef.lonDegree, 'B');
    EXPECT_EQ(georef.lonMinutes, 59);
    EXPECT_EQ(georef.precision, 0);
    EXPECT_FALSE(Read(KOORD_GEOREF, "G A", "N B 59"));
}

TEST(TextRead, StripsWantNoMeridian) {
    for (const std::int32_t system : {KOORD_GK, KOORD_GK6}) {
        const auto gk = PayloadRead<GkPayload>(system, "5400000.5", "3500000");
        EXPECT_EQ(gk.northing, 5400000.5);
        EXPECT_EQ(gk.easting, 3500000.0);
        EXPECT_EQ(gk.wantedMeridian, NO_WANTED_ZONE);
    }
}

// The false eastings are 150, 450 and 750 km in BMN and 300 km more in OEM.
TEST(TextRead, TheMeridianOfBmnAndOemIsTheOneWithTheNearestEasting) {
    const struct {
        double fromMeridian;
        std::int16_t meridian;
        double falseEasting;
    } cases[] = {{0.0, 28, 150e3},    {-140e3, 28, 150e3}, {140e3, 28, 150e3},
                 {-140e3, 31, 450e3}, {140e3, 31, 450e3},  {0.0, 34, 750e3},
                 {-140e3, 34, 750e3}, {1e9, 34, 750e3},    {-1e9, 28, 150e3}};
    for (const auto& c : cases) {
        const std::string bmn = std::to_string(c.falseEasting + c.fromMeridian);
        const std::string oem = std::to_string(c.falseEasting + c.fromMeridian + 300e3);
        EXPECT_EQ(PayloadRead<BmnPayload>(KOORD_BMN, "200000", bmn).meridian, c.meridian) << bmn;
        EXPECT_EQ(PayloadRead<BmnPayload>(KOORD_OEM, "5200000", oem).meridian, c.meridian) << oem;
        EXPECT_EQ(PayloadRead<BmnPayload>(KOORD_BMN, "200000", bmn).wantedMeridian, NO_WANTED_ZONE);
    }
}

TEST(TextRead, TheEastingsOfGkAtTellNoMeridian) {
    const auto gkat = PayloadRead<BmnPayload>(KOORD_GKAT, "5200000", "1000");
    EXPECT_EQ(gkat.meridian, 0);
    EXPECT_EQ(gkat.wantedMeridian, NO_WANTED_ZONE);
}

TEST(TextRead, PlainGrids) {
    for (const std::int32_t system : {KOORD_CH, KOORD_PO_MILITARY, KOORD_RD, KOORD_LUREF}) {
        const auto grid = PayloadRead<GridPayload>(system, "200000.5", "600000");
        EXPECT_EQ(grid.northing, 200000.5);
        EXPECT_EQ(grid.easting, 600000.0);
    }
    const auto tm = PayloadRead<TmPayload>(KOORD_TM, "1", "2");
    EXPECT_EQ(tm.northing, 1.0);
    EXPECT_EQ(tm.easting, 2.0);
    EXPECT_EQ(tm.scale, 0.0);
    const auto ups = PayloadRead<UpsPayload>(KOORD_UPS, "N 2000000", "2100000");
    EXPECT_EQ(ups.hemisphere, 'N');
    EXPECT_EQ(ups.northing, 2000000.0);
    EXPECT_EQ(ups.easting, 2100000.0);
    const auto vdg = PayloadRead<VdgPayload>(KOORD_VDG, "20 2", "10 1");
    EXPECT_EQ(vdg.originLatitude, 20.0);
    EXPECT_EQ(vdg.y, 2.0);
    EXPECT_EQ(vdg.originLongitude, 10.0);
    EXPECT_EQ(vdg.x, 1.0);
}

TEST(TextRead, TheLettersOfTheEastTextCount) {
    const auto bng = PayloadRead<LetterGridPayload>(KOORD_BNG, "180000 TQ12345.0", "530000 SU 54321");
    EXPECT_EQ(bng.fullNorthing, 180000.0);
    EXPECT_EQ(bng.northing, 12345.0);
    EXPECT_EQ(bng.fullEasting, 530000.0);
    EXPECT_EQ(bng.easting, 54321.0);
    EXPECT_EQ(bng.square, 'S');
    EXPECT_EQ(bng.subSquare, 'U');
    const auto ing = PayloadRead<LetterGridPayload>(KOORD_ING, "180000 O 12345", "330000O54321");
    EXPECT_EQ(ing.square, '\0');
    EXPECT_EQ(ing.subSquare, 'O');
    EXPECT_EQ(ing.easting, 54321.0);
    EXPECT_FALSE(Read(KOORD_BNG, "180000", "530000 SU 54321"));
    EXPECT_FALSE(Read(KOORD_BNG, "180000 TQ 1", "530000 SU"));
}

TEST(TextRead, NoTextIsReadAsCartesianOrAsASystemWithoutTexts) {
    for (const std::int32_t system : {static_cast<std::int32_t>(KOORD_ECEF), +KOORD_LAMBERTCC, -1, 24, 999})
        EXPECT_FALSE(Read(system, "1", "2")) << system;
}

TEST(TextRead, AnEmptyTextIsNoPosition) {
    for (std::int32_t system = 0; system < KOORD_TYPE_COUNT; ++system) {
        EXPECT_FALSE(Read(system, "", "")) << system;
        EXPECT_FALSE(Read(system, " \t\n", "   ")) << system;
    }
}

}  // namespace
}  // namespace tessara
