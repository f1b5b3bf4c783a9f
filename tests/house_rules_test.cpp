// Rules that no compiler checks: which files include which, and how doubles are rounded.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/paths.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

const fs::path ROOT = testing::SourceDir();

struct Include {
    std::string name;
    bool isQuoted;
};

struct SourceFile {
    std::string path;  // from the root, e.g. src/objects/coord.cpp
    std::string text;

    [[nodiscard]] std::vector<Include> Includes() const {
        std::vector<Include> includes;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            char hash = 0;
            std::string directive;
            char open = 0;
            if (!(words >> hash >> directive >> open) || hash != '#' || directive != "include") continue;
            std::string name;
            std::getline(words, name, open == '"' ? '"' : '>');
            includes.push_back({name, open == '"'});
        }
        return includes;
    }

    [[nodiscard]] bool IsBelow(const std::string& directory) const { return path.rfind(directory, 0) == 0; }
};

// All headers and sources below some directories of the root.
std::vector<SourceFile> FilesBelow(std::initializer_list<const char*> directories) {
    std::vector<SourceFile> files;
    for (const char* directory : directories) {
        for (const auto& entry : fs::recursive_directory_iterator(ROOT / directory)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp") continue;
            std::ifstream file(entry.path());
            files.push_back({fs::relative(entry.path(), ROOT).generic_string(),
                             {std::istreambuf_iterator<char>(file), {}}});
        }
    }
    EXPECT_FALSE(files.empty());
    return files;
}

// "objects/coord" of src/objects/coord.h and of src/objects/coord.cpp.
std::string NameOf(const SourceFile& file) {
    const fs::path path = fs::path(file.path).lexically_relative("src");
    return (path.parent_path() / path.stem()).generic_string();
}

TEST(HouseRules, IncludesAreReadFromTheLines) {
    const SourceFile file{
        "a.cpp", "#include <map>\n  #  include  \"b/c.h\"\n// #include \"no.h\"\n#include \"d.h\" // x\n"};
    const auto includes = file.Includes();
    ASSERT_EQ(includes.size(), 3u);
    EXPECT_EQ(includes[0].name, "map");
    EXPECT_FALSE(includes[0].isQuoted);
    EXPECT_EQ(includes[1].name, "b/c.h");
    EXPECT_TRUE(includes[1].isQuoted);
    EXPECT_EQ(includes[2].name, "d.h");
}

TEST(HouseRules, AngleBracketsAreForTheStandardLibrary) {
    for (const SourceFile& file : FilesBelow({"src", "include"})) {
        for (const Include& include : file.Includes()) {
            if (include.isQuoted) continue;
            // Its headers have neither a directory nor an extension.
            EXPECT_EQ(include.name.find_first_of("./"), std::string::npos)
                << file.path << ": " << include.name;
        }
    }
}

TEST(HouseRules, QuotedIncludesStartAtTheRootOfTheirTree) {
    for (const SourceFile& file : FilesBelow({"src", "include"})) {
        for (const Include& include : file.Includes()) {
            if (!include.isQuoted) continue;
            const bool isThere =
                fs::exists(ROOT / "include" / include.name) || fs::exists(ROOT / "src" / include.name);
            EXPECT_TRUE(isThere && !include.name.starts_with(".")) << file.path << ": " << include.name;
        }
    }
}

TEST(HouseRules, PublicHeadersIncludePublicHeadersOnly) {
    for (const SourceFile& file : FilesBelow({"include"})) {
        for (const Include& include : file.Includes()) {
            if (!include.isQuoted) continue;
            EXPECT_TRUE(include.name.starts_with("tessara/")) << file.path << ": " << include.name;
            EXPECT_TRUE(fs::exists(ROOT / "include" / include.name)) << file.path << ": " << include.name;
        }
    }
}

// That host declares the contract a second time. Its declarations are only an independent check if they
// don't include the library's.
TEST(HouseRules, TheContractsOtherHostIncludesNothingOfTheLibrary) {
    int contractFiles = 0;
    for (const SourceFile& file : FilesBelow({"tests/abi"})) {
        if (!file.path.starts_with("tests/abi/contract")) continue;
        ++contractFiles;
        for (const Include& include : file.Includes()) {
            if (!include.isQuoted) continue;
            const bool isItsOwn = include.name.starts_with("abi/contract/");
            const bool knowsNothing =
                include.name == "support/live_objects.h" || include.name == "support/shared_library.h";
            EXPECT_TRUE(isItsOwn || knowsNothing) << file.path << ": " << include.name;
        }
    }
    EXPECT_GT(contractFiles, 10);
}

