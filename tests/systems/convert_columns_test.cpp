#include "systems/convert_columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "support/live_objects.h"
#include "support/mixed_records.h"
#include "support/records.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using Doubles = std::vector<double>;

SourceColumn From(const Doubles& values) {
    return {values.data(), sizeof(double)};
}

TargetColumn Into(Doubles& values) {
    return {values.data(), sizeof(double)};
}

const tagKOORD DEGREES = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
const tagKOORD UTM = MakeKoord(DATUM_WGS84, KOORD_UTM);

// Latitudes and longitudes of Munich and a place south of the equator.
const Doubles LATITUDES{48.1375, -33.8568};
const Doubles LONGITUDES{11.5755, 151.2153};

UtmPayload UtmOf(double latitude, double longitude) {
    const tagKOORD source = GeodezRecord(latitude, longitude);
    tagKOORD target = UTM;
    EXPECT_EQ(KoordConvert(&source, &target), KOORD_OK);
    return Load<UtmPayload>(target);
}

TEST(ConvertColumns, DegreesBecomeZonesLettersEastingsAndNorthings) {
    Doubles zones(2), eastings(2), northings(2);
    char letters[2] = {};
    KoordStatus statuses[2] = {};
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = From(LONGITUDES);
    TargetColumns to;
    to.fields[0] = Into(zones);
    to.fields[1] = {letters, 1};
    to.fields[2] = Into(eastings);
    to.fields[3] = Into(northings);
    to.status = {statuses, sizeof(KoordStatus)};
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 2, 1), KOORD_OK);
    for (std::size_t i = 0; i < 2; ++i) {
        const UtmPayload expected = UtmOf(LATITUDES[i], LONGITUDES[i]);
        EXPECT_EQ(zones[i], expected.zone);
        EXPECT_EQ(letters[i], expected.hemisphere);
        EXPECT_EQ(eastings[i], expected.easting);
        EXPECT_EQ(northings[i], expected.northing);
        EXPECT_EQ(statuses[i], KOORD_OK);
    }
    EXPECT_EQ(zones[0], 32.0);
    EXPECT_EQ(letters[1], 'S');
}

TEST(ConvertColumns, WhatHasNoColumnIsAsTheSourceRecordSays) {
    tagKOORD source = UTM;
    UtmPayload payload{};
    payload.hemisphere = 'N';
    payload.zone = 32;
    Store(source, payload);
    const UtmPayload munich = UtmOf(LATITUDES[0], LONGITUDES[0]);
    const Doubles eastings{munich.easting}, northings{munich.northing};
    SourceColumns from;
    from.fields[2] = From(eastings);
    from.fields[3] = From(northings);
    Doubles latitudes(1), longitudes(1);
    TargetColumns to;
    to.fields[0] = Into(latitudes);
    to.fields[1] = Into(longitudes);
    EXPECT_EQ(KoordConvertColumns(&source, &from, &DEGREES, &to, 1, 1), KOORD_OK);
    EXPECT_NEAR(latitudes[0], LATITUDES[0], 1e-9);
    EXPECT_NEAR(longitudes[0], LONGITUDES[0], 1e-9);
}

TEST(ConvertColumns, ATargetMayWantAZone) {
    tagKOORD target = UTM;
    UtmPayload payload{};
    payload.wantedZone = 33;
    Store(target, payload);
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = From(LONGITUDES);
    Doubles zones(1);
    TargetColumns to;
    to.fields[0] = Into(zones);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &target, &to, 1, 1), KOORD_OK);
    EXPECT_EQ(zones[0], 33.0);
}

