// Patterns of typed grid positions, with one character for each element:
//
//     Z zone            n northing     1 2 3 4  letters of GEOREF, in their order
//     H hemisphere      e easting      u v      digits of east and north, which may be missing
//     P polar letter    x y z          g        the same two in one number or side by side
//     B band            M meridian     o p      longitude and latitude of an origin
//     C column, R row   N E whole grid values of a lettered grid, a b its letters, i the letter I
//     j  zone and easting in one number
//     _  a blank
//     |  a boundary                ^  the boundary between two texts
//     ,  a boundary within one text, which may be missing
//
// Other blanks are ignored, because letters and numbers need no separator.
#pragma once

#include <array>

#include "typed/result.h"
#include "typed/tokens.h"

namespace tessara::toolkit {

// The tokens that match the elements of a pattern.
class Match {
  public:
    [[nodiscard]] const Token* operator[](char element) const {
        return tokens_[static_cast<unsigned char>(element)];
    }
    [[nodiscard]] bool Has(char element) const { return (*this)[element] != nullptr; }
    [[nodiscard]] char Letter(char element) const { return (*this)[element]->letter; }
    [[nodiscard]] double Value(char element) const { return (*this)[element]->value; }

    void Set(char element, const Token& token) { tokens_[static_cast<unsigned char>(element)] = &token; }

  private:
    std::array<const Token*, 128> tokens_{};
};

// Matches all tokens with a pattern. The fault names the element that was expected at the first token that
// does not match.
[[nodiscard]] Fault MatchPattern(const char* pattern, const Tokens& tokens, bool isPair, Match* match);

}  // namespace tessara::toolkit
