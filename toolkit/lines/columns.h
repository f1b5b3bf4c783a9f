// Lines of columns, and the columns of a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara::toolkit {

// The separator of a line: a tab if it has one, otherwise a semicolon, otherwise a comma. A line without any
// of them is one column.
[[nodiscard]] char SeparatorOf(std::string_view line);

// Reads a line piece by piece to determine whether it ends inside quotes, so that the next line continues it.
class OpenQuotes {
  public:
    void Read(std::string_view text, char separator);
    [[nodiscard]] bool AreOpen() const { return areOpen_; }

  private:
    bool areOpen_ = false;
    bool columnIsEmpty_ = true;
    bool haveJustClosed_ = false;
};

// Splits a line. In a quoted column, quotes are doubled and separators are plain text.
[[nodiscard]] std::vector<std::string> SplitColumns(std::string_view line, char separator);
// The same, but returns each column with its quotes.
void SplitRaw(std::string_view line, char separator, std::vector<std::string_view>* columns);
// The text of such a column.
[[nodiscard]] std::string TextOfRaw(std::string_view raw);

// Joins columns, with quotes where they are needed.
[[nodiscard]] std::string JoinColumns(const std::vector<std::string>& columns, char separator);
void AppendColumn(std::string_view column, char separator, std::string* line);

// Unique names for the columns of a header. A column with an empty or repeated name gets its number as the
// name.
[[nodiscard]] std::vector<std::string> NamesOfColumns(const std::vector<std::string>& header);

}  // namespace tessara::toolkit
