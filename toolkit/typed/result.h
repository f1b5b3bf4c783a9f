// What a typed text means, or which piece of it is wrong and why.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "conversion/references.h"
#include "tessara/kernel/koord.h"

namespace tessara::toolkit {

// Bytes of a text; of the first or the second, where there are two.
struct Piece {
    std::size_t text = 0;
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] bool IsEmpty() const { return begin == end; }
};

// Why a text isn't read. The code is a word that stays the same from version to version; the reason is a
// clause for people. Without a fault both are empty.
struct Fault {
    const char* code = "";
    std::string reason{};
    Piece piece{};

    [[nodiscard]] bool IsThere() const { return *code != '\0'; }
};

// One meaning of a text.
struct Reading {
    // As the text has it: degrees with minutes and seconds are GEOGRAD, whatever spelling is wanted.
    Reference reference{};
    tagKOORD record{};
    // What a unit of the last digit stands for, in degrees or metres along each axis.
    double northResolution = 1.0;
    double eastResolution = 1.0;
};

// One reading is the position. Without any the fault says why; so it does for several, which are what the
// text could mean.
struct TypedResult {
    std::vector<Reading> readings{};
    Fault fault{};

    [[nodiscard]] bool IsRead() const { return readings.size() == 1; }
};

}  // namespace tessara::toolkit
