#include "conversion/results.h"

#include <optional>

namespace tessara::toolkit {
namespace {

std::optional<Result> ConvertTo(const Conversion& conversion, const Position& position) {
    const std::optional<CKoord> koord = conversion.Convert(position);
    if (!koord) return std::nullopt;
    Result result{conversion.Target(), FieldsOf(*koord)};
    if (!AreFinite(result.fields)) return std::nullopt;
    return result;
}

}  // namespace

Results ConvertToAll(const std::vector<Conversion>& conversions, const Position& position) {
    Results all;
    std::vector<Reference> missing;
    for (const Conversion& conversion : conversions) {
        if (std::optional<Result> result = ConvertTo(conversion, position)) {
            all.results.push_back(std::move(*result));
        } else {
            missing.push_back(conversion.Target());
        }
    }
    if (!missing.empty()) all.error = NotConvertibleTo(missing);
    return all;
}

void AddHeights(const Position& position, std::vector<Result>* results) {
    if (!position.height) return;
    for (Result& result : *results) {
        if (result.target.system != KOORD_ECEF) result.fields.push_back(HeightField(*position.height));
    }
}

std::string LineOf(const std::vector<Result>& results) {
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

std::string NotConvertibleTo(const std::vector<Reference>& targets) {
    std::string names;
    for (const Reference& target : targets)
        names += (names.empty() ? "" : ", ") + target.Name();
    return "not convertible to " + names;
}

}  // namespace tessara::toolkit
