#include "drawing/window_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "tessara/kernel/convert.h"

namespace tessara::toolkit {
namespace {

constexpr double METRES_PER_DEGREE = 111320.0;  // of a great circle, rounded up
constexpr double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

Reference Named(const std::string& name) {
    return ReferenceByName(name, DATUM_WGS84).value();
}

std::vector<WindowLine> Lines(const DegreeWindow& window, const std::string& system, Axis axis, double step) {
    return LinesInWindow(window, Named(system), axis, step);
}

std::vector<double> ValuesOf(const std::vector<WindowLine>& lines) {
    std::vector<double> values;
    values.reserve(lines.size());
    for (const WindowLine& line : lines)
        values.push_back(line.value);
    return values;
}

// The easting of degrees in a zone of UTM.
double EastingIn(std::int16_t zone, const GeodezPayload& at) {
    tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(degrees, at);
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTM);
    UtmPayload wanted{};
    wanted.wantedZone = zone;
    Store(record, wanted);
    EXPECT_EQ(KoordConvert(&degrees, &record), KOORD_OK);
    return Load<UtmPayload>(record).easting;
}

TEST(LinesInWindow, MeridiansRunFromSouthToNorthOfTheWindow) {
    const auto lines = Lines({47.0, 10.0, 49.0, 12.0}, "GEODEZ", Axis::East, 0.5);

    EXPECT_EQ(ValuesOf(lines), (std::vector<double>{10.0, 10.5, 11.0, 11.5, 12.0}));
    for (const WindowLine& line : lines) {
        ASSERT_EQ(line.parts.size(), 1U);
        EXPECT_EQ(std::max(line.parts[0].front().latitude, line.parts[0].back().latitude), 49.0);
        EXPECT_EQ(std::min(line.parts[0].front().latitude, line.parts[0].back().latitude), 47.0);
        for (const GeodezPayload& at : line.parts[0])
            EXPECT_NEAR(at.longitude, line.value, 1e-12);  // rounding of a longitude of 12 degrees
        EXPECT_FALSE(line.zone);
    }
}

TEST(LinesInWindow, ParallelsRunFromWestToEastOfTheWindow) {
    const auto lines = Lines({-1.0, -20.0, 1.0, 40.0}, "GEODEZ", Axis::North, 1.0);

    EXPECT_EQ(ValuesOf(lines), (std::vector<double>{-1.0, 0.0, 1.0}));
    for (const WindowLine& line : lines) {
        ASSERT_EQ(line.parts.size(), 1U);
        EXPECT_EQ(line.parts[0].front().longitude, -20.0);
        EXPECT_EQ(line.parts[0].back().longitude, 40.0);
    }
}

TEST(LinesInWindow, TheLineOfTheFalseEastingIsTheCentralMeridian) {
    const auto lines = Lines({47.0, 8.0, 49.0, 10.0}, "UTM", Axis::East, 50000.0);

    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [](const WindowLine& line) { return line.value == 500000.0; });
    ASSERT_NE(found, lines.end());
    EXPECT_EQ(found->zone, 32);
    for (const GeodezPayload& at : found->parts.at(0))
        EXPECT_NEAR(at.longitude, 9.0, 1e-12);
}

TEST(LinesInWindow, VerticesHaveTheValueOfTheirLine) {
    const DegreeWindow window{46.0, 9.0, 50.0, 15.0};
    const double tolerance = METRES_PER_DEGREE * (window.east - window.west) / 16384.0;

    std::map<int, int> counts;
    for (const WindowLine& line : Lines(window, "UTM", Axis::East, 100000.0)) {
        ASSERT_TRUE(line.zone);
        ++counts[*line.zone];
        for (const DegreeLine& part : line.parts) {
            ASSERT_GE(part.size(), 2U);
            for (const GeodezPayload& at : part)
                EXPECT_NEAR(EastingIn(static_cast<std::int16_t>(*line.zone), at), line.value, tolerance);
        }
    }
    EXPECT_GT(counts[32], 1);
    EXPECT_GT(counts[33], 1);
    EXPECT_EQ(counts.size(), 2U);
}

