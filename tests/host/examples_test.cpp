// The examples, built and run, and the README that shows them.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "host/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;

namespace {

std::string ReadFile(const std::string& name) {
    std::ifstream file(TESSARA_SOURCE_DIR "/" + name);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty()) << name;
    return text.str();
}

// The contents of the README's code blocks of one language.
std::vector<std::string> ReadmeBlocks(const std::string& language) {
    std::vector<std::string> blocks;
    bool inside = false;
    for (const std::string& line : LinesOf(ReadFile("README.md"))) {
        if (inside && line == "```") {
            inside = false;
        } else if (inside) {
            blocks.back() += line + "\n";
        } else if (line == "```" + language) {
            inside = true;
            blocks.emplace_back();
        }
    }
    return blocks;
}

struct Command {
    std::string line;
    std::string output;
};

// A console block shows commands after "$ ", and below each what it writes.
std::vector<Command> CommandsOf(const std::string& block) {
    std::vector<Command> commands;
    for (const std::string& line : LinesOf(block)) {
        if (line.starts_with("$ ")) {
            commands.push_back({line.substr(2), ""});
        } else if (!commands.empty()) {
            commands.back().output += line + "\n";
        }
    }
    return commands;
}

}  // namespace

TEST(Examples, FirstHostFindsMunichInUtm) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/first_host", {});
    EXPECT_EQ(outcome.status, 0);
    // echo 48.1375 11.5755 | GeoConvert -u -p 3
    EXPECT_EQ(outcome.out, "32N 691602.660 5334791.145 height 520.000\n");
}

TEST(Examples, KernelOnlyConvertsAndMeasures) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/kernel_only", {});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 2u);
    double easting = 0.0, northing = 0.0;
    std::istringstream(lines[0]) >> easting >> northing;
    // echo 11.5755 48.1375 | cs2cs -f %.3f +proj=longlat +datum=WGS84 +to
    //     +proj=tmerc +lon_0=12 +x_0=4500000 +ellps=bessel +towgs84=604,21,415
    // The shift leaves the height out of account: 5 cm.
    EXPECT_NEAR(easting, 4468510.860, 0.05);
    EXPECT_NEAR(northing, 5333359.715, 0.05);
    // echo 48.1375 11.5755 52.5163 13.3777 | GeodSolve -i
    EXPECT_EQ(lines[1], "503655.80 m");
}

TEST(Examples, MapSheetPutsPositionsOnPixelsAndBack) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/map_sheet", {});
    EXPECT_EQ(outcome.status, 0);
    // echo 48.1375 11.5755 | GeoConvert -u -p 3: 32n 691602.660 5334791.145, 2.5 metres a pixel from 675000
    // 5345000: 6641.06 4083.54. echo 48.1735 11.5466: 32n 689320.256 5338720.458, 5728.10 2511.82.
    // echo 32n 685000 5340000 | GeoConvert -g -p 1: 48.186273 11.489102
    EXPECT_EQ(outcome.out,
              "Marienplatz: column 6641, row 4084\n"
              "Olympiapark: column 5728, row 2512\n"
              "pixel 4000 2000: 48.186273 11.489102\n");
}

TEST(Examples, ManagedHostReadsUtmAndWritesSwissCoordinates) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/managed_host", {TESSARA_LIBRARY});
    EXPECT_EQ(outcome.status, 0);
    // echo 381188 5200911 | cs2cs -f %.3f +proj=utm +zone=32 +datum=WGS84 +to +proj=somerc
    //     +lat_0=46.95240555555556 +lon_0=7.439583333333333 +x_0=600000 +y_0=200000 +ellps=bessel
    //     +towgs84=674,14,405
    // 600000.190 199999.551
    EXPECT_EQ(outcome.out, "600000 200000\n");
}

TEST(Examples, ManagedHostFailsWithoutALibrary) {
    EXPECT_EQ(RunProgram(TESSARA_PROGRAM_DIR "/managed_host", {"/nowhere/libtessara.so"}).status, 1);
}

TEST(Readme, ShowsTheFirstHostAsItIs) {
    const std::vector<std::string> blocks = ReadmeBlocks("cpp");
    EXPECT_EQ(std::count(blocks.begin(), blocks.end(), ReadFile("examples/first_host.cpp")), 1);
}

TEST(Readme, ShowsWhatItsCommandsWrite) {
    std::size_t count = 0;
    for (const std::string& block : ReadmeBlocks("console")) {
        for (const Command& command : CommandsOf(block)) {
            SCOPED_TRACE(command.line);
            const std::string line =
                "cd '" TESSARA_SOURCE_DIR "' && PATH='" TESSARA_PROGRAM_DIR "':$PATH && " + command.line;
            const Outcome outcome = RunProgram("/bin/sh", {"-c", line});
            EXPECT_EQ(outcome.out + outcome.err, command.output);
            ++count;
        }
    }
    EXPECT_GT(count, 0u);
}
