// The lines of a stream, counted from 1, without a byte order mark at its start.
#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

namespace tessara::toolkit {

class LineReader {
  public:
    explicit LineReader(std::istream& stream) : stream_(stream) {}

    // Reads the next line without its line feed; a carriage return remains. Returns false at the end.
    bool Next(std::string* line) {
        if (!std::getline(stream_, *line)) return false;
        if (++number_ == 1 && line->starts_with("\xEF\xBB\xBF")) line->erase(0, 3);
        return true;
    }

    // Whether part of the next line has arrived. False at the end.
    [[nodiscard]] bool HasMore() { return stream_.rdbuf()->in_avail() > 0; }

    // The number of the last line.
    [[nodiscard]] std::size_t Number() const { return number_; }

  private:
    std::istream& stream_;
    std::size_t number_ = 0;
};

// Removes a carriage return from the end of a line.
[[nodiscard]] inline std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace tessara::toolkit
