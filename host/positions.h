// Input: lines `latitude longitude [height]`.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>

namespace tessara::program {

struct Position {
    double latitude;               // degrees, positive north
    double longitude;              // degrees, positive east
    std::optional<double> height;  // metres above the ellipsoid
};

// One line: nothing (blank, or a comment from '#' on), a position, or what is wrong with it.
struct Line {
    std::optional<Position> position;
    std::string error;
};

// What a message shows of a word: not too much, and nothing that a terminal could take for a command.
[[nodiscard]] std::string Quote(std::string_view word);

// What is wrong with a word as such a value; empty if nothing is. A latitude is within 90 degrees, a
// longitude within 360.
[[nodiscard]] std::string WrongNumber(std::string_view word);
[[nodiscard]] std::string WrongLatitude(std::string_view word);
[[nodiscard]] std::string WrongLongitude(std::string_view word);

// The values of a line stand apart by blanks or tabs.
[[nodiscard]] Line ReadLine(std::string_view text);

}  // namespace tessara::program
