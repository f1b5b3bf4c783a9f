// Positions as texts: convert with a system in --from, check, utmref.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/files.h"
#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::ScratchDirectory;
using tessara::testing::Tessara;
using Json = nlohmann::json;

namespace {

// The digits of a reference are those of the grid values: 691602 is 91602 in the sixth column of zone 32, P,
// and 5334791 is 34791 in the square row U.
constexpr const char* MUNICH_UTM = "N 5334791\t32 691602";
constexpr const char* MUNICH_UTMREF = "U U 34791.000\t32 P 91602.000";

Outcome ConvertTexts(std::vector<std::string> arguments, const std::string& input) {
    arguments.insert(arguments.begin(), "convert");
    return Tessara(arguments, input);
}

Outcome UtmToUtmref(std::vector<std::string> arguments, const std::string& input) {
    arguments.insert(arguments.end(), {"--from", "UTM", "--to", "UTMREF"});
    return ConvertTexts(arguments, input);
}

}  // namespace

TEST(ConvertTexts, WritesTextsAndKeepsOtherColumns) {
    const Outcome outcome = UtmToUtmref({}, std::string(MUNICH_UTM) + "\ttown hall\t\n");
    EXPECT_EQ(outcome.out, std::string(MUNICH_UTMREF) + "\ttown hall\t\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ConvertTexts, WritesSeveralTargetsSideBySide) {
    const Outcome outcome =
        ConvertTexts({"--from", "UTM", "--to", "UTM", "--to", "UTMREF"}, "N 5334791;32 691602;x");
    EXPECT_EQ(outcome.out, "N 5334791.000;32 691602.000;U U 34791.000;32 P 91602.000;x\n");
}

TEST(ConvertTexts, WritesDegreesOnWgs84WithoutATarget) {
    EXPECT_EQ(ConvertTexts({"--from", "GEODEZ"}, "48.5\t11.5\n").out, "48.5000000\t11.5000000\n");
}

TEST(ConvertTexts, TakesATargetWithoutDatumOnTheDatumOfTheTexts) {
    const Outcome outcome = ConvertTexts({"--from", "GEODEZ@GER", "--to", "GEOGRAD"}, "48.5\t-11.25\n");
    EXPECT_EQ(outcome.out, "N 48 30 0.000\tW 11 15 0.000\n");
}

TEST(ConvertTexts, WritesTheFormsForAScreenInUtf8) {
    const std::string input = "N 48 5 3.25\tE 11 30 0\n";
    EXPECT_EQ(ConvertTexts({"--from", "GEOGRAD", "--to", "GEOGRAD", "--display"}, input).out,
              "48\u00b005'3.250''N\t11\u00b030'0.000''E\n");
    EXPECT_EQ(ConvertTexts({"--from", "GEOGRAD", "--to", "GEOGRAD", "--display", "--north-precision",
                            "0.0166666666667", "--east-precision", "1"},
                           input)
                  .out,
              "48\u00b005'N\t11\u00b0"
              "E\n");
    EXPECT_EQ(UtmToUtmref({"--display", "--north-precision", "1", "--east-precision", "1"}, MUNICH_UTM).out,
              "32UPU9160234791\t32UPU9160234791\n");
}

TEST(ConvertTexts, FindsTheColumnsOfACsvByTheirNames) {
    const Outcome outcome = UtmToUtmref({"--columns", "north,east"},
                                        "id,east,name,north\r\n"
                                        "1,32 691602,\"Munich, \"\"Marienplatz\"\"\",N 5334791\r\n");
    EXPECT_EQ(outcome.out,
              "id,name,north,east\n"
              "1,\"Munich, \"\"Marienplatz\"\"\",U U 34791.000,32 P 91602.000\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ConvertTexts, NamesTheColumnsOfSeveralTargets) {
    const Outcome outcome = ConvertTexts(
        {"--from", "UTM", "--to", "UTM", "--to", "UTMREF", "--columns", "n,e"}, "n;e\nN 5334791;32 691602\n");
    EXPECT_EQ(LinesOf(outcome.out)[0], "n UTM@WGS84;e UTM@WGS84;n UTMREF@WGS84;e UTMREF@WGS84");
}

TEST(ConvertTexts, ReportsAFileWithoutTheColumns) {
    const Outcome outcome = UtmToUtmref({"--columns", "north,east"}, "a,b\n1,2\n");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "-: has no columns 'north' and 'east'\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(ConvertTexts, SaysWhichStepRefusedALine) {
    const Outcome outcome = ConvertTexts({"--from", "UTM", "--to", "CH", "--to", "BNG"},
                                         "N 5334791\t32\n"
                                         "N 5334791\t32 900000\n"
                                         "N 5334791\t32 691602\n"
                                         "N 5334791\n");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.status, 1);
    const std::vector<std::string> lines = LinesOf(outcome.err);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "-:1: not readable as UTM, which is `hemisphere northing` and `zone easting`");
    EXPECT_EQ(lines[1], "-:2: not a legal position of UTM@WGS84");
    EXPECT_EQ(lines[2], "-:3: not convertible to BNG@WGS84");
    EXPECT_EQ(lines[3], "-:4: has 1 column");
}

