// Reads the positions and numbers of a computation. Positions can be typed in any form and become degrees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/toolkit_names.h"
#include "typed/typed_reader.h"

namespace tessara::program {

struct NumberColumn {
    const char* name;
    std::string (*wrong)(std::string_view);  // returns the error in a word, or an empty text
};

// Latitude and longitude of one or two positions, and then other numbers.
struct NumberInput {
    std::size_t positions;
    std::vector<NumberColumn> columns;
};

// The numbers, one for each column, or the error.
struct NumberReading {
    std::vector<double> numbers;
    std::string_view rest;  // of the line
    std::string error;
    std::vector<std::string> texts;  // of the position in error, if it is one
    TypedResult position;            // what its reader says

    [[nodiscard]] bool IsRead() const { return error.empty(); }
};

// Not for concurrent use.
class NumberReader {
  public:
    NumberReader(const NumberInput& input, std::int32_t datum);

    // Reads words, all of which must belong to the input.
    [[nodiscard]] NumberReading Read(const std::vector<std::string>& words) const;

    // Reads a line, in which other text can follow plain numbers or columns. A blank line or a comment, which
    // begins with '#', has neither numbers nor an error.
    [[nodiscard]] NumberReading ReadLine(std::string_view line) const;

  private:
    using Texts = std::vector<std::string>;
    // The number of texts in each position.
    using Cut = std::vector<std::size_t>;

    [[nodiscard]] NumberReading ReadPlain(const std::vector<std::string_view>& words) const;
    [[nodiscard]] std::vector<NumberReading> ReadWords(const Texts& words) const;
    [[nodiscard]] std::vector<NumberReading> ReadColumns(std::string_view line) const;
    [[nodiscard]] NumberReading ReadCut(const Texts& texts, const Cut& cut) const;
    [[nodiscard]] std::size_t CountOfTexts(const Cut& cut) const;

    const NumberInput& input_;
    TypedReader reader_;
};

}  // namespace tessara::program
