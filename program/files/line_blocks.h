// Files whose records are lines, or begin with one: lines of degrees and of texts, tables, JSON lines.
#pragma once

#include <memory>
#include <string>

#include "files/record_blocks.h"

namespace tessara::program {

[[nodiscard]] std::unique_ptr<RecordBlocks> MakeLineBlocks(Form form, const std::string& file,
                                                           InputBuffer* input);

}  // namespace tessara::program
