// The examples in the headers of coordinates and what calculates with them.
#include <gtest/gtest.h>

#include "snippets/header_example.h"
#include "snippets/munich.h"
#include "support/lines.h"
#include "support/objects.h"
#include "support/space.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HALF_MILLIMETRE;
using testing::HeaderExample;
using testing::MUNICH_EASTING;
using testing::MUNICH_NORTHING;

TEST_F(HeaderExample, Coord) {
    const tessara::IRef munich = tessara::CreateClassCoordGeographic();
    munich->Set(11.5755, 48.1375, 520.0);
    const tessara::IRef reference = tessara::CreateClassCoordinateReference();
    reference->SetDatum(tessara::DATUM_WGS84);
    reference->SetSystem(tessara::KOORD_UTM);
    const tessara::IRef coord = tessara::CreateClassCoord();
    if (!coord->SetGeographic(munich) || !coord->SetReference(reference)) return;
    const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(coord));
    // zone 32, easting 691602.660, northing 5334791.145

    EXPECT_EQ(utm.zone, 32);
    EXPECT_NEAR(utm.easting, MUNICH_EASTING, HALF_MILLIMETRE);
    EXPECT_NEAR(utm.northing, MUNICH_NORTHING, HALF_MILLIMETRE);
    IsDone();
}

TEST_F(HeaderExample, CoordGeographic) {
    const tessara::IRef munich = tessara::CreateClassCoordGeographic();
    munich->Set(11.5755, 48.1375, 520.0);           // longitude first
    const double latitude = munich->GetLatitude();  // 48.1375

    EXPECT_EQ(latitude, 48.1375);
    EXPECT_EQ(munich->GetLongitude(), 11.5755);
    EXPECT_EQ(munich->GetHeight(), 520.0);
    IsDone();
}

TEST_F(HeaderExample, CoordinateAverage) {
    const IRef<ICoord> first = CoordOf(testing::Utm32(600000.0, 5300000.0));
    const IRef<ICoord> second = CoordOf(testing::Utm32(700000.0, 5400000.0));

    const tessara::IRef averages = tessara::CreateClassCoordinateAverage();
    const tessara::IRef middle = tessara::CreateClassCoord();
    averages->Average(first, second, middle);
    const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(middle));
    // 600000 5300000 and 700000 5400000 have the mean 650000 5350000

    EXPECT_EQ(utm.zone, 32);
    EXPECT_EQ(utm.easting, 650000.0);
    EXPECT_EQ(utm.northing, 5350000.0);
    IsDone();
}

TEST_F(HeaderExample, CoordinateCompare) {
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);
    const IRef<ICoord> tokyo = testing::Place(35.6895, 139.6917, 40.0);

    const tessara::IRef compare = tessara::CreateClassCoordinateCompare();
    const std::int32_t northSouth = compare->CompareNorthSouth(munich, tokyo);  // 1
    const std::int32_t eastWest = compare->CompareEastWest(munich, tokyo);      // -1

    EXPECT_EQ(northSouth, 1);
    EXPECT_EQ(eastWest, -1);
    IsDone();
}

TEST_F(HeaderExample, CoordinateInit) {
    const IRef<ICoord> coord = EmptyCoord(DATUM_WGS84, KOORD_UTM);

    const tessara::IRef init = tessara::CreateClassCoordinateInit();
    if (!init->InitCoord(coord)) return;
    const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(coord));
    // 30N 500000 0, without a wanted zone

    EXPECT_EQ(utm.zone, 30);
    EXPECT_EQ(utm.hemisphere, 'N');
    EXPECT_EQ(utm.easting, 500000.0);
    EXPECT_EQ(utm.northing, 0.0);
    EXPECT_EQ(utm.wantedZone, NO_WANTED_ZONE);
    IsDone();
}

TEST_F(HeaderExample, CoordinateNeighbor) {
    const IRef<ICoord> coord = CoordOf(testing::Utm32(650000.0, 5350000.0));

    const tessara::IRef neighbors = tessara::CreateClassCoordinateNeighbor();
    const tessara::IRef neighbor = tessara::CreateClassCoord();
    if (!neighbors->GetEastNeighbor(coord, neighbor)) return;
    const auto utm = tessara::Load<tessara::UtmPayload>(tessara::host::RecordOf(neighbor));
    // easting 650000 becomes 650001

    EXPECT_EQ(utm.easting, 650001.0);
    EXPECT_EQ(utm.northing, 5350000.0);
    IsDone();
}

TEST_F(HeaderExample, CoordinateReference) {
    const IRef<ICoord> coord = testing::Place(48.1375, 11.5755);

    const tessara::IRef reference = tessara::CreateClassCoordinateReference();
    reference->SetDatum(3);
    reference->SetSystem(tessara::KOORD_GK);
    coord->SetReference(reference);

    const CKoord record = KoordOf(coord);
    EXPECT_EQ(record.datum, 3u);
    EXPECT_EQ(record.type, static_cast<std::uint32_t>(KOORD_GK));
    IsDone();
}

TEST_F(HeaderExample, CoordinateSystem) {
    const IRef<ITessaraString> text = testing::MakeText();

    const tessara::IRef system = tessara::CreateClassCoordinateSystem();
    system->SetSystem(tessara::KOORD_UTM);
    system->GetName(text);  // "UTM"

    EXPECT_STREQ(text->GetText(), "UTM");
    IsDone();
}

TEST_F(HeaderExample, GeoDate) {
    const IRef<ITessaraString> text = testing::MakeText();

    const tessara::IRef datum = tessara::CreateClassGeoDate();
    datum->SetDatum(tessara::DATUM_WGS84);
    datum->GetName(text);  // "WGS84"

    EXPECT_STREQ(text->GetText(), "WGS84");
    IsDone();
}

TEST_F(HeaderExample, CoordinateTransfer) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.1375, 11.5755, 0.0, 3));
    const IRef<ICoord> target = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);

    const tessara::IRef transfer = tessara::CreateClassCoordinateTransfer();
    if (!transfer->Transfer(source, target)) return;
    const auto degrees = tessara::Load<tessara::GeodezPayload>(tessara::host::RecordOf(target));

    // cct, a geocentric translation by 604, 21, 415 m from the Bessel ellipsoid. The library's formulas are
    // of first order: 1e-6 degrees, 0.1 m.
    EXPECT_NEAR(degrees.latitude, 48.136593907, 1e-6);
    EXPECT_NEAR(degrees.longitude, 11.574148023, 1e-6);
    IsDone();
}

TEST_F(HeaderExample, ZoneCoordOperations) {
    const IRef<ICoord> munich = CoordOf(testing::Utm32(MUNICH_EASTING, MUNICH_NORTHING));

    const tessara::IRef zones = tessara::CreateClassZoneCoordOperations();
    const tessara::IRef border = tessara::CreateClassCoord();
    const std::int32_t zone = zones->GetZoneNumber(munich);  // 32
    if (!zones->GetEastNeighbour(munich, border)) return;    // longitude 12, in zone 32

    EXPECT_EQ(zone, 32);
    const auto utm = PayloadOf<UtmPayload>(border);
    EXPECT_EQ(utm.zone, 32);
    EXPECT_NEAR(utm.northing, MUNICH_NORTHING, 1e-6);
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    ASSERT_TRUE(border->GetGeographic(place));
    EXPECT_NEAR(place->GetLongitude(), 12.0, 2e-9);  // the border is written 1e-9 degrees outside the zone
    IsDone();
}

}  // namespace
}  // namespace tessara
