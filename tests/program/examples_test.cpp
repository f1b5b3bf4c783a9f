// The examples, built and run, and the pages that show them and the commands of the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <sstream>

#include "program/files.h"
#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::ReadFile;
using tessara::testing::RunProgram;

namespace {

namespace fs = std::filesystem;

const fs::path ROOT = TESSARA_SOURCE_DIR;

// The numbers among the words of a line.
std::vector<double> NumbersOf(const std::string& line) {
    std::vector<double> numbers;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        double number = 0.0;
        if (std::from_chars(word.data(), word.data() + word.size(), number).ec == std::errc())
            numbers.push_back(number);
    }
    return numbers;
}

// The contents of a page's code blocks of one language.
std::vector<std::string> BlocksOf(const fs::path& page, const std::string& language) {
    std::vector<std::string> blocks;
    bool inside = false;
    for (const std::string& line : LinesOf(ReadFile(page))) {
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

// A console block shows each command after "$ ", with its output below.
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

// Runs the commands that a page shows and compares their outputs. Returns how many there are.
std::size_t CheckCommandsOf(const fs::path& page) {
    std::size_t count = 0;
    for (const std::string& block : BlocksOf(page, "console")) {
        for (const Command& command : CommandsOf(block)) {
            SCOPED_TRACE(command.line);
            const std::string line =
                "cd '" TESSARA_SOURCE_DIR "' && PATH='" TESSARA_PROGRAM_DIR "':$PATH && " + command.line;
            const Outcome outcome = RunProgram("/bin/sh", {"-c", line});
            EXPECT_EQ(outcome.out + outcome.err, command.output);
            ++count;
        }
    }
    return count;
}

}  // namespace

TEST(Examples, FirstHostFindsMunichInUtm) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/first_host", {});
    EXPECT_EQ(outcome.status, 0);
    // echo 48.1375 11.5755 | GeoConvert -u -p 3
    EXPECT_EQ(outcome.out, "32N 691602.660 5334791.145 height 520.000\n");
}

TEST(Examples, KernelLoopConvertsAndMeasures) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/kernel_loop", {});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 4u);
    // echo 11.5755 48.1375 | cs2cs -f %.3f +proj=longlat +datum=WGS84 +to
    //     +proj=tmerc +lon_0=12 +x_0=4500000 +ellps=bessel +towgs84=604,21,415
    // and the same with 13.3777 52.5163. The shift leaves the height out of account: 5 cm.
    const std::vector<double> munich = NumbersOf(lines[0]), berlin = NumbersOf(lines[2]);
    ASSERT_EQ(munich.size(), 2u);
    ASSERT_EQ(berlin.size(), 2u);
    EXPECT_NEAR(munich[0], 4468510.860, 0.05);
    EXPECT_NEAR(munich[1], 5333359.715, 0.05);
    EXPECT_NEAR(berlin[0], 4593627.935, 0.05);
    EXPECT_NEAR(berlin[1], 5821241.745, 0.05);
    // The pole lies beyond 80 degrees, where the system ends: KOORD_ERR_NORTH_HIGH.
    EXPECT_EQ(lines[1], "Nordpol: no position of the grid, status -3762");
    // echo 48.1375 11.5755 52.5163 13.3777 | GeodSolve -i
    EXPECT_EQ(lines[3], "503655.80 m");
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

TEST(Examples, TypedPositionTellsWhyATextIsRefused) {
    // echo 32n 691602 5334791 | GeoConvert -g -p 1: 48.137499 11.575491
    // echo 32n 500000 9500000 | GeoConvert -g: 85.5 degrees. 32 1100000 is 600 km beside the meridian, where
    // a zone reaches 3 degrees at most, 334 km on the equator.
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/typed_position", {},
                                       {.input = "N 5334791; 32 691602\n"
                                                 "N; 32 691602\n"
                                                 "N 5334791; Q\n"
                                                 "N 5334791; 62 691602\n"
                                                 "N 9500000; 32 500000\n"
                                                 "S 500000; 32 500000\n"
                                                 "N 5334791; 32 1100000\n",
                                        .environment = {},
                                        .outFile = {}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "48.137499 11.575491\n"
              "north is a letter N or S and metres, as N 5334791\n"
              "east is a zone and metres, as 32 691602\n"
              "the zone is outside 1..60\n"
              "the place lies north of 84 degrees, where UTM ends\n"
              "the place lies south of 80 degrees, where UTM ends\n"
              "the place lies outside the zone\n");
}

