// tessara convert
#include <algorithm>
#include <iterator>
#include <memory>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "commands/typed_position.h"
#include "conversion/closest.h"
#include "conversion/names.h"
#include "conversion/quote.h"
#include "conversion/references.h"
#include "files/forms.h"
#include "files/record_files.h"
#include "run/toolkit_names.h"
#include "tessara/kernel/convergence.h"

namespace tessara::program {
namespace {

constexpr const char* CONVERT_FOOTER =
    R"(Input lines hold `latitude longitude [height]`: degrees, positive north and east, and metres above the
ellipsoid. Without FILES, or for a file named '-', the program reads standard input. It skips blank lines and
comments, which begin with '#', and copies any text after the position to the output.

The output has one line for each position: the fields of each target, the height if the input line has one,
and the rest of the input line. Tabs separate the targets, spaces separate the fields; `tessara systems`
lists the fields of a system. With --display or a precision option, each target is a north text and an east
text separated by a tab, and the height follows as a third column.

If --from names a system, or is `auto` for any system, input lines have columns separated by tabs, semicolons
or commas: the north text and the east text of a position, or one text with both, and any other columns,
which are copied to the output. The texts of the targets replace the texts of the input. Positions can be
typed in many ways:
  48.1375, 11.5755    48,1375 11,5755    N 48 8 15, E 11 34 32    48°08'15"N 11°34'32"E
  32U 691602 5334791    32N 691602 5334791    32UPU9160234791    32U PU 916 348 (to 100 m)
A text that is not a complete position is rejected with the reason, and an ambiguous text with all its
meanings; --verbose shows how each text was read. Of two bare numbers in one text, either can come first if
only one order gives a position; if there are two texts, the first is the north text. Texts of GK-AT require
GK-AT:meridian=28, 31 or 34.

The arguments after `--` are one position, of any system unless --from names one.

Other file formats contain records. The format follows the file extension, or --input and --output name it:
  csv      a header, then one record per line; quoted columns may contain separators and line breaks
  tsv      the same with tabs
  jsonl    one object per line
  geojson  a FeatureCollection, a Feature or any geometry, on WGS84, longitude first
The position of a record is in `latitude` (or `lat`), `longitude` (`lon`, `lng`, `long`) and `height`, or in
the texts `north` and `east` or the single text `text`; --columns sets other names. The results replace the
position, and everything else is copied unchanged; if a result has the name of another column, the name of the
target is appended to it. GeoJSON output has the position on WGS84 as its geometry and the results of each --to
as properties, nested like the coordinates of the geometry. Lines and tables have one line for each position of
a geometry, and lines contain only the results. A line, record or feature is limited to 16 MiB.

Errors in the input are reported on standard error as `FILE:LINE: reason`, or with the number of the feature in
GeoJSON; all other input is converted, and the exit status is 1. --on-error keep writes a placeholder for each
rejected record: a `*` for each target of a line, empty columns or null; output in lines then also has the
blank lines and comments of the input, so that the line numbers agree. If a conversion takes more than two
seconds, a terminal shows the number of lines done, the lines per second and the time left.

Examples:
  tessara convert --to UTM -- 48.1375 11.5755              writes 32 N 691602.6597 5334791.1445
  tessara convert --to UTM --zone 33 -- 48.1375 11.5755    the same in zone 33
  tessara convert --to MGRS --precision 10m -- 48.1375 11.5755
  tessara convert --to TM:lon0=9,k=0.9996,fe=500000 positions.txt
  tessara convert --from auto --to UTM --verbose typed.txt
  tessara convert --to UTMREF --to GK@GER positions.txt    two targets
  tessara convert --from MGI --to BMN positions.txt        keeps the datum
  tessara convert --from GER positions.txt                 to degrees on WGS84
  tessara convert --to UTM --with convergence,scale positions.txt
  echo 'N 5334791;32 691602' | tessara convert --from UTM --to UTMREF --display
  tessara convert --from UTMREF --columns north,east --to GEODEZ sites.csv
  tessara convert --input csv --columns 2,3 --to UTM headerless.csv
  tessara convert --to UTM --rejects bad.csv sites.csv > utm.csv
  tessara convert --output geojson sites.csv > sites.geojson
  tessara convert --from UTM --to UTMREF --input jsonl < typed.jsonl
  tessara convert --json --to UTM positions.txt | jq '.results[0].easting')";

// Options for positions that are read or written as texts.
struct TextOptions {
    TextStyle style;
    std::optional<std::string> precision;
    bool isTruncated = false;
    Order order = Order::Unknown;
    bool isVerbose = false;

