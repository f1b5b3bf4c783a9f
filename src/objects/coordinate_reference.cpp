#include "objects/coordinate_reference.h"

#include <new>

namespace tessara {

CoordinateReference::CoordinateReference()
    : datum_(CreateClassGeoDate()), system_(CreateClassCoordinateSystem()) {
    if (!datum_.IsValid() || !system_.IsValid()) throw std::bad_alloc();
}

ICoordinateReference* CreateClassCoordinateReference() {
    return NewObject<CoordinateReference>();
}

}  // namespace tessara
