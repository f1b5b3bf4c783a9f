// Groups the segments of a polyline into blocks with a box around each, to find the segments of two
// polylines that may intersect.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/plane_lines.h"

namespace tessara {

class PolylineBoxes {
  public:
    // Takes a polyline of at least two points, which must outlive this object. Segment j ends at point j.
    explicit PolylineBoxes(std::span<const PlanePoint> polyline);

    [[nodiscard]] std::size_t BlockCount() const { return levels_.front().size(); }
    [[nodiscard]] std::size_t FirstOf(std::size_t block) const { return SEGMENTS * block + 1; }
    [[nodiscard]] std::size_t EndOf(std::size_t block) const;

    // The segments of this polyline, in ascending order, that may have a point in common with a block of the
    // other one. The list may hold a few more, but never lacks a segment for which IntersectSegments finds a
    // common point, unless by products that overflow.
    void FindNear(const PolylineBoxes& other, std::size_t block, std::vector<std::size_t>* segments) const;

  private:
    static constexpr std::size_t SEGMENTS = 8;  // in a block

    // A box by its middle and half its extent; NaN around a point that isn't finite.
    struct Box {
        double x, y, dx, dy;
    };

    [[nodiscard]] static Box Around(const Box& one, const Box& other);
    [[nodiscard]] Box AroundBlock(std::size_t block) const;
    [[nodiscard]] bool LiesToOneSide(std::size_t segment, const Box& box) const;
    void FindBelow(std::size_t height, std::size_t index, const PolylineBoxes& other, std::size_t block,
                   std::vector<std::size_t>* segments) const;

    std::span<const PlanePoint> polyline_;
    std::vector<std::vector<Box>> levels_;  // boxes around 1, 2, 4, ... blocks
};

}  // namespace tessara
