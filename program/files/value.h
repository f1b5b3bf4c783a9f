// A value of a record in the notation of its file, and its conversion to the notation of another format.
#pragma once

#include <string>
#include <string_view>

namespace tessara::program {

enum class Notation {
    Plain,   // the plain text
    Column,  // a column, including any quotes
    Json,
};

struct Value {
    Notation notation = Notation::Plain;
    std::string_view source;
};

// The text of a string, an empty text for null, and the text in the file for any other value.
[[nodiscard]] std::string TextOf(const Value& value);

void AppendAsJson(const Value& value, std::string* json);
void AppendAsColumn(const Value& value, char separator, std::string* line);

}  // namespace tessara::program
