// The examples in the headers of the contract are those that tests/snippets compiles and runs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/paths.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

std::string Trimmed(const std::string& line) {
    const std::size_t first = line.find_first_not_of(' ');
    return first != std::string::npos ? line.substr(first) : std::string();
}

// Without indentation, in which a comment and a function differ.
Lines TrimmedLinesOf(const fs::path& path) {
    std::ifstream file(path);
    Lines lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(Trimmed(line));
    return lines;
}

// A line of code in a comment.
bool IsCode(const std::string& line) {
    return line.starts_with("//     ");
}

// The code below each line that begins with "Example".
std::vector<Lines> ExamplesOf(const fs::path& header) {
    const Lines lines = TrimmedLinesOf(header);
    std::vector<Lines> examples;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].starts_with("// Example")) continue;
        while (i < lines.size() && lines[i].starts_with("//") && !IsCode(lines[i]))
            ++i;
        Lines& example = examples.emplace_back();
        for (; i < lines.size() && IsCode(lines[i]); ++i)
            example.push_back(Trimmed(lines[i].substr(2)));
    }
    return examples;
}

std::vector<fs::path> FilesBelow(const std::string& directory) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(testing::SourceDir() + "/" + directory)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    return files;
}

bool HasCreationFunction(const fs::path& header) {
    const Lines lines = TrimmedLinesOf(header);
    return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with("extern \"C\"") && line.find(" CreateClass") != std::string::npos;
    });
}

TEST(HeaderExamples, EveryClassHeaderHasOne) {
    int classes = 0;
    for (const fs::path& header : FilesBelow("include/tessara")) {
        if (!HasCreationFunction(header)) continue;
        ++classes;
        EXPECT_FALSE(ExamplesOf(header).empty()) << header;
    }
    EXPECT_GE(classes, 33);
}

TEST(HeaderExamples, TestsRunThemAsTheyAre) {
    std::vector<Lines> tests;
    for (const fs::path& source : FilesBelow("tests/snippets"))
        tests.push_back(TrimmedLinesOf(source));
    for (const fs::path& header : FilesBelow("include/tessara")) {
        for (const Lines& example : ExamplesOf(header)) {
            ASSERT_FALSE(example.empty()) << header;
            const bool isRun = std::any_of(tests.begin(), tests.end(), [&example](const Lines& lines) {
                return std::search(lines.begin(), lines.end(), example.begin(), example.end()) != lines.end();
            });
            EXPECT_TRUE(isRun) << header << ": " << example.front();
        }
    }
}

}  // namespace
}  // namespace tessara
