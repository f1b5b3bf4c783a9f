#include "lines/utf8.h"

#include <nlohmann/json.hpp>

namespace tessara::toolkit {

// The JSON writer replaces the bytes.
std::string RepairUtf8(const std::string& bytes) {
    using nlohmann::json;
    return json::parse(json(bytes).dump(-1, ' ', false, json::error_handler_t::replace)).get<std::string>();
}

}  // namespace tessara::toolkit
