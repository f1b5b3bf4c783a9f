#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

class ProjectionTest : public BalancedTest {};

std::string NameOf(const IRef<IProjection>& projection) {
    const IRef<ITessaraString> text = MakeText("old");
    projection->GetProjectionName(text.Get());
    return text->GetText();
}

// What a getter answers, and whether it wrote the parameters' first bytes or nothing.
struct Answer {
    bool result;
    bool wroteAll;
    bool wroteNothing;
};

template <class Params>
Answer Ask(const IRef<IProjection>& projection, bool (IProjection::*getter)(Params*)) {
    Params out;
    std::memset(static_cast<void*>(&out), 0xEE, sizeof out);
    Params untouched = out;
    std::memset(static_cast<void*>(&untouched), 0xEE, sizeof untouched);
    const MapParam full = CountedRecord(0);
    const bool result = (projection.Get()->*getter)(&out);
    return {result, std::memcmp(&out, full.params, sizeof out) == 0,
            std::memcmp(&out, &untouched, sizeof out) == 0};
}

struct Getter {
    const char* name;
    std::vector<std::uint32_t> types;
    std::function<Answer(const IRef<IProjection>&)> ask;
    std::function<bool(const IRef<IProjection>&)> askNull;
};

template <class Params>
Getter Row(const char* name, std::vector<std::uint32_t> types, bool (IProjection::*getter)(Params*)) {
    return {name, std::move(types),
            [getter](const IRef<IProjection>& projection) { return Ask(projection, getter); },
            [getter](const IRef<IProjection>& projection) { return (projection.Get()->*getter)(nullptr); }};
}

std::vector<Getter> Getters() {
    return {
        Row("WagnerIv", {21}, &IProjection::GetWagnerIvParams),
        Row("None", {1}, &IProjection::GetNoneParams),
        Row("StereographicNl", {18}, &IProjection::GetStereographicNlParams),
        Row("VanDerGrinten", {17}, &IProjection::GetVanDerGrintenParams),
        Row("Polynom", {7}, &IProjection::GetPolynomParams),
        Row("LambertCc", {19}, &IProjection::GetLambertCcParams),
        Row("LambertFr", {5}, &IProjection::GetLambertFrParams),
        Row("Tm", {15, 16, 20}, &IProjection::GetTmParams),
        Row("Ups", {14}, &IProjection::GetUpsParams),
        Row("Dd", {12}, &IProjection::GetDdParams),
        Row("Azyl", {11}, &IProjection::GetAzylParams),
        Row("Ch", {10}, &IProjection::GetChParams),
        Row("Bmn", {9}, &IProjection::GetBmnParams),
        Row("Mercator", {8}, &IProjection::GetMercatorParams),
        Row("EqualArc", {6}, &IProjection::GetEqualArcParams),
        Row("Lambert2", {4}, &IProjection::GetLambert2Params),
        Row("GaussKrueger", {3, 13}, &IProjection::GetGaussKruegerParams),
        Row("Utm", {2}, &IProjection::GetUtmParams),
    };
}

TEST_F(ProjectionTest, ANewOneIsUnknown) {
    const IRef<IProjection> projection(CreateClassProjection());
    EXPECT_EQ(projection->GetProjectionType(), 0u);
    EXPECT_EQ(NameOf(projection), "UNKNOWN");
    for (const Getter& getter : Getters())
        EXPECT_FALSE(getter.ask(projection).result) << getter.name;
}

