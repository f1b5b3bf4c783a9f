// Divides a piece of a line in halves until each is straight enough, from left to right and without
// recursion.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace tessara {

enum class Division { Finished, Split, Failed };

// Divides the piece between two knots. `divide(left, right, depth, &middle)` judges a piece that has been
// halved `depth` times and gives the knot to split it at; a piece at the depth LIMIT must not be split.
// `finish(right)` takes the end of each finished piece, in order along the line. False at the first failure
// of either.
template <std::size_t LIMIT, class Knot, class Divide, class Finish>
bool WalkPolyline(Knot left, const Knot& right, const Divide& divide, const Finish& finish) {
    // The ends of the pieces still to be walked, the next one last, each with the depth of its piece.
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
        if (!finish(end.knot)) return false;
        left = end.knot;
        --count;
    }
    return true;
}

}  // namespace tessara