    [[nodiscard]] bool HaveStyle() const {
        return style.isDisplay || style.northResolution || style.eastResolution || precision;
    }
    // Whether an option applies to the texts of the input.
    [[nodiscard]] bool AreForReading() const { return order != Order::Unknown || isVerbose; }
};

struct ConvertOptions {
    std::vector<std::string> files;
    std::vector<std::string> position;  // in words
    std::string from = "WGS84";
    std::vector<std::string> to;
    std::optional<std::int32_t> zone;
    bool json = false;
    std::optional<std::string> input;
    std::optional<std::string> output;
    std::vector<std::string> columns;
    std::vector<std::string> with;
    FileOptions lines;
    TextOptions text;
};

constexpr const char* CONVERGENCE = "convergence";
constexpr const char* SCALE = "scale";

// --json reports on lines, whatever the extension of the file.
Form FormOf(const std::string& file, const ConvertOptions& options) {
    if (options.input) return FormByName(*options.input);
    return options.json ? Form::LINES : FormOfFile(file);
}

// In the order of the files.
std::vector<Form> FormsOf(const ConvertOptions& options) {
    std::vector<Form> forms;
    for (const std::string& file : options.files)
        forms.push_back(FormOf(file, options));
    return forms;
}

Form OutputForm(const ConvertOptions& options) {
    return options.output ? FormByName(*options.output) : FormsOf(options).front();
}

// A conversion from lines to lines.
bool AreLinesOnly(const ConvertOptions& options) {
    const std::vector<Form> forms = FormsOf(options);
    return OutputForm(options) == Form::LINES &&
           std::all_of(forms.begin(), forms.end(), [](Form form) { return form == Form::LINES; });
}

// The error in a target of the command line; empty for a valid target.
std::string CheckTarget(const std::string& target) {
    std::string wrong = WrongReference(target);
    if (!wrong.empty()) return wrong;
    return IsPixel(ReferenceByName(target, DATUM_WGS84)->system) ? "conversion to pixels requires a map" : "";
}

// With a system, the lines hold texts; with a datum only, degrees.
bool NamesSystem(const std::string& from) {
    return !DatumByName(from) && TypedReferenceByName(from, DATUM_WGS84).has_value();
}

std::string CheckFrom(const std::string& from) {
    if (DatumByName(from) || WrongTypedReference(from).empty()) {
        const bool isPixel = NamesSystem(from) && IsPixel(TypedReferenceByName(from, DATUM_WGS84)->system);
        return isPixel ? "conversion of pixels requires a map" : "";
    }
    if (SystemByName(from.substr(0, from.find_first_of(":@"))) || from.find('@') != std::string::npos)
        return WrongTypedReference(from);
    return "unknown datum or system " + Quote(from) +
           "; `tessara datums` and `tessara systems` list all names";
}

bool HasZone(const Reference& target, std::int32_t zone) {
    return target.parameters.empty() && WantedZone(target.system, zone).has_value();
}

std::vector<Reference> Targets(const ConvertOptions& options, std::int32_t datum) {
    std::vector<Reference> targets;
    for (const std::string& target : options.to)
        targets.push_back(*ReferenceByName(target, datum));
    if (targets.empty()) targets.push_back({.datum = DATUM_WGS84, .system = KOORD_GEODEZ});
    for (Reference& target : targets) {
        if (options.zone && HasZone(target, *options.zone))
            target.parameters.push_back(*WantedZone(target.system, *options.zone));
    }
    return targets;
}

// The error in --zone; empty for a valid zone.
std::string WrongZone(const ConvertOptions& options) {
    if (!options.zone) return {};
    std::string ranges;
    for (const std::string& name : options.to) {
        const Reference target = *ReferenceByName(name, DATUM_WGS84);
        if (HasZone(target, *options.zone)) return {};
        const std::string range = ZonesOf(target.system);
        if (!range.empty())
            ranges += (ranges.empty() ? ": " : ", ") + SystemName(target.system) + " has " + range;
    }
    return "--zone " + std::to_string(*options.zone) + " applies to no target" + ranges;
}

// Degrees count as texts, too, if --order or --verbose applies to them.
bool AreTexts(const ConvertOptions& options) {
    return NamesSystem(options.from) || options.text.AreForReading();
}

// The reference of the input: with a datum only, degrees.
Wanted WantedOf(const ConvertOptions& options) {
    if (NamesSystem(options.from))
        return {*TypedReferenceByName(options.from, DATUM_WGS84), options.text.order};
    return {{.datum = *DatumByName(options.from), .system = KOORD_GEODEZ}, options.text.order};
}

TextStyle StyleOf(const TextOptions& options) {
    TextStyle style = options.style;
    if (options.precision) style.reference = {*DigitsOfSide(*options.precision), options.isTruncated};
    return style;
}

RecordConversion ConversionOf(const ConvertOptions& options) {
    RecordConversion conversion;
    const Wanted wanted = WantedOf(options);
    conversion.datum = wanted.reference.datum;
    if (AreTexts(options)) conversion.from = wanted;
    if (conversion.from || options.text.HaveStyle()) conversion.texts = StyleOf(options.text);
    conversion.output = OutputForm(options);
    conversion.isReport = options.json;
    conversion.to = Targets(options, conversion.datum);
    // The geometry of GeoJSON holds these degrees.
    if (options.to.empty() && conversion.output == Form::GEOJSON) conversion.to.clear();
    conversion.withConvergence = IsAmong(CONVERGENCE, options.with);
    conversion.withScale = IsAmong(SCALE, options.with);
    conversion.isVerbose = options.text.isVerbose;
    conversion.onError = options.lines.WhatOnError();
    return conversion;
}

// A position of the command line has any system, unless --from names one.
ExitCode ConvertPosition(const ConvertOptions& options) {
    RecordConversion conversion = ConversionOf(options);
    conversion.from = WantedOf(options);
    if (!NamesSystem(options.from)) conversion.from->reference.system = NO_SYSTEM;
    const bool areTexts = NamesSystem(options.from) || options.text.HaveStyle() || options.json;
    conversion.texts = areTexts ? std::optional(StyleOf(options.text)) : std::nullopt;
    return ConvertTypedPosition(options.position, conversion);
}

ExitCode Convert(const ConvertOptions& options) {
    if (!options.position.empty()) return ConvertPosition(options);
    FileRecords records{ConversionOf(options),
                        [&options](const std::string& file) { return FormOf(file, options); },
                        options.columns};
    return ConvertRecordFiles({options.files, options.lines.rejects, options.lines.jobs}, records);
}

bool HasGrid(const std::vector<std::string>& targets) {
    return std::any_of(targets.begin(), targets.end(), [](const std::string& target) {
        return Grid_HasFactors(ReferenceByName(target, DATUM_WGS84)->system);
    });
}

// The error in a combination of options; empty for a valid one.
std::string WrongCombination(const ConvertOptions& options) {
    const std::vector<Form> forms = FormsOf(options);
    const auto isAny = [&forms](Form form) {
        return std::find(forms.begin(), forms.end(), form) != forms.end();
    };
    const bool areTexts = AreTexts(options);
    if (!options.with.empty() && !HasGrid(options.to))
        return "--with requires a grid as target, such as --to UTM";
    if (std::string zone = WrongZone(options); !zone.empty()) return zone;
    if (options.text.isTruncated && !options.text.precision) return "--truncate requires --precision";
    if (!options.position.empty()) {
        const bool isForFiles = options.input || options.output || options.lines.rejects ||
                                !options.columns.empty() || options.files != std::vector<std::string>{"-"};
        return isForFiles ? "a position on the command line cannot be combined with files or their options"
                          : "";
    }
    if (options.text.AreForReading() && !NamesSystem(options.from) && !AreLinesOnly(options))
        return "--order and --verbose apply to texts; name the system with --from";
    if (options.json && !AreLinesOnly(options))
        return "--json applies to lines; use --output jsonl for records";
    if (isAny(Form::GEOJSON) && (areTexts || DatumByName(options.from) != DATUM_WGS84))
        return "GeoJSON is in degrees on WGS84; omit --from";
    if (options.columns.size() == 3 && areTexts) return "texts have no height; expected --columns NORTH,EAST";
    if (options.columns.size() == 1 && !areTexts)
        return "expected --columns LATITUDE,LONGITUDE[,HEIGHT]; for one column of texts, name the system "
               "with --from";
    if (!options.columns.empty() && !areTexts && isAny(Form::LINES))
        return "lines of degrees have no named columns; use --input csv";
    const bool areMixed =
        std::any_of(forms.begin(), forms.end(), [&](Form form) { return form != forms.front(); });
    if (options.lines.rejects && areMixed)
        return "--rejects requires inputs of one format; convert each format separately";
    return {};
}

void AddTextOptions(Command command, TextOptions& options) {
    const std::string group = "Texts";
    command.AddFlag("--display", options.style.isDisplay, "Write display texts, such as 48°08'14.996''N")
        .Group(group);
    command
        .Add("--north-precision", options.style.northResolution,
             "Set the resolution of north texts, in the unit of the target (degrees or metres)")
        .Type("RESOLUTION")
        .Above0()
        .Group(group);
    command.Add("--east-precision", options.style.eastResolution, "Set the resolution of east texts")
        .Type("RESOLUTION")
        .Above0()
        .Group(group);
    const auto isSide = [](const std::string& side) {
        return DigitsOfSide(side) ? "" : "expected 1m, 10m, 100m, 1km, 10km or 100km";
    };
    command
        .Add("--precision", options.precision,
             "Write military references as one text, for squares with sides of this length")
        .Type("1m|10m|100m|1km|10km|100km")
        .CheckedBy(isSide)
        .Group(group);
    command
        .AddFlag("--truncate", options.isTruncated,
                 "Write the square that contains the position, not the one with the nearest corner")
        .Group(group);
    AddOrder(command, options.order).Group(group);
    command.AddFlag("--verbose", options.isVerbose, "Report on standard error how each text was read")
        .Group(group);
}

void AddFormOptions(Command command, ConvertOptions& options) {
    const std::string group = "Formats";
    const std::vector<std::string> forms(std::begin(FORM_NAMES), std::end(FORM_NAMES));
    AddChoice(
        command, "--input", options.input, forms,
        "Format of the input files. By default it follows the file extension: .csv, .tsv, .jsonl or .ndjson, "
        ".geojson or .json; other files hold lines")
        .Group(group);
    AddChoice(command, "--output", options.output, forms,
              "Format of the output; by default that of the first file")
        .Group(group);
    command
        .Add("--columns", options.columns,
             "Names of the columns or members with the position: the north and the east text, a single text, "
             "or "
             "latitude, longitude and optionally height. In a file without a header, numbers such as 2,3 "
             "select the columns")
        .Type("NORTH,EAST[,HEIGHT]|TEXT")
        .SeparatedBy(',')
        .Count(1, 3)
        .OneValueEach()
        .Group(group);
    AddFileOptions(command, options.lines, group);
}

}  // namespace

