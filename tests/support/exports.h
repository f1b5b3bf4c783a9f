// The list of what the shared library exports.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "support/paths.h"

namespace tessara::testing {

[[nodiscard]] inline std::set<std::string> ListedExports() {
    std::ifstream file(SourceDir() + "/tests/data/exports.txt");
    std::set<std::string> names;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') names.insert(line);
    }
    EXPECT_FALSE(names.empty()) << "tests/data/exports.txt lists nothing";
    return names;
}

}  // namespace tessara::testing
