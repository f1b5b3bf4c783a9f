// tessara convert
#include <algorithm>
#include <iterator>
#include <memory>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "commands/typed_position.h"
#include "conversion/names.h"
#include "conversion/quote.h"
#include "conversion/references.h"
#include "files/forms.h"
#include "files/record_files.h"
#include "run/toolkit_names.h"
#include "tessara/kernel/convergence.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(Reads lines `latitude longitude [height]` - degrees, positive north and east, and metres above the
ellipsoid - from the files, or from standard input where there are none or where one is called '-'.
Blank lines are skipped, and so is what follows a '#'. Anything else behind the position is passed through.

Writes one line for a position: for each target its fields, and the height where the line gave one; behind
them the rest of the line. The targets stand apart by a tab, the fields by a blank; `tessara systems` lists
the fields of a system. With --display or a precision each target is a north text and an east text instead,
apart by a tab, and the height stands behind them as a third column.

Where --from names a system, or `auto` for any, a line has columns instead: the north text and the east text
of a position, or one text with both, and any others, which are kept. They stand apart by tabs, semicolons or
commas, and the texts of the targets take the place of those read. A position may be typed as people do:
  48.1375, 11.5755    48,1375 11,5755    N 48 8 15, E 11 34 32    48°08'15"N 11°34'32"E
  32U 691602 5334791    32N 691602 5334791    32UPU9160234791    32U PU 916 348 (to 100 m)
All of a text is read or it is refused with a reason; what has two meanings is refused with both. --verbose says
what each was read as. Two bare numbers in one text are taken in the order that gives a position, if only one
does; in two texts the north comes first. The texts of GK-AT need GK-AT:meridian=28, 31 or 34.

Behind `--` stands one position, of any system unless --from names one.

Files of other forms hold records; --input and --output name the form, or the ending of a file does:
  csv      a header, then a record a line; quotes around a column may hold separators and line ends
  tsv      the same with tabs
  jsonl    an object a line
  geojson  a FeatureCollection, a Feature or a geometry of any type, on WGS84, longitude first
In a record the position stands in `latitude` (or `lat`), `longitude` (`lon`, `lng`, `long`) and `height`, or
in the texts `north` and `east` or the one `text`, unless --columns names others. The results take its place, and all else is
kept as it is; a result whose name any record of the file has gets the target behind it. GeoJSON has the
position on WGS84 as its geometry, and the results for each --to among the properties; those of a line or
polygon nest as its coordinates do. Lines and tables have a line for each position of it. As lines only the
results are written. A line, record or feature has 16 MiB at most.

What can't be used is reported on standard error as `FILE:LINE: what is wrong`, a feature of GeoJSON by its
number, and the exit status is 1; all others are written. --on-error keep writes a placeholder for it: a `*`
for each target of a line, empty columns, null; as lines, blank ones and comments stay then as well, so that
they are as many as before. On a terminal, work of more than two seconds shows on standard error how many
lines are done, how many a second, and the time left.

Examples:
  tessara convert --to UTM -- 48.1375 11.5755              gives 32 N 691602.6597 5334791.1445
  tessara convert --to UTM --zone 33 -- 48.1375 11.5755    the same in zone 33
  tessara convert --to MGRS --precision 10m -- 48.1375 11.5755
  tessara convert --to TM:lon0=9,k=0.9996,fe=500000 positions.txt
  tessara convert --from auto --to UTM --verbose typed.txt
  tessara convert --to UTMREF --to GK@GER positions.txt    two targets
  tessara convert --from MGI --to BMN positions.txt        without a change of datum
  tessara convert --from GER positions.txt                 to degrees on WGS84
  tessara convert --to UTM --with convergence,scale positions.txt
  echo 'N 5334791;32 691602' | tessara convert --from UTM --to UTMREF --display
  tessara convert --from UTMREF --columns north,east --to GEODEZ sites.csv
  tessara convert --input csv --columns 2,3 --to UTM headerless.csv
  tessara convert --to UTM --rejects bad.csv sites.csv > utm.csv
  tessara convert --output geojson sites.csv > sites.geojson
  tessara convert --from UTM --to UTMREF --input jsonl < typed.jsonl
  tessara convert --json --to UTM positions.txt | jq '.results[0].easting')";

