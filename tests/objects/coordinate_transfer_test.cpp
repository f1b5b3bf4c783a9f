#include <gtest/gtest.h>

#include <cstring>

#include "support/coords.h"
#include "support/records.h"
#include "support/zones.h"
#include "tessara/array.h"
#include "tessara/coordinate_transfer.h"

namespace tessara {
namespace {

class CoordinateTransferTest : public ::testing::Test {
  protected:
    IRef<ICoordinateTransfer> transfer{CreateClassCoordinateTransfer()};

    // An object that is no coordinate, behind the pointer type of one.
    static ICoord* Foreign(const IRef<IArray>& array) { return reinterpret_cast<ICoord*>(array.Get()); }
};

TEST_F(CoordinateTransferTest, ConvertsIntoTheReferenceOfTheTarget) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 11.5));
    const IRef<ICoord> target = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    // GeoConvert -u -p 3 --input-string "48 11.5": 32n 686482.635 5319324.564
    const auto payload = PayloadOf<UtmPayload>(target);
    EXPECT_EQ(payload.zone, 32);
    EXPECT_EQ(payload.hemisphere, 'N');
    EXPECT_NEAR(payload.easting, 686482.635, 0.0005);
    EXPECT_NEAR(payload.northing, 5319324.564, 0.0005);
    EXPECT_EQ(PayloadOf<GeodezPayload>(source).latitude, 48.0);
}

TEST_F(CoordinateTransferTest, ANewCoordinateTakesWgs84Degrees) {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 32;
    utm.easting = 500000.0;
    const IRef<ICoord> source = CoordOf(Record(KOORD_UTM, utm));
    const IRef<ICoord> target(CreateClassCoord());
    ASSERT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    // Degrees, some units of the last place.
    EXPECT_NEAR(PayloadOf<GeodezPayload>(target).longitude, 9.0, 1e-12);
    EXPECT_TRUE(HoldsPosition(target));
}

TEST_F(CoordinateTransferTest, EqualReferencesCopyTheRecordByteByByte) {
    UtmPayload utm{};
    utm.hemisphere = 'q';
    utm.zone = 77;  // no conversion would take it
    utm.wantedZone = 5;
    CKoord record(Record(KOORD_UTM, utm));
    record.SetHeight(12.0);
    const IRef<ICoord> source = CoordOf(record);
    const IRef<ICoord> target = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    const CKoord result = KoordOf(target);
    EXPECT_EQ(std::memcmp(result.payload, record.payload, sizeof record.payload), 0);
    EXPECT_EQ(result.GetHeight(), 12.0);
}

TEST_F(CoordinateTransferTest, AFailedConversionLeavesTheSourcesRecordInTheTarget) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(85.0, 11.5));
    const IRef<ICoord> target = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_FALSE(transfer->Transfer(source.Get(), target.Get()));
    EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    EXPECT_EQ(PayloadOf<GeodezPayload>(target).latitude, 85.0);
}

TEST_F(CoordinateTransferTest, AnInvalidSourceIsCopiedAsIfItWereValid) {
    const IRef<ICoord> source = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);
    const IRef<ICoord> target(CreateClassCoord());
    ASSERT_FALSE(HoldsPosition(source));
    ASSERT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    EXPECT_TRUE(HoldsPosition(target));
}

TEST_F(CoordinateTransferTest, APixelAndAWorldPositionCantBeRelated) {
    const IRef<ICoord> source(CreateClassCoord());
    source->SetPixel(1.0, 2.0);
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    EXPECT_FALSE(HoldsPosition(target));
    EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
}

TEST_F(CoordinateTransferTest, ATargetWithoutAReferenceTakesThatOfTheSource) {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 32;
    utm.easting = 500000.0;
    const IRef<ICoord> source = CoordOf(Record(KOORD_UTM, utm, 3));
    const IRef<ICoord> target = CoordOf(MakeKoord(NO_DATUM, NO_SYSTEM));
    ASSERT_TRUE(transfer->Transfer(source.Get(), target.Get()));
    EXPECT_EQ(KoordOf(target).datum, 3u);
    EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(KOORD_UTM));

    const IRef<ICoord> anyDatum = CoordOf(MakeKoord(NO_DATUM, KOORD_GEODEZ));
    ASSERT_TRUE(transfer->Transfer(source.Get(), anyDatum.Get()));
    EXPECT_EQ(KoordOf(anyDatum).datum, 3u);
    EXPECT_EQ(KoordOf(anyDatum).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
}

TEST_F(CoordinateTransferTest, ACoordinateIsTransferredIntoItself) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.5));
    EXPECT_TRUE(transfer->Transfer(coord.Get(), coord.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 48.0);
}

TEST_F(CoordinateTransferTest, NullAndForeignObjectsFail) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.5));
    const IRef<IArray> array(CreateClassArray());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Foreign(array)}) {
        EXPECT_FALSE(transfer->Transfer(other, coord.Get()));
        EXPECT_FALSE(transfer->Transfer(coord.Get(), other));
        EXPECT_FALSE(transfer->TransferNorth(other, coord.Get()));
        EXPECT_FALSE(transfer->TransferNorth(coord.Get(), other));
        EXPECT_FALSE(transfer->TransferEast(other, coord.Get()));
        EXPECT_FALSE(transfer->TransferEast(coord.Get(), other));
    }
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 48.0);
}

