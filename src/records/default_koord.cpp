#include "records/default_koord.h"

#include <cstring>

#include "records/reference.h"
#include "systems/system_row.h"

namespace tessara {

bool DefaultKoord(std::int32_t datum, std::int32_t system, CKoord* koord) {
    const SystemRow& row = SystemOf(system);
    if (row.form == Form::None || !IsReferenceDatum(datum)) return false;
    CKoord fresh;  // its height is 0.0
    fresh.datum = static_cast<std::uint32_t>(datum);
    fresh.type = static_cast<std::uint32_t>(system);
    std::memcpy(fresh.payload, row.defaultPayload.data(), row.defaultPayload.size());
    *koord = fresh;
    return true;
}

bool ResetToDefault(CKoord* koord) {
    return DefaultKoord(static_cast<std::int32_t>(koord->datum), static_cast<std::int32_t>(koord->type),
                        koord);
}

bool IsEarthCentre(const tagKOORD& record) {
    if (record.type != KOORD_ECEF) return false;
    const auto [x, y, z] = Load<EcefPayload>(record);
    return x == 0.0 && y == 0.0 && z == 0.0;
}

}  // namespace tessara
