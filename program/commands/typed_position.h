// A position that is typed on the command line.
#pragma once

#include <string>
#include <vector>

#include "files/record_conversion.h"
#include "run/exit_code.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Of two words the first is the north; other counts are one text.
[[nodiscard]] TypedResult ReadWords(const TypedReader& reader, const std::vector<std::string>& words);

// Why a position isn't read, and the piece of it underlined: lines for standard error or output.
[[nodiscard]] std::string ExplainFault(const TypedResult& result, const std::vector<std::string>& words);

// Writes what the position is in each target: a line, or an object of --json.
[[nodiscard]] ExitCode ConvertTypedPosition(const std::vector<std::string>& words,
                                            const RecordConversion& conversion);

}  // namespace tessara::program
