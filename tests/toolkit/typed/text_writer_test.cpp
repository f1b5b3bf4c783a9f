// What is written of a position, in every system and with every option, is read back as that position.
#include "typed/text_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "conversion/fields.h"
#include "conversion/names.h"
#include "conversion/results.h"
#include "support/random.h"
#include "support/sanitized.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/systems.h"
#include "typed/typed_reader.h"

namespace tessara::toolkit {
namespace {

struct Area {
    const char* reference;
    double south, north;
    double west, east;
};

// Where positions of each system are drawn: inside its area, across its zones, squares and hemispheres.
const std::vector<Area> AREAS{
    {"UTM", -79.9, 83.9, -179.9, 179.9},
    {"UTM@GER", 47.0, 55.0, 5.0, 16.0},
    {"UTMREF", -79.9, 83.9, -179.9, 179.9},
    {"UTMREF@GER", 47.0, 55.0, 5.0, 16.0},
    // Off the meridian of a zone, the ends of the system have other northings than on it.
    {"UTM", -79.9999, -79.99, -179.9, 179.9},
    {"UTM", 83.99, 83.9999, -179.9, 179.9},
    {"UTMREF", -79.9999, -79.99, -179.9, 179.9},
    {"UTMREF", 83.99, 83.9999, -179.9, 179.9},
    {"GEODEZ", -89.9, 89.9, -179.9, 179.9},
    {"GEODEZ@MGI", -0.2, 0.2, -0.2, 0.2},
    {"GEOGRAD", -89.9, 89.9, -179.9, 179.9},
    {"GEOGRAD", -0.2, 0.2, -0.2, 0.2},
    {"GEODEZMIN", -89.9, 89.9, -179.9, 179.9},
    {"GEODEZMIN", -0.2, 0.2, -0.2, 0.2},
    {"GEOREF", -89.9, 89.9, -179.9, 179.9},
    {"GK", -79.9, 79.9, -179.9, 179.9},
    {"GK@GER", 47.0, 55.0, 5.0, 16.0},
    {"GK6", -79.9, 79.9, -179.9, 179.9},
    {"BMN@MGI", 46.4, 49.0, 9.6, 17.1},
    {"OEM@MGI", 46.4, 49.0, 9.6, 17.1},
    {"GK-AT@MGI", 46.4, 49.0, 9.6, 17.1},
    {"CH@CH1903", 45.8, 47.8, 6.0, 10.4},
    {"ECEF", -89.9, 89.9, -179.9, 179.9},
    {"UPS", 81.0, 89.9, -179.9, 179.9},
    {"UPS", -89.9, -81.0, -179.9, 179.9},
    {"PO_MILITARY", 37.0, 42.0, -9.5, -6.2},
    {"TM:lon0=9,k=0.9996,fe=500000", -70.0, 70.0, 2.0, 16.0},
    {"TM:lon0=9,lat0=40,k=0.9999,fe=500000,fn=-1000000@GER", 40.0, 60.0, 2.0, 16.0},
    {"VDG", -80.0, 80.0, -170.0, 170.0},
    {"VDG:lon0=20,lat0=10", -60.0, 60.0, -100.0, 100.0},
    {"BNG", 50.0, 58.0, -6.0, 1.5},
    {"ING", 51.7, 55.2, -10.0, -6.0},
    {"RD", 51.0, 53.3, 3.6, 7.0},
    {"LUREF", 49.5, 50.1, 5.8, 6.5},
};

constexpr int POSITIONS = ::tessara::testing::IS_SANITIZED ? 20 : 60;

struct Drawn {
    CKoord degrees;  // on the datum of the reference
    CKoord record;
};

// Positions that the system has; the odd ones lie close to whole degrees, where zones and minutes change.
std::vector<Drawn> Draw(const Area& area) {
    const Reference reference = *ReferenceByName(area.reference, DATUM_WGS84);
    const Conversion conversion(reference.datum, reference);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> latitudes(area.south, area.north);
    std::uniform_real_distribution<double> longitudes(area.west, area.east);
    std::vector<Drawn> drawn;
    for (int i = 0; i < POSITIONS; ++i) {
        double latitude = latitudes(random);
        double longitude = longitudes(random);
        const bool isClose = i % 2 == 1 && area.north - area.south > 2.0;
        if (isClose) latitude = std::round(latitude) - (i % 4 == 1 ? 1e-9 : 0.0);
        if (isClose) longitude = std::round(longitude) + (i % 4 == 1 ? 1e-9 : 0.0);
        tagKOORD degrees = MakeKoord(reference.datum, KOORD_GEODEZ);
        Store(degrees, GeodezPayload{latitude, longitude, 0.0});
        CKoord record;
        if (conversion.Convert(CKoord(degrees), &record) == KOORD_OK)
            drawn.push_back({CKoord(degrees), record});
    }
    EXPECT_GT(drawn.size(), static_cast<std::size_t>(POSITIONS * 3 / 4)) << area.reference;
    return drawn;
}

// How far apart two positions are, in metres along each axis.
struct Apart {
    double north, east;
};

constexpr double METRES_PER_DEGREE = 111320.0;

Apart Between(const GeodezPayload& one, const GeodezPayload& other) {
    const double shrink = std::cos(one.latitude * RADIANS_PER_DEGREE);
    return {std::fabs(one.latitude - other.latitude) * METRES_PER_DEGREE,
            std::fabs(std::remainder(one.longitude - other.longitude, 360.0)) * METRES_PER_DEGREE * shrink};
}

double LengthOf(const Apart& apart) {
    return std::hypot(apart.north, apart.east);
}

// Where a position is that was written in units of a resolution: half a unit off in each axis, or a whole one
// where digits are cut. Grid axes are turned against the parallels, so that their lengths add up; scales are
// at most doubled.
double Tolerance(const Reading& reading, bool isCut) {
    const bool areDegrees = System_Unit(reading.reference.system) == Unit::Degree;
    const double unit = areDegrees ? METRES_PER_DEGREE : 2.0;
    const double units = std::hypot(reading.northResolution, reading.eastResolution) * unit;
    constexpr double ROUNDING = 0.02;  // of the conversion there and back, ECEF and GEOREF included
    return (isCut ? 1.0 : 0.51) * units + ROUNDING;
}

Wanted WantedOf(const std::string& reference) {
    return {*ReferenceByName(reference, DATUM_WGS84), Order::EastFirst};
}

void ExpectReadAs(const TypedResult& result, const Drawn& drawn, bool isCut) {
    ASSERT_TRUE(result.IsRead()) << result.fault.code << ": " << result.fault.reason;
    const Reading& reading = result.readings.front();
    GeodezPayload degrees{};
    ASSERT_TRUE(DegreesOf(reading.record, &degrees));
    const double apart = LengthOf(Between(Load<GeodezPayload>(drawn.degrees), degrees));
    EXPECT_LE(apart, Tolerance(reading, isCut)) << Describe(reading);
}

std::string Joined(const std::vector<std::string>& texts, const std::string& separator) {
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : separator) + text;
    return joined;
}

TypedResult ReadTexts(const TypedReader& reader, const std::vector<std::string>& texts) {
    return texts.size() == 2 ? reader.Read(texts[0], texts[1]) : reader.Read(texts[0]);
}

// GEOREF and UTMREF are cut to their digits; so are the digits of display forms. Where seconds or minutes
// would be rounded to 60, the library steps north or east, which is a unit off in the south and west.
bool IsCut(const Reference& reference, const TextStyle& style) {
    return style.isDisplay || reference.system == KOORD_GEOREF || reference.system == KOORD_UTMREF ||
           reference.system == KOORD_GEOGRAD || reference.system == KOORD_GEODEZMIN ||
           (style.reference && style.reference->isTruncated);
}

// The texts of GK-AT leave the meridian to whoever reads them.
std::string ReadingReference(const Reference& reference, const CKoord& record) {
    if (reference.system != KOORD_GKAT) return reference.Name();
    return "GK-AT:meridian=" + std::to_string(Load<BmnPayload>(record).meridian) + "@" +
           DatumName(reference.datum);
}

void ExpectTextsAreReadBack(const Area& area, const TextStyle& style) {
    const Reference reference = *ReferenceByName(area.reference, DATUM_WGS84);
    const TextWriter writer(reference, style);
    for (const Drawn& drawn : Draw(area)) {
        const std::vector<std::string> texts = writer.Write(drawn.record, drawn.degrees);
        ASSERT_FALSE(texts.empty());
        SCOPED_TRACE(reference.Name() + ": " + Joined(texts, " | "));
        const TypedReader reader(WantedOf(ReadingReference(reference, drawn.record)));
        ExpectReadAs(ReadTexts(reader, texts), drawn, IsCut(reference, style));
        const bool areTheSame = texts.front() == texts.back();
        if (areTheSame) continue;
        // Bare numbers in one text have no order of their own.
        const bool isBare = Joined(texts, "").find_first_not_of("0123456789.-") == std::string::npos;
        if (isBare) continue;
        for (const char* separator : {"\t", ";", ", "})
            ExpectReadAs(reader.Read(Joined(texts, separator)), drawn, IsCut(reference, style));
    }
}

const std::vector<double> RESOLUTIONS{1e-7, 1e-3, 0.1, 1.0, 10.0, 1000.0, 1e5};
const std::vector<double> DEGREE_RESOLUTIONS{1e-7,       1e-4,        1.0 / 3600.0, 10.0 / 3600.0,
                                             1.0 / 60.0, 10.0 / 60.0, 1.0};

const std::vector<double>& ResolutionsOf(const Area& area) {
    const std::int32_t system = ReferenceByName(area.reference, DATUM_WGS84)->system;
    return System_Unit(system) == Unit::Degree ? DEGREE_RESOLUTIONS : RESOLUTIONS;
}

TEST(TextWriter, PlainTextsAreReadBack) {
    for (const Area& area : AREAS) {
        ExpectTextsAreReadBack(area, {});
        for (const double resolution : ResolutionsOf(area)) {
            TextStyle style;
            style.northResolution = style.eastResolution = resolution;
            ExpectTextsAreReadBack(area, style);
            style.eastResolution.reset();
            ExpectTextsAreReadBack(area, style);
        }
    }
}

TEST(TextWriter, DisplayTextsAreReadBack) {
    for (const Area& area : AREAS) {
        TextStyle style;
        style.isDisplay = true;
        ExpectTextsAreReadBack(area, style);
        for (const double resolution : ResolutionsOf(area)) {
            style.northResolution = style.eastResolution = resolution;
            ExpectTextsAreReadBack(area, style);
            style.northResolution.reset();
            ExpectTextsAreReadBack(area, style);
        }
    }
}

TEST(TextWriter, MilitaryReferencesOfEverySideAreReadBack) {
    for (int digits = 0; digits <= 5; ++digits) {
        for (const bool isTruncated : {false, true}) {
            TextStyle style;
            style.reference = {digits, isTruncated};
            for (const Area& area : AREAS) {
                if (std::string(area.reference).starts_with("UTMREF")) ExpectTextsAreReadBack(area, style);
            }
        }
    }
}

TEST(TextWriter, FieldsAreReadBack) {
    for (const Area& area : AREAS) {
        const Reference reference = *ReferenceByName(area.reference, DATUM_WGS84);
        const TypedReader reader(WantedOf(area.reference));
        for (const Drawn& drawn : Draw(area)) {
            const std::string line = LineOf({{reference, FieldsOf(drawn.record)}});
            SCOPED_TRACE(reference.Name() + ": " + line);
            ExpectReadAs(reader.Read(line), drawn, IsCut(reference, {}));
        }
    }
}

// What needs no system is read without one, too, as the same.
TEST(TextWriter, TextsThatExplainThemselvesAreReadAsAnySystem) {
    for (const Area& area : AREAS) {
        const Reference reference = *ReferenceByName(area.reference, DATUM_WGS84);
        const bool isExplained = IsDegrees(reference.system) || reference.system == KOORD_UTM ||
                                 reference.system == KOORD_UTMREF || reference.system == KOORD_GEOREF ||
                                 reference.system == KOORD_UPS;
        if (!isExplained) continue;
        const TextWriter writer(reference, {});
        const TypedReader reader({{.datum = reference.datum, .system = NO_SYSTEM}, Order::Unknown});
        for (const Drawn& drawn : Draw(area)) {
            const std::vector<std::string> texts = writer.Write(drawn.record, drawn.degrees);
            SCOPED_TRACE(reference.Name() + ": " + Joined(texts, " | "));
            const TypedResult result = ReadTexts(reader, texts);
            ExpectReadAs(result, drawn, IsCut(reference, {}));
            ASSERT_TRUE(result.IsRead());
            EXPECT_EQ(result.readings.front().reference.system, reference.system);
        }
    }
}

// By GeographicLib's GeoConvert -m -p 0 of 48.1375 11.5755, which truncates, and with the digits of the UTM
// position 691602.6597 5334791.1445 rounded by hand.
TEST(ReferenceWriter, RoundsOrTruncates) {
    tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(degrees, GeodezPayload{48.1375, 11.5755, 0.0});
    const auto textOf = [&](int digits, bool isTruncated) {
        std::string text;
        const ReferenceWriter writer({.datum = DATUM_WGS84, .system = KOORD_UTMREF}, {digits, isTruncated});
        EXPECT_EQ(writer.Write(CKoord(degrees), &text), KOORD_OK);
        return text;
    };
    EXPECT_EQ(textOf(5, true), "32UPU9160234791");
    EXPECT_EQ(textOf(4, true), "32UPU91603479");
    EXPECT_EQ(textOf(3, true), "32UPU916347");
    EXPECT_EQ(textOf(0, true), "32UPU");
    EXPECT_EQ(textOf(5, false), "32UPU9160334791");
    EXPECT_EQ(textOf(4, false), "32UPU91603479");
    EXPECT_EQ(textOf(3, false), "32UPU916348");
    EXPECT_EQ(textOf(1, false), "32UPU93");
}

// To the metre, degrees need no way over the grid, which their UTM position takes. Anywhere and beside the
// borders of zones, bands, the equator and the system.
TEST(ReferenceWriter, WritesDegreesAsTheirUtmPosition) {
    testing::Random random(27);
    for (const std::int32_t datum : {DATUM_WGS84, 3}) {
        const ReferenceWriter writer({.datum = datum, .system = KOORD_UTMREF}, {5, false});
        for (int i = 0; i < 3000; ++i) {
            const auto beside = [&random](double border) {
                constexpr double distances[] = {0.0, 1e-9, 4e-6, 8e-6, 1e-3};
                return border + random.OneOf(distances) * (random.Below(2) == 0 ? 1.0 : -1.0);
            };
            const bool isBesideBand = random.Below(3) == 0;
            const bool isBesideZone = random.Below(3) == 0;
            tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
            Store(degrees,
                  GeodezPayload{
                      isBesideBand ? beside(4.0 * random.Below(42) - 80.0) : random.Between(-80.0, 84.0),
                      isBesideZone ? beside(6.0 * random.Below(61) - 180.0) : random.Between(-180.0, 180.0),
                      0.0});
            CKoord utm = DefaultRecord({.datum = datum, .system = KOORD_UTM});
            if (KoordConvert(&degrees, &utm) != KOORD_OK) continue;
            std::string text, textOfUtm;
            EXPECT_EQ(writer.Write(CKoord(degrees), &text), writer.Write(utm, &textOfUtm));
            EXPECT_EQ(text, textOfUtm);
        }
    }
}

}  // namespace
}  // namespace tessara::toolkit
