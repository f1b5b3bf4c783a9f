// Positions as texts: convert with a system in --from, check, utmref.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

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
constexpr const char* MUNICH_TEXTS = "N 5334791\t32 691602";
constexpr const char* MUNICH_UTMREF = "U U 34791.000\t32 P 91602.000";

const std::string UTM_FORMS =
    "`hemisphere northing` and `zone easting`, or `zone hemisphere easting northing`";

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
    const Outcome outcome = UtmToUtmref({}, std::string(MUNICH_TEXTS) + "\ttown hall\t\n");
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
    EXPECT_EQ(UtmToUtmref({"--display", "--north-precision", "1", "--east-precision", "1"}, MUNICH_TEXTS).out,
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
    EXPECT_EQ(outcome.err, "-: missing columns 'north' and 'east'\n");
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
    EXPECT_EQ(lines[0], "-:1: missing easting; UTM is written as " + UTM_FORMS);
    EXPECT_EQ(lines[1], "-:2: '32': the position is in zone 33, not in 32");
    EXPECT_EQ(lines[2],
              "-:3: not convertible to BNG@WGS84: the position is outside the grid, or its letters do not "
              "belong to the grid");
    EXPECT_EQ(lines[3], "-:4: missing separator between north and east; UTM is written as " + UTM_FORMS);
}

TEST(ConvertTexts, GivesTheReasonACodeInJson) {
    const Outcome outcome = UtmToUtmref({"--json"}, "N 5334791\t32 900000\n");
    EXPECT_EQ(outcome.err, "-:1: '32': the position is in zone 33, not in 32 [outside-zone]\n");
    EXPECT_EQ(ConvertTexts({"--from", "UTM", "--to", "BNG", "--json"}, MUNICH_TEXTS).err,
              "-:1: not convertible to BNG@WGS84: the position is outside the grid, or its letters do not "
              "belong to the grid "
              "[outside-grid]\n");
}

// The library's own reader and checker leave these out.
TEST(ConvertTexts, TakesEverySystemThatHasPositions) {
    // Both are half a million metres from the pole, which has 2000000 and 2000000, on the meridian of 180
    // degrees: grid north is along 0 degrees in the south.
    EXPECT_EQ(ConvertTexts({"--from", "UPS", "--to", "UPS"}, "S 1500000\t2000000\n").out,
              "S 1500000.000\t2000000.000\n");
    EXPECT_EQ(ConvertTexts({"--from", "VDG", "--to", "VDG:lon0=10"}, "0 1000\t10 1000\n").err, "");
    EXPECT_EQ(
        ConvertTexts({"--from", "TM:lon0=9,k=0.9996,fe=500000", "--to", "UTM"}, "5334791\t691602\n").out,
        "N 5334791.000\t32 691602.000\n");
    EXPECT_EQ(ConvertTexts({"--from", "ECEF", "--to", "ECEF"}, "4177000 855000 4727000;a\n").out,
              "4177000.000 855000.000 4727000.000;a\n");
    EXPECT_EQ(ConvertTexts({"--from", "GK-AT:meridian=34@MGI", "--to", "GK-AT"}, "5300000\t-5000\n").out,
              "5300000.000\t-5000.000\n");
    EXPECT_NE(ConvertTexts({"--from", "GK-AT@MGI"}, "5300000\t-5000\n")
                  .err.find("write 28, 31 or 34 before the numbers"),
              std::string::npos);
    EXPECT_EQ(ConvertTexts({"--from", "LONGPIXEL"}, "").status, 2);
}

TEST(ConvertTexts, TakesPositionsThatStandInOneColumn) {
    const std::string input =
        "32UPU9160234791;town hall\n"
        "48 8 15 N, 11 34 32 E\n"
        "32U 691602 5334791;x;y\n";
    const Outcome outcome =
        ConvertTexts({"--from", "auto", "--to", "MGRS", "--precision", "100m", "--verbose"}, input);
    // The second lies 5 m east of 11.5755, whose easting is 691602.66.
    EXPECT_EQ(outcome.out, "32UPU916348;town hall\n32UPU916348\n32UPU916348;x;y\n");
    const std::vector<std::string> lines = LinesOf(outcome.err);
    ASSERT_EQ(lines.size(), 3u) << outcome.err;
    EXPECT_EQ(lines[0].substr(0, 24), "-:1: read as UTMREF 32 U");
    EXPECT_EQ(lines[1].substr(0, 23), "-:2: read as GEOGRAD 48");
    EXPECT_EQ(lines[2].substr(0, 21), "-:3: read as UTM 32 N");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ConvertTexts, TakesPositionsThatStandInOneColumnOfATable) {
    const std::string input = "id,place,note\n1,32UPU9160234791,a\n2,\"48,1375 11,5755\",b\n3,32UPU9,c\n";
    const Outcome outcome = ConvertTexts(
        {"--from", "auto", "--columns", "place", "--input", "csv", "--to", "UTM", "--verbose"}, input);
    EXPECT_EQ(outcome.out,
              "id,north,east,note\n1,N 5334791.000,32 691602.000,a\n2,N 5334791.145,32 691602.660,b\n");
    const std::vector<std::string> lines = LinesOf(outcome.err);
    ASSERT_EQ(lines.size(), 3u) << outcome.err;
    EXPECT_EQ(lines[0].substr(0, 5), "-:4: ");
    EXPECT_EQ(lines[1].substr(0, 19), "-:2: read as UTMREF");
    EXPECT_EQ(lines[2].substr(0, 19), "-:3: read as GEODEZ");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(ConvertTexts({"--columns", "place", "--input", "csv", "--to", "UTM"}, input).status, 2);
    EXPECT_EQ(ConvertTexts({"--verbose", "--input", "csv", "--to", "UTM"}, input).status, 2);
}

