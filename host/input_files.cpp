#include "input_files.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace tessara::program {
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

}  // namespace tessara::program
