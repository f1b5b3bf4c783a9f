// Letters of the reference systems. A record's letters are arbitrary bytes: each search ends at the
// alphabet's end, and upper-casing knows ASCII only, whatever the host's locale.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessara {

inline constexpr std::int32_t NO_LETTER = -1;

// The position of a letter in an alphabet, or NO_LETTER.
[[nodiscard]] constexpr std::int32_t LetterIndex(std::string_view alphabet, char letter) {
    const std::size_t position = alphabet.find(letter);
    return position == std::string_view::npos ? NO_LETTER : static_cast<std::int32_t>(position);
}

[[nodiscard]] constexpr bool HasIndex(std::string_view alphabet, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < alphabet.size();
}

// The letter at a position for which HasIndex holds.
[[nodiscard]] constexpr char LetterAt(std::string_view alphabet, std::int32_t index) {
    return alphabet[static_cast<std::size_t>(index)];
}

[[nodiscard]] constexpr char UpperCase(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace tessara
