// Helpers for coordinates of a host: records in and out, and copies.
//
// Example: a copy has a record of its own.
//
//     const tessara::IRef here = tessara::host::CoordOf(record);
//     const tessara::IRef copy = tessara::host::Copy(here);
//     const std::optional utm = tessara::LoadIf<tessara::UtmPayload>(tessara::host::RecordOf(copy));
//
// They use CKoord, which the shared library exports: link with it.
#pragma once

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/coord_geographic.h"
#include "tessara/ref.h"

namespace tessara::host {

// A new valid coordinate with this record; empty if memory runs out.
[[nodiscard]] inline IRef<ICoord> CoordOf(const CKoord& record) {
    IRef<ICoord> coord = CreateClassCoord();
    const IRef<ICoordInternal> inner(coord);
    return inner.IsValid() && inner->SetKoord(&record) ? coord : IRef<ICoord>();
}

// The record of a coordinate with its height, also of an invalid one. A WGS84 GEODEZ record of zeros for
// null and for an object of another kind.
[[nodiscard]] inline CKoord RecordOf(IUnknown* coord) {
    CKoord record;
    const IRef<ICoordInternal> inner(coord);
    if (inner.IsValid()) inner->GetKoord(&record);
    return record;
}

// Whether a coordinate has a position that can be read, as pixels or as degrees. False for null.
[[nodiscard]] inline bool HasPosition(ICoord* coord) {
    const IRef<ICoord> held(coord);
    const IRef<ICoordGeographic> place = CreateClassCoordGeographic();
    double x = 0.0, y = 0.0;
    return held.IsValid() && (held->GetPixel(&x, &y) || held->GetGeographic(place));
}

// A new coordinate with the record, height and reference of another, valid if the other has a position.
// Empty for null, for an object of another kind and if memory runs out.
[[nodiscard]] inline IRef<ICoord> Copy(ICoord* coord) {
    const IRef<ICoordInternal> inner(coord);
    if (!inner.IsValid()) return {};
    IRef<ICoord> copy = host::CoordOf(host::RecordOf(coord));
    if (copy.IsValid() && !host::HasPosition(coord)) copy->SetGeographic(nullptr);
    return copy;
}

}  // namespace tessara::host
