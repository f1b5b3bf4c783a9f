#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program/files.h"
#include "program/run_program.h"

using tessara::testing::ExpectDone;
using tessara::testing::ExpectUsageError;
using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::ScratchDirectory;
using tessara::testing::Tessara;
using Json = nlohmann::json;

namespace {

// Munich on Bessel's ellipsoid, in the third-degree strip of 12 degrees east:
//   echo 11.5755 48.1375 | cs2cs -f %.4f +proj=longlat +ellps=bessel +to +proj=tmerc +lon_0=12 +x_0=4500000
//   +ellps=bessel
constexpr const char* MUNICH = "48.1375 11.5755";
constexpr const char* MUNICH_GK = "4468409.6792 5333259.5202";
// echo 48.1375 11.5755 | GeoConvert -u -p 4
constexpr const char* MUNICH_UTM = "32 N 691602.6597 5334791.1445";

std::vector<std::string> Converting(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "convert");
    return arguments;
}

}  // namespace

TEST(Convert, WritesTheFieldsOfATarget) {
    ExpectDone(Tessara(Converting({"--to", "UTM"}), MUNICH), std::string(MUNICH_UTM) + "\n");
}

TEST(Convert, PassesTheRestOfALineThrough) {
    ExpectDone(Tessara(Converting({"--to", "UTM", "--to", "GEODEZ"}),
                       "48.1375 11.5755 520 town hall, \"A\"  # kept out\n48.1375 11.5755\tb7  c\n"),
               std::string(MUNICH_UTM) + " 520.0000\t48.137500000 11.575500000 520.0000\ttown hall, \"A\"\n" +
                   MUNICH_UTM + "\t48.137500000 11.575500000\tb7  c\n");
    const Outcome json = Tessara(Converting({"--json"}), "48 11 5 town hall\n");
    EXPECT_EQ(Json::parse(json.out)["rest"], "town hall");
    ExpectDone(Tessara(Converting({"--output", "csv"}), "48 11 a,b\n1 2\n"),
               "latitude,longitude,rest\n48.000000000,11.000000000,\"a,b\"\n1.000000000,2.000000000,\n");
}

// echo 48.1375 11.5755 | cs2cs -f %.3f EPSG:4326 EPSG:32632: 691602.660 5334791.145. The height stands behind
// the two texts of each target, as it does behind fields.
TEST(Convert, WritesDegreesAsTexts) {
    ExpectDone(
        Tessara(Converting({"--to", "UTM", "--to", "GEOGRAD", "--display"}), "48.1375 11.5755 520.5 hall\n"),
        "N5334791.145\t32691602.660\t520.5000\t48\u00b008'15.000''N\t11\u00b034'31.800''E\t520.5000\thall\n");
    ExpectDone(
        Tessara(Converting({"--to", "UTM", "--north-precision", "1", "--east-precision", "1"}), MUNICH),
        "N 5334791\t32 691603\n");
    ExpectDone(
        Tessara(Converting({"--input", "csv", "--to", "GEOGRAD", "--display"}), "lat,lon\n48.5,-11.25\n"),
        "north,east\n48\u00b030'0.000''N,11\u00b015'0.000''W\n");
}

TEST(Convert, PartsTheTargetsByTabs) {
    ExpectDone(Tessara(Converting({"--from", "GER", "--to", "GK", "--to", "GEOGRAD"}), MUNICH),
               std::string(MUNICH_GK) + "\t48 8 15.00000 N 11 34 31.80000 E\n");
}

TEST(Convert, WritesDegreesOnWgs84WithoutATarget) {
    ExpectDone(Tessara(Converting({}), "48.1375 11.5755"), "48.137500000 11.575500000\n");
}

TEST(Convert, TakesATargetWithoutDatumOnTheDatumOfThePositions) {
    const Outcome named = Tessara(Converting({"--from", "GER", "--to", "GK@GER"}), MUNICH);
    ExpectDone(named, std::string(MUNICH_GK) + "\n");
    ExpectDone(Tessara(Converting({"--from", "GER", "--to", "GK"}), MUNICH), named.out);
}

