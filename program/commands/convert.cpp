// tessara convert
#include <algorithm>
#include <iterator>
#include <memory>

#include "commands/commands.h"
#include "conversion/names.h"
#include "conversion/quote.h"
#include "conversion/references.h"
#include "conversion/text_forms.h"
#include "files/degree_files.h"
#include "files/forms.h"
#include "files/record_files.h"
#include "files/text_files.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(Reads lines `latitude longitude [height]` - degrees, positive north and east, and metres above the
ellipsoid - from the files, or from standard input where there are none or where one is called '-'.
Blank lines are skipped, and so is what follows a '#'.

Writes one line for a position: for each target its fields, and the height where the line gave one. The
targets stand apart by a tab, the fields by a blank; `tessara systems` tells the fields of a system.

Where --from names a system, a line has columns instead: the north text and the east text of a position,
in the form in which `tessara convert` writes them, and any others, which are kept. They stand apart by
tabs, semicolons or commas, and the texts of the targets take the place of the two. No ECEF, TM and GK-AT
can be typed, of UPS the north only, of GEOREF the degrees.

Files of other forms hold records; --input and --output name the form, or the ending of a file does:
  csv      a header, then a record a line; quotes around a column may hold separators and line ends
  jsonl    an object a line
  geojson  a FeatureCollection of Points on WGS84, longitude first
In a record the position stands in `latitude` (or `lat`), `longitude` (`lon`, `lng`, `long`) and `height`, or
in the texts `north` and `east`, unless --columns names others. The results take its place, and all else is
kept; a name that is taken gets the target behind it. GeoJSON has the position on WGS84 as its point, and the
results for each --to among the properties. As lines only the results are written.

A line that can't be used is reported on standard error as `FILE:LINE: what is wrong`, a feature of GeoJSON by
its number, and the exit status is 1; all others are written. On a terminal, work of more than two seconds
shows on standard error how many lines are done, how many a second, and the time left.

Examples:
  echo 48.1375 11.5755 | tessara convert --to UTM          gives 32 N 691602.6597 5334791.1445
  tessara convert --to UTMREF --to GK@GER positions.txt    two targets
  tessara convert --from MGI --to BMN positions.txt        without a change of datum
  tessara convert --from GER positions.txt                 to degrees on WGS84
  echo 'N 5334791;32 691602' | tessara convert --from UTM --to UTMREF --display
  tessara convert --from UTMREF --columns north,east --to GEODEZ sites.csv
  tessara convert --to UTM --rejects bad.csv sites.csv > utm.csv
  tessara convert --output geojson sites.csv > sites.geojson
  tessara convert --from UTM --to UTMREF --input jsonl < typed.jsonl
  tessara convert --json --to UTM positions.txt | jq '.results[0].easting')";

// What works with texts only.
struct TextOptions {
    bool display = false;
    std::optional<double> northResolution;
    std::optional<double> eastResolution;

    [[nodiscard]] bool AreGiven() const { return display || northResolution || eastResolution; }
};

struct Options {
    std::vector<std::string> files;
    std::string from = "WGS84";
    std::vector<std::string> to;
    bool json = false;
    std::optional<std::string> input;
    std::optional<std::string> output;
    std::vector<std::string> columns;
    std::optional<std::string> rejects;
    unsigned jobs = 1;
    TextOptions text;
};

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
    return !DatumByName(from) && ReferenceByName(from, DATUM_WGS84).has_value();
}

std::string CheckFrom(const std::string& from) {
    if (DatumByName(from)) return {};
    if (!SystemByName(from) && from.find('@') == std::string::npos)
        return "no datum is called " + Quote(from) +
               "; `tessara datums` and `tessara systems` list what there is";
    std::string wrong = WrongReference(from);
    if (!wrong.empty()) return wrong;
    const std::int32_t system = ReferenceByName(from, DATUM_WGS84)->system;
    if (IsPixel(system)) return "a pixel becomes a position by a map only";
    const std::string never = WhyNeverTyped(system);
    return never.empty() ? "" : SystemName(system) + " can't be typed: " + never;
}

std::vector<Reference> Targets(const Options& options, std::int32_t datum) {
    std::vector<Reference> targets;
    for (const std::string& target : options.to)
        targets.push_back(*ReferenceByName(target, datum));
    if (targets.empty()) targets.push_back({KOORD_GEODEZ, DATUM_WGS84});
    return targets;
}

InputFiles FilesOf(const Options& options) {
    return {options.files, options.rejects, options.jobs};
}

TextConversion TextsOf(const Options& options) {
    const Reference from = *ReferenceByName(options.from, DATUM_WGS84);
    const TextOptions& text = options.text;
    return {from,         Targets(options, from.datum), text.display,
            options.json, text.northResolution,         text.eastResolution};
}