// The rooms of a tree from the lowest floor up. A file may include rooms on lower floors, and files of its
// own room.
using Floors = std::vector<std::string>;

const Floors LIBRARY{"numerics", "kernel",   "columns", "systems", "maps/kernel",
                     "frame",    "records",  "objects", "text",    "maps",
                     "geometry", "polygons", "areas",   "grids",   "component"};
const Floors TOOLKIT{"conversion", "lines", "typed", "map", "drawing"};
const Floors PROGRAM{"run", "files", "commands", ""};

constexpr int NO_FLOOR = -1;

// The floor of a path below a tree: that of the longest room that it begins with.
int FloorOf(const Floors& floors, const std::string& path) {
    const std::string room = fs::path(path).parent_path().generic_string();
    const auto found = std::find(floors.begin(), floors.end(), room);
    return found == floors.end() ? NO_FLOOR : static_cast<int>(found - floors.begin());
}

void ExpectNoIncludeGoesUp(const char* tree, const Floors& floors) {
    int files = 0;
    for (const SourceFile& file : FilesBelow({tree})) {
        const int floor = FloorOf(floors, fs::path(file.path).lexically_relative(tree).generic_string());
        EXPECT_NE(floor, NO_FLOOR) << file.path << " stands in no room";
        ++files;
        for (const Include& include : file.Includes()) {
            if (!include.isQuoted || !fs::exists(ROOT / tree / include.name)) continue;
            EXPECT_LE(FloorOf(floors, include.name), floor) << file.path << ": " << include.name;
        }
    }
    EXPECT_GT(files, 40);
}

TEST(HouseRules, NoIncludeOfTheLibraryGoesUpAFloor) {
    ExpectNoIncludeGoesUp("src", LIBRARY);
}

TEST(HouseRules, NoIncludeOfTheToolkitGoesUpAFloor) {
    ExpectNoIncludeGoesUp("toolkit", TOOLKIT);
}

// The toolkit includes nothing that reads a command line or writes to a terminal.
TEST(HouseRules, TheToolkitKnowsNothingOfTheProgram) {
    for (const SourceFile& file : FilesBelow({"toolkit"})) {
        for (const Include& include : file.Includes())
            EXPECT_FALSE(fs::exists(ROOT / "program" / include.name)) << file.path << ": " << include.name;
    }
}

TEST(HouseRules, NoIncludeOfTheProgramGoesUpAFloor) {
    ExpectNoIncludeGoesUp("program", PROGRAM);
}

// Tests that aren't named after a source or header, each with its subject.
const std::map<std::string, const char*> TESTS_OF_MORE_THAN_A_SOURCE{
    {"tests/areas/operation_order", "the places of a room's operations, which hosts call by number"},
    {"tests/areas/window_sweep", "windows, extents and grids of all types of maps"},
    {"tests/kernel/reference_forms", "every projection in long double"},
    {"tests/maps/operation_order", "the places of a room's operations, which hosts call by number"},
    {"tests/objects/common_operations", "what operations of several classes allocate"},
    {"tests/text/hostile_texts", "any bytes at all readers"},
    {"tests/text/text_locale", "all readers and writers under a decimal comma"},
    {"tests/text/text_round_trip", "all writers and readers"},
};

// Sources without a test by their name, each with the test that sees all of it.
const std::map<std::string, const char*> SOURCES_TESTED_ELSEWHERE{
    {"src/areas/extremes", "tests/areas/line_extents_test.cpp"},
    {"src/geometry/circle_on_tangent_plane", "tests/geometry/plane_arc_test.cpp"},
    {"src/geometry/coord_reading", "tests/geometry/tangent_plane_test.cpp"},
    {"src/geometry/ellipse_on_tangent_plane", "tests/geometry/plane_arc_test.cpp"},
    {"src/geometry/line_reading", "tests/geometry/line_intersections_test.cpp"},
    {"src/columns/datum_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/ecef_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/origin_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/range_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/sphere_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/ups_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/world_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/columns/zone_loops", "tests/systems/convert_many_equality_test.cpp"},
    {"src/maps/map_coord_creator_factory", "tests/maps/map_coord_creator_test.cpp"},
    {"src/polygons/polygon_reading", "tests/areas/coordinate_area_polygons_test.cpp"},
    {"src/polygons/polygon_ring", "tests/polygons/polygon_split_test.cpp"},
    {"src/polygons/polygon_writing", "tests/areas/coordinate_area_split_test.cpp"},
    {"src/systems/free_projections", "tests/systems/convert_many_test.cpp"},
    {"src/systems/projection", "tests/systems/convert_many_test.cpp"},
    {"src/text/utmref_pieces", "tests/text/coord_checker_utmref_test.cpp"},
};

