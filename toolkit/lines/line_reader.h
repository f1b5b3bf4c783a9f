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

    // The next line without its end, of which a carriage return stays. False if there is none.
    bool Next(std::string* line) {
        if (!std::getline(stream_, *line)) return false;
        if (++number_ == 1 && line->starts_with("\xEF\xBB\xBF")) line->erase(0, 3);
        return true;
    }

    // Whether something of the next line is there, so that reading it needs no waiting. False at the end.
    [[nodiscard]] bool HasMore() { return stream_.rdbuf()->in_avail() > 0; }

    // Of the line that was read last.
    [[nodiscard]] std::size_t Number() const { return number_; }

  private:
    std::istream& stream_;
    std::size_t number_ = 0;
};

// Of a line whose end has one.
[[nodiscard]] inline std::string_view WithoutCarriageReturn(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

}  // namespace tessara::toolkit