TEST(ConvertColumns, AFailureHasItsStatusAndNoNumbers) {
    const Doubles latitudes{85.0, NAN, 48.0}, longitudes{9.0, 9.0, 9.0};
    Doubles zones(3, 1.0), eastings(3, 1.0), heights(3, 1.0);
    char letters[3] = {'x', 'x', 'x'};
    KoordStatus statuses[3] = {};
    SourceColumns from;
    from.fields[0] = From(latitudes);
    from.fields[1] = From(longitudes);
    TargetColumns to;
    to.fields[0] = Into(zones);
    to.fields[1] = {letters, 1};
    to.fields[2] = Into(eastings);
    to.height = Into(heights);
    to.status = {statuses, sizeof(KoordStatus)};
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 3, 1), KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(statuses[0], KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(statuses[1], KOORD_ERR_NORTH_LOW);
    EXPECT_EQ(statuses[2], KOORD_OK);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_TRUE(std::isnan(zones[i]) && std::isnan(eastings[i]) && std::isnan(heights[i])) << i;
        EXPECT_EQ(letters[i], '\0');
    }
    EXPECT_EQ(zones[2], 32.0);
    EXPECT_EQ(heights[2], 0.0);
}

// A wanted zone more than 60 degrees off.
TEST(ConvertColumns, ADistantZoneIsComplete) {
    tagKOORD target = UTM;
    UtmPayload payload{};
    payload.wantedZone = 45;
    Store(target, payload);
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = From(LONGITUDES);
    Doubles zones(1);
    TargetColumns to;
    to.fields[0] = Into(zones);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &target, &to, 1, 1), KOORD_ERR_ZONE_DISTANT);
    EXPECT_EQ(zones[0], 45.0);
}

TEST(ConvertColumns, KeepsHeightsAndComputesThoseOfCartesianSources) {
    const Doubles heights{519.0, 58.0};
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = From(LONGITUDES);
    from.height = From(heights);
    for (const std::int32_t type : {KOORD_GEODEZ, KOORD_UTM, KOORD_GEODEZMIN, KOORD_GEOREF}) {
        const tagKOORD target = MakeKoord(3, type);
        Doubles kept(2);
        TargetColumns to;
        to.height = Into(kept);
        KoordConvertColumns(&DEGREES, &from, &target, &to, 2, 0);
        EXPECT_EQ(kept, heights) << type;
    }

    // On the x axis a kilometre above the ellipsoid.
    const Doubles x{WGS84_A + 1000.0}, y{0.0}, z{0.0};
    const tagKOORD ecef = MakeKoord(DATUM_WGS84, KOORD_ECEF);
    SourceColumns space;
    space.fields[0] = From(x);
    space.fields[1] = From(y);
    space.fields[2] = From(z);
    Doubles height(1);
    TargetColumns to;
    to.height = Into(height);
    EXPECT_EQ(KoordConvertColumns(&ecef, &space, &DEGREES, &to, 1, 1), KOORD_OK);
    EXPECT_NEAR(height[0], 1000.0, 1e-6);
}

TEST(ConvertColumns, StridesMayBeAnyNumberOfBytes) {
    // Rows of a byte, a longitude and a latitude, from the last to the first.
    constexpr std::ptrdiff_t row = 17;
    std::vector<char> rows(2 * row);
    for (std::size_t i = 0; i < 2; ++i) {
        std::memcpy(&rows[i * row + 1], &LONGITUDES[i], 8);
        std::memcpy(&rows[i * row + 9], &LATITUDES[i], 8);
    }
    SourceColumns from;
    from.fields[0] = {&rows[row + 9], -row};
    from.fields[1] = {&rows[row + 1], -row};
    Doubles eastings(2);
    TargetColumns to;
    to.fields[2] = {&eastings[1], -static_cast<std::ptrdiff_t>(sizeof(double))};
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 2, 1), KOORD_OK);
    for (std::size_t i = 0; i < 2; ++i)
        EXPECT_EQ(eastings[i], UtmOf(LATITUDES[i], LONGITUDES[i]).easting);
}

TEST(ConvertColumns, AStrideOfZeroIsOneValueForAllRows) {
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = {LONGITUDES.data(), 0};
    Doubles zones(2);
    TargetColumns to;
    to.fields[0] = Into(zones);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 2, 1), KOORD_OK);
    EXPECT_EQ(zones, (Doubles{32.0, 32.0}));
}

