#include "geometry/coord_reading.h"

#include "frame/managed_object.h"
#include "tessara/coord_geographic.h"

namespace tessara {

bool ReadWgs84Position(ICoord* p, GeodezPayload* position) {
    const IRef<ICoord> coord(p);
    const IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    return coord.IsValid() && geographic.IsValid() && coord->GetGeographic(geographic.Get()) &&
           geographic->Get(&position->longitude, &position->latitude, &position->height);
}

IRef<ICoordinateReference> ReadReference(ICoord* p, IRef<ICoordinateReference> into) {
    const IRef<ICoord> coord(p);
    if (!coord.IsValid() || !into.IsValid() || !coord->GetReference(into.Get())) return {};
    return into;
}

IRef<ICoordinateReference> ManagedReference() {
    return ManagedObject(CLSID_CoordinateReference, CreateClassCoordinateReference);
}

}  // namespace tessara
