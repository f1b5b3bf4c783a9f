// The dynamic symbols of the shared library are a contract: what is listed is there, and nothing else.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <set>
#include <sstream>
#include <string>

#include "support/exports.h"
#include "support/sanitized.h"

namespace tessara {
namespace {

using testing::ListedExports;

// The lines that a command of the binary utilities writes about the library.
std::istringstream Ask(const std::string& command) {
    FILE* const pipe = popen((command + " '" TESSARA_LIBRARY "'").c_str(), "r");
    std::string output;
    if (pipe != nullptr) {
        std::array<char, 4096> block;
        while (const std::size_t size = std::fread(block.data(), 1, block.size(), pipe))
            output.append(block.data(), size);
        EXPECT_EQ(pclose(pipe), 0) << command;
    }
    EXPECT_FALSE(output.empty()) << command;
    return std::istringstream(output);
}

std::set<std::string> ActualExports() {
    std::istringstream lines = Ask("nm -D --defined-only -C");
    std::set<std::string> names;
    for (std::string line; std::getline(lines, line);) {
        // Address, type, and the name, which may have spaces in it.
        std::istringstream words(line);
        std::string address, type, name;
        words >> address >> type >> std::ws;
        std::getline(words, name);
        names.insert(name);
    }
    return names;
}

std::string Difference(const std::set<std::string>& left, const std::set<std::string>& right) {
    std::string names;
    for (const std::string& name : left) {
        if (right.count(name) == 0) names += name + '\n';
    }
    return names;
}

TEST(Exports, NoneIsMissing) {
    EXPECT_EQ(Difference(ListedExports(), ActualExports()), "");
}

TEST(Exports, NoneIsAdded) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers export symbols of their own";
    EXPECT_EQ(Difference(ActualExports(), ListedExports()), "");
}

TEST(Exports, TheLibraryNeedsTheStandardLibraryOnly) {
    if (testing::IS_SANITIZED) GTEST_SKIP() << "sanitizers bring libraries of their own";
    const std::set<std::string> standard{"libstdc++", "libc++", "libc++abi",       "libgcc_s",
                                         "libm",      "libc",   "ld-linux-x86-64", "ld-linux-aarch64"};
    std::istringstream lines = Ask("readelf -d -W");
    int needed = 0;
    for (std::string line; std::getline(lines, line);) {
        // 0x0000000000000001 (NEEDED)  Shared library: [libm.so.6]
        if (line.find("(NEEDED)") == std::string::npos) continue;
        const std::size_t start = line.find('[') + 1;
        ++needed;
        EXPECT_EQ(standard.count(line.substr(start, line.find(".so") - start)), 1u) << line;
    }
    EXPECT_GT(needed, 0);
}

}  // namespace
}  // namespace tessara
