// Converts whole files of texts, line by line.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "files/pipeline.h"
#include "files/text_conversion.h"

namespace tessara::program {

struct TextLines {
    TextConversion conversion;
    // The names of the north and east columns; the files have a header then. Otherwise the first two columns.
    std::optional<std::pair<std::string, std::string>> columns;
};

[[nodiscard]] ExitCode ConvertTextFiles(const InputFiles& files, const TextLines& lines);

}  // namespace tessara::program
