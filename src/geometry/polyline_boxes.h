// A polyline in blocks of a few segments, with boxes around them: which segments of two polylines can meet at
// all.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/plane_lines.h"

namespace tessara {

class PolylineBoxes {
  public:
    // Of a polyline of at least two points, which has to live as long. Segment j leads
    // to point j.
    explicit PolylineBoxes(std::span<const PlanePoint> polyline);

    [[nodiscard]] std::size_t BlockCount() const { return levels_.front().size(); }
    [[nodiscard]] std::size_t FirstOf(std::size_t block) const { return SEGMENTS * block + 1; }
    [[nodiscard]] std::size_t EndOf(std::size_t block) const;

    // The segments of this polyline, in ascending order, that may have a point in common with one of the
    // block of the other polyline, and some more. What is left out crosses none of them, and
    // IntersectSegments says so, too.
    void FindNear(const PolylineBoxes& other, std::size_t block, std::vector<std::size_t>* segments) const;

  private:
    static constexpr std::size_t SEGMENTS = 8;  // in a block

    // Middle and half extents; not a number around a point that isn't finite.
    struct Box {
        double x, y, dx, dy;
    };

    [[nodiscard]] static Box Around(const Box& one, const Box& other);
    [[nodiscard]] Box AroundBlock(std::size_t block) const;
    [[nodiscard]] bool LiesToOneSide(std::size_t segment, const Box& box) const;
    void FindBelow(std::size_t height, std::size_t index, const PolylineBoxes& other, std::size_t block,
                   std::vector<std::size_t>* segments) const;

    std::span<const PlanePoint> polyline_;
    std::vector<std::vector<Box>> levels_;  // the boxes around 1, 2, 4 ... blocks
};

}  // namespace tessara
