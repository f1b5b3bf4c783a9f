// A record from its north and east texts.
#pragma once

#include <string_view>

#include "tessara/kernel/koord.h"

namespace tessara {

namespace text {

// Reads both texts into a record that has its datum and type and is zero otherwise. The record wants no zone
// other than the one it names. False for ECEF, a system without texts, and a text without one of the fields;
// the record is then partly filled. What is behind the last field doesn't matter.
bool Read(std::string_view north, std::string_view east, tagKOORD* record);

}  // namespace text

}  // namespace tessara
