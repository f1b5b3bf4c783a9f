// Coordinates for tests.
#pragma once

#include <gtest/gtest.h>

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/koord.h"
#include "tessara/ref.h"

namespace tessara {

// A valid coordinate that holds the record.
inline IRef<ICoord> CoordOf(const CKoord& koord) {
    IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(IRef<ICoordInternal>(coord)->SetKoord(&koord));
    return coord;
}

inline IRef<ICoordinateReference> ReferenceOf(std::int32_t datum, std::int32_t system) {
    IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    EXPECT_TRUE(reference->SetDatum(datum));
    EXPECT_TRUE(reference->SetSystem(system));
    return reference;
}

// An invalid coordinate of a reference, with its system's default record.
inline IRef<ICoord> EmptyCoord(std::int32_t datum, std::int32_t system) {
    IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(coord->SetReference(ReferenceOf(datum, system).Get()));
    return coord;
}

inline CKoord KoordOf(const IRef<ICoord>& coord) {
    CKoord koord;
    EXPECT_TRUE(IRef<ICoordInternal>(coord)->GetKoord(&koord));
    return koord;
}

template <KoordPayload Payload>
Payload PayloadOf(const IRef<ICoord>& coord) {
    return Load<Payload>(KoordOf(coord));
}

// A valid coordinate reads geographic values; a pixel gives its pixel.
inline bool HoldsPosition(const IRef<ICoord>& coord) {
    double x, y;
    IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    return coord->GetPixel(&x, &y) || coord->GetGeographic(geographic.Get());
}

}  // namespace tessara
