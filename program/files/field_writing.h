// Writes fields to lines, tables and JSON.
#pragma once

#include <string>

#include "conversion/fields.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// With the number of digits for lines.
void AppendText(const Field& field, std::string* out);

// As JSON values, with all digits.
void AppendJson(const Field& field, std::string* json);

}  // namespace tessara::program
