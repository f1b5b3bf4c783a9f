#include "files/record_conversion.h"

#include <algorithm>
#include <string_view>

#include "conversion/numbers.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr Reference POINT_REFERENCE{KOORD_GEODEZ, DATUM_WGS84};

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view BLANKS = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(BLANKS), text.size());
    return text.substr(begin, text.find_last_not_of(BLANKS) + 1 - begin);
}

// The degrees of a record, or what is wrong with them.
Line PositionOf(const Record& record) {
    if (record.position) return {record.position, {}};
    const auto textOf = [&](const std::string& name) {
        return name.empty() ? std::string() : std::string(TrimBlanks(TextOf(record.members[name])));
    };
    const std::string latitude = textOf(record.names.north);
    const std::string longitude = textOf(record.names.east);
    const std::string height = textOf(record.names.height);
    for (const std::string& wrong : {WrongLatitude(latitude), WrongLongitude(longitude),
                                     height.empty() ? std::string() : WrongNumber(height)}) {
        if (!wrong.empty()) return {std::nullopt, wrong};
    }
    return {Position{*ParseNumber(latitude), *ParseNumber(longitude), ParseNumber(height)}, {}};
}

// The targets, and for GeoJSON the point at their end.
std::vector<Reference> AllTargets(const RecordConversion& conversion) {
    std::vector<Reference> targets = conversion.to;
    if (conversion.output == Form::GEOJSON) targets.push_back(POINT_REFERENCE);
    return targets;
}

Position PointOf(const tagKOORD& record) {
    const auto degrees = Load<GeodezPayload>(record);
    return {degrees.latitude, degrees.longitude, std::nullopt};
}

Position PointOf(const Result& degrees, const std::optional<double>& height) {
    return {std::get<double>(degrees.fields[0].value), std::get<double>(degrees.fields[1].value), height};
}

Output Failure(const std::string& error) {
    Output output;
    output.error = error;
    return output;
}

}  // namespace

RecordConverter::RecordConverter(const RecordConversion& conversion)
    : conversion_(conversion), texts_(conversion.texts) {
    const std::vector<Reference> targets = AllTargets(conversion);
    if (texts_) {
        texts_->to = targets;
        textConverter_.emplace(*texts_);
    } else {
        for (const Reference& target : targets)
            degrees_.emplace_back(conversion.datum, target);
    }
}

Output RecordConverter::Convert(const Record& record) {
    if (!record.error.empty()) return Failure(record.error);
    return texts_ ? ConvertTexts(record) : ConvertDegrees(record);
}

Output RecordConverter::ConvertHeader(const Record& header) const {
    Values values;
    for (const Reference& target : conversion_.to) {
        if (texts_) {
            values.push_back({{header.names.north, ""}, {header.names.east, ""}});
        } else {
            values.push_back(ValuesOf(FieldsOf(MakeKoord(target.datum, target.system))));
        }
    }
    Output output;
    output.members = MembersWith(values, std::nullopt, header);
    return output;
}

Output RecordConverter::ConvertDegrees(const Record& record) const {
    const Line line = PositionOf(record);
    if (!line.position) return Failure(line.error);
    Results all = ConvertToAll(degrees_, *line.position);
    if (!all.error.empty()) return Failure(all.error);

    Output output;
    if (conversion_.output == Form::GEOJSON) {
        output.point = PointOf(all.results.back(), line.position->height);
        all.results.pop_back();
    }
    if (conversion_.output == Form::LINES) {
        AddHeights(*line.position, &all.results);
        output.line = LineOf(all.results);
        return output;
    }
    Values values;
    for (const Result& result : all.results)
        values.push_back(ValuesOf(result.fields));
    const bool isHeightNew = record.position && conversion_.output != Form::GEOJSON;
    output.members = MembersWith(values, isHeightNew ? line.position->height : std::nullopt, record);
    return output;
}

Output RecordConverter::ConvertTexts(const Record& record) {
    std::vector<TargetTexts> results;
    const std::string wrong = textConverter_->ConvertPosition(
        TextOf(record.members[record.names.north]), TextOf(record.members[record.names.east]), &results);
    if (!wrong.empty()) return Failure(wrong);

    Output output;
    if (conversion_.output == Form::GEOJSON) {
        output.point = PointOf(results.back().koord);
        results.pop_back();
    }
    Values values;
    for (const TargetTexts& texts : results) {
        values.push_back({{record.names.north, texts.north}, {record.names.east, texts.east}});
        output.line += (output.line.empty() ? "" : "\t") + texts.north + '\t' + texts.east;
    }
    output.members = MembersWith(values, std::nullopt, record);
    return output;
}

std::vector<RecordConverter::Value> RecordConverter::ValuesOf(const std::vector<Field>& fields) const {
    const bool areTexts = conversion_.output == Form::CSV;
    std::vector<Value> values;
    values.reserve(fields.size());
    for (const Field& field : fields) {
        values.push_back(
            {field.name, areTexts ? Json(field.Text())
                                  : std::visit([](const auto& value) { return Json(value); }, field.value)});
    }
    return values;
}

Json RecordConverter::MembersWith(const Values& values, const std::optional<double>& height,
                                  const Record& record) const {
    Json members = Json::object();
    const PositionNames& names = record.names;
    const auto isPosition = [&](const std::string& name) {
        const bool isInPoint = conversion_.output == Form::GEOJSON && name == names.height;
        return !record.position && (name == names.north || name == names.east || isInPoint);
    };
    // What is there already keeps its name.
    const auto put = [&](std::string name, const std::string& suffix, const Json& value) {
        while (members.contains(name) || (record.members.contains(name) && !isPosition(name)))
            name += suffix;
        AddMember(std::move(name), value, &members);
    };
    const auto putResults = [&] {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string suffix = " " + conversion_.to[i].Name();
            for (const Value& value : values[i])
                put(value.name + (values.size() > 1 ? suffix : ""), suffix, value.value);
        }
        if (height) put("height", " of the position", *height);
    };

    if (record.position) putResults();
    for (const auto& member : record.members.items()) {
        if (member.key() == names.north) putResults();
        if (!isPosition(member.key())) AddMember(member.key(), member.value(), &members);
    }
    return members;
}

}  // namespace tessara::program
