#include "tessara/kernel/utmref.h"

#include <array>
#include <cmath>
#include <string_view>

#include "kernel/datum_rows.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/utmref_letters.h"
#include "kernel/utmref_squares.h"
#include "kernel/zone_formulas.h"
#include "numerics/circular.h"
#include "numerics/rounding.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

// The factors from meridian distances to the northings of a band: the scale on the central meridian, and the
// scale toward the edge of the zone with a margin.
constexpr double SMALLEST_SCALE = 0.9996;
constexpr double LARGEST_SCALE = 1.00037;

// Whether the metre next to a position of its own zone lies in the same band as the position: 0.71 metres of
// the grid are less than 1e-5 degrees, and a band has 8.
bool IsFarFromBandEdges(const double latLon[2], std::int16_t zone) {
    constexpr double close = 2e-6;  // bands, 1.6e-5 degrees
    constexpr double halfZone = 3.001;
    const double latitude = std::fabs(latLon[0]);
    const double bands = latitude / UTMREF_BAND_DEGREES;
    return IsUtmZone(zone) && std::fabs(latLon[1] - UtmMeridian(zone)) < halfZone &&
           latitude < UTM_LIMITS.north && std::fabs(bands - rounding::Nearest(bands)) > close;
}

// Half a metre to the north-east, a place is in the metre that it is rounded to.
void AddHalfMetre(UtmPayload* utm) {
    utm->easting += 0.5;
    utm->northing += 0.5;
    // A point just south of the equator may round onto it, and the equator belongs to the north.
    if (utm->northing >= UTM_SOUTHERN_FALSE_NORTHING) {
        utm->northing -= UTM_SOUTHERN_FALSE_NORTHING;
        utm->hemisphere = 'N';
    }
}

// The latitude of the south-western corner of the metre that contains a place. Few positions need it, so its
// instructions stand apart.
[[gnu::noinline]] KoordStatus CornerLatitude(UtmPayload utm, std::int32_t datum, double* latitude) {
    utm.easting = Floor(utm.easting);
    utm.northing = Floor(utm.northing);
    double corner[2];
    const KoordStatus status = UTM_ToGeodetic(&utm, corner, TmInverseConstants(datum));
    if (status == KOORD_OK) *latitude = corner[0];
    return status;
}

// The edges of the bands in degrees from the equator.
constexpr std::array EDGES{0.0, 8.0, 16.0, 24.0, 32.0, 40.0, 48.0, 56.0, 64.0, 72.0, 80.0, UTM_LIMITS.north};
using EdgeDistances = std::array<double, EDGES.size()>;

// Distances in metres along a meridian from the equator (F. R. Helmert, "Die mathematischen und
// physikalischen Theorieen der hoeheren Geodaesie", 1880), accurate to a tenth of a millimetre. No band edge
// has a northing that close to the edge of a square.
consteval EdgeDistances ComputeEdgeDistances(const EllipsoidFigure& figure) {
    const double f = figure.Flattening();
    const double n = f / (2.0 - f);
    const double n2 = n * n;
    EdgeDistances distances{};
    for (std::size_t i = 0; i < EDGES.size(); ++i) {
        const double phi = EDGES[i] * PI / 180.0;
        const double arc = (1.0 + n2 / 4.0 + n2 * n2 / 64.0) * phi -
                           3.0 / 2.0 * (n - n * n2 / 8.0) * SinCosOrdinary(2.0 * phi).sine +
                           15.0 / 16.0 * (n2 - n2 * n2 / 4.0) * SinCosOrdinary(4.0 * phi).sine -
                           35.0 / 48.0 * n * n2 * SinCosOrdinary(6.0 * phi).sine +
                           315.0 / 512.0 * n2 * n2 * SinCosOrdinary(8.0 * phi).sine;
        distances[i] = figure.a / (1.0 + n) * arc;
    }
    return distances;
}

// The rows of 100 km squares that a band reaches, counted away from the equator.
struct BandRows {
    std::int8_t first, last;
};

constexpr std::size_t BAND_COUNT = UTMREF_NORTH_BANDS.size();

// North and south of the equator, by the place of the band's letter. A row that ends where a band begins is
// the band's, and one that begins where it ends only in the north.
using RowsOfBands = std::array<std::array<BandRows, BAND_COUNT>, 2>;

consteval RowsOfBands ComputeRows(const EllipsoidFigure& figure) {
    const EdgeDistances distances = ComputeEdgeDistances(figure);
    RowsOfBands rows{};
    for (const bool south : {false, true}) {
        for (std::size_t band = 0; band < BAND_COUNT; ++band) {
            const bool isLastNorth = !south && band + 1 == BAND_COUNT;
            const double nearNorthing = distances[band] * SMALLEST_SCALE;
            const double farNorthing = distances[isLastNorth ? band + 2 : band + 1] * LARGEST_SCALE;
            std::int8_t first = 0;
            while ((first + 1) * SQUARE_METRES < nearNorthing)
                ++first;
            std::int8_t last = first;
            while (south ? (last + 1) * SQUARE_METRES < farNorthing
                         : (last + 1) * SQUARE_METRES <= farNorthing)
                ++last;
            rows[south ? 1 : 0][band] = {first, last};
        }
    }
    return rows;
}

