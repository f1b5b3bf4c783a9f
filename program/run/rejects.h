// A file for the input that can't be used.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace tessara::program {

class Rejects {
  public:
    // Without a file there is nothing to write to. What is wrong with it is a message for a line of its own;
    // empty if nothing is. None of the `inputs` is overwritten.
    [[nodiscard]] std::string Open(const std::optional<std::string>& file,
                                   const std::vector<std::string>& inputs);

    void Write(const std::string& text) {
        if (file_) stream_ << text;
    }

    // What went wrong; empty if nothing did.
    [[nodiscard]] std::string Finish();

  private:
    std::optional<std::string> file_;
    std::ofstream stream_;
};

}  // namespace tessara::program
