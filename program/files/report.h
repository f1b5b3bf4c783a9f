// An object of JSON about each line: where it stands, what it says, and what that is in each target.
#pragma once

#include <string>

#include "files/record_conversion.h"

namespace tessara::program {

// Without results they are null.
void AppendReport(const RecordConversion& conversion, const Layout& layout, const Record& record,
                  const Results* results, std::string* json);

}  // namespace tessara::program
