// What a conversion of files reads, and where it writes to: results, messages about lines, the input that
// can't be used, and a status line where standard error is a terminal.
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

    // A file for the input that can't be used, if there is to be one. False if it can't be had, which is
    // reported.
    [[nodiscard]] bool OpenRejects(const std::optional<std::string>& file);

    // Gives `convert` one file after the other, by a stream and its name, and reports those that can't be
    // read.
    void ReadFiles(const std::function<void(std::istream&, const std::string&)>& convert);

    // All of it, each to its place.
    void Take(const Outcome& outcome);
    // To standard output. Throws if it doesn't take them: there is no use in going on.
    void Write(const std::string& results);
    // To standard error: what can't be done, in whole lines.
    void Report(const std::string& messages);
    // To the file for them.
    void Reject(const std::string& input) { rejects_.Write(input); }

    // Behind what is written of it: says what is worth knowing, and counts the input as done.
    void Advance(const Outcome& outcome);

    // Whether there was anything to report.
    [[nodiscard]] ExitCode Finish();

  private:
    std::vector<std::string> files_;
    Progress progress_;
    Rejects rejects_;
    bool resultsShareTerminal_;
    bool complete_ = true;
};

}  // namespace tessara::program
