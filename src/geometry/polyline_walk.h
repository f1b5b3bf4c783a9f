// Halves the pieces of a line until each is straight enough, from left to right and without recursion.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace tessara {

enum class Division { Finished, Split, Failed };

// Splits the piece between two knots. `divide(left, right, depth, &middle)` judges a piece that has been
// halved `depth` times and returns the knot at which to split it; a piece at the depth LIMIT must not be
// split. `finish(right)` receives the end of each finished piece, in order along the line. Stops, with
// false, when a division fails.
template <std::size_t LIMIT, class Knot, class Divide, class Finish>
bool WalkPolyline(Knot left, const Knot& right, const Divide& divide, const Finish& finish) {
    // The ends of the pieces still to be walked, the next one last, with the depth of each piece.
    struct End {
        Knot knot;
        std::size_t depth;
    };
    std::array<End, LIMIT + 1> ends{{{right, 0}}};
    std::size_t count = 1;
    while (count > 0) {
        End& end = ends[count - 1];
        Knot middle = end.knot;
        const Division division = divide(left, end.knot, end.depth, &middle);
        if (division == Division::Failed) return false;
        if (division == Division::Split) {
            assert(end.depth < LIMIT);
            ++end.depth;
            ends[count++] = {middle, end.depth};
            continue;
        }
        finish(end.knot);
        left = end.knot;
        --count;
    }
    return true;
}

}  // namespace tessara
