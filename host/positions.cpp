#include "positions.h"

#include <cmath>
#include <vector>

#include "numbers.h"

namespace tessara::program {
namespace {

constexpr double LATITUDE_LIMIT = 90.0;
constexpr double LONGITUDE_LIMIT = 360.0;
constexpr std::string_view BLANKS = " \t\r\v\f";
constexpr std::size_t LONGEST_QUOTE = 40;

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

// What a message shows of a word: not too much, and nothing that a terminal could take for a command.
std::string Quote(std::string_view word) {
    std::string shown(word.substr(0, LONGEST_QUOTE));
    for (char& c : shown) {
        if (c < ' ' || c > '~') c = '?';
    }
    return "'" + shown + (word.size() > LONGEST_QUOTE ? "...'" : "'");
}

Line Wrong(std::string error) {
    return {std::nullopt, std::move(error)};
}

std::string Outside(const char* what, std::string_view word, double limit) {
    return std::string(what) + " " + Quote(word) + " is outside " + FormatNumber(-limit) + ".." +
           FormatNumber(limit);
}

}  // namespace

Line ReadLine(std::string_view text) {
    const std::vector<std::string_view> words = Words(text.substr(0, text.find('#')));
    if (words.empty()) return {};
    if (words.size() < 2 || words.size() > 3) {
        return Wrong("expected latitude longitude [height], found " + std::to_string(words.size()) +
                     (words.size() == 1 ? " value" : " values"));
    }
    std::vector<double> numbers;
    for (const std::string_view word : words) {
        const std::optional<double> number = ParseNumber(word);
        if (!number) return Wrong(Quote(word) + " is not a number");
        numbers.push_back(*number);
    }
    if (std::abs(numbers[0]) > LATITUDE_LIMIT) return Wrong(Outside("latitude", words[0], LATITUDE_LIMIT));
    if (std::abs(numbers[1]) > LONGITUDE_LIMIT) return Wrong(Outside("longitude", words[1], LONGITUDE_LIMIT));

    Position position{numbers[0], numbers[1], std::nullopt};
    if (numbers.size() == 3) position.height = numbers[2];
    return {position, {}};
}

}  // namespace tessara::program
