// The messages of `tessara map` about descriptions that it can't use, and about layers that it can't draw.
#include <gtest/gtest.h>

#include <filesystem>

#include "program/files.h"
#include "program/run_program.h"
#include "program/svg_reader.h"
#include "support/sanitized.h"

using tessara::testing::ElementsOf;
using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::ScratchDirectory;
using tessara::testing::Tessara;

namespace {

const std::string UTM =
    R"("projection": {"type": "UTM", "zone": 32, "hemisphere": "N", "originEasting": 660000,
                      "originNorthing": 5340000, "metresPerPixelX": 50, "metresPerPixelY": 50})";
const std::string WINDOW = R"("window": {"left": 0, "top": 0, "right": 1000, "bottom": 800})";

std::string MapWith(const std::string& layer) {
    return "{" + UTM + ", " + WINDOW + R"(, "layers": [)" + layer + "]}";
}

Outcome DrawMap(const std::string& description) {
    return Tessara({"map", "-"}, description);
}

// A wrong description and its message.
struct Mistake {
    std::string description;
    std::string message;
};

void ExpectRefused(const Mistake& mistake) {
    const Outcome outcome = DrawMap(mistake.description);
    EXPECT_EQ(outcome.status, 1) << mistake.description;
    EXPECT_EQ(outcome.out, "") << mistake.description;
    EXPECT_EQ(outcome.err, "-: " + mistake.message + "\n");
}

}  // namespace

TEST(MapMessages, SayWhereTextIsNoJson) {
    const Outcome outcome = DrawMap("{\n  \"window\": 1,,\n}");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.starts_with("-: invalid JSON: parse error at line 2, column 15")) << outcome.err;
}

