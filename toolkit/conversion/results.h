// Converts a position in degrees to all targets.
#pragma once

#include <string>
#include <vector>

#include "conversion/conversion.h"
#include "conversion/fields.h"

namespace tessara::toolkit {

struct Result {
    Reference target;
    std::vector<Field> fields;
};

// All results, or an error and its code.
struct Results {
    std::vector<Result> results;
    std::string error;
    const char* code = "";
};

[[nodiscard]] Results ConvertToAll(const std::vector<Conversion>& conversions, const Position& position);

// Adds the height to the fields of each result, except ECEF, whose x, y and z contain it.
void AddHeights(const Position& position, std::vector<Result>* results);

// The results as a line: tabs separate targets, spaces separate fields.
[[nodiscard]] std::string LineOf(const std::vector<Result>& results);

// A target that cannot represent the position, and the reason.
struct Missing {
    Reference target;
    KoordStatus status;
};

// The message about all missing targets.
[[nodiscard]] std::string NotConvertibleTo(const std::vector<Missing>& targets);

}  // namespace tessara::toolkit
