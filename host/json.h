// JSON of any origin: what is wrong with it is told, and its nesting has an end.
#pragma once

#include <istream>
#include <string>

#include "records.h"

namespace tessara::program {

// All of a text. What is wrong with it; empty if nothing is.
[[nodiscard]] std::string ParseJson(const std::string& text, Json* json);

// All of a stream. `take` sees what begins and ends on the way, and may leave values out.
[[nodiscard]] std::string ParseJson(std::istream& stream, const Json::parser_callback_t& take, Json* json);

}  // namespace tessara::program
