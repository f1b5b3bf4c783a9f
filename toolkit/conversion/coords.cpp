#include "conversion/coords.h"

namespace tessara::toolkit {

IRef<ICoord> CoordOf(const tagKOORD& record) {
    IRef<ICoord> coord(CreateClassCoord());
    const CKoord koord(record);
    IRef<ICoordInternal>(coord)->SetKoord(&koord);
    return coord;
}

CKoord KoordOf(ICoord* coord) {
    CKoord koord;
    const IRef<ICoordInternal> inner(coord);
    if (inner.IsValid()) inner->GetKoord(&koord);
    return koord;
}

}  // namespace tessara::toolkit
