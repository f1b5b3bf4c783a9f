#include <gtest/gtest.h>

#include <cstring>

#include "frame/tessara_string.h"
#include "support/coords.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/random.h"
#include "support/records.h"
#include "support/zones.h"
#include "tessara/array.h"
#include "tessara/coord_checker_utmref.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::MakeText;
using testing::Utmref;

constexpr std::int32_t DATUM_BESSEL = 3;

struct Pieces {
    std::string zone = {};
    std::string band = {};
    std::string column = {};
    std::string row = {};
    std::string easting = {};
    std::string northing = {};

    bool operator==(const Pieces&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Pieces& p) {
    return stream << p.zone << ' ' << p.band << ' ' << p.column << ' ' << p.row << ' ' << p.easting << ' '
                  << p.northing;
}

class CoordCheckerUtmref : public testing::BalancedTest {
  protected:
    IRef<ICoordCheckerUTMREF> checker{CreateClassCoordCheckerUTMREF()};
    IRef<IArray> list{CreateClassArray()};
    IRef<ITessaraString> text[6] = {MakeText(), MakeText(), MakeText(), MakeText(), MakeText(), MakeText()};

    void Type(const Pieces& p) {
        const std::string* const pieces[] = {&p.zone, &p.band, &p.column, &p.row, &p.easting, &p.northing};
        for (std::size_t i = 0; i < 6; ++i)
            text[i]->AssignText(pieces[i]->c_str());
    }

    Pieces Typed() const {
        return {text[0]->GetText(), text[1]->GetText(), text[2]->GetText(),
                text[3]->GetText(), text[4]->GetText(), text[5]->GetText()};
    }

    // The entries of the list, one after the other.
    std::string Letters() const {
        std::string letters;
        for (std::uint32_t i = 0; i < list->GetCount(); ++i)
            letters += IRef<ITessaraString>(list->GetAt(i))->GetText();
        return letters;
    }

    std::string Columns(const Pieces& pieces, std::int32_t datum = DATUM_WGS84) {
        Type(pieces);
        const bool exist = checker->GetColumnList(list.Get(), datum, text[0].Get(), text[1].Get(),
                                                  text[2].Get(), text[3].Get());
        EXPECT_EQ(exist, list->GetCount() > 0);
        return exist ? Letters() : "(false)";
    }

    std::string Rows(const Pieces& pieces, std::int32_t datum = DATUM_WGS84) {
        Type(pieces);
        const bool exist = checker->GetRowList(list.Get(), datum, text[0].Get(), text[1].Get(), text[2].Get(),
                                               text[3].Get());
        EXPECT_EQ(exist, list->GetCount() > 0);
        return exist ? Letters() : "(false)";
    }

    bool Compose(const Pieces& pieces, CKoord* target) {
        Type(pieces);
        return checker->ComposeCoord(text[0].Get(), text[1].Get(), text[2].Get(), text[3].Get(),
                                     text[4].Get(), text[5].Get(), target);
    }

    // Whether the pieces are a position on WGS84.
    bool Compose(const Pieces& pieces) {
        CKoord target;
        return Compose(pieces, &target);
    }

