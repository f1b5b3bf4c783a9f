#include <gtest/gtest.h>

#include <cstring>

#include "frame/tessara_string.h"
#include "support/legal_positions.h"
#include "support/live_objects.h"
#include "support/plain_records.h"
#include "support/texts.h"
#include "support/zones.h"

namespace tessara {
namespace {

using testing::DisplayTextsOf;
using testing::MakeText;
using testing::Parse;
using testing::PlainTextsOf;
using testing::StringOf;
using testing::TextPair;
using testing::Utm;

constexpr std::int32_t DATUM_GER = 3;

class CoordinateStringTest : public testing::BalancedTest {};

tagKOORD Utmref(std::int32_t easting, std::int32_t northing) {
    return testing::Utmref(32, 'U', "QA", easting, northing);
}

tagKOORD Geograd(std::int16_t latDegrees, std::int16_t latMinutes, double latSeconds) {
    GeogradPayload p{};
    p.latHemisphere = 'N';
    p.latDegrees = latDegrees;
    p.latMinutes = latMinutes;
    p.latSeconds = latSeconds;
    p.lonHemisphere = 'E';
    p.lonDegrees = 11;
    return Record(KOORD_GEOGRAD, p);
}

TEST_F(CoordinateStringTest, ANewOneHoldsTheOrigin) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"0.0000000", "0.0000000"}));
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(string->GetCoord(coord.Get()));
    EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    EXPECT_EQ(KoordOf(coord).datum, static_cast<std::uint32_t>(DATUM_WGS84));
}

TEST_F(CoordinateStringTest, KeepsACopyOfWhatItIsGiven) {
    CKoord given(GeodezRecord(48.5, 11.25, 0.0, DATUM_GER));
    given.SetHeight(512.5);
    const IRef<ICoord> coord = CoordOf(given);
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(string->SetCoord(coord.Get()));
    const CKoord other(GeodezRecord(1.0, 2.0));
    IRef<ICoordInternal>(coord)->SetKoord(&other);
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5000000", "11.2500000"}));
    const CKoord held = testing::KoordOf(string);
    EXPECT_EQ(std::memcmp(&held, &given, sizeof(tagKOORD)), 0);
    EXPECT_EQ(held.GetHeight(), 512.5);
}

TEST_F(CoordinateStringTest, ShowsUtmWithMillimetres) {
    const tagKOORD record = Utm(32, 'N', 500000.0, 5400000.0);
    EXPECT_EQ(PlainTextsOf(record), (TextPair{"N 5400000.000", "32 500000.000"}));
    EXPECT_EQ(DisplayTextsOf(record), (TextPair{"5400000.000", "32500000.000"}));
    EXPECT_EQ(PlainTextsOf(record, 0.01), (TextPair{"N 5400000.00", "32 500000.00"}));
    EXPECT_EQ(PlainTextsOf(record, 100.0), (TextPair{"N 5400000", "32 500000"}));
}

TEST_F(CoordinateStringTest, ShowsDegreesWithSevenDecimals) {
    const tagKOORD record = GeodezRecord(48.5, -0.00000001);
    EXPECT_EQ(PlainTextsOf(record), (TextPair{"48.5000000", "-0.0000000"}));
    EXPECT_EQ(DisplayTextsOf(record), (TextPair{"48.5000000\xB0", "-0.0000000\xB0"}));
}

TEST_F(CoordinateStringTest, ShowsDegreesMinutesAndSeconds) {
    const tagKOORD record = Geograd(48, 5, 3.25);
    EXPECT_EQ(PlainTextsOf(record).north, "N 48 5 3.250");
    EXPECT_EQ(DisplayTextsOf(record).north,
              "48\xB0"
              "05'3.250''N");
    EXPECT_EQ(DisplayTextsOf(record, 1.0 / 60.0).north,
              "48\xB0"
              "05'N");
    EXPECT_EQ(DisplayTextsOf(record, 1.0).north,
              "48\xB0"
              "N");
    GeodezMinPayload minutes{};
    minutes.latHemisphere = 'N';
    minutes.latDegrees = 48;
    minutes.latMinutes = 5.5;
    minutes.lonHemisphere = 'E';
    EXPECT_EQ(PlainTextsOf(Record(KOORD_GEODEZMIN, minutes)).north, "N 48 5.50000");
    EXPECT_EQ(DisplayTextsOf(Record(KOORD_GEODEZMIN, minutes)).north,
              "48\xB0"
              "05.50000'N");
    EXPECT_EQ(DisplayTextsOf(Record(KOORD_GEODEZMIN, minutes), 1.0).north,
              "48\xB0"
              "N");
}