TEST(ConvertTexts, NamesTheOneTextOfAReferenceAfterTheOneItReplaces) {
    const std::vector<std::string> options{"--from", "auto", "--to", "MGRS", "--precision", "1km"};
    const auto convert = [&](std::vector<std::string> more, const std::string& input) {
        more.insert(more.begin(), options.begin(), options.end());
        return ConvertTexts(more, input).out;
    };
    EXPECT_EQ(convert({"--input", "jsonl"}, "{\"id\":1,\"text\":\"32UPU9160234791\"}\n"),
              "{\"id\":1,\"text\":\"32UPU9235\"}\n");
    EXPECT_EQ(convert({"--input", "jsonl"}, "{\"north\":\"48.1375\",\"east\":\"11.5755\",\"id\":1}\n"),
              "{\"text\":\"32UPU9235\",\"id\":1}\n");
    EXPECT_EQ(convert({"--input", "csv", "--columns", "place"}, "place;id\n32UPU9160234791;1\n"),
              "place;id\n32UPU9235;1\n");
    EXPECT_EQ(convert({"--input", "csv", "--columns", "n,e"}, "n;e;id\n48.1375;11.5755;1\n"),
              "text;id\n32UPU9235;1\n");
}

TEST(ConvertTexts, KeepsAPlaceForTheOneTextOfAReference) {
    const std::string input = "48.1375 11.5755\n91 11\n";
    EXPECT_EQ(
        ConvertTexts({"--to", "MGRS", "--to", "UTM", "--precision", "1km", "--on-error", "keep"}, input).out,
        "32UPU9235\tN 5334791.145\t32 691602.660\n*\t*\t*\n");
}

TEST(ConvertTexts, TakesADecimalCommaThatIsTheSeparatorOfTheLine) {
    EXPECT_EQ(ConvertTexts({"--from", "GEODEZ"}, "48,1375 11,5755\n").out, "48.1375000,11.5755000\n");
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
    EXPECT_EQ(UtmToUtmref({"--rejects", "/no/such/directory/rejects"}, MUNICH_TEXTS).status, 1);
}

TEST(ConvertTexts, RejectsDontOverwriteAFileThatIsRead) {
    const ScratchDirectory files;
    const std::string file = files.File("input", std::string(MUNICH_TEXTS) + "\n");
    const Outcome outcome = UtmToUtmref({"--rejects", file, file}, "");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, file + ": cannot write rejects to an input file\n");
    EXPECT_EQ(files.Contents("input"), std::string(MUNICH_TEXTS) + "\n");

    const std::string convert = std::string(TESSARA_PROGRAM) + " convert --from UTM --rejects ";
    const Outcome asInput = RunProgram("/bin/sh", {"-c", convert + file + " < " + file});
    EXPECT_EQ(asInput.status, 1);
    EXPECT_EQ(asInput.err, outcome.err);
    EXPECT_EQ(files.Contents("input"), std::string(MUNICH_TEXTS) + "\n");
}

