// tessara convert
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "console.h"
#include "conversion.h"
#include "fields.h"
#include "names.h"
#include "positions.h"
#include "references.h"
#include "text_files.h"
#include "text_forms.h"

namespace tessara::program {
namespace {

using Json = nlohmann::ordered_json;

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

A line that can't be used is reported on standard error as `FILE:LINE: what is wrong`, and the exit
status is 1; all other lines are written. On a terminal, work of more than two seconds shows on standard
error how many lines are done, how many a second, and the time left.

Examples:
  echo 48.1375 11.5755 | tessara convert --to UTM          gives 32 N 691602.6597 5334791.1445
  tessara convert --to UTMREF --to GK@GER positions.txt    two targets
  tessara convert --from MGI --to BMN positions.txt        without a change of datum
  tessara convert --from GER positions.txt                 to degrees on WGS84
  echo 'N 5334791;32 691602' | tessara convert --from UTM --to UTMREF --display
  tessara convert --from UTMREF --columns north,east --to GEODEZ sites.csv
  tessara convert --json --to UTM positions.txt | jq '.results[0].easting')";

// What works with texts only.
struct TextOptions {
    bool display = false;
    std::optional<double> northResolution;
    std::optional<double> eastResolution;
    std::vector<std::string> columns;
    std::optional<std::string> rejects;
    std::optional<unsigned> jobs;

    [[nodiscard]] bool AreGiven() const {
        return display || northResolution || eastResolution || !columns.empty() || rejects || jobs;
    }
};

struct Options {
    std::vector<std::string> files;
    std::string from = "WGS84";
    std::vector<std::string> to;
    bool json = false;
    TextOptions text;
};

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
        return "no datum is called '" + from + "'; `tessara datums` and `tessara systems` list what there is";
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

std::vector<Conversion> Conversions(const Options& options) {
    const std::int32_t from = *DatumByName(options.from);
    std::vector<Conversion> conversions;
    for (const Reference& target : Targets(options, from))
        conversions.emplace_back(from, target);
    return conversions;
}

// What is written of a position in one target.
struct Result {
    Reference target;
    std::vector<Field> fields;
};

std::optional<Result> ConvertTo(const Conversion& conversion, const Position& position) {
    const std::optional<CKoord> koord = conversion.Convert(position);
    if (!koord) return std::nullopt;
    Result result{conversion.Target(), FieldsOf(*koord)};
    // The height is within x, y and z.
    if (position.height && koord->type != KOORD_ECEF)
        result.fields.push_back(HeightField(koord->GetHeight()));
    if (!AreFinite(result.fields)) return std::nullopt;
    return result;
}

std::string ToText(const std::vector<Result>& results) {
    std::string text;
    for (const Result& result : results) {
        const char* separator = text.empty() ? "" : "\t";
        for (const Field& field : result.fields) {
            text += separator + field.Text();
            separator = " ";
        }
    }
    return text;
}

Json ToJson(const Result& result) {
    Json json{{"system", SystemName(result.target.system)}, {"datum", DatumName(result.target.datum)}};
    for (const Field& field : result.fields)
        std::visit([&](const auto& value) { json[field.name] = value; }, field.value);
    return json;
}

class Converter {
  public:
    explicit Converter(const Options& options)
        : json_(options.json),
          from_(DatumName(*DatumByName(options.from))),
          conversions_(Conversions(options)),
          console_(options.files) {}

    void ConvertFile(const std::string& file) {
        if (file == "-") return ConvertStream(file, std::cin);
        std::ifstream stream(file);
        if (!stream || std::filesystem::is_directory(file)) return Report(file, "can't be read");
        ConvertStream(file, stream);
    }

    [[nodiscard]] ExitCode Code() const { return console_.Code(); }

  private:
    void ConvertStream(const std::string& file, std::istream& stream) {
        std::string text;
        for (int number = 1; std::getline(stream, text); ++number) {
            ConvertLine(file, number, text);
            console_.Advance(1, text.size() + 1);
        }
    }

    void ConvertLine(const std::string& file, int number, const std::string& text) {
        const std::string place = file + ":" + std::to_string(number);
        const Line line = ReadLine(text);
        if (!line.error.empty()) return Report(place, line.error);
        if (!line.position) return;

        std::vector<Result> results;
        std::string missing;
        for (const Conversion& conversion : conversions_) {
            if (std::optional<Result> result = ConvertTo(conversion, *line.position)) {
                results.push_back(std::move(*result));
            } else {
                missing += (missing.empty() ? "" : ", ") + conversion.Target().Name();
            }
        }
        if (!missing.empty()) return Report(place, "not convertible to " + missing);
        if (json_) {
            WriteJson(file, number, *line.position, results);
        } else {
            console_.Write(ToText(results) + '\n');
        }
    }

    void WriteJson(const std::string& file, int number, const Position& position,
                   const std::vector<Result>& results) {
        Json json{{"file", file},
                  {"line", number},
                  {"datum", from_},
                  {"latitude", position.latitude},
                  {"longitude", position.longitude}};
        if (position.height) json["height"] = *position.height;
        json["results"] = Json::array();
        for (const Result& result : results)
            json["results"].push_back(ToJson(result));
        // The name of a file may be no UTF-8.
        console_.Write(json.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n');
    }

    void Report(const std::string& place, const std::string& error) {
        console_.Report(place + ": " + error + '\n');
    }

    bool json_;
    std::string from_;
    std::vector<Conversion> conversions_;
    Console console_;
};

ExitCode ConvertTexts(const Options& options) {
    const Reference from = *ReferenceByName(options.from, DATUM_WGS84);
    const TextOptions& text = options.text;
    TextFiles files;
    files.conversion = {from,         Targets(options, from.datum), text.display,
                        options.json, text.northResolution,         text.eastResolution};
    files.files = options.files;
    if (!text.columns.empty()) files.columns = {text.columns[0], text.columns[1]};
    files.rejects = text.rejects;
    files.jobs = text.jobs.value_or(1);
    return ConvertTextFiles(files);
}

ExitCode Convert(const Options& options) {
    if (NamesSystem(options.from)) return ConvertTexts(options);
    Converter converter(options);
    for (const std::string& file : options.files)
        converter.ConvertFile(file);
    if (options.files.empty()) converter.ConvertFile("-");
    return converter.Code();
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
    command
        .add_option("--columns", options.columns,
                    "The columns with the texts, by their names in the first line of the files")
        ->type_name("NORTH,EAST")
        ->delimiter(',')
        ->expected(2)
        ->group(group);
    command
        .add_option("--rejects", options.rejects, "Write the lines that can't be used to a file, unchanged")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--jobs", options.jobs, "How many cores to use")
        ->check(CLI::Range(1, 256))
        ->group(group);
}

}  // namespace

void AddConvert(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("convert", "Converts positions in degrees to other systems and datums");
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
    AddTextOptions(*command, options->text);
    command->callback([options, &action] {
        if (options->text.AreGiven() && !NamesSystem(options->from))
            throw CLI::ValidationError("--from", "texts are read by the system that --from names");

        action = [options] { return Convert(*options); };
    });
}

}  // namespace tessara::program
