// One line of a grid, as an array. A grid may have millions of points, of which a caller reads few at a
// time, so a line stores its points in packed form until one is asked for.
#pragma once

#include <utility>

#include "grids/packed_polyline.h"
#include "tessara/array.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class GridLineArray : public IArray {
  public:
    using Faces = FaceList<IArray>;
    // Makes the object for a point; null without memory.
    using PointMaker = IRef<IUnknown> (*)(const tagKOORD&);

    GridLineArray(PackedPolyline polyline, PointMaker maker)
        : polyline_(std::move(polyline)), maker_(maker) {}

    void Add(IUnknown* object) override;
    void RemoveAt(std::uint32_t index) override;
    std::uint32_t GetCount() override;
    IUnknown* GetAt(std::uint32_t index) override;
    void Clear() override;

  protected:
    ~GridLineArray() = default;

  private:
    bool Unpack();

    PackedPolyline polyline_;
    PointMaker maker_;
    IRef<IArray> points_;  // empty while the polyline holds the points
};

}  // namespace tessara