    bool Split(const IRef<ICoord>& coord) {
        return checker->SplitCoord(coord.Get(), text[0].Get(), text[1].Get(), text[2].Get(), text[3].Get(),
                                   text[4].Get(), text[5].Get());
    }
};

TEST_F(CoordCheckerUtmref, ListsSixtyZones) {
    EXPECT_TRUE(checker->GetZoneList(list.Get()));
    ASSERT_EQ(list->GetCount(), 60u);
    for (std::uint32_t i = 0; i < 60; ++i) {
        const std::string expected = std::to_string(i + 1);
        EXPECT_EQ(IRef<ITessaraString>(list->GetAt(i))->GetText(), expected);
    }
}

TEST_F(CoordCheckerUtmref, ListsTwentyBands) {
    EXPECT_TRUE(checker->GetBandList(list.Get()));
    EXPECT_EQ(list->GetCount(), 20u);
    EXPECT_EQ(Letters(), "CDEFGHJKLMNPQRSTUVWX");
}

TEST_F(CoordCheckerUtmref, AListIsEmptiedFirstAndAloneHoldsItsEntries) {
    const IRef<ITessaraString> old = MakeText("old");
    list->Add(old.Get());
    EXPECT_TRUE(checker->GetBandList(list.Get()));
    EXPECT_EQ(list->GetCount(), 20u);
    EXPECT_EQ(testing::CountOf(old), 1u);
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        EXPECT_EQ(testing::CountOf(list->GetAt(i)), 1u);
}

TEST_F(CoordCheckerUtmref, ColumnsAreThoseOfTheZoneWithinTheBand) {
    EXPECT_EQ(Columns({"32", "U"}), "KLMNPQ");
    EXPECT_EQ(Columns({"032", "u"}), "KLMNPQ");
    EXPECT_EQ(Columns({"33", "U"}), "TUVWXY");
    EXPECT_EQ(Columns({"31", "N"}), "ABCDEFGH");
    EXPECT_EQ(Columns({"32", "U", "whatever", "?"}), "KLMNPQ");
    EXPECT_EQ(Columns({"32", "U"}, DATUM_BESSEL), "KLMNPQ");
}

TEST_F(CoordCheckerUtmref, RowsAreThoseOfTheColumnWithinTheBand) {
    EXPECT_EQ(Rows({"32", "U", "Q"}), "UVABCDE");
    EXPECT_EQ(Rows({"032", "u", "q", "?"}), "UVABCDE");
    EXPECT_EQ(Rows({"32", "U", "M"}), "UVABCDEFGH");
    EXPECT_EQ(Rows({"32", "U", "M"}, DATUM_BESSEL), "JKLMNPQRST");
}

TEST_F(CoordCheckerUtmref, AnEmptyPieceStandsForItsFirstChoice) {
    EXPECT_EQ(Columns({"", ""}), Columns({"1", "N"}));
    EXPECT_EQ(Columns({"", ""}), "ABCDEFGH");
    EXPECT_EQ(Columns({"", "", "K"}), Columns({"1", "N"})) << "the column is asked for";
    EXPECT_EQ(Columns({"32", ""}), Columns({"32", "N"}));
    EXPECT_EQ(Rows({"", "", ""}), Rows({"1", "N", "E"}));
    EXPECT_EQ(Rows({"", "", "K"}), Rows({"2", "N", "K"}));
    EXPECT_EQ(Rows({"", "", "Z"}), Rows({"3", "N", "Z"}));
    EXPECT_EQ(Rows({"32", "U", ""}), Rows({"32", "U", "N"}));
    EXPECT_EQ(Rows({"33", "U", ""}), Rows({"33", "U", "W"}));
    EXPECT_EQ(Rows({"31", "U", ""}), Rows({"31", "U", "E"}));
    // Far in the north a zone is hardly wider than the two columns beside its meridian.
    EXPECT_EQ(Rows({"1", "X", ""}), Rows({"1", "X", "E"}));
    EXPECT_NE(Rows({"1", "X", ""}), Rows({"1", "X", "F"}));
}

TEST_F(CoordCheckerUtmref, PiecesThatDontExistLeaveNoChoice) {
    for (const char* zone : {"0", "61", "-1", "032 ", " 32", "x", "3 2", "132", "4294967328"}) {
        EXPECT_EQ(Columns({zone, "U"}), "(false)") << zone;
        EXPECT_EQ(Rows({zone, "U", "Q"}), "(false)") << zone;
    }
    for (const char* band : {"A", "B", "I", "O", "Y", "Z", "UU", "1", "\xD5"}) {
        EXPECT_EQ(Columns({"32", band}), "(false)") << band;
        EXPECT_EQ(Rows({"32", band, "Q"}), "(false)") << band;
    }
    for (const char* column : {"J", "R", "A", "I", "QQ", "\xFF"})
        EXPECT_EQ(Rows({"32", "U", column}), "(false)") << column;
    EXPECT_EQ(Rows({"", "U", "I"}), "(false)");
    for (const std::int32_t datum : {-1, DATUM_COUNT, NO_DATUM}) {
        EXPECT_EQ(Columns({"32", "U"}, datum), "(false)");
        EXPECT_EQ(Rows({"32", "U", "Q"}, datum), "(false)");
        EXPECT_EQ(Columns({"", ""}, datum), "(false)");
    }
}

TEST_F(CoordCheckerUtmref, ListsOfACoordinateFollowItsPieces) {
    const IRef<ICoord> coord = CoordOf(Utmref(32, 'U', "QA", 7819, 42661));
    EXPECT_TRUE(checker->GetColumnListOf(list.Get(), coord.Get()));
    EXPECT_EQ(Letters(), "KLMNPQ");
    EXPECT_TRUE(checker->GetRowListOf(list.Get(), coord.Get()));
    EXPECT_EQ(Letters(), "UVABCDE");
    EXPECT_TRUE(checker->GetRowListOf(list.Get(), CoordOf(Utmref(32, 'U', "QA", 0, 0, DATUM_BESSEL)).Get()));
    EXPECT_EQ(Letters(), "JKLMNPQ");
    EXPECT_FALSE(checker->GetColumnListOf(list.Get(), CoordOf(GeodezRecord(48, 11)).Get()));
    EXPECT_FALSE(checker->GetRowListOf(list.Get(), CoordOf(GeodezRecord(48, 11)).Get()));
}

TEST_F(CoordCheckerUtmref, SplitsIntoSixTexts) {
    ASSERT_TRUE(Split(CoordOf(Utmref(32, 'U', "QA", 42, 7819))));
    EXPECT_EQ(Typed(), (Pieces{"32", "U", "Q", "A", "00042", "07819"}));
}

TEST_F(CoordCheckerUtmref, SplitsNothingButUtmrefOnADatum) {
    Type({"a", "b", "c", "d", "e", "f"});
    UtmPayload utm{};
    utm.zone = 32;
    EXPECT_FALSE(Split(CoordOf(Record(KOORD_UTM, utm))));
    EXPECT_FALSE(Split(CoordOf(Utmref(32, 'U', "QA", 0, 0, NO_DATUM))));
    EXPECT_FALSE(Split(CoordOf(Utmref(32, 'U', "QA", 0, 0, -1))));
    EXPECT_FALSE(checker->SplitCoord(CoordOf(Utmref(32, 'U', "QA", 0, 0)).Get(), text[0].Get(), text[1].Get(),
                                     text[2].Get(), text[3].Get(), text[4].Get(), nullptr));
    EXPECT_EQ(Typed(), (Pieces{"a", "b", "c", "d", "e", "f"}));
}

TEST_F(CoordCheckerUtmref, ComposesARecordOnTheTargetsDatum) {
    CKoord target(GeodezRecord(12.0, 34.0));
    ASSERT_TRUE(Compose({"32", "U", "Q", "A", "07819", "42661"}, &target));
    EXPECT_EQ(target.datum, static_cast<std::uint32_t>(DATUM_WGS84));
    EXPECT_EQ(target.type, static_cast<std::uint32_t>(KOORD_UTMREF));
    const auto p = Load<UtmrefPayload>(target);
    EXPECT_EQ(p.zone, 32);
    EXPECT_EQ(p.wantedZone, NO_WANTED_ZONE);
    EXPECT_EQ(std::string({p.band, p.column, p.row}), "UQA");
    EXPECT_EQ(p.easting, 7819);
    EXPECT_EQ(p.northing, 42661);

    // Band U on Bessel has no row A in column K.
    CKoord bessel(MakeKoord(DATUM_BESSEL, KOORD_GEODEZ));
    EXPECT_FALSE(Compose({"32", "U", "K", "A", "", ""}, &bessel));
    EXPECT_TRUE(Compose({"32", "U", "K", "L", "", ""}, &bessel));
}

TEST_F(CoordCheckerUtmref, MissingDigitsAreZerosOnTheRight) {
    CKoord target;
    ASSERT_TRUE(Compose({"32", "U", "Q", "A", "12", "1234"}, &target));
    EXPECT_EQ(Load<UtmrefPayload>(target).easting, 12000);
    EXPECT_EQ(Load<UtmrefPayload>(target).northing, 12340);
    ASSERT_TRUE(Compose({"32", "U", "Q", "A", "", "00001"}, &target));
    EXPECT_EQ(Load<UtmrefPayload>(target).easting, 0);
    EXPECT_EQ(Load<UtmrefPayload>(target).northing, 1);
}

TEST_F(CoordCheckerUtmref, AGroupIsReadAsFarAsItsDigitsGo) {
    CKoord target;
    ASSERT_TRUE(Compose({"32", "U", "Q", "A", "1a", "12.3"}, &target));
    EXPECT_EQ(Load<UtmrefPayload>(target).easting, 1);
    EXPECT_EQ(Load<UtmrefPayload>(target).northing, 12);
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", "a1", ""}));
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", "", "-1"}));
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", " 1", ""}));
}

TEST_F(CoordCheckerUtmref, ZonesMayHaveZerosAndLettersMayBeSmall) {
    CKoord target;
    ASSERT_TRUE(Compose({"00060", "u", "w", "e", "1", "2"}, &target));
    EXPECT_EQ(Load<UtmrefPayload>(target).zone, 60);
    ASSERT_TRUE(Compose({"032", "u", "q", "a", "123", "4"}, &target));
    const auto p = Load<UtmrefPayload>(target);
    EXPECT_EQ(p.zone, 32);
    EXPECT_EQ(std::string({p.band, p.column, p.row}), "uqa") << "as typed";
    EXPECT_EQ(p.easting, 12300);
    EXPECT_EQ(p.northing, 40000);
    // The letters of a record are capital ones.
    tagKOORD position = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    EXPECT_NE(KoordConvert(&target, &position), KOORD_OK);
}

TEST_F(CoordCheckerUtmref, AnImpossiblePieceLeavesTheTargetAlone) {
    const Pieces possible{"32", "U", "Q", "A", "1", "2"};
    const CKoord before(GeodezRecord(12.0, 34.0));
    for (std::string Pieces::*piece : {&Pieces::zone, &Pieces::band, &Pieces::column, &Pieces::row}) {
        for (const char* wrong : {"", "0", "I", "Y", "QQ", "\x80"}) {
            Pieces pieces = possible;
            pieces.*piece = wrong;
            CKoord target(before);
            EXPECT_FALSE(Compose(pieces, &target)) << pieces;
            EXPECT_EQ(std::memcmp(&target, &before, sizeof(tagKOORD)), 0) << pieces;
        }
    }
    CKoord noDatum(MakeKoord(NO_DATUM, KOORD_GEODEZ));
    EXPECT_FALSE(Compose(possible, &noDatum));
    EXPECT_EQ(noDatum.type, static_cast<std::uint32_t>(KOORD_GEODEZ));
}

TEST_F(CoordCheckerUtmref, SixDigitsAreTooManyAndTheTypeIsWrittenAlready) {
    CKoord target;
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", "123456", "1"}, &target));
    EXPECT_EQ(target.type, static_cast<std::uint32_t>(KOORD_UTMREF));
    target = CKoord();
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", "1", "123456"}, &target));
    EXPECT_EQ(target.type, static_cast<std::uint32_t>(KOORD_UTMREF));
}

TEST_F(CoordCheckerUtmref, WhatWasSplitComposesAgain) {
    testing::Random random(4);
    for (int i = 0; i < 1000; ++i) {
        const tagKOORD position = GeodezRecord(random.Between(-80.0, 84.0), random.Between(-180.0, 180.0));
        tagKOORD reference = Utmref(0, 'A', "AA", 0, 0);
        ASSERT_EQ(KoordConvert(&position, &reference), KOORD_OK);
        ASSERT_TRUE(Split(CoordOf(reference)));
        CKoord target;
        ASSERT_TRUE(Compose(Typed(), &target)) << Typed();
        EXPECT_EQ(std::memcmp(target.payload, reference.payload, sizeof(UtmrefPayload)), 0) << Typed();
    }
}

TEST_F(CoordCheckerUtmref, EveryPositionHasPossiblePieces) {
    testing::Random random(44);
    for (const std::int32_t datum : {DATUM_WGS84, DATUM_BESSEL, 1, 13}) {
        for (int i = 0; i < 2500; ++i) {
            const tagKOORD position =
                GeodezRecord(random.Between(-80.0, 84.0), random.Between(-180.0, 180.0), 0.0, datum);
            tagKOORD reference = Utmref(0, 'A', "AA", 0, 0, datum);
            ASSERT_EQ(KoordConvert(&position, &reference), KOORD_OK);
            EXPECT_TRUE(checker->CheckCoord(CoordOf(reference).Get())) << datum;
        }
    }
}

TEST_F(CoordCheckerUtmref, ChecksTheLettersAndTheFirstCharacterOfTheDigits) {
    EXPECT_TRUE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "QA", 7819, 42661)).Get()));
    EXPECT_TRUE(checker->CheckCoord(CoordOf(Utmref(32, 'u', "qa", 7819, 42661)).Get()));
    EXPECT_TRUE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "QA", 123456, 0)).Get()));
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "QA", -1, 0)).Get()));
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "RA", 0, 0)).Get()))
        << "a column beyond the zone";
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "QP", 0, 0)).Get())) << "a row beyond the band";
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(61, 'U', "QA", 0, 0)).Get()));
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(-32, 'U', "QA", 0, 0)).Get()));
    EXPECT_FALSE(checker->CheckCoord(CoordOf(Utmref(32, 'U', "QA", 0, 0, NO_DATUM)).Get()));
    EXPECT_FALSE(checker->CheckCoord(CoordOf(GeodezRecord(48.0, 11.0)).Get()));
}

