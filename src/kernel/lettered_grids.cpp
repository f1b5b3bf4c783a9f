#include "tessara/kernel/lettered_grids.h"

#include <cmath>
#include <string_view>

#include "kernel/datum_rows.h"
#include "kernel/grid_constants.h"
#include "kernel/grid_factors.h"
#include "kernel/lettered_references.h"
#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "numerics/rounding.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

struct LetteredGrid {
    grids::FixedGrid grid;       // the lower limits are 0
    Alphabet squares;            // letters of the 500 km squares, row by row from the south-west
    std::int32_t squareColumns;  // number of squares in a row
    bool roundsFullValues;       // whether full values without letters are read as whole metres
};

constexpr LetteredGrid BRITISH{grids::BRITISH, "STNOHJ", 2, false};
constexpr LetteredGrid IRISH{grids::IRISH, "I", 1, true};

// Letters of the 100 km squares within a 500 km square, row by row from the south-west.
constexpr Alphabet SUB_SQUARES = "VWXYZQRSTULMNOPFGHJKABCDE";
constexpr std::int32_t SUB_SQUARE_COLUMNS = 5;

constexpr std::int32_t SQUARE = 500000;      // metres
constexpr std::int32_t SUB_SQUARE = 100000;  // metres

// The upper limit is part of the grid and has the letters of the last square.
double WithinLastSquare(double value, double limit) {
    return value == limit ? limit - LIMIT_TOLERANCE_METRES : value;
}

double PreferFullValue(double address, double full) {
    return std::fabs(address - full) < 1.0 ? full : address;
}

// The letters of grid values within the limits, and the metres within the square.
template <const LetteredGrid& lettered>
void WriteReference(double easting, double northing, LetterGridPayload* payload) {
    const Limits& limits = lettered.grid.limits;
    // Squares begin at whole metres.
    const std::int32_t east = TruncateToInt32(WithinLastSquare(easting, limits.east));
    const std::int32_t north = TruncateToInt32(WithinLastSquare(northing, limits.north));
    const std::int32_t column = east / SUB_SQUARE;
    const std::int32_t row = north / SUB_SQUARE;
    const std::int32_t squareColumn = column / SUB_SQUARE_COLUMNS;
    const std::int32_t squareRow = row / SUB_SQUARE_COLUMNS;

    payload->square = lettered.squares.LetterAt(lettered.squareColumns * squareRow + squareColumn);
    payload->subSquare = SUB_SQUARES.LetterAt(SUB_SQUARE_COLUMNS * (row - SUB_SQUARE_COLUMNS * squareRow) +
                                              (column - SUB_SQUARE_COLUMNS * squareColumn));
    payload->easting = east - column * SUB_SQUARE;
    payload->northing = north - row * SUB_SQUARE;
    payload->fullEasting = easting;
    payload->fullNorthing = northing;
}

// The grid is a template argument, so that its numbers are constants in the code of each conversion.
template <const LetteredGrid& lettered>
KoordStatus FromGeodetic(const double latLon[2], LetterGridPayload* payload, const TmConstants* forward) {
    constexpr const grids::FixedGrid& grid = lettered.grid;
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
    WriteReference<lettered>(easting, northing, payload);
    return KOORD_OK;
}

// The grid values of a payload's letters and metres; false for letters outside the grid.
template <const LetteredGrid& lettered>
bool ResolveLetters(const LetterGridPayload& payload, GridValues* values) {
    const std::int32_t square = lettered.squares.IndexOf(UpperCase(payload.square));
    const std::int32_t subSquare = SUB_SQUARES.IndexOf(UpperCase(payload.subSquare));
    if (square == NO_LETTER || subSquare == NO_LETTER) return false;

    const double easting = square % lettered.squareColumns * SQUARE + payload.easting +
                           subSquare % SUB_SQUARE_COLUMNS * SUB_SQUARE;
    const double northing = square / lettered.squareColumns * SQUARE + payload.northing +
                            subSquare / SUB_SQUARE_COLUMNS * SUB_SQUARE;
    values->easting = PreferFullValue(easting, payload.fullEasting);
    values->northing = PreferFullValue(northing, payload.fullNorthing);
    return true;
}

template <const LetteredGrid& lettered>
GridValues FullValues(const LetterGridPayload& payload) {
    if (!lettered.roundsFullValues) return {payload.fullEasting, payload.fullNorthing};
    return {Trunc(payload.fullEasting + 0.5), Trunc(payload.fullNorthing + 0.5)};
}

template <const LetteredGrid& lettered>
bool ReadReference(const LetterGridPayload& payload, GridValues* values) {
    *values = FullValues<lettered>(payload);
    const bool hasLetters = payload.square != '\0' && payload.subSquare != '\0';
    return !hasLetters || ResolveLetters<lettered>(payload, values);
}

template <const LetteredGrid& lettered>
KoordStatus ToGeodetic(const LetterGridPayload* payload, double latLon[2], const TmConstants* inverse) {
    constexpr const grids::FixedGrid& grid = lettered.grid;
    GridValues values;
    if (!ReadReference<lettered>(*payload, &values)) return KOORD_ERR_GRID_RANGE;
    const DatumRow* datum = RowOf(inverse->datum);
    if (!datum) return KOORD_ERR_DATUM;
    TmInverseFromOrigin(values.easting, values.northing, grid.projection,
                        grid.originNorthings[datum->ellipsoid], latLon, *inverse);
    return KOORD_OK;
}

}  // namespace

void BngWriteReference(const GridValues& values, LetterGridPayload* payload) {
    WriteReference<BRITISH>(values.easting, values.northing, payload);
}

void IngWriteReference(const GridValues& values, LetterGridPayload* payload) {
    WriteReference<IRISH>(values.easting, values.northing, payload);
}

bool BngReadReference(const LetterGridPayload& payload, GridValues* values) {
    return ReadReference<BRITISH>(payload, values);
}

bool IngReadReference(const LetterGridPayload& payload, GridValues* values) {
    return ReadReference<IRISH>(payload, values);
}

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

KoordStatus BNG_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return TmOrigin_Factors(grids::BRITISH.projection, record, latLon, factors);
}

KoordStatus ING_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return TmOrigin_Factors(grids::IRISH.projection, record, latLon, factors);
}

}  // namespace tessara
