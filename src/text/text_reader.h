// Reads letters and numbers from a text, one after the other: blanks before a field are skipped, a number is
// read as far as it goes, and nothing needs to stand between a letter and what follows it. The locale of the
// host plays no role, and every text is read in linear time.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessara {

// Every read gives false, and leaves its output as it was, where the text has no such field.
class TextReader {
  public:
    explicit TextReader(std::string_view text) : rest_(text) {}

    // One character of any kind but a blank, as it stands.
    bool ReadLetter(char* letter);
    // One or two characters up to a blank; the second is 0 where there is one only.
    bool ReadLetterPair(char* first, char* second);
    // A decimal number with or without a sign, also where zeros lead; false if it doesn't fit.
    bool ReadWhole(std::int16_t* number);
    bool ReadWhole(std::int32_t* number);
    // As ReadWhole, but 0 and true where there is no number.
    bool ReadWholeOrNothing(std::int32_t* number);
    // A decimal number with or without a sign, a point and an exponent. One that is too small for a double is
    // 0, one that is too large is none, and so are infinities and NaN. An "e" behind a number begins an
    // exponent: "12e" is no number.
    bool ReadNumber(double* number);

  private:
    enum class Found { Nothing, Number, Overflow };

    void SkipBlanks();
    Found TakeWhole(std::int64_t least, std::int64_t most, std::int64_t* number);

    std::string_view rest_;
};

}  // namespace tessara
