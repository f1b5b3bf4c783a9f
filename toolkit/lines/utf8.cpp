#include "lines/utf8.h"

#include <nlohmann/json.hpp>

namespace tessara::toolkit {

std::string Latin1ToUtf8(std::string_view latin1) {
    std::string utf8;
    for (const char c : latin1) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (code >> 6));
            utf8 += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return utf8;
}

// What writes JSON does it on the way.
std::string RepairUtf8(const std::string& bytes) {
    using nlohmann::json;
    return json::parse(json(bytes).dump(-1, ' ', false, json::error_handler_t::replace)).get<std::string>();
}

}  // namespace tessara::toolkit
