// What a record holds besides its position, in the notation of its file. It is written in the notation of
// another one when that is needed.
#pragma once

#include <string>
#include <string_view>

namespace tessara::program {

enum class Notation {
    Plain,   // the text itself
    Column,  // in its quotes, where it has some
    Json,
};

struct Value {
    Notation notation = Notation::Plain;
    std::string_view source;
};

// The text of a string; nothing for null; anything else as it stands in the file.
[[nodiscard]] std::string TextOf(const Value& value);

void AppendAsJson(const Value& value, std::string* json);
void AppendAsColumn(const Value& value, char separator, std::string* line);

}  // namespace tessara::program