TEST(MapMessages, NameAFileThatCantBeRead) {
    const Outcome missing = Tessara({"map", "nowhere.json"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "nowhere.json: cannot read the file: No such file or directory\n");
    const Outcome directory = Tessara({"map", TESSARA_SOURCE_DIR});
    EXPECT_EQ(directory.status, 1);
    EXPECT_EQ(directory.err, TESSARA_SOURCE_DIR ": cannot read the file: Is a directory\n");
}

TEST(MapMessages, SayWhatIsWrongWithTheMap) {
    const std::string types =
        "UTM, GAUKRU, GAUKRU6, BMN, CH, STEREOGR_NL, UPS, TM, PO_MILITARY, LUREF, DD, EQUALARC, POLYNOM, "
        "LAMBERT2, LAMBERTFR, LAMBERTCC, MERCATOR, AZYL, VAN_DER_GRINTEN, WAGNER-IV";
    const std::string grid = R"("originEasting": 1, "originNorthing": 1, "metresPerPixelX": 1)";
    for (const Mistake& mistake : {
             Mistake{"[]", "expected an object, found a list of length 0"},
             {"{}", "missing 'projection'"},
             {"{" + UTM + "}", "missing 'window'"},
             {R"({"projection": {}})", "projection: missing 'type'"},
             {R"({"projection": {"type": "MOLLWEIDE"}})",
              "projection.type: expected one of " + types + R"(, found "MOLLWEIDE")"},
             {R"({"projection": {"type": "UTM", "hemisphere": "n"}})",
              R"(projection.hemisphere: expected one of N, S, found "n")"},
             {R"({"projection": {"type": "UTM", "hemisphere": "N", "zone": 61}})",
              "projection.zone: expected a whole number in 1..60, found 61"},
             {R"({"projection": {"type": "UTM", "hemisphere": "N", "zone": 31.5}})",
              "projection.zone: expected a whole number in 1..60, found 31.5"},
             {R"({"projection": {"type": "CH", "originEasting": "x"}})",
              R"(projection.originEasting: expected a number, found "x")"},
             {R"({"projection": {"type": "CH", "originEasting": 1e10}})",
              "projection.originEasting: expected a number in -1000000000..1000000000, found 10000000000.0"},
             {R"({"projection": {"type": "CH", )" + grid + "}}",
              "projection: missing 'metresPerPixelY'; set it, or both 'scale' and 'resolution'"},
             {R"({"projection": {"type": "CH", )" + grid + R"(, "metresPerPixelY": 0}})",
              "projection.metresPerPixelY: expected a number above 0, found 0"},
             {R"({"projection": {"type": "CH", )" + grid + R"(, "metresPerPixelY": 1, "zone": 1}})",
              R"(projection: unknown key "zone"; expected one of metresPerPixelX, metresPerPixelY, )"
              "originEasting, originNorthing, type"},
             {R"({"scale": 50000, "resolution": 10, "projection": {"type": "CH", "originEasting": 1,
                 "originNorthing": 1, "metresPerPixelX": 5, "metresPerPixelY": 7.5}})",
              "projection.metresPerPixelY: the value contradicts 'scale' and 'resolution', which give 5 "
              "metres per pixel"},
             {R"({"projection": {"type": "GAUKRU", "meridian": 10}})",
              "projection.meridian: invalid central meridian 10; expected 0 plus or minus a multiple of 3"},
             {R"({"projection": {"type": "GAUKRU6", "meridian": 12}})",
              "projection.meridian: invalid central meridian 12; expected 3 plus or minus a multiple of 6"},
             {R"({"projection": {"type": "BMN", "meridian": 16}})",
              "projection.meridian: expected one of 28, 31, 34, found 16"},
             {R"({"projection": {"type": "EQUALARC", "zone": 1}})",
              "projection.zone: expected one of 0, 9, 18, found 1"},
             {R"({"projection": {"type": "POLYNOM", "order": 5}})",
              "projection.order: expected one of 3, 4, 6, 10, found 5"},
             {R"({"projection": {"type": "POLYNOM", "order": 3, "latFromPixel": [1, 2]}})",
              "projection.latFromPixel: expected a list of length 3, found a list of length 2"},
             {R"({"projection": {"type": "LAMBERTFR", "zone": 5}})",
              "projection.zone: expected a whole number in 1..4, found 5"},
             {R"({"projection": {"type": "MERCATOR", "standardParallel": 91}})",
              "projection.standardParallel: expected a number in -90..90, found 91"},
             {R"({"projection": {"type": "MERCATOR", "standardParallel": 54}})",
              "missing 'scale'; MERCATOR maps require it"},
             {R"({"scale": 1000, "projection": {"type": "AZYL", "standardParallel": 54}})",
              "missing 'resolution'; AZYL maps require it"},
             {R"({"scale": 1000, "resolution": 10, "projection": {"type": "AZYL", "standardParallel": 54}})",
              "missing 'reference'; AZYL maps require it"},
             {R"({"scale": 0})", "scale: expected a whole number in 1..2147483647, found 0"},
             {R"({"resolution": -1})", "resolution: expected a number above 0, found -1"},
             {R"({"datum": "XYZ"})", "datum: unknown datum 'XYZ'; `tessara datums` lists all names"},
             {R"({"title": 1})", "title: expected a string, found 1"},
             {"{" + UTM + R"(, "reference": {"pixel": [0, 0]}})", "reference: missing 'place'"},
             {"{" + UTM + R"(, "reference": [{"pixel": [0], "place": [48, 11]}]})",
              "reference[0].pixel: expected a list of length 2, found a list of length 1"},
             {"{" + UTM + R"(, "reference": {"pixel": [0, 0], "place": {"pixel": [1, 2]}}})",
              "reference.place: expected a position on the earth, found a pixel"},
             {"{" + UTM + R"(, "window": {"left": 0, "top": 8, "right": 10, "bottom": 0}})",
              "window: the window is empty; 'right' must exceed 'left', and 'bottom' must exceed 'top'"},
             {"{" + UTM + R"(, "window": {"left": 0, "top": 0, "right": 1000001, "bottom": 10}})",
              "window: the window is larger than 1000000 pixels"},
             {"{" + UTM + ", " + WINDOW + R"(, "layer": []})",
              R"(unknown key "layer"; expected one of datum, layers, projection, reference, resolution, )"
              "scale, title, window"},
         })
        ExpectRefused(mistake);
}

