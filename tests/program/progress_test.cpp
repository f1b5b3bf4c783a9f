#include "run/progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <sstream>

#include "program/run_program.h"

using tessara::program::Progress;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;

namespace {

constexpr const char* NO_TERMINALS = "there are no pseudo-terminals";

// A terminal that records its output.
class Terminal {
  public:
    Terminal() {
        char name[64] = "";
        if (openpty(&outside_, &inside_, name, nullptr, nullptr) != 0) return;
        EXPECT_EQ(fcntl(outside_, F_SETFL, O_NONBLOCK), 0);
        name_ = name;
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        close(inside_);
        close(outside_);
    }

    // False where the system has no pseudo-terminals, as in a bare chroot.
    [[nodiscard]] bool IsThere() const { return inside_ >= 0; }
    [[nodiscard]] int Descriptor() const { return inside_; }
    // Its name among the files.
    [[nodiscard]] const std::string& Name() const { return name_; }

    // All that was written since the last call.
    [[nodiscard]] std::string Taken() const {
        std::string text;
        char buffer[4096];
        for (ssize_t n = 0; (n = read(outside_, buffer, sizeof buffer)) > 0;)
            text.append(buffer, static_cast<std::size_t>(n));
        return text;
    }

  private:
    int outside_ = -1;
    int inside_ = -1;
    std::string name_;
};

// Work that begins at second 100 of a clock that is set by hand.
class ProgressTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!terminal.IsThere()) GTEST_SKIP() << NO_TERMINALS;
    }

    // Does work until a second after its start.
    void AdvanceAt(double second, std::uint64_t lines, std::uint64_t bytes) {
        now = 100.0 + second;
        progress.Advance(lines, bytes);
    }

    const Terminal terminal;
    double now = 100.0;
    Progress progress{terminal.Descriptor(), 1000000, [this] { return now; }};
};

// How a line of a status is wiped out: blanks over it, and the cursor back at the start.
std::string WipingOut(const std::string& status) {
    return "\r" + std::string(status.size(), ' ') + "\r";
}

TEST_F(ProgressTest, SaysNothingInTheFirstTwoSeconds) {
    AdvanceAt(0.5, 1000, 10000);
    AdvanceAt(2.0, 1000, 10000);
    EXPECT_EQ(terminal.Taken(), "");
}

// 4000 lines in 2.5 s are 1600 a second; a tenth of the bytes in 2.5 s leaves nine times as long, 22.5 s.
TEST_F(ProgressTest, ThenSaysLinesLinesASecondAndTheTimeLeft) {
    AdvanceAt(1.0, 3000, 60000);
    AdvanceAt(2.5, 1000, 40000);
    EXPECT_EQ(terminal.Taken(), "\r4000 lines, 1600 lines/s, 0:23 left");
}

TEST_F(ProgressTest, RedrawsFourTimesASecondAtMost) {
    AdvanceAt(2.5, 1000, 100000);
    EXPECT_NE(terminal.Taken(), "");
    AdvanceAt(2.625, 1000, 100000);
    EXPECT_EQ(terminal.Taken(), "");
    AdvanceAt(2.75, 750, 50000);
    EXPECT_EQ(terminal.Taken(), "\r2750 lines, 1000 lines/s, 0:09 left");
}

TEST_F(ProgressTest, AShorterLineCoversTheLongerOne) {
    AdvanceAt(10.0, 10000, 10000);  // 990 s left
    EXPECT_EQ(terminal.Taken(), "\r10000 lines, 1000 lines/s, 16:30 left");
    AdvanceAt(20.0, 0, 990000);
    EXPECT_EQ(terminal.Taken(), "\r10000 lines, 500 lines/s, 0:00 left  ");
}

TEST_F(ProgressTest, LongTimesHaveHours) {
    AdvanceAt(50.0, 50, 5000);  // 199 times as long again: 9950 s
    EXPECT_EQ(terminal.Taken(), "\r50 lines, 1 lines/s, 2:45:50 left");
}

TEST_F(ProgressTest, WithMoreToReadThanWasKnownThereIsNoTimeLeft) {
    AdvanceAt(5.0, 5000, 1000001);
    EXPECT_EQ(terminal.Taken(), "\r5000 lines, 1000 lines/s");
}

