#include <gtest/gtest.h>

#include <iterator>
#include <thread>
#include <vector>

#include "support/garbage_records.h"
#include "support/live_objects.h"
#include "support/records.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using Records = std::vector<tagKOORD>;
using Statuses = std::vector<KoordStatus>;

// A status that no conversion gives.
constexpr KoordStatus UNTOUCHED = 12345;

KoordStatus FirstFailure(const Statuses& statuses) {
    for (const KoordStatus status : statuses) {
        if (status != KOORD_OK) return status;
    }
    return KOORD_OK;
}

// The whole array at once and one call a record leave the same bytes and the same statuses.
void ExpectAsOneCallARecord(const Records& sources, const Records& targets, std::int32_t checkRange) {
    ASSERT_EQ(sources.size(), targets.size());
    Records single = targets;
    Statuses singleStatus(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i)
        singleStatus[i] = KoordConvertEx(&sources[i], &single[i], checkRange);

    Records many = targets;
    Statuses status(sources.size(), UNTOUCHED);
    EXPECT_EQ(KoordConvertMany(sources.data(), many.data(), many.size(), checkRange, status.data()),
              FirstFailure(singleStatus));
    for (std::size_t i = 0; i < sources.size(); ++i) {
        ASSERT_EQ(status[i], singleStatus[i]) << i;
        ASSERT_TRUE(SameBytes(many[i], single[i]))
            << i << ": type " << sources[i].type << " to " << targets[i].type;
    }
}

// Positions in the Alps, which every grid reaches or refuses in its own way.
tagKOORD Position(std::int32_t i, std::int32_t datum) {
    return GeodezRecord(46.0 + 0.01 * (i % 100), 9.0 + 0.013 * (i % 70), 100.0 * i, datum);
}

// A target of the type with usual parameters; `variant` selects a set of them.
tagKOORD TargetOf(std::int32_t type, std::int32_t datum, std::int32_t variant) {
    tagKOORD target = NaturalTarget(type, datum);
    if (type == KOORD_TM) {
        Store(target, TmPayload{9.0 + variant, 46.0 + variant, 5e5, 1e5 * variant, 0.9996, 0.0, 0.0});
    } else if (type == KOORD_LAMBERTCC) {
        LambertCCPayload p{};
        p.parallel1 = 45.0f;
        p.parallel2 = 48.0f + static_cast<float>(variant);
        p.originLongitude = 10.0f;
        p.originLatitude = 47.0f;
        p.falseEasting = 1e5 * variant;
        Store(target, p);
    } else if (type == KOORD_VDG) {
        Store(target, VdgPayload{10.0 * variant, 5.0 * variant, 0.0, 0.0});
    }
    return target;
}

constexpr std::int32_t DATUMS_IN_TURN[] = {DATUM_WGS84, 3, 6, 7, 98, 237, 0};

TEST(KoordConvertMany, GivesWhatOneCallARecordGivesForEveryPairOfTypes) {
    for (std::int32_t from = 0; from < KOORD_TYPE_COUNT; ++from) {
        Records sources;
        for (std::int32_t i = 0; i < 20; ++i) {
            const tagKOORD position = Position(i, 3);
            sources.push_back(TargetOf(from, 3, 0));
            KoordConvertEx(&position, &sources.back(), 0);
        }
        for (std::int32_t to = 0; to < KOORD_TYPE_COUNT; ++to) {
            for (const std::int32_t datum : {3, 2}) {
                const Records targets(sources.size(), TargetOf(to, datum, 0));
                ExpectAsOneCallARecord(sources, targets, 1);
                ExpectAsOneCallARecord(sources, targets, 0);
            }
        }
    }
}

TEST(KoordConvertMany, PreparesAnewWhereTypeDatumOrParametersChange) {
    for (const std::int32_t runLength : {1, 2, 7}) {
        Records sources, targets;
        for (std::int32_t i = 0; i < 1000; ++i) {
            const std::int32_t run = i / runLength;
            const std::int32_t datum = DATUMS_IN_TURN[run % 7];
            const std::int32_t type = run % 3 == 0 ? KOORD_TM : run % 3 == 1 ? KOORD_LAMBERTCC : run % 24;
            sources.push_back(Position(i, DATUMS_IN_TURN[run / 2 % 7]));
            targets.push_back(TargetOf(type, datum, run / 5 % 3));
        }
        ExpectAsOneCallARecord(sources, targets, 0);
        ExpectAsOneCallARecord(sources, targets, 1);
        // And back: now the sources have the parameters.
        KoordConvertMany(sources.data(), targets.data(), targets.size(), 0, nullptr);
        ExpectAsOneCallARecord(targets, Records(targets.size(), MakeKoord(DATUM_WGS84, KOORD_GEODEZ)), 0);
    }
}