TEST(MapMessages, SayWhatIsWrongWithALayer) {
    const std::string square = R"([{"pixel": [1, 1]}, {"pixel": [9, 1]}, {"pixel": [9, 9]}])";
    for (const Mistake& mistake : {
             Mistake{R"({"type": "grit"})",
                     ".type: expected one of grid, borders, positions, geodesic, line, rings, polygon, "
                     R"(overlay, coast, geojson, found "grit")"},
             {"3", ": expected an object, found 3"},
             {R"({"type": "grid", "system": "UTN", "step": 1})",
              ".system: unknown system 'UTN'; did you mean 'UTM'? `tessara systems` lists all names"},
             {R"({"type": "grid", "system": "UTM@X", "step": 1})",
              ".system: unknown datum 'X'; `tessara datums` lists all names"},
             {R"({"type": "grid", "system": "ECEF", "step": 1})", ".system: ECEF has no grid lines"},
             {R"({"type": "grid", "system": "UTM:zone=33", "step": 1})",
              ".system: maps do not support parameters of systems"},
             {R"({"type": "grid", "system": "TM", "step": 1})", ".system: TM has no grid lines"},
             {R"({"type": "grid", "system": "UTM"})", ": missing 'eastStep'"},
             {R"({"type": "grid", "system": "UTM", "step": 0})", ".step: expected a number above 0, found 0"},
             {R"({"type": "grid", "system": "UTM", "step": 1, "colour": "mauve"})",
              ".colour: expected one of black, orange, sky blue, bluish green, yellow, blue, vermillion, "
              R"(reddish purple, found "mauve")"},
             {R"({"type": "borders", "system": "GEODEZ"})", ".system: GEODEZ has no zones"},
             {R"({"type": "positions"})", ": expected either 'places' or 'file'"},
             {R"({"type": "positions", "places": [], "file": "x"})", ": expected either 'places' or 'file'"},
             {R"({"type": "positions", "places": [[91, 11]]})",
              ".places[0][0]: expected a number in -90..90, found 91"},
             {R"({"type": "positions", "places": [{"name": "x"}]})",
              ".places[0]: expected 'at', 'pixel', or 'system' with 'north' and 'east'"},
             {R"({"type": "positions", "places": [{"at": [48, 11], "datum": "X"}]})",
              ".places[0].datum: unknown datum 'X'; `tessara datums` lists all names"},
             {R"({"type": "positions", "places": [{"at": [48, 11], "nam": "x"}]})",
              R"(.places[0]: unknown key "nam"; expected one of at, datum, name)"},
             {R"({"type": "positions", "places": [{"system": "UTM", "north": "N 1", "east": "99 1"}]})",
              ".places[0]: '99': the zone is outside 1..60"},
             {R"({"type": "geodesic", "places": [[48, 11]]})",
              ".places: expected at least 2 places, found 1"},
             {R"({"type": "line", "places": [[48, 11], [48, 12]], "straightIn": "FLOATPIXEL"})",
              ".straightIn: lines are straight in pixels by default; omit 'straightIn'"},
             {R"({"type": "rings", "centre": [48, 11], "radii": [0]})",
              ".radii[0]: expected a number above 0, found 0"},
             {R"({"type": "rings", "centre": [48, 11], "radii": [3e7]})",
              ".radii[0]: the radius is greater than 20000 km"},
             {R"({"type": "polygon", "places": [[48, 11], [48, 12]]})",
              ".places: expected at least 3 places, found 2"},
             {R"({"type": "overlay", "first": )" + square + "}", ": missing 'second'"},
         })
        ExpectRefused({MapWith(mistake.description), "layers[0]" + mistake.message});
}

TEST(MapMessages, TellLinesOfAFileThatCantBeUsedAndDrawTheOthers) {
    const ScratchDirectory files;
    const std::string positions = files.File("positions", "48.1375 11.5755 # Munich\n91 11\n\n48 11.5 1 2\n");
    const std::string texts = files.File("texts", "N 5334791;32 691602;hall\nN 1;99 1\nN 5334791\n");
    const Outcome outcome = DrawMap(MapWith(R"({"type": "positions", "file": ")" + positions +
                                            R"("}, {"type": "positions", "from": "UTM", "file": ")" + texts +
                                            R"("}, {"type": "positions", "file": "nowhere.txt"})"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, positions + ":2: latitude '91' is outside -90..90\n" + positions +
                               ":4: expected latitude longitude [height], found 4 values\n" + texts +
                               ":2: '99': the zone is outside 1..60\n" + texts +
                               ":3: expected a north and an east text, found one column\n"
                               "nowhere.txt: cannot read the file: No such file or directory\n");
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "layer0 position").size(), 1u);
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "layer1 position").size(), 1u);
}

