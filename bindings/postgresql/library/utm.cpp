// UTM of single positions: what queries ask for most, without anything to prepare.
#include "degrees.h"
#include "guard.h"
#include "tessara/kernel/constants.h"

namespace tessara::postgresql {

extern "C" {

bool Tessara_Utm(double latitude, double longitude, int32_t zone, TessaraUtm* utm,
                 TessaraError* error) noexcept {
    if (zone < 0 || zone > UTM_ZONE_COUNT) {
        WriteError({TESSARA_WRONG_ARGUMENT, "UTM has the zones 1 to 60"}, error);
        return false;
    }
    UtmPayload p{};
    p.wantedZone = zone == 0 ? NO_WANTED_ZONE : static_cast<std::int16_t>(zone);
    const KoordStatus status = ToUtm(latitude, longitude, &p);
    if (status != KOORD_OK) return NoPosition(latitude, longitude, status, error);
    *utm = {p.zone, p.hemisphere, p.easting, p.northing};
    return true;
}

}  // extern "C"

}  // namespace tessara::postgresql
