// The part of a zone within a band is bounded by two parallels, which curve away from the equator toward the
// sides, and by two meridians, which converge toward the pole. A column of squares covers the distances from
// the central meridian between two limits. The nearest point of the column is on the parallel nearer to the
// equator, at the smaller distance. Its furthest point is on the other parallel at the greater distance or,
// if that parallel ends before, in the corner; if it ends even before the smaller distance, the point is on
// the border meridian at the smaller distance. The column has all rows between these two points.
#include "records/utmref_squares.h"

#include <algorithm>
#include <cmath>

#include "kernel/numeric.h"
#include "kernel/utmref_letters.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

constexpr double HALF_WIDTH = 3.0;  // degrees
constexpr double METRES_PER_DEGREE = 111000.0;
// Positions are rounded to whole metres, so a square may be named from half a metre outside.
constexpr double REACH = 1.0;             // metres
constexpr double SEARCH_ACCURACY = 0.01;  // metres
constexpr int SEARCH_ROUNDS = 20;

// The eastern half of a northern zone. All zones are congruent; the western half and southern zones mirror
// this one.
class HalfZone {
  public:
    struct Point {
        double offset;  // from the central meridian, metres
        double northing;
    };

    // Takes a datum 0..238.
    explicit HalfZone(std::int32_t datum) {
        TM_LoadForwardConstants(datum, &forward_);
        TM_LoadInverseConstants(datum, &inverse_);
    }

    // The point where a parallel meets the border of the zone.
    [[nodiscard]] Point BorderAt(double latitude) const { return At(latitude, HALF_WIDTH); }

    // The northing of a parallel at an offset from the central meridian.
    [[nodiscard]] double NorthingOnParallel(double latitude, double offset) const {
        double northing = At(latitude, 0.0).northing;
        double step = 2.0 * SEARCH_ACCURACY;
        for (int round = 0; std::fabs(step) > SEARCH_ACCURACY && round < SEARCH_ROUNDS; ++round) {
            step = (latitude - LatitudeAt({offset, northing})) * METRES_PER_DEGREE;
            northing += step;
        }
        return northing;
    }

    // The northing at which the border has an offset, by secant steps between two latitudes.
    [[nodiscard]] double NorthingOnBorder(double offset, double nearLatitude, double farLatitude) const {
        double last = nearLatitude;
        double lastMiss = BorderAt(last).offset - offset;
        double latitude = farLatitude;
        Point border = BorderAt(latitude);
        double miss = border.offset - offset;
        for (int round = 0; std::fabs(miss) > SEARCH_ACCURACY && round < SEARCH_ROUNDS; ++round) {
            const double next = latitude - miss * (latitude - last) / (miss - lastMiss);
            last = latitude;
            lastMiss = miss;
            latitude = next;
            border = BorderAt(latitude);
            miss = border.offset - offset;
        }
        return border.northing;
    }

  private:
    static constexpr std::int16_t ZONE = 31;
    static constexpr double CENTRAL_MERIDIAN = 3.0;

    [[nodiscard]] Point At(double latitude, double fromMeridian) const {
        UtmPayload utm{};
        utm.wantedZone = ZONE;
        const double latLon[2] = {latitude, CENTRAL_MERIDIAN + fromMeridian};
        UTM_FromGeodetic(latLon, &utm, &forward_);
        return {utm.easting - ZONE_FALSE_EASTING, utm.northing};
    }

    [[nodiscard]] double LatitudeAt(Point point) const {
        UtmPayload utm{};
        utm.hemisphere = 'N';
        utm.zone = ZONE;
        utm.easting = ZONE_FALSE_EASTING + point.offset;
        utm.northing = point.northing;
        double latLon[2]{};
        UTM_ToGeodetic(&utm, latLon, &inverse_);
        return latLon[0];
    }

    TmConstants forward_;
    TmConstants inverse_;
};

// The offsets that a column covers. Columns west of the central meridian are mirrored.
struct ColumnSpan {
    double inner;
    double outer;
};

