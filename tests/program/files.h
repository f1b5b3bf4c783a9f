// Files for tests: what one holds, and a place for those that a test makes.
#pragma once

#include <filesystem>
#include <string>

namespace tessara::testing {

// All bytes of a file; none, and a failure of the test, if it can't be read.
[[nodiscard]] std::string ReadFile(const std::filesystem::path& path);

// A directory that nobody else uses, and that is gone with the object.
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
