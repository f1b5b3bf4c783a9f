// Records of one type for conversions of arrays: ordinary positions, borders and their neighbours, poles,
// values that are not numbers, and invalid fields, all with the same parameters.
#pragma once

#include <cmath>
#include <cstring>
#include <vector>

#include "support/garbage_records.h"
#include "support/random.h"
#include "support/records.h"
#include "systems/system_row.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {

// A record of a type with usual parameters and no position.
inline tagKOORD WithParameters(std::int32_t type, std::int32_t datum) {
    tagKOORD record = NaturalTarget(type, datum);
    if (type == KOORD_TM) {
        Store(record, TmPayload{10.0, 47.0, 5e5, 1e5, 0.9996, 0.0, 0.0});
    } else if (type == KOORD_VDG) {
        Store(record, VdgPayload{10.0, 5.0, 0.0, 0.0});
    } else if (type == KOORD_LAMBERTCC) {
        LambertCCPayload cone{};
        cone.parallel1 = 45.0f;
        cone.parallel2 = 48.0f;
        cone.originLongitude = 10.0f;
        cone.originLatitude = 47.0f;
        Store(record, cone);
    }
    return record;
}

struct MixedPosition {
    double latitude, longitude;
};

// The areas of the national grids.
inline MixedPosition OrdinaryPosition(Random& random) {
    constexpr double homes[][4] = {{46.0, 48.0, 9.0, 17.5},   {50.0, 58.0, -6.0, 1.5},
                                   {51.5, 55.0, -10.0, -6.0}, {49.5, 50.1, 5.8, 6.5},
                                   {37.0, 42.0, -9.5, -6.5},  {50.8, 53.4, 3.5, 7.0},
                                   {47.0, 55.0, 6.0, 15.0},   {-80.0, 84.0, -180.0, 180.0}};
    const auto& home = homes[random.Below(8)];
    return {random.Between(home[0], home[1]), random.Between(home[2], home[3])};
}

inline double AtOrNextTo(Random& random, double value) {
    constexpr double distances[] = {0.0, 1e-16, 1e-12, 1e-9, 1e-7, 1e-5, 1e-3};
    const double distance = random.OneOf(distances);
    switch (random.Below(4)) {
        case 0:
            return std::nextafter(value, -1e300);
        case 1:
            return std::nextafter(value, 1e300);
        case 2:
            return value - distance;
        default:
            return value + distance;
    }
}

// On a border, or a few units of the last place from it.
inline MixedPosition BorderPosition(Random& random) {
    constexpr double latitudes[] = {0.0,  8.0,  45.0, 47.0, 51.0,  72.0, 80.0,
                                    84.0, 85.0, 88.0, 90.0, -80.0, 60.0, 89.99999};
    const double latitude = AtOrNextTo(random, random.OneOf(latitudes));
    const double longitude = AtOrNextTo(random, 1.5 * random.Below(241) - 180.0);
    return {random.Below(2) == 0 ? latitude : -latitude, longitude};
}

// Outside all limits, or not a number.
inline MixedPosition WildPosition(Random& random) {
    constexpr double values[] = {NAN, HUGE_VAL, -HUGE_VAL, 1e300, 1e-320, -0.0, 91.0, 361.0, -541.0, 1e10};
    const MixedPosition ordinary = OrdinaryPosition(random);
    switch (random.Below(3)) {
        case 0:
            return {random.OneOf(values), ordinary.longitude};
        case 1:
            return {ordinary.latitude, random.OneOf(values)};
        default:
            return {random.Between(-200.0, 200.0), random.Between(-1000.0, 1000.0)};
    }
}

inline MixedPosition AnyPosition(Random& random) {
    switch (random.Below(8)) {
        case 0:
            return WildPosition(random);
        case 1:
        case 2:
            return BorderPosition(random);
        default:
            return OrdinaryPosition(random);
    }
}

// Overwrites one or more fields, except the parameters.
inline void MutatePosition(Random& random, tagKOORD* record) {
    const tagKOORD before = *record;
    Mutate(random, record);
    std::memcpy(record->payload, before.payload, SystemOf(*record).parameterBytes);
}

inline std::vector<tagKOORD> MixedSources(Random& random, std::int32_t type, std::int32_t datum,
                                          std::size_t count) {
    std::vector<tagKOORD> sources;
    while (sources.size() < count) {
        const MixedPosition position = AnyPosition(random);
        const tagKOORD degrees =
            GeodezRecord(position.latitude, position.longitude, random.Between(-100.0, 9000.0), datum);
        tagKOORD source = WithParameters(type, datum);
        KoordConvertEx(&degrees, &source, 0);
        if (type == KOORD_GEODEZ) source = degrees;
        if (random.Below(16) == 0) MutatePosition(random, &source);
        sources.push_back(source);
    }
    return sources;
}

// Some have another wanted zone, and none is initialised.
inline std::vector<tagKOORD> MixedTargets(Random& random, std::int32_t type, std::int32_t datum,
                                          std::size_t count) {
    std::vector<tagKOORD> targets;
    while (targets.size() < count) {
        tagKOORD target = WithParameters(type, datum);
        if (random.Below(4) == 0) MutatePosition(random, &target);
        targets.push_back(target);
    }
    return targets;
}

}  // namespace tessara::testing
