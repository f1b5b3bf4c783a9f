// GeoJSON: a collection of features, or a feature or a geometry alone, on WGS84 (RFC 7946).
#pragma once

#include <memory>
#include <string>

#include "files/record_blocks.h"

namespace tessara::program {

[[nodiscard]] std::unique_ptr<RecordBlocks> MakeFeatureBlocks(const std::string& file, InputBuffer* input);

}  // namespace tessara::program
