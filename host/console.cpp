#include "console.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>

namespace tessara::program {
namespace {

// Of all files together; 0 if one of them has no size, like a pipe.
std::uint64_t BytesOf(const std::vector<std::string>& files) {
    if (files.empty()) return BytesOf({"-"});
    std::uint64_t sum = 0;
    for (const std::string& file : files) {
        const std::filesystem::path path = file == "-" ? "/dev/stdin" : file;
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) return 0;
        const std::uintmax_t size = std::filesystem::file_size(path, error);
        if (error) return 0;
        sum += size;
    }
    return sum;
}

}  // namespace

Console::Console(const std::vector<std::string>& files)
    : progress_(STDERR_FILENO, BytesOf(files)), resultsShareTerminal_(isatty(STDOUT_FILENO) != 0) {}

void Console::Write(const std::string& results) {
    if (resultsShareTerminal_) progress_.Clear();
    std::cout << results;
    // The status line must not get between the halves of a result.
    if (resultsShareTerminal_) std::cout.flush();
}

void Console::Report(const std::string& messages) {
    progress_.Clear();
    std::cerr << messages;
    complete_ = false;
}

}  // namespace tessara::program
