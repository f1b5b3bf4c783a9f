// A typed text in tokens: numbers, single letters, signs of degrees, and the boundary between north and east.
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
    int decimals = 0;           // behind it; fewer, by an exponent

    // A number of digits and nothing else.
    [[nodiscard]] bool IsWhole() const { return kind == TokenKind::Number && !hasSign && !hasPoint; }
};

// What a comma between two digits is.
enum class Comma { Decimal, Boundary };

class Tokens {
  public:
    // No position has as many.
    static constexpr std::size_t MOST = 32;

    // Reads one text, or two with a boundary between them. What is no token is the fault.
    [[nodiscard]] Fault Read(std::span<const std::string_view> texts, Comma comma);

    // Behind the last one stands an End, which has the place where something is missing.
    [[nodiscard]] const Token& operator[](std::size_t i) const { return tokens_[i]; }
    [[nodiscard]] std::size_t Count() const { return count_; }
    // From the first to the last one.
    [[nodiscard]] Piece All() const;

  private:
    class Lexer;

    std::array<Token, MOST + 1> tokens_;
    std::size_t count_ = 0;
};

}  // namespace tessara::toolkit
