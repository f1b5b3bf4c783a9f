// The inputs and outputs of a conversion: files, results, messages, rejected records, and a status line if
// standard error is a terminal.
#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "run/exit_code.h"
#include "run/outcome.h"
#include "run/progress.h"
#include "run/rejects.h"

namespace tessara::program {

class Console {
  public:
    // "-" is standard input.
    explicit Console(std::vector<std::string> files);

    // Opens the file of --rejects, if any. Reports a failure and returns false.
    [[nodiscard]] bool OpenRejects(const std::optional<std::string>& file);

    // Calls `convert` with the stream and the name of each file, and reports files that cannot be read.
    void ReadFiles(const std::function<void(std::istream&, const std::string&)>& convert);

    // Writes results, messages and rejects of an outcome.
    void Take(const Outcome& outcome);
    // Writes to standard output, and throws if that fails, because any further result would be lost, too.
    void Write(const std::string& results);
    // Writes whole lines of errors to standard error.
    void Report(const std::string& messages);
    // Writes to the file of --rejects.
    void Reject(const std::string& input) { rejects_.Write(input); }

    // After the results are written: writes the notes and updates the status line.
    void Advance(const Outcome& outcome);

    // EXIT_INCOMPLETE if anything was reported.
    [[nodiscard]] ExitCode Finish();

  private:
    std::vector<std::string> files_;
    Progress progress_;
    Rejects rejects_;
    bool resultsShareTerminal_;
    bool complete_ = true;
};

}  // namespace tessara::program
