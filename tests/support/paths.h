// The paths of the sources and the build output. Only one source contains them, so that all others compile
// identically in every directory.
#pragma once

#include <string>

namespace tessara::testing {

[[nodiscard]] std::string SourceDir();
[[nodiscard]] std::string BinaryDir();

}  // namespace tessara::testing
