// Makes the names of the toolkit visible in the program.
#pragma once

namespace tessara::toolkit {}

namespace tessara::program {
using namespace toolkit;  // NOLINT(google-build-using-namespace): the upper half of one vocabulary
}  // namespace tessara::program
