// What the program tells the shell.
#pragma once

namespace tessara::program {

enum ExitCode : int {
    EXIT_DONE = 0,
    EXIT_INCOMPLETE = 1,  // some input has no result, or the output couldn't be written
    EXIT_USAGE = 2,
};

inline constexpr const char* OUTPUT_IS_LOST = "standard output can't be written";

}  // namespace tessara::program
