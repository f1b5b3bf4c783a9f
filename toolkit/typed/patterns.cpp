#include "typed/patterns.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace tessara::toolkit {
namespace {

enum class Needs { Letter, Whole, Unsigned, Joined, Number };

// An easting has six digits; a seventh belongs to the zone.
constexpr std::size_t FEWEST_JOINED = 7;

struct Element {
    char sign;
    Needs needs;
    std::string_view letters;  // that match
    const char* words;
    bool isOptional = false;
};

constexpr std::string_view ALPHABET = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view ALPHABET_WITHOUT_I = "ABCDEFGHJKLMNOPQRSTUVWXYZ";
constexpr std::string_view ALPHABET_WITHOUT_IO = "ABCDEFGHJKLMNPQRSTUVWXYZ";
constexpr std::string_view BAND_LETTERS = "CDEFGHJKLMNPQRSTUVWX";
constexpr std::string_view ROW_LETTERS = "ABCDEFGHJKLMNPQRSTUV";

constexpr Element ELEMENTS[] = {
    {'Z', Needs::Whole, "", "zone"},
    {'H', Needs::Letter, "NS", "hemisphere (N or S)"},
    {'P', Needs::Letter, "ABYZ", "polar area letter (A, B, Y or Z)"},
    {'B', Needs::Letter, BAND_LETTERS, "band letter (C to X without I and O)"},
    {'C', Needs::Letter, ALPHABET_WITHOUT_IO, "column letter (A to Z without I and O)"},
    {'R', Needs::Letter, ROW_LETTERS, "row letter (A to V without I and O)"},
    {'M', Needs::Whole, "", "meridian (28, 31 or 34)"},
    {'j', Needs::Joined, "", "zone and easting in one number"},
    {'n', Needs::Number, "", "northing"},
    {'e', Needs::Number, "", "easting"},
    {'x', Needs::Number, "", "x"},
    {'y', Needs::Number, "", "y"},
    {'z', Needs::Number, "", "z"},
    {'o', Needs::Number, "", "longitude of the origin"},
    {'p', Needs::Number, "", "latitude of the origin"},
    {'N', Needs::Number, "", "full northing"},
    {'E', Needs::Number, "", "full easting"},
    {'a', Needs::Letter, ALPHABET_WITHOUT_I, "first letter of the square"},
    {'b', Needs::Letter, ALPHABET_WITHOUT_I, "letter of the square"},
    {'i', Needs::Letter, "I", "letter I"},
    {'1', Needs::Letter, ALPHABET_WITHOUT_IO, "first letter (A to Z without I and O)"},
    {'2', Needs::Letter, "ABCDEFGHJKLM", "second letter (A to M without I)"},
    {'3', Needs::Letter, "ABCDEFGHJKLMNPQ", "third letter (A to Q without I and O)"},
    {'4', Needs::Letter, "ABCDEFGHJKLMNPQ", "fourth letter (A to Q without I and O)"},
    {'u', Needs::Unsigned, ALPHABET, "easting digits", true},
    {'v', Needs::Unsigned, ALPHABET, "northing digits", true},
    {'g', Needs::Unsigned, ALPHABET, "digits of easting and northing", true},
};

const Element& ElementOf(char sign) {
    return *std::find_if(std::begin(ELEMENTS), std::end(ELEMENTS),
                         [&](const Element& e) { return e.sign == sign; });
}

bool IsFit(const Element& element, const Token& token) {
    switch (element.needs) {
        case Needs::Letter:
            return token.kind == TokenKind::Letter &&
                   element.letters.find(token.letter) != std::string_view::npos;
        case Needs::Whole:
            return token.IsWhole();
        case Needs::Unsigned:
            return token.kind == TokenKind::Number && !token.hasSign;
        case Needs::Joined:
            return token.kind == TokenKind::Number && !token.hasSign && token.digits.size() >= FEWEST_JOINED;
        case Needs::Number:
            break;
    }
    return token.kind == TokenKind::Number;
}

// 600,000 can mean 600000 or 600.
bool MayDivideThousands(const Token& token) {
    return token.hasComma && token.decimals == 3 && token.digits.size() <= 3;
}

Fault Expected(const std::string& what, const Token& token) {
    if (token.kind == TokenKind::End || token.kind == TokenKind::Boundary)
        return {"missing", "missing " + what, token.piece};
    return {"unexpected", "expected " + what, token.piece};
}

class Matcher {
  public:
    Matcher(const Tokens& tokens, bool isPair, Match* match)
        : tokens_(tokens), isPair_(isPair), match_(match) {}

    Fault Take(char sign) {
        switch (sign) {
            case '|':
                return TakeBoundary();
            case '^':
                return isPair_ ? TakeBoundary()
                               : Fault{"missing", "expected two texts, north and east", tokens_.All()};
            case '_':
                return Here().touchesPrevious ? Expected("space", Here()) : Fault{};
            case ',':
                if (!isPair_ && Here().kind == TokenKind::Boundary) ++at_;
                return {};
            default:
                return TakeElement(ElementOf(sign));
        }
    }

    [[nodiscard]] Fault TakeEnd() const {
        if (at_ == tokens_.Count()) return {};
        return {"leftover",
                "unexpected text after the position",
                {Here().piece.text, Here().piece.begin,
                 Here().piece.text == tokens_.All().text ? tokens_.All().end : Here().piece.end}};
    }

  private:
    [[nodiscard]] const Token& Here() const { return tokens_[at_]; }

    Fault TakeBoundary() {
        if (Here().kind != TokenKind::Boundary) return Expected("separator between north and east", Here());
        ++at_;
        return {};
    }

    Fault TakeElement(const Element& element) {
        if (!IsFit(element, Here())) return element.isOptional ? Fault{} : Expected(element.words, Here());
        if (MayDivideThousands(Here()))
            return {"comma", "ambiguous comma, decimal or thousands; write a decimal point or no comma",
                    Here().piece};
        if (element.sign != 'g') return Set(element);
        const Token& first = tokens_[at_++];
        if (!IsFit(element, Here())) {
            match_->Set('g', first);
            return {};
        }
        match_->Set('u', first);
        match_->Set('v', tokens_[at_++]);
        return {};
    }

    // Both texts contain the letters of the square.
    Fault Set(const Element& element) {
        const Token& token = tokens_[at_];
        if (match_->Has(element.sign) && match_->Letter(element.sign) != token.letter)
            return {"square", "the two texts name different squares", token.piece};
        match_->Set(element.sign, token);
        ++at_;
        return {};
    }

    const Tokens& tokens_;
    bool isPair_;
    Match* match_;
    std::size_t at_ = 0;
};

}  // namespace

Fault MatchPattern(const char* pattern, const Tokens& tokens, bool isPair, Match* match) {
    Matcher matcher(tokens, isPair, match);
    for (const char* sign = pattern; *sign != '\0'; ++sign) {
        Fault wrong = matcher.Take(*sign);
        if (wrong.IsThere()) return wrong;
    }
    return matcher.TakeEnd();
}

}  // namespace tessara::toolkit
