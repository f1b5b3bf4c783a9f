// What becomes of input that can't be used, and how the program says so.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "program/files.h"
#include "program/run_program.h"
#include "support/sanitized.h"

using tessara::testing::Convert;
using tessara::testing::ExpectDone;
using tessara::testing::ExpectUsageError;
using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::ScratchDirectory;
using tessara::testing::Tessara;
using OrderedJson = nlohmann::ordered_json;

TEST(OnError, KeepsAsManyLinesAsThereWere) {
    const Outcome outcome = Convert({"--on-error", "keep", "--to", "GEODEZ", "--to", "UTM"},
                                    "# heading\n48 11 hall\n\n91 11 x\nabc\n");
    EXPECT_EQ(outcome.status, 1);
    // echo 48 11 | GeoConvert -u -p 4
    EXPECT_EQ(outcome.out,
              "# heading\n48.000000000 11.000000000\t32 N 649187.8750 5318235.6139\thall\n\n*\t*\tx\n*\t*\n");
    EXPECT_EQ(LinesOf(outcome.err).size(), 2u);
}

TEST(OnError, KeepsTheOtherColumnsOfALineOfTexts) {
    const Outcome outcome = Convert({"--on-error", "keep", "--from", "UTM", "--to", "UTMREF"},
                                    "N 5334791;32 691602;hall\nN 1;99 1;x\nalone\n");
    EXPECT_EQ(outcome.out, "U U 34791.000;32 P 91602.000;hall\n*;*;x\n*;*\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(OnError, KeepsRowsWithEmptyResults) {
    const Outcome outcome =
        Convert({"--on-error", "keep", "--input", "csv"}, "id,lat,lon,n\n1,48,11,a\n2,91,11,b\n3\n");
    EXPECT_EQ(outcome.out, "id,latitude,longitude,n\n1,48.000000000,11.000000000,a\n2,,,b\n3,,,\n");
    EXPECT_EQ(LinesOf(outcome.err).size(), 2u);
}

TEST(OnError, KeepsObjectsAndFeaturesWithNulls) {
    const Outcome lines = Convert({"--on-error", "keep", "--input", "jsonl"},
                                  "{\"lat\":91,\"lon\":2,\"a\":1}\nx\n{\"lat\":1,\"lon\":2}\n");
    EXPECT_EQ(lines.out,
              "{\"latitude\":null,\"longitude\":null,\"a\":1}\n{\"latitude\":null,\"longitude\":null}\n"
              "{\"latitude\":1.0,\"longitude\":2.0}\n");
    const Outcome features = Convert(
        {"--on-error", "keep", "--input", "geojson", "--to", "GEODEZ"},
        R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":null,"properties":{"a":1}}]})");
    const OrderedJson feature = OrderedJson::parse(features.out)["features"][0];
    EXPECT_TRUE(feature["geometry"].is_null());
    EXPECT_EQ(feature["properties"], OrderedJson::parse(R"({"latitude":null,"longitude":null,"a":1})"));
    EXPECT_EQ(OrderedJson::parse(Convert({"--on-error", "keep", "--json"}, "91 1\n").out)["results"],
              nullptr);
}

TEST(OnError, StopsAtTheFirst) {
    for (const char* jobs : {"1", "4"}) {
        std::string input = "48 11\n91 11\n";
        for (int i = 0; i < 50000; ++i)
            input += "x\n";
        const Outcome outcome = Convert({"--on-error", "stop", "--jobs", jobs}, input);
        EXPECT_EQ(outcome.out, "48.000000000 11.000000000\n");
        EXPECT_EQ(outcome.err, "-:2: latitude '91' is outside -90..90\n");
        EXPECT_EQ(outcome.status, 1);
    }
    const Outcome geojson = Convert({"--on-error", "stop", "--output", "geojson"}, "48 11\nx 1\n49 12\n");
    EXPECT_EQ(OrderedJson::parse(geojson.out)["features"].size(), 1u);
}

TEST(OnError, SkipsUnlessItIsNamed) {
    EXPECT_EQ(Convert({"--on-error", "skip"}, "x\n48 11\n").out, Convert({}, "x\n48 11\n").out);
    ExpectUsageError(Convert({"--on-error", "ignore"}, ""), "--on-error");
}

// The limit of 16 MiB holds a line, a record and a feature; in 200 MB of addresses a program fits with two of
// them.
TEST(LongLines, AreRefusedAndNotHeld) {
    const std::string long_line = "head -c 100000000 /dev/zero | tr '\\0' ' '; ";
    const std::string limit = tessara::testing::IS_SANITIZED ? "" : "ulimit -v 200000; ";
    const auto convert = [&](const std::string& input, const std::string& arguments) {
        return RunProgram("/bin/sh",
                          {"-c", limit + "{ " + input + "} | " TESSARA_PROGRAM " convert " + arguments});
    };
    const Outcome lines = convert("echo 48 11; " + long_line + "echo; echo 49 12; ", "");
    EXPECT_EQ(lines.out, "48.000000000 11.000000000\n49.000000000 12.000000000\n");
    EXPECT_EQ(lines.err, "-:2: record longer than 16 MiB\n");
    EXPECT_EQ(lines.status, 1);
    EXPECT_EQ(convert("echo lat,lon; " + long_line, "--input csv").err, "-:2: record longer than 16 MiB\n");
    EXPECT_EQ(convert("echo '{'; " + long_line, "--input jsonl").err,
              "-:1: invalid JSON at byte 2\n-:2: record longer than 16 MiB\n");
    EXPECT_EQ(convert("printf '{\"features\":['; printf '{\"a\":\"'; " + long_line, "--input geojson").err,
              "-: more than 16 MiB in one feature, from byte 14\n");
}

TEST(Suggestions, NameWhatIsLikeAMistypedCommand) {
    const auto last = [](const std::vector<std::string>& arguments) {
        const Outcome outcome = Tessara(arguments);
        EXPECT_EQ(outcome.status, 2);
        return LinesOf(outcome.err).back();
    };
    EXPECT_EQ(last({"convrt"}), "tessara: unknown command 'convrt'; did you mean 'convert'?");
    EXPECT_EQ(last({"Distnace", "1", "2"}), "tessara: unknown command 'Distnace'; did you mean 'distance'?");
    EXPECT_EQ(last({"convert", "--frm", "GER"}), "tessara: unknown option '--frm'; did you mean '--from'?");
    EXPECT_EQ(last({"convert", "--ouptut=csv"}),
              "tessara: unknown option '--ouptut'; did you mean '--output'?");
    EXPECT_EQ(last({"transform"}).find("did you mean"), std::string::npos);
}

TEST(Suggestions, NameWhatIsLikeAMistypedSystemOrDatum) {
    ExpectUsageError(Convert({"--to", "UTN"}, ""), "unknown system 'UTN'; did you mean 'UTM'?");
    ExpectUsageError(Convert({"--to", "UTM@WGS48"}, ""), "unknown datum 'WGS48'; did you mean 'WGS84'?");
    ExpectUsageError(Convert({"--to", "XYZ"}, ""), "unknown system 'XYZ'; `tessara systems` lists all names");
}

TEST(Files, ThatCantBeWrittenAreReportedWithTheReason) {
    const Outcome rejects = Convert({"--rejects", "/no/such/directory/rejects"}, "48 11\n");
    EXPECT_EQ(rejects.err, "/no/such/directory/rejects: cannot write the file: No such file or directory\n");
}

TEST(Ranges, AreSaidInWords) {
    const std::string help = Tessara({"convert", "--help"}).out;
    EXPECT_NE(help.find("1 to 256"), std::string::npos);
    for (const char* command : {"convert", "map", "distance"}) {
        const std::string text = Tessara({command, "--help"}).out;
        for (const char* machine : {" in [", "UINT", "FLOAT", "POSITIVE", "INT:"})
            EXPECT_EQ(text.find(machine), std::string::npos) << command << ' ' << machine;
    }
    ExpectUsageError(Convert({"--jobs", "257"}, ""), "--jobs");
}

namespace {

constexpr const char* SMALL_MAP =
    R"({"projection":{"type":"UTM","zone":32,"hemisphere":"N","originEasting":660000,"originNorthing":5340000},)"
    R"("scale":500000,"resolution":10,"datum":"WGS84","window":{"left":0,"top":0,"right":100,"bottom":80},)"
    R"("layers":[]})";

}  // namespace

TEST(Pictures, HaveTheKindOfTheirNames) {
    const ScratchDirectory files;
    for (const char* name : {"x.jpg", "x.JPEG", "x.gif", "x.pdf"}) {
        const Outcome outcome = Tessara({"map", "-", "-o", files.Path(name)}, SMALL_MAP);
        ExpectUsageError(outcome, "unsupported output format");
        EXPECT_FALSE(std::filesystem::exists(files.Path(name)));
    }
    if (RunProgram("/bin/sh", {"-c", "command -v rsvg-convert"}).status != 0)
        GTEST_SKIP() << "rsvg-convert isn't installed";
    EXPECT_EQ(Tessara({"map", "-", "-o", files.Path("x.PNG")}, SMALL_MAP).status, 0);
    EXPECT_TRUE(files.Contents("x.PNG").starts_with("\x89PNG\r\n"));
}
