// Files that are read, and what keeps them from it.
#pragma once

#include <functional>
#include <istream>
#include <string>

namespace tessara::program {

using ReadStream = std::function<void(std::istream&)>;

// What went wrong; empty if nothing did. A file that can't be opened isn't read at all.
[[nodiscard]] std::string ReadFile(const std::string& file, const ReadStream& read);

// The same, and '-' is standard input.
[[nodiscard]] std::string ReadInput(const std::string& file, const ReadStream& read);

}  // namespace tessara::program
