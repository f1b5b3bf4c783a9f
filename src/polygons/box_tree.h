// A tree of boxes, in which a search looks at the few that can matter.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// Neighbours are packed into groups, those into larger ones, each with the box around it. How often boxes
// overlap makes searches slower, but never where they lie: crowds are no worse than rasters.
class BoxTree {
  public:
    // None of the borders may be a NaN; infinite ones and boxes that are inside out are fine.
    explicit BoxTree(const std::vector<Box>& boxes);

    // Visits the numbers of all boxes that pass the test, in no particular order. A box around one that
    // passes must pass, too.
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

    std::vector<std::size_t> numbers_;      // of the boxes on the lowest level
    std::vector<std::vector<Box>> levels_;  // from the boxes themselves to a level of one group
};

}  // namespace tessara