TEST(ConvertTexts, NamesTheLimitWhenItRefuses) {
    EXPECT_NE(ConvertTexts({"--from", "UPS"}, "S 2000000\t2000000").err.find("only the north can be typed"),
              std::string::npos);
    EXPECT_NE(
        ConvertTexts({"--from", "VDG"}, "0 1000\t10 1000").err.find("only the origin 0, 0 can be typed"),
        std::string::npos);
    for (const char* system : {"ECEF", "TM", "GK-AT@MGI"}) {
        const Outcome outcome = ConvertTexts({"--from", system}, "");
        EXPECT_EQ(outcome.status, 2) << system;
        EXPECT_NE(outcome.err.find("can't be typed: "), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(ConvertTexts({"--from", "LONGPIXEL"}, "").status, 2);
}

TEST(ConvertTexts, WritesLinesThatCantBeUsedToAFile) {
    const ScratchDirectory files;
    const Outcome outcome = UtmToUtmref(
        {"--rejects", files.Path("rejects")},
        std::string("# first\nfoo;bar\n") + "N 5334791;32 691602\n" + "N 5334791;32 900000; \xFF \r\n\n");
    EXPECT_EQ(outcome.out, "U U 34791.000;32 P 91602.000\n");
    EXPECT_EQ(files.Contents("rejects"), "foo;bar\nN 5334791;32 900000; \xFF \r\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(ConvertTexts, RejectsOfACsvAreACsv) {
    const ScratchDirectory files;
    UtmToUtmref({"--rejects", files.Path("rejects"), "--columns", "n,e"},
                "n,e\nN 1,x\nN 5334791,32 691602\n");
    EXPECT_EQ(files.Contents("rejects"), "n,e\nN 1,x\n");
}

TEST(ConvertTexts, ReportsRejectsThatCantBeWritten) {
    EXPECT_EQ(UtmToUtmref({"--rejects", "/no/such/directory/rejects"}, MUNICH_UTM).status, 1);
}

TEST(ConvertTexts, RejectsDontOverwriteAFileThatIsRead) {
    const ScratchDirectory files;
    const std::string file = files.File("input", std::string(MUNICH_UTM) + "\n");
    const Outcome outcome = UtmToUtmref({"--rejects", file, file}, "");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, file + ": is to be read, and can't take the rejects\n");
    EXPECT_EQ(files.Contents("input"), std::string(MUNICH_UTM) + "\n");

    const std::string convert = std::string(TESSARA_PROGRAM) + " convert --from UTM --rejects ";
    const Outcome asInput = RunProgram("/bin/sh", {"-c", convert + file + " < " + file});
    EXPECT_EQ(asInput.status, 1);
    EXPECT_EQ(asInput.err, outcome.err);
    EXPECT_EQ(files.Contents("input"), std::string(MUNICH_UTM) + "\n");
}

TEST(ConvertTexts, JsonCarriesTextsAndNumbers) {
    const Outcome outcome = UtmToUtmref({"--json"}, std::string(MUNICH_UTM) + "\ttown hall");
    const Json json = Json::parse(outcome.out);
    EXPECT_EQ(json["line"], 1);
    EXPECT_EQ(json["north"], "N 5334791");
    EXPECT_EQ(json["columns"]["3"], "town hall");
    const Json& result = json["results"][0];
    EXPECT_EQ(result["system"], "UTMREF");
    EXPECT_EQ(result["north"], "U U 34791.000");
    EXPECT_EQ(result["fields"]["easting"], 91602);
}

TEST(ConvertTexts, RefusesOptionsOutOfRange) {
    EXPECT_EQ(UtmToUtmref({"--jobs", "0"}, "").status, 2);
    EXPECT_EQ(UtmToUtmref({"--north-precision", "-1"}, "").status, 2);
}

// More lines than the jobs take at a time, with bad ones among them.
TEST(ConvertTexts, JobsKeepTheOrderOfTheLines) {
    std::string input;
    for (int i = 0; i < 30000; ++i) {
        input += i % 1000 == 7 ? "no position" : "N 5334791\t32 " + std::to_string(500000 + i);
        input += '\n';
    }
    const Outcome one = UtmToUtmref({}, input);
    const Outcome four = UtmToUtmref({"--jobs", "4"}, input);
    EXPECT_EQ(LinesOf(one.out).size(), 30000u - 30u);
    EXPECT_EQ(LinesOf(one.err).size(), 30u);
    EXPECT_EQ(four.out, one.out);
    EXPECT_EQ(four.err, one.err);
    EXPECT_EQ(LinesOf(one.err)[1].substr(0, 7), "-:1008:");
}

TEST(ConvertTexts, ReadsAHeaderBehindAByteOrderMark) {
    EXPECT_EQ(UtmToUtmref({"--columns", "n,e"}, "\xEF\xBB\xBFn;e\r\nN 5334791;32 691602\r\n").out,
              "n;e\nU U 34791.000;32 P 91602.000\n");
}

TEST(ConvertTexts, TakesNoTextForItsPartBeforeANul) {
    const Outcome outcome =
        UtmToUtmref({}, std::string("N 5334791\0x;32 691602\nN 5334791;32 691602\0\n", 43));
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).size(), 2u);
    EXPECT_EQ(LinesOf(outcome.err).at(0),
              "-:1: not readable as UTM, which is `hemisphere northing` and `zone easting`");
}

