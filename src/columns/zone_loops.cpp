#include "columns/zone_loops.h"

#include <algorithm>
#include <cmath>

#include "columns/block_loop.h"
#include "columns/transverse_mercator_row.h"
#include "kernel/utmref_letters.h"
#include "numerics/conditions.h"
#include "numerics/rounding.h"

namespace tessara {
namespace zones {
namespace {

using austria::AustrianGrid;
using austria::FALSE_EASTINGS;
using austria::FALSE_NORTHING;
using austria::FERRO;

constexpr double ZONE_WIDTH = UtmMeridian(1) - UtmMeridian(0);

// UtmMeridian of a zone that is a double.
double MeridianOf(double zone) {
    constexpr double before = UtmMeridian(0);
    return ZONE_WIDTH * zone + before;
}

// A wanted meridian, or the natural one.
double MeridianFor(double wanted, double natural) {
    return wanted == wanted ? wanted : natural;
}

struct Utm {
    tm::ForwardRow tm;

    void operator()(Block& block, std::size_t row) const {
        constexpr double lastMeridian =
            UtmMeridian(UTM_ZONE_COUNT);  // beyond it zones are counted from the other end
        const double longitude = block.longitude[row];
        const double meridian = MeridianFor(block.wanted[row], UtmMeridianOf(longitude));
        const double dLon = (longitude - meridian) * RADIANS_PER_DEGREE;
        const Plane plane = tm.PlaneOf(block, row, dLon);
        const double ka = UTM_SCALE * tm.a;
        const double north = NorthOfEquator(block.latitude[row], ka * plane.north);
        block.east[row] = ka * plane.east + ZONE_FALSE_EASTING;
        block.north[row] = UtmNorthing(north);
        block.south[row] = north < 0.0 ? 1.0 : 0.0;
        block.zone[row] = (meridian - UtmMeridian(0)) / ZONE_WIDTH;
        block.Refuse(row, !(std::fabs(meridian) <= lastMeridian));
    }
};

struct UtmBack {
    tm::InverseRow tm;
    double perUnit;

    void operator()(Block& block, std::size_t row) const {
        const double falseNorthing = block.south[row] != 0.0 ? UTM_SOUTHERN_FALSE_NORTHING : 0.0;
        const Plane plane{(block.north[row] - falseNorthing) * perUnit,
                          (block.east[row] - ZONE_FALSE_EASTING) * perUnit};
        const tm::Position position = tm.PositionOf(block, row, plane);
        const double meridian = MeridianOf(block.zone[row]);
        const double longitude = (position.lambda + meridian * RADIANS_PER_DEGREE) * DEGREES_PER_RADIAN;
        tm::Snap(block, row, position.phi * DEGREES_PER_RADIAN, longitude, UTM_LIMITS);
    }
};

// The floor of what isn't negative.
double RoundedToMetres(double metres) {
    return Trunc(metres + 0.5);
}

// A reference has the band of its rounded position. Only next to a border can that be another one.
struct Utmref {
    Utm utm;

    void operator()(Block& block, std::size_t row) const {
        utm(block, row);
        const double east = RoundedToMetres(block.east[row]);
        const double north = RoundedToMetres(block.north[row]);
        // What has letters. Just south of the equator a point rounds onto it.
        block.Refuse(row, !AllOf(east >= SQUARE_METRES, east < 9.0 * SQUARE_METRES, north >= 0.0,
                                 north < UTM_SOUTHERN_FALSE_NORTHING));
        block.east[row] = east;
        block.north[row] = north;
        constexpr double nextTo = 1e-4;  // degrees, ten metres
        const double bands = std::fabs(block.latitude[row] / UTMREF_BAND_DEGREES);
        block.Refuse(row, std::fabs(bands - Trunc(bands + 0.5)) < nextTo / UTMREF_BAND_DEGREES);
    }
};

struct UtmrefBack {
    UtmBack utm;

    void operator()(Block& block, std::size_t row) const {
        utm(block, row);
        block.latitude[row] =
            SnappedToEither(UTM_LIMITS.south, UTM_LIMITS.north, block.latitude[row], UTMREF_SNAP_DEGREES);
        block.longitude[row] =
            SnappedToEither(UTM_LIMITS.west, UTM_LIMITS.east, block.longitude[row], UTMREF_SNAP_DEGREES);
    }
};

template <const StripSystem& system>
struct Strip {
    tm::ForwardRow tm;
    double origin;

    void operator()(Block& block, std::size_t row) const {
        constexpr double width = system.width, offset = system.offset;
        const double longitude = block.longitude[row];
        const double natural = &system == &GK6 ? Gk6MeridianOf(longitude) : GkMeridianOf(longitude);
        const double meridian = MeridianFor(block.wanted[row], natural);
        const double dLon = (longitude - meridian) * RADIANS_PER_DEGREE;
        const Plane plane = tm.PlaneOf(block, row, dLon);
        const double ka = STRIP_SCALE * tm.a;
        const double easting = ka * plane.east + ZONE_FALSE_EASTING;

        const double fromOrigin = meridian - origin;
        const double numbered = fromOrigin < -180.0 ? fromOrigin + 360.0 : fromOrigin;
        const double side = numbered < 0.0 ? -1.0 : 1.0;
        const double strip = Trunc((numbered + side * offset) / width);
        block.east[row] = strip * STRIP_MILLION + side * easting;
        block.north[row] = ka * plane.north;
        block.Refuse(row, !AllOf(std::fabs(natural) <= 180.0, easting >= 0.0, easting <= STRIP_EASTING_END));
    }
};

template <const StripSystem& system>
struct StripBack {
    tm::InverseRow tm;
    double perUnit, origin;