ColumnSpan SpanOf(std::int32_t column) {
    const double west = (column + 1) * SQUARE_METRES - ZONE_FALSE_EASTING;
    const double east = west + SQUARE_METRES;
    const double inner = std::max({0.0, west, -east});
    return {inner, inner + SQUARE_METRES};
}

struct RowSpan {
    std::int32_t first;
    std::int32_t last;
};

// Rows count from the equator in the north, and from 10000 km south of it in the south.
RowSpan RowsOf(const HalfZone& zone, const UtmrefBand& band, const ColumnSpan& column) {
    const double inner = std::min(column.inner, zone.BorderAt(band.nearEdge).offset);
    const double nearest = zone.NorthingOnParallel(band.nearEdge, inner);
    const HalfZone::Point corner = zone.BorderAt(band.farEdge);
    double furthest = corner.northing;
    if (column.outer <= corner.offset) {
        furthest = zone.NorthingOnParallel(band.farEdge, column.outer);
    } else if (inner > corner.offset) {
        furthest = zone.NorthingOnBorder(inner, band.nearEdge, band.farEdge);
    }

    const double low = band.south ? UTM_SOUTHERN_FALSE_NORTHING - furthest : nearest;
    const double high = band.south ? UTM_SOUTHERN_FALSE_NORTHING - nearest : furthest;
    const auto row = [](double northing) {
        const double inGrid = std::clamp(northing, 0.0, UTM_SOUTHERN_FALSE_NORTHING - 1.0);
        return TruncateToInt32(inGrid / SQUARE_METRES);
    };
    return {row(low - REACH), row(high + REACH)};
}

// Whether a zone of this half width has the column.
bool HasColumn(double halfWidth, std::int32_t column) {
    return SpanOf(column).inner <= halfWidth + REACH;
}

}  // namespace

std::string utmref::Columns(std::int32_t datum, std::int32_t zone, char bandLetter) {
    UtmrefBand band;
    if (Datum_Row(datum) == nullptr || !utmref::FindBand(bandLetter, &band)) return {};
    const double halfWidth = HalfZone(datum).BorderAt(band.nearEdge).offset;
    const std::string_view letters = utmref::ColumnLetters(zone);
    std::string columns;
    for (std::int32_t column = 0; HasIndex(letters, column); ++column) {
        if (HasColumn(halfWidth, column)) columns += LetterAt(letters, column);
    }
    return columns;
}

std::string utmref::Rows(std::int32_t datum, std::int32_t zone, char bandLetter, char columnLetter) {
    const DatumRow* const row = Datum_Row(datum);
    const std::int32_t column = LetterIndex(utmref::ColumnLetters(zone), columnLetter);
    UtmrefBand band;
    if (row == nullptr || column == NO_LETTER || !utmref::FindBand(bandLetter, &band)) return {};
    const HalfZone half(datum);
    if (!HasColumn(half.BorderAt(band.nearEdge).offset, column)) return {};

    const RowSpan span = RowsOf(half, band, SpanOf(column));
    const std::string_view letters = utmref::RowLetters(row->ellipsoid);
    std::string rows;
    for (std::int32_t i = std::max(span.first, 0); i <= span.last; ++i)
        rows += LetterAt(letters, (i + utmref::RowShift(zone)) % UTMREF_ROW_CYCLE);
    return rows;
}

bool utmref::NamesSquare(const tagKOORD& record) {
    if (record.type != KOORD_UTMREF) return false;
    const auto datum = static_cast<std::int32_t>(record.datum);
    const auto p = Load<UtmrefPayload>(record);
    if (!IsUtmZone(p.zone) || p.easting < 0 || p.northing < 0) return false;
    const char band = UpperCase(p.band);
    const char column = UpperCase(p.column);
    return LetterIndex(utmref::Columns(datum, p.zone, band), column) != NO_LETTER &&
           LetterIndex(utmref::Rows(datum, p.zone, band, column), UpperCase(p.row)) != NO_LETTER;
}

}  // namespace tessara