TEST_F(CoordinateStringTest, ShowsAWholeReferenceOnBothAxes) {
    const tagKOORD record = Utmref(7819, 42661);
    EXPECT_EQ(PlainTextsOf(record, 1.0), (TextPair{"U A 42661", "32 Q 7819"}));
    EXPECT_EQ(DisplayTextsOf(record, 1.0), (TextPair{"32UQA0781942661", "32UQA0781942661"}));
    EXPECT_EQ(DisplayTextsOf(record, 100.0), (TextPair{"32UQA078426", "32UQA078426"}));
    EXPECT_EQ(DisplayTextsOf(record, 100000.0), (TextPair{"32UQA", "32UQA"}));
    EXPECT_EQ(DisplayTextsOf(Utmref(42, 7), 1.0).east, "32UQA0004200007");
    EXPECT_EQ(DisplayTextsOf(record).east, "32UQA7819.00042661.00") << "in millimetres";
}

// Each text cuts both groups by its own precision.
TEST_F(CoordinateStringTest, ADisplayOfUtmrefFollowsThePrecisionOfItsAxis) {
    const IRef<ICoordinateString> string = StringOf(Utmref(7819, 42661));
    string->SetNorthPrecision(1.0);
    string->SetEastPrecision(1000.0);
    EXPECT_EQ(DisplayTextsOf(string), (TextPair{"32UQA0781942661", "32UQA0742"}));
}

TEST_F(CoordinateStringTest, AGeorefWithoutMinutesHasAnEmptyText) {
    const IRef<ICoordinateString> string = StringOf(KoordOf(EmptyCoord(DATUM_WGS84, KOORD_GEOREF)));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"", ""}));
    EXPECT_EQ(DisplayTextsOf(string), (TextPair{"(false)", "(false)"}));
}

TEST_F(CoordinateStringTest, AFailedTextIsEmptyAndAFailedDisplayKeepsThePlainText) {
    const IRef<ICoordinateString> lambert = StringOf(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC));
    const IRef<ITessaraString> text = MakeText("left over");
    EXPECT_FALSE(lambert->GetNorthText(text.Get()));
    EXPECT_TRUE(text->IsEmpty());
    text->AssignText("left over");
    EXPECT_FALSE(lambert->GetEastDisplayText(text.Get()));
    EXPECT_TRUE(text->IsEmpty());

    const IRef<ICoordinateString> ing = StringOf(MakeKoord(DATUM_WGS84, KOORD_ING));
    EXPECT_FALSE(ing->GetNorthDisplayText(text.Get()));
    EXPECT_STREQ(text->GetText(), "0.000 ") << "a letter that is 0 ends the text";
}

TEST_F(CoordinateStringTest, AnotherSystemUnsetsThePrecisionsAndAnotherDatumDoesnt) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(48.5, 11.5));
    testing::SetResolution(string, 0.1);
    EXPECT_TRUE(string->SetCoord(CoordOf(GeodezRecord(47.5, 10.5, 0.0, DATUM_GER)).Get()));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"47.5", "10.5"}));
    EXPECT_TRUE(string->SetCoord(CoordOf(Utm(32, 'N', 500000.0, 5400000.0)).Get()));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"N 5400000.000", "32 500000.000"}));
}

TEST_F(CoordinateStringTest, ACoordinateThatCantBeCopiedUnsetsThePrecisionsAllTheSame) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(48.5, 11.5));
    testing::SetResolution(string, 0.1);
    const IRef<ICoord> hosts(NewObject<testing::HostCoord>());  // says that it is UTM
    EXPECT_FALSE(string->SetCoord(hosts.Get()));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5000000", "11.5000000"}));
}

