// Converts whole files of lines `latitude longitude [height]`, line by line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "conversion/references.h"
#include "files/exit_code.h"

namespace tessara::program {

struct DegreeFiles {
    std::int32_t datum;  // of the positions
    std::vector<Reference> to;
    bool json = false;
    std::vector<std::string> files;      // "-" is standard input
    std::optional<std::string> rejects;  // a file for the lines that can't be used
};

// Writes to standard output what can be converted, and to standard error what is wrong with the rest.
[[nodiscard]] ExitCode ConvertDegreeFiles(const DegreeFiles& options);

}  // namespace tessara::program
