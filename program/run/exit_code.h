// The exit status of the program.
#pragma once

namespace tessara::program {

enum ExitCode : int {
    EXIT_DONE = 0,
    EXIT_INCOMPLETE = 1,  // some input was rejected, or the output could not be written
    EXIT_USAGE = 2,
};

inline constexpr const char* OUTPUT_IS_LOST = "cannot write standard output";

}  // namespace tessara::program