// "a/b" of a/b.cpp, and of a/b_test.cpp, too.
std::string WithoutEnding(const SourceFile& file) {
    const std::string path = file.path.substr(0, file.path.rfind('.'));
    const std::size_t test = path.rfind("_test");
    return test != std::string::npos && test + 5 == path.size() ? path.substr(0, test) : path;
}

bool IsThere(const fs::path& home, const std::string& name) {
    return fs::exists(home / (name + ".h")) || fs::exists(home / (name + ".cpp"));
}

// Whether a test has the name of a header of the contract or of a source of its room; of a source, an aspect
// may follow it.
bool IsNamedAfterASource(const std::string& test) {
    const fs::path path = fs::path(test).lexically_relative("tests");
    const fs::path room = path.parent_path();
    std::string name = path.filename().string();
    for (const fs::path& headers : {fs::path(), fs::path("host"), fs::path("internal"), room.filename()}) {
        if (IsThere(ROOT / "include/tessara" / headers, name)) return true;
    }
    while (!name.empty() && !IsThere(ROOT / "src" / room, name)) {
        const std::size_t end = name.rfind('_');
        name.resize(end == std::string::npos ? 0 : end);
    }
    return !name.empty();
}

TEST(HouseRules, ATestHasTheNameOfWhatItTests) {
    int tests = 0;
    for (const std::string& room : LIBRARY) {
        for (const auto& entry : fs::directory_iterator(ROOT / "tests" / room)) {
            const SourceFile file{fs::relative(entry.path(), ROOT).generic_string(), {}};
            if (file.path.find("_test.cpp") == std::string::npos) continue;
            const std::string test = WithoutEnding(file);
            ++tests;
            EXPECT_NE(IsNamedAfterASource(test), TESTS_OF_MORE_THAN_A_SOURCE.count(test) == 1) << test;
        }
    }
    EXPECT_GT(tests, 100);
}

TEST(HouseRules, ASourceHasATestByItsName) {
    for (const SourceFile& file : FilesBelow({"src"})) {
        if (fs::path(file.path).extension() != ".cpp") continue;
        const std::string source = WithoutEnding(file);
        const bool hasTest = fs::exists(ROOT / ("tests" + source.substr(3) + "_test.cpp"));
        const auto elsewhere = SOURCES_TESTED_ELSEWHERE.find(source);
        EXPECT_NE(hasTest, elsewhere != SOURCES_TESTED_ELSEWHERE.end()) << source;
        if (elsewhere == SOURCES_TESTED_ELSEWHERE.end()) continue;
        EXPECT_TRUE(fs::exists(ROOT / elsewhere->second)) << elsewhere->second;
    }
}

// Names that a header includes, of one directory of the contract.
std::set<std::string> IncludedBy(const std::string& header) {
    std::set<std::string> names;
    for (const SourceFile& file : FilesBelow({"include"})) {
        if (file.path != "include/" + header) continue;
        for (const Include& include : file.Includes())
            names.insert(include.name);
    }
    return names;
}

// One include gives a caller everything: kernel.h for plain functions, tessara.h for hosts of objects.
TEST(HouseRules, TheTwoDoorsLeadToAllHeaders) {
    const std::set<std::string> otherNames{"tessara/kernel/polynomial.h", "tessara/kernel/projection_math.h",
                                           "tessara/kernel.h", "tessara/tessara.h"};
    const std::set<std::string> kernel = IncludedBy("tessara/kernel.h");
    const std::set<std::string> host = IncludedBy("tessara/tessara.h");
    for (const SourceFile& file : FilesBelow({"include"})) {
        const std::string name = fs::path(file.path).lexically_relative("include").generic_string();
        if (otherNames.count(name) > 0 || name.starts_with("tessara/internal/")) continue;
        const bool isKernels = name.starts_with("tessara/kernel/");
        EXPECT_EQ((isKernels ? kernel : host).count(name), 1u) << name;
    }
}