TEST(Examples, UtmrefPiecesOffersWhatCanFollow) {
    const Outcome outcome =
        RunProgram(TESSARA_PROGRAM_DIR "/utmref_pieces", {"32", "U", "P", "U", "91603", "34791"});
    EXPECT_EQ(outcome.status, 0);
    // Zone 32 has the columns J to R. In band U it is widest at 48 degrees, 3 degrees to each side of easting
    // 500000, which is 500 km and 111.5 km * cos 48 * 3 = 224 km: K (200 to 300 km) to Q (700 to 800 km).
    // Its rows begin with F at the equator and count 20 letters: of northings 5316 km (48 degrees) to
    // 6207 km (56 degrees) these are number 53, which is F + 53 - 2 * 20 = U, to number 62, which is H.
    // echo 32UPU9160334791 | GeoConvert -n -g: 48.13750 11.57550
    EXPECT_EQ(outcome.out,
              "bands: C D E F G H J K L M N P Q R S T U V W X\n"
              "columns: K L M N P Q\n"
              "rows: U V A B C D E F G H\n"
              "48.13750 11.57550\n");
}

TEST(Examples, UtmrefPiecesRefusesASquareThatTheBandLacks) {
    const Outcome outcome =
        RunProgram(TESSARA_PROGRAM_DIR "/utmref_pieces", {"32", "U", "P", "T", "91603", "34791"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(LinesOf(outcome.out).back(), "not complete, or no such reference");
    EXPECT_EQ(RunProgram(TESSARA_PROGRAM_DIR "/utmref_pieces", {"61", "U"}).status, 1);
}

TEST(Examples, GridOnMapDrawsMeridiansAndParallels) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/grid_on_map", {});
    EXPECT_EQ(outcome.status, 0);
    // The sheet's corners: echo 32n 675000 5345000 | GeoConvert -g -p 4, and so on, give the northernmost
    // latitude 48.234053172 (upper left) and the southernmost 48.094167207 (lower right), the westernmost
    // longitude 11.350566668 (lower left) and the easternmost 11.592174429 (upper right). So the lines
    // are 11.4 and 11.5 east, 48.1 and 48.2 north; their ends, as
    //     echo 11.4 48.234053172 | cs2cs -f %.3f +proj=longlat +datum=WGS84 +to +proj=utm +zone=32
    // are these in pixels of 2.5 m from 675000 5345000.
    const double expected[4][4] = {{1284.84, -39.80, 1479.03, 6178.88},
                                   {4254.84, -134.59, 4457.13, 6084.04},
                                   {-1.07, 5965.03, 7193.41, 5733.91},
                                   {-137.00, 1519.48, 7043.49, 1288.45}};
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(lines[i]);
        EXPECT_TRUE(lines[i].starts_with(i < 2 ? "meridian from " : "parallel from "));
        const std::vector<double> numbers = NumbersOf(lines[i]);
        ASSERT_EQ(numbers.size(), 4u);
        // Written to a tenth; the extent of the window is found to a quarter of a pixel.
        for (std::size_t k = 0; k < 4; ++k)
            EXPECT_NEAR(numbers[k], expected[i][k], 0.3);
    }
}

TEST(Examples, PolygonOverlayCutsABayAndABar) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/polygon_overlay", {});
    EXPECT_EQ(outcome.status, 0);
    // The bay is 400 * 400 less 200 * 300 of water: 100000. The bar is 300 * 50: 15000. They share 50 * 50 on
    // each shore; between the bar's lower side, 150, and the bay's ground, 300, they enclose 200 * 150.
    EXPECT_EQ(outcome.out,
              "enclosed by the two: 1, 30000 pixels\n"
              "only bar: 1, 10000 pixels\n"
              "only bay: 1, 95000 pixels\n"
              "both: 2, 5000 pixels\n");
}