// At the equator a zone of UTM is 668 km wide, at 60 degrees 335 km.
TEST(LinesInWindow, EndAtTheBorderOfTheirZoneOnBothSidesOfTheEquator) {
    const auto lines = Lines({-60.0, 6.0, 60.0, 12.0}, "UTM", Axis::East, 100000.0);

    EXPECT_EQ(ValuesOf(lines),
              (std::vector<double>{200000.0, 300000.0, 400000.0, 500000.0, 600000.0, 700000.0, 800000.0}));
}

TEST(LinesInWindow, OfMilitaryReferencesHaveWholeMetres) {
    const auto lines = Lines({48.1, 11.7, 48.2, 11.9}, "UTMREF", Axis::East, 10000.0);

    EXPECT_EQ(ValuesOf(lines), (std::vector<double>{710000.0}));
    EXPECT_EQ(lines.at(0).zone, 32);
}

TEST(LinesInWindow, AreOnTheDatumOfTheReference) {
    // The easting 600000 is the meridian of the old observatory of Berne, 7 degrees 26' 22.50" on CH1903 and
    // 7 degrees 26' 19.077" on WGS84 (swisstopo, "Formulas and constants for the calculation of the Swiss
    // conformal cylindrical projection").
    const auto lines = Lines({46.9, 7.4, 47.0, 7.5}, "CH@CH1903", Axis::East, 200000.0);

    ASSERT_EQ(ValuesOf(lines), (std::vector<double>{600000.0}));
    for (const GeodezPayload& at : lines[0].parts.at(0))
        EXPECT_NEAR(at.longitude, 7.0 + 26.0 / 60.0 + 19.077 / 3600.0, 2e-5);  // of an abridged shift, 1.5 m
}

TEST(LinesInWindow, ContinueAcrossTheDateLine) {
    const auto lines = Lines({10.0, 178.0, 12.0, -178.0}, "GEODEZ", Axis::East, 1.0);

    std::vector<double> longitudes;
    for (const WindowLine& line : lines)
        longitudes.push_back(std::round(line.parts.at(0).front().longitude));
    EXPECT_EQ(longitudes, (std::vector<double>{178.0, 179.0, 180.0, 181.0, 182.0}));
}

TEST(LinesInWindow, AreNoneOutsideTheSystem) {
    EXPECT_TRUE(Lines({-40.0, 100.0, -39.0, 101.0}, "CH@CH1903", Axis::East, 1000.0).empty());
}

TEST(LinesInWindow, RefuseWhatIsNoWindow) {
    const DegreeWindow windows[] = {{49.0, 10.0, 47.0, 12.0},      {47.0, 10.0, 47.0, 12.0},
                                    {47.0, 10.0, 91.0, 12.0},      {NAN_VALUE, 10.0, 49.0, 12.0},
                                    {47.0, 10.0, 49.0, 10.0},      {47.0, -300.0, 49.0, 100.0},
                                    {47.0, -INFINITE, 49.0, 12.0}, {47.0, 10.0, 49.0, 1e300}};
    for (const DegreeWindow& window : windows) {
        EXPECT_THROW(Lines(window, "UTM", Axis::East, 1000.0), std::invalid_argument);
        EXPECT_THROW(static_cast<void>(BordersInWindow(window, Named("UTM"))), std::invalid_argument);
    }
}

TEST(LinesInWindow, RefuseStepsThatAreNone) {
    for (const double step : {0.0, -1.0, NAN_VALUE, INFINITE})
        EXPECT_THROW(Lines({47.0, 10.0, 49.0, 12.0}, "UTM", Axis::North, step), std::invalid_argument);
}