TEST(ConvertColumns, TargetsMayTakeThePlaceOfSources) {
    Doubles first(300, 48.1375), second(300, 11.5755);
    first[7] = 89.0;  // in no zone
    SourceColumns from;
    from.fields[0] = From(first);
    from.fields[1] = From(second);
    TargetColumns to;
    to.fields[2] = Into(first);
    to.fields[3] = Into(second);
    const UtmPayload munich = UtmOf(48.1375, 11.5755);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 300, 1), KOORD_ERR_NORTH_HIGH);
    for (std::size_t i = 0; i < first.size(); ++i) {
        if (i == 7) continue;
        EXPECT_EQ(first[i], munich.easting);
        EXPECT_EQ(second[i], munich.northing);
    }
    EXPECT_TRUE(std::isnan(first[7]) && std::isnan(second[7]));
}

// Only the first row holds numbers that its fields can hold.
void ExpectFailuresBehindTheFirst(const tagKOORD& source, const SourceColumns& from, std::size_t count) {
    Doubles latitudes(count);
    std::vector<KoordStatus> statuses(count);
    TargetColumns to;
    to.fields[0] = Into(latitudes);
    to.status = {statuses.data(), sizeof(KoordStatus)};
    EXPECT_EQ(KoordConvertColumns(&source, &from, &DEGREES, &to, count, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(statuses[0], KOORD_OK);
    for (std::size_t i = 1; i < count; ++i) {
        EXPECT_EQ(statuses[i], KOORD_ERR_GENERAL) << i;
        EXPECT_TRUE(std::isnan(latitudes[i])) << i;
    }
}

TEST(ConvertColumns, NumbersThatAFieldCantHoldFail) {
    const Doubles zones{32.9, 65568.0, NAN, -32769.0}, metres(4, 5e5);  // the first one is the zone 32
    SourceColumns from;
    from.fields[0] = From(zones);
    from.fields[2] = From(metres);
    from.fields[3] = From(metres);
    ExpectFailuresBehindTheFirst(UTM, from, zones.size());
}

TEST(ConvertColumns, NumbersThatAReferenceCantHoldFail) {
    const tagKOORD utmref = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    constexpr char band[] = {'U'}, square[] = {'P', 'U'};
    const Doubles zones{32.0, 65568.0, 32.0, 32.0, NAN},
        eastings{91602.0, 91602.0, 4294967296.0, 91602.0, 91602.0},
        northings{34791.0, 34791.0, 34791.0, -4294967296.0, 34791.0};
    SourceColumns from;
    from.fields[0] = From(zones);
    from.fields[1] = {band, 0};
    from.fields[2] = {square, 0};
    from.fields[3] = From(eastings);
    from.fields[4] = From(northings);
    ExpectFailuresBehindTheFirst(utmref, from, zones.size());
}

TEST(ConvertColumns, DatumsAndTypesThatDontExistFailInEveryRow) {
    SourceColumns from;
    from.fields[0] = From(LATITUDES);
    from.fields[1] = From(LONGITUDES);
    KoordStatus statuses[2] = {};
    TargetColumns to;
    to.status = {statuses, sizeof(KoordStatus)};
    const tagKOORD noDatum = MakeKoord(DATUM_COUNT, KOORD_UTM);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &noDatum, &to, 2, 1), KOORD_ERR_DATUM);
    EXPECT_EQ(statuses[1], KOORD_ERR_DATUM);
    for (const std::int32_t type : {static_cast<std::int32_t>(KOORD_LONGPIXEL), 24, -1}) {
        const tagKOORD noTarget = MakeKoord(DATUM_WGS84, type);
        EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &noTarget, &to, 2, 1), KOORD_ERR_TYPE);
        EXPECT_EQ(statuses[1], KOORD_ERR_TYPE);
    }
    const tagKOORD noSource = MakeKoord(DATUM_WGS84, 24);
    EXPECT_EQ(KoordConvertColumns(&noSource, &from, &DEGREES, &to, 2, 1), KOORD_ERR_TYPE);
}

