#include "files/line_blocks.h"

#include <utility>

namespace tessara::program {
namespace {

constexpr std::size_t BYTES_PER_BLOCK = std::size_t{1} << 20;  // of long lines there are fewer

// Adds lines as far as there is room for them. False if the block is empty then.
bool Fill(LineReader* lines, const BlockLimits& limits, LineBlock* block) {
    std::string line;
    while (block->count < limits.lines && block->text.size() < BYTES_PER_BLOCK) {
        const bool mayEnd = limits.endsWithoutNext && block->count > 0;
        if ((mayEnd && !lines->HasMore()) || !lines->Next(&line)) break;
        block->Add(line);
    }
    return block->count > 0;
}

}  // namespace

void ReadLines(LineReader* lines, LineBlock block, const BlockLimits& limits,
               const std::function<void(LineBlock)>& take) {
    while (Fill(lines, limits, &block)) {
        LineBlock next{block.file, block.firstLine + block.count, 0, {}};
        take(std::move(block));
        block = std::move(next);
    }
}

Outcome ConvertLines(const LineBlock& block, const ConvertLine& convert) {
    Outcome outcome;
    Place place{block.file, block.firstLine};
    std::string result;
    for (std::string_view rest = block.text; !rest.empty(); ++place.line) {
        const std::string_view lineWithEnd = rest.substr(0, rest.find('\n') + 1);
        rest.remove_prefix(lineWithEnd.size());
        result.clear();
        const std::string wrong = convert(lineWithEnd.substr(0, lineWithEnd.size() - 1), place, &result);
        outcome.Add(result);
        if (!wrong.empty())
            outcome.Refuse(place.file + ":" + std::to_string(place.line) + ": " + wrong + '\n', lineWithEnd);
    }
    outcome.Count(block.count, block.text.size());
    return outcome;
}

}  // namespace tessara::program
