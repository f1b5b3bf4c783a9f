// Where a conversion of files writes to: results, messages about lines, and between them a status line where
// standard error is a terminal.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "commands.h"
#include "progress.h"

namespace tessara::program {

class Console {
  public:
    // For the work of reading `files`; "-" is standard input, and so is none.
    explicit Console(const std::vector<std::string>& files);

    // To standard output.
    void Write(const std::string& results);
    // To standard error: what can't be done, in whole lines.
    void Report(const std::string& messages);
    // Tells how much more of the files is done.
    void Advance(std::uint64_t lines, std::uint64_t bytes) { progress_.Advance(lines, bytes); }

    // Whether there was anything to report.
    [[nodiscard]] ExitCode Code() const { return complete_ ? EXIT_DONE : EXIT_INCOMPLETE; }

  private:
    Progress progress_;
    bool resultsShareTerminal_;
    bool complete_ = true;
};

}  // namespace tessara::program
