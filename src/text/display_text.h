// The compact display forms of texts. They are derived from the plain texts, without the digits that the
// precision doesn't cover.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "records/axis.h"

namespace tessara {

struct PlainTexts {
    std::string north;
    std::string east;
};

namespace text {

// Whether the display text of one axis also shows the other one, as the whole reference of UTMREF does.
[[nodiscard]] bool DisplaysBothAxes(std::int32_t system);

// The display text of an axis. If DisplaysBothAxes is false, only the plain text of that axis is read. False
// if a text lacks words that the form needs.
bool Display(Axis axis, std::int32_t system, std::int16_t precision, const PlainTexts& plain,
             std::string* display);

}  // namespace text

// Word n of a text, counted from 0; words are separated by blanks. Word 0 of an empty text is empty. False
// if the text has fewer than n separators.
bool GetToken(std::string_view text, int n, std::string_view separator, std::string* token);

}  // namespace tessara
