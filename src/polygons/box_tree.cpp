#include "polygons/box_tree.h"

#include <cmath>
#include <numeric>

#include "numerics/rounding.h"

namespace tessara {
namespace {

Box Around(const Box& a, const Box& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// The number of boxes in a strip for which a strip has as many groups as there are strips.
std::size_t StripSize(std::size_t count, std::size_t group) {
    const double groups = static_cast<double>(count) / static_cast<double>(group);
    return static_cast<std::size_t>(Ceil(std::sqrt(groups))) * group;
}

// The indices of the boxes, in strips from left to right and within each strip from top to bottom.
std::vector<std::size_t> InStrips(const std::vector<Box>& boxes, std::size_t stripSize) {
    std::vector<std::size_t> numbers(boxes.size());
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    std::sort(numbers.begin(), numbers.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].left < boxes[b].left; });
    for (std::size_t begin = 0; begin < numbers.size(); begin += stripSize) {
        const std::size_t end = std::min(begin + stripSize, numbers.size());
        std::sort(numbers.begin() + static_cast<std::ptrdiff_t>(begin),
                  numbers.begin() + static_cast<std::ptrdiff_t>(end),
                  [&](std::size_t a, std::size_t b) { return boxes[a].top < boxes[b].top; });
    }
    return numbers;
}

std::vector<Box> AroundGroups(const std::vector<Box>& boxes, std::size_t group) {
    std::vector<Box> around;
    around.reserve(boxes.size() / group + 1);
    for (std::size_t k = 0; k < boxes.size(); ++k) {
        if (k % group == 0) {
            around.push_back(boxes[k]);
        } else {
            around.back() = Around(around.back(), boxes[k]);
        }
    }
    return around;
}

}  // namespace

BoxTree::BoxTree(const std::vector<Box>& boxes)
    : numbers_(InStrips(boxes, StripSize(boxes.size(), GROUP))), levels_(1) {
    levels_[0].reserve(boxes.size());
    for (const std::size_t number : numbers_)
        levels_[0].push_back(boxes[number]);
    while (levels_.back().size() > GROUP)
        levels_.push_back(AroundGroups(levels_.back(), GROUP));
}

}  // namespace tessara