TEST_F(CoordinateTransferTest, AnAxisNeedsEqualReferences) {
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    const IRef<ICoord> gk = EmptyCoord(DATUM_WGS84, KOORD_GK);
    const IRef<ICoord> bessel = EmptyCoord(3, KOORD_UTM);
    const CKoord before = KoordOf(gk);
    EXPECT_FALSE(transfer->TransferEast(utm.Get(), gk.Get()));
    EXPECT_FALSE(transfer->TransferNorth(utm.Get(), gk.Get()));
    EXPECT_FALSE(transfer->TransferEast(utm.Get(), bessel.Get()));
    EXPECT_FALSE(transfer->TransferNorth(utm.Get(), bessel.Get()));
    const CKoord after = KoordOf(gk);
    EXPECT_EQ(std::memcmp(&after, &before, sizeof(tagKOORD)), 0);
    EXPECT_FALSE(HoldsPosition(gk));
}

TEST_F(CoordinateTransferTest, AnAxisIsCopiedAndTheHeightStaysTheTargets) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 11.5, 100.0));
    const IRef<ICoord> target = CoordOf(GeodezRecord(-10.0, -20.0, 7.0));
    ASSERT_TRUE(transfer->TransferEast(source.Get(), target.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(target).latitude, -10.0);
    EXPECT_EQ(PayloadOf<GeodezPayload>(target).longitude, 11.5);
    EXPECT_EQ(target->GetHeight(), 7.0);
    ASSERT_TRUE(transfer->TransferNorth(source.Get(), target.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(target).latitude, 48.0);
    EXPECT_EQ(target->GetHeight(), 7.0);
}

// On the equator row F of zone 33 begins at 500 km, and so does row L of zone 32.
TEST_F(CoordinateTransferTest, ARowIsRelettredForTheZoneItIsBroughtTo) {
    const IRef<ICoord> source = CoordOf(testing::Utmref(32, 'N', "NA", 12345, 0));
    const IRef<ICoord> target = CoordOf(testing::Utmref(33, 'N', "WF", 1, 54321));
    const IRef<ICoord> other = CoordOf(testing::Utmref(33, 'N', "WF", 1, 54321));
    ASSERT_TRUE(transfer->TransferEast(source.Get(), target.Get()));
    EXPECT_TRUE(testing::SameRecord(KoordOf(target), testing::Utmref(32, 'N', "NL", 12345, 54321)));
    ASSERT_TRUE(transfer->TransferEast(other.Get(), target.Get()));
    EXPECT_TRUE(testing::SameRecord(KoordOf(target), KoordOf(other))) << "and back";
    // The northing of the ground: both lie 554321 m north of the equator.
    const IRef<ICoord> utm = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(transfer->TransferEast(source.Get(), target.Get()));
    ASSERT_TRUE(transfer->Transfer(target.Get(), utm.Get()));
    EXPECT_NEAR(PayloadOf<UtmPayload>(utm).northing, 554321.0, 1e-3);
}

// The renewal reads full values without letters, which are whole metres in the Irish grid: 315000.25 and
// 234000.75 become 315000 and 234001.
TEST_F(CoordinateTransferTest, AnAxisOfTheIrishGridComesInWholeMetres) {
    LetterGridPayload from{};
    from.fullEasting = 215000.125;
    from.fullNorthing = 234000.75;
    LetterGridPayload to{};
    to.fullEasting = 315000.25;
    to.fullNorthing = 134000.5;
    const IRef<ICoord> source = CoordOf(Record(KOORD_ING, from, 97));
    const IRef<ICoord> target = CoordOf(Record(KOORD_ING, to, 97));
    ASSERT_TRUE(transfer->TransferNorth(source.Get(), target.Get()));
    const auto moved = PayloadOf<LetterGridPayload>(target);
    EXPECT_EQ(std::string({moved.square, moved.subSquare}), "IO");
    // Metres: the full values go through the projection and back.
    EXPECT_NEAR(moved.fullEasting, 315000.0, 4e-6);
    EXPECT_NEAR(moved.fullNorthing, 234001.0, 4e-6);
    // The British grid keeps the fractions.
    const IRef<ICoord> british = CoordOf(Record(KOORD_BNG, to));
    ASSERT_TRUE(transfer->TransferNorth(CoordOf(Record(KOORD_BNG, from)).Get(), british.Get()));
    EXPECT_NEAR(PayloadOf<LetterGridPayload>(british).fullEasting, 315000.25, 4e-6);
    EXPECT_NEAR(PayloadOf<LetterGridPayload>(british).fullNorthing, 234000.75, 4e-6);
}

TEST_F(CoordinateTransferTest, AnAxisOfTheFreeLambertIsRefused) {
    const IRef<ICoord> source = CoordOf(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC));
    const IRef<ICoord> target = CoordOf(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC));
    EXPECT_FALSE(transfer->TransferEast(source.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferNorth(source.Get(), target.Get()));
}

}  // namespace
}  // namespace tessara