TEST(LinesInWindow, RefuseSystemsWithoutLines) {
    EXPECT_THROW(Lines({47.0, 10.0, 49.0, 12.0}, "ECEF", Axis::North, 1000.0), std::invalid_argument);
}

TEST(LinesInWindow, RefuseMoreLinesThanThereMayBe) {
    EXPECT_THROW(Lines({-80.0, -180.0, 84.0, 180.0}, "UTM", Axis::North, 1.0), std::invalid_argument);
    EXPECT_THROW(Lines({-90.0, -180.0, 90.0, 180.0}, "GEODEZ", Axis::East, 0.01), std::invalid_argument);
    EXPECT_THROW(Lines({47.0, 10.0, 49.0, 12.0}, "UTM", Axis::East, 5e-324), std::invalid_argument);
}

struct Border {
    int west, east;
    double longitude, south, north;

    bool operator==(const Border&) const = default;
};

void PrintTo(const Border& border, std::ostream* stream) {
    *stream << border.west << '|' << border.east << " at " << border.longitude << " from " << border.south
            << " to " << border.north;
}

// Rounded to a hundredth of a degree.
std::vector<Border> Borders(const DegreeWindow& window, const std::string& system) {
    const auto round = [](double degrees) { return std::round(degrees * 100.0) / 100.0; };
    std::vector<Border> borders;
    for (const WindowBorder& border : BordersInWindow(window, Named(system))) {
        for (const DegreeLine& part : border.parts) {
            for (const GeodezPayload& at : part)
                EXPECT_NEAR(at.longitude, part.front().longitude, 1e-6);  // a meridian
            const double ends[] = {part.front().latitude, part.back().latitude};
            borders.push_back({border.west.value_or(0), border.east.value_or(0),
                               round(part.front().longitude), round(std::min(ends[0], ends[1])),
                               round(std::max(ends[0], ends[1]))});
        }
    }
    return borders;
}

TEST(BordersInWindow, AreMeridiansBetweenTwoZones) {
    EXPECT_EQ(Borders({48.0, 11.0, 49.0, 13.0}, "UTM"), (std::vector<Border>{{32, 33, 12.0, 48.0, 49.0}}));
}

// Strips of Gauss and Krueger have their central meridians at multiples of 3 degrees.
TEST(BordersInWindow, AreHalfwayBetweenCentralMeridians) {
    EXPECT_EQ(Borders({48.0, 10.0, 49.0, 11.0}, "GK"), (std::vector<Border>{{3, 4, 10.5, 48.0, 49.0}}));
}

TEST(BordersInWindow, FollowTheLongitudeAloneInNorway) {
    EXPECT_EQ(Borders({55.0, 1.0, 65.0, 11.0}, "UTM"), (std::vector<Border>{{31, 32, 6.0, 55.0, 65.0}}));
}

TEST(BordersInWindow, ContinueAcrossTheDateLine) {
    EXPECT_EQ(Borders({10.0, 179.0, 11.0, -179.0}, "UTM"), (std::vector<Border>{{60, 1, 180.0, 10.0, 11.0}}));
}

TEST(BordersInWindow, GoOnceAroundTheEarth) {
    const std::vector<Border> borders = Borders({-10.0, -180.0, 10.0, 180.0}, "UTM");

    int previous = 0;
    for (const Border& border : borders) {
        if (std::abs(border.longitude) == 180.0) continue;
        EXPECT_EQ(border.west, previous + 1);
        EXPECT_EQ(border.east, border.west + 1);
        EXPECT_EQ(border.longitude, border.west * 6.0 - 180.0);
        previous = border.west;
    }
    EXPECT_EQ(previous, 59);
}

TEST(BordersInWindow, RefuseSystemsWithoutZones) {
    EXPECT_THROW(static_cast<void>(BordersInWindow({47.0, 10.0, 49.0, 12.0}, Named("CH"))),
                 std::invalid_argument);
}

}  // namespace
}  // namespace tessara::toolkit
