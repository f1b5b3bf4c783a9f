#include "files/degree_conversion.h"

#include "conversion/names.h"
#include "files/json.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

Json ToJson(const Result& result) {
    Json json{{"system", SystemName(result.target.system)}, {"datum", DatumName(result.target.datum)}};
    for (const Field& field : result.fields)
        std::visit([&](const auto& value) { json[field.name] = value; }, field.value);
    return json;
}

}  // namespace

DegreeConverter::DegreeConverter(const DegreeConversion& conversion)
    : json_(conversion.json), datum_(DatumName(conversion.datum)) {
    for (const Reference& target : conversion.to)
        conversions_.emplace_back(conversion.datum, target);
}

std::string DegreeConverter::Convert(std::string_view line, const Place& place, std::string* out) const {
    const Line read = ReadLine(line);
    if (!read.position) return read.error;

    Results all = ConvertToAll(conversions_, *read.position);
    if (!all.error.empty()) return all.error;
    AddHeights(*read.position, &all.results);
    *out += json_ ? JsonOf(place, *read.position, all.results) : LineOf(all.results);
    *out += '\n';
    return {};
}

std::string DegreeConverter::JsonOf(const Place& place, const Position& position,
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

}  // namespace tessara::program