TEST(ConvertColumns, RefusesNullsAndASourceWithoutColumns) {
    SourceColumns from, empty;
    from.fields[0] = From(LATITUDES);
    const TargetColumns to;
    EXPECT_EQ(KoordConvertColumns(nullptr, &from, &UTM, &to, 1, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, nullptr, &UTM, &to, 1, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, nullptr, &to, 1, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, nullptr, 1, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &empty, &UTM, &to, 1, 1), KOORD_ERR_GENERAL);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 0, 1), KOORD_OK);
}

TEST(ConvertColumns, AllocatesNothing) {
    const Doubles latitudes(300, 48.0), longitudes(300, 9.0);
    Doubles eastings(300);
    SourceColumns from;
    from.fields[0] = From(latitudes);
    from.fields[1] = From(longitudes);
    TargetColumns to;
    to.fields[2] = Into(eastings);
    const testing::FailAllocation next(1);
    EXPECT_EQ(KoordConvertColumns(&DEGREES, &from, &UTM, &to, 300, 1), KOORD_OK);
    EXPECT_FALSE(next.HasFailed());
}

TEST(SystemColumns, AreTheFieldsThatAreListedAndThoseOfTheCone) {
    for (std::int32_t type = 0; type < KOORD_LAMBERTCC; ++type) {
        EXPECT_EQ(System_Columns(type).data(), System_Outputs(type).data());
        EXPECT_EQ(System_Columns(type).size(), System_Outputs(type).size());
        EXPECT_LE(System_Columns(type).size(), COLUMN_COUNT);
    }
    EXPECT_EQ(System_Columns(KOORD_LAMBERTCC).size(), 2u);
    EXPECT_STREQ(System_Columns(KOORD_LAMBERTCC)[0].name, "easting");
    EXPECT_TRUE(System_Columns(24).empty());
}

// -- Columns and single calls give the same bits.

std::size_t BytesOf(const OutputField& field) {
    switch (field.kind) {
        case OutputKind::Letters:
            return field.count;
        case OutputKind::Whole16:
        case OutputKind::GeorefMinutes:
            return 2;
        case OutputKind::Whole32:
        case OutputKind::SquareMetres:
            return 4;
        default:
            return 8;
    }
}

template <class Value>
double NumberAt(const tagKOORD& record, const OutputField& field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return static_cast<double>(value);
}

double NumberOf(const tagKOORD& record, const OutputField& field) {
    const std::size_t bytes = BytesOf(field);
    if (bytes == 2) return NumberAt<std::int16_t>(record, field);
    return bytes == 4 ? NumberAt<std::int32_t>(record, field) : NumberAt<double>(record, field);
}

// 32U PU 91602 34791.
TEST(ConvertColumns, FractionsOfTheWholeNumbersOfAReferenceAreCutOff) {
    const tagKOORD utmref = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    constexpr char band[] = {'U'}, square[] = {'P', 'U'};
    const Doubles whole{32.0, 91602.0, 34791.0}, fractions{32.9, 91602.5, 34791.999};
    Doubles found;
    for (const Doubles& numbers : {whole, fractions}) {
        SourceColumns from;
        from.fields[0] = {&numbers[0], 0};
        from.fields[1] = {band, 0};
        from.fields[2] = {square, 0};
        from.fields[3] = {&numbers[1], 0};
        from.fields[4] = {&numbers[2], 0};
        Doubles latitude(1), longitude(1);
        TargetColumns to;
        to.fields[0] = Into(latitude);
        to.fields[1] = Into(longitude);
        EXPECT_EQ(KoordConvertColumns(&utmref, &from, &DEGREES, &to, 1, 1), KOORD_OK);
        EXPECT_NEAR(latitude[0], LATITUDES[0], 1e-5);
        found.push_back(longitude[0]);
    }
    EXPECT_NEAR(found[0], LONGITUDES[0], 2e-5);
    EXPECT_EQ(found[0], found[1]);
}

// The same place, in UTM.
TEST(ConvertColumns, FractionsOfZonesAreCutOffInEveryRow) {
    const Doubles zones{32.9, 32.5, 32.0}, eastings(3, 691602.0), northings(3, 5334791.0);
    SourceColumns from;
    from.fields[0] = From(zones);
    from.fields[2] = From(eastings);
    from.fields[3] = From(northings);
    Doubles longitudes(3);
    TargetColumns to;
    to.fields[1] = Into(longitudes);
    EXPECT_EQ(KoordConvertColumns(&UTM, &from, &DEGREES, &to, 3, 1), KOORD_OK);
    for (const double longitude : longitudes)
        EXPECT_NEAR(longitude, LONGITUDES[0], 2e-5);
}

