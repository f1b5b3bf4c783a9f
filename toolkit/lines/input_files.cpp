#include "lines/input_files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>

namespace tessara::toolkit {
namespace {

// Only this bit distinguishes a read error from the end of the stream.
std::string ReadToItsEnd(std::istream& stream, const ReadStream& read) {
    errno = 0;
    read(stream);
    return stream.bad() ? "cannot read the whole file" + SystemReason(errno) : "";
}

}  // namespace

std::string ReadFile(const std::string& file, const ReadStream& read) {
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return "cannot read the file" + SystemReason(errno);
    if (std::filesystem::is_directory(file)) return "cannot read the file" + SystemReason(EISDIR);
    return ReadToItsEnd(stream, read);
}

std::string ReadInput(const std::string& file, const ReadStream& read) {
    return file == "-" ? ReadToItsEnd(std::cin, read) : ReadFile(file, read);
}

std::filesystem::path PathOfInput(const std::string& file) {
    return file == "-" ? "/dev/stdin" : file;
}

bool IsOneOf(const std::string& file, const std::vector<std::string>& inputs) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return false;
    return std::any_of(inputs.begin(), inputs.end(), [&](const std::string& input) {
        return std::filesystem::equivalent(PathOfInput(input), file, error);
    });
}

bool HasEnding(std::string_view file, std::string_view ending) {
    if (file.size() < ending.size()) return false;
    const std::string_view end = file.substr(file.size() - ending.size());
    return std::equal(end.begin(), end.end(), ending.begin(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

std::string SystemReason(int error) {
    return error == 0 ? "" : ": " + std::generic_category().message(error);
}

}  // namespace tessara::toolkit
