// The forms of files of positions.
#pragma once

#include <string>

namespace tessara::program {

enum class Form { LINES, CSV, TSV, JSONL, GEOJSON };

// The names of the forms, in their order.
inline constexpr const char* FORM_NAMES[] = {"lines", "csv", "tsv", "jsonl", "geojson"};

// The form by one of the names.
[[nodiscard]] Form FormByName(const std::string& name);

// The form that the ending of a file's name stands for; lines where it stands for none.
[[nodiscard]] Form FormOfFile(const std::string& file);

// Whether its records are columns with separators between them.
[[nodiscard]] constexpr bool IsTable(Form form) {
    return form == Form::CSV || form == Form::TSV;
}

// Whether its values are numbers and strings of JSON.
[[nodiscard]] constexpr bool IsJson(Form form) {
    return form == Form::JSONL || form == Form::GEOJSON;
}

}  // namespace tessara::program
