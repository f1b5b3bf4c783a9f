// Splits a typed text into tokens: numbers, single letters, degree signs, and the separator between north and
// east.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "typed/result.h"

namespace tessara::toolkit {

enum class TokenKind {
    End,
    Number,
    Letter,
    Degree,
    Minute,
    Second,
    Boundary,  // a comma, a semicolon, a tab, or the end of the first of two texts
};

struct Token {
    TokenKind kind = TokenKind::End;
    Piece piece{};
    bool touchesPrevious = false;

    char letter = 0;  // upper-case
    bool isLowerCase = false;

    double value = 0.0;
    bool hasSign = false;
    bool isNegative = false;
    bool hasPoint = false;  // or a decimal comma
    bool hasComma = false;
    std::string_view digits{};  // before the point
    int decimals = 0;           // after the point, less the exponent

    // Whether the number consists of digits only.
    [[nodiscard]] bool IsWhole() const { return kind == TokenKind::Number && !hasSign && !hasPoint; }
};

// The meaning of a comma between two digits.
enum class Comma { Decimal, Boundary };

class Tokens {
  public:
    // Exceeds the tokens of all positions.
    static constexpr std::size_t MOST = 32;

    // Reads one text, or two with a boundary between them. Returns a fault for an unknown character.
    [[nodiscard]] Fault Read(std::span<const std::string_view> texts, Comma comma);

    // An End follows the last token and marks the place of missing text.
    [[nodiscard]] const Token& operator[](std::size_t i) const { return tokens_[i]; }
    [[nodiscard]] std::size_t Count() const { return count_; }
    // The range from the first to the last token.
    [[nodiscard]] Piece All() const;

  private:
    class Lexer;

    std::array<Token, MOST + 1> tokens_;
    std::size_t count_ = 0;
};

}  // namespace tessara::toolkit
