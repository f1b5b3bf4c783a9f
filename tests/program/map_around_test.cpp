// Maps without a description: around a place, and of a file.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "program/files.h"
#include "program/run_program.h"
#include "program/svg_reader.h"

using namespace tessara::testing;

namespace {

Outcome Around(const std::string& place, const std::string& width) {
    return Tessara({"map", "--around=" + place, "--width", width});
}

nlohmann::json Described(const std::vector<std::string>& arguments) {
    const ScratchDirectory files;
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"-o", files.Path("map.json")});
    const Outcome outcome = Tessara(all);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return nlohmann::json::parse(files.Contents("map.json"));
}

// Metres of a picture's unit, by its scale bar.
double MetresPerUnit(const std::string& svg) {
    double length = 0.0;
    for (const SvgElement& part : ElementsOf(svg, "rect", "scale-bar"))
        length += part.Number("width");
    double metres = NAN;
    for (const SvgElement& text : ElementsOf(svg, "text", "scale")) {
        std::istringstream words(text.text);
        double number = 0.0;
        std::string unit;
        if (words >> number >> unit && unit == "km") metres = number * 1000.0;
        if (unit == "m") metres = number;
    }
    return metres / length;
}

struct Case {
    const char* place;
    const char* width;
    double metres;
    const char* type;
};

const std::vector<Case> CASES = {{"48.1,11.6", "20km", 2e4, "UTM"},
                                 {"48.1,11.6", "50m", 50.0, "UTM"},
                                 {"48.1,11.6", "500km", 5e5, "UTM"},
                                 {"-17,179.95", "150km", 1.5e5, "UTM"},
                                 {"0,30", "200km", 2e5, "UTM"},
                                 {"89.5,20", "300km", 3e5, "UPS"},
                                 {"90,0", "100km", 1e5, "UPS"},
                                 {"-90,0", "100km", 1e5, "UPS"},
                                 {"48.1,11.6", "1500km", 1.5e6, "LAMBERTCC"},
                                 {"-41.3,174.8", "2000km", 2e6, "LAMBERTCC"},
                                 {"1,-60", "4000km", 4e6, "MERCATOR"},
                                 {"-75,100", "3000km", 3e6, "EQUALARC"},
                                 {"70,-100", "8000km", 8e6, "EQUALARC"}};

}  // namespace

TEST(MapAround, IsAsWideAsWanted) {
    for (const Case& wanted : CASES) {
        SCOPED_TRACE(std::string(wanted.place) + " " + wanted.width);
        const Outcome outcome = Around(wanted.place, wanted.width);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        const SvgElement frame = ElementsOf(outcome.out, "rect", "frame").at(0);
        // A grid's own scale, and that of a cone beside its parallels, differ from 1 by some hundredths.
        EXPECT_NEAR(MetresPerUnit(outcome.out) * frame.Number("width") / wanted.metres, 1.0, 0.06);
        const std::vector<SvgElement> circles = ElementsOf(outcome.out, "circle", "position");
        ASSERT_EQ(circles.size(), 1u);
        EXPECT_NEAR(circles[0].Number("cx"), frame.Number("width") / 2.0, 0.5);
        EXPECT_NEAR(circles[0].Number("cy"), frame.Number("height") / 2.0, 0.5);
        EXPECT_EQ(Described({"map", std::string("--around=") + wanted.place, "--width",
                             wanted.width})["projection"]["type"],
                  wanted.type);
    }
}

TEST(MapAround, HasSomeLinesOfEachAxisAndNotTooMany) {
    std::vector<Case> cases = CASES;
    cases.push_back({"48,11", "15000km", 1.5e7, ""});
    cases.push_back({"-35,150", "40000km", 4e7, ""});
    for (const Case& wanted : cases) {
        const Outcome outcome = Around(wanted.place, wanted.width);
        for (const char* axis : {"grid east", "grid north"}) {
            const std::size_t lines = LinesOf(outcome.out, axis).size();
            EXPECT_TRUE(lines >= 3 && lines <= 60) << wanted.place << wanted.width << " " << axis << lines;
        }
    }
}

TEST(MapAround, HasCoastlinesWhereTheyAreFineEnough) {
    EXPECT_TRUE(LinesOf(Around("54,10", "50km").out, "coast").empty());
    EXPECT_FALSE(LinesOf(Around("54,10", "500km").out, "coast").empty());
    EXPECT_FALSE(LinesOf(Around("-35,150", "40000km").out, "coast").empty());
}

TEST(MapAround, WritesADescriptionThatDrawsTheSame) {
    const ScratchDirectory files;
    const std::string file = files.Path("map.json");
    EXPECT_EQ(Tessara({"map", "--around", "48.1,11.6", "--width", "2.5 km", "-o", file}).status, 0);
    EXPECT_EQ(Tessara({"map", file}).out, Around("48.1, 11.6", "2500m").out);
}

