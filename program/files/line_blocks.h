// Lines in blocks that are converted in one go.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "files/outcome.h"
#include "files/toolkit_names.h"
#include "lines/line_reader.h"

namespace tessara::program {

struct LineBlock {
    std::string file;
    std::size_t firstLine = 1;
    std::size_t count = 0;
    std::string text;  // the lines, each with its end

    void Add(std::string_view line) {
        text.append(line) += '\n';
        ++count;
    }
};

// Where a line stands.
struct Place {
    std::string file;
    std::size_t line;
};

struct BlockLimits {
    std::size_t lines;
    // Whether a block ends where the next line isn't there yet: who types a line then sees its result.
    bool endsWithoutNext = false;
};

// Gives all lines to come, behind those that `block` has already.
void ReadLines(LineReader* lines, LineBlock block, const BlockLimits& limits,
               const std::function<void(LineBlock)>& take);

// Appends what is written of a line, which may be nothing; otherwise says what is wrong.
using ConvertLine = std::function<std::string(std::string_view line, const Place& place, std::string* out)>;

[[nodiscard]] Outcome ConvertLines(const LineBlock& block, const ConvertLine& convert);

}  // namespace tessara::program
