#include <gtest/gtest.h>

#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;

namespace {

// Where no program is found, dpkg and apt-get aren't either.
Outcome RunOnAForeignSystem(const std::string& script) {
    return RunProgram("/bin/bash", {TESSARA_SOURCE_DIR "/scripts/" + script}, {{}, {"PATH=/nowhere"}, {}});
}

}  // namespace

TEST(Setup, NamesThePackagesInOneLineWhereItCantInstallThem) {
    const Outcome outcome = RunOnAForeignSystem("setup");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    const std::vector<std::string> lines = LinesOf(outcome.err);
    ASSERT_EQ(lines.size(), 1u) << outcome.err;
    for (const char* package :
         {"g++", "cmake", "ninja-build", "libgtest-dev", "libgeos-dev", "libcli11-dev", "nlohmann-json3-dev"})
        EXPECT_NE(lines[0].find(package), std::string::npos) << package;
}
