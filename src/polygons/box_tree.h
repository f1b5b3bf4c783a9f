// A tree of boxes that finds those which pass a test without looking at all of them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// Neighbouring boxes are packed into groups and groups into larger groups, each with a box around it. A
// search takes longer the more the boxes overlap; how they are distributed doesn't matter.
class BoxTree {
  public:
    // No border may be NaN. Infinite borders, and boxes whose right border is left of the left one, are
    // allowed.
    explicit BoxTree(const std::vector<Box>& boxes);

    // Visits the index of every box that passes the test, in no particular order. The test must accept any
    // box that encloses an accepted one.
    template <class Test, class Visit>
    void Search(const Test& passes, const Visit& visit) const {
        SearchGroup(levels_.size() - 1, 0, levels_.back().size(), passes, visit);
    }

  private:
    static constexpr std::size_t GROUP = 8;

    template <class Test, class Visit>
    void SearchGroup(std::size_t level, std::size_t begin, std::size_t end, const Test& passes,
                     const Visit& visit) const {
        const std::vector<Box>& boxes = levels_[level];
        for (std::size_t k = begin; k < end; ++k) {
            if (!passes(boxes[k])) continue;
            if (level == 0) {
                visit(numbers_[k]);
                continue;
            }
            const std::size_t first = k * GROUP;
            SearchGroup(level - 1, first, std::min(first + GROUP, levels_[level - 1].size()), passes, visit);
        }
    }

    std::vector<std::size_t> numbers_;      // indices of the boxes on the lowest level
    std::vector<std::vector<Box>> levels_;  // from the boxes themselves to a level of one group
};

}  // namespace tessara
