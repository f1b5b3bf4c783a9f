// Converts whole files of records, from one form to another. Memory is constant, whatever the size of a file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/exit_code.h"
#include "files/record_conversion.h"

namespace tessara::program {

struct RecordFiles {
    RecordConversion conversion;
    std::vector<std::string> files;  // one at least; "-" is standard input
    std::function<Form(const std::string& file)> formOf;
    std::vector<std::string> columns;    // that hold the positions; empty where that is to be found out
    std::optional<std::string> rejects;  // a file for the records that can't be used
    unsigned jobs = 1;
};

// Writes to standard output what can be converted, in the order of the input, and to standard error what is
// wrong with the rest.
[[nodiscard]] ExitCode ConvertRecordFiles(const RecordFiles& options);

}  // namespace tessara::program
