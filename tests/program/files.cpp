#include "program/files.h"

#include <gtest/gtest.h>
#include <stdlib.h>  // mkdtemp

#include <fstream>
#include <sstream>

namespace tessara::testing {

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

ScratchDirectory::ScratchDirectory() {
    std::string path = (std::filesystem::temp_directory_path() / "tessara-test-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) ADD_FAILURE() << "can't make " << path;
    directory_ = path;
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::string ScratchDirectory::File(const std::string& name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
}

}  // namespace tessara::testing
