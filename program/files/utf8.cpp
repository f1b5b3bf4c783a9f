#include "files/utf8.h"

#include "files/json.h"

namespace tessara::program {

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
    return Json::parse(Dump(bytes)).get<std::string>();
}

}  // namespace tessara::program
