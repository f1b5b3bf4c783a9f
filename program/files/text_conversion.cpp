#include "files/text_conversion.h"

#include "conversion/fields.h"
#include "conversion/names.h"
#include "conversion/results.h"
#include "files/json.h"
#include "files/toolkit_names.h"
#include "lines/utf8.h"
#include "tessara/host/text.h"

namespace tessara::program {
namespace {

// A system may have values for a position that aren't numbers; there is no such position in it then.
bool IsNumeric(const std::string& text) {
    return text.find("nan") == std::string::npos && text.find("inf") == std::string::npos;
}

// What a line has besides its position. Columns are called by the header, or by their places from 1 on.
Json OtherColumns(const std::vector<std::string>& columns, const LineFormat& format) {
    Json others = Json::object();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i == format.pair.north || i == format.pair.east) continue;
        AddMember(i < format.names.size() ? format.names[i] : std::to_string(i + 1), columns[i], &others);
    }
    return others;
}

}  // namespace

std::string ConvertHeader(const TextConversion& conversion, const LineFormat& format) {
    std::vector<std::string> names;
    for (const Reference& target : conversion.to) {
        const std::string suffix = conversion.to.size() > 1 ? " " + target.Name() : "";
        names.push_back(format.header[format.pair.north] + suffix);
        names.push_back(format.header[format.pair.east] + suffix);
    }
    return JoinColumns(ReplacePair(format.header, format.pair, names), format.separator);
}

TextConverter::TextConverter(const TextConversion& conversion)
    : conversion_(conversion),
      position_(conversion.from),
      coord_(CreateClassCoord()),
      text_(NewObject<host::Text>()) {
    for (const Reference& reference : conversion.to) {
        targets_.push_back(
            {reference, MakeReference(reference), IRef<ICoordinateString>(CreateClassCoordinateString())});
    }
}

std::string TextConverter::TextOf(const Target& target, bool isNorth) {
    using Operation = bool (ICoordinateString::*)(ITessaraString*);
    const Operation plain = isNorth ? &ICoordinateString::GetNorthText : &ICoordinateString::GetEastText;
    const Operation display =
        isNorth ? &ICoordinateString::GetNorthDisplayText : &ICoordinateString::GetEastDisplayText;
    // A failed display leaves the plain text, or an empty one.
    (target.string.Get()->*(conversion_.display ? display : plain))(text_.Get());
    return Latin1ToUtf8(text_->GetText());
}

std::optional<TargetTexts> TextConverter::ConvertTo(const Target& target) {
    position_.Held()->GetCoord(coord_.Get());
    if (!coord_->SetReference(target.libraryReference.Get())) return std::nullopt;
    if (!target.string->SetCoord(coord_.Get())) return std::nullopt;
    if (conversion_.northResolution) target.string->SetNorthPrecision(*conversion_.northResolution);
    if (conversion_.eastResolution) target.string->SetEastPrecision(*conversion_.eastResolution);

    TargetTexts texts{TextOf(target, true), TextOf(target, false), {}};
    if (!IsNumeric(texts.north) || !IsNumeric(texts.east)) return std::nullopt;
    IRef<ICoordInternal>(coord_)->GetKoord(&texts.koord);
    return texts;
}

std::string TextConverter::ConvertPosition(const std::string& north, const std::string& east,
                                           std::vector<TargetTexts>* results) {
    std::string wrong = position_.Read(north, east);
    if (!wrong.empty()) return wrong;

    std::vector<Reference> missing;
    for (const Target& target : targets_) {
        if (std::optional<TargetTexts> texts = ConvertTo(target)) {
            results->push_back(std::move(*texts));
        } else {
            missing.push_back(target.reference);
        }
    }
    return missing.empty() ? "" : NotConvertibleTo(missing);
}

std::string TextConverter::Convert(std::string_view line, const LineFormat& format, const Place& place,
                                   std::string* out) {
    const std::vector<std::string> columns = SplitColumns(line, format.separator);
    if (columns.size() <= std::max(format.pair.north, format.pair.east))
        return "has " + std::to_string(columns.size()) + (columns.size() == 1 ? " column" : " columns");
    std::vector<TargetTexts> results;
    std::string wrong = ConvertPosition(columns[format.pair.north], columns[format.pair.east], &results);
    if (!wrong.empty()) return wrong;

    if (conversion_.json) {
        *out += ToJson(columns, format, place, results);
    } else {
        std::vector<std::string> texts;
        for (TargetTexts& result : results) {
            texts.push_back(std::move(result.north));
            texts.push_back(std::move(result.east));
        }
        *out += JoinColumns(ReplacePair(columns, format.pair, texts), format.separator);
    }
    *out += '\n';
    return {};
}

std::string TextConverter::ToJson(const std::vector<std::string>& columns, const LineFormat& format,
                                  const Place& place, const std::vector<TargetTexts>& results) const {
    Json json{{"file", place.file},
              {"line", place.line},
              {"system", SystemName(conversion_.from.system)},
              {"datum", DatumName(conversion_.from.datum)},
              {"north", columns[format.pair.north]},
              {"east", columns[format.pair.east]}};
    if (Json others = OtherColumns(columns, format); !others.empty()) json["columns"] = std::move(others);
    json["results"] = Json::array();
    for (std::size_t i = 0; i < results.size(); ++i) {
        const Reference& target = conversion_.to[i];
        Json result{{"system", SystemName(target.system)},
                    {"datum", DatumName(target.datum)},
                    {"north", results[i].north},
                    {"east", results[i].east}};
        for (const Field& field : FieldsOf(results[i].koord))
            std::visit([&](const auto& value) { result["fields"][field.name] = value; }, field.value);
        json["results"].push_back(result);
    }
    return Dump(json);
}

}  // namespace tessara::program
