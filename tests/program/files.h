// Files for tests: reads a file, and creates a place for files that a test writes.
#pragma once

#include <filesystem>
#include <string>

namespace tessara::testing {

// All bytes of a file. If it can't be read, the result is empty and the test fails.
[[nodiscard]] std::string ReadFile(const std::filesystem::path& path);

// A directory of its own, which is removed with the object.
class ScratchDirectory {
  public:
    ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory();

    // Of a file in it, which need not be there.
    [[nodiscard]] std::string Path(const std::string& name) const { return (directory_ / name).string(); }
    // Writes a file, and gives its path.
    [[nodiscard]] std::string File(const std::string& name, const std::string& text) const;
    [[nodiscard]] std::string Contents(const std::string& name) const { return ReadFile(Path(name)); }

  private:
    std::filesystem::path directory_;
};

}  // namespace tessara::testing