TEST(Convert, ShiftsBetweenDatums) {
    const Outcome outcome = Tessara(Converting({"--to", "GEODEZ@GER", "--json"}), MUNICH);
    ASSERT_EQ(outcome.status, 0);
    const Json result = Json::parse(outcome.out)["results"][0];
    // echo 11.5755 48.1375 | cs2cs -f %.10f +proj=longlat +datum=WGS84 +to +proj=longlat +ellps=bessel
    // +towgs84=604,21,415 The shift along the ellipsoid leaves the height out of account: 5e-7 degrees, or 5
    // cm.
    EXPECT_NEAR(result["latitude"].get<double>(), 48.1384061798, 5e-7);
    EXPECT_NEAR(result["longitude"].get<double>(), 11.5768521901, 5e-7);
}

TEST(Convert, TakesNamesInUpperAndLowerCase) {
    ExpectDone(Tessara(Converting({"--from", "ger", "--to", "gk@Ger"}), MUNICH),
               std::string(MUNICH_GK) + "\n");
}

TEST(Convert, WritesTheHeightOfALineThatGaveOne) {
    ExpectDone(
        Tessara(Converting({"--to", "UTM", "--to", "GEODEZ"}), "48.1375 11.5755 520.25\n48.1375 11.5755\n"),
        std::string(MUNICH_UTM) + " 520.2500\t48.137500000 11.575500000 520.2500\n" + MUNICH_UTM +
            "\t48.137500000 11.575500000\n");
}

TEST(Convert, PutsTheHeightIntoEarthCentredCoordinates) {
    // echo 11.5755 48.1375 520 | cs2cs -f %.4f +proj=longlat +datum=WGS84 +to +proj=geocent +datum=WGS84
    ExpectDone(Tessara(Converting({"--to", "ECEF"}), "48.1375 11.5755 520"),
               "4177951.7880 855748.7081 4727480.1959\n");
}

TEST(Convert, SkipsBlankLinesAndComments) {
    ExpectDone(Tessara(Converting({}), "# heading\n\n   \t\n48 11 # Munich\n  # end"),
               "48.000000000 11.000000000\n");
}

TEST(Convert, TakesTabsSignsExponentsAndForeignLineEnds) {
    ExpectDone(Tessara(Converting({}), "\t+48.5\t-1.15e1 \r\n-.5 +0\r\n"),
               "48.500000000 -11.500000000\n-0.500000000 0.000000000\n");
}

TEST(Convert, WritesNoNegativeZero) {
    ExpectDone(Tessara(Converting({}), "-0.0 -0.0000000001"), "0.000000000 0.000000000\n");
}

TEST(Convert, WritesNoSixtiethMinute) {
    ExpectDone(Tessara(Converting({"--to", "GEODEZMIN"}), "47.9999999999 0"),
               "47 59.9999999 N 0 0.0000000 E\n");
}

