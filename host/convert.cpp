// tessara convert
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "arguments.h"
#include "commands.h"
#include "conversion.h"
#include "fields.h"
#include "names.h"
#include "positions.h"

namespace tessara::program {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* FOOTER =
    R"(Reads lines `latitude longitude [height]` - degrees, positive north and east, and metres above the
ellipsoid - from the files, or from standard input where there are none or where one is called '-'.
Blank lines are skipped, and so is what follows a '#'.

Writes one line for a position: for each target its fields, and the height where the line gave one. The
targets stand apart by a tab, the fields by a blank; `tessara systems` tells the fields of a system.

A line that can't be used is reported on standard error as `FILE:LINE: what is wrong`, and the exit
status is 1; all other lines are written.

Examples:
  echo 48.1375 11.5755 | tessara convert --to UTM          gives 32 N 691602.6597 5334791.1445
  tessara convert --to UTMREF --to GK@GER positions.txt    two targets
  tessara convert --from MGI --to BMN positions.txt        without a change of datum
  tessara convert --from GER positions.txt                 to degrees on WGS84
  tessara convert --json --to UTM positions.txt | jq '.results[0].easting')";

struct Options {
    std::vector<std::string> files;
    std::string from = "WGS84";
    std::vector<std::string> to;
    bool json = false;
};

// The two halves of SYSTEM[@DATUM].
struct TargetNames {
    std::string system;
    std::string datum;
};

TargetNames SplitTarget(const std::string& target, const std::string& defaultDatum) {
    const std::size_t at = target.find('@');
    if (at == std::string::npos) return {target, defaultDatum};
    return {target.substr(0, at), target.substr(at + 1)};
}

bool IsPixel(std::int32_t system) {
    return system == KOORD_LONGPIXEL || system == KOORD_FLOATPIXEL;
}

// What is wrong with a target on the command line; empty if nothing is.
std::string CheckTarget(const std::string& target) {
    const TargetNames names = SplitTarget(target, "WGS84");
    const std::optional<std::int32_t> system = SystemByName(names.system);
    if (!system) return "no system is called '" + names.system + "'; `tessara systems` lists them";
    if (IsPixel(*system)) return "a position becomes a pixel by a map only";
    if (!DatumByName(names.datum))
        return "no datum is called '" + names.datum + "'; `tessara datums` lists them";
    return {};
}

std::vector<Conversion> Conversions(const Options& options) {
    const std::int32_t from = *DatumByName(options.from);
    std::vector<Conversion> conversions;
    for (const std::string& target : options.to) {
        const TargetNames names = SplitTarget(target, options.from);
        conversions.emplace_back(from, Reference{*SystemByName(names.system), *DatumByName(names.datum)});
    }
    if (conversions.empty()) conversions.emplace_back(from, Reference{KOORD_GEODEZ, DATUM_WGS84});
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
          conversions_(Conversions(options)) {}

    void ConvertFile(const std::string& file) {
        if (file == "-") return ConvertStream(file, std::cin);
        std::ifstream stream(file);
        if (!stream || std::filesystem::is_directory(file)) return Report(file, "can't be read");
        ConvertStream(file, stream);
    }

    [[nodiscard]] ExitCode Code() const { return complete_ ? EXIT_DONE : EXIT_INCOMPLETE; }

  private:
    void ConvertStream(const std::string& file, std::istream& stream) {
        std::string text;
        for (int number = 1; std::getline(stream, text); ++number)
            ConvertLine(file, number, text);
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
            std::cout << ToText(results) << '\n';
        }
    }

    void WriteJson(const std::string& file, int number, const Position& position,
                   const std::vector<Result>& results) const {
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
        std::cout << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
    }

    void Report(const std::string& place, const std::string& error) {
        std::cerr << place << ": " << error << '\n';
        complete_ = false;
    }

    bool json_;
    std::string from_;
    std::vector<Conversion> conversions_;
    bool complete_ = true;
};

ExitCode Convert(const Options& options) {
    Converter converter(options);
    for (const std::string& file : options.files)
        converter.ConvertFile(file);
    if (options.files.empty()) converter.ConvertFile("-");
    return converter.Code();
}

}  // namespace

void AddConvert(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("convert", "Converts positions in degrees to other systems and datums");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command->add_option("FILES", options->files, "Files to read; '-' is standard input");
    AddDatum(*command, "--from", options->from, "Datum of the positions that are read");
    command
        ->add_option(
            "--to", options->to,
            "Target; on the datum of the positions where none is named. May be given several times. Without "
            "any, positions are written as degrees on WGS84")
        ->type_name("SYSTEM[@DATUM]")
        ->allow_extra_args(false)
        ->check(CheckTarget);
    command->add_flag("--json", options->json, "Write one JSON object for a position, numbers in full");
    command->callback([options, &action] { action = [options] { return Convert(*options); }; });
}

}  // namespace tessara::program
