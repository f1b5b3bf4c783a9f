#include "tessara/kernel/van_der_grinten.h"

#include "kernel/van_der_grinten_formulas.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {

KoordStatus VDG_FromGeodetic(const double latLon[2], VdgPayload* payload, std::int32_t datum) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const vdg::Point point =
        vdg::Forward<Cases::Branch>((latLon[0] - payload->originLatitude) * RADIANS_PER_DEGREE,
                                    (latLon[1] - payload->originLongitude) * RADIANS_PER_DEGREE, row->a);
    payload->x = point.x;
    payload->y = point.y;
    return KOORD_OK;
}

KoordStatus VDG_ToGeodetic(const VdgPayload* payload, std::int32_t datum, double latLon[2]) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const vdg::Offsets offsets = vdg::Inverse<Cases::Branch>(payload->x, payload->y, row->a);
    if (!offsets.exist) return KOORD_ERR_GRID_RANGE;
    latLon[0] = offsets.phi * DEGREES_PER_RADIAN + payload->originLatitude;
    latLon[1] = offsets.lambda * DEGREES_PER_RADIAN + payload->originLongitude;
    return KOORD_OK;
}

}  // namespace tessara