TEST_F(CoordinateStringTest, ARecordThatNoReferenceTakesLeavesWhatIsHeld) {
    const tagKOORD record = GeodezRecord(48.5, 11.5, 7.0, DATUM_GER);
    const IRef<ICoordinateString> string = StringOf(record);
    testing::SetResolution(string, 0.1);
    for (const tagKOORD& wrong : {MakeKoord(239, KOORD_GEODEZ), MakeKoord(-1, KOORD_UTM),
                                  MakeKoord(DATUM_WGS84, 24), MakeKoord(DATUM_WGS84, -2)}) {
        EXPECT_FALSE(string->SetCoord(CoordOf(wrong).Get())) << wrong.datum << ' ' << wrong.type;
        const CKoord held = testing::KoordOf(string);
        EXPECT_EQ(std::memcmp(&held, &record, sizeof record), 0) << wrong.datum << ' ' << wrong.type;
        EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5", "11.5"})) << wrong.datum << ' ' << wrong.type;
    }
    EXPECT_TRUE(string->SetCoord(CoordOf(MakeKoord(NO_DATUM, KOORD_GEODEZ)).Get()));
    EXPECT_TRUE(string->SetCoord(CoordOf(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC)).Get()));
}

TEST_F(CoordinateStringTest, DefaultPrecisionsFollowTheSystem) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(48.5, 11.5));
    testing::SetResolution(string, 0.1);
    EXPECT_TRUE(string->SetDefaultNorthPrecision());
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5000000", "11.5"}));
    EXPECT_TRUE(string->SetDefaultEastPrecision());
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5000000", "11.5000000"}));
    EXPECT_TRUE(StringOf(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC))->SetDefaultNorthPrecision());
}

TEST_F(CoordinateStringTest, NoTextChangesTheCoordinate) {
    GeogradPayload p = Load<GeogradPayload>(Geograd(48, 59, 59.9996));
    p.latHemisphere = 'S';
    for (const tagKOORD& record : {Geograd(48, 59, 59.9996), Geograd(89, 59, 59.9999),
                                   Record(KOORD_GEOGRAD, p), Utmref(99999, 99999)}) {
        const IRef<ICoordinateString> string = StringOf(record);
        PlainTextsOf(string);
        DisplayTextsOf(string);
        const CKoord held = testing::KoordOf(string);
        EXPECT_EQ(std::memcmp(&held, &record, sizeof record), 0);
    }
}

// The figures are those of a = 6378137 m: the equator at longitude 0, 100 m up.
TEST_F(CoordinateStringTest, CartesianTexts) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(0.0, 0.0, 100.0));
    const IRef<ITessaraString> x = MakeText();
    const IRef<ITessaraString> y = MakeText();
    const IRef<ITessaraString> z = MakeText();
    EXPECT_TRUE(string->GetCartesianTexts(x.Get(), y.Get(), z.Get()));
    EXPECT_STREQ(x->GetText(), "6378237") << "no decimals while the precisions are unset";
    EXPECT_EQ(std::stod(y->GetText()), 0.0);
    EXPECT_EQ(std::stod(z->GetText()), 0.0);
    string->SetNorthPrecision(0.1);
    string->SetEastPrecision(0.001);
    EXPECT_TRUE(string->GetCartesianTexts(x.Get(), y.Get(), z.Get()));
    EXPECT_STREQ(x->GetText(), "6378237.000") << "those of the finer one";
}

// echo "48 11 500" | cs2cs -f %.3f EPSG:4979 EPSG:4978
TEST_F(CoordinateStringTest, CartesianTextsOfAPlace) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(48.0, 11.0, 500.0));
    const IRef<ITessaraString> x = MakeText();
    const IRef<ITessaraString> y = MakeText();
    const IRef<ITessaraString> z = MakeText();
    string->SetNorthPrecision(0.001);
    EXPECT_TRUE(string->GetCartesianTexts(x.Get(), y.Get(), z.Get()));
    EXPECT_STREQ(x->GetText(), "4197489.243");
    EXPECT_STREQ(y->GetText(), "815909.257");
    EXPECT_STREQ(z->GetText(), "4717247.903");
}

