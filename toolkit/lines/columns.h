// Lines of columns: which of them are the north and the east text, and the same line with other texts there.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

// A tab, else a semicolon, else a comma: the first of them that is in the line. Without any the line is one
// column.
[[nodiscard]] char SeparatorOf(std::string_view line);

// Follows a line, piece by piece, to tell whether it ends within quotes: the next line then belongs to it.
class OpenQuotes {
  public:
    void Read(std::string_view text, char separator);
    [[nodiscard]] bool AreOpen() const { return areOpen_; }

  private:
    bool areOpen_ = false;
    bool columnIsEmpty_ = true;
    bool haveJustClosed_ = false;
};

// Columns may stand in quotes, in which a quote is doubled and a separator is none.
[[nodiscard]] std::vector<std::string> SplitColumns(std::string_view line, char separator);
// The other way round; a column is put in quotes where it needs them.
[[nodiscard]] std::string JoinColumns(const std::vector<std::string>& columns, char separator);

// A name of its own for each column of a header: one without a name, or with that of another, gets the number
// of its column.
[[nodiscard]] std::vector<std::string> NamesOfColumns(const std::vector<std::string>& header);

struct ColumnPair {
    std::size_t north = 0;
    std::size_t east = 1;
};

// The columns with two names of a header; nothing if it doesn't have them.
[[nodiscard]] std::optional<ColumnPair> FindColumns(const std::vector<std::string>& header,
                                                    std::string_view north, std::string_view east);

// The columns with `texts` in place of the pair: all of them where the north text was.
[[nodiscard]] std::vector<std::string> ReplacePair(const std::vector<std::string>& columns, ColumnPair pair,
                                                   const std::vector<std::string>& texts);

}  // namespace tessara::toolkit
