// The JSON objects of --json: place and text of a line, and its position in each target.
#pragma once

#include <string>

#include "files/record_conversion.h"

namespace tessara::program {

// Missing results are written as null.
void AppendReport(const RecordConversion& conversion, const Layout& layout, const Record& record,
                  const Results* results, std::string* json);

}  // namespace tessara::program
