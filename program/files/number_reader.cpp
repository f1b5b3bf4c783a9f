#include "files/number_reader.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

#include "conversion/numbers.h"
#include "files/typed_words.h"
#include "lines/columns.h"
#include "lines/words.h"
#include "typed/judge.h"

namespace tessara::program {
namespace {

constexpr std::string_view DIGITS = "0123456789";

// More words than two positions and two numbers have.
constexpr std::size_t MOST_WORDS = 32;

// Degrees; numbers with smaller differences are the same.
constexpr double SAME_NUMBER = 1e-9;

// Splits off the first words, and returns the rest of the line.
template <class Word>
std::string_view SplitWords(std::string_view line, std::size_t count, std::vector<Word>* words) {
    while (words->size() < count && !line.empty()) {
        const std::size_t end = std::min(line.find_first_of(BLANKS), line.size());
        words->emplace_back(line.substr(0, end));
        line = TrimBlanks(line.substr(end));
    }
    return line;
}

// Whether words are numbers, or one of them only lacks digits.
bool LookPlain(const std::vector<std::string_view>& words, bool isAll) {
    std::size_t others = 0;
    for (const std::string_view word : words) {
        if (ParseNumber(word)) continue;
        ++others;
        if (!isAll || word.find_first_of(DIGITS) != std::string_view::npos) return false;
    }
    return others <= 1;
}

// Whether plain numbers can also be parts of angles, of which only the last part has decimals.
bool CanBeAngles(const std::vector<std::string_view>& words, std::string_view rest) {
    const bool isWhole = words.front().find_first_of(".eE") == std::string_view::npos;
    return isWhole && rest.find_first_of(DIGITS) != std::string_view::npos;
}

bool AreSame(const NumberReading& one, const NumberReading& other) {
    return std::equal(one.numbers.begin(), one.numbers.end(), other.numbers.begin(), other.numbers.end(),
                      [](double a, double b) { return std::fabs(a - b) < SAME_NUMBER; });
}

std::string TextOf(const NumberReading& reading) {
    constexpr int DECIMALS = 5;  // a metre
    std::string text;
    for (const double number : reading.numbers)
        (text += text.empty() ? "" : " ") += FormatPlain(number, DECIMALS);
    return text;
}

// The only reading, or the error.
NumberReading OnlyOneOf(const std::vector<NumberReading>& readings) {
    NumberReading only = readings.front();
    std::string all = "ambiguous: " + TextOf(only);
    bool isOnly = true;
    for (const NumberReading& reading : readings) {
        if (AreSame(reading, only)) continue;
        (all += ", or ") += TextOf(reading);
        isOnly = false;
    }
    if (!isOnly) only.error = std::move(all);
    return only;
}

NumberReading Choose(const NumberReading& plain, bool looksPlain, std::vector<NumberReading> typed) {
    // Among errors, the one after the most numbers is closest to what is meant.
    const auto closest = std::max_element(typed.begin(), typed.end(), [](const auto& one, const auto& other) {
        return one.numbers.size() < other.numbers.size();
    });
    NumberReading wrong = looksPlain || closest == typed.end() ? plain : *closest;
    if (plain.IsRead()) typed.insert(typed.begin(), plain);
    std::erase_if(typed, [](const NumberReading& reading) { return !reading.IsRead(); });
    return typed.empty() ? wrong : OnlyOneOf(typed);
}

}  // namespace

NumberReader::NumberReader(const NumberInput& input, std::int32_t datum)
    : input_(input), reader_({.reference = {.datum = datum, .system = NO_SYSTEM}}) {}

NumberReading NumberReader::Read(const std::vector<std::string>& words) const {
    const std::vector<std::string_view> views(words.begin(), words.end());
    NumberReading plain = ReadPlain(views);
    if (plain.IsRead() || words.size() > MOST_WORDS) return plain;
    if (words.size() == input_.columns.size())
        plain.error.insert(0, std::string(input_.columns[plain.numbers.size()].name) + ": ");
    return Choose(plain, LookPlain(views, true), ReadWords(words));
}

NumberReading NumberReader::ReadLine(std::string_view line) const {
    line = TrimBlanks(line.substr(0, line.find('#')));
    if (line.empty()) return {};
    std::vector<std::string_view> first;
    const std::string_view rest = SplitWords(line, input_.columns.size(), &first);
    NumberReading plain = ReadPlain(first);
    plain.rest = rest;
    if (plain.IsRead() && !CanBeAngles(first, rest)) return plain;
    std::vector<NumberReading> typed = ReadColumns(line);
    Texts words;
    if (SplitWords(line, MOST_WORDS, &words).empty()) {
        std::vector<NumberReading> more = ReadWords(words);
        std::move(more.begin(), more.end(), std::back_inserter(typed));
    }
    return Choose(plain, LookPlain(first, rest.empty()), std::move(typed));
}

NumberReading NumberReader::ReadPlain(const std::vector<std::string_view>& words) const {
    NumberReading reading;
    if (words.size() != input_.columns.size()) {
        for (const NumberColumn& column : input_.columns)
            (reading.error += ' ') += column.name;
        reading.error = "expected" + reading.error + ", found " + std::to_string(words.size()) +
                        (words.size() == 1 ? " value" : " values");
        return reading;
    }
    for (std::size_t i = 0; i < words.size() && reading.IsRead(); ++i) {
        reading.error = input_.columns[i].wrong(words[i]);
        if (reading.IsRead()) reading.numbers.push_back(*ParseNumber(words[i]));
    }
    return reading;
}

// Tries all divisions of the words among the positions. Positions without letters and signs have equally many
// words.
std::vector<NumberReading> NumberReader::ReadWords(const Texts& words) const {
    const std::size_t others = CountOfTexts({});
    const std::size_t left = words.size() - std::min(words.size(), others);
    std::vector<NumberReading> readings;
    const auto read = [&](const Cut& cut) { readings.push_back(ReadCut(words, cut)); };
    if (input_.positions == 1) {
        if (left > 0) read({left});
        return readings;
    }
    if (left % 2 == 0 && left > 0) read({left / 2, left / 2});
    const bool areNumbers =
        std::all_of(words.begin(), words.end(), [](const std::string& word) { return ParseNumber(word); });
    for (std::size_t first = 1; first < left && !areNumbers; ++first) {
        if (2 * first != left) read({first, left - first});
    }
    return readings;
}

// A position has one column, or two for its north and east texts. Other columns can follow.
std::vector<NumberReading> NumberReader::ReadColumns(std::string_view line) const {
    static const std::vector<Cut> ONE{{1}, {2}};
    static const std::vector<Cut> TWO{{1, 1}, {2, 2}, {1, 2}, {2, 1}};
    std::vector<std::string_view> columns;
    SplitRaw(line, SeparatorOf(line), &columns);
    Texts texts;
    const std::size_t most = std::min(columns.size(), CountOfTexts(TWO[1]));
    texts.reserve(most);
    for (std::size_t i = 0; i < most; ++i)
        texts.emplace_back(TrimBlanks(TextOfRaw(columns[i])));
    std::vector<NumberReading> readings;
    for (const Cut& cut : input_.positions == 1 ? ONE : TWO) {
        const std::size_t count = CountOfTexts(cut);
        if (count > columns.size()) continue;
        readings.push_back(ReadCut(texts, cut));
        if (count < columns.size())
            readings.back().rest =
                TrimBlanks(line.substr(static_cast<std::size_t>(columns[count].data() - line.data())));
    }
    return readings;
}

// Reads on after an error, which shows how much of a wrong text makes sense.
NumberReading NumberReader::ReadCut(const Texts& texts, const Cut& cut) const {
    NumberReading reading;
    std::size_t at = 0;
    for (std::size_t i = 0; i < cut.size(); at += cut[i], ++i) {
        const auto begin = texts.begin() + static_cast<std::ptrdiff_t>(at);
        const Texts words(begin, begin + static_cast<std::ptrdiff_t>(cut[i]));
        TypedResult result = program::ReadWords(reader_, words);
        GeodezPayload degrees{};
        if (result.IsRead() && DegreesOf(result.readings.front().record, &degrees)) {
            reading.numbers.insert(reading.numbers.end(), {degrees.latitude, degrees.longitude});
            continue;
        }
        if (!reading.IsRead()) continue;
        reading.error = cut.size() > 1 ? "position " + std::to_string(i + 1) + ": " : "";
        reading.error += result.fault.IsThere() ? result.fault.reason : "no latitude and longitude";
        reading.texts = TextsOf(words);
        reading.position = std::move(result);
    }
    for (std::size_t i = 2 * input_.positions; i < input_.columns.size(); ++i, ++at) {
        const std::string wrong = input_.columns[i].wrong(texts[at]);
        if (wrong.empty()) reading.numbers.push_back(*ParseNumber(texts[at]));
        if (reading.IsRead()) reading.error = wrong;
    }
    return reading;
}

// The number of texts of all columns.
std::size_t NumberReader::CountOfTexts(const Cut& cut) const {
    return std::accumulate(cut.begin(), cut.end(), input_.columns.size() - 2 * input_.positions);
}

}  // namespace tessara::program
