#include "map/json_reader.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "conversion/numbers.h"
#include "conversion/quote.h"

namespace tessara::toolkit {
namespace {

// A short ASCII text of a value for messages.
std::string Show(const nlohmann::json& json) {
    if (json.is_object()) return "an object";
    if (json.is_array()) return "a list of length " + std::to_string(json.size());
    std::string text = json.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
    if (text.size() > LONGEST_QUOTE) text = text.substr(0, LONGEST_QUOTE) + "...";
    return text;
}

template <class Items, class ToText>
std::string Join(const Items& items, ToText toText) {
    std::string text;
    for (const auto& item : items)
        text += (text.empty() ? "" : ", ") + toText(item);
    return text;
}

}  // namespace

nlohmann::json ParseJson(const std::string& text) {
    try {
        return nlohmann::json::parse(text, nullptr, true, true);
    } catch (const nlohmann::json::exception& error) {
        const std::string message = error.what();
        const std::size_t begin = message.find("] ");
        throw DescriptionError("invalid JSON: " +
                               (begin == std::string::npos ? message : message.substr(begin + 2)));
    }
}

void JsonValue::Fail(const std::string& what) const {
    throw DescriptionError(place_.empty() ? what : place_ + ": " + what);
}

void JsonValue::Expected(const std::string& what) const {
    Fail("expected " + what + ", found " + Show(*json_));
}

bool JsonValue::IsObject() const {
    return json_->is_object();
}

bool JsonValue::IsNumber() const {
    return json_->is_number();
}

bool JsonValue::IsText() const {
    return json_->is_string();
}

bool JsonValue::IsNull() const {
    return json_->is_null();
}

std::string JsonValue::Text() const {
    if (!json_->is_string()) Expected("a string");
    return json_->get<std::string>();
}

bool JsonValue::Flag() const {
    if (!json_->is_boolean()) Expected("true or false");
    return json_->get<bool>();
}

double JsonValue::Number() const {
    if (!json_->is_number()) Expected("a number");
    return json_->get<double>();
}

double JsonValue::NumberIn(double low, double high) const {
    const double number = Number();
    if (!(number >= low && number <= high))
        Expected("a number in " + FormatPlain(low) + ".." + FormatPlain(high));
    return number;
}

double JsonValue::NumberAbove0() const {
    const double number = Number();
    if (!(number > 0.0)) Expected("a number above 0");
    return number;
}

std::int32_t JsonValue::WholeIn(std::int32_t low, std::int32_t high) const {
    const double number = json_->is_number() ? json_->get<double>() : NAN;
    if (!(number >= low && number <= high) || number != std::floor(number))
        Expected("a whole number in " + std::to_string(low) + ".." + std::to_string(high));
    return static_cast<std::int32_t>(number);
}

std::int32_t JsonValue::WholeOf(std::initializer_list<std::int32_t> choices) const {
    const double number = json_->is_number() ? json_->get<double>() : NAN;
    const auto* const found = std::find(choices.begin(), choices.end(), number);
    if (found == choices.end())
        Expected("one of " + Join(choices, [](std::int32_t choice) { return std::to_string(choice); }));
    return *found;
}

std::size_t JsonValue::ChoiceOf(const std::vector<std::string>& choices) const {
    const auto found = json_->is_string() ? std::find(choices.begin(), choices.end(), Text()) : choices.end();
    if (found == choices.end())
        Expected("one of " + Join(choices, [](const std::string& choice) { return choice; }));
    return static_cast<std::size_t>(found - choices.begin());
}

std::vector<JsonValue> JsonValue::List() const {
    if (!json_->is_array()) Expected("a list");
    std::vector<JsonValue> values;
    for (std::size_t i = 0; i < json_->size(); ++i)
        values.emplace_back((*json_)[i], place_ + "[" + std::to_string(i) + "]");
    return values;
}

std::vector<JsonValue> JsonValue::ListOf(std::size_t count) const {
    if (!json_->is_array() || json_->size() != count) Expected("a list of length " + std::to_string(count));
    return List();
}

JsonObject::JsonObject(const JsonValue& value) : value_(value) {
    if (!value_.json_->is_object()) value_.Expected("an object");
}

std::string JsonObject::PlaceOf(const std::string& key) const {
    return value_.Place().empty() ? key : value_.Place() + "." + key;
}

JsonValue JsonObject::Required(const std::string& key) {
    const std::optional<JsonValue> value = Optional(key);
    if (!value) Fail("missing '" + key + "'");
    return *value;
}

std::optional<JsonValue> JsonObject::Optional(const std::string& key) {
    known_.insert(key);
    const auto found = value_.json_->find(key);
    if (found == value_.json_->end()) return std::nullopt;
    return JsonValue(*found, PlaceOf(key));
}

void JsonObject::RefuseOthers() const {
    for (const auto& [key, value] : value_.json_->items()) {
        if (known_.contains(key)) continue;
        Fail("unknown key " + Show(key) + "; expected one of " +
             Join(known_, [](const std::string& name) { return name; }));
    }
}

}  // namespace tessara::toolkit