TEST(ConvertTexts, JsonCarriesTextsAndNumbers) {
    const Outcome outcome = UtmToUtmref({"--json"}, std::string(MUNICH_TEXTS) + "\ttown hall");
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
    EXPECT_EQ(ConvertTexts({"--truncate", "--to", "UTMREF"}, "48 11").status, 2);
    EXPECT_EQ(ConvertTexts({"--precision", "2m", "--to", "UTMREF"}, "48 11").status, 2);
    EXPECT_EQ(ConvertTexts({"--zone", "61", "--to", "UTM"}, "48 11").status, 2);
    EXPECT_EQ(ConvertTexts({"--zone", "33", "--to", "GEODEZ"}, "48 11").status, 2);
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
    EXPECT_EQ(LinesOf(outcome.err).at(0), "-:1: unexpected character '?'");
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

// By PROJ's cs2cs from EPSG:32632 to EPSG:4326: 48.1374989 11.5754911.
TEST(Check, TellsWhatTextsAreUnderstoodAs) {
    const Outcome valid = Tessara({"check", "--system", "UTM", "N 5334791", "32 691602"});
    const std::vector<std::string> lines = LinesOf(valid.out);
    ASSERT_EQ(lines.size(), 4u) << valid.out;
    EXPECT_EQ(lines[0], "valid");
    EXPECT_EQ(lines[1], "  UTM@WGS84  32 N 691602 5334791");
    EXPECT_EQ(lines[2], "  digits  1 m north, 1 m east");
    EXPECT_EQ(lines[3].substr(0, 20), "  degrees  48.137498");
    EXPECT_EQ(valid.status, 0);
    EXPECT_EQ(LinesOf(Tessara({"check", "32U PU 916 348"}).out).at(1), "  UTMREF@WGS84  32 U PU 916__ 348__");
    EXPECT_EQ(LinesOf(Tessara({"check", "--system", "GEODEZ", "-48.5", "-.5"}).out).at(0), "valid");
}

TEST(Check, ShowsThePieceThatIsWrong) {
    const Outcome illegal = Tessara({"check", "--system", "GEODEZ@GER", "91", "11"});
    EXPECT_EQ(illegal.out, "not valid: the latitude is outside -90..90\n  91\n  ^^\n");
    EXPECT_EQ(illegal.status, 1);
    EXPECT_EQ(Tessara({"check", "48\u00b061' N, 11\u00b0 E"}).out,
              "not valid: '61': minutes must be below 60\n  48\u00b061' N, 11\u00b0 E\n     ^^\n");
    const Outcome unreadable = Tessara({"check", "--system", "CH", "x", "11"});
    EXPECT_EQ(unreadable.out,
              "not valid: expected northing; CH is written as `northing` and `easting`\n  x\n  ^\n");
    EXPECT_EQ(Tessara({"check", "--system", "NONE", "1", "2"}).status, 2);
    EXPECT_EQ(Tessara({"check"}).status, 2);
}

TEST(Check, TellsTheSameInJson) {
    const Json valid = Json::parse(Tessara({"check", "--json", "32UPU916348"}).out);
    EXPECT_EQ(valid["valid"], true);
    EXPECT_EQ(valid["readings"][0]["system"], "UTMREF");
    EXPECT_EQ(valid["readings"][0]["northResolution"], 100.0);
    const Json wrong = Json::parse(Tessara({"check", "--json", "48 61 N 11 34 E"}).out);
    EXPECT_EQ(wrong["valid"], false);
    EXPECT_EQ(wrong["fault"]["code"], "minutes");
    EXPECT_EQ(wrong["fault"]["begin"], 3);
    EXPECT_EQ(wrong["fault"]["end"], 5);
    EXPECT_EQ(Json::parse(Tessara({"check", "--json", "32S 691602 4034791"}).out)["readings"].size(), 2u);
}

// By PROJ's cs2cs from EPSG:4326 to EPSG:32632 and EPSG:32633: 691602.6597 5334791.1445, 245243.7058
// 5337256.1192.
TEST(Convert, TakesAPositionOnTheCommandLine) {
    const std::string utm = "32 N 691602.6597 5334791.1445\n";
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--", "48.1375", "11.5755"}).out, utm);
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--", "48.1375, 11.5755"}).out, utm);
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--", "48.1375,", "11.5755"}).out, utm);
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--", "48", "8", "15", "N", "11", "34", "31.8", "E"}).out,
              utm);
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--zone", "33", "--", "48.1375", "11.5755"}).out,
              "33 N 245243.7058 5337256.1192\n");
    EXPECT_EQ(Tessara({"convert", "--to", "TM:lon0=9,k=0.9996,fe=500000", "--", "48.1375", "11.5755"}).out,
              "691602.6597 5334791.1445\n");
    EXPECT_EQ(Tessara({"convert", "--to", "GEODEZ", "--", "-48.5", "-.5"}).out,
              "-48.500000000 -0.500000000\n");
    EXPECT_EQ(Tessara({"convert", "--to", "MGRS", "--precision", "10m", "--", "48.1375", "11.5755"}).out,
              "32UPU91603479\n");
    EXPECT_EQ(Tessara({"convert", "--from", "UTM", "--to", "UTM", "--", "N 5334791", "32 691602"}).out,
              "N 5334791.000\t32 691602.000\n");
    const Outcome wrong = Tessara({"convert", "--to", "UTM", "--", "48.1375", "x"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_EQ(wrong.out, "");
    EXPECT_NE(wrong.err.find("tessara: "), std::string::npos);
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--input", "csv", "--", "48", "11"}).status, 2);
}

// Lines of fields, of texts and of display texts, fed back to the program.
TEST(Convert, ReadsWhatItWritesOfEverySystem) {
    const std::vector<std::pair<std::string, std::string>> places{
        {"UTM", "48.1375 11.5755"},
        {"UTMREF", "48.1375 11.5755"},
        {"GEODEZ", "-48.1375 -11.5755"},
        {"GEOGRAD", "-48.1375 -11.5755"},
        {"GEOREF", "48.1375 11.5755"},
        {"GK", "48.1375 11.5755"},
        {"BMN@MGI", "48.1 14.3"},
        {"OEM@MGI", "48.1 14.3"},
        {"CH@CH1903", "46.8 8.2"},
        {"GEODEZMIN", "-48.1375 -11.5755"},
        {"GK6", "48.1375 11.5755"},
        {"GK-AT:meridian=31@MGI", "48.1 14.3"},
        {"UPS", "-85.1 11.3"},
        {"PO_MILITARY", "39.4 -8.3"},
        {"TM:lon0=9,fe=500000", "48.1 11.3"},
        {"VDG", "48.1375 11.5755"},
        {"BNG", "51.5 -0.12"},
        {"ING", "53.35 -6.26"},
        {"RD", "52.1 5.3"},
        {"LUREF", "49.6 6.1"},
        {"ECEF", "48.1375 11.5755"},
    };
    for (const auto& [system, place] : places) {
        const std::string datum =
            system.find('@') == std::string::npos ? "WGS84" : system.substr(system.find('@') + 1);
        for (const std::vector<std::string>& style : {std::vector<std::string>{},
                                                      {"--north-precision", "1e-5"},
                                                      {"--display", "--north-precision", "1e-5"}}) {
            std::vector<std::string> there{"convert", "--from", datum, "--to", system};
            there.insert(there.end(), style.begin(), style.end());
            const std::string line = Tessara(there, place).out;
            const Outcome back =
                Tessara({"convert", "--from", system, "--order", "en", "--to", "GEODEZ@" + datum}, line);
            ASSERT_EQ(back.status, 0) << system << ": " << line << back.err;
            std::istringstream wanted(place), found(back.out);
            double latitude = 0.0, longitude = 0.0, foundLatitude = 0.0, foundLongitude = 0.0;
            wanted >> latitude >> longitude;
            found >> foundLatitude >> foundLongitude;
            // A hundredth of a minute, the coarsest of these forms, is that of GEOREF; references have
            // metres.
            EXPECT_NEAR(foundLatitude, latitude, 0.01 / 60.0 + 1e-7) << line;
            EXPECT_NEAR(foundLongitude, longitude, 0.01 / 60.0 + 1e-7) << line;
        }
    }
}

TEST(Convert, TakesFilesBehindTheDashes) {
    const ScratchDirectory files;
    const std::string file = files.File("-48", "48.1375 11.5755\n");
    EXPECT_EQ(Tessara({"convert", "--to", "UTM", "--", file}).out, "32 N 691602.6597 5334791.1445\n");
}

TEST(Convert, RefusesParametersThatASystemDoesntHave) {
    for (const char* target : {"TM:zone=3", "TM:lon0", "TM:lon0=x", "TM:lon0=400", "UTM:zone=61", "CH:k=1",
                               "TM:", "GK6:strip=0", "BMN:meridian=29"})
        EXPECT_EQ(Tessara({"convert", "--to", target, "--", "48", "11"}).status, 2) << target;
}

TEST(Utmref, NamesThePieceThatDoesntExist) {
    const auto wrong = [](const std::vector<std::string>& pieces) {
        std::vector<std::string> arguments{"utmref"};
        arguments.insert(arguments.end(), pieces.begin(), pieces.end());
        return Tessara(arguments).err;
    };
    EXPECT_EQ(wrong({"61"}).substr(0, 53), "tessara: unknown zone '61'; expected one of 1 2 3 4 5");
    EXPECT_EQ(
        wrong({"32", "I"}),
        "tessara: unknown band 'I' after 32; expected one of C D E F G H J K L M N P Q R S T U V W X\n");
    EXPECT_EQ(wrong({"32", "U", "A"}),
              "tessara: unknown column 'A' after 32 U; expected one of K L M N P Q\n");
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
