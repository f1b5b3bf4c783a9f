// The lines of a text, counted from 1, without a byte order mark at its start.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tessara::toolkit {

class LineReader {
  public:
    // The text outlives the reader.
    explicit LineReader(std::string_view text) : rest_(text) {
        if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);
    }

    // Reads the next line without its line feed; a carriage return remains. Returns false at the end.
    bool Next(std::string* line) {
        if (rest_.empty()) return false;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        line->assign(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        ++number_;
        return true;
    }

    // The number of the last line.
    [[nodiscard]] std::size_t Number() const { return number_; }

  private:
    std::string_view rest_;
    std::size_t number_ = 0;
};

// Removes a carriage return from the end of a line.
[[nodiscard]] inline std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace tessara::toolkit
