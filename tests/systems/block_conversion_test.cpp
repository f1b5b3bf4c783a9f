#include "systems/block_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "support/instruction_sets.h"
#include "support/legal_positions.h"
#include "support/mixed_records.h"

namespace tessara {
namespace {

using Records = std::vector<tagKOORD>;

// Degrees from the next border of bands of 8 degrees; zones and strips end on whole and half degrees.
double FromBorder(double latitude) {
    return std::fabs(std::remainder(latitude, 8.0));
}

// Positions on neither an axis nor a border, in the system.
Records OrdinaryRecords(testing::Random& random, const testing::LegalArea& area) {
    Records records;
    while (records.size() < Block::SIZE) {
        const double latitude = random.Between(std::max(area.south, -89.0), std::min(area.north, 89.0));
        if (FromBorder(latitude) < 0.01) continue;
        const double longitude = random.Between(std::max(area.west, -179.0), std::min(area.east, 179.0));
        const tagKOORD degrees = GeodezRecord(latitude, longitude);
        tagKOORD record = testing::WithParameters(area.system, DATUM_WGS84);
        EXPECT_EQ(KoordConvertEx(&degrees, &record, 0), KOORD_OK);
        records.push_back(record);
    }
    return records;
}

std::size_t SpecialRows(const Records& sources, const tagKOORD& target, InstructionSet set) {
    Conversion single;
    single.Prepare(sources[0], target);
    BlockConversion blocks;
    blocks.Prepare(single, sources[0], target, RangeCheck::Off);
    EXPECT_TRUE(blocks.IsWorthwhile());
    const auto block = std::make_unique<Block>();
    blocks.Clear(*block, sources.size());
    blocks.Load(sources, *block);
    blocks.LoadWanted(Records(sources.size(), target), *block);
    blocks.Compute(*block, sources.size(), set);
    std::size_t special = 0;
    for (std::size_t row = 0; row < sources.size(); ++row)
        special += static_cast<std::size_t>(block->IsSpecial(row));
    return special;
}

// A row that the formulas of a block refuse has the right result all the same, from a single conversion.
TEST(BlockConversion, ConvertsOrdinaryPositionsItself) {
    testing::Random random(32);
    std::vector<testing::LegalArea> areas(std::begin(testing::LEGAL_AREAS), std::end(testing::LEGAL_AREAS));
    areas.push_back({KOORD_TM, 47.5, 49.5, 9.5, 12.0});
    areas.push_back({KOORD_LAMBERTCC, 40.0, 55.0, 0.0, 20.0});
    for (const testing::LegalArea& area : areas) {
        if (IsPixelType(area.system)) continue;
        const Records records = OrdinaryRecords(random, area);
        if (SystemOf(records[0]).blocks == nullptr) continue;
        SCOPED_TRACE(area.system);
        for (const InstructionSet set : testing::SupportedSets()) {
            if (area.system == KOORD_GEODEZ) continue;
            EXPECT_EQ(SpecialRows(records, MakeKoord(DATUM_WGS84, KOORD_GEODEZ), set), 0u) << "to degrees";
            Records degrees;
            for (const tagKOORD& record : records) {
                degrees.push_back(MakeKoord(DATUM_WGS84, KOORD_GEODEZ));
                ASSERT_EQ(KoordConvert(&record, &degrees.back()), KOORD_OK);
            }
            EXPECT_EQ(SpecialRows(degrees, testing::WithParameters(area.system, DATUM_WGS84), set), 0u)
                << "from degrees";
        }
    }
}

// There and back, where all datums have their countries.
TEST(BlockConversion, ShiftsOrdinaryPositionsItself) {
    testing::Random random(33);
    const testing::LegalArea inhabited{KOORD_GEODEZ, -60.0, 70.0, -170.0, 170.0};
    const Records records = OrdinaryRecords(random, inhabited);
    for (const std::int32_t datum : {1, 3, 6, 7, DATUM_KKJ + 0, 98, 237}) {
        const tagKOORD target = MakeKoord(datum, KOORD_GEODEZ);
        Records shifted;
        for (const tagKOORD& record : records) {
            shifted.push_back(target);
            ASSERT_EQ(KoordConvert(&record, &shifted.back()), KOORD_OK);
        }
        for (const InstructionSet set : testing::SupportedSets()) {
            EXPECT_EQ(SpecialRows(records, target, set), 0u) << "to " << datum;
            EXPECT_EQ(SpecialRows(shifted, records[0], set), 0u) << "from " << datum;
        }
    }
}

}  // namespace
}  // namespace tessara
