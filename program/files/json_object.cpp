#include "files/json_object.h"

#include <utility>

#include "files/field_writing.h"
#include "files/json_scan.h"

namespace tessara::program {

std::string* JsonObject::Name(std::string_view name) {
    if (!std::exchange(isEmpty_, false)) json_ += ',';
    AppendString(name, &json_);
    json_ += ':';
    return &json_;
}

void JsonObject::Text(std::string_view name, std::string_view text) {
    AppendString(text, Name(name));
}

void JsonObject::Number(std::string_view name, double number) {
    AppendNumber(number, Name(name));
}

void JsonObject::Fields(const std::vector<Field>& fields) {
    for (const Field& field : fields)
        AppendJson(field, Name(field.name));
}

}  // namespace tessara::program