// Each parameter alone makes another projection, down to the last bit and the sign of a zero.
TEST(KoordConvertMany, SeesEveryParameterOfAProjection) {
    constexpr std::size_t tmParameters = offsetof(TmPayload, easting);
    constexpr std::size_t coneParameters = offsetof(LambertCCPayload, easting);
    for (const auto& [type, bytes] :
         {std::pair{KOORD_TM, tmParameters}, std::pair{KOORD_LAMBERTCC, coneParameters}}) {
        Records targets(1, TargetOf(type, DATUM_WGS84, 1));
        for (std::size_t byte = 0; byte < bytes; ++byte) {
            targets.push_back(targets[0]);
            targets.back().payload[byte] ^= std::byte{1};
            targets.push_back(targets[0]);
            targets.back().payload[byte] ^= std::byte{0x80};
        }
        ExpectAsOneCallARecord(Records(targets.size(), Position(5, DATUM_WGS84)), targets, 0);
    }
}

TEST(KoordConvertMany, GivesWhatOneCallARecordGivesForGarbage) {
    testing::Random random(7);
    Records sources, targets;
    for (int i = 0; i < 20000; ++i) {
        // Runs of some length, or else the parameters never stay.
        const bool begins = i % 4 == 0;
        sources.push_back(begins ? testing::GarbageRecord(random) : sources.back());
        targets.push_back(begins ? testing::GarbageRecord(random) : targets.back());
        if (!begins) testing::Mutate(random, i % 2 == 0 ? &sources.back() : &targets.back());
    }
    ExpectAsOneCallARecord(sources, targets, 0);
    ExpectAsOneCallARecord(sources, targets, 1);
}

// Each record is its own target, or the source of the next one, so that the results of failures are read,
// too.
TEST(KoordConvertMany, GivesWhatOneCallARecordGivesForGarbageThatOverlaps) {
    testing::Random random(8);
    for (const std::size_t ahead : {0u, 1u}) {
        Records records;
        for (int i = 0; i < 20000; ++i) {
            records.push_back(i % 3 == 0 ? testing::GarbageRecord(random) : records.back());
            if (i % 3 != 0) testing::Mutate(random, &records.back());
        }
        const std::size_t count = records.size() - ahead;
        Records single = records;
        Statuses singleStatus(count), status(count, UNTOUCHED);
        for (std::size_t i = 0; i < count; ++i)
            singleStatus[i] = KoordConvertEx(&single[i], &single[i + ahead], 0);
        KoordConvertMany(records.data(), records.data() + ahead, count, 0, status.data());
        EXPECT_EQ(status, singleStatus);
        for (std::size_t i = 0; i < records.size(); ++i)
            ASSERT_TRUE(SameBytes(records[i], single[i])) << i;
    }
}

TEST(KoordConvertMany, AFailureEndsNothingAndTheFirstIsReturned) {
    Records sources(5, GeodezRecord(48.0, 9.0));
    sources[1].datum = DATUM_COUNT;
    sources[3] = GeodezRecord(85.0, 9.0);
    Records targets(5, MakeKoord(DATUM_WGS84, KOORD_UTM));
    targets[4].type = KOORD_LONGPIXEL;
    Statuses status(5, UNTOUCHED);
    EXPECT_EQ(KoordConvertMany(sources.data(), targets.data(), 5, 1, status.data()), KOORD_ERR_DATUM);
    EXPECT_EQ(status, (Statuses{KOORD_OK, KOORD_ERR_DATUM, KOORD_OK, KOORD_ERR_NORTH_HIGH, KOORD_ERR_TYPE}));
    EXPECT_TRUE(SameBytes(targets[0], targets[2]));
}

TEST(KoordConvertMany, DoesWithoutTheArrayOfStatuses) {
    const Records sources(3, GeodezRecord(48.0, 9.0));
    Records targets(3, MakeKoord(DATUM_WGS84, KOORD_UTM));
    EXPECT_EQ(KoordConvertMany(sources.data(), targets.data(), 3, 1, nullptr), KOORD_OK);
    EXPECT_EQ(Load<UtmPayload>(targets[2]).zone, 32);
}

TEST(KoordConvertMany, NullRecordsFailAsInOneCall) {
    Records records(2, GeodezRecord(48.0, 9.0));
    const Statuses failed(2, KOORD_ERR_GENERAL);
    Statuses status(2, UNTOUCHED);
    EXPECT_EQ(KoordConvertMany(nullptr, records.data(), 2, 1, status.data()), KOORD_ERR_GENERAL);
    EXPECT_EQ(status, failed);
    status.assign(2, UNTOUCHED);
    EXPECT_EQ(KoordConvertMany(records.data(), nullptr, 2, 1, status.data()), KOORD_ERR_GENERAL);
    EXPECT_EQ(status, failed);
    EXPECT_EQ(KoordConvertMany(nullptr, records.data(), 2, 1, nullptr), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertMany(records.data(), nullptr, 2, 1, nullptr), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertMany(nullptr, nullptr, 0, 1, nullptr), KOORD_OK);
}

