// Runs one of the key operations repeatedly, so that scripts/bench-check can count its instructions.
//
//     operation                prints the names
//     operation NAME COUNT     runs one COUNT times, within Repeat alone

#include <charconv>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/positions.h"
#include "support/common_operations.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::bench {

// The counted function; scripts/bench-check finds it by name.
[[gnu::noinline]] void Repeat(const std::function<void(std::size_t)>& operation, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        operation(i % POSITIONS);
}

namespace {

struct Operation {
    std::string name;
    std::function<std::function<void(std::size_t)>()> prepare;
};

std::function<void(std::size_t)> Converting(const std::vector<tagKOORD>& sources, const tagKOORD& target,
                                            std::int32_t checkRange) {
    return [sources, output = target, checkRange](std::size_t i) mutable {
        KoordConvertEx(&sources[i], &output, checkRange);
    };
}

const Area& AreaOf(std::int32_t type) {
    for (const Area& area : AREAS) {
        if (area.type == type) return area;
    }
    return AREAS[0];
}

void AddConversions(std::vector<Operation>* operations) {
    for (const std::int32_t type : {KOORD_UTM, KOORD_UTMREF, KOORD_GEOREF, KOORD_BNG, KOORD_LAMBERTCC}) {
        const Area& area = AreaOf(type);
        operations->push_back({std::string("to ") + area.name, [&area] {
                                   return Converting(RandomPositions(area), Target(area), CheckRange(area));
                               }});
        operations->push_back({std::string("from ") + area.name, [&area] {
                                   return Converting(Converted(area), MakeKoord(area.datum, KOORD_GEODEZ), 1);
                               }});
    }
    for (const std::int32_t type : {KOORD_CH, KOORD_RD}) {
        const Area& area = AreaOf(type);
        operations->push_back({std::string("from ") + area.name, [&area] {
                                   return Converting(Converted(area), MakeKoord(area.datum, KOORD_GEODEZ), 1);
                               }});
    }
}

constexpr Area GERMANY{"Germany", KOORD_GEODEZ, DATUM_WGS84, 47.5, 55.0, 6.0, 15.0};

double DistanceOf(std::size_t i) {
    return 1000.0 + 2000.0 * static_cast<double>(i);
}

void AddShiftAndGeodesics(std::vector<Operation>* operations) {
    operations->push_back({"WGS84 to Bessel", [] {
                               return Converting(RandomPositions(GERMANY), MakeKoord(3, KOORD_GEODEZ), 1);
                           }});
    operations->push_back({"geodesic inverse", [] {
                               return [positions = RandomPositions(GERMANY)](std::size_t i) {
                                   double distance, azimuth12, azimuth21;
                                   Geodesic_Inverse(&positions[i], &positions[(i + 1) % POSITIONS],
                                                    DATUM_WGS84, &distance, &azimuth12, &azimuth21);
                               };
                           }});
    operations->push_back({"geodesic direct", [] {
                               return [positions = RandomPositions(GERMANY)](std::size_t i) {
                                   tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
                                   Geodesic_Direct(&positions[i], DATUM_WGS84, DistanceOf(i), 37.0, &target);
                               };
                           }});
}

// Calls through the interfaces.
void AddObjects(std::vector<Operation>* operations) {
    static testing::CommonOperations common;
    for (const auto& operation : common.All()) {
        const std::string_view name = operation.name;
        const bool isKey = name == "read two texts" || name == "write two texts" ||
                           name == "check a reference's position" || name.starts_with("request: degrees") ||
                           name.starts_with("transfer");
        if (!isKey) continue;
        operations->push_back(
            {std::string(name), [run = operation.run] { return [run](std::size_t) { run(); }; }});
    }
}

int Main(int count, char** arguments) {
    std::vector<Operation> operations;
    AddConversions(&operations);
    AddShiftAndGeodesics(&operations);
    AddObjects(&operations);
    if (count != 3) {
        for (const Operation& operation : operations)
            std::puts(operation.name.c_str());
        return 0;
    }
    std::size_t times = 0;
    std::from_chars(arguments[2], arguments[2] + std::strlen(arguments[2]), times);
    for (const Operation& operation : operations) {
        if (operation.name != arguments[1]) continue;
        Repeat(operation.prepare(), times);
        return 0;
    }
    std::fprintf(stderr, "operation: there is no '%s'\n", arguments[1]);
    return 1;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
