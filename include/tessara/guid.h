// Class and interface ids: 16-byte GUIDs, compared byte for byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace tessara {

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};

static_assert(sizeof(GUID) == 16 && std::is_trivially_copyable_v<GUID>);

// Compares bytes, not addresses: a host and the library have copies of their own.
[[nodiscard]] inline bool operator==(const GUID& left, const GUID& right) {
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

// Makes a GUID of a text at compile time: ParseGuid("00000000-0000-0000-C000-000000000046"). A text of
// another form doesn't compile.
[[nodiscard]] consteval GUID ParseGuid(std::string_view text) {
    const auto digit = [text](std::size_t at) -> std::uint32_t {
        const char c = text[at];
        if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
        if (c >= 'A' && c <= 'F') return static_cast<std::uint32_t>(c - 'A' + 10);
        throw "not a hexadecimal digit";
    };
    const auto number = [digit](std::size_t at, std::size_t digits) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < digits; ++i)
            value = value * 16 + digit(at + i);
        return value;
    };
    if (text.size() != 36 || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') {
        throw "not a GUID";
    }
    GUID guid{number(0, 8),
              static_cast<std::uint16_t>(number(9, 4)),
              static_cast<std::uint16_t>(number(14, 4)),
              {}};
    constexpr std::size_t data4[8] = {19, 21, 24, 26, 28, 30, 32, 34};
    for (std::size_t i = 0; i < 8; ++i)
        guid.Data4[i] = static_cast<std::uint8_t>(number(data4[i], 2));
    return guid;
}

}  // namespace tessara
