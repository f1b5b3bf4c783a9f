// A host with declarations of its own calls every operation of the text classes.
#include <gtest/gtest.h>

#include <string>

#include "abi/contract/places.h"
#include "abi/contract/text.h"

namespace contract {
namespace {

class ContractText : public ContractPlaces {
  protected:
    // Every text of a list, with blanks between.
    static std::string Words(IArray* list) {
        std::string words;
        for (uint32_t i = 0; i < list->GetCount(); ++i)
            words += (i != 0 ? " " : "") + std::string(As<ITessaraString>(list->GetAt(i))->GetText());
        return words;
    }

    Held<ITessaraString> text = NewText();
};

TEST_F(ContractText, WritesACoordinate) {
    const auto string = Make<ICoordinateString>("CoordinateString");
    EXPECT_TRUE(string->SetCoord(Utm(500000.0, 5400000.0)));
    const auto back = Geodez(0.0, 0.0);
    EXPECT_TRUE(string->GetCoord(back));
    ExpectUtm(back, 500000.0, 5400000.0);

    EXPECT_TRUE(string->GetNorthText(text));
    EXPECT_STREQ(text->GetText(), "N 5400000.000");
    EXPECT_TRUE(string->GetEastText(text));
    EXPECT_STREQ(text->GetText(), "32 500000.000");
    EXPECT_TRUE(string->GetNorthDisplayText(text));
    EXPECT_STREQ(text->GetText(), "5400000.000");
    EXPECT_TRUE(string->GetEastDisplayText(text));
    EXPECT_STREQ(text->GetText(), "32500000.000");

    EXPECT_TRUE(string->SetNorthPrecision(0.1));
    EXPECT_TRUE(string->SetEastPrecision(0.01));
    EXPECT_TRUE(string->GetNorthText(text));
    EXPECT_STREQ(text->GetText(), "N 5400000.0");
    EXPECT_TRUE(string->GetEastText(text));
    EXPECT_STREQ(text->GetText(), "32 500000.00");
    EXPECT_TRUE(string->SetDefaultNorthPrecision());
    EXPECT_TRUE(string->GetNorthText(text));
    EXPECT_STREQ(text->GetText(), "N 5400000.000");
    EXPECT_TRUE(string->GetEastText(text));
    EXPECT_STREQ(text->GetText(), "32 500000.00");
    EXPECT_TRUE(string->SetDefaultEastPrecision());
    EXPECT_TRUE(string->GetEastText(text));
    EXPECT_STREQ(text->GetText(), "32 500000.000");
}

// On the equator at longitude 0 the earth-centred x is the semi-major axis, 6378137 m.
TEST_F(ContractText, WritesTheOtherFormsOfAPosition) {
    const auto string = Make<ICoordinateString>("CoordinateString");
    EXPECT_TRUE(string->SetCoord(Geodez(0.0, 0.0)));
    EXPECT_TRUE(string->SetNorthPrecision(0.01));
    EXPECT_TRUE(string->SetEastPrecision(0.1));
    const auto second = NewText();
    const auto third = NewText();
    EXPECT_TRUE(string->GetCartesianTexts(text, second, third));
    EXPECT_STREQ(text->GetText(), "6378137.00");
    EXPECT_STREQ(second->GetText(), "0.00");
    EXPECT_STREQ(third->GetText(), "0.00");
    EXPECT_TRUE(string->GetGeographicTexts(text, second, third));
    EXPECT_STREQ(text->GetText(), "0.00");
    EXPECT_STREQ(second->GetText(), "0.0");
    EXPECT_STREQ(third->GetText(), "0.000");
}

TEST_F(ContractText, ReadsACoordinate) {
    const auto string = Make<ICoordinateString>("CoordinateString");
    EXPECT_TRUE(string->ParseCoord(Reference(2, GEODEZ), NewText("48.5"), NewText("9.25")));
    const auto coord = Make<ICoord>("Coord");
    EXPECT_TRUE(string->GetCoord(coord));
    EXPECT_EQ(RecordOf(coord).At<double>(0), 48.5);
    EXPECT_EQ(RecordOf(coord).At<double>(8), 9.25);
    EXPECT_FALSE(string->ParseCoord(Reference(2, GEODEZ), NewText("91.0"), NewText("9.25")));
}

// Positions on which the three checks differ: a position that wants a distant zone isn't a legal coordinate
// although it is within the system, and a position in Africa is legal but can't be converted to the Swiss
// grid.
TEST_F(ContractText, ChecksCoordinates) {
    const auto checker = Make<ICoordinateChecker>("CoordinateChecker");
    const auto swiss = Reference(2, CH);
    const auto bern = Geodez(47.0, 7.5);
    EXPECT_TRUE(checker->CheckCoord(bern));
    EXPECT_TRUE(checker->CheckInSystemArea(bern));
    EXPECT_TRUE(checker->CheckConvertible(bern, swiss));
    const auto wanting = Coord(UtmRecord(32, 600000.0, 5500000.0).With<int16_t>(2, 60));
    EXPECT_FALSE(checker->CheckCoord(wanting));
    EXPECT_TRUE(checker->CheckInSystemArea(wanting));
    const auto africa = Geodez(-20.0, 25.0);
    EXPECT_TRUE(checker->CheckCoord(africa));
    EXPECT_FALSE(checker->CheckConvertible(africa, swiss));
}

// Zones 2, 5 and so on have the columns J to R; row letters of even zones begin with F at the equator.
TEST_F(ContractText, GuidesTheTypingOfUtmref) {
    const auto guide = Make<ICoordCheckerUTMREF>("CoordCheckerUTMREF");
    const auto list = Make<IArray>("Array");
    EXPECT_TRUE(guide->GetZoneList(list));
    EXPECT_EQ(list->GetCount(), 60u);
    EXPECT_TRUE(guide->GetBandList(list));
    EXPECT_EQ(Words(list), "C D E F G H J K L M N P Q R S T U V W X");

    EXPECT_TRUE(guide->GetColumnList(list, 2, NewText("32"), NewText("N"), NewText(), NewText()));
    EXPECT_EQ(Words(list), "J K L M N P Q R") << "the whole set at the equator";
    // Band N is 8 degrees, some 884 km: nine rows from the equator on.
    EXPECT_TRUE(guide->GetRowList(list, 2, NewText("32"), NewText("N"), NewText("M"), NewText()));
    EXPECT_EQ(Words(list), "F G H J K L M N P");
}

TEST_F(ContractText, TakesUtmrefApartAndTogether) {
    const auto guide = Make<ICoordCheckerUTMREF>("CoordCheckerUTMREF");
    const char* const pieces[] = {"32", "N", "M", "F", "00123", "00456"};
    KoordFields target{};
    target.record.datum = WGS84;
    const auto zone = NewText("032"), band = NewText("N"), column = NewText("M"), row = NewText("F"),
               easting = NewText("00123"), northing = NewText("00456");
    ASSERT_TRUE(guide->ComposeCoord(zone, band, column, row, easting, northing, &target));
    EXPECT_EQ(target.record.type, UTMREF);
    EXPECT_EQ(target.record.At<int16_t>(2), 32);
    EXPECT_EQ(target.record.At<char>(4), 'N');
    EXPECT_EQ(target.record.At<char>(6), 'M');
    EXPECT_EQ(target.record.At<char>(7), 'F');
    EXPECT_EQ(target.record.At<int32_t>(8), 123);
    EXPECT_EQ(target.record.At<int32_t>(12), 456);

    const auto coord = Coord(target.record);
    EXPECT_TRUE(guide->CheckCoord(coord));
    EXPECT_FALSE(guide->CheckCoord(Geodez(1.0, 9.0)));
    const auto list = Make<IArray>("Array");
    EXPECT_TRUE(guide->GetColumnListOf(list, coord));
    EXPECT_EQ(Words(list), "J K L M N P Q R");
    EXPECT_TRUE(guide->GetRowListOf(list, coord));
    EXPECT_EQ(Words(list), "F G H J K L M N P");
    const Held<ITessaraString> parts[] = {NewText(), NewText(), NewText(), NewText(), NewText(), NewText()};
    EXPECT_TRUE(guide->SplitCoord(coord, parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]));
    for (int i = 0; i < 6; ++i)
        EXPECT_STREQ(parts[i]->GetText(), pieces[i]);
}

}  // namespace
}  // namespace contract
