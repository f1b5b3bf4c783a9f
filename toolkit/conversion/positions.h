// Reads lines `latitude longitude [height]`.
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

// The content of a line: nothing (a blank line or a comment, which begins with '#'), a position, or an error.
struct Line {
    std::optional<Position> position;
    std::string error;
    std::string_view rest;  // of the line, after the position and without the comment
};

// The limits in degrees, on both sides of zero.
inline constexpr double LATITUDE_LIMIT = 90.0;
inline constexpr double LONGITUDE_LIMIT = 360.0;

// The error in a word; empty for a valid value.
[[nodiscard]] std::string WrongNumber(std::string_view word);
[[nodiscard]] std::string WrongLatitude(std::string_view word);
[[nodiscard]] std::string WrongLongitude(std::string_view word);

// Blanks or tabs separate the values. Any other text is an error.
[[nodiscard]] Line ReadLine(std::string_view text);

// The same, but allows other text after the position. A number after latitude and longitude is the height.
[[nodiscard]] Line ReadLineStart(std::string_view text);

}  // namespace tessara::toolkit