TEST(Convert, ReportsEachBadLineAndWritesAllOthers) {
    const Outcome outcome = Tessara(Converting({}),
                                    "48 11\n"
                                    "abc 11\n"
                                    "48 11x\n"
                                    "48\n"
                                    "\n"
                                    "90.000001 0\n"
                                    "-91 0\n"
                                    "0 360.5\n"
                                    "nan 0\n"
                                    "0 inf\n"
                                    "0 1e999\n"
                                    "48,5 11\n"
                                    "0 +-1\n"
                                    "90 -360\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "48.000000000 11.000000000\n90.000000000 -360.000000000\n");
    EXPECT_EQ(LinesOf(outcome.err), (std::vector<std::string>{
                                        "-:2: 'abc' is not a number",
                                        "-:3: '11x' is not a number",
                                        "-:4: expected latitude longitude [height], found 1 value",
                                        "-:6: latitude '90.000001' is outside -90..90",
                                        "-:7: latitude '-91' is outside -90..90",
                                        "-:8: longitude '360.5' is outside -360..360",
                                        "-:9: 'nan' is not a number",
                                        "-:10: 'inf' is not a number",
                                        "-:11: '1e999' is not a number",
                                        "-:12: '48,5' is not a number",
                                        "-:13: '+-1' is not a number",
                                    }));
}

TEST(Convert, NamesTheTargetsThatHaveNoSuchPosition) {
    // UTM ends at 84 degrees, UPS begins at 80.
    const Outcome outcome =
        Tessara(Converting({"--to", "UTM", "--to", "UPS", "--to", "GK@GER"}), "48 11\n85 11\n82 11\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(
        LinesOf(outcome.err),
        (std::vector<std::string>{
            "-:1: not convertible to UPS@WGS84: the latitude or northing is above the limit of the system",
            "-:2: not convertible to UTM@WGS84: the latitude or northing is above the limit of the system; "
            "to GK@GER: the latitude or northing is above the limit of the system",
            "-:3: not convertible to GK@GER: the latitude or northing is above the limit of the system"}));
}

// A GEOREF has no letters for longitude 180 and latitude 90; the count of its digits isn't the reason.
TEST(Convert, NamesTheLimitsOfGeoref) {
    for (const char* position : {"10 180\n", "90 10\n"})
        EXPECT_EQ(Tessara(Converting({"--to", "GEOREF"}), position).err,
                  "-:1: not convertible to GEOREF@WGS84: longitude 180 and latitude 90 have no GEOREF, and "
                  "minutes must have 2, 3 or 4 digits\n");
}

TEST(Convert, GivesTheReasonACodeInJson) {
    EXPECT_EQ(Tessara({"convert", "--to", "CH", "--json"}, "10 10\n").err,
              "-:1: not convertible to CH@WGS84: the northing is below -300000 [northing]\n");
}

TEST(Convert, TakesAPositionWithoutFiniteFieldsForNone) {
    const Outcome outcome = Tessara(Converting({"--to", "TM"}), "90 10\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "-:1: not convertible to TM@WGS84: the position is outside the area of the system\n");
}

TEST(Convert, ShowsNoControlCharactersAndNoEndlessWords) {
    const std::string word(10000, 'a');
    const Outcome outcome = Tessara(Converting({}), std::string("\x1b[2Jx\0y 1\n", 10) + word + " 1\n");
    EXPECT_EQ(LinesOf(outcome.err), (std::vector<std::string>{
                                        "-:1: '?[2Jx?y' is not a number",
                                        "-:2: '" + std::string(40, 'a') + "...' is not a number",
                                    }));
}

TEST(Convert, WritesOneLineForEachOfManyPositions) {
    std::string input;
    for (int i = 0; i < 5000; ++i)
        input += std::to_string(i % 80) + " " + std::to_string(i % 180) + "\n";
    const Outcome outcome = Tessara(Converting({"--to", "UTM"}), input);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(LinesOf(outcome.out).size(), 5000u);
}

// More lines than the jobs take at a time, with bad ones among them.
TEST(Convert, JobsKeepTheOrderOfTheLines) {
    std::string input;
    for (int i = 0; i < 30000; ++i) {
        input += i % 1000 == 7 ? "no position" : "48 " + std::to_string(i / 200) + " " + std::to_string(i);
        input += '\n';
    }
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--to", "UTM"}, std::vector<std::string>{"--json"}}) {
        std::vector<std::string> withJobs = arguments;
        withJobs.insert(withJobs.end(), {"--jobs", "4"});
        const Outcome one = Tessara(Converting(arguments), input);
        const Outcome four = Tessara(Converting(withJobs), input);
        EXPECT_EQ(LinesOf(one.out).size(), 30000u - 30u);
        EXPECT_EQ(LinesOf(one.err).size(), 30u);
        EXPECT_EQ(LinesOf(one.err)[1], "-:1008: 'no' is not a number");
        EXPECT_EQ(four.out, one.out);
        EXPECT_EQ(four.err, one.err);
        EXPECT_EQ(four.status, 1);
    }
}

// Nothing follows a line until its message is there.
TEST(Convert, AnswersALineBeforeTheNextIsThere) {
    const ScratchDirectory files;
    const Outcome outcome =
        RunProgram("/bin/sh", {"-c", "cd '" + files.Path("") +
                                         "' && mkfifo in err && { timeout 10 " TESSARA_PROGRAM
                                         " convert < in 2> err & } && exec 3> in 4< err && echo bad >&3 && "
                                         "read -r message <&4 && echo \"$message\""});
    EXPECT_EQ(outcome.out, "-:1: expected latitude longitude [height], found 1 value\n");
}

TEST(Convert, AnswersATypedTextBeforeTheNextIsThere) {
    const ScratchDirectory files;
    const Outcome outcome = RunProgram(
        "/bin/sh", {"-c", "cd '" + files.Path("") +
                              "' && mkfifo in out && { timeout 10 " TESSARA_PROGRAM
                              " convert --from GEODEZ --to GEODEZ < in > out & } && exec 3> in 4< out && "
                              "echo '48;11' >&3 && read -r result <&4 && echo \"$result\""});
    EXPECT_EQ(outcome.out, "48.0000000;11.0000000\n");
}

TEST(Convert, IsTheSameUnderEveryLocale) {
    for (const char* locale : {"LC_ALL=de_DE.UTF-8", "LC_ALL=tlh_QO", "LC_NUMERIC=fr_FR"}) {
        const Outcome outcome =
            RunProgram(TESSARA_PROGRAM, Converting({"--to", "UTM"}), {MUNICH, {locale}, {}});
        ExpectDone(outcome, std::string(MUNICH_UTM) + "\n");
    }
}

TEST(Convert, FailsWhenItsOutputIsLost) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM, Converting({}), {MUNICH, {}, "/dev/full"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "tessara: cannot write standard output\n");
}

