// The man page and the shell completion, compared with the help of the program.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
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
    const std::regex pattern("\n  (?:-[a-z],)?(--[a-z-]+)");
    std::set<std::string> options;
    for (std::sregex_iterator i(help.begin(), help.end(), pattern), end; i != end; ++i)
        options.insert((*i)[1]);
    EXPECT_TRUE(options.contains("--help")) << command;
    return options;
}

// The part of the man page about a command.
std::string ManPageOf(const std::string& command) {
    const std::string page = Tessara({"manual"}).out;
    const std::size_t begin = page.find("\n.SS tessara " + command);
    EXPECT_NE(begin, std::string::npos) << command;
    const std::size_t end = page.find("\n.S", begin + 1);
    // A hyphen that is to stay one is written "\-".
    return std::regex_replace(page.substr(begin, end - begin), std::regex(R"(\\-)"), "-");
}

// The completions for the last of the words.
std::set<std::string> Completions(const std::vector<std::string>& words) {
    const std::string script =
        "source <(tessara completion)\n"
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
    for (const std::string& command : Commands()) {
        const std::string page = ManPageOf(command);
        for (const std::string& option : OptionsOf(command)) {
            if (option == "--help") continue;
            EXPECT_NE(page.find(option + "\\fR"), std::string::npos) << command << ' ' << option;
        }
    }
}

// A page that begins a line with a dot by accident, or ends in the middle, would show it here.
TEST(ManPage, HasKnownRequestsOnly) {
    const Outcome page = Tessara({"manual"});
    EXPECT_EQ(page.status, 0);
    const std::regex known(R"(\.(TH|SH|SS|TP|PP|B|BR|I|RI|EX|EE)( .*)?)");
    for (const std::string& line : LinesOf(page.out)) {
        EXPECT_TRUE(!line.starts_with('.') || std::regex_match(line, known)) << line;
    }
    EXPECT_NE(page.out.find("tessara " TESSARA_VERSION), std::string::npos);
    for (const std::string section : {"NAME", "SYNOPSIS", "OPTIONS", "COMMANDS", "EXIT STATUS", "SEE ALSO"})
        EXPECT_NE(page.out.find("\n.SH " + section), std::string::npos) << section;
}

// They are for the build.
TEST(ManPage, IsNoCommandOfTheHelp) {
    EXPECT_FALSE(Commands().contains("manual"));
    EXPECT_FALSE(Commands().contains("completion"));
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
              (std::set<std::string>{"lines", "csv", "tsv", "jsonl", "geojson"}));
    EXPECT_EQ(Completions({"tessara", "convert", "--input", "js"}), std::set<std::string>{"jsonl"});
}