TEST_F(CoordinateStringTest, GeographicTextsHaveTheDecimalsOfTheHeldSystem) {
    // echo 500000 5400000 | cs2cs -f %.6f EPSG:32631 EPSG:4326
    CKoord utm(Utm(31, 'N', 500000.0, 5400000.0));
    utm.SetHeight(12.34567);
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(string->SetCoord(CoordOf(utm).Get()));
    const IRef<ITessaraString> latitude = MakeText();
    const IRef<ITessaraString> longitude = MakeText();
    const IRef<ITessaraString> height = MakeText();
    EXPECT_TRUE(string->GetGeographicTexts(latitude.Get(), longitude.Get(), height.Get()));
    EXPECT_STREQ(latitude->GetText(), "48.753");
    EXPECT_STREQ(longitude->GetText(), "3.000");
    EXPECT_STREQ(height->GetText(), "12.346") << "always three decimals";
}

TEST_F(CoordinateStringTest, ViewsOfWhatDoesntConvertAreEmpty) {
    const IRef<ICoordinateString> string = StringOf(Utm(99, 'N', 500000.0, 0.0));
    const IRef<ITessaraString> a = MakeText("a");
    const IRef<ITessaraString> b = MakeText("b");
    const IRef<ITessaraString> c = MakeText("c");
    EXPECT_FALSE(string->GetCartesianTexts(a.Get(), b.Get(), c.Get()));
    EXPECT_TRUE(a->IsEmpty() && b->IsEmpty() && c->IsEmpty());
    a->AssignText("a");
    EXPECT_FALSE(string->GetGeographicTexts(a.Get(), b.Get(), c.Get()));
    EXPECT_TRUE(a->IsEmpty());
}

// No map is asked, so the views are those of the system's default position.
TEST_F(CoordinateStringTest, ViewsOfAPixelAreZeros) {
    for (const tagKOORD& pixel : {testing::LongPixel(7, 8), testing::FloatPixel(7.5, 8.5)}) {
        const IRef<ICoordinateString> string = StringOf(pixel);
        const IRef<ITessaraString> a = MakeText();
        const IRef<ITessaraString> b = MakeText();
        const IRef<ITessaraString> c = MakeText();
        EXPECT_TRUE(string->GetCartesianTexts(a.Get(), b.Get(), c.Get()));
        for (const auto& text : {a, b, c})
            EXPECT_STREQ(text->GetText(), "0");
        EXPECT_TRUE(string->GetGeographicTexts(a.Get(), b.Get(), c.Get()));
        for (const auto& text : {a, b, c})
            EXPECT_EQ(std::stod(text->GetText()), 0.0);
    }
}

TEST_F(CoordinateStringTest, ReadsWhatItWrote) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(Parse(string, KOORD_UTM, "N 5400000.000", "32 500000.000"));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"N 5400000.000", "32 500000.000"}));
    EXPECT_TRUE(Parse(string, KOORD_UTMREF, "U V", "32 M"));
    EXPECT_EQ(Load<UtmrefPayload>(testing::KoordOf(string)).easting, 0);
    EXPECT_TRUE(Parse(string, KOORD_UTM, "S5400000", "32 500000"));
    EXPECT_TRUE(Parse(string, KOORD_GEODEZ, "48.5 followed by words", "11"));
    EXPECT_TRUE(Parse(string, KOORD_GEODEZ, "48,5", "11"));
    EXPECT_EQ(PlainTextsOf(string).north, "48.0000000");
}

TEST_F(CoordinateStringTest, HoldsOnlyLegalPositions) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_FALSE(Parse(string, KOORD_GEODEZ, "91.0", "11"));
    EXPECT_FALSE(Parse(string, KOORD_UTMREF, "u A 42661", "32 Q 7819")) << "a small band letter";
    EXPECT_FALSE(Parse(string, KOORD_UTM, "N 5400000", "32.5 500000")) << "the easting is .5";
    EXPECT_FALSE(Parse(string, KOORD_UTM, "N 5400000", "32 900000")) << "outside the zone";
    EXPECT_FALSE(Parse(string, KOORD_GEOREF, "I O 00", "N B 59")) << "no letters of GEOREF";
    EXPECT_FALSE(Parse(string, KOORD_GEODEZ, "48", "11", NO_DATUM));
    EXPECT_FALSE(Parse(string, KOORD_UTM, "N 5400000", "32 500000", NO_DATUM));
    EXPECT_TRUE(Parse(string, KOORD_FLOATPIXEL, "1", "2", NO_DATUM));
}

