#include "support/paths.h"

namespace tessara::testing {

std::string SourceDir() {
    return TESSARA_SOURCE_DIR;
}

std::string BinaryDir() {
    return TESSARA_BINARY_DIR;
}

}  // namespace tessara::testing
