// The compact forms of the texts, for a screen. They are made from the plain texts, of which they leave out
// what the precision doesn't stand for.
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

// Whether the display text of one axis shows the other axis too: the whole reference of UTMREF.
[[nodiscard]] bool DisplaysBothAxes(std::int32_t system);

// The display text of an axis. Only the plain text of the axis is looked at where DisplaysBothAxes is
// false. False if a text lacks the words that the form needs.
bool Display(Axis axis, std::int32_t system, std::int16_t precision, const PlainTexts& plain,
             std::string* display);

}  // namespace text

// Word n of a text, from 0 on; words stand apart by blanks. Word 0 of an empty text is empty. False if there
// are fewer than n separations.
bool GetToken(std::string_view text, int n, std::string_view separator, std::string* token);

}  // namespace tessara