// One place in several forms gives the same map. The references are those of 48 degrees 8' 15" north, 11
// degrees 34' 32" east to a metre, which is a hundredth of a pixel on a map of 100 km.
TEST(MapAround, TakesAPositionInAnyForm) {
    const auto originOf = [](const std::string& place) {
        const nlohmann::json projection =
            Described({"map", "--around=" + place, "--width=100km"})["projection"];
        return std::pair(projection["originNorthing"].get<double>(),
                         projection["originEasting"].get<double>());
    };
    const auto [north, east] = originOf("48.1375,11.5755556");
    for (const char* place :
         {"48.1375 N 11.5755556 E", "48\u00B008'15\"N 11\u00B034'32\"E", "48,1375;11,5755556",
          "32UPU9160734791", "32N 691607 5334791", "N 48 8.25 E 11 34.533333"}) {
        const auto [y, x] = originOf(place);
        EXPECT_NEAR(y, north, 1.0) << place;
        EXPECT_NEAR(x, east, 1.0) << place;
    }
}

TEST(MapAround, RefusesWhatIsNoPlaceOrLength) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--around", "48.1"},
                                                      {"--around", "48,1,11.6"},
                                                      {"--around", "91.0,0.0"},
                                                      {"--around", "32UPI9160234791"},
                                                      {"--around", ""},
                                                      {"--around", "48.1,11.6", "--width", "20"},
                                                      {"--around", "48.1,11.6", "--width", "20miles"},
                                                      {"--width", "20km"},
                                                      {"--around", "48.1,11.6", "-"},
                                                      {"--around", "48.1,11.6", "--preview", "x"},
                                                      {"--preview", "x", "y"}}) {
        std::vector<std::string> all{"map"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = Tessara(all);
        EXPECT_EQ(outcome.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
    }
    for (const auto& [place, width, message] :
         {std::tuple{"0,0", "1m", "the width must be between 10 m and 40000 km"},
          {"0,0", "-5km", "the width must be between 10 m and 40000 km"},
          {"0,0", "50000km", "the width must be between 10 m and 40000 km"}}) {
        const Outcome outcome = Around(place, std::string(width));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, std::string("--around: ") + message + "\n");
    }
}

TEST(MapPreview, ShowsAllOfAFile) {
    const ScratchDirectory files;
    const std::string lines =
        files.File("places.txt", "48.1375 11.5755 # Munich\n48.2085 16.3721 # Vienna\n");
    const Outcome outcome = Tessara({"map", "--preview", lines});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "position").size(), 2u);
    EXPECT_TRUE(ElementsOf(outcome.out, "text", "note").empty());
    // They are 355.7 km apart: echo 48.1375 11.5755 48.2085 16.3721 | GeodSolve -i.
    const std::vector<SvgElement> circles = ElementsOf(outcome.out, "circle", "position");
    const double apart = std::hypot(circles[1].Number("cx") - circles[0].Number("cx"),
                                    circles[1].Number("cy") - circles[0].Number("cy"));
    EXPECT_TRUE(apart > 600.0 && apart < 950.0) << apart;
}

TEST(MapPreview, GoesOverTheDateLine) {
    const ScratchDirectory files;
    const std::string track = files.File(
        "track.geojson", R"({"type": "LineString", "coordinates": [[178, -17], [-178, -18], [-176, -19]]})");
    const Outcome outcome = Tessara({"map", "--preview", track});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    ASSERT_EQ(LinesOf(outcome.out, "shape").size(), 1u);
    const SvgLine line = LinesOf(outcome.out, "shape")[0];
    EXPECT_GT(line.back().x - line.front().x, 600.0);
}

TEST(MapPreview, WritesADescriptionThatFindsTheFileFromWhereItLies) {
    const ScratchDirectory files;
    const ScratchDirectory others;
    const std::string positions = files.File("places.txt", "48.1375 11.5755 # Munich\n");
    const std::string description = others.Path("map.json");
    EXPECT_EQ(Tessara({"map", "--preview", positions, "-o", description}).status, 0);
    const Outcome outcome = Tessara({"map", description});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(ElementsOf(outcome.out, "circle", "position").size(), 1u);
    EXPECT_EQ(ElementsOf(outcome.out, "text", "title").at(0).text, "places.txt");
}

TEST(MapPreview, LeavesTheFileAsItIs) {
    const ScratchDirectory files;
    const std::string json = R"({"type": "Point", "coordinates": [11.5755, 48.1375]})";
    const std::string file = files.File("place.json", json);
    const Outcome outcome = Tessara({"map", "--preview", file, "-o", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "tessara: " + file + ": cannot overwrite the previewed file\n");
    EXPECT_EQ(files.Contents("place.json"), json);
}

TEST(MapPreview, SaysWhyAFileHasNoMap) {
    const ScratchDirectory files;
    const std::string empty = files.File("empty", "# nothing\n");
    for (const auto& [file, message] :
         {std::pair{empty, "no positions found; expected GeoJSON or lines of degrees"},
          {std::string("nowhere"), "cannot read the file: No such file or directory"}}) {
        const Outcome outcome = Tessara({"map", "--preview", file});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, file + ": " + message + "\n");
    }
    // What can't be used is reported, and the rest is drawn.
    const std::string some = files.File("some", "48 11\n95 11\n");
    const Outcome outcome = Tessara({"map", "--preview", some});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, some + ":2: latitude '95' is outside -90..90\n");
    EXPECT_FALSE(outcome.out.empty());
}
