#include "text/display_text.h"

#include <algorithm>

#include "systems/system_row.h"
#include "text/number_text.h"

namespace tessara {
namespace {

// Latin-1.
constexpr const char* DEGREE_SIGN = "\xB0";
constexpr const char* MINUTE_SIGN = "'";
constexpr const char* SECOND_SIGN = "''";

// From this precision on a reference names the 100 km square only.
constexpr int SQUARE_PRECISION = 5;
// From these precisions on seconds, and then minutes, aren't shown.
constexpr int MINUTE_PRECISION_GEOGRAD = 2;
constexpr int DEGREE_PRECISION_GEOGRAD = 4;
constexpr int DEGREE_PRECISION_GEODEZMIN = 2;

// The words of a text. Asking for one that doesn't exist is recorded.
class Tokens {
  public:
    explicit Tokens(const std::string& text) : text_(text) {}

    std::string At(int n) {
        std::string token;
        complete_ = GetToken(text_, n, " ", &token) && complete_;
        return token;
    }

    // Whether all the words asked for exist.
    [[nodiscard]] bool AreComplete() const { return complete_; }

  private:
    const std::string& text_;
    bool complete_ = true;
};

// The metres within a square with as many digits as the precision shows: the leading ones of five digits or,
// if there are decimals, the number padded with zeros and truncated.
std::string DigitGroup(const std::string& metres, int precision) {
    const int width = std::max(SQUARE_PRECISION - precision, 0);
    const std::string group = precision < 0
                                  ? ZeroFilled(metres, width)
                                  : ZeroFilled(metres.substr(0, metres.find('.')), SQUARE_PRECISION);
    return group.substr(0, static_cast<std::size_t>(width));
}

bool DisplayUtmref(int precision, const PlainTexts& plain, std::string* display) {
    Tokens north(plain.north);
    Tokens east(plain.east);
    *display = east.At(0) + north.At(0) + east.At(1) + north.At(1);
    if (precision < SQUARE_PRECISION) {
        *display += DigitGroup(east.At(2), precision);
        *display += DigitGroup(north.At(2), precision);
    }
    return north.AreComplete() && east.AreComplete();
}

std::string DisplayGeograd(int precision, Tokens* tokens) {
    std::string display = tokens->At(1) + DEGREE_SIGN;
    if (precision < DEGREE_PRECISION_GEOGRAD) display += ZeroFilled(tokens->At(2), 2) + MINUTE_SIGN;
    if (precision < MINUTE_PRECISION_GEOGRAD) display += tokens->At(3) + SECOND_SIGN;
    return display + tokens->At(0);
}

std::string DisplayGeodezMin(int precision, Tokens* tokens) {
    std::string display = tokens->At(1) + DEGREE_SIGN;
    if (precision < DEGREE_PRECISION_GEODEZMIN) {
        const int width = precision >= 0 ? 2 : 3 - precision;
        display += ZeroFilled(tokens->At(2), width) + MINUTE_SIGN;
    }
    return display + tokens->At(0);
}

std::string DisplayLetterGrid(int precision, Tokens* tokens) {
    std::string display = tokens->At(1);
    if (precision < SQUARE_PRECISION) display += DigitGroup(tokens->At(2), precision);
    return display + tokens->At(0);
}

// Display forms that need the text of their own axis only.
std::string DisplayAxis(Axis axis, std::int32_t system, int precision, const std::string& plain,
                        Tokens* tokens) {
    switch (SystemOf(system).text.display) {
        case DisplayStyle::Zoned:
            return (axis == Axis::East ? tokens->At(0) : std::string()) + tokens->At(1);
        case DisplayStyle::Degrees:
            return plain + DEGREE_SIGN;
        case DisplayStyle::Seconds:
            return DisplayGeograd(precision, tokens);
        case DisplayStyle::Minutes:
            return DisplayGeodezMin(precision, tokens);
        case DisplayStyle::Letters:
            return tokens->At(0) + tokens->At(1) + tokens->At(2);
        case DisplayStyle::Square:
            return DisplayLetterGrid(precision, tokens);
        case DisplayStyle::Plain:
        case DisplayStyle::Reference:
            break;
    }
    return plain;
}

}  // namespace

bool text::DisplaysBothAxes(std::int32_t system) {
    return SystemOf(system).text.display == DisplayStyle::Reference;
}

bool text::Display(Axis axis, std::int32_t system, std::int16_t precision, const PlainTexts& plain,
                   std::string* display) {
    if (text::DisplaysBothAxes(system)) return DisplayUtmref(precision, plain, display);
    const std::string& text = axis == Axis::North ? plain.north : plain.east;
    Tokens tokens(text);
    *display = DisplayAxis(axis, system, precision, text, &tokens);
    return tokens.AreComplete();
}

bool GetToken(std::string_view text, int n, std::string_view separator, std::string* token) {
    const auto trimLeft = [separator](std::string_view from) {
        return from.substr(std::min(from.find_first_not_of(separator), from.size()));
    };
    std::string_view rest = trimLeft(text);
    for (int i = 0; i < n; ++i) {
        const std::size_t end = rest.find_first_of(separator);
        if (end == std::string_view::npos) return false;
        rest = trimLeft(rest.substr(end));
    }
    *token = rest.substr(0, rest.find_first_of(separator));
    return true;
}

}  // namespace tessara
