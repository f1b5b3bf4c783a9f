// The forms of files of positions.
#pragma once

#include <string>

namespace tessara::program {

enum class Form { LINES, CSV, JSONL, GEOJSON };

// The names of the forms, in their order.
inline constexpr const char* FORM_NAMES[] = {"lines", "csv", "jsonl", "geojson"};

// The form by one of the names.
[[nodiscard]] Form FormByName(const std::string& name);

// The form that the ending of a file's name tells; lines where it tells none.
[[nodiscard]] Form FormOfFile(const std::string& file);

}  // namespace tessara::program
