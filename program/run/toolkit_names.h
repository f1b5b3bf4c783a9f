// The program speaks of systems, positions and maps in the names of the toolkit.
#pragma once

namespace tessara::toolkit {}

namespace tessara::program {
using namespace toolkit;  // NOLINT(google-build-using-namespace): the upper half of one vocabulary
}  // namespace tessara::program
