// Computes results from lines of numbers.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/fields.h"
#include "files/record_conversion.h"
#include "run/pipeline.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// One of the numbers at the start of a line.
struct NumberColumn {
    const char* name;
    std::string (*wrong)(std::string_view);  // returns the error in a word, or an empty text
};

struct NumberComputation {
    std::vector<NumberColumn> columns;
    std::vector<Field> about;  // other members of a JSON object, such as the datum
    // Fills in the results, or returns the error.
    std::function<std::string(const std::vector<double>&, std::vector<Field>*)> compute;
};

struct NumberLines {
    NumberComputation computation;
    bool isJson = false;
    OnError onError = OnError::SKIP;
};

// Writes the results of each line separated by spaces, then a tab and the rest of the line; or a JSON object.
// Skips blank lines and comments, which begin with '#'.
[[nodiscard]] ExitCode ComputeLines(const InputFiles& files, const NumberLines& lines);

// The same for the numbers of the command line.
[[nodiscard]] ExitCode ComputeOnce(const NumberComputation& computation, const std::vector<double>& numbers,
                                   bool isJson);

}  // namespace tessara::program
