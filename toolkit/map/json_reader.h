// JSON values with their place in the file, for messages such as "layers[2].step: expected a number above 0,
// found -1".
#pragma once

#include <cstdint>
#include <initializer_list>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessara::toolkit {

// An error in a description; what() is the message for the user.
class DescriptionError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Parses JSON with comments. Throws DescriptionError with the line and column of an error.
[[nodiscard]] nlohmann::json ParseJson(const std::string& text);

// The JSON must outlive the JsonValue.
class JsonValue {
  public:
    JsonValue(const nlohmann::json& json, std::string place) : json_(&json), place_(std::move(place)) {}

    [[noreturn]] void Fail(const std::string& what) const;
    [[nodiscard]] const std::string& Place() const { return place_; }
    [[nodiscard]] bool IsObject() const;
    [[nodiscard]] bool IsNumber() const;
    [[nodiscard]] bool IsText() const;
    [[nodiscard]] bool IsNull() const;

    // Each throws DescriptionError if the value has another type or is out of range.
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] bool Flag() const;
    [[nodiscard]] double Number() const;
    [[nodiscard]] double NumberIn(double low, double high) const;
    [[nodiscard]] double NumberAbove0() const;
    [[nodiscard]] std::int32_t WholeIn(std::int32_t low, std::int32_t high) const;
    [[nodiscard]] std::int32_t WholeOf(std::initializer_list<std::int32_t> choices) const;
    // The index of the text among the choices.
    [[nodiscard]] std::size_t ChoiceOf(const std::vector<std::string>& choices) const;
    [[nodiscard]] std::vector<JsonValue> List() const;
    [[nodiscard]] std::vector<JsonValue> ListOf(std::size_t count) const;

  private:
    friend class JsonObject;

    [[noreturn]] void Expected(const std::string& what) const;

    const nlohmann::json* json_;
    std::string place_;
};

// The members of an object. RefuseOthers throws for members that Required and Optional did not read.
class JsonObject {
  public:
    explicit JsonObject(const JsonValue& value);

    [[nodiscard]] JsonValue Required(const std::string& key);
    [[nodiscard]] std::optional<JsonValue> Optional(const std::string& key);
    void RefuseOthers() const;

    [[noreturn]] void Fail(const std::string& what) const { value_.Fail(what); }
    [[nodiscard]] const std::string& Place() const { return value_.Place(); }

  private:
    [[nodiscard]] std::string PlaceOf(const std::string& key) const;

    JsonValue value_;
    std::set<std::string> known_;
};

}  // namespace tessara::toolkit
