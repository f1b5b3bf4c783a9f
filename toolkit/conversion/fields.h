// The fields of a record, which the program writes for a position.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "tessara/ckoord.h"

namespace tessara::toolkit {

struct Field {
    const char* name;
    std::variant<std::string, std::int64_t, double> value;
    int digits = 0;  // decimals of a double, least width of a whole number

    [[nodiscard]] std::string Text() const;
};

// The fields of a record in the order of output, named as in the payload; letters that form one word are one
// field. Empty for a type without a name.
[[nodiscard]] std::vector<Field> FieldsOf(const tagKOORD& record);

// The height as a field. FieldsOf never contains it.
[[nodiscard]] Field HeightField(double height);

// Returns false if a number of the record is not finite: the system cannot represent the position.
[[nodiscard]] bool IsFinite(const tagKOORD& record);

}  // namespace tessara::toolkit
