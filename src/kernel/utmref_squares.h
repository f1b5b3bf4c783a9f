// A military reference and the UTM values of its south-western corner, on an ellipsoid by its code.
#pragma once

#include <cmath>
#include <cstdint>

#include "kernel/numeric.h"
#include "kernel/utmref_letters.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// The metre of a zone 1..60 that contains a place to a reference, with the rows of the ellipsoid; `latitude`
// of the same position says the band. KOORD_ERR_GENERAL for values that have no letters; the payload is then
// unchanged.
inline KoordStatus UtmrefFromUtm(const UtmPayload& utm, double latitude, const utmref::AllRows& rows,
                                 UtmrefPayload* payload) {
    constexpr auto side = static_cast<std::uint32_t>(SQUARE_METRES);
    constexpr double lastBand = UTMREF_NORTH_BANDS.size() - 1;
    const bool hasLetters = utm.easting >= SQUARE_METRES && utm.easting < 9.0 * SQUARE_METRES &&
                            utm.northing >= 0.0 && utm.northing < UTM_SOUTHERN_FALSE_NORTHING + 1.0;
    if (!hasLetters) return KOORD_ERR_GENERAL;

    const auto easting = static_cast<std::uint32_t>(TruncateInRange(utm.easting));
    const auto northing = static_cast<std::uint32_t>(TruncateInRange(utm.northing));
    const auto shift = static_cast<std::uint32_t>(utmref::RowShift(utm.zone));
    const std::string_view bands = utm.hemisphere == 'S' ? UTMREF_SOUTH_BANDS : UTMREF_NORTH_BANDS;
    const double band = std::fabs(latitude / UTMREF_BAND_DEGREES);
    payload->zone = utm.zone;
    payload->band = LetterAt(bands, TruncateInRange(band < lastBand ? band : lastBand));
    payload->column = utmref::ColumnLetters(utm.zone)[easting / side - 1];
    payload->row = rows[northing / side + shift];
    payload->easting = static_cast<std::int32_t>(easting % side);
    payload->northing = static_cast<std::int32_t>(northing % side);
    return KOORD_OK;
}

// Hemisphere, zone, easting and northing; the zone isn't looked at. KOORD_ERR_GENERAL for letters that don't
// exist.
KoordStatus UtmrefToUtm(const UtmrefPayload& reference, std::uint32_t ellipsoid, UtmPayload* utm);

}  // namespace tessara