// The contract of the kernel can be had without that of the objects.
TEST(HouseRules, TheKernelsHeadersIncludeNoOthers) {
    int headers = 0;
    for (const SourceFile& file : FilesBelow({"include/tessara/kernel"})) {
        ++headers;
        for (const Include& include : file.Includes()) {
            EXPECT_TRUE(!include.isQuoted || include.name.starts_with("tessara/kernel/")) << file.path;
        }
    }
    EXPECT_GT(headers, 10);
}

// The row of a system describes it. The few remaining comparisons with a type exist for a reason that no
// other question shares.
TEST(HouseRules, SystemsAreRowsAndNotLabels) {
    std::size_t labels = 0;
    for (const SourceFile& file : FilesBelow({"src", "include", "toolkit", "program"})) {
        for (std::size_t at = file.text.find("case KOORD_"); at != std::string::npos;
             at = file.text.find("case KOORD_", at + 1))
            ++labels;
    }
    EXPECT_LT(labels, 20u);
}

// The headers that declare a class of objects, which is one that names its faces, and the names of the
// classes. The factories have faces, too, but are the frame's own.
std::map<std::string, std::string> ClassHeaders() {
    std::map<std::string, std::string> classes;
    for (const SourceFile& file : FilesBelow({"src"})) {
        const std::size_t faces = file.text.find("using Faces = FaceList<");
        const bool isHeader = fs::path(file.path).extension() == ".h";
        if (!isHeader || faces == std::string::npos || file.path == "src/frame/class_factory.h") continue;
        std::istringstream declaration(file.text.substr(file.text.rfind("class ", faces)));
        std::string keyword;
        declaration >> keyword >> classes[NameOf(file) + ".h"];
    }
    return classes;
}

// A source of the class: the one beside its header, or another one that holds members of it.
bool BelongsTo(const SourceFile& file, const std::string& header, const std::string& className) {
    return header == NameOf(file) + ".h" || file.text.find(' ' + className + "::") != std::string::npos;
}

TEST(HouseRules, AClassIsMadeByItsCreationFunctionNotByItsHeader) {
    const std::map<std::string, std::string> classes = ClassHeaders();
    ASSERT_EQ(classes.count("objects/coord.h"), 1u);
    EXPECT_EQ(classes.at("objects/coord.h"), "Coord");
    for (const SourceFile& file : FilesBelow({"src"})) {
        if (file.path == "src/component/class_table.cpp") continue;  // the one place that knows all classes
        for (const Include& include : file.Includes()) {
            const auto found = classes.find(include.name);
            if (found == classes.end()) continue;
            EXPECT_TRUE(BelongsTo(file, found->first, found->second)) << file.path << ": " << include.name;
        }
    }
}

// The sources that one compiler call reads: the file it names last, or those that this file includes if it is
// a batch.
std::set<std::string> SourcesOfCall(const std::string& call) {
    const std::string start = " -c ";
    const std::size_t at = call.rfind(start);
    if (at == std::string::npos) return {};
    const std::size_t from = at + start.size();
    const fs::path path = call.substr(from, call.find('"', from) - from);
    if (path.parent_path().filename() != "Unity") return {path.generic_string()};
    std::ifstream file(path);
    const SourceFile batch{path.generic_string(), {std::istreambuf_iterator<char>(file), {}}};
    std::set<std::string> sources;
    for (const Include& include : batch.Includes())
        sources.insert(include.name);
    return sources;
}

TEST(HouseRules, EverySourceIsCompiledWithoutContractionAndFastMath) {
    std::set<std::string> waiting;
    for (const SourceFile& file : FilesBelow({"src"})) {
        if (file.path.ends_with(".cpp")) waiting.insert((ROOT / file.path).generic_string());
    }
    std::ifstream calls(testing::BinaryDir() + "/compile_commands.json");
    for (std::string call; std::getline(calls, call);) {
        bool compilesTheLibrary = false;
        for (const std::string& source : SourcesOfCall(call)) {
            waiting.erase(source);
            compilesTheLibrary = compilesTheLibrary || source.starts_with((ROOT / "src/").generic_string());
        }
        if (!compilesTheLibrary) continue;
        EXPECT_NE(call.find("-ffp-contract=off"), std::string::npos) << call;
#if !defined(__clang__)
        EXPECT_NE(call.find("-fno-tree-slp-vectorize"), std::string::npos) << call;
#endif
        for (const char* option : {"-ffast-math", "-Ofast", "-funsafe-math"})
            EXPECT_EQ(call.find(option), std::string::npos) << call;
    }
    EXPECT_EQ(waiting, std::set<std::string>{});
}

}  // namespace
}  // namespace tessara
