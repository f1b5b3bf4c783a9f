// The meaning of a typed text, or the piece in error and the reason.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "conversion/references.h"
#include "tessara/kernel/koord.h"

namespace tessara::toolkit {

// A range of bytes in the first or the second text.
struct Piece {
    std::size_t text = 0;
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] bool IsEmpty() const { return begin == end; }
};

// The reason why a text is rejected. The code is stable between versions; the reason is a clause for people.
// Without a fault both are empty.
struct Fault {
    const char* code = "";
    std::string reason{};
    Piece piece{};

    [[nodiscard]] bool IsThere() const { return *code != '\0'; }
};

// One meaning of a text.
struct Reading {
    // The system of the text: degrees with minutes and seconds are GEOGRAD, even if another system in degrees
    // is wanted.
    Reference reference{};
    tagKOORD record{};
    // The unit of the last digit along each axis, in degrees or metres.
    double northResolution = 1.0;
    double eastResolution = 1.0;
};

// A single reading is the position. Several readings are the meanings of an ambiguous text. Without a single
// reading, the fault has the reason.
struct TypedResult {
    std::vector<Reading> readings{};
    Fault fault{};

    [[nodiscard]] bool IsRead() const { return readings.size() == 1; }
};

}  // namespace tessara::toolkit