// The input has no end.
TEST(Convert, StopsWhenItsOutputIsLost) {
    for (const char* arguments :
         {"convert", "convert --from GEODEZ", "convert --output csv", "convert --output geojson --jobs 2"}) {
        const Outcome outcome = RunProgram(
            "/bin/sh", {"-c", std::string("yes '48 11' | tr ' ' '\\t' | timeout 30 " TESSARA_PROGRAM " ") +
                                  arguments + " >/dev/full"});
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_EQ(outcome.err, "tessara: cannot write standard output\n") << arguments;
    }
}

TEST(Convert, EndsQuietlyWhereNobodyReadsItsOutput) {
    const Outcome outcome =
        RunProgram("/bin/sh", {"-c", "yes '48 11' | timeout 30 " TESSARA_PROGRAM " convert | head -n 1"});
    EXPECT_EQ(outcome.out, "48.000000000 11.000000000\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(Convert, TakesAByteOrderMarkForNoPartOfALine) {
    ExpectDone(Tessara(Converting({}),
                       "\xEF\xBB\xBF"
                       "48 11\n"),
               "48.000000000 11.000000000\n");
}

TEST(Convert, ReportsAStandardInputThatBreaks) {
    for (const char* arguments :
         {"convert", "convert --from UTM", "convert --from UTM --columns n,e", "convert --input csv",
          "convert --input jsonl", "convert --input geojson", "map -"}) {
        const Outcome outcome =
            RunProgram("/bin/sh", {"-c", std::string(TESSARA_PROGRAM " ") + arguments + " < /"});
        EXPECT_EQ(outcome.status, 1) << arguments;
        EXPECT_EQ(outcome.err, "-: cannot read the whole file: Is a directory\n") << arguments;
    }
}

TEST(ConvertUsage, KnowsTheNamesOfSystemsAndDatumsOnly) {
    ExpectUsageError(Tessara(Converting({"--to", "XYZ"}), MUNICH), "unknown system 'XYZ'");
    ExpectUsageError(Tessara(Converting({"--to", "UTM@XYZ"}), MUNICH), "unknown datum 'XYZ'");
    ExpectUsageError(Tessara(Converting({"--from", "XYZ"}), MUNICH), "unknown datum or system 'XYZ'");
    ExpectUsageError(Tessara(Converting({"--to", ""}), MUNICH), "unknown system ''");
    ExpectUsageError(Tessara(Converting({"--to", "@GER"}), MUNICH), "unknown system ''");
    ExpectUsageError(Tessara(Converting({"--to", "UTM@"}), MUNICH), "unknown datum ''");
    ExpectUsageError(Tessara(Converting({"--to", "LAMBERTCC"}), MUNICH), "unknown system 'LAMBERTCC'");
}

TEST(ConvertUsage, OffersNoPixels) {
    ExpectUsageError(Tessara(Converting({"--to", "LONGPIXEL"}), MUNICH),
                     "conversion to pixels requires a map");
    ExpectUsageError(Tessara(Converting({"--to", "floatpixel"}), MUNICH),
                     "conversion to pixels requires a map");
}

TEST(ConvertUsage, KnowsItsOptionsOnly) {
    ExpectUsageError(Tessara(Converting({"--frm", "GER"}), MUNICH), "--frm");
    ExpectUsageError(Tessara(Converting({"--to"}), MUNICH), "--to");
}

TEST(ConvertFiles, AreReadInTheirOrderAndStandardInputAmongThem) {
    const ScratchDirectory files;
    const std::string first = files.File("first", "1 1");
    const std::string last = files.File("last", "3 3\n");
    ExpectDone(Tessara(Converting({first, "-", last}), "2 2\n"),
               "1.000000000 1.000000000\n2.000000000 2.000000000\n3.000000000 3.000000000\n");
}

TEST(ConvertFiles, MayStandOnEitherSideOfTheTargets) {
    const ScratchDirectory files;
    const std::string file = files.File("positions", MUNICH);
    ExpectDone(Tessara(Converting({file, "--to", "UTM"})), std::string(MUNICH_UTM) + "\n");
    ExpectDone(Tessara(Converting({"--to", "UTM", file})), std::string(MUNICH_UTM) + "\n");
}

TEST(ConvertFiles, AreNamedInMessages) {
    const ScratchDirectory files;
    const std::string file = files.File("positions", "1 1\nx y\n");
    const Outcome outcome = Tessara(Converting({file}));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, file + ":2: 'x' is not a number\n");
}

