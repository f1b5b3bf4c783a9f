// JSON of any origin: what is wrong with it is told, and its nesting and the members of its objects have an
// end.
#pragma once

#include <istream>
#include <nlohmann/json.hpp>
#include <string>

namespace tessara::program {

// Keeps the order of members. Each look-up of one goes through them all.
using Json = nlohmann::ordered_json;

// All of a text. What is wrong with it; empty if nothing is.
[[nodiscard]] std::string ParseJson(const std::string& text, Json* json);

// All of a stream. `take` sees what begins and ends on the way, and may leave values out.
[[nodiscard]] std::string ParseJson(std::istream& stream, const Json::parser_callback_t& take, Json* json);

// Adds a member whose name the object doesn't have yet, without looking for it.
void AddMember(std::string name, Json value, Json* object);

// On one line. Bytes that are no UTF-8 are replaced.
[[nodiscard]] std::string Dump(const Json& json);

}  // namespace tessara::program
