// What a position in degrees becomes in each target.
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

// All of them, or what is wrong, and its code.
struct Results {
    std::vector<Result> results;
    std::string error;
    const char* code = "";
};

[[nodiscard]] Results ConvertToAll(const std::vector<Conversion>& conversions, const Position& position);

// Gives each result the height as one more field. The height of an ECEF position is within x, y and z.
void AddHeights(const Position& position, std::vector<Result>* results);

// The results as a line: targets stand apart by a tab, fields by a blank.
[[nodiscard]] std::string LineOf(const std::vector<Result>& results);

// A target that has no such position, and why.
struct Missing {
    Reference target;
    KoordStatus status;
};

// The message about all of them.
[[nodiscard]] std::string NotConvertibleTo(const std::vector<Missing>& targets);

}  // namespace tessara::toolkit
