// Reads the records in a piece of a file.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "files/record.h"

namespace tessara::program {

// Receives each record. It may change the record, which the reader then reuses.
using TakeRecord = std::function<void(Record&)>;

// Reads complete records, the first of which has this number. GeoJSON must be checked features with commas
// between them.
void ReadRecords(const Layout& layout, std::size_t number, std::string_view text, const TakeRecord& take);

// The same, without the positions of features.
void ReadMembers(const Layout& layout, std::string_view text, const TakeRecord& take);

// Whether a line has no record: a blank line, or a comment in a format that has comments.
[[nodiscard]] bool IsSkipped(std::string_view line, Form form);

// The first record of a text, with its line break; the whole text if the record is incomplete.
[[nodiscard]] std::string_view FirstRecord(std::string_view text, Form form, char separator);

// Whether a text ends inside quotes.
[[nodiscard]] bool EndsInQuotes(std::string_view text, char separator);

// Removes the line break.
[[nodiscard]] std::string_view WithoutLineEnd(std::string_view line);

}  // namespace tessara::program
