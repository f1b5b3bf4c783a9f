#include "conversion/positions.h"

#include <cmath>
#include <vector>

#include "conversion/numbers.h"
#include "conversion/quote.h"

namespace tessara::toolkit {
namespace {

constexpr std::string_view BLANKS = " \t\r\v\f";

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    std::size_t begin = text.find_first_not_of(BLANKS);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(BLANKS, begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(BLANKS, end);
    }
    return words;
}

std::string WrongAngle(const char* what, std::string_view word, double limit) {
    const std::optional<double> degrees = ParseNumber(word);
    if (!degrees) return WrongNumber(word);
    if (std::abs(*degrees) <= limit) return {};
    return std::string(what) + " " + Quote(word) + " is outside " + FormatNumber(-limit) + ".." +
           FormatNumber(limit);
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
    return WrongAngle("latitude", word, LATITUDE_LIMIT);
}

std::string WrongLongitude(std::string_view word) {
    return WrongAngle("longitude", word, LONGITUDE_LIMIT);
}

Line ReadLine(std::string_view text) {
    const std::vector<std::string_view> words = Words(text.substr(0, text.find('#')));
    if (words.empty()) return {};
    if (words.size() < 2 || words.size() > 3) return {std::nullopt, WrongCount(words.size())};

    const bool hasHeight = words.size() == 3;
    for (const std::string& wrong : {WrongLatitude(words[0]), WrongLongitude(words[1]),
                                     hasHeight ? WrongNumber(words[2]) : std::string()}) {
        if (!wrong.empty()) return {std::nullopt, wrong};
    }
    return {Position{*ParseNumber(words[0]), *ParseNumber(words[1]),
                     hasHeight ? ParseNumber(words[2]) : std::nullopt},
            {}};
}

}  // namespace tessara::toolkit
