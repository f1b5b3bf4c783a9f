// Lines of columns, and the columns of a line.
#pragma once

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
// The same, and each column stays as it is in the line: in its quotes, where it has some.
void SplitRaw(std::string_view line, char separator, std::vector<std::string_view>* columns);
// The text of such a column.
[[nodiscard]] std::string TextOfRaw(std::string_view raw);

// The other way round; a column is put in quotes where it needs them.
[[nodiscard]] std::string JoinColumns(const std::vector<std::string>& columns, char separator);
void AppendColumn(std::string_view column, char separator, std::string* line);

// A name of its own for each column of a header: one without a name, or with that of another, gets the number
// of its column.
[[nodiscard]] std::vector<std::string> NamesOfColumns(const std::vector<std::string>& header);

}  // namespace tessara::toolkit
