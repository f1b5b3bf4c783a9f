// Reads files and reports read errors.
#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

using ReadStream = std::function<void(std::istream&)>;

// Calls `read` with the file and returns the error, or an empty text. Does not call `read` if the file cannot
// be opened.
[[nodiscard]] std::string ReadFile(const std::string& file, const ReadStream& read);

// The same; '-' is standard input.
[[nodiscard]] std::string ReadInput(const std::string& file, const ReadStream& read);

// The path of an input.
[[nodiscard]] std::filesystem::path PathOfInput(const std::string& file);

// Whether an output file is one of the inputs and would overwrite it.
[[nodiscard]] bool IsOneOf(const std::string& file, const std::vector<std::string>& inputs);

// Whether a file has an extension, which is given in lower case; ignores the case of the file name.
[[nodiscard]] bool HasEnding(std::string_view file, std::string_view ending);

// The system's message for an error number: ": No such file or directory"; empty for 0.
[[nodiscard]] std::string SystemReason(int error);

}  // namespace tessara::toolkit