void AddConvert(CLI::App& program, Action& action) {
    Command command(program, "convert", "Converts positions to other systems and datums", CONVERT_FOOTER);
    const auto options = std::make_shared<ConvertOptions>();
    command.Add("FILES", options->files, "Input files; '-' is standard input");
    command.Add("--from", options->from, "Datum of positions in degrees, or system and datum of texts")
        .Type("DATUM|SYSTEM[:PARAMETERS][@DATUM]|auto[@DATUM]")
        .ShowDefault()
        .CheckedBy(CheckFrom);
    command
        .Add("--to", options->to,
             "Target system; its datum is by default that of the input. Repeat the option for more targets. "
             "Without targets, the output is degrees on WGS84")
        .Type("SYSTEM[:PARAMETERS][@DATUM]")
        .OneValueEach()
        .CheckedBy(CheckTarget);
    command
        .Add("--with", options->with, "Add the meridian convergence, in degrees, or the scale of each grid")
        .Type("convergence,scale")
        .SeparatedBy(',')
        .OneValueEach()
        .OneOf({CONVERGENCE, SCALE});
    command.Add("--zone", options->zone, "Zone, strip or meridian of the targets, instead of the natural one")
        .Type("NUMBER");
    command
        .Add("--position", options->position,
             "Position to convert instead of files; the arguments after `--` are short for it")
        .Type("TEXT")
        .OneValueEach();
    command.AddFlag("--json", options->json,
                    "Write one JSON object per position, with all digits of the numbers");
    AddFormOptions(command, *options);
    AddTextOptions(command, options->text);
    command.OnCall(action, [options, command] {
        if (options->files.empty()) options->files = {"-"};
        if (const std::string wrong = WrongCombination(*options); !wrong.empty()) command.Refuse(wrong);
        return [options] { return Convert(*options); };
    });
}

}  // namespace tessara::program
