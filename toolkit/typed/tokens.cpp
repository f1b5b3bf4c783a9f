#include "typed/tokens.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "conversion/ascii.h"
#include "conversion/quote.h"

namespace tessara::toolkit {
namespace {

enum class Sign { Blank, Minus, Degree, Minute, Second };

struct Symbol {
    std::string_view bytes;
    Sign sign;
};

// Longer symbols precede their own prefixes.
constexpr Symbol SYMBOLS[] = {
    {" ", Sign::Blank},
    {"\r", Sign::Blank},
    {"\n", Sign::Blank},
    {"\v", Sign::Blank},
    {"\f", Sign::Blank},
    {"\u00a0", Sign::Blank},  // no-break space
    {"\u2007", Sign::Blank},  // figure space
    {"\u2009", Sign::Blank},  // thin space
    {"\u202f", Sign::Blank},  // narrow no-break space
    {"-", Sign::Minus},
    {"\u2212", Sign::Minus},
    {"\u2013", Sign::Minus},  // en dash
    {"\u00b0", Sign::Degree},
    {"\u00ba", Sign::Degree},  // masculine ordinal
    {"\u02da", Sign::Degree},  // ring above
    {"\xb0", Sign::Degree},    // Latin-1
    {"''", Sign::Second},
    {"\u2032\u2032", Sign::Second},
    {"\u2019\u2019", Sign::Second},
    {"\"", Sign::Second},
    {"\u2033", Sign::Second},  // double prime
    {"\u201d", Sign::Second},  // double quotation marks
    {"\u201c", Sign::Second},
    {"'", Sign::Minute},
    {"\u2032", Sign::Minute},  // prime
    {"\u2019", Sign::Minute},  // single quotation marks
    {"\u2018", Sign::Minute},
    {"\u00b4", Sign::Minute},  // accents
    {"`", Sign::Minute},
};

const Symbol* SymbolAt(std::string_view text) {
    const Symbol* const found = std::find_if(std::begin(SYMBOLS), std::end(SYMBOLS),
                                             [&](const Symbol& s) { return text.starts_with(s.bytes); });
    return found != std::end(SYMBOLS) ? found : nullptr;
}

bool IsLowerCase(char c) {
    return c >= 'a' && c <= 'z';
}

bool IsLetter(char c) {
    return IsLowerCase(c) || (c >= 'A' && c <= 'Z');
}

// The length in bytes of the character at the start of a text.
std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return static_cast<unsigned char>(text[0]) < 0x80 ? 1 : length;
}

}  // namespace

class Tokens::Lexer {
  public:
    Lexer(std::string_view text, std::size_t number, Comma comma, Tokens* tokens)
        : text_(text), number_(number), comma_(comma), tokens_(tokens) {}

    Fault Read() {
        while (at_ < text_.size()) {
            Fault fault = Next();
            if (fault.IsThere()) return fault;
        }
        return {};
    }