TEST(ConvertFiles, ThatCantBeReadAreReportedAndTheOthersConverted) {
    const ScratchDirectory files;
    const std::string missing = files.Path("missing");
    const std::string directory = files.Path("");
    const std::string file = files.File("positions", "1 1");
    const Outcome outcome = Tessara(Converting({missing, directory, file}));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "1.000000000 1.000000000\n");
    EXPECT_EQ(outcome.err, missing + ": cannot read the file: No such file or directory\n" + directory +
                               ": cannot read the file: Is a directory\n");
}

TEST(ConvertFiles, MayBeEmpty) {
    const ScratchDirectory files;
    ExpectDone(Tessara(Converting({files.File("empty", "")})), "");
}

TEST(ConvertFiles, AreNamedInJsonWhateverTheirBytes) {
    const ScratchDirectory files;
    const Outcome outcome = Tessara(Converting({"--json", files.File("k\xf6ln", "1 1")}));
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Json::parse(outcome.out)["file"].get<std::string>().ends_with("k\xef\xbf\xbdln"));
}

TEST(ConvertJson, IsOneObjectForAPosition) {
    const Outcome outcome =
        Tessara(Converting({"--json", "--from", "GER", "--to", "GK", "--to", "UTMREF@WGS84"}),
                "# comment\n48.1375 11.5755 520.5\n48.1375 11.5755\n");
    ASSERT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 2u);

    const Json first = Json::parse(lines[0]);
    EXPECT_EQ(first["file"], "-");
    EXPECT_EQ(first["line"], 2);
    EXPECT_EQ(first["datum"], "GER");
    EXPECT_EQ(first["latitude"], 48.1375);
    EXPECT_EQ(first["longitude"], 11.5755);
    EXPECT_EQ(first["height"], 520.5);
    ASSERT_EQ(first["results"].size(), 2u);

    const Json& gk = first["results"][0];
    EXPECT_EQ(gk["system"], "GK");
    EXPECT_EQ(gk["datum"], "GER");
    EXPECT_NEAR(gk["easting"].get<double>(), 4468409.6792, 0.00006);  // cs2cs wrote 4 decimals
    EXPECT_NEAR(gk["northing"].get<double>(), 5333259.5202, 0.00006);
    EXPECT_EQ(gk["height"], 520.5);

    const Json& utmref = first["results"][1];
    EXPECT_EQ(utmref["system"], "UTMREF");
    EXPECT_EQ(utmref["datum"], "WGS84");
    EXPECT_EQ(utmref["zone"], 32);
    EXPECT_EQ(utmref["band"], "U");
    EXPECT_EQ(utmref["square"], "PU");
    EXPECT_TRUE(utmref["easting"].is_number_integer());

    const Json second = Json::parse(lines[1]);
    EXPECT_EQ(second["line"], 3);
    EXPECT_FALSE(second.contains("height"));
    EXPECT_FALSE(second["results"][0].contains("height"));
}

TEST(ConvertJson, KeepsAllDigits) {
    const Outcome outcome = Tessara(Converting({"--json"}), "48.12345678901234 11.98765432109876");
    const Json result = Json::parse(outcome.out)["results"][0];
    EXPECT_EQ(result["latitude"].get<double>(), 48.12345678901234);
    EXPECT_EQ(result["longitude"].get<double>(), 11.98765432109876);
}

TEST(ConvertJson, LeavesOutBadLines) {
    const Outcome outcome = Tessara(Converting({"--json"}), "x\n1 2\n");
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(LinesOf(outcome.out).size(), 1u);
    EXPECT_EQ(Json::parse(outcome.out)["line"], 2);
}
