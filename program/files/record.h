// A record of a file: one position or several, and other members, which are kept.
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

// In place of a member that there isn't.
inline constexpr std::size_t NO_MEMBER = std::numeric_limits<std::size_t>::max();

// The members that hold a position: degrees and perhaps a height, or the two texts, which may be one member.
struct PositionMembers {
    std::size_t north = NO_MEMBER;
    std::size_t east = NO_MEMBER;
    std::size_t height = NO_MEMBER;

    [[nodiscard]] bool Has(std::size_t member) const {
        return member == north || member == east || member == height;
    }
};

// Its views are into the text of the file.
struct Record {
    std::size_t number = 0;   // of its line or feature
    std::string_view source;  // how it stands in the file, without the end of the line
    std::string error;        // what is wrong with it; then the rest may be empty
    bool isBlank = false;     // a line without a record, such as a comment
    std::vector<Member> members;
    PositionMembers at;
    bool mayBeOneText = false;        // of columns without names the first, or all of them
    char separator = '\t';            // of these columns
    std::vector<Position> positions;  // those that stand in no members
    Geometry geometry;                // of these positions
    std::vector<Member> frame;        // what a feature has besides its properties and geometry
    std::deque<std::string> texts;    // names that don't stand in the file as they are

    void Clear();
};

// What is known of the records of a file before the first of them is converted.
struct Layout {
    std::string file;
    Form form = Form::LINES;
    bool areTexts = false;             // a north and an east text or one for both, not degrees
    std::vector<std::string> columns;  // the names of the members with the position, where they are given
    char separator = ',';              // of columns
    bool hasHeader = false;
    std::size_t firstLine = 1;       // of the header
    std::vector<std::string> names;  // of the columns, no two alike; of objects, all that any of them has
    PositionMembers at;              // among the names
    bool hasHeights = false;         // outside of the members
    std::string wrong;               // what is wrong with each of them; empty if nothing is
    std::vector<std::string> kept;   // the members that are written again, where their names are asked for
    std::size_t resultsAt = 0;       // before which of them the results stand
};

// Whether all of --columns are places of columns, counted from 1. The file has no header then.
[[nodiscard]] bool ArePlaces(const std::vector<std::string>& columns);

// Where the position stands among the members of a layout, or what is missing.
[[nodiscard]] PositionMembers FindPosition(const std::vector<std::string_view>& names, const Layout& layout);
[[nodiscard]] std::string WrongNames(const PositionMembers& at, const Layout& layout);

}  // namespace tessara::program
