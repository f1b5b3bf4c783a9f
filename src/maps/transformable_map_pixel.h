#pragma once

#include "tessara/object.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

class TransformableMapPixel : public ITransformableMapPixel, public ITransformableInternal {
  public:
    using Faces = FaceList<ITransformableMapPixel, ITransformableInternal>;

    bool FindValidCoordInRect(IMapCoordOperations* map, IRect* rect, ICoord* coord) override;
    std::int32_t ClipLineToValid(IMapCoordOperations* map, ICoordinateReference* reference, IFloatPoint* a,
                                 IFloatPoint* b, IFloatPoint* first, IFloatPoint* second) override;
    bool FindValidCoordInPixelRect(IMapCoordOperations* map, const PixelRect* rect, ICoord* coord) override;

  protected:
    ~TransformableMapPixel() = default;
};

}  // namespace tessara
