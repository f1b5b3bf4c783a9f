// Reads a record from its north and east texts.
#pragma once

#include <string_view>

#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// On entry the record has its datum and type, and all other fields are zero. The result wants no zone other
// than the one that the texts name. False for ECEF, a system without texts, and a text that lacks a field;
// the record may then be partly filled. Characters after the last field are ignored.
bool Read(std::string_view north, std::string_view east, tagKOORD* record);

}  // namespace text

}  // namespace tessara