TEST_F(ProjectionTest, HasTheNameOfItsType) {
    const char* const names[] = {
        "UNKNOWN",     "NONE",      "UTM",      "GAUKRU",   "LAMBERT2",    "LAMBERTFR",
        "EQUALARC",    "POLYNOM",   "MERCATOR", "BMN",      "CH",          "AZYL",
        "DD",          "GAUKRU6",   "UPS",      "TM",       "PO_MILITARY", "VAN_DER_GRINTEN",
        "STEREOGR_NL", "LAMBERTCC", "LUREF",    "WAGNER-IV"};
    std::uint32_t type = 0;
    for (const char* name : names)
        EXPECT_EQ(NameOf(ProjectionOf(CountedRecord(type++))), name);
    EXPECT_EQ(type, MAP_TYPE_COUNT);
    for (std::uint32_t number : {22u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(NameOf(ProjectionOf(CountedRecord(number))), "");
}

TEST_F(ProjectionTest, LeavesTheNameToTextsOnly) {
    const IRef<IProjection> projection(CreateClassProjection());
    const IRef<IUnknown> stranger = MakeStranger();
    projection->GetProjectionName(nullptr);
    projection->GetProjectionName(Disguised<ITessaraString>(stranger));
}

TEST_F(ProjectionTest, GivesItsOwnParametersAndNoOthers) {
    for (std::uint32_t type = 0; type <= MAP_TYPE_COUNT; ++type) {
        const IRef<IProjection> projection = ProjectionOf(CountedRecord(type));
        EXPECT_EQ(projection->GetProjectionType(), type);
        for (const Getter& getter : Getters()) {
            const bool isOwn = std::count(getter.types.begin(), getter.types.end(), type) == 1;
            const Answer answer = getter.ask(projection);
            EXPECT_EQ(answer.result, isOwn) << getter.name << " of type " << type;
            EXPECT_EQ(answer.wroteAll, isOwn) << getter.name << " of type " << type;
            EXPECT_EQ(answer.wroteNothing, !isOwn) << getter.name << " of type " << type;
            EXPECT_FALSE(getter.askNull(projection)) << getter.name;
        }
    }
}

TEST_F(ProjectionTest, GivesTypeWorldTypeAndParametersOfItsRecordOnly) {
    MapParam inside = CountedRecord(7);
    inside.worldType = 4;
    inside.datum = 6;
    inside.scaleDenominator = 25000;
    inside.referenceCount = 1;
    const IRef<IMapParamInternal> projection(ProjectionOf(inside));

    MapParam out;
    out.datum = 3;
    out.scaleDenominator = 1;
    out.resolution = 2.5;
    out.referenceCount = 9;
    out.reference.pixelX = 77;
    out.reserved1 = 5;
    out.reserved2 = 6;
    ASSERT_TRUE(projection->GetMapParam(&out));
    EXPECT_EQ(out.type, 7u);
    EXPECT_EQ(out.worldType, 4);
    EXPECT_EQ(std::memcmp(out.params, inside.params, MAP_PARAMS_SIZE), 0);
    EXPECT_EQ(out.datum, 3u);
    EXPECT_EQ(out.scaleDenominator, 1);
    EXPECT_EQ(out.resolution, 2.5);
    EXPECT_EQ(out.referenceCount, 9u);
    EXPECT_EQ(out.reference.pixelX, 77);
    EXPECT_EQ(out.reserved1, 5u);
    EXPECT_EQ(out.reserved2, 6u);
}

TEST_F(ProjectionTest, RefusesNullRecords) {
    const IRef<IMapParamInternal> projection{IRef<IProjection>(CreateClassProjection())};
    EXPECT_FALSE(projection->GetMapParam(nullptr));
    EXPECT_FALSE(projection->SetMapParam(nullptr));
}

TEST_F(ProjectionTest, NeverTouchesAChain) {
    MapParam record = CountedRecord(2);
    record.referenceCount = 2;
    record.reference.next = reinterpret_cast<MapReferenceNode*>(8);  // nowhere
    const IRef<IProjection> projection = ProjectionOf(record);
    MapParam out;
    EXPECT_TRUE(IRef<IMapParamInternal>(projection)->GetMapParam(&out));
    EXPECT_EQ(out.reference.next, nullptr);
}

TEST_F(ProjectionTest, AnswersOnBothFaces) {
    const IRef<IProjection> projection(CreateClassProjection());
    const IRef<IMapParamInternal> record(projection);
    ASSERT_TRUE(record.IsValid());
    EXPECT_EQ(IRef<IProjection>(record).Get(), projection.Get());
    EXPECT_EQ(IRef<IUnknown>(record).Get(), IRef<IUnknown>(projection).Get());
    EXPECT_EQ(record->QueryInterface(&IID_IProjection, nullptr), RESULT_FAIL);
    void* out = &out;
    EXPECT_EQ(record->QueryInterface(&IID_ICoord, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);
}

}  // namespace
}  // namespace tessara::testing
