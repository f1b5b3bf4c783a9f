// Every way of converting gives the same bits: one call a record and many at once, with each set of
// instructions that this processor has. TESSARA_EQUALITY_POSITIONS says how many positions for each pair of
// types: `ctest -C Soak -R equality` takes 100 000.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "support/instruction_sets.h"
#include "support/mixed_records.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "systems/convert_many.h"

namespace tessara {
namespace {

using Records = std::vector<tagKOORD>;
using Statuses = std::vector<KoordStatus>;

std::size_t PositionsWanted() {
    return testing::SizeSetting("TESSARA_EQUALITY_POSITIONS", testing::IS_SANITIZED ? 200 : 1000);
}

struct Results {
    Records records;
    Statuses statuses;
};

Results ConvertedOneByOne(const Records& sources, const Records& targets, RangeCheck check) {
    Results results{targets, Statuses(targets.size())};
    for (std::size_t i = 0; i < sources.size(); ++i)
        results.statuses[i] = ConvertRecord(sources[i], &results.records[i], check);
    return results;
}

void ExpectTheSame(const Results& one, const Results& other, const char* way) {
    for (std::size_t i = 0; i < one.statuses.size(); ++i)
        ASSERT_EQ(one.statuses[i], other.statuses[i]) << i << ' ' << way;
    for (std::size_t i = 0; i < one.records.size(); ++i) {
        ASSERT_EQ(std::memcmp(&one.records[i], &other.records[i], sizeof(tagKOORD)), 0) << i << ' ' << way;
    }
}

void ExpectManyGiveTheSame(const Records& sources, const Records& targets, RangeCheck check) {
    const Results single = ConvertedOneByOne(sources, targets, check);
    for (const InstructionSet set : testing::SupportedSets()) {
        Results many{targets, Statuses(targets.size())};
        ConvertMany(sources.data(), many.records.data(), sources.size(), check, many.statuses.data(), set);
        ExpectTheSame(single, many, "many");
    }
}

// A datum of its own, WGS84, and others: those of the grids, the sphere, the one with strips of its own, and
// those whose shift is long.
constexpr std::int32_t DATUMS[] = {DATUM_WGS84, 3, 6, 7, DATUM_KKJ, DATUM_SPHERE, 98, 237};

TEST(ConvertManyEquality, HoldsForEveryPairOfTypes) {
    testing::Random random(19);
    const std::size_t count = PositionsWanted();
    for (std::int32_t from = 0; from < KOORD_TYPE_COUNT; ++from) {
        for (std::int32_t to = 0; to < KOORD_TYPE_COUNT; ++to) {
            const std::int32_t sourceDatum = random.OneOf(DATUMS);
            const std::int32_t targetDatum = random.Below(2) == 0 ? sourceDatum : random.OneOf(DATUMS);
            SCOPED_TRACE(std::to_string(from) + '@' + std::to_string(sourceDatum) + " to " +
                         std::to_string(to) + '@' + std::to_string(targetDatum));
            const Records sources = testing::MixedSources(random, from, sourceDatum, count);
            const Records targets = testing::MixedTargets(random, to, targetDatum, count);
            ExpectManyGiveTheSame(sources, targets, RangeCheck::On);
            ExpectManyGiveTheSame(sources, targets, RangeCheck::Off);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ConvertManyEquality, HoldsForShiftsBetweenAllDatums) {
    testing::Random random(20);
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        SCOPED_TRACE(datum);
        const Records out = testing::MixedSources(random, KOORD_GEODEZ, DATUM_WGS84, 300);
        ExpectManyGiveTheSame(out, Records(out.size(), MakeKoord(datum, KOORD_GEODEZ)), RangeCheck::On);
        const Records back = testing::MixedSources(random, KOORD_GEODEZ, datum, 300);
        ExpectManyGiveTheSame(back, Records(back.size(), MakeKoord(DATUM_WGS84, KOORD_GEODEZ)),
                              RangeCheck::On);
        if (HasFatalFailure()) return;
    }
}

// There and back.
void ExpectTheSameByWayOf(testing::Random& random, const tagKOORD& target) {
    const Records degrees = testing::MixedSources(random, KOORD_GEODEZ, DATUM_WGS84, PositionsWanted());
    const Records targets(degrees.size(), target);
    ExpectManyGiveTheSame(degrees, targets, RangeCheck::Off);
    Records sources = ConvertedOneByOne(degrees, targets, RangeCheck::Off).records;
    ExpectManyGiveTheSame(sources, Records(sources.size(), MakeKoord(3, KOORD_GEODEZ)), RangeCheck::Off);
}

TEST(ConvertManyEquality, HoldsForConesOfEveryKind) {
    // Of two parallels and of one, wide and narrow, over either pole, and none at all.
    constexpr float parallels[][2] = {{45.0f, 48.0f},   {50.0f, 50.0f}, {20.0f, 70.0f},    {-30.0f, -35.0f},
                                      {-50.0f, -50.0f}, {89.0f, 89.5f}, {90.0f, 90.0f},    {30.0f, -30.0f},
                                      {0.0f, 0.0f},     {NAN, 45.0f},   {45.0f, HUGE_VALF}};
    testing::Random random(28);
    for (const auto& [first, second] : parallels) {
        for (const float longitude : {0.0f, -179.0f, 1e30f}) {
            LambertCCPayload cone{};
            cone.parallel1 = first;
            cone.parallel2 = second;
            cone.originLatitude = first;
            cone.originLongitude = longitude;
            cone.falseEasting = 1e5;
            tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC);
            Store(target, cone);
            SCOPED_TRACE(first);
            ExpectTheSameByWayOf(random, target);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ConvertManyEquality, HoldsForCirclesAboutAnyOrigin) {
    testing::Random random(29);
    for (const double origin : {0.0, -0.0, 48.0, -170.0, 1e10, static_cast<double>(NAN)}) {
        tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_VDG);
        Store(target, VdgPayload{origin, std::fmod(origin, 60.0), 0.0, 0.0});
        ExpectTheSameByWayOf(random, target);
        if (HasFatalFailure()) return;
    }
}

// A rounded position may lie in the next band, up to a metre away.
TEST(ConvertManyEquality, HoldsNextToTheBordersOfBands) {
    testing::Random random(25);
    Records sources;
    for (std::size_t i = 0; i < 20 * PositionsWanted(); ++i) {
        const double border = 8.0 * random.Below(23) - 88.0;
        const double away = random.Below(2) == 0 ? 2e-4 : 1e-5;
        sources.push_back(
            GeodezRecord(border + random.Between(-away, away), random.Between(-180.0, 180.0), 0.0));
    }
    ExpectManyGiveTheSame(sources, Records(sources.size(), MakeKoord(DATUM_WGS84, KOORD_UTMREF)),
                          RangeCheck::Off);
}

// A northing on the equator is a positive zero, from either side.
TEST(ConvertManyEquality, HoldsOnTheEquatorAndTheMeridians) {
    Records sources;
    for (const double latitude : {0.0, -0.0, 5e-324, -5e-324, 1e-17, -1e-17}) {
        for (const double longitude : {0.0, -0.0, 9.0, -9.0, 10.25, 177.0, -177.0, 180.0, -180.0})
            sources.push_back(GeodezRecord(latitude, longitude));
    }
    for (const std::int32_t type :
         {KOORD_UTM + 0, KOORD_GK + 0, KOORD_GK6 + 0, KOORD_VDG + 0, KOORD_ECEF + 0})
        ExpectManyGiveTheSame(sources, Records(sources.size(), NaturalTarget(type)), RangeCheck::Off);
}

// Where one zone, strip or meridian ends and the next begins, and the doubles beside it. Austrian longitudes
// count from 17.666666666666 degrees west of Greenwich.
TEST(ConvertManyEquality, HoldsOnTheBordersOfZones) {
    constexpr double ferro = 17.666666666666;
    Records sources;
    const auto add = [&](double border) {
        for (const double longitude :
             {border, std::nextafter(border, 400.0), std::nextafter(border, -400.0), -border,
              std::nextafter(-border, 400.0), std::nextafter(-border, -400.0)})
            sources.push_back(GeodezRecord(47.0, longitude));
    };
    for (int i = 0; i <= 120; ++i)
        add(1.5 * i);
    add(29.5 - ferro);
    add(32.5 - ferro);
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type)
        ExpectManyGiveTheSame(sources, Records(sources.size(), NaturalTarget(type)), RangeCheck::Off);
}

// Strips of KKJ count from 18 degrees, so that the last ones lie beyond the meridian 180.
TEST(ConvertManyEquality, HoldsForStripsOfKkjAllAroundTheEarth) {
    Records degrees;
    for (int i = -359; i < 360; ++i)
        degrees.push_back(GeodezRecord(60.0, 0.5 * i, 0.0, DATUM_KKJ));
    const Records strips(degrees.size(), NaturalTarget(KOORD_GK, DATUM_KKJ));
    ExpectManyGiveTheSame(degrees, strips, RangeCheck::Off);
    const Records sources = ConvertedOneByOne(degrees, strips, RangeCheck::Off).records;
    ExpectManyGiveTheSame(sources, Records(sources.size(), MakeKoord(DATUM_KKJ, KOORD_GEODEZ)),
                          RangeCheck::Off);
}

// Blocks begin and end in runs of any length.
TEST(ConvertManyEquality, HoldsForRunsOfAnyLength) {
    testing::Random random(21);
    Records sources, targets;
    for (const std::size_t length : {1u, 15u, 16u, 17u, 127u, 128u, 129u, 255u, 300u}) {
        for (const std::int32_t type : {KOORD_UTM, KOORD_TM, KOORD_GEODEZ, KOORD_LAMBERTCC}) {
            const std::int32_t datum = random.OneOf(DATUMS);
            const Records run = testing::MixedSources(random, type, datum, length);
            sources.insert(sources.end(), run.begin(), run.end());
            const std::int32_t target = random.Below(2) == 0 ? KOORD_GK : KOORD_GEODEZ;
            targets.insert(targets.end(), length, testing::WithParameters(target, random.OneOf(DATUMS)));
        }
    }
    ExpectManyGiveTheSame(sources, targets, RangeCheck::On);
    ExpectManyGiveTheSame(sources, targets, RangeCheck::Off);
}

TEST(ConvertManyEquality, HoldsInPlace) {
    testing::Random random(22);
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        const Records records = testing::MixedSources(random, type, 3, 300);
        const Results single = ConvertedOneByOne(records, records, RangeCheck::Off);
        for (const InstructionSet set : testing::SupportedSets()) {
            Results many{records, Statuses(records.size())};
            ConvertMany(many.records.data(), many.records.data(), records.size(), RangeCheck::Off,
                        many.statuses.data(), set);
            ExpectTheSame(single, many, "in place");
        }
    }
}

// Targets that are other records' sources are read as they were written, whichever lies ahead.
TEST(ConvertManyEquality, HoldsForArraysThatOverlap) {
    testing::Random random(23);
    constexpr std::size_t count = 300;
    for (const std::ptrdiff_t ahead : {-100, -1, 1, 100}) {
        Records single = testing::MixedSources(random, KOORD_UTM, DATUM_WGS84, count + 100);
        Records many = single;
        const std::size_t source = ahead < 0 ? 100 : 0;
        const std::size_t target = source + static_cast<std::size_t>(ahead);
        Statuses singleStatus(count), status(count);
        for (std::size_t i = 0; i < count; ++i)
            singleStatus[i] = ConvertRecord(single[source + i], &single[target + i], RangeCheck::Off);
        ConvertMany(&many[source], &many[target], count, RangeCheck::Off, status.data(),
                    BestInstructionSet());
        ExpectTheSame({single, singleStatus}, {many, status}, "overlapping");
    }
}

}  // namespace
}  // namespace tessara
