// The fields of a record: what the program writes of a position.
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

// The fields of a record of any named system, in the order in which the program writes them. Their names are
// those of the record's payload, but letters that are read as one word are one field. None for a type
// without a name.
[[nodiscard]] std::vector<Field> FieldsOf(const tagKOORD& record);

// The height as a field; what a record has of its own isn't in it.
[[nodiscard]] Field HeightField(double height);

// False if a number of a record isn't finite: there is no such position in its system.
[[nodiscard]] bool IsFinite(const tagKOORD& record);

}  // namespace tessara::toolkit
