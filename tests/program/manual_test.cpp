// The man page and the shell completion, compared with the help of the program.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "program/files.h"
#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::ReadFile;
using tessara::testing::RunProgram;
using tessara::testing::Tessara;

namespace {

std::set<std::string> Commands() {
    std::set<std::string> commands;
    bool isListed = false;
    for (const std::string& line : LinesOf(Tessara({"--help"}).out)) {
        if (isListed && line.starts_with("  ")) commands.insert(line.substr(2, line.find(' ', 2) - 2));
        isListed = line == "Subcommands:" || (isListed && !line.empty());
    }
    EXPECT_TRUE(commands.contains("convert"));
    return commands;
}

// The long options that a command's help lists.
std::set<std::string> OptionsOf(const std::string& command) {
    const std::string help = Tessara({command, "--help"}).out;
    const std::regex pattern("\n  (?:-h,)?(--[a-z-]+)");
    std::set<std::string> options;
    for (std::sregex_iterator i(help.begin(), help.end(), pattern), end; i != end; ++i)
        options.insert((*i)[1]);
    EXPECT_TRUE(options.contains("--help")) << command;
    return options;
}

std::string ManPage() {
    // The page writes a hyphen as "\-".
    return std::regex_replace(ReadFile(TESSARA_SOURCE_DIR "/program/tessara.1.in"), std::regex(R"(\\-)"),
                              "-");
}

// The completions for the last of the words.
std::set<std::string> Completions(const std::vector<std::string>& words) {
    const std::string script = "source '" TESSARA_SOURCE_DIR
                               "/program/tessara.bash-completion'\n"
                               "COMP_WORDS=(\"$@\") COMP_CWORD=$(($# - 1))\n"
                               "_tessara 2>/dev/null\n"
                               "printf '%s\\n' \"${COMPREPLY[@]}\"\n";
    std::vector<std::string> arguments{"-c", script, "bash"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const Outcome outcome =
        RunProgram("/bin/bash", arguments, {{}, {"PATH=" TESSARA_PROGRAM_DIR ":/usr/bin:/bin"}, {}});
    std::set<std::string> found;
    for (const std::string& line : LinesOf(outcome.out)) {
        if (!line.empty()) found.insert(line);
    }
    return found;
}

}  // namespace

TEST(ManPage, NamesEveryCommandAndEveryOption) {
    const std::string page = ManPage();
    for (const std::string& command : Commands()) {
        EXPECT_TRUE(std::regex_search(page, std::regex("\n\\.BR? " + command + "\\b"))) << command;
        for (const std::string& option : OptionsOf(command))
            EXPECT_NE(page.find(option), std::string::npos) << command << ' ' << option;
    }
}

TEST(Completion, OffersTheCommands) {
    std::set<std::string> offered = Commands();
    offered.insert({"--help", "--version"});
    EXPECT_EQ(Completions({"tessara", ""}), offered);
    EXPECT_EQ(Completions({"tessara", "con"}), std::set<std::string>{"convert"});
}

TEST(Completion, OffersTheOptionsOfACommand) {
    for (const std::string& command : Commands())
        EXPECT_EQ(Completions({"tessara", command, "--"}), OptionsOf(command)) << command;
}

TEST(Completion, OffersSystemsAndDatums) {
    EXPECT_EQ(Completions({"tessara", "convert", "--to", "UT"}), (std::set<std::string>{"UTM", "UTMREF"}));
    EXPECT_EQ(Completions({"tessara", "check", "--system", "GK@GE"}),
              (std::set<std::string>{"GK@GER", "GK@GEO"}));
    EXPECT_EQ(Completions({"tessara", "distance", "--datum", "NAD2"}), std::set<std::string>{"NAD27"});
}

TEST(Completion, OffersTheFormsOfFiles) {
    EXPECT_EQ(Completions({"tessara", "convert", "--output", ""}),
              (std::set<std::string>{"lines", "csv", "jsonl", "geojson"}));
    EXPECT_EQ(Completions({"tessara", "convert", "--input", "js"}), std::set<std::string>{"jsonl"});
}
