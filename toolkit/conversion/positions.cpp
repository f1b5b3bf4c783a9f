#include "conversion/positions.h"

#include <algorithm>
#include <cmath>

#include "conversion/numbers.h"
#include "conversion/quote.h"

namespace tessara::toolkit {
namespace {

constexpr std::string_view BLANKS = " \t\r\v\f";

// Removes the first word and the blanks after it from a text without leading blanks.
std::string_view TakeWord(std::string_view* text) {
    const std::size_t end = std::min(text->find_first_of(BLANKS), text->size());
    const std::string_view word = text->substr(0, end);
    text->remove_prefix(std::min(text->find_first_not_of(BLANKS, end), text->size()));
    return word;
}

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(BLANKS) + 1));
    return text;
}

std::size_t CountWords(std::string_view text) {
    std::size_t count = 0;
    for (text = WithoutBlanks(text); !text.empty(); ++count)
        TakeWord(&text);
    return count;
}

// The error in an angle; empty for a valid angle.
std::string WrongAngle(const char* what, std::optional<double> degrees, std::string_view word, double limit) {
    if (!degrees) return Quote(word) + " is not a number";
    if (std::abs(*degrees) <= limit) return {};
    return std::string(what) + " " + Quote(word) + " is outside " + FormatNumber(-limit) + ".." +
           FormatNumber(limit);
}

std::string WrongLatitude(std::optional<double> degrees, std::string_view word) {
    return WrongAngle("latitude", degrees, word, LATITUDE_LIMIT);
}

std::string WrongLongitude(std::optional<double> degrees, std::string_view word) {
    return WrongAngle("longitude", degrees, word, LONGITUDE_LIMIT);
}

std::string WrongCount(std::size_t count) {
    return "expected latitude longitude [height], found " + std::to_string(count) +
           (count == 1 ? " value" : " values");
}

}  // namespace

std::string WrongNumber(std::string_view word) {
    return ParseNumber(word) ? "" : Quote(word) + " is not a number";
}

std::string WrongLatitude(std::string_view word) {
    return WrongLatitude(ParseNumber(word), word);
}

std::string WrongLongitude(std::string_view word) {
    return WrongLongitude(ParseNumber(word), word);
}

Line ReadLineStart(std::string_view text) {
    Line line;
    line.rest = WithoutBlanks(text.substr(0, text.find('#')));
    if (line.rest.empty()) return line;
    const std::string_view north = TakeWord(&line.rest);
    if (line.rest.empty()) return {std::nullopt, WrongCount(1), {}};
    const std::string_view east = TakeWord(&line.rest);

    const std::optional<double> latitude = ParseNumber(north);
    const std::optional<double> longitude = ParseNumber(east);
    line.error = WrongLatitude(latitude, north);
    if (line.error.empty()) line.error = WrongLongitude(longitude, east);
    if (!line.error.empty()) return line;
    line.position = Position{*latitude, *longitude, std::nullopt};

    std::string_view behind = line.rest;
    line.position->height = ParseNumber(TakeWord(&behind));
    if (line.position->height) line.rest = behind;
    return line;
}

Line ReadLine(std::string_view text) {
    Line line = ReadLineStart(text);
    if (!line.position || line.rest.empty()) return line;
    line.error = line.position->height ? WrongCount(3 + CountWords(line.rest))
                                       : WrongNumber(line.rest.substr(0, line.rest.find_first_of(BLANKS)));
    line.position.reset();
    return line;
}

}  // namespace tessara::toolkit
