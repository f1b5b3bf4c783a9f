// Computes results from lines of positions and numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "conversion/fields.h"
#include "files/number_reader.h"
#include "files/record_conversion.h"
#include "run/pipeline.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Fills in the results, or returns the error.
using ComputeNumbers = std::function<std::string(const std::vector<double>&, std::vector<Field>*)>;

struct NumberComputation {
    NumberInput input;
    std::int32_t datum = 0;    // of the positions
    std::vector<Field> about;  // other members of a JSON object
    ComputeNumbers compute;
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
