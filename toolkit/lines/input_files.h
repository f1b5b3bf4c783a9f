// Files that are read, and what keeps them from it.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <string>
#include <vector>

namespace tessara::toolkit {

using ReadStream = std::function<void(std::istream&)>;

// What went wrong; empty if nothing did. A file that can't be opened isn't read at all.
[[nodiscard]] std::string ReadFile(const std::string& file, const ReadStream& read);

// The same, and '-' is standard input.
[[nodiscard]] std::string ReadInput(const std::string& file, const ReadStream& read);

// Where an input lies among the files.
[[nodiscard]] std::filesystem::path PathOfInput(const std::string& file);

// Whether a file that is to be written is one of the inputs, which it would overwrite.
[[nodiscard]] bool IsOneOf(const std::string& file, const std::vector<std::string>& inputs);

}  // namespace tessara::toolkit
