#include <gtest/gtest.h>

#include "program/run_program.h"

using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::Tessara;

namespace {

const std::vector<std::string> COMMANDS{"convert", "systems", "datums", "distance",
                                        "direct",  "check",   "utmref", "map"};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(Program, NamesItsCommandsInTheHelp) {
    const Outcome outcome = Tessara({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const std::string& command : COMMANDS)
        EXPECT_TRUE(Contains(outcome.out, "\n  " + command + " ")) << outcome.out;
    EXPECT_TRUE(Contains(outcome.out, "Examples:"));
    EXPECT_TRUE(Contains(outcome.out, "Exit status:"));
}

TEST(Program, ExplainsEachCommand) {
    for (const std::string& command : COMMANDS) {
        const Outcome outcome = Tessara({command, "--help"});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_TRUE(Contains(outcome.out, "Usage: tessara " + command)) << outcome.out;
    }
}

TEST(Program, TellsItsVersion) {
    const Outcome outcome = Tessara({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "tessara " TESSARA_VERSION "\n");
}

TEST(Program, WantsOneOfItsCommands) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"transform"},
                                                      {"--json"},
                                                      {"systems", "datums"},
                                                      {"systems", "more"}}) {
        const Outcome outcome = Tessara(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err, "");
    }
}

TEST(Program, FailsWhenWhatItTellsIsLost) {
    for (const char* command : {"systems", "datums", "--help", "--version"}) {
        const Outcome outcome = RunProgram(TESSARA_PROGRAM, {command}, {{}, {}, "/dev/full"});
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(outcome.err, "tessara: cannot write standard output\n") << command;
    }
}
