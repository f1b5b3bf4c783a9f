// From a record to what is written of it: the results stand where the position was, all else stays.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "conversion/conversion.h"
#include "conversion/results.h"
#include "files/records.h"
#include "files/text_conversion.h"
#include "files/toolkit_names.h"

namespace tessara::program {

struct RecordConversion {
    std::int32_t datum = DATUM_WGS84;     // of degrees
    std::optional<TextConversion> texts;  // where positions are texts; its targets are `to`
    std::vector<Reference> to;            // may be none for GeoJSON: the point tells the position
    Form output = Form::CSV;
};

// What is written.
struct Output {
    std::string error;  // or why nothing is
    Json members = Json::object();
    std::optional<Position> point;  // on WGS84, for GeoJSON
    std::string line;               // for lines
};

// Does the conversion for one thread.
class RecordConverter {
  public:
    explicit RecordConverter(const RecordConversion& conversion);

    [[nodiscard]] Output Convert(const Record& record);

    // What is written for records with the members of the header; its values are empty.
    [[nodiscard]] Output ConvertHeader(const Record& header) const;

  private:
    struct Value {
        std::string name;
        Json value;
    };
    // Of a target each, in the order of the targets.
    using Values = std::vector<std::vector<Value>>;

    [[nodiscard]] Output ConvertDegrees(const Record& record) const;
    [[nodiscard]] Output ConvertTexts(const Record& record);
    // In numbers for JSON; as texts for others, with the digits that lines have.
    [[nodiscard]] std::vector<Value> ValuesOf(const std::vector<Field>& fields) const;
    // `height` is one that no member has.
    [[nodiscard]] Json MembersWith(const Values& values, const std::optional<double>& height,
                                   const Record& record) const;

    const RecordConversion& conversion_;
    std::vector<Conversion> degrees_;
    std::optional<TextConversion> texts_;
    std::optional<TextConverter> textConverter_;
};

}  // namespace tessara::program