TEST(ConvertColumns, EachRowIsInTheHemisphereOfItsLetter) {
    const Doubles zones(2, 32.0), eastings(2, 691602.0), northings(2, 5334791.0);
    for (const char* letters : {"SN", "NS"}) {
        SourceColumns from;
        from.fields[0] = From(zones);
        from.fields[1] = {letters, 1};
        from.fields[2] = From(eastings);
        from.fields[3] = From(northings);
        Doubles latitudes(2);
        TargetColumns to;
        to.fields[0] = Into(latitudes);
        EXPECT_EQ(KoordConvertColumns(&UTM, &from, &DEGREES, &to, 2, 1), KOORD_OK);
        for (std::size_t i = 0; i < 2; ++i)
            EXPECT_EQ(letters[i], latitudes[i] < 0.0 ? 'S' : 'N') << letters;
    }
}

// Two blocks of references in bands that share row letters: 51 degrees north is in U, 33.5 in S.
TEST(ConvertColumns, EachBlockReadsItsOwnBands) {
    constexpr std::size_t block = 128;
    const tagKOORD utmref = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    Doubles zones, eastings, northings, expected;
    std::string bands, squares;
    for (const double latitude : {51.0, 33.5}) {
        const tagKOORD position = GeodezRecord(latitude, 9.0);
        tagKOORD reference = utmref;
        ASSERT_EQ(KoordConvert(&position, &reference), KOORD_OK);
        const auto p = Load<UtmrefPayload>(reference);
        zones.insert(zones.end(), block, p.zone);
        bands.append(block, p.band);
        for (std::size_t row = 0; row < block; ++row)
            squares += {p.column, p.row};
        eastings.insert(eastings.end(), block, p.easting);
        northings.insert(northings.end(), block, p.northing);
        expected.insert(expected.end(), block, latitude);
    }
    ASSERT_EQ(bands.substr(block - 1, 2), "US");
    SourceColumns from;
    from.fields[0] = From(zones);
    from.fields[1] = {bands.data(), 1};
    from.fields[2] = {squares.data(), 2};
    from.fields[3] = From(eastings);
    from.fields[4] = From(northings);
    Doubles latitudes(expected.size());
    TargetColumns to;
    to.fields[0] = Into(latitudes);
    EXPECT_EQ(KoordConvertColumns(&utmref, &from, &DEGREES, &to, expected.size(), 1), KOORD_OK);
    for (std::size_t row = 0; row < expected.size(); ++row)
        EXPECT_NEAR(latitudes[row], expected[row], 1e-5) << row;  // degrees; a metre
}

// A table of rows as they lie in memory: eight bytes for each field, the height and the status, and three
// more.
class Table {
  public:
    explicit Table(std::size_t rows) : bytes_(rows * ROW) {}

    [[nodiscard]] char* At(std::size_t row, std::size_t field) {
        return bytes_.data() + row * ROW + 8 * field;
    }
    [[nodiscard]] SourceColumns Sources(std::size_t fields) {
        SourceColumns columns;
        for (std::size_t i = 0; i < fields; ++i)
            columns.fields[i] = {At(0, i), ROW};
        columns.height = {At(0, HEIGHT), ROW};
        return columns;
    }
    [[nodiscard]] TargetColumns Targets(std::size_t fields) {
        TargetColumns columns;
        for (std::size_t i = 0; i < fields; ++i)
            columns.fields[i] = {At(0, i), ROW};
        columns.height = {At(0, HEIGHT), ROW};
        columns.status = {At(0, STATUS), ROW};
        return columns;
    }
    [[nodiscard]] bool operator==(const Table& other) const { return bytes_ == other.bytes_; }

    static constexpr std::size_t HEIGHT = COLUMN_COUNT, STATUS = COLUMN_COUNT + 1;

