// Runs a program as a shell does and captures its output.
#pragma once

#include <string>
#include <vector>

namespace tessara::testing {

struct Outcome {
    std::string out;
    std::string err;
    int status = -1;  // -1 if it was ended by a signal or couldn't be started
};

struct RunOptions {
    std::string input;                     // what it reads from standard input
    std::vector<std::string> environment;  // NAME=VALUE, on top of this process's own
    std::string outFile;                   // where standard output goes, instead of into the outcome
};

// `path` and its arguments, without a shell in between.
[[nodiscard]] Outcome RunProgram(const std::string& path, const std::vector<std::string>& arguments,
                                 const RunOptions& options = {});

// The program `tessara`.
[[nodiscard]] Outcome Tessara(const std::vector<std::string>& arguments, const std::string& input = {});
Outcome Convert(std::vector<std::string> arguments, const std::string& input);

// Expects exit status 0, no errors, and this output.
void ExpectDone(const Outcome& outcome, const std::string& out);

// Expects the exit status for wrong usage, with `words` in the message.
void ExpectUsageError(const Outcome& outcome, const std::string& words);

// The lines of a text, without their ends.
[[nodiscard]] std::vector<std::string> LinesOf(const std::string& text);

}  // namespace tessara::testing
