#include "lines/input_files.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace tessara::toolkit {
namespace {

// A stream that breaks ends like any other, but for this bit.
std::string ReadToItsEnd(std::istream& stream, const ReadStream& read) {
    read(stream);
    return stream.bad() ? "can't be read to its end" : "";
}

}  // namespace

std::string ReadFile(const std::string& file, const ReadStream& read) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || std::filesystem::is_directory(file)) return "can't be read";
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

}  // namespace tessara::toolkit