TEST(MapMessages, TellPlacesWithoutAPixelAndDrawTheOthers) {
    // The pole has no UTM coordinates, and neither has the other side of the globe in zone 32.
    const Outcome outcome = DrawMap(MapWith(R"({"type": "positions", "places": [[90, 0], [48.1375, 11.5755]]},
                        {"type": "line", "places": [[90, 0], [48, 11]]},
                        {"type": "polygon", "places": [[90, 0], [48, 11], [48, 12]]},
                        {"type": "grid", "system": "RD", "step": 1000})"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "-: layers[0].places[0]: the position has no pixel on the map\n"
              "-: layers[1].places[0]: the position has no pixel on the map\n"
              "-: layers[2].places[0]: the position has no pixel on the map\n"
              "-: layers[3]: the window is outside the area of RD@WGS84\n");
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "layer0 position").size(), 1u);
}

TEST(MapMessages, TellAStepThatIsTooSmall) {
    const Outcome outcome =
        DrawMap(MapWith(R"({"type": "grid", "system": "UTM", "eastStep": 10, "northStep": 10000})"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "-: layers[0]: more than 2000 east lines of UTM@WGS84; increase the step\n");
    EXPECT_EQ(LinesOf(outcome.out, "grid north").size(), 5u);

    const std::string world =
        R"({"projection": {"type": "DD", "originLongitude": -180, "originLatitude": 90, "pixelsPerDegreeX": 10,
                           "pixelsPerDegreeY": 10},
            "window": {"left": 0, "top": 0, "right": 3600, "bottom": 1800},
            "layers": [{"type": "grid", "system": "GEODEZ", "eastStep": 1e-9, "northStep": 30}]})";
    EXPECT_EQ(DrawMap(world).err,
              "-: layers[0]: more than 2000 east lines of GEODEZ@WGS84; increase the step\n");
}

// A million lines would take minutes.
TEST(MapMessages, TellAStepThatIsFarTooSmallBeforeAnyLineIsMade) {
    for (const std::string system :
         {"UTM", "UTM@GER", "UTMREF", "GK@GER", "GEODEZ", "GEOREF", "FLOATPIXEL", "VDG"}) {
        const Outcome outcome =
            DrawMap(MapWith(R"({"type": "grid", "system": ")" + system + R"(", "step": 1e-9})"));
        const std::string name = system.find('@') == std::string::npos ? system + "@WGS84" : system;
        EXPECT_EQ(LinesOf(outcome.err),
                  (std::vector<std::string>{
                      "-: layers[0]: more than 2000 north lines of " + name + "; increase the step",
                      "-: layers[0]: more than 2000 east lines of " + name + "; increase the step"}));
    }
}

// On pixels a hundred kilometres wide and a hundredth of a millimetre high all lines are bent without end.
TEST(MapMessages, TellLinesThatTakeTooManyPoints) {
    if (tessara::testing::IS_SANITIZED) GTEST_SKIP() << "a million points take half a minute";
    const Outcome outcome =
        DrawMap(R"({"projection": {"type": "LAMBERTCC", "parallel1": 49, "parallel2": 44,
        "originLongitude": 3, "originLatitude": 46.5, "falseEasting": 700000, "falseNorthing": 6600000,
        "metresPerPixelX": 1e5, "metresPerPixelY": 1e-5, "pixelX": 500, "pixelY": 400}, )" +
                WINDOW + R"(, "layers": [{"type": "grid", "system": "UTM", "step": 10000}]})");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("-: layers[0]: the north lines of UTM@WGS84 have more than 1000000 points; "
                               "increase the step\n"),
              std::string::npos)
        << outcome.err;
}

