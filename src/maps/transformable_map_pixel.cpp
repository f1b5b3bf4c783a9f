#include "maps/transformable_map_pixel.h"

#include <functional>

#include "maps/line_clipping.h"
#include "maps/pixel_search.h"
#include "tessara/coord.h"
#include "tessara/coordinate_checker.h"
#include "tessara/coordinate_init.h"
#include "tessara/coordinate_reference.h"
#include "tessara/float_point.h"
#include "tessara/map_coord_operations.h"
#include "tessara/rect.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// Tests pixels with one coordinate, which keeps the last position found.
class Prober {
  public:
    Prober(IMapCoordOperations* map, ICoord* coord)
        : map_(map), coord_(coord), checker_(CreateClassCoordinateChecker()) {}

    [[nodiscard]] bool IsComplete() const { return map_.IsValid() && coord_.IsValid() && checker_.IsValid(); }

    // Whether the pixel has a position, that position has a pixel, and it lies in the area of its system.
    bool operator()(std::int32_t x, std::int32_t y) const {
        std::int32_t backX = 0;
        std::int32_t backY = 0;
        return map_->LongPixelToCoord(x, y, coord_.Get()) &&
               map_->CoordToLongPixel(coord_.Get(), &backX, &backY) &&
               checker_->CheckInSystemArea(coord_.Get());
    }

    // The same test with a position that passes every check of ICoordinateChecker.
    bool operator()(const PlanePoint& pixel, PlanePoint* back) const {
        return map_->FloatPixelToCoord(pixel.x, pixel.y, coord_.Get()) &&
               map_->CoordToFloatPixel(coord_.Get(), &back->x, &back->y) &&
               checker_->CheckCoord(coord_.Get());
    }

    // Whether the default position of the coordinate's reference lies in the rectangle.
    [[nodiscard]] bool IsDefaultInside(const PixelRect& rect) const {
        const IRef<ICoordinateInit> init(CreateClassCoordinateInit());
        std::int32_t x = 0;
        std::int32_t y = 0;
        return init.IsValid() && init->InitCoord(coord_.Get()) &&
               map_->CoordToLongPixel(coord_.Get(), &x, &y) && IsInside(rect, x, y);
    }

  private:
    IRef<IMapCoordOperations> map_;
    IRef<ICoord> coord_;
    IRef<ICoordinateChecker> checker_;
};

// Empty if the reference can't be set.
IRef<ICoord> CoordOf(ICoordinateReference* reference) {
    const IRef<ICoordinateReference> wanted(reference);
    const IRef<ICoord> coord(CreateClassCoord());
    const bool isMade = wanted.IsValid() && coord.IsValid() && coord->SetReference(wanted.Get());
    return isMade ? coord : IRef<ICoord>();
}

PlanePoint PointOf(IFloatPoint* point) {
    return {point->GetX(), point->GetY()};
}

void PutPoint(const PlanePoint& point, IFloatPoint* out) {
    out->SetX(point.x);
    out->SetY(point.y);
}

}  // namespace

bool TransformableMapPixel::FindValidCoordInPixelRect(IMapCoordOperations* map, const PixelRect* rect,
                                                      ICoord* coord) {
    const Prober prober(map, coord);
    if (!prober.IsComplete() || !rect) return false;
    const PixelRect window = Normalised(*rect);
    const WholePixelTest test = std::cref(prober);
    return FindValidPixel(window, LEVELS_IN_RECTANGLE, test) || prober.IsDefaultInside(window) ||
           FindValidPixelOnRim(window, LEVELS_ON_RIM, test);
}

bool TransformableMapPixel::FindValidCoordInRect(IMapCoordOperations* map, IRect* rect, ICoord* coord) {
    const IRef<IRect> edges(rect);
    if (!edges.IsValid()) return false;
    const PixelRect window{edges->GetLeft(), edges->GetTop(), edges->GetRight(), edges->GetBottom()};
    return FindValidCoordInPixelRect(map, &window, coord);
}

std::int32_t TransformableMapPixel::ClipLineToValid(IMapCoordOperations* map, ICoordinateReference* reference,
                                                    IFloatPoint* a, IFloatPoint* b, IFloatPoint* first,
                                                    IFloatPoint* second) {
    const IRef<IFloatPoint> start(a);
    const IRef<IFloatPoint> end(b);
    const IRef<IFloatPoint> from(first);
    const IRef<IFloatPoint> to(second);
    if (!start.IsValid() || !end.IsValid() || !from.IsValid() || !to.IsValid()) return CLIP_FAILED;
    const Prober prober(map, CoordOf(reference).Get());
    if (!prober.IsComplete()) return CLIP_FAILED;

    const ClippedLine line = ClipLine(PointOf(start.Get()), PointOf(end.Get()), std::cref(prober));
    if (line.result != CLIP_FAILED && line.result != CLIP_NONE_VALID) {
        PutPoint(line.first, from.Get());
        PutPoint(line.second, to.Get());
    }
    return line.result;
}

ITransformableMapPixel* CreateClassTransformableMapPixel() {
    return NewObject<TransformableMapPixel>();
}

}  // namespace tessara