TEST(KoordConvertMany, NothingToDoTouchesNothing) {
    Records records(1, GeodezRecord(48.0, 9.0));
    KoordStatus status = UNTOUCHED;
    EXPECT_EQ(KoordConvertMany(records.data(), records.data(), 0, 1, &status), KOORD_OK);
    EXPECT_EQ(status, UNTOUCHED);
}

// 200 records of an array, which end within a block, and those behind them.
TEST(KoordConvertMany, TouchesNothingBehindItsRecords) {
    constexpr std::size_t count = 200;
    Records sources;
    for (std::int32_t i = 0; i < 400; ++i)
        sources.push_back(Position(i, DATUM_WGS84));
    const tagKOORD untouched = MakeKoord(DATUM_WGS84, KOORD_UTM);
    Records targets(sources.size(), untouched);
    Statuses statuses(sources.size(), UNTOUCHED);
    EXPECT_EQ(KoordConvertMany(sources.data(), targets.data(), count, 1, statuses.data()), KOORD_OK);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        EXPECT_EQ(statuses[i], i < count ? KOORD_OK : UNTOUCHED) << i;
        EXPECT_EQ(SameBytes(targets[i], untouched), i >= count) << i;
    }
}

TEST(KoordConvertMany, WorksInPlace) {
    Records records, single;
    for (std::int32_t i = 0; i < 50; ++i) {
        tagKOORD record = TargetOf(i % KOORD_TYPE_COUNT, 3, 1);
        const tagKOORD position = Position(i, 3);
        KoordConvertEx(&position, &record, 0);
        records.push_back(record);
    }
    single = records;
    for (tagKOORD& record : single)
        KoordConvertEx(&record, &record, 0);
    KoordConvertMany(records.data(), records.data(), records.size(), 0, nullptr);
    for (std::size_t i = 0; i < records.size(); ++i)
        EXPECT_TRUE(SameBytes(records[i], single[i])) << i;
}

TEST(KoordConvertMany, ALaterSourceIsReadAsAnEarlierTargetLeftIt) {
    // Each record is the next one's source: the first position goes through all the types.
    Records records;
    for (const std::int32_t type : {KOORD_GEODEZ, KOORD_TM, KOORD_TM, KOORD_LAMBERTCC, KOORD_UTM, KOORD_TM})
        records.push_back(TargetOf(type, DATUM_WGS84, static_cast<std::int32_t>(records.size()) % 2));
    records[0] = Position(3, DATUM_WGS84);
    Records single = records;
    for (std::size_t i = 0; i + 1 < single.size(); ++i)
        EXPECT_EQ(KoordConvertEx(&single[i], &single[i + 1], 0), KOORD_OK);
    EXPECT_EQ(KoordConvertMany(records.data(), records.data() + 1, records.size() - 1, 0, nullptr), KOORD_OK);
    for (std::size_t i = 0; i < records.size(); ++i)
        EXPECT_TRUE(SameBytes(records[i], single[i])) << i;
}

TEST(KoordConvertMany, AllocatesNothing) {
    const Records sources(10, Position(1, 3));
    Records targets(10, TargetOf(KOORD_LAMBERTCC, DATUM_WGS84, 0));
    targets[5] = TargetOf(KOORD_TM, DATUM_WGS84, 0);
    targets[7] = TargetOf(KOORD_UTMREF, DATUM_WGS84, 0);
    const testing::FailAllocation next(1);
    EXPECT_EQ(KoordConvertMany(sources.data(), targets.data(), 10, 0, nullptr), KOORD_OK);
    EXPECT_FALSE(next.HasFailed());
}

TEST(KoordConvertMany, TwoThreadsMayEachTakeAHalf) {
    constexpr std::size_t half = 500;
    Records sources;
    for (std::int32_t i = 0; i < 1000; ++i)
        sources.push_back(Position(i, 3));
    Records targets(sources.size(), TargetOf(KOORD_UTM, DATUM_WGS84, 0));
    Records single = targets;
    for (std::size_t i = 0; i < sources.size(); ++i)
        KoordConvert(&sources[i], &single[i]);

    Statuses status(sources.size(), UNTOUCHED);
    const auto convertHalf = [&](std::size_t first) {
        KoordConvertMany(&sources[first], &targets[first], half, 1, &status[first]);
    };
    std::thread other(convertHalf, half);
    convertHalf(0);
    other.join();
    EXPECT_EQ(status, Statuses(sources.size(), KOORD_OK));
    for (std::size_t i = 0; i < sources.size(); ++i)
        ASSERT_TRUE(SameBytes(targets[i], single[i])) << i;
}

}  // namespace
}  // namespace tessara
