#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "tessara/coordinate_reference.h"
#include "tessara/host/coord.h"
#include "tessara/host/text.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

class CoordCopy : public testing::BalancedTest {};

CKoord UtmRecord() {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.wantedZone = NO_WANTED_ZONE;
    utm.zone = 32;
    utm.easting = 691602.0;
    utm.northing = 5334791.0;
    CKoord record(MakeKoord(DATUM_WGS84, KOORD_UTM));
    Store(record, utm);
    record.SetHeight(520.0);
    return record;
}

TEST_F(CoordCopy, HoldsTheRecordAndTheHeight) {
    const IRef<ICoord> coord = host::CoordOf(UtmRecord());
    const IRef<ICoord> copy = host::Copy(coord);
    ASSERT_TRUE(copy.IsValid());
    EXPECT_NE(copy.Get(), coord.Get());
    const CKoord record = host::RecordOf(copy);
    EXPECT_EQ(LoadIf<UtmPayload>(record)->easting, 691602.0);
    EXPECT_EQ(copy->GetHeight(), 520.0);
}

TEST_F(CoordCopy, GoesItsOwnWay) {
    const IRef<ICoord> coord = host::CoordOf(UtmRecord());
    const IRef<ICoord> copy = host::Copy(coord);
    IRef<ICoordInternal>(copy)->ShiftEast(1000.0);
    EXPECT_EQ(LoadIf<UtmPayload>(host::RecordOf(coord))->easting, 691602.0);
    EXPECT_EQ(LoadIf<UtmPayload>(host::RecordOf(copy))->easting, 692602.0);
}

TEST_F(CoordCopy, OfAPixelIsThatPixel) {
    const IRef<ICoord> coord = CreateClassCoord();
    coord->SetPixel(3.5, 4.5);
    double x = 0.0, y = 0.0;
    ASSERT_TRUE(host::Copy(coord)->GetPixel(&x, &y));
    EXPECT_EQ(x, 3.5);
    EXPECT_EQ(y, 4.5);
}

TEST_F(CoordCopy, OfACoordinateWithoutAPositionHasItsReferenceAndNoPosition) {
    const IRef<ICoordinateReference> swiss = CreateClassCoordinateReference();
    swiss->SetDatum(7);
    swiss->SetSystem(KOORD_CH);
    const IRef<ICoord> coord = CreateClassCoord();
    ASSERT_TRUE(coord->SetReference(swiss));
    ASSERT_FALSE(host::HasPosition(coord));

    const IRef<ICoord> copy = host::Copy(coord);
    ASSERT_TRUE(copy.IsValid());
    EXPECT_FALSE(host::HasPosition(copy));
    EXPECT_EQ(host::RecordOf(copy).datum, 7u);
    EXPECT_EQ(host::RecordOf(copy).type, static_cast<std::uint32_t>(KOORD_CH));
}

TEST_F(CoordCopy, OfNothingAndOfAStrangerIsEmpty) {
    EXPECT_FALSE(host::Copy(nullptr).IsValid());
    EXPECT_FALSE(host::HasPosition(nullptr));
    EXPECT_EQ(host::RecordOf(nullptr).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    const IRef<ITessaraString> text = NewObject<host::Text>();
    EXPECT_EQ(host::RecordOf(text).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
}

}  // namespace
}  // namespace tessara