    void operator()(Block& block, std::size_t row) const {
        constexpr double width = system.width, offset = system.offset;
        constexpr Limits limits = system.limits;
        const double whole = block.east[row];
        const double strip = Trunc(Trunc(whole) / STRIP_MILLION);
        const double easting = std::fabs(whole - strip * STRIP_MILLION);
        const double meridian = strip * width + (strip < 0.0 ? offset : -offset);
        const Plane plane{block.north[row] * perUnit, (easting - ZONE_FALSE_EASTING) * perUnit};
        const tm::Position position = tm.PositionOf(block, row, plane);
        const double unturned = (position.lambda + meridian * RADIANS_PER_DEGREE) * DEGREES_PER_RADIAN;
        const double moved = unturned + origin;
        const double turned = moved > 180.0 ? moved - 360.0 : moved;
        tm::Snap(block, row, position.phi * DEGREES_PER_RADIAN, origin != 0.0 ? turned : unturned, limits);
        block.Refuse(row, !AllOf(meridian >= limits.west, meridian <= limits.east));
    }
};

// The number of three that belongs to a meridian.
double OfMeridian(const double (&three)[3], double meridian) {
    const double later = meridian == AUSTRIAN_MERIDIANS[2] ? three[2] : three[1];
    return meridian == AUSTRIAN_MERIDIANS[0] ? three[0] : later;
}

struct Austrian {
    tm::ForwardRow tm;
    AustrianGrid grid;

    void operator()(Block& block, std::size_t row) const {
        constexpr double meridians[3] = {AUSTRIAN_MERIDIANS[0], AUSTRIAN_MERIDIANS[1], AUSTRIAN_MERIDIANS[2]};
        const double east = block.longitude[row] + FERRO;
        const double later = east < 32.5 ? meridians[1] : meridians[2];
        const double natural = east < 29.5 ? meridians[0] : later;
        const double meridian = MeridianFor(block.wanted[row], natural);
        const Plane plane = tm.PlaneOf(block, row, (east - meridian) * RADIANS_PER_DEGREE);
        const double ka = 1.0 * tm.a;
        const double easting = ka * plane.east + OfMeridian(FALSE_EASTINGS, meridian);
        block.east[row] = easting + OfMeridian(grid.eastShifts, meridian);
        block.north[row] = ka * plane.north + FALSE_NORTHING + grid.northShift;
        block.zone[row] = meridian;
    }
};

struct AustrianBack {
    tm::InverseRow tm;
    double perUnit;
    AustrianGrid grid;

    void operator()(Block& block, std::size_t row) const {
        const double meridian = block.zone[row];
        const double easting = block.east[row] - OfMeridian(grid.eastShifts, meridian);
        const double northing = block.north[row] - grid.northShift;
        const Plane plane{(northing - FALSE_NORTHING) * perUnit,
                          (easting - OfMeridian(FALSE_EASTINGS, meridian)) * perUnit};
        const tm::Position position = tm.PositionOf(block, row, plane);
        const double longitude = (position.lambda + meridian * RADIANS_PER_DEGREE) * DEGREES_PER_RADIAN;
        tm::Snap(block, row, position.phi * DEGREES_PER_RADIAN, longitude - FERRO, AUSTRIAN_LIMITS);
    }
};

UtmBack UtmBackOn(std::int32_t datum) {
    const tm::InverseRow tm(datum);
    return {tm, tm.PerUnit(UTM_SCALE)};
}

template <const StripSystem& system>
BlockStep ForwardOn(std::int32_t datum) {
    return StepOver(Strip<system>{tm::ForwardRow(datum), static_cast<double>(StripOrigin(system, datum))});
}

template <const StripSystem& system>
BlockStep InverseOn(std::int32_t datum) {
    const tm::InverseRow tm(datum);
    return StepOver(
        StripBack<system>{tm, tm.PerUnit(STRIP_SCALE), static_cast<double>(StripOrigin(system, datum))});
}

}  // namespace
}  // namespace zones

BlockStep UtmForward(std::int32_t datum) {
    return StepOver(zones::Utm{tm::ForwardRow(datum)});
}

BlockStep UtmInverse(std::int32_t datum) {
    return StepOver(zones::UtmBackOn(datum));
}

BlockStep UtmrefForward(std::int32_t datum) {
    return StepOver(zones::Utmref{{tm::ForwardRow(datum)}});
}

BlockStep UtmrefInverse(std::int32_t datum) {
    return StepOver(zones::UtmrefBack{zones::UtmBackOn(datum)});
}

BlockStep StripForward(const zones::StripSystem& system, std::int32_t datum) {
    return &system == &zones::GK6 ? zones::ForwardOn<zones::GK6>(datum) : zones::ForwardOn<zones::GK>(datum);
}

BlockStep StripInverse(const zones::StripSystem& system, std::int32_t datum) {
    return &system == &zones::GK6 ? zones::InverseOn<zones::GK6>(datum) : zones::InverseOn<zones::GK>(datum);
}

BlockStep AustrianForward(const austria::AustrianGrid& grid, std::int32_t datum) {
    return StepOver(zones::Austrian{tm::ForwardRow(datum), grid});
}

BlockStep AustrianInverse(const austria::AustrianGrid& grid, std::int32_t datum) {
    const tm::InverseRow tm(datum);
    return StepOver(zones::AustrianBack{tm, tm.PerUnit(1.0), grid});
}

}  // namespace tessara
