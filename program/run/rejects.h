// The file of --rejects.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace tessara::program {

class Rejects {
  public:
    // Without a file, Write does nothing. Returns the error message, or an empty text. Refuses to overwrite
    // any of the `inputs`.
    [[nodiscard]] std::string Open(const std::optional<std::string>& file,
                                   const std::vector<std::string>& inputs);

    void Write(const std::string& text) {
        if (file_) stream_ << text;
    }

    // Returns the error message; empty on success.
    [[nodiscard]] std::string Finish();

  private:
    std::optional<std::string> file_;
    std::ofstream stream_;
};

}  // namespace tessara::program
