// The commands together, as the words of a command line call them.
#pragma once

#include <string>
#include <vector>

#include "run/exit_code.h"

namespace tessara::program {

// Runs the command that is called. If the words ask for help, or are wrong, says so on the standard streams.
[[nodiscard]] ExitCode RunCommandLine(const std::vector<std::string>& arguments);

}  // namespace tessara::program
