// The formats of files of positions.
#pragma once

#include <string>

namespace tessara::program {

enum class Form { LINES, CSV, TSV, JSONL, GEOJSON };

// The names of the formats, in the order of Form.
inline constexpr const char* FORM_NAMES[] = {"lines", "csv", "tsv", "jsonl", "geojson"};

// The format with one of these names.
[[nodiscard]] Form FormByName(const std::string& name);

// The format that belongs to the extension of a file; lines for an unknown extension.
[[nodiscard]] Form FormOfFile(const std::string& file);

// Whether its records consist of columns with separators.
[[nodiscard]] constexpr bool IsTable(Form form) {
    return form == Form::CSV || form == Form::TSV;
}

// Whether its values are JSON values.
[[nodiscard]] constexpr bool IsJson(Form form) {
    return form == Form::JSONL || form == Form::GEOJSON;
}

}  // namespace tessara::program
