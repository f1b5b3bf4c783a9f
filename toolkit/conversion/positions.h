// Input: lines `latitude longitude [height]`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessara::toolkit {

struct Position {
    double latitude;               // degrees, positive north
    double longitude;              // degrees, positive east
    std::optional<double> height;  // metres above the ellipsoid
};

// One line: nothing (blank, or a comment from '#' on), a position, or what is wrong with it.
struct Line {
    std::optional<Position> position;
    std::string error;
    std::string_view rest;  // of the line, behind the position and without the comment
};

// Degrees to both sides of zero.
inline constexpr double LATITUDE_LIMIT = 90.0;
inline constexpr double LONGITUDE_LIMIT = 360.0;

// What is wrong with a word as such a value; empty if nothing is.
[[nodiscard]] std::string WrongNumber(std::string_view word);
[[nodiscard]] std::string WrongLatitude(std::string_view word);
[[nodiscard]] std::string WrongLongitude(std::string_view word);

// The values of a line stand apart by blanks or tabs. Nothing else may follow them.
[[nodiscard]] Line ReadLine(std::string_view text);

// The same, and anything may follow. A number behind latitude and longitude is the height.
[[nodiscard]] Line ReadLineStart(std::string_view text);

}  // namespace tessara::toolkit
