// tessara map
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

#include "commands/commands.h"
#include "files/png.h"
#include "files/toolkit_names.h"
#include "lines/input_files.h"
#include "map/map_page.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(Draws a window of a map as SVG, to see whether a calibration is right: grid lines with their values at the
frame, zone borders, positions, geodesics and straight lines, range rings, polygons. An output whose name
ends in .png is drawn by rsvg-convert.

The description is JSON; docs/map.md lists all keys. This one shows 50 by 40 km south-west of Munich:

  {
    "projection": {"type": "UTM", "zone": 32, "hemisphere": "N",
                   "originEasting": 660000, "originNorthing": 5340000},
    "scale": 500000, "resolution": 10, "datum": "WGS84",
    "window": {"left": 0, "top": 0, "right": 1000, "bottom": 800},
    "layers": [
      {"type": "grid", "system": "UTM", "step": 10000},
      {"type": "grid", "system": "GEODEZ", "step": 0.1},
      {"type": "positions", "places": [{"at": [48.1375, 11.5755], "name": "Munich"}]}
    ]
  }

Layers are grid, borders, positions, geodesic, line, rings, polygon, overlay, coast and geojson. What can't be
drawn is reported on standard error, and the exit status is 1; all the rest is drawn.

Examples:
  tessara map sheet.json -o sheet.svg
  tessara map sheet.json -o sheet.png --size 2000
  tessara map - < sheet.json > sheet.svg)";

struct Options {
    std::string description;
    std::string output = "-";
    double size = 1000.0;
};

constexpr double SHORTEST_SIDE = 100.0;
constexpr double LONGEST_SIDE = 20000.0;

// Endings of pictures of other kinds: a file by such a name would hold SVG.
constexpr const char* OTHER_PICTURES[] = {".jpg", ".jpeg", ".gif", ".webp", ".tif", ".tiff", ".bmp", ".pdf"};

std::string WrongOutput(const std::string& file) {
    for (const char* ending : OTHER_PICTURES) {
        if (HasEnding(file, ending)) return file + " can't be drawn: a picture is written as .svg or .png";
    }
    return {};
}

std::string ReadAll(const std::string& file) {
    std::string text;
    const std::string wrong = ReadInput(file, [&text](std::istream& stream) {
        char part[4096];
        while (stream.read(part, sizeof part) || stream.gcount() > 0)
            text.append(part, static_cast<std::size_t>(stream.gcount()));
    });
    if (!wrong.empty()) throw DescriptionError(wrong);
    return text;
}

MapDescription Read(const std::string& file) {
    return ReadMapDescription(ReadAll(file),
                              FilesIn(file == "-" ? "" : std::filesystem::path(file).parent_path()));
}

// What went wrong; empty if nothing did.
std::string WriteOutput(const std::string& svg, const std::string& file, const std::string& description) {
    if (file == "-") {
        std::cout << svg;
        return {};
    }
    if (IsOneOf(file, {description})) return file + ": is the description, and is left as it is";
    if (HasEnding(file, ".png")) return WritePng(svg, file);
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << svg;
    return stream.flush() ? "" : file + ": can't be written" + SystemReason(errno);
}

ExitCode DrawMap(const Options& options) {
    MapPage page;
    std::vector<std::string> problems;
    try {
        const MapDescription description = Read(options.description);
        page = DrawMapPage(description, options.size);
        problems = description.problems;
    } catch (const DescriptionError& error) {
        std::cerr << options.description << ": " << error.what() << '\n';
        return EXIT_INCOMPLETE;
    }
    for (const std::string& problem : page.problems)
        problems.push_back(options.description + ": " + problem);
    const std::string failure = WriteOutput(page.svg, options.output, options.description);
    if (!failure.empty()) problems.push_back("tessara: " + failure);
    for (const std::string& problem : problems)
        std::cerr << problem << '\n';
    return problems.empty() ? EXIT_DONE : EXIT_INCOMPLETE;
}

}  // namespace

void AddMap(CLI::App& program, Action& action) {
    CLI::App* const command = program.add_subcommand("map", "Draws a window of a map, as SVG or PNG");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command->add_option("DESCRIPTION", options->description, "A JSON file; '-' is standard input")
        ->required();
    command->add_option("-o,--output", options->output, "The file to write; '-' is standard output, as SVG")
        ->type_name("FILE")
        ->capture_default_str()
        ->check(WrongOutput);
    command
        ->add_option("--size", options->size,
                     "The longer side of the window in the picture, 100 to 20000 pixels of it")
        ->type_name("PIXELS")
        ->check(CLI::Range(SHORTEST_SIDE, LONGEST_SIDE).description(""))
        ->capture_default_str();
    command->callback([options, &action] { action = [options] { return DrawMap(*options); }; });
}

}  // namespace tessara::program
