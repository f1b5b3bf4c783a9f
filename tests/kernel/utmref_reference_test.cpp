// The rows of UTMREF's bands depend on meridian distances from a table, which are compared with geodesics.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string_view>

#include "support/tm_constants.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/utmref.h"

namespace tessara::utmref_reference_test {
namespace {

constexpr std::string_view ROWS_AA = "ABCDEFGHJKLMNPQRSTUV";
constexpr std::string_view ROWS_AL = "LMNPQRSTUVABCDEFGHJK";

double MeridianDistance(double latitude, std::int32_t datum) {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    return Geodesic_InverseCore(0.0, 0.0, latitude, 0.0, axes[0], axes[1]).distance;
}

struct Edges {
    double nearMetres, farMetres;
};

Edges EdgesOfBand(std::size_t index, bool isNorth, std::int32_t datum) {
    const double nearDegrees = 8.0 * static_cast<double>(index);
    const double farDegrees = isNorth && index == 9 ? 84.0 : nearDegrees + 8.0;
    return {MeridianDistance(nearDegrees, datum) * 0.9996, MeridianDistance(farDegrees, datum) * 1.00037};
}

// From the first row that reaches the band, twenty rows on, whichever has the letter; -1 if it lies beyond.
std::int32_t RowOfLetter(std::size_t letterIndex, bool isNorth, const Edges& edges) {
    std::int32_t row = 0;
    while ((row + 1) * 100000.0 < edges.nearMetres)
        ++row;
    const std::int32_t wanted =
        isNorth ? static_cast<std::int32_t>(letterIndex) : 19 - static_cast<std::int32_t>(letterIndex);
    while (row % 20 != wanted)
        ++row;
    const bool isBeyond = isNorth ? row * 100000.0 > edges.farMetres : row * 100000.0 >= edges.farMetres;
    return isBeyond ? -1 : row;
}

TEST(UtmrefToGeodetic, FindsTheRowsThatTheGeodesicFinds) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const TmConstants inverse = testing::InverseConstants(datum);
        const auto ellipsoid = static_cast<std::int32_t>(Datum_Row(datum)->ellipsoid);
        const std::string_view rows = UTMREF_UsesSchemeAA(ellipsoid) ? ROWS_AA : ROWS_AL;
        for (const bool isNorth : {true, false}) {
            const std::string_view bands = isNorth ? "NPQRSTUVWX" : "MLKJHGFEDC";
            for (std::size_t band = 0; band < bands.size(); ++band) {
                const Edges edges = EdgesOfBand(band, isNorth, datum);
                for (std::size_t letter = 0; letter < rows.size(); ++letter) {
                    UtmrefPayload payload{};
                    payload.zone = 31;
                    payload.band = bands[band];
                    payload.column = 'D';
                    payload.row = rows[letter];
                    payload.easting = 99999;  // a metre off the central meridian
                    payload.northing = 50000;
                    double latLon[2] = {};
                    const KoordStatus status = UTMREF_ToGeodetic(&payload, latLon, &inverse);
                    const std::int32_t row = RowOfLetter(letter, isNorth, edges);
                    ASSERT_EQ(status == KOORD_OK, row >= 0)
                        << "datum " << datum << ' ' << payload.band << payload.row;
                    if (row < 0) continue;
                    const double metres = MeridianDistance(std::fabs(latLon[0]), datum) * 0.9996;
                    ASSERT_NEAR(metres, row * 100000.0 + 50000.0,
                                0.01)  // metres: what the two series leave over

                        << "datum " << datum << ' ' << payload.band << payload.row;
                }
            }
        }
    }
}

}  // namespace
}  // namespace tessara::utmref_reference_test
