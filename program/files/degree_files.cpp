#include "files/degree_files.h"

#include "conversion/conversion.h"
#include "conversion/names.h"
#include "conversion/results.h"
#include "files/console.h"
#include "files/json.h"
#include "files/line_reader.h"

namespace tessara::program {
namespace {

std::vector<Conversion> Conversions(const DegreeFiles& options) {
    std::vector<Conversion> conversions;
    for (const Reference& target : options.to)
        conversions.emplace_back(options.datum, target);
    return conversions;
}

Json ToJson(const Result& result) {
    Json json{{"system", SystemName(result.target.system)}, {"datum", DatumName(result.target.datum)}};
    for (const Field& field : result.fields)
        std::visit([&](const auto& value) { json[field.name] = value; }, field.value);
    return json;
}

// Where a line stands.
struct LinePlace {
    const std::string& file;
    std::size_t line;
};

class DegreeConverter {
  public:
    DegreeConverter(const DegreeFiles& options, Console& console)
        : console_(console),
          json_(options.json),
          datum_(DatumName(options.datum)),
          conversions_(Conversions(options)) {}

    void ConvertStream(std::istream& stream, const std::string& file) {
        LineReader lines(stream);
        for (std::string text; lines.Next(&text);) {
            ConvertLine({file, lines.Number()}, text);
            console_.Advance(1, text.size() + 1);
        }
    }

  private:
    void ConvertLine(const LinePlace& place, const std::string& text) {
        const Line line = ReadLine(text);
        if (!line.error.empty()) return Reject(place, line.error, text);
        if (!line.position) return;

        Results all = ConvertToAll(conversions_, *line.position);
        if (!all.error.empty()) return Reject(place, all.error, text);
        AddHeights(*line.position, &all.results);
        console_.Write((json_ ? JsonOf(place, *line.position, all.results) : LineOf(all.results)) + '\n');
    }

    [[nodiscard]] std::string JsonOf(const LinePlace& place, const Position& position,
                                     const std::vector<Result>& results) const {
        Json json{{"file", place.file},
                  {"line", place.line},
                  {"datum", datum_},
                  {"latitude", position.latitude},
                  {"longitude", position.longitude}};
        if (position.height) json["height"] = *position.height;
        json["results"] = Json::array();
        for (const Result& result : results)
            json["results"].push_back(ToJson(result));
        return Dump(json);
    }

    void Reject(const LinePlace& place, const std::string& error, const std::string& line) {
        console_.Report(place.file + ":" + std::to_string(place.line) + ": " + error + '\n');
        console_.Reject(line + '\n');
    }

    Console& console_;
    bool json_;
    std::string datum_;
    std::vector<Conversion> conversions_;
};

}  // namespace

ExitCode ConvertDegreeFiles(const DegreeFiles& options) {
    Console console(options.files);
    if (!console.OpenRejects(options.rejects)) return EXIT_INCOMPLETE;
    DegreeConverter converter(options, console);
    console.ReadFiles(
        [&](std::istream& stream, const std::string& file) { converter.ConvertStream(stream, file); });
    return console.Finish();
}

}  // namespace tessara::program
