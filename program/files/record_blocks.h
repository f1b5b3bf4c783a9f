// Splits a file of records into blocks; one block at a time is in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "files/record.h"
#include "lines/input_buffer.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Complete records of a file, or an error instead.
struct RecordBlock {
    std::size_t number = 0;  // of the first line or feature
    std::string text;
    std::string error;  // a whole line of output, instead of the text
};

// Reads the records of a file in order.
class RecordBlocks {
  public:
    virtual ~RecordBlocks() = default;

    // The layout according to the start of the file; nothing for a file without records.
    [[nodiscard]] virtual std::optional<Layout> ReadLayout(const Layout& wanted) = 0;

    // The text of the header; empty without one.
    [[nodiscard]] virtual std::string Header() const { return {}; }

    // Fills in the number and the text of the next block, or an error; false after the last block.
    virtual bool Next(RecordBlock* block) = 0;
};

[[nodiscard]] std::unique_ptr<RecordBlocks> MakeRecordBlocks(Form form, const std::string& file,
                                                             InputBuffer* input);

}  // namespace tessara::program
