// The pages of the manual: their links lead to files, and they name every example and every page.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "program/files.h"

using tessara::testing::ReadFile;

namespace {

namespace fs = std::filesystem;

const fs::path PROJECT = TESSARA_SOURCE_DIR;

std::vector<fs::path> Pages() {
    std::vector<fs::path> pages{PROJECT / "README.md", PROJECT / "CHANGELOG.md", PROJECT / "CONTRIBUTING.md"};
    for (const auto& entry : fs::recursive_directory_iterator(PROJECT / "docs")) {
        if (entry.path().extension() == ".md") pages.push_back(entry.path());
    }
    return pages;
}

// The targets of the links in a text, except for addresses on the web.
std::vector<std::string> LinksOf(const std::string& text) {
    static const std::regex link(R"(\]\(([^)#:]+)\))");
    std::vector<std::string> links;
    for (std::sregex_iterator found(text.begin(), text.end(), link), none; found != none; ++found)
        links.push_back((*found)[1]);
    return links;
}

}  // namespace

TEST(Pages, LinksLeadToFiles) {
    std::size_t count = 0;
    for (const fs::path& page : Pages()) {
        for (const std::string& link : LinksOf(ReadFile(page))) {
            EXPECT_TRUE(fs::exists(page.parent_path() / link)) << page << ": " << link;
            ++count;
        }
    }
    EXPECT_GT(count, 20u);
}

TEST(Pages, NameEveryExample) {
    const std::string page = ReadFile(PROJECT / "docs" / "examples.md");
    for (const auto& entry : fs::directory_iterator(PROJECT / "examples")) {
        if (entry.path().extension() != ".cpp") continue;
        EXPECT_NE(page.find("| `" + entry.path().stem().string() + "` |"), std::string::npos) << entry.path();
    }
}

TEST(Pages, NameEveryPageOnTheMainPage) {
    const std::string main = ReadFile(PROJECT / "docs" / "index.md");
    for (const fs::path& page : Pages()) {
        const std::string name = fs::relative(page, PROJECT / "docs").generic_string();
        if (name == "index.md" || name.starts_with("..") || name == "tables/measured.md") continue;
        EXPECT_NE(main.find("](" + name + ")"), std::string::npos) << name;
    }
}
