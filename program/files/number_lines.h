// Lines of numbers from files, each computed to results by a function.
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

// A number that a line begins with.
struct NumberColumn {
    const char* name;
    std::string (*wrong)(std::string_view);  // what is wrong with a word as such a number
};

struct NumberComputation {
    std::vector<NumberColumn> columns;
    std::vector<Field> about;  // what an object of JSON says besides, such as the datum
    // Fills in the results; otherwise says what is wrong.
    std::function<std::string(const std::vector<double>&, std::vector<Field>*)> compute;
};

struct NumberLines {
    NumberComputation computation;
    bool isJson = false;
    OnError onError = OnError::SKIP;
};

// Writes the results of each line, apart by blanks, and behind a tab what the line has besides; or an object
// of JSON. Blank lines are skipped, and so is what follows a '#'.
[[nodiscard]] ExitCode ComputeLines(const InputFiles& files, const NumberLines& lines);

// The same for numbers that don't come from a file.
[[nodiscard]] ExitCode ComputeOnce(const NumberComputation& computation, const std::vector<double>& numbers,
                                   bool isJson);

}  // namespace tessara::program
