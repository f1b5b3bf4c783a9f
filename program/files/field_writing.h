// Fields as they stand in lines, in tables and in JSON.
#pragma once

#include <string>

#include "conversion/fields.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// With the digits that lines have.
void AppendText(const Field& field, std::string* out);

// In numbers, with all digits.
void AppendJson(const Field& field, std::string* json);

}  // namespace tessara::program
