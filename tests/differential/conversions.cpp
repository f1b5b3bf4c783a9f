// Conversions there and back, the factors of conformal grids beside finite differences, and zones.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "bench/positions.h"
#include "differential/check.h"
#include "records/axis_values.h"
#include "records/zones.h"
#include "support/records.h"
#include "systems/system_row.h"
#include "tessara/kernel/convergence.h"
#include "tessara/kernel/datum.h"

namespace tessara::differential {
namespace {

using bench::Area;
using bench::AREAS;

constexpr double METRES_PER_DEGREE = 111320.0;

std::string Describe(const char* what, double latitude, double longitude, const char* more = "") {
    char text[200];
    std::snprintf(text, sizeof text, "%s %.12f %.12f %s", what, latitude, longitude, more);
    return text;
}

double OnTheGround(const GeodezPayload& a, const GeodezPayload& b) {
    const double along =
        std::remainder(b.longitude - a.longitude, 360.0) * std::cos(a.latitude / DEGREES_PER_RADIAN);
    return METRES_PER_DEGREE * std::hypot(b.latitude - a.latitude, along);
}

// Metres to which a system writes a position, and to which it comes back.
double ResolutionOf(std::int32_t type) {
    switch (type) {
        case KOORD_UTMREF:
            return 1.0;
        case KOORD_GEOREF:
            return 40.0;
        case KOORD_VDG:
            return 0.1;  // loses digits near its axes
        default:
            return 1e-5;
    }
}

tagKOORD TargetIn(const Area& area) {
    tagKOORD target = bench::Target(area);
    target.datum = DATUM_WGS84;
    if (area.type == KOORD_GEOREF) {
        GeorefPayload payload{};
        payload.precision = 5;  // hundredths of a minute
        Store(target, payload);
    }
    return target;
}

// Through each pair of systems, at a position of both.
Outcome ThereAndBack(Random& random, std::size_t cases, double resolution) {
    Outcome outcome;
    for (const Area& one : AREAS) {
        for (const Area& other : AREAS) {
            if (std::max(ResolutionOf(one.type), ResolutionOf(other.type)) != resolution) continue;
            const double south = std::max(one.south, other.south), north = std::min(one.north, other.north);
            const double west = std::max(one.west, other.west), east = std::min(one.east, other.east);
            if (south >= north || west >= east) continue;
            for (std::size_t i = 0; i < cases; ++i) {
                const GeodezPayload start{random.Between(south, north), random.Between(west, east), 0.0};
                const tagKOORD degrees = GeodezRecord(start.latitude, start.longitude);
                tagKOORD first = TargetIn(one), second = TargetIn(other), back = TargetIn(one);
                tagKOORD end = GeodezRecord(0.0, 0.0);
                const bool isDone = KoordConvertEx(&degrees, &first, bench::CheckRange(one)) == KOORD_OK &&
                                    KoordConvertEx(&first, &second, bench::CheckRange(other)) == KOORD_OK &&
                                    KoordConvertEx(&second, &back, bench::CheckRange(one)) == KOORD_OK &&
                                    KoordConvertEx(&back, &end, 1) == KOORD_OK;
                const double difference = isDone ? OnTheGround(start, Load<GeodezPayload>(end)) : NAN;
                outcome.Note(difference,
                             [&] { return Describe(one.name, start.latitude, start.longitude, other.name); });
            }
        }
    }
    return outcome;
}

Outcome DatumsThereAndBack(Random& random, std::size_t cases) {
    Outcome outcome;
    for (std::size_t i = 0; i < cases; ++i) {
        const std::int32_t from = random.Below(DATUM_COUNT), to = random.Below(DATUM_COUNT);
        const GeodezPayload start{random.Between(-85.0, 85.0), random.Between(-180.0, 180.0), 0.0};
        const tagKOORD here = GeodezRecord(start.latitude, start.longitude, 0.0, from);
        tagKOORD there = MakeKoord(to, KOORD_GEODEZ), back = MakeKoord(from, KOORD_GEODEZ);
        if (from == DATUM_SPHERE || to == DATUM_SPHERE) continue;
        const bool isDone =
            KoordConvert(&here, &there) == KOORD_OK && KoordConvert(&there, &back) == KOORD_OK;
        const auto end = Load<GeodezPayload>(back);
        const double difference = std::max(std::fabs(end.latitude - start.latitude),
                                           std::fabs(std::remainder(end.longitude - start.longitude, 360.0)));
        outcome.Note(isDone ? difference : NAN, [&] {
            return Describe(Datum_Name(from), start.latitude, start.longitude, Datum_Name(to));
        });
    }
    return outcome;
}

struct Way {
    double east, north;
};

Way operator-(const Way& a, const Way& b) {
    return {a.east - b.east, a.north - b.north};
}
Way operator*(double s, const Way& a) {
    return {s * a.east, s * a.north};
}

// The derivative of a function of t at 0, from values up to 2 h away. The error is of the order h^4.
template <class Function>
Way Derivative(Function at, double h) {
    return (2.0 / (3.0 * h)) * (at(h) - at(-h)) - (1.0 / (12.0 * h)) * (at(2.0 * h) - at(-2.0 * h));
}

// A grid whose factors are known, from its values along the meridian and the parallel: both are stretched by
// the scale and turned by the convergence.
Outcome ScaleLaws(Random& random, std::size_t cases) {
    constexpr double STEP = 0.01;  // degrees
    Outcome outcome;
    for (const Area& area : AREAS) {
        // A LAMBERTCC record stores some parameters as floats, a UTMREF record whole metres.
        if (!Grid_HasFactors(area.type) || area.type == KOORD_LAMBERTCC || area.type == KOORD_UTMREF)
            continue;
        const double a = Datum_SemiMajorAxis(area.datum), e2 = Datum_EccentricitySquared(area.datum);
        for (std::size_t i = 0; i < cases; ++i) {
            const double latitude = random.Between(area.south, area.north);
            const double longitude = random.Between(area.west, area.east);
            bool isOneZone = true;
            std::int32_t zone = UNKNOWN_ZONE;
            tagKOORD record;
            const auto at = [&](double lat, double lon) -> Way {
                const tagKOORD degrees = GeodezRecord(lat, lon, 0.0, area.datum);
                record = bench::Target(area);
                if (KoordConvertEx(&degrees, &record, 0) != KOORD_OK) return {NAN, NAN};
                if (zone == UNKNOWN_ZONE) zone = zones::Number(record);
                isOneZone = isOneZone && zone == zones::Number(record);
                const bool isZoned = zones::Exist(area.type);
                const double east = isZoned ? zones::East(record) : axes::Value(Axis::East, record);
                return {east, axes::Value(Axis::North, record)};
            };
            const Way perLatitude = Derivative([&](double t) { return at(latitude + t, longitude); }, STEP);
            const Way perLongitude = Derivative([&](double t) { return at(latitude, longitude + t); }, STEP);
            at(latitude, longitude);
            // A hemisphere has its own numbers, too.
            if (!isOneZone || std::fabs(latitude) < 2.0 * STEP) continue;
            GridFactors factors;
            const double latLon[2] = {latitude, longitude};
            if (Grid_Factors(&record, latLon, &factors) != KOORD_OK) factors.scale = NAN;

            const double phi = latitude / DEGREES_PER_RADIAN,
                         gamma = factors.convergence / DEGREES_PER_RADIAN;
            const double w2 = 1.0 - e2 * std::sin(phi) * std::sin(phi);
            const double alongMeridian = a * (1.0 - e2) / (w2 * std::sqrt(w2)) / DEGREES_PER_RADIAN;
            const double alongParallel = a * std::cos(phi) / std::sqrt(w2) / DEGREES_PER_RADIAN;
            const Way north =
                (1.0 / alongMeridian) * perLatitude - factors.scale * Way{-std::sin(gamma), std::cos(gamma)};
            const Way east =
                (1.0 / alongParallel) * perLongitude - factors.scale * Way{std::cos(gamma), std::sin(gamma)};
            outcome.Note(std::hypot(std::hypot(north.east, north.north), std::hypot(east.east, east.north)),
                         [&] { return Describe(area.name, latitude, longitude); });
        }
    }
    return outcome;
}

// The number of the zone beside the one of a longitude.
std::int16_t NeighbourOf(ZoneRule rule, double longitude, int side) {
    const auto whole = [](double value) { return static_cast<int>(std::floor(value)); };
    switch (rule) {
        case ZoneRule::Utm:
            return static_cast<std::int16_t>((whole(longitude / 6.0) + 30 + side + 60) % 60 + 1);
        case ZoneRule::Strips3:
            return static_cast<std::int16_t>(3 * (whole(longitude / 3.0 + 0.5) + side));
        case ZoneRule::Strips6:
            return static_cast<std::int16_t>(6 * (whole(longitude / 6.0) + side) + 3);
        default:
            return static_cast<std::int16_t>(31 + 3 * side);
    }
}

// Into the zone to the east or west, and home.
Outcome ZonesThereAndBack(Random& random, std::size_t cases) {
    Outcome outcome;
    for (const Area& area : AREAS) {
        const ZoneRule rule = SystemOf(static_cast<std::uint32_t>(area.type)).zones.rule;
        if (rule == ZoneRule::None || area.type == KOORD_UTMREF) continue;
        for (std::size_t i = 0; i < cases; ++i) {
            const double latitude = random.Between(area.south, area.north);
            const double longitude = random.Between(std::max(area.west, -170.0), std::min(area.east, 170.0));
            const tagKOORD degrees = GeodezRecord(latitude, longitude, 0.0, area.datum);
            tagKOORD home = bench::Target(area), away = home, back = home;
            zones::Want(NO_WANTED_ZONE, &home);
            zones::Want(NO_WANTED_ZONE, &back);
            const std::int16_t neighbour = NeighbourOf(rule, longitude, random.Below(2) == 0 ? 1 : -1);
            zones::Want(neighbour, &away);
            const KoordStatus status = KoordConvertEx(&degrees, &home, 0);
            const KoordStatus outward = KoordConvertEx(&home, &away, 0);
            // Strips end 500 km from their meridian.
            const double fromMeridian =
                OnTheGround({latitude, longitude, 0.0}, {latitude, neighbour * 1.0, 0.0});
            if (outward == KOORD_ERR_GK_EAST && fromMeridian > 490000.0) continue;
            const bool isDone =
                status == KOORD_OK && (outward == KOORD_OK || outward == KOORD_ERR_ZONE_DISTANT) &&
                KoordConvertEx(&away, &back, 0) == KOORD_OK && zones::Number(back) == zones::Number(home);
            const Way miss = Way{zones::East(back), axes::Value(Axis::North, back)} -
                             Way{zones::East(home), axes::Value(Axis::North, home)};
            outcome.Note(isDone ? std::hypot(miss.east, miss.north) : NAN,
                         [&] { return Describe(area.name, latitude, longitude); });
        }
    }
    return outcome;
}

Check PairsCheck(const char* subject, double resolution, double limit) {
    return {subject,
            "the way back",
            "m",
            limit,
            200,
            [resolution](Random& random, std::size_t cases) {
                return ThereAndBack(random, cases, resolution); }};
}

}  // namespace

void AddConversions(Checks* checks) {
    checks->push_back(PairsCheck("pairs of systems of numbers", 1e-5, 1e-5));
    checks->push_back(PairsCheck("pairs with UTMREF", 1.0, 1.5));
    checks->push_back(PairsCheck("pairs with GEOREF", 40.0, 40.0));
    checks->push_back(PairsCheck("pairs with VDG", 0.1, 0.1));
    checks->push_back({"pairs of datums", "the way back", "degrees", 4e-6, 200000, DatumsThereAndBack});
    checks->push_back({"scale and convergence", "finite differences", "ratio", 1e-9, 4000, ScaleLaws});
    checks->push_back({"zones", "the way back", "m", 1e-5, 20000, ZonesThereAndBack});
}

}  // namespace tessara::differential
