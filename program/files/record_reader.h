// The records of a piece of a file, one after the other.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "files/record.h"

namespace tessara::program {

// Gets a record that is read anew with the next one, so that it may be changed.
using TakeRecord = std::function<void(Record&)>;

// Reads whole records, of which the first has that number. Of GeoJSON they are features that are checked
// already, with commas between them.
void ReadRecords(const Layout& layout, std::size_t number, std::string_view text, const TakeRecord& take);

// The same, but of features the members alone, without their positions.
void ReadMembers(const Layout& layout, std::string_view text, const TakeRecord& take);

// Whether a line has no record: a blank one, or a comment where the form has those.
[[nodiscard]] bool IsSkipped(std::string_view line, Form form);

// The start of a text up to the end of its first record, with the end of the line; all of it where none ends.
[[nodiscard]] std::string_view FirstRecord(std::string_view text, Form form, char separator);

// Whether a text ends within quotes.
[[nodiscard]] bool EndsInQuotes(std::string_view text, char separator);

// Takes the end of a line away.
[[nodiscard]] std::string_view WithoutLineEnd(std::string_view line);

}  // namespace tessara::program
