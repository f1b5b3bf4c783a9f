// The typed forms of grid positions, one row for each form.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "typed/patterns.h"
#include "typed/result.h"

namespace tessara::toolkit {

// The order of the two numbers of a grid in a single text.
enum class Order { Unknown, NorthFirst, EastFirst };

// A northing and an easting alone. Of two texts the first is the north text; in a single text either can come
// first.
inline constexpr const char* BARE_NUMBERS = "n^e";
inline constexpr const char* EAST_FIRST = "e,n";
inline constexpr const char* NORTH_FIRST = "n,e";

// The start of a reading: the reference and its default record.
struct Blank {
    Reference reference;
    tagKOORD record;
};

struct GridForm {
    std::int32_t system;
    const char* pattern;
    // Creates the readings of a match, or returns the fault.
    Fault (*build)(const Match& match, const Blank& blank, std::vector<Reading>* readings);
    // Whether no other system has such texts, so that the form is tried if no system is named.
    bool isSelfExplaining = false;
    // Whether the program writes this form and other programs write it with another meaning. If it gives a
    // position, the later forms are not tried.
    bool isOwn = false;
};

[[nodiscard]] std::span<const GridForm> GridForms();

// Reads a military reference in the form that lists have, 32UPU9160234791: capitals, no blanks, and digits of
// both axes in equal number. Returns false for every other text, which the forms may read or refuse.
[[nodiscard]] bool ReadPlainReference(std::string_view text, const Blank& blank, Reading* reading);

}  // namespace tessara::toolkit
