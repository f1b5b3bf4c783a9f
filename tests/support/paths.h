// Where the sources and what was built from them stand. One source knows the paths, so that all others
// compile to the same wherever the tree is.
#pragma once

#include <string>

namespace tessara::testing {

[[nodiscard]] std::string SourceDir();
[[nodiscard]] std::string BinaryDir();

}  // namespace tessara::testing
