#include "files/value.h"

#include "files/json_scan.h"
#include "lines/columns.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

// Whether a column needs no quotes with the given separator.
bool IsBare(std::string_view column, char separator) {
    for (const char c : column) {
        if (c == '"' || c == '\r' || c == '\n' || c == separator) return false;
    }
    return true;
}

}  // namespace

std::string TextOf(const Value& value) {
    if (value.notation == Notation::Plain) return std::string(value.source);
    if (value.notation == Notation::Column) return TextOfRaw(value.source);
    if (value.source.starts_with('"')) return Unescaped(value.source);
    if (value.source == "null") return {};
    std::string text;
    AppendCompact(value.source, &text);
    return text;
}

void AppendAsJson(const Value& value, std::string* json) {
    if (value.notation == Notation::Json) {
        AppendCompact(value.source, json);
    } else if (value.notation == Notation::Column && value.source.find('"') != std::string_view::npos) {
        AppendString(TextOfRaw(value.source), json);
    } else {
        AppendString(value.source, json);
    }
}

void AppendAsColumn(const Value& value, char separator, std::string* line) {
    if (value.notation != Notation::Json && IsBare(value.source, separator)) {
        *line += value.source;
    } else {
        AppendColumn(TextOf(value), separator, line);
    }
}

}  // namespace tessara::program
