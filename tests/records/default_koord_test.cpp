#include "records/default_koord.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <variant>
#include <vector>

#include "support/zoned_records.h"

namespace tessara {
namespace {

using i16 = std::int16_t;
using i32 = std::int32_t;

struct Field {
    std::size_t offset;
    std::variant<char, i16, i32, double> value;
};

struct DefaultRow {
    std::int32_t system;
    std::vector<Field> fields;  // by their place in the payload; all other bytes are zero
};

const i16 NONE = -1000;

const DefaultRow ROWS[] = {
    {0, {}},
    {1, {}},
    {2, {{0, 'N'}, {2, NONE}, {4, i16{30}}, {8, 500000.0}}},
    {3, {{0, NONE}, {2, i16{30}}, {4, 'N'}, {6, 'W'}, {7, 'F'}}},
    {4, {}},
    {5, {{16, 'N'}, {32, 'W'}}},
    {6, {{0, i16{8}}, {2, 'N'}, {3, 'G'}, {4, 'A'}, {5, 'A'}}},
    {7, {{0, 'N'}, {2, NONE}, {8, 3500000.0}}},
    {8, {{0, NONE}, {2, i16{31}}, {8, 500000.0}, {16, 200000.0}}},
    {9, {{0, NONE}, {2, i16{31}}, {8, 800000.0}, {16, 5200000.0}}},
    {10, {{0, 600000.0}, {8, 200000.0}}},
    {11, {}},
    {12, {{16, 'N'}, {32, 'W'}}},
    {13, {{0, 'N'}, {2, NONE}, {8, 2500000.0}}},
    {14, {{0, NONE}, {2, i16{31}}, {16, 5200000.0}}},
    {15, {{0, 'N'}, {8, 2000000.0}, {16, 2000000.0}}},
    {16, {{0, 200000.0}, {8, 200000.0}}},
    {17, {{32, 1.0}}},
    {18, {}},
    {19, {}},
    {20, {}},
    {21, {{0, 200000.0}, {8, 400000.0}}},
    {22, {}},
};

tagKOORD RecordOf(const DefaultRow& row, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, row.system);
    for (const Field& field : row.fields) {
        std::visit([&](auto value) { std::memcpy(record.payload + field.offset, &value, sizeof value); },
                   field.value);
    }
    return record;
}

// Bytes other than zero, which reveal fields that aren't written.
CKoord Rubbish(std::int32_t datum, std::int32_t system) {
    CKoord koord;
    koord.SetHeight(77.0);
    koord.datum = static_cast<std::uint32_t>(datum);
    koord.type = static_cast<std::uint32_t>(system);
    std::memset(koord.payload, 0x55, sizeof koord.payload);
    return koord;
}

TEST(DefaultKoordTest, IsThatOfTheTableForEverySystem) {
    static_assert(std::size(ROWS) == 23);
    for (const DefaultRow& row : ROWS) {
        for (std::int32_t datum : {0, 2, 238, 999}) {
            CKoord koord = Rubbish(5, 5);
            EXPECT_TRUE(DefaultKoord(datum, row.system, &koord)) << row.system;
            EXPECT_TRUE(testing::SameRecord(koord, RecordOf(row, datum))) << row.system;
        }
    }
}

TEST(DefaultKoordTest, HasNoHeight) {
    for (const DefaultRow& row : ROWS) {
        CKoord koord = Rubbish(5, 5);
        DefaultKoord(2, row.system, &koord);
        EXPECT_EQ(koord.GetHeight(), 0.0) << row.system;
    }
}

TEST(DefaultKoordTest, LeavesTheRecordOfASystemWithoutADefault) {
    for (std::int32_t system : {-1, 23, 24, INT_MIN, INT_MAX}) {
        CKoord koord = Rubbish(2, 4);
        const CKoord before = koord;
        EXPECT_FALSE(DefaultKoord(2, system, &koord)) << system;
        EXPECT_TRUE(testing::SameRecord(koord, before)) << system;
    }
}

TEST(DefaultKoordTest, LeavesTheRecordOfADatumThatNoReferenceTakes) {
    for (std::int32_t datum : {-1, 239, 998, 1000, INT_MIN, INT_MAX}) {
        CKoord koord = Rubbish(2, 4);
        const CKoord before = koord;
        EXPECT_FALSE(DefaultKoord(datum, 2, &koord)) << datum;
        EXPECT_TRUE(testing::SameRecord(koord, before)) << datum;
    }
}

TEST(ResetToDefaultTest, KeepsTheReferenceOfTheRecord) {
    for (const DefaultRow& row : ROWS) {
        CKoord koord = Rubbish(6, row.system);
        EXPECT_TRUE(ResetToDefault(&koord));
        EXPECT_TRUE(testing::SameRecord(koord, RecordOf(row, 6))) << row.system;
        EXPECT_EQ(BytesAs<GeodezPayload>(koord).height, BytesAs<GeodezPayload>(RecordOf(row, 6)).height);
    }
}

TEST(IsEarthCentreTest, IsTrueOfTheOriginAlone) {
    const auto at = [](double x, double y, double z) {
        tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_ECEF);
        Store(record, EcefPayload{x, y, z});
        return record;
    };
    EXPECT_TRUE(IsEarthCentre(at(0.0, 0.0, 0.0)));
    EXPECT_TRUE(IsEarthCentre(at(-0.0, 0.0, -0.0)));
    EXPECT_FALSE(IsEarthCentre(at(1.0, 0.0, 0.0)));
    EXPECT_FALSE(IsEarthCentre(at(0.0, 1.0, 0.0)));
    EXPECT_FALSE(IsEarthCentre(at(0.0, 0.0, 1.0)));
    EXPECT_FALSE(IsEarthCentre(MakeKoord(DATUM_WGS84, KOORD_GEODEZ))) << "its payload is zero";
}

TEST(ResetToDefaultTest, LeavesARecordWithoutADefault) {
    CKoord koord = Rubbish(2, 23);
    const CKoord before = koord;
    EXPECT_FALSE(ResetToDefault(&koord));
    EXPECT_TRUE(testing::SameRecord(koord, before));
    EXPECT_EQ(koord.GetHeight(), 77.0);
}

}  // namespace
}  // namespace tessara
