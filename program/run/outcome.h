// The results of a piece of input and the messages about rejected records, in the order of the input.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessara::program {

class Outcome {
  public:
    // Results, and the rejected records that follow them.
    struct Run {
        std::string results;
        std::string messages;
        std::string rejects;
    };

    // The text to which results are appended.
    [[nodiscard]] std::string* Results() {
        if (runs_.empty() || !runs_.back().messages.empty()) runs_.emplace_back();
        return &runs_.back().results;
    }

    // A message is a whole line; `input` is written to the file of --rejects.
    void Refuse(std::string_view message, std::string_view input) {
        if (runs_.empty()) runs_.emplace_back();
        runs_.back().messages += message;
        runs_.back().rejects += input;
    }

    // Adds whole lines of information about results.
    void Note(std::string_view notes) { notes_ += notes; }

    // Counts input for the status line.
    void Count(std::uint64_t lines, std::uint64_t bytes) {
        lines_ += lines;
        bytes_ += bytes;
    }

    // Ends the conversion after this outcome.
    void Stop() { isLast_ = true; }

    [[nodiscard]] const std::vector<Run>& Runs() const { return runs_; }
    [[nodiscard]] const std::string& Notes() const { return notes_; }
    [[nodiscard]] std::uint64_t Lines() const { return lines_; }
    [[nodiscard]] std::uint64_t Bytes() const { return bytes_; }
    [[nodiscard]] bool IsLast() const { return isLast_; }

  private:
    std::vector<Run> runs_;
    std::string notes_;
    std::uint64_t lines_ = 0;
    std::uint64_t bytes_ = 0;
    bool isLast_ = false;
};

}  // namespace tessara::program
