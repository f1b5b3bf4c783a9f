// The examples in the headers of texts and checkers.
#include <gtest/gtest.h>

#include <string>

#include "snippets/header_example.h"
#include "support/coords.h"
#include "support/objects.h"
#include "support/space.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HeaderExample;

TEST_F(HeaderExample, CoordinateString) {
    const IRef<ICoordinateReference> utm = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    const IRef<ICoordinateReference> utmref = ReferenceOf(DATUM_WGS84, KOORD_UTMREF);
    const IRef<ITessaraString> north = testing::MakeText("N 5334791.145");
    const IRef<ITessaraString> east = testing::MakeText("32 691602.66");
    const IRef<ITessaraString> text = testing::MakeText();

    const tessara::IRef texts = tessara::CreateClassCoordinateString();
    if (!texts->ParseCoord(utm, north, east)) return;  // "N 5334791.145" and "32 691602.66"
    const tessara::IRef coord = tessara::CreateClassCoord();
    if (!texts->GetCoord(coord) || !coord->SetReference(utmref) || !texts->SetCoord(coord)) return;
    texts->SetNorthPrecision(1.0);
    texts->SetEastPrecision(1.0);
    texts->GetNorthDisplayText(text);  // "32UPU9160334791"

    // 691602.66 is 91603 to the metre in the square that begins at 600000, 5334791.145 is 34791 in the one
    // from 5300000; GeoConvert names the square UPU.
    EXPECT_STREQ(text->GetText(), "32UPU9160334791");
    IsDone();
}

TEST_F(HeaderExample, CoordCheckerUtmref) {
    const IRef<ITessaraString> zone = testing::MakeText("32"), band = testing::MakeText("U");
    const IRef<ITessaraString> column = testing::MakeText("P"), row = testing::MakeText("U");
    const IRef<ITessaraString> easting = testing::MakeText("916"), northing = testing::MakeText("347");

    const tessara::IRef checker = tessara::CreateClassCoordCheckerUTMREF();
    const tessara::IRef columns = tessara::CreateClassArray();
    checker->GetColumnList(columns, tessara::DATUM_WGS84, zone, band, column, row);  // K L M N P Q
    tessara::CKoord record(tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTMREF));
    checker->ComposeCoord(zone, band, column, row, easting, northing, &record);
    const auto utmref = tessara::Load<tessara::UtmrefPayload>(record);
    // "916" and "347" are 91600 and 34700 metres within the square

    // At 48 degrees the zone is 3 degrees * 111.32 km * cos 48 = 223.4 km wide on either side: from 276.6 to
    // 723.4 km, which are the squares 2 to 7 of JKLMNPQR.
    std::string letters;
    for (std::uint32_t i = 0; i < columns->GetCount(); ++i)
        letters += IRef<ITessaraString>(columns->GetAt(i))->GetText();
    EXPECT_EQ(letters, "KLMNPQ");
    EXPECT_EQ(utmref.zone, 32);
    EXPECT_EQ(utmref.easting, 91600);
    EXPECT_EQ(utmref.northing, 34700);
    IsDone();
}

TEST_F(HeaderExample, CoordinateChecker) {
    const IRef<ICoord> arctic = testing::Place(85.0, 10.0);
    const IRef<ICoordinateReference> utmReference = ReferenceOf(DATUM_WGS84, KOORD_UTM);

    const tessara::IRef checker = tessara::CreateClassCoordinateChecker();
    const bool isLegal = checker->CheckCoord(arctic);                    // latitude 85 in degrees: true
    const bool isUtm = checker->CheckConvertible(arctic, utmReference);  // UTM ends at 84: false

    EXPECT_TRUE(isLegal);
    EXPECT_FALSE(isUtm);
    IsDone();
}

}  // namespace
}  // namespace tessara
