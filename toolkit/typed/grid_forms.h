// The forms in which positions of grids, zones and squares are typed: one row a form.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "typed/patterns.h"
#include "typed/result.h"

namespace tessara::toolkit {

// In which order a single text has the two numbers of a grid.
enum class Order { Unknown, NorthFirst, EastFirst };

// A northing and an easting and nothing else: two texts have the north first, one text may have either first.
inline constexpr const char* BARE_NUMBERS = "n^e";
inline constexpr const char* EAST_FIRST = "e,n";
inline constexpr const char* NORTH_FIRST = "n,e";

// What a reading begins with: the reference, and its default record.
struct Blank {
    Reference reference;
    tagKOORD record;
};

struct GridForm {
    std::int32_t system;
    const char* pattern;
    // Makes the records of a match; without any, the fault says which piece is wrong.
    Fault (*build)(const Match& match, const Blank& blank, std::vector<Reading>* readings);
    // Whether no other system has such texts: what is typed without naming a system is tried with these.
    bool isSelfExplaining = false;
    // Whether it is what the program writes and others write with another meaning: a position in it is no
    // position in the forms behind it.
    bool isOwn = false;
};

[[nodiscard]] std::span<const GridForm> GridForms();

}  // namespace tessara::toolkit
