// Reads letters and numbers from a text one after the other. Blanks before a field are skipped, a number
// extends as far as possible, and a letter needs no separator after it. Reading is independent of the host's
// locale and takes linear time.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessara {

// Every read returns false, and leaves its output unchanged, if the text has no such field.
class TextReader {
  public:
    explicit TextReader(std::string_view text) : rest_(text) {}

    // Reads one character other than a blank, without changing its case.
    bool ReadLetter(char* letter);
    // Reads one or two characters up to a blank; if there is only one, the second is 0.
    bool ReadLetterPair(char* first, char* second);
    // Reads a decimal integer with an optional sign and leading zeros; false if it doesn't fit.
    bool ReadWhole(std::int16_t* number);
    bool ReadWhole(std::int32_t* number);
    // Like ReadWhole, but returns true with 0 if there is no number.
    bool ReadWholeOrNothing(std::int32_t* number);
    // Reads a decimal number with an optional sign, point and exponent. A number too small for a double is
    // 0. One too large, infinities and NaN are rejected. An "e" after a number starts an exponent, so "12e"
    // isn't a number.
    bool ReadNumber(double* number);

  private:
    enum class Found { Nothing, Number, Overflow };

    void SkipBlanks();
    Found TakeWhole(std::int64_t least, std::int64_t most, std::int64_t* number);

    std::string_view rest_;
};

}  // namespace tessara