  private:
    [[nodiscard]] char At(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
    [[nodiscard]] Piece PieceOf(std::size_t begin, std::size_t end) const { return {number_, begin, end}; }

    Fault Next() {
        const char c = text_[at_];
        if (IsNumber(at_)) return Number(false, false);
        if (c == '+' && IsNumber(at_ + 1)) return Signed(1, false);
        if (IsLetter(c)) return Letter();
        if (c == ',' || c == ';' || c == '\t') return Add({.kind = TokenKind::Boundary}, 1);
        const std::string_view rest = text_.substr(at_);
        const Symbol* const symbol = SymbolAt(rest);
        if (symbol == nullptr) return Wrong(CharacterLength(rest));
        const std::size_t length = symbol->bytes.size();
        switch (symbol->sign) {
            case Sign::Blank:
                at_ += length;
                return {};
            case Sign::Minus:
                return IsNumber(at_ + length) ? Signed(length, true) : Wrong(length);
            case Sign::Degree:
                return Add({.kind = TokenKind::Degree}, length);
            case Sign::Minute:
                return Add({.kind = TokenKind::Minute}, length);
            case Sign::Second:
                break;
        }
        return Add({.kind = TokenKind::Second}, length);
    }

    // A digit, or a point before one.
    [[nodiscard]] bool IsNumber(std::size_t i) const {
        return IsDigit(At(i)) || (At(i) == '.' && IsDigit(At(i + 1)));
    }

    Fault Letter() {
        const char c = text_[at_];
        const bool isLowerCase = toolkit::IsLowerCase(c);
        return Add({.kind = TokenKind::Letter,
                    .letter = isLowerCase ? static_cast<char>(c - 'a' + 'A') : c,
                    .isLowerCase = isLowerCase},
                   1);
    }

    Fault Signed(std::size_t length, bool isNegative) {
        const bool isWithin = tokens_->count_ > 0 && Touches() && Last().kind != TokenKind::Letter &&
                              Last().kind != TokenKind::Boundary;
        if (isWithin) return Wrong(length);
        signLength_ = length;
        at_ += length;
        return Number(true, isNegative);
    }

    Fault Number(bool hasSign, bool isNegative) {
        const std::size_t begin = at_ - (hasSign ? signLength_ : 0);
        if (!hasSign && tokens_->count_ > 0 && Touches() && Last().kind == TokenKind::Number)
            return {"number", "two decimal points in one number", PieceOf(Last().piece.begin, EndOfNumber())};
        Token token{.kind = TokenKind::Number, .hasSign = hasSign, .isNegative = isNegative};
        const std::size_t first = at_;
        SkipDigits();
        token.digits = text_.substr(first, at_ - first);
        std::string plain(token.digits);
        if (At(at_) == '.' || IsDecimalComma()) {
            token.hasPoint = true;
            token.hasComma = At(at_) == ',';
            const std::size_t point = at_++;
            SkipDigits();
            token.decimals = static_cast<int>(at_ - point) - 1;
            plain.append(".").append(text_.substr(point + 1, at_ - point - 1));
        }
        Fault wrong = TakeExponent(&token, &plain);
        if (wrong.IsThere()) return wrong;
        token.piece = PieceOf(begin, at_);

        const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), token.value);
        if (read.ec != std::errc() || !std::isfinite(token.value) || plain.size() > LONGEST)
            return {"number", "number out of range", token.piece};
        if (isNegative) token.value = -token.value;
        if (comma_ == Comma::Decimal && At(at_) == ',' && IsDigit(At(at_ + 1)))
            return {"comma", "ambiguous comma, decimal or between two numbers", PieceOf(at_, at_ + 1)};
        at_ = begin;
        return Add(token, token.piece.end - begin);
    }

    // An exponent must have a sign, because the letter E means east.
    Fault TakeExponent(Token* token, std::string* plain) {
        const bool isExponent = (At(at_) == 'e' || At(at_) == 'E') &&
                                (At(at_ + 1) == '+' || At(at_ + 1) == '-') && IsDigit(At(at_ + 2));
        if (!isExponent) return {};
        const std::size_t begin = at_;
        at_ += 2;
        SkipDigits();
        const bool isPlus = At(begin + 1) == '+';
        int exponent = 0;
        const auto read = std::from_chars(text_.data() + begin + 2, text_.data() + at_, exponent);
        if (read.ec != std::errc() || exponent > HIGHEST_EXPONENT)
            return {"number", "number out of range", PieceOf(begin, at_)};
        plain->append(isPlus ? "e+" : "e-").append(std::to_string(exponent));
        token->hasPoint = true;
        token->decimals -= isPlus ? exponent : -exponent;
        return {};
    }

    [[nodiscard]] bool IsDecimalComma() const {
        return comma_ == Comma::Decimal && At(at_) == ',' && at_ > 0 && IsDigit(At(at_ - 1)) &&
               IsDigit(At(at_ + 1));
    }

    void SkipDigits() {
        while (IsDigit(At(at_)))
            ++at_;
    }

    [[nodiscard]] std::size_t EndOfNumber() const {
        std::size_t end = at_;
        while (IsDigit(At(end)) || At(end) == '.')
            ++end;
        return end;
    }

    [[nodiscard]] const Token& Last() const { return tokens_->tokens_[tokens_->count_ - 1]; }
    [[nodiscard]] bool Touches() const { return Last().piece.text == number_ && Last().piece.end == at_; }

    Fault Add(Token token, std::size_t length) {
        token.piece = PieceOf(at_, at_ + length);
        if (tokens_->count_ == MOST) return {"long", "text too long for a position", token.piece};
        token.touchesPrevious = tokens_->count_ > 0 && Touches();
        tokens_->tokens_[tokens_->count_++] = token;
        at_ += length;
        return {};
    }

    [[nodiscard]] Fault Wrong(std::size_t length) const {
        return {"character", "unexpected character " + Quote(text_.substr(at_, length)),
                PieceOf(at_, at_ + length)};
    }

    static constexpr std::size_t LONGEST = 40;
    static constexpr int HIGHEST_EXPONENT = 300;

    std::string_view text_;
    std::size_t number_;
    Comma comma_;
    Tokens* tokens_;
    std::size_t at_ = 0;
    std::size_t signLength_ = 0;
};

Fault Tokens::Read(std::span<const std::string_view> texts, Comma comma) {
    count_ = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Fault fault = Lexer(texts[i], i, comma, this).Read();
        if (fault.IsThere()) return fault;
        // In a shell, the first word of `48.1, 11.5` ends with the comma.
        const bool endsWithBoundary = count_ > 0 && tokens_[count_ - 1].kind == TokenKind::Boundary;
        if (i + 1 == texts.size() || endsWithBoundary) continue;
        const Piece end{i, texts[i].size(), texts[i].size()};
        if (count_ == MOST) return {"long", "text too long for a position", end};
        tokens_[count_++] = {.kind = TokenKind::Boundary, .piece = end};
    }
    const std::size_t last = texts.size() - 1;
    tokens_[count_] = {.kind = TokenKind::End, .piece = {last, texts[last].size(), texts[last].size()}};
    return {};
}

Piece Tokens::All() const {
    if (count_ == 0) return {};
    const Piece& first = tokens_[0].piece;
    const Piece& last = tokens_[count_ - 1].piece;
    // A range in both texts is reduced to the second.
    return first.text == last.text ? Piece{first.text, first.begin, last.end} : Piece{last.text, 0, last.end};
}

}  // namespace tessara::toolkit
