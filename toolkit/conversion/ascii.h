// Characters of ASCII, whatever the locale.
#pragma once

namespace tessara::toolkit {

[[nodiscard]] constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace tessara::toolkit