ExitCode ConvertTexts(const Options& options) {
    TextLines lines{TextsOf(options), std::nullopt};
    if (!options.columns.empty()) lines.columns = {options.columns[0], options.columns[1]};
    return ConvertTextFiles(FilesOf(options), lines);
}

ExitCode ConvertRecords(const Options& options) {
    FileRecords records;
    RecordConversion& conversion = records.conversion;
    conversion.output = OutputForm(options);
    if (NamesSystem(options.from)) {
        conversion.texts = TextsOf(options);
        conversion.to = conversion.texts->to;
    } else {
        conversion.datum = *DatumByName(options.from);
        conversion.to = Targets(options, conversion.datum);
    }
    // The points of GeoJSON are degrees on WGS84 anyway.
    if (options.to.empty() && conversion.output == Form::GEOJSON) conversion.to.clear();
    records.formOf = [&options](const std::string& file) { return FormOf(file, options); };
    records.rejects = FormOf(options.files.front(), options);
    records.columns = options.columns;
    return ConvertRecordFiles(FilesOf(options), records);
}

ExitCode ConvertDegrees(const Options& options) {
    const std::int32_t datum = *DatumByName(options.from);
    return ConvertDegreeFiles(FilesOf(options), {datum, Targets(options, datum), options.json});
}

ExitCode Convert(const Options& options) {
    if (!AreLinesOnly(options)) return ConvertRecords(options);
    return NamesSystem(options.from) ? ConvertTexts(options) : ConvertDegrees(options);
}

// What doesn't go together; empty if all does.
std::string WrongCombination(const Options& options) {
    const std::vector<Form> forms = FormsOf(options);
    const auto isAny = [&forms](Form form) {
        return std::find(forms.begin(), forms.end(), form) != forms.end();
    };
    const bool areTexts = NamesSystem(options.from);
    if (options.text.AreGiven() && !areTexts)
        return "--display and --...-precision are for texts: name their system with --from";
    if (options.json && !AreLinesOnly(options)) return "--json tells about lines; try --output jsonl";
    if (isAny(Form::GEOJSON) && (areTexts || DatumByName(options.from) != DATUM_WGS84))
        return "GeoJSON is in degrees on WGS84: leave --from out";
    if (options.columns.size() == 3 && areTexts) return "texts have no height: --columns takes NORTH,EAST";
    if (!options.columns.empty() && !areTexts && isAny(Form::LINES))
        return "lines of degrees have no columns: try --input csv";
    const bool areMixed =
        std::any_of(forms.begin(), forms.end(), [&](Form form) { return form != forms.front(); });
    if (options.rejects && areMixed)
        return "--rejects is one file, of the form of the input: convert one form at a time";
    return {};
}

void AddTextOptions(CLI::App& command, TextOptions& options) {
    const std::string group = "Texts";
    command.add_flag("--display", options.display, "Write the forms for a screen")->group(group);
    command
        .add_option("--north-precision", options.northResolution,
                    "Resolution of the north texts, in units of the target (degrees, metres)")
        ->check(CLI::PositiveNumber)
        ->group(group);
    command.add_option("--east-precision", options.eastResolution, "The same for the east texts")
        ->check(CLI::PositiveNumber)
        ->group(group);
}

void AddFormOptions(CLI::App& command, Options& options) {
    const std::string group = "Forms";
    const CLI::IsMember isForm(std::vector<std::string>(std::begin(FORM_NAMES), std::end(FORM_NAMES)));
    const std::string forms = "lines|csv|jsonl|geojson";
    const auto addForm = [&](const char* name, std::optional<std::string>& form, const char* description) {
        command.add_option(name, form, description)
            ->check(CLI::Validator(isForm).description(""))
            ->type_name(forms)
            ->group(group);
    };
    addForm("--input", options.input,
            "Form of the files. Without it their names tell: .csv, .jsonl or .ndjson, .geojson or .json, "
            "else lines");
    addForm("--output", options.output, "Form of what is written; without it, that of the first file");
    command
        .add_option(
            "--columns", options.columns,
            "The columns or members with the positions, by their names: the two texts, or latitude and "
            "longitude and perhaps the height")
        ->type_name("NORTH,EAST[,HEIGHT]")
        ->delimiter(',')
        ->expected(2, 3)
        ->allow_extra_args(false)
        ->group(group);
    command.add_option("--rejects", options.rejects, "Write what can't be used to a file, unchanged")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--jobs", options.jobs, "How many cores to use")
        ->check(CLI::Range(1, 256))
        ->group(group);
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
        ->type_name("DATUM|SYSTEM[@DATUM]")
        ->capture_default_str()
        ->check(CheckFrom);
    command
        ->add_option(
            "--to", options->to,
            "Target; on the datum of the positions where none is named. May be given several times. Without "
            "any, positions are written as degrees on WGS84")
        ->type_name("SYSTEM[@DATUM]")
        ->allow_extra_args(false)
        ->check(CheckTarget);
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
