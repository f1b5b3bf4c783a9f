// UTM of single positions: what queries ask for most, without anything to prepare.
#include "guard.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara::postgresql {

extern "C" {

bool Tessara_Utm(double latitude, double longitude, int32_t zone, TessaraUtm* utm,
                 TessaraError* error) noexcept {
    if (zone < 0 || zone > UTM_ZONE_COUNT) {
        WriteError({TESSARA_WRONG_ARGUMENT, "UTM has the zones 1 to 60"}, error);
        return false;
    }
    tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(degrees, GeodezPayload{latitude, longitude, 0.0});
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTM);
    UtmPayload wanted{};
    wanted.wantedZone = zone == 0 ? NO_WANTED_ZONE : static_cast<std::int16_t>(zone);
    Store(record, wanted);
    const KoordStatus status = KoordConvert(&degrees, &record);
    if (status != KOORD_OK) return NoPosition(latitude, longitude, status, error);
    const auto p = Load<UtmPayload>(record);
    *utm = {p.zone, p.hemisphere, p.easting, p.northing};
    return true;
}

}  // extern "C"

}  // namespace tessara::postgresql
