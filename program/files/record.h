// A record of a file: one or more positions, and other members, which are copied to the output.
#pragma once

#include <cstddef>
#include <deque>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/positions.h"
#include "files/forms.h"
#include "files/geometry.h"
#include "files/value.h"
#include "run/toolkit_names.h"

namespace tessara::program {

struct Member {
    std::string_view name;
    Value value;
};

// The index of a missing member.
inline constexpr std::size_t NO_MEMBER = std::numeric_limits<std::size_t>::max();

// The members that hold a position: degrees and optionally a height, or the two texts, which can be the same
// member.
struct PositionMembers {
    std::size_t north = NO_MEMBER;
    std::size_t east = NO_MEMBER;
    std::size_t height = NO_MEMBER;

    [[nodiscard]] bool Has(std::size_t member) const {
        return member == north || member == east || member == height;
    }
};

// Its views refer to the text of the file.
struct Record {
    std::size_t number = 0;   // of its line or feature
    std::string_view source;  // its text in the file, without the line break
    std::string error;        // the error; other fields may then be empty
    bool isBlank = false;     // the line has no record but, for example, a comment
    std::vector<Member> members;
    PositionMembers at;
    bool mayBeOneText = false;        // without a header, the first column or the whole line
    char separator = '\t';            // of these columns
    std::vector<Position> positions;  // positions that are not members
    Geometry geometry;                // of these positions
    std::vector<Member> frame;        // other members of a feature, outside properties and geometry
    std::deque<std::string> texts;    // names that differ from their text in the file

    void Clear();
};

// The properties of a file that the conversion needs before the first record.
struct Layout {
    std::string file;
    Form form = Form::LINES;
    bool areTexts = false;             // texts (north and east, or one for both) rather than degrees
    bool isForTable = false;           // the output has the same columns for all records
    std::vector<std::string> columns;  // the names of --columns; may be empty
    char separator = ',';              // of columns
    bool hasHeader = false;
    std::size_t firstLine = 1;       // of the header
    std::vector<std::string> names;  // unique names of the columns; or of the members of all objects
    PositionMembers at;              // indices in `names`
    bool hasHeights = false;         // for positions that are not members
    std::string wrong;               // the error of all records; empty for a valid layout
    std::vector<std::string> kept;   // the names of the copied members
    std::size_t resultsAt = 0;       // index in `kept` before which the results are written
};

// Whether all of --columns are numbers of columns, which count from 1, of a file without a header.
[[nodiscard]] bool ArePlaces(const std::vector<std::string>& columns);

// Finds the members with the position; WrongNames returns the error if one is missing.
[[nodiscard]] PositionMembers FindPosition(const std::vector<std::string_view>& names, const Layout& layout);
[[nodiscard]] std::string WrongNames(const PositionMembers& at, const Layout& layout);

}  // namespace tessara::program
