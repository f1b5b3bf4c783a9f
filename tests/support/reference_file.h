// Reference figures of an independent program or a publication: text files in tests/data, one row of
// whitespace-separated columns per line. Lines that start with '#' name the source of the figures.
#pragma once

#include <gtest/gtest.h>

#include <charconv>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "support/paths.h"

namespace tessara::testing {

struct ReferenceRow {
    std::string place;  // file and line, for messages
    std::vector<std::string> columns;

    // The text of a column; empty beyond the end of the row.
    [[nodiscard]] std::string Text(std::size_t column) const {
        return column < columns.size() ? columns[column] : std::string();
    }

    // A column as a number; NaN, which compares equal to nothing, if it is missing.
    [[nodiscard]] double Number(std::size_t column) const {
        const std::string text = Text(column);
        double value = 0.0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool isNumber = error == std::errc() && end == text.data() + text.size();
        return isNumber ? value : std::numeric_limits<double>::quiet_NaN();
    }
};

// The rows of tests/data/NAME, e.g. "kernel/utm.txt". Fails the test if the file is missing or has no rows.
[[nodiscard]] inline std::vector<ReferenceRow> ReadReferenceFile(const std::string& name) {
    std::ifstream file(SourceDir() + "/tests/data/" + name);
    std::vector<ReferenceRow> rows;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line);
        ReferenceRow row{name + ":" + std::to_string(number), {}};
        for (std::string word; words >> word;)
            row.columns.push_back(word);
        if (!row.columns.empty() && row.columns[0][0] != '#') rows.push_back(row);
    }
    EXPECT_FALSE(rows.empty()) << "no reference figures in tests/data/" << name;
    return rows;
}

}  // namespace tessara::testing
