// Converts whole files of texts, line by line, in constant memory.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/exit_code.h"
#include "files/text_conversion.h"

namespace tessara::program {

struct TextFiles {
    TextConversion conversion;
    std::vector<std::string> files;  // "-" is standard input
    // The names of the north and east columns; the files have a header then. Otherwise the first two columns.
    std::optional<std::pair<std::string, std::string>> columns;
    std::optional<std::string> rejects;  // a file for the lines that can't be used
    unsigned jobs = 1;
};

// Writes to standard output what can be converted, in the order of the input, and to standard error what is
// wrong with the rest.
[[nodiscard]] ExitCode ConvertTextFiles(const TextFiles& options);

}  // namespace tessara::program
