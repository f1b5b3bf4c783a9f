#include "frame/float_point.h"

namespace tessara {

IFloatPoint* CreateClassFloatPoint() {
    return NewObject<FloatPoint>();
}

}  // namespace tessara
