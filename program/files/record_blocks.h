// A file of records cut into blocks, which are converted in one go each. What is held of a file is a block.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "files/record.h"
#include "lines/input_buffer.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Whole records of a file, or what is wrong instead of them.
struct RecordBlock {
    std::size_t number = 0;  // of the first line or feature
    std::string text;
    std::string error;  // a whole message, in place of the text
};

// The records of a file from its first on.
class RecordBlocks {
  public:
    virtual ~RecordBlocks() = default;

    // What a file holds as far as its beginning tells; nothing for a file without records.
    [[nodiscard]] virtual std::optional<Layout> ReadLayout(const Layout& wanted) = 0;

    // The header as it stands in the file; empty without one.
    [[nodiscard]] virtual std::string Header() const { return {}; }

    // Fills in the number and the text of the next block, or an error; false behind the last.
    virtual bool Next(RecordBlock* block) = 0;
};

[[nodiscard]] std::unique_ptr<RecordBlocks> MakeRecordBlocks(Form form, const std::string& file,
                                                             InputBuffer* input);

}  // namespace tessara::program