// Beyond the edge of the world map there are no extremes, and a grid would try some twenty million points.
TEST(MapMessages, TellGridsOfWindowsWithoutExtremes) {
    const Outcome outcome = DrawMap(R"({"projection": {"type": "WAGNER-IV", "originLongitude": -98.390625,
        "stretchX": 1, "stretchY": 1}, "scale": 94967287, "resolution": 10,
        "reference": {"pixel": [-12594, 8398], "place": {"at": [65.33984375, 138.109375]}},
        "window": {"left": 23328, "top": -598, "right": 26636.875, "bottom": 2710.875},
        "layers": [{"type": "grid", "system": "UTMREF", "step": 50.5}]})");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "-: layers[0]: cannot draw all north lines of UTMREF@WGS84\n"
              "-: layers[0]: cannot draw all east lines of UTMREF@WGS84\n");
}

TEST(MapMessages, TellCoastlinesThatBendWithoutEnd) {
    if (tessara::testing::IS_SANITIZED) GTEST_SKIP() << "a million points take half a minute";
    const Outcome outcome = DrawMap(R"({"projection": {"type": "LAMBERTCC", "parallel1": 49, "parallel2": 44,
        "originLongitude": 3, "originLatitude": 46.5, "falseEasting": 700000, "falseNorthing": 6600000,
        "metresPerPixelX": 1e5, "metresPerPixelY": 1e-5, "pixelX": 500, "pixelY": 400}, )" +
                                    WINDOW + R"(, "layers": [{"type": "coast", "borders": true}]})");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "-: layers[0]: the lines have more than 1000000 points on this map and are incomplete\n");
}

TEST(MapMessages, ShowNoControlCharacters) {
    ExpectRefused(
        {R"({"datum": "\u001b[2J"})", "datum: unknown datum '?[2J'; `tessara datums` lists all names"});
}

TEST(MapMessages, TellAnOutputThatCantBeWritten) {
    const Outcome outcome = Tessara({"map", "-", "-o", "/nowhere/map.svg"}, MapWith(""));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "tessara: /nowhere/map.svg: cannot write the file: No such file or directory\n");
}

TEST(MapMessages, TellAnOutputThatIsTheDescription) {
    const ScratchDirectory files;
    const std::string file = files.File("map.json", MapWith(""));
    const Outcome outcome = Tessara({"map", file, "-o", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "tessara: " + file + ": cannot overwrite the description\n");
    EXPECT_EQ(files.Contents("map.json"), MapWith(""));
}

TEST(MapUsage, WantsAPictureOfAFormThatItDraws) {
    const ScratchDirectory files;
    for (const char* name : {"map.jpg", "map.JPG", "map.jpeg", "map.gif", "map.pdf"}) {
        const Outcome outcome =
            RunProgram(TESSARA_PROGRAM, {"map", "-", "-o", files.Path(name)}, {MapWith(""), {}, {}});
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_NE(outcome.err.find("unsupported output format ."), std::string::npos) << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(files.Path(name)));
    }
    EXPECT_EQ(
        RunProgram(TESSARA_PROGRAM, {"map", "-", "-o", files.Path("map.SVG")}, {MapWith(""), {}, {}}).status,
        0);
    EXPECT_TRUE(files.Contents("map.SVG").starts_with("<svg "));
}

TEST(MapMessages, NameTheProgramThatDrawsAPng) {
    const ScratchDirectory files;
    const std::string file = files.Path("map.png");
    const Outcome outcome =
        RunProgram(TESSARA_PROGRAM, {"map", "-", "-o", file}, {MapWith(""), {"PATH=/nowhere"}, {}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(
        outcome.err,
        "tessara: PNG output requires rsvg-convert, which is not installed (Debian: librsvg2-bin); write an "
        ".svg file instead\n");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(MapUsage, WantsADescriptionAndASizeInRange) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"map"},
                                                      {"map", "-", "--size", "99"},
                                                      {"map", "-", "--size", "x"},
                                                      {"map", "-", "-", "-"}}) {
        const Outcome outcome = Tessara(arguments);
        EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
    }
}