TEST_F(CoordCheckerUtmref, NullAndForeignObjectsAreFailures) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> hosts(NewObject<testing::HostCoord>());
    Type({"32", "U", "Q", "A", "1", "2"});
    list->Add(stranger.Get());
    for (ITessaraString* wrong :
         {static_cast<ITessaraString*>(nullptr), testing::Disguised<ITessaraString>(stranger)}) {
        EXPECT_FALSE(checker->GetColumnList(list.Get(), DATUM_WGS84, text[0].Get(), text[1].Get(), wrong,
                                            text[3].Get()));
        EXPECT_FALSE(checker->GetColumnList(list.Get(), DATUM_WGS84, text[0].Get(), text[1].Get(),
                                            text[2].Get(), wrong));
        EXPECT_FALSE(
            checker->GetRowList(list.Get(), DATUM_WGS84, text[0].Get(), text[1].Get(), text[2].Get(), wrong));
        EXPECT_FALSE(
            checker->GetRowList(list.Get(), DATUM_WGS84, wrong, text[1].Get(), text[2].Get(), text[3].Get()));
        CKoord target;
        EXPECT_FALSE(checker->ComposeCoord(text[0].Get(), text[1].Get(), text[2].Get(), text[3].Get(), wrong,
                                           text[5].Get(), &target));
    }
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), hosts.Get(), testing::Disguised<ICoord>(stranger)}) {
        EXPECT_FALSE(checker->CheckCoord(wrong));
        EXPECT_FALSE(checker->GetColumnListOf(list.Get(), wrong));
        EXPECT_FALSE(checker->GetRowListOf(list.Get(), wrong));
        EXPECT_FALSE(checker->SplitCoord(wrong, text[0].Get(), text[1].Get(), text[2].Get(), text[3].Get(),
                                         text[4].Get(), text[5].Get()));
    }
    EXPECT_EQ(list->GetCount(), 1u) << "not touched";
    EXPECT_FALSE(checker->GetZoneList(nullptr));
    EXPECT_FALSE(checker->GetBandList(testing::Disguised<IArray>(stranger)));
    EXPECT_FALSE(Compose({"32", "U", "Q", "A", "1", "2"}, nullptr));
}