// How positions are read and written as texts.
struct TextOptions {
    TextStyle style;
    std::optional<std::string> precision;
    bool isTruncated = false;
    Order order = Order::Unknown;
    bool isVerbose = false;

    [[nodiscard]] bool HaveStyle() const {
        return style.isDisplay || style.northResolution || style.eastResolution || precision;
    }
    // Whether they say something about the positions that are read.
    [[nodiscard]] bool AreForReading() const { return order != Order::Unknown || isVerbose; }
};

struct Options {
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

// The form of each file. An object of --json tells about a line.
Form FormOf(const std::string& file, const Options& options) {
    if (options.input) return FormByName(*options.input);
    return options.json ? Form::LINES : FormOfFile(file);
}

// In the order of the files.
std::vector<Form> FormsOf(const Options& options) {
    std::vector<Form> forms;
    for (const std::string& file : options.files)
        forms.push_back(FormOf(file, options));
    return forms;
}

Form OutputForm(const Options& options) {
    return options.output ? FormByName(*options.output) : FormsOf(options).front();
}

// Lines to lines need no records.
bool AreLinesOnly(const Options& options) {
    const std::vector<Form> forms = FormsOf(options);
    return OutputForm(options) == Form::LINES &&
           std::all_of(forms.begin(), forms.end(), [](Form form) { return form == Form::LINES; });
}

// What is wrong with a target on the command line; empty if nothing is.
std::string CheckTarget(const std::string& target) {
    std::string wrong = WrongReference(target);
    if (!wrong.empty()) return wrong;
    return IsPixel(ReferenceByName(target, DATUM_WGS84)->system) ? "a position becomes a pixel by a map only"
                                                                 : "";
}

// Whether --from names a system, and with it the form of the lines.
bool NamesSystem(const std::string& from) {
    return !DatumByName(from) && TypedReferenceByName(from, DATUM_WGS84).has_value();
}

std::string CheckFrom(const std::string& from) {
    if (DatumByName(from) || WrongTypedReference(from).empty()) {
        const bool isPixel = NamesSystem(from) && IsPixel(TypedReferenceByName(from, DATUM_WGS84)->system);
        return isPixel ? "a pixel becomes a position by a map only" : "";
    }
    if (SystemByName(from.substr(0, from.find_first_of(":@"))) || from.find('@') != std::string::npos)
        return WrongTypedReference(from);
    return "no datum is called " + Quote(from) +
           "; `tessara datums` and `tessara systems` list what there is";
}

bool HasZone(const Reference& target, std::int32_t zone) {
    return target.parameters.empty() && WantedZone(target.system, zone).has_value();
}

std::vector<Reference> Targets(const Options& options, std::int32_t datum) {
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

bool Has(const std::vector<std::string>& words, const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

// What is wrong with the wanted zone; empty if nothing is.
std::string WrongZone(const Options& options) {
    if (!options.zone) return {};
    std::string ranges;
    for (const std::string& name : options.to) {
        const Reference target = *ReferenceByName(name, DATUM_WGS84);
        if (HasZone(target, *options.zone)) return {};
        const std::string range = ZonesOf(target.system);
        if (!range.empty())
            ranges += (ranges.empty() ? ": " : ", ") + SystemName(target.system) + " has " + range;
    }
    return "--zone " + std::to_string(*options.zone) + " is a zone of no target" + ranges;
}

// Whether positions are read as texts. Degrees are where there is more to say than that they are.
bool AreTexts(const Options& options) {
    return NamesSystem(options.from) || options.text.AreForReading();
}

// What the positions are read as: a system, or degrees where there is just a datum.
Wanted WantedOf(const Options& options) {
    if (NamesSystem(options.from))
        return {*TypedReferenceByName(options.from, DATUM_WGS84), options.text.order};
    return {{.datum = *DatumByName(options.from), .system = KOORD_GEODEZ}, options.text.order};
}

TextStyle StyleOf(const TextOptions& options) {
    TextStyle style = options.style;
    if (options.precision) style.reference = {*DigitsOfSide(*options.precision), options.isTruncated};
    return style;
}

RecordConversion ConversionOf(const Options& options) {
    RecordConversion conversion;
    const Wanted wanted = WantedOf(options);
    conversion.datum = wanted.reference.datum;
    if (AreTexts(options)) conversion.from = wanted;
    if (conversion.from || options.text.HaveStyle()) conversion.texts = StyleOf(options.text);
    conversion.output = OutputForm(options);
    conversion.isReport = options.json;
    conversion.to = Targets(options, conversion.datum);
    // The points of GeoJSON are degrees on WGS84 anyway.
    if (options.to.empty() && conversion.output == Form::GEOJSON) conversion.to.clear();
    conversion.withConvergence = Has(options.with, CONVERGENCE);
    conversion.withScale = Has(options.with, SCALE);
    conversion.isVerbose = options.text.isVerbose;
    conversion.onError = options.lines.WhatOnError();
    return conversion;
}

// A position on the command line: of any system, unless one is named.
ExitCode ConvertPosition(const Options& options) {
    RecordConversion conversion = ConversionOf(options);
    conversion.from = WantedOf(options);
    if (!NamesSystem(options.from)) conversion.from->reference.system = NO_SYSTEM;
    const bool areTexts = NamesSystem(options.from) || options.text.HaveStyle() || options.json;
    conversion.texts = areTexts ? std::optional(StyleOf(options.text)) : std::nullopt;
    return ConvertTypedPosition(options.position, conversion);
}

ExitCode Convert(const Options& options) {
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

// What doesn't go together; empty if all does.
std::string WrongCombination(const Options& options) {
    const std::vector<Form> forms = FormsOf(options);
    const auto isAny = [&forms](Form form) {
        return std::find(forms.begin(), forms.end(), form) != forms.end();
    };
    const bool areTexts = AreTexts(options);
    if (!options.with.empty() && !HasGrid(options.to))
        return "--with says something about grids: name one with --to, such as UTM";
    if (std::string zone = WrongZone(options); !zone.empty()) return zone;
    if (options.text.isTruncated && !options.text.precision) return "--truncate needs --precision";
    if (!options.position.empty()) {
        const bool isForFiles = options.input || options.output || options.lines.rejects ||
                                !options.columns.empty() || options.files != std::vector<std::string>{"-"};
        return isForFiles ? "a position on the command line takes no files, and no options for them" : "";
    }
    if (options.text.AreForReading() && !NamesSystem(options.from) && !AreLinesOnly(options))
        return "--order and --verbose are for texts: name their system with --from";
    if (options.json && !AreLinesOnly(options)) return "--json tells about lines; try --output jsonl";
    if (isAny(Form::GEOJSON) && (areTexts || DatumByName(options.from) != DATUM_WGS84))
        return "GeoJSON is in degrees on WGS84: leave --from out";
    if (options.columns.size() == 3 && areTexts) return "texts have no height: --columns takes NORTH,EAST";
    if (options.columns.size() == 1 && !areTexts)
        return "--columns takes LATITUDE,LONGITUDE[,HEIGHT]; one column is for texts: name their system with "
               "--from";
    if (!options.columns.empty() && !areTexts && isAny(Form::LINES))
        return "lines of degrees have no columns: try --input csv";
    const bool areMixed =
        std::any_of(forms.begin(), forms.end(), [&](Form form) { return form != forms.front(); });
    if (options.lines.rejects && areMixed)
        return "--rejects is one file, of the form of the input: convert one form at a time";
    return {};
}

void AddTextOptions(CLI::App& command, TextOptions& options) {
    const std::string group = "Texts";
    command.add_flag("--display", options.style.isDisplay, "Write the forms for a screen")->group(group);
    command
        .add_option("--north-precision", options.style.northResolution,
                    "Resolution of the north texts, in units of the target (degrees, metres)")
        ->type_name("RESOLUTION")
        ->check(CLI::Validator(CLI::PositiveNumber).description(""))
        ->group(group);
    command.add_option("--east-precision", options.style.eastResolution, "The same for the east texts")
        ->type_name("RESOLUTION")
        ->check(CLI::Validator(CLI::PositiveNumber).description(""))
        ->group(group);
    const auto isSide = [](const std::string& side) {
        return DigitsOfSide(side) ? "" : "sides of squares are 1m, 10m, 100m, 1km, 10km and 100km";
    };
    command
        .add_option("--precision", options.precision,
                    "Write military references as one string, of squares with this side")
        ->type_name("1m|10m|100m|1km|10km|100km")
        ->check(isSide)
        ->group(group);
    command
        .add_flag("--truncate", options.isTruncated,
                  "Write the square that the position lies in, not the one whose corner is nearest")
        ->group(group);
    AddOrder(command, options.order);
    command.get_option("--order")->group(group);
    command.add_flag("--verbose", options.isVerbose, "Say on standard error what each text was read as")
        ->group(group);
}

void AddFormOptions(CLI::App& command, Options& options) {
    const std::string group = "Forms";
    const std::vector<std::string> forms(std::begin(FORM_NAMES), std::end(FORM_NAMES));
    AddChoice(
        command, "--input", options.input, forms,
        "Form of the files. Without it the endings of their names count: .csv, .tsv, .jsonl or .ndjson, "
        ".geojson or .json, else lines")
        ->group(group);
    AddChoice(command, "--output", options.output, forms,
              "Form of what is written; without it, that of the first file")
        ->group(group);
    command
        .add_option(
            "--columns", options.columns,
            "The columns or members with the positions, by their names: the two texts or the one that has "
            "both, or latitude and longitude and perhaps the height. Columns can be named by their places, "
            "as 2,3; the file has no "
            "header then")
        ->type_name("NORTH,EAST[,HEIGHT]|TEXT")
        ->delimiter(',')
        ->expected(1, 3)
        ->allow_extra_args(false)
        ->group(group);
    AddFileOptions(command, options.lines, group);
}

}  // namespace

void AddConvert(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("convert", "Converts positions to other systems and datums");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command->add_option("FILES", options->files, "Files to read; '-' is standard input");
    command
        ->add_option("--from", options->from,
                     "Datum of the positions that are read; or the system of texts, and their datum")
        ->type_name("DATUM|SYSTEM[:PARAMETERS][@DATUM]|auto[@DATUM]")
        ->capture_default_str()
        ->check(CheckFrom);
    command
        ->add_option(
            "--to", options->to,
            "Target; on the datum of the positions where none is named. May be given several times. Without "
            "any, positions are written as degrees on WGS84")
        ->type_name("SYSTEM[:PARAMETERS][@DATUM]")
        ->allow_extra_args(false)
        ->check(CheckTarget);
    command
        ->add_option("--with", options->with,
                     "Write the convergence of the meridians, in degrees, or the scale of each grid as well")
        ->type_name("convergence,scale")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(IsOneOf({CONVERGENCE, SCALE}));
    command
        ->add_option("--zone", options->zone,
                     "The zone, strip or meridian of the targets, instead of the natural one")
        ->type_name("NUMBER");
    command
        ->add_option("--position", options->position,
                     "A position to convert, instead of files; also behind `--`")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    command->add_flag("--json", options->json, "Write one JSON object for a position, numbers in full");
    AddFormOptions(*command, *options);
    AddTextOptions(*command, options->text);
    command->callback([options, &action] {
        if (options->files.empty()) options->files = {"-"};
        if (const std::string wrong = WrongCombination(*options); !wrong.empty())
            throw CLI::ValidationError("tessara convert", wrong);
        action = [options] { return Convert(*options); };
    });
}

}  // namespace tessara::program
