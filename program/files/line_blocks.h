// Files of lines: lines of degrees, lines of texts, tables and JSON lines.
#pragma once

#include <memory>
#include <string>

#include "files/record_blocks.h"

namespace tessara::program {

[[nodiscard]] std::unique_ptr<RecordBlocks> MakeLineBlocks(Form form, const std::string& file,
                                                           InputBuffer* input);

}  // namespace tessara::program
