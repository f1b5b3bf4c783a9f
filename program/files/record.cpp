#include "files/record.h"

#include <algorithm>

namespace tessara::program {
namespace {

using Names = std::vector<std::string_view>;

const Names NORTH_NAMES{"north"};
const Names EAST_NAMES{"east"};
const Names TEXT_NAMES{"text"};
const Names LATITUDE_NAMES{"latitude", "lat"};
const Names LONGITUDE_NAMES{"longitude", "lon", "lng", "long"};
const Names HEIGHT_NAMES{"height"};

bool IsSameInAnyCase(std::string_view name, std::string_view lower) {
    return std::equal(name.begin(), name.end(), lower.begin(), lower.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

// The first name that matches a known one, in upper or lower case.
std::size_t FindAny(const Names& names, const Names& wanted) {
    const auto found = std::find_if(names.begin(), names.end(), [&](std::string_view name) {
        return std::any_of(wanted.begin(), wanted.end(),
                           [&](std::string_view one) { return IsSameInAnyCase(name, one); });
    });
    return found != names.end() ? static_cast<std::size_t>(found - names.begin()) : NO_MEMBER;
}

std::size_t FindExactly(const Names& names, const std::string& wanted) {
    const auto found = std::find(names.begin(), names.end(), wanted);
    return found != names.end() ? static_cast<std::size_t>(found - names.begin()) : NO_MEMBER;
}

// The index of a column number, which counts from 1.
std::size_t PlaceOf(const std::string& column) {
    return std::stoul(column) - 1;
}

}  // namespace

void Record::Clear() {
    number = 0;
    source = {};
    error.clear();
    isBlank = false;
    members.clear();
    at = {};
    mayBeOneText = false;
    positions.clear();
    geometry = {};
    frame.clear();
    texts.clear();
}

bool ArePlaces(const std::vector<std::string>& columns) {
    constexpr std::size_t MOST_DIGITS = 7;
    return !columns.empty() && std::all_of(columns.begin(), columns.end(), [](const std::string& column) {
        return !column.empty() && column.size() <= MOST_DIGITS && column[0] != '0' &&
               column.find_first_not_of("0123456789") == std::string::npos;
    });
}

PositionMembers FindPosition(const Names& names, const Layout& layout) {
    const std::vector<std::string>& columns = layout.columns;
    if (columns.empty() && layout.areTexts) {
        const std::size_t north = FindAny(names, NORTH_NAMES);
        const std::size_t east = FindAny(names, EAST_NAMES);
        const std::size_t text = FindAny(names, TEXT_NAMES);
        if (north == NO_MEMBER && east == NO_MEMBER) return {text, text, NO_MEMBER};
        return {north, east, NO_MEMBER};
    }
    if (columns.empty())
        return {FindAny(names, LATITUDE_NAMES), FindAny(names, LONGITUDE_NAMES),
                FindAny(names, HEIGHT_NAMES)};
    const bool arePlaces = !layout.hasHeader && !IsJson(layout.form);
    const auto find = [&](std::size_t i) {
        if (i >= columns.size()) return NO_MEMBER;
        return arePlaces ? PlaceOf(columns[i]) : FindExactly(names, columns[i]);
    };
    // A single name denotes a text with both values.
    return {find(0), find(columns.size() > 1 ? 1 : 0), find(2)};
}

std::string WrongNames(const PositionMembers& at, const Layout& layout) {
    const std::string what = IsJson(layout.form) ? "member" : "column";
    const bool areGiven = !layout.columns.empty();
    const std::vector<std::string> wanted = areGiven ? layout.columns
                                            : layout.areTexts
                                                ? std::vector<std::string>{"north", "east"}
                                                : std::vector<std::string>{"latitude", "longitude"};
    if (wanted.size() == 1 && at.north == NO_MEMBER) return "missing " + what + " '" + wanted[0] + "'";
    if (at.north == NO_MEMBER || at.east == NO_MEMBER) {
        return "missing " + what + "s '" + wanted[0] + "' and '" + wanted[1] + "'" +
               (areGiven ? "" : "; name the " + what + "s with --columns");
    }
    const bool isHeightMissing = layout.columns.size() == 3 && at.height == NO_MEMBER;
    return isHeightMissing ? "missing " + what + " '" + wanted[2] + "'" : "";
}

}  // namespace tessara::program
