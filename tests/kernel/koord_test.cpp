#include "tessara/kernel/koord.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "tessara/kernel/names.h"

namespace tessara::koord_test {
namespace {

TEST(KoordType, HasItsNumberAndName) {
    const struct {
        KoordType type;
        std::int32_t number;
        const char* name;
    } rows[] = {
        {KOORD_LONGPIXEL, 0, "LONGPIXEL"},
        {KOORD_FLOATPIXEL, 1, "FLOATPIXEL"},
        {KOORD_UTM, 2, "UTM"},
        {KOORD_UTMREF, 3, "UTMREF"},
        {KOORD_GEODEZ, 4, "GEODEZ"},
        {KOORD_GEOGRAD, 5, "GEOGRAD"},
        {KOORD_GEOREF, 6, "GEOREF"},
        {KOORD_GK, 7, "GK"},
        {KOORD_BMN, 8, "BMN"},
        {KOORD_OEM, 9, "OEM"},
        {KOORD_CH, 10, "CH"},
        {KOORD_ECEF, 11, "ECEF"},
        {KOORD_GEODEZMIN, 12, "GEODEZMIN"},
        {KOORD_GK6, 13, "GK6"},
        {KOORD_GKAT, 14, "GK-AT"},
        {KOORD_UPS, 15, "UPS"},
        {KOORD_PO_MILITARY, 16, "PO_MILITARY"},
        {KOORD_TM, 17, "TM"},
        {KOORD_VDG, 18, "VDG"},
        {KOORD_BNG, 19, "BNG"},
        {KOORD_ING, 20, "ING"},
        {KOORD_RD, 21, "RD"},
        {KOORD_LUREF, 22, "LUREF"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.type, row.number);
        EXPECT_STREQ(CoordinateType_Name(row.type), row.name);
    }
    EXPECT_EQ(KOORD_LAMBERTCC, 23);
    EXPECT_EQ(CoordinateType_Name(KOORD_LAMBERTCC), nullptr) << "the free Lambert has no name";
    EXPECT_EQ(KOORD_TYPE_COUNT, 24);
}

TEST(KoordType, IsAPixelForTheFirstTwo) {
    for (std::int32_t type = -1; type <= KOORD_TYPE_COUNT; ++type)
        EXPECT_EQ(IsPixelType(type), type == 0 || type == 1) << type;
}

TEST(Koord, IsMadeWithAnEmptyPayload) {
    const tagKOORD record = MakeKoord(-1, 7);
    EXPECT_EQ(record.datum, 0xFFFFFFFFu);
    EXPECT_EQ(record.type, 7u);
    EXPECT_TRUE(std::ranges::all_of(record.payload, [](std::byte b) { return b == std::byte{0}; }));
}

// Bytes without a name survive reading and writing, those inside a payload and those behind it.
template <class Payload>
void ExpectKeepsEveryByte() {
    tagKOORD record = MakeKoord(2, TYPES_OF<Payload>[0]);
    for (std::size_t i = 0; i < sizeof record.payload; ++i)
        record.payload[i] = static_cast<std::byte>(i + 1);
    const tagKOORD before = record;
    Store(record, Load<Payload>(record));
    EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
}

TEST(Koord, ReadingAndWritingAPayloadKeepsEveryByte) {
    ExpectKeepsEveryByte<LongPixelPayload>();
    ExpectKeepsEveryByte<FloatPixelPayload>();
    ExpectKeepsEveryByte<UtmPayload>();
    ExpectKeepsEveryByte<UtmrefPayload>();
    ExpectKeepsEveryByte<GeodezPayload>();
    ExpectKeepsEveryByte<GeogradPayload>();
    ExpectKeepsEveryByte<GeorefPayload>();
    ExpectKeepsEveryByte<GkPayload>();
    ExpectKeepsEveryByte<BmnPayload>();
    ExpectKeepsEveryByte<GridPayload>();
    ExpectKeepsEveryByte<EcefPayload>();
    ExpectKeepsEveryByte<GeodezMinPayload>();
    ExpectKeepsEveryByte<UpsPayload>();
    ExpectKeepsEveryByte<TmPayload>();
    ExpectKeepsEveryByte<VdgPayload>();
    ExpectKeepsEveryByte<LetterGridPayload>();
    ExpectKeepsEveryByte<LambertCCPayload>();
}

template <class Payload>
std::vector<int> TypesOf() {
    std::vector<int> types;
    for (std::uint32_t type = 0; type < 30; ++type) {
        if (IsPayloadOf<Payload>(type)) types.push_back(static_cast<int>(type));
    }
    return types;
}

TEST(Koord, APayloadBelongsToTheTypesThatHoldIt) {
    using Types = std::vector<int>;
    EXPECT_EQ(TypesOf<LongPixelPayload>(), Types{0});
    EXPECT_EQ(TypesOf<FloatPixelPayload>(), Types{1});
    EXPECT_EQ(TypesOf<UtmPayload>(), Types{2});
    EXPECT_EQ(TypesOf<UtmrefPayload>(), Types{3});
    EXPECT_EQ(TypesOf<GeodezPayload>(), Types{4});
    EXPECT_EQ(TypesOf<GeogradPayload>(), Types{5});
    EXPECT_EQ(TypesOf<GeorefPayload>(), Types{6});
    EXPECT_EQ(TypesOf<GkPayload>(), (Types{7, 13}));
    EXPECT_EQ(TypesOf<BmnPayload>(), (Types{8, 9, 14}));
    EXPECT_EQ(TypesOf<GridPayload>(), (Types{10, 16, 21, 22}));
    EXPECT_EQ(TypesOf<EcefPayload>(), Types{11});
    EXPECT_EQ(TypesOf<GeodezMinPayload>(), Types{12});
    EXPECT_EQ(TypesOf<UpsPayload>(), Types{15});
    EXPECT_EQ(TypesOf<TmPayload>(), Types{17});
    EXPECT_EQ(TypesOf<VdgPayload>(), Types{18});
    EXPECT_EQ(TypesOf<LetterGridPayload>(), (Types{19, 20}));
    EXPECT_EQ(TypesOf<LambertCCPayload>(), Types{23});
}

TEST(Koord, ACallersOwnPayloadMayBeReadFromAnyRecord) {
    struct FirstBytes {
        std::int16_t number;
    };
    for (std::int32_t type = -1; type <= KOORD_TYPE_COUNT; ++type) {
        tagKOORD record = MakeKoord(2, type);
        Store(record, FirstBytes{77});
        EXPECT_EQ(Load<FirstBytes>(record).number, 77);
    }
}

TEST(Koord, LoadIfGivesThePayloadOfARecordOfItsType) {
    tagKOORD record = MakeKoord(2, KOORD_GK6);
    GkPayload written{};
    written.easting = 2500000.0;
    Store(record, written);
    const std::optional<GkPayload> read = LoadIf<GkPayload>(record);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->easting, 2500000.0);
}

TEST(Koord, LoadIfGivesNothingOfARecordOfAnotherType) {
    EXPECT_FALSE(LoadIf<UtmPayload>(MakeKoord(2, KOORD_UTMREF)).has_value());
    EXPECT_FALSE(LoadIf<UtmPayload>(MakeKoord(2, -1)).has_value());
    EXPECT_FALSE(LoadIf<GridPayload>(MakeKoord(2, KOORD_BNG)).has_value());
}

#if !defined(NDEBUG)
TEST(KoordDeathTest, LoadOfARecordOfAnotherTypeStopsADebugBuild) {
    EXPECT_DEATH((void)Load<UtmPayload>(MakeKoord(2, KOORD_GK)), "IsPayloadOf");
}
#endif

}  // namespace
}  // namespace tessara::koord_test