constexpr auto ROWS = ForEachEllipsoid<RowsOfBands>(ComputeRows);

constexpr Alphabet NORTH_BANDS = UTMREF_NORTH_BANDS.data();
constexpr Alphabet SOUTH_BANDS = UTMREF_SOUTH_BANDS.data();
constexpr Alphabet ROWS_AA = UTMREF_ROWS_AA.data();
constexpr Alphabet ROWS_AL = UTMREF_ROWS_AL.data();
constexpr Alphabet COLUMNS_BY_ZONE[] = {UTMREF_COLUMNS_BY_ZONE[0].data(), UTMREF_COLUMNS_BY_ZONE[1].data(),
                                        UTMREF_COLUMNS_BY_ZONE[2].data()};

// Letters repeat every 2000 km: meant is the first square of that letter whose far edge reaches the band.
// NO_LETTER if there is none within the band.
std::int32_t FindRow(std::int32_t position, std::int32_t zone, bool south, BandRows rows) {
    // South of the equator the letters run backward from the last one.
    const std::int32_t fromGridOrigin = position - utmref::RowShift(zone);
    const std::int32_t fromEquator = south ? -1 - fromGridOrigin : fromGridOrigin;
    const std::int32_t ahead = (fromEquator - rows.first) % UTMREF_ROW_CYCLE;
    const std::int32_t row = rows.first + (ahead + UTMREF_ROW_CYCLE) % UTMREF_ROW_CYCLE;
    return row > rows.last ? NO_LETTER : row;
}

}  // namespace

bool UTMREF_UsesSchemeAA(std::int32_t ellipsoidCode) {
    return utmref::HasSchemeAA(static_cast<std::uint32_t>(ellipsoidCode));
}

KoordStatus UtmrefToUtm(const UtmrefPayload& reference, std::uint32_t ellipsoid, UtmPayload* utm) {
    const std::int32_t north = NORTH_BANDS.IndexOf(reference.band);
    const bool isSouth = north == NO_LETTER;
    const std::int32_t band = isSouth ? SOUTH_BANDS.IndexOf(reference.band) : north;
    const std::int32_t position = (utmref::HasSchemeAA(ellipsoid) ? ROWS_AA : ROWS_AL).IndexOf(reference.row);
    const std::int32_t column = COLUMNS_BY_ZONE[utmref::ColumnSet(reference.zone)].IndexOf(reference.column);
    if (band == NO_LETTER || position == NO_LETTER || column == NO_LETTER) return KOORD_ERR_GENERAL;
    const BandRows rows = ROWS[ellipsoid][isSouth ? 1 : 0][static_cast<std::size_t>(band)];
    const std::int32_t row = FindRow(position, reference.zone, isSouth, rows);
    if (row == NO_LETTER) return KOORD_ERR_GENERAL;

    const double southernEdge =
        isSouth ? UTM_SOUTHERN_FALSE_NORTHING - (row + 1) * SQUARE_METRES : row * SQUARE_METRES;
    utm->hemisphere = isSouth ? 'S' : 'N';
    utm->zone = reference.zone;
    utm->easting = (column + 1) * SQUARE_METRES + reference.easting;
    utm->northing = southernEdge + reference.northing;
    return KOORD_OK;
}

KoordStatus UTMREF_FromGeodetic(const double latLon[2], UtmrefPayload* payload, const TmConstants* forward) {
    const DatumRow* datum = RowOf(forward->datum);
    if (datum == nullptr) return KOORD_ERR_DATUM;

    UtmPayload utm{};
    utm.wantedZone = payload->wantedZone;
    KoordStatus status = UTM_FromGeodetic(latLon, &utm, forward);
    if (status != KOORD_OK) return status;
    AddHalfMetre(&utm);
    // The band is that of the rounded position.
    double latitude = latLon[0];
    if (!IsFarFromBandEdges(latLon, utm.zone)) [[unlikely]] {
        status = CornerLatitude(utm, forward->datum, &latitude);
        if (status != KOORD_OK) return status;
    }
    return UtmrefFromUtm(utm, latitude, utmref::AllRowsOf(datum->ellipsoid), payload);
}

KoordStatus UTMREF_ToGeodetic(const UtmrefPayload* payload, double latLon[2], const TmConstants* inverse) {
    const DatumRow* datum = RowOf(inverse->datum);
    if (datum == nullptr) return KOORD_ERR_GENERAL;
    UtmPayload utm{};
    KoordStatus status = UtmrefToUtm(*payload, datum->ellipsoid, &utm);
    if (status != KOORD_OK) return status;
    status = UTM_ToGeodetic(&utm, latLon, inverse);
    if (status != KOORD_OK) return status;

    latLon[0] = SnapToEither(UTM_LIMITS.south, UTM_LIMITS.north, latLon[0], zones::UTMREF_SNAP_DEGREES);
    latLon[1] = SnapToEither(UTM_LIMITS.west, UTM_LIMITS.east, latLon[1], zones::UTMREF_SNAP_DEGREES);
    return KOORD_OK;
}

}  // namespace tessara
