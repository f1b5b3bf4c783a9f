#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::Tessara;
using Json = nlohmann::json;

namespace {

std::vector<double> Numbers(const Outcome& outcome) {
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    std::istringstream stream(outcome.out);
    std::vector<double> numbers;
    for (double number = 0.0; stream >> number;)
        numbers.push_back(number);
    numbers.resize(3);
    return numbers;
}

constexpr double Degrees(double degrees, double minutes, double seconds) {
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

// Half of the last digit of an azimuth that is published to a hundredth of a second.
constexpr double HALF_A_HUNDREDTH_OF_A_SECOND = 0.005 / 3600.0;

}  // namespace

// Geocentric Datum of Australia Technical Manual, chapter 4: Flinders Peak to Buninyong on GRS 1980.
TEST(Distance, AgreesWithThePublishedLineOfASurvey) {
    const std::vector<double> line =
        Numbers(Tessara({"distance", "-37.951033416667", "144.424867888889", "-37.652821138889",
                         "143.926495527778", "--datum", "NAD83"}));
    EXPECT_NEAR(line[0], 54972.271, 0.0005);
    EXPECT_NEAR(line[1], Degrees(306, 52, 5.37), HALF_A_HUNDREDTH_OF_A_SECOND);
    EXPECT_NEAR(line[2], Degrees(127, 10, 25.07), HALF_A_HUNDREDTH_OF_A_SECOND);
}

// PROJ, manual page of geod: Boston to Portland on Clarke 1866, 2587.504 statute miles of the U.S. survey
// foot, which is 1200/3937 m; azimuths to a thousandth of a second.
TEST(Distance, AgreesAcrossAContinent) {
    const std::vector<double> line =
        Numbers(Tessara({"distance", "42.25", "-71.116666666667", "45.516666666667", "-123.683333333333",
                         "--datum", "NAD27"}));
    EXPECT_NEAR(line[0] / (5280.0 * 1200.0 / 3937.0), 2587.504, 0.0005);
    EXPECT_NEAR(line[1], 360.0 - Degrees(66, 31, 50.141), HALF_A_HUNDREDTH_OF_A_SECOND / 10.0);
    EXPECT_NEAR(line[2], Degrees(75, 39, 13.083), HALF_A_HUNDREDTH_OF_A_SECOND / 10.0);
}

// GeographicLib, manual page of GeodSolve: New York to Singapore on WGS84; the azimuth there points onward.
TEST(Distance, AgreesHalfRoundTheWorld) {
    const std::vector<double> line = Numbers(
        Tessara({"distance", "40.639722222222", "-73.778888888889", "1.359166666667", "103.989444444444"}));
    EXPECT_NEAR(line[0], 15347628.0, 0.5);
    EXPECT_NEAR(line[1], Degrees(3, 18, 29.9), 10.0 * HALF_A_HUNDREDTH_OF_A_SECOND);
    EXPECT_NEAR(line[2], Degrees(177, 29, 9.2) + 180.0, 10.0 * HALF_A_HUNDREDTH_OF_A_SECOND);
}

TEST(Distance, IsZeroBetweenEqualPositions) {
    EXPECT_EQ(Numbers(Tessara({"distance", "48", "11", "48", "11"}))[0], 0.0);
}

// From a position to its antipode over the pole, and back from it: due north both ways.
TEST(Distance, AnAzimuthOfAWholeTurnIsZero) {
    const Outcome line = Tessara({"distance", "0", "0", "0", "180"});
    EXPECT_EQ(line.out.substr(line.out.find(' ')), " 0.000000000 0.000000000\n");
}

TEST(Direct, AnAzimuthOfAWholeTurnIsZero) {
    // Due south, 1e-10 degrees to the east; the way back is due north, as little to the west.
    const Outcome end = Tessara({"direct", "10", "20", "179.9999999999", "1000"});
    EXPECT_EQ(end.out.substr(end.out.rfind(' ')), " 0.000000000\n");
}

TEST(Direct, FindsTheEndOfThePublishedLine) {
    const std::vector<double> end = Numbers(Tessara({"direct", "-37.951033416667", "144.424867888889",
                                                     "306.868158333", "54972.271", "--datum", "NAD83"}));
    // The azimuth is published to 0.005 seconds, which is 1.4e-3 m over the line, and the line to 0.5 mm:
    // 2e-8 degrees.
    EXPECT_NEAR(end[0], -37.652821138889, 2e-8);
    EXPECT_NEAR(end[1], 143.926495527778, 2e-8);
    EXPECT_NEAR(end[2], Degrees(127, 10, 25.07), HALF_A_HUNDREDTH_OF_A_SECOND);
}

TEST(Direct, IsTheWayBackOfADistance) {
    const std::vector<double> line = Numbers(Tessara({"distance", "10", "20", "-30", "50"}));
    std::ostringstream azimuth, distance;
    azimuth.precision(12), distance.precision(12);
    azimuth << line[1], distance << line[0];
    const std::vector<double> end = Numbers(Tessara({"direct", "10", "20", azimuth.str(), distance.str()}));
    // Azimuth and distance are written to 1e-9 degrees and 1e-4 m: half a unit of the azimuth is 5e-5 m over
    // 5500 km. The formulas are accurate to a millimetre, which is 1e-8 degrees.
    EXPECT_NEAR(end[0], -30.0, 1e-8);
    EXPECT_NEAR(end[1], 50.0, 1e-8);
    EXPECT_NEAR(end[2], line[2], 1e-8);
}

TEST(Direct, CrossesTheDateLine) {
    const std::vector<double> end = Numbers(Tessara({"direct", "0", "179.5", "90", "111319.4908"}));
    // One degree of the equator is pi/180 * 6378137 m = 111319.4908 m.
    EXPECT_NEAR(end[0], 0.0, 1e-9);
    EXPECT_NEAR(end[1], -179.5, 1e-9);
}

TEST(Direct, TakesNegativeNumbersInEveryForm) {
    const Outcome plain = Tessara({"direct", "-0.5", "-0.25", "-90", "-1000"});
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(Tessara({"direct", "-.5", "-.25", "-9e1", "-1e3"}).out, plain.out);
}

// GeographicLib, manual page of GeodSolve, as above; the azimuth there points onward.
TEST(Distance, ReadsPositionsFromFiles) {
    const std::string input =
        "# legs\n40.639722222222 -73.778888888889 1.359166666667 103.989444444444 JFK SIN\n"
        "0 0 0 91\n1 2 3\n\n1 2 x 4 # y\n";
    const Outcome outcome = Tessara({"distance", "--file", "-"}, input);
    EXPECT_EQ(outcome.status, 1);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].substr(0, 9), "15347627.");
    EXPECT_TRUE(lines[0].ends_with("\tJFK SIN")) << lines[0];
    EXPECT_EQ(
        LinesOf(outcome.err),
        (std::vector<std::string>{"-:4: expected latitude1 longitude1 latitude2 longitude2, found 3 values",
                                  "-:6: 'x' is not a number"}));
    EXPECT_EQ(Tessara({"distance", "--file", "-", "--on-error", "stop"}, input).out, outcome.out);
    EXPECT_EQ(LinesOf(Tessara({"distance", "--file", "-", "--on-error", "keep"}, input).out).size(),
              LinesOf(input).size());
}