TEST_F(ProgressTest, WithoutAnyWorkDoneThereIsNoTimeLeft) {
    AdvanceAt(5.0, 0, 0);
    EXPECT_EQ(terminal.Taken(), "\r0 lines, 0 lines/s");
}

TEST_F(ProgressTest, IsWipedOutOnce) {
    AdvanceAt(5.0, 5000, 1000000);
    const std::string status = "5000 lines, 1000 lines/s, 0:00 left";
    EXPECT_EQ(terminal.Taken(), "\r" + status);
    progress.Clear();
    EXPECT_EQ(terminal.Taken(), WipingOut(status));
    progress.Clear();
    EXPECT_EQ(terminal.Taken(), "");
}

TEST(Progress, AnUnknownAmountHasNoTimeLeftAndTheEndWipesTheLineOut) {
    const Terminal terminal;
    if (!terminal.IsThere()) GTEST_SKIP() << NO_TERMINALS;
    double now = 0.0;
    {
        Progress progress(terminal.Descriptor(), 0, [&now] { return now; });
        now = 4.0;
        progress.Advance(1000, 20000);
        EXPECT_EQ(terminal.Taken(), "\r1000 lines, 250 lines/s");
    }
    EXPECT_EQ(terminal.Taken(), WipingOut("1000 lines, 250 lines/s"));
}

TEST(Progress, ShowsNothingWhereThereIsNoTerminal) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    double now = 0.0;
    {
        Progress progress(ends[1], 100, [&now] { return now; });
        now = 10.0;
        progress.Advance(1, 1);
    }
    close(ends[1]);
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 0);
    close(ends[0]);
}

namespace {

// What is written behind each return of the cursor.
std::vector<std::string> PiecesOf(const std::string& shown) {
    std::vector<std::string> pieces;
    std::istringstream rest(shown);
    std::string piece;
    std::getline(rest, piece, '\r');
    EXPECT_EQ(piece, "");
    while (std::getline(rest, piece, '\r'))
        pieces.push_back(piece);
    return pieces;
}

// Converts two blocks of lines that come more than two seconds apart, with standard error on a terminal.
Outcome ConvertSlowly(const Terminal& terminal, const std::string& results) {
    const std::string block = "yes 'N 5334791;32 691602' | head -n 4096; ";
    const std::string convert = " convert --from UTM --to UTMREF";
    return RunProgram("/bin/sh", {"-c", "{ " + block + "sleep 2.1; " + block + "} | " + TESSARA_PROGRAM +
                                            convert + results + " 2>" + terminal.Name()});
}

}  // namespace

TEST(ConvertProgress, StandsOnTheTerminalOfStandardErrorUntilTheEnd) {
    const Terminal terminal;
    if (!terminal.IsThere()) GTEST_SKIP() << NO_TERMINALS;
    const Outcome outcome = ConvertSlowly(terminal, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(tessara::testing::LinesOf(outcome.out).size(), 8192u);
    EXPECT_EQ(outcome.out.find("lines/s"), std::string::npos);

    // A busy machine shows a status after each of some blocks, one over the other; the first stands behind
    // the pause. A pipe has no size, so a status ends with the speed. At the end the last one is wiped out.
    std::vector<std::string> statuses = PiecesOf(terminal.Taken());
    ASSERT_GE(statuses.size(), 2u);
    const std::string wiping = statuses.back();
    statuses.pop_back();
    int before = 4096;
    for (std::string& status : statuses) {
        status.erase(status.find_last_not_of(' ') + 1);  // where a longer one stood
        EXPECT_TRUE(status.ends_with(" lines/s")) << status;
        const int lines = std::stoi(status);
        EXPECT_GT(lines, before);
        before = lines;
    }
    EXPECT_LE(before, 8192);
    EXPECT_EQ("\r" + wiping + "\r", WipingOut(statuses.back()));
}

TEST(ConvertProgress, KeepsAwayFromResultsOnTheSameTerminal) {
    const Terminal terminal;
    if (!terminal.IsThere()) GTEST_SKIP() << NO_TERMINALS;
    const Outcome outcome = RunProgram("/bin/sh", {"-c", std::string("echo '48 11' | ") + TESSARA_PROGRAM +
                                                             " convert >" + terminal.Name() + " 2>&1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(terminal.Taken(), "48.000000000 11.000000000\r\n");
}

}  // namespace
