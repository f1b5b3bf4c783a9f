#include "run/progress.h"

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <utility>

namespace tessara::program {
namespace {

constexpr double FIRST_AFTER = 2.0;  // seconds
constexpr double REDRAW_AFTER = 0.25;

std::string TwoDigits(std::uint64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// Minutes and seconds, with hours if needed.
std::string ClockText(double seconds) {
    const auto whole = static_cast<std::uint64_t>(std::ceil(seconds));
    const std::uint64_t hours = whole / 3600;
    const std::uint64_t minutes = whole / 60 % 60;
    const std::string start =
        hours > 0 ? std::to_string(hours) + ":" + TwoDigits(minutes) : std::to_string(minutes);
    return start + ":" + TwoDigits(whole % 60);
}

}  // namespace

Progress::Progress(int descriptor, std::uint64_t bytes, Clock clock)
    : descriptor_(descriptor),
      isTerminal_(isatty(descriptor) != 0),
      bytes_(bytes),
      clock_(std::move(clock)),
      start_(isTerminal_ ? clock_() : 0.0) {}

void Progress::Advance(std::uint64_t lines, std::uint64_t bytes) {
    if (!isTerminal_) return;
    linesDone_ += lines;
    bytesDone_ += bytes;
    const double elapsed = clock_() - start_;
    if (elapsed <= FIRST_AFTER || elapsed < lastDrawn_ + REDRAW_AFTER) return;
    lastDrawn_ = elapsed;
    Draw(StatusAfter(elapsed));
}

void Progress::Clear() {
    if (width_ > 0) Draw("");
}

double Progress::SteadySeconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

std::string Progress::StatusAfter(double elapsed) const {
    const auto perSecond = static_cast<std::uint64_t>(static_cast<double>(linesDone_) / elapsed);
    std::string status = std::to_string(linesDone_) + " lines, " + std::to_string(perSecond) + " lines/s";
    // A file may have grown since its size was read.
    if (bytesDone_ == 0 || bytesDone_ > bytes_) return status;
    const double perByte = elapsed / static_cast<double>(bytesDone_);
    return status + ", " + ClockText(perByte * static_cast<double>(bytes_ - bytesDone_)) + " left";
}

// Overwrites the current line and erases its end.
void Progress::Draw(const std::string& status) {
    const std::size_t rest = width_ > status.size() ? width_ - status.size() : 0;
    const std::string line = "\r" + status + std::string(rest, ' ') + (status.empty() ? "\r" : "");
    width_ = status.size();
    // The status is not a result, so a failed write only ends the display.
    if (::write(descriptor_, line.data(), static_cast<unsigned>(line.size())) < 0) isTerminal_ = false;
}

}  // namespace tessara::program
