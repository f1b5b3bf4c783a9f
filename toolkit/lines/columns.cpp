#include "lines/columns.h"

#include <algorithm>
#include <set>

namespace tessara::toolkit {
namespace {

// Reads one column from the start of a line, and takes it and the separator behind it away. True if there was
// one, and so another column.
bool TakeColumn(std::string_view* line, char separator, std::string* column) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < line->size(); ++i) {
        const char c = (*line)[i];
        if (c == '"' && isQuoted && i + 1 < line->size() && (*line)[i + 1] == '"') {
            *column += '"';
            ++i;
        } else if (c == '"' && (isQuoted || column->empty())) {
            isQuoted = !isQuoted;
        } else if (c == separator && !isQuoted) {
            line->remove_prefix(i + 1);
            return true;
        } else {
            *column += c;
        }
    }
    line->remove_prefix(line->size());
    return false;
}

bool NeedsQuotes(const std::string& column, char separator) {
    return column.find(separator) != std::string::npos || column.find_first_of("\"\r\n") != std::string::npos;
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
            // A quote right behind the closing one is a doubled quote.
            if (haveJustClosed_) columnIsEmpty_ = false;
            haveJustClosed_ = areOpen_;
            areOpen_ = !areOpen_;
        } else {
            columnIsEmpty_ = c == separator && !areOpen_;
            haveJustClosed_ = false;
        }
    }
}

std::vector<std::string> SplitColumns(std::string_view line, char separator) {
    std::vector<std::string> columns;
    for (bool hasMore = true; hasMore;) {
        columns.emplace_back();
        hasMore = TakeColumn(&line, separator, &columns.back());
    }
    return columns;
}

std::string JoinColumns(const std::vector<std::string>& columns, char separator) {
    std::string line;
    for (const std::string& column : columns) {
        if (&column != columns.data()) line += separator;
        if (!NeedsQuotes(column, separator)) {
            line += column;
            continue;
        }
        line += '"';
        for (const char c : column)
            line.append(c == '"' ? 2 : 1, c);
        line += '"';
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

std::optional<ColumnPair> FindColumns(const std::vector<std::string>& header, std::string_view north,
                                      std::string_view east) {
    const auto northAt = std::find(header.begin(), header.end(), north);
    const auto eastAt = std::find(header.begin(), header.end(), east);
    if (northAt == header.end() || eastAt == header.end()) return std::nullopt;
    return ColumnPair{static_cast<std::size_t>(northAt - header.begin()),
                      static_cast<std::size_t>(eastAt - header.begin())};
}

std::vector<std::string> ReplacePair(const std::vector<std::string>& columns, ColumnPair pair,
                                     const std::vector<std::string>& texts) {
    std::vector<std::string> replaced;
    replaced.reserve(columns.size() + texts.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i == pair.north) replaced.insert(replaced.end(), texts.begin(), texts.end());
        if (i != pair.north && i != pair.east) replaced.push_back(columns[i]);
    }
    return replaced;
}

}  // namespace tessara::toolkit
