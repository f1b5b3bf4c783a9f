// A status line on a terminal for long conversions: lines done, lines per second and time left.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tessara::program {

class Progress {
  public:
    using Clock = std::function<double()>;  // seconds since any origin

    // Shows nothing if the file descriptor is not a terminal. `bytes` is the size of the input; 0, for an
    // unknown size, omits the time left.
    Progress(int descriptor, std::uint64_t bytes, Clock clock = SteadySeconds);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Clear(); }

    // Counts finished input and draws the line: after the first two seconds, and at most four times a second.
    void Advance(std::uint64_t lines, std::uint64_t bytes);

    // Erases the line, so that other text can be written to the terminal.
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
    std::size_t width_ = 0;  // of the current line
};

}  // namespace tessara::program