// `echo 10UBB9125896894 | GeoConvert -p 6` gives the longitude -125.99999936; a metre is 0.0000144 degrees.
TEST_F(CoordinateStringTest, AReferenceAtTheBorderOfItsZoneIsRead) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(Parse(string, KOORD_UTMREF, "U B 96894", "10 B 91258"));
    EXPECT_TRUE(Parse(string, KOORD_UTMREF, "U B 96894", "10 B 91259"));
    EXPECT_TRUE(Parse(string, KOORD_UTMREF, "U B 96894", "10 B 91260"));
    EXPECT_FALSE(Parse(string, KOORD_UTMREF, "U B 96894", "10 B 91256")) << "outside the zone";
}

// Letters keep their case, and only S and W change the sign.
TEST_F(CoordinateStringTest, ASmallHemisphereIsNorthInDegreesMinutesAndSeconds) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(Parse(string, KOORD_GEOGRAD, "s 48 0 0", "E 11 0 0"));
    const IRef<ICoord> coord(CreateClassCoord());
    string->GetCoord(coord.Get());
    ASSERT_TRUE(coord->SetReference(ReferenceOf(DATUM_WGS84, KOORD_GEODEZ).Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 48.0);
    EXPECT_TRUE(Parse(string, KOORD_UTM, "n 5400000", "32 500000"));
    EXPECT_EQ(Load<UtmPayload>(testing::KoordOf(string)).hemisphere, 'n');
}

TEST_F(CoordinateStringTest, MinutesAbove59AreCounted) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(Parse(string, KOORD_GEOGRAD, "N 48 75 0", "E 11 0 0"));
    const IRef<ICoord> coord(CreateClassCoord());
    string->GetCoord(coord.Get());
    ASSERT_TRUE(coord->SetReference(ReferenceOf(DATUM_WGS84, KOORD_GEODEZ).Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 49.25);
}

TEST_F(CoordinateStringTest, BmnAndOemAreReadOnTheNearestMeridian) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(Parse(string, KOORD_BMN, "200000", "150000"));
    EXPECT_EQ(Load<BmnPayload>(testing::KoordOf(string)).meridian, 28);
    EXPECT_TRUE(Parse(string, KOORD_OEM, "5200000", "1050000"));
    EXPECT_EQ(Load<BmnPayload>(testing::KoordOf(string)).meridian, 34);
}

// The positions that can't be typed: texts of legal positions in the form in which they are written.
TEST_F(CoordinateStringTest, SomePositionsCantBeTyped) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_FALSE(Parse(string, KOORD_ECEF, "4800000.000", "900000.000"));
    EXPECT_FALSE(Parse(string, KOORD_TM, "0.000", "0.000"));
    EXPECT_FALSE(Parse(string, KOORD_GKAT, "5200000.000", "0.000"));
    EXPECT_FALSE(Parse(string, KOORD_UPS, "S 2000000.000", "2000000.000"));
    EXPECT_TRUE(Parse(string, KOORD_UPS, "N 2000000.000", "2000000.000"));
    EXPECT_FALSE(Parse(string, KOORD_VDG, "0.000 1000.000", "10.000 1000.000"));
    EXPECT_TRUE(Parse(string, KOORD_VDG, "0.000 1000.000", "0.000 1000.000"));
    EXPECT_FALSE(Parse(string, KOORD_LAMBERTCC, "0.000", "0.000"));
}

TEST_F(CoordinateStringTest, TypedGeorefMinutesAreKeptButPlayNoRole) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    ASSERT_TRUE(Parse(string, KOORD_GEOREF, "G A 3000", "N B 1500"));
    const auto georef = Load<GeorefPayload>(testing::KoordOf(string));
    EXPECT_EQ(georef.latMinutes, 3000);
    EXPECT_EQ(georef.lonMinutes, 1500);
    const IRef<ICoord> coord(CreateClassCoord());
    string->GetCoord(coord.Get());
    ASSERT_TRUE(coord->SetReference(ReferenceOf(DATUM_WGS84, KOORD_GEODEZ).Get()));
    // G is the seventh band of 15 degrees from -90 on, A its first degree; N the thirteenth from -180, B its
    // second degree.
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 0.0);
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).longitude, 1.0);
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"", ""}));
}

TEST_F(CoordinateStringTest, OneTextMayServeForBothAxes) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<ITessaraString> text = MakeText("12.5");
    EXPECT_TRUE(string->ParseCoord(ReferenceOf(DATUM_WGS84, KOORD_GEODEZ).Get(), text.Get(), text.Get()));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"12.5000000", "12.5000000"}));
}

