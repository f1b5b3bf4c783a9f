// A status line on a terminal, for work that takes its time: how many lines are done, how many a second, and
// how long the rest will take.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tessara::program {

class Progress {
  public:
    using Clock = std::function<double()>;  // seconds, counted from anywhere

    // Shows nothing where the file descriptor isn't a terminal. `bytes` is how much there is to read; 0 where
    // nobody knows, and then there is no time left to tell.
    Progress(int descriptor, std::uint64_t bytes, Clock clock = SteadySeconds);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Clear(); }

    // Counts what is done, and draws the line when it is time: not in the first two seconds, and not more
    // than four times a second.
    void Advance(std::uint64_t lines, std::uint64_t bytes);

    // Wipes the line out, before anything else is written to the terminal.
    void Clear();

  private:
    static double SteadySeconds();
    [[nodiscard]] std::string StatusAfter(double elapsed) const;
    void Draw(const std::string& status);

    int descriptor_;
    bool isTerminal_;
    std::uint64_t bytes_;
    Clock clock_;
    double start_ = 0.0;
    double lastDrawn_ = 0.0;  // seconds after the start
    std::uint64_t linesDone_ = 0;
    std::uint64_t bytesDone_ = 0;
    std::size_t width_ = 0;  // of the line that stands on the terminal
};

}  // namespace tessara::program
