#include "run/console.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "lines/input_files.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

// The size of all files together; 0 if one has no size, such as a pipe.
std::uint64_t BytesOf(const std::vector<std::string>& files) {
    std::uint64_t sum = 0;
    for (const std::string& file : files) {
        const std::filesystem::path path = PathOfInput(file);
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) return 0;
        const std::uintmax_t size = std::filesystem::file_size(path, error);
        if (error) return 0;
        sum += size;
    }
    return sum;
}

}  // namespace

Console::Console(std::vector<std::string> files)
    : files_(std::move(files)),
      progress_(STDERR_FILENO, BytesOf(files_)),
      resultsShareTerminal_(isatty(STDOUT_FILENO) != 0) {}

bool Console::OpenRejects(const std::optional<std::string>& file) {
    const std::string wrong = rejects_.Open(file, files_);
    if (!wrong.empty()) Report(wrong + '\n');
    return wrong.empty();
}

void Console::ReadFiles(const std::function<void(std::istream&, const std::string&)>& convert) {
    for (const std::string& file : files_) {
        std::string wrong = ReadInput(file, [&](std::istream& stream) { convert(stream, file); });
        if (!wrong.empty()) Report(wrong.insert(0, file + ": ") += '\n');
    }
}

void Console::Take(const Outcome& outcome) {
    for (const Outcome::Run& run : outcome.Runs()) {
        Write(run.results);
        Reject(run.rejects);
        if (!run.messages.empty()) Report(run.messages);
    }
    Advance(outcome);
}

void Console::Write(const std::string& results) {
    if (results.empty()) return;
    if (resultsShareTerminal_) progress_.Clear();
    std::cout << results;
    // The status line must not split a result.
    if (resultsShareTerminal_) std::cout.flush();
    if (!std::cout) throw std::runtime_error(OUTPUT_IS_LOST);
}

void Console::Report(const std::string& messages) {
    progress_.Clear();
    std::cerr << messages;
    complete_ = false;
}

void Console::Advance(const Outcome& outcome) {
    // A process that writes a line through a pipe and waits for its result must receive it.
    std::cout.flush();
    if (!outcome.Notes().empty()) {
        progress_.Clear();
        std::cerr << outcome.Notes();
    }
    progress_.Advance(outcome.Lines(), outcome.Bytes());
}

ExitCode Console::Finish() {
    if (const std::string wrong = rejects_.Finish(); !wrong.empty()) Report(wrong + '\n');
    return complete_ ? EXIT_DONE : EXIT_INCOMPLETE;
}

}  // namespace tessara::program