TEST_F(CoordinateStringTest, ATextThatNobodyHoldsLivesUntilTheEndOfTheReading) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<ICoordinateReference> reference = ReferenceOf(DATUM_WGS84, KOORD_LONGPIXEL);
    ITessaraString* const both = NewObject<TessaraString>();
    both->AssignText("12");
    EXPECT_TRUE(string->ParseCoord(reference.Get(), both, both));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"12", "12"}));
}

TEST_F(CoordinateStringTest, AFailedReadingChangesNothing) {
    const tagKOORD record = GeodezRecord(48.5, 11.5, 7.0, DATUM_GER);
    const IRef<ICoordinateString> string = StringOf(record);
    testing::SetResolution(string, 0.1);
    EXPECT_FALSE(Parse(string, KOORD_UTM, "N 5400000", "32 900000"));
    EXPECT_FALSE(Parse(string, KOORD_UTM, "", ""));
    EXPECT_FALSE(Parse(string, KOORD_GEODEZ, "1.0", "x"));
    const CKoord held = testing::KoordOf(string);
    EXPECT_EQ(std::memcmp(&held, &record, sizeof record), 0);
    EXPECT_EQ(held.GetHeight(), 7.0);
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"48.5", "11.5"})) << "the precisions too";
}

TEST_F(CoordinateStringTest, ReadingAnotherSystemUnsetsThePrecisions) {
    const IRef<ICoordinateString> string = StringOf(GeodezRecord(48.5, 11.5));
    testing::SetResolution(string, 0.1);
    EXPECT_TRUE(Parse(string, KOORD_GEODEZ, "47.5", "10.5", DATUM_GER));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"47.5", "10.5"}));
    EXPECT_TRUE(Parse(string, KOORD_UTM, "N 5400000", "32 500000"));
    EXPECT_EQ(PlainTextsOf(string), (TextPair{"N 5400000.000", "32 500000.000"}));
}

TEST_F(CoordinateStringTest, ReferencesOfAHostAreReadByTheirNumbers) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<ITessaraString> text = MakeText("1.5");
    EXPECT_TRUE(string->ParseCoord(testing::MakeHostReference(DATUM_WGS84, KOORD_GEODEZ).Get(), text.Get(),
                                   text.Get()));
    for (const std::int32_t number : {-1, 500, INT32_MIN, INT32_MAX}) {
        EXPECT_FALSE(string->ParseCoord(testing::MakeHostReference(number, KOORD_GEODEZ).Get(), text.Get(),
                                        text.Get()));
        EXPECT_FALSE(string->ParseCoord(testing::MakeHostReference(DATUM_WGS84, number).Get(), text.Get(),
                                        text.Get()));
    }
}

TEST_F(CoordinateStringTest, NullAndForeignObjectsAreFailures) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoordinateReference> reference = ReferenceOf(DATUM_WGS84, KOORD_GEODEZ);
    const IRef<ITessaraString> text = MakeText("1.5");
    for (ITessaraString* wrong :
         {static_cast<ITessaraString*>(nullptr), testing::Disguised<ITessaraString>(stranger)}) {
        EXPECT_FALSE(string->ParseCoord(reference.Get(), wrong, text.Get()));
        EXPECT_FALSE(string->ParseCoord(reference.Get(), text.Get(), wrong));
        EXPECT_FALSE(string->GetNorthText(wrong));
        EXPECT_FALSE(string->GetEastText(wrong));
        EXPECT_FALSE(string->GetNorthDisplayText(wrong));
        EXPECT_FALSE(string->GetEastDisplayText(wrong));
        EXPECT_FALSE(string->GetCartesianTexts(text.Get(), text.Get(), wrong));
        EXPECT_FALSE(string->GetGeographicTexts(wrong, text.Get(), text.Get()));
    }
    EXPECT_STREQ(text->GetText(), "1.5");
    EXPECT_FALSE(string->ParseCoord(nullptr, text.Get(), text.Get()));
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), testing::Disguised<ICoord>(stranger)}) {
        EXPECT_FALSE(string->SetCoord(wrong));
        EXPECT_FALSE(string->GetCoord(wrong));
    }
}

}  // namespace
}  // namespace tessara
