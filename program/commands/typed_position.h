// Positions typed on the command line.
#pragma once

#include <string>
#include <vector>

#include "files/record_conversion.h"
#include "run/exit_code.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// The reason why a text is rejected, and the text with the piece in question underlined.
[[nodiscard]] std::string ExplainFault(const TypedResult& result, const std::vector<std::string>& words);

// Writes the position in each target, as a line or as a JSON object.
[[nodiscard]] ExitCode ConvertTypedPosition(const std::vector<std::string>& words,
                                            const RecordConversion& conversion);

}  // namespace tessara::program