  private:
    static constexpr std::ptrdiff_t ROW = 8 * (COLUMN_COUNT + 2) + 3;
    std::vector<char> bytes_;
};

void Put(char* at, double number) {
    std::memcpy(at, &number, sizeof number);
}

void ExpectColumnsAsSingleCalls(testing::Random& random, const tagKOORD& source, const tagKOORD& target,
                                RangeCheck check) {
    const std::size_t count =
        testing::SizeSetting("TESSARA_EQUALITY_POSITIONS", testing::IS_SANITIZED ? 60 : 300);
    const auto sourceFields = System_Columns(static_cast<std::int32_t>(source.type));
    const auto targetFields = System_Columns(static_cast<std::int32_t>(target.type));
    if (sourceFields.empty()) return;

    Table given(count), expected(count);
    const auto records = testing::MixedSources(random, static_cast<std::int32_t>(source.type),
                                               static_cast<std::int32_t>(source.datum), count);
    for (std::size_t row = 0; row < count; ++row) {
        tagKOORD record = source;
        for (std::size_t i = 0; i < sourceFields.size(); ++i) {
            const OutputField& field = sourceFields[i];
            std::memcpy(record.payload + field.offset, records[row].payload + field.offset, BytesOf(field));
            if (field.kind == OutputKind::Letters) {
                std::memcpy(given.At(row, i), record.payload + field.offset, field.count);
            } else {
                const double number = NumberOf(record, field);
                std::memcpy(given.At(row, i), &number, sizeof number);
            }
        }
        tagKOORD result = target;
        const KoordStatus status = ConvertRecord(record, &result, check);
        const bool isComplete = status == KOORD_OK || status == KOORD_ERR_ZONE_DISTANT;
        for (std::size_t i = 0; i < targetFields.size(); ++i) {
            const OutputField& field = targetFields[i];
            if (field.kind == OutputKind::Letters) {
                if (isComplete) std::memcpy(expected.At(row, i), result.payload + field.offset, field.count);
            } else {
                Put(expected.At(row, i), isComplete ? NumberOf(result, field) : NAN);
            }
        }
        double height = 0.0;
        if (source.type == KOORD_ECEF) {
            tagKOORD degrees = MakeKoord(static_cast<std::int32_t>(source.datum), KOORD_GEODEZ);
            ConvertRecord(record, &degrees, RangeCheck::Off);
            height = Load<GeodezPayload>(degrees).height;
        }
        Put(expected.At(row, Table::HEIGHT), isComplete ? height : NAN);
        std::memcpy(expected.At(row, Table::STATUS), &status, sizeof status);
    }

    SourceColumns from = given.Sources(sourceFields.size());
    from.height = {};
    for (const InstructionSet set : INSTRUCTION_SETS) {
        if (!IsSupported(set)) continue;
        Table found(count);
        const TargetColumns to = found.Targets(targetFields.size());
        ConvertColumns(&source, &from, &target, &to, count, check, set);
        ASSERT_TRUE(found == expected);
    }
}

TEST(ConvertColumnsEquality, HoldsForEveryPairOfTypes) {
    constexpr std::int32_t datums[] = {DATUM_WGS84, 3, 6, 7, DATUM_KKJ, DATUM_SPHERE, 98, 237};
    testing::Random random(24);
    for (std::int32_t from = 0; from < KOORD_TYPE_COUNT; ++from) {
        for (std::int32_t to = 0; to < KOORD_TYPE_COUNT; ++to) {
            const tagKOORD source = testing::WithParameters(from, random.OneOf(datums));
            const auto sourceDatum = static_cast<std::int32_t>(source.datum);
            const std::int32_t targetDatum = random.Below(2) == 0 ? sourceDatum : random.OneOf(datums);
            const tagKOORD target = testing::MixedTargets(random, to, targetDatum, 1).front();
            SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
            ExpectColumnsAsSingleCalls(random, source, target, RangeCheck::On);
            ExpectColumnsAsSingleCalls(random, source, target, RangeCheck::Off);
            if (HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace tessara
