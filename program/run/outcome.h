// What comes of a piece of input: results, and messages about what can't be used, in the order of the input.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessara::program {

class Outcome {
  public:
    // Results, and what can't be used behind them.
    struct Run {
        std::string results;
        std::string messages;
        std::string rejects;
    };

    // Where results are appended.
    [[nodiscard]] std::string* Results() {
        if (runs_.empty() || !runs_.back().messages.empty()) runs_.emplace_back();
        return &runs_.back().results;
    }

    // A message is a whole line; `input` is what goes to the file of rejects.
    void Refuse(std::string_view message, std::string_view input) {
        if (runs_.empty()) runs_.emplace_back();
        runs_.back().messages += message;
        runs_.back().rejects += input;
    }

    // What is worth knowing of results, in whole lines.
    void Note(std::string_view notes) { notes_ += notes; }

    // Says how much input it comes from.
    void Count(std::uint64_t lines, std::uint64_t bytes) {
        lines_ += lines;
        bytes_ += bytes;
    }

    // Nothing follows it: the rest of the input is left.
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
