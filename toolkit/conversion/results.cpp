#include "conversion/results.h"

#include "conversion/statuses.h"

namespace tessara::toolkit {

Results ConvertToAll(const std::vector<Conversion>& conversions, const Position& position) {
    Results all;
    std::vector<Missing> missing;
    for (const Conversion& conversion : conversions) {
        CKoord koord;
        const KoordStatus status = conversion.Convert(position, &koord);
        if (status == KOORD_OK) {
            all.results.push_back({conversion.Target(), FieldsOf(koord)});
        } else {
            missing.push_back({conversion.Target(), status});
        }
    }
    if (missing.empty()) return all;
    all.error = NotConvertibleTo(missing);
    all.code = StatusCode(missing.front().status);
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

std::string NotConvertibleTo(const std::vector<Missing>& targets) {
    std::string text;
    for (const auto& [target, status] : targets)
        text +=
            (text.empty() ? "not convertible to " : "; to ") + target.Name() + ": " + StatusReason(status);
    return text;
}

}  // namespace tessara::toolkit