TEST(Distance, JobsKeepTheOrderOfTheLines) {
    std::string input;
    for (int i = 0; i < 20000; ++i)
        input += "0 0 0 " + std::to_string(i % 170) + " " + std::to_string(i) + "\n";
    const Outcome one = Tessara({"distance", "--file", "-"}, input);
    EXPECT_EQ(LinesOf(one.out).size(), 20000u);
    EXPECT_EQ(Tessara({"distance", "--file", "-", "--jobs", "3"}, input).out, one.out);
}

// One degree of the equator is pi/180 * 6378137 m = 111319.49079 m, due east.
TEST(Distance, WritesObjectsWithAllDigits) {
    const Json once = Json::parse(Tessara({"distance", "--json", "0", "10", "0", "11"}).out);
    EXPECT_NEAR(once["distance"].get<double>(), 111319.490793274, 1e-6);
    EXPECT_EQ(once["longitude2"], 11.0);
    EXPECT_EQ(once["datum"], "WGS84");
    const Json line = Json::parse(Tessara({"distance", "--json", "--file", "-"}, "0 10 0 11 a b\n").out);
    EXPECT_EQ(line["line"], 1);
    EXPECT_EQ(line["rest"], "a b");
    EXPECT_EQ(line["distance"], once["distance"]);
    EXPECT_EQ(line["azimuth1"], 90.0);
}