TEST_F(CoordCheckerUtmref, TextsThatNobodyHoldsLiveUntilTheEndOfTheOperation) {
    const auto fresh = [](const char* contents) {
        ITessaraString* const made = NewObject<TessaraString>();
        made->AssignText(contents);
        return made;
    };
    ITessaraString* both = fresh("");
    EXPECT_TRUE(checker->GetColumnList(list.Get(), DATUM_WGS84, both, both, both, both));
    both = fresh("");
    EXPECT_TRUE(checker->GetRowList(list.Get(), DATUM_WGS84, both, both, both, both));
    both = fresh("");
    EXPECT_TRUE(
        checker->SplitCoord(CoordOf(Utmref(32, 'U', "QA", 1, 2)).Get(), both, both, both, both, both, both));
    CKoord target;
    both = fresh("32");
    EXPECT_FALSE(checker->ComposeCoord(both, both, both, both, both, both, &target));
}

TEST_F(CoordCheckerUtmref, WithoutMemoryForAnEntryAListEndsThere) {
    bool failedWhileFilling = false;
    for (int nth = 1; nth < 200; ++nth) {
        list->Clear();
        bool done = false;
        try {
            const testing::FailAllocation failure(nth);
            done = checker->GetZoneList(list.Get());
        } catch (const std::bad_alloc&) {
            continue;  // of the list itself or of the library's own working memory
        }
        if (done) continue;
        failedWhileFilling = true;
        EXPECT_LT(list->GetCount(), 60u);
    }
    EXPECT_TRUE(failedWhileFilling);
}

}  // namespace
}  // namespace tessara
