#include "maps/reference_point.h"

#include "kernel/numeric.h"
#include "objects/koord_access.h"

namespace tessara {

template <class Pixel>
bool ReferencePoint::Set(ICoord* world, KoordType type, const Pixel& pixel) {
    isSet_ = KoordFromCoord(world, &world_);
    if (!isSet_) return false;
    pixel_.type = static_cast<std::uint32_t>(type);
    Store(pixel_, pixel);
    return true;
}

bool ReferencePoint::SetFloat(ICoord* world, double x, double y) {
    return Set(world, KOORD_FLOATPIXEL, FloatPixelPayload{x, y});
}

bool ReferencePoint::SetLong(ICoord* world, std::int32_t x, std::int32_t y) {
    return Set(world, KOORD_LONGPIXEL, LongPixelPayload{x, y});
}

bool ReferencePoint::GetFloat(ICoord* world, double* x, double* y) {
    if (!isSet_ || !x || !y || !KoordToCoord(&world_, world)) return false;
    if (pixel_.type == KOORD_FLOATPIXEL) {
        const auto pixel = Load<FloatPixelPayload>(pixel_);
        *x = pixel.x;
        *y = pixel.y;
    } else {
        const auto pixel = Load<LongPixelPayload>(pixel_);
        *x = pixel.x;
        *y = pixel.y;
    }
    return true;
}

bool ReferencePoint::GetLong(ICoord* world, std::int32_t* x, std::int32_t* y) {
    // A double represents every whole pixel exactly.
    double column = 0.0;
    double row = 0.0;
    if (!x || !y || !GetFloat(world, &column, &row)) return false;
    *x = RoundPixel(column);
    *y = RoundPixel(row);
    return true;
}

IReferencePoint* CreateClassReferencePoint() {
    return NewObject<ReferencePoint>();
}

}  // namespace tessara
