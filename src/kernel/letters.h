// Letters of the reference systems. The letters of a record are arbitrary bytes: searches stop at the end of
// the alphabet, and conversion to capitals covers ASCII only, independent of the host's locale.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessara {

inline constexpr std::int32_t NO_LETTER = -1;

// The index of a letter in an alphabet, or NO_LETTER.
[[nodiscard]] constexpr std::int32_t LetterIndex(std::string_view alphabet, char letter) {
    const std::size_t position = alphabet.find(letter);
    return position == std::string_view::npos ? NO_LETTER : static_cast<std::int32_t>(position);
}

[[nodiscard]] constexpr bool HasIndex(std::string_view alphabet, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < alphabet.size();
}

// The letter at an index for which HasIndex is true.
[[nodiscard]] constexpr char LetterAt(std::string_view alphabet, std::int32_t index) {
    return alphabet[static_cast<std::size_t>(index)];
}

// An alphabet of capital letters that finds the index of a letter by a look-up instead of a search.
class Alphabet {
  public:
    consteval Alphabet(const char* letters) : letters_(letters) {
        indices_.fill(NO_LETTER);
        for (const char letter : letters_)
            indices_.at(PlaceOf(letter)) = static_cast<std::int8_t>(letters_.find(letter));
    }

    // The index of a letter, or NO_LETTER.
    [[nodiscard]] constexpr std::int32_t IndexOf(char letter) const {
        const std::size_t place = PlaceOf(letter);
        return place < indices_.size() ? indices_[place] : NO_LETTER;
    }

    // The letter at an index within the alphabet.
    [[nodiscard]] constexpr char LetterAt(std::int32_t index) const {
        return letters_[static_cast<std::size_t>(index)];
    }

  private:
    // The distance from A; a byte that isn't a capital letter is beyond Z.
    static constexpr std::size_t PlaceOf(char letter) {
        return static_cast<std::uint8_t>(static_cast<unsigned char>(letter) - 'A');
    }

    std::string_view letters_;
    std::array<std::int8_t, 26> indices_{};
};

[[nodiscard]] constexpr char UpperCase(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace tessara