TEST(Examples, RangeRingLiesTenKilometresAround) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/range_ring", {});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 9u);
    // GeodSolve --input-string "48.1375 11.5755 0 10000" -p 4, and so on clockwise. The ring lies in the
    // tangent plane, whose 10 km are 10 km less 8 mm on the ground: a millionth of a degree is 0.1 m.
    const double ring[8][2] = {{48.227433015, 11.575500000}, {48.201053063, 11.670624425},
                               {48.137421467, 11.709859998}, {48.073867697, 11.670389771},
                               {48.047565571, 11.575500000}, {48.073867697, 11.480610229},
                               {48.137421467, 11.441140002}, {48.201053063, 11.480375575}};
    for (std::size_t i = 0; i < 8; ++i) {
        SCOPED_TRACE(lines[i]);
        const std::vector<double> place = NumbersOf(lines[i]);
        ASSERT_EQ(place.size(), 2u);
        EXPECT_NEAR(place[0], ring[i][0], 1e-6);
        EXPECT_NEAR(place[1], ring[i][1], 1e-6);
    }
    // GeodSolve -i --input-string "48.1375 11.5755 35.6895 139.6917": azimuth 39.915136654. By Clairaut, with
    // tan b1 = (1 - f) tan 48.1375, the geodesic's largest reduced latitude has the cosine
    // sin 39.915136654 * cos b1 = 0.429001, which is the latitude 64.6703. The chain lies within a quarter of
    // a pixel of it, 10 km on this map and 0.09 degrees; the projection stretches by less than 1.6.
    EXPECT_TRUE(lines[8].starts_with("to Tokyo by "));
    const std::vector<double> north = NumbersOf(lines[8]);
    ASSERT_EQ(north.size(), 2u);
    EXPECT_LE(north[0], 64.6704);
    EXPECT_GE(north[0], 64.6703 - 0.15);
}

TEST(Examples, MidpointAcrossZonesIsLaidOutFromTheBorder) {
    const Outcome outcome = RunProgram(TESSARA_PROGRAM_DIR "/midpoint_across_zones", {});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 2u);
    // echo 12 47.8141273243255 | cs2cs -f %.4f +proj=longlat +datum=WGS84 +to +proj=utm +zone=32:
    // 724579.2142 5300000.0000. One position is 200 km east of its central meridian, the other 210 km west:
    // on average 5 km to the west of the border. The border is drawn 1e-9 degrees outside: 0.1 mm; the
    // average finds it to 1 mm.
    std::string word, zone;
    double easting = 0.0, northing = 0.0;
    std::istringstream(lines[0]) >> word >> zone >> easting >> northing;
    EXPECT_EQ(zone, "32N");
    EXPECT_NEAR(easting, 724579.2142, 0.001);
    EXPECT_EQ(northing, 5300000.0);
    std::istringstream(lines[1]) >> word >> zone >> easting >> northing;
    EXPECT_EQ(zone, "32N");
    EXPECT_NEAR(easting, 719579.2142, 0.002);
    EXPECT_EQ(northing, 5300000.0);
}

TEST(Readme, ShowsTheFirstHostAsItIs) {
    const std::vector<std::string> blocks = BlocksOf(ROOT / "README.md", "cpp");
    EXPECT_EQ(std::count(blocks.begin(), blocks.end(), ReadFile(ROOT / "examples" / "first_host.cpp")), 1);
}

TEST(Readme, ShowsWhatItsCommandsWrite) {
    EXPECT_GT(CheckCommandsOf(ROOT / "README.md"), 0u);
}

TEST(Manual, ShowsWhatItsCommandsWrite) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(ROOT / "docs")) {
        if (entry.path().extension() != ".md") continue;
        SCOPED_TRACE(entry.path());
        count += CheckCommandsOf(entry.path());
    }
    EXPECT_GT(count, 5u);
}