TEST(ConvertTexts, JsonHasAllColumnsOfAHeaderThatNamesSomeTwice) {
    const Outcome outcome =
        UtmToUtmref({"--json", "--columns", "n,e"}, "n,e,a,a,\nN 5334791,32 691602,1,2,3\n");
    EXPECT_EQ(Json::parse(outcome.out)["columns"], (Json{{"a", "1"}, {"a 4", "2"}, {"5", "3"}}));
}

// A quadratic search for the names of the columns would take minutes.
TEST(ConvertTexts, TakesVeryManyColumns) {
    std::string line = "N 5334791;32 691602";
    for (int i = 0; i < 300000; ++i)
        line += ";x";
    for (const std::vector<std::string>& form :
         {std::vector<std::string>{}, {"--json"}, {"--output", "jsonl"}}) {
        const Outcome outcome = UtmToUtmref(form, line + "\n");
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(LinesOf(outcome.out).size(), 1u);
        EXPECT_GT(outcome.out.size(), line.size());
    }
}

TEST(ConvertTexts, SurvivesAnyBytes) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 7919 % 256);
    EXPECT_EQ(UtmToUtmref({}, bytes).status, 1);
    EXPECT_EQ(UtmToUtmref({"--json"}, bytes).status, 1);
    EXPECT_EQ(UtmToUtmref({"--columns", "n,e"}, bytes).status, 1);
    EXPECT_EQ(UtmToUtmref({}, std::string(1 << 20, '"')).status, 1);
}

TEST(Check, TellsWhetherTextsAreALegalPosition) {
    const Outcome valid = Tessara({"check", "--system", "UTM", "N 5334791", "32 691602"});
    EXPECT_EQ(valid.out, "valid\n");
    EXPECT_EQ(valid.status, 0);
    const Outcome illegal = Tessara({"check", "--system", "GEODEZ@GER", "91", "11"});
    EXPECT_EQ(illegal.out, "not valid: not a legal position of GEODEZ@GER\n");
    EXPECT_EQ(illegal.status, 1);
    const Outcome unreadable = Tessara({"check", "--system", "CH", "x", "11"});
    EXPECT_EQ(unreadable.out, "not valid: not readable as CH, which is `northing` and `easting`\n");
    EXPECT_EQ(Tessara({"check", "--system", "GEODEZ", "-48.5", "-.5"}).out, "valid\n");
    EXPECT_EQ(Tessara({"check", "--system", "NONE", "1", "2"}).status, 2);
    EXPECT_EQ(Tessara({"check", "--system", "UTM", "N 5334791"}).status, 2);
}

TEST(Utmref, ListsTheChoicesThatAreLeft) {
    const std::string zones = Tessara({"utmref"}).out;
    EXPECT_EQ(zones.substr(0, 6), "1 2 3 ");
    EXPECT_EQ(zones.substr(zones.size() - 4), " 60\n");
    EXPECT_EQ(Tessara({"utmref", "32"}).out, "C D E F G H J K L M N P Q R S T U V W X\n");
    // In band U zone 32 reaches 224 km to each side of easting 500000: columns K (200 to 300 km) to Q (700 to
    // 800 km). Q begins 200 km beside the meridian, where the band lies from northing 5319 km (48 degrees) to
    // some 5900 km (53.2 degrees, where the zone is 200 km wide on each side). With F for the first 100 km
    // and 20 letters these are rows 53, F + 53 - 2 * 20 = U, to 59, E; on Bessel's ellipsoid ten letters
    // on, J to Q.
    EXPECT_EQ(Tessara({"utmref", "032", "u"}).out, "K L M N P Q\n");
    EXPECT_EQ(Tessara({"utmref", "32", "U", "Q"}).out, "U V A B C D E\n");
    EXPECT_EQ(Tessara({"utmref", "32", "U", "Q", "--datum", "GER"}).out, "J K L M N P Q\n");
    for (const std::vector<std::string>& wrong :
         {std::vector<std::string>{"61"}, {"32", "I"}, {"32", "U", "A"}, {"32", "U", "Q", "--datum", "x"}}) {
        std::vector<std::string> arguments{"utmref"};
        arguments.insert(arguments.end(), wrong.begin(), wrong.end());
        EXPECT_EQ(Tessara(arguments).status, 2);
    }
}
