#include "tessara/kernel/lettered_grids.h"

#include <cmath>
#include <string_view>

#include "kernel/datum_rows.h"
#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/transverse_mercator_series.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

struct LetteredGrid {
    TmParams projection;
    OriginNorthings originNorthings;
    Limits limits;               // the lower ones are 0
    Alphabet squares;            // letters of the 500 km squares, row by row from the south-west
    std::int32_t squareColumns;  // how many make a row
    bool roundsFullValues;       // full values without letters count as whole metres
};

constexpr double BRITISH_LATITUDE = 49.0;
constexpr double IRISH_LATITUDE = 53.5;

constexpr LetteredGrid BRITISH = {
    .projection = {-2.0, BRITISH_LATITUDE, 400000.0, -100000.0, 0.9996012717},
    .originNorthings = ComputeOriginNorthings(BRITISH_LATITUDE),
    .limits = BNG_LIMITS,
    .squares = "STNOHJ",
    .squareColumns = 2,
    .roundsFullValues = false,
};

constexpr LetteredGrid IRISH = {
    .projection = {-8.0, IRISH_LATITUDE, 200000.0, 250000.0, 1.000035},
    .originNorthings = ComputeOriginNorthings(IRISH_LATITUDE),
    .limits = ING_LIMITS,
    .squares = "I",
    .squareColumns = 1,
    .roundsFullValues = true,
};

// Letters of the 100 km squares within a 500 km square, row by row from the south-west.
constexpr Alphabet SUB_SQUARES = "VWXYZQRSTULMNOPFGHJKABCDE";
constexpr std::int32_t SUB_SQUARE_COLUMNS = 5;

constexpr std::int32_t SQUARE = 500000;      // metres
constexpr std::int32_t SUB_SQUARE = 100000;  // metres

// The upper limit itself is part of the grid, and its letters are those of the last square.
double WithinLastSquare(double value, double limit) {
    return value == limit ? limit - LIMIT_TOLERANCE_METRES : value;
}

double PreferFullValue(double address, double full) {
    return std::fabs(address - full) < 1.0 ? full : address;
}

// The grid is a constant of each of the two conversions: its numbers are in the code.
template <const LetteredGrid& grid>
KoordStatus FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward) {
    const DatumRow* datum = RowOf(forward->datum);
    if (!datum) return KOORD_ERR_DATUM;
    double easting, northing;
    TmForwardFromOrigin(latLon, grid.projection, grid.originNorthings[datum->ellipsoid], &easting, &northing,
                        *forward);
    const Limits& limits = grid.limits;
    easting = SnapToEither(limits.west, limits.east, easting, LIMIT_TOLERANCE_METRES);
    northing = SnapToEither(limits.south, limits.north, northing, LIMIT_TOLERANCE_METRES);
    if (!IsWithin(easting, limits.west, limits.east) || !IsWithin(northing, limits.south, limits.north)) {
        return KOORD_ERR_GRID_RANGE;
    }

    // Squares begin at whole metres.
    const std::int32_t east = TruncateToInt32(WithinLastSquare(easting, limits.east));
    const std::int32_t north = TruncateToInt32(WithinLastSquare(northing, limits.north));
    const std::int32_t square = grid.squareColumns * (north / SQUARE) + east / SQUARE;
    const std::int32_t column = east / SUB_SQUARE % SUB_SQUARE_COLUMNS;
    const std::int32_t row = north / SUB_SQUARE % SUB_SQUARE_COLUMNS;

    payload->square = grid.squares.LetterAt(square);
    payload->subSquare = SUB_SQUARES.LetterAt(SUB_SQUARE_COLUMNS * row + column);
    payload->easting = east % SUB_SQUARE;
    payload->northing = north % SUB_SQUARE;
    payload->fullEasting = easting;
    payload->fullNorthing = northing;
    return KOORD_OK;
}

struct GridValues {
    double easting, northing;
};

// The grid values that a payload's letters and metres stand for; false for letters that aren't the grid's.
template <const LetteredGrid& grid>
bool ResolveLetters(const LetterGridPayload& payload, GridValues* values) {
    const std::int32_t square = grid.squares.IndexOf(UpperCase(payload.square));
    const std::int32_t subSquare = SUB_SQUARES.IndexOf(UpperCase(payload.subSquare));
    if (square == NO_LETTER || subSquare == NO_LETTER) return false;

    const double easting =
        square % grid.squareColumns * SQUARE + payload.easting + subSquare % SUB_SQUARE_COLUMNS * SUB_SQUARE;
    const double northing =
        square / grid.squareColumns * SQUARE + payload.northing + subSquare / SUB_SQUARE_COLUMNS * SUB_SQUARE;
    values->easting = PreferFullValue(easting, payload.fullEasting);
    values->northing = PreferFullValue(northing, payload.fullNorthing);
    return true;
}

template <const LetteredGrid& grid>
GridValues FullValues(const LetterGridPayload& payload) {
    if (!grid.roundsFullValues) return {payload.fullEasting, payload.fullNorthing};
    return {std::trunc(payload.fullEasting + 0.5), std::trunc(payload.fullNorthing + 0.5)};
}

template <const LetteredGrid& grid>
KoordStatus ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* inverse) {
    GridValues values = FullValues<grid>(*payload);
    const bool hasLetters = payload->square != '\0' && payload->subSquare != '\0';
    if (hasLetters && !ResolveLetters<grid>(*payload, &values)) return KOORD_ERR_GRID_RANGE;
    const DatumRow* datum = RowOf(inverse->datum);
    if (!datum) return KOORD_ERR_DATUM;
    TmInverseFromOrigin(values.easting, values.northing, grid.projection,
                        grid.originNorthings[datum->ellipsoid], latLon, *inverse);
    return KOORD_OK;
}

}  // namespace

KoordStatus BNG_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward) {
    return FromGeodetic<BRITISH>(latLon, payload, forward);
}

KoordStatus ING_FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward) {
    return FromGeodetic<IRISH>(latLon, payload, forward);
}

KoordStatus BNG_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants*,
                           const TmConstants* inverse) {
    return ToGeodetic<BRITISH>(payload, latLon, inverse);
}

KoordStatus ING_ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants*,
                           const TmConstants* inverse) {
    return ToGeodetic<IRISH>(payload, latLon, inverse);
}

}  // namespace tessara
