// Positions side by side in columns that stay in the innermost cache while one formula after the other runs
// over them.
#pragma once

#include <cstddef>

namespace tessara {

struct alignas(64) Block {
    static constexpr std::size_t SIZE = 128;
    // Each begins with a register of the longest kind.
    using Column = double[SIZE];

    Column latitude;  // degrees, on the datum that the work has come to
    Column longitude;
    Column height;  // metres
    Column east;    // metres; x of Cartesian values
    Column north;   // metres; y
    Column up;      // z
    Column zone;    // the number of a zone or its meridian
    Column wanted;  // the meridian to force, degrees; not a number for none
    Column south;   // of the equator: 1.0, else 0.0
    // Of lettered references: one or two chars as they lie in memory, and the metres within the square.
    Column band;
    Column square;
    Column squareEast;
    Column squareNorth;
    // Not 0.0 for a row that the formulas for the common case aren't good for, whose values mean nothing.
    Column special;

    void Refuse(std::size_t row, bool isSpecial) { special[row] = isSpecial ? 1.0 : special[row]; }
    [[nodiscard]] bool IsSpecial(std::size_t row) const { return special[row] != 0.0; }
};

}  // namespace tessara
