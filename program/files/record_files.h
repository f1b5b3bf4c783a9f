// Converts whole files of records, from one form to another.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/record_conversion.h"
#include "run/pipeline.h"

namespace tessara::program {

struct FileRecords {
    RecordConversion conversion;
    std::function<Form(const std::string& file)> formOf;
    std::vector<std::string> columns;  // names of --columns; may be empty
};

[[nodiscard]] ExitCode ConvertRecordFiles(const InputFiles& files, const FileRecords& records);

}  // namespace tessara::program
