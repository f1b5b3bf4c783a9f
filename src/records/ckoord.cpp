#include "tessara/ckoord.h"

#include "numerics/circular.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {

CKoord::CKoord() : tagKOORD(MakeKoord(DATUM_WGS84, KOORD_GEODEZ)), height(0.0) {
    ECEF_INIT();
}

CKoord::CKoord(const tagKOORD& record) : tagKOORD(record), height(0.0) {
    ECEF_INIT();
    *this = record;
}

CKoord::CKoord(const CKoord& other) : tagKOORD(other), height(other.height) {
    ECEF_INIT();
}

CKoord& CKoord::operator=(const tagKOORD& record) {
    tagKOORD::operator=(record);
    if (type == KOORD_GEODEZ) {
        height = Load<GeodezPayload>(*this).height;
    } else if (type == KOORD_GEODEZMIN) {
        height = Load<GeodezMinPayload>(*this).height;
    } else if (type == KOORD_ECEF) {
        ECEF_CalcHeight();
    }
    return *this;
}

CKoord& CKoord::operator=(const CKoord& other) {
    tagKOORD::operator=(other);
    height = other.height;
    return *this;
}

void CKoord::SetHeight(const double& newHeight) {
    height = newHeight;
    if (type == KOORD_GEODEZ) {
        auto fields = Load<GeodezPayload>(*this);
        fields.height = height;
        Store(*this, fields);
    } else if (type == KOORD_GEODEZMIN) {
        auto fields = Load<GeodezMinPayload>(*this);
        fields.height = height;
        Store(*this, fields);
    } else if (type == KOORD_ECEF) {
        ECEF_RecalcCoords();
    }
}

double CKoord::GetHeight() const {
    if (type != KOORD_ECEF) return height;
    const auto fields = Load<EcefPayload>(*this);
    const bool stale = datum != ecefDatum || fields.x != ecefX || fields.y != ecefY || fields.z != ecefZ;
    if (stale) ECEF_RecalcHeight();
    return height;
}

void CKoord::ECEF_INIT() {
    ecefDatum = datum;
    ecefX = 0.0;
    ecefY = 0.0;
    ecefZ = 0.0;
}

bool CKoord::ECEF_CalcHeight() {
    return ECEF_RecalcHeight();
}

bool CKoord::ECEF_RecalcHeight() const {
    if (type != KOORD_ECEF) return false;
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(datum), KOORD_GEODEZ);
    KoordConvert(this, &geodez);
    height = Load<GeodezPayload>(geodez).height;
    const auto fields = Load<EcefPayload>(*this);
    ecefX = fields.x;
    ecefY = fields.y;
    ecefZ = fields.z;
    ecefDatum = datum;
    return true;
}

bool CKoord::ECEF_RecalcCoords() {
    if (type != KOORD_ECEF) return false;
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(datum), KOORD_GEODEZ);
    tagKOORD foot = MakeKoord(static_cast<std::int32_t>(datum), KOORD_ECEF);
    if (KoordConvert(this, &geodez) != KOORD_OK) return true;
    // A point on the axis has no longitude, and its normal is the axis.
    const auto old = Load<EcefPayload>(*this);
    const bool isOnAxis = old.x == 0.0 && old.y == 0.0;
    auto position = Load<GeodezPayload>(geodez);
    if (isOnAxis) position.longitude = 0.0;
    Store(geodez, position);
    if (KoordConvert(&geodez, &foot) != KOORD_OK) return true;

    // The kernel writes ECEF positions on the ellipsoid; the height is added along the normal.
    const SinCos phi = SinCosOf(position.latitude * RADIANS_PER_DEGREE);
    const SinCos lambda = SinCosOf(position.longitude * RADIANS_PER_DEGREE);
    auto fields = Load<EcefPayload>(foot);
    fields.x = isOnAxis ? 0.0 : fields.x + height * phi.cosine * lambda.cosine;
    fields.y = isOnAxis ? 0.0 : fields.y + height * phi.cosine * lambda.sine;
    fields.z += height * phi.sine;
    Store(*this, fields);
    return true;
}

}  // namespace tessara
