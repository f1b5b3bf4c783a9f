// tessara map
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "commands/command.h"
#include "conversion/numbers.h"
#include "drawing/map_page.h"
#include "files/png.h"
#include "lines/input_files.h"
#include "map/map_around.h"
#include "run/toolkit_names.h"
#include "typed/judge.h"
#include "typed/typed_reader.h"

namespace tessara::program {
namespace {

constexpr const char* MAP_FOOTER =
    R"(Draws a window of a map as SVG: grid lines with their values at the frame, zone borders, positions, geodesics
and straight lines, range rings, and polygons. Such a drawing shows whether a calibration is right. For an output
with the extension .png, rsvg-convert draws the picture.

DESCRIPTION is a JSON file; docs/map.md lists all keys. This one describes 50 by 40 km south-west of Munich:

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

Layers are grid, borders, positions, geodesic, line, rings, polygon, overlay, coast and geojson. Errors in a
layer are reported on standard error, and the exit status is 1; everything else is drawn.

Two options replace the description: --around draws the surroundings of a position, and --preview draws the
contents of a file. Both choose a suitable projection and grids. If the output has the extension .json, they
write the description instead of the map.

Examples:
  tessara map sheet.json -o sheet.svg
  tessara map sheet.json -o sheet.png --size 2000
  tessara map --around 48.1,11.6 --width 20km -o munich.svg
  tessara map --around 32UPU9160234791 -o square.svg
  tessara map --preview tracks.geojson -o tracks.png
  tessara map - < sheet.json > sheet.svg)";

struct MapOptions {
    std::string description;
    std::string around;   // a position as people type it
    std::string width;    // a length with its unit
    std::string preview;  // a file
    std::string output = "-";
    double size = 1000.0;
};

constexpr double SHORTEST_SIDE = 100.0;
constexpr double LONGEST_SIDE = 20000.0;

constexpr const char* DEFAULT_WIDTH = "20km";

struct LengthUnit {
    std::string_view name;
    double metres;
};
constexpr LengthUnit UNITS[] = {{"km", 1000.0}, {"m", 1.0}};

std::optional<double> ParseLength(std::string_view text) {
    for (const LengthUnit& unit : UNITS) {
        if (!text.ends_with(unit.name)) continue;
        text.remove_suffix(unit.name.size());
        while (text.ends_with(' '))
            text.remove_suffix(1);
        const std::optional<double> number = ParseNumber(text);
        return number ? std::optional(*number * unit.metres) : std::nullopt;
    }
    return std::nullopt;
}

// Of two bare numbers the first is the latitude.
TypedResult ReadPlace(const std::string& text) {
    return TypedReader({.order = Order::NorthFirst}).Read(text);
}

std::string CheckPlace(const std::string& text) {
    return ReadPlace(text).fault.reason;
}

std::string CheckLength(const std::string& text) {
    return ParseLength(text) ? "" : "expected a length in m or km, such as 20km";
}

// The extension of the file in lower case.
std::string ExtensionOf(const std::string& file) {
    std::string extension = std::filesystem::path(file).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

// The user wants to edit the description that --around or --preview generates.
bool WritesDescription(const MapOptions& options) {
    return options.description.empty() && ExtensionOf(options.output) == ".json";
}

// The text of a description, and the directory to which its file names are relative.
struct Source {
    std::string text;
    std::filesystem::path directory;
};

std::string ReadAll(const std::string& file) {
    std::string text;
    const std::string wrong = ReadInput(file, [&text](std::istream& stream) { text = ReadWhole(stream); });
    if (!wrong.empty()) throw DescriptionError(wrong);
    return text;
}

// A description names its files relative to its own directory.
std::string LayerFileOf(const MapOptions& options) {
    if (!WritesDescription(options)) return options.preview;
    const std::filesystem::path directory = std::filesystem::absolute(options.output).parent_path();
    return std::filesystem::proximate(std::filesystem::absolute(options.preview), directory).generic_string();
}

Source ReadSource(const MapOptions& options) {
    if (!options.around.empty()) {
        GeodezPayload place{};
        if (!DegreesOf(ReadPlace(options.around).readings.at(0).record, &place))
            throw DescriptionError("cannot convert the position to degrees");
        const double width = ParseLength(options.width).value_or(0.0);
        return {DescribeMapAround({place.latitude, place.longitude, width}), {}};
    }
    if (!options.preview.empty())
        return {DescribeMapOf(FilesIn({})(options.preview), LayerFileOf(options)), {}};
    const bool isInput = options.description == "-";
    return {ReadAll(options.description),
            isInput ? "" : std::filesystem::path(options.description).parent_path()};
}

std::string NameOf(const MapOptions& options) {
    if (!options.around.empty()) return "--around";
    return options.preview.empty() ? options.description : options.preview;
}

// Without this check such a file would contain SVG.
std::string CheckOutput(const std::string& file) {
    static const std::set<std::string> others = {".jpg",  ".jpeg", ".gif", ".webp", ".tif",
                                                 ".tiff", ".bmp",  ".pdf", ".ps",   ".eps"};
    const std::string extension = ExtensionOf(file);
    return others.contains(extension) ? "unsupported output format " + extension + "; use .svg or .png" : "";
}

// The error; empty on success.
std::string WriteOutput(const std::string& text, const MapOptions& options) {
    const std::string& file = options.output;
    if (file == "-") {
        std::cout << text;
        return {};
    }
    if (IsOneOf(file, {options.description})) return file + ": cannot overwrite the description";
    if (IsOneOf(file, {options.preview})) return file + ": cannot overwrite the previewed file";
    if (ExtensionOf(file) == ".png") return WritePng(text, file);
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    return stream.flush() ? "" : file + ": cannot write the file" + SystemReason(errno);
}

std::string Draw(const Source& source, const MapOptions& options, std::vector<std::string>* problems) {
    const MapDescription description = ReadMapDescription(source.text, FilesIn(source.directory));
    MapPage page = DrawMapPage(description, options.size);
    *problems = description.problems;
    for (const std::string& problem : page.problems)
        problems->push_back(NameOf(options) + ": " + problem);
    return std::move(page.svg);
}

ExitCode DrawMap(const MapOptions& options) {
    std::string text;
    std::vector<std::string> problems;
    try {
        const Source source = ReadSource(options);
        text = WritesDescription(options) ? source.text : Draw(source, options, &problems);
    } catch (const DescriptionError& error) {
        std::cerr << NameOf(options) << ": " << error.what() << '\n';
        return EXIT_INCOMPLETE;
    }
    const std::string failure = WriteOutput(text, options);
    if (!failure.empty()) problems.push_back("tessara: " + failure);
    for (const std::string& problem : problems)
        std::cerr << problem << '\n';
    return problems.empty() ? EXIT_DONE : EXIT_INCOMPLETE;
}

bool HasOneSource(const MapOptions& options) {
    const int sources = (options.description.empty() ? 0 : 1) + (options.around.empty() ? 0 : 1) +
                        (options.preview.empty() ? 0 : 1);
    return sources == 1;
}

}  // namespace

void AddMap(CLI::App& program, Action& action) {
    Command command(program, "map", "Draws a window of a map, as SVG or PNG", MAP_FOOTER);
    const auto options = std::make_shared<MapOptions>();
    command.Add("DESCRIPTION", options->description, "JSON file; '-' is standard input");
    const Option around = command
                              .Add("--around", options->around,
                                   "Draw the surroundings of a position, such as 48.1,11.6 or "
                                   "32UPU9160234791, on WGS84")
                              .Type("POSITION")
                              .CheckedBy(CheckPlace);
    options->width = DEFAULT_WIDTH;
    command.Add("--width", options->width, "Width of the surroundings, in m or km")
        .Type("LENGTH")
        .CheckedBy(CheckLength)
        .ShowDefault()
        .Needs(around);
    command.Add("--preview", options->preview, "Draw a file of positions: GeoJSON, or lines of degrees")
        .Type("FILE");
    command.Add("-o,--output", options->output, "Output file; '-' writes SVG to standard output")
        .Type("FILE")
        .CheckedBy(CheckOutput)
        .ShowDefault();
    command.Add("--size", options->size, "Longer side of the window in the picture, 100 to 20000 pixels")
        .Type("PIXELS")
        .Within(SHORTEST_SIDE, LONGEST_SIDE)
        .ShowDefault();
    command.OnCall(action, [options, command] {
        if (!HasOneSource(*options)) command.Refuse("expected one of DESCRIPTION, --around and --preview");
        return [options] { return DrawMap(*options); };
    });
}

}  // namespace tessara::program
