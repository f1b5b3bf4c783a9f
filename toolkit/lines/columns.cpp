#include "lines/columns.h"

#include <algorithm>
#include <set>

namespace tessara::toolkit {
namespace {

// The state of a line of columns, character by character.
class Quotes {
  public:
    enum class Meaning { Text, Quote, Doubled, Separator };

    Meaning Read(char c, char next, char separator) {
        if (c == '"' && areOpen_ && next == '"') {
            isEmpty_ = false;
            return Meaning::Doubled;
        }
        if (c == '"' && (areOpen_ || isEmpty_)) {
            areOpen_ = !areOpen_;
            return Meaning::Quote;
        }
        isEmpty_ = c == separator && !areOpen_;
        return isEmpty_ ? Meaning::Separator : Meaning::Text;
    }

  private:
    bool areOpen_ = false;
    bool isEmpty_ = true;  // whether the column has no text yet
};

// Calls `read` with each character of a line and its meaning; skips the second of two quotes.
template <class ReadCharacter>
void ReadQuoted(std::string_view line, char separator, ReadCharacter read) {
    Quotes quotes;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char next = i + 1 < line.size() ? line[i + 1] : '\0';
        const Quotes::Meaning meaning = quotes.Read(line[i], next, separator);
        read(i, meaning);
        if (meaning == Quotes::Meaning::Doubled) ++i;
    }
}

bool NeedsQuotes(std::string_view column, char separator) {
    return std::any_of(column.begin(), column.end(),
                       [separator](char c) { return c == separator || c == '"' || c == '\r' || c == '\n'; });
}

}  // namespace

char SeparatorOf(std::string_view line) {
    for (const char separator : {'\t', ';', ','}) {
        if (line.find(separator) != std::string_view::npos) return separator;
    }
    return '\t';
}

void OpenQuotes::Read(std::string_view text, char separator) {
    for (const char c : text) {
        const bool isQuote = c == '"' && (areOpen_ || columnIsEmpty_ || haveJustClosed_);
        if (isQuote) {
            // Two quotes in a row are an escaped quote.
            if (haveJustClosed_) columnIsEmpty_ = false;
            haveJustClosed_ = areOpen_;
            areOpen_ = !areOpen_;
        } else {
            columnIsEmpty_ = c == separator && !areOpen_;
            haveJustClosed_ = false;
        }
    }
}

void SplitRaw(std::string_view line, char separator, std::vector<std::string_view>* columns) {
    columns->clear();
    std::size_t begin = 0;
    const auto end = [&](std::size_t at) {
        columns->push_back(line.substr(begin, at - begin));
        begin = at + 1;
    };
    if (line.find('"') == std::string_view::npos) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i] == separator) end(i);
        }
    } else {
        ReadQuoted(line, separator, [&](std::size_t i, Quotes::Meaning meaning) {
            if (meaning == Quotes::Meaning::Separator) end(i);
        });
    }
    end(line.size());
}

std::string TextOfRaw(std::string_view raw) {
    if (raw.find('"') == std::string_view::npos) return std::string(raw);
    std::string text;
    // A raw column has no separator outside quotes, so any value works here.
    ReadQuoted(raw, '\n', [&](std::size_t i, Quotes::Meaning meaning) {
        if (meaning != Quotes::Meaning::Quote) text += raw[i];
    });
    return text;
}

std::vector<std::string> SplitColumns(std::string_view line, char separator) {
    std::vector<std::string_view> raw;
    SplitRaw(line, separator, &raw);
    std::vector<std::string> columns;
    columns.reserve(raw.size());
    for (const std::string_view column : raw)
        columns.push_back(TextOfRaw(column));
    return columns;
}

void AppendColumn(std::string_view column, char separator, std::string* line) {
    if (!NeedsQuotes(column, separator)) {
        *line += column;
        return;
    }
    *line += '"';
    for (const char c : column)
        line->append(c == '"' ? 2 : 1, c);
    *line += '"';
}

std::string JoinColumns(const std::vector<std::string>& columns, char separator) {
    std::string line;
    for (const std::string& column : columns) {
        if (&column != columns.data()) line += separator;
        AppendColumn(column, separator, &line);
    }
    return line;
}

std::vector<std::string> NamesOfColumns(const std::vector<std::string>& header) {
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (std::size_t i = 0; i < header.size(); ++i) {
        std::string name = header[i];
        while (name.empty() || taken.contains(name))
            name += (name.empty() ? "" : " ") + std::to_string(i + 1);
        taken.insert(name);
        names.push_back(std::move(name));
    }
    return names;
}

}  // namespace tessara::toolkit