TEST(Direct, ReadsRaysFromFilesAndWritesObjects) {
    const Outcome lines = Tessara({"direct", "--file", "-"}, "0 179.5 90 111319.490793274 x\n");
    EXPECT_EQ(lines.out, "0.000000000 -179.500000000 270.000000000\tx\n");
    const Json once = Json::parse(Tessara({"direct", "--json", "0", "179.5", "90", "111319.490793274"}).out);
    EXPECT_NEAR(once["longitude2"].get<double>(), -179.5, 1e-11);
    EXPECT_EQ(once["azimuth1"], 90.0);
}

namespace {

// GeographicLib, manual page of GeodSolve: New York at 40:38:23N 073:46:44W to Singapore at 01:21:33N
// 103:59:22E, 15347628 m.
void ExpectTheWayToSingapore(const Outcome& outcome) {
    EXPECT_NEAR(Numbers(outcome)[0], 15347628.0, 0.5) << outcome.err;
}

// What goes to standard error, without the hint at the help.
std::string Error(const std::vector<std::string>& arguments) {
    const Outcome outcome = Tessara(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    return outcome.err.substr(0, outcome.err.find("\nRun with"));
}

}  // namespace

TEST(Distance, TakesDegreesAsTyped) {
    for (const std::vector<std::string>& positions : {
             std::vector<std::string>{"40°38'23\"N 73°46'44\"W", "1°21'33\"N 103°59'22\"E"},
             {"N 40 38 23, W 73 46 44", "1 21 33 N", "103 59 22 E"},
             {"40", "38", "23", "N", "73", "46", "44", "W", "1", "21", "33", "N", "103", "59", "22", "E"},
             {"40", "38", "23", "-73", "46", "44", "1", "21", "33", "103", "59", "22"},
             {"40.639722222222, -73.778888888889", "1.359166666667", "103.989444444444"},
             {"40,639722222222 -73,778888888889", "1°21'33\"N 103°59'22\"E"},
         }) {
        std::vector<std::string> arguments{"distance"};
        arguments.insert(arguments.end(), positions.begin(), positions.end());
        ExpectTheWayToSingapore(Tessara(arguments));
    }
}

// A position is at no distance from the latitude and longitude to which it is converted. The distance is
// written to a tenth of a millimetre.
TEST(Distance, TakesTheFormsThatConvertRecognises) {
    for (const std::string form : {"32UPU9160234791", "32u pu 916 348", "32N 691602 5334791",
                                   "32U 691602.66 5334791.14", "NJFM3407", "TQ 30 80", "Y 2132000 1898000"}) {
        const Json converted =
            Json::parse(Tessara({"convert", "--json", "--to", "GEODEZ", "--position", form}).out);
        const auto number = [&](const char* name) { return converted["results"][0]["fields"][name].dump(); };
        const Outcome outcome = Tessara({"distance", form, number("latitude"), number("longitude")});
        EXPECT_EQ(Numbers(outcome)[0], 0.0) << form;
    }
}

TEST(Distance, DividesWordsAmongPositions) {
    const Outcome quoted = Tessara({"distance", "32U 691602 5334791", "33UUU9180020000"});
    EXPECT_EQ(quoted.status, 0);
    for (const std::vector<std::string>& arguments : {
             std::vector<std::string>{"distance", "32U", "691602", "5334791", "33UUU9180020000"},
             {"distance", "32UPU9160234791", "33U", "391800", "5820000"},
             {"distance", "32U", "PU", "91602", "34791", "33U", "391800", "5820000"},
         })
        EXPECT_EQ(Tessara(arguments).out, quoted.out) << ::testing::PrintToString(arguments);
}

// Of six numbers, either position could have minutes; letters decide.
TEST(Distance, NumbersOnlyDivideInEqualParts) {
    const Outcome minutes = Tessara({"distance", "1", "2", "3", "4", "5", "6", "7", "8"});
    EXPECT_EQ(minutes.status, 0);
    EXPECT_EQ(minutes.out, Tessara({"distance", "1 2 N 3 4 E", "5 6 N 7 8 E"}).out);
    EXPECT_EQ(Error({"distance", "1", "2", "3", "4", "5", "6"}),
              "tessara distance: expected latitude1 longitude1 latitude2 longitude2, found 6 values");
    EXPECT_EQ(Tessara({"distance", "1", "2", "3 4 5 6"}).out,
              Tessara({"distance", "1 2", "3 4 N 5 6 E"}).out);
}

TEST(Distance, NamesThePieceInError) {
    EXPECT_EQ(Error({"distance", "32UPU9160234791", "52 61 12 N 13 24 18 E"}),
              "tessara distance: position 2: '61': minutes must be below 60\n"
              "  52 61 12 N 13 24 18 E\n"
              "     ^^");
    EXPECT_EQ(Error({"distance", "32UPI9160234791", "52.5", "13.4"}).find("tessara distance: position 1: 'I"),
              0u);
    EXPECT_EQ(Error({"direct", "52 61 12 N 13 24 18 E", "90", "1000"}),
              "tessara direct: '61': minutes must be below 60\n"
              "  52 61 12 N 13 24 18 E\n"
              "     ^^");
    EXPECT_EQ(Error({"direct", "32UPU9160234791", "x", "1000"}), "tessara direct: 'x' is not a number");
    EXPECT_EQ(Error({"distance", "1", "2", "3", "x"}), "tessara distance: longitude2: 'x' is not a number");
}

TEST(Distance, ReadsTypedPositionsFromLines) {
    const std::string way = Tessara({"distance", "32UPU9160234791", "33UUU9180020000"}).out;
    const std::string plain = Tessara({"distance", "48.1375", "11.5755", "52.5", "13.25"}).out;
    const auto with = [](std::string line, const std::string& rest) {
        return line.insert(line.size() - 1, rest);
    };
    const std::pair<std::string, std::string> lines[] = {
        {"32UPU9160234791;33UUU9180020000;leg 1", with(way, "\tleg 1")},
        {"32UPU9160234791\t33U 391800 5820000", way},
        {"N 5334791;32 691602;N 5820000;33 391800;a;b", with(way, "\ta;b")},
        {"32UPU9160234791 33UUU9180020000  # nothing follows", way},
        {"48.1375, 11.5755; 52.5, 13.25; x", with(plain, "\tx")},
        {"48.1375,11.5755,52.5,13.25,x,y", with(plain, "\tx,y")},
        {"\"48,1375 11,5755\";\"52,5 13,25\"", plain},
        {"48.1375\t11.5755\t52.5\t13.25\tx", with(plain, "\tx")},
        {"48.1375 11.5755 52.5 13.25 1 2", with(plain, "\t1 2")},
    };
    for (const auto& [line, expected] : lines) {
        const Outcome outcome = Tessara({"distance", "--file", "-"}, line + "\n");
        EXPECT_EQ(outcome.out, expected) << line << outcome.err;
    }
}

// Whole degrees in a line can be degrees and minutes of other positions.
TEST(Distance, RefusesLinesWithSeveralMeanings) {
    const auto error = [](const std::string& line) {
        const Outcome outcome = Tessara({"distance", "--file", "-"}, line + "\n");
        EXPECT_EQ(outcome.out, "") << line;
        return outcome.err;
    };
    EXPECT_EQ(error("10 20 30 40\t1\t2"), "-:1: ambiguous: 10 20 30 40, or 10.33333 30.66667 1 2\n");
    EXPECT_EQ(error("10 20 30 40 1 2 3 4"),
              "-:1: ambiguous: 10 20 30 40, or 10.33333 30.66667 1.03333 3.06667\n");
    EXPECT_EQ(error("32UPU9160234791;32UPI9160234791").find("-:1: position 2: 'I"), 0u);
}

TEST(Direct, TakesAPositionInAnyForm) {
    const std::string north = Tessara({"direct", "48.5", "11.25", "0", "1000"}).out;
    for (const std::vector<std::string>& arguments : {
             std::vector<std::string>{"direct", "48°30'N 11°15'E", "0", "1000"},
             {"direct", "48", "30", "11", "15", "0", "1000"},
             {"direct", "N", "48", "30", "0", "E", "11", "15", "0", "0", "1000"},
         })
        EXPECT_EQ(Tessara(arguments).out, north) << ::testing::PrintToString(arguments);
    for (const std::string line : {"48 30 N 11 15 E;0;1000", "48.5,11.25,0,1000", "48°30'N 11°15'E 0 1000"})
        EXPECT_EQ(Tessara({"direct", "--file", "-"}, line + "\n").out, north) << line;
    EXPECT_EQ(Tessara({"direct", "--file", "-"}, "48 30 11 15 0 1000\n").err,
              "-:1: ambiguous: 48 30 11 15, or 48.5 11.25 0 1000\n");
}

TEST(GeodesicUsage, TypedPositionsAreOnTheDatum) {
    const Outcome plain = Tessara({"distance", "42.25", "-71.5", "45.5", "-123.75", "--datum", "NAD27"});
    const Outcome typed = Tessara({"distance", "42°15'N 71°30'W", "45°30'N 123°45'W", "--datum", "NAD27"});
    EXPECT_EQ(typed.out, plain.out);
    const Json object =
        Json::parse(Tessara({"distance", "--json", "42°15'N 71°30'W", "45.5", "-123.75"}).out);
    EXPECT_EQ(object["latitude1"], 42.25);
    EXPECT_EQ(object["longitude1"], -71.5);
}

TEST(GeodesicUsage, TakesNumbersFromOnePlace) {
    EXPECT_EQ(Tessara({"distance", "--file", "-", "1", "2", "3", "4"}).status, 2);
    EXPECT_EQ(Tessara({"distance"}).status, 2);
    EXPECT_EQ(Tessara({"direct"}).status, 2);
}

TEST(GeodesicUsage, WantsNumbersInRange) {
    for (const std::vector<std::string>& arguments : {
             std::vector<std::string>{"distance", "1", "2", "3"},
             {"distance", "1", "2", "3", "4", "5"},
             {"distance", "91", "2", "3", "4"},
             {"distance", "1", "361", "3", "4"},
             {"distance", "1", "2", "-90.1", "4"},
             {"distance", "1", "2", "3", "x"},
             {"distance", "1", "2", "3", "4", "--datum", "XYZ"},
             {"direct", "1", "2", "nan", "4"},
             {"direct", "1", "2", "3", "inf"},
             {"direct", "1", "2", "3"},
         }) {
        const Outcome outcome = Tessara(arguments);
        EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err, "");
    }
}
