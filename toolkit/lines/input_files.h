// Files that are read, and what keeps them from it.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
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

// Whether a file's name has an ending, in upper or lower case; the ending is in lower case.
[[nodiscard]] bool HasEnding(std::string_view file, std::string_view ending);

// What the system says about an error number of a call: ": No such file or directory"; empty where it says
// nothing.
[[nodiscard]] std::string SystemReason(int error);

}  // namespace tessara::toolkit
