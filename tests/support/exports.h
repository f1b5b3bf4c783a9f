// The list of the shared library's exports.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "support/paths.h"

namespace tessara::testing {

// The lines of a list in tests/data, without its remarks.
[[nodiscard]] inline std::vector<std::string> LinesListedIn(const std::string& name) {
    std::ifstream file(SourceDir() + "/tests/data/" + name);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    }
    EXPECT_FALSE(lines.empty()) << "tests/data/" << name << " lists nothing";
    return lines;
}

[[nodiscard]] inline std::set<std::string> ListedIn(const std::string& name) {
    const std::vector<std::string> lines = LinesListedIn(name);
    return {lines.begin(), lines.end()};
}

// In the spelling of source code.
[[nodiscard]] inline std::set<std::string> ListedExports() {
    return ListedIn("exports.txt");
}

// In the spelling of the linker.
[[nodiscard]] inline std::set<std::string> ListedSymbols() {
    return ListedIn("symbols.txt");
}

}  // namespace tessara::testing
